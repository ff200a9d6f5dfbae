import QtQuick 2.12
import QtQuick.Window 2.14

// The part of a drawn title bar by which the mouse moves the window.
MouseArea {
    property Window dragged: null
    property point clickPos: "0,0"

    acceptedButtons: Qt.LeftButton
    onPressed: clickPos = Qt.point(mouse.x, mouse.y)
    onPositionChanged: {
        var delta = Qt.point(mouse.x - clickPos.x, mouse.y - clickPos.y)
        dragged.setX(dragged.x + delta.x)
        dragged.setY(dragged.y + delta.y)
    }
}
