"""From the reasons to the page that answers each, and what works on every page."""

import json

import pytest

from ktr import layout, steps, wait

pytestmark = pytest.mark.usefixtures("reasons")

PAGES = ("reasons", 1, 2, 3, 4, "thanks for 3", "thanks for 4")


def go_to(sandbox, window, page):
    """Opens a page by mouse and keyboard."""
    if page == "reasons":
        return
    thanks = isinstance(page, str)
    steps.choose(sandbox, window, int(page[-1]) if thanks else page)
    if thanks:
        steps.write(window, "x")
        steps.submit(window)
        steps.wait_coupon(window)


# Choosing a reason -----------------------------------------------------------------------------


@pytest.mark.parametrize("reason", steps.REASONS)
def test_a_reason_opens_its_page_and_cannot_be_changed(sandbox, program, reason):
    window = program.window()
    assert steps.reasons_seen(window)
    steps.choose(sandbox, window, reason)
    if reason in (1, 2):
        assert not steps.reasons_seen(window)
    for row in range(4):
        window.click(layout.reason(row))
    window.drag(layout.TITLE_GRIP, 20, 10)  # the drag is processed after the clicks
    # On a coupon those clicks open it; on no page do they choose another reason.
    assert len(steps.reasons_given(sandbox)) == 1
    steps.uninstall(window)
    steps.wait_event(sandbox, "Click_Uninstall")
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


def test_other_reasons_are_last_at_every_start(sandbox):
    for start in range(1, 4):
        program = sandbox.start()
        window = program.ready()
        window.click(layout.reason(3))
        event = steps.wait_event(sandbox, "Result_Question_Why_Unistall", start)
        assert "I have other reasons" in event[2]
        window.click(layout.CANCEL)
        assert program.wait_exit() == 0


def test_each_page_has_its_title(sandbox):
    asking, answering, thanking = set(), {}, set()
    for reason in steps.REASONS:
        program = sandbox.start()
        window = program.ready()
        asking.add(steps.title(window))
        steps.choose(sandbox, window, reason)
        answering[reason] = steps.title(window)
        if reason in (3, 4):
            steps.write(window, "x")
            steps.submit(window)
            steps.wait_coupon(window)
            thanking.add(steps.title(window))
        window.click(layout.CANCEL)
        assert program.wait_exit() == 0
    assert len(asking) == 1
    assert len(thanking) == 1, "both feedback pages lead to the same title"
    assert answering[3] == answering[4]
    assert len({*asking, *answering.values(), *thanking}) == 5


@pytest.mark.parametrize("reason, key, from_the_end", (
    (1, "space", False), (2, "Return", False), (3, "space", True), (4, "KP_Enter", False),
    (1, "Return", True), (4, "space", True),
))
def test_a_reason_is_chosen_by_keyboard(sandbox, program, reason, key, from_the_end):
    window = program.window()
    row = steps.row_of(window, reason)
    window.keyboard.key("Tab")
    if from_the_end:
        for _ in range(6):  # the focus stops at the last row
            window.keyboard.key("Down")
        for _ in range(3 - row):
            window.keyboard.key("Up")
    else:
        window.keyboard.key("Up")  # and at the first one
        for _ in range(row):
            window.keyboard.key("Down")
    window.keyboard.key(key)
    steps.wait_page(sandbox, window, reason)
    # The focus moves on from the new page to the buttons.
    for _ in range(3 if reason in (3, 4) else 2):
        window.keyboard.key("Tab")
    window.keyboard.key("Return")
    steps.wait_event(sandbox, "Click_Uninstall")
    assert len(steps.reasons_given(sandbox)) == 1, "moving the focus chooses no reason"
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


def test_escape_does_nothing_in_the_window(sandbox, program):
    window = program.window()
    window.keyboard.key("Escape")
    steps.choose(sandbox, window, 1)
    window.keyboard.key("Escape")
    window.drag(layout.TITLE_GRIP, 20, 10)
    assert program.running
    wait.until(lambda: window.visible, "the window to be still there")
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=False)


# Coupon and link -------------------------------------------------------------------------------


@pytest.mark.parametrize("reason, place, activity", (
    (1, layout.COUPON, "Click_Gift_Url"),
    (2, layout.COUPON, "Click_Gift_Url"),
    (3, layout.FEEDBACK_LINK, "Click_Text_Url"),
))
@pytest.mark.parametrize("configured", (True, False))
def test_opening_an_offer_does_not_change_its_page(sandbox, reason, place, activity, configured):
    if not configured:
        sandbox.locate("vantoronlineconfig.dll").unlink()
        sandbox.set_registry("English")  # an identifier alone would give a link
    program = sandbox.start()
    window = program.ready()
    steps.choose(sandbox, window, reason)
    before = steps.page_screenshot(window)
    window.click(place)
    event = steps.wait_event(sandbox, activity)
    if configured:
        opened = sandbox.wait_noted("xdg-open", "open")
        assert json.loads(event[2]) == {"url": opened.items("args")[0]}
    assert steps.page_screenshot(window) == before
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=False)
    if not configured:
        assert json.loads(event[2]) == {"url": ""}
        assert not sandbox.leftovers()  # no process is left that could still note a link
        assert not sandbox.journal("xdg-open")


@pytest.mark.parametrize("reason, key", ((2, "Return"), (4, "space")))
def test_an_offer_is_opened_by_keyboard(sandbox, program, reason, key):
    window = program.window()
    steps.choose(sandbox, window, reason)
    # On a feedback page the box has the focus first; Submit is disabled while it is empty.
    for _ in range(2 if reason == 4 else 1):
        window.keyboard.key("Tab")
    window.keyboard.key(key)
    sandbox.wait_noted("xdg-open", "open")
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=False)


# Uninstalling and closing ----------------------------------------------------------------------


@pytest.mark.parametrize("page", PAGES)
def test_every_page_can_uninstall(sandbox, program, page):
    window = program.window()
    go_to(sandbox, window, page)
    steps.uninstall(window)
    sandbox.wait_noted("uninstall.exe", "start")
    steps.wait_complete(window)
    window.click(layout.TITLE_CLOSE)
    steps.expect_end(sandbox, program, cleanup=True)


@pytest.mark.parametrize("button", (layout.TITLE_CLOSE, layout.CANCEL), ids=("close", "cancel"))
@pytest.mark.parametrize("page", PAGES[1:])
def test_every_page_can_close_without_uninstalling(sandbox, program, page, button):
    window = program.window()
    go_to(sandbox, window, page)
    window.click(button)
    steps.expect_end(sandbox, program, cleanup=False)
    assert not sandbox.journal("uninstall.exe")


@pytest.mark.parametrize("page", PAGES[1:])
def test_a_reason_can_be_given_while_the_uninstaller_runs(sandbox, program, page):
    window = program.window()
    hold = steps.uninstall_held(sandbox, window)
    first = window.bar_fraction()
    go_to(sandbox, window, page)
    steps.wait_climbing(window, first)
    hold.unlink()
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


def test_a_reason_can_be_given_after_the_uninstallation(sandbox, program):
    window = program.window()
    steps.uninstall(window)
    steps.wait_complete(window)
    go_to(sandbox, window, "thanks for 3")
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)
