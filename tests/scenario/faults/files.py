"""Every file that ships with the program or lies beside it: missing, damaged or replaced."""

from __future__ import annotations

import random
import shutil
from pathlib import Path
from types import MappingProxyType
from typing import Callable, Iterator, Mapping

from ktr.sandbox import Sandbox
from faults.fault import Fault, Outcome, Prepare
from faults.outcomes import (
    CONFIG, NO_CLEAN_UP, NO_HANDLE, NO_OFFERS, SILENT, TELEMETRY, UNCHANGED, UNTRANSLATED,
)

GARBAGE = random.Random(1).randbytes(1 << 16)
ROOT_READS_ALL = "under Wine the server process checks permissions, with its own privileges"
BATCH_FILE = "a batch file of garbage does whatever the command interpreter makes of it"
TEXT_FILE = "the registry is not a file there"

Damage = Callable[[Path], object]


def _gone(file: Path) -> None:
    if file.exists():
        file.unlink()


def occupy(file: Path) -> None:
    """Replaces a file by a folder with a file in it, which nothing may delete."""
    _gone(file)
    file.mkdir()
    (file / "something").write_text("within")


def _unreadable(file: Path) -> None:
    file.touch()
    file.chmod(0)


DAMAGES: dict[str, Damage] = {
    "missing": _gone,
    "empty": lambda file: file.write_bytes(b""),
    "a folder": occupy,
    "unreadable": _unreadable,
    "garbage": lambda file: file.write_bytes(GARBAGE),
}


def _german(sandbox: Sandbox) -> None:
    sandbox.set_registry("German", "official")


def _damaged(name: str, where: Callable[[Sandbox], Path], outcome: Outcome,
             first: Prepare = lambda sandbox: None,
             linux_only: Mapping[str, str] = MappingProxyType({})) -> Iterator[Fault]:
    """A file with each kind of damage; `linux_only` maps damages to why they skip Windows."""
    reasons = {"unreadable": ROOT_READS_ALL, **linux_only}
    for damage, cause in DAMAGES.items():
        def prepare(sandbox: Sandbox, cause: Damage = cause) -> None:
            first(sandbox)
            cause(where(sandbox))

        yield Fault(f"{name}: {damage}", outcome, prepare, unprivileged=damage == "unreadable",
                    linux_only=reasons.get(damage, ""))


def _handle_file(size: int | str, content: bytes) -> Fault:
    """A handle file that an earlier run left."""
    return Fault(f"window-handle file: left over, {size}", UNCHANGED,
                 lambda sandbox: sandbox.write_handle(content))


def _read_only_handle(sandbox: Sandbox) -> None:
    sandbox.write_handle(0)
    sandbox.handle_file.chmod(0o400)


def _no_translations(sandbox: Sandbox) -> None:
    _german(sandbox)
    shutil.rmtree(sandbox.bin / "translations")


FAULTS = [
    *_damaged("external bundle", lambda sandbox: sandbox.bin / "UninstallUI.rcc", UNCHANGED),
    *_damaged("translation", lambda sandbox: sandbox.bin / "translations" / "ktr_German.qm",
              UNTRANSLATED, _german),
    Fault("translations: no folder", UNTRANSLATED, _no_translations),
    *_damaged("window icon", lambda sandbox: sandbox.root / "Dravik" / "res" / "install_box.ico",
              UNCHANGED),
    *_damaged("clean-up script", lambda sandbox: sandbox.bin / "clearKTR.bat", NO_CLEAN_UP,
              linux_only={"garbage": BATCH_FILE}),
    *_damaged("telemetry library", lambda sandbox: sandbox.bin / TELEMETRY, SILENT),
    *_damaged("configuration library", lambda sandbox: sandbox.locate(CONFIG), NO_OFFERS),
    *_damaged("registry", lambda sandbox: sandbox.bin / "registry.reg", UNCHANGED,
              linux_only=dict.fromkeys(DAMAGES, TEXT_FILE)),
    *(_handle_file(f"{size} bytes" if size < 1 << 20 else "1 MiB", GARBAGE[:1] * size)
      for size in (0, 1, 7, 8, 9, 1 << 20)),
    Fault("window-handle file: a folder", NO_HANDLE, lambda sandbox: occupy(sandbox.handle_file)),
    Fault("window-handle file: not writable", NO_HANDLE, _read_only_handle, unprivileged=True,
          linux_only=ROOT_READS_ALL),
]
