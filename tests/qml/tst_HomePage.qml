import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "parts.js" as Parts

// The home page: its frame of title, progress and buttons, and the run of the uninstallation.
TestCase {
    id: test

    property var main: null
    property var insideRun: null
    property var insideBox: null
    property var loading: []

    name: "HomePage"
    when: windowShown
    visible: true
    width: 100
    height: 100

    // Acts inside the nested wait of the box, while the handler of the click is still running.
    Timer {
        id: whenBoxIsUp
        interval: 10
        repeat: true
        onTriggered: {
            var popups = probe.popups()
            if (popups.length === 1) {
                stop()
                test.insideBox(popups[0])
            }
        }
    }

    Connections {
        target: uninstallMgr
        function onUninstallStarted() {
            if (test.insideRun !== null) {
                test.insideRun()
            }
        }
    }

    function init() {
        uninstallMgr.reset()
        insideRun = null
        var component = Qt.createComponent("qrc:/Main.qml")
        compare(component.status, Component.Ready, component.errorString())
        main = component.createObject(null)
        tryCompare(main, "visible", true)
        loading = uninstallMgr.calls
        uninstallMgr.forgetCalls()
    }

    function cleanup() {
        whenBoxIsUp.stop()
        Parts.destroy(test, main)
        main = null
    }

    function part(type) {
        return Parts.all(main.contentItem, type)[0]
    }

    function page() {
        return part("HomePage")
    }

    // Pages have buttons, too: those of the page itself are in its last row.
    function buttonRow() {
        return page().children[page().children.length - 1]
    }

    function uninstallButton() {
        return Parts.all(buttonRow(), "ZoRoundButton")[0]
    }

    function cancelButton() {
        return Parts.all(buttonRow(), "ZoDefaultRoundButton")[0]
    }

    function bar() {
        return part("ZoProgressBar")
    }

    function closeButton() {
        return part("ZoImageButton")
    }

    function progressLabel() {
        return page().children[2]
    }

    // Left, top, right and bottom within the page.
    function edges(item) {
        var origin = item.mapToItem(page(), 0, 0)
        return [origin.x, origin.y, origin.x + item.width, origin.y + item.height]
    }

    function names() {
        return uninstallMgr.calls.map(function(call) { return call[0] })
    }

    function test_layout() {
        compare([page().width, page().height], [576, 368])
        compare(page().clip, true)

        var title = page().children[0]
        compare(edges(title), [0, 0, 576, 48])
        compare(title.text, "Please tell us why you want to uninstall Dravik:")
        compare(title.color.toString(), "#090a0a")
        compare(title.font.pixelSize, 18)
        compare(title.font.weight, Font.DemiBold)
        compare(title.wrapMode, Text.WordWrap)

        compare(edges(cancelButton()), [476, 316, 576, 344])
        compare(edges(uninstallButton()), [356, 316, 456, 344])
        compare(edges(bar()), [0, 298, 576, 302])
        compare(edges(progressLabel())[3], 294)
        compare(edges(progressLabel())[0], 0)
        compare(edges(progressLabel())[2], 576)
        var content = page().children[1]
        compare(edges(content), [0, 78, 576, edges(progressLabel())[1] - 5])
    }

    function test_whatIsAskedForWhileItLoads() {
        var asked = loading.map(function(call) { return call.join(" ") })
        compare(asked.slice().sort(), ["getPreferentialLink 1", "getPreferentialLink 2",
                                       "getReasonList", "showWindowShadow"])
    }

    function test_buttonRow() {
        compare(edges(buttonRow()), [0, 316, 576, 344])
    }

    function test_idle() {
        compare(uninstallButton().text, "Uninstall")
        compare(cancelButton().text, "Cancel")
        compare(uninstallButton().enabled, true)
        compare(cancelButton().enabled, true)
        compare(progressLabel().visible, false)
        compare(bar().visible, false)
        compare(progressLabel().text, "Unistalling\u2026")
        compare(progressLabel().font.pixelSize, 14)
        compare(progressLabel().color.toString(), "#090a0a")
    }

    function test_uninstallButtonIsForTheEndsOfTheBarOnly() {
        uninstallMgr.valProgress = 50
        tryCompare(bar(), "value", 50)
        compare(uninstallButton().enabled, false)
        uninstallMgr.valProgress = 0
        tryCompare(bar(), "value", 0)
        // Exactly 0, which comes a little after what a comparison takes for 0.
        tryCompare(uninstallButton(), "enabled", true)
        uninstallMgr.valProgress = 100
        tryVerify(function() { return bar().value === 100 })
        compare([uninstallButton().enabled, uninstallButton().visible], [true, false])
    }

    function test_uninstallButtonIsNotForAlmostNothing() {
        var disabled = 0
        var enabled = 0
        // Held here: the bar still moves when the window is on its way out.
        var shown = bar()
        var button = uninstallButton()
        function look() {
            if (shown.value > 0 && shown.value < 1) {
                button.enabled ? ++enabled : ++disabled
            }
        }
        shown.valueChanged.connect(look)
        // The way to 1 may be one leap on a busy machine.
        for (var way = 0; way < 20 && disabled + enabled === 0; ++way) {
            uninstallMgr.valProgress = 1
            tryCompare(bar(), "value", 1)
            uninstallMgr.valProgress = 0
            tryCompare(bar(), "value", 0)
        }
        shown.valueChanged.disconnect(look)
        verify(disabled > 0)
        compare(enabled, 0)
    }

    function test_run() {
        var seen = null
        var announced = []
        var pageAt = {}
        page().uninstalling.connect(function(running) {
            announced.push(running)
            uninstallMgr.note("uninstalling " + running)
            pageAt[running] = [
                progressLabel().visible, progressLabel().text, bar().visible,
                cancelButton().enabled, uninstallButton().enabled, uninstallButton().visible
            ]
        })
        insideRun = function() {
            seen = [progressLabel().visible, bar().visible, cancelButton().enabled,
                    uninstallButton().enabled, closeButton().enabled, main.exitCode]
        }
        mouseClick(uninstallButton())
        compare(seen, [true, true, false, false, false, -2])
        compare(main.exitCode, 0)
        compare(announced, [true])
        compare(names(), ["sendUserInfo", "isKTRRunning", "note", "doUninstall"])
        compare(uninstallMgr.callsOf("sendUserInfo")[0],
                ["sendUserInfo", "UninstallPop", "Click_Uninstall", "", ""])

        uninstallMgr.valProgress = 99
        tryCompare(bar(), "value", 99)
        compare([cancelButton().enabled, uninstallButton().enabled, closeButton().enabled],
                [false, false, false])
        compare(progressLabel().text, "Unistalling\u2026")

        uninstallMgr.valProgress = 100
        compare(announced, [true], "complete only when the bar has got there")
        tryVerify(function() { return announced.length > 1 })
        compare(bar().value, 100)
        compare(announced, [true, false])
        // Each announcement comes when the page shows it already.
        compare(pageAt[true], [true, "Unistalling\u2026", true, false, false, true])
        compare(pageAt[false].slice(0, 4), [true, "Unistall complete!", false, true])
        compare(pageAt[false][5], false)
        compare(progressLabel().text, "Unistall complete!")
        compare(progressLabel().color.toString(), "#10a91d")
        compare(progressLabel().visible, true)
        compare([bar().visible, uninstallButton().visible], [false, false])
        compare([cancelButton().enabled, cancelButton().text], [true, "OK"])
        compare(closeButton().enabled, true)
    }

    function test_beyondTheEndIsCompleteToo() {
        uninstallMgr.valProgress = 150
        tryCompare(progressLabel(), "text", "Unistall complete!")
        compare([bar().visible, uninstallButton().visible], [false, false])
    }

    function test_closingAfterCompletion_data() {
        return [{ tag: "OK", button: cancelButton }, { tag: "title bar", button: closeButton }]
    }

    function test_closingAfterCompletion(row) {
        mouseClick(uninstallButton())
        mouseClick(row.button())
        compare([main.visible, uninstallMgr.callsOf("setExitCode")], [true, []], "not before")
        uninstallMgr.valProgress = 100
        tryCompare(row.button(), "enabled", true)
        mouseClick(row.button())
        tryCompare(main, "visible", false)
        compare(uninstallMgr.callsOf("setExitCode"), [["setExitCode", 0]])
    }

    // The click's assignment stays, so a start that fails leaves the button disabled for good.
    function test_failedStartLeavesEverythingDisabled() {
        mouseClick(uninstallButton())
        compare(bar().value, 0)
        compare([cancelButton().enabled, uninstallButton().enabled, closeButton().enabled],
                [false, false, false])
        compare([progressLabel().visible, bar().visible], [true, true])
        uninstallMgr.valProgress = 0
        compare(uninstallButton().enabled, false)
    }

    function test_secondClickIsIgnored() {
        insideRun = function() { mouseClick(uninstallButton()) }
        mouseClick(uninstallButton())
        compare(uninstallMgr.callsOf("doUninstall").length, 1)
    }

    function test_runningProduct() {
        uninstallMgr.ktrRunning = true
        var box = null
        insideBox = function(popup) {
            box = {
                title: popup.title, mainTitle: popup.mainTitle, subTitle: popup.subTitle,
                buttons: Parts.all(popup.contentItem, "ZoDefaultRoundButton").map(function(button) {
                    return button.text
                }),
                others: Parts.all(popup.contentItem, "ZoRoundButton").length,
                ofTheWindow: probe.ownerOf(popup) === main
            }
            uninstallMgr.note("box is up")
            popup.close()
        }
        whenBoxIsUp.start()
        mouseClick(uninstallButton())
        compare(box, {
            title: "Warning",
            mainTitle: "Uninstall has detected that Torvan Dravik is currently running.",
            subTitle: "Please close all instances and try again.",
            buttons: ["OK"],
            others: 0,
            ofTheWindow: true
        })
        compare(names(), ["sendUserInfo", "isKTRRunning", "popMsgBox", "note", "popMsgBox"])
        compare(main.exitCode, -2)
        compare([cancelButton().enabled, uninstallButton().enabled, closeButton().enabled],
                [true, true, true])
        compare([progressLabel().visible, bar().visible], [false, false])
    }

    function test_everyTryIsReported() {
        var reported = ["sendUserInfo", "UninstallPop", "Click_Uninstall", "", ""]
        uninstallMgr.ktrRunning = true
        insideBox = function(popup) { popup.close() }
        for (var tries = 1; tries <= 2; ++tries) {
            whenBoxIsUp.start()
            mouseClick(uninstallButton())
            compare(uninstallMgr.callsOf("sendUserInfo").length, tries)
        }
        uninstallMgr.ktrRunning = false
        mouseClick(uninstallButton())
        compare(uninstallMgr.callsOf("sendUserInfo"), [reported, reported, reported])
        compare(uninstallMgr.callsOf("isKTRRunning").length, 3)
        compare(uninstallMgr.callsOf("doUninstall").length, 1)
    }
}
