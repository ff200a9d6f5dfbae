import QtQuick 2.14
import QtQuick.Controls 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public

// Single controls: their properties, what activates them, and their signals. Reference images check
// their looks.
InterfaceTest {
    id: test

    // The controls that a click activates.
    readonly property var activated: [
        { tag: "ZoRoundButton", properties: { text: "Go" }, role: Accessible.Button },
        { tag: "ZoRoundButtonLegacy", properties: { text: "Go" }, role: Accessible.Button },
        { tag: "ZoDefaultRoundButton", properties: { text: "Go" }, role: Accessible.Button },
        { tag: "ZoRadioButton", properties: { text: "Go" }, role: Accessible.RadioButton,
          frame: "focusFrame" },
        { tag: "ZoLinkLabel", properties: { originalText: "Go" }, role: Accessible.Link,
          signal: "linkActivated", frame: "focusMark" },
        { tag: "ZoImageButton", properties: { resName: "ico_popup_close" }, role: Accessible.Button,
          noTabStop: true }
    ]
    name: "Controls"

    Component {
        id: groupFixture
        Column {
            ButtonGroup {
                id: group
            }
            spacing: 10
            Repeater {
                model: 3
                ZoRadioButton {
                    objectName: "entry" + index
                    height: 19
                    text: "Entry " + index
                    ButtonGroup.group: group
                    onToggled: fake.note("toggled " + index)
                }
            }
        }
    }

    Component {
        id: ofFixedWidth
        ZoRoundButton {
            width: 30
            text: "x"
        }
    }

    TextMetrics {
        id: metrics
        font.pixelSize: 14
    }

    function make(type, properties) {
        var component = Qt.createComponent("qrc:/" + type + ".qml")
        var control = createTemporaryObject(component, test,
                                            Object.assign({ x: 20, y: 20 }, properties))
        verify(control, component.errorString())
        return control
    }

    function makeActivated(row) {
        var control = make(row.tag, row.properties)
        var signal = control[row.signal || "clicked"]
        signal.connect((link) => fake.note(link ? "link " + link : "click"))
        return control
    }

    // How often it was activated since the last call of this function.
    function activations(row) {
        var found = notes()
        fake.forget()
        var expected = row.signal ? "link " + Public.homePageUrl : "click"
        verify(found.every((note) => note === expected), found)
        return found.length
    }

    function labelOf(button) { return findChild(button, "buttonLabel") }

    // The properties that no reference image shows.
    function test_propertiesHaveTheirDefaults_data() {
        return [
            { tag: "ZoRoundButton", properties: { properties: Public.nrpInfo } },
            { tag: "ZoRoundButtonLegacy", properties: { properties: Public.rplInfo } },
            { tag: "ZoDefaultRoundButton", properties: { properties: Public.drpInfo } },
            { tag: "ZoImageButton", properties: { resName: "", index: 0, width: 0, height: 0 } },
            { tag: "ZoLinkLabel", properties: { originalText: "", activeFocusOnTab: false } },
            { tag: "ZoGradientFill", properties: { startColor: "#00000000",
                                                   endColor: "#00000000" } },
            { tag: "ZoProgressBar", properties: { value: 0, precision: 0 } }
        ]
    }

    function test_propertiesHaveTheirDefaults(row) {
        compareAll(make(row.tag, {}), row.properties)
    }

    // Activation ---------------------------------------------------------------------------------

    function test_mouseAndTouchActivate_data() { return activated }

    function test_mouseAndTouchActivate(row) {
        var control = makeActivated(row)
        var x = control.width / 2
        var y = control.height / 2
        mouseClick(control, x, y)
        compare(activations(row), 1)
        mousePress(control, x, y)
        mouseMove(control, x, y + 100)
        mouseRelease(control, x, y + 100)
        mouseClick(control, x, y, Qt.RightButton)
        compare(activations(row), 0, "another button, or released elsewhere")
        leavePointer()
        probe.tap(control, 20 + x, 20 + y)
        tryVerify(() => notes().length > 0)
        compare(activations(row), 1)
        if (row.role === Accessible.Button) {
            compare([control.pressed, control.hovered], [false, false], "a finger leaves no hover")
        }
        control.enabled = false
        mouseClick(control, x, y)
        compare(activations(row), 0)
    }

    function test_theKeyboardActivates_data() { return activated }

    function test_theKeyboardActivates(row) {
        var control = makeActivated(row)
        var frame = findChild(control, row.frame || "focusFrame")
        mouseClick(control)
        compare(frame !== null && frame.visible, false, "no frame for the mouse")
        control.focus = false
        fake.forget()
        keyClick(Qt.Key_Tab)
        compare(control.activeFocus, !row.noTabStop)
        if (row.noTabStop) {
            return
        }
        compare(frame.visible, true)
        var area = frame.mapToItem(control, 0, 0, frame.width, frame.height)
        verify(area.x >= 0 && area.x + area.width <= control.width, "inside: pages clip")
        keys.forEach((one) => {
            keyPress(one.key)
            probe.repeatKey(control, one.key)
            keyRelease(one.key)
            compare(activations(row), 1, one.tag)
        })
        keyClick(Qt.Key_A)
        control.enabled = false
        keyClick(Qt.Key_Return)
        compare(activations(row), 0)
    }

    function test_theCursorIsAHandOverButtonsAndLinks_data() {
        return activated.filter((row) => !row.noTabStop)
    }

    function test_theCursorIsAHandOverButtonsAndLinks(row) {
        var control = makeActivated(row)
        mouseMove(control, control.width / 2, control.height / 2)
        tryCursor(control, row.tag === "ZoRadioButton" ? Qt.ArrowCursor : Qt.PointingHandCursor)
        leavePointer()
        tryCursor(control, Qt.ArrowCursor)
    }

    function test_assistiveToolsReadAndPressAControl_data() { return activated }

    function test_assistiveToolsReadAndPressAControl(row) {
        var control = makeActivated(row)
        var seen = probe.accessible(control)
        compare([seen.role, seen.name], [row.role, row.noTabStop ? "" : "Go"])
        verify(row.noTabStop || seen.focusable)
        var button = row.role === Accessible.Button
        verify(probe.pressAccessible(control))
        // The action toggles a radio button without `clicked`. A button clicks after the action.
        compare(activations(row), button || row.tag === "ZoRadioButton" ? 0 : 1)
        wait(0)
        compare(activations(row), button ? 1 : 0)
        // It must be enabled when pressed and when it clicks.
        for (var atPress of button ? [true, false] : []) {
            control.enabled = atPress
            probe.pressAccessible(control)
            control.enabled = !atPress
            wait(0)
            compare(activations(row), 0)
        }
    }

    // Push buttons -------------------------------------------------------------------------------

    function test_theLabelFollowsTheProperties() {
        var button = make("ZoRoundButton", { text: "<b>a</b> & b", semiBold: true,
                                             fontPixcelSize: 17 })
        var label = labelOf(button)
        compareAll(label, { text: "<b>a</b> & b", textFormat: Text.PlainText })
        compare([label.font.weight, label.font.pixelSize], [Font.Medium, 17])
        button.semiBold = false
        compare(label.font.weight, Font.Normal)
    }

    function test_legacyButtonHasALabelColourOfItsOwn() {
        var button = make("ZoRoundButtonLegacy", { textColor: "#123456" })
        button.enabled = false
        compare(String(labelOf(button).color), "#123456")
        button.textColor = "#654321"
        compare(String(labelOf(button).color), "#654321")
    }

    function test_aButtonIsWideEnoughForItsText() {
        function needed(text) {
            metrics.text = text
            return metrics.boundingRect.width + 2 * 4
        }
        var button = make("ZoRoundButton", { text: "OK" })
        var wide = "A text that needs more room than that"
        ;[[{ width: 40 }, 100], [{ text: wide }, needed(wide)],
          [{ rp: 9, lp: 5, text: wide + "." }, needed(wide + ".") + 14], [{ text: "OK" }, 100],
          [{ implicitWidth: 140 }, 140], [{ implicitWidth: 100 }, 100],
          [{ implicitWidth: 64, text: "" }, 64]].forEach((step) => {
            Object.assign(button, step[0])
            compare(button.width, step[1], JSON.stringify(step[0]))
        })
        compare(createTemporaryObject(ofFixedWidth, test).width, 100)
    }

    function test_propertyTablesMayBeIncomplete() {
        var button = make("ZoRoundButton", { properties: {} })
        compareAll(button, { bgColor: "#00000000", bgBorderWidth: 0, bgOpacity: 1, bgRadius: 6,
                             bgBorderColor: "#00000000" })
        compare(button.enabledValue(undefined), undefined)
    }

    function test_theFilledTableIsSetOnCompletion() {
        var button = make("ZoDefaultRoundButton", { properties: Public.nrpInfo_submit })
        compare(button.properties, Public.drpInfo)
        button.properties = Public.nrpInfo_submit
        compare(button.bgBorderWidth, 1, "but it can be changed later")
    }

    function test_aStaticButtonHasAnArrowCursor() {
        var button = make("ZoRoundButton", { text: "Go", staticButton: true })
        mouseMove(button, 50, 14)
        tryCompare(button, "hovered", true)
        tryCursor(button, Qt.ArrowCursor)
    }

    function test_anImageButtonGrowsToItsImage() {
        var button = make("ZoImageButton", { resName: "ico_popup_close", width: 10, height: 40 })
        compare([button.width, button.height], [16, 40])
    }

    // Links --------------------------------------------------------------------------------------

    function test_aLinkIsActivatedOnItsTextOnly() {
        var label = make("ZoLinkLabel", { originalText: "One" })
        compare(label.text, Public.makeLink("One"))
        label.originalText = "Other"
        compare(label.text, Public.makeLink("Other"))
        label.linkActivated.connect((link) => fake.note(link))
        label.width = label.implicitWidth + 100
        mouseMove(label, 5, label.height / 2)
        tryCursor(label, Qt.PointingHandCursor)
        mouseClick(label, label.width - 10, label.height / 2)
        compare(notes(), [], "beside the link")
        tryCursor(label, Qt.ArrowCursor)
    }

    // Radio buttons ------------------------------------------------------------------------------

    function test_aRadioButtonTogglesOnce_data() {
        return [{ tag: "mouse", act: (button) => mouseClick(button) },
                { tag: "touch", act: (button) => probe.tap(button, 30, 30) },
                { tag: "assistive tool", act: (button) => verify(probe.pressAccessible(button)) }
        ].concat(keys.map((row) => ({ tag: row.tag, act: (button) => keyClick(row.key) })))
    }

    function test_aRadioButtonTogglesOnce(row) {
        var button = make("ZoRadioButton", { text: "Go" })
        button.toggled.connect(() => fake.note("toggled " + button.checked))
        button.clicked.connect(() => fake.note("clicked"))
        button.forceActiveFocus()
        var clicked = row.tag === "assistive tool" ? [] : ["clicked"]
        compare(probe.accessible(button).checked, false)
        row.act(button)
        tryCompare(button, "checked", true)
        compare(notes(), ["toggled true"].concat(clicked))
        row.act(button)
        wait(0)
        compare(button.checked, true)
        compare(notes(), ["toggled true"].concat(clicked, clicked))
    }

    function test_arrowKeysMoveWithinAGroupOfRadioButtons() {
        var entries = named(createTemporaryObject(groupFixture, test), /^entry/)
        keyClick(Qt.Key_Tab)
        ;[[Qt.Key_Down, 1], [Qt.Key_Down, 2], [Qt.Key_Down, 2], [Qt.Key_Up, 1], [Qt.Key_Up, 0],
          [Qt.Key_Up, 0]].forEach((step) => {
            keyClick(step[0])
            compare(entries.map((entry) => entry.activeFocus).indexOf(true), step[1])
        })
        compare(findChild(entries[0], "focusFrame").visible, true)
        compare(notes(), [], "moving the focus chooses no entry")
        mouseClick(entries[0])
        mouseClick(entries[2])
        compare(entries.map((entry) => entry.checked), [false, false, true])
        compare(notes(), ["toggled 0", "toggled 2"])
    }

    // The progress bar ---------------------------------------------------------------------------

    function test_theBarIsAnimated() {
        var bar = make("ZoProgressBar", { width: 300 })
        var seen = []
        var fill = findChild(bar, "progressFill")
        bar.valueChanged.connect(() => {
            seen.push(bar.value)
            fuzzyCompare(fill.width, bar.value * bar.width / 100, 0.0001)
        })
        bar.value = 100
        // tryCompare would accept 99.99999.
        tryVerify(() => bar.value === 100)
        verify(seen.length > 3, seen)
        verify(seen[0] > 0 && seen[0] < 100, seen)
        compare(seen, seen.slice().sort((one, other) => one - other))
        bar.width = 200
        compare([fill.width, findChild(bar, "progressTrack").width], [200, 200])
    }

    function test_theAnimationOfTheBarHasItsDurationAndEasing() {
        var bar = make("ZoProgressBar", { width: 300 })
        var behaviors = probe.below(bar, "QQuickBehavior")
        compare(behaviors.length, 1, "the fill's width is not animated again")
        bar.value = 1 // the animation exists from the first change on
        compareAll(behaviors[0].animation, { duration: 400 })
        compare(behaviors[0].animation.easing.type, Easing.OutQuart)
        bar.valueAnimationInterval = 70
        compare(behaviors[0].animation.duration, 70)
    }

    function test_assistiveToolsReadTheProgress() {
        var bar = make("ZoProgressBar", { width: 300 })
        bar.value = 40
        tryCompare(bar, "value", 40)
        var seen = probe.accessible(bar)
        compare([seen.role, seen.name], [Accessible.ProgressBar, "40 %"])
    }
}
