"""Screenshots and colours of a display, and waiting for them."""

import time
from collections import Counter
from pathlib import Path
from typing import Any, Callable, Collection

from PIL import Image, ImageColor
from Xlib import X

from ktr import wait
from ktr.geometry import Place, Point, Rect

Colour = tuple[int, int, int]

TOLERANCE = 6
"""How far each channel of a colour may be off, of 255."""


def colour(text: str) -> Colour:
    """The colour that a text like "#1F6FFF" means."""
    red, green, blue = ImageColor.getrgb(text)[:3]
    return red, green, blue


def is_close(one: Colour, other: Colour, tolerance: int = TOLERANCE) -> bool:
    return all(abs(a - b) <= tolerance for a, b in zip(one, other))


class Screen:
    """What one display shows; positions are root coordinates."""

    def __init__(self, root: Any) -> None:
        self._root = root
        size = root.get_geometry()
        self.area = Rect(0, 0, size.width, size.height)

    def screenshot(self, area: Rect | None = None) -> Image.Image:
        """A screenshot of an area, or of the whole screen."""
        part = area or self.area
        if not (self.area.contains(part.origin) and part.right <= self.area.right
                and part.bottom <= self.area.bottom):
            raise ValueError(f"{part} is not inside {self.area}")
        image = self._root.get_image(part.left, part.top, *part.size, X.ZPixmap, 0xFFFFFFFF)
        return Image.frombytes("RGB", part.size, image.data, "raw", "BGRX")

    def save(self, path: Path, area: Rect | None = None) -> Path:
        """Writes a screenshot of an area, or of the whole screen, as a PNG file."""
        path.parent.mkdir(parents=True, exist_ok=True)
        self.screenshot(area).save(path)
        return path

    def colour_at(self, place: Place) -> Colour:
        """The colour of a point, or the one that most pixels of an area have."""
        area = Rect(place.x, place.y, 1, 1) if isinstance(place, Point) else place
        pixels: Counter[Colour] = Counter(self.screenshot(area).getdata())
        return pixels.most_common(1)[0][0]

    def share(self, area: Rect, wanted: str, tolerance: int = TOLERANCE) -> float:
        """The share, 0 to 1, of an area's pixels that have a colour."""
        target = colour(wanted)
        pixels = list(self.screenshot(area).getdata())
        return sum(is_close(pixel, target, tolerance) for pixel in pixels) / len(pixels)

    def wait_colour(self, place: Place | Callable[[], Place], wanted: str | Collection[str],
                    deadline: float = wait.DEADLINE) -> None:
        """Waits until a point, or most of an area, has a colour, or one of several.

        The place may be a moving one.
        """
        targets = [colour(text) for text in ([wanted] if isinstance(wanted, str) else wanted)]

        def where() -> Place:
            return place() if callable(place) else place

        wait.until(lambda: "#%02X%02X%02X" % self.colour_at(where()),
                   f"colour {wanted} at {where()}", deadline,
                   accept=lambda seen: any(is_close(colour(seen), one) for one in targets))

    def wait_steady(self, area: Rect, quiet: float = 0.3) -> Image.Image:
        """Waits until an area has not changed for `quiet` seconds; returns a screenshot of it."""
        last = self.screenshot(area)
        since = time.monotonic()

        def look() -> float:
            nonlocal last, since
            now = self.screenshot(area)
            if now.tobytes() != last.tobytes():
                last, since = now, time.monotonic()
            return time.monotonic() - since

        wait.until(look, f"{area} to stay the same for {quiet:g} s",
                   accept=lambda still: still >= quiet)
        return last

    def bar_fraction(self, bar: Rect, fill: str, track: str) -> float | None:
        """How much, 0 to 1, of a horizontal bar is filled from the left; None without a bar.

        The middle row is read. Up to two pixels at each end (the round ends) and two between fill
        and track (its round end) may have a mixed colour; anything else is not a bar.
        """
        row = self.screenshot(Rect(bar.left, bar.centre.y, bar.width, 1))
        filled, empty = colour(fill), colour(track)
        kinds = "".join(
            "f" if is_close(pixel, filled) else "t" if is_close(pixel, empty) else "?"
            for pixel in row.getdata()
        )[2:-2]
        body = kinds.replace("?", "")
        if len(kinds) - len(body) > 2 or "tf" in body:
            return None
        if "t" not in body:
            return 1.0
        return (2 + kinds.rindex("f") + 1) / bar.width if "f" in body else 0.0
