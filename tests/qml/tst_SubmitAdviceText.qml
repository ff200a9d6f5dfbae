import QtQuick 2.14
import QtTest 1.15
import "parts.js" as Parts

// The text of the feedback page: how it is set, its limit, and the keys that mean more than text.
TestCase {
    id: test

    readonly property var described: ({
        maxLength: 700, padding: [16, 8, 16, 8], placeholder: "you voice is important to us."
    })

    property var page: null

    name: "SubmitAdviceText"
    when: windowShown
    visible: true
    width: 640
    height: 400

    PageStage {
        id: stage
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
        fake.reset()
        page = stage.make("SubmitAdviceComponent", { discountPricesTxt: "Enjoy discounted prices" })
    }

    function cleanup() {
        Parts.destroy(test, page)
        page = null
    }

    function box() { return findChild(page, "feedbackText") }
    function submit() { return findChild(page, "submitButton") }
    function link() { return findChild(page, "offerLink") }
    function letters(count) { return new Array(count + 1).join("x") }

    function test_text() {
        var text = box()
        compare([text.leftPadding, text.topPadding, text.rightPadding, text.bottomPadding],
                described.padding)
        compare(text.textFormat, TextEdit.PlainText)
        compare(text.wrapMode, Text.Wrap)
        compare(text.selectByMouse, true)
        compare(text.placeholderText, described.placeholder)
        var view = findChild(page, "feedbackView")
        compare([view.x, view.y, view.width, view.height], [0, 0, page.width, submit().y])
        compare(text.width, page.width)
    }

    function test_longTextWrapsAndScrolls() {
        box().forceActiveFocus()
        box().text = new Array(140).join("word ")
        verify(box().lineCount > 7)
        verify(box().contentHeight > submit().y)
        compare(box().width, page.width, "no wider than the frame")
        var flickable = findChild(page, "feedbackView").contentItem
        compare(flickable.contentY, 0)
        box().cursorPosition = box().length
        tryVerify(function() { return flickable.contentY > 0 })
        // And by its bar, which now has something to scroll.
        mouseDrag(page, page.width - 3, submit().y - 10, 0, -submit().y, Qt.LeftButton,
                  Qt.NoModifier, 10)
        compare(flickable.contentY, 0)
    }

    function test_theLimit_data() {
        return [{ tag: "699", length: 699, kept: 699 }, { tag: "700", length: 700, kept: 700 },
                { tag: "701", length: 701, kept: 700 }, { tag: "7000", length: 7000, kept: 700 }]
    }

    function test_theLimit(row) {
        box().text = letters(row.length)
        compare(box().text, letters(row.kept))
    }

    function test_typingBeyondTheLimit() {
        box().forceActiveFocus()
        box().text = letters(700)
        box().cursorPosition = 700
        keyClick(Qt.Key_Y)
        compare(box().text, letters(700))
        compare(box().cursorPosition, 700)
        // In the middle: the last letter is cut, and the cursor goes to the end.
        box().cursorPosition = 10
        keyClick(Qt.Key_Y)
        compare(box().text, letters(10) + "y" + letters(689))
        compare(box().cursorPosition, 700)
    }

    function test_manyLinesCountAsCharacters() {
        box().text = new Array(500).join("a\n")
        compare(box().length, 700)
    }

    function test_ordinaryPasteIsCut() {
        box().forceActiveFocus()
        box().text = letters(50)
        box().selectAll()
        box().copy()
        box().text = "y" + letters(689)
        box().cursorPosition = 1
        keyClick(Qt.Key_V, Qt.ControlModifier)
        compare(box().text, "y" + letters(699))
        compare(box().cursorPosition, 700)
    }

    function test_theMouseSelects() {
        box().text = "some words to select"
        mousePress(box(), 18, 16)
        mouseMove(box(), 60, 16)
        mouseMove(box(), 120, 16)
        mouseRelease(box(), 120, 16)
        verify(box().selectedText.length > 3, box().selectedText)
        verify(Qt.colorEqual(box().selectedTextColor, "#ffffff"))
    }

    // What the limit cuts stays cut, and what was there before can still be taken back.
    function test_undoAtTheLimit() {
        box().forceActiveFocus()
        box().text = letters(690)
        box().cursorPosition = 690
        for (var i = 0; i < 12; ++i) {
            keyClick(Qt.Key_Y)
        }
        compare(box().length, 700)
        for (var n = 0; n < 20; ++n) {
            keyClick(Qt.Key_Z, Qt.ControlModifier)
            verify(box().length <= described.maxLength)
        }
        keyClick(Qt.Key_Backspace)
        verify(box().length < described.maxLength)
    }

    function test_theLimitIsAProperty() {
        page.maxLength = 5
        box().text = "1234567"
        compare(box().text, "12345")
        compare(box().cursorPosition, 5)
    }

    function test_markupIsText() {
        box().text = "<b>bold</b> &amp; more"
        compare(box().text, "<b>bold</b> &amp; more")
        compare(box().length, 22)
    }

    function test_tabLeadsOn() {
        box().text = "x"
        keyClick(Qt.Key_Tab)
        tryCompare(box(), "activeFocus", true)
        keyClick(Qt.Key_Tab)
        compare(submit().activeFocus, true)
        keyClick(Qt.Key_Tab)
        compare(link().activeFocus, true)
        compare(box().text, "x")
        box().text = ""
        box().forceActiveFocus()
        keyClick(Qt.Key_Tab)
        compare(link().activeFocus, true, "past the disabled button")
    }

    function test_backtabLeadsBack() {
        box().text = "x"
        link().forceActiveFocus()
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier)
        compare(submit().activeFocus, true)
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier)
        compare(box().activeFocus, true)
        // Round to the other end: nothing else stands here.
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier)
        compare(link().activeFocus, true)
        compare(box().text, "x")
    }
}
