import QtQuick 2.14
import QtTest 1.15

// Opens the real window in a language and walks through what it can show. A derived test says what
// to do with each pane: visit(window, name).
InterfaceTest {
    id: test

    property var visit: null

    function prepare() {
        fake.defaultText = "$19.95"
        fake.today = new Date(2026, 11, 30)
    }

    function languageRows() {
        verify(languages.table.length > 0, "there is a table of the languages")
        return languages.table.map((row) => ({ tag: row.name, language: row }))
    }

    function walk(row) {
        verify(languages.speak(row.language), "there is a translation")
        openMain([1, 2, 3, 4])
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
        withBox(() => part("uninstallButton").clicked(), (box) => {
            visit(box, "warning")
            box.close()
        })
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
        closeMain()
    }
}
