"""Every way to close the window in every state: does it close, and does the clean-up run?"""

import pytest

from ktr import layout
from ktr.steps import (
    events, expect_end, uninstall, uninstall_held, wait_buttons_disabled, wait_climbing,
    wait_complete, wait_given_up,
)


def idle(sandbox, program):
    """Nothing has been started."""
    return lambda: program.window().click(layout.CANCEL), False


def box_up(sandbox, program):
    """The product runs and the warning is shown."""
    sandbox.spawn("KTRUI.exe")
    sandbox.wait_noted("KTRUI.exe", "start")
    uninstall(program.window())
    box = program.box()

    def go_on():
        box.click(layout.BOX_OK)
        box.wait_gone()
        program.window().click(layout.CANCEL)

    return go_on, False


def start_up_wait(sandbox, program):
    """The uninstaller was started and has not been seen yet."""
    hold = sandbox.hold("uninstall.exe")
    sandbox.configure("tasklist", hide="uninstall.exe")
    uninstall(program.window())
    sandbox.wait_noted("uninstall.exe", "start")
    wait_buttons_disabled(program.window())

    def go_on():
        sandbox.configure("tasklist", hide=None)
        if program.windows():
            wait_climbing(program.window())
        hold.unlink()
        if program.windows():
            wait_complete(program.window())
            program.window().click(layout.CANCEL)

    return go_on, True


def running(sandbox, program):
    """The bar climbs."""
    hold = uninstall_held(sandbox, program.window())

    def go_on():
        hold.unlink()
        if program.windows():
            wait_complete(program.window())
            program.window().click(layout.CANCEL)

    return go_on, True


def failed_start(sandbox, program):
    """The uninstaller never appeared."""
    sandbox.configure("uninstall.exe", mode="never")
    sandbox.configure("tasklist", hide="uninstall.exe", note=1)
    uninstall(program.window())
    wait_given_up(sandbox)
    wait_buttons_disabled(program.window())
    return lambda: program.windows() and program.window().close(), False


def complete(sandbox, program):
    """The uninstaller has ended."""
    sandbox.configure("uninstall.exe", run_ms=500)
    uninstall(program.window())
    wait_complete(program.window())
    return lambda: None, True


def wait_input_processed(program, state, window):
    """Waits until the program has processed all input so far."""
    if state is running:
        # The program processes all events between two steps of the bar.
        for _ in range(2):
            wait_climbing(window, window.bar_fraction())
    elif state is box_up:
        # The box blocks the window; events of both are processed in order.
        program.box().drag(layout.BOX_TITLE_GRIP, 30, 20)
    else:
        # Few steps: while the program waits for the uninstaller, each one costs one of its queries.
        window.drag(layout.TITLE_GRIP, 30, 20, steps=2)


def expect_no_event_of_its_own(sandbox, state):
    """Closing sends no event: the only events are those that led to the state."""
    pressed = [] if state is idle else [("UninstallPop", "Click_Uninstall", "")]
    assert events(sandbox) == pressed


PATHS = {
    "title bar": lambda window: window.click(layout.TITLE_CLOSE),
    "Cancel/OK": lambda window: window.click(layout.CANCEL),
    "window manager": lambda window: window.close(),
}

# Does this way close the window in this state, and does the clean-up run? If the window stays, the
# run continues to its end, and the clean-up runs if the uninstallation completed.
CLOSES, CLOSES_AND_CLEANS, STAYS = "closes", "closes and cleans up", "stays"
TABLE = {
    (idle, "title bar"): CLOSES,
    (idle, "Cancel/OK"): CLOSES,
    (idle, "window manager"): CLOSES,
    (box_up, "title bar"): STAYS,
    (box_up, "Cancel/OK"): STAYS,
    (box_up, "window manager"): STAYS,
    (start_up_wait, "title bar"): STAYS,
    (start_up_wait, "Cancel/OK"): STAYS,
    (start_up_wait, "window manager"): CLOSES,
    (running, "title bar"): STAYS,
    (running, "Cancel/OK"): STAYS,
    (running, "window manager"): CLOSES,
    (failed_start, "title bar"): STAYS,
    (failed_start, "Cancel/OK"): STAYS,
    (failed_start, "window manager"): CLOSES,
    (complete, "title bar"): CLOSES_AND_CLEANS,
    (complete, "Cancel/OK"): CLOSES_AND_CLEANS,
    (complete, "window manager"): CLOSES,
}


@pytest.mark.parametrize(
    ("state", "path"), TABLE, ids=[f"{state.__name__}-{path}" for state, path in TABLE]
)
def test_the_window_closes_as_the_table_says(sandbox, program, state, path):
    expected = TABLE[state, path]
    go_on, reaches_the_end = state(sandbox, program)
    window = program.window()
    PATHS[path](window)
    if expected == STAYS:
        wait_input_processed(program, state, window)
        assert window in program.windows() and program.running
        go_on()
        expect_end(sandbox, program, cleanup=reaches_the_end)
        expect_no_event_of_its_own(sandbox, state)
        return
    window.wait_gone()
    if state is start_up_wait:
        go_on()
    expect_end(sandbox, program, cleanup=expected == CLOSES_AND_CLEANS)
    expect_no_event_of_its_own(sandbox, state)
    if state is running:
        assert sandbox.processes("uninstall.exe"), "the uninstaller still runs"
        go_on()
