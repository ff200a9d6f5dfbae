import QtQuick 2.14
import QtTest 1.15
import "parts.js" as Parts

// The coupon: what it shows of an offer, and that all of it is one link.
TestCase {
    id: test

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
        fake.reset()
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

    function part(name) { return findChild(page, name) }

    function clicked(url) {
        return Parts.event("UninstallPop", "Click_Gift_Url", { url: url })
    }

    function texts() {
        return [part("priceText").text, part("expiryText").text, part("offerText").text]
    }

    function test_defaults() {
        page = stage.make("DiscountComponent")
        compare(page.discountPricesTxt, "")
        compare(page.perferentialInfo, {})
    }

    function test_thePictureStaysInTheMiddle() {
        make()
        var picture = part("couponImage")
        ;[191, 220].forEach(function(height) {
            stage.frame.height = height
            compare(picture.y, Math.round((height - picture.height) / 2), "on a whole pixel")
        })
        stage.frame.height = 191
        compare(picture.Accessible.ignored, true)
    }

    function test_textsAreShownAsTheyStand() {
        make({ price: "<b>50%</b> & %1", expired: "%1 \u0661", url: "" })
        page.discountPricesTxt = "<i>View</i>"
        compare(texts(), ["<b>50%</b> & %1", "Validity period: %1 \u0661", "<i>View</i>"])
        ;["priceText", "expiryText", "offerText"].forEach(function(name) {
            compare(part(name).textFormat, Text.PlainText, name)
        })
    }

    function test_theBadgeGrowsWithItsText() {
        make()
        var padding = part("expiryBadge").width - part("expiryText").width
        page.perferentialInfo = { expired: "a date that is much longer" }
        compare(part("expiryBadge").width - part("expiryText").width, padding)
    }

    function test_absentEntriesAreEmpty_data() {
        return [{ tag: "empty", offered: {} }, { tag: "undefined", offered: { price: undefined } },
                { tag: "null", offered: { price: null, expired: null, url: null } }]
    }

    function test_absentEntriesAreEmpty(row) {
        make(row.offered)
        compare(texts().slice(0, 2), ["", "Validity period: "])
        mouseClick(page, 300, 20)
        compare(fake.asked, [clicked("")], "there is nothing to open")
    }

    function test_noOfferAtAllIsEmpty() {
        make()
        ;[null, undefined, ""].forEach(function(nothing) {
            page.perferentialInfo = nothing
            compare(texts().slice(0, 2), ["", "Validity period: "])
            page.openOffer()
        })
        compare(fake.asked, [clicked(""), clicked(""), clicked("")])
    }

    function test_anotherOfferReplacesIt() {
        make()
        page.perferentialInfo = { price: "$5", expired: "01/01/2027", url: "https://b.example/" }
        compare(texts().slice(0, 2), ["$5", "Validity period: 01/01/2027"])
        mouseClick(page)
        compare(fake.askedOf("open"), ["https://b.example/"])
    }

    function test_aClickAnywhereOpensTheOffer_data() {
        return [{ tag: "price", at: [20, 30] }, { tag: "badge", at: [20, 85] },
                { tag: "line", at: [20, 172] }, { tag: "picture", at: [420, 100] },
                { tag: "corner", at: [575, 190] }, { tag: "nothing", at: [300, 5] }]
    }

    function test_aClickAnywhereOpensTheOffer(row) {
        make()
        mouseClick(page, row.at[0], row.at[1])
        compare(fake.asked, [clicked(offer.url), "open " + offer.url])
        compare(page.visible, true)
    }

    function test_aClickEndsWhereItBegan() {
        make()
        mousePress(page, 50, 50)
        compare(fake.asked, [], "not yet")
        mouseMove(test, 639, 399)
        mouseRelease(test, 639, 399)
        mouseClick(page, 50, 50, Qt.RightButton)
        mouseClick(page, 50, 50, Qt.MiddleButton)
        compare(fake.asked, [])
        mouseClick(page, 50, 50)
        mouseClick(page, 50, 50)
        var once = [clicked(offer.url), "open " + offer.url]
        compare(fake.asked, once.concat(once), "as often as one likes, from the map that it has")
    }

    function test_touch() {
        make()
        var place = page.mapToItem(null, 100, 40)
        probe.tap(page, place.x, place.y)
        tryVerify(function() { return fake.askedOf("open").length === 1 })
    }

    function test_cursor() {
        make()
        mouseMove(test, 639, 399)
        tryVerify(function() { return probe.cursorShape(page) === Qt.ArrowCursor })
        compare(part("offerLink").cursorShape, Qt.ArrowCursor)
        mouseMove(page, 200, 60)
        tryVerify(function() { return probe.cursorShape(page) === Qt.PointingHandCursor })
        compare(part("offerLink").hoverEnabled, true)
        mouseMove(test, 639, 399)
        tryVerify(function() { return probe.cursorShape(page) === Qt.ArrowCursor })
        compare(part("offerLink").cursorShape, Qt.ArrowCursor)
    }

    function test_keyboard_data() {
        return Parts.keys
    }

    function test_keyboard(row) {
        make()
        var mark = part("focusMark")
        compare(mark.visible, false)
        mouseClick(page)
        compare(mark.visible, false, "the mouse leaves no mark")
        keyClick(Qt.Key_Tab)
        tryCompare(mark, "visible", true)
        fake.reset()
        keyClick(row.key)
        compare(fake.asked, [clicked(offer.url), "open " + offer.url])
        probe.repeatKey(page, row.key)
        compare(fake.askedOf("open").length, 1, "a held key opens it once")
        keyClick(Qt.Key_A)
        keyClick(Qt.Key_Escape)
        compare(fake.askedOf("open").length, 1)
    }

    function test_accessible() {
        make()
        var seen = probe.accessible(part("offerLink"))
        compare(seen.role, Accessible.Link)
        compare(seen.name, "View exclusive discounted prices")
        compare(seen.description, "$19.95 Validity period: 12/31/2026")
        verify(seen.focusable)
        verify(probe.pressAccessible(part("offerLink")))
        compare(fake.askedOf("open").length, 1)
    }
}
