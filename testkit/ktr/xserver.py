"""Runs a command on a virtual X display of its own, with a window manager, and ends both after it.

A Wine desktop stays on the display on which it was first shown, so the command gets a Wine prefix
of its own as well.
"""

import argparse
import ctypes
import os
import select
import shutil
import signal
import subprocess
import sys
import tempfile
from pathlib import Path
from typing import IO, Any, cast

SIZE = (1440, 1000)
"""Holds the window at scale 2.25, the largest of the scenarios, and with its shadow at scale 2."""

NO_BUS = "unix:path=/dev/null"
"""The address of a session bus that refuses every connection. The desktop's own must not be used;
without an address, libdbus starts dbus-launch, which leaves a dbus-daemon behind."""

_LIBC = ctypes.CDLL(None)


def die_with_parent() -> None:
    """For `preexec_fn`: the child is killed when its parent dies, however that happens."""
    _LIBC.prctl(1, signal.SIGKILL, 0, 0, 0)  # PR_SET_PDEATHSIG


class Server:
    """Xvfb and openbox, started for this process only.

    `name` is the display; `folder` is private and removed with it. Raises `RuntimeError` with the
    log of a server that does not start.
    """

    def __init__(self, size: tuple[int, int] = SIZE) -> None:
        self.folder = Path(tempfile.mkdtemp(prefix="ktr-display-"))
        self._processes: list[subprocess.Popen[str]] = []
        try:
            # Xvfb chooses a free number and writes it once it is ready for clients.
            number = self._start("Xvfb", "-displayfd", "1", "-screen", "0",
                                 f"{size[0]}x{size[1]}x24", "-dpi", "96", "-nolisten", "tcp",
                                 "-noreset")
            self.name = f":{number}"
            # Its start-up command runs when it manages the display.
            self._start("openbox", "--sm-disable", "--config-file",
                        str(Path(__file__).with_name("openbox.xml")), "--startup", "echo ready",
                        env={"DISPLAY": self.name, "HOME": str(self.folder), "LC_ALL": "C.UTF-8",
                             "PATH": "/usr/local/bin:/usr/bin:/bin"})
        except BaseException:
            self.close()
            raise

    def close(self) -> None:
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.communicate(timeout=10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.communicate()
        self._processes.clear()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _start(self, name: str, *options: str, **more: Any) -> str:
        """Starts a server; returns the line that it writes when it is ready."""
        log = self.folder / f"{name}.log"
        with open(log, "wb") as errors:
            server = subprocess.Popen(
                [name, *options], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=errors,
                text=True, preexec_fn=die_with_parent, **more)
        self._processes.append(server)
        output = cast(IO[str], server.stdout)
        line = output.readline() if select.select([output], [], [], 60)[0] else ""
        if not line:
            raise RuntimeError(f"{name} did not start (status {server.poll()}): "
                               f"{log.read_text(errors='replace').strip()}")
        return line.strip()


def arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("--size", type=_size, default=SIZE, metavar="WIDTHxHEIGHT")
    parser.add_argument("command", nargs="+", help="the command and its arguments, after --")


def run(options: argparse.Namespace) -> int:
    """Runs the command; returns its status, 128 and more for a signal as shells do."""
    for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
        signal.signal(number, lambda number, frame: sys.exit(128 + number))
    server = Server(options.size)
    prefix = server.folder / "wine-prefix"
    os.environ.update(DISPLAY=server.name, DBUS_SESSION_BUS_ADDRESS=NO_BUS,
                      KTR_WINEPREFIX=str(prefix))
    for name in ("WAYLAND_DISPLAY", "XAUTHORITY"):
        os.environ.pop(name, None)
    command = None
    try:
        command = subprocess.Popen(options.command)
        status = command.wait()
        return status if status >= 0 else 128 - status
    finally:
        if command is not None and command.poll() is None:
            command.terminate()
            command.wait()
        if prefix.is_dir():
            for option in ("-k", "-w"):
                subprocess.run(["wineserver", option], check=False, capture_output=True,
                               env={**os.environ, "WINEPREFIX": str(prefix)})
        server.close()


def _size(text: str) -> tuple[int, int]:
    width, height = map(int, text.split("x"))
    return width, height
