"""The top-level windows of a display, as the window manager and a user see them."""

from __future__ import annotations

from contextlib import contextmanager
from typing import TYPE_CHECKING, Any, Callable, Collection, Iterator

from PIL import Image
from Xlib import X, Xatom, Xutil, error
from Xlib.protocol import event

from ktr import layout, wait
from ktr.geometry import Place, Point, Rect, point_of

if TYPE_CHECKING:
    from ktr.display import Display


class Window:
    """A client window, known by its X identifier; equal when the identifiers are."""

    def __init__(self, display: Display, identifier: int) -> None:
        self._display = display
        self.screen = display.screen
        self.keyboard = display.input
        self.identifier = identifier
        self._window = display.connection.create_resource_object("window", identifier)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Window) and other.identifier == self.identifier

    def __hash__(self) -> int:
        return hash(self.identifier)

    def __repr__(self) -> str:
        return f"<window {self.identifier:#x} {self.title!r} of {self.pid} at {self.geometry}>"

    # What it is --------------------------------------------------------------------------------

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
        state = self.value("WM_STATE", "WM_STATE")
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
        value = self.value("_NET_WM_PID", Xatom.CARDINAL)
        return int(value[0]) if value else None

    @property
    def title(self) -> str:
        """The title, which is empty for a window without one."""
        value = (self.value("_NET_WM_NAME", "UTF8_STRING")
                 or self.value("WM_NAME", Xatom.STRING) or b"")
        return bytes(value).decode("utf-8", "replace")

    @property
    def states(self) -> set[str]:
        """Names such as "_NET_WM_STATE_ABOVE", "_NET_WM_STATE_MODAL"."""
        atoms = self.value("_NET_WM_STATE", Xatom.ATOM) or []
        return {self._display.connection.get_atom_name(atom) for atom in atoms}

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
        return point_of(place).moved(*self._offset())

    def area(self, rect: Rect) -> Rect:
        """A rectangle of the layout in root coordinates."""
        return rect.moved(*self._offset())

    def click(self, place: Place, deadline: float = wait.DEADLINE) -> None:
        """Clicks there with the left button, once no other window lies above that point.

        The window manager has dealt with the press on return: it may have changed the stacking.
        """
        wait.until(lambda: self._above(self.place(place)), f"{place} of {self!r} to be uncovered",
                   deadline, accept=lambda seen: not seen)
        self._display.before_act(self)
        point = self.place(place)
        self._display.input.click(point.x, point.y)
        self._display.windows.wait_for_window_manager()

    def hover(self, place: Place) -> None:
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
                # A busy program may handle a move late and leave the window a step behind; the next
                # move corrects that. So move the pointer a little, as a user would.
                nonlocal looks
                looks += 1
                seen = self.geometry
                if seen != target and looks % 20 == 0:
                    # There and back, each with time to be noticed.
                    self._display.input.move(point.x + looks // 20 % 2, point.y)
                return seen

            wait.until(where, f"the dragged window at {target}", accept=lambda seen: seen == target)

        self.keyboard.drag(start, start.moved(dx, dy), steps,
                           moved_along if follows else lambda point: None)

    def wait_colour(self, place: Place, wanted: str | Collection[str],
                    deadline: float = wait.DEADLINE) -> None:
        """Waits until a point, or most of an area, of the layout has one of these colours."""
        self.screen.wait_colour(lambda: place.moved(*self._offset()), wanted, deadline)

    def bar_fraction(self, bar: Rect = layout.PROGRESS_BAR) -> float | None:
        """How far, 0 to 1, the progress bar is filled on the screen; None when there is none."""
        return self.screen.bar_fraction(self.area(bar), layout.BAR_FILL, layout.BAR_TRACK)

    def screenshot(self) -> Image.Image:
        return self.screen.screenshot(self._geometry())

    def opacity(self, point: Point) -> int:
        """How opaque it is at a point of its own: from 0, nothing, to 255."""
        image = self._window.get_image(point.x, point.y, 1, 1, X.ZPixmap, 0xFFFFFFFF)
        if image.depth != 32:
            raise ValueError(f"{self!r} cannot be transparent")
        return int(image.data[3])

    @property
    def icons(self) -> dict[tuple[int, int], tuple[int, int, int]]:
        """The icons that it publishes: by size, the colour of the centre."""
        data = list(self.value("_NET_WM_ICON", Xatom.CARDINAL) or [])
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

    def close(self) -> None:
        """Closes it as a window manager's close button does; does not wait."""
        self._display.before_act(self)
        self._display.windows.send(self, "_NET_CLOSE_WINDOW", [X.CurrentTime, 2])

    def wait_gone(self, deadline: float = wait.DEADLINE) -> None:
        """Waits until it is no longer shown or managed (the X window may live on, hidden)."""
        wait.until(lambda: not self.managed and not self.visible, f"{self!r} to go away", deadline)

    def _above(self, point: Point) -> list[Window]:
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

    def _offset(self) -> tuple[int, int]:
        """How far the layout's places are from the root's origin."""
        geometry = self._geometry()
        margin = layout.shadow_margin(geometry.width)
        return geometry.left + margin, geometry.top + margin

    def value(self, name: str, kind: int | str) -> Any:
        """A property of the window; None without it."""
        atom = self._display.connection.intern_atom
        kind_atom = atom(kind) if isinstance(kind, str) else kind
        answer = self._ask(lambda: self._window.get_full_property(atom(name), kind_atom))
        return None if answer is None else answer.value

    @staticmethod
    def _ask(request: Callable[[], Any]) -> Any:
        """The answer to a request; None when the window has gone meanwhile."""
        try:
            return request()
        except (error.BadWindow, error.BadDrawable, error.BadMatch):
            return None


class Windows:
    """Finds windows and talks to the window manager."""

    def __init__(self, display: Display) -> None:
        self._display = display

    def all(self) -> list[Window]:
        """All managed windows, the oldest first."""
        return self._list("_NET_CLIENT_LIST")

    def stacking(self) -> list[Window]:
        """All managed windows, the topmost last."""
        return self._list("_NET_CLIENT_LIST_STACKING")

    def active(self) -> Window | None:
        found = self._list("_NET_ACTIVE_WINDOW")
        return found[0] if found and found[0].identifier else None

    @contextmanager
    def bystander(self, area: Rect = Rect(0, 0, 1280, 900)) -> Iterator[Window]:
        """An ordinary window of the test's own, on top of the others and active."""
        screen = self._display.connection.screen()
        window = self._display.root.create_window(
            area.left, area.top, *area.size, 0, screen.root_depth,
            background_pixel=screen.white_pixel)
        try:
            window.set_wm_name("bystander")
            window.set_wm_normal_hints(flags=Xutil.USPosition, min_width=0)
            window.map()
            shown = Window(self._display, window.id)
            wait.until(lambda: shown.managed and shown.visible, "the bystander to appear")
            self.send(shown, "_NET_ACTIVE_WINDOW", [2, X.CurrentTime])
            wait.until(lambda: shown.active and shown.topmost, "the bystander to be on top")
            yield shown
        finally:
            window.destroy()
            self._display.connection.sync()
        shown.wait_gone()

    def send(self, window: Window, message: str, values: list[int]) -> None:
        """Sends the window manager a message about a window."""
        kind = self._display.connection.intern_atom(message)
        self._display.root.send_event(
            event.ClientMessage(window=window.identifier, client_type=kind,
                                data=(32, (values + [0] * 5)[:5])),
            event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.connection.sync()

    def wait_for_window_manager(self) -> None:
        """Waits until the window manager has dealt with all that happened before this call.

        It serves its events in turn, so the answer to a question comes after their effects.
        """
        unused = self._display.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        asking = Window(self._display, unused.id)
        try:
            self.send(asking, "_NET_REQUEST_FRAME_EXTENTS", [])
            wait.until(lambda: asking.value("_NET_FRAME_EXTENTS", Xatom.CARDINAL) is not None,
                       "an answer of the window manager")
        finally:
            unused.destroy()
            self._display.connection.sync()

    def _list(self, name: str) -> list[Window]:
        found = Window(self._display, self._display.root.id).value(name, Xatom.WINDOW)
        return [Window(self._display, identifier) for identifier in found or []]
