import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public
import "parts.js" as Parts

TestCase {
    id: test

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

    name: "ZoRoundButtonLegacy"
    when: windowShown
    visible: true
    width: 500
    height: 200

    Component {
        id: fixture
        ZoRoundButtonLegacy {
            x: 20
            y: 20
            text: "Later"
        }
    }

    Component {
        id: painted
        ZoRoundButtonLegacy {
            textColor: "#123456"
        }
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
    }

    function test_defaults() {
        var button = createTemporaryObject(fixture, test)
        for (var name in described) {
            compare(button[name], described[name], name)
        }
        compare(JSON.stringify(button.properties), JSON.stringify(Public.rplInfo))
        verify(Qt.colorEqual(button.textColor, colours.normal.text))
    }

    function test_states_data() {
        return Object.keys(colours).map(function(state) {
            return { tag: state, look: colours[state] }
        })
    }

    function test_states(row) {
        var button = createTemporaryObject(fixture, test)
        Parts.enter(test, button, row.tag)
        var ground = Parts.ground(button)
        verify(Qt.colorEqual(ground.color, row.look.fill), ground.color)
        verify(Qt.colorEqual(ground.border.color, row.look.border), ground.border.color)
        verify(Qt.colorEqual(button.textColor, row.look.text), button.textColor)
        verify(Qt.colorEqual(Parts.text(button).color, row.look.text), Parts.text(button).color)
        Parts.leave(test, button)
    }

    function test_textColorCanBeSet() {
        var button = createTemporaryObject(painted, test)
        verify(Qt.colorEqual(Parts.text(button).color, "#123456"))
        button.enabled = false
        verify(Qt.colorEqual(Parts.text(button).color, "#123456"))
        button.textColor = "#654321"
        verify(Qt.colorEqual(Parts.text(button).color, "#654321"))
    }

    // Only the filled button draws the gradient of a table.
    function test_gradientOfTheTableIsIgnored() {
        var table = JSON.parse(JSON.stringify(Public.rplInfo))
        table.gradient = { stops: [{ normal: "#ff0000" }, { normal: "#ff0000" }] }
        var button = createTemporaryObject(fixture, test, { text: "", properties: table })
        compare(button.bgGradient, null)
        compare(probe.pixel(button, 50, 14), colours.normal.fill.toLowerCase())
    }

    function test_tableWithoutTextColor() {
        var table = JSON.parse(JSON.stringify(Public.rplInfo))
        delete table.textColor
        verify(createTemporaryObject(fixture, test, { properties: table }))
    }
}
