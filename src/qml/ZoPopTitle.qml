import QtQuick 2.12
import QtQuick.Window 2.14
import "."
import "public.js" as Public

// The title bar of a pop-up: moves the window, names it, and offers to close it.
Rectangle {
    id: titleBar

    property Window popup: null
    property string title: ""
    property bool closable: true
    property bool busy: false
    property alias closeRightMargin: closeButton.anchors.rightMargin

    signal closed()

    // Only the upper corners are round.
    Rectangle {
        objectName: "squareCorners"
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
        }
        height: parent.radius
        color: parent.color
    }

    ZoDragArea {
        anchors.fill: parent
        dragged: titleBar.popup
    }

    Text {
        objectName: "popupTitle"
        anchors {
            left: parent.left
            leftMargin: 16
            right: closeButton.left
            rightMargin: 16
            verticalCenter: parent.verticalCenter
        }
        text: titleBar.title
        textFormat: Text.PlainText
        // A long title would run below the close button.
        elide: Text.ElideRight
        font.pixelSize: 14
        color: Public.winTextColor
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    ZoCloseButton {
        id: closeButton
        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        visible: titleBar.closable
        buttonEnabled: !titleBar.busy
        onClosed: titleBar.closed()
    }
}
