"""Points and rectangles, in pixels."""

from __future__ import annotations

from dataclasses import dataclass, replace


@dataclass(frozen=True)
class Point:
    x: int
    y: int

    def moved(self, dx: int, dy: int) -> Point:
        """The point that lies `dx`, `dy` further."""
        return Point(self.x + dx, self.y + dy)


@dataclass(frozen=True)
class Rect:
    """An area; its right and bottom edges are the first column and row outside."""

    left: int
    top: int
    width: int
    height: int

    @property
    def right(self) -> int:
        return self.left + self.width

    @property
    def bottom(self) -> int:
        return self.top + self.height

    @property
    def origin(self) -> Point:
        return Point(self.left, self.top)

    @property
    def size(self) -> tuple[int, int]:
        return self.width, self.height

    @property
    def centre(self) -> Point:
        return self.origin.moved(self.width // 2, self.height // 2)

    def moved(self, dx: int, dy: int) -> Rect:
        """The area of the same size that lies `dx`, `dy` further."""
        return replace(self, left=self.left + dx, top=self.top + dy)

    def contains(self, point: Point) -> bool:
        return self.left <= point.x < self.right and self.top <= point.y < self.bottom


Place = Point | Rect
"""Something that can be pointed at: a rectangle stands for its centre."""


def point_of(place: Place) -> Point:
    """The point itself, or the centre of the rectangle."""
    return place.centre if isinstance(place, Rect) else place
