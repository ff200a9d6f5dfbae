"""Who starts against whom: the program, windows to hold against it, and variants of itself."""

from __future__ import annotations

import shutil
import subprocess
from dataclasses import dataclass, field, replace
from pathlib import Path
from typing import Sequence

from ktr.display import Display
from ktr.installation import build_directory
from ktr.program import Started
from ktr.sandbox import Sandbox

_HERE = Path(__file__).resolve().parent
_COMPILER_LIBRARIES = "lib*-*.dll"
PROGRAM = "UninstallUI"
EMPTY = "empty window"
CONTROLS = "window with each control"
OPENGL = ", OpenGL"


@dataclass
class Contender:
    """An executable in a pretend installation."""

    title: str
    sandbox: Sandbox
    executable: Path
    arguments: list[str] = field(default_factory=list)
    variables: dict[str, str] = field(default_factory=dict)

    def start(self, under: Sequence[str] = ()) -> Started:
        """Starts it, `under` another program's command line if so wanted; the caller ends it."""
        environment = {**self.sandbox.environment(), **self.variables}
        command = [*under, *self.sandbox.system.command(self.executable, self.arguments)]
        return Started(command, environment, self.sandbox.root,
                       self.sandbox.root / "logs" / self.executable.name)

    def end(self, started: Started) -> None:
        """Ends it, and whatever else it has started."""
        started.kill()
        kept = [other.pid for other in self.sandbox.stand_ins]
        for process in self.sandbox.system.offspring(self.sandbox.root):
            if process.pid not in kept:
                self.sandbox.system.end(process)


def is_wine(sandbox: Sandbox) -> bool:
    """Whether it is the Windows executable that starts there."""
    return bool(sandbox.system.executable_suffix)


def built(name: str, suffix: str) -> Path:
    """An executable of the build that only measurements need."""
    file = build_directory() / "tests" / "measure" / (name + suffix)
    if not file.exists():
        raise FileNotFoundError(f"{file} is missing: ninja -C {build_directory()} {name}")
    return file


def new_sandbox(display: Display) -> Sandbox:
    """A pretend installation in which something runs already.

    Or Wine would begin with its own services at every start.
    """
    sandbox = Sandbox(display)
    sandbox.hold("KTRUI.exe")
    sandbox.spawn("KTRUI.exe")
    sandbox.wait_processes("KTRUI.exe", 1)
    return sandbox


def rivals(sandbox: Sandbox) -> list[Contender]:
    """The program and what it is held against, in one installation."""
    window = Path(shutil.copy2(
        built("measure_empty_window", sandbox.system.executable_suffix), sandbox.bin))
    found = [
        Contender(PROGRAM, sandbox, sandbox.program_file),
        Contender(EMPTY, sandbox, window),
        Contender(CONTROLS, sandbox, window, ["controls"]),
    ]
    if is_wine(sandbox):
        page = sandbox.bin / "question-page.exe"
        subprocess.run(["makensis", "-V2", f"-DOUT={page}", str(_HERE / "question-page.nsi")],
                       check=True, capture_output=True)
        found.append(Contender("NSIS page", sandbox, page))
    return found


def variants(display: Display, sandboxes: list[Sandbox]) -> list[Contender]:
    """The program under other circumstances; each has an installation, added to `sandboxes`."""
    def variant(title: str, *changes) -> None:
        sandbox = new_sandbox(display)
        sandboxes.append(sandbox)
        contender = Contender(title, sandbox, sandbox.program_file)
        for change in changes:
            change(contender)
        found.append(contender)

    found: list[Contender] = []
    variant("interface compiled at each start", _plain_interface)
    variant("without the telemetry library", _remove_telemetry)
    variant("without the window's icon", _remove_icon)
    if is_wine(sandboxes[0]):
        variant("compiler's DLLs without debugging information", _strip_compiler_libraries)
        variant("toolkit that cannot ask Direct3D 9", _hide_direct3d)
        variant("the last two", _strip_compiler_libraries, _hide_direct3d)
    else:
        variant("drawn by the toolkit's own renderer", _draw_with_opengl)
    return found


def with_opengl(contenders: Sequence[Contender]) -> list[Contender]:
    """Windows of the toolkit, drawn as it does when nobody says anything."""
    return [replace(one, title=one.title + OPENGL, arguments=[*one.arguments, "opengl"])
            for one in contenders]


def _plain_interface(contender: Contender) -> None:
    suffix = contender.sandbox.system.executable_suffix
    contender.executable.unlink()
    shutil.copy2(built("measure_plain_interface", suffix), contender.executable)


def _draw_with_opengl(contender: Contender) -> None:
    # No renderer has this name, so the toolkit takes its own.
    contender.variables["QT_QUICK_BACKEND"] = "opengl"


def _remove_telemetry(contender: Contender) -> None:
    (contender.sandbox.bin / "SkyrelWrap.DLL").unlink()


def _remove_icon(contender: Contender) -> None:
    (contender.sandbox.root / "Dravik" / "res" / "install_box.ico").unlink()


def _strip_compiler_libraries(contender: Contender) -> None:
    for library in contender.sandbox.bin.glob(_COMPILER_LIBRARIES):
        stripped = library.with_suffix(".new")  # the original is shared with the build
        subprocess.run(["x86_64-w64-mingw32-strip", "-o", stripped, library], check=True)
        stripped.replace(library)


def _hide_direct3d(contender: Contender) -> None:
    overrides = contender.sandbox.environment()["WINEDLLOVERRIDES"]
    contender.variables["WINEDLLOVERRIDES"] = f"{overrides};d3d9="
