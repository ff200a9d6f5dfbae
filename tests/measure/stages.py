"""How far a start of the program has come, told by the files that it opens on its way."""

from __future__ import annotations

import os
from dataclasses import dataclass
from pathlib import Path

from ktr.sandbox import Sandbox
from file_watch import FileWatch

_WINE_MODULES = Path("/usr/lib/x86_64-linux-gnu/wine/x86_64-windows")
_QT = Path("/usr/lib/x86_64-linux-gnu/qt5")
_FONTS = Path("/usr/share/fonts")


@dataclass(frozen=True)
class Stage:
    """A part of the start, which ends with the first look at one of these files or folders."""

    title: str
    ends_at: frozenset[Path]


class Stages:
    """Follows the starts of the program in one sandbox."""

    def __init__(self, sandbox: Sandbox, wine: bool) -> None:
        program = sandbox.bin
        fonts = _tree(_FONTS)
        toolkit = program if wine else _QT

        def stage(title: str, *places: Path) -> Stage:
            return Stage(title, frozenset(places))

        self._stages = [
            stage("Wine, until it opens the executable" if wine else "new process",
                  sandbox.program_file),
            stage("imported libraries", program / "SkyrelWrap.DLL"),
            stage("static objects (telemetry library), instance, environment",
                  toolkit / "platforms" if wine else toolkit / "plugins" / "platforms"),
            stage("QGuiApplication", program / "clearKTR.bat"),
            stage("clean-up script, font, controller, engine",
                  sandbox.root / "Dravik" / "res" / "install_box.ico"),
            stage("icon, translation",
                  (toolkit if wine else toolkit / "qml") / "QtQuick.2" / "qmldir"),
            stage("Main.qml: modules loaded, files compiled, first objects",
                  *program.glob("vantoronlineconfig.dll"),
                  *(sandbox.root / "config").glob("vantoronlineconfig.dll")),
        ]
        if wine:
            self._stages += [
                stage("Main.qml: configuration library, objects without a text", *fonts),
                stage("Main.qml: fonts, objects", _WINE_MODULES / "d3d9.dll"),
                stage("window, with the toolkit's question to Direct3D", sandbox.handle_file),
            ]
        else:
            self._stages.append(stage("Main.qml: objects, fonts, window", sandbox.handle_file))
        folders = {*_tree(sandbox.bin), sandbox.root / "Dravik" / "res", *fonts}
        folders |= {sandbox.root / "config"} | ({_WINE_MODULES} if wine else set(_tree(_QT)))
        self._watch = FileWatch(folders)

    def begin(self) -> None:
        """Forgets the last start."""
        self._watch.forget()

    def durations(self, started: float, painted: float) -> dict[str, float]:
        """Seconds of each stage of a start between these two points in time.

        `RuntimeError` when a stage's end was not seen.
        """
        result, before = {}, started
        for stage in self._stages:
            end = self._watch.first(stage.ends_at, before)
            if end is None:
                raise RuntimeError(f"the end of this was not seen: {stage.title}")
            result[stage.title] = end - before
            before = end
        result["first frame"] = painted - before
        return result


def _tree(folder: Path) -> list[Path]:
    return [Path(place) for place, _, _ in os.walk(folder)]
