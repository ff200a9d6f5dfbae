"""When files are opened, seen from outside and at no cost for who opens them."""

from __future__ import annotations

import ctypes
import os
import struct
import threading
import time
from pathlib import Path
from typing import Collection, Iterable

_LIBC = ctypes.CDLL(None, use_errno=True)
_OPENED, _MADE = 0x20, 0x100
_HEAD = struct.Struct("iIII")


class FileWatch:
    """Notes which files of some folders are opened or made, and when.

    Whoever opens a file counts; under Wine that is its server on behalf of a program.
    """

    def __init__(self, folders: Iterable[Path]) -> None:
        self._descriptor = _LIBC.inotify_init1(os.O_CLOEXEC)
        self._folders: dict[int, Path] = {}
        for folder in folders:
            watch = _LIBC.inotify_add_watch(
                self._descriptor, os.fsencode(folder), _OPENED | _MADE)
            if watch < 0:
                raise OSError(ctypes.get_errno(), f"{folder} cannot be watched")
            self._folders[watch] = folder
        self._seen: list[tuple[float, Path]] = []
        # Each is read at once, since the kernel does not say when it was.
        threading.Thread(target=self._read, daemon=True).start()

    def forget(self) -> None:
        """Begins anew."""
        self._seen.clear()

    def first(self, places: Collection[Path], after: float) -> float | None:
        """The `time.monotonic()` of the first look at one of these files, or into these folders.

        Earlier ones do not count; None when there is no other.
        """
        for when, file in list(self._seen):
            if when >= after and (file in places or file.parent in places):
                return when
        return None

    def _read(self) -> None:
        while True:
            data = os.read(self._descriptor, 65536)
            now = time.monotonic()
            while data:
                watch, _, _, length = _HEAD.unpack_from(data)
                name = data[_HEAD.size:_HEAD.size + length].rstrip(b"\0")
                data = data[_HEAD.size + length:]
                if name:
                    self._seen.append((now, self._folders[watch] / os.fsdecode(name)))
