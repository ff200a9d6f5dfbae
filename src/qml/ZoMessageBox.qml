import QtQuick 2.12
import QtQuick.Window 2.12
import "."

// A modal pop-up: open() returns when the box is closed, deliberately always -1.
ZoPopWindow {
    id: box

    property string mainTitle: ""
    property string subTitle: ""
    property url icon: "qrc:/ico_info48.png"
    property int result: -1

    function open() {
        return uninstallMgr.popMsgBox(true)
    }

    // Escape, Return and Enter close a Windows message box that has only an OK button, also without
    // a focused button.
    function keyPressed(event) {
        var closes = event.key === Qt.Key_Escape || event.key === Qt.Key_Return
                || event.key === Qt.Key_Enter
        // The key that opened the box may still be held down.
        if (closes && !event.isAutoRepeat) {
            event.accepted = true
            close()
        }
    }

    topMargin: 32
    width: 480
    radius: 4
    bgColor: "#FFFFFF"
    titleColor: "#F0F2F5"

    onButtonClicked: close()
    Component.onDestruction: uninstallMgr.popMsgBox(false, result)

    content: Rectangle {
        objectName: "messageBoxBody"

        Image {
            id: image
            objectName: "messageBoxIcon"
            width: 48
            height: 48
            source: box.icon
            Accessible.ignored: true
        }

        Text {
            id: mainText
            objectName: "mainTitleText"
            anchors {
                left: image.right
                leftMargin: 16
                top: image.top
                topMargin: 5
            }
            width: box.width - 3 * 32 - image.width
            text: box.mainTitle
            textFormat: Text.RichText
            wrapMode: Text.WordWrap
            font.pixelSize: 14
            color: box.textColor
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Text {
            objectName: "subTitleText"
            anchors {
                left: mainText.left
                top: mainText.bottom
                topMargin: 13
            }
            width: mainText.width
            text: box.subTitle
            textFormat: Text.RichText
            wrapMode: Text.WordWrap
            font.pixelSize: 14
            color: box.textColor
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
