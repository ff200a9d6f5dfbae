import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "parts.js" as Parts

// The home page as it goes from the reasons to what answers them, in the whole window.
TestCase {
    id: test

    readonly property var titles: [
        "Please tell us why you want to uninstall Dravik:",
        "Give you an exclusive discount:",
        "Glad to solve your problem! We have an extra coupon for you. Hope you like it!",
        "We'd like to know what problem you've been experiencing. And we have an extra coupon for you. ",
        "We'd like to know what problem you've been experiencing. And we have an extra coupon for you. ",
        "Thanks for your feedback! We have an extra coupon for you. Hope you like it!"
    ]
    readonly property var kinds: [
        "ReasonComponent", "DiscountComponent", "DiscountComponent", "SubmitAdviceComponent",
        "SubmitAdviceComponent"
    ]
    readonly property var lines: [
        "", "View exclusive discounted prices", "Enjoy discounted prices to buy other products",
        "Enjoy discounted prices to buy other products",
        "Enjoy discounted prices to buy other products"
    ]
    readonly property var offers: ({
        "1": { price: "$1", expired: "01/01/2031", url: "https://one.example/" },
        "2": { price: "$2", expired: "01/02/2031", url: "https://two.example/" },
        "3": { price: "$3", expired: "01/03/2031", url: "https://three.example/" },
        "4": { price: "$4", expired: "01/04/2031", url: "https://four.example/" }
    })

    property var main: null

    name: "HomePagePages"
    when: windowShown
    visible: true
    width: 100
    height: 100

    function init() {
        uninstallMgr.reset()
        uninstallMgr.offers = offers
        main = Qt.createComponent("qrc:/Main.qml").createObject(null)
        tryCompare(main, "visible", true)
        uninstallMgr.forgetCalls()
    }

    function cleanup() {
        Parts.destroy(test, main)
        main = null
    }

    function home() {
        return Parts.all(main.contentItem, "HomePage")[0]
    }

    function title() {
        return home().children[0].text
    }

    function pages() {
        return home().children[1].children
    }

    function shownNumbers() {
        var shown = []
        for (var i = 0; i < pages().length; ++i) {
            if (pages()[i].visible) {
                shown.push(i)
            }
        }
        return shown
    }

    function part(number, type) {
        return Parts.all(pages()[number], type)[0]
    }

    function hasText(number, text) {
        return Parts.all(pages()[number], "Text").some(function(item) { return item.text === text })
    }

    function test_allFivePagesExistFromTheStart() {
        compare(pages().length, 5)
        for (var i = 0; i < 5; ++i) {
            compare(home().listPages[i], pages()[i])
            verify(pages()[i].toString().indexOf(kinds[i]) === 0, i)
            compare([pages()[i].x, pages()[i].y, pages()[i].width, pages()[i].height],
                    [0, 0, home().children[1].width, home().children[1].height])
        }
        compare(home().listPages.length, 5)
        compare(home().currentPage, 0)
        compare(home().listTitleTxt, titles)
        compare(home().discountedPrices, [lines[1], lines[2]])
        compare(shownNumbers(), [0])
        compare(title(), titles[0])
    }

    function test_settingsOfThePages() {
        for (var i = 1; i < 5; ++i) {
            compare(pages()[i].discountPricesTxt, lines[i])
        }
        compare(pages()[1].perferentialInfo, offers[1])
        compare(pages()[2].perferentialInfo, offers[2])
        compare([pages()[3].currentPage, pages()[4].currentPage], [3, 4])
    }

    function test_switching_data() {
        return [1, 2, 3, 4].map(function(number) {
            return { tag: "page " + number, number: number }
        })
    }

    function test_switching(row) {
        home().switchPage(row.number)
        compare(shownNumbers(), [row.number])
        compare(home().currentPage, row.number)
        compare(title(), titles[row.number])
        compare(uninstallMgr.calls, [])
    }

    function test_switchingToAPageThatDoesNotExist() {
        home().switchPage(5)
        compare(shownNumbers(), [])
        compare([home().currentPage, title()], [5, titles[5]])
        home().switchPage(9)
        compare([home().currentPage, title()], [9, titles[5]])
        home().switchPage(1)
        compare(shownNumbers(), [1])
    }

    function test_aReasonLeadsToItsPageForGood_data() {
        return [1, 2, 3, 4].map(function(number) {
            return { tag: "reason " + number, number: number }
        })
    }

    function test_aReasonLeadsToItsPageForGood(row) {
        mouseClick(Parts.all(pages()[0], "ZoRadioButton")[row.number - 1])
        compare(shownNumbers(), [row.number])
        compare(title(), titles[row.number])
        compare(uninstallMgr.calls.length, 1)
        compare(uninstallMgr.calls[0].slice(0, 3),
                ["sendUserInfo", "UninstallPop", "Result_Question_Why_Unistall"])
    }

    function test_couponsShowTheirOffers() {
        verify(hasText(1, "$1") && hasText(1, "Validity period: 01/01/2031"))
        verify(hasText(2, "$2") && hasText(2, "Validity period: 01/02/2031"))
    }

    function test_feedback_data() {
        var event = ["sendUserInfo", "UninstallPop", "Result_Question_What_Problem",
                     JSON.stringify({ answer: " it's \"bad\"\n" }), ""]
        var direct = ["sendUserInfo", "noSolvedPage", "Click_Submit", " it's \"bad\"\n", ""]
        return [
            { tag: "page 3", number: 3, calls: [direct, event, ["getPreferentialLink", 3]] },
            { tag: "page 4", number: 4, calls: [event, ["getPreferentialLink", 4]] }
        ]
    }

    function test_feedback(row) {
        home().switchPage(row.number)
        part(row.number, "TextArea").text = " it's \"bad\"\n"
        mouseClick(part(row.number, "ZoRoundButton"))
        compare(uninstallMgr.calls, row.calls)
        compare(shownNumbers(), [2])
        compare(home().currentPage, 2)
        compare(title(), titles[5])
        compare(pages()[2].perferentialInfo, offers[row.number])
        verify(hasText(2, "$" + row.number))
        uninstallMgr.forgetCalls()
        mouseClick(pages()[2], 20, 20)
        compare(uninstallMgr.callsOf("openLink"), [["openLink", offers[row.number].url]])
    }

    // What is sent before the page goes, the page before its title, the title before the coupon.
    function test_feedbackOrder_data() {
        return [{ tag: "page 3", number: 3 }, { tag: "page 4", number: 4 }]
    }

    function test_feedbackOrder(row) {
        home().switchPage(row.number)
        uninstallMgr.forgetCalls()
        var label = home().children[0]
        home().currentPageChanged.connect(function() { uninstallMgr.note("page") })
        label.textChanged.connect(function() { uninstallMgr.note(label.text) })
        pages()[2].perferentialInfoChanged.connect(function() { uninstallMgr.note("coupon") })
        pages()[2].visibleChanged.connect(function() { uninstallMgr.note("shown") })
        pages()[row.number].visibleChanged.connect(function() { uninstallMgr.note("hidden") })
        part(row.number, "TextArea").text = "x"
        mouseClick(part(row.number, "ZoRoundButton"))
        var steps = uninstallMgr.calls.map(function(call) {
            return call[0] === "note" ? call[1] : call[0] === "sendUserInfo" ? call[2] : call[0]
        })
        compare(steps, (row.number === 3 ? ["Click_Submit"] : []).concat(
                    ["Result_Question_What_Problem", "hidden", "page", "shown", titles[2],
                     titles[5], "getPreferentialLink", "coupon"]))
    }

    function test_theLinkOfAFeedbackPageHasItsOwnOffer_data() {
        return [{ tag: "page 3", number: 3 }, { tag: "page 4", number: 4 }]
    }

    function test_theLinkOfAFeedbackPageHasItsOwnOffer(row) {
        home().switchPage(row.number)
        var link = part(row.number, "ZoLinkLabel")
        mouseClick(link, 30, link.height / 2)
        compare(uninstallMgr.calls, [
            ["getPreferentialLink", row.number],
            ["sendUserInfo", "UninstallPop", "Click_Text_Url",
             JSON.stringify({ url: offers[row.number].url }), ""],
            ["openLink", offers[row.number].url]
        ])
        compare(shownNumbers(), [row.number])
    }

    function test_uninstallingLeavesThePagesUsable() {
        home().switchPage(3)
        var row = home().children[home().children.length - 1]
        mouseClick(Parts.all(row, "ZoRoundButton")[0])
        uninstallMgr.valProgress = 30
        part(3, "TextArea").text = "x"
        mouseClick(part(3, "ZoRoundButton"))
        compare(shownNumbers(), [2])
        uninstallMgr.valProgress = 100
        tryVerify(function() { return !Parts.all(row, "ZoRoundButton")[0].visible })
        compare(shownNumbers(), [2])
    }
}
