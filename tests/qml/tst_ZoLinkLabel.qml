import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var described: ({ originalText: "", colour: "#037dff" })
    readonly property string line: "Enjoy discounted prices to buy other products"

    name: "ZoLinkLabel"
    when: windowShown
    visible: true
    width: 500
    height: 100

    Component {
        id: fixture
        ZoLinkLabel {
            x: 20
            y: 20
        }
    }

    SignalSpy {
        id: activations
        signalName: "linkActivated"
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
        activations.target = null
        activations.clear()
    }

    function make(text) {
        var label = createTemporaryObject(fixture, test, text ? { originalText: text } : {})
        verify(label)
        activations.target = label
        return label
    }

    function test_defaults() {
        var label = make()
        compare(label.originalText, described.originalText)
        compare(label.textFormat, Text.RichText)
    }

    function test_markup() {
        var label = make(line)
        compare(label.text, Public.makeLink(line))
        verify(label.text.indexOf(described.colour) > 0)
        label.originalText = "Other"
        compare(label.text, Public.makeLink("Other"))
    }

    function test_clickActivates() {
        var label = make(line)
        mouseClick(label, 20, label.height / 2)
        compare(activations.count, 1)
        compare(activations.signalArguments[0][0], Public.homePageUrl)
    }

    function test_clickBesideTheLink() {
        var label = make(line)
        label.width = label.implicitWidth + 100
        mouseClick(label, label.width - 10, label.height / 2)
        compare(activations.count, 0)
    }

    function test_cursor() {
        var label = make(line)
        label.width = label.implicitWidth + 100
        mouseMove(label, 20, label.height / 2)
        tryVerify(function() { return probe.cursorShape(label) === Qt.PointingHandCursor })
        mouseMove(label, label.width - 10, label.height / 2)
        tryVerify(function() { return probe.cursorShape(label) === Qt.ArrowCursor })
    }

    function test_touch() {
        make(line)
        probe.tap(activations.target, 40, 28)
        tryCompare(activations, "count", 1)
    }

    function test_keys_data() {
        return Parts.keys
    }

    function test_keys(row) {
        var label = make(line)
        keyClick(Qt.Key_Tab)
        tryCompare(label, "activeFocus", true)
        keyClick(row.key)
        compare(activations.count, 1)
        compare(activations.signalArguments[0][0], Public.homePageUrl)
        probe.repeatKey(label, row.key)
        compare(activations.count, 1)
        keyClick(Qt.Key_A)
        compare(activations.count, 1)
    }

    function test_emptyIsNoStop() {
        var label = make()
        keyClick(Qt.Key_Tab)
        compare(label.activeFocus, false)
    }

    function test_focusMarkIsForTheKeyboardOnly() {
        var label = make(line)
        var mark = findChild(label, "focusMark")
        mouseClick(label, 20, label.height / 2)
        compare(mark.visible, false)
        keyClick(Qt.Key_Tab)
        tryCompare(mark, "visible", true)
        verify(mark.x >= 0 && mark.width <= label.width, "inside: pages clip")
    }

    function test_accessible() {
        var seen = probe.accessible(make(line))
        compare(seen.role, Accessible.Link)
        compare(seen.name, line)
        verify(seen.focusable)
        verify(probe.pressAccessible(activations.target))
        compare(activations.count, 1)
    }
}
