import QtQuick 2.12
import QtQuick.Layouts 1.14
import QtQuick.Controls.Styles 1.4
import QtQuick.Controls 1.4 as T
import QtQuick.Controls 2.14
import QtQuick.Window 2.14
import QtGraphicalEffects 1.0

// The drawn title bar: moves the window and offers to close it. No title, no icon, no maximising.
Item {
    id: titleBar

    signal closed()

    function closeBtnDisable(b) {
        closeBtn.buttonEnabled = !b
    }

    height: 32

    ZoDragArea {
        anchors.fill: parent
        dragged: window
    }

    ZoCloseButton {
        id: closeBtn

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        onClosed: titleBar.closed()
    }
}
