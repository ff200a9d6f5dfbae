"""Reference images: their names, and when a screenshot matches one."""

import re
from functools import cached_property, reduce
from pathlib import Path

from PIL import Image, ImageChops

from ktr.installation import REPOSITORY

HERE = REPOSITORY / "tests" / "qml" / "images"
FONTS = HERE / "fonts.conf"
SCALES = ("1", "2")

# Every pixel must match within this per channel, of 255. On the same kind of machine the images
# are identical, even under load, for another user, or without its vector instructions. The
# tolerance covers rounding by other processors and libraries when they blend. A tolerance by share
# of pixels would accept a missing letter. A new version of Qt or of the font may change all images.
TOLERANCE = 2


def folder(scale: str) -> Path:
    """The folder with the reference images of a scale."""
    return HERE / "reference" / scale


def by_reference(taken: Path) -> dict[str, Path]:
    """The screenshots of `ktr gallery` in a folder, by the names of their reference images.

    Without the number in front, which changes with their order.
    """
    named: dict[str, Path] = {}
    for screenshot in sorted(taken.glob("*.png")):
        title = screenshot.stem.split("-", 1)[1].lower()
        name = re.sub(r"[^a-z0-9]+", "-", title) + ".png"
        if name in named:
            raise ValueError(f"{screenshot} and {named[name]} would have the same reference image")
        named[name] = screenshot
    return named


def _drawn(file: Path) -> Image.Image:
    """An image without the colours of transparent pixels."""
    with Image.open(file) as image:
        return image.convert("RGBA").convert("RGBa")


class Comparison:
    """A screenshot compared with its reference image."""

    def __init__(self, actual: Path, reference: Path) -> None:
        self._actual, self._reference = _drawn(actual), _drawn(reference)

    @cached_property
    def _off(self) -> Image.Image:
        """By how much each pixel is off in its worst channel; 0 within the tolerance."""
        bands = ImageChops.difference(self._actual, self._reference).split()
        worst = reduce(ImageChops.lighter, bands)
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
