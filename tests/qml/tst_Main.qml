import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "parts.js" as Parts

// The main window and its title bar: size, layers, and which exit code each way out hands over.
TestCase {
    id: test

    readonly property var sizes: [
        { tag: "no shadow", shadow: false, offset: 0, width: 640, height: 408 },
        { tag: "shadow", shadow: true, offset: 15, width: 670, height: 438 }
    ]

    property var main: null

    name: "Main"
    when: windowShown
    visible: true
    width: 100
    height: 100

    SignalSpy {
        id: hiding
        signalName: "visibleChanged"
    }

    function init() {
        uninstallMgr.reset()
    }

    function cleanup() {
        hiding.target = null
        if (main !== null) {
            Parts.destroy(test, main)
            main = null
        }
    }

    function open() {
        var component = Qt.createComponent("qrc:/Main.qml")
        compare(component.status, Component.Ready, component.errorString())
        main = component.createObject(null)
        tryCompare(main, "visible", true)
        // A rendered frame: clicks before it would be lost.
        tryVerify(function() { return main.contentItem.width === main.width })
        return main
    }

    function layers() {
        return main.contentItem.children
    }

    function titleBar() {
        return Parts.all(main.contentItem, "WinTitle")[0]
    }

    function closeButton() {
        return Parts.all(titleBar(), "ZoImageButton")[0]
    }

    function cancel() {
        return Parts.all(main.contentItem, "ZoDefaultRoundButton")[0]
    }

    function codes() {
        return uninstallMgr.callsOf("setExitCode").map(function(call) { return call[1] })
    }

    function test_window_data() {
        return sizes
    }

    function test_window(row) {
        uninstallMgr.windowShadow = row.shadow
        open()
        compare(main.width, row.width)
        compare(main.height, row.height)
        compare([main.minimumWidth, main.maximumWidth], [row.width, row.width])
        compare([main.minimumHeight, main.maximumHeight], [row.height, row.height])
        compare(main.burOffset, row.offset)
        compare(main.exitCode, -2)
        compare(main.pageHome, 0)
        compare(main.color.toString(), "#00000000")
        compare(main.flags, Qt.Window | Qt.FramelessWindowHint | Qt.WindowMinMaxButtonsHint)
    }

    function test_shadowIsAskedForOnce() {
        open()
        uninstallMgr.windowShadow = true
        compare(main.width, 640)
        compare(uninstallMgr.callsOf("showWindowShadow").length, 1)
    }

    function test_layers_data() {
        return sizes
    }

    function test_layers(row) {
        uninstallMgr.windowShadow = row.shadow
        open()
        var kinds = ["Rectangle", "BorderImage", "Image", "WinTitle", "StackLayout"]
        var found = Array.prototype.slice.call(layers(), 0, 5).map(function(item) {
            return item.toString().replace(/^QQuick/, "").split(/[_(]/)[0]
        })
        compare(found, kinds)

        var card = layers()[0]
        compare([card.x, card.y, card.width, card.height], [row.offset, row.offset, 640, 408])
        compare(card.radius, row.offset)
        compare(card.color.toString(), "#ffffff")

        var shadow = layers()[1]
        compare([shadow.x, shadow.y, shadow.width, shadow.height], [0, 0, row.width, row.height])
        compare([shadow.border.left, shadow.border.top, shadow.border.right, shadow.border.bottom],
                [row.offset, row.offset, row.offset, row.offset])
        compare(shadow.horizontalTileMode, BorderImage.Stretch)
        compare(shadow.verticalTileMode, BorderImage.Stretch)
        compare(shadow.source.toString(), "qrc:/pic_shadow.png")
        compare(shadow.visible, row.shadow)

        var picture = layers()[2]
        compare([picture.x, picture.y, picture.width, picture.height],
                [row.offset, row.offset, 640, 306])
        compare(picture.source.toString(), "qrc:/home_bg.png")

        var bar = layers()[3]
        compare([bar.x, bar.y, bar.width, bar.height], [row.offset, row.offset, 640, 32])

        var stack = layers()[4]
        compare([stack.x, stack.y, stack.width, stack.height],
                [row.offset + 32, row.offset + 40, 576, 368])
        compare(stack.currentIndex, 0)
    }

    function test_closeButton() {
        open()
        var button = closeButton()
        compare([button.x, button.y, button.width, button.height], [616, 8, 16, 16])
        compare(button.resName, "ico_popup_close")
        titleBar().closeBtnDisable(true)
        compare(button.enabled, false)
        titleBar().closeBtnDisable(false)
        compare(button.enabled, true)
    }

    function test_closeButtonSaysClosed_data() {
        return [{ tag: "mouse", press: mouseClick },
                { tag: "assistive tool", press: probe.pressAccessible }]
    }

    function test_closeButtonSaysClosed(row) {
        open()
        hiding.target = null
        var spy = createTemporaryQmlObject("import QtTest 1.15; SignalSpy {}", test)
        spy.target = titleBar()
        spy.signalName = "closed"
        row.press(closeButton())
        compare(spy.count, 1)
    }

    function test_codeComesBeforeTheClose_data() {
        return [
            { tag: "title bar, not started", click: closeButton, exitCode: -2, expected: -2 },
            { tag: "Cancel, not started", click: cancel, exitCode: -2, expected: -1 },
            { tag: "title bar, started", click: closeButton, exitCode: 0, expected: 0 },
            { tag: "OK, started", click: cancel, exitCode: 0, expected: 0 }
        ]
    }

    function test_codeComesBeforeTheClose(row) {
        open()
        main.exitCode = row.exitCode
        var codesAtHiding = null
        main.visibleChanged.connect(function() { codesAtHiding = codes() })
        mouseClick(row.click())
        tryCompare(main, "visible", false)
        compare(codesAtHiding, [row.expected])
        compare(codes(), [row.expected])
    }

    function test_systemCloseHandsNothingOver() {
        open()
        probe.closeBySystem(main)
        tryCompare(main, "visible", false)
        compare(codes(), [])
    }

    function test_disabledCloseButtonIgnoresClicks() {
        open()
        titleBar().closeBtnDisable(true)
        mouseClick(closeButton())
        compare(main.visible, true)
        compare(codes(), [])
    }

    function test_escapeDoesNothing() {
        open()
        keyClick(Qt.Key_Escape)
        compare(main.visible, true)
        compare(codes(), [])
    }

    function test_dragMovesByTheDelta() {
        open()
        main.x = 40
        main.y = 50
        mousePress(titleBar(), 100, 16)
        mouseMove(titleBar(), 110, 21, -1, Qt.LeftButton)
        compare([main.x, main.y], [50, 55])
        mouseRelease(titleBar(), 110, 21)
    }

    // The whole bar is the handle: its corners, its last row, and next to the close button.
    function test_dragFromAnyPointOfTheBar_data() {
        return [[0, 0], [639, 0], [0, 31], [639, 31], [615, 16], [633, 16], [624, 7], [624, 25]]
            .map(function(at) { return { tag: at.join(","), x: at[0], y: at[1] } })
    }

    function test_dragFromAnyPointOfTheBar(row) {
        open()
        main.x = 40
        main.y = 50
        mousePress(titleBar(), row.x, row.y)
        mouseMove(titleBar(), row.x + 10, row.y + 5, -1, Qt.LeftButton)
        compare([main.x, main.y], [50, 55])
        mouseRelease(titleBar(), row.x + 10, row.y + 5)
    }

    function test_belowTheBarIsNoHandle() {
        open()
        main.x = 40
        main.y = 50
        mousePress(titleBar(), 100, 33)
        mouseMove(titleBar(), 110, 38, -1, Qt.LeftButton)
        compare([main.x, main.y], [40, 50])
        mouseRelease(titleBar(), 110, 38)
    }

    function test_doubleClickDoesNothing() {
        open()
        mouseDoubleClickSequence(titleBar(), 100, 16)
        compare(main.visibility, Window.Windowed)
        compare([main.width, main.height], [640, 408])
        compare(codes(), [])
    }

    function test_titleBarHasNothingButItsButton() {
        open()
        compare(Parts.all(titleBar(), "Text").length, 0)
        compare(Parts.all(titleBar(), "Image").length, 1)
        compare(Parts.all(titleBar(), "ZoImageButton").length, 1)
    }

    function test_onlyTheLeftButtonDrags() {
        open()
        main.x = 40
        main.y = 50
        mousePress(titleBar(), 100, 16, Qt.RightButton)
        mouseMove(titleBar(), 130, 26, -1, Qt.RightButton)
        compare([main.x, main.y], [40, 50])
        mouseRelease(titleBar(), 130, 26, Qt.RightButton)
    }

    function test_pressOnTheDisabledCloseButtonDoesNotDrag() {
        open()
        main.x = 40
        main.y = 50
        titleBar().closeBtnDisable(true)
        mousePress(titleBar(), 624, 16)
        mouseMove(titleBar(), 600, 26, -1, Qt.LeftButton)
        compare([main.x, main.y], [40, 50])
        mouseRelease(titleBar(), 600, 26)
    }
}
