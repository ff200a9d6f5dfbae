import QtQuick 2.14
import QtTest 1.15

// The home page: title, progress bar and buttons, and the uninstallation from start to end.
InterfaceTest {
    id: test

    readonly property var clicked: [event("UninstallPop", "Click_Uninstall"), "ask KTRUI.exe"]

    property var insideStart: null

    name: "HomePage"

    // Calls `insideStart` while the uninstaller is being started.
    Connections {
        target: fake
        function onAsking(entry) {
            if (test.insideStart !== null && entry.indexOf("start ") === 0) {
                test.insideStart()
            }
        }
    }

    function prepare() {
        insideStart = null
        openMain()
        fake.forget()
    }

    function bar() { return part("progressBar") }
    function start() { mouseClick(part("uninstallButton")) }

    // Whether Uninstall, Cancel and the close button are enabled, and whether label, bar and
    // Uninstall are visible.
    function state() {
        return ["uninstallButton", "cancelButton", "closeButton"].map((name) => part(name).enabled)
            .concat(["progressLabel", "progressBar",
                     "uninstallButton"].map((name) => part(name).visible))
    }

    function texts() {
        return ["progressLabel", "uninstallButton", "cancelButton"].map((name) => part(name).text)
    }

    // The starts of the uninstaller, without its folder.
    function started() {
        return fake.askedOf("start").map((start) => start.replace(/^.*\/(?=uninstall)/, ""))
    }

    function test_theIdlePageShowsBothButtonsAndNoBar() {
        compare(texts(), ["Unistalling\u2026", "Uninstall", "Cancel"])
        compare(state(), [true, true, true, false, false, true])
    }

    function test_uninstallButtonIsDisabledDuringTheProgressAndHiddenAtTheEnd() {
        uninstallMgr.valProgress = 50
        tryCompare(bar(), "value", 50)
        compare(part("uninstallButton").enabled, false)
        uninstallMgr.valProgress = 0
        tryCompare(bar(), "value", 0)
        // It is enabled at exactly 0, a little after the value that tryCompare accepts as 0.
        tryCompare(part("uninstallButton"), "enabled", true)
        uninstallMgr.valProgress = 100
        tryVerify(() => bar().value === 100)
        compare([part("uninstallButton").enabled, part("uninstallButton").visible], [true, false])
    }

    function test_uninstallButtonIsDisabledBetweenZeroAndOne() {
        var seen = { true: 0, false: 0 }
        // A local reference: the bar still moves while the window closes.
        var shown = bar()
        var button = part("uninstallButton")
        function look() {
            if (shown.value > 0 && shown.value < 1) {
                ++seen[button.enabled]
            }
        }
        shown.valueChanged.connect(look)
        // On a busy machine the animation to 1 may be a single step.
        for (var attempt = 0; attempt < 20 && seen[true] + seen[false] === 0; ++attempt) {
            uninstallMgr.valProgress = 1
            tryCompare(bar(), "value", 1)
            uninstallMgr.valProgress = 0
            tryCompare(bar(), "value", 0)
        }
        shown.valueChanged.disconnect(look)
        verify(seen[false] > 0)
        compare(seen[true], 0)
    }

    function test_uninstallationRunsToTheEnd() {
        var announced = []
        var pageAt = {}
        part("homePage").uninstalling.connect((running) => {
            announced.push(running)
            fake.note("uninstalling " + running)
            // Without the close button: the title bar handles this signal later.
            pageAt[running] = state().filter((_, i) => i !== 2).concat(texts())
        })
        var inside = null
        insideStart = () => {
            // The uninstaller removes the files of Qt Quick Controls that pages need.
            var created = named(part("homePage"), /^(couponImage|feedbackText)$/).length
            inside = state().concat(main.exitCode, created)
        }
        fake.running = ["uninstall.exe"]
        start()
        compare(inside, [false, false, false, true, true, true, -2, 4])
        compare(main.exitCode, 0)
        compare(announced, [true])
        compare(fake.asked.slice(0, 3), clicked.concat("note uninstalling true"))
        compare(started(), ["uninstall.exe [/SP-|/VERYSILENT]"])
        tryVerify(() => bar().value > 1)

        uninstallMgr.valProgress = 98
        tryCompare(bar(), "value", 99)
        compare(state(), [false, false, false, true, true, true])
        fake.forget()
        tryVerify(() => fake.asked.length > 2)
        compare(uninstallMgr.valProgress, 99, "the bar waits for the uninstaller's end")

        var atTheEnd = null
        uninstallMgr.sigValProgressChanged.connect(() => {
            atTheEnd = [uninstallMgr.valProgress].concat(announced)
        })
        fake.running = []
        tryCompare(announced, "length", 2)
        compare(atTheEnd, [100, true], "complete only after the bar has reached 100")
        compare(bar().value, 100)
        // Each signal is sent after the page has changed.
        compare(pageAt[true],
                [false, false, true, true, true, "Unistalling\u2026", "Uninstall", "Cancel"])
        compare(pageAt[false],
                [false, true, true, false, false, "Unistall complete!", "Uninstall", "OK"])
        compare(state(), [false, true, true, true, false, false])
    }

    function test_progressAbove100IsComplete() {
        uninstallMgr.valProgress = 150
        tryCompare(part("progressLabel"), "text", "Unistall complete!")
        compare(state().slice(4), [false, false])
    }

    function test_theButtonsCloseAfterCompletionOnly_data() {
        return [{ tag: "cancelButton" }, { tag: "closeButton" }]
    }

    function test_theButtonsCloseAfterCompletionOnly(row) {
        fake.running = ["uninstall.exe"]
        start()
        mouseClick(part(row.tag))
        compare([main.visible, fake.exitCode], [true, -10], "not before")
        fake.running = []
        tryCompare(part(row.tag), "enabled", true)
        mouseClick(part(row.tag))
        tryCompare(main, "visible", false)
        compare(fake.exitCode, 0)
    }

    // The click replaces the binding of `enabled`: after a failed start the button stays disabled.
    function test_failedStartLeavesEverythingDisabled() {
        insideStart = start
        start()
        compare(started().length, 1, "a second click is ignored")
        compare(bar().value, 0)
        compare(state(), [false, false, false, true, true, true])
        compare([main.exitCode, fake.exitCode], [0, -10])
        uninstallMgr.valProgress = 0
        compare(part("uninstallButton").enabled, false)
    }

    function test_runningProductCausesAWarning() {
        // Each attempt sends an event.
        for (var tries = 0; tries < 2; ++tries) {
            fake.running = ["KTRUI.exe"]
            fake.forget()
            withBox(start, (box) => {
                compareAll(box, {
                    title: "Warning", subTitle: "Please close all instances and try again.",
                    mainTitle: "Uninstall has detected that Torvan Dravik is currently running."
                })
                compare(named(box.contentItem, /^button\d/).map((button) => button.text), ["OK"])
                compare(probe.ownerOf(box), main)
                fake.note("box is up")
                box.close()
            })
            compare(fake.asked, clicked.concat("note box is up"))
            compare(main.exitCode, -2)
            compare(state(), [true, true, true, false, false, true])
        }
        fake.running = []
        start()
        compare(started().length, 1)
    }
}
