import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public
import "parts.js" as Parts

// Takes the picture of every state of the interface, below the folder that KTR_GALLERY names: each pane
// as a whole window, its further states as the part that they change. Run by `ktr gallery`, once for
// each scale.
TestCase {
    id: test

    readonly property string folder: probe.environment("KTR_GALLERY")
    property var main: null
    property int taken: 0
    property var whileBoxIsUp: null

    name: "Gallery"
    when: windowShown
    visible: true
    width: 420
    height: 160

    Timer {
        id: boxWatch
        interval: 10
        repeat: true
        onTriggered: {
            var popups = probe.popups()
            if (popups.length === 1 && popups[0].active && popups[0].contentItem.width > 0) {
                stop()
                test.whileBoxIsUp(popups[0])
            }
        }
    }

    function initTestCase() {
        verify(folder !== "", "KTR_GALLERY names the folder for the pictures")
        probe.holdStill()
    }

    function init() {
        fake.reset()
        fake.defaultText = "$19.95"
        fake.today = new Date(2026, 11, 30)
    }

    function cleanup() {
        boxWatch.stop()
        if (main !== null) {
            Parts.destroy(test, main)
            main = null
        }
        mouseMove(test, test.width - 1, test.height - 1)
    }

    function save(what, name) {
        ++taken
        return probe.save(what, folder + "/" + (taken < 10 ? "0" : "") + taken + "-" + name + ".png")
    }

    function shot(what, name) {
        verify(save(what, name), name)
    }

    // What all of these items cover together.
    function shotOf(items, name) {
        var rect = items.map(function(item) {
            return item.mapToItem(main.contentItem, 0, 0, item.width, item.height)
        }).reduce(function(one, other) {
            var left = Math.min(one.x, other.x)
            var top = Math.min(one.y, other.y)
            return Qt.rect(left, top, Math.max(one.x + one.width, other.x + other.width) - left,
                           Math.max(one.y + one.height, other.y + other.height) - top)
        })
        shot(createTemporaryObject(section, main.contentItem, {
            x: rect.x, y: rect.y, width: rect.width, height: rect.height
        }), name)
    }

    // A window has the keyboard, and shows it, only once the window manager gave it.
    function open() {
        main = Qt.createComponent("qrc:/Main.qml").createObject(null)
        tryVerify(function() { return main.active && main.contentItem.width === main.width })
        part("reasonList").model = [1, 2, 3, 4]
        part("reasonColumn").forceLayout()
        return main
    }

    function part(name) {
        return findChild(main.contentItem, name)
    }

    function page() {
        return part("homePage")
    }

    function inPage(pageName, name) {
        return findChild(part(pageName), name)
    }

    Component {
        id: section
        Item {}
    }

    // Windows ----------------------------------------------------------------------------------

    function test_01_reasons() {
        open()
        shot(main, "reasons")
        var reasons = Parts.named(main.contentItem, /^reason\d$/)
        mouseMove(reasons[1], 40, 9)
        tryCompare(reasons[1], "hovered", true)
        shotOf(reasons, "reasons, the second hovered")
        mouseMove(main.contentItem, 300, 380)
        reasons[2].forceActiveFocus(Qt.TabFocusReason)
        shotOf(reasons, "reasons, keyboard on the third")
    }

    function test_02_shadow() {
        fake.kernelVersion = "10.0.19045"
        fake.dropShadow = true
        open()
        shot(main, "with a drop shadow")
    }

    function test_03_coupons() {
        open()
        page().switchPage(1)
        shot(main, "price too expensive")
        page().switchPage(2)
        shot(main, "problem solved")
        inPage("solvedPage", "offerLink").forceActiveFocus(Qt.TabFocusReason)
        shotOf([inPage("solvedPage", "offerText")], "coupon, keyboard on the link")
        Parts.destroy(test, main)
        fake.configured = false
        open()
        page().switchPage(1)
        shotOf(Parts.named(part("expensivePage"), /Text$/), "coupon without an offer")
    }

    function test_04_feedback() {
        open()
        page().switchPage(3)
        shot(main, "problem not solved")
        var area = inPage("noSolvedPage", "feedbackText")
        var box = inPage("noSolvedPage", "feedbackFrame")
        area.forceActiveFocus(Qt.MouseFocusReason)
        area.cursorVisible = true
        shotOf([box], "feedback, in the box")
        area.text = "The picture was cut off on the left.\nI tried twice."
        area.cursorPosition = area.length
        shotOf([box], "feedback, some words")
        area.text = new Array(120).join("word ")
        area.select(10, 40)
        shotOf([box], "feedback, much text and a selection")
        area.focus = false
        shotOf([box], "feedback, after the box")
        var link = inPage("noSolvedPage", "offerLink")
        link.forceActiveFocus(Qt.TabFocusReason)
        shotOf([link], "feedback, keyboard on the link")
        page().thank(3)
        shot(main, "thanks for a feedback")
    }

    function test_05_uninstall() {
        open()
        var buttons = [part("uninstallButton"), part("cancelButton")]
        part("uninstallButton").forceActiveFocus(Qt.TabFocusReason)
        shotOf(buttons, "keyboard on Uninstall")
        part("cancelButton").forceActiveFocus(Qt.TabFocusReason)
        shotOf(buttons, "keyboard on Cancel")
        // It would have the keyboard again as soon as it is enabled.
        part("cancelButton").focus = false
        mouseClick(part("uninstallButton"))
        mouseMove(main.contentItem, 300, 200)
        uninstallMgr.valProgress = 42
        tryCompare(part("progressBar"), "value", 42)
        shot(main, "uninstalling")
        uninstallMgr.valProgress = 100
        tryCompare(part("cancelButton"), "text", "OK")
        shot(main, "complete")
    }

    function test_06_warning() {
        open()
        fake.running = ["KTRUI.exe"]
        var saved = false
        whileBoxIsUp = function(box) {
            saved = save(box, "warning")
            box.close()
        }
        boxWatch.start()
        mouseClick(part("uninstallButton"))
        verify(saved)
    }

    // Controls ---------------------------------------------------------------------------------

    Component {
        id: light
        ZoRoundButton { text: "Uninstall" }
    }
    Component {
        id: submit
        ZoRoundButton {
            text: "Submit"
            Component.onCompleted: properties = Public.nrpInfo_submit
        }
    }
    Component {
        id: filled
        ZoDefaultRoundButton { text: "Cancel" }
    }
    Component {
        id: closing
        ZoImageButton { resName: "ico_popup_close" }
    }
    Component {
        id: radio
        ZoRadioButton { text: "I have other reasons"; height: 19 }
    }
    Component {
        id: checkedRadio
        ZoRadioButton { text: "I have other reasons"; height: 19; checked: true }
    }
    Component {
        id: link
        ZoLinkLabel { originalText: "Enjoy discounted prices to buy other products" }
    }
    Component {
        id: bar
        ZoProgressBar { width: 300 }
    }


    function test_10_buttons_data() {
        var rows = []
        var states = ["normal", "hovered", "pressed", "disabled", "disabled while hovered", "focused"]
        var controls = [
            ["light button", light], ["submit button", submit], ["filled button", filled],
            ["close button", closing], ["radio", radio], ["checked radio", checkedRadio]
        ]
        controls.forEach(function(control) {
            states.forEach(function(state) {
                // The close button is no tab stop and shows no focus.
                if (control[1] !== closing || state !== "focused") {
                    rows.push({ tag: control[0] + ", " + state, made: control[1], state: state })
                }
            })
        })
        return rows
    }

    function test_10_buttons(row) {
        tryVerify(function() { return test.Window.active })
        var control = createTemporaryObject(row.made, test, { x: 20, y: 20 })
        if (row.state === "focused") {
            control.forceActiveFocus(Qt.TabFocusReason)
        } else {
            Parts.enter(test, control, row.state)
        }
        shot(control, row.tag)
        Parts.leave(test, control)
    }

    function test_11_links() {
        var label = createTemporaryObject(link, test, { x: 20, y: 20 })
        tryVerify(function() { return test.Window.active })
        shot(label, "link")
        label.forceActiveFocus(Qt.TabFocusReason)
        shot(label, "link, focused")
    }

    function test_12_bars_data() {
        return [{ tag: "0" }, { tag: "1" }, { tag: "37" }, { tag: "99" }, { tag: "100" }]
    }

    function test_12_bars(row) {
        var shownBar = createTemporaryObject(bar, test, { x: 20, y: 20, value: Number(row.tag) })
        tryCompare(shownBar, "value", Number(row.tag))
        shot(shownBar, "bar at " + row.tag)
    }
}
