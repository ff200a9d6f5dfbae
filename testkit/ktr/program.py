"""A program that was started in a sandbox: the program under test, or a fake."""

import subprocess
from pathlib import Path
from typing import Callable

from ktr import layout, wait
from ktr.display import Display
from ktr.window import Window
from ktr.xserver import die_with_parent

_PAINTED = (layout.CANCEL_NORMAL, layout.CANCEL_HOVERED)
"""The colours of the filled button, without and with the pointer over it."""


class Started:
    """A running or ended process with its output in files of its own."""

    def __init__(self, command: list[str], environment: dict[str, str], directory: Path, log: Path
                 ) -> None:
        self._name = Path(command[0]).name
        self._stdout = log.with_name(log.name + ".out")
        self._stderr = log.with_name(log.name + ".err")
        self._killed = False
        with open(self._stdout, "wb") as out, open(self._stderr, "wb") as err:
            self._process = subprocess.Popen(
                command, env=environment, cwd=directory, stdin=subprocess.DEVNULL,
                stdout=out, stderr=err, preexec_fn=die_with_parent)
        self.pid = self._process.pid

    def __repr__(self) -> str:
        return f"<{self._name} {self.pid}, {self.ending}>"

    @property
    def running(self) -> bool:
        return self._process.poll() is None

    @property
    def ending(self) -> str:
        """How it ended, in words."""
        if self.running:
            return "running"
        return "ended by force" if self._killed else f"status {self._process.returncode}"

    @property
    def stdout(self) -> str:
        """What it, and processes that inherited its standard output, have written so far."""
        return self._stdout.read_text(encoding="utf-8", errors="replace")

    @property
    def stderr(self) -> str:
        return self._stderr.read_text(encoding="utf-8", errors="replace")

    def wait_exit(self, deadline: float = wait.DEADLINE) -> int:
        """Waits until it ends; returns its status, negative for a signal."""
        try:
            return self._process.wait(deadline)
        except subprocess.TimeoutExpired:
            raise wait.TimedOut(f"waited {deadline:g} s for {self!r} to end; "
                                f"its standard error: {self.stderr!r}") from None

    def kill(self) -> None:
        """Ends it at once; no effect on one that has ended."""
        self._killed = self._killed or self.running
        self._process.kill()
        self._process.wait()


class RunningProgram(Started):
    """The program under test."""

    def __init__(self, command: list[str], environment: dict[str, str], directory: Path, log: Path,
                 display: Display) -> None:
        super().__init__(command, environment, directory, log)
        self.display = display

    def windows(self) -> list[Window]:
        """Its windows that the window manager has, the oldest first."""
        return [window for window in self.display.windows.all() if window.pid == self.pid]

    def window(self, deadline: float = wait.DEADLINE) -> Window:
        """Waits until the first window is shown; gives up if the program ends before."""
        return self._wait_window(lambda found: found[:1], "the program's window", deadline)

    def ready(self, deadline: float = wait.DEADLINE) -> Window:
        """Waits until the main window is shown, active and painted."""
        window = self.window(deadline)
        window.wait_colour(layout.face(layout.CANCEL), _PAINTED, deadline)
        wait.until(lambda: window.active, f"{window!r} to be active", deadline)
        return window

    def box(self, deadline: float = wait.DEADLINE) -> Window:
        """Waits until a message box is shown besides the main window, and painted."""
        box = self._wait_window(lambda found: found[1:2], "the program's message box", deadline)
        box.wait_colour(layout.face(layout.BOX_OK), _PAINTED, deadline)
        return box

    def _wait_window(self, choose: Callable[[list[Window]], list[Window]], what: str,
                     deadline: float) -> Window:
        def look() -> list[Window]:
            chosen = choose(self.windows())
            if not chosen and not self.running:
                raise wait.Doomed(f"{self!r} before {what} came; standard error: {self.stderr!r}")
            return chosen

        shown: list[Window] = wait.until(look, what, deadline,
                                         accept=lambda seen: bool(seen) and seen[0].visible)
        return shown[0]
