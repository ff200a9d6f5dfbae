import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "qrc:/public.js" as Public
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var described: ({
        width: 480, height: 240, topMargin: 32, radius: 4, result: -1, mainTitle: "",
        subTitle: "", icon: "qrc:/ico_info48.png", title: "", visible: true
    })
    readonly property var colours: ({ bgColor: "#ffffff", titleColor: "#f0f2f5" })
    readonly property string longText: "A main text which is certainly a good deal longer than the "
                                       + "three hundred and thirty-six pixels of one line."

    property var stage: null
    property var inside: null
    property var problem: null

    name: "ZoMessageBox"
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

    // Acts from inside the wait, as soon as the box has the keyboard.
    Timer {
        id: actor
        interval: 5
        repeat: true
        onTriggered: {
            var boxes = probe.popups()
            if (boxes.length === 0 || !boxes[0].active
                    || boxes[0].contentItem.width !== boxes[0].width) {
                return
            }
            stop()
            guard.start()
            try {
                test.inside(boxes[0])
            } catch (error) {
                test.problem = error
                boxes[0].close()
            }
        }
    }

    // Without it, a wait that does not end would end with the time limit of the whole file.
    Timer {
        id: guard
        interval: 20000
        onTriggered: {
            test.problem = new Error("the wait goes on after the box has gone")
            uninstallMgr.popMsgBox(false)
        }
    }

    function init() {
        fake.reset()
        problem = null
        stage = createTemporaryObject(plainStage, test)
    }

    // Shows a box and lets `act`, which has to close it, work on it meanwhile.
    function ask(info, act, parent) {
        inside = act
        actor.start()
        var answer = stage.showBox(info, parent)
        guard.stop()
        if (problem) {
            throw problem
        }
        compare(probe.popups().length, 0)
        return answer
    }

    function part(box, name) { return findChild(box.contentItem, name) }
    function closeButton(box) { return part(box, "closeButton") }
    function row(box) { return part(box, "buttonRow") }

    function rowButtons(box) {
        return Parts.named(row(box), /^button\d/).filter(function(button) {
            return button.visible
        })
    }

    function test_defaults() {
        ask({}, function(box) {
            for (var name in described) {
                compare(box[name], described[name], name)
            }
            for (name in colours) {
                verify(Qt.colorEqual(box[name], colours[name]), name)
            }
            box.close()
        })
    }

    function test_content() {
        ask({ mainTitle: "Main", subTitle: "Sub" }, function(box) {
            verify(Qt.colorEqual(part(box, "messageBoxBody").color, colours.bgColor))
            var icon = part(box, "messageBoxIcon")
            compare(icon.source, described.icon)
            compare(icon.status, Image.Ready)
            compare(icon.Accessible.ignored, true)
            compare(part(box, "mainTitleText").text, "Main")
            compare(part(box, "subTitleText").text, "Sub")
            box.close()
        })
    }

    function test_longTextsWrap() {
        ask({ mainTitle: longText, subTitle: longText }, function(box) {
            var main = part(box, "mainTitleText")
            var sub = part(box, "subTitleText")
            ;[main, sub].forEach(function(text) {
                verify(text.contentHeight > 2 * text.font.pixelSize, text.contentHeight)
                verify(text.contentWidth <= text.width, text.contentWidth)
                compare(text.textFormat, Text.RichText)
            })
            compare(sub.width, main.width)
            verify(sub.y > main.y + main.height)
            box.close()
        })
    }

    function test_widerBoxHasMoreRoom() {
        ask({ mainTitle: longText }, function(box) {
            box.width = 600
            tryCompare(part(box, "mainTitleText"), "width", 600 - 3 * 32 - 48)
            box.close()
        })
    }

    function test_fields() {
        ask({
            title: "Warning", mainTitle: "Main", subTitle: "Sub", buttons: ["OK"],
            icon: "qrc:/pic_gift.png", height: 300, defaultIdx: 1
        }, function(box) {
            compare(box.title, "Warning")
            compare(box.mainTitle, "Main")
            compare(box.subTitle, "Sub")
            compare(box.icon, "qrc:/pic_gift.png")
            compare(box.height, 300)
            compare(box.defaultIndex, 0)
            compare(rowButtons(box).length, 1)
            box.close()
        })
    }

    function test_absentFields_data() {
        return [
            { tag: "empty", info: {} },
            { tag: "undefined", info: undefined },
            { tag: "null", info: null },
            { tag: "fields null", info: { title: null, icon: null, height: null, buttons: null } }
        ]
    }

    function test_absentFields(data) {
        ask(data.info, function(box) {
            compare(box.title, "")
            compare(box.icon, described.icon)
            compare(box.height, 240)
            compare(row(box).visible, false)
            mouseClick(closeButton(box))
        })
    }

    // An empty icon is assigned; an empty height, which is no number, is ignored.
    function test_emptyFields() {
        ask({ icon: "", height: "" }, function(box) {
            compare(box.icon.toString(), "")
            compare(box.height, 240)
            var icon = part(box, "messageBoxIcon")
            compare(icon.status, Image.Null)
            verify(part(box, "mainTitleText").x > icon.width, "its place stays free")
            box.close()
        })
    }

    function test_theFirstOfThreeButtonsIsTheDefault() {
        ask({ buttons: ["Yes", "No", "Cancel"], defaultIdx: 2 }, function(box) {
            compare(rowButtons(box).map(function(button) {
                return [button.text, Qt.colorEqual(button.bgColor, Public.drpInfo.bgColor.normal)]
            }), [["Yes", true], ["No", false], ["Cancel", false]])
            box.close()
        })
    }

    function test_buttonsTwice() {
        ask({ buttons: ["One", "Two"] }, function(box) {
            box.setButtons(["Three"])
            var button = rowButtons(box)[0]
            compare(rowButtons(box).length, 1)
            compare(button.text, "Three")
            tryVerify(function() { return button.x + button.width === 480 - 32 })
            mouseClick(button)
        })
    }

    // Keys that close are only pressed: by the time of the release, the window is gone.
    function test_ways_data() {
        return [
            { tag: "first button", act: function(box) { mouseClick(rowButtons(box)[0]) } },
            { tag: "last button", act: function(box) { mouseClick(rowButtons(box)[2]) } },
            { tag: "close button", act: function(box) { mouseClick(closeButton(box)) } },
            { tag: "window manager", act: function(box) { probe.closeBySystem(box) } },
            { tag: "Escape", act: function(box) { keyPress(Qt.Key_Escape) } },
            { tag: "Return", act: function(box) { keyPress(Qt.Key_Return) } },
            { tag: "Enter", act: function(box) { keyPress(Qt.Key_Enter) } },
            { tag: "Escape on a button", act: function(box) {
                keyClick(Qt.Key_Tab)
                compare(rowButtons(box)[0].activeFocus, true)
                keyPress(Qt.Key_Escape)
            } },
            { tag: "Space on a button", act: function(box) {
                keyClick(Qt.Key_Tab)
                keyClick(Qt.Key_Space)
            } },
            { tag: "assistive tool on the close button", act: function(box) {
                verify(probe.pressAccessible(closeButton(box)))
            } },
            { tag: "Escape in a box without a tab stop", act: function(box) {
                box.setButtons([])
                wait(0)
                keyClick(Qt.Key_Tab)
                keyClick(Qt.Key_Space)
                compare(box.visible, true)
                keyPress(Qt.Key_Escape)
            } },
            { tag: "twice at once", act: function(box) {
                box.close()
                box.close()
            } }
        ]
    }

    // Whatever closes the box: the wait ends once, only then, and always with -1.
    function test_ways(data) {
        var answer = ask({ buttons: ["Yes", "No", "Cancel"] }, function(box) {
            tryVerify(function() { return rowButtons(box)[2].x > 300 })
            compare(fake.calls("popMsgBox"), ["true"])
            data.act(box)
        })
        compare(answer, -1)
        compare(fake.calls("popMsgBox"), ["true", "false,-1"])
    }

    function test_otherKeysDoNotClose() {
        ask({ buttons: ["OK"] }, function(box) {
            keyClick(Qt.Key_A)
            keyClick(Qt.Key_Space)
            probe.repeatKey(box, Qt.Key_Return) // still held down from opening the box
            probe.repeatKey(box, Qt.Key_Escape)
            wait(0)
            compare(box.visible, true)
            keyPress(Qt.Key_Escape)
        })
    }

    function test_aSecondBoxAfterTheFirst() {
        for (var i = 0; i < 3; ++i) {
            compare(ask({ buttons: ["OK"] }, function(box) { box.close() }), -1)
        }
    }

    function test_resultIsHandedOver() {
        var answer = ask({ buttons: ["OK"] }, function(box) {
            box.result = 5
            box.close()
        })
        compare(answer, 5)
    }

    function test_centredOnTheMainWindow_data() {
        return [
            { tag: "default height", height: undefined },
            // The height is copied after the box has been shown and centred.
            { tag: "other height", height: 340 }
        ]
    }

    function test_centredOnTheMainWindow(data) {
        stage.x = 150
        stage.y = 110
        ask({ height: data.height }, function(box) {
            compare(box.x, 150 + (640 - 480) / 2)
            compare(box.y, 110 + (408 - 240) / 2)
            box.close()
        })
    }

    function test_blocksTheMainWindow() {
        ask({}, function(box) {
            compare(box.modality, Qt.ApplicationModal)
            compare(box.transientParent, stage)
            probe.click(stage, 5, 5)
            box.close()
        })
        compare(stage.clicks, 0)
        probe.click(stage, 5, 5)
        compare(stage.clicks, 1)
    }

    function test_parent() {
        var item = createTemporaryQmlObject("import QtQuick 2.14; Item {}", stage.contentItem)
        ask({}, function(box) {
            compare(box.transientParent, stage)
            compare(probe.ownerOf(box), item)
            box.close()
        }, item)
        ask({}, function(box) {
            compare(probe.ownerOf(box), stage)
            box.close()
        })
    }

    function test_order() {
        stage = createTemporaryObject(hookedStage, test)
        ask({ buttons: ["OK"] }, function(box) {
            compare(box.radius, 4)
            compare(fake.askedOf("note"), ["notifyPopup true true"])
            box.close()
        })
        verify(fake.askedOf("note").indexOf("notifyPopup true false") > 0)
    }

    function test_accessible() {
        var info = { title: "Warning", mainTitle: "Main", subTitle: "Sub", buttons: ["OK"] }
        ask(info, function(box) {
            var dialog = probe.accessible(part(box, "popupBackground"))
            compare([dialog.role, dialog.name], [Accessible.Dialog, "Warning"])
            compare(probe.accessible(part(box, "mainTitleText")).name, "Main")
            compare(probe.accessible(part(box, "subTitleText")).name, "Sub")
            compare(probe.accessible(rowButtons(box)[0]).name, "OK")
            box.close()
        })
    }
}
