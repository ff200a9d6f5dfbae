"""The way from the reasons to the page that answers one, and the uninstallation from every page."""

import pytest

import steps
from driver import layout, wait

PAGES = ("reasons", 1, 2, 3, 4, "thanks")


def go_to(sandbox, window, page):
    """Takes the window to a page by mouse and keyboard."""
    if page == "reasons":
        return
    steps.choose(sandbox, window, 4 if page == "thanks" else page)
    if page == "thanks":
        steps.write(window, "x")
        steps.submit(window)
        steps.wait_coupon(window)


@pytest.mark.parametrize("reason", (1, 2, 3, 4))
def test_a_reason_leads_to_its_page_for_good(sandbox, program, reason):
    window = program.window()
    steps.choose(sandbox, window, reason)
    before = len(steps.events(sandbox))
    window.click(layout.reason(1))
    window.drag(layout.TITLE_GRIP, 20, 10)  # whoever answers this has seen the click
    again = steps.events(sandbox)[before:]
    # On a coupon that click opens it; nowhere does it choose once more.
    assert all(activity != "Result_Question_Why_Unistall" for _, activity, _ in again)
    steps.uninstall(window)
    steps.wait_event(sandbox, "Click_Uninstall")
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


def test_other_reasons_stand_last_at_every_start(sandbox):
    for start in range(1, 4):
        program = sandbox.start()
        window = program.ready()
        window.click(layout.reason(3))
        event = steps.wait_event(sandbox, "Result_Question_Why_Unistall", start)
        assert "I have other reasons" in event[2]
        window.click(layout.CANCEL)
        assert program.wait_exit() == 0


@pytest.mark.parametrize("row, key", ((0, "space"), (1, "Return"), (3, "space")))
def test_a_reason_by_keyboard(sandbox, program, row, key):
    window = program.window()
    rows = {place: reason for reason, place in steps.reason_rows(window).items()}
    window.keyboard.key("Tab")  # the title's button
    window.keyboard.key("Tab")
    for _ in range(row):
        window.keyboard.key("Down")
    assert not steps.events(sandbox), "moving on chooses nothing"
    window.keyboard.key(key)
    steps.wait_page(sandbox, window, rows[row])
    # The keyboard goes on from the new page to the buttons: Uninstall is not far.
    for _ in range(3 if rows[row] in (3, 4) else 2):
        window.keyboard.key("Tab")
    window.keyboard.key("Return")
    steps.wait_event(sandbox, "Click_Uninstall")
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


@pytest.mark.parametrize("page", PAGES)
def test_uninstalls_from_every_page(sandbox, program, page):
    window = program.window()
    go_to(sandbox, window, page)
    steps.uninstall(window)
    sandbox.wait_noted("uninstall.exe", "start")
    steps.wait_complete(window)
    window.click(layout.TITLE_CLOSE)
    steps.expect_end(sandbox, program, cleanup=True)


@pytest.mark.parametrize("page", (1, 3, "thanks"))
def test_leaves_without_a_trace_from_another_page(sandbox, program, page):
    window = program.window()
    go_to(sandbox, window, page)
    window.click(layout.TITLE_CLOSE if page == 3 else layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=False)
    assert not sandbox.journal("uninstall.exe")


def test_a_reason_can_be_given_while_the_uninstaller_runs(sandbox, program):
    hold = sandbox.hold("uninstall.exe")
    window = program.window()
    steps.uninstall(window)
    steps.wait_climbing(window)
    steps.choose(sandbox, window, 3)
    steps.write(window, "too late")
    steps.submit(window)
    steps.wait_coupon(window)
    assert window.bar_fraction() is not None
    hold.unlink()
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
