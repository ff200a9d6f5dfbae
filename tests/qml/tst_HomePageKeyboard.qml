import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "parts.js" as Parts

// The whole window by keyboard: the order of its stops on every page, and where the keyboard goes
// when a page is left.
TestCase {
    id: test

    // The tab stops of each page; those of the last row follow. The title bar has none.
    readonly property var stops: ({
        1: ["offerLink"],
        2: ["offerLink"],
        3: ["feedbackText", "submitButton", "offerLink"],
        4: ["feedbackText", "submitButton", "offerLink"]
    })
    readonly property var last: ["uninstallButton", "cancelButton"]

    property var main: null

    name: "HomePageKeyboard"
    when: windowShown
    visible: true
    width: 100
    height: 100

    function init() {
        fake.reset()
        main = Qt.createComponent("qrc:/Main.qml").createObject(null)
        tryCompare(main, "visible", true)
        main.requestActivate()
        tryCompare(main, "active", true)
        fake.forget()
    }

    function cleanup() {
        Parts.destroy(test, main)
        main = null
    }

    function home() { return findChild(main.contentItem, "homePage") }
    function part(number, name) { return findChild(home().listPages[number], name) }
    function cancel() { return findChild(home(), "cancelButton") }

    // The reasons in the order that the controller gave them.
    function reasons() { return Parts.names(Parts.named(home(), /^reason\d$/)) }

    function tab() {
        keyClick(Qt.Key_Tab)
        return main.activeFocusItem
    }

    function backtab() {
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier)
        return main.activeFocusItem
    }

    function test_tabGoesInReadingOrder_data() {
        return [0, 1, 2, 3, 4].map(function(number) {
            return { tag: "page " + number, number: number }
        })
    }

    function test_tabGoesInReadingOrder(row) {
        home().switchPage(row.number)
        if (row.number > 2) {
            part(row.number, "feedbackText").text = "x"
        }
        var order = (stops[row.number] || reasons()).concat(last)
        var found = order.map(tab)
        compare(Parts.names(found), order)
        // Row after row, and in a row from left to right; the coupon fills the page.
        for (var n = 1; n < found.length; ++n) {
            var before = found[n - 1].mapToItem(null, 0, 0)
            var here = found[n].mapToItem(null, 0, 0)
            verify(here.y > before.y || here.x > before.x || order.length === 3, n)
        }
        compare(tab(), found[0], "round again")
        // The same way back.
        for (var back = found.length - 1; back >= 0; --back) {
            compare(backtab(), found[back], back)
        }
        compare(fake.asked, [])
    }

    function test_disabledButtonsAreNoStops() {
        mouseClick(findChild(home(), "uninstallButton"))
        home().switchPage(3)
        part(3, "feedbackText").forceActiveFocus()
        compare(tab().objectName, "offerLink")
        compare(tab().objectName, "feedbackText",
                "neither Submit nor the last row nor the title bar")
    }

    function test_thePageGivesTheKeyboardOn_data() {
        return [
            { tag: "forwards to a coupon", number: 1, step: tab, name: "offerLink" },
            { tag: "forwards to a feedback", number: 3, step: tab, name: "feedbackText" },
            { tag: "backwards", number: 2, step: backtab, name: "cancelButton" },
            { tag: "backwards from a feedback", number: 4, step: backtab, name: "cancelButton" }
        ]
    }

    function test_thePageGivesTheKeyboardOn(row) {
        mouseClick(part(0, "reason" + row.number))
        compare(home().listPages[row.number].activeFocus, true)
        if (row.number < 3) {
            compare(part(row.number, "focusMark").visible, false, "no mark for the mouse")
        }
        compare(row.step().objectName, row.name)
        if (row.number === 1) {
            compare(part(1, "focusMark").visible, true)
        }
    }

    function test_aPageWithoutTheKeyboardTakesNone() {
        cancel().forceActiveFocus()
        home().switchPage(1)
        compare(cancel().activeFocus, true)
        compare(home().listPages[1].activeFocus, false)
    }

    function test_leavingForAPageThatDoesNotExist() {
        part(0, "reason1").forceActiveFocus()
        home().switchPage(9)
        verify(tab() !== null)
        verify(backtab() !== null)
    }

    function test_theFeedbackGivesTheKeyboardOn() {
        home().switchPage(4)
        part(4, "feedbackText").text = "x"
        part(4, "submitButton").forceActiveFocus()
        keyClick(Qt.Key_Space)
        compare(home().listPages[2].visible, true)
        tab()
        compare(part(2, "focusMark").visible, true)
    }

    function test_escapeDoesNothing() {
        home().switchPage(3)
        part(3, "feedbackText").forceActiveFocus()
        keyClick(Qt.Key_Escape)
        compare(main.visible, true)
        compare(fake.asked, [])
    }
}
