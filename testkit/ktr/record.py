"""What a scenario has made the program do, in a form that is the same wherever it runs.

The records of two executables are compared by `ktr compare`.
"""

import json
import re
from contextlib import suppress
from pathlib import Path

from ktr import tree
from ktr.journal import Entry
from ktr.sandbox import Sandbox
from ktr.window import Window

FOLDERS = ("Dravik", "home", "tmp")
"""Folders in which both executables must leave the same files."""

_IGNORED_FIELDS = re.compile(r"pid|found|script_pid|sid|fds|nice|policy|std\w+|env\..*")
"""Fields that depend on the system or on timing, not on the program."""
_SETTINGS = re.compile(r"\w+ Dravik/bin/(registry\.reg|tasklist\.txt|[^/]+\.(exe|dll)\.txt)", re.I)
"""Files that a test writes for the fakes."""
_OFTEN = ("tasklist", "SkyrelWrapExe.exe")
"""How often these are started depends on timing, so each different line is kept once."""


class Recorder:
    """Watches one scenario from the moment in which the program is started."""

    def __init__(self, sandbox: Sandbox) -> None:
        self._sandbox = sandbox
        self._before: tree.Tree = {}
        self._screenshot = None
        sandbox.before_start = self._begin
        sandbox.display.before_act = self._look

    def save(self, folder: Path, name: str) -> None:
        """Writes the record, and the last screenshot of the window."""
        self._sandbox.display.before_act = lambda window: None
        folder.mkdir(parents=True, exist_ok=True)
        if self._screenshot is not None:
            self._screenshot.save(folder / f"{name}.png")
        entries = self._sandbox.journal()
        # A scenario that does not start the program has nothing to compare.
        after = self._sandbox.snapshot(FOLDERS) if self._sandbox.programs else {}
        change = tree.compare(self._before, after)
        record = {
            "events": [" ".join(entry.items("pairs")) for entry in entries
                       if entry.event == "SkyrelSendInfo"],
            "configuration": [self._line(entry) for entry in entries
                              if "config" in entry.image and entry.event != "load"],
            "processes": sorted(self._line(entry) for entry in entries
                                if entry.event in ("start", "end") and entry.image not in _OFTEN)
                         + sorted({self._line(entry) for entry in entries
                                   if entry.image in _OFTEN}),
            "files": sorted(line for kind, paths in vars(change).items()
                            for line in (self._plain(f"{kind} {path}") for path in paths)
                            if not _SETTINGS.fullmatch(line)),
            "exit": [program.ending for program in self._sandbox.programs],
        }
        (folder / f"{name}.json").write_text(json.dumps(record, indent=1), encoding="utf-8")

    def _begin(self) -> None:
        """Takes the first snapshot: what the test itself prepared does not count."""
        if not self._sandbox.programs:
            self._before = self._sandbox.snapshot(FOLDERS)

    def _look(self, window: Window) -> None:
        """Keeps a screenshot of the main window, with windows that cover it."""
        for program in self._sandbox.programs:
            if program.running and window in program.windows():
                # Partly off the screen, the previous screenshot shows more.
                with suppress(ValueError):
                    self._screenshot = program.windows()[0].screenshot()

    def _line(self, entry: Entry) -> str:
        fields = [f"{key}={entry.text(key)}" for key in entry.fields
                  if not _IGNORED_FIELDS.fullmatch(key)]
        return self._plain(" ".join([entry.image, entry.event, *fields]))

    def _plain(self, text: str) -> str:
        """A text without where the sandbox lies and how the system writes paths."""
        system = self._sandbox.system
        text = text.replace(system.shown(self._sandbox.root), "…").replace("\\", "/")
        return text.replace(system.program_name, "UninstallUI").replace("tasklist.exe", "tasklist")
