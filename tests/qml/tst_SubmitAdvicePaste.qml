import QtQuick 2.14
import QtTest 1.15
import "parts.js" as Parts

// Pasting into the feedback box where the program publishes its clipboard as `clipboard`.
TestCase {
    id: test

    property var page: null

    name: "SubmitAdvicePaste"
    when: windowShown
    visible: true
    width: 640
    height: 400

    function init() {
        fake.reset()
        page = clipboardStage.createObject(test)
    }

    function cleanup() {
        Parts.destroy(test, page)
        page = null
    }

    Component {
        id: clipboardStage
        PasteStage {}
    }

    function letters(count, letter) { return new Array(count + 1).join(letter || "x") }

    // The system's own clipboard has the same text, for the ordinary paste.
    function fill(held, pasted) {
        var box = findChild(page, "feedbackText")
        box.forceActiveFocus()
        box.text = letters(Math.min(pasted, 700), "y")
        box.selectAll()
        if (pasted > 0) {
            box.copy()
        }
        page.clipboardText = letters(pasted, "y")
        box.text = letters(held)
        return box
    }

    function test_paste_data() {
        return [
            { tag: "fits", held: 10, pasted: 20, result: 30 },
            { tag: "one below the limit", held: 650, pasted: 49, result: 699 },
            { tag: "exactly the limit", held: 650, pasted: 50, result: 700 },
            { tag: "one left", held: 699, pasted: 3, result: 700 },
            { tag: "ten left", held: 690, pasted: 300, result: 700 },
            { tag: "none left", held: 700, pasted: 5, result: 700 },
            { tag: "much into nothing", held: 0, pasted: 2000, result: 700 },
            { tag: "nothing at the limit", held: 700, pasted: 0, result: 700 }
        ]
    }

    function test_paste(row) {
        var box = fill(row.held, row.pasted)
        box.cursorPosition = Math.min(5, row.held)
        var at = box.cursorPosition
        keyClick(Qt.Key_V, Qt.ControlModifier)
        var added = row.result - row.held
        compare(box.length, row.result)
        compare(box.text, letters(at) + letters(added, "y") + letters(row.held - at))
        if (added > 0) {
            compare(box.cursorPosition, at + added)
        }
    }

    // The ordinary paste replaces what is selected; the one up to the limit inserts.
    function test_pasteOverASelection_data() {
        return [
            { tag: "below the limit", held: 650, pasted: 49, length: 694, selected: "" },
            { tag: "at the limit", held: 650, pasted: 50, length: 700, selected: "xxxxx" },
            { tag: "no room", held: 700, pasted: 50, length: 700, selected: "xxxxx" }
        ]
    }

    function test_pasteOverASelection(row) {
        var box = fill(row.held, row.pasted)
        box.select(20, 25)
        keyClick(Qt.Key_V, Qt.ControlModifier)
        compare(box.length, row.length)
        compare(box.text.split("x").length - 1, row.selected === "" ? row.held - 5 : row.held)
        compare(box.text.substring(20, 25), row.selected === "" ? "yyyyy" : row.selected)
    }

    function test_theLetterAloneIsALetter_data() {
        return [{ tag: "v", modifiers: Qt.NoModifier },
                { tag: "V", modifiers: Qt.ShiftModifier }]
    }

    function test_theLetterAloneIsALetter(row) {
        var box = fill(690, 300)
        box.cursorPosition = 0
        keyClick(row.tag, row.modifiers)
        compare(box.text, row.tag + letters(690))
    }
}
