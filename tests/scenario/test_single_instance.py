"""Single instance: what a second start does."""

import struct

import pytest

from ktr import layout, wait
from ktr.steps import expect_end, uninstall, wait_complete


def second_start_ends(sandbox):
    """A second start exits with 0 before it creates any Qt object.

    With this unknown platform plug-in Qt would abort it.
    """
    second = sandbox.start(environment={"QT_QPA_PLATFORM": "none of that name"})
    assert second.wait_exit() == 0
    assert second.stderr == ""


def wait_in_front(sandbox, window):
    """Waits until the window is on top, and active where the system can give it the focus."""
    wait.until(lambda: window.topmost, "the window to be on top")
    if sandbox.system.gives_focus:
        wait.until(lambda: window.active, "the window to be active")


def test_a_second_start_restores_a_minimised_window(sandbox, program):
    window = program.ready()
    handle = sandbox.read_handle()
    assert sandbox.system.publishes(handle, window)
    window.minimise()
    with sandbox.display.windows.bystander():
        second_start_ends(sandbox)
        wait.until(lambda: not window.iconified and window.visible, "the window to be restored")
        wait.until(lambda: window.active, "the window to be active")
        wait.until(lambda: window.topmost, "the window to be on top")
        wait.until(lambda: "_NET_WM_STATE_ABOVE" not in window.states,
                   "the window not to stay there")
    # The first instance still has its handle file and its lock.
    assert sandbox.read_handle() == handle
    assert sandbox.instance_lock_held()


def test_a_second_start_raises_a_covered_window(sandbox, program):
    window = program.ready()
    with sandbox.display.windows.bystander():
        assert not window.topmost
        second_start_ends(sandbox)
        wait_in_front(sandbox, window)


def test_a_second_start_does_nothing_before_the_window_exists(sandbox):
    with sandbox.holding_instance_lock():
        before = sandbox.snapshot()
        second_start_ends(sandbox)
        assert not before.keys() ^ sandbox.snapshot().keys()
    assert not (sandbox.temp / "clearKTR.bat").exists()
    # Every start loads the telemetry library.
    sandbox.wait_noted("SkyrelWrap.DLL", "load")


def test_a_start_after_the_first_has_ended_opens_a_window(sandbox, program):
    program.window().click(layout.CANCEL)
    assert program.wait_exit() == 0
    again = sandbox.start()
    again.ready().click(layout.CANCEL)
    assert again.wait_exit() == 0


def test_a_second_start_ends_also_while_the_first_waits_for_tasklist(sandbox, program):
    """The first one processes no events then, and the second start may have to wait for it."""
    window = program.ready()
    sandbox.configure("uninstall.exe", run_ms=1000)
    sandbox.configure("tasklist", note=1, hang=1)
    uninstall(window)
    sandbox.wait_noted("tasklist", "query")
    sandbox.configure("tasklist", hang=None)  # from the next query on
    with sandbox.display.windows.bystander():
        second_start_ends(sandbox)
        # If the second start had to wait, the first one has already stopped its query.
        for process in sandbox.system.offspring(sandbox.root):
            if process.name.startswith("tasklist"):
                sandbox.system.end(process)
        wait_in_front(sandbox, window)
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


def _raw(number: int) -> bytes:
    return struct.pack("<Q", number)


@pytest.mark.parametrize(
    ("content", "activates"),
    [
        pytest.param(lambda window: _raw(window), True, id="exact"),
        pytest.param(lambda window: _raw(window) + b"more", True, id="longer"),
        pytest.param(lambda window: _raw(window)[:7], False, id="seven bytes"),
        pytest.param(lambda window: _raw(window)[:4], False, id="four bytes"),
        pytest.param(lambda window: b"", False, id="empty"),
        pytest.param(lambda window: _raw(0), False, id="zero"),
        pytest.param(lambda window: _raw(0x7FFFFFF), False, id="stale"),
        pytest.param(lambda window: _raw(window + (1 << 32)),
                     "where handles have 32 bits", id="beyond 32 bits"),
        pytest.param(None, False, id="missing"),
    ],
)
# Wine keeps the upper half of a handle in window messages, and Qt then finds no window for them.
@pytest.mark.stderr_allowed(r"windowsProc: No Qt Window found for event .*")
def test_a_second_start_uses_the_handle_file(sandbox, program, content, activates):
    window = program.ready()
    if content is None:
        sandbox.handle_file.unlink()
    else:
        sandbox.write_handle(content(sandbox.read_handle()))
    with sandbox.display.windows.bystander() as bystander:
        second_start_ends(sandbox)
        if activates == "where handles have 32 bits":
            activates = sandbox.system.handle_bits == 32
        if activates:
            wait_in_front(sandbox, window)
        else:
            # The second start has ended, so all its requests to the window manager came before.
            sandbox.display.windows.wait_for_window_manager()
            assert bystander.active and bystander.topmost
            assert not window.active
