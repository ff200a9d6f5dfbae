import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15

// The main window and its title bar: size, layers, dragging, and the exit codes.
InterfaceTest {
    id: test

    name: "Main"

    function setShadow(shown) {
        fake.kernelVersion = "10.0.19045"
        fake.dropShadow = shown
    }

    function test_theWindowHasItsSizeAndLayers_data() {
        return [{ tag: "no shadow", shadow: false, offset: 0, width: 640, height: 408 },
                { tag: "shadow", shadow: true, offset: 15, width: 670, height: 438 }]
    }

    function test_theWindowHasItsSizeAndLayers(row) {
        setShadow(row.shadow)
        openMain()
        compareAll(main, {
            width: row.width, minimumWidth: row.width, maximumWidth: row.width, height: row.height,
            minimumHeight: row.height, maximumHeight: row.height, burOffset: row.offset,
            exitCode: -2,
            pageHome: 0, color: "#00000000",
            flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowMinMaxButtonsHint
        })
        var shadow = part("windowShadow")
        compareAll(shadow, {
            visible: row.shadow, source: row.shadow ? "qrc:/pic_shadow.png" : "",
            horizontalTileMode: BorderImage.Stretch, verticalTileMode: BorderImage.Stretch
        })
        compareAll(shadow.border, {
            left: row.offset, top: row.offset, right: row.offset, bottom: row.offset
        })
        compare(part("pageStack").currentIndex, 0)
        var layers = named(main.contentItem, /./).filter((item) => item.parent === main.contentItem)
        compare(names(layers), ["card", "windowShadow", "backgroundImage", "titleBar", "pageStack"])
        setShadow(!row.shadow)
        compare(main.width, row.width)
        compare(fake.asked.filter((asked) => asked === "shadow?").length, 1, "asked once")
    }

    function test_theExitCodeIsSetBeforeTheWindowCloses_data() {
        var cross = "closeButton", cancel = "cancelButton"
        return [
            { tag: "title bar, not started", button: cross, exitCode: -2, expected: -2 },
            { tag: "Cancel, not started", button: cancel, exitCode: -2, expected: -1 },
            { tag: "title bar, started", button: cross, exitCode: 0, expected: 0 },
            { tag: "OK, started", button: cancel, exitCode: 0, expected: 0 },
            { tag: "Cancel, another code", button: cancel, exitCode: 5, expected: -1 },
            { tag: "assistive tool on the title bar", button: cross, exitCode: 5, expected: 5,
              press: probe.pressAccessible }
        ]
    }

    function test_theExitCodeIsSetBeforeTheWindowCloses(row) {
        openMain()
        main.exitCode = row.exitCode
        var codeAtHiding = null
        main.visibleChanged.connect(() => { codeAtHiding = fake.exitCode })
        fake.forget()
        ;(row.press || mouseClick)(part(row.button))
        tryCompare(main, "visible", false)
        compare(codeAtHiding, row.expected)
        compare(fake.asked, [], "no usage event, no query")
        compare(fake.calls("setExitCode"), [String(row.expected)])
    }

    function test_aSystemCloseSetsNoExitCode() {
        openMain()
        probe.closeBySystem(main)
        tryCompare(main, "visible", false)
        compare(fake.calls("setExitCode"), [])
    }

    function test_escapeDoubleClickAndTheDisabledButtonDoNotClose() {
        openMain()
        keyClick(Qt.Key_Escape)
        mouseDoubleClickSequence(part("titleBar"), 100, 16)
        compare([main.visibility, main.width, main.height], [Window.Windowed, 640, 408])
        compare(probe.accessible(part("closeButton")).name, "Close")
        part("titleBar").closeBtnDisable(true)
        compare(part("closeButton").enabled, false)
        mouseClick(part("closeButton"))
        compare([main.visible].concat(fake.calls("setExitCode")), [true])
        part("titleBar").closeBtnDisable(false)
        compare(part("closeButton").enabled, true)
    }

    // The whole bar drags: its corners, its last row, and next to the close button.
    function test_theWholeTitleBarDrags_data() {
        var handle = [[100, 16], [0, 0], [639, 0], [0, 31], [639, 31], [615, 16], [633, 16],
                      [624, 7],
                      [624, 25]].map((at) => ({ tag: at.join(","), at: at, moves: true }))
        return handle.concat([
            { tag: "below the bar", at: [100, 33] },
            { tag: "by the right button", at: [100, 16], button: Qt.RightButton },
            { tag: "on the disabled close button", at: [624, 16] }
        ])
    }

    function test_theWholeTitleBarDrags(row) {
        openMain()
        var button = row.button || Qt.LeftButton
        var bar = part("titleBar")
        compare(probe.below(bar, "ZoDragArea")[0].clickPos, Qt.point(0, 0))
        bar.closeBtnDisable(!row.moves)
        main.x = 40
        main.y = 50
        mousePress(bar, row.at[0], row.at[1], button)
        mouseMove(bar, row.at[0] + 10, row.at[1] + 5, -1, button)
        mouseRelease(bar, row.at[0] + 10, row.at[1] + 5, button)
        compare([main.x, main.y], row.moves ? [50, 55] : [40, 50])
    }
}
