import QtQuick 2.14
import QtTest 1.15
import "parts.js" as Parts

// The coupon: what it shows of an offer, and that all of it is one link.
TestCase {
    id: test

    readonly property var described: ({
        price: { top: 10, colour: "#090a0a", size: 48 },
        badge: { gap: 14, padding: 18, height: 24, radius: 12,
                 from: "#dfcdff", middle: "#d3d3ff", to: "#c6d9ff" },
        validity: { text: "Validity period: %1", colour: "#4f545c", size: 14 },
        line: { bottom: 11, colour: "#1f6fff", size: 13 },
        picture: { source: "qrc:/pic_gift.png", size: [210, 140], right: 48 }
    })
    readonly property var offer: ({
        "price": "$19.95", "expired": "12/31/2026", "url": "https://shop.example/a?b=c"
    })

    property var page: null

    name: "DiscountComponent"
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

    function make(offered) {
        page = stage.make("DiscountComponent", {
            discountPricesTxt: "View exclusive discounted prices",
            perferentialInfo: offered === undefined ? offer : offered
        })
    }

    function texts() {
        return Parts.all(page, "Text")
    }

    function withText(text) {
        return texts().filter(function(item) { return item.text === text })[0]
    }

    function badge() {
        return Parts.all(page, "Rectangle").filter(function(item) {
            return item.height === described.badge.height
        })[0]
    }

    function area() {
        return Parts.all(page, "MouseArea")[0]
    }

    function test_defaults() {
        page = stage.make("DiscountComponent")
        compare(page.discountPricesTxt, "")
        compare(page.perferentialInfo, {})
    }

    function test_price() {
        make()
        var price = withText("$19.95")
        compare([price.x, price.y], [0, described.price.top])
        verify(Qt.colorEqual(price.color, described.price.colour))
        compare(price.font.pixelSize, described.price.size)
        compare(price.font.weight, Font.Bold)
        compare(price.textFormat, Text.PlainText)
    }

    function test_badge() {
        make()
        var price = withText("$19.95")
        var text = withText("Validity period: 12/31/2026")
        var box = badge()
        compare([box.x, box.y], [0, price.y + price.height + described.badge.gap])
        compare(box.width, text.width + 2 * described.badge.padding)
        compare(box.radius, described.badge.radius)
        verify(Qt.colorEqual(text.color, described.validity.colour))
        compare(text.font.pixelSize, described.validity.size)
        var centre = text.mapToItem(box, text.width / 2, text.height / 2)
        fuzzyCompare(centre.x, box.width / 2, 0.5)
        fuzzyCompare(centre.y, box.height / 2, 0.5)
    }

    function test_badgeIsDrawnAsACapsuleWithAGradient() {
        make()
        var box = badge()
        var places = [[1, described.badge.from],
                      [Math.round(box.width / 2), described.badge.middle],
                      [box.width - 2, described.badge.to]]
        places.forEach(function(place) {
            var drawn = probe.pixel(box, place[0], box.height / 2)
            verify(Parts.looksLike(drawn, place[1], 3), place + " is " + drawn)
        })
        // From the left to the right only.
        compare(probe.pixel(box, 40, 1), probe.pixel(box, 40, box.height - 2))
        var outside = [[0, 0], [2, 3], [box.width - 1, box.height - 1], [box.width - 3, 3]]
        outside.forEach(function(at) {
            compare(probe.pixel(box, at[0], at[1]), "", "round at " + at)
        })
        ;[[5, 5], [12, 0], [0, 12]].forEach(function(at) {
            verify(probe.pixel(box, at[0], at[1]) !== "", "filled at " + at)
        })
    }

    function test_line() {
        make()
        var line = withText("View exclusive discounted prices")
        compare([line.x, line.y + line.height], [0, page.height - described.line.bottom])
        verify(Qt.colorEqual(line.color, described.line.colour))
        compare(line.font.pixelSize, described.line.size)
        compare(line.font.underline, true)
        compare(line.textFormat, Text.PlainText)
    }

    function test_picture() {
        make()
        var picture = Parts.all(page, "Image")[0]
        compare(picture.source.toString(), described.picture.source)
        compare([picture.width, picture.height], described.picture.size)
        compare(page.width - picture.x - picture.width, described.picture.right)
        fuzzyCompare(picture.y + picture.height / 2, stage.frame.height / 2, 0.5)
        compare(picture.y, Math.round(picture.y))
        compare(picture.Accessible.ignored, true)
        // It follows the content area.
        stage.frame.height = 220
        fuzzyCompare(picture.y + picture.height / 2, 110, 0.5)
        stage.frame.height = 191
    }

    function test_textsAreShownAsTheyStand() {
        make({ price: "<b>50%</b> & %1", expired: "%1 \u0661", url: "" })
        verify(withText("<b>50%</b> & %1"))
        verify(withText("Validity period: %1 \u0661"))
    }

    function test_absentEntriesAreEmpty_data() {
        return [{ tag: "empty", offered: {} }, { tag: "undefined", offered: { price: undefined } },
                { tag: "null", offered: { price: null, expired: null, url: null } }]
    }

    function test_absentEntriesAreEmpty(row) {
        make(row.offered)
        compare(texts()[0].text, "")
        verify(withText("Validity period: "))
        mouseClick(page, 300, 20)
        compare(uninstallMgr.calls, [
            ["sendUserInfo", "UninstallPop", "Click_Gift_Url", JSON.stringify({ url: "" }), ""],
            ["openLink", ""]
        ])
    }

    function test_noOfferAtAllIsEmpty() {
        make()
        ;[null, undefined, ""].forEach(function(nothing) {
            page.perferentialInfo = nothing
            compare(texts()[0].text, "")
            verify(withText("Validity period: "))
            page.openOffer()
        })
        compare(uninstallMgr.callsOf("openLink"),
                [["openLink", ""], ["openLink", ""], ["openLink", ""]])
    }

    function test_anotherOfferReplacesIt() {
        make()
        page.perferentialInfo = { price: "$5", expired: "01/01/2027", url: "https://b.example/" }
        verify(withText("$5"))
        verify(withText("Validity period: 01/01/2027"))
        mouseClick(page)
        compare(uninstallMgr.callsOf("openLink"), [["openLink", "https://b.example/"]])
    }

    function test_aClickAnywhereOpensTheOffer_data() {
        return [{ tag: "price", at: [20, 30] }, { tag: "badge", at: [20, 85] },
                { tag: "line", at: [20, 172] }, { tag: "picture", at: [420, 100] },
                { tag: "corner", at: [575, 190] }, { tag: "nothing", at: [300, 5] }]
    }

    function test_aClickAnywhereOpensTheOffer(row) {
        make()
        mouseClick(page, row.at[0], row.at[1])
        compare(uninstallMgr.calls, [
            ["sendUserInfo", "UninstallPop", "Click_Gift_Url",
             JSON.stringify({ url: offer.url }), ""],
            ["openLink", offer.url]
        ])
        compare(page.visible, true)
    }

    function test_aClickEndsWhereItBegan() {
        make()
        mousePress(page, 50, 50)
        compare(uninstallMgr.calls, [], "not yet")
        mouseMove(test, 639, 399)
        mouseRelease(test, 639, 399)
        mouseClick(page, 50, 50, Qt.RightButton)
        mouseClick(page, 50, 50, Qt.MiddleButton)
        compare(uninstallMgr.calls, [])
        mouseClick(page, 50, 50)
        mouseClick(page, 50, 50)
        compare(uninstallMgr.callsOf("openLink").length, 2, "as often as one likes")
        compare(uninstallMgr.callsOf("getPreferentialLink"), [], "from the map that it has")
    }

    function test_touch() {
        make()
        var place = page.mapToItem(null, 100, 40)
        probe.tap(page, place.x, place.y)
        tryVerify(function() { return uninstallMgr.callsOf("openLink").length === 1 })
    }

    function test_cursor() {
        make()
        mouseMove(test, 639, 399)
        tryVerify(function() { return probe.cursorShape(page) === Qt.ArrowCursor })
        compare(area().cursorShape, Qt.ArrowCursor)
        mouseMove(page, 200, 60)
        tryVerify(function() { return probe.cursorShape(page) === Qt.PointingHandCursor })
        compare(area().hoverEnabled, true)
        mouseMove(test, 639, 399)
        tryVerify(function() { return probe.cursorShape(page) === Qt.ArrowCursor })
        compare(area().cursorShape, Qt.ArrowCursor)
    }

    function test_keyboard_data() {
        return [{ tag: "Space", key: Qt.Key_Space }, { tag: "Return", key: Qt.Key_Return },
                { tag: "Enter", key: Qt.Key_Enter }]
    }

    function test_keyboard(row) {
        make()
        var mark = Parts.all(page, "ZoLinkFocusMark")[0]
        compare(mark.visible, false)
        mouseClick(page)
        compare(mark.visible, false, "the mouse leaves no mark")
        keyClick(Qt.Key_Tab)
        tryCompare(mark, "visible", true)
        uninstallMgr.reset()
        keyClick(row.key)
        compare(uninstallMgr.calls.map(function(call) { return call[0] }),
                ["sendUserInfo", "openLink"])
        probe.repeatKey(page, row.key)
        compare(uninstallMgr.callsOf("openLink").length, 1, "a held key opens it once")
        keyClick(Qt.Key_A)
        keyClick(Qt.Key_Escape)
        compare(uninstallMgr.callsOf("openLink").length, 1)
    }

    function test_accessible() {
        make()
        var seen = probe.accessible(area())
        compare(seen.role, Accessible.Link)
        compare(seen.name, "View exclusive discounted prices")
        compare(seen.description, "$19.95 Validity period: 12/31/2026")
        verify(seen.focusable)
        verify(probe.pressAccessible(area()))
        compare(uninstallMgr.callsOf("openLink").length, 1)
    }
}
