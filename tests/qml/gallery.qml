import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "qrc:/public.js" as Public

// Saves a screenshot of every state of the interface below the folder in KTR_GALLERY: each pane as
// a window, its further states as the part that changes, and each control.
InterfaceTest {
    id: test

    readonly property string folder: probe.environment("KTR_GALLERY")
    readonly property string longText: "A text which is certainly a good deal longer than "
                                       + "the three hundred and thirty-six pixels of one line."
    readonly property var states: ["normal", "hovered", "pressed", "pressed by a key", "disabled",
                                   "disabled while hovered", "disabled while pressed", "focused"]

    // A table with values for each state under `enabled` and `disabled`, and one with only some of
    // them, without border width and radius.
    readonly property var strong: ["#C02020", "#20C020", "#2020C0", "#C0C020"]
    readonly property var dark: ["#400000", "#004000", "#000040", "#404000"]
    readonly property var splitTable: table({ enabled: { normal: 0.9, pressed: 0.5 },
                                              disabled: 0.2 }, {
        textColor: {
            enabled: { normal: "#FFFFFF", hovered: "#FFFF00", pressed: "#00FFFF" },
            disabled: { normal: "#FF00FF", hovered: "#FF0000", pressed: "#00FF00" }
        },
        bgRadius: 9
    })
    readonly property var sparseTable: table({ enabled: { normal: 0.6 }, disabled: 0.2 }, {
        textColor: { enabled: { normal: "#FFFFFF", hovered: "#FFFF00" }, disabled: "#FF00FF" },
        bgRadius: undefined, borderWidth: undefined
    })
    readonly property var gradient: [
        { normal: "#600000", hovered: "#006000", pressed: "#000060" }, { normal: "#FF8080" }
    ]
    readonly property var tinted: ({
        width: 40, height: 30, bgColorNormal: "#FF0000", bgColorOnHover: "#00FF00",
        bgColorOnPress: "#0000FF", bgColorOnChecked: "#FFFF00", btnRadius: 8
    })

    // Controls to show in every state: title, type, initial properties, properties set afterwards.
    readonly property var controls: [
        ["light button", "ZoRoundButton", { text: "Uninstall" }],
        ["rpInfo button", "ZoRoundButton", { text: "Uninstall", properties: Public.rpInfo }],
        ["submit button", "ZoRoundButton", { text: "Submit" },
         { properties: Public.nrpInfo_submit }],
        ["filled button", "ZoDefaultRoundButton", { text: "Cancel" }],
        ["legacy button", "ZoRoundButtonLegacy", { text: "Cancel" }],
        ["split table", "ZoRoundButton", { text: "Uninstall", properties: splitTable }],
        ["sparse table", "ZoRoundButton", { text: "Uninstall", properties: sparseTable }],
        ["gradient button", "ZoDefaultRoundButton", { text: "Cancel" },
         { properties: withGradient({ stops: gradient }) }],
        ["close button", "ZoImageButton", { resName: "ico_popup_close" }],
        ["unpressable button", "ZoImageButton", { resName: "ico_popup_close", pressAble: false }],
        ["tinted button", "ZoImageButton", tinted],
        ["checked tinted button", "ZoImageButton", merged(tinted, { checked: true })],
        ["radio", "ZoRadioButton", { text: "I have other reasons", height: 19 }],
        ["checked radio", "ZoRadioButton", { text: "I have other reasons", height: 19,
                                             checked: true }]
    ]
    // Controls to show in one state.
    readonly property var looks: [
        ["long button", "ZoRoundButton", { text: "A text that needs more room than that", lp: 30,
                                           rp: 6,
                                           fontPixcelSize: 17 }],
        ["narrow button", "ZoRoundButton", { text: "OK", implicitWidth: 10 }],
        ["empty table", "ZoRoundButton", { text: "OK", properties: {} }],
        ["vertical gradient", "ZoDefaultRoundButton", { text: "Cancel" },
         { properties: withGradient({ orientation: Gradient.Vertical, stops: gradient }) }],
        ["image at the left", "ZoImageButton",
         { resName: "ico_popup_close", width: 40, height: 30, bgColorNormal: "#FFFF00" }],
        ["image in the middle", "ZoImageButton",
         { resName: "ico_popup_close", width: 40, height: 30, bgColorNormal: "#FFFF00",
           imghcenter: true }],
        ["round left top", "ZoImageButton", merged(tinted, { ltRadius: true })],
        ["round right top", "ZoImageButton", merged(tinted, { rtRadius: true })],
        ["round left bottom", "ZoImageButton", merged(tinted, { lbRadius: true })],
        ["round right bottom", "ZoImageButton", merged(tinted, { rbRadius: true })],
        ["gradient fill", "ZoGradientFill",
         { width: 100, height: 20, radius: 10, startColor: "#FF0000", endColor: "#0000FF" }],
        ["square gradient fill", "ZoGradientFill",
         { width: 100, height: 20, startColor: "#FF0000", endColor: "#0000FF" }],
        ["tall radio", "ZoRadioButton",
         { text: "Tall", height: 40, leftPadding: 12, textColor: "#FF0000", fontSize: 20 }],
        ["radio of its own size", "ZoRadioButton", { text: "<b>Tall</b>" }]
    ]
    readonly property var popups: [
        ["pop-up", { title: "Warning", buttonMask: 3, content: body,
                     buttons: ["Yes", "No", "Cancel"] }],
        ["pop-up, without a border", { title: longText + longText, haveBorder: false, radius: 6,
                                       content: body, defaultIndex: 1, buttons: ["Yes", "No"] }],
        ["pop-up, with other measures", {
            width: 500, height: 300, leftMargin: 10, rightMargin: 20, topMargin: 40,
            titleHeight: 50,
            titleRightMargin: 30, btnWidth: 60, btnHeight: 40, bgColor: "#C0E0C0",
            titleColor: "#E0C0C0", contentColor: "#C0C0E0", content: body, defaultIndex: 7,
            buttons: ["a", "A text that is too long for sixty"]
        }],
        ["pop-up, busy", { title: longText + longText, busy: true, contentColor: "#C0C0E0",
                           content: bodyWithoutColour }],
        ["pop-up, without a close button", { title: "Warning", buttonMask: 2 }],
        ["pop-up, over a blurred window", { title: "Warning" }, 8]
    ]
    readonly property var boxes: [
        ["message box", { title: "Warning", mainTitle: longText, subTitle: longText, height: 300,
                          icon: "qrc:/pic_gift.png", buttons: ["Yes", "No"], defaultIdx: 1 }, 480],
        ["message box, wide and without an icon",
         { title: "Warning", mainTitle: longText, subTitle: longText, icon: "" }, 600]
    ]

    property int taken: 0

    name: "Gallery"
    width: 420
    height: 160

    function merged(one, other) {
        return Object.assign({}, one, other)
    }

    function table(opacity, changes) {
        var made = merged(Public.buttonTable(strong, dark, 2, ""), changes)
        made.bgColor.opacity = opacity
        return made
    }

    function withGradient(gradient) {
        return merged(Public.drpInfo, { gradient: gradient })
    }

    function initTestCase() {
        verify(folder !== "", "KTR_GALLERY must name the folder for the screenshots")
        probe.holdStill()
    }

    function prepare() {
        fake.defaultText = "$19.95"
        fake.today = new Date(2026, 11, 30)
    }

    function shot(what, name) {
        ++taken
        var path = folder + "/" + (taken < 100 ? "0" : "") + (taken < 10 ? "0" : "") + taken
        verify(probe.save(what, path + "-" + name + ".png"), name)
    }

    // A screenshot of the rectangle around all of these items.
    function shotOf(items, name) {
        var rects = items.map(function(item) {
            return item.mapToItem(main.contentItem, 0, 0, item.width, item.height)
        })
        function least(values) { return Math.min.apply(null, values) }
        var left = least(rects.map(function(rect) { return rect.x }))
        var top = least(rects.map(function(rect) { return rect.y }))
        var right = -least(rects.map(function(rect) { return -rect.x - rect.width }))
        var bottom = -least(rects.map(function(rect) { return -rect.y - rect.height }))
        shot(createTemporaryObject(section, main.contentItem, {
            x: left, y: top, width: right - left, height: bottom - top
        }), name)
    }

    Component {
        id: body
        Rectangle { border.width: 1 }
    }
    Component {
        id: bodyWithoutColour
        Item {
            Rectangle {
                anchors.fill: parent
                color: "#FFFFFF"
            }
        }
    }
    Component {
        id: section
        Item {}
    }
    Component {
        id: stageFixture
        Stage {}
    }

    // Windows ----------------------------------------------------------------------------------

    function test_01_reasons() {
        openMain(uninstallMgr.getReasonList().sort())
        shot(main, "reasons")
        var reasons = named(main.contentItem, /^reason\d$/)
        mouseMove(reasons[1], 40, 9)
        tryCompare(reasons[1], "hovered", true)
        shotOf(reasons, "reasons, the second hovered")
        mouseMove(main.contentItem, 300, 380)
        reasons[2].forceActiveFocus(Qt.TabFocusReason)
        shotOf(reasons, "reasons, keyboard on the third")
        part("reasonPage").listReson = ["", "", "", "", longText + longText]
        shot(part("reasonPage"), "reasons, a long one")
    }

    function test_02_shadow() {
        fake.kernelVersion = "10.0.19045"
        fake.dropShadow = true
        openMain([1, 2, 3, 4])
        shot(main, "with a drop shadow")
    }

    function test_03_coupons() {
        openMain([1, 2, 3, 4])
        part("homePage").switchPage(1)
        shot(main, "price too expensive")
        part("homePage").switchPage(2)
        shot(main, "problem solved")
        part("offerLink", "solvedPage").forceActiveFocus(Qt.TabFocusReason)
        shotOf([part("offerText", "solvedPage")], "coupon, keyboard on the link")
        part("solvedPage").perferentialInfo = { price: "<b>5</b> & %1",
                                                expired: "<b>never</b>, never" }
        part("solvedPage").discountPricesTxt = "<i>View</i>"
        shot(part("solvedPage"), "coupon, with markup in its texts")
        closeMain()
        fake.configured = false
        openMain([1, 2, 3, 4])
        part("homePage").switchPage(1)
        shotOf(named(part("expensivePage"), /Text$/), "coupon without an offer")
    }

    function test_04_feedback() {
        openMain([1, 2, 3, 4])
        part("homePage").switchPage(3)
        shot(main, "problem not solved")
        var area = part("feedbackText", "noSolvedPage")
        var box = part("feedbackFrame", "noSolvedPage")
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
        var link = part("offerLink", "noSolvedPage")
        link.forceActiveFocus(Qt.TabFocusReason)
        shotOf([link], "feedback, keyboard on the link")
        part("homePage").thank(3)
        shot(main, "thanks for a feedback")
    }

    function test_05_uninstall() {
        openMain([1, 2, 3, 4])
        var buttons = [part("uninstallButton"), part("cancelButton")]
        buttons.forEach(function(button) {
            button.forceActiveFocus(Qt.TabFocusReason)
            shotOf(buttons, "keyboard on " + button.text)
        })
        // Otherwise it would get the focus again as soon as it is enabled.
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
        openMain([1, 2, 3, 4])
        fake.running = ["KTRUI.exe"]
        withBox(function() { mouseClick(part("uninstallButton")) }, function(box) {
            shot(box, "warning")
            box.close()
        })
    }

    function test_07_popups_data() {
        return popups.map(function(row) {
            return { tag: row[0], properties: row[1], blur: row[2] || 0 }
        })
    }

    function test_07_popups(row) {
        var stage = createTemporaryObject(stageFixture, test, { blur: row.blur })
        var popup = stage.makePopup(row.properties)
        popup.open()
        tryVerify(function() { return popup.active && popup.contentItem.width === popup.width })
        shot(popup, row.tag)
        popup.close()
    }

    function test_08_boxes_data() {
        return boxes.map(function(row) { return { tag: row[0], info: row[1], width: row[2] } })
    }

    function test_08_boxes(row) {
        var stage = createTemporaryObject(stageFixture, test)
        withBox(function() { stage.showBox(row.info) }, function(box) {
            box.width = row.width
            tryCompare(box.contentItem, "width", row.width)
            shot(box, row.tag)
            box.close()
        })
    }

    // Controls ---------------------------------------------------------------------------------

    function test_10_controls_data() {
        var rows = looks.map(function(look) { return { tag: look[0], look: look, state: "" } })
        controls.forEach(function(control) {
            states.forEach(function(state) {
                // An image button shows no focus; disabling a radio button releases it.
                var impossible = control[1] === "ZoImageButton" ? "focused"
                    : control[1] === "ZoRadioButton" ? "disabled while pressed" : ""
                if (state !== impossible) {
                    rows.push({ tag: control[0] + ", " + state, look: control, state: state })
                }
            })
        })
        return rows
    }

    function test_10_controls(row) {
        tryVerify(function() { return test.Window.active })
        var component = Qt.createComponent("qrc:/" + row.look[1] + ".qml")
        var control = createTemporaryObject(component, test, merged({ x: 20, y: 20 }, row.look[2]))
        Object.assign(control, row.look[3] || {})
        if (row.state === "focused") {
            control.forceActiveFocus(Qt.TabFocusReason)
        } else {
            enter(control, row.state)
        }
        shot(control, row.tag)
        leave(control)
    }

    function test_11_links() {
        var label = createTemporaryObject(Qt.createComponent("qrc:/ZoLinkLabel.qml"), test, {
            x: 20, y: 20, originalText: "Enjoy discounted prices to buy other products"
        })
        tryVerify(function() { return test.Window.active })
        shot(label, "link")
        label.forceActiveFocus(Qt.TabFocusReason)
        shot(label, "link, focused")
    }

    function test_12_bars_data() {
        return [{ tag: "0" }, { tag: "1" }, { tag: "37" }, { tag: "99" }, { tag: "100" }]
    }

    function test_12_bars(row) {
        var bar = createTemporaryObject(Qt.createComponent("qrc:/ZoProgressBar.qml"), test, {
            x: 20, y: 20, width: 300
        })
        bar.value = Number(row.tag)
        tryCompare(bar, "value", Number(row.tag))
        shot(bar, "bar at " + row.tag)
    }
}
