import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var described: ({
        width: 480, height: 240, topMargin: 32, radius: 4, result: -1, mainTitle: "",
        subTitle: "", icon: "qrc:/ico_info48.png", title: "", visible: true
    })
    readonly property var colours: ({ bgColor: "#ffffff", titleColor: "#f0f2f5" })
    readonly property var look: ({
        text: "#555b66", pixelSize: 14, icon: 48, textGap: 16, textTop: 5, subGap: 13,
        textWidth: 336
    })
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
            try {
                test.inside(boxes[0])
            } catch (error) {
                test.problem = error
                boxes[0].close()
            }
        }
    }

    function init() {
        uninstallMgr.reset()
        problem = null
        stage = createTemporaryObject(plainStage, test)
    }

    // Shows a box and lets `act`, which has to close it, work on it meanwhile.
    function ask(info, act, parent) {
        inside = act
        actor.start()
        var answer = stage.showBox(info, parent)
        if (problem) {
            throw problem
        }
        compare(probe.popups().length, 0)
        return answer
    }

    function waits() {
        return uninstallMgr.callsOf("popMsgBox")
    }

    function background(box) { return box.contentItem.children[0] }
    function closeButton(box) { return Parts.all(box.contentItem, "ZoImageButton")[0] }
    function row(box) { return Parts.all(box.contentItem, "RowLayout")[0] }

    function rowButtons(box) {
        return Array.from(row(box).children).slice(1).filter(function(button) {
            return button.visible
        })
    }

    function body(box) {
        return Array.from(background(box).children).filter(function(child) {
            return child.sourceComponent !== undefined
        })[0].item
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
            var rect = body(box)
            verify(Qt.colorEqual(rect.color, colours.bgColor))
            compare(rect.mapToItem(background(box), 0, 0).x, 32)
            compare(rect.mapToItem(background(box), 0, 0).y, 32 + 32)
            var icon = rect.children[0]
            compare([icon.x, icon.y, icon.width, icon.height], [0, 0, look.icon, look.icon])
            compare(icon.source, described.icon)
            compare(icon.status, Image.Ready)
            compare(Parts.all(rect, "Text").length, 2)
            Parts.all(rect, "Text").forEach(function(text) {
                compare(text.font.pixelSize, look.pixelSize)
                verify(Qt.colorEqual(text.color, look.text))
                compare(text.textFormat, Text.RichText)
                compare(text.wrapMode, Text.WordWrap)
                compare(text.width, look.textWidth)
                compare(text.x, look.icon + look.textGap)
            })
            var main = Parts.all(rect, "Text")[0]
            var sub = Parts.all(rect, "Text")[1]
            compare(main.text, "Main")
            compare(main.y, look.textTop)
            compare(sub.text, "Sub")
            compare(sub.y, main.y + main.height + look.subGap)
            box.close()
        })
    }

    function test_longMainTextWraps() {
        ask({ mainTitle: longText, subTitle: "Sub" }, function(box) {
            var main = Parts.all(body(box), "Text")[0]
            verify(main.contentHeight > 2 * look.pixelSize, main.contentHeight)
            verify(main.contentWidth <= look.textWidth, main.contentWidth)
            var sub = Parts.all(body(box), "Text")[1]
            compare(sub.y, main.y + main.height + look.subGap)
            box.close()
        })
    }

    function test_widerBoxHasMoreRoom() {
        ask({ mainTitle: longText }, function(box) {
            box.width = 600
            tryCompare(Parts.all(body(box), "Text")[0], "width", 600 - 3 * 32 - 48)
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
        compare(waits().length, 2)
    }

    // An empty field is no absent one.
    function test_emptyFields() {
        ask({ title: "", mainTitle: "", subTitle: "", icon: "", buttons: [] }, function(box) {
            compare([box.title, box.mainTitle, box.subTitle], ["", "", ""])
            compare(box.icon.toString(), "")
            compare(row(box).visible, false)
            var icon = body(box).children[0]
            compare(icon.status, Image.Null)
            compare(Parts.all(body(box), "Text")[0].x, look.icon + look.textGap)
            box.close()
        })
    }

    function test_threeButtons() {
        ask({ buttons: ["Yes", "No", "Cancel"], defaultIdx: 2 }, function(box) {
            var buttons = rowButtons(box)
            compare(buttons.length, 3)
            tryVerify(function() { return buttons[2].x + buttons[2].width === 480 - 32 })
            compare(buttons[2].x - buttons[1].x - buttons[1].width, 16)
            compare(buttons[1].x - buttons[0].x - buttons[0].width, 16)
            verify(Qt.colorEqual(buttons[0].bgColor, "#1F6FFF"))
            verify(Qt.colorEqual(buttons[1].bgColor, "#E0EAFC"))
            verify(Qt.colorEqual(buttons[2].bgColor, "#E0EAFC"))
            compare(row(box).y + row(box).height, 240 - 20)
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
        var before = -2
        var answer = ask({ buttons: ["Yes", "No", "Cancel"] }, function(box) {
            tryVerify(function() { return rowButtons(box)[2].x > 300 })
            before = waits().length
            data.act(box)
        })
        compare(answer, -1)
        compare(before, 1)
        compare(waits(), [["popMsgBox", true, -1], ["popMsgBox", false, -1]])
    }

    function test_otherKeysDoNotClose() {
        ask({ buttons: ["OK"] }, function(box) {
            keyClick(Qt.Key_A)
            keyClick(Qt.Key_Space)
            probe.repeatKey(box, Qt.Key_Return) // still held down from opening the box
            probe.repeatKey(box, Qt.Key_Escape)
            wait(0)
            compare(waits().length, 1)
            compare(box.visible, true)
            keyPress(Qt.Key_Escape)
        })
    }

    function test_aSecondBoxAfterTheFirst() {
        for (var i = 0; i < 3; ++i) {
            compare(ask({ buttons: ["OK"] }, function(box) { box.close() }), -1)
        }
        compare(waits().length, 6)
    }

    function test_resultIsHandedOver() {
        var answer = ask({ buttons: ["OK"] }, function(box) {
            box.result = 5
            box.close()
        })
        compare(waits()[1], ["popMsgBox", false, 5])
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
            box.close()
        })
        var order = uninstallMgr.calls.map(function(call) { return call[0] + " " + call[1] })
        compare(order.slice(0, 2), ["note notifyPopup true true", "popMsgBox true"])
        verify(order.indexOf("popMsgBox false") > 1, order)
        verify(order.indexOf("note notifyPopup true false") > 1, order)
    }

    function test_accessible() {
        ask({ title: "Warning", mainTitle: "Main", buttons: ["OK"] }, function(box) {
            compare(probe.accessible(background(box)).role, Accessible.Dialog)
            compare(probe.accessible(background(box)).name, "Warning")
            compare(probe.accessible(Parts.all(body(box), "Text")[0]).name, "Main")
            compare(probe.accessible(rowButtons(box)[0]).name, "OK")
            box.close()
        })
    }
}
