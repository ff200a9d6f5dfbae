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
        closeBtn.enabled = !b
    }

    height: 32

    ZoDragArea {
        anchors.fill: parent
        dragged: window
    }

    // A disabled button lets presses fall through to what lies beneath; here they must not drag.
    MouseArea {
        anchors.fill: closeBtn
        enabled: !closeBtn.enabled
    }

    ZoImageButton {
        id: closeBtn
        objectName: "closeButton"

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        resName: "ico_popup_close"
        // As in native title bars, or Tab and Space would close the window.
        activeFocusOnTab: false
        //: What a screen reader calls the cross in the title bar of the window; nothing shows it.
        Accessible.name: qsTr("Close")
        onClicked: titleBar.closed()
    }
}
