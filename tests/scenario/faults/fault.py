"""A row of the table of injected faults."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any, Callable, Protocol

from ktr.sandbox import Sandbox

Prepare = Callable[[Sandbox], object]


class Outcome(Protocol):
    """The expected behaviour, in words and as a run with checks."""

    @property
    def description(self) -> str:
        """In words."""

    def run(self, sandbox: Sandbox, fault: "Fault") -> None:
        """Starts and uses the program; fails if it behaves differently."""


@dataclass(frozen=True)
class Fault:
    """Something that is wrong when the program starts, or goes wrong while it runs."""

    what: str
    outcome: Outcome
    prepare: Prepare = lambda sandbox: None
    also: Prepare = lambda sandbox: None
    """Further checks or a cleanup at the end."""
    environment: Callable[[Sandbox], dict[str, str | None]] = lambda sandbox: {}
    under: tuple[str, ...] = ()
    """A command that executes the program in its own place (`exec`)."""
    unprivileged: bool = False
    """Whether permissions count for the program even if an administrator runs the tests."""
    linux_only: str = ""
    """Why it does not run on the Windows executable; empty if it does."""
    uninstrumented: bool = False
    """Whether it needs a program that was built without sanitizers."""
    stderr: tuple[str, ...] = ()
    """Regular expressions of further lines that the program may print on standard error."""

    def __str__(self) -> str:
        return self.what

    def start(self, sandbox: Sandbox, **more: Any):
        """Starts the program with this fault."""
        under = [*(sandbox.system.without_privileges if self.unprivileged else ()), *self.under]
        return sandbox.start(environment=self.environment(sandbox), under=under, **more)
