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
    """The commands of a line: its first word, and those after conditions, "do" and "&"."""
    line = re.sub(r'"[^"]*"', lambda text: "" if " " in text.group() else text.group(), line)
    found = []
    for part in line.lower().split(" & "):
        part = re.sub(r"^(if .*?|for .*? do) (?=(set|goto|exit|call|rd|ren|if|\.\\ping\.exe)\b)",
                      r"\1\n", part)
        found += [piece.split()[0] for piece in part.split("\n") if piece.split()]
    return found


def test_is_plain_ascii() -> None:
    TEXT.decode("ascii")
    assert b"\t" not in TEXT


def test_has_windows_line_endings() -> None:
    """With others Windows does not find labels."""
    assert TEXT.count(b"\r\n") == TEXT.count(b"\n") == TEXT.count(b"\r")
    assert TEXT.endswith(b"\r\n")


def test_git_keeps_the_line_endings() -> None:
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
        if re.search(r"(^| )(del|rd|ren|cd|dir|ver) |\.exe\"? ", line) and "exist" not in line:
            assert ">nul 2>nul" in line, line


def test_never_prompts() -> None:
    assert not [line for line in COMMANDS if re.search(r"\b(pause|choice|timeout|set /p)\b", line)]
    assert all("/q" in line for line in COMMANDS if re.search(r"\b(del|rd /s)\b", line))


def test_uses_arguments_in_quotes_only() -> None:
    """Except in the check for a second argument, which must also refuse an empty one."""
    used = [(found.group(), line) for line in LINES
            for found in re.finditer(r"%~?[a-z]*[0-9*]", line) if f"%{found.group()}" not in line]
    assert used == [
        ("%~f0", 'set "self=%~f0"'),
        ("%~nx0", 'set "name=%~nx0"'),
        ("%~dp0", 'set "here=%~dp0"'),
        ("%~a1", 'set "attributes=%~a1"'),
        ("%2", "if not [%2]==[] goto end"),
        ("%~1", 'set "folder=%~1"'),
    ]


def test_uses_variables_from_outside_in_quotes_only() -> None:
    ours = {"attributes", "found", "status", "seconds"}
    for line in COMMANDS:
        outside = re.sub(r'"[^"]*"', "", line.replace(':"=%', "%"))
        assert set(re.findall(r"%([A-Za-z()0-9]+)[:%]", outside)) <= ours, line


def test_removes_quotation_marks_from_variables_from_outside() -> None:
    own = set(re.findall(r'\bset (?:/a )?"?(\w+)\+?-?=', "\n".join(COMMANDS)))
    for line in COMMANDS:
        for name, rest in re.findall(r"(?<!%)%([A-Za-z]\w*(?:\(x86\))?)([:%].{3})", line + "   "):
            assert name in own | {"CD"} or rest == ':"=%', line


def test_checks_the_current_folder_after_every_change() -> None:
    """After the two changes in :unlink it checks before it removes anything but links."""
    ends = [f"{line} / {after}" for line, after in zip(COMMANDS, COMMANDS[1:])
            if line.startswith("cd ") and "%CD%" not in after]
    assert ends == ["cd .. >nul 2>nul / exit /b", 'cd /d "%above%" >nul 2>nul / set kept=1']
    removal = COMMANDS.index('if not defined kept rd /s /q "." >nul 2>nul')
    assert COMMANDS[removal - 2:removal] == ['if /i not "%CD%"=="%folder%" goto end', "call :look"]


def test_has_no_variable_in_the_body_of_a_loop() -> None:
    """With the loop variable p, Windows would replace "%p" in a folder called "100%pure". The
    script's own name is safe: it contains no percent sign."""
    bodies = []
    inside = False
    for line in COMMANDS:
        found = re.match(r"for .*?\) do (.*)", line)
        if found or inside:
            bodies.append(found.group(1) if found else line)
            inside = line != ")" and (inside or line.endswith("("))
    assert len(bodies) > 10
    assert not [body for body in bodies if re.search(r"%\w", re.sub("%%|%own%", "", body))]
    assert [line for line in COMMANDS if "own=" in line] == [
        'set "own=clearKTR-%RANDOM%-%RANDOM%.bat"']


def test_uses_no_delayed_expansion() -> None:
    """An exclamation mark in a name must stay."""
    assert "setlocal EnableExtensions DisableDelayedExpansion" in COMMANDS
    assert not [line for line in COMMANDS if "!" in line]


def test_removes_and_renames_in_six_places_only() -> None:
    removing = re.compile(
        r"\b(del|erase|rd|rmdir|move|ren|rename|copy|xcopy|robocopy|replace|format|attrib|mklink"
        r"|start|powershell|wmic|reg|cscript|wscript)\b|>(?!nul)")
    assert [line for line in COMMANDS if removing.search(re.sub('"[^"]*"', "", line))] == [
        'if not defined renamed ren "%%~i" "%own%" >nul 2>nul',
        'del /f /q /a "UninstallUI.ex?" >nul 2>nul',
        'if not defined kept rd /s /q "." >nul 2>nul',
        'rd "%entry%" >nul 2>nul',
        'del /f /q "%self%" >nul 2>nul & exit %status%',
        'rd "%entry%" >nul 2>nul',
    ]


def test_removes_nothing_near_its_beginning() -> None:
    """Until the script has renamed its copy, a start of another version can replace that file. Then
    the interpreter continues in that version near the same offset."""
    renamed = TEXT.index(b"\r\n)\r\n", TEXT.index(b'ren "%%~i"'))
    assert renamed < 4000
    assert TEXT.index(b"\r\ndel ") > 7000


def test_uses_few_commands() -> None:
    known = {"@echo", "setlocal", "set", "if", "for", "cd", "dir", "call", "goto", "del", "rd",
             "ren", "exit", "ver", ")"}
    programs = {'"%system%\\fc.exe"', '"%system%\\ping.exe"', ".\\ping.exe", '"%here%%own%"'}
    used = {word for line in COMMANDS for word in words(line)}
    assert used <= known | programs
    assert programs <= used


def test_all_labels_exist_and_are_used() -> None:
    labels = [line[1:] for line in LINES if line.startswith(":")]
    used = re.findall(r"\b(?:goto|call :)\s?(\w+)", "\n".join(COMMANDS))
    assert len(set(labels)) == len(labels)
    assert set(used) == set(labels)


def test_waits_for_two_minutes_at_most() -> None:
    assert COMMANDS.count("set seconds=120") == 1
    assert COMMANDS.count("set /a seconds-=1") == 1
    # Every jump back that waits first checks the counter.
    assert [line for line in COMMANDS if "%seconds%" in line] == [
        f"if %seconds% gtr 0 goto {label}" for label in ("wait", "leave", "remove")]


@pytest.mark.parametrize("status", [GONE, REFUSED, STILL_RUNNING, LEFT])
def test_its_first_comment_lists_the_exit_codes(status: int) -> None:
    head = [line for line in LINES[:LINES.index(COMMANDS[1])] if line.startswith("rem")]
    assert [line for line in head if re.match(rf"rem     {status}   \w", line)]
    assert f"set status={status}" in COMMANDS


def test_ends_in_three_places() -> None:
    ends = [line for line in COMMANDS if re.search(r"\bexit (?!/b)", line)]
    assert ends == ['if exist "%here%UninstallUI.exe" exit %status%',
                    'if not defined renamed exit %status%',
                    'del /f /q "%self%" >nul 2>nul & exit %status%']


def test_comments_have_no_special_characters() -> None:
    """The interpreter expands percent signs even there."""
    assert not [line for line in REMARKS if re.search(r"[%^&|<>]", line)]
