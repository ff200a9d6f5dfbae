"""Running programs and files in use: the script waits, and gives up after two minutes.

To see it give up, a copy of the script waits for some seconds only; nothing else differs.
"""

from __future__ import annotations

import re
import time
from contextlib import contextmanager
from typing import Callable, Iterator

import pytest

from case_runner import differences, instructions, lay_out, wrong
from cases import ELSEWHERE, GONE, LEFT, REFUSED, STILL_RUNNING, Case
from drives import PRODUCT, PROGRAM, STAGED, TEMP, Drives, Step, Tree, below, files, link, without
from machine import DEADLINE, Machine, Program, Result

EXECUTABLE = PROGRAM + "\\UninstallUI.exe"
EARLY = PROGRAM + "\\0.dll"
"""The first file in its folder: Wine stops removing at the first file in use."""
HOLDER = "C:\\ktr\\holder.exe"
"""Holds a file or a folder open."""
HARM = b"mkdir D:\\harm\r\n" * 2000
"""Another version of the script, which does harm at whatever offset the interpreter continues."""


@contextmanager
def running(machine: Machine, program: str, *arguments: str) -> Iterator[Program]:
    """A program that runs until its standard input is closed, at the latest at the block's end."""
    process = machine.start(program, *arguments)
    try:
        assert process.stdout.readline().strip() == b"ready"
        yield process
    finally:
        process.stdin.close()
        process.wait(DEADLINE)
        process.stdout.close()


@contextmanager
def waiting(machine: Machine, case: Case, *command: str) -> Iterator[Callable[[], Result]]:
    """Calls the script while a program runs, and returns once the script waits for its end.

    Yields a function that ends the program and returns the script's result. The program is the one
    in the product folder unless `command` names another.
    """
    with running(machine, *(command or [EXECUTABLE])) as program:
        script = machine.begin(instructions(machine, case))

        def finish() -> Result:
            program.stdin.close()
            return machine.finish(script)

        try:
            until(lambda: machine.runs("ping.exe") or script.poll() is not None,
                  "the script to wait")
            yield finish
        finally:
            if script.poll() is None:
                finish()


def until(condition: Callable[[], bool], what: str) -> None:
    """Waits until the condition holds."""
    end = time.monotonic() + DEADLINE
    while not condition():
        assert time.monotonic() < end, f"waited for {what}"
        time.sleep(0.02)


def lay_out_runnable(machine: Machine, case: Case) -> tuple[Drives, Tree]:
    """Fills the drives, with a program that can run; returns them and their tree."""
    drives = lay_out(machine, case)
    drives.write(EXECUTABLE, machine.program("holder").read_bytes())
    drives.write(EARLY)
    return drives, drives.tree()


def test_waits_until_the_program_has_ended(machine: Machine) -> None:
    case = Case("", GONE)
    drives, before = lay_out_runnable(machine, case)
    with waiting(machine, case) as finish:
        meanwhile = drives.tree()
        result = finish()
    # Only the script's own copy has another name.
    own, = meanwhile.keys() - before.keys()
    assert re.fullmatch(re.escape(TEMP) + r"\\clearKTR-\d+-\d+\.bat", own)
    assert meanwhile == {own if path == STAGED else path: facts for path, facts in before.items()}
    assert wrong(case, before, drives, result) == []


def names_chosen_since(start: float) -> list[tuple[str, str]]:
    """The first two names that a script chooses if it starts in one of the next 120 seconds.

    Wine seeds %RANDOM% with the second of the start, as Windows does."""
    names = []
    for second in range(int(start), int(start) + 120):
        numbers = []
        for _ in range(4):
            second = second * 214013 + 2531011 & 0xffffffff
            numbers.append(second >> 16 & 0x7fff)
        names.append((f"{TEMP}\\clearKTR-{numbers[0]}-{numbers[1]}.bat",
                      f"{TEMP}\\clearKTR-{numbers[2]}-{numbers[3]}.bat"))
    return names


def test_chooses_another_name_if_one_is_taken(machine: Machine) -> None:
    case = Case("", GONE)
    drives = lay_out_runnable(machine, case)[0]
    names = names_chosen_since(time.time())
    for first, _ in names:
        drives.write(first, HARM)
    before = drives.tree()
    with waiting(machine, case) as finish:
        own = drives.tree().keys() - before.keys()
        result = finish()
    assert own and own <= {second for _, second in names}
    assert wrong(case, before, drives, result) == []


@pytest.mark.parametrize("taken", [False, True], ids=["free", "taken meanwhile"])
def test_waits_until_its_copy_can_be_renamed(machine: Machine, taken: bool) -> None:
    case = Case("", REFUSED, removes_script=False) if taken else Case("", GONE)
    drives = lay_out(machine, case)
    names = names_chosen_since(time.time())
    with waiting(machine, case, HOLDER, STAGED) as finish:
        for name, _ in names if taken else []:
            drives.write(name, HARM)
        before = drives.tree()
        result = finish()
    assert wrong(case, before, drives, result) == []


def test_refuses_when_its_copy_cannot_be_renamed(machine: Machine) -> None:
    case = Case("", REFUSED, removes_script=False)
    drives, before = lay_out_runnable(machine, case)
    with running(machine, HOLDER, STAGED):
        result = machine.finish(machine.begin(instructions(machine, case)))
    assert wrong(case, before, drives, result) == []


def test_gives_up_on_a_program_that_does_not_end(machine: Machine) -> None:
    case = Case("", STILL_RUNNING, patience=3)
    drives, before = lay_out_runnable(machine, case)
    with running(machine, EXECUTABLE) as program:
        began = time.monotonic()
        result = machine.finish(machine.begin(instructions(machine, case)))
        assert case.patience and time.monotonic() - began > case.patience - 0.5
        assert program.poll() is None
        assert wrong(case, before, drives, result) == []


@pytest.mark.parametrize("status, place, instead, command", [
    pytest.param(REFUSED, EXECUTABLE, link(EXECUTABLE, ELSEWHERE), [], id="program, link"),
    pytest.param(REFUSED, EXECUTABLE, files(EXECUTABLE + "\\keep.txt"), [], id="program, folder"),
    pytest.param(LEFT, PRODUCT, link(PRODUCT, ELSEWHERE), [], id="product, program runs"),
    pytest.param(LEFT, PRODUCT, link(PRODUCT, ELSEWHERE), [HOLDER, EARLY], id="product, in use"),
    pytest.param(LEFT, PRODUCT, link(PRODUCT, ELSEWHERE), [HOLDER, PRODUCT], id="product, empty"),
])
def test_removes_nothing_from_a_replacement(
        machine: Machine, status: int, place: str, instead: Step, command: list[str]) -> None:
    """A running program can be renamed. "del" follows a link of its name, and empties a folder.
    On Windows, an empty folder can be turned into a link in place; here a link replaces it."""
    case = Case("", status, patience=3, removes_script=False)
    drives = lay_out_runnable(machine, case)[0]
    with waiting(machine, case, *command) as finish:
        if PRODUCT in command:
            until(lambda: not any(machine.at(PRODUCT).iterdir()), "the folder to be empty")
        machine.at(place).rename(machine.at(place + ".moved"))
        instead(drives)
        before = drives.tree()
        result = finish()
    before = {path: facts for path, facts in before.items() if "clearKTR-" not in path}
    assert before.keys() >= {place + ".moved", place}
    assert wrong(case, before, drives, result) == []


@pytest.mark.parametrize("folder, command", [
    (PROGRAM, [EXECUTABLE]), (PRODUCT, [HOLDER, EARLY]),
], ids=["the program directory", "the product folder"])
def test_the_folder_cannot_be_renamed_while_the_script_waits(
        machine: Machine, folder: str, command: list[str]) -> None:
    """Wine locks the current folder; Windows also locks the folders above it."""
    case = Case("", GONE)
    drives, before = lay_out_runnable(machine, case)
    with waiting(machine, case, *command) as finish:
        machine.run(["cd D:\\", f'wide cmd /c ren "{folder}" renamed'])
        stayed = machine.at(folder).is_dir()
        result = finish()
    assert stayed
    assert wrong(case, before, drives, result) == []


@pytest.mark.parametrize("content", [None, b"", HARM], ids=["same", "empty", "another version"])
def test_a_second_start_may_replace_the_copy_while_the_script_waits(
        machine: Machine, content: bytes) -> None:
    """The script continues and does not touch the other copy.

    The interpreter of Windows opens the file again for each line; that of Wine keeps it open. So
    the test overwrites an existing file, or empties it in place of deleting it: then Wine reads
    what Windows would read.
    """
    case = Case("", GONE)
    drives, before = lay_out_runnable(machine, case)
    with waiting(machine, case) as finish:
        if content is None:
            machine.at(STAGED).unlink(missing_ok=True)
        drives.write(STAGED, drives.script if content is None else content)
        staged = drives.tree()[STAGED]
        result = finish()
    after = drives.tree()
    assert after.pop(STAGED) == staged
    assert differences(case, before, after) == []
    assert (result.status, result.output) == (GONE, b"")


@pytest.mark.parametrize("path", [
    PRODUCT + "\\zz in use.txt", EARLY,
], ids=["in the folder", "in a folder in it"])
def test_waits_until_a_file_is_free(machine: Machine, path: str) -> None:
    case = Case("", GONE, steps=(without(PRODUCT + "\\left over.txt"), files(path)))
    drives, before = lay_out_runnable(machine, case)
    with waiting(machine, case, HOLDER, path) as finish:
        assert machine.at(path).exists()
        assert not machine.at(EXECUTABLE).exists()
        result = finish()
    assert wrong(case, before, drives, result) == []


def test_waits_until_the_empty_folder_is_free(machine: Machine) -> None:
    case = Case("", GONE)
    drives, before = lay_out_runnable(machine, case)
    with waiting(machine, case, HOLDER, PRODUCT) as finish:
        until(lambda: not any(machine.at(PRODUCT).iterdir()), "the folder to be empty")
        result = finish()
    assert wrong(case, before, drives, result) == []


def test_gives_up_on_a_file_that_stays_in_use(machine: Machine) -> None:
    case = Case("", LEFT, patience=3, gone=(PRODUCT,))
    drives, before = lay_out_runnable(machine, case)
    with running(machine, HOLDER, EARLY):
        result = machine.finish(machine.begin(instructions(machine, case)))
        after = drives.tree()
    assert EXECUTABLE not in after
    # What else is left depends on how far Wine came; all of it is in the product folder.
    assert f"added or left: {EARLY}" in differences(case, before, after)
    assert all(line.startswith(f"added or left: {PRODUCT}")
               for line in differences(case, before, after))
    assert (result.status, result.output) == (LEFT, b"")


def test_keeps_a_product_that_is_installed_while_the_script_waits(machine: Machine) -> None:
    case = Case("", LEFT)
    drives, before = lay_out_runnable(machine, case)
    with waiting(machine, case, HOLDER, EARLY) as finish:
        drives.install(PRODUCT)
        installed = drives.tree()
        result = finish()
    after = drives.tree()
    assert below(installed, PRODUCT) == below(before, PRODUCT)
    assert after == {path: facts for path, facts in installed.items() if "clearKTR-" not in path}
    assert (result.status, result.output) == (LEFT, b"")
