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
    // Another colour for each part in each state.
    readonly property var table: ({
        bgColor: {
            normal: "#100000", hovered: "#200000", pressed: "#300000", disabled: "#400000",
            opacity: { enabled: 1.0, disabled: 0.9 }
        },
        borderColor: {
            normal: "#001000", hovered: "#002000", pressed: "#003000", disabled: "#004000"
        },
        borderWidth: 2,
        textColor: { enabled: "#000010", disabled: "#000040" },
        bgRadius: 5,
        // Only the filled button draws it.
        gradient: { stops: [{ normal: "#ff0000" }, { normal: "#ff0000" }] }
    })

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
        id: legacy
        ZoRoundButtonLegacy {
            x: 20
            y: 20
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

    function part(button, name) { return findChild(button, name) }
    function copy(table) { return JSON.parse(JSON.stringify(table)) }

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
        var states = ["normal", "hovered", "pressed", "disabled", "disabled while hovered",
                      "disabled while pressed"]
        return states.map(function(state) {
            return { tag: state, made: fixture }
        }).concat(states.map(function(state) {
            return { tag: state + ", legacy", made: legacy }
        }))
    }

    function test_states(row) {
        var button = createTemporaryObject(row.made, test, { properties: table, text: "" })
        var state = row.tag.replace(", legacy", "")
        Parts.enter(test, button, state)
        var look = state.split(" ")[0]
        var ground = part(button, "buttonBackground")
        compare([ground.color, ground.border.color].map(String),
                [table.bgColor[look], table.borderColor[look]])
        compare([button.bgColor, button.bgBorderColor].map(String),
                [table.bgColor[look], table.borderColor[look]])
        compare(String(part(button, "buttonLabel").color),
                look === "disabled" ? "#000040" : "#000010")
        compare([ground.border.width, ground.radius], [2, 5])
        fuzzyCompare(ground.opacity, look === "disabled" ? 0.9 : 1.0, 0.001)
        compare([ground.width, ground.height], [button.width, button.height])
        compare(button.bgGradient, null)
        // The colour must also be what is really drawn.
        if (look !== "disabled") {
            compare(probe.pixel(button, 50, 14), table.bgColor[look])
        }
        Parts.leave(test, button)
    }

    function test_legacyButtonHasALabelColourOfItsOwn() {
        var button = createTemporaryObject(legacy, test)
        compare(JSON.stringify(button.properties), JSON.stringify(Public.rplInfo))
        verify(Qt.colorEqual(button.textColor, Public.rplInfo.textColor.enabled))
        button = createTemporaryObject(legacy, test, { textColor: "#123456" })
        button.enabled = false
        compare(String(part(button, "buttonLabel").color), "#123456")
        button.textColor = "#654321"
        compare(String(part(button, "buttonLabel").color), "#654321")
        var bare = copy(Public.rplInfo)
        delete bare.textColor
        verify(createTemporaryObject(legacy, test, { properties: bare }))
    }

    function test_label() {
        var button = make({ fontPixcelSize: 17, semiBold: true, rp: 12, lp: 6 })
        var label = part(button, "buttonLabel")
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
        compare(part(make({ text: "<b>a</b> & b" }), "buttonLabel").textFormat, Text.PlainText)
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
        var table = copy(Public.nrpInfo_submit)
        delete table.borderWidth
        var button = make({ properties: table })
        compare(button.bgBorderWidth, 0)
        verify(Qt.colorEqual(button.bgBorderColor, "#00000000"), button.bgBorderColor)
    }

    function test_tableWithoutRadius() {
        var table = copy(Public.nrpInfo)
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
        var table = copy(Public.nrpInfo)
        table.textColor.disabled = { normal: "#040404", hovered: "#050505", pressed: "#060606" }
        var button = make({ properties: table })
        Parts.enter(test, button, row.tag)
        verify(Qt.colorEqual(part(button, "buttonLabel").color, "#040404"), part(button, "buttonLabel").color)
        Parts.leave(test, button)
    }

    function test_valuesUnderEnabledMayBeSplitByState(row) {
        var table = copy(Public.nrpInfo)
        table.textColor = {
            enabled: { normal: "#010101", hovered: "#020202", pressed: "#030303" },
            disabled: "#040404"
        }
        table.bgColor.opacity = { enabled: { normal: 0.9, pressed: 0.5 }, disabled: 0.2 }
        var button = make({ properties: table })
        Parts.enter(test, button, row.tag)
        verify(Qt.colorEqual(part(button, "buttonLabel").color, row.text), part(button, "buttonLabel").color)
        compare(button.bgOpacity, row.opacity)
        fuzzyCompare(part(button, "buttonBackground").opacity, row.opacity, 0.001)
        Parts.leave(test, button)
    }

    // A state without a value of its own takes that of the next weaker one.
    function test_missingValuesUnderEnabled() {
        var table = copy(Public.nrpInfo)
        table.textColor = { enabled: { normal: "#010101", hovered: "#020202" }, disabled: "#040404" }
        table.bgColor.opacity = { enabled: { normal: 0.9 }, disabled: 0.2 }
        var button = make({ properties: table })
        Parts.enter(test, button, "pressed")
        verify(Qt.colorEqual(part(button, "buttonLabel").color, "#020202"), part(button, "buttonLabel").color)
        compare(button.bgOpacity, 0.9)
        Parts.leave(test, button)
    }

    Gradient {
        id: someGradient
        GradientStop { position: 0; color: "red" }
        GradientStop { position: 1; color: "red" }
    }

    function test_gradientReplacesTheFill() {
        var button = make({ text: "", bgGradient: someGradient })
        compare(probe.pixel(button, 50, 14), "#ff0000")
        button.bgGradient = null
        compare(probe.pixel(button, 50, 14), Public.nrpInfo.bgColor.normal.toLowerCase())
    }

    function test_cursor() {
        var button = make()
        mouseMove(button, 50, 14)
        tryVerify(function() { return probe.cursorShape(button) === Qt.PointingHandCursor })
        button.staticButton = true
        tryVerify(function() { return probe.cursorShape(button) === Qt.ArrowCursor })
        compare(part(button, "cursorArea").hoverEnabled, false)
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
        return Parts.keys
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
        var frame = part(button, "focusFrame")
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
