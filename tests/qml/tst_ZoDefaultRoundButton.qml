import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var colours: ({
        "normal": { fill: "#1F6FFF", border: "#1F6FFF", text: "#FFFFFF" },
        "hovered": { fill: "#227AFF", border: "#227AFF", text: "#FFFFFF" },
        "pressed": { fill: "#1B63FF", border: "#1B63FF", text: "#FFFFFF" },
        "disabled": { fill: "#E9ECF2", border: "#E9ECF2", text: "#B6B8BD" },
        "disabled while hovered": { fill: "#E9ECF2", border: "#E9ECF2", text: "#B6B8BD" },
        "disabled while pressed": { fill: "#E9ECF2", border: "#E9ECF2", text: "#B6B8BD" }
    })
    readonly property var gradientStops: [
        { normal: "#100000", hovered: "#200000", pressed: "#300000" },
        { normal: "#000010", hovered: "#000020", pressed: "#000030" }
    ]

    name: "ZoDefaultRoundButton"
    when: windowShown
    visible: true
    width: 500
    height: 200

    Component {
        id: fixture
        ZoDefaultRoundButton {
            x: 20
            y: 20
            text: "Cancel"
        }
    }

    Component {
        id: declared
        ZoDefaultRoundButton {
            properties: Public.nrpInfo_submit
        }
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
    }

    function make() {
        return createTemporaryObject(fixture, test)
    }

    function withGradient(gradient) {
        var table = JSON.parse(JSON.stringify(Public.drpInfo))
        table.gradient = gradient
        return table
    }

    function test_declaredTableIsOverridden() {
        var button = createTemporaryObject(declared, test)
        compare(JSON.stringify(button.properties), JSON.stringify(Public.drpInfo))
        compare(button.bgRadius, 4)
        compare(button.bgBorderWidth, 0)
    }

    function test_tableCanBeChangedLater() {
        var button = make()
        button.properties = Public.nrpInfo_submit
        compare(button.bgBorderWidth, 1)
        verify(Qt.colorEqual(Parts.ground(button).color, "#FFFFFF"))
    }

    function test_states_data() {
        return Object.keys(colours).map(function(state) {
            return { tag: state, look: colours[state] }
        })
    }

    function test_states(row) {
        var button = make()
        Parts.enter(test, button, row.tag)
        var ground = Parts.ground(button)
        compare(button.bgGradient, null)
        verify(Qt.colorEqual(ground.color, row.look.fill), ground.color)
        verify(Qt.colorEqual(ground.border.color, row.look.border), ground.border.color)
        verify(Qt.colorEqual(Parts.text(button).color, row.look.text), Parts.text(button).color)
        Parts.leave(test, button)
    }

    function test_withoutGradientTheFillIsDrawn() {
        var button = make()
        button.text = ""
        compare(probe.pixel(button, 50, 14), "#1f6fff")
    }

    function test_gradient_data() {
        return [
            { tag: "normal", state: "normal", orientation: undefined, expected: Gradient.Horizontal },
            { tag: "hovered", state: "hovered", orientation: Gradient.Horizontal,
              expected: Gradient.Horizontal },
            { tag: "pressed", state: "pressed", orientation: Gradient.Vertical,
              expected: Gradient.Vertical }
        ]
    }

    function test_gradient(row) {
        var button = make()
        button.properties = withGradient({ orientation: row.orientation, stops: gradientStops })
        Parts.enter(test, button, row.state)
        compare(button.bgGradient.orientation, row.expected)
        compare(button.bgGradient.stops.length, 2)
        for (var i = 0; i < 2; ++i) {
            var stop = button.bgGradient.stops[i]
            compare(stop.position, i)
            verify(Qt.colorEqual(stop.color, gradientStops[i][row.state]), stop.color)
        }
        Parts.leave(test, button)
    }

    // A stop that does not tell the states apart keeps its one colour.
    function test_gradientWithNormalOnly() {
        var button = make()
        button.properties = withGradient({ stops: [{ normal: "#101010" }, { normal: "#202020" }] })
        Parts.enter(test, button, "pressed")
        verify(Qt.colorEqual(button.bgGradient.stops[0].color, "#101010"))
        verify(Qt.colorEqual(button.bgGradient.stops[1].color, "#202020"))
        Parts.leave(test, button)
    }

    function test_disabledHasNoGradient() {
        var button = make()
        button.properties = withGradient({ stops: gradientStops })
        button.enabled = false
        compare(button.bgGradient, null)
        verify(Qt.colorEqual(Parts.ground(button).color, colours.disabled.fill))
    }

    function test_gradientIsDrawn() {
        var button = make()
        button.text = ""
        button.properties = withGradient({
            stops: [{ normal: "#ff0000" }, { normal: "#ff0000" }]
        })
        compare(probe.pixel(button, 50, 14), "#ff0000")
    }
}
