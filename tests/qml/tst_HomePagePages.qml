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
    readonly property var pageNames: [
        "reasonPage", "expensivePage", "solvedPage", "noSolvedPage", "otherPage"
    ]
    readonly property var lines: [
        "", "View exclusive discounted prices", "Enjoy discounted prices to buy other products",
        "Enjoy discounted prices to buy other products",
        "Enjoy discounted prices to buy other products"
    ]
    // Of every key another text, and of prices and links at any time.
    readonly property string early: "https://early.example/%1"
    readonly property string late: "https://late.example/%1"

    property var main: null
    property var loading: []

    name: "HomePagePages"
    when: windowShown
    visible: true
    width: 100
    height: 100

    function init() {
        fake.reset()
        fake.defaultText = early
        main = Qt.createComponent("qrc:/Main.qml").createObject(null)
        tryCompare(main, "visible", true)
        loading = fake.calls("getPreferentialLink")
        fake.forget()
    }

    function cleanup() {
        Parts.destroy(test, main)
        main = null
    }

    function home() { return findChild(main.contentItem, "homePage") }
    function title() { return findChild(home(), "titleLabel").text }
    function page(number) { return findChild(home(), pageNames[number]) }
    function part(number, name) { return findChild(page(number), name) }

    function shownNumbers() {
        return [0, 1, 2, 3, 4].filter(function(number) { return page(number).visible })
    }

    // The offer that the controller gives for a type at present; asking leaves no trace.
    function offer(type) {
        var given = uninstallMgr.getPreferentialLink(type)
        fake.forget()
        return given
    }

    function asked(word) {
        return fake.asked.filter(function(entry) { return entry.indexOf(word) === 0 })
    }

    function test_allFivePagesExistFromTheStart() {
        compare(home().listPages.length, 5)
        compare(Parts.names(home().listPages), pageNames)
        compare(home().currentPage, 0)
        compare(home().listTitleTxt, titles)
        compare(home().discountedPrices, [lines[1], lines[2]])
        compare(shownNumbers(), [0])
        compare(title(), titles[0])
        var area = findChild(home(), "contentArea")
        home().listPages.forEach(function(shown) {
            compare([shown.x, shown.y, shown.width, shown.height], [0, 0, area.width, area.height])
        })
    }

    function test_settingsOfThePages() {
        for (var i = 1; i < 5; ++i) {
            compare(page(i).discountPricesTxt, lines[i])
        }
        compare(loading.sort(), ["1", "2"], "the types 2 to 4 have the same offers")
        compare(page(1).perferentialInfo, offer(1))
        compare(page(2).perferentialInfo, offer(2))
        verify(page(1).perferentialInfo.price !== page(2).perferentialInfo.price)
        compare([page(3).currentPage, page(4).currentPage], [3, 4])
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
        compare(fake.asked, [])
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
        mouseClick(part(0, "reason" + row.number))
        compare(shownNumbers(), [row.number])
        compare(title(), titles[row.number])
        compare(fake.asked.length, 1)
        compare(fake.asked[0].indexOf("event [UninstallPop][Result_Question_Why_Unistall]"), 0)
    }

    function test_feedback_data() {
        var problem = Parts.event("UninstallPop", "Result_Question_What_Problem",
                                  { answer: " it's \"bad\"\n" })
        var direct = Parts.event("noSolvedPage", "Click_Submit", " it's \"bad\"\n")
        return [
            { tag: "page 3", number: 3, events: [direct, problem] },
            { tag: "page 4", number: 4, events: [problem] }
        ]
    }

    // A feedback is thanked for with the offer of that moment, not of any other type.
    function test_feedback(row) {
        home().switchPage(row.number)
        part(row.number, "feedbackText").text = " it's \"bad\"\n"
        fake.defaultText = late
        mouseClick(part(row.number, "submitButton"))
        compare(asked("event"), row.events)
        compare(fake.asked.length, row.events.length + 2, "and both texts of the offer")
        compare(fake.calls("getPreferentialLink"), [String(row.number)])
        compare(shownNumbers(), [2])
        compare(home().currentPage, 2)
        compare(title(), titles[5])
        compare(page(2).perferentialInfo, offer(row.number))
        compare(part(2, "priceText").text, offer(row.number).price)
        mouseClick(page(2), 20, 20)
        compare(asked("open"), ["open " + page(2).perferentialInfo.url])
    }

    // What is sent before the page goes, the page before its title, the title before the coupon.
    function test_feedbackOrder_data() {
        return [{ tag: "page 3", number: 3 }, { tag: "page 4", number: 4 }]
    }

    function test_feedbackOrder(row) {
        home().switchPage(row.number)
        fake.forget()
        var label = findChild(home(), "titleLabel")
        home().currentPageChanged.connect(function() { fake.note("page") })
        label.textChanged.connect(function() { fake.note(label.text) })
        page(2).perferentialInfoChanged.connect(function() { fake.note("coupon") })
        page(2).visibleChanged.connect(function() { fake.note("shown") })
        page(row.number).visibleChanged.connect(function() { fake.note("hidden") })
        part(row.number, "feedbackText").text = "x"
        mouseClick(part(row.number, "submitButton"))
        var steps = fake.asked.map(function(entry) {
            return entry.replace(/^event \[\w*\]\[(\w*)\].*/, "$1").replace(/^text .*/, "offer")
                .replace("note ", "")
        })
        compare(steps, (row.number === 3 ? ["Click_Submit"] : []).concat(
                    ["Result_Question_What_Problem", "hidden", "page", "shown", titles[2],
                     titles[5], "offer", "offer", "coupon"]))
    }

    function test_theLinkOfAFeedbackPageOpensItsOffer_data() {
        return [{ tag: "page 3", number: 3 }, { tag: "page 4", number: 4 }]
    }

    function test_theLinkOfAFeedbackPageOpensItsOffer(row) {
        home().switchPage(row.number)
        fake.defaultText = late
        var link = part(row.number, "offerLink")
        mouseClick(link, 30, link.height / 2)
        compare(fake.calls("getPreferentialLink"), [String(row.number)])
        var given = fake.asked.slice(-2)
        compare(given, [Parts.event("UninstallPop", "Click_Text_Url", { url: offer(row.number).url }),
                        "open " + offer(row.number).url])
        compare(shownNumbers(), [row.number])
    }

    function test_uninstallingLeavesThePagesUsable() {
        home().switchPage(3)
        fake.running = ["uninstall.exe"]
        var button = findChild(home(), "uninstallButton")
        mouseClick(button)
        part(3, "feedbackText").text = "x"
        mouseClick(part(3, "submitButton"))
        compare(shownNumbers(), [2])
        fake.running = []
        tryCompare(button, "visible", false)
        compare(shownNumbers(), [2])
    }
}
