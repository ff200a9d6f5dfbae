"""Where Wine's command interpreter differs from that of Windows, and what the script does then.

Each test first shows the difference itself. If one fails with a later Wine, the other tests can be
made stricter there.

Seen, but not tested: "&&" and "||" ignore the exit code, "cd" keeps an old exit code, "dir /b /a"
finds something in an empty folder; so the script uses none of them and checks the current folder
instead. A folder above a current folder can be renamed.
"""

from __future__ import annotations

import subprocess

import pytest

from case_runner import differences, instructions, lay_out, wrong_after_call
from cases import GONE, LEFT, ONLY_THE_PROGRAM, REFUSED, STILL_RUNNING, Case
from drives import PRODUCT, PROGRAM, TEMP, Step, attributes, files, folders, link
from machine import Machine, Result

PROBE = "D:\\Probe\\probe.bat"
THERE = "D:\\Probe\\there"


def probe(machine: Machine, *lines: str, arguments: str = "") -> Result:
    """Runs a batch file with these lines."""
    target = machine.at(PROBE)
    target.parent.mkdir(exist_ok=True)
    target.write_bytes("".join(f"{line}\r\n" for line in ("@echo off", *lines)).encode("ascii"))
    return machine.run(["cd D:\\Probe", f'wide "{PROBE}" {arguments}'.rstrip()])


@pytest.mark.parametrize("name", ["100% sure", "100%pure", "%TEMP%", "a%b%c", "%%", "%~f0", "50%"])
def test_percent_signs_in_an_argument_are_expanded_again(machine: Machine, name: str) -> None:
    """The script sees another folder name and refuses it."""
    case = Case(name, REFUSED, f"D:\\Program Files\\Torvan\\{name}")
    lay_out(machine, case)
    seen = probe(machine, 'set "argument=%~1"', "set argument", arguments=f'"{case.folder}"')
    assert seen.output.strip() != f"argument={case.folder}".encode()
    assert wrong_after_call(machine, case) == []


@pytest.mark.parametrize("folder", [
    PROGRAM + "\\100% sure", PROGRAM + "\\%TEMP%", PRODUCT + "\\%TEMP%", PRODUCT + "\\a%b%c",
    PRODUCT + "\\%1", PRODUCT + "\\100% sure",
])
def test_percent_signs_in_names_inside_are_expanded_again(machine: Machine, folder: str) -> None:
    """The script cannot enter a folder of that name, so it leaves all files."""
    case = Case(folder, LEFT, steps=(files(folder + "\\x.txt"),), patience=2,
                gone=ONLY_THE_PROGRAM)
    assert wrong_after_call(machine, case) == []


def lay_out_probe(machine: Machine, *steps: Step) -> None:
    drives = lay_out(machine, Case("", REFUSED, steps=steps))
    assert drives.machine is machine


def test_removing_a_link_to_a_file_removes_the_file(machine: Machine) -> None:
    """So under Wine the script removes the targets of links to files."""
    lay_out_probe(machine, files(THERE), link("D:\\Probe\\link", THERE))
    probe(machine, 'del /f /q "link"')
    assert machine.at("D:\\Probe\\link").is_symlink()
    assert not machine.at(THERE).exists()


def test_removing_a_link_to_an_empty_folder_removes_the_folder(machine: Machine) -> None:
    """So under Wine the script removes empty folders that links lead to."""
    lay_out_probe(machine, folders(THERE), link("D:\\Probe\\link", THERE))
    probe(machine, 'rd "link"')
    assert machine.at("D:\\Probe\\link").is_symlink()
    assert not machine.at(THERE).exists()


def test_removing_a_folder_follows_links(machine: Machine) -> None:
    """That is why the script first removes the links, and removes nothing else if one stays."""
    lay_out_probe(machine, files(THERE + "\\keep.txt"), folders("D:\\Probe\\folder"),
                  link("D:\\Probe\\folder\\link", THERE))
    probe(machine, 'rd /s /q "folder"')
    assert not machine.at(THERE + "\\keep.txt").exists()


def test_removing_a_folder_stops_at_the_first_entry_that_stays(machine: Machine) -> None:
    """Wine does not see a dangling link, so it stays, and all later entries with it."""
    case = Case("", LEFT, steps=(link(PROGRAM + "\\nowhere", "D:\\no"),), patience=2,
                gone=(PRODUCT,))
    drives = lay_out(machine, case)
    before = drives.tree()
    result = machine.run(instructions(machine, case))
    left = differences(case, before, drives.tree())
    assert f"added or left: {PROGRAM}\\nowhere" in left
    assert f"added or left: {PRODUCT}\\left over.txt" in left
    assert f"added or left: {PROGRAM}\\Qt5Core.dll" not in left
    assert all(line.startswith(f"added or left: {PRODUCT}") for line in left)
    assert (result.status, result.output) == (LEFT, b"")


def test_a_loop_over_folders_includes_hidden_ones(machine: Machine) -> None:
    """On Windows "for /d" skips them; the script refuses a folder with a hidden one either way."""
    lay_out_probe(machine, folders("D:\\Probe\\folder"), attributes("h", "D:\\Probe\\folder"))
    assert probe(machine, "for /d %%d in (*) do echo %%d").output.split() == [b"folder"]


def test_a_pattern_in_quotes_finds_nothing(machine: Machine) -> None:
    """That is why the script changes into a folder to list it."""
    lay_out_probe(machine, folders("D:\\Probe\\folder"))
    assert probe(machine, 'for /d %%d in ("*") do echo %%d').output == b""


def test_fc_calls_any_two_files_equal(machine: Machine) -> None:
    """That is why a machine has an fc of our own."""
    lay_out_probe(machine, files("D:\\Probe\\one"))
    machine.at("D:\\Probe\\two").write_bytes(b"another")
    statuses = {}
    for kind in "bn":
        done = subprocess.run(
            ["/usr/bin/wine", "C:\\windows\\system32\\fc.exe", "/b", "D:\\Probe\\one",
             "D:\\Probe\\two"], cwd=machine.at("D:\\"), stdin=subprocess.DEVNULL, timeout=120,
            env={**machine.environment, "WINEDLLOVERRIDES": f"fc.exe={kind}"},
            capture_output=True, check=False)
        statuses[kind] = done.returncode
    assert statuses == {"b": 0, "n": 1}


@pytest.mark.parametrize("case", [
    Case("eighty levels", GONE, steps=(files(PRODUCT + "\\d" * 80 + "\\leaf.txt"),),
         gone=ONLY_THE_PROGRAM),
    Case("the name of an argument", REFUSED, PRODUCT + " %1"),
], ids=str)
def test_the_interpreter_crashes(machine: Machine, case: Case) -> None:
    """Wine's allows about 25 nested calls, Windows hundreds; and it recurses without end on an
    argument that expands to itself. The script's copy stays."""
    drives = lay_out(machine, case)
    before = drives.tree()
    result = machine.run(instructions(machine, case))
    assert result.status not in (GONE, REFUSED, STILL_RUNNING, LEFT)
    after = drives.tree()
    staged = {path for path in after if path.startswith(TEMP + "\\clearKTR")}
    assert len(staged) == 1
    assert differences(case, before, {path: after[path] for path in after.keys() - staged}) == []


def test_a_deleted_batch_file_is_read_to_its_end(machine: Machine) -> None:
    """Windows opens the file by its name again for each line."""
    lay_out_probe(machine)
    assert probe(machine, 'del "%~f0"', "echo still here").output.split() == [b"still", b"here"]
