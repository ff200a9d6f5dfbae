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
        focused: { colour: "#7aaaff", width: 2 },
        left: { colour: "#000000", width: 1 },
        placeholder: "you voice is important to us.", submit: "Submit"
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
        fake.reset()
        page = stage.make("SubmitAdviceComponent", { discountPricesTxt: "Enjoy discounted prices" })
        submitted.target = page
        submitted.clear()
    }

    function cleanup() {
        submitted.target = null
        Parts.destroy(test, page)
        page = null
    }

    function frame() { return findChild(page, "feedbackFrame") }
    function box() { return findChild(page, "feedbackText") }
    function submit() { return findChild(page, "submitButton") }
    function link() { return findChild(page, "offerLink") }
    function letters(count) { return new Array(count + 1).join("x") }

    function border() {
        return { colour: frame().border.color.toString(), width: frame().border.width }
    }

    function test_defaults() {
        compare(page.maxLength, described.maxLength)
        compare(page.currentPage, described.currentPage)
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
        mousePress(page, 40, frame().height - 10)
        compare(border(), described.focused)
        compare(box().activeFocus, true)
        mouseRelease(page, 40, frame().height - 10)
        // Also where the look has gone although the text has the keyboard.
        page.frameFocus(false)
        compare(border(), described.left)
        mouseClick(page, 40, frame().height - 10)
        compare(border(), described.focused)
    }

    function test_aClickAtTheFramesEdgeFocusesTheText_data() {
        var right = 575, bottom = 155
        return [
            { tag: "top left", x: 0, y: 0 }, { tag: "top right", x: right, y: 0 },
            { tag: "bottom left", x: 0, y: bottom }, { tag: "bottom right", x: right, y: bottom },
            // Where bars would scroll
            { tag: "right", x: right - 5, y: 60 }, { tag: "above the button", x: 300, y: 107 }
        ]
    }

    function test_aClickAtTheFramesEdgeFocusesTheText(row) {
        compare([frame().width, frame().height], [576, 156])
        mouseClick(page, row.x, row.y)
        compare(border(), described.focused)
        compare(box().activeFocus, true)
    }

    function test_aClickBelowTheFrameDoesNot() {
        // To the toolkit, an item reaches to its far edge and includes it.
        mouseClick(page, 300, frame().height + 1)
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
        compare(submit().text, described.submit)
        compare(link().originalText, "Enjoy discounted prices")
        compare(submit().enabled, false)
        box().forceActiveFocus()
        keyClick(Qt.Key_Space)
        compare(submit().enabled, true)
        keyClick(Qt.Key_Backspace)
        compare(submit().enabled, false)
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
        compare(fake.asked, [])
    }

    function followed(url) {
        var asked = [Parts.event("UninstallPop", "Click_Text_Url", { url: url })]
        return asked.concat(url === "" ? [] : "open " + url)
    }

    function test_theLinkAsksForItsOfferEachTime() {
        compare(fake.asked, [], "nothing before the click")
        // The first type has an offer of its own.
        ;[[4, "https://a.example/"], [1, "https://a.example/%1"], [4, "https://b.example/%1?x=1&y"],
          [4, ""]].forEach(function(round) {
            page.currentPage = round[0]
            fake.defaultText = round[1]
            var url = uninstallMgr.getPreferentialLink(round[0]).url
            fake.forget()
            mouseClick(link(), 30, link().height / 2)
            compare(fake.asked.filter(function(asked) { return asked.indexOf("text ") < 0 }),
                    followed(url))
        })
        fake.configured = false
        fake.forget()
        mouseClick(link(), 30, link().height / 2)
        compare(fake.asked, followed(""))
    }

    function test_accessible() {
        var seen = probe.accessible(box())
        compare(seen.role, Accessible.EditableText)
        compare(seen.name, described.placeholder)
        verify(seen.focusable)
        compare(probe.accessible(submit()).name, described.submit)
        compare(probe.accessible(link()).name, "Enjoy discounted prices")
        fake.configured = false
        verify(probe.pressAccessible(link()))
        compare(fake.asked, followed(""))
    }
}
