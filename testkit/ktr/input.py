"""Real pointer and keyboard events, as if they came from the devices."""

from typing import Any, Callable, Iterable

from Xlib import XK, X
from Xlib.ext import xtest

from ktr.geometry import Point
LEFT, MIDDLE, RIGHT = 1, 2, 3

_KEYS_OF_CHARACTERS = {"\n": "Return", "\t": "Tab", "\b": "BackSpace", "\x1b": "Escape"}


class Input:
    """The pointer and the keyboard of one display; positions are root coordinates."""

    def __init__(self, connection: Any, wait_for_window_manager: Callable[[], None]) -> None:
        self._connection = connection
        self._wait_for_window_manager = wait_for_window_manager
        self._down: set[tuple[int, int]] = set()
        """The events that release what is pressed."""

    def move(self, x: int, y: int) -> None:
        """Moves the pointer there at once."""
        self._fake(X.MotionNotify, 0, x, y)

    def press(self, button: int = LEFT) -> None:
        self._fake(X.ButtonPress, button)

    def release(self, button: int = LEFT) -> None:
        self._fake(X.ButtonRelease, button)

    def click(self, x: int, y: int, button: int = LEFT) -> None:
        """Moves there, presses and releases."""
        self.move(x, y)
        self.press(button)
        self.release(button)

    def double_click(self, x: int, y: int) -> None:
        self.click(x, y)
        self.click(x, y)

    def drag(self, start: Point, end: Point, steps: int = 8,
             after_step: Callable[[Point], object] = lambda point: None) -> None:
        """Presses the left button at `start` and releases it at `end`, moving in `steps` steps.

        `after_step` is called with the pointer's position after each of them: a hand is slow, and
        what is dragged needs the time to follow. The window manager has dealt with the press before
        the first step, and with the release on return: while it decides about a press, it may take
        what follows for itself.
        """
        self.move(start.x, start.y)
        self.press()
        try:
            self._wait_for_window_manager()
            for step in range(1, steps + 1):
                point = start.moved((end.x - start.x) * step // steps,
                                    (end.y - start.y) * step // steps)
                self.move(point.x, point.y)
                after_step(point)
        finally:
            self.release()
        self._wait_for_window_manager()

    def key(self, *names: str) -> None:
        """Presses keys by their keysym names in turn, releases them in reverse.

        `key("Escape")` is one key, `key("Alt_L", "F4")` a combination. An unknown name raises
        `ValueError`.
        """
        self._press([code for name in names
                     for code in self._codes(XK.string_to_keysym(name), name)])

    def type(self, text: str) -> None:
        """Types ASCII text; line ends and tabs are typed as their keys."""
        for character in text:
            name = _KEYS_OF_CHARACTERS.get(character)
            keysym = XK.string_to_keysym(name) if name else ord(character)
            self._press(self._codes(keysym, character))

    def release_all(self) -> None:
        for kind, detail in tuple(self._down):
            self._fake(kind, detail)

    def _press(self, codes: list[int]) -> None:
        """Presses keys in turn and releases them in reverse."""
        for code in codes:
            self._fake(X.KeyPress, code)
        for code in reversed(codes):
            self._fake(X.KeyRelease, code)

    def _codes(self, keysym: int, name: str) -> list[int]:
        """The key codes for a keysym: Shift if necessary, and the key."""
        known: Iterable[tuple[int, int]] = (
            self._connection.keysym_to_keycodes(keysym) if keysym else ())
        for code, index in sorted(known, key=lambda entry: entry[1]):
            if index in (0, 1):
                return [self._connection.keysym_to_keycode(XK.XK_Shift_L)] * index + [code]
        raise ValueError(f"the keyboard has no key for {name!r}")

    def _fake(self, kind: int, detail: int, x: int = 0, y: int = 0) -> None:
        # The number of a release follows that of its press.
        if kind in (X.KeyPress, X.ButtonPress):
            self._down.add((kind + 1, detail))
        self._down.discard((kind, detail))
        xtest.fake_input(self._connection, kind, detail, x=x, y=y)
        self._connection.sync()
