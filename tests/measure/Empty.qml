import QtQuick 2.14
import QtQuick.Window 2.14
import QtQuick.Controls 2.5
import QtQuick.Layouts 1.15

// What Main.qml imports, and nothing of what it shows. Its colour tells that it is painted.
ApplicationWindow {
    flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowMinMaxButtonsHint
    color: "#1F6FFF"
    visible: true
    width: 640
    height: 408
}
