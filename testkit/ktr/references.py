"""The reference images: which there are, what they are called, when a picture matches one."""

from __future__ import annotations

import re
from functools import cached_property
from pathlib import Path

from PIL import Image, ImageChops

from ktr.installation import REPOSITORY

HERE = REPOSITORY / "tests" / "qml" / "images"
FONTS = HERE / "fonts.conf"
SCALES = ("1", "2")

# How far any channel of any pixel may be off; no pixel may be off by more, be it only one. On machines
# of one kind nothing is: not under load, not for another user, not without the wider instructions of
# the processor. Room for how other processors and libraries round when they blend.
TOLERANCE = 2


def folder(scale: str) -> Path:
    """Where the references of a scale are."""
    return HERE / "reference" / scale


def by_reference(taken: Path) -> dict[str, Path]:
    """The pictures that `ktr gallery` took into a folder, by the names of their references.

    Without the number in front, which changes with the order of the pictures.
    """
    named: dict[str, Path] = {}
    for picture in sorted(taken.glob("*.png")):
        title = picture.stem.split("-", 1)[1].lower()
        name = re.sub(r"[^a-z0-9]+", "-", title) + ".png"
        if name in named:
            raise ValueError(f"{picture} and {named[name]} would have the same reference")
        named[name] = picture
    return named


def _drawn(picture: Path) -> Image.Image:
    """A picture as it is drawn: the colour of a transparent pixel does not count."""
    with Image.open(picture) as image:
        return image.convert("RGBA").convert("RGBa")


class Comparison:
    """Of a picture with its reference."""

    def __init__(self, actual: Path, reference: Path) -> None:
        self._actual, self._reference = _drawn(actual), _drawn(reference)

    @cached_property
    def _off(self) -> Image.Image:
        """By how much each pixel is off, in its worst channel, where that is too much; otherwise 0."""
        bands = ImageChops.difference(self._actual, self._reference).split()
        worst = bands[0]
        for band in bands[1:]:
            worst = ImageChops.lighter(worst, band)
        return worst.point([0] * (TOLERANCE + 1) + list(range(TOLERANCE + 1, 256)))

    @property
    def complaint(self) -> str:
        """What is wrong, in words; empty when nothing is."""
        if self._actual.size != self._reference.size:
            return f"{self._actual.size} pixels instead of {self._reference.size}"
        if self._off.getbbox() is None:
            return ""
        counts = self._off.histogram()
        return (f"{sum(counts[1:])} pixels differ, by up to {self._off.getextrema()[1]} of 255, "
                f"within {self._off.getbbox()}")

    def save_difference(self, path: Path) -> None:
        """Writes the reference, faint, with every pixel that is off in red."""
        # Beside each other when the sizes differ: pixels have no counterparts.
        if self._actual.size != self._reference.size:
            both = Image.new("RGBa", (self._actual.width + self._reference.width,
                                      max(self._actual.height, self._reference.height)))
            both.paste(self._actual, (0, 0))
            both.paste(self._reference, (self._actual.width, 0))
            both.convert("RGBA").save(path)
            return
        faint = Image.blend(self._reference.convert("RGBA").convert("L").convert("RGB"),
                            Image.new("RGB", self._reference.size, "white"), 0.7)
        faint.paste((220, 0, 0), mask=self._off.point(lambda value: 255 if value else 0))
        faint.save(path)
