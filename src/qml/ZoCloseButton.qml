import QtQuick 2.12
import "."

// The close button of a title bar. The area behind it keeps presses on the disabled button from
// dragging the window.
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
