import QtQuick 2.14
import QtTest 1.15

// The pages in the real window: the reasons, the coupons, switching pages, and the keyboard focus.
// tst_Feedback.qml tests the feedback box.
InterfaceTest {
    id: test

    readonly property string problemTitle: "We'd like to know what problem you've been "
                                           + "experiencing. And we have an extra coupon for you. "
    readonly property var titles: [
        "Please tell us why you want to uninstall Dravik:",
        "Give you an exclusive discount:",
        "Glad to solve your problem! We have an extra coupon for you. Hope you like it!",
        problemTitle, problemTitle,
        "Thanks for your feedback! We have an extra coupon for you. Hope you like it!"
    ]
    readonly property var pageNames: [
        "reasonPage", "expensivePage", "solvedPage", "noSolvedPage", "otherPage"
    ]
    readonly property var linkTexts: [
        "View exclusive discounted prices", "Enjoy discounted prices to buy other products"
    ]
    readonly property var reasons: [
        "", "The price is too expensive", "The product has solved my problem",
        "The product doesn't solve my problem", "I have other reasons"
    ]
    // The tab stops of each page but the first, without the two buttons at the bottom. The title
    // bar has none.
    readonly property var feedback: ["feedbackText", "submitButton", "offerLink"]
    readonly property var stops: [[], ["offerLink"], ["offerLink"], feedback, feedback]
    // The fake answers each key with another text; tests change the pattern in between.
    readonly property string early: "https://early.example/%1"
    readonly property string late: "https://late.example/%1"
    readonly property var coupon: ({
        price: "$19.95", expired: "12/31/2026", url: "https://shop.example/a?b=c"
    })

    property var home: null
    // The queries while the window opened, sorted: the first word of each, and the arguments of
    // getPreferentialLink and getReasonList.
    property var loading: []

    name: "Pages"

    function prepare() {
        fake.defaultText = early
        openMain()
        home = part("homePage")
        loading = fake.asked.map((asked) => asked.split(" ")[0])
            .concat(fake.calls("getPreferentialLink"), fake.calls("getReasonList")).sort()
        fake.forget()
    }

    function page(number) { return part(pageNames[number]) }
    function inPage(number, name) { return part(name, pageNames[number]) }
    function title() { return part("titleLabel").text }

    function shownNumbers() {
        return [0, 1, 2, 3, 4].filter((number) => page(number).visible)
    }

    function numbered(numbers) {
        return numbers.map((number) => ({ tag: "page " + number, number: number }))
    }

    // The controller's current offer of a type; leaves no queries in the record.
    function offer(type) {
        var given = uninstallMgr.getPreferentialLink(type)
        fake.forget()
        return given
    }

    // From page to page --------------------------------------------------------------------------

    function test_theWindowStartsWithTheReasons() {
        compare(loading, ["", "1", "2", "tag", "text", "text", "text", "text"])
        compare(names(home.listPages), pageNames)
        compare([home.currentPage, shownNumbers(), title()], [0, [0], titles[0]])
        compare(home.listTitleTxt, titles)
        compare(home.discountedPrices, linkTexts)
        compare(home.clip, true)
        home.listPages.forEach((shown, number) => {
            compareAll(shown, { x: 0, y: 0, width: part("contentArea").width,
                                height: part("contentArea").height })
            if (number > 0) {
                compare(shown.discountPricesTxt, linkTexts[number === 1 ? 0 : 1])
            }
        })
        compare([page(1).perferentialInfo, page(2).perferentialInfo], [offer(1), offer(2)])
        verify(offer(1).price !== offer(2).price)
        compare([page(3).currentPage, page(4).currentPage], [3, 4])
        var images = () => named(home, /^(reason|coupon)Image$/)
                               .map((image) => image.Accessible.ignored)
        compare(images(), [true], "hidden pages are not created")
        ;[1, 2].forEach(home.switchPage)
        compare(images(), [true, true, true])
    }

    function test_switchingShowsThePageAndItsTitle() {
        // 5 and 9 are no pages; 9 has no title either.
        ;[1, 2, 3, 4, 5, 9, 1].forEach((number) => {
            home.switchPage(number)
            compare([home.currentPage, shownNumbers()], [number, number < 5 ? [number] : []])
            compare(title(), titles[Math.min(number, 5)])
        })
        compare(fake.asked, [])
    }

    // Order: the events, the page, its title, the coupon. The thank-you coupon shows the current
    // offer of the feedback page's type.
    function test_submittingLeadsToTheThankYouCoupon_data() { return numbered([3, 4]) }

    function test_submittingLeadsToTheThankYouCoupon(row) {
        var text = " it's \"bad\"\n"
        home.switchPage(row.number)
        fake.defaultText = late
        var label = part("titleLabel")
        home.currentPageChanged.connect(() => fake.note("page"))
        label.textChanged.connect(() => fake.note(label.text))
        page(2).perferentialInfoChanged.connect(() => fake.note("coupon"))
        page(2).visibleChanged.connect(() => fake.note("shown"))
        page(row.number).visibleChanged.connect(() => fake.note("hidden"))
        inPage(row.number, "feedbackText").text = text
        mouseClick(inPage(row.number, "submitButton"))
        var problem = event("UninstallPop", "Result_Question_What_Problem", { answer: text })
        compare(fake.asked.map((entry) => entry.replace(/^text .*/, "offer").replace("note ", "")),
                (row.number === 3 ? [event("noSolvedPage", "Click_Submit", text)] : []).concat(
                    [problem, "hidden", "page", "shown", titles[2], titles[5], "offer", "offer",
                     "coupon"]))
        compare(fake.calls("getPreferentialLink"), [String(row.number)])
        compare([home.currentPage, shownNumbers(), title()], [2, [2], titles[5]])
        compare(page(2).perferentialInfo, offer(row.number))
        mouseClick(page(2), 20, 20)
        compare(fake.askedOf("open"), [offer(row.number).url])
    }

    function test_uninstallingLeavesThePagesUsable() {
        home.switchPage(3)
        fake.running = ["uninstall.exe"]
        mouseClick(part("uninstallButton"))
        inPage(3, "feedbackText").text = "x"
        mouseClick(inPage(3, "submitButton"))
        compare(shownNumbers(), [2])
        fake.running = []
        tryCompare(part("uninstallButton"), "visible", false)
        compare(shownNumbers(), [2])
    }

    // Reasons ------------------------------------------------------------------------------------

    // In the order of the window.
    function entries() { return named(page(0), /^reason\d$/) }

    function chosen(number) {
        return event("UninstallPop", "Result_Question_Why_Unistall", { answer: reasons[number] })
    }

    function test_everyReasonIsListed() {
        compare(page(0).listReson, reasons)
        compare(names(entries()).sort(), ["reason1", "reason2", "reason3", "reason4"])
        ;[[3, 1, 2, 4], [2, 3, 4], [4], []].forEach((list) => {
            part("reasonList").model = list
            part("reasonColumn").forceLayout()
            compare(entries().map((entry) => entry.text), list.map((reason) => reasons[reason]))
        })
        compare(fake.calls("getReasonList").length, 0, "read once")
    }

    function test_choosingAReasonOpensItsPage_data() {
        return [
            { tag: "mouse", act: (entry) => mouseClick(entry) },
            { tag: "assistive tool", act: (entry) => verify(probe.pressAccessible(entry)) },
            { tag: "touch", act: (entry) => {
                var place = entry.mapToItem(null, 30, 9)
                probe.tap(entry, place.x, place.y)
            } }
        ].concat(keys.map((row) => ({ tag: row.tag, act: (entry) => {
            keyClick(Qt.Key_Tab)
            for (var steps = entries().indexOf(entry); steps > 0; --steps) {
                keyClick(Qt.Key_Down)
            }
            compare(fake.asked, [], "moving the focus chooses no reason")
            keyClick(row.key)
        } })))
    }

    function test_choosingAReasonOpensItsPage(row) {
        // Events are in English in every language.
        page(0).listReson = ["", "Trop cher", "Utile", "Inutile", "Autre"]
        ;[1, 2, 3, 4].forEach((number) => {
            if (row.tag === "mouse" || number === 2) {
                var entry = inPage(0, "reason" + number)
                compare(probe.accessible(entry).name, page(0).listReson[number])
                row.act(entry)
                tryCompare(entry, "checked", true)
                compare(fake.asked, [chosen(number)])
                compare([shownNumbers(), title()], [[number], titles[number]])
                fake.forget()
                home.switchPage(0)
                mouseClick(entry)
                compare(shownNumbers(), [0], "choosing the same reason again does nothing")
            }
        })
        compare(entries().filter((entry) => entry.checked).length, 1)
        entries().forEach((entry) => {
            entry.checked = true
            entry.forceActiveFocus()
        })
        compare(fake.asked, [], "only the user chooses")
    }

    // Coupons ------------------------------------------------------------------------------------

    function openCoupon(offered) {
        home.switchPage(1)
        page(1).perferentialInfo = offered
        return page(1)
    }

    function couponTexts() {
        return ["priceText", "expiryText", "offerText"].map((name) => inPage(1, name).text)
    }

    function followed(url) {
        return [event("UninstallPop", "Click_Gift_Url",
                      { url: url })].concat(url ? "open " + url : [])
    }

    function test_theCouponShowsTheOffer_data() {
        return [
            { tag: "whole", offered: coupon, price: "$19.95", expired: "12/31/2026",
              url: coupon.url },
            { tag: "placeholders", offered: { price: "%1 & %2", expired: "%1 \u0661", url: "" },
              price: "%1 & %2", expired: "%1 \u0661" },
            { tag: "empty", offered: {} }, { tag: "undefined", offered: { price: undefined } },
            { tag: "null", offered: { price: null, expired: null, url: null } },
            { tag: "no map", offered: null }, { tag: "undefined map", offered: undefined },
            { tag: "text", offered: "" }
        ]
    }

    function test_theCouponShowsTheOffer(row) {
        openCoupon(coupon)
        openCoupon(row.offered)
        compare(couponTexts(), [row.price || "", "Validity period: " + (row.expired || ""),
                                linkTexts[0]])
        mouseClick(page(1), 300, 20)
        compare(fake.asked, followed(row.url || ""))
        compare(shownNumbers(), [1])
    }

    function test_activatingACouponOpensItsLink_data() {
        return [[20, 30], [20, 85], [20, 172], [420, 100], [575, 190], [300, 5]].map((at) => ({
            tag: at.join(), act: () => mouseClick(page(1), at[0], at[1])
        })).concat(keys.map((row) => ({ tag: row.tag, act: () => {
            keyClick(Qt.Key_Tab)
            compare(inPage(1, "focusMark").visible, true)
            keyClick(row.key)
            probe.repeatKey(main, row.key)
            keyClick(Qt.Key_A)
            keyClick(Qt.Key_Escape)
        } })), { tag: "touch", act: () => {
            var place = page(1).mapToItem(null, 100, 40)
            probe.tap(main, place.x, place.y)
            tryVerify(() => fake.asked.length > 0)
        } }, { tag: "assistive tool", act: () => probe.pressAccessible(inPage(1, "offerLink")) })
    }

    function test_activatingACouponOpensItsLink(row) {
        openCoupon(coupon)
        row.act()
        compare(fake.asked, followed(coupon.url))
    }

    function test_onlyALeftClickWithinTheCouponActivates() {
        openCoupon(coupon)
        mousePress(page(1), 50, 50)
        mouseMove(page(1), 50, -90)
        mouseRelease(page(1), 50, -90)
        mouseClick(page(1), 50, 50, Qt.RightButton)
        mouseClick(page(1), 50, 50, Qt.MiddleButton)
        compare(fake.asked, [])
        mouseClick(page(1), 50, 50)
        mouseClick(page(1), 50, 50)
        compare(fake.asked, followed(coupon.url).concat(followed(coupon.url)),
                "any number of times")
        compare(inPage(1, "focusMark").visible, false, "a click shows no focus mark")
    }

    function test_theCursorIsAHandOverACouponOnly() {
        openCoupon(coupon)
        ;[[-90, Qt.ArrowCursor], [60, Qt.PointingHandCursor],
          [-90, Qt.ArrowCursor]].forEach((step) => {
            mouseMove(page(1), 200, step[0])
            tryCursor(main, step[1])
            compare(inPage(1, "offerLink").cursorShape, step[1])
        })
    }

    function test_assistiveToolsReadACouponAsALink() {
        openCoupon(coupon)
        var seen = probe.accessible(inPage(1, "offerLink"))
        compare([seen.role, seen.name, seen.description, seen.focusable],
                [Accessible.Link, linkTexts[0], "$19.95 Validity period: 12/31/2026", true])
    }

    // The whole window by keyboard ----------------------------------------------------------------

    function tab() {
        keyClick(Qt.Key_Tab)
        return main.activeFocusItem
    }

    function backtab() {
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier)
        return main.activeFocusItem
    }

    function test_tabFollowsTheReadingOrder_data() {
        return pageNames.map((name, number) => ({ tag: name, number: number }))
    }

    function test_tabFollowsTheReadingOrder(row) {
        home.switchPage(row.number)
        var text = inPage(row.number, "feedbackText")
        if (text) {
            text.text = "x"
        }
        // The reasons are in the controller's order.
        var order = (row.number ? stops[row.number] : names(named(home, /^reason\d$/)))
            .concat("uninstallButton", "cancelButton")
        var found = order.map(tab)
        compare(names(found), order)
        // From top to bottom, and in a row from left to right; the coupon fills the page.
        for (var n = 1; n < found.length; ++n) {
            var before = found[n - 1].mapToItem(null, 0, 0)
            var here = found[n].mapToItem(null, 0, 0)
            verify(here.y > before.y || here.x > before.x || order.length === 3, n)
        }
        compare(tab(), found[0], "round again")
        for (var back = found.length - 1; back >= 0; --back) {
            compare(backtab(), found[back], back)
        }
        keyClick(Qt.Key_Escape)
        compare([main.visible, text ? text.text : "x"].concat(fake.asked), [true, "x"])
    }

    function test_tabSkipsDisabledButtons() {
        mouseClick(part("uninstallButton"))
        home.switchPage(3)
        inPage(3, "feedbackText").forceActiveFocus()
        compare(tab().objectName, "offerLink")
        compare(tab().objectName, "feedbackText",
                "neither Submit nor the last row nor the title bar")
    }

    function test_theFocusMovesToTheNewPage_data() {
        return [
            { tag: "forwards to a coupon", number: 1, step: tab, name: "offerLink" },
            { tag: "forwards to a feedback", number: 3, step: tab, name: "feedbackText" },
            { tag: "backwards", number: 2, step: backtab, name: "cancelButton" },
            { tag: "backwards from a feedback", number: 4, step: backtab, name: "cancelButton" }
        ]
    }

    function test_theFocusMovesToTheNewPage(row) {
        mouseClick(inPage(0, "reason" + row.number))
        compare(home.listPages[row.number].activeFocus, true)
        var mark = inPage(row.number, "focusMark")
        compare(mark.visible, false, "a click shows no focus mark")
        compare(row.step().objectName, row.name)
        compare(mark.visible, row.name === "offerLink")
    }

    function test_theFocusMovesFromTheFeedbackToTheCoupon() {
        home.switchPage(4)
        inPage(4, "feedbackText").text = "x"
        inPage(4, "submitButton").forceActiveFocus()
        keyClick(Qt.Key_Space)
        compare(home.listPages[2].visible, true)
        tab()
        compare(inPage(2, "focusMark").visible, true)
    }

    function test_switchingPagesKeepsTheFocusOnAButton() {
        part("cancelButton").forceActiveFocus()
        home.switchPage(1)
        compare([part("cancelButton").activeFocus, home.listPages[1].activeFocus], [true, false])
    }

    function test_tabWorksAfterSwitchingToAnUnknownPage() {
        inPage(0, "reason1").forceActiveFocus()
        home.switchPage(9)
        verify(tab() !== null)
        verify(backtab() !== null)
    }
}
