"""A row of the table of faults."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any, Callable, Protocol

from ktr.sandbox import Sandbox

Prepare = Callable[[Sandbox], object]


class Outcome(Protocol):
    """What the program is expected to do, in words and as a run of it."""

    @property
    def description(self) -> str:
        """In words."""

    def run(self, sandbox: Sandbox, fault: "Fault") -> None:
        """Starts the program, uses it, and fails when it did not do that."""


@dataclass(frozen=True)
class Fault:
    """Something that is wrong when the program starts, or becomes wrong while it runs."""

    what: str
    outcome: Outcome
    prepare: Prepare = lambda sandbox: None
    also: Prepare = lambda sandbox: None
    """What else has to be true at the end."""
    environment: Callable[[Sandbox], dict[str, str | None]] = lambda sandbox: {}
    under: tuple[str, ...] = ()
    """A command that becomes the program."""
    unprivileged: bool = False
    """Whether permissions count for the program even if an administrator runs the tests."""
    linux_only: str = ""
    """Why it is not asked of the Windows executable."""
    uninstrumented: bool = False
    """Whether it needs a program that was built without sanitizers."""
    stderr: tuple[str, ...] = ()
    """What the program may print besides what it always may."""

    def __str__(self) -> str:
        return self.what

    def start(self, sandbox: Sandbox, **more: Any):
        """Starts the program with this fault around it."""
        under = [*(sandbox.system.without_privileges if self.unprivileged else ()), *self.under]
        return sandbox.start(environment=self.environment(sandbox), under=under, **more)
