"""Lays a case out, calls the script and says what has changed."""

from __future__ import annotations

from cases import Case, Variables
from machine import Machine, Result
from world import VARIABLES, Tree, World, below

_BOUND = b"set seconds=120\r\n"
_WINES_OWN = ("SystemRoot", "ProgramFiles", "ProgramW6432", "CommonProgramFiles",
              "CommonProgramW6432")
"""Variables that Wine sets anew in every process: changed, they have to be so from within."""


def lay_out(machine: Machine, case: Case) -> World:
    """The drives as they are before the script is called."""
    world = World(machine)
    if case.patience is not None:
        assert world.script.count(_BOUND) == 1
        world.script = world.script.replace(_BOUND, b"set seconds=%d\r\n" % case.patience)
    world.install(case.folder, case.program)
    world.write(case.script, world.script)
    for step in case.steps:
        step(world)
    world.settle()
    return world


def wrong_after_call(machine: Machine, case: Case) -> list[str]:
    """Lays a case out, calls the script, and says what is otherwise than the case has it."""
    world = lay_out(machine, case)
    before = world.tree()
    return wrong(case, before, world, machine.run(instructions(machine, case)))


def instructions(machine: Machine, case: Case) -> list[str]:
    """What has to be done to call the script."""
    variables: Variables = {**VARIABLES, **case.variables}
    arguments = f'"{case.folder}"' if case.arguments is None else case.arguments
    line = f'"{case.script}" {arguments}' if case.silent else f"{case.script} {arguments}"
    late = {name: variables.pop(name) for name in _WINES_OWN}
    if late.keys() & case.variables.keys():
        line = _after_setting(machine, late, line)
    return [
        f"cd {case.in_folder}",
        *(f"unset {name}" if value is None else f"set {name}={value}"
          for name, value in variables.items()),
        f"{case.way} {line.rstrip()}",
    ]


def _after_setting(machine: Machine, variables: Variables, line: str) -> str:
    """A command line that does the same with variables that no quoting gets past a shell."""
    text = "@echo off\r\n"
    for number, (name, value) in enumerate(variables.items()):
        (machine.tools / f"{number}.txt").write_text(f"{value}\r\n", encoding="cp1252", newline="")
        text += (f'set "{name}="\r\n' if value is None else
                 f"set /p {name}=<C:\\ktr\\{number}.txt\r\n")
    (machine.tools / "call.bat").write_text(text + line + "\r\n", encoding="ascii", newline="")
    return "C:\\ktr\\call.bat"


def wrong(case: Case, before: Tree, world: World, result: Result) -> list[str]:
    """What is otherwise than the case has it, with the status and what was printed."""
    return differences(case, before, world.tree()) + [
        f"{what} is {seen!r}" for what, seen, expected in (
            ("status", result.status, case.status), ("output", result.output, b""))
        if seen != expected]


def differences(case: Case, before: Tree, after: Tree) -> list[str]:
    """What went or stayed otherwise than the case has it."""
    to_go = {path for folder in case.to_go for path in below(before, folder)}
    if case.script_goes:
        to_go |= below(before, case.script)
    expected = {path: facts for path, facts in before.items() if path not in to_go}
    return sorted(
        [f"went: {path}" for path in expected.keys() - after.keys()]
        + [f"came or stayed: {path}" for path in after.keys() - expected.keys()]
        + [f"changed: {path}" for path in expected.keys() & after.keys()
           if expected[path] != after[path]])
