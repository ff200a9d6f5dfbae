"""One top-level window, as the window manager and a user see it."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Callable, Collection

from PIL import Image
from Xlib import X, Xatom, Xutil, error

from ktr import layout, wait
from ktr.geometry import Place, Point, Rect, point_of

if TYPE_CHECKING:
    from ktr.display import Display
    from ktr.input import Input
    from ktr.screen import Screen

_GONE = (error.BadWindow, error.BadDrawable, error.BadMatch)


class Window:
    """A client window, known by its X identifier; equal when the identifiers are."""

    def __init__(self, display: "Display", identifier: int) -> None:
        self._display = display
        self.identifier = identifier
        self._window = display.connection.create_resource_object("window", identifier)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Window) and other.identifier == self.identifier

    def __hash__(self) -> int:
        return hash(self.identifier)

    def __repr__(self) -> str:
        return f"<window {self.identifier:#x} {self.title!r} of {self.pid} at {self.geometry}>"

    @property
    def screen(self) -> "Screen":
        """The screen that it is on."""
        return self._display.screen

    @property
    def keyboard(self) -> "Input":
        """The keyboard of the display that it is on."""
        return self._display.input

    # What it is --------------------------------------------------------------------------------

    @property
    def exists(self) -> bool:
        """Whether the X server still has it, shown or not."""
        return self._ask(self._window.get_geometry) is not None

    @property
    def managed(self) -> bool:
        """Whether the window manager has it among its windows (an iconified one counts)."""
        return self in self._display.windows.all()

    @property
    def visible(self) -> bool:
        """Whether it is mapped together with all its ancestors."""
        attributes = self._ask(self._window.get_attributes)
        return attributes is not None and attributes.map_state == X.IsViewable

    @property
    def iconified(self) -> bool:
        """Whether it is minimised."""
        state = self._property("WM_STATE", "WM_STATE")
        return bool(state) and state[0] == Xutil.IconicState

    @property
    def active(self) -> bool:
        """Whether it has the input focus, according to the window manager."""
        return self._display.windows.active() == self

    @property
    def topmost(self) -> bool:
        """Whether no other managed window is above it."""
        return self._display.windows.stacking()[-1:] == [self]

    @property
    def pid(self) -> int | None:
        """The process that says it owns the window."""
        value = self._property("_NET_WM_PID", Xatom.CARDINAL)
        return int(value[0]) if value else None

    @property
    def title(self) -> str:
        """The title, which is empty for a window without one."""
        value = self._property("_NET_WM_NAME", "UTF8_STRING")
        if value is None:
            value = self._property("WM_NAME", Xatom.STRING) or b""
        return bytes(value).decode("utf-8", "replace")

    @property
    def states(self) -> set[str]:
        """Names such as "_NET_WM_STATE_ABOVE", "_NET_WM_STATE_MODAL"."""
        atoms = self._property("_NET_WM_STATE", Xatom.ATOM) or []
        return {self._display.connection.get_atom_name(atom) for atom in atoms}

    @property
    def transient_for(self) -> int | None:
        """The identifier of the window that it belongs to."""
        value = self._property("WM_TRANSIENT_FOR", Xatom.WINDOW)
        return int(value[0]) if value else None

    @property
    def framed(self) -> bool:
        """Whether the window manager draws a frame round it."""
        extents = self._property("_NET_FRAME_EXTENTS", Xatom.CARDINAL)
        return bool(extents) and any(extents)

    @property
    def geometry(self) -> Rect | None:
        """Where it is, without a frame, in root coordinates; None when it does not exist."""
        shape = self._ask(self._window.get_geometry)
        origin = self._ask(lambda: self._window.translate_coords(self._display.root, 0, 0))
        if shape is None or origin is None:
            return None
        # The answer tells where the root's origin lies as seen from the window.
        return Rect(-origin.x, -origin.y, shape.width, shape.height)

    # What a user does with it ------------------------------------------------------------------

    def place(self, place: Place) -> Point:
        """A place of the layout in root coordinates; a rectangle gives its centre."""
        geometry = self._geometry()
        margin = layout.shadow_margin(geometry.width)
        return point_of(place).moved(geometry.x + margin, geometry.y + margin)

    def area(self, rect: Rect) -> Rect:
        """A rectangle of the layout in root coordinates."""
        geometry = self._geometry()
        margin = layout.shadow_margin(geometry.width)
        return rect.moved(geometry.x + margin, geometry.y + margin)

    def click(self, place: Place, deadline: float = wait.DEADLINE) -> None:
        """Clicks there with the left button, once no other window lies above that point.

        The window manager has dealt with the press on return: it may have changed the stacking.
        """
        wait.until(
            lambda: self._above(self.place(place)), f"{place} of {self!r} to be uncovered",
            deadline, accept=lambda seen: not seen,
        )
        self._about_to_act()
        point = self.place(place)
        self._display.input.click(point.x, point.y)
        self._display.windows.settle()

    def hover(self, place: Place) -> None:
        """Moves the pointer there."""
        point = self.place(place)
        self._display.input.move(point.x, point.y)

    def drag(self, grip: Place, dx: int, dy: int, steps: int = 8, follows: bool = True) -> None:
        """Drags a place of the window by a distance with the left button.

        With `follows`, each step waits until the window has moved along, as a hand would.
        """
        before = self._geometry()
        start = self.place(grip)

        def moved_along(point: Point) -> None:
            target = before.moved(point.x - start.x, point.y - start.y)
            looks = 0

            def where() -> Rect | None:
                # A move that a busy program has served late may be off by a step; the next one puts
                # it right. A hand that sees the window beside the pointer moves on a little.
                nonlocal looks
                looks += 1
                seen = self.geometry
                if seen != target and looks % 20 == 0:
                    # There and back, each with time to be noticed.
                    self._display.input.move(point.x + looks // 20 % 2, point.y)
                return seen

            wait.until(
                where, f"the dragged window at {target}", accept=lambda seen: seen == target)

        self._display.input.drag(
            start, start.moved(dx, dy), steps, moved_along if follows else None
        )

    def wait_colour(
        self, place: Place, wanted: str | Collection[str], deadline: float = wait.DEADLINE
    ) -> None:
        """Waits until a point, or most of an area, of the layout has one of these colours."""
        def where() -> Place:
            return self.place(place) if isinstance(place, Point) else self.area(place)

        self._display.screen.wait_colour(where, wanted, deadline=deadline)

    def bar_fraction(self, bar: Rect = layout.PROGRESS_BAR) -> float | None:
        """How far, 0 to 1, the progress bar is filled on the screen; None when there is none."""
        return self._display.screen.bar_fraction(
            self.area(bar), layout.BAR_FILL, layout.BAR_TRACK
        )

    def screenshot(self) -> Image.Image:
        """What is to be seen where the window is."""
        return self._display.screen.screenshot(self._geometry())

    def opacity(self, point: Point) -> int:
        """How opaque it is at a point of its own: from 0, nothing, to 255."""
        image = self._window.get_image(point.x, point.y, 1, 1, X.ZPixmap, 0xFFFFFFFF)
        if image.depth != 32:
            raise ValueError(f"{self!r} cannot be transparent")
        return int(image.data[3])

    @property
    def icons(self) -> dict[tuple[int, int], tuple[int, int, int]]:
        """The icons that it publishes: by size, the colour of the centre."""
        data = list(self._property("_NET_WM_ICON", Xatom.CARDINAL) or [])
        icons = {}
        while data:
            width, height = data[:2]
            middle = data[2 + (height // 2) * width + width // 2]
            icons[width, height] = ((middle >> 16) & 255, (middle >> 8) & 255, middle & 255)
            del data[: 2 + width * height]
        return icons

    # What a window manager or a task bar does with it ------------------------------------------

    def minimise(self) -> None:
        """Asks the window manager to minimise it and waits until it has."""
        self._display.windows.send(self, "WM_CHANGE_STATE", [Xutil.IconicState])
        wait.until(lambda: self.iconified, f"{self!r} to be minimised")

    def maximise(self) -> None:
        """Asks the window manager to maximise it; does not wait, since it may have to refuse."""
        atom = self._display.connection.intern_atom
        both = [atom(f"_NET_WM_STATE_MAXIMIZED_{axis}") for axis in ("VERT", "HORZ")]
        self._display.windows.send(self, "_NET_WM_STATE", [1, *both])

    def activate(self) -> None:
        """Activates it as a task bar does and waits until it is active."""
        self._display.windows.send(self, "_NET_ACTIVE_WINDOW", [2, X.CurrentTime])
        wait.until(lambda: self.active, f"{self!r} to be active")

    def close(self) -> None:
        """Closes it as a window manager's close button does; does not wait."""
        self._about_to_act()
        self._display.windows.send(self, "_NET_CLOSE_WINDOW", [X.CurrentTime, 2])

    def wait_gone(self, deadline: float = wait.DEADLINE) -> None:
        """Waits until it is no longer shown or managed (the X window may live on, hidden)."""
        wait.until(lambda: not self.managed and not self.visible, f"{self!r} to go away", deadline)

    def _about_to_act(self) -> None:
        if self._display.before_act is not None:
            self._display.before_act(self)

    def _above(self, point: Point) -> list["Window"]:
        """The visible managed windows that lie above this one and have the point."""
        stacking = self._display.windows.stacking()
        above = stacking[stacking.index(self) + 1 :] if self in stacking else []
        shown = [(window, window.geometry) for window in above if window.visible]
        return [window for window, area in shown if area is not None and area.contains(point)]

    def _geometry(self) -> Rect:
        geometry = self.geometry
        if geometry is None:
            raise wait.Unexpected(f"window {self.identifier:#x} does not exist any more")
        return geometry

    def _property(self, name: str, kind: int | str) -> Any:
        atom = self._display.connection.intern_atom
        kind_atom = atom(kind) if isinstance(kind, str) else kind
        answer = self._ask(lambda: self._window.get_full_property(atom(name), kind_atom))
        return None if answer is None else answer.value

    @staticmethod
    def _ask(request: Callable[[], Any]) -> Any:
        """The answer to a request; None when the window has gone meanwhile."""
        try:
            return request()
        except _GONE:
            return None
