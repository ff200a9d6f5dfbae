import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "parts.js" as Parts

// The whole window by keyboard: the order of its stops on every page, and where the keyboard goes
// when a page is left.
TestCase {
    id: test

    // Before those of the last row. The title bar has none.
    readonly property var stops: ({
        0: ["ZoRadioButton", "ZoRadioButton", "ZoRadioButton", "ZoRadioButton"],
        1: ["QQuickMouseArea"],
        2: ["QQuickMouseArea"],
        3: ["TextArea", "ZoRoundButton", "ZoLinkLabel"],
        4: ["TextArea", "ZoRoundButton", "ZoLinkLabel"]
    })
    readonly property var last: ["ZoRoundButton", "ZoDefaultRoundButton"]

    property var main: null

    name: "HomePageKeyboard"
    when: windowShown
    visible: true
    width: 100
    height: 100

    function init() {
        uninstallMgr.reset()
        main = Qt.createComponent("qrc:/Main.qml").createObject(null)
        tryCompare(main, "visible", true)
        main.requestActivate()
        tryCompare(main, "active", true)
        uninstallMgr.forgetCalls()
    }

    function cleanup() {
        Parts.destroy(test, main)
        main = null
    }

    function home() {
        return Parts.all(main.contentItem, "HomePage")[0]
    }

    function pages() {
        return home().children[1].children
    }

    function part(number, type) {
        return Parts.all(pages()[number], type)[0]
    }

    function cancel() {
        return Parts.all(home(), "ZoDefaultRoundButton")[0]
    }

    function tab() {
        keyClick(Qt.Key_Tab)
        return main.activeFocusItem
    }

    function backtab() {
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier)
        return main.activeFocusItem
    }

    function kind(item) {
        return item.toString().split(/_QML|\(/)[0]
    }

    function test_tabGoesInReadingOrder_data() {
        return [0, 1, 2, 3, 4].map(function(number) {
            return { tag: "page " + number, number: number }
        })
    }

    function test_tabGoesInReadingOrder(row) {
        home().switchPage(row.number)
        if (row.number > 2) {
            part(row.number, "TextArea").text = "x"
        }
        var order = stops[row.number].concat(last)
        var found = order.map(tab)
        compare(found.map(kind), order)
        // Row after row, and in a row from left to right; the coupon fills the page.
        for (var n = 1; n < found.length; ++n) {
            var before = found[n - 1].mapToItem(null, 0, 0)
            var here = found[n].mapToItem(null, 0, 0)
            verify(here.y > before.y || here.x > before.x || stops[row.number].length === 1, n)
        }
        if (row.number === 0) {
            compare(found[0], Parts.all(pages()[0], "ZoRadioButton")[0])
        }
        compare(tab(), found[0], "round again")
        // The same way back.
        for (var back = found.length - 1; back >= 0; --back) {
            compare(backtab(), found[back], back)
        }
        compare(uninstallMgr.calls, [])
    }

    function test_disabledButtonsAreNoStops() {
        var row = home().children[home().children.length - 1]
        mouseClick(Parts.all(row, "ZoRoundButton")[0])
        home().switchPage(3)
        part(3, "TextArea").forceActiveFocus()
        compare(kind(tab()), "ZoLinkLabel")
        compare(kind(tab()), "TextArea", "neither Submit nor the last row nor the title bar")
    }

    function test_thePageGivesTheKeyboardOn_data() {
        return [
            { tag: "forwards to a coupon", number: 1, step: tab, kind: "QQuickMouseArea" },
            { tag: "forwards to a feedback", number: 3, step: tab, kind: "TextArea" },
            { tag: "backwards", number: 2, step: backtab, kind: last[1] },
            { tag: "backwards from a feedback", number: 4, step: backtab, kind: last[1] }
        ]
    }

    function test_thePageGivesTheKeyboardOn(row) {
        mouseClick(Parts.all(pages()[0], "ZoRadioButton")[row.number - 1])
        compare(pages()[row.number].activeFocus, true)
        if (row.number < 3) {
            compare(part(row.number, "ZoLinkFocusMark").visible, false, "no mark for the mouse")
        }
        compare(kind(row.step()), row.kind)
        if (row.number === 1) {
            compare(part(1, "ZoLinkFocusMark").visible, true)
        }
    }

    function test_aPageWithoutTheKeyboardTakesNone() {
        cancel().forceActiveFocus()
        home().switchPage(1)
        compare(cancel().activeFocus, true)
        compare(pages()[1].activeFocus, false)
    }

    function test_leavingForAPageThatDoesNotExist() {
        Parts.all(pages()[0], "ZoRadioButton")[0].forceActiveFocus()
        home().switchPage(9)
        verify(tab() !== null)
        verify(backtab() !== null)
    }

    function test_theFeedbackGivesTheKeyboardOn() {
        home().switchPage(4)
        part(4, "TextArea").text = "x"
        part(4, "ZoRoundButton").forceActiveFocus()
        keyClick(Qt.Key_Space)
        compare(pages()[2].visible, true)
        tab()
        compare(part(2, "ZoLinkFocusMark").visible, true)
    }

    function test_escapeDoesNothing() {
        home().switchPage(3)
        part(3, "TextArea").forceActiveFocus()
        keyClick(Qt.Key_Escape)
        compare(main.visible, true)
        compare(uninstallMgr.calls, [])
    }
}
