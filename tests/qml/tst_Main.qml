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

    function init() {
        fake.reset()
    }

    function cleanup() {
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

    function part(name) { return findChild(main.contentItem, name) }
    function titleBar() { return part("titleBar") }
    function closeButton() { return part("closeButton") }
    function cancel() { return part("cancelButton") }

    // As Windows 10 does, or not.
    function setShadow(shown) {
        fake.kernelVersion = "10.0.19045"
        fake.dropShadow = shown
    }

    function test_window_data() {
        return sizes
    }

    function test_window(row) {
        setShadow(row.shadow)
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
        compare(part("windowShadow").visible, row.shadow)
        compare(part("pageStack").currentIndex, main.pageHome)
    }

    function test_shadowIsAskedForOnce() {
        setShadow(false)
        open()
        setShadow(true)
        compare(main.width, 640)
        compare(fake.asked.filter(function(asked) { return asked === "shadow?" }).length, 1)
    }

    function test_layers() {
        open()
        var layers = Parts.named(main.contentItem, /./).filter(function(item) {
            return item.parent === main.contentItem
        })
        compare(Parts.names(layers),
                ["card", "windowShadow", "backgroundImage", "titleBar", "pageStack"])
    }

    function test_titleBarNamesAndDisablesItsButton() {
        open()
        titleBar().closeBtnDisable(true)
        compare(closeButton().enabled, false)
        titleBar().closeBtnDisable(false)
        compare(closeButton().enabled, true)
        compare(probe.accessible(closeButton()).name, "Close")
    }

    function test_closeButtonSaysClosed_data() {
        return [{ tag: "mouse", press: mouseClick },
                { tag: "assistive tool", press: probe.pressAccessible }]
    }

    function test_closeButtonSaysClosed(row) {
        open()
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
            { tag: "OK, started", click: cancel, exitCode: 0, expected: 0 },
            { tag: "Cancel, another code", click: cancel, exitCode: 5, expected: -1 },
            { tag: "title bar, another code", click: closeButton, exitCode: 5, expected: 5 }
        ]
    }

    function test_codeComesBeforeTheClose(row) {
        open()
        main.exitCode = row.exitCode
        var codeAtHiding = null
        main.visibleChanged.connect(function() { codeAtHiding = fake.exitCode })
        mouseClick(row.click())
        tryCompare(main, "visible", false)
        compare(codeAtHiding, row.expected)
        compare(fake.exitCode, row.expected)
        compare(fake.calls("setExitCode"), [String(row.expected)])
    }

    function test_systemCloseHandsNothingOver() {
        open()
        probe.closeBySystem(main)
        tryCompare(main, "visible", false)
        compare(fake.calls("setExitCode"), [])
    }

    function test_disabledCloseButtonIgnoresClicks() {
        open()
        titleBar().closeBtnDisable(true)
        mouseClick(closeButton())
        compare(main.visible, true)
        compare(fake.calls("setExitCode"), [])
    }

    function test_escapeDoesNothing() {
        open()
        keyClick(Qt.Key_Escape)
        compare(main.visible, true)
        compare(fake.calls("setExitCode"), [])
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
        compare(fake.calls("setExitCode"), [])
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
