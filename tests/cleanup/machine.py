"""A Windows machine for one worker: a Wine prefix with three drives, closed to the outside.

Wine removes the targets of links, and lists folders behind links as if they were local. So nothing
in the prefix may lead out of it: it has no drive for this system's files and no link to the home
folder, and no run starts while a link leads out.
"""

from __future__ import annotations

import os
import shutil
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path
from typing import IO

from ktr import prefix

REPOSITORY = Path(__file__).resolve().parents[2]
SCRIPT = REPOSITORY / "packaging" / "clearKTR.bat"

DEADLINE = 240.0
"""Seconds that a run may take: the script itself gives up after two minutes."""

_PROGRAMS = Path(__file__).parent / "programs"
_COMPILER = "x86_64-w64-mingw32-g++-posix"
_TOOLS = "C:\\ktr"
"""The folder of our own programs and of the files that they need."""


class Program(subprocess.Popen[bytes]):
    """A program that is controlled over pipes."""

    stdin: IO[bytes]
    stdout: IO[bytes]


@dataclass(frozen=True)
class Result:
    """How a command ended, and what it printed."""

    status: int
    output: bytes


class Machine:
    """Drive C is Wine's, D and E are empty at first, and F is another letter for D:\\Users."""

    def __init__(self) -> None:
        prefix.fix_addresses()
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
        """Ends all its processes and removes the machine."""
        self._stop()
        shutil.rmtree(self.root)

    def at(self, path: str) -> Path:
        """The path on this system of a path with a drive letter."""
        drive, rest = path[:2].lower(), path[3:]
        assert path[1:3] == ":\\", path
        base = self._prefix / "drive_c" if drive == "c:" else self.root / drive[0]
        return base.joinpath(*rest.split("\\")) if rest else base

    @property
    def drives(self) -> dict[str, Path]:
        """The folders of the three drives."""
        return {letter: self.at(f"{letter}:\\") for letter in "CDE"}

    @property
    def tools(self) -> Path:
        """The folder of our own programs, which is not part of the tested files."""
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
        """Waits for the end of what `begin` started; any exception ends it at once."""
        try:
            output, _ = process.communicate(timeout=DEADLINE)
        except BaseException:  # Including the time limit of a test.
            self._stop()
            process.communicate()
            raise
        return Result(process.returncode, output)

    def runs(self, name: str) -> bool:
        """Whether a program with this file name runs on the machine."""
        return any(self._is_ours(process) and name.lower() in _command(process).lower()
                   for process in Path("/proc").iterdir() if process.name.isdigit())

    def start(self, *command: str) -> Program:
        """Starts a program that is controlled over pipes."""
        return Program(["/usr/bin/wine", *command], env=self.environment, cwd=self.at("D:\\"),
                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    @property
    def environment(self) -> dict[str, str]:
        """The environment of Wine and its programs."""
        return {
            "PATH": "/usr/bin:/bin",
            "HOME": str(self.root / "home"),
            "LC_ALL": "C.UTF-8",
            "WINEPREFIX": str(self._prefix),
            "WINEDEBUG": "-all",
            # Our own fc instead of the built-in one.
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
        # A second drive letter for a folder, as "subst" creates it.
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
        # That file is shared with other prefixes: replace it, do not overwrite it.
        target = self.at("C:\\windows\\system32\\fc.exe")
        target.unlink()
        shutil.copy(self.program("fc"), target)

    def _check_that_nothing_leads_out(self) -> None:
        for folder, names, files in os.walk(self.root):
            for entry in (Path(folder, name) for name in names + files):
                target = entry.resolve() if entry.is_symlink() else entry
                # Wine keeps creating links to serial ports; nothing can be removed there.
                if self.root not in target.parents and not target.is_char_device():
                    raise RuntimeError(f"{entry} leads to {target}")


def _command(process: Path) -> str:
    try:
        return (process / "cmdline").read_bytes().decode(errors="replace")
    except OSError:
        return ""
