import QtQuick 2.12
import "."

// The cross in a title bar, with an area behind it: a disabled button lets presses fall through to
// what lies beneath, and here they must not drag.
MouseArea {
    property alias buttonEnabled: button.enabled

    signal closed()

    width: button.width
    height: button.height

    ZoImageButton {
        id: button
        objectName: "closeButton"
        resName: "ico_popup_close"
        //: What a screen reader calls the cross in a title bar; nothing shows it.
        Accessible.name: qsTr("Close")
        onClicked: parent.closed()
    }
}
