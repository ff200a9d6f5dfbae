"""A Windows machine for one worker: a Wine prefix with three drives and no way out of them.

Wine removes what a link leads to, and lists folders behind links as if they were there. So nothing
in reach of its programs may lead anywhere else: no drive for this system's files, no link to the
home folder, and every run is refused as long as some link leads out.
"""

from __future__ import annotations

import os
import shutil
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path
from typing import IO

REPOSITORY = Path(__file__).resolve().parents[2]
SCRIPT = REPOSITORY / "packaging" / "clearKTR.bat"

DEADLINE = 240.0
"""Seconds that a run may take: the script itself gives up after two minutes."""

_PROGRAMS = Path(__file__).parent / "programs"
_COMPILER = "x86_64-w64-mingw32-g++-posix"
_TOOLS = "C:\\ktr"
"""The folder in which our own programs lie, and files that they need."""


class Program(subprocess.Popen[bytes]):
    """A program that talks over pipes."""

    stdin: IO[bytes]
    stdout: IO[bytes]


@dataclass(frozen=True)
class Result:
    """How a command ended, and what it printed."""

    status: int
    output: bytes


class Machine:
    """Drive C is Wine's, D and E are empty folders at first, and F is another name of D:\\Users."""

    def __init__(self) -> None:
        self.root = Path(tempfile.mkdtemp(prefix="ktr-cleanup-")).resolve()
        try:
            self._prefix = self.root / "prefix"
            subprocess.run([REPOSITORY / "tools" / "ktr", "wine", "--", "cmd", "/c", "exit"],
                           env={**os.environ, "KTR_WINEPREFIX": str(self._prefix)}, check=True,
                           stdin=subprocess.DEVNULL, capture_output=True, timeout=DEADLINE)
            self._stop()
            self._cut_off()
            self._install()
        except BaseException:
            self.close()
            raise

    def close(self) -> None:
        """Ends whatever still runs and removes the machine."""
        self._stop()
        shutil.rmtree(self.root)

    def at(self, path: str) -> Path:
        """Where a path with a drive is on this system."""
        drive, rest = path[:2].lower(), path[3:]
        assert path[1:3] == ":\\", path
        base = self._prefix / "drive_c" if drive == "c:" else self.root / drive[0]
        return base.joinpath(*rest.split("\\")) if rest else base

    @property
    def drives(self) -> dict[str, Path]:
        """The three drives."""
        return {letter: self.at(f"{letter}:\\") for letter in "CDE"}

    @property
    def tools(self) -> Path:
        """A folder that belongs to no test."""
        return self.at(_TOOLS)

    def program(self, name: str) -> Path:
        """One of our own programs."""
        return self.at(f"{_TOOLS}\\{name}.exe")

    def run(self, instructions: list[str]) -> Result:
        """Has `programs/start.cpp` carry out some instructions."""
        return self.finish(self.begin(instructions))

    def begin(self, instructions: list[str]) -> "subprocess.Popen[bytes]":
        """Starts what `run` does; `finish` waits for its end."""
        self._check_that_nothing_leads_out()
        process: subprocess.Popen[bytes] = self.start(f"{_TOOLS}\\start.exe")
        assert process.stdin
        process.stdin.write("\n".join(instructions).encode() + b"\n")
        process.stdin.close()
        process.stdin = None
        return process

    def finish(self, process: "subprocess.Popen[bytes]") -> Result:
        """Waits for the end of what was begun; whatever cuts the wait short ends it."""
        try:
            output, _ = process.communicate(timeout=DEADLINE)
        except BaseException:  # Among them the time limit of a test.
            self._stop()
            process.communicate()
            raise
        return Result(process.returncode, output)

    def runs(self, name: str) -> bool:
        """Whether a program of this file name runs on the machine."""
        return any(self._is_ours(process) and name.lower() in _command(process).lower()
                   for process in Path("/proc").iterdir() if process.name.isdigit())

    def start(self, *command: str) -> Program:
        """Starts a program that talks over pipes."""
        return Program(["/usr/bin/wine", *command], env=self.environment, cwd=self.at("D:\\"),
                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    @property
    def environment(self) -> dict[str, str]:
        """What Wine and its programs get of this system's environment."""
        return {
            "PATH": "/usr/bin:/bin",
            "HOME": str(self.root / "home"),
            "LC_ALL": "C.UTF-8",
            "WINEPREFIX": str(self._prefix),
            "WINEDEBUG": "-all",
            # Our own fc, not the one that is built in.
            "WINEDLLOVERRIDES": "mscoree=;mshtml=;winemenubuilder.exe=;fc.exe=n",
        }

    def _is_ours(self, process: Path) -> bool:
        try:
            return f"WINEPREFIX={self._prefix}".encode() in (
                process / "environ").read_bytes().split(b"\0")
        except OSError:
            return False

    def _stop(self) -> None:
        if self._prefix.exists():
            for switch in ("-k", "-w"):
                subprocess.run(["/usr/bin/wineserver", switch], env=self.environment, check=False,
                               capture_output=True, timeout=60)

    def _cut_off(self) -> None:
        devices = self._prefix / "dosdevices"
        for entry in devices.iterdir():
            if entry.name != "c:":
                entry.unlink()
        for letter in "de":
            (self.root / letter).mkdir()
            (devices / f"{letter}:").symlink_to(self.root / letter)
        # A second letter for a folder, as "subst" makes it.
        (devices / "f:").symlink_to(self.root / "d" / "Users")
        (self.root / "home").mkdir()
        for folder, names, files in os.walk(self.at("C:\\users")):
            for link in (Path(folder, name) for name in names + files):
                if link.is_symlink():
                    link.unlink()
                    link.mkdir()

    def _install(self) -> None:
        self.tools.mkdir()
        for name in ("start", "holder", "fc"):
            subprocess.run([_COMPILER, "-std=c++17", "-Wall", "-Wextra", "-Werror", "-O1", "-s",
                            "-static", "-municode", "-o", self.program(name),
                            _PROGRAMS / f"{name}.cpp"], check=True, timeout=DEADLINE)
        # The file there is one with that of other prefixes.
        target = self.at("C:\\windows\\system32\\fc.exe")
        target.unlink()
        shutil.copy(self.program("fc"), target)

    def _check_that_nothing_leads_out(self) -> None:
        for folder, names, files in os.walk(self.root):
            for entry in (Path(folder, name) for name in names + files):
                target = entry.resolve() if entry.is_symlink() else entry
                # Wine makes links to serial ports time and again; nothing can be removed there.
                if self.root not in target.parents and not target.is_char_device():
                    raise RuntimeError(f"{entry} leads to {target}")


def _command(process: Path) -> str:
    try:
        return (process / "cmdline").read_bytes().decode(errors="replace")
    except OSError:
        return ""
