"""The Windows executable under Wine: what `system.Native` is for the Linux one.

Each sandbox has a Wine prefix of its own, so its registry, its named mutexes and its processes are
its own, too. Programs see the sandbox under drive Z:, as they see every file.
"""

import os
import shutil
import subprocess
from contextlib import contextmanager, suppress
from pathlib import Path, PureWindowsPath
from typing import IO, Iterator, cast

from ktr import prefix, wait
from ktr.installation import build_directory
from ktr.system import (
    MUTEX, REGISTRY_FILE, Native, Process, Raw, RegistryValue, all_processes, exported,
    machine_values)

WINE_PREFIX = "prefix"
"""The folder of a sandbox in which Wine keeps its system."""


class Wine(Native):
    """The Windows executable in a Wine prefix."""

    program_name = "UninstallUI.exe"
    executable_suffix = ".exe"
    commands = "Dravik/bin"
    empty_variable = "unset"
    has_lock_file = False
    has_execute_bit = False
    terminated = 0
    # Wine requests the focus with the timestamp of the window's last event. A bystander took the
    # focus later than that, so the X server ignores the request.
    gives_focus = False
    modules_beside_program = True
    handle_bits = 32
    _display = ""

    def prepare(self, root: Path, display: str) -> None:
        """Makes the prefix of a sandbox that has just been laid out."""
        self._display = display
        values = root / "Dravik" / "bin" / "registry.reg"
        temporary = self.shown(root / "tmp")
        self._import(root, values.read_text(encoding="utf-8").removeprefix(REGISTRY_FILE)
                     + _user_values("Environment", {
                         "TEMP": temporary, "TMP": temporary,
                         "KTR_NOTE": self.shown(root / "tools" / "note.exe"),
                         # Without a console, messages would go to the debugger.
                         "QT_FORCE_STDERR_LOGGING": "1"})
                     # A program that crashes ends, without a dialog about it.
                     + _user_values("Software\\Wine\\WineDbg",
                                    {"ShowCrashDialog": Raw(4, bytes(4))})
                     # The system's own font is not free; Wine would take one with serifs.
                     + _user_values("Software\\Wine\\Fonts\\Replacements",
                                    {"Segoe UI": "Open Sans"}))
        values.unlink()

    def give_variables(self, root: Path, variables: dict[str, str | None]) -> None:
        """Sets variables that Wine keeps from its programs for those that start from now on.

        Wine drops variables that begin with QT_, and sets TEMP and TMP itself.
        """
        kept: dict[str, RegistryValue] = {
            name: value or None for name, value in variables.items()
            if name.startswith("QT_") or name in ("TEMP", "TMP")}
        if kept:
            self.set_user_values(root, "Environment", kept)

    def set_user_values(self, root: Path, key: str, values: dict[str, RegistryValue]) -> None:
        """Sets values of a key below the current user; None removes one."""
        self._import(root, _user_values(key, values))

    def write_registry(self, program: Path, values: dict[tuple[str, str], RegistryValue]) -> None:
        # Only the product's setup writes below these keys.
        removed = "".join(f"[-HKEY_LOCAL_MACHINE\\Software\\{node}TORVAN]\n"
                          for node in ("", "WOW6432Node\\"))
        self._import(program.parents[1], removed + machine_values(values))

    def set_drop_shadow(self, root: Path, shown: bool) -> None:
        """The user's setting whether windows and menus have a shadow."""
        mask = bytes((0x10, 0, 6 if shown else 2, 0x80))
        self.set_user_values(root, "Control Panel\\Desktop", {"UserPreferencesMask": Raw(3, mask)})

    def set_scale(self, root: Path, percent: int) -> None:
        """The user's setting of how large everything is on the screen."""
        dots = (96 * percent // 100).to_bytes(4, "little")
        self.set_user_values(root, "Control Panel\\Desktop", {"LogPixels": Raw(4, dots)})

    def command(self, executable: Path, arguments: list[str]) -> list[str]:
        return ["/usr/bin/wine", str(executable), *arguments]

    def environment(self, root: Path, display: str, tools: Path | None = None) -> dict[str, str]:
        native = super().environment(root, display, tools)
        kept = {name: native[name] for name in ("PATH", "HOME", "XDG_RUNTIME_DIR", "DISPLAY")}
        return {**kept, **prefix.SETTINGS, "WINEPREFIX": str(_prefix(root))}

    def shown(self, path: Path) -> str:
        return "Z:" + str(path).replace("/", "\\")

    def hide_modules(self, program: Path, but: Path = Path()) -> None:
        shutil.rmtree(program / "QtQuick" / "Controls.2")

    def empty_from_outside(self, name: str) -> str:
        return "unset" if name.startswith("QT_") else "empty"

    def multibyte(self, text: str) -> str:
        return text.encode("cp1252", "replace").decode("cp1252")

    def publishes(self, handle: int | None, window: object) -> bool:
        return bool(handle)  # X11 does not know the handles of Windows.

    def processes(self, root: Path) -> list[Process]:
        return [process for process in self.offspring(root)
                if root in process.executable.parents
                and _prefix(root) not in process.executable.parents]

    def offspring(self, root: Path) -> list[Process]:
        """All processes that belong to the sandbox, but for those with which Wine itself works."""
        return [Process(pid, executable) for pid, executable in _programs_of(root)
                if not _is_wines_own(root, executable)]

    def finish(self, root: Path) -> None:
        if _prefix(root).exists():
            subprocess.run(["/usr/bin/wineserver", "-k"], env=self.environment(root, ""),
                           check=False, capture_output=True, timeout=60)
            wait.until(lambda: list(_programs_of(root)), "Wine to end",
                       accept=lambda left: not left)

    def instance_lock_held(self, root: Path) -> bool:
        return self._mutex(root, "probe").wait(wait.DEADLINE) == 1

    @contextmanager
    def holding_instance_lock(self, root: Path) -> Iterator[None]:
        with self._mutex(root, "hold") as holder:
            if cast(IO[bytes], holder.stdout).readline().strip() != b"held":
                raise RuntimeError("the mutex could not be held")
            try:
                yield
            finally:
                holder.communicate(timeout=wait.DEADLINE)

    def _mutex(self, root: Path, what: str) -> subprocess.Popen[bytes]:
        tool = build_directory() / "tests" / "package" / "mutex.exe"
        return subprocess.Popen(
            self.command(tool, [what, MUTEX]), env=self.environment(root, self._display), cwd=root,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def _import(self, root: Path, text: str) -> None:
        file = root / "run" / "import.reg"
        file.parent.mkdir(exist_ok=True)
        file.write_text(REGISTRY_FILE + text, encoding="utf-16")
        prefix.make(str(_prefix(root)))
        environment = {**os.environ, **prefix.SETTINGS, "WINEPREFIX": str(_prefix(root))}
        # The first program that needs Wine's desktop starts it, for all others too: without a
        # display it would have no driver, and no window could be created.
        environment["DISPLAY"] = self._display
        prefix.start_server(environment)
        done = subprocess.run(self.command(Path("regedit"), ["/S", self.shown(file)]),
                              env=environment, capture_output=True, text=True, timeout=120)
        file.unlink()
        if done.returncode != 0:
            raise RuntimeError(f"the registry could not be written: {done.stderr}")


def is_windows() -> bool:
    """Whether the build has made the Windows executable."""
    return (build_directory() / "src" / "app" / Wine.program_name).exists()


def system_under_test() -> Native:
    return Wine() if is_windows() else Native()


def _user_values(key: str, values: dict[str, RegistryValue]) -> str:
    """Values of a key below the current user in a registry file."""
    return f"\n[HKEY_CURRENT_USER\\{key}]\n" + "".join(
        f'"{name}"={exported(value)}\n' for name, value in values.items())


def _prefix(root: Path) -> Path:
    return root / WINE_PREFIX


def _programs_of(root: Path) -> Iterator[tuple[int, Path]]:
    """Id and executable of every process that has the sandbox's prefix."""
    for process in all_processes():
        if process.variable("WINEPREFIX") == str(_prefix(root)):
            with suppress(OSError):
                # Not psutil's, which splits a single argument at spaces.
                line = Path(f"/proc/{process.pid}/cmdline").read_bytes()
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
