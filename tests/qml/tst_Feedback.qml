import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "qrc:/"

// The feedback box: its frame, its text and limit, its button, and the link below.
InterfaceTest {
    id: test

    readonly property var noBorder: ["#000000", 0]
    readonly property var focused: ["#7aaaff", 2]
    readonly property var unfocused: ["#000000", 1]

    property var page: null
    property var box: null
    property var frame: null
    property var submit: null
    property var link: null

    name: "Feedback"

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

    // A page with an object `clipboard` in its context.
    Component {
        id: withClipboard
        Item {
            property alias clipboardText: clipboard.text

            anchors.fill: parent

            QtObject {
                id: clipboard
                property string text: ""
            }

            SubmitAdviceComponent {
                anchors.fill: parent
            }
        }
    }

    function prepare() {
        openMain()
        part("homePage").switchPage(3)
        usePage(part("noSolvedPage").item)
        page.sigSubmit.connect((text) => fake.note("submit " + text))
        fake.forget()
    }

    function usePage(shown) {
        page = shown
        box = findChild(page, "feedbackText")
        frame = findChild(page, "feedbackFrame")
        submit = findChild(page, "submitButton")
        link = findChild(page, "offerLink")
    }

    function letters(count, letter) { return new Array(count + 1).join(letter || "x") }
    function border() { return [String(frame.border.color), frame.border.width] }

    function tap(item, x, y) {
        var place = item.mapToItem(null, x, y)
        probe.tap(main, place.x, place.y)
    }

    // The frame ----------------------------------------------------------------------------------

    function test_theBorderFollowsTheFocusOfTheText() {
        compare(border(), noBorder, "before the first change of focus")
        mouseClick(box, 100, 20)
        compare(border(), focused)
        keyClick(Qt.Key_Tab)
        compare([box.activeFocus, box.focus], [false, true], "the view is a focus scope")
        compare(border(), focused)
        box.focus = false
        compare(border(), unfocused)
        mouseClick(box, 100, 20)
        compare(border(), focused)
    }

    function test_anotherActiveWindowKeepsTheBorder_data() {
        return [{ tag: "another window", made: otherWindow },
                { tag: "message box", made: messageBox }]
    }

    function test_anotherActiveWindowKeepsTheBorder(row) {
        mouseClick(box, 100, 20)
        tryCompare(box, "activeFocus", true)
        var other = row.made.createObject(null)
        other.requestActivate()
        tryCompare(other, "active", true)
        tryCompare(box, "activeFocus", false)
        compare(border(), focused)
        remove(other)
    }

    // At the edges, where scroll bars would be, and above the button. In Qt an item includes its
    // right and bottom edge.
    function test_clicksInTheFrameFocusTheText_data() {
        return [[0, 0], [575, 0], [0, 155], [575, 155], [570, 60], [300, 107], [40, 146],
                [300, 157]]
            .map((at) => ({ tag: at.join(), at: at, inside: at[1] < 156 }))
            .concat({ tag: "tap", at: [100, 20], inside: true, act: tap })
    }

    function test_clicksInTheFrameFocusTheText(row) {
        compare([frame.width, frame.height], [576, 156])
        ;(row.act || mouseClick)(page, row.at[0], row.at[1])
        tryCompare(box, "activeFocus", row.inside)
        compare(border(), row.inside ? focused : noBorder)
    }

    function test_aPressFocusesAtOnceAndAClickRestoresTheBorder() {
        mousePress(page, 40, 146)
        compare([box.activeFocus].concat(border()), [true].concat(focused))
        mouseRelease(page, 40, 146)
        page.frameFocus(false)
        compare(border(), unfocused)
        mouseClick(page, 40, 146)
        compare(border(), focused)
    }

    // The text -----------------------------------------------------------------------------------

    function test_longTextScrolls() {
        box.forceActiveFocus()
        box.text = new Array(140).join("word ")
        compare(box.width, page.width, "no wider than the frame")
        var view = findChild(page, "feedbackView").contentItem
        compare(view.contentY, 0)
        box.cursorPosition = box.length
        tryVerify(() => view.contentY > 0)
        // The scroll bar works, too.
        mouseDrag(page, page.width - 3, submit.y - 10, 0, -submit.y, Qt.LeftButton, Qt.NoModifier,
                  10)
        compare(view.contentY, 0)
    }

    function test_theLimitCutsTheText_data() {
        return [699, 700, 701, 7000].map((length) => ({
            tag: length, given: letters(length), kept: letters(Math.min(length, 700)), limit: 700
        })).concat({ tag: "lines", given: new Array(500).join("a\n"), limit: 700,
                     kept: new Array(351).join("a\n") },
                   { tag: "of five", given: "1234567", kept: "12345", limit: 5 },
                   { tag: "markup", given: "<b>x</b> &amp; more", kept: "<b>x</b> &amp; more",
                     limit: 700 })
    }

    function test_theLimitCutsTheText(row) {
        compare(page.maxLength, 700)
        page.maxLength = row.limit
        box.text = row.given
        compare([box.text, box.length], [row.kept, row.kept.length])
        compare(box.cursorPosition, row.given === row.kept ? 0 : row.limit)
    }

    // The cut clears the undo history, so undo restores nothing beyond the limit.
    function test_typingAtTheLimitCutsTheEnd() {
        box.forceActiveFocus()
        box.text = letters(699)
        box.cursorPosition = 699
        keyClick(Qt.Key_Y)
        keyClick(Qt.Key_Y)
        compare([box.text, box.cursorPosition], [letters(699) + "y", 700])
        // In the middle: the limit cuts the last letter, and the cursor moves to the end.
        box.cursorPosition = 10
        keyClick(Qt.Key_Y)
        compare([box.text, box.cursorPosition], [letters(10) + "y" + letters(689), 700])
        for (var n = 0; n < 20; ++n) {
            keyClick(Qt.Key_Z, Qt.ControlModifier)
            verify(box.length <= 700)
        }
        keyClick(Qt.Key_Backspace)
        verify(box.length < 700)
    }

    function test_theMouseSelects() {
        box.text = "some words to select"
        mousePress(box, 18, 16)
        mouseMove(box, 60, 16)
        mouseMove(box, 120, 16)
        mouseRelease(box, 120, 16)
        verify(box.selectedText.length > 3, box.selectedText)
    }

    // Pastes `pasted` letters among `held` others. The system clipboard gets them, for Qt's own
    // paste; a `clipboard` object must be set before.
    function paste(held, pasted, select) {
        box.forceActiveFocus()
        box.text = letters(Math.min(pasted, 700), "y")
        box.selectAll()
        if (pasted > 0) {
            box.copy()
        }
        box.text = letters(held)
        select()
        keyClick(Qt.Key_V, Qt.ControlModifier)
    }

    function test_ordinaryPasteIsCut() {
        paste(690, 50, () => { box.cursorPosition = 1 })
        compare([box.text, box.cursorPosition], ["x" + letters(50, "y") + letters(649), 700])
    }

    function test_pasteWithAClipboardObjectStopsAtTheLimit_data() {
        return [
            { tag: "fits", held: 10, pasted: 20, result: 30 },
            { tag: "one below the limit", held: 650, pasted: 49, result: 699 },
            { tag: "exactly the limit", held: 650, pasted: 50, result: 700 },
            { tag: "one left", held: 699, pasted: 3, result: 700 },
            { tag: "ten left", held: 690, pasted: 300, result: 700 },
            { tag: "none left", held: 700, pasted: 5, result: 700 },
            { tag: "much into nothing", held: 0, pasted: 2000, result: 700 },
            { tag: "nothing at the limit", held: 700, pasted: 0, result: 700 },
            // Below the limit, Qt's own paste replaces the selection. At the limit the page inserts
            // what fits at the cursor, and the selected text stays.
            { tag: "over a selection, below the limit", held: 650, pasted: 49, result: 694,
              end: 10 },
            { tag: "over a selection, at the limit", held: 650, pasted: 50, result: 700, end: 10,
              keeps: true },
            { tag: "over a selection, none left", held: 700, pasted: 50, result: 700, end: 10,
              keeps: true }
        ]
    }

    function test_pasteWithAClipboardObjectStopsAtTheLimit(row) {
        var stage = withClipboard.createObject(page.parent)
        usePage(stage)
        stage.clipboardText = letters(row.pasted, "y")
        var at = Math.min(5, row.held)
        paste(row.held, row.pasted, () => { box.select(at, row.end || at) })
        var kept = row.end && !row.keeps ? row.held - 5 : row.held
        var added = row.result - kept
        compare(box.text.split("x").length - 1, kept)
        compare(box.text.split("y").length - 1, added)
        if (!row.keeps && added > 0) {
            compare(box.text, letters(at) + letters(added, "y") + letters(kept - at))
            compare(box.cursorPosition, at + added)
        }
        // Without Ctrl, V is a letter.
        box.text = ""
        keyClick("v")
        keyClick("V", Qt.ShiftModifier)
        compare(box.text, "vV")
        remove(stage)
    }

    // The button ---------------------------------------------------------------------------------

    function test_submitIsEnabledForTextOnly() {
        compare([submit.text, submit.enabled], ["Submit", false])
        mouseClick(submit)
        submit.forceActiveFocus()
        keyClick(Qt.Key_Space)
        probe.pressAccessible(submit)
        compare(fake.asked, [])
        box.forceActiveFocus()
        keyClick(Qt.Key_Space)
        compare(submit.enabled, true)
        keyClick(Qt.Key_Backspace)
        compare(submit.enabled, false)
    }

    function test_submitSendsTheWholeText_data() {
        return [{ tag: "mouse", act: () => mouseClick(submit) },
                { tag: "touch", act: () => tap(submit, 50, 14) },
                { tag: "keyboard", act: () => {
                    keyClick(Qt.Key_Tab)
                    keyClick(Qt.Key_Space)
                } }]
    }

    function test_submitSendsTheWholeText(row) {
        box.text = "  \"{}\" & <b>\n"
        box.forceActiveFocus()
        box.cursorPosition = box.length
        keyClick(Qt.Key_Return) // only adds a line
        keyClick(Qt.Key_B)
        compare(fake.asked, [])
        row.act()
        tryVerify(() => notes().length > 0)
        compare(notes(), ["submit   \"{}\" & <b>\n\nb"], "the whole text")
    }

    // The link -----------------------------------------------------------------------------------

    function followed(url) {
        return [event("UninstallPop", "Click_Text_Url",
                      { url: url })].concat(url ? "open " + url : [])
    }

    function test_theLinkQueriesItsOfferEachTime() {
        // Type 1 has an offer of its own; the others share one.
        ;[[3, "https://a.example/"], [1, "https://a.example/%1"], [4, "https://b.example/%1?x=1&y"],
          [4, ""]].forEach((round) => {
            page.currentPage = round[0]
            fake.defaultText = round[1]
            var url = uninstallMgr.getPreferentialLink(round[0]).url
            fake.forget()
            mouseClick(link, 30, link.height / 2)
            compare(fake.calls("getPreferentialLink"), [String(round[0])])
            compare(fake.asked.filter((asked) => asked.indexOf("text ") < 0), followed(url))
        })
        compare(page.visible, true)
        fake.configured = false
        fake.forget()
        verify(probe.pressAccessible(link))
        compare(fake.asked, followed(""))
    }

    function test_assistiveToolsReadTheBoxTheButtonAndTheLink() {
        var seen = probe.accessible(box)
        compare([seen.role, seen.name, seen.focusable],
                [Accessible.EditableText, "you voice is important to us.", true])
        compare(box.placeholderText, seen.name)
        compare([submit, link].map((item) => probe.accessible(item).name),
                ["Submit", "Enjoy discounted prices to buy other products"])
    }
}
