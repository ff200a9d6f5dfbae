"""A private X display with a window manager of its own."""

from __future__ import annotations

from typing import Any, Callable

from Xlib import X
from Xlib import display as xdisplay

from ktr.clipboard import Clipboard
from ktr.input import Input
from ktr.screen import Screen
from ktr.window import Window, Windows
from ktr.xserver import SIZE, Server


class Display(Server):
    """A server for this process only; use it as a context manager.

    `input`, `windows`, `screen` and `clipboard` act on this display.
    """

    def __init__(self) -> None:
        super().__init__()
        self.before_act: Callable[[Window], object] = lambda window: None
        """Called with a window that is about to be clicked or closed."""
        self.connection: Any = xdisplay.Display(self.name)
        # Requests without a reply may fail: their window has gone, which is fine.
        self.connection.set_error_handler(lambda error, request: X.NONE)
        self.root = self.connection.screen().root
        self.windows = Windows(self)
        self.input = Input(self.connection, self.windows.wait_for_window_manager)
        self.screen = Screen(self.root)
        self.clipboard = Clipboard(self.name)

    def __enter__(self) -> Display:
        return self

    def __exit__(self, *_: object) -> None:
        self.connection.close()
        self.close()

    def reset(self) -> None:
        """Releases all buttons and keys and parks the pointer in the bottom right corner."""
        self.input.release_all()
        self.input.move(SIZE[0] - 1, SIZE[1] - 1)
