"""A killed program, a lost display, and changes of clock and locale."""

from __future__ import annotations

import subprocess
from pathlib import Path
from typing import Callable

from ktr import steps
from ktr.display import Display
from ktr.sandbox import Sandbox
from ktr.window import Window
from faults.fault import Fault
from faults.outcomes import COMPANION, UNCHANGED, CompleteRun, Run

RESTARTS = "Nothing blocks the next start, which works unchanged."
FAKETIME = "/usr/lib/x86_64-linux-gnu/faketime/libfaketime.so.1"
ONE_DISPLAY = "Wine's desktop ends with its display"


def _start_again(sandbox: Sandbox, fault: Fault) -> None:
    """Ends the processes that the killed run has left, and uninstalls the product."""
    for process in sandbox.system.offspring(sandbox.root):
        sandbox.system.end(process)
    sandbox.wait_processes(COMPANION, 0)
    sandbox.forget_journal()
    sandbox.configure("uninstall.exe", hold_file=None)
    CompleteRun(UNCHANGED.description).run(sandbox, Fault(fault.what, UNCHANGED))


def _killed_at(stage: Callable[[Sandbox, Window], object]) -> Run:
    def cut_short(sandbox: Sandbox, fault: Fault) -> None:
        program = fault.start(sandbox)
        stage(sandbox, program.ready())
        program.kill()
        assert not sandbox.instance_lock_held()
        _start_again(sandbox, fault)

    return Run(RESTARTS, cut_short)


def _killed_before_its_window(sandbox: Sandbox, fault: Fault) -> None:
    program = fault.start(sandbox)
    # The library loads before everything else. Its companion must not appear after the kill.
    sandbox.wait_noted(COMPANION, "start")
    program.kill()
    assert not sandbox.instance_lock_held()
    _start_again(sandbox, fault)


def _waiting(sandbox: Sandbox, window: Window) -> None:
    sandbox.configure("tasklist", hide="uninstall.exe", note=1)
    steps.uninstall(window)
    steps.wait_buttons_disabled(window)
    sandbox.configure("tasklist", hide=None)


def _warned(sandbox: Sandbox, window: Window) -> None:
    sandbox.configure("tasklist", show="KTRUI.exe")
    steps.uninstall(window)
    sandbox.programs[-1].box()
    sandbox.configure("tasklist", show=None)


def _complete(sandbox: Sandbox, window: Window) -> None:
    steps.uninstall(window)
    steps.wait_complete(window)


def _display_ends(sandbox: Sandbox, fault: Fault) -> None:
    shared = sandbox.display
    with Display() as own:
        sandbox.display = own
        try:
            program = fault.start(sandbox)
            steps.uninstall_held(sandbox, program.ready())
        finally:
            sandbox.display = shared
    assert program.wait_exit() != 0
    assert not sandbox.instance_lock_held()
    _start_again(sandbox, fault)


def _no_display(sandbox: Sandbox, fault: Fault) -> None:
    program = sandbox.start(environment={"DISPLAY": ":1.invalid"})
    assert program.wait_exit() != 0
    assert not sandbox.instance_lock_held()
    assert not sandbox.handle_file.exists()
    _start_again(sandbox, fault)


def _slow_uninstaller(sandbox: Sandbox) -> None:
    sandbox.configure("uninstall.exe", run_ms=4000)


def _locale(name: str) -> Fault:
    """The program in a locale, which is generated if the system has its source."""
    source, _, encoding = name.partition(".")

    def make(sandbox: Sandbox) -> None:
        if encoding and (Path("/usr/share/i18n/locales") / source).exists():
            (sandbox.root / "locales").mkdir()
            subprocess.run(["/usr/bin/localedef", "--no-archive", "-i", source, "-f", encoding,
                            sandbox.root / "locales" / name], check=True, capture_output=True)

    return Fault(f"locale: {name}", UNCHANGED, make, linux_only="Windows has other locales",
                 stderr=(r"Fontconfig warning: ignoring .*",),
                 environment=lambda sandbox: {"LC_ALL": name,
                                              "LOCPATH": str(sandbox.root / "locales")})


FAULTS = [
    Fault("killed before it has a window", Run(RESTARTS, _killed_before_its_window)),
    Fault("killed with the window shown", _killed_at(lambda sandbox, window: None)),
    Fault("killed with a coupon shown",
          _killed_at(lambda sandbox, window: steps.choose(sandbox, window, 2))),
    Fault("killed with the warning shown", _killed_at(_warned)),
    Fault("killed while it waits for the uninstaller", _killed_at(_waiting)),
    Fault("killed during the run", _killed_at(steps.uninstall_held)),
    Fault("killed after the run", _killed_at(_complete)),
    Fault("the display ends during the run",
          Run("Qt ends the program. " + RESTARTS, _display_ends),
          linux_only=ONE_DISPLAY, stderr=(r"The X11 connection broke.*", r"XIO: .*", r"\s.*")),
    Fault("there is no display",
          Run("Qt ends the program. " + RESTARTS, _no_display),
          linux_only=ONE_DISPLAY, stderr=(r"qt\.qpa\.xcb: .*", r"This application failed .*",
                                          r"Available platform plugins .*", r"qt\.qpa\.plugin: .*",
                                          r"\s*")),
    Fault("midnight, and a new year, during the run", UNCHANGED, _slow_uninstaller,
          environment=lambda sandbox: {
              "LD_PRELOAD": FAKETIME, "FAKETIME": "@2025-12-31 23:59:57", "TZ": "UTC",
              "FAKETIME_DONT_FAKE_MONOTONIC": "1"},
          uninstrumented=True, linux_only="libfaketime changes the clock"),
    *(_locale(name) for name in ("C", "tr_TR.UTF-8", "ar_EG.UTF-8", "th_TH.UTF-8",
                                 "tr_TR.ISO-8859-9", "no_SUCH.UTF-8")),
]
