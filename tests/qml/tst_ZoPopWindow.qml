import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public

// The pop-up window: how it opens, moves and closes, and its buttons. Reference images check its
// looks.
InterfaceTest {
    id: test

    property var stage: null
    property var popup: null

    name: "ZoPopWindow"

    Component {
        id: stageFixture
        Stage {}
    }

    Component {
        id: declared
        ZoPopWindow {
            property QtObject shouted: QtObject {
                id: shout
                property string text: ""
            }
            defaultIndex: 1
            btnWidth: 60
            buttons: ["a", "b"]
            states: State {
                name: "shouting"
                PropertyChanges { target: shout; text: "changed" }
            }
        }
    }

    function prepare() {
        stage = createTemporaryObject(stageFixture, test)
    }

    function show(properties) {
        popup = stage.makePopup(properties)
        popup.open()
        // Wait for the window system.
        tryVerify(() => popup.active && popup.contentItem.width === popup.width)
        fake.forget()
    }

    function tryGone() {
        tryVerify(() => notes().indexOf("destroyed") >= 0)
        compare(probe.popups().length, 0)
    }

    function inPopup(name) { return findChild(popup.contentItem, name) }

    // Without removed buttons, which are hidden and stay children for a moment.
    function buttons() {
        return named(inPopup("buttonRow"), /^button\d/).filter((button) => button.visible)
    }

    // The texts of the buttons; the default button's ends in "!".
    function texts() {
        return buttons().map((button) => button.text
                             + (Qt.colorEqual(button.bgColor,
                                              Public.drpInfo.bgColor.normal) ? "!" : ""))
    }

    function test_propertiesHaveTheirDefaults() {
        popup = stage.makePopup()
        compareAll(popup, {
            modality: Qt.ApplicationModal, flags: Qt.FramelessWindowHint | Qt.Window, title: "",
            defaultIndex: 0, centerInParent: false, showParentMask: true, busy: false, state: "",
            buttonMask: ZoPopWindow.CLOSEBUTTON, visible: false, transientParent: stage,
            color: "#00000000", content: null
        })
        compare([ZoPopWindow.NONEBUTTON, ZoPopWindow.CLOSEBUTTON, ZoPopWindow.MAXBUTTON], [0, 1, 2])
    }

    function test_everyWayToCloseDestroysThePopup_data() {
        return [
            { tag: "mouse", act: () => mouseClick(inPopup("closeButton")),
              first: ["closeClicked"] },
            { tag: "assistive tool", act: () => probe.pressAccessible(inPopup("closeButton")),
              first: ["closeClicked"] },
            { tag: "window manager", act: () => probe.closeBySystem(popup), first: [] },
            { tag: "close()", act: () => popup.close(), first: [] }
        ]
    }

    function test_everyWayToCloseDestroysThePopup(row) {
        show({ title: "Warning" })
        compare(probe.accessible(inPopup("closeButton")).name, "Close")
        row.act()
        tryGone()
        compare(notes().slice(0, row.first.length), row.first)
        var told = notes().slice(row.first.length)
        compare(told.filter((note) => note !== "destroyed" && note !== "notifyPopup Warning false"),
                [])
        verify(told.indexOf("notifyPopup Warning false") >= 0, told)
    }

    function test_busyDisablesClosing() {
        show({ busy: true })
        var button = inPopup("closeButton")
        compare(button.enabled, false)
        mouseClick(button)
        var x = popup.x
        mousePress(button, 4, 4)
        mouseMove(button, 40, 4)
        mouseRelease(button, 40, 4)
        compare(popup.x, x, "and it does not drag the window")
        compare(notes(), [])
        popup.busy = false
        mouseClick(button)
        tryGone()
    }

    function test_theTitleBarDragsThePopup_data() {
        return [[50, 10], [0, 0], [597, 0], [0, 30], [597, 30], [565, 15], [583, 15]]
            .map((at) => ({ tag: at.join(","), x: at[0], y: at[1] }))
    }

    function test_theTitleBarDragsThePopup(row) {
        show()
        var bar = inPopup("popupTitleBar")
        var x = popup.x
        var y = popup.y
        mousePress(bar, row.x, row.y)
        mouseMove(bar, row.x + 10, row.y + 5)
        compare([popup.x, popup.y], [x + 10, y + 5])
        mouseMove(bar, row.x - 3, row.y - 7)
        compare([popup.x, popup.y], [x + 7, y - 2])
        mouseRelease(bar, row.x - 3, row.y - 7)
        mouseMove(bar, 90, 20)
        mousePress(bar, 50, 10, Qt.RightButton)
        mouseMove(bar, 70, 10)
        mouseRelease(bar, 70, 10, Qt.RightButton)
        compare([popup.x, popup.y], [x + 7, y - 2])
    }

    function test_buttonsAndStatesCanBeDeclared() {
        popup = declared.createObject(stage)
        popup.open()
        compare(texts(), ["a", "b!"])
        compare(buttons().map((button) => button.width), [60, 60])
        popup.state = "shouting"
        compare(popup.shouted.text, "changed")
    }

    function test_buttonsCanBeReplacedAndRemoved() {
        show()
        compare(inPopup("buttonRow").visible, false)
        popup.buttons = ["One", "Two", "Three"]
        popup.buttons = ["Four", "Five"]
        compare(texts(), ["Four!", "Five"])
        tryVerify(() => named(inPopup("buttonRow"), /^button\d/).length === 2)
        tryVerify(() => buttons()[1].x + buttons()[1].width === 600 - 32)
        compare(buttons()[0].x + buttons()[0].width, buttons()[1].x - 16)
        popup.setButtons([])
        compare(inPopup("buttonRow").visible, false)
        popup.defaultIndex = 7
        popup.setButtons(["Six"])
        compare(texts(), ["Six"])
        compare(inPopup("buttonRow").visible, true)
    }

    function test_theKeyboardReachesTheButtonsOnly() {
        show()
        keyClick(Qt.Key_Escape)
        keyClick(Qt.Key_Return)
        compare([popup.visible].concat(notes()), [true], "these keys close message boxes only")
        popup.buttons = ["Yes", "No"]
        tryVerify(() => buttons()[1].x + buttons()[1].width === 600 - 32)
        // The close button is no tab stop: Tab and Space must not close the window.
        buttons().concat(buttons()[0]).forEach((stop) => {
            keyClick(Qt.Key_Tab)
            compare([stop.activeFocus, findChild(stop, "focusFrame").visible], [true, true],
                    stop.text)
        })
        keyClick(Qt.Key_Backtab)
        keyClick(Qt.Key_Space)
        keyClick(Qt.Key_Return)
        mouseClick(buttons()[0])
        compare(notes(), ["buttonClicked 1", "buttonClicked 1", "buttonClicked 0"])
    }

    function test_thePopupIsCentredWhenItOpens() {
        stage.x = 400
        stage.y = 300
        show()
        compare([popup.x, popup.y], [400 + (640 - 600) / 2, 300 + (408 - 240) / 2])
        stage.x = 360
        wait(0)
        compare(popup.x, 420, "an open pop-up does not follow the window")
        popup.visible = false
        popup.open()
        compare(popup.x, 380, "it is centred each time it opens")
        compare(notes(), ["notifyPopup  false", "notifyPopup  true"], "the main window is notified")
        popup = stage.makePopup({ centerInParent: true, x: 7, y: 9 })
        popup.open()
        compare([popup.x, popup.y], [7, 9])
    }

    // Also when the user activates another window while the pop-up appears.
    function test_anOpeningPopupBecomesTheActiveWindow() {
        // Without an owner: Qt calls an owned window active whenever its owner is.
        var other = stageFixture.createObject(null)
        other.requestActivate()
        tryCompare(other, "active", true)
        tryCompare(stage, "active", false)
        popup = stage.makePopup()
        popup.open()
        other.requestActivate()
        tryCompare(popup, "active", true)
        compare(other.active, false)
        popup.close()
        remove(other)
    }

    function test_assistiveToolsReadTheTitle() {
        show({ title: "Warning" })
        var seen = probe.accessible(inPopup("popupBackground"))
        compare([seen.role, seen.name], [Accessible.Dialog, "Warning"])
        compare(probe.accessible(inPopup("popupTitle")).name, "Warning")
    }
}
