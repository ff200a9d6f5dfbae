"""The Windows executable under Wine: what `system.Native` is for the Linux one.

Each sandbox has a Wine prefix of its own, so its registry, its named mutexes and its processes are
its own, too. Programs see the sandbox under drive Z:, as they see every file.
"""

from __future__ import annotations

import os
import shutil
import subprocess
from contextlib import contextmanager
from pathlib import Path, PureWindowsPath
from typing import Iterator

from ktr import prefix, wait
from ktr.installation import build_directory
from ktr.system import (
    MUTEX, Native, Process, RegistryValue, all_processes, exported, variable_of,
)

WINE_PREFIX = "prefix"
"""The folder of a sandbox in which Wine keeps its system."""

_KEYS = ("Software\\TORVAN", "Software\\WOW6432Node\\TORVAN")
"""What the product's setup writes below, and nothing else does."""


class Wine(Native):
    """The Windows executable in a Wine prefix."""

    program_name = "UninstallUI.exe"
    executable_suffix = ".exe"
    commands = "Dravik/bin"
    empty_variable = "unset"
    has_lock_file = False
    has_execute_bit = False
    terminated = 0
    # Wine asks X11 for the focus with the time of the window's last event; a bystander on X11 has
    # taken it later, and X11 listens to the later one.
    gives_focus = False
    modules_beside_program = True
    handle_bits = 32

    def prepare(self, root: Path) -> None:
        """Makes the prefix of a sandbox that has just been laid out."""
        values = root / "Dravik" / "bin" / "registry.reg"
        text = values.read_text(encoding="utf-8")
        values.unlink()
        self._import(root, text + "\n[HKEY_CURRENT_USER\\Environment]\n" + "".join(
            f'"{name}"={exported(self.shown(root / "tmp"))}\n' for name in ("TEMP", "TMP"))
            + f'"KTR_NOTE"={exported(self.shown(root / "tools" / "note.exe"))}\n'
            # Without a console, messages would go to the debugger.
            + '"QT_FORCE_STDERR_LOGGING"="1"\n'
            # A program that crashes ends, without a dialog about it.
            + '\n[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]\n"ShowCrashDialog"=dword:00000000\n'
            # A free font like the system's own, which is not; else Wine would take one with serifs.
            + '\n[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\n'
            '"Segoe UI"="Open Sans"\n')

    def give_variables(self, root: Path, variables: dict[str, str | None]) -> None:
        """Sets variables that Wine keeps from its programs for those that start from now on.

        Wine drops Qt's variables, which it takes for another system's, and has folders
        for temporary files of its own.
        """
        kept = {name: value or None for name, value in variables.items()
                if name.startswith("QT_") or name in ("TEMP", "TMP")}
        if kept:
            self.set_user_values(root, "Environment", kept)

    def set_user_values(self, root: Path, key: str, values: dict[str, str | None]) -> None:
        """Sets texts in a key below the current user; None removes one."""
        self._import(root, "Windows Registry Editor Version 5.00\n\n"
                     f"[HKEY_CURRENT_USER\\{key}]\n" + "".join(
                         f'"{name}"=' + (exported(value) if value is not None else "-") + "\n"
                         for name, value in values.items()))

    def write_registry(self, program: Path, values: dict[tuple[str, str], RegistryValue]) -> None:
        """Replaces the product's values under the local machine; None is left out."""
        lines = [f"[-HKEY_LOCAL_MACHINE\\{key}]" for key in _KEYS]
        for (key, name), value in values.items():
            if value is not None:
                lines += [f"[HKEY_LOCAL_MACHINE\\{key}]", f'"{name}"={exported(value)}']
        self._import(program.parents[1], "Windows Registry Editor Version 5.00\n\n"
                     + "\n".join(lines) + "\n")

    def set_drop_shadow(self, root: Path, shown: bool) -> None:
        """The user's setting whether windows and menus have a shadow."""
        mask = "10,00,06,80" if shown else "10,00,02,80"
        self._import(root, "Windows Registry Editor Version 5.00\n\n"
                     "[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"
                     f'"UserPreferencesMask"=hex:{mask}\n')

    def set_scale(self, root: Path, percent: int) -> None:
        """The user's setting of how large everything is on the screen."""
        self._import(root, "Windows Registry Editor Version 5.00\n\n"
                     "[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"
                     f'"LogPixels"=dword:{96 * percent // 100:08x}\n')

    def command(self, executable: Path, arguments: list[str]) -> list[str]:
        """The command line that starts an executable."""
        return ["/usr/bin/wine", str(executable), *arguments]

    def environment(self, root: Path, display: str, tools: Path | None = None) -> dict[str, str]:
        """The whole environment of a program in the sandbox at `root`; nothing else leaks in.

        `tools` replaces the sandbox's own folder at the front of PATH.
        """
        return {
            "PATH": f"{tools or root / 'tools'}:/usr/local/bin:/usr/bin:/bin",
            "HOME": f"{root}/home",
            "XDG_RUNTIME_DIR": f"{root}/run",
            "DISPLAY": display,
            **prefix.SETTINGS,
            "WINEPREFIX": str(_prefix(root)),
        }

    def shown(self, path: Path) -> str:
        """A path as the programs of the system write it."""
        return "Z:" + str(path).replace("/", "\\")

    def hide_modules(self, program: Path) -> None:
        """Keeps Qt from finding its QML modules: removes those beside the program."""
        shutil.rmtree(program / "QtQuick" / "Controls.2")

    def empty_from_outside(self, name: str) -> str:
        """What a program sees of a variable that is set to nothing for it."""
        return "unset" if name.startswith("QT_") else "empty"

    def multibyte(self, text: str) -> str:
        """A text after its way through the ANSI code page."""
        return text.encode("cp1252", "replace").decode("cp1252")

    def publishes(self, handle: int | None, window: object) -> bool:
        """Whether a published handle may be that of a window: X11 does not know Windows' handles."""
        return handle is not None and handle != 0

    def processes(self, root: Path) -> list[Process]:
        """All processes of the prefix whose executable lies below a directory."""
        return [process for process in self.offspring(root)
                if root in process.executable.parents
                and _prefix(root) not in process.executable.parents]

    def offspring(self, root: Path) -> list[Process]:
        """All processes that belong to the sandbox, but for those with which Wine itself works."""
        return [Process(pid, executable) for pid, executable in _programs_of(root)
                if not _is_wines_own(root, executable)]

    def finish(self, root: Path) -> None:
        """Ends what Wine itself still runs for the sandbox."""
        if _prefix(root).exists():
            subprocess.run(["/usr/bin/wineserver", "-k"], env=self.environment(root, ""),
                           check=False, capture_output=True, timeout=60)
            wait.until(lambda: list(_programs_of(root)), "Wine to end",
                       accept=lambda left: not left)

    def instance_lock_held(self, root: Path) -> bool:
        """Whether a process has the single-instance mutex."""
        return self._mutex(root, "probe").wait(wait.DEADLINE) == 1

    @contextmanager
    def holding_instance_lock(self, root: Path) -> Iterator[None]:
        """Holds the single-instance mutex as an instance without a window would."""
        with self._mutex(root, "hold") as holder:
            if not holder.stdin or not holder.stdout \
                    or holder.stdout.readline().strip() != b"held":
                raise RuntimeError("the mutex could not be held")
            try:
                yield
            finally:
                holder.stdin.close()
                holder.wait(wait.DEADLINE)

    def _mutex(self, root: Path, what: str) -> "subprocess.Popen[bytes]":
        tool = build_directory() / "tests" / "package" / "mutex.exe"
        return subprocess.Popen(
            self.command(tool, [what, MUTEX]), env=self.environment(root, ""), cwd=root,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def _import(self, root: Path, text: str) -> None:
        file = root / "run" / "import.reg"
        file.parent.mkdir(exist_ok=True)
        file.write_text(text, encoding="utf-16")
        prefix.make(str(_prefix(root)))
        environment = {**os.environ, **prefix.SETTINGS, "WINEPREFIX": str(_prefix(root))}
        environment.pop("DISPLAY", None)
        prefix.start_server(environment)
        done = subprocess.run(["/usr/bin/wine", "regedit", "/S", self.shown(file)],
                              env=environment, capture_output=True, text=True, timeout=120,
                              check=False)
        file.unlink()
        if done.returncode != 0:
            raise RuntimeError(f"the registry could not be written: {done.stderr}")


def _prefix(root: Path) -> Path:
    return root / WINE_PREFIX


def _programs_of(root: Path) -> Iterator[tuple[int, Path]]:
    """Id and executable of every process that has the sandbox's prefix."""
    for process, details in all_processes():
        if variable_of(details, "WINEPREFIX") == str(_prefix(root)):
            try:
                # Not psutil's, which splits a single argument at spaces.
                line = Path(f"/proc/{process.pid}/cmdline").read_bytes()
            except OSError:
                continue
            if first := line.split(b"\0")[0].decode(errors="replace"):
                yield process.pid, _native(root, first)


def _native(root: Path, text: str) -> Path:
    """The path of an executable on this system, from how it was started."""
    if text[1:3] != ":\\":
        return Path(text)
    drive = {"z": Path("/"), "c": _prefix(root) / "drive_c"}.get(text[0].lower(), Path("/"))
    return drive.joinpath(*PureWindowsPath(text).parts[1:])


def _is_wines_own(root: Path, executable: Path) -> bool:
    """Services, the desktop, the console: everything of the prefix but the command interpreter."""
    own = _prefix(root) in executable.parents and executable.name.lower() != "cmd.exe"
    return own or executable.name.startswith("wine")
