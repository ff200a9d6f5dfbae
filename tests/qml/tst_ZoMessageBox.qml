import QtQuick 2.14
import QtTest 1.15

// The message box: the fields that its caller sets, and how the caller's wait ends. Reference
// images check its looks.
InterfaceTest {
    id: test

    property var stage: null
    property var box: null

    name: "ZoMessageBox"

    Component {
        id: stageFixture
        Stage {}
    }

    function prepare() {
        stage = createTemporaryObject(stageFixture, test)
    }

    // Shows a box and calls `act`, which must close it.
    function ask(info, act, parent) {
        return withBox(() => stage.showBox(info, parent), (shown) => {
            box = shown
            act()
        })
    }

    function inBox(name) { return findChild(box.contentItem, name) }

    function buttons() {
        return named(inBox("buttonRow"), /^button\d/).filter((button) => button.visible)
    }

    function test_theCallerSetsTheFields_data() {
        var none = { title: "", mainTitle: "", subTitle: "", icon: "qrc:/ico_info48.png",
                     height: 240 }
        var given = { title: "Warning", mainTitle: "Main", subTitle: "Sub",
                      icon: "qrc:/pic_gift.png",
                      height: 300 }
        return [
            { tag: "empty", info: {}, expected: none },
            { tag: "undefined", info: undefined, expected: none },
            { tag: "null", info: null, expected: none },
            { tag: "fields null", info: { title: null, icon: null, height: null, buttons: null },
              expected: none },
            { tag: "given", info: Object.assign({ defaultIdx: 1 }, given), expected: given },
            // An empty icon is assigned; an empty height is not a number and is ignored.
            { tag: "fields empty", info: { icon: "", height: "" },
              expected: { icon: "", height: 240 } }
        ]
    }

    function test_theCallerSetsTheFields(row) {
        ask(row.info, () => {
            compareAll(box, row.expected)
            compareAll(box, { width: 480, modality: Qt.ApplicationModal, transientParent: stage,
                              result: -1, defaultIndex: 0 })
            compare(inBox("buttonRow").visible, false)
            compare(String(inBox("messageBoxIcon").source), row.expected.icon)
            compare([box.x, box.y], [60 + (640 - 480) / 2, 40 + (408 - 240) / 2],
                    "centred before its height is set")
            box.close()
        })
    }

    // A key whose press closes the box is not released: the window is destroyed by then.
    function test_everyWayToCloseEndsTheWait_data() {
        return [
            { tag: "first button", act: () => mouseClick(buttons()[0]) },
            { tag: "last button", act: () => mouseClick(buttons()[2]) },
            { tag: "close button", act: () => mouseClick(inBox("closeButton")) },
            { tag: "window manager", act: () => probe.closeBySystem(box) },
            { tag: "Escape", act: () => keyPress(Qt.Key_Escape) },
            { tag: "Return", act: () => keyPress(Qt.Key_Return) },
            { tag: "Enter", act: () => keyPress(Qt.Key_Enter) },
            { tag: "Escape on a button", act: () => {
                keyClick(Qt.Key_Tab)
                compare(buttons()[0].activeFocus, true)
                keyPress(Qt.Key_Escape)
            } },
            { tag: "Space on a button", act: () => {
                keyClick(Qt.Key_Tab)
                keyClick(Qt.Key_Space)
            } },
            { tag: "assistive tool on the close button", act: () => {
                verify(probe.pressAccessible(inBox("closeButton")))
            } },
            { tag: "Escape in a box without a tab stop", act: () => {
                box.setButtons([])
                wait(0)
                keyClick(Qt.Key_Tab)
                keyClick(Qt.Key_Space)
                compare(box.visible, true)
                keyPress(Qt.Key_Escape)
            } },
            { tag: "twice at once", act: () => {
                box.close()
                box.close()
            } },
            { tag: "with a result", act: () => {
                box.result = 5
                box.close()
            }, answer: 5 }
        ]
    }

    // The wait ends exactly once, when the box closes, with -1 unless a result was set.
    function test_everyWayToCloseEndsTheWait(row) {
        var expected = row.answer || -1
        var answer = ask({ buttons: ["Yes", "No", "Cancel"] }, () => {
            tryVerify(() => buttons()[2].x > 300)
            compare(fake.calls("popMsgBox"), ["true"])
            row.act()
        })
        compare(answer, expected)
        compare(fake.calls("popMsgBox"), ["true", "false," + expected])
    }

    function test_otherKeysDoNotClose() {
        ask({ buttons: ["OK"] }, () => {
            keyClick(Qt.Key_A)
            keyClick(Qt.Key_Space)
            probe.repeatKey(box, Qt.Key_Return) // the key that opened the box is still held down
            probe.repeatKey(box, Qt.Key_Escape)
            wait(0)
            compare(box.visible, true)
            keyPress(Qt.Key_Escape)
        })
        // A second box works after the first.
        compare(ask({ buttons: ["OK"] }, () => box.close()), -1)
    }

    function test_buttonsCanBeReplaced() {
        ask({ buttons: ["One", "Two"] }, () => {
            box.setButtons(["Three"])
            compare(buttons().map((button) => button.text), ["Three"])
            tryVerify(() => buttons()[0].x + buttons()[0].width === 480 - 32)
            mouseClick(buttons()[0])
        })
    }

    function test_theBoxBlocksTheMainWindow() {
        ask({}, () => {
            probe.click(stage, 5, 5)
            box.close()
        })
        compare(stage.clicks, 0)
        probe.click(stage, 5, 5)
        compare(stage.clicks, 1)
    }

    function test_theParentOwnsTheBox() {
        var item = createTemporaryQmlObject("import QtQuick 2.14; Item {}", stage.contentItem)
        ;[item, undefined].forEach((parent) => {
            ask({}, () => {
                compare(probe.ownerOf(box), parent || stage)
                box.close()
            }, parent)
        })
    }

    function test_theBoxOverABlurredWindowHasRoundCorners() {
        stage.blur = 8
        ask({}, () => {
            compare([box.radius].concat(notes()), [4, "notifyPopup  true"])
            box.close()
        })
        verify(notes().indexOf("notifyPopup  false") > 0)
    }

    function test_assistiveToolsReadTheTextsAndButtons() {
        ask({ title: "Warning", mainTitle: "Main", subTitle: "Sub", buttons: ["OK"] }, () => {
            var dialog = probe.accessible(inBox("popupBackground"))
            compare([dialog.role, dialog.name], [Accessible.Dialog, "Warning"])
            compare([inBox("mainTitleText"), inBox("subTitleText"), buttons()[0]]
                        .map((item) => probe.accessible(item).name), ["Main", "Sub", "OK"])
            compare(inBox("messageBoxIcon").Accessible.ignored, true)
            box.close()
        })
    }
}
