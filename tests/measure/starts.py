"""One start of a contender, from nothing to its first frame."""

from __future__ import annotations

import sys
import time
from contextlib import contextmanager
from dataclasses import dataclass
from typing import Iterator

import process
import report
from contenders import Contender
from ktr import layout, wait
from ktr.program import Started
from ktr.screen import colour
from paint_watch import PaintWatch

MARK = colour(layout.CANCEL_NORMAL)
"""What every contender paints somewhere, the last of it all."""
HEAD = ["", "first frame, ms", "processor time, ms", "peak memory, MB"]
"""Of a table of starts."""
QUIET = 0.3
"""Seconds without painting after which a display has calmed down from the start before."""


@dataclass(frozen=True)
class Start:
    """When it began and when it had painted, by `time.monotonic()`; seconds of processor time, its
    own and of `server`, and megabytes until then."""

    began: float
    painted: float
    cpu: float
    server_cpu: float
    peak: float

    @property
    def first_frame(self) -> float:
        """Seconds to the first frame."""
        return self.painted - self.began


@contextmanager
def one_start(watch: PaintWatch, contender: Contender,
              server: int = 0) -> Iterator[tuple[Started, Start]]:
    """Starts a contender and waits for its first frame; it is ended after the block.

    `server` is another process whose processor time is counted, or 0. A contender that shows
    nothing ends the command.
    """
    watch.wait_quiet(QUIET)
    server_before = process.cpu_time(server) if server else 0.0
    began = time.monotonic()
    started = contender.start()

    def look() -> tuple[float, float, float]:
        spent = process.cpu_time(server) - server_before if server else 0.0
        return process.cpu_time(started.pid), spent, process.peak_memory(started.pid)

    try:
        try:
            painted, used = watch.wait_colour(MARK, look, wait.DEADLINE)
        except (TimeoutError, ProcessLookupError, StopIteration):
            sys.exit(f"{contender.title} has shown nothing: {started!r}\n{started.stderr}")
        yield started, Start(began, painted, *used)
    finally:
        contender.end(started)


def row(title: str, starts: list[Start]) -> list[str]:
    """A contender's line in such a table."""
    return [title, report.milliseconds(start.first_frame for start in starts),
            report.milliseconds(start.cpu for start in starts),
            report.spread([start.peak for start in starts], 1)]
