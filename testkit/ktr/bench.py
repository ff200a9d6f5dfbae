"""Measures the program beside baselines of the same run: a window with each Qt control that the
program uses, the same with the program's images, icon and libraries, the program with Qt's default
renderer, and the bare query of a tick. Status 0 only if each ratio is within its aim.

The Windows executable under Wine has no other renderer, and neither valgrind nor the tick runs
there: its ratios are those of processor time and memory, and the wake-ups when idle.
"""

import argparse
import os
import re
import signal
import subprocess
import sys
import time
from collections import defaultdict
from contextlib import contextmanager
from dataclasses import dataclass, field
from pathlib import Path
from statistics import median, quantiles
from typing import Iterator, Sequence

from ktr import layout, wait
from ktr.display import Display
from ktr.installation import REPOSITORY, build_directory
from ktr.paint import PaintWatch
from ktr.program import Started
from ktr.resources import peak_memory
from ktr.sandbox import Sandbox
from ktr.screen import colour

PROGRAM = "UninstallUI"
CONTROLS = "window with each control"
CONTENT = "the same with images, icon, libraries"
DEFAULT = "UninstallUI, Qt's default renderer"

_MARK = colour(layout.CANCEL_NORMAL)  # each executable paints this colour last
_QUIET = 0.3  # seconds without painting before the next start may begin
_COMPLETE = 2.0  # seconds without painting after which a slow window is complete
_VALGRIND_DEADLINE = 300.0  # seconds for a start under valgrind, which takes fifty times as long
_COUNTS = 3  # how often instructions and wake-ups are counted; the counts hardly differ
_IDLE = 5.0  # seconds for which the idle program is watched
_TICKS = 50


@dataclass
class Executable:
    """An executable to measure, in a sandbox."""

    title: str
    sandbox: Sandbox
    file: Path
    arguments: list[str] = field(default_factory=list)
    variables: dict[str, str] = field(default_factory=dict)

    @contextmanager
    def started(self, under: Sequence[str] = ()) -> Iterator[Started]:
        """Runs it, under the command `under` if given, and ends it after the block."""
        system = self.sandbox.system
        one = Started([*under, *system.command(self.file, self.arguments)],
                      {**self.sandbox.environment(), **self.variables}, self.sandbox.root,
                      self.sandbox.root / "logs" / self.file.name)
        try:
            yield one
        finally:
            one.kill()
            kept = [other.pid for other in self.sandbox.fakes]
            for process in system.offspring(self.sandbox.root):
                if process.pid not in kept:
                    system.end(process)


class Bench:
    """All figures of one run."""

    def __init__(self, display: Display, sandbox: Sandbox) -> None:
        self._watch = PaintWatch(display.name)
        self._sandbox = sandbox
        self._wine = bool(sandbox.system.executable_suffix)
        # Keep one program running: otherwise Wine starts its services at every start.
        sandbox.hold("KTRUI.exe")
        sandbox.spawn("KTRUI.exe")
        sandbox.wait_processes("KTRUI.exe", 1)
        baseline = sandbox.bin / ("baseline_window" + sandbox.system.executable_suffix)
        baseline.write_bytes(_built(baseline.name).read_bytes())
        baseline.chmod(0o755)
        self.executables = [
            Executable(PROGRAM, sandbox, sandbox.program_file),
            Executable(CONTROLS, sandbox, baseline, ["controls"]),
            Executable(CONTENT, sandbox, baseline, ["content"]),
        ]
        if not self._wine:
            # No scene graph has this name, so Qt takes its default.
            self.executables.append(Executable(DEFAULT, sandbox, sandbox.program_file,
                                             variables={"QT_QUICK_BACKEND": "opengl"}))
        self.figures: dict[tuple[str, str], list[float]] = defaultdict(list)
        """By what was measured and the title."""
        self.wake_ups: list[int] = []

    def run(self, rounds: int) -> None:
        """Measures each executable in each round; the first round is a warm-up."""
        for number in range(rounds + 1):
            _say(f"starts: round {number} of {rounds}")
            for executable in self.executables:
                with self._start(executable) as (_, figures):
                    for what, value in zip(("first", "cpu", "peak"), figures):
                        if number:
                            self.figures[what, executable.title].append(value)
        _say("idle")
        self.wake_ups = [self._idle() for _ in range(_COUNTS)]
        if self._wine:
            return
        for executable in self.executables[:3]:
            _say(f"instructions: {executable.title}")
            self.figures["instructions", executable.title] = [
                self._count(executable) for _ in range(_COUNTS)]
        self._run_ticks(rounds)

    def ratios(self) -> list[tuple[str, float, float]]:
        """The ratios that have aims: the title, the median, the greatest median allowed."""
        wanted = [("processor time to same content", "cpu", PROGRAM, CONTENT, 1.15),
                  ("memory to each control", "peak", PROGRAM, CONTROLS, 1.15)]
        if not self._wine:
            wanted += [("instructions to same content", "instructions", PROGRAM, CONTENT, 1.10),
                       ("first frame to default renderer", "first", PROGRAM, DEFAULT, 0.65),
                       ("memory to default renderer", "peak", PROGRAM, DEFAULT, 0.42),
                       ("tick to its query", "ticks", "tick", "query", 1.05)]
        ratios = [("wake-ups when idle", median(self.wake_ups), 0.0)]
        for title, what, own, baseline, aim in wanted:
            # Each pair is of the same round, or of the same count.
            pairs = zip(self.figures[what, own], self.figures[what, baseline])
            ratios.append((title, median(a / b for a, b in pairs), aim))
        return ratios

    def table(self) -> str:
        """All figures: medians, with quartiles in brackets."""
        columns = (("first frame, ms", "first", 1000, 0), ("processor, ms", "cpu", 1000, 0),
                   ("memory, MB", "peak", 1, 1), ("million instructions", "instructions", 1e-6, 0))
        lines = [f"{'':40}" + "".join(f"{head:>24}" for head, *_ in columns)]
        for title in (executable.title for executable in self.executables):
            spreads = [_spread([factor * value for value in self.figures[what, title]], digits)
                       for _, what, factor, digits in columns]
            lines.append(f"{title:40}" + "".join(f"{spread:>24}" for spread in spreads))
        lines += [f"{title}: {_spread(values)} microseconds of processor time"
                  for (what, title), values in self.figures.items() if what == "ticks"]
        return "\n".join(lines)

    @contextmanager
    def _start(self, executable: Executable
               ) -> Iterator[tuple[Started, tuple[float, float, float]]]:
        """Starts an executable and waits for its first frame.

        Yields the process, and until that frame: seconds, processor time, peak memory in MB.
        """
        self._watch.wait_quiet(_QUIET)
        began = time.monotonic()
        with executable.started() as started:
            # What clock_getcpuclockid(3) gives: all threads, exact to less than a microsecond.
            clock = (~started.pid << 3) | 2
            try:
                painted, (cpu, peak) = self._watch.wait_colour(
                    _MARK, lambda: (time.clock_gettime(clock), peak_memory(started.pid)),
                    wait.DEADLINE)
            except (TimeoutError, OSError, StopIteration):
                raise RuntimeError(f"{executable.title} has shown nothing: {started!r}\n"
                                   f"{started.stderr}") from None
            yield started, (painted - began, cpu, peak)

    def _count(self, executable: Executable) -> int:
        """The instructions that an executable executes until its window is complete."""
        self._watch.wait_quiet(_COMPLETE)
        with executable.started(under=["valgrind", "--tool=callgrind", "--trace-children=no",
                                      "--callgrind-out-file=/dev/null"]) as started:
            self._watch.wait_colour(_MARK, lambda: None, _VALGRIND_DEADLINE)
            self._watch.wait_quiet(_COMPLETE)
            os.kill(started.pid, signal.SIGTERM)
            started.wait_exit()
        # Each forked child reports a count of its own.
        counts = re.findall(rf"^=={started.pid}== Collected : (\d+)$", started.stderr, re.M)
        if len(counts) != 1:
            raise RuntimeError(f"valgrind has counted nothing:\n{started.stderr}")
        return int(counts[0])

    def _idle(self) -> int:
        """How often the idle program wakes up."""
        with self._start(self.executables[0]) as (started, _):
            self._watch.wait_quiet(1.0)
            before = _switches(started.pid)
            time.sleep(_IDLE)
            return _switches(started.pid) - before

    def _run_ticks(self, rounds: int) -> None:
        hold = self._sandbox.hold("uninstall.exe")
        uninstaller = self._sandbox.spawn("uninstall.exe")
        self._sandbox.wait_processes("uninstall.exe", 1)
        for number in range(rounds):
            _say(f"ticks: round {number + 1} of {rounds}")
            for mode in ("bare", "query", "tick"):
                done = subprocess.run(
                    [_built("measure_tick"), mode, str(_TICKS)], cwd=self._sandbox.bin, text=True,
                    env=self._sandbox.environment(), capture_output=True, check=True)
                # Its own processor time and that of the tasklist process.
                self.figures["ticks", mode].append(sum(map(float, done.stdout.split()[:2])))
        hold.unlink()
        uninstaller.wait_exit()


def arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("--wine", action="store_true", help="the Windows executable")
    parser.add_argument("--runs", type=int, default=20, help="starts of each (20)")


def run(options: argparse.Namespace) -> int:
    """Measures, prints the table and one line of ratios."""
    os.environ["KTR_BUILD"] = str(
        REPOSITORY / "build" / ("windows" if options.wine else "linux-release"))
    print(f"{os.cpu_count()} processors, load {os.getloadavg()[0]:.1f} before; {options.runs} "
          "starts of each, in turn; medians, in brackets the quartiles", flush=True)
    with Display() as display:
        display.reset()
        sandbox = Sandbox(display)
        try:
            bench = Bench(display, sandbox)
            bench.run(options.runs)
        finally:
            sandbox.cleanup()
    print(bench.table())
    ratios = bench.ratios()
    missed = [title for title, value, aim in ratios if value > aim]
    verdict = f"NOT within the aims: {', '.join(missed)}" if missed else "all within the aims"
    listed = "; ".join(f"{title} {value:.2f} of {aim:g}" for title, value, aim in ratios)
    print(f"\n{listed}: {verdict}")
    return 1 if missed else 0


def _built(name: str) -> Path:
    """A program that only the benchmark needs."""
    file = build_directory() / "testkit" / "bench" / name
    if not file.exists():
        raise RuntimeError(f"{file} is missing; ./bench builds it")
    return file


def _switches(pid: int) -> int:
    """How often its threads have waited or been interrupted."""
    return sum(int(times) for task in Path(f"/proc/{pid}/task").iterdir()
               for times in re.findall(r"ctxt_switches:\s*(\d+)", (task / "status").read_text()))


def _spread(values: Sequence[float], digits: int = 0) -> str:
    if len(values) < 2:
        return "".join(f"{value:.{digits}f}" for value in values)
    low, _, high = quantiles(values, n=4, method="inclusive")
    return f"{median(values):.{digits}f} ({low:.{digits}f} to {high:.{digits}f})"


def _say(text: str) -> None:
    print(text, file=sys.stderr, flush=True)
