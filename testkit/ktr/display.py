"""A private X display with a window manager of its own."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Callable

from Xlib import X
from Xlib import display as xdisplay

from ktr.clipboard import Clipboard
from ktr.input import Input
from ktr.screen import Screen
from ktr.windows import Windows
from ktr.xserver import SIZE, Server

if TYPE_CHECKING:
    from ktr.window import Window


class Display:
    """A server for this process only; use it as a context manager.

    `input`, `windows`, `screen` and `clipboard` act on this display.
    """

    def __init__(self) -> None:
        self._server = Server()
        self.name = self._server.name
        self.before_act: Callable[["Window"], None] | None = None
        """Called with a window that is about to be clicked or closed."""
        self.connection: Any = xdisplay.Display(self.name)
        self.connection.set_error_handler(_ignore)
        self.root = self.connection.screen().root
        self.windows = Windows(self)
        self.input = Input(self)
        self.screen = Screen(self)
        self.clipboard = Clipboard(self.name)

    def __enter__(self) -> "Display":
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Stops the server."""
        self.connection.close()
        self._server.close()

    def reset(self) -> None:
        """Releases all buttons and keys and parks the pointer in the bottom right corner."""
        self.input.release_all()
        self.input.move(SIZE[0] - 1, SIZE[1] - 1)


def _ignore(error: Any, request: Any) -> int:
    """Ignores errors of requests without a reply: their window has gone, which is fine."""
    return int(X.NONE)
