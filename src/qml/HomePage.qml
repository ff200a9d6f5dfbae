import QtQuick 2.14
import QtQuick.Window 2.14
import QtQuick.Controls 2.5
import QtGraphicalEffects 1.0
import QtQuick.Shapes 1.15
import "public.js" as Public
import "."

// The content of the window: pages, of which one is visible at a time, and the uninstallation with
// its progress.
Item {
    id: home

    // By page number; the last title is the thanks for a feedback and has no page.
    property var listTitleTxt: [
        //: Heading over the list of reasons. Two lines of about 60 letters at most.
        qsTr("Please tell us why you want to uninstall Dravik:"),
        //: Heading over a coupon, after "The price is too expensive". Two lines of about 60
        //: letters.
        qsTr("Give you an exclusive discount:"),
        //: Heading over a coupon, after "The product has solved my problem". Two lines of about 60
        //: letters at most.
        qsTr("Glad to solve your problem! We have an extra coupon for you. Hope you like it!"),
        //: Heading over the box for feedback, after "The product doesn't solve my problem" and "I
        //: have other reasons". Two lines of about 60 letters at most. Keep the space at the end.
        qsTr("We'd like to know what problem you've been experiencing. And we have an extra coupon for you. "),
        qsTr("We'd like to know what problem you've been experiencing. And we have an extra coupon for you. "),
        //: Heading over a coupon, after a feedback was submitted. Two lines of about 60 letters.
        qsTr("Thanks for your feedback! We have an extra coupon for you. Hope you like it!")
    ]
    property var discountedPrices: [
        //: Underlined line under a coupon; a click opens its page in the browser. One line, left
        //: of an image: about 50 letters.
        qsTr("View exclusive discounted prices"),
        //: Link under the box for feedback, and line under a coupon; a click opens the offer in
        //: the browser. One line, left of an image: about 50 letters.
        qsTr("Enjoy discounted prices to buy other products")
    ]
    property var listPages: []
    property int currentPage: 0

    signal uninstalling(var running)

    // The only way from page to page. A page with the keyboard focus passes it to the next one, so
    // that Tab continues from there.
    function switchPage(funIndex) {
        var left = listPages[currentPage]
        var hadFocus = left !== undefined && left.activeFocus
        completeSwitchPage(funIndex)
        if (hadFocus && listPages[currentPage] !== undefined) {
            listPages[currentPage].forceActiveFocus()
        }
    }

    function completeSwitchPage(funIndex) {
        if (listPages[currentPage] !== undefined) {
            listPages[currentPage].visible = false
        }
        currentPage = funIndex
        if (listPages[currentPage] !== undefined) {
            listPages[currentPage].visible = true
        }
        if (listTitleTxt[currentPage] !== undefined) {
            titleLabel.text = listTitleTxt[currentPage]
        }
    }

    function leaveShownPage(forward) {
        listPages[currentPage].nextItemInFocusChain(forward).forceActiveFocus(
                    forward ? Qt.TabFocusReason : Qt.BacktabFocusReason)
    }

    function sendProblem(text) {
        Public.sendUserInfoEx("UninstallPop", "Result_Question_What_Problem", { "answer": text })
    }

    // Creates the pages that have not been shown yet: from now on the files of Qt Quick Controls
    // that they need may be missing, since the uninstaller removes them.
    function createHiddenPages() {
        listPages.slice(1).forEach(function(page) { page.active = true })
    }

    // Shows the coupon for the feedback page's offer type on solvedPage.
    function thank(offerType) {
        switchPage(2)
        titleLabel.text = listTitleTxt[5]
        solvedPage.perferentialInfo = uninstallMgr.getPreferentialLink(offerType)
    }

    clip: true

    Label {
        id: titleLabel
        objectName: "titleLabel"

        anchors.left: parent.left
        anchors.top: parent.top
        anchors.right: parent.right
        height: 48
        text: home.listTitleTxt[0]
        color: Public.pageTextColor
        font.pixelSize: 18
        font.weight: Font.DemiBold
        wrapMode: Text.WordWrap
    }

    Item {
        id: frameRect
        objectName: "contentArea"

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: titleLabel.bottom
        anchors.topMargin: 30
        anchors.bottom: uninstallLabel.top
        anchors.bottomMargin: 5

        // After switchPage() the page's FocusScope, which is not a tab stop, has the focus.
        Keys.onTabPressed: home.leaveShownPage(true)
        Keys.onBacktabPressed: home.leaveShownPage(false)
        Component.onCompleted: {
            home.listPages = [reasonPage, expensiveOldPage, solvedPage, noSolvedPage, otherPage]
        }

        ReasonComponent {
            id: reasonPage
            objectName: "reasonPage"

            anchors.fill: parent
        }

        DiscountPage {
            id: expensiveOldPage
            objectName: "expensivePage"

            anchors.fill: parent
            visible: false
            discountPricesTxt: home.discountedPrices[0]
            perferentialInfo: uninstallMgr.getPreferentialLink(1)
        }

        DiscountPage {
            id: solvedPage
            objectName: "solvedPage"

            anchors.fill: parent
            visible: false
            discountPricesTxt: home.discountedPrices[1]
            perferentialInfo: uninstallMgr.getPreferentialLink(2)
        }

        SubmitAdvicePage {
            id: noSolvedPage
            objectName: "noSolvedPage"

            anchors.fill: parent
            visible: false
            currentPage: 3
            discountPricesTxt: home.discountedPrices[1]
            onSigSubmit: {
                uninstallMgr.sendUserInfo("noSolvedPage", "Click_Submit", text)
                home.sendProblem(text)
                home.thank(3)
            }
        }

        SubmitAdvicePage {
            id: otherPage
            objectName: "otherPage"

            anchors.fill: parent
            visible: false
            currentPage: 4
            discountPricesTxt: home.discountedPrices[1]
            onSigSubmit: {
                home.sendProblem(text)
                home.thank(4)
            }
        }
    }

    Text {
        id: uninstallLabel
        objectName: "progressLabel"

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: progressBar.top
        anchors.bottomMargin: 4
        //: Line over the progress bar while the product is being removed. One line of about 80
        //: letters.
        text: qsTr("Unistalling\u2026")
        font.pixelSize: 14
        color: Public.pageTextColor
        visible: false
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    ZoProgressBar {
        id: progressBar
        objectName: "progressBar"

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: btnRect.top
        anchors.bottomMargin: 14
        value: uninstallMgr.valProgress
        visible: false
        // `value` is animated: 100 means that the bar looks full.
        onValueChanged: {
            if (value >= 100) {
                uninstallLabel.color = "#10A91D"
                //: The same line in green, once the product has been removed. One line of about 80
                //: letters.
                uninstallLabel.text = qsTr("Unistall complete!")
                progressBar.visible = false
                btnUninstall.visible = false
                btnCancel.enabled = true
                //: Button that closes the window after the removal, and the one of the warning;
                //: the word that Windows has on such buttons.
                btnCancel.text = qsTr("OK")
                home.uninstalling(false)
            }
        }
    }

    Rectangle {
        id: btnRect
        objectName: "buttonRow"

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 24
        height: 28

        ZoRoundButton {
            id: btnUninstall
            objectName: "uninstallButton"

            anchors.top: btnCancel.top
            anchors.right: btnCancel.left
            anchors.rightMargin: 20
            //: Button that starts the removal. The button grows with the text: about 25 letters.
            text: qsTr("Uninstall")
            enabled: progressBar.value === 0 || progressBar.value === 100
            onClicked: {
                Public.sendUserInfoEx("UninstallPop", "Click_Uninstall")
                if (uninstallMgr.isKTRRunning()) {
                    Public.showMessageBox({
                        //: Title of the message box that says the product is running. One line of
                        //: about 60 letters.
                        "title": qsTr("Warning"),
                        //: First sentence of that message box: the product must not run while it
                        //: is removed. "Torvan Dravik" is its name. Wraps at about 45 letters;
                        //: both sentences have room for five lines together.
                        "mainTitle": qsTr("Uninstall has detected that Torvan Dravik is currently running."),
                        //: Second sentence of that message box, on lines of its own: the user
                        //: must close every window of the product. Wraps at about 45 letters;
                        //: both sentences have room for five lines together.
                        "subTitle": qsTr("Please close all instances and try again."),
                        "buttons": [qsTr("OK")]
                    }, window)
                    return
                }
                uninstallLabel.visible = true
                progressBar.visible = true
                btnCancel.enabled = false
                btnUninstall.enabled = false
                home.uninstalling(true)
                home.createHiddenPages()
                uninstallMgr.doUninstall()
                window.exitCode = 0
            }
        }

        ZoDefaultRoundButton {
            id: btnCancel
            objectName: "cancelButton"

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            //: Button that closes the window and leaves the product installed; becomes "OK" later.
            //: The word that Windows has on such buttons; about 25 letters.
            text: qsTr("Cancel")
            onClicked: window.titleClose(window.exitCode === 0 ? 0 : -1)
        }
    }
}
