import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "qrc:/"
import "parts.js" as Parts

// The feedback page: its frame, its button, and the link below. The text has tests of its own.
TestCase {
    id: test

    readonly property var described: ({
        maxLength: 700, currentPage: 3,
        frame: { height: 156, radius: 6, colour: "#ffffff" },
        focused: { colour: "#7aaaff", width: 2 },
        left: { colour: "#000000", width: 1 },
        placeholder: "you voice is important to us.",
        submit: { text: "Submit", right: 16, bottom: 16, size: 14 },
        submitColours: {
            normal: ["#ffffff", "#1f6fff", "#1f6fff"], hovered: ["#e8f0ff", "#1f6fff", "#1f6fff"],
            pressed: ["#d2e2ff", "#1f6fff", "#1f6fff"], disabled: ["#ffffff", "#e9ecf2", "#b6b8bd"]
        },
        link: { bottom: 11, size: 13 }
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
        Parts.destroy(test, page)
        page = null
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
        compare([box().activeFocus, box().focus], [false, true], "the view is a focus scope")
        compare(border(), described.focused)
        box().focus = false
        compare(border(), described.left)
        verify(Qt.colorEqual(probe.pixel(frame(), 100, 0), "#000000"))
        mouseClick(box(), 100, 20)
        compare(border(), described.focused)
    }

    Component {
        id: otherWindow
        Window {
            width: 100
            height: 100
            visible: true
        }
    }

    Component {
        id: messageBox
        ZoMessageBox {
            visible: true
        }
    }

    function test_anotherActiveWindowLeavesTheLook_data() {
        return [{ tag: "another window", made: otherWindow }, { tag: "message box", made: messageBox }]
    }

    function test_anotherActiveWindowLeavesTheLook(row) {
        mouseClick(box(), 100, 20)
        tryCompare(box(), "activeFocus", true)
        var other = row.made.createObject(null)
        other.requestActivate()
        tryCompare(other, "active", true)
        tryCompare(box(), "activeFocus", false)
        compare(border(), described.focused)
        Parts.destroy(test, other)
        test.Window.window.requestActivate()
        tryCompare(test.Window.window, "active", true)
    }

    function test_aPressBelowTheTextFocusesIt() {
        mousePress(page, 40, described.frame.height - 10)
        compare(border(), described.focused)
        compare(box().activeFocus, true)
        mouseRelease(page, 40, described.frame.height - 10)
        // Also where the look has gone although the text has the keyboard.
        page.frameFocus(false)
        compare(border(), described.left)
        mouseClick(page, 40, described.frame.height - 10)
        compare(border(), described.focused)
    }

    function test_aClickAtTheFramesEdgeFocusesTheText_data() {
        var right = 575, bottom = described.frame.height - 1
        return [
            { tag: "top left", x: 0, y: 0 }, { tag: "top right", x: right, y: 0 },
            { tag: "bottom left", x: 0, y: bottom }, { tag: "bottom right", x: right, y: bottom },
            // Where bars would scroll
            { tag: "right", x: right - 5, y: 60 }, { tag: "above the button", x: 300, y: 107 }
        ]
    }

    function test_aClickAtTheFramesEdgeFocusesTheText(row) {
        compare(page.width, 576)
        mouseClick(page, row.x, row.y)
        compare(border(), described.focused)
        compare(box().activeFocus, true)
    }

    function test_aClickBelowTheFrameDoesNot() {
        // To the toolkit, an item reaches to its far edge and includes it.
        mouseClick(page, 300, described.frame.height + 1)
        compare(frame().border.width, 0)
        compare(box().activeFocus, false)
    }

    function test_aTapFocusesTheText() {
        var place = page.mapToItem(null, 100, 20)
        probe.tap(page, place.x, place.y)
        tryCompare(box(), "activeFocus", true)
        compare(border(), described.focused)
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
        compare([submit().bgBorderWidth, submit().bgRadius], [1, 4])
    }

    function test_submitColours_data() {
        return ["normal", "hovered", "pressed", "disabled"].map(function(state) {
            return { tag: state, colours: described.submitColours[state] }
        })
    }

    function test_submitColours(row) {
        box().text = row.tag === "disabled" ? "" : "x"
        Parts.enter(test, submit(), row.tag === "disabled" ? "normal" : row.tag)
        compare([submit().bgColor, submit().bgBorderColor, Parts.text(submit()).color].map(String),
                row.colours)
        Parts.leave(test, submit())
    }

    function test_cursors() {
        box().text = "x"
        mouseMove(submit(), 50, 14)
        tryVerify(function() { return probe.cursorShape(page) === Qt.PointingHandCursor })
        mouseMove(test, test.width - 1, test.height - 1)
        tryVerify(function() { return probe.cursorShape(page) === Qt.ArrowCursor })
        mouseMove(link(), 30, link().height / 2)
        tryVerify(function() { return probe.cursorShape(page) === Qt.PointingHandCursor })
        mouseMove(page, link().width + 20, link().y + 5)
        tryVerify(function() { return probe.cursorShape(page) === Qt.ArrowCursor })
    }

    function test_submittingByKeyboardAndTouch() {
        box().forceActiveFocus()
        keyClick(Qt.Key_A)
        keyClick(Qt.Key_Return) // another line, nothing more
        keyClick(Qt.Key_B)
        compare(submitted.count, 0)
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Space)
        compare(submitted.count, 1)
        var place = submit().mapToItem(null, 50, 14)
        probe.tap(page, place.x, place.y)
        tryCompare(submitted, "count", 2)
        compare(submitted.signalArguments.map(function(sent) { return sent[0] }), ["a\nb", "a\nb"])
    }

    function test_anEmptyTextIsNeverSubmitted() {
        mouseClick(submit())
        submit().forceActiveFocus()
        keyClick(Qt.Key_Space)
        probe.pressAccessible(submit())
        compare(submitted.count, 0)
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
        compare(link().font.pixelSize, described.link.size)
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
            ["sendUserInfo", "UninstallPop", "Click_Text_Url",
             '{"url":"https://b.example/?x=1&y"}', ""],
            ["openLink", "https://b.example/?x=1&y"],
            ["getPreferentialLink", 4],
            ["sendUserInfo", "UninstallPop", "Click_Text_Url", '{"url":""}', ""],
            ["openLink", ""]
        ])
    }

    function test_accessible() {
        var seen = probe.accessible(box())
        compare(seen.role, Accessible.EditableText)
        compare(seen.name, described.placeholder)
        verify(seen.focusable)
        compare(probe.accessible(submit()).name, described.submit.text)
        compare(probe.accessible(link()).name, "Enjoy discounted prices")
        verify(probe.pressAccessible(link()))
        compare(uninstallMgr.calls.map(function(call) { return call[0] }),
                ["getPreferentialLink", "sendUserInfo", "openLink"])
    }
}
