import QtQuick 2.14
import QtTest 1.15
import "fitting.js" as Fitting

// Every text fits in every language, and has a glyph for each of its characters. With KTR_GALLERY
// set, saves a screenshot of each pane below that folder instead.
InterfaceTest {
    id: test

    readonly property string folder: probe.environment("KTR_GALLERY")
    property string language: ""
    property var complaints: []
    property int texts: 0
    property int panes: 0

    name: "Languages"

    function initTestCase() {
        if (folder !== "") {
            probe.holdStill()
        }
    }

    function visit(window, pane) {
        ++panes
        if (folder !== "") {
            verify(probe.save(window, [folder, language, panes + "-" + pane + ".png"].join("/")),
                   pane)
            return
        }
        var shown = Fitting.texts(window.contentItem)
        var problems = Fitting.complaints(window.contentItem)
        shown.forEach((text) => {
            var missing = languages.withoutGlyph(text.text, text.font)
            if (missing !== "") {
                problems.push(text.text + " -- no installed font has " + missing)
            }
        })
        texts += shown.length
        complaints = complaints.concat(problems.map((problem) => pane + ": " + problem))
    }

    function prepare() {
        fake.defaultText = "$19.95"
        fake.today = new Date(2026, 11, 30)
    }

    function test_everyTextFits_data() {
        verify(languages.table.length > 0, "the table of languages can be read")
        return languages.table.map((row) => ({ tag: row.name, language: row }))
    }

    function test_everyTextFits(row) {
        complaints = []
        texts = 0
        panes = 0
        language = row.language.name
        verify(languages.switchTo(row.language), "the translation can be loaded")
        openMain(uninstallMgr.getReasonList().sort())
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
        // Sorted, only the first reason is above the image. Show it beside the image, too.
        openMain([2, 1, 3, 4])
        visit(main, "reasons in another order")
        compare(panes, 9)
        verify(texts > 50 || folder !== "", "texts were measured: " + texts)
        compare(complaints.join("\n"), "")
    }
}
