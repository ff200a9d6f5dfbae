"""What the program needs once its window stands: at rest, for a tick, and at the end of a run."""

from __future__ import annotations

import os
import re
import select
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path

import process
from ktr import steps
from contenders import Contender, built
from ktr import layout, wait
from ktr.sandbox import Sandbox
from paint_watch import PaintWatch
from starts import one_start

_REST = 5.0
"""Seconds of watching it at rest."""
_TICKS = 50
_SETTLED = 1.0


@dataclass(frozen=True)
class Tick:
    """Microseconds of processor time, own and of the task list; megabytes at the own peak."""

    own: float
    task_list: float
    peak: float

    @property
    def both(self) -> float:
        """What it takes in all."""
        return self.own + self.task_list


def at_rest(watch: PaintWatch, contender: Contender) -> tuple[float, int]:
    """Microseconds of processor time and times of waking up while nobody does anything."""
    with one_start(watch, contender) as (started, _):
        watch.wait_quiet(_SETTLED)
        before = process.cpu_time(started.pid), _switches(started.pid)
        time.sleep(_REST)
        after = process.cpu_time(started.pid), _switches(started.pid)
    return 1e6 * (after[0] - before[0]), after[1] - before[1]


def tick(sandbox: Sandbox, mode: str) -> Tick:
    """The average of many; `mode` is "tick", "query" for its question alone, or "bare" for that
    question in the cheapest way that the system has."""
    done = subprocess.run([built("measure_tick", ""), mode, str(_TICKS)], cwd=sandbox.bin,
                          env=sandbox.environment(), capture_output=True, text=True, check=True)
    own, task_list, peak = map(float, done.stdout.split())
    return Tick(own, task_list, peak / 1024)


def end_to_complete(sandbox: Sandbox) -> float:
    """Seconds from the end of the uninstaller until the window says so, looked at fifty times a
    second; a whole run."""
    hold = sandbox.hold("uninstall.exe")
    # What runs here so that something does; the program would wait for it to be closed.
    sandbox.configure("tasklist", hide="KTRUI.exe")
    program = sandbox.start()
    try:
        window = program.ready()
        steps.uninstall(window)
        uninstaller = sandbox.wait_processes("uninstall.exe", 1)[0]
        steps.wait_buttons_disabled(window)
        steps.wait_climbing(window)
        handle = os.pidfd_open(uninstaller.pid)
        hold.unlink()
        select.select([handle], [], [], wait.DEADLINE)
        os.close(handle)
        ended = time.monotonic()
        # The button has its colour again as soon as all is done.
        window.wait_colour(layout.face(layout.CANCEL), layout.CANCEL_NORMAL)
        return time.monotonic() - ended
    finally:
        program.kill()
        sandbox.programs.remove(program)


def _switches(pid: int) -> int:
    return sum(int(times) for task in Path(f"/proc/{pid}/task").iterdir()
               for times in re.findall(r"ctxt_switches:\s*(\d+)", (task / "status").read_text()))
