"""A sandbox for one test: a fake installation of the product, and everything that runs in it."""

import shutil
import struct
import tempfile
from contextlib import AbstractContextManager, ExitStack, contextmanager, suppress
from pathlib import Path
from typing import Callable, Iterable, Iterator

from ktr import tree, wait
from ktr.display import Display
from ktr.installation import assemble, configure
from ktr.journal import Entry, parse
from ktr.program import RunningProgram, Started
from ktr.system import Process, RegistryValue
from ktr.wine import system_under_test

FOLDERS = ("Dravik", "home", "tmp", "run")
"""Folders in which the program could leave files."""


class Sandbox:
    """One sandbox: in a new temporary folder, or at `root`.

    `cleanup` ends what runs in it and removes a temporary one.
    """

    def __init__(self, display: Display, lay_out: Callable[[Path], None] = assemble,
                 root: Path | None = None) -> None:
        self.display = display
        self.system = system_under_test()
        # Short, since the program's own paths have a limit, and real, since /proc tells real paths.
        self._temporary = root is None
        self._end = ExitStack()
        self.root = (root or Path(tempfile.mkdtemp(prefix="ktr-"))).resolve()
        try:
            lay_out(self.root)
            for folder in ("home", "tmp", "run", "logs", "hold", "elsewhere"):
                (self.root / folder).mkdir(exist_ok=True)
            (self.root / "run").chmod(0o700)  # XDG_RUNTIME_DIR must be private
            self._tools = self._end.enter_context(reachable(self.root / "tools"))
            self.system.prepare(self.root, display.name)
        except BaseException:
            self.cleanup()
            raise
        self.bin = self.root / "Dravik" / "bin"
        self.home = self.root / "home"
        self.temp = self.root / "tmp"
        self.program_file = self.bin / self.system.program_name
        self.handle_file = self.bin / "hwndFile.ini"
        """Where the program publishes its window."""
        self.before_start: Callable[[], None] = lambda: None
        """Called before the program is started."""
        self.programs: list[RunningProgram] = []
        self.fakes: list[Started] = []

    # Fakes -------------------------------------------------------------------------------------

    def configure(self, name: str, **settings: object) -> None:
        """Tells a fake what to do from its next start on.

        Given keys replace those in its text file; a list repeats the key, None removes it.
        """
        configure(self.locate(name), **settings)

    def locate(self, name: str) -> Path:
        """The fake or delivered file of that name; `FileNotFoundError` if there is none."""
        for folder in (self.bin, self.root / "tools", self.root / "config"):
            for file in (folder / name, folder / (name + self.system.executable_suffix)):
                if file.exists():
                    return file
        raise FileNotFoundError(f"nothing is called {name} in {self.root}")

    def set_registry(self, language: RegistryValue = None, oem: RegistryValue = None,
                     xurl_id: RegistryValue = None,
                     xurl_key: str = "Software\\WOW6432Node\\TORVAN\\KTR_dd") -> None:
        """What the product's setup has recorded; None leaves the value out."""
        self.system.write_registry(self.bin, {
            ("Software\\TORVAN\\KTR", "Language"): language,
            ("Software\\TORVAN\\KTR\\Version", "OEM"): oem,
            (xurl_key, "xurlID"): xurl_id,
        })

    def hold(self, name: str) -> Path:
        """Lets a fake run, from its next start on, until the returned file is deleted."""
        file = self.root / "hold" / name
        file.touch()
        self.configure(name, hold_file=file)
        return file

    def spawn(self, name: str, inside: bool = True, called: str | None = None, **settings: object
              ) -> Started:
        """Starts a fake from the test rather than from the program.

        `inside` the program directory, or in a folder elsewhere; `called` another name (in another
        case, for example), for which a copy is made. Settings are as for `configure`.
        """
        source = self.locate(name)
        executable = (self.bin if inside else self.root / "elsewhere") / (called or name)
        if executable != source:
            shutil.copy2(source, executable)
        configure(executable, **settings)
        started = Started(self.system.command(executable, []), self.environment(), self.root,
                          self._log(executable.name))
        self.fakes.append(started)
        return started

    # The program -------------------------------------------------------------------------------

    def environment(self) -> dict[str, str]:
        return self.system.environment(self.root, self.display.name, self._tools)

    def start(self, arguments: Iterable[str] = (),
              environment: dict[str, str | None] | None = None, under: Iterable[str] = ()
              ) -> RunningProgram:
        """Starts the program; `environment` adds variables, or removes those given as None.

        `under` is the command line of a program that executes the program, as `nice` does.
        """
        self.before_start()
        self.system.give_variables(self.root, environment or {})
        variables: dict[str, str | None] = {**self.environment(), **(environment or {})}
        program = RunningProgram(
            [*under, *self.system.command(self.program_file, list(arguments))],
            {name: value for name, value in variables.items() if value is not None},
            self.root, self._log(self.program_file.name), self.display)
        self.programs.append(program)
        return program

    # What has happened -------------------------------------------------------------------------

    def journal(self, image: str | None = None, event: str | None = None, **texts: object
                ) -> list[Entry]:
        """What the fakes have noted so far, or those entries that match."""
        file = self.root / "journal.log"
        entries = parse(file.read_bytes()) if file.exists() else []
        return [entry for entry in entries if entry.matches(image, event, **texts)]

    def forget_journal(self) -> None:
        """Empties the journal; no fake may be writing."""
        (self.root / "journal.log").unlink(missing_ok=True)

    def wait_noted(self, image: str, event: str, deadline: float = wait.DEADLINE, **texts: object
                   ) -> Entry:
        """Waits for the first entry with this image, event and details."""
        def matching(entries: list[Entry]) -> list[Entry]:
            return [entry for entry in entries if entry.matches(image, event, **texts)]

        what = f"{image} {event} {texts or ''}".strip()
        return matching(wait.until(self.journal, f"{what} in the journal", deadline, matching))[0]

    def processes(self, name: str | None = None) -> list[Process]:
        """The running processes of this sandbox, or those of one exact image name."""
        found = self.system.processes(self.root)
        return [process for process in found if name in (None, process.name)]

    def wait_processes(self, name: str, count: int, deadline: float = wait.DEADLINE
                       ) -> list[Process]:
        """Waits until so many processes of that image name run."""
        return wait.until(lambda: self.processes(name), f"{count} processes {name}", deadline,
                          accept=lambda seen: len(seen) == count)

    def shown(self, path: Path) -> str:
        return self.system.shown(path)

    def snapshot(self, folders: tuple[str, ...] = FOLDERS) -> tree.Tree:
        """What the folders hold, for `tree.compare`."""
        return tree.snapshot(self.root, folders)

    # The instance's lock and handle ------------------------------------------------------------

    def read_handle(self) -> int | None:
        """The published window identifier; None without a file. Other sizes than 8 fail."""
        try:
            return int(struct.unpack("<Q", self.handle_file.read_bytes())[0])
        except FileNotFoundError:
            return None

    def write_handle(self, content: int | bytes) -> None:
        """Replaces the handle file by a number in its form, or by any bytes."""
        data = struct.pack("<Q", content) if isinstance(content, int) else content
        self.handle_file.write_bytes(data)

    def instance_lock_held(self) -> bool:
        """Whether an instance holds the lock, as the next one would find out."""
        return self.system.instance_lock_held(self.root)

    def holding_instance_lock(self) -> AbstractContextManager[None]:
        """Holds the instance lock without a window, for a `with` statement."""
        return self.system.holding_instance_lock(self.root)

    # The end -----------------------------------------------------------------------------------

    def end_started(self) -> None:
        """Ends what the test itself has started here and is still running."""
        for started in (*self.programs, *self.fakes):
            started.kill()

    def leftovers(self, deadline: float = 20.0) -> list[Process]:
        """The processes that have not ended by themselves after `deadline` seconds."""
        with suppress(wait.TimedOut):
            wait.until(lambda: not self.system.offspring(self.root), "no process", deadline)
        return self.system.offspring(self.root)

    def cleanup(self) -> None:
        """Ends every process of this sandbox and removes it."""
        def end_all() -> list[Process]:
            processes = self.system.offspring(self.root)
            for process in processes:
                self.system.end(process)
            return processes

        wait.until(end_all, "all processes of the sandbox to end", accept=lambda left: not left)
        self.system.finish(self.root)
        self._end.close()
        if self._temporary:
            shutil.rmtree(self.root, ignore_errors=True)

    def _log(self, name: str) -> Path:
        number = len(self.programs) + len(self.fakes) + 1
        return self.root / "logs" / f"{number}-{name}"


@contextmanager
def reachable(folder: Path) -> Iterator[Path]:
    """A path of the folder without whitespace, for PATH: a link if necessary.

    Qt finds `xdg-open` through PATH, but starts it by a command line that it splits at spaces.
    """
    if not any(letter.isspace() for letter in str(folder)):
        yield folder
        return
    with tempfile.TemporaryDirectory(prefix="ktr-links-", dir="/tmp") as links:
        link = Path(links) / folder.name
        link.symlink_to(folder)
        yield link
