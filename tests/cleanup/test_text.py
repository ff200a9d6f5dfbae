"""The script as a text: what it must and must not contain."""

from __future__ import annotations

import re
import subprocess

import pytest

from cases import GONE, LEFT, REFUSED, STILL_RUNNING
from machine import REPOSITORY, SCRIPT

TEXT = SCRIPT.read_bytes()
LINES = TEXT.decode("ascii", "replace").split("\r\n")
REMARKS = [line for line in LINES if line.startswith("rem")]
COMMANDS = [line.strip() for line in LINES if line and not line.startswith(("rem", ":"))]


def words(line: str) -> list[str]:
    """The commands of a line: its first word, and those behind conditions, "do" and "&"."""
    line = re.sub(r'"[^"]*"', lambda text: "" if " " in text.group() else text.group(), line)
    found = []
    for part in line.lower().split(" & "):
        part = re.sub(r"^(if .*?|for .*? do) (?=(set|goto|exit|call|rd|if)\b)", r"\1\n", part)
        found += [piece.split()[0] for piece in part.split("\n") if piece.split()]
    return found


def test_is_plain_ascii() -> None:
    TEXT.decode("ascii")
    assert b"\t" not in TEXT


def test_has_the_line_ends_of_windows() -> None:
    """With others Windows misses labels."""
    assert TEXT.count(b"\r\n") == TEXT.count(b"\n") == TEXT.count(b"\r")
    assert TEXT.endswith(b"\r\n")


def test_git_keeps_the_line_ends() -> None:
    for name in ("packaging/clearKTR.bat", "any/other.bat"):
        done = subprocess.run(["git", "check-attr", "text", "eol", "--", name], cwd=REPOSITORY,
                              capture_output=True, text=True, check=True)
        assert done.stdout.splitlines() == [f"{name}: text: set", f"{name}: eol: crlf"]


def test_lines_are_short() -> None:
    assert max(map(len, LINES)) <= 100


def test_prints_nothing() -> None:
    assert LINES[0] == "@echo off"
    assert not [line for line in COMMANDS[1:] if re.search(r"\becho\b", line)]
    for line in COMMANDS:
        if re.search(r"(^| )(del|rd|dir) |\.exe\" ", line) and "exist" not in line:
            assert ">nul 2>nul" in line, line
        if line.startswith("cd ") and line != "cd ..":
            assert line.endswith(" 2>nul"), line


def test_asks_nothing() -> None:
    assert not [line for line in COMMANDS if re.search(r"\b(pause|choice|timeout|set /p)\b", line)]
    assert all("/q" in line for line in COMMANDS if re.search(r"\b(del|rd /s)\b", line))


def test_uses_arguments_in_quotes_only() -> None:
    """But for the check that there is no second one, which an empty one must not pass."""
    used = [(found.group(), line) for line in LINES
            for found in re.finditer(r"%~?[a-z]*[0-9*]", line) if f"%{found.group()}" not in line]
    assert used == [
        ("%~f0", 'set "self=%~f0"'),
        ("%~dp0", 'set "here=%~dp0"'),
        ("%~a1", 'set "attributes=%~a1"'),
        ("%2", "if not [%2]==[] goto end"),
        ("%~1", 'set "folder=%~1"'),
    ]


def test_uses_what_comes_from_outside_in_quotes_only() -> None:
    ours = {"attributes", "found", "status", "seconds"}
    for line in COMMANDS:
        outside = re.sub(r'"[^"]*"', "", line.replace(':"=%', "%"))
        assert set(re.findall(r"%([A-Za-z()0-9]+)[:%]", outside)) <= ours, line


def test_takes_quotation_marks_out_of_variables_from_outside() -> None:
    own = set(re.findall(r'\bset (?:/a )?"?(\w+)\+?-?=', "\n".join(COMMANDS)))
    for line in COMMANDS:
        for name, rest in re.findall(r"(?<!%)%([A-Za-z]\w*(?:\(x86\))?)([:%].{3})", line + "   "):
            assert name in own | {"CD"} or rest == ':"=%', line


def test_knows_no_delayed_expansion() -> None:
    """An exclamation mark is a part of a name as any other."""
    assert "setlocal EnableExtensions DisableDelayedExpansion" in COMMANDS
    assert not [line for line in COMMANDS if "!" in line]


def test_removes_in_four_places_only() -> None:
    removing = re.compile(
        r"\b(del|erase|rd|rmdir|move|ren|rename|copy|xcopy|robocopy|replace|format|attrib|mklink"
        r"|start|powershell|wmic|reg|cscript|wscript)\b|>(?!nul)")
    assert [line for line in COMMANDS if removing.search(re.sub('"[^"]*"', "", line))] == [
        'del /f /q /a "%program%" >nul 2>nul',
        'if not defined kept rd /s /q "%folder%" >nul 2>nul',
        'del /f /q "%self%" >nul 2>nul & exit %status%',
        'rd "%entry%" >nul 2>nul',
    ]


def test_uses_few_commands() -> None:
    known = {"@echo", "setlocal", "set", "if", "for", "cd", "dir", "call", "goto", "del", "rd",
             "exit", ")"}
    programs = {'"%system%\\fc.exe"', '"%system%\\ping.exe"'}
    used = {word for line in COMMANDS for word in words(line)}
    assert used <= known | programs
    assert programs <= used


def test_all_labels_are_there_and_used() -> None:
    labels = [line[1:] for line in LINES if line.startswith(":")]
    used = re.findall(r"\b(?:goto|call :)\s?(\w+)", "\n".join(COMMANDS))
    assert len(set(labels)) == len(labels)
    assert set(used) | {"up"} == set(labels)


def test_waits_for_two_minutes_at_most() -> None:
    assert COMMANDS.count("set seconds=120") == 1
    assert COMMANDS.count("set /a seconds-=1") == 1
    # Every way back to something done before goes by the count.
    assert [line for line in COMMANDS if "%seconds%" in line] == [
        "if %seconds% gtr 0 goto wait", "if %seconds% gtr 0 goto remove"]


@pytest.mark.parametrize("status", [GONE, REFUSED, STILL_RUNNING, LEFT])
def test_statuses_stand_in_its_head(status: int) -> None:
    head = [line for line in LINES[:LINES.index(COMMANDS[1])] if line.startswith("rem")]
    assert [line for line in head if re.match(rf"rem     {status}   \w", line)]
    assert f"set status={status}" in COMMANDS


def test_ends_with_a_status_in_one_place() -> None:
    ends = [line for line in COMMANDS if re.search(r"\bexit (?!/b)", line)]
    assert ends == ['if exist "%here%UninstallUI.exe" exit %status%',
                    'del /f /q "%self%" >nul 2>nul & exit %status%']


def test_remarks_are_safe() -> None:
    """A percent sign would be read even there."""
    assert not [line for line in REMARKS if re.search(r"[%^&|<>]", line)]
