"""The files on the drives: an installation, and files that must stay."""

from __future__ import annotations

import os
import shutil
import stat
from pathlib import Path
from typing import Callable

from machine import SCRIPT, Machine

PRODUCT = "D:\\Program Files\\Torvan\\Dravik"
PROGRAM = PRODUCT + "\\bin"
PROFILE = "D:\\Users\\Anna"
TEMP = PROFILE + "\\AppData\\Local\\Temp"
STAGED = TEMP + "\\clearKTR.bat"

VARIABLES = {
    "SystemRoot": "C:\\windows",
    "USERPROFILE": PROFILE,
    "APPDATA": PROFILE + "\\AppData\\Roaming",
    "LOCALAPPDATA": PROFILE + "\\AppData\\Local",
    "TEMP": TEMP,
    "TMP": TEMP,
    "OneDrive": PROFILE + "\\OneDrive",
    "PUBLIC": "D:\\Users\\Public",
    "ProgramData": "D:\\System\\Program Data",
    "ALLUSERSPROFILE": "D:\\System\\Program Data",
    "ProgramFiles": "D:\\Program Files",
    "ProgramW6432": "D:\\Program Files",
    "ProgramFiles(x86)": "D:\\Program Files (x86)",
    "CommonProgramFiles": "D:\\Program Files\\Common Files",
    "CommonProgramW6432": "D:\\Program Files\\Common Files",
    "CommonProgramFiles(x86)": "D:\\Program Files (x86)\\Common Files",
}
"""The folders of the system and of the user: all but `SystemRoot` are on drive D."""

_PROFILE = ("Desktop\\note.txt", "Documents\\letter.txt", "AppData\\Roaming\\Tool\\tool.ini",
            "AppData\\Local\\Programs\\Tool\\tool.exe", "AppData\\Local\\Temp\\other.tmp",
            "OneDrive\\Desktop\\note.txt")
_DECOYS = (
    *(f"{PROFILE}\\{name}" for name in _PROFILE), "D:\\Users\\Public\\Desktop\\Tool.lnk",
    "D:\\Program Files\\Common Files\\shared.dll", "D:\\Program Files\\keep.txt",
    "D:\\Program Files\\Torvan\\keep.txt", "D:\\Program Files\\Torvan\\Dravi\\keep.txt",
    "D:\\Program Files\\Torvan\\Dravik2\\keep.txt", "D:\\Program Files\\Torvan\\Dravik.old",
    "D:\\Program Files (x86)\\Common Files\\shared.dll", "D:\\System\\Program Data\\keep.txt",
    "D:\\Elsewhere\\keep.txt", "D:\\Elsewhere\\below\\keep.txt", "D:\\keep.txt", "E:\\keep.txt",
)

Step = Callable[["Drives"], object]
Tree = dict[str, tuple[object, ...]]


class Drives:
    """The drives of a machine, emptied and filled again."""

    def __init__(self, machine: Machine) -> None:
        self.machine = machine
        self.script = SCRIPT.read_bytes()
        self.instructions: list[str] = []
        for letter in "DE":
            _clear(machine.drives[letter])
        for path in _DECOYS:
            self.write(path)
        # The same path on another drive: a command without a drive letter might remove that one.
        self.install("E" + PRODUCT[1:])

    def write(self, path: str, content: bytes = b"content") -> None:
        """Writes a file and creates its folder."""
        target = self.machine.at(path)
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(content)

    def mark(self, folder: str, script: bytes | None = None) -> None:
        """Makes a folder a program directory: the program and the script in it."""
        self.write(f"{folder}\\UninstallUI.exe")
        self.write(f"{folder}\\clearKTR.bat", self.script if script is None else script)

    def install(self, folder: str, program: str = "bin") -> None:
        """Creates in a product folder what the uninstaller leaves there."""
        self.mark(f"{folder}\\{program}")
        for name in (f"{program}\\Qt5Core.dll", f"{program}\\translations\\ktr_English.qm",
                     "res\\install_box.ico", "left over.txt"):
            self.write(f"{folder}\\{name}")

    def set_attributes(self) -> None:
        """Sets the attributes that the steps collected: only Windows calls can."""
        if self.instructions:
            assert self.machine.run(self.instructions).status == 0

    def tree(self) -> Tree:
        """Everything on the drives: the kind, and for files permissions, size and time."""
        seen: Tree = {}
        for letter, drive in self.machine.drives.items():
            for folder, folders, files in os.walk(drive):
                if Path(folder) == self.machine.tools:
                    continue
                for entry in (Path(folder, name) for name in folders + files):
                    name = str(entry.relative_to(drive)).replace("/", "\\")
                    seen[f"{letter}:\\{name}"] = _facts(entry)
        return seen


def _facts(entry: Path) -> tuple[object, ...]:
    info = entry.lstat()
    if stat.S_ISLNK(info.st_mode):
        return ("link", os.readlink(entry))
    if stat.S_ISDIR(info.st_mode):
        return ("folder", info.st_mode)
    return ("file", info.st_mode, info.st_size, info.st_mtime_ns)


def _clear(folder: Path) -> None:
    for entry in folder.iterdir():
        if entry.is_dir() and not entry.is_symlink():
            shutil.rmtree(entry)
        else:
            entry.unlink()


def below(tree: Tree, folder: str) -> set[str]:
    """The paths of a folder and of everything in it."""
    start = folder.lower()
    return {path for path in tree
            if path.lower() == start or path.lower().startswith(start + "\\")}


# Steps that change the files, for the table of cases.

def files(*paths: str) -> Step:
    """Adds files."""
    def step(drives: Drives) -> None:
        for path in paths:
            drives.write(path)
    return step


def file(path: str, content: bytes) -> Step:
    """Adds a file with this content."""
    return lambda drives: drives.write(path, content)


def folders(*paths: str) -> Step:
    """Adds empty folders."""
    def step(drives: Drives) -> None:
        for path in paths:
            drives.machine.at(path).mkdir(parents=True, exist_ok=True)
    return step


def mark(*paths: str, change: Callable[[bytes], bytes] = bytes) -> Step:
    """Adds folders with the mark, or with a changed script in it."""
    def step(drives: Drives) -> None:
        for path in paths:
            drives.mark(path, change(drives.script))
    return step


def without(*paths: str) -> Step:
    """Removes files or folders."""
    def step(drives: Drives) -> None:
        for path in paths:
            target = drives.machine.at(path)
            if target.is_dir():
                shutil.rmtree(target)
            else:
                target.unlink()
    return step


def link(path: str, target: str) -> Step:
    """Adds a link, in place of a file or folder of this path."""
    def step(drives: Drives) -> None:
        place = drives.machine.at(path)
        place.parent.mkdir(parents=True, exist_ok=True)
        if place.exists():
            without(path)(drives)
        place.symlink_to(drives.machine.at(target))
    return step


def attributes(letters: str, *paths: str) -> Step:
    """Makes files or folders hidden (h), read-only (r) or system files (s)."""
    return lambda drives: drives.instructions.extend(
        f"attributes {letters} {path}" for path in paths)
