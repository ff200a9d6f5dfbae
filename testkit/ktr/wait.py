"""Waits for a condition, with a deadline and a failure that says what was awaited."""

import os
import time
from typing import Callable, TypeVar

DEADLINE = 60.0 * float(os.environ.get("KTR_PATIENCE", "1"))
"""Seconds that anything may take by default: generous, since test machines are slow and noisy.

`KTR_PATIENCE` multiplies it for a program that runs slowly on purpose."""

Value = TypeVar("Value")


class TimedOut(AssertionError):
    """An awaited condition did not come true in time."""


class Doomed(AssertionError):
    """An awaited condition cannot come true any more; raised by predicates to give up early."""


class Unexpected(AssertionError):
    """The program did something else than it must."""


def expect(what: str, seen: object, wanted: object) -> None:
    """Raises `Unexpected`, with both values, unless they are equal."""
    if seen != wanted:
        raise Unexpected(f"{what}: {_short(seen)} instead of {_short(wanted)}")


def until(look: Callable[[], Value], what: str, deadline: float = DEADLINE,
          accept: Callable[[Value], object] = bool) -> Value:
    """Calls `look` until `accept` accepts what it returns, and returns that.

    `what` completes the sentence "waited for ...". After `deadline` seconds `TimedOut` is raised,
    naming what was awaited and what was seen last. At least one look is taken.
    """
    end = time.monotonic() + deadline
    while True:
        seen = look()
        if accept(seen):
            return seen
        if time.monotonic() >= end:
            raise TimedOut(f"waited {deadline:g} s for {what}; last seen: {_short(seen)}")
        time.sleep(0.02)


def _short(value: object) -> str:
    """The representation of a value, cut in its middle when it is long."""
    text = repr(value)
    return text if len(text) <= 2000 else f"{text[:1000]} ... {text[-1000:]}"
