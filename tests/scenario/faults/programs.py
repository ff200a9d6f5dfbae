"""Faults of the task list and of the uninstaller."""

from __future__ import annotations

import time

from ktr import steps
from ktr import layout, wait
from ktr.sandbox import Sandbox
from faults.fault import Fault
from faults.files import GARBAGE
from faults.outcomes import EMPTY_BAR, UNCHANGED, Run

QUERY_TIMEOUT = 30.0
"""Seconds that a query of the task list may take."""
_WINE_SAYS = (r"wine: failed to open .*", r".*is not a valid Win32 application.*")


def _tasklist(**settings: object):
    return lambda sandbox: sandbox.configure("tasklist", **settings)


def _without(name: str):
    return lambda sandbox: sandbox.locate(name).unlink()


def _replace_uninstaller(sandbox: Sandbox, content: bytes) -> None:
    file = sandbox.bin / "uninstall.exe"
    mode = file.stat().st_mode
    file.unlink()
    file.write_bytes(content)
    file.chmod(mode)


def _not_executable(sandbox: Sandbox) -> None:
    (sandbox.bin / "uninstall.exe").chmod(0o644)


def _a_folder(sandbox: Sandbox) -> None:
    (sandbox.bin / "uninstall.exe").unlink()
    (sandbox.bin / "uninstall.exe").mkdir()


def _finish(sandbox: Sandbox, program, window) -> None:
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


def _hang_in_the_product_check(sandbox: Sandbox, fault: Fault) -> None:
    sandbox.configure("tasklist", note=1, hang=1, show="KTRUI.exe")
    program = fault.start(sandbox)
    window = program.ready()
    began = time.monotonic()
    steps.uninstall(window)
    sandbox.wait_noted("tasklist", "query")
    sandbox.configure("tasklist", hang=None, show=None)
    # Its output before the timeout counts: the warning appears.
    box = program.box(wait.DEADLINE + QUERY_TIMEOUT)
    assert time.monotonic() - began > QUERY_TIMEOUT - 1
    box.click(layout.BOX_OK)
    box.wait_gone()
    steps.uninstall(window)
    _finish(sandbox, program, window)


def _hang_in_the_wait(sandbox: Sandbox, fault: Fault) -> None:
    sandbox.configure("tasklist", hide="uninstall.exe")
    hold = sandbox.hold("uninstall.exe")
    program = fault.start(sandbox)
    window = program.ready()
    steps.uninstall(window)
    sandbox.wait_noted("uninstall.exe", "start")
    sandbox.configure("tasklist", note=1, hang=1, silent=1)
    sandbox.wait_noted("tasklist", "query")
    began = time.monotonic()
    sandbox.configure("tasklist", hang=None, silent=None, hide=None)
    steps.wait_climbing(window, patience=QUERY_TIMEOUT)
    assert time.monotonic() - began > QUERY_TIMEOUT - 10
    hold.unlink()
    _finish(sandbox, program, window)


def _hang_in_a_tick(sandbox: Sandbox, fault: Fault) -> None:
    program = fault.start(sandbox)
    window = program.ready()
    hold = steps.uninstall_held(sandbox, window)
    sandbox.configure("tasklist", note=1, hang=1, silent=1)
    sandbox.wait_noted("tasklist", "query")
    began = time.monotonic()
    wait.until(lambda: steps.complete_text_seen(window), "the green text",
               wait.DEADLINE + QUERY_TIMEOUT)
    assert time.monotonic() - began > QUERY_TIMEOUT - 10
    _finish(sandbox, program, window)
    hold.unlink()


def _another_takes_over(sandbox: Sandbox, fault: Fault) -> None:
    program = fault.start(sandbox)
    window = program.ready()
    hold = steps.uninstall_held(sandbox, window)
    other_hold = sandbox.root / "hold" / "other"
    other_hold.touch()
    sandbox.spawn("uninstall.exe", inside=False, hold_file=other_hold)
    sandbox.wait_processes("uninstall.exe", 2)
    hold.unlink()
    sandbox.wait_processes("uninstall.exe", 1)
    steps.wait_climbing(window, steps.wait_climbing(window))
    other_hold.unlink()
    _finish(sandbox, program, window)


def _killed(sandbox: Sandbox, fault: Fault) -> None:
    program = fault.start(sandbox)
    window = program.ready()
    steps.uninstall_held(sandbox, window)
    for process in sandbox.processes("uninstall.exe"):
        sandbox.system.end(process)
    _finish(sandbox, program, window)


def _no_task_list(sandbox: Sandbox, fault: Fault) -> None:
    program = fault.start(sandbox)
    window = program.ready()
    steps.uninstall(window)
    sandbox.wait_noted("uninstall.exe", "end")
    steps.wait_buttons_disabled(window)
    assert window.bar_fraction() == 0.0
    window.close()
    steps.expect_end(sandbox, program, cleanup=False)


COMPLETES = "The bar continues until the last one has ended; everything else works unchanged."


def _ends_unseen(sandbox: Sandbox) -> None:
    sandbox.configure("uninstall.exe", mode="never")
    # A fast `tasklist` would still see it now and then.
    sandbox.configure("tasklist", hide="uninstall.exe")


FAULTS = [
    Fault("task list: missing", Run(EMPTY_BAR.description, _no_task_list), _without("tasklist"),
          stderr=_WINE_SAYS),
    Fault("task list: ends with 1, without a list", EMPTY_BAR, _tasklist(exit=1, silent=1)),
    Fault("task list: ends with 1 after its list", UNCHANGED, _tasklist(exit=1)),
    Fault("task list: prints nothing", EMPTY_BAR, _tasklist(silent=1)),
    Fault("task list: is killed after its list", UNCHANGED, _tasklist(killed=1)),
    Fault("task list: prints on standard error", UNCHANGED, _tasklist(complain="ERROR: no")),
    Fault("task list: prints 10 MiB first", UNCHANGED, _tasklist(bytes=10 << 20)),
    Fault("task list: prints invalid UTF-8", UNCHANGED, _tasklist(say="%FF%FE%00%80uninstall")),
    Fault("task list: hangs in the check for the product",
          Run("After 30 seconds its output so far counts; later queries work unchanged.",
              _hang_in_the_product_check)),
    Fault("task list: hangs in the wait for the uninstaller",
          Run("After 30 seconds it counts as an empty list; later queries work unchanged.",
              _hang_in_the_wait)),
    Fault("task list: hangs in a tick",
          Run("After 30 seconds it counts as an empty list: the bar completes.",
              _hang_in_a_tick)),
    Fault("uninstaller: missing", EMPTY_BAR, _without("uninstall.exe"), stderr=_WINE_SAYS),
    Fault("uninstaller: a folder", EMPTY_BAR, _a_folder, stderr=_WINE_SAYS),
    Fault("uninstaller: not executable", EMPTY_BAR, _not_executable,
          linux_only="on Windows the content makes a file executable"),
    Fault("uninstaller: empty", EMPTY_BAR, lambda sandbox: _replace_uninstaller(sandbox, b""),
          stderr=_WINE_SAYS),
    Fault("uninstaller: garbage", EMPTY_BAR,
          lambda sandbox: _replace_uninstaller(sandbox, GARBAGE), stderr=_WINE_SAYS),
    Fault("uninstaller: ends before it is seen", EMPTY_BAR,
          _ends_unseen),
    Fault("uninstaller: fails", UNCHANGED,
          lambda sandbox: sandbox.configure("uninstall.exe", exit=1)),
    Fault("uninstaller: another one of the same name takes over",
          Run(COMPLETES, _another_takes_over)),
    Fault("uninstaller: is killed",
          Run("The bar completes; everything else works unchanged.", _killed)),
]
