import QtQuick 2.14
import QtTest 1.15
import "parts.js" as Parts

// The feedback box: its look, its limit, its button, and the link below.
TestCase {
    id: test

    readonly property var described: ({
        maxLength: 700, currentPage: 3,
        frame: { height: 156, radius: 6, colour: "#ffffff" },
        focused: { colour: "#7aaaff", width: 2 },
        left: { colour: "#000000", width: 1 },
        padding: [16, 8, 16, 8], placeholder: "you voice is important to us.",
        text: { size: 14, colour: "#090a0a" },
        submit: { text: "Submit", right: 16, bottom: 16, size: 14 },
        link: { bottom: 11 }
    })

    property var page: null

    name: "SubmitAdviceComponent"
    when: windowShown
    visible: true
    width: 640
    height: 400

    PageStage {
        id: stage
    }

    SignalSpy {
        id: submitted
        signalName: "sigSubmit"
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
        uninstallMgr.reset()
        page = stage.make("SubmitAdviceComponent", { discountPricesTxt: "Enjoy discounted prices" })
        submitted.target = page
        submitted.clear()
    }

    function cleanup() {
        submitted.target = null
        page.destroy()
        page = null
        wait(0)
    }

    function frame() {
        return Parts.all(page, "Rectangle")[0]
    }

    function box() {
        return Parts.all(page, "TextArea")[0]
    }

    function submit() {
        return Parts.all(page, "ZoRoundButton")[0]
    }

    function link() {
        return Parts.all(page, "ZoLinkLabel")[0]
    }

    function letters(count) {
        return new Array(count + 1).join("x")
    }

    function border() {
        return { colour: frame().border.color.toString(), width: frame().border.width }
    }

    function test_defaults() {
        compare(page.maxLength, described.maxLength)
        compare(page.currentPage, described.currentPage)
    }

    function test_frame() {
        compare([frame().x, frame().y, frame().width, frame().height],
                [0, 0, page.width, described.frame.height])
        compare(frame().radius, described.frame.radius)
        verify(Qt.colorEqual(frame().color, described.frame.colour))
    }

    function test_borderFollowsTheFocusOfTheText() {
        compare(frame().border.width, 0, "none before the first change of focus")
        mouseClick(box(), 100, 20)
        compare(border(), described.focused)
        keyClick(Qt.Key_Tab)
        compare(border(), described.left)
        verify(Qt.colorEqual(probe.pixel(frame(), 100, 0), "#000000"))
        mouseClick(box(), 100, 20)
        compare(border(), described.focused)
    }

    function test_aPressBelowTheTextFocusesIt() {
        mousePress(page, 40, described.frame.height - 10)
        compare(border(), described.focused)
        compare(box().activeFocus, true)
        mouseRelease(page, 40, described.frame.height - 10)
    }

    function test_text() {
        var text = box()
        compare([text.leftPadding, text.topPadding, text.rightPadding, text.bottomPadding],
                described.padding)
        compare(text.textFormat, TextEdit.PlainText)
        compare(text.wrapMode, Text.Wrap)
        compare(text.selectByMouse, true)
        compare(text.placeholderText, described.placeholder)
        compare(text.font.pixelSize, described.text.size)
        verify(Qt.colorEqual(text.color, described.text.colour))
        var view = Parts.all(page, "ScrollView")[0]
        compare([view.x, view.y, view.width, view.height], [0, 0, page.width, submit().y])
        compare(text.width, page.width)
    }

    function test_longTextWrapsAndScrolls() {
        box().forceActiveFocus()
        box().text = new Array(140).join("word ")
        verify(box().lineCount > 7)
        verify(box().contentHeight > submit().y)
        compare(box().width, page.width, "no wider than the frame")
        var flickable = Parts.all(page, "Flickable")[0]
        compare(flickable.contentY, 0)
        box().cursorPosition = box().length
        tryVerify(function() { return flickable.contentY > 0 })
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

    function test_submitIsForText() {
        compare(submit().text, described.submit.text)
        compare(submit().enabled, false)
        box().forceActiveFocus()
        keyClick(Qt.Key_Space)
        compare(submit().enabled, true)
        keyClick(Qt.Key_Backspace)
        compare(submit().enabled, false)
    }

    function test_submitButton() {
        compare(page.width - submit().x - submit().width, described.submit.right)
        compare(described.frame.height - submit().y - submit().height, described.submit.bottom)
        compare(submit().fontPixcelSize, described.submit.size)
        compare([submit().width, submit().height], [100, 28])
        box().text = "x"
        verify(Qt.colorEqual(submit().bgColor, "#ffffff"))
        verify(Qt.colorEqual(submit().bgBorderColor, "#1f6fff"))
        compare(submit().bgBorderWidth, 1)
    }

    function test_submitHandsTheWholeTextOver_data() {
        return [{ tag: "words", text: "it crashed" }, { tag: "blanks", text: "  two \n lines  " },
                { tag: "quotes", text: "\"{}\" & <b>" }, { tag: "700", text: letters(700) }]
    }

    function test_submitHandsTheWholeTextOver(row) {
        box().text = row.text
        mouseClick(submit())
        compare(submitted.count, 1)
        compare(submitted.signalArguments[0][0], row.text)
        compare(uninstallMgr.calls, [])
    }

    function test_link() {
        compare(link().originalText, "Enjoy discounted prices")
        compare([link().x, link().y + link().height], [0, page.height - described.link.bottom])
    }

    function test_theLinkAsksForItsOfferEachTime() {
        page.currentPage = 4
        uninstallMgr.offers = { "4": { "url": "https://a.example/" } }
        compare(uninstallMgr.calls, [], "nothing before the click")
        mouseClick(link(), 30, link().height / 2)
        uninstallMgr.offers = { "4": { "url": "https://b.example/?x=1&y" } }
        mouseClick(link(), 30, link().height / 2)
        uninstallMgr.offers = {}
        mouseClick(link(), 30, link().height / 2)
        compare(uninstallMgr.calls, [
            ["getPreferentialLink", 4],
            ["sendUserInfo", "UninstallPop", "Click_Text_Url", '{"url":"https://a.example/"}', ""],
            ["openLink", "https://a.example/"],
            ["getPreferentialLink", 4],
            ["sendUserInfo", "UninstallPop", "Click_Text_Url", '{"url":"https://b.example/?x=1&y"}', ""],
            ["openLink", "https://b.example/?x=1&y"],
            ["getPreferentialLink", 4],
            ["sendUserInfo", "UninstallPop", "Click_Text_Url", '{"url":""}', ""],
            ["openLink", ""]
        ])
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

    function test_tabLeadsOnInBothDirections() {
        box().text = "x"
        keyClick(Qt.Key_Tab)
        tryCompare(box(), "activeFocus", true)
        keyClick(Qt.Key_Tab)
        compare(submit().activeFocus, true)
        keyClick(Qt.Key_Tab)
        compare(link().activeFocus, true)
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        compare(box().activeFocus, true)
        compare(box().text, "x")
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        compare(box().activeFocus, false)
        box().text = ""
        box().forceActiveFocus()
        keyClick(Qt.Key_Tab)
        compare(link().activeFocus, true, "past the disabled button")
    }

    function test_accessible() {
        var seen = probe.accessible(box())
        compare(seen.role, Accessible.EditableText)
        compare(seen.name, described.placeholder)
        verify(seen.focusable)
    }
}
