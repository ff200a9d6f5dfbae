"""What other applications put on the clipboard, and what they find there."""

from __future__ import annotations

import os
import select
import threading
import time
from contextlib import contextmanager
from typing import Any, Iterator

from Xlib import X, Xatom
from Xlib import display as xdisplay
from Xlib.protocol import event

from ktr import wait

_ANSWER = "KTR_ANSWER"
_PATIENCE = 5.0
"""Seconds after which an application asks again."""


class Clipboard:
    """The selections of one display: "CLIPBOARD", and "PRIMARY" of the middle button.

    Each use has a connection of its own, as another application would.
    """

    def __init__(self, display_name: str) -> None:
        self._display_name = display_name

    def read(self, selection: str = "CLIPBOARD", deadline: float = wait.DEADLINE) -> str | None:
        """The text that a selection holds; None when nobody owns it or it is no text."""
        connection = xdisplay.Display(self._display_name)
        try:
            atom = connection.intern_atom
            window = _unseen_window(connection)
            asked = -_PATIENCE

            def answer() -> Any:
                nonlocal asked
                if time.monotonic() - asked > _PATIENCE:
                    # A question may get lost while the selection changes its owner.
                    asked = time.monotonic()
                    window.convert_selection(
                        atom(selection), atom("UTF8_STRING"), atom(_ANSWER), X.CurrentTime
                    )
                    connection.flush()
                if not connection.pending_events():
                    return None
                found = connection.next_event()
                return found if found.type == X.SelectionNotify else None

            if wait.until(answer, f"the text of {selection}", deadline).property == X.NONE:
                return None
            value = window.get_full_property(atom(_ANSWER), X.AnyPropertyType)
            if value.property_type != atom("UTF8_STRING"):
                raise ValueError(f"{selection} is handed over in pieces: not supported here")
            return bytes(value.value).decode("utf-8")
        finally:
            connection.close()

    @contextmanager
    def holding(self, text: str, selection: str = "CLIPBOARD") -> Iterator[None]:
        """Owns a selection with a text, for a `with` statement, as a running application does.

        What is pasted must have arrived before the end: its owner is gone then.
        """
        owner = _Owner(self._display_name, selection, text)
        try:
            yield
        finally:
            owner.stop()


class _Owner:
    """Answers those who ask for a selection, on a thread of its own."""

    def __init__(self, display_name: str, selection: str, text: str) -> None:
        self._connection = xdisplay.Display(display_name)
        atom = self._connection.intern_atom
        self._text = text.encode("utf-8")
        self._targets, self._utf8 = atom("TARGETS"), atom("UTF8_STRING")
        self._wake, self._waker = os.pipe()
        window = _unseen_window(self._connection)
        window.set_selection_owner(atom(selection), X.CurrentTime)
        assert self._connection.get_selection_owner(atom(selection)) == window
        # From here on the connection belongs to the thread.
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._thread.start()

    def stop(self) -> None:
        """Gives the selection up."""
        os.write(self._waker, b"x")
        self._thread.join()
        self._connection.close()
        os.close(self._wake)
        os.close(self._waker)

    def _serve(self) -> None:
        while True:
            while self._connection.pending_events():
                request = self._connection.next_event()
                if request.type == X.SelectionRequest:
                    self._answer(request)
            if self._wake in select.select([self._connection, self._wake], [], [])[0]:
                return

    def _answer(self, request: Any) -> None:
        where = request.property or request.target
        if request.target == self._utf8:
            request.requestor.change_property(where, self._utf8, 8, self._text)
        elif request.target == self._targets:
            offered = [self._targets, self._utf8]
            request.requestor.change_property(where, Xatom.ATOM, 32, offered)
        else:
            where = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=where,
        ))
        self._connection.flush()


def _unseen_window(connection: Any) -> Any:
    return connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
