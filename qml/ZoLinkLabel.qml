import QtQuick 2.14
import "public.js" as Public

// A text that is one link as a whole; what the link does is up to whoever handles linkActivated.
Text {
    id: root

    property string originalText: ""

    text: Public.makeLink(originalText)
    textFormat: Text.RichText
    font.pixelSize: 13

    activeFocusOnTab: originalText !== ""
    Accessible.role: Accessible.Link
    Accessible.name: originalText
    Accessible.focusable: true
    Accessible.onPressAction: linkActivated(Public.homePageUrl)

    Keys.onPressed: {
        var activates = event.key === Qt.Key_Space || event.key === Qt.Key_Return
                || event.key === Qt.Key_Enter
        if (activates && !event.isAutoRepeat) {
            event.accepted = true
            linkActivated(Public.homePageUrl)
        }
    }

    // Keyboard focus: the link may stand at the very edge of a clipped page, where a frame round
    // it would lose a side.
    Rectangle {
        z: -1
        anchors.fill: parent
        color: "#E8F0FF"
        visible: root.activeFocus
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 2
            color: "#1F6FFF"
        }
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        cursorShape: root.hoveredLink !== "" ? Qt.PointingHandCursor : Qt.ArrowCursor
    }
}
