import QtQuick 2.14
import QtQuick.Controls 2.14
import QtTest 1.15
import "qrc:/"
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var described: ({
        textColor: "#090a0a", fontSize: 14, padding: 6, checked: false,
        indicator: 14, radius: 7, gap: 8, disabledOpacity: 0.3
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
            onToggled: uninstallMgr.note("toggled " + checked)
            onClicked: uninstallMgr.note("clicked")
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
                    height: 19
                    text: "Entry " + index
                    ButtonGroup.group: group
                    onToggled: uninstallMgr.note("toggled " + index)
                }
            }
        }
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
        uninstallMgr.reset()
    }

    function make(properties) {
        var button = createTemporaryObject(fixture, test, properties || {})
        verify(button)
        return button
    }

    function notes() {
        return uninstallMgr.callsOf("note").map(function(call) { return call[1] })
    }

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

    function test_isAsSmallAsItsContent() {
        var button = make()
        compare(button.height, 19)
        var label = Parts.text(button)
        compare(button.implicitWidth, label.contentWidth + 22 + 2 * described.padding)
        compare(button.implicitHeight, label.contentHeight + 2 * described.padding)
    }

    function test_indicatorGeometry() {
        var indicator = make().indicator
        compare(indicator.width, described.indicator)
        compare(indicator.height, described.indicator)
        compare(indicator.radius, described.radius)
        compare(indicator.x, described.padding)
        fuzzyCompare(indicator.y, (19 - 14) / 2, 0.5)
        compare(indicator.y, Math.round(indicator.y), "on a whole pixel")
        compare(make({ leftPadding: 5 }).indicator.x, 5)
        compare(make({ height: 40 }).indicator.y, 13)
    }

    function test_label() {
        var button = make({ width: 300 })
        var label = Parts.text(button)
        compare(label.text, "The price is too expensive")
        compare(label.font.pixelSize, 14)
        verify(Qt.colorEqual(label.color, described.textColor))
        compare(label.leftPadding, described.indicator + described.gap)
        compare(label.width, 300 - 22)
        compare(label.mapToItem(button, 0, 0).x, described.padding)
        fuzzyCompare(label.mapToItem(button, 0, label.height / 2).y, 19 / 2, 0.5)
        compare(label.opacity, 1.0)
        button.enabled = false
        fuzzyCompare(label.opacity, described.disabledOpacity, 0.001)
        button.textColor = "#ff0000"
        button.fontSize = 20
        verify(Qt.colorEqual(label.color, "#ff0000"))
        compare(label.font.pixelSize, 20)
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
        verify(Qt.colorEqual(indicator.border.color, row.look.colour), indicator.border.color)
        compare(indicator.border.width, row.look.width)
        verify(Qt.colorEqual(indicator.color, "#ffffff"))
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
        return [
            { tag: "Space", key: Qt.Key_Space },
            { tag: "Return", key: Qt.Key_Return },
            { tag: "Enter", key: Qt.Key_Enter }
        ]
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
        var entries = Parts.all(column, "ZoRadioButton")
        tryCompare(entries[0], "activeFocus", true)
        keyClick(Qt.Key_Down)
        compare(entries[1].activeFocus, true)
        compare(entries[1].checked, false)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Down) // no further than the last
        compare(entries[2].activeFocus, true)
        keyClick(Qt.Key_Up)
        keyClick(Qt.Key_Up)
        keyClick(Qt.Key_Up)
        compare(entries[0].activeFocus, true)
        compare(Parts.focusFrame(entries[0]).visible, true)
        compare(notes(), [])
    }

    function test_groupIsExclusive() {
        var column = createTemporaryObject(groupFixture, test)
        var entries = Parts.all(column, "ZoRadioButton")
        mouseClick(entries[0])
        mouseClick(entries[2])
        compare(entries[0].checked, false)
        compare(entries[2].checked, true)
        compare(notes(), ["toggled 0", "toggled 2"])
    }

    function test_focusFrameIsForTheKeyboardOnly() {
        var button = make()
        var frame = Parts.focusFrame(button)
        mouseClick(button)
        compare(button.activeFocus, true)
        compare(frame.visible, false)
        button.focus = false
        keyClick(Qt.Key_Tab)
        tryCompare(frame, "visible", true)
        var area = frame.mapToItem(button, 0, 0, frame.width, frame.height)
        verify(area.x > described.padding + described.indicator, "clear of the ring")
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
