import QtQuick 2.14
import QtQuick.Window 2.14
import QtTest 1.15
import "parts.js" as Parts

// The home page: its frame of title, progress and buttons, and the run of the uninstallation.
TestCase {
    id: test

    readonly property var clicked: [Parts.event("UninstallPop", "Click_Uninstall"), "ask KTRUI.exe"]

    property var main: null
    property var insideStart: null
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

    // Acts while the uninstaller is being started.
    Connections {
        target: fake
        function onAsking(entry) {
            if (test.insideStart !== null && entry.indexOf("start ") === 0) {
                test.insideStart()
            }
        }
    }

    function init() {
        fake.reset()
        insideStart = null
        fake.kernelVersion = "10.0.19045"
        var component = Qt.createComponent("qrc:/Main.qml")
        compare(component.status, Component.Ready, component.errorString())
        main = component.createObject(null)
        tryCompare(main, "visible", true)
        loading = fake.asked
        fake.forget()
    }

    function cleanup() {
        whenBoxIsUp.stop()
        Parts.destroy(test, main)
        main = null
    }

    function part(name) { return findChild(main.contentItem, name) }
    function page() { return part("homePage") }
    function uninstallButton() { return part("uninstallButton") }
    function cancelButton() { return part("cancelButton") }
    function bar() { return part("progressBar") }
    function closeButton() { return part("closeButton") }
    function progressLabel() { return part("progressLabel") }

    // Uninstall, Cancel and the cross in the title bar.
    function enabled() {
        return [uninstallButton(), cancelButton(), closeButton()].map(function(button) {
            return button.enabled
        })
    }

    // The start of the uninstaller, without its folder.
    function started() {
        return fake.askedOf("start").map(function(start) {
            return start.replace(/^.*\/(?=uninstall)/, "")
        })
    }

    function test_whatIsAskedForWhileItLoads() {
        var words = loading.map(function(asked) { return asked.split(" ")[0] })
        compare(words.sort(), ["shadow?", "tag", "text", "text", "text", "text"], "two offers")
    }

    function test_theTitleWraps() {
        compare(part("titleLabel").wrapMode, Text.WordWrap)
        compare(page().clip, true)
    }

    function test_idle() {
        compare(uninstallButton().text, "Uninstall")
        compare(cancelButton().text, "Cancel")
        compare(enabled(), [true, true, true])
        compare(progressLabel().visible, false)
        compare(bar().visible, false)
        compare(progressLabel().text, "Unistalling\u2026")
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
        var announced = []
        var pageAt = {}
        page().uninstalling.connect(function(running) {
            announced.push(running)
            fake.note("uninstalling " + running)
            pageAt[running] = [progressLabel().visible, progressLabel().text, bar().visible,
                               cancelButton().enabled, uninstallButton().visible]
        })
        var seen = null
        insideStart = function() {
            seen = [progressLabel().visible, bar().visible].concat(enabled(), main.exitCode)
        }
        fake.running = ["uninstall.exe"]
        mouseClick(uninstallButton())
        compare(seen, [true, true, false, false, false, -2])
        compare(main.exitCode, 0)
        compare(announced, [true])
        compare(fake.asked.slice(0, 3), clicked.concat("note uninstalling true"))
        compare(started(), ["uninstall.exe [/SP-|/VERYSILENT]"])
        tryVerify(function() { return bar().value > 1 })

        uninstallMgr.valProgress = 98
        tryCompare(bar(), "value", 99)
        compare(enabled(), [false, false, false])
        compare(progressLabel().text, "Unistalling\u2026")
        fake.forget()
        tryVerify(function() { return fake.asked.length > 2 })
        compare(uninstallMgr.valProgress, 99, "it waits for the uninstaller's end")

        var atTheEnd = null
        uninstallMgr.sigValProgressChanged.connect(function() {
            atTheEnd = [uninstallMgr.valProgress].concat(announced)
        })
        fake.running = []
        tryCompare(announced, "length", 2)
        compare(atTheEnd, [100, true], "complete only when the bar has got there")
        compare(bar().value, 100)
        compare(announced, [true, false])
        // Each announcement comes when the page shows it already.
        compare(pageAt[true], [true, "Unistalling\u2026", true, false, true])
        compare(pageAt[false], [true, "Unistall complete!", false, true, false])
        compare(progressLabel().text, "Unistall complete!")
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
        fake.running = ["uninstall.exe"]
        mouseClick(uninstallButton())
        mouseClick(row.button())
        compare([main.visible, fake.exitCode], [true, -10], "not before")
        fake.running = []
        tryCompare(row.button(), "enabled", true)
        mouseClick(row.button())
        tryCompare(main, "visible", false)
        compare(fake.exitCode, 0)
    }

    // The click's assignment stays, so a start that fails leaves the button disabled for good.
    function test_failedStartLeavesEverythingDisabled() {
        mouseClick(uninstallButton())
        compare(fake.askedOf("ask").length, 1 + 25)
        compare(bar().value, 0)
        compare(enabled(), [false, false, false])
        compare([progressLabel().visible, bar().visible], [true, true])
        compare([main.exitCode, fake.exitCode], [0, -10])
        uninstallMgr.valProgress = 0
        compare(uninstallButton().enabled, false)
    }

    function test_secondClickIsIgnored() {
        insideStart = function() { mouseClick(uninstallButton()) }
        mouseClick(uninstallButton())
        compare(started().length, 1)
    }

    function test_runningProduct() {
        fake.running = ["KTRUI.exe"]
        var box = null
        insideBox = function(popup) {
            box = {
                title: popup.title, mainTitle: popup.mainTitle, subTitle: popup.subTitle,
                buttons: Parts.named(popup.contentItem, /^button\d/).map(function(button) {
                    return button.text
                }),
                ofTheWindow: probe.ownerOf(popup) === main
            }
            fake.note("box is up")
            popup.close()
        }
        whenBoxIsUp.start()
        mouseClick(uninstallButton())
        compare(box, {
            title: "Warning",
            mainTitle: "Uninstall has detected that Torvan Dravik is currently running.",
            subTitle: "Please close all instances and try again.",
            buttons: ["OK"],
            ofTheWindow: true
        })
        compare(fake.asked, clicked.concat("note box is up"))
        compare(main.exitCode, -2)
        compare(enabled(), [true, true, true])
        compare([progressLabel().visible, bar().visible], [false, false])
    }

    function test_everyTryIsReported() {
        fake.running = ["KTRUI.exe"]
        insideBox = function(popup) { popup.close() }
        for (var tries = 1; tries <= 2; ++tries) {
            whenBoxIsUp.start()
            mouseClick(uninstallButton())
            compare(fake.asked, clicked)
            fake.forget()
        }
        fake.running = []
        mouseClick(uninstallButton())
        compare(fake.asked.slice(0, 2), clicked)
        compare(started().length, 1)
    }

}
