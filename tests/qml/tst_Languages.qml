import QtQuick 2.14
import QtTest 1.15
import "fitting.js" as Fitting

// Every text of every language has the room that it needs where it stands, and a glyph for each of
// its characters.
LanguagePanes {
    id: test

    property var complaints: []
    property int texts: 0
    property int panes: 0

    name: "Languages"
    visit: function(window, pane) {
        var shown = Fitting.texts(window.contentItem)
        var faults = Fitting.complaints(window.contentItem)
        shown.forEach(function(text) {
            var missing = languages.withoutGlyph(text.text, text.font)
            if (missing !== "") {
                faults.push(text.text + " -- no font of this machine has " + missing)
            }
        })
        texts += shown.length
        ++panes
        complaints = complaints.concat(faults.map(function(fault) {
            return pane + ": " + fault
        }))
    }

    function test_fits_data() {
        return languageRows()
    }

    function test_fits(row) {
        complaints = []
        texts = 0
        panes = 0
        walk(row)
        // The first one is above the picture, and it may be any but the last.
        openMain([2, 1, 3, 4])
        visit(main, "reasons in another order")
        compare(panes, 9)
        verify(texts > 50, "texts were measured: " + texts)
        compare(complaints.join("\n"), "")
    }
}
