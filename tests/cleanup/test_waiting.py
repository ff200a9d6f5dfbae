"""Programs that still run, and files that are in use, for a while or for ever.

For ever means a copy of the script that waits for some seconds instead of two minutes; the constant
is the only difference.
"""

from __future__ import annotations

import time
from contextlib import contextmanager
from typing import Callable, Iterator

from calling import differences, instructions, lay_out
from cases import GONE, LEFT, STILL_RUNNING, Case
from machine import DEADLINE, Machine, Program
from world import PRODUCT, PROGRAM, STAGED, World

EXECUTABLE = PROGRAM + "\\UninstallUI.exe"
EARLY = PROGRAM + "\\0.dll"
"""A file that comes first in its folder: Wine goes no further than to the first file in use."""


@contextmanager
def running(machine: Machine, program: str, *arguments: str) -> Iterator[Program]:
    """A program that runs until its standard input is closed, at the latest when this ends."""
    process = machine.start(program, *arguments)
    try:
        assert process.stdout.readline().strip() == b"ready"
        yield process
    finally:
        process.stdin.close()
        process.wait(DEADLINE)
        process.stdout.close()


def until(condition: Callable[[], bool], what: str) -> None:
    """Waits for a condition."""
    end = time.monotonic() + DEADLINE
    while not condition():
        assert time.monotonic() < end, f"waited for {what}"
        time.sleep(0.02)


def lay_out_with_a_real_program(machine: Machine, case: Case) -> World:
    world = lay_out(machine, case)
    world.write(EXECUTABLE, machine.program("holder").read_bytes())
    world.write(EARLY)
    return world


def holder(machine: Machine) -> str:
    """The path of the program that holds a file open."""
    return "C:\\ktr\\" + machine.program("holder").name


def test_waits_until_the_program_has_ended(machine: Machine) -> None:
    case = Case("", GONE)
    world = lay_out_with_a_real_program(machine, case)
    before = world.tree()
    with running(machine, EXECUTABLE) as program:
        script = machine.begin(instructions(machine, case))
        until(lambda: machine.runs("ping.exe"), "the script to wait")
        assert world.tree() == before
        program.stdin.close()
        result = machine.finish(script)
    assert differences(case, before, world.tree()) == []
    assert (result.status, result.output) == (GONE, b"")


def test_gives_up_on_a_program_that_does_not_end(machine: Machine) -> None:
    case = Case("", STILL_RUNNING, patience=3)
    world = lay_out_with_a_real_program(machine, case)
    before = world.tree()
    with running(machine, EXECUTABLE) as program:
        began = time.monotonic()
        result = machine.finish(machine.begin(instructions(machine, case)))
        assert case.patience and time.monotonic() - began > case.patience - 0.5
        assert program.poll() is None
        assert differences(case, before, world.tree()) == []
    assert (result.status, result.output) == (STILL_RUNNING, b"")


def test_waits_until_a_file_is_free(machine: Machine) -> None:
    case = Case("", GONE)
    world = lay_out_with_a_real_program(machine, case)
    before = world.tree()
    with running(machine, holder(machine), EARLY) as program:
        script = machine.begin(instructions(machine, case))
        until(lambda: machine.runs("ping.exe"), "the script to wait")
        assert machine.at(EARLY).exists()
        assert not machine.at(EXECUTABLE).exists()
        program.stdin.close()
        result = machine.finish(script)
    assert differences(case, before, world.tree()) == []
    assert (result.status, result.output) == (GONE, b"")


def test_gives_up_on_a_file_that_stays_in_use(machine: Machine) -> None:
    case = Case("", LEFT, patience=3, gone=(PRODUCT,))
    world = lay_out_with_a_real_program(machine, case)
    before = world.tree()
    with running(machine, holder(machine), EARLY):
        result = machine.finish(machine.begin(instructions(machine, case)))
        after = world.tree()
    assert EXECUTABLE not in after
    # What else is left depends on how far Wine went; nothing of it lies elsewhere.
    assert f"came or stayed: {EARLY}" in differences(case, before, after)
    assert all(line.startswith(f"came or stayed: {PRODUCT}")
               for line in differences(case, before, after))
    assert (result.status, result.output) == (LEFT, b"")


def test_leaves_alone_what_was_installed_meanwhile(machine: Machine) -> None:
    case = Case("", LEFT)
    world = lay_out_with_a_real_program(machine, case)
    before = world.tree()
    with running(machine, holder(machine), EARLY) as program:
        script = machine.begin(instructions(machine, case))
        until(lambda: machine.runs("ping.exe"), "the script to wait")
        world.install(PRODUCT)
        installed = world.tree()
        program.stdin.close()
        result = machine.finish(script)
    after = world.tree()
    assert installed.keys() == before.keys()
    assert set(installed) - set(after) == {STAGED}
    assert (result.status, result.output) == (LEFT, b"")
