"""What the program does despite a fault: runs from its start to its end."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Callable

from ktr import steps
from ktr import layout, tree
from ktr.program import RunningProgram
from ktr.sandbox import Sandbox
from ktr.system import MUTEX
from ktr.window import Window
from faults.fault import Fault

CONFIG, TELEMETRY, COMPANION = "vantoronlineconfig.dll", "SkyrelWrap.DLL", "SkyrelWrapExe.exe"
HANDLE, STAGED = "Dravik/bin/hwndFile.ini", "tmp/clearKTR.bat"


@dataclass(frozen=True)
class CompleteRun:
    """A complete run: a reason, its coupon, the uninstallation to its end, "OK"."""

    description: str
    events: bool = True
    offers: bool = True
    clean_up: bool = True
    handle: bool = True
    translated: bool = True

    def run(self, sandbox: Sandbox, fault: Fault) -> None:
        """See `description`."""
        sandbox.configure("uninstall.exe", remove=None, run_ms=500)
        untranslated = None if self.translated else title_without_language(sandbox)
        fault.prepare(sandbox)
        before = sandbox.snapshot()
        program = fault.start(sandbox)
        window = program.ready()
        if not steps.knows_reasons(window):
            # A locale may change the font, and so the looks of the reasons.
            steps.learn_reasons(sandbox.display, fault.prepare, fault.start)
        assert published(sandbox, window) == self.handle
        if untranslated is not None:
            assert steps.title(window) == untranslated
        self._choose(sandbox, window)
        if not self.handle:
            second_start_ends(sandbox, fault)
        steps.uninstall(window)
        steps.wait_complete(window)
        window.click(layout.CANCEL)
        self._expect_end(sandbox, program)
        self._expect_disk(before, sandbox)
        fault.also(sandbox)

    def _choose(self, sandbox: Sandbox, window: Window) -> None:
        if self.events:
            steps.choose(sandbox, window, 1)
        else:
            window.click(layout.reason(steps.row_of(window, 1)))
            steps.wait_coupon(window)
        assert bool(sandbox.journal(CONFIG)) == self.offers

    def _expect_end(self, sandbox: Sandbox, program: RunningProgram) -> None:
        if self.clean_up and self.events and self.handle:
            steps.expect_end(sandbox, program, cleanup=True)
            return
        assert program.wait_exit() == 0
        assert not sandbox.instance_lock_held()
        sandbox.wait_processes(COMPANION, 0)
        assert not sandbox.journal(COMPANION, "end"), "the companion ended by itself"
        if self.clean_up:
            entry = sandbox.wait_noted("clearKTR.bat", "start")
            assert entry.items("args") == [sandbox.shown(sandbox.root / "Dravik")]
        else:
            assert not sandbox.journal("clearKTR.bat")
        assert bool(sandbox.journal(TELEMETRY, "SkyrelSendInfo")) == self.events

    def _expect_disk(self, before: tree.Tree, sandbox: Sandbox) -> None:
        """Only the expected files have been added or changed."""
        difference = tree.compare(before, sandbox.snapshot())
        lock = f"run/{MUTEX}.lock"
        seen = {*difference.added, *difference.removed, *difference.changed}
        assert seen <= {lock, STAGED, HANDLE}, difference


@dataclass(frozen=True)
class Run:
    """A run with steps of its own."""

    description: str
    steps: Callable[[Sandbox, Fault], object]

    def run(self, sandbox: Sandbox, fault: Fault) -> None:
        """See `description`."""
        sandbox.configure("uninstall.exe", remove=None, run_ms=500)
        fault.prepare(sandbox)
        self.steps(sandbox, fault)
        fault.also(sandbox)


def published(sandbox: Sandbox, window: Window) -> bool:
    """Whether the handle file has the window's handle."""
    file = sandbox.handle_file
    return (file.is_file() and file.stat().st_size == 8
            and sandbox.system.publishes(sandbox.read_handle(), window))


def title_without_language(sandbox: Sandbox) -> bytes:
    """The title as drawn without a translation."""
    translations = sandbox.bin / "translations"
    away = translations.rename(sandbox.root / "elsewhere" / "translations")
    program = sandbox.start()
    window = program.ready()
    drawn = steps.title(window)
    window.click(layout.CANCEL)
    assert program.wait_exit() == 0
    sandbox.wait_processes(COMPANION, 0)
    away.rename(translations)
    sandbox.forget_journal()
    return drawn


def second_start_ends(sandbox: Sandbox, fault: Fault) -> None:
    """A second start ends with 0 and leaves one window."""
    second = fault.start(sandbox)
    assert second.wait_exit() == 0
    assert not second.windows()


def _empty_bar(sandbox: Sandbox, fault: Fault) -> None:
    sandbox.configure("tasklist", note=1)
    program = fault.start(sandbox)
    window = program.ready()
    steps.uninstall(window)
    steps.wait_given_up(sandbox)
    steps.wait_buttons_disabled(window)
    assert window.bar_fraction() == 0.0
    window.close()
    steps.expect_end(sandbox, program, cleanup=False)


UNCHANGED = CompleteRun("Everything works unchanged.")
SILENT = CompleteRun("Everything works, without usage events.", events=False)
NO_OFFERS = CompleteRun("Everything works, with empty offers.", offers=False)
NO_CLEAN_UP = CompleteRun("Everything works; the clean-up script does not run, without a message.",
                          clean_up=False)
NO_HANDLE = CompleteRun("Everything works; a second start ends without bringing the window to the "
                        "front.", handle=False)
UNTRANSLATED = CompleteRun("Everything works, with the source texts.", translated=False)
EMPTY_BAR = Run("After 25 queries the bar stays empty. The system can close the window, and the "
                "clean-up does not run.", _empty_bar)
