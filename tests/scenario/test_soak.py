"""Soak tests, too long for every change: many starts, many runs, a long run. `./test --soak`."""

import csv
import time

import pytest

from ktr import layout, steps, wait
from ktr.installation import REPOSITORY
from ktr.resources import clients, peak_memory, resources, usage
from ktr.wine import is_windows
from test_storm import storm

# Under Wine these would measure Wine.
pytestmark = [pytest.mark.soak, pytest.mark.skipif(is_windows(), reason="looks at this system")]

ROUNDS, RUNS = 20, 200
TEN_MINUTES = 600.0
GROWTH_KB = 512
"""The growth in ten minutes that allocators cause without a leak."""
FIGURES = REPOSITORY / "build" / "soak"
"""The folder for the tables of samples."""


def write(name, heads, rows):
    """Writes a table of samples."""
    FIGURES.mkdir(parents=True, exist_ok=True)
    with open(FIGURES / f"{name}.csv", "w", encoding="utf-8", newline="") as file:
        csv.writer(file).writerows([heads, *rows])


@pytest.mark.timeout(600)
@pytest.mark.parametrize("_round", range(ROUNDS))
def test_of_many_starts_one_has_a_window(sandbox, _round):
    storm(sandbox)


@pytest.mark.timeout(3600)
def test_cancelled_runs_leave_nothing(sandbox):
    before, samples = sandbox.snapshot(), []
    for number in range(RUNS):
        program = sandbox.start()
        window = program.ready()
        peak = peak_memory(program.pid)
        window.click(layout.CANCEL)
        assert program.wait_exit() == 0
        # Cancel does not end the companion: it ends by itself.
        sandbox.wait_processes("SkyrelWrapExe.exe", 0)
        ends = sandbox.journal("SkyrelWrapExe.exe", "end")
        assert len(ends) == number + 1
        wait.until(lambda: sandbox.display.windows.all(), "no window to be left",
                   accept=lambda windows: not windows)
        samples.append((number, peak, clients(sandbox.display), resources(sandbox.display)))
    write("cancelled", ("run", "peak memory, MB", "X clients", "X resources"), samples)
    _, first, *display = samples[1]
    _, last, *display_at_end = samples[-1]
    assert display_at_end == display
    assert abs(last - first) < 0.05 * first
    added = set(sandbox.snapshot()) - set(before)
    assert added <= {"tmp/clearKTR.bat", f"run/{sandbox.system.lock_file(sandbox.root).name}"}


@pytest.mark.timeout(1500)
def test_a_long_run_needs_no_more_at_its_end(sandbox, program):
    window = program.window()
    hold = steps.uninstall_held(sandbox, window, 0.985)
    began, samples = time.monotonic(), []
    while (since := time.monotonic() - began) < TEN_MINUTES:
        samples.append((round(since), *usage(program.pid), resources(sandbox.display)))
        # The window can be dragged between two queries.
        window.drag(layout.TITLE_GRIP, 10 if len(samples) % 2 else -10, 0)
        assert 0.985 < window.bar_fraction() < 1.0
        time.sleep(5)
    write("long run", ("second", "own memory, KB", "handles", "threads", "X resources"), samples)
    half = samples[len(samples) // 2:]
    assert max(sample[1] for sample in half) <= samples[0][1] + GROWTH_KB
    # A query has pipes while it runs.
    assert min(sample[2] for sample in half) <= min(sample[2] for sample in samples[:5])
    assert {sample[3] for sample in half} <= {sample[3] for sample in samples[:5]}
    hold.unlink()
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)
