import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public
import "parts.js" as Parts

TestCase {
    id: test

    // What the control is made of.
    readonly property var described: ({
        implicitWidth: 100, height: 28, fontPixcelSize: 14, bgRadius: 4, bgBorderWidth: 0,
        bgOpacity: 1.0, semiBold: false, rp: 0, lp: 0, staticButton: false
    })
    readonly property var colours: ({
        "normal": { fill: "#E0EAFC", border: "#1F6FFF", text: "#1F6FFF" },
        "hovered": { fill: "#C5D5F3", border: "#227AFF", text: "#1F6FFF" },
        "pressed": { fill: "#A6BDE6", border: "#1B63FF", text: "#1F6FFF" },
        "disabled": { fill: "#E9ECF2", border: "#E9ECF2", text: "#B6B8BD" },
        "disabled while hovered": { fill: "#E9ECF2", border: "#E9ECF2", text: "#B6B8BD" },
        "disabled while pressed": { fill: "#E9ECF2", border: "#E9ECF2", text: "#B6B8BD" }
    })
    readonly property var submitColours: ({
        "normal": { fill: "#FFFFFF", border: "#1F6FFF", text: "#1F6FFF" },
        "hovered": { fill: "#E8F0FF", border: "#1F6FFF", text: "#1F6FFF" },
        "pressed": { fill: "#D2E2FF", border: "#1F6FFF", text: "#1F6FFF" },
        "disabled": { fill: "#FFFFFF", border: "#E9ECF2", text: "#B6B8BD" }
    })

    function rows(table, colours, borderWidth) {
        return Object.keys(colours).map(function(state) {
            return {
                tag: table + " " + state, state: state, table: Public[table],
                look: colours[state], borderWidth: borderWidth
            }
        })
    }

    name: "ZoRoundButton"
    when: windowShown
    visible: true
    width: 500
    height: 200

    Component {
        id: fixture
        ZoRoundButton {
            x: 20
            y: 20
            text: "Uninstall"
        }
    }

    Component {
        id: bound
        ZoRoundButton {
            width: 30
            text: "x"
        }
    }

    SignalSpy {
        id: clicks
        signalName: "clicked"
    }

    TextMetrics {
        id: metrics
        font.pixelSize: 14
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
        clicks.target = null
        clicks.clear()
    }

    function make(properties) {
        var button = createTemporaryObject(fixture, test, properties || {})
        verify(button)
        clicks.target = button
        return button
    }

    function test_defaults() {
        var button = make()
        for (var name in described) {
            compare(button[name], described[name], name)
        }
        compare(JSON.stringify(button.properties), JSON.stringify(Public.nrpInfo))
        compare(button.bgGradient, null)
        compare(button.width, 100)
    }

    function test_states_data() {
        return rows("nrpInfo", colours, 0).concat(rows("nrpInfo_submit", submitColours, 1))
    }

    function test_states(row) {
        var button = make({ properties: row.table })
        Parts.enter(test, button, row.state)
        var ground = Parts.ground(button)
        var label = Parts.text(button)
        verify(Qt.colorEqual(button.bgColor, row.look.fill), button.bgColor)
        verify(Qt.colorEqual(ground.color, row.look.fill), ground.color)
        verify(Qt.colorEqual(button.bgBorderColor, row.look.border), button.bgBorderColor)
        verify(Qt.colorEqual(ground.border.color, row.look.border), ground.border.color)
        verify(Qt.colorEqual(label.color, row.look.text), label.color)
        compare(ground.border.width, row.borderWidth)
        compare(ground.radius, 4)
        compare(ground.opacity, 1)
        compare(ground.height, button.height)
        compare(ground.width, button.width)
        Parts.leave(test, button)
    }

    // The colour must also be what is really drawn.
    function test_drawnFill() {
        var button = make({ text: "" })
        compare(probe.pixel(button, 50, 14), colours.normal.fill.toLowerCase())
        button.enabled = false
        compare(probe.pixel(button, 50, 14), colours.disabled.fill.toLowerCase())
    }

    function test_label() {
        var button = make({ fontPixcelSize: 17, semiBold: true, rp: 12, lp: 6 })
        var label = Parts.text(button)
        compare(label.text, "Uninstall")
        compare(label.font.pixelSize, 17)
        compare(label.font.weight, Font.Medium)
        compare(label.rightPadding, 12)
        compare(label.leftPadding, 6)
        compare(label.horizontalAlignment, Text.AlignHCenter)
        compare(label.verticalAlignment, Text.AlignVCenter)
        button.semiBold = false
        compare(label.font.weight, Font.Normal)
    }

    function test_markupInTheTextIsText() {
        compare(Parts.text(make({ text: "<b>a</b> & b" })).textFormat, Text.PlainText)
    }

    function test_width_data() {
        return [
            { tag: "short", text: "OK", rp: 0, lp: 0, minimum: 100 },
            { tag: "long", text: "A text that needs more room than that", rp: 0, lp: 0, minimum: 100 },
            { tag: "padded", text: "A text that needs more room than that", rp: 9, lp: 5, minimum: 100 },
            { tag: "lower minimum", text: "OK", rp: 0, lp: 0, minimum: 10 },
            { tag: "empty", text: "", rp: 0, lp: 0, minimum: 64 }
        ]
    }

    function test_width(row) {
        var button = make({ text: row.text, rp: row.rp, lp: row.lp, implicitWidth: row.minimum })
        metrics.text = row.text
        var needed = metrics.boundingRect.width + 2 * 4 + row.rp + row.lp
        compare(button.width, Math.max(needed, row.minimum))
    }

    function test_widthFollowsTextAndMinimum() {
        var button = make()
        compare(button.width, 100)
        button.text = "A text that needs more room than that"
        metrics.text = button.text
        compare(button.width, metrics.boundingRect.width + 8)
        button.text = "OK"
        compare(button.width, 100)
        button.implicitWidth = 140
        compare(button.width, 140)
        button.implicitWidth = 100
        compare(button.width, 100)
        button.width = 40
        compare(button.width, 100)
        compare(createTemporaryObject(bound, test).width, 100)
    }

    function test_tableWithoutBorderWidthHasNoBorder() {
        var table = JSON.parse(JSON.stringify(Public.nrpInfo_submit))
        delete table.borderWidth
        var button = make({ properties: table })
        compare(button.bgBorderWidth, 0)
        verify(Qt.colorEqual(button.bgBorderColor, "#00000000"), button.bgBorderColor)
    }

    function test_tableWithoutRadius() {
        var table = JSON.parse(JSON.stringify(Public.nrpInfo))
        delete table.bgRadius
        compare(make({ properties: table }).bgRadius, 6)
    }

    // A table that only has what it cannot do without draws nothing odd.
    function test_emptyTable() {
        var button = make({ properties: {} })
        verify(Qt.colorEqual(button.bgColor, "#00000000"))
        compare(button.bgBorderWidth, 0)
        compare(button.bgOpacity, 1)
    }

    function test_stateColor() {
        var button = make()
        verify(Qt.colorEqual(button.stateColor(undefined), "#00000000"))
        compare(button.enabledValue(undefined), undefined)
    }

    function test_valuesUnderEnabledMayBeSplitByState_data() {
        return [
            { tag: "normal", text: "#010101", opacity: 0.9 },
            { tag: "hovered", text: "#020202", opacity: 0.9 },
            { tag: "pressed", text: "#030303", opacity: 0.5 },
            { tag: "disabled", text: "#040404", opacity: 0.2 },
            { tag: "disabled while hovered", text: "#040404", opacity: 0.2 }
        ]
    }

    // A disabled button has one look, whatever the mouse does: the normal one.
    function test_disabledTextMayBeSplitByState_data() {
        return [{ tag: "disabled" }, { tag: "disabled while hovered" },
                { tag: "disabled while pressed" }]
    }

    function test_disabledTextMayBeSplitByState(row) {
        var table = JSON.parse(JSON.stringify(Public.nrpInfo))
        table.textColor.disabled = { normal: "#040404", hovered: "#050505", pressed: "#060606" }
        var button = make({ properties: table })
        Parts.enter(test, button, row.tag)
        verify(Qt.colorEqual(Parts.text(button).color, "#040404"), Parts.text(button).color)
        Parts.leave(test, button)
    }

    function test_valuesUnderEnabledMayBeSplitByState(row) {
        var table = JSON.parse(JSON.stringify(Public.nrpInfo))
        table.textColor = {
            enabled: { normal: "#010101", hovered: "#020202", pressed: "#030303" },
            disabled: "#040404"
        }
        table.bgColor.opacity = { enabled: { normal: 0.9, pressed: 0.5 }, disabled: 0.2 }
        var button = make({ properties: table })
        Parts.enter(test, button, row.tag)
        verify(Qt.colorEqual(Parts.text(button).color, row.text), Parts.text(button).color)
        compare(button.bgOpacity, row.opacity)
        fuzzyCompare(Parts.ground(button).opacity, row.opacity, 0.001)
        Parts.leave(test, button)
    }

    // A state without a value of its own takes that of the next weaker one.
    function test_missingValuesUnderEnabled() {
        var table = JSON.parse(JSON.stringify(Public.nrpInfo))
        table.textColor = { enabled: { normal: "#010101", hovered: "#020202" }, disabled: "#040404" }
        table.bgColor.opacity = { enabled: { normal: 0.9 }, disabled: 0.2 }
        var button = make({ properties: table })
        Parts.enter(test, button, "pressed")
        verify(Qt.colorEqual(Parts.text(button).color, "#020202"), Parts.text(button).color)
        compare(button.bgOpacity, 0.9)
        Parts.leave(test, button)
    }

    Gradient {
        id: someGradient
        GradientStop { position: 0; color: "red" }
        GradientStop { position: 1; color: "red" }
    }

    // Only the filled button draws the gradient of a table.
    function test_gradientOfTheTableIsIgnored() {
        var table = JSON.parse(JSON.stringify(Public.nrpInfo))
        table.gradient = { stops: [{ normal: "#ff0000" }, { normal: "#ff0000" }] }
        var button = make({ text: "", properties: table })
        compare(button.bgGradient, null)
        compare(probe.pixel(button, 50, 14), colours.normal.fill.toLowerCase())
    }

    function test_gradientReplacesTheFill() {
        var button = make({ text: "", bgGradient: someGradient })
        compare(probe.pixel(button, 50, 14), "#ff0000")
        button.bgGradient = null
        compare(probe.pixel(button, 50, 14), colours.normal.fill.toLowerCase())
    }

    function test_cursor() {
        var button = make()
        mouseMove(button, 50, 14)
        tryVerify(function() { return probe.cursorShape(button) === Qt.PointingHandCursor })
        button.staticButton = true
        tryVerify(function() { return probe.cursorShape(button) === Qt.ArrowCursor })
        compare(Parts.cursorArea(button).hoverEnabled, false)
    }

    function test_mouse() {
        var button = make()
        mouseClick(button, 50, 14)
        compare(clicks.count, 1)
        // Pressed inside, released outside: nothing.
        mousePress(button, 50, 14)
        mouseMove(button, 50, 120)
        mouseRelease(button, 50, 120)
        compare(clicks.count, 1)
        mouseClick(button, 50, 14, Qt.RightButton)
        compare(clicks.count, 1)
        button.enabled = false
        mouseClick(button, 50, 14)
        compare(clicks.count, 1)
    }

    function test_touchClicksWithoutHover() {
        var button = make()
        probe.tap(button, button.x + 50, button.y + 14)
        tryCompare(clicks, "count", 1)
        compare([button.pressed, button.hovered], [false, false])
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
        compare(clicks.count, 1)
        button.enabled = false
        keyClick(row.key)
        compare(clicks.count, 1)
    }

    function test_heldEnterClicksOnce() {
        var button = make()
        button.forceActiveFocus()
        keyPress(Qt.Key_Return)
        probe.repeatKey(button, Qt.Key_Return)
        probe.repeatKey(button, Qt.Key_Return)
        keyRelease(Qt.Key_Return)
        compare(clicks.count, 1)
    }

    function test_focusFrameIsForTheKeyboardOnly() {
        var button = make()
        var frame = Parts.focusFrame(button)
        compare(frame.visible, false)
        mouseClick(button, 50, 14)
        compare(button.activeFocus, false)
        compare(frame.visible, false)
        keyClick(Qt.Key_Tab)
        tryCompare(frame, "visible", true)
        verify(frame.x >= 0 && frame.x + frame.width <= button.width, "inside: pages clip")
    }

    function test_accessible() {
        var seen = probe.accessible(make({ text: "Uninstall" }))
        compare(seen.role, Accessible.Button)
        compare(seen.name, "Uninstall")
        verify(seen.focusable)
        verify(probe.pressAccessible(clicks.target))
        compare(clicks.count, 1)
        clicks.target.enabled = false
        probe.pressAccessible(clicks.target)
        compare(clicks.count, 1, "not while disabled")
    }
}
