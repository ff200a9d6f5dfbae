import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public
import "parts.js" as Parts

TestCase {
    id: test

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

    function make() { return createTemporaryObject(fixture, test) }
    function ground(button) { return findChild(button, "buttonBackground") }

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
        verify(Qt.colorEqual(ground(button).color, Public.nrpInfo_submit.bgColor.normal))
    }

    function test_withoutGradientTheFillIsDrawn_data() {
        return [{ tag: "normal" }, { tag: "hovered" }, { tag: "pressed" },
                { tag: "disabled while pressed" }]
    }

    function test_withoutGradientTheFillIsDrawn(row) {
        var button = make()
        button.text = ""
        Parts.enter(test, button, row.tag)
        compare(button.bgGradient, null)
        compare(probe.pixel(button, 50, 14),
                Public.drpInfo.bgColor[row.tag.split(" ")[0]].toLowerCase())
        Parts.leave(test, button)
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
        verify(Qt.colorEqual(ground(button).color, Public.drpInfo.bgColor.disabled))
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
