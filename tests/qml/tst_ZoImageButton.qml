import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var described: ({
        resName: "", ltRadius: false, rtRadius: false, lbRadius: false, rbRadius: false,
        btnRadius: 0, index: 0, pressAble: true, imghcenter: false,
        activeFocusOnTab: false
    })
    readonly property var backgrounds: [
        "bgColorNormal", "bgColorOnHover", "bgColorOnChecked", "bgColorOnPress"
    ]
    readonly property var images: ({
        "normal": "qrc:/ico_popup_close_normal.png",
        "hovered": "qrc:/ico_popup_close_hover.png",
        "pressed": "qrc:/ico_popup_close_press.png",
        "disabled": "qrc:/ico_popup_close_disable.png",
        "disabled while hovered": "qrc:/ico_popup_close_disable.png",
        "disabled while pressed": "qrc:/ico_popup_close_disable.png"
    })

    name: "ZoImageButton"
    when: windowShown
    visible: true
    width: 300
    height: 200

    Component {
        id: fixture
        ZoImageButton {
            x: 20
            y: 20
            resName: "ico_popup_close"
        }
    }

    Component {
        id: coloured
        ZoImageButton {
            x: 20
            y: 20
            width: 40
            height: 30
            bgColorNormal: "#ff0000"
            bgColorOnHover: "#00ff00"
            bgColorOnPress: "#0000ff"
            bgColorOnChecked: "#ffff00"
        }
    }

    SignalSpy {
        id: clicks
        signalName: "clicked"
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

    function imageOf(button) { return findChild(button, "buttonImage") }

    function test_defaults() {
        var button = make({ resName: "" })
        for (var name in described) {
            compare(button[name], described[name], name)
        }
        backgrounds.forEach(function(name) {
            verify(Qt.colorEqual(button[name], "#00000000"), name)
        })
    }

    function test_image_data() {
        return Object.keys(images).map(function(state) {
            return { tag: state, source: images[state] }
        })
    }

    function test_image(row) {
        var button = make()
        Parts.enter(test, button, row.tag)
        compare(button.getBgSource(), row.source)
        compare(imageOf(button).source, row.source)
        tryCompare(imageOf(button), "status", Image.Ready)
        compare(imageOf(button).width, 16)
        compare(imageOf(button).height, 16)
        Parts.leave(test, button)
    }

    function test_notPressAbleShowsTheHoverImage() {
        var button = make({ pressAble: false })
        Parts.enter(test, button, "pressed")
        compare(button.getBgSource(), images.hovered)
        button.enabled = false
        compare(button.getBgSource(), images.disabled)
        Parts.leave(test, button)
    }

    // Without hover, as with a key, it is the hover image too.
    function test_notPressAbleByKey() {
        var button = make({ pressAble: false })
        button.forceActiveFocus()
        keyPress(Qt.Key_Space)
        compare(button.pressed, true)
        compare(button.hovered, false)
        compare(button.getBgSource(), images.hovered)
        keyRelease(Qt.Key_Space)
        compare(clicks.count, 1)
    }

    function test_noName() {
        var button = make({ resName: "" })
        compare(button.getBgSource(), "")
        compare(imageOf(button).width, 0)
        compare(button.width, 0)
        compare(button.height, 0)
    }

    function test_growsToTheImage() {
        var button = make()
        compare(button.width, 16)
        compare(button.height, 16)
        button = make({ width: 10, height: 40 })
        compare(button.width, 16)
        compare(button.height, 40)
    }

    function test_imagePlace() {
        var image = imageOf(make({ width: 40, height: 30 }))
        compare(image.x, 0)
        compare(image.y, 7)
        image = imageOf(make({ width: 40, height: 30, imghcenter: true }))
        compare(image.x, 12)
        compare(image.y, 7)
    }

    function test_background_data() {
        return [
            { tag: "normal", checked: false, colour: "#ff0000" },
            { tag: "hovered", checked: false, colour: "#00ff00" },
            { tag: "pressed", checked: false, colour: "#0000ff" },
            { tag: "normal", checked: true, colour: "#ffff00" },
            { tag: "hovered", checked: true, colour: "#ffff00" },
            { tag: "pressed", checked: true, colour: "#ffff00" }
        ]
    }

    function test_background(row) {
        var button = createTemporaryObject(coloured, test, { checked: row.checked })
        Parts.enter(test, button, row.tag)
        var ground = findChild(button, "buttonBackground")
        verify(Qt.colorEqual(button.getBgColor(), row.colour), button.getBgColor())
        verify(Qt.colorEqual(ground.color, row.colour), ground.color)
        compare(ground.border.width, 0)
        compare(probe.pixel(button, 20, 15), row.colour)
        compare(probe.pixel(button, 20, 0), row.colour)
        Parts.leave(test, button)
    }

    function test_corners_data() {
        return [
            { tag: "none", flags: {}, round: [] },
            { tag: "left top", flags: { ltRadius: true }, round: ["lt"] },
            { tag: "right top", flags: { rtRadius: true }, round: ["rt"] },
            { tag: "left bottom", flags: { lbRadius: true }, round: ["lb"] },
            { tag: "right bottom", flags: { rbRadius: true }, round: ["rb"] },
            { tag: "top", flags: { ltRadius: true, rtRadius: true }, round: ["lt", "rt"] }
        ]
    }

    // A corner is sharp when its very last pixel is filled.
    function test_corners(row) {
        var places = { lt: [0, 0], rt: [39, 0], lb: [0, 29], rb: [39, 29] }
        var button = createTemporaryObject(coloured, test, row.flags)
        button.btnRadius = 8
        compare(findChild(button, "buttonBackground").radius, 8)
        for (var corner in places) {
            var drawn = probe.pixel(button, places[corner][0], places[corner][1])
            compare(drawn === "#ff0000", row.round.indexOf(corner) < 0, corner + " " + drawn)
        }
        var squares = Parts.named(button, /^squareCorner$/)
        compare(squares.length, 4)
        squares.forEach(function(square) {
            compare(square.width, 8)
            compare(square.height, 8)
        })
    }

    function test_mouse() {
        var button = make()
        mouseClick(button)
        compare(clicks.count, 1)
        button.enabled = false
        mouseClick(button)
        compare(clicks.count, 1)
    }

    function test_touch() {
        var button = make()
        probe.tap(button, 28, 28)
        tryCompare(clicks, "count", 1)
    }

    function test_accessible() {
        compare(probe.accessible(make()).role, Accessible.Button)
        verify(probe.pressAccessible(clicks.target))
        compare(clicks.count, 1)
        clicks.target.enabled = false
        probe.pressAccessible(clicks.target)
        compare(clicks.count, 1, "not while disabled")
    }
}
