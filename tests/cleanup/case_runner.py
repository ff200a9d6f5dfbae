"""Creates the files of a case, calls the script and reports what has changed."""

from __future__ import annotations

from cases import Case, Variables
from drives import VARIABLES, Drives, Tree, below
from machine import Machine, Result

_BOUND = b"set seconds=120\r\n"
_SET_BY_WINE = ("SystemRoot", "ProgramFiles", "ProgramW6432", "CommonProgramFiles",
                "CommonProgramW6432")
"""Variables that Wine sets in every new process: only a batch file in it can change them."""


def lay_out(machine: Machine, case: Case) -> Drives:
    """Creates the files on the drives before the script is called."""
    drives = Drives(machine)
    if case.patience is not None:
        assert drives.script.count(_BOUND) == 1
        drives.script = drives.script.replace(_BOUND, b"set seconds=%d\r\n" % case.patience)
    drives.install(case.folder, case.program)
    drives.write(case.script, drives.script)
    for step in case.steps:
        step(drives)
    drives.set_attributes()
    return drives


def wrong_after_call(machine: Machine, case: Case) -> list[str]:
    """Creates the files of a case, calls the script, and returns what differs from the case."""
    drives = lay_out(machine, case)
    before = drives.tree()
    return wrong(case, before, drives, machine.run(instructions(machine, case)))


def instructions(machine: Machine, case: Case) -> list[str]:
    """The instructions for `programs/start.cpp` that call the script."""
    variables: Variables = {**VARIABLES, **case.variables}
    arguments = f'"{case.folder}"' if case.arguments is None else case.arguments
    line = f'"{case.script}" {arguments}' if case.quoted_script else f"{case.script} {arguments}"
    late = {name: variables.pop(name) for name in _SET_BY_WINE}
    if late.keys() & case.variables.keys():
        line = _after_setting(machine, late, line)
    return [
        f"cd {case.in_folder}",
        *(f"unset {name}" if value is None else f"set {name}={value}"
          for name, value in variables.items()),
        f"{case.call} {line.rstrip()}",
    ]


def _after_setting(machine: Machine, variables: Variables, line: str) -> str:
    """A command line that sets the variables first, also those that no quoting can pass."""
    text = "@echo off\r\n"
    for number, (name, value) in enumerate(variables.items()):
        (machine.tools / f"{number}.txt").write_text(f"{value}\r\n", encoding="cp1252", newline="")
        text += (f'set "{name}="\r\n' if value is None else
                 f"set /p {name}=<C:\\ktr\\{number}.txt\r\n")
    (machine.tools / "call.bat").write_text(text + line + "\r\n", encoding="ascii", newline="")
    return "C:\\ktr\\call.bat"


def wrong(case: Case, before: Tree, drives: Drives, result: Result) -> list[str]:
    """What differs from the case, including the exit code and the output."""
    return differences(case, before, drives.tree()) + [
        f"{what} is {seen!r}" for what, seen, expected in (
            ("status", result.status, case.status), ("output", result.output, b""))
        if seen != expected]


def differences(case: Case, before: Tree, after: Tree) -> list[str]:
    """Which files were removed or left against the case."""
    removed = {path for folder in case.removed for path in below(before, folder)}
    if case.removes_script:
        removed |= below(before, case.script)
    expected = {path: facts for path, facts in before.items() if path not in removed}
    return sorted(
        [f"removed: {path}" for path in expected.keys() - after.keys()]
        + [f"added or left: {path}" for path in after.keys() - expected.keys()]
        + [f"changed: {path}" for path in expected.keys() & after.keys()
           if expected[path] != after[path]])
