import QtQuick 2.14
import QtTest 1.15
import "parts.js" as Parts

// The page of the reasons: which stand there, in which order, and what choosing one does.
TestCase {
    id: test

    readonly property var described: ({
        spacing: 10, rowHeight: 19, picture: "qrc:/pic_question.png", pictureSize: [132, 132],
        pictureRight: 48
    })
    readonly property var texts: ({
        1: "The price is too expensive",
        2: "The product has solved my problem",
        3: "The product doesn't solve my problem",
        4: "I have other reasons"
    })

    property var page: null

    name: "ReasonComponent"
    when: windowShown
    visible: true
    width: 640
    height: 400

    PageStage {
        id: stage
    }

    function init() {
        mouseMove(test, test.width - 1, test.height - 1)
        uninstallMgr.reset()
    }

    function cleanup() {
        Parts.destroy(test, page)
        page = null
    }

    function make(reasons) {
        if (reasons !== undefined) {
            uninstallMgr.reasonList = reasons
        }
        page = stage.make("ReasonComponent")
        return Parts.all(page, "ZoRadioButton")
    }

    function notes() {
        return uninstallMgr.callsOf("note").map(function(call) { return call[1] })
    }

    function test_everyListInItsOrder_data() {
        return [
            { tag: "all", list: [1, 2, 3, 4] },
            { tag: "shuffled", list: [3, 1, 2, 4] },
            { tag: "without the price", list: [2, 3, 4] },
            { tag: "one", list: [4] },
            { tag: "none", list: [] }
        ]
    }

    function test_everyListInItsOrder(row) {
        var entries = make(row.list)
        compare(entries.map(function(entry) { return entry.text }),
                row.list.map(function(reason) { return texts[reason] }))
        entries.forEach(function(entry, index) {
            compare(entry.checked, false)
            compare(entry.height, described.rowHeight)
            compare([entry.x, entry.y],
                    [0, index * (described.rowHeight + described.spacing)])
        })
        compare(uninstallMgr.callsOf("getReasonList").length, 1)
    }

    function test_listResonIsByNumber() {
        make()
        compare(page.listReson[0], "")
        for (var reason in texts) {
            compare(page.listReson[reason], texts[reason])
        }
        compare(page.listReson.length, 5)
    }

    function test_theListIsReadOnce() {
        make([1, 2, 3, 4])
        uninstallMgr.reasonList = [4]
        compare(Parts.all(page, "ZoRadioButton").length, 4)
        compare(uninstallMgr.callsOf("getReasonList").length, 1)
    }

    function test_choosing_data() {
        var rows = []
        ;[[1, 2, 3, 4], [3, 2, 1, 4], [2, 3, 4]].forEach(function(list) {
            list.forEach(function(reason) {
                rows.push({ tag: reason + " of " + list, list: list, reason: reason })
            })
        })
        return rows
    }

    function test_choosing(row) {
        var entry = make(row.list)[row.list.indexOf(row.reason)]
        mouseClick(entry)
        compare(entry.checked, true)
        compare(uninstallMgr.calls.slice(1), [
            ["sendUserInfo", "UninstallPop", "Result_Question_Why_Unistall",
             JSON.stringify({ answer: texts[row.reason] }), ""],
            ["note", "switchPage " + row.reason]
        ])
    }

    function test_choosingByKeyboardAndTouch_data() {
        return [{ tag: "Space", key: Qt.Key_Space }, { tag: "Return", key: Qt.Key_Return },
                { tag: "Enter", key: Qt.Key_Enter }, { tag: "touch", key: 0 }]
    }

    function test_choosingByKeyboardAndTouch(row) {
        var entry = make([2, 1, 3, 4])[1]
        if (row.key === 0) {
            var place = entry.mapToItem(null, 30, 9)
            probe.tap(entry, place.x, place.y)
        } else {
            keyClick(Qt.Key_Tab)
            keyClick(Qt.Key_Down)
            compare(notes(), [], "moving on chooses nothing")
            compare(entry.activeFocus, true)
            keyClick(row.key)
        }
        tryCompare(entry, "checked", true)
        compare(notes(), ["switchPage 1"])
        compare(uninstallMgr.callsOf("sendUserInfo").length, 1)
    }

    // Events are for readers of one language, whatever the window speaks.
    function test_theEventIsEnglishInEveryLanguage() {
        var entries = make()
        page.listReson = ["", "Trop cher", "Utile", "Inutile", "Autre"]
        compare(entries[0].text, "Trop cher")
        entries.forEach(function(entry) { mouseClick(entry) })
        compare(uninstallMgr.callsOf("sendUserInfo").map(function(call) { return call[3] }),
                [1, 2, 3, 4].map(function(reason) { return '{"answer":"' + texts[reason] + '"}' }))
    }

    function test_onlyTheUserChooses() {
        var entries = make()
        uninstallMgr.forgetCalls()
        entries[1].checked = true
        entries[1].checked = false
        entries[2].forceActiveFocus()
        compare(uninstallMgr.calls, [])
    }

    function test_accessible() {
        make([3, 4]).forEach(function(entry, index) {
            var seen = probe.accessible(entry)
            compare(seen.role, Accessible.RadioButton)
            compare(seen.name, texts[[3, 4][index]])
            verify(seen.focusable)
            verify(probe.pressAccessible(entry))
        })
        compare(notes(), ["switchPage 3", "switchPage 4"])
    }

    function test_theChosenOneAgainDoesNothing() {
        var entry = make()[0]
        mouseClick(entry)
        mouseClick(entry)
        compare(notes().length, 1)
    }

    function test_theyExcludeEachOther() {
        var entries = make()
        mouseClick(entries[0])
        mouseClick(entries[3])
        compare(entries.map(function(entry) { return entry.checked }), [false, false, false, true])
        compare(notes(), ["switchPage 1", "switchPage 4"])
    }

    // In other languages a reason may be longer than the way to the picture.
    function test_aLongReasonStaysReadable() {
        var entries = make()
        page.listReson = ["", "", new Array(20).join("word "), "", ""]
        verify(entries[1].width > page.width - described.pictureRight - described.pictureSize[0])
        var drawn = Array.prototype.slice.call(page.children).map(function(item) {
            return item.toString().split(/_QML|\(/)[0]
        })
        compare(drawn, ["QQuickImage", "QQuickColumn"], "what comes later covers what came before")
        compare([page.children[0].z, page.children[1].z], [0, 0])
    }

    function test_picture() {
        make()
        var picture = Parts.all(page, "Image")[0]
        compare(picture.source.toString(), described.picture)
        compare([picture.width, picture.height], described.pictureSize)
        compare(page.width - picture.x - picture.width, described.pictureRight)
        fuzzyCompare(picture.y + picture.height / 2, stage.frame.height / 2, 0.5)
        compare(picture.y, Math.round(picture.y), "on a whole pixel")
        compare(picture.Accessible.ignored, true)
        // It follows the content area.
        stage.frame.height = 220
        fuzzyCompare(picture.y + picture.height / 2, 110, 0.5)
        stage.frame.height = 191
    }
}
