"""Environment variables for Qt that are set for another program."""

from __future__ import annotations

from pathlib import Path
from typing import Callable

from ktr.sandbox import Sandbox
from faults.fault import Fault
from faults.outcomes import UNCHANGED

CONTROLS = ("ApplicationWindow", "Label", "RadioButton", "ScrollView", "TextArea")


def _foreign(sandbox: Sandbox) -> Path:
    return sandbox.root / "elsewhere" / "foreign"


def _plant(sandbox: Sandbox) -> None:
    folder = _foreign(sandbox)
    folder.mkdir()
    for control in CONTROLS:
        # With this style no window is created.
        (folder / f"{control}.qml").write_text("import Nothing 1.0\nItem {}\n", encoding="utf-8")
    (folder / "controls.conf").write_text(
        f"[Controls]\nStyle={sandbox.shown(folder)}\n", encoding="utf-8")


def _given(variable: str, file: str = "") -> Callable[[Sandbox], dict[str, str | None]]:
    return lambda sandbox: {variable: sandbox.shown(_foreign(sandbox) / file)}


FAULTS = [
    Fault("a broken style of Qt Quick Controls", UNCHANGED, _plant,
          environment=_given("QT_QUICK_CONTROLS_STYLE")),
    Fault("a broken fallback style", UNCHANGED, _plant,
          environment=_given("QT_QUICK_CONTROLS_FALLBACK_STYLE")),
    Fault("a configuration file with a broken style", UNCHANGED, _plant,
          environment=_given("QT_QUICK_CONTROLS_CONF", "controls.conf")),
]
