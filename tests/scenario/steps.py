"""What several scenarios do and expect, in the words of a user."""

from __future__ import annotations

from driver import layout, wait
from driver.program import RunningProgram
from driver.sandbox import Sandbox
from driver.window import Window

POLLS = 25
"""How often the program asks for an uninstaller that does not appear."""


def uninstall(window: Window) -> None:
    """Presses "Uninstall"."""
    window.click(layout.UNINSTALL)


def wait_climbing(window: Window, beyond: float = 0.0) -> float:
    """Waits until the progress bar is filled further than a fraction; returns how far."""
    return wait.until(
        window.bar_fraction, f"the bar to be filled beyond {beyond:g}",
        accept=lambda seen: seen is not None and seen > beyond,
    )


def wait_buttons_disabled(window: Window) -> None:
    """Waits until both buttons are greyed."""
    window.wait_colour(layout.face(layout.CANCEL), layout.BUTTON_DISABLED)
    window.wait_colour(layout.face(layout.UNINSTALL), layout.BUTTON_DISABLED)


def wait_complete(window: Window) -> None:
    """Waits until the window says that the uninstallation is complete and offers to close."""
    area = window.area(layout.PROGRESS_LABEL)
    screen = window.screen
    wait.until(
        lambda: screen.share(area, layout.COMPLETE_TEXT, tolerance=40), "the green text",
        accept=lambda share: share > 0.005,
    )
    window.hover(layout.TITLE_GRIP)
    window.wait_colour(layout.face(layout.CANCEL), layout.CANCEL_NORMAL)
    assert window.bar_fraction() is None


def wait_given_up(sandbox: Sandbox) -> None:
    """Waits until the program has asked for the uninstaller for the last time.

    The task list must note its queries.
    """
    def queries() -> int:
        entries = sandbox.journal("tasklist", "query")
        return sum("uninstall.exe" in entry.text("args") for entry in entries)

    wait.until(queries, f"{POLLS} queries for the uninstaller", accept=lambda n: n >= POLLS)


def expect_end(sandbox: Sandbox, program: RunningProgram, cleanup: bool) -> None:
    """The program ends with status 0 and, or not, with the clean-up and the companion ended."""
    assert program.wait_exit() == 0
    assert sandbox.read_handle() is None
    assert not sandbox.instance_lock_held()
    if cleanup:
        entry = sandbox.wait_noted("clearKTR.bat", "start")
        assert entry.items("args") == [str(sandbox.root / "Dravik")]
        sandbox.wait_processes("SkyrelWrapExe.exe", 0)
        assert not sandbox.journal("SkyrelWrapExe.exe", "end"), "the companion ended by itself"
    else:
        sandbox.wait_noted("SkyrelWrapExe.exe", "end")
        assert not sandbox.journal("clearKTR.bat")
