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
        var offer = {
            "price": "$19.95", "expired": "12/31/2026", "url": "https://shop.example/offer"
        }
        uninstallMgr.reset()
        uninstallMgr.offers = { "1": offer, "2": offer, "3": offer, "4": offer }
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

    function all(type) {
        return Parts.all(main.contentItem, type)
    }

    function open() {
        main = Qt.createComponent("qrc:/Main.qml").createObject(null)
        tryVerify(function() { return main.active && main.contentItem.width === main.width })
    }

    function close() {
        if (main !== null) {
            Parts.destroy(test, main)
            main = null
        }
    }

    function walk(row) {
        verify(languages.speak(row.language), "there is a translation")
        open()
        var page = all("HomePage")[0]
        visit(main, "reasons")
        page.switchPage(1)
        visit(main, "price too expensive")
        page.switchPage(2)
        visit(main, "problem solved")
        page.thank(3)
        visit(main, "thanks for a feedback")
        page.switchPage(3)
        visit(main, "problem not solved")
        // The one of the page is disabled as long as nothing is written.
        var uninstall = all("ZoRoundButton").filter(function(button) {
            return button.visible && button.enabled
        })[0]
        uninstallMgr.ktrRunning = true
        boxWatch.start()
        uninstall.clicked()
        uninstallMgr.ktrRunning = false
        uninstall.clicked()
        var bar = all("ZoProgressBar")[0]
        bar.valueAnimationInterval = 0
        uninstallMgr.valProgress = 42
        tryCompare(bar, "value", 42)
        visit(main, "uninstalling")
        uninstallMgr.valProgress = 100
        tryCompare(bar, "visible", false)
        visit(main, "complete")
    }
}
