"""Runs a Windows program under Wine.

Its prefix is the folder that KTR_WINEPREFIX names, or else one in the user's cache folder. A
missing prefix becomes a copy of a template, which is made once and never runs. With KTR_QT_KIT, the
program finds that Qt kit.
"""

from __future__ import annotations

import os
import sys

# Each unit test under Wine starts here: import later what only a new prefix needs.
TYPE_CHECKING = False
if TYPE_CHECKING:
    import argparse
    from collections.abc import Mapping
    from pathlib import Path
    from typing import NoReturn

SETTINGS = {
    "WINEDEBUG": "-all",
    "LC_ALL": "C.UTF-8",
    # No installers for .NET and the browser engine, no menu entries.
    "WINEDLLOVERRIDES": "mscoree=;mshtml=;winemenubuilder.exe=",
}
"""What every run of Wine has in its environment."""


def arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("program", nargs="+", help="the program and its arguments, after --")


def run(options: argparse.Namespace) -> NoReturn:
    become(options.program)


def become(program: list[str]) -> NoReturn:
    """Replaces this process by Wine with the program."""
    prefix = os.environ.get("KTR_WINEPREFIX") or f"{_cache()}/wine-prefix"
    try:
        make(prefix)
        program = _by_ascii_path(program)
        os.environ.update(SETTINGS, WINEPREFIX=prefix)
        if kit := os.environ.get("KTR_QT_KIT"):
            # The DLLs of Qt and those of the compiler's run-time.
            import subprocess

            library = subprocess.check_output(
                ["x86_64-w64-mingw32-g++-posix", "-print-file-name=libstdc++-6.dll"], text=True)
            folders = (f"{kit}/bin", os.path.dirname(library), "/usr/x86_64-w64-mingw32/lib")
            os.environ["WINEPATH"] = ";".join(f"Z:{folder}" for folder in folders)
        start_server(os.environ)
        os.execvp("wine", ["wine", *program])
    except (RuntimeError, OSError) as error:
        print(f"ktr wine: {error}", file=sys.stderr)
        sys.exit(125)


def _by_ascii_path(program: list[str]) -> list[str]:
    """Reaches a program below the working directory through a link if its path is not ASCII.

    Unit tests call ANSI functions, whose paths would be in Wine's ANSI code page, not in UTF-8.
    """
    folder = os.getcwd()
    if program[0].isascii() or not program[0].startswith(f"{folder}/"):
        return program
    import hashlib

    link = f"{_cache()}/{hashlib.sha256(os.fsencode(folder)).hexdigest()[:16]}"
    try:
        os.symlink(folder, link)
    except FileExistsError:
        pass  # made for an earlier test
    os.chdir(link)
    os.environ["PWD"] = link
    return [link + program[0][len(folder):], *program[1:]]


def fix_addresses() -> None:
    """Turns off address randomization for the programs that this process starts.

    Debian's wine64 has a fixed address, and Linux may put the heap behind it over the page at
    0x7ffe0000, which every Windows process needs: the program then ends at once with status 1. A
    system that does not allow this keeps that rare failure.
    """
    import ctypes

    libc = ctypes.CDLL(None)
    libc.personality(libc.personality(0xFFFFFFFF) | 0x40000)  # ADDR_NO_RANDOMIZE


def start_server(environment: Mapping[str, str]) -> None:
    """Starts Wine's own processes for a prefix, unless they run.

    The first program would start them, and they would keep its output open for its reader. They
    keep the DISPLAY of `environment`.
    """
    def quiet(*command: str) -> int:
        null = [(os.POSIX_SPAWN_OPEN, number, os.devnull, os.O_RDWR, 0) for number in range(3)]
        child = os.posix_spawnp(command[0], command, environment, file_actions=null)
        return os.waitpid(child, 0)[1]

    fix_addresses()
    if quiet("wineserver", "-k0") != 0:
        # The server stays for a while after its last program: if it ended just as the next program
        # starts, it would end that one, too.
        quiet("wineserver", "-p30")
        quiet("wine", "cmd", "/c", "exit")


def make(prefix: str) -> None:
    """Copies the template, unless the prefix exists; many may do so at once."""
    if os.path.isdir(prefix):
        return
    import fcntl
    from pathlib import Path

    cache, place = Path(_cache()), Path(prefix)
    for folder in (cache, place.parent):
        folder.mkdir(parents=True, exist_ok=True)
    with open(cache / "wine.lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        template = cache / "wine-template"
        if not template.is_dir():
            _make_template(template)
        if not place.is_dir():
            new = place.with_name(f"{place.name}.{os.getpid()}")
            _copy(template, new)
            new.rename(place)


def _cache() -> str:
    cache = os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache")
    return f"{cache}/dravik-uninstall"


def _make_template(template: Path) -> None:
    import shutil
    import subprocess

    fix_addresses()
    new, log = template.with_suffix(".new"), template.with_suffix(".log")
    shutil.rmtree(new, ignore_errors=True)
    environment = {**os.environ, **SETTINGS, "WINEPREFIX": str(new)}
    environment.pop("DISPLAY", None)
    with open(log, "wb") as output:
        for command in (
            ["wine", "wineboot", "--init"],
            # The default reports an old Windows, and Qt's kernel version follows it.
            ["wine", "reg", "add", r"HKCU\Software\Wine", "/v", "Version", "/d", "win10", "/f"],
            # Wine writes the registry to disk when its server ends.
            ["wineserver", "-w"],
        ):
            if subprocess.call(command, env=environment, stdin=subprocess.DEVNULL,
                               stdout=output, stderr=output) != 0:
                raise RuntimeError(f"cannot make a Wine prefix, see {log}")
    new.rename(template)


def _copy(template: Path, new: Path) -> None:
    """Shares the system files with the template: no program writes to them."""
    import shutil
    import subprocess

    linked = subprocess.run(["cp", "-al", template, new], stderr=subprocess.DEVNULL, check=False)
    if linked.returncode != 0:  # another file system
        shutil.rmtree(new, ignore_errors=True)
        subprocess.run(["cp", "-a", template, new], check=True)
        return
    shutil.rmtree(new / "drive_c" / "users")
    subprocess.run(["cp", "-a", template / "drive_c" / "users", new / "drive_c"], check=True)
    subprocess.run(["cp", "-a", "--remove-destination", *template.glob("*.reg"), new], check=True)
