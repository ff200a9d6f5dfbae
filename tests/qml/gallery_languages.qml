import QtQuick 2.14
import QtTest 1.15

// Saves an image of each pane in every language below the folder that KTR_GALLERY names.
LanguagePanes {
    id: test

    readonly property string folder: probe.environment("KTR_GALLERY")
    property string language: ""
    property int taken: 0

    name: "GalleryOfLanguages"
    visit: function(window, pane) {
        ++taken
        var name = language + "/" + taken + "-" + pane + ".png"
        verify(probe.save(window, folder + "/" + name), name)
    }

    function initTestCase() {
        verify(folder !== "", "KTR_GALLERY names the folder for the images")
        probe.holdStill()
    }

    function test_panes_data() {
        return languageRows()
    }

    function test_panes(row) {
        language = row.language.name
        taken = 0
        walk(row)
    }
}
