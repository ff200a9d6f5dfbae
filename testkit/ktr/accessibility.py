"""Reads and operates the program over AT-SPI, as a screen reader does."""

from __future__ import annotations

import os
import signal
import subprocess
import tempfile
from contextlib import contextmanager, suppress
from pathlib import Path
from typing import Any, Iterator

import gi
from Xlib import Xatom

from ktr import wait
from ktr.display import Display
from ktr.program import Started
from ktr.xserver import die_with_parent

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

Control = tuple[str, str, str, str, str]
"""Role, name, content of a text or else description, states, actions."""

_CONFIGURATION = "/usr/share/defaults/at-spi2/accessibility.conf"
_ALWAYS = {"enabled", "sensitive", "showing", "visible"}
"""States that every shown control has: Qt 5.15 reports no control of Qt Quick as disabled."""


@contextmanager
def bus(display: Display) -> Iterator[dict[str, str | None]]:
    """A private accessibility bus for as long as the display lasts, once in this process.

    Yields the variables that put a program on it. The bus starts its registry on demand.
    """
    with tempfile.TemporaryDirectory(prefix="ktr-bus-") as folder:
        address = f"unix:path={folder}/bus"
        with open(Path(folder) / "log", "wb") as log:
            daemon = subprocess.Popen(
                ["dbus-daemon", "--nofork", f"--config-file={_CONFIGURATION}",
                 f"--address={address}", "--print-address"],
                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=log,
                process_group=0, preexec_fn=die_with_parent,
                # The registry inherits it and types on the display.
                env={"PATH": "/usr/bin:/bin", "HOME": folder, "DISPLAY": display.name})
        try:
            if not (daemon.stdout and daemon.stdout.readline()):
                raise RuntimeError("dbus-daemon did not start")
            # Qt takes the address from here, but only with a session bus. One bus can be both.
            name = display.connection.intern_atom("AT_SPI_BUS")
            display.root.change_property(name, Xatom.STRING, 8, address.encode())
            display.connection.sync()
            os.environ["AT_SPI_BUS_ADDRESS"] = address
            Atspi.init()
            del os.environ["AT_SPI_BUS_ADDRESS"]
            Atspi.set_timeout(int(wait.DEADLINE * 1000), 0)
            Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
            yield {"DBUS_SESSION_BUS_ADDRESS": address}
        finally:
            os.killpg(daemon.pid, signal.SIGTERM)  # With the registry.
            daemon.communicate()


class Reader:
    """An assistive tool that reads and operates one program on the bus."""

    def __init__(self, program: Started) -> None:
        def look() -> Any:
            with suppress(GLib.Error):  # An earlier program is ending.
                for found in _children(Atspi.get_desktop(0)):
                    if found.get_process_id() == program.pid:
                        return found

        self._application = wait.until(look, f"{program!r} on the accessibility bus")

    def controls(self) -> list[Control]:
        """All that is shown, in reading order."""
        return [control for control, _ in self._read()]

    def act(self, role: str, name: str, action: str = "Press") -> None:
        """Carries out an action of the control with this role and name, once it is shown."""
        found = wait.until(
            lambda: [found for control, found in self._read() if control[:2] == (role, name)],
            f"{role} {name!r} to be shown")[0]
        try:
            found.do_action(_actions(found).index(action))
        except GLib.Error as error:
            # An action that ends the program may end it before the reply is sent.
            if "disconnected" not in error.message:
                raise

    @staticmethod
    def type(text: str) -> None:
        """Types lower-case letters as an on-screen keyboard does: Qt Quick has no action for it."""
        Atspi.generate_keyboard_event(0, text, Atspi.KeySynthType.STRING)

    def _read(self) -> list[tuple[Control, Any]]:
        with suppress(GLib.Error):  # Something is being destroyed.
            return [(_describe(found), found) for window in _children(self._application)
                    for found in _subtree(window) if "showing" in _states(found)]
        return []


def _children(parent: Any) -> list[Any]:
    children = [parent.get_child_at_index(i) for i in range(parent.get_child_count())]
    return [child for child in children if child is not None]


def _subtree(root: Any) -> Iterator[Any]:
    yield root
    for child in _children(root):
        yield from _subtree(child)


def _states(control: Any) -> set[str]:
    return {state.value_nick for state in control.get_state_set().get_states()}


def _actions(control: Any) -> list[str]:
    if "Action" not in control.get_interfaces():
        return []
    return [control.get_action_name(i) for i in range(control.get_n_actions())]


def _describe(control: Any) -> Control:
    detail = (Atspi.Text.get_text(control, 0, -1) if "Text" in control.get_interfaces()
              else control.get_description())
    actions = dict.fromkeys(_actions(control))  # Qt lists those with a handler twice.
    return (control.get_role_name(), control.get_name(), detail,
            " ".join(sorted(_states(control) - _ALWAYS)), " ".join(actions))
