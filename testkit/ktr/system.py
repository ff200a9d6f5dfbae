"""Everything that depends on where the program under test runs.

`Native` is for the Linux executable, `wine.Wine` for the Windows executable: how a program is
started, its environment, its processes, and who holds the single-instance lock.
"""

from __future__ import annotations

import fcntl
import os
import signal
from contextlib import contextmanager, suppress
from dataclasses import dataclass
from pathlib import Path
from typing import TYPE_CHECKING, Iterator

import psutil

from ktr.xserver import NO_BUS

if TYPE_CHECKING:
    from ktr.window import Window

MUTEX = "ktr_uninstall_version_2023_Ostrel_Torvan"
"""The name of the single-instance mutex."""

PASSED_THROUGH = ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS")
"""The only variables that a program under test gets from outside: settings of sanitizers."""


@dataclass(frozen=True)
class Process:
    """A process: its id, and the executable file that it runs."""

    pid: int
    executable: Path

    @property
    def name(self) -> str:
        return self.executable.name

    def variable(self, name: str) -> str:
        """A variable of the environment with which it was started; empty without one."""
        with suppress(psutil.Error, OSError):
            return str(psutil.Process(self.pid).environ().get(name, ""))
        return ""

    def __str__(self) -> str:
        return f"{self.pid} {self.executable}"


@dataclass(frozen=True)
class Raw:
    """A registry value of any type, by the type's number, and any bytes."""

    kind: int
    data: bytes


REGISTRY_FILE = "Windows Registry Editor Version 5.00\n\n"
"""How a registry file begins."""

RegistryValue = str | Raw | None
"""What a registry value holds: a text or something else; None is no value."""


class Native:
    """The Linux executable, started as it is."""

    program_name = "UninstallUI"
    executable_suffix = ""
    commands = "tools"  # the sandbox folder that leads the search path for system commands
    empty_variable = "empty"  # what happens to a variable that the program sets to an empty value
    has_lock_file = True  # whether the single-instance lock is a file, which stays
    has_execute_bit = True
    gives_focus = True  # whether a window that another program brings to the front gets the focus
    modules_beside_program = False  # whether Qt's QML modules lie there, not in the system
    handle_bits = 64  # how many bits of a window handle are significant
    terminated = -signal.SIGKILL  # the status of a process that another one has terminated
    # A command that drops the rights of root, so that file permissions count.
    without_privileges = (
        ("/usr/bin/setpriv", "--bounding-set=-dac_override,-dac_read_search")
        if os.geteuid() == 0 else ())

    def prepare(self, root: Path, display: str) -> None:
        """Prepares a new sandbox beyond its files: nothing to do."""

    def finish(self, root: Path) -> None:
        """Ends system processes of a sandbox: there are none."""

    def shown(self, path: Path) -> str:
        """A path as the programs of the system write it."""
        return str(path)

    def hide_modules(self, program: Path, but: Path = Path("/nowhere")) -> None:
        """Keeps Qt from finding QML modules, except in the folder `but`; its plug-ins stay."""
        plugins = next(Path("/usr/lib").glob("*/qt5/plugins"))
        (program / "qt.conf").write_text(
            f"[Paths]\nPlugins={plugins}\nQml2Imports={but}\nImports=/nowhere\n")

    def empty_from_outside(self, name: str) -> str:
        """What a program sees of a variable that is set to an empty value."""
        return "empty"

    def multibyte(self, text: str) -> str:
        """A text after conversion to the system's multibyte encoding and back."""
        return text

    def publishes(self, handle: int | None, window: Window) -> bool:
        """Whether a published handle is that of a window."""
        return handle == window.identifier

    def give_variables(self, root: Path, variables: dict[str, str | None]) -> None:
        """Sets variables that do not reach a program through its environment: there are none."""

    def write_registry(self, program: Path, values: dict[tuple[str, str], RegistryValue]) -> None:
        """Replaces the registry with these values under the local machine; None is left out."""
        (program / "registry.reg").write_text(REGISTRY_FILE + machine_values(values), "utf-8")

    def command(self, executable: Path, arguments: list[str]) -> list[str]:
        return [str(executable), *arguments]

    def environment(self, root: Path, display: str, tools: Path | None = None) -> dict[str, str]:
        """The whole environment of a program in the sandbox at `root`; nothing else is inherited.

        `tools` replaces the sandbox's own folder at the front of PATH.
        """
        return {
            **{name: os.environ[name] for name in PASSED_THROUGH if name in os.environ},
            "PATH": f"{tools or root / 'tools'}:/usr/local/bin:/usr/bin:/bin",
            "LD_LIBRARY_PATH": f"{root}/config",
            "HOME": f"{root}/home",
            "TMPDIR": f"{root}/tmp",
            "XDG_RUNTIME_DIR": f"{root}/run",
            "DISPLAY": display,
            "DBUS_SESSION_BUS_ADDRESS": NO_BUS,
            "QT_QPA_PLATFORM": "xcb",
            "LC_ALL": "C.UTF-8",
        }

    def processes(self, root: Path) -> list[Process]:
        """All processes whose executable lies below a directory, by the real path."""
        return [process for process in all_processes() if root in process.executable.parents]

    def offspring(self, root: Path) -> list[Process]:
        """All processes that belong to the sandbox at `root`.

        Besides those whose executable lies in it these are interpreters of its scripts and
        programs of the system that one of its programs started: the private run-time folder in
        their environment gives them away.
        """
        return [process for process in all_processes()
                if root in process.executable.parents
                or process.variable("XDG_RUNTIME_DIR") == f"{root}/run"]

    def end(self, process: Process) -> None:
        """Ends a process at once; one that has gone already is fine."""
        with suppress(ProcessLookupError):
            os.kill(process.pid, signal.SIGKILL)

    def lock_file(self, root: Path) -> Path:
        """The file whose lock stands for the named mutex."""
        return root / "run" / f"{MUTEX}.lock"

    def instance_lock_held(self, root: Path) -> bool:
        """Whether a process holds the single-instance lock.

        The lock is tried and given back at once: do not ask while another program starts.
        """
        with suppress(FileNotFoundError), open(self.lock_file(root), "rb") as file:
            try:
                fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
            except BlockingIOError:
                return True
        return False

    @contextmanager
    def holding_instance_lock(self, root: Path) -> Iterator[None]:
        """Holds the single-instance lock as an instance without a window would."""
        with open(self.lock_file(root), "ab") as file:
            fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
            yield


def machine_values(values: dict[tuple[str, str], RegistryValue]) -> str:
    """Values under the local machine in a registry file; None is left out."""
    return "".join(f'[HKEY_LOCAL_MACHINE\\{key}]\n"{name}"={exported(value)}\n\n'
                   for (key, name), value in values.items() if value is not None)


def exported(value: RegistryValue) -> str:
    """A registry value as the registry's editor exports it; None removes it."""
    if value is None:
        return "-"
    if isinstance(value, Raw):
        return f"hex({value.kind:x}):" + ",".join(f"{byte:02x}" for byte in value.data)
    return '"' + value.replace("\\", "\\\\").replace('"', '\\"') + '"'


def all_processes() -> Iterator[Process]:
    """All live processes whose executable may be read."""
    # Not process_iter: it keeps the executable of a process that has become another program.
    for pid in psutil.pids():
        with suppress(psutil.Error):
            if executable := psutil.Process(pid).exe():
                yield Process(pid, Path(executable))
