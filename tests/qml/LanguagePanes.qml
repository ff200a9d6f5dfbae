import QtQuick 2.14
import QtTest 1.15
import "qrc:/"
import "parts.js" as Parts

// Opens the real window in one language after the other and walks through what it can show. Whoever
// builds on it says what to do with each: visit(window, name).
TestCase {
    id: test

    property var visit: null
    property var main: null

    when: windowShown
    visible: true
    width: 200
    height: 100

    Timer {
        id: boxWatch
        interval: 10
        repeat: true
        onTriggered: {
            var popups = probe.popups()
            if (popups.length === 1 && popups[0].active && popups[0].contentItem.width > 0) {
                stop()
                // An exception must not leave the box, and with it this test, waiting.
                try {
                    test.visit(popups[0], "warning")
                } finally {
                    popups[0].close()
                }
            }
        }
    }

    function init() {
        fake.reset()
        fake.defaultText = "$19.95"
        fake.today = new Date(2026, 11, 30)
    }

    function cleanup() {
        boxWatch.stop()
        close()
        languages.speakSource()
    }

    function languageRows() {
        verify(languages.table.length > 0, "there is a table of the languages")
        return languages.table.map(function(row) {
            return { tag: row.name, language: row }
        })
    }

    function part(name) {
        return findChild(main.contentItem, name)
    }

    function open(reasons) {
        main = Qt.createComponent("qrc:/Main.qml").createObject(null)
        tryVerify(function() { return main.active && main.contentItem.width === main.width })
        part("reasonList").model = reasons
        part("reasonColumn").forceLayout()
    }

    function close() {
        if (main !== null) {
            Parts.destroy(test, main)
            main = null
        }
    }

    function walk(row) {
        verify(languages.speak(row.language), "there is a translation")
        open([1, 2, 3, 4])
        var page = part("homePage")
        visit(main, "reasons")
        page.switchPage(1)
        visit(main, "price too expensive")
        page.switchPage(2)
        visit(main, "problem solved")
        page.thank(3)
        visit(main, "thanks for a feedback")
        page.switchPage(3)
        visit(main, "problem not solved")
        fake.running = ["KTRUI.exe"]
        boxWatch.start()
        part("uninstallButton").clicked()
        fake.running = []
        part("uninstallButton").clicked()
        var bar = part("progressBar")
        bar.valueAnimationInterval = 0
        uninstallMgr.valProgress = 42
        tryCompare(bar, "value", 42)
        visit(main, "uninstalling")
        uninstallMgr.valProgress = 100
        tryCompare(bar, "visible", false)
        visit(main, "complete")
    }
}
