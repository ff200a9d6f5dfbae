import QtQuick 2.14
import "public.js" as Public

// A text that is one link as a whole; the user of this control handles linkActivated.
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

    Keys.onPressed: Public.activateByKey(event, function() { linkActivated(Public.homePageUrl) })

    ZoLinkFocusMark {
        anchors.fill: parent
        visible: root.activeFocus
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        cursorShape: root.hoveredLink !== "" ? Qt.PointingHandCursor : Qt.ArrowCursor
    }
}
