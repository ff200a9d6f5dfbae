import QtQuick 2.14
import QtTest 1.15
import "parts.js" as Parts

// The page of the reasons: which stand there, in which order, and what choosing one does.
TestCase {
    id: test

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
        fake.reset()
    }

    function cleanup() {
        Parts.destroy(test, page)
        page = null
    }

    function make() {
        page = stage.make("ReasonComponent")
        return entries()
    }

    // In the order in which they stand there.
    function entries() { return Parts.named(page, /^reason\d$/) }
    function entry(number) { return findChild(page, "reason" + number) }

    function chosen(number) {
        return Parts.event("UninstallPop", "Result_Question_Why_Unistall",
                           { answer: texts[number] })
    }

    function notes() { return fake.askedOf("note") }

    function test_everyReasonIsThere() {
        var names = Parts.names(make())
        compare(names.slice().sort(), ["reason1", "reason2", "reason3", "reason4"])
        compare(names[3], "reason4", "always the last one")
        for (var number in texts) {
            compare(entry(number).text, texts[number])
            compare(entry(number).checked, false)
        }
        compare(fake.asked, [])
        compare(fake.calls("getReasonList").length, 1, "read once")
    }

    function test_theControllerShufflesTheFirstThree() {
        var first = {}
        for (var tries = 0; tries < 300 && Object.keys(first).length < 3; ++tries) {
            if (page !== null) {
                Parts.destroy(test, page)
            }
            first[make()[0].objectName] = true
        }
        compare(Object.keys(first).sort(), ["reason1", "reason2", "reason3"])
    }

    function test_everyListInItsOrder_data() {
        return [
            { tag: "shuffled", list: [3, 1, 2, 4] }, { tag: "without the price", list: [2, 3, 4] },
            { tag: "one", list: [4] }, { tag: "none", list: [] }
        ]
    }

    function test_everyListInItsOrder(row) {
        make()
        findChild(page, "reasonList").model = row.list
        findChild(page, "reasonColumn").forceLayout()
        compare(entries().map(function(shown) { return shown.text }),
                row.list.map(function(reason) { return texts[reason] }))
        var bottom = 0
        entries().forEach(function(shown) {
            verify(shown.y >= bottom, "below the one before")
            bottom = shown.y + shown.height
        })
    }

    function test_choosing_data() {
        return [1, 2, 3, 4].map(function(number) {
            return { tag: "reason " + number, number: number }
        })
    }

    function test_choosing(row) {
        make()
        mouseClick(entry(row.number))
        compare(entry(row.number).checked, true)
        compare(fake.asked, [chosen(row.number), "note switchPage " + row.number])
    }

    function test_listResonIsByNumber() {
        make()
        compare(page.listReson[0], "")
        for (var reason in texts) {
            compare(page.listReson[reason], texts[reason])
        }
        compare(page.listReson.length, 5)
    }

    function test_choosingByKeyboardAndTouch_data() {
        return Parts.keys.concat({ tag: "touch", key: 0 })
    }

    function test_choosingByKeyboardAndTouch(row) {
        var second = make()[1]
        if (row.key === 0) {
            var place = second.mapToItem(null, 30, 9)
            probe.tap(second, place.x, place.y)
        } else {
            keyClick(Qt.Key_Tab)
            keyClick(Qt.Key_Down)
            compare(notes(), [], "moving on chooses nothing")
            compare(second.activeFocus, true)
            keyClick(row.key)
        }
        tryCompare(second, "checked", true)
        compare(notes(), ["switchPage " + second.objectName.slice(-1)])
        compare(fake.askedOf("event").length, 1)
    }

    // Events are for readers of one language, whatever the window speaks.
    function test_theEventIsEnglishInEveryLanguage() {
        make()
        page.listReson = ["", "Trop cher", "Utile", "Inutile", "Autre"]
        compare(entry(1).text, "Trop cher")
        var numbers = [1, 2, 3, 4]
        numbers.forEach(function(number) { mouseClick(entry(number)) })
        compare(fake.asked.filter(function(asked) { return asked.indexOf("event") === 0 }),
                numbers.map(chosen))
    }

    function test_onlyTheUserChooses() {
        make()
        entry(2).checked = true
        entry(2).checked = false
        entry(3).forceActiveFocus()
        compare(fake.asked, [])
    }

    function test_accessible() {
        make()
        ;[3, 4].forEach(function(number) {
            var seen = probe.accessible(entry(number))
            compare(seen.role, Accessible.RadioButton)
            compare(seen.name, texts[number])
            verify(seen.focusable)
            verify(probe.pressAccessible(entry(number)))
        })
        compare(notes(), ["switchPage 3", "switchPage 4"])
    }

    function test_theChosenOneAgainDoesNothing() {
        make()
        mouseClick(entry(1))
        mouseClick(entry(1))
        compare(notes().length, 1)
    }

    function test_theyExcludeEachOther() {
        var shown = make()
        mouseClick(entry(1))
        mouseClick(entry(4))
        compare(shown.map(function(one) { return one.checked }), [false, false, false, true])
        compare(notes(), ["switchPage 1", "switchPage 4"])
    }

    // In other languages a reason may be longer than the way to the picture.
    function test_aLongReasonStaysReadable() {
        make()
        page.listReson = ["", "", new Array(20).join("word "), "", ""]
        var picture = findChild(page, "reasonImage")
        verify(entry(2).width > picture.x)
        var drawn = Parts.named(page, /^reason(Image|Column)$/)
        compare(Parts.names(drawn), ["reasonImage", "reasonColumn"], "the texts cover the picture")
        compare([drawn[0].z, drawn[1].z], [0, 0])
    }

    function test_thePictureStaysInTheMiddle() {
        make()
        var picture = findChild(page, "reasonImage")
        ;[191, 220].forEach(function(height) {
            stage.frame.height = height
            compare(picture.y, Math.round((height - picture.height) / 2), "on a whole pixel")
        })
        stage.frame.height = 191
        compare(picture.Accessible.ignored, true)
    }

}
