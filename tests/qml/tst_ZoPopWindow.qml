import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var described: ({
        width: 600, height: 240, modality: Qt.ApplicationModal, defaultIndex: 0,
        flags: Qt.FramelessWindowHint | Qt.Window, leftMargin: 32, rightMargin: 32, topMargin: 24,
        title: "", btnWidth: 100, btnHeight: 28, titleHeight: 32, haveBorder: true,
        centerInParent: false, showParentMask: true, buttonMask: 1, busy: false, radius: 0,
        titleRightMargin: 16, state: "", visible: false
    })
    readonly property var colours: ({
        color: "#00000000", bgColor: "#f8f9fa", contentColor: "#f8f9fa", titleColor: "#e9ebf0"
    })
    readonly property var look: ({
        border: "#e1e7ef", titleBar: 31, inset: 1, titleText: "#555b66", titleSize: 14,
        titleLeft: 16, closeRight: 16, rowBottom: 20, spacing: 16, rowRight: 32, blurRadius: 8
    })

    property var stage: null

    name: "ZoPopWindow"
    when: windowShown
    visible: true
    width: 200
    height: 100

    Component {
        id: plainStage
        Stage {}
    }

    Component {
        id: hookedStage
        StageWithHooks {}
    }

    Component {
        id: colouredBody
        Rectangle {}
    }

    Component {
        id: plainBody
        Item {}
    }

    function init() {
        fake.reset()
        stage = createTemporaryObject(plainStage, test)
    }

    function make(properties) {
        var popup = stage.makePopup(properties)
        verify(popup)
        return popup
    }

    function show(properties) {
        var popup = make(properties)
        popup.open()
        tryCompare(popup, "active", true)
        tryCompare(popup.contentItem, "width", popup.width) // the window system has answered
        return popup
    }

    function notes() { return fake.askedOf("note") }

    function tryGone() {
        tryVerify(function() { return notes().indexOf("destroyed") >= 0 })
        compare(probe.popups().length, 0)
    }

    function part(popup, name) { return findChild(popup.contentItem, name) }
    function background(popup) { return part(popup, "popupBackground") }
    function titleBar(popup) { return part(popup, "popupTitleBar") }
    function closeButton(popup) { return part(popup, "closeButton") }
    function row(popup) { return part(popup, "buttonRow") }
    function body(popup) { return part(popup, "popupBody") }

    // Removed buttons are still children for a moment; hidden ones do not count.
    function rowButtons(popup) {
        return Parts.named(row(popup), /^button\d/).filter(function(button) {
            return button.visible
        })
    }

    function isFilled(button) {
        return Qt.colorEqual(button.bgColor, Public.drpInfo.bgColor.normal)
    }

    function test_defaults() {
        var popup = make()
        for (var name in described) {
            compare(popup[name], described[name], name)
        }
        for (name in colours) {
            verify(Qt.colorEqual(popup[name], colours[name]), name + " " + popup[name])
        }
        compare(popup.content, null)
        compare(popup.buttons.length, 0)
        compare(popup.states.length, 0)
        popup.close()
    }

    function test_enum() {
        compare(ZoPopWindow.NONEBUTTON, 0)
        compare(ZoPopWindow.CLOSEBUTTON, 1)
        compare(ZoPopWindow.MAXBUTTON, 2)
    }

    function test_frame() {
        var popup = show()
        var ground = background(popup)
        compare(ground.width, 600)
        compare(ground.height, 240)
        compare(ground.border.width, 1)
        verify(Qt.colorEqual(ground.border.color, look.border))
        verify(Qt.colorEqual(ground.color, colours.bgColor))
        compare(probe.pixel(ground, 300, 0), look.border)
        compare(probe.pixel(ground, 300, 1), colours.titleColor)
        compare(probe.pixel(ground, 300, 31), colours.titleColor)
        compare(probe.pixel(ground, 300, 32), colours.bgColor)
        compare(probe.pixel(ground, 0, 0), look.border) // square corners
        popup.contentColor = "#ff0000"
        verify(Qt.colorEqual(ground.color, "#ff0000"))
        popup.close()
    }

    function test_titleBar_data() {
        return [
            { tag: "with border", haveBorder: true, inset: 1, height: 31 },
            { tag: "without border", haveBorder: false, inset: 0, height: 32 }
        ]
    }

    function test_titleBar(row) {
        var popup = show({ haveBorder: row.haveBorder, title: "Warning" })
        var bar = titleBar(popup)
        compare(background(popup).border.width, row.inset)
        compare(bar.x, row.inset)
        compare(bar.y, row.inset)
        compare(bar.width, 600 - 2 * row.inset)
        compare(bar.height, row.height)
        verify(Qt.colorEqual(bar.color, colours.titleColor))
        var text = part(popup, "popupTitle")
        compare(text.text, "Warning")
        compare(text.x, look.titleLeft)
        compare(text.font.pixelSize, look.titleSize)
        verify(Qt.colorEqual(text.color, look.titleText))
        fuzzyCompare(text.y + text.height / 2, bar.height / 2, 0.5)
        popup.titleColor = "#00ff00"
        verify(Qt.colorEqual(bar.color, "#00ff00"))
        popup.titleHeight = 50
        compare(bar.height, 50 - row.inset)
        popup.close()
    }

    function test_aLongTitleIsCutBeforeTheCloseButton() {
        var popup = show({ title: new Array(100).join("title ") })
        var text = part(popup, "popupTitle")
        compare(text.truncated, true)
        compare(text.mapToItem(closeButton(popup), text.width, 0).x, -16)
        popup.close()
    }

    function test_onlyTheTopCornersOfTheTitleBarAreRound() {
        var popup = show({ radius: 6 })
        var bar = titleBar(popup)
        compare(background(popup).radius, 6)
        compare(bar.radius, 6)
        var strip = part(popup, "squareCorners")
        compare(strip.x, 0)
        compare(strip.width, bar.width)
        compare(strip.height, 6)
        compare(strip.y, bar.height - 6)
        verify(Qt.colorEqual(strip.color, bar.color))
        verify(probe.pixel(bar, 0, 0) !== colours.titleColor)
        compare(probe.pixel(bar, 0, 30), colours.titleColor)
        popup.close()
    }

    function test_blurringMainWindowRoundsTheCorners() {
        stage = createTemporaryObject(hookedStage, test)
        var popup = make()
        compare(popup.radius, look.blurRadius)
        popup.close()
        stage.blur = 0
        popup = make()
        compare(popup.radius, 0)
        popup.close()
    }

    function test_closeButton_data() {
        return [{ tag: "mouse", press: mouseClick },
                { tag: "assistive tool", press: probe.pressAccessible }]
    }

    function test_closeButton(row) {
        var popup = show()
        var button = closeButton(popup)
        compare(button.resName, "ico_popup_close")
        compare(button.width, 16)
        compare(button.height, 16)
        var place = button.mapToItem(titleBar(popup), 0, 0)
        compare(place.x, titleBar(popup).width - 16 - look.closeRight)
        fuzzyCompare(place.y + 8, titleBar(popup).height / 2, 0.5)
        compare(place.y, Math.round(place.y))
        compare(button.visible, true)
        compare(button.enabled, true)
        compare(probe.accessible(button).name, "Close")
        popup.titleRightMargin = 30
        compare(button.mapToItem(titleBar(popup), 0, 0).x, titleBar(popup).width - 16 - 30)
        row.press(button)
        tryGone()
        compare(notes(), ["closeClicked", "destroyed"])
    }

    function test_busyDisablesClosing() {
        var popup = show({ busy: true })
        var button = closeButton(popup)
        compare(button.enabled, false)
        compare(button.getBgSource(), "qrc:/ico_popup_close_disable.png")
        mouseClick(button)
        var x = popup.x
        mousePress(button, 4, 4)
        mouseMove(button, 40, 4)
        mouseRelease(button, 40, 4)
        compare(popup.x, x) // and it is no handle to drag the window by
        compare(notes(), [])
        popup.busy = false
        mouseClick(button)
        tryGone()
    }

    function test_buttonMask_data() {
        return [
            { tag: "none", mask: ZoPopWindow.NONEBUTTON, shown: false },
            { tag: "close", mask: ZoPopWindow.CLOSEBUTTON, shown: true },
            { tag: "maximise", mask: ZoPopWindow.MAXBUTTON, shown: false },
            { tag: "both", mask: ZoPopWindow.CLOSEBUTTON | ZoPopWindow.MAXBUTTON, shown: true }
        ]
    }

    function test_buttonMask(row) {
        var popup = show({ buttonMask: row.mask })
        compare(closeButton(popup).visible, row.shown)
        popup.close()
    }

    function test_drag() {
        var popup = show()
        var x = popup.x
        var y = popup.y
        var bar = titleBar(popup)
        mousePress(bar, 50, 10)
        mouseMove(bar, 60, 15)
        compare(popup.x, x + 10)
        compare(popup.y, y + 5)
        mouseMove(bar, 47, 3)
        compare(popup.x, x + 10 - 3)
        compare(popup.y, y + 5 - 7)
        mouseRelease(bar, 47, 3)
        mouseMove(bar, 90, 20)
        compare(popup.x, x + 7)
        mousePress(bar, 50, 10, Qt.RightButton)
        mouseMove(bar, 70, 10)
        compare(popup.x, x + 7)
        mouseRelease(bar, 70, 10, Qt.RightButton)
        popup.close()
    }

    function test_dragFromAnyPointOfTheBar_data() {
        return [[0, 0], [597, 0], [0, 30], [597, 30], [565, 15], [583, 15]]
            .map(function(at) { return { tag: at.join(","), x: at[0], y: at[1] } })
    }

    function test_dragFromAnyPointOfTheBar(row) {
        var popup = show()
        var x = popup.x
        var bar = titleBar(popup)
        mousePress(bar, row.x, row.y)
        mouseMove(bar, row.x + 10, row.y)
        compare(popup.x, x + 10)
        mouseRelease(bar, row.x + 10, row.y)
        popup.close()
    }

    function test_bodyWithoutBorder() {
        var popup = show({ content: colouredBody, haveBorder: false })
        var loader = body(popup)
        compare(loader.y + loader.height, 240 - row(popup).height)
        popup.setButtons(["OK"])
        tryCompare(row(popup), "height", 28)
        compare(loader.y + loader.height, 240 - 28)
        popup.close()
    }

    Component {
        id: declared
        ZoPopWindow {
            defaultIndex: 1
            btnWidth: 60
            buttons: ["a", "b"]
            states: State {
                name: "shouting"
                PropertyChanges { target: shout; text: "changed" }
            }
            property QtObject shouted: QtObject { id: shout; property string text: "" }
        }
    }

    function test_declaredButtonsAndStates() {
        var popup = declared.createObject(stage)
        popup.open()
        compare(rowButtons(popup).map(function(button) { return button.text }), ["a", "b"])
        compare(rowButtons(popup).map(function(button) { return button.width }), [60, 60])
        compare(rowButtons(popup).map(isFilled), [false, true])
        popup.state = "shouting"
        compare(popup.shouted.text, "changed")
        popup.close()
    }

    function test_body() {
        var popup = show({ content: colouredBody, bgColor: "#123456" })
        var loader = body(popup)
        compare(loader.x, 32)
        compare(loader.y, 32 + 24)
        compare(loader.width, 600 - 2 * 32)
        compare(loader.y + loader.height, 240 - row(popup).height - 1)
        verify(Qt.colorEqual(loader.item.color, "#123456"))
        popup.setButtons(["OK"])
        tryCompare(row(popup), "height", 28)
        compare(loader.y + loader.height, 240 - 28 - 1)
        popup.leftMargin = 10
        popup.rightMargin = 20
        popup.topMargin = 40
        compare(loader.x, 10)
        compare(loader.width, 600 - 30)
        compare(loader.y, 32 + 40)
        popup.close()
    }

    function test_bodyWithoutColour() {
        var popup = show({ content: plainBody })
        compare(body(popup).item.width, 600 - 64)
        popup.close()
    }

    function compareRow(popup, texts, defaultIndex) {
        var buttons = rowButtons(popup)
        compare(buttons.length, texts.length)
        // The row lays itself out before it is drawn the next time.
        tryVerify(function() {
            var last = buttons[buttons.length - 1]
            return last.x + last.width === popup.width - look.rowRight
        })
        compare(row(popup).spacing, look.spacing)
        compare(row(popup).x, 0)
        compare(row(popup).width, popup.width)
        compare(row(popup).y + row(popup).height, popup.height - look.rowBottom)
        for (var i = 0; i < texts.length; ++i) {
            compare(buttons[i].text, texts[i])
            compare(buttons[i].index, i)
            compare(buttons[i].height, 28)
            compare(isFilled(buttons[i]), i === defaultIndex, texts[i])
            if (i > 0) {
                compare(buttons[i].x, buttons[i - 1].x + buttons[i - 1].width + look.spacing)
            }
        }
    }

    function test_buttons_data() {
        return [
            { tag: "one", texts: ["OK"], defaultIndex: 0 },
            { tag: "three", texts: ["Yes", "No", "Cancel"], defaultIndex: 0 },
            { tag: "second is the default", texts: ["Yes", "No"], defaultIndex: 1 },
            { tag: "no default", texts: ["Yes", "No"], defaultIndex: 7 }
        ]
    }

    function test_buttons(data) {
        var popup = show({ defaultIndex: data.defaultIndex })
        compare(row(popup).visible, false)
        popup.buttons = data.texts
        compare(row(popup).visible, true)
        compareRow(popup, data.texts, data.defaultIndex)
        rowButtons(popup).forEach(function(button) { compare(button.width, 100) })
        popup.close()
    }

    function test_longButtonText() {
        var popup = show()
        popup.setButtons(["OK", "A text that is much too long for one hundred"])
        compareRow(popup, ["OK", "A text that is much too long for one hundred"], 0)
        verify(rowButtons(popup)[1].width > 250)
        popup.close()
    }

    function test_buttonSize() {
        var popup = show({ btnWidth: 60, btnHeight: 40, rightMargin: 10 })
        popup.setButtons(["a", "b"])
        var last = rowButtons(popup)[1]
        tryVerify(function() { return last.x + last.width === 600 - 10 })
        compare(last.width, 60)
        compare(last.height, 40)
        popup.close()
    }

    function test_buttonsTwice() {
        var popup = show()
        popup.buttons = ["One", "Two", "Three"]
        popup.buttons = ["Four", "Five"]
        compareRow(popup, ["Four", "Five"], 0)
        tryVerify(function() { return Parts.named(row(popup), /^button\d/).length === 2 })
        compareRow(popup, ["Four", "Five"], 0)
        popup.setButtons([])
        compare(row(popup).visible, false)
        tryVerify(function() { return Parts.named(row(popup), /^button\d/).length === 0 })
        popup.setButtons(["Six"])
        compareRow(popup, ["Six"], 0)
        popup.close()
    }

    function test_buttonClicked() {
        var popup = show()
        popup.buttons = ["Yes", "No", "Cancel"]
        compareRow(popup, ["Yes", "No", "Cancel"], 0)
        rowButtons(popup).forEach(function(button) { mouseClick(button) })
        compare(notes(), ["buttonClicked 0", "buttonClicked 1", "buttonClicked 2"])
        compare(popup.visible, true)
        popup.close()
    }

    function test_centresItselfWhenShown() {
        var popup = make({ width: 480 })
        stage.x = 200
        stage.y = 100
        popup.open()
        compare(popup.x, 200 + (640 - 480) / 2)
        compare(popup.y, 100 + (408 - 240) / 2)
        stage.x = 300
        wait(0)
        compare(popup.x, 280) // it does not follow
        popup.visible = false
        popup.visible = true
        compare(popup.x, 380)
        popup.close()
    }

    function test_centerInParentLeavesTheWindowWhereItIs() {
        var popup = make({ centerInParent: true, x: 7, y: 9 })
        popup.open()
        compare(popup.x, 7)
        compare(popup.y, 9)
        popup.close()
    }

    // Also when the user goes to another window while the pop-up appears.
    function test_asksForActivation() {
        // Without an owner: one that the test's own window owns is active whenever that is.
        var other = plainStage.createObject(null)
        other.requestActivate()
        tryCompare(other, "active", true)
        tryCompare(stage, "active", false)
        var popup = make()
        popup.open()
        other.requestActivate()
        tryCompare(popup, "active", true)
        compare(other.active, false)
        popup.close()
        Parts.destroy(test, other)
    }

    function test_mainWindowIsTold() {
        stage = createTemporaryObject(hookedStage, test)
        var popup = show()
        popup.close()
        tryGone()
        compare(notes()[0], "notifyPopup true true")
        verify(notes().indexOf("notifyPopup true false") > 0, notes())
    }

    function test_mainWindowIsToldOfHiding() {
        stage = createTemporaryObject(hookedStage, test)
        var popup = show()
        compare(stage.notified, popup)
        popup.visible = false
        compare(notes(), ["notifyPopup true true", "notifyPopup true false"])
        popup.close()
    }

    function test_closeBySystemDestroys() {
        var popup = show()
        probe.closeBySystem(popup)
        tryGone()
        compare(notes(), ["destroyed"])
    }

    function test_escapeIsNotForEveryPopup() {
        var popup = show()
        keyClick(Qt.Key_Escape)
        keyClick(Qt.Key_Return)
        compare(popup.visible, true)
        compare(notes(), [])
        popup.close()
    }

    function test_tabOrder() {
        var popup = show()
        popup.buttons = ["Yes", "No"]
        // Not the close button: Tab and Space must not close the window.
        var stops = rowButtons(popup).concat(rowButtons(popup)[0])
        stops.forEach(function(stop) {
            compare(stop.activeFocus, false)
            keyClick(Qt.Key_Tab)
            compare(stop.activeFocus, true, stop)
            compare(findChild(stop, "focusFrame").visible, true)
        })
        keyClick(Qt.Key_Backtab)
        compare(rowButtons(popup)[1].activeFocus, true)
        keyClick(Qt.Key_Space)
        keyClick(Qt.Key_Return)
        compare(notes(), ["buttonClicked 1", "buttonClicked 1"])
        popup.close()
    }

    function test_accessible() {
        var popup = show({ title: "Warning" })
        var seen = probe.accessible(background(popup))
        compare(seen.role, Accessible.Dialog)
        compare(seen.name, "Warning")
        popup.close()
    }
}
