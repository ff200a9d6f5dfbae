"""Waits for painting on a display, by damage events instead of polling."""

import select
import time
from typing import Any, Callable, TypeVar

from Xlib import X
from Xlib import display as xdisplay
from Xlib.ext import damage

Value = TypeVar("Value")


class PaintWatch:
    """Follows every painting on a display.

    The X server reports each area after it was painted, so a colour that is found was on the
    screen, and no polling is needed.
    """

    def __init__(self, name: str) -> None:
        self._connection = xdisplay.Display(name)
        self._root = self._connection.screen().root
        if not self._connection.has_extension("DAMAGE"):
            raise RuntimeError(f"the display {name} does not report what is painted")
        self._connection.damage_query_version()
        self._root.damage_create(damage.DamageReportRawRectangles)
        self._connection.sync()

    def wait_quiet(self, seconds: float) -> None:
        """Waits until nothing has been painted for so long."""
        while self._next(seconds) is not None:
            pass

    def wait_colour(
        self, colour: tuple[int, int, int], look: Callable[[], Value], deadline: float
    ) -> tuple[float, Value]:
        """Waits until something with this colour is painted.

        Returns the `time.monotonic()` of that and what `look` returned right then. `TimeoutError`
        when it does not come within `deadline` seconds.
        """
        pixel = bytes(reversed(colour))
        end = time.monotonic() + deadline
        while True:
            area = self._next(end - time.monotonic())
            if area is None:
                raise TimeoutError
            now, seen = time.monotonic(), look()
            image = bytes(self._root.get_image(
                area.x, area.y, area.width, area.height, X.ZPixmap, 0xFFFFFFFF).data)
            found = image.find(pixel)
            while found % 4 and found >= 0:  # A pixel has four bytes.
                found = image.find(pixel, found + 1)
            if found >= 0:
                return now, seen

    def _next(self, seconds: float) -> Any:
        """The next painted area; None when there is none within so many seconds."""
        end = time.monotonic() + seconds
        while True:
            while self._connection.pending_events():
                event = self._connection.next_event()
                if event.type == self._connection.extension_event.DamageNotify:
                    return event.area
            left = max(0.0, end - time.monotonic())
            if not select.select([self._connection.fileno()], [], [], left)[0]:
                return None
