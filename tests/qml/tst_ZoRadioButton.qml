import QtQuick 2.14
import QtQuick.Controls 2.14
import QtTest 1.15
import "qrc:/"
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var described: ({
        textColor: "#090a0a", fontSize: 14, padding: 6, checked: false
    })
    readonly property var ring: ({
        "normal": { colour: "#9aa6b3", width: 1 },
        "hovered": { colour: "#0079ff", width: 1 },
        "pressed": { colour: "#0079ff", width: 1 },
        "checked": { colour: "#0079ff", width: 4 },
        "checked hovered": { colour: "#0079ff", width: 4 },
        "disabled": { colour: "#9aa6b3", width: 1 },
        "disabled checked": { colour: "#0079ff", width: 4 }
    })

    name: "ZoRadioButton"
    when: windowShown
    visible: true
    width: 400
    height: 200

    Component {
        id: fixture
        ZoRadioButton {
            x: 20
            y: 20
            height: 19
            text: "The price is too expensive"
            onToggled: fake.note("toggled " + checked)
            onClicked: fake.note("clicked")
        }
    }

    Component {
        id: base
        RadioButton {}
    }

    Component {
        id: groupFixture
        Column {
            ButtonGroup {
                id: group
            }
            spacing: 10
            Repeater {
                model: 3
                ZoRadioButton {
                    objectName: "entry" + index
                    height: 19
                    text: "Entry " + index
                    ButtonGroup.group: group
                    onToggled: fake.note("toggled " + index)
                }
            }
        }
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
        fake.reset()
    }

    function make(properties) {
        var button = createTemporaryObject(fixture, test, properties || {})
        verify(button)
        return button
    }

    function notes() { return fake.askedOf("note") }

    function test_defaults() {
        var button = make()
        verify(Qt.colorEqual(button.textColor, described.textColor))
        compare(button.fontSize, described.fontSize)
        compare(button.checked, described.checked)
        var unchanged = createTemporaryObject(base, test)
        var sides = ["padding", "leftPadding", "topPadding", "rightPadding", "bottomPadding"]
        sides.forEach(function(side) {
            compare(button[side], unchanged[side], side)
            compare(button[side], described.padding, side)
        })
    }

    function label(button) { return findChild(button, "radioLabel") }

    function test_implicitSizeIsTheContentWithItsPadding() {
        var button = make()
        var room = 2 * described.padding
        compare(button.height, 19)
        compare(button.implicitHeight, label(button).contentHeight + room)
        compare(button.implicitWidth, label(button).contentWidth + label(button).leftPadding + room)
    }

    function test_indicatorPlace() {
        var indicator = make().indicator
        compare([indicator.width, indicator.height], [14, 14])
        compare(indicator.x, described.padding)
        compare(indicator.y, Math.round((19 - indicator.height) / 2), "on a whole pixel")
        compare(make({ leftPadding: 5 }).indicator.x, 5)
        indicator = make({ height: 40 }).indicator
        compare(indicator.y, (40 - indicator.height) / 2)
    }

    function test_label() {
        var button = make({ width: 300 })
        var text = label(button)
        compare(text.text, "The price is too expensive")
        compare(text.textFormat, Text.PlainText)
        compare(text.width, 300 - text.leftPadding)
        compare(text.mapToItem(button, 0, 0).x, described.padding)
        fuzzyCompare(text.mapToItem(button, 0, text.height / 2).y, 19 / 2, 0.5)
        compare(text.opacity, 1.0)
        button.enabled = false
        fuzzyCompare(text.opacity, 0.3, 0.001)
        button.textColor = "#ff0000"
        button.fontSize = 20
        verify(Qt.colorEqual(text.color, "#ff0000"))
        compare(text.font.pixelSize, 20)
    }

    function test_ring_data() {
        return Object.keys(ring).map(function(state) {
            return { tag: state, look: ring[state] }
        })
    }

    function test_ring(row) {
        var button = make({ checked: row.tag.indexOf("checked") >= 0 })
        var words = row.tag.replace("checked", "").trim()
        Parts.enter(test, button, words === "" ? "normal" : words)
        var indicator = button.indicator
        // From the four ends of the axes; the corners of the square stay empty.
        ;[0, 1, 3, 4].forEach(function(i) {
            var expected = i < row.look.width ? row.look.colour : "#ffffff"
            ;[[i, 7], [13 - i, 7], [7, i], [7, 13 - i]].forEach(function(at) {
                var drawn = probe.pixel(indicator, at[0], at[1])
                verify(Parts.looksLike(drawn, expected, 32), i + " " + drawn)
            })
        })
        ;[[1, 1], [12, 1], [1, 12], [12, 12]].forEach(function(corner) {
            compare(probe.pixel(indicator, corner[0], corner[1]), "", corner)
        })
        Parts.leave(test, button)
    }

    function test_mouseTogglesOnce() {
        var button = make()
        mouseClick(button)
        compare(button.checked, true)
        compare(notes(), ["toggled true", "clicked"])
        mouseClick(button)
        compare(button.checked, true)
        compare(notes(), ["toggled true", "clicked", "clicked"])
    }

    function test_touch() {
        var button = make()
        probe.tap(button, 30, 30)
        tryCompare(button, "checked", true)
        compare(notes(), ["toggled true", "clicked"])
    }

    function test_keys_data() {
        return Parts.keys
    }

    function test_keys(row) {
        var button = make()
        keyClick(Qt.Key_Tab)
        tryCompare(button, "activeFocus", true)
        keyClick(row.key)
        compare(button.checked, true)
        compare(notes(), ["toggled true", "clicked"])
        keyClick(row.key)
        compare(notes().filter(function(note) { return note === "toggled true" }).length, 1)
    }

    function test_arrowsMoveTheFocusOnly() {
        var column = createTemporaryObject(groupFixture, test)
        keyClick(Qt.Key_Tab)
        var entries = Parts.named(column, /^entry/)
        tryCompare(entries[0], "activeFocus", true)
        keyClick(Qt.Key_Down)
        compare(entries[1].activeFocus, true)
        compare(entries[1].checked, false)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Down) // no further than the last
        compare(entries[2].activeFocus, true)
        keyClick(Qt.Key_Up)
        compare(entries[1].activeFocus, true)
        keyClick(Qt.Key_Up)
        keyClick(Qt.Key_Up)
        compare(entries[0].activeFocus, true)
        compare(findChild(entries[0], "focusFrame").visible, true)
        compare(notes(), [])
    }

    function test_groupIsExclusive() {
        var column = createTemporaryObject(groupFixture, test)
        var entries = Parts.named(column, /^entry/)
        mouseClick(entries[0])
        mouseClick(entries[2])
        compare(entries[0].checked, false)
        compare(entries[2].checked, true)
        compare(notes(), ["toggled 0", "toggled 2"])
    }

    function test_focusFrameIsForTheKeyboardOnly() {
        var button = make()
        var frame = findChild(button, "focusFrame")
        mouseClick(button)
        compare(button.activeFocus, true)
        compare(frame.visible, false)
        button.focus = false
        keyClick(Qt.Key_Tab)
        tryCompare(frame, "visible", true)
        var area = frame.mapToItem(button, 0, 0, frame.width, frame.height)
        verify(area.x > button.indicator.x + button.indicator.width, "clear of the ring")
        verify(area.x + area.width <= button.width, "inside: pages clip")
        compare([area.y, area.height], [0, button.height], "round the whole line")
    }

    function test_accessible() {
        var button = make()
        var seen = probe.accessible(button)
        compare(seen.role, Accessible.RadioButton)
        compare(seen.name, "The price is too expensive")
        verify(seen.focusable)
        compare(seen.checked, false)
        verify(probe.pressAccessible(button))
        compare(button.checked, true)
        compare(notes().filter(function(note) { return note === "toggled true" }).length, 1)
        verify(probe.pressAccessible(button))
        compare(button.checked, true)
        compare(notes().filter(function(note) { return note === "toggled true" }).length, 1)
    }
}
