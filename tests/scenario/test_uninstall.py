"""Uninstalling: the uninstaller, the progress bar, the warning, the clean-up."""

import os

import pytest

from ktr import layout, wait
from ktr.steps import (
    expect_end, uninstall, uninstall_held, uninstaller_queries, wait_buttons_disabled,
    wait_climbing, wait_complete, wait_given_up,
)


def test_an_uninstallation_completes(sandbox, program):
    hold = sandbox.hold("uninstall.exe")
    window = program.window()
    assert window.geometry.size == layout.CARD.size
    sandbox.wait_noted("SkyrelWrapExe.exe", "start")
    uninstall(window)

    started = sandbox.wait_noted("uninstall.exe", "start")
    assert started.items("args") == ["/SP-", "/VERYSILENT"]
    assert started.text("cwd") == sandbox.shown(sandbox.bin)
    wait_buttons_disabled(window)
    first = wait_climbing(window)
    assert first < 1.0
    wait_climbing(window, first)

    hold.unlink()
    sandbox.wait_noted("uninstall.exe", "end")
    wait_complete(window)
    # The uninstall button is hidden: its place is white.
    window.wait_colour(layout.face(layout.UNINSTALL), layout.WHITE)
    assert program.running
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)
    assert len(sandbox.journal("uninstall.exe", "start")) == 1


def test_the_bar_stays_just_below_its_end_while_the_uninstaller_runs(sandbox, program):
    hold = sandbox.hold("uninstall.exe")
    sandbox.configure("tasklist", note=1)
    window = program.window()
    uninstall(window)
    climbed = wait_climbing(window)
    assert climbed < 0.5
    wait_climbing(window, 0.985)
    asked = len(sandbox.journal("tasklist", "query"))
    wait.until(lambda: len(sandbox.journal("tasklist", "query")) > asked + 5, "five more queries")
    assert 0.985 < window.bar_fraction() < 1.0
    hold.unlink()
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


def test_the_uninstaller_may_appear_late(sandbox, program):
    hold = sandbox.hold("uninstall.exe")
    sandbox.configure("tasklist", hide="uninstall.exe", note=1)
    window = program.window()
    uninstall(window)
    wait.until(lambda: uninstaller_queries(sandbox), "three queries without the uninstaller",
               accept=lambda count: count >= 3)
    sandbox.configure("tasklist", hide=None)
    wait_climbing(window)
    hold.unlink()
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


# Wine prints this when a program is removed while it is being started.
@pytest.mark.stderr_allowed(r"wine: failed to open .*tasklist\.exe.*")
def test_the_bar_completes_when_tasklist_is_removed_during_the_run(sandbox, program):
    # Without `tasklist` the uninstaller counts as ended.
    window = program.window()
    hold = uninstall_held(sandbox, window)
    sandbox.locate("tasklist").unlink()
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)
    hold.unlink()


def test_uninstall_cannot_be_pressed_while_the_warning_is_shown(sandbox, program):
    sandbox.spawn("KTRUI.exe")
    sandbox.wait_noted("KTRUI.exe", "start")
    window = program.window()
    uninstall(window)
    box = program.box()
    uninstall(window)
    # The box has moved, so the program has processed the click before.
    box.drag(layout.BOX_TITLE_GRIP, 20, 10)
    assert len(program.windows()) == 2
    box.click(layout.BOX_OK)
    box.wait_gone()
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=False)
    assert len(sandbox.journal("SkyrelWrap.DLL", "SkyrelSendInfo")) == 1


def clean_up(sandbox, program):
    """Uninstalls and closes; returns the journal entry of the clean-up script."""
    sandbox.configure("uninstall.exe", run_ms=1000)
    window = program.window()
    uninstall(window)
    wait_complete(window)
    window.click(layout.TITLE_CLOSE)
    expect_end(sandbox, program, cleanup=True)
    entry = sandbox.wait_noted("clearKTR.bat", "start")
    assert len(sandbox.journal("clearKTR.bat")) == 1
    return entry


def test_the_clean_up_runs_the_copy_in_the_temp_directory(sandbox, program):
    entry = clean_up(sandbox, program)
    assert entry.text("script") == sandbox.shown(sandbox.temp / "clearKTR.bat")
    assert entry.text("cwd") == sandbox.shown(sandbox.temp)


def test_the_clean_up_runs_hidden_and_idle(sandbox, program):
    entry = clean_up(sandbox, program)
    assert entry.text("nice") == "19"
    assert entry.text("policy") == "5"
    assert entry.number("sid") != os.getsid(0), "a session of its own"
    for stream in ("stdin", "stdout", "stderr"):
        assert entry.text(stream) == "/dev/null"


def test_the_uninstaller_inherits_no_lock(sandbox, program):
    hold = sandbox.hold("uninstall.exe")
    uninstall(program.window())
    entry = sandbox.wait_noted("uninstall.exe", "start")
    assert entry.items("fds") == []
    program.window().close()
    assert program.wait_exit() == 0
    # The uninstaller still runs, and the lock is free.
    assert sandbox.processes("uninstall.exe")
    assert not sandbox.instance_lock_held()
    hold.unlink()


def test_a_running_product_causes_a_warning_until_it_is_closed(sandbox, program):
    product = sandbox.spawn("KTRUI.exe")
    sandbox.wait_noted("KTRUI.exe", "start")
    sandbox.configure("uninstall.exe", run_ms=1000)
    window = program.window()
    uninstall(window)
    box = program.box()
    assert box.geometry == layout.box_on(window.geometry)
    assert not sandbox.journal("uninstall.exe")

    box.click(layout.BOX_OK)
    box.wait_gone()
    # The window is idle again: both buttons are enabled, and the user can retry.
    window.hover(layout.TITLE_GRIP)
    window.wait_colour(layout.face(layout.CANCEL), layout.CANCEL_NORMAL)
    window.wait_colour(layout.face(layout.UNINSTALL), layout.UNINSTALL_NORMAL)
    uninstall(window)
    again = program.box()
    assert again != box
    again.click(layout.BOX_CLOSE)
    again.wait_gone()
    assert not sandbox.journal("uninstall.exe")

    product.kill()
    uninstall(window)
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


def test_keyboard_and_window_manager_close_the_box(sandbox, program):
    sandbox.spawn("KTRUI.exe")
    sandbox.wait_noted("KTRUI.exe", "start")
    window = program.window()
    keyboard = sandbox.display.input
    for close in (
        lambda box: keyboard.key("Escape"),
        lambda box: keyboard.key("Return"),
        lambda box: box.close(),
        lambda box: keyboard.key("Alt_L", "F4"),
    ):
        window.click(layout.UNINSTALL)
        box = program.box()
        wait.until(lambda: box.active, "the box to be active")
        close(box)
        box.wait_gone()
        wait.until(lambda: window.active, "the main window to be active again")
    assert program.running
    assert not sandbox.journal("uninstall.exe")
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=False)


def test_a_program_named_like_the_product_in_lower_case_does_not_count(sandbox, program):
    sandbox.spawn("KTRUI.exe", called="ktrui.exe")
    sandbox.wait_processes("ktrui.exe", 1)
    sandbox.configure("uninstall.exe", run_ms=500)
    window = program.window()
    uninstall(window)
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


def test_without_an_uninstaller_only_the_window_manager_closes_the_window(sandbox, program):
    (sandbox.bin / "uninstall.exe").unlink()
    sandbox.configure("tasklist", note=1)
    window = program.window()
    uninstall(window)
    wait_given_up(sandbox)
    wait_buttons_disabled(window)
    assert window.bar_fraction() == 0.0
    window.click(layout.CANCEL)
    window.click(layout.TITLE_CLOSE)
    # The window has moved, so the program has processed the clicks before.
    window.drag(layout.TITLE_GRIP, 40, 30)
    assert program.running
    assert window.bar_fraction() == 0.0
    window.close()
    expect_end(sandbox, program, cleanup=False)


def test_an_uninstaller_of_another_folder_keeps_the_bar_from_completing(sandbox, program):
    sandbox.configure("uninstall.exe", run_ms=300)
    hold = sandbox.root / "hold" / "other"
    hold.touch()
    sandbox.spawn("uninstall.exe", inside=False, hold_file=hold)
    sandbox.wait_noted("uninstall.exe", "start")
    window = program.window()
    uninstall(window)
    sandbox.wait_noted("uninstall.exe", "start", cwd=sandbox.shown(sandbox.bin))
    wait_climbing(window, 0.985)
    assert window.bar_fraction() < 1.0
    hold.unlink()
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


def test_the_title_bar_drags_the_window_also_during_the_run(sandbox, program):
    window = program.window()
    before = window.geometry
    window.drag(layout.TITLE_GRIP, 120, 90)
    assert window.geometry == before.moved(120, 90)
    # The enabled close button does not drag.
    window.drag(layout.TITLE_CLOSE, 60, 60, follows=False)
    assert program.running
    hold = uninstall_held(sandbox, window)
    moved = window.geometry
    # Nor does the disabled one: once the title bar has moved the window, its press was processed.
    window.drag(layout.TITLE_CLOSE, 70, 70, follows=False)
    window.drag(layout.TITLE_GRIP, -50, -40)
    assert window.geometry == moved.moved(-50, -40)
    hold.unlink()
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)
