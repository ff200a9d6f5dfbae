import QtQuick.Controls 2.14
import QtQuick 2.14
import "public.js" as Public

// A box for feedback with its submit button, and a link to an offer below.
FocusScope {
    id: root

    property int maxLength: 700
    // The type of the offer that the link leads to.
    property int currentPage: 3
    property string discountPricesTxt: ""

    signal sigSubmit(var text)

    // Before the first change of focus the frame has no border at all.
    function frameFocus(focus) {
        if (focus) {
            frame.border.color = "#7AAAFF"
            frame.border.width = 2
        } else {
            // Deliberately invalid (no "#"): Qt draws black.
            frame.border.color = "FFFFFF"
            frame.border.width = 1
        }
    }

    function openOffer() {
        var url = Public.textOf(uninstallMgr.getPreferentialLink(currentPage), "url")
        Public.sendUserInfoEx("UninstallPop", "Click_Text_Url", { "url": url })
        uninstallMgr.openLink(url)
    }

    Rectangle {
        id: frame
        objectName: "feedbackFrame"

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        height: 156
        radius: 6
        color: "#FFFFFF"
        border.width: 0

        MouseArea {
            anchors.fill: parent
            onPressed: {
                root.frameFocus(true)
                adviceText.forceActiveFocus(Qt.MouseFocusReason)
            }
        }
    }

    ScrollView {
        id: adviceView
        objectName: "feedbackView"

        anchors.left: frame.left
        anchors.right: frame.right
        anchors.top: frame.top
        anchors.bottom: submitBtn.top
        clip: true
        Accessible.ignored: true
        // A bar with nothing to scroll is transparent but takes clicks, and screen readers read it.
        ScrollBar.vertical.visible: ScrollBar.vertical.size < 1
        ScrollBar.horizontal.visible: ScrollBar.horizontal.size < 1

        TextArea {
            id: adviceText
            objectName: "feedbackText"

            textFormat: TextEdit.PlainText
            wrapMode: Text.Wrap
            leftPadding: 16
            topPadding: 8
            rightPadding: 16
            bottomPadding: 8
            selectByMouse: true
            selectionColor: Public.accentColor
            selectedTextColor: "#FFFFFF"
            //: In grey inside the empty box for feedback; gone once something is typed. The source
            //: says "you" for "your". One line of about 80 letters.
            placeholderText: qsTr("you voice is important to us.")
            font.pixelSize: 14
            color: Public.pageTextColor
            Accessible.name: placeholderText

            // Not activeFocus: the frame must not turn black while another window is active. The
            // ScrollView is a focus scope, so a text area that was clicked keeps `focus`, and the
            // frame stays blue after Tab to Submit.
            onFocusChanged: root.frameFocus(focus)

            // Assigning `text` calls this handler again and clears the undo history, so undo cannot
            // exceed the limit.
            onTextChanged: {
                if (length > root.maxLength) {
                    text = text.substring(0, root.maxLength)
                    cursorPosition = root.maxLength
                }
            }

            Keys.onPressed: {
                if (event.key === Qt.Key_V && event.modifiers === Qt.ControlModifier) {
                    event.accepted = pasteToTheLimit()
                }
            }
            // A TextArea takes Tab as a character, so the keyboard could not leave it.
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(
                                       Qt.BacktabFocusReason)

            // Whether the paste was handled. Without a `clipboard` object, the ordinary paste and
            // the length limit apply.
            function pasteToTheLimit() {
                if (typeof clipboard === "undefined") {
                    return false
                }
                var remaining = root.maxLength - length
                if (clipboard.text.length < remaining) {
                    return false
                }
                if (remaining > 0) {
                    insert(cursorPosition, clipboard.text.substring(0, remaining))
                }
                return true
            }
        }
    }

    ZoRoundButton {
        id: submitBtn
        objectName: "submitButton"

        anchors.right: frame.right
        anchors.rightMargin: 16
        anchors.bottom: frame.bottom
        anchors.bottomMargin: 16
        //: Button inside the box for feedback: sends what was typed. The button grows with the
        //: text: about 20 letters.
        text: qsTr("Submit")
        fontPixcelSize: 14
        enabled: adviceText.length > 0
        onClicked: root.sigSubmit(adviceText.text)
        Component.onCompleted: properties = Public.nrpInfo_submit
    }

    ZoLinkLabel {
        objectName: "offerLink"
        anchors.left: parent.left
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 11
        originalText: root.discountPricesTxt
        onLinkActivated: root.openOffer()
    }
}
