"""Many starts at once: exactly one window, and nothing is left."""

import pytest

from ktr import layout, steps, wait
from ktr.wine import is_windows

STARTS, ROUNDS = (10, 1) if is_windows() else (50, 2)
LONG = 300.0
"""Seconds that fifty programs may take to start at once on two cores."""


def at_once(sandbox, count):
    """Starts the program several times, all at the same moment."""
    gate = sandbox.root / "gate"
    behind_the_gate = ("/bin/sh", "-c",
                       f'while [ ! -e "{gate}" ]; do sleep 0.05; done; exec "$0" "$@"')
    started = [sandbox.start(under=behind_the_gate) for _ in range(count)]
    gate.touch()
    return started


def storm(sandbox):
    """Exactly one of many starts gets a window; the others exit with 0."""
    started = at_once(sandbox, STARTS)
    most = 0

    def running():
        nonlocal most
        most = max(most, len(sandbox.display.windows.all()))
        return [program for program in started if program.running]

    survivor, = wait.until(running, "all starts but one to end", LONG,
                           accept=lambda left: len(left) == 1)
    window = survivor.ready(LONG)
    assert [program.wait_exit() for program in started if program is not survivor] == (
        [0] * (STARTS - 1))
    assert max(most, len(sandbox.display.windows.all())) == 1
    assert sandbox.instance_lock_held()
    assert sandbox.system.publishes(sandbox.read_handle(), window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, survivor, cleanup=False)


@pytest.mark.timeout(LONG * 2)
@pytest.mark.parametrize("_round", range(ROUNDS))
def test_of_many_starts_at_once_one_has_a_window(sandbox, _round):
    storm(sandbox)
