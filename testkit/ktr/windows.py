"""The top-level windows of a display, as the window manager lists them."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Collection

from Xlib import X, Xatom, error
from Xlib.protocol import event

from ktr import wait
from ktr.geometry import Rect
from ktr.window import Window

if TYPE_CHECKING:
    from ktr.display import Display


class Windows:
    """Finds windows and talks to the window manager."""

    def __init__(self, display: "Display") -> None:
        self._display = display

    def all(self) -> list[Window]:
        """All managed windows, the oldest first."""
        return self._list("_NET_CLIENT_LIST")

    def stacking(self) -> list[Window]:
        """All managed windows, the topmost last."""
        return self._list("_NET_CLIENT_LIST_STACKING")

    def active(self) -> Window | None:
        """The window that has the input focus."""
        value = self._property(self._display.root, "_NET_ACTIVE_WINDOW", Xatom.WINDOW)
        return Window(self._display, value[0]) if value and value[0] else None

    def of(self, pids: int | Collection[int]) -> list[Window]:
        """The managed windows of a process, or of several, the oldest first."""
        wanted = {pids} if isinstance(pids, int) else set(pids)
        return [window for window in self.all() if window.pid in wanted]

    def wait_count(
        self, pids: int | Collection[int], count: int, deadline: float = wait.DEADLINE
    ) -> list[Window]:
        """Waits until the processes have so many managed windows; returns them."""
        return wait.until(
            lambda: self.of(pids), f"{count} windows of {pids}", deadline,
            accept=lambda seen: len(seen) == count,
        )

    def bystander(
        self, area: Rect = Rect(0, 0, 1280, 900), title: str = "bystander"
    ) -> "Bystander":
        """Opens an ordinary window of the driver's own, active and on top of the others."""
        return Bystander(self._display, area, title)

    def send(self, window: Window, message: str, values: list[int]) -> None:
        """Sends the window manager a message about a window."""
        connection = self._display.connection
        self._display.root.send_event(
            event.ClientMessage(
                window=window.identifier,
                client_type=connection.intern_atom(message),
                data=(32, (values + [0] * 5)[:5]),
            ),
            event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask,
        )
        connection.sync()

    def settle(self) -> None:
        """Waits until the window manager has dealt with all that happened before this call.

        It serves its events in turn, so the answer to a question comes after their effects.
        """
        root = self._display.root
        asking = root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        try:
            self.send(Window(self._display, asking.id), "_NET_REQUEST_FRAME_EXTENTS", [])
            wait.until(
                lambda: self._property(asking, "_NET_FRAME_EXTENTS", Xatom.CARDINAL) is not None,
                "an answer of the window manager",
            )
        finally:
            asking.destroy()
            self._display.connection.sync()

    def _list(self, name: str) -> list[Window]:
        value = self._property(self._display.root, name, Xatom.WINDOW)
        return [Window(self._display, identifier) for identifier in value or []]

    def _property(self, window: Any, name: str, kind: int) -> Any:
        try:
            answer = window.get_full_property(self._display.connection.intern_atom(name), kind)
        except error.BadWindow:
            return None
        return None if answer is None else answer.value


class Bystander(Window):
    """A window of the driver's own, to cover others or to take the focus from them.

    Use it as a context manager, or call `destroy`.
    """

    def __init__(self, display: "Display", area: Rect, title: str) -> None:
        connection = display.connection
        screen = connection.screen()
        window = display.root.create_window(
            area.x, area.y, area.width, area.height, 0, screen.root_depth,
            background_pixel=screen.white_pixel,
        )
        window.set_wm_name(title)
        window.set_wm_normal_hints(flags=_US_POSITION, min_width=0)
        window.map()
        connection.sync()
        super().__init__(display, window.id)
        wait.until(lambda: self.managed and self.visible, f"window {title!r} to appear")
        self.activate()
        wait.until(lambda: self.topmost, f"window {title!r} to be on top")

    def __enter__(self) -> "Bystander":
        return self

    def __exit__(self, *_: object) -> None:
        self.destroy()

    def destroy(self) -> None:
        """Removes the window; to do so twice is harmless."""
        self._window.destroy()
        self._display.connection.sync()
        self.wait_gone()


_US_POSITION = 1
