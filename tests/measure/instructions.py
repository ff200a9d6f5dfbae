"""How many instructions a start executes until its window stands, as valgrind counts them."""

from __future__ import annotations

import os
import re
import signal

from contenders import Contender
from paint_watch import PaintWatch
from starts import MARK

_SLOW = 300.0
"""Seconds for a start that is some fifty times as slow as usual."""
_STANDS = 2.0
"""Seconds without painting after which the window is taken to stand."""


def count(watch: PaintWatch, contender: Contender) -> int:
    """Starts a contender under valgrind and counts what it executes itself, in user space."""
    watch.wait_quiet(_STANDS)
    started = contender.start(under=[
        "valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", "--trace-children=no"])
    try:
        watch.wait_colour(MARK, lambda: None, _SLOW)
        watch.wait_quiet(_STANDS)
        os.kill(started.pid, signal.SIGTERM)
        started.wait_exit()
    finally:
        contender.end(started)
    # Each copy that it makes of itself to start another program tells its own count.
    counts = re.findall(rf"^=={started.pid}== Collected : (\d+)$", started.stderr, re.M)
    if len(counts) != 1:
        raise RuntimeError(f"valgrind has counted nothing:\n{started.stderr}")
    return int(counts[0])
