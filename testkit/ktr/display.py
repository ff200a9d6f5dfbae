"""A private X display with a window manager of its own."""

from __future__ import annotations

import ctypes
import os
import select
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path
from typing import TYPE_CHECKING, Any, Callable

from Xlib import X
from Xlib import display as xdisplay

from ktr import wait
from ktr.clipboard import Clipboard
from ktr.input import Input
from ktr.screen import Screen
from ktr.windows import Windows

if TYPE_CHECKING:
    from ktr.window import Window

SIZE = (1440, 1000)
"""Holds the window with its shadow at the largest scale."""

_OPENBOX_CONFIG = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <theme><name>Clearlooks</name><animateIconify>no</animateIconify></theme>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard>
    <keybind key="A-F4"><action name="Close"/></keybind>
  </keyboard>
  <mouse>
    <dragThreshold>1</dragThreshold>
    <context name="Client">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
    </context>
    <context name="Titlebar">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
    </context>
    <context name="Close">
      <mousebind button="Left" action="Click"><action name="Close"/></mousebind>
    </context>
  </mouse>
  <menu></menu>
  <applications>
    <application type="normal"><focus>yes</focus></application>
  </applications>
</openbox_config>
"""

_PR_SET_PDEATHSIG = 1
_LIBC = ctypes.CDLL(None)


def die_with_parent() -> None:
    """For `preexec_fn`: the child is ended when its parent dies, however that happens."""
    _LIBC.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0)


class Display:
    """Xvfb and openbox, started for this process only; use it as a context manager.

    `input`, `windows`, `screen` and `clipboard` act on this display. A display that cannot be
    started raises `RuntimeError` with what the servers said.
    """

    def __init__(self, log_directory: Path | None = None) -> None:
        self._folder = Path(tempfile.mkdtemp(prefix="ktr-display-"))
        self._logs = log_directory or self._folder
        self._logs.mkdir(parents=True, exist_ok=True)
        self._processes: list[subprocess.Popen[bytes]] = []
        self.before_act: Callable[["Window"], None] | None = None
        """Told of a window that is about to be clicked or closed."""
        self.connection: Any = None
        try:
            self.name = self._start_server()
            self.connection = xdisplay.Display(self.name)
            self.connection.set_error_handler(_ignore)
            self.root = self.connection.screen().root
            self.windows = Windows(self)
            self.input = Input(self)
            self.screen = Screen(self)
            self.clipboard = Clipboard(self.name)
            self._start_window_manager()
        except BaseException:
            self.close()
            raise

    def __enter__(self) -> "Display":
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Stops the window manager and the server that were started here."""
        if self.connection is not None:
            self.connection.close()
            self.connection = None
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self._processes.clear()
        shutil.rmtree(self._folder, ignore_errors=True)

    def reset(self) -> None:
        """Releases all buttons and keys and parks the pointer in the bottom right corner."""
        self.input.release_all()
        self.input.move(SIZE[0] - 1, SIZE[1] - 1)

    def _start_server(self) -> str:
        """Starts Xvfb on a display number that it chooses itself; returns the display's name."""
        reading, writing = os.pipe()
        try:
            server = self._start(
                "Xvfb",
                ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{SIZE[0]}x{SIZE[1]}x24",
                 "-dpi", "96", "-nolisten", "tcp", "-noreset"],
                pass_fds=(writing,),
            )
            os.close(writing)
            writing = -1
            number = _read_line(reading)
        finally:
            os.close(reading)
            if writing >= 0:
                os.close(writing)
        if not number.isdigit():
            raise RuntimeError(f"Xvfb did not start (status {server.poll()}): {self._log('Xvfb')}")
        return f":{number}"

    def _start_window_manager(self) -> None:
        """Starts openbox with a configuration of its own and waits until it manages windows."""
        config = self._folder / "rc.xml"
        config.write_text(_OPENBOX_CONFIG, encoding="utf-8")
        manager = self._start(
            "openbox",
            ["openbox", "--sm-disable", "--config-file", str(config), "--startup", "true"],
            env={
                "DISPLAY": self.name,
                "HOME": str(self._folder),
                "PATH": "/usr/local/bin:/usr/bin:/bin",
                "LC_ALL": "C.UTF-8",
            },
        )

        def ready() -> bool:
            if manager.poll() is not None:
                raise RuntimeError(f"openbox ended ({manager.returncode}): {self._log('openbox')}")
            return self.windows.manager_ready()

        wait.until(ready, "the window manager to be ready")
        self._probe_window_manager()

    def _probe_window_manager(self) -> None:
        """Shows a window until it is managed.

        openbox announces itself before it serves windows, and forgets requests from in between.
        """
        window = self.root.create_window(0, 0, 10, 10, 0, X.CopyFromParent)
        identifier = window.id

        def managed() -> bool:
            window.map()
            self.connection.sync()
            return identifier in [found.identifier for found in self.windows.all()]

        wait.until(managed, "the window manager to take a window")
        window.destroy()
        self.connection.sync()
        wait.until(lambda: not self.windows.all(), "the window manager to let it go")

    def _start(self, name: str, command: list[str], **options: Any) -> "subprocess.Popen[bytes]":
        with open(self._logs / f"{name}.log", "wb") as log:
            process = subprocess.Popen(
                command, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                preexec_fn=die_with_parent, **options,
            )
        self._processes.append(process)
        return process

    def _log(self, name: str) -> str:
        return (self._logs / f"{name}.log").read_text(errors="replace").strip()


def _read_line(descriptor: int) -> str:
    """The first line that arrives on a pipe; cut at its end, or at the default deadline."""
    end = time.monotonic() + wait.DEADLINE
    text = b""
    while not text.endswith(b"\n"):
        left = end - time.monotonic()
        if left <= 0 or not select.select([descriptor], [], [], left)[0]:
            break
        chunk = os.read(descriptor, 64)
        if not chunk:
            break
        text += chunk
    return text.decode().strip()


def _ignore(error: Any, request: Any) -> int:
    """Errors of requests without an answer: the window in question has gone, which is fine."""
    return int(X.NONE)
