"""Fixtures of the scenarios: a display for each worker, a sandbox and a program for each test."""

from __future__ import annotations

import re
from pathlib import Path
from typing import Callable, Iterator

import pytest

from ktr import evidence, steps
from ktr.differences import FILES_FOR_LINUX, FILES_FOR_WINDOWS, reason_to_leave_out
from ktr.display import Display
from ktr.installation import REPOSITORY, assemble
from ktr.output import unexpected_lines
from ktr.program import RunningProgram
from ktr.record import Recorder
from ktr.sandbox import Sandbox
from ktr.target import is_windows

_SANDBOX = pytest.StashKey[Sandbox]()
_FAILED = pytest.StashKey[bool]()
_KEPT = pytest.StashKey[Path]()


def pytest_addoption(parser: pytest.Parser) -> None:
    parser.addoption(
        "--keep-failures-in", type=Path, default=REPOSITORY / "build" / "scenario-failures",
        help="where the remains of failed scenarios are kept",
    )
    parser.addoption(
        "--record-in", type=Path, default=None,
        help="where it is written down what each scenario made the program do",
    )


# Files of one of the two executables only are none of the other's tests.
collect_ignore = FILES_FOR_LINUX if is_windows() else FILES_FOR_WINDOWS


def pytest_collection_modifyitems(items: list[pytest.Item]) -> None:
    """Skips, with its reason, what the Windows executable is not asked for."""
    for item in items:
        reason = reason_to_leave_out(item.nodeid) if is_windows() else None
        if reason:
            item.add_marker(pytest.mark.skip(reason=reason))


@pytest.fixture(scope="session")
def display() -> Iterator[Display]:
    """A display with a window manager, shared by the tests of one worker."""
    with Display() as private:
        yield private


@pytest.fixture(scope="session")
def reasons(display: Display) -> None:
    """For tests that choose a certain reason: how each of them looks."""
    steps.learn_reasons(display)


@pytest.fixture
def lay_out() -> Callable[[Path], None]:
    """How a sandbox is filled; a test module overrides it to put something else there."""
    return assemble


@pytest.fixture
def sandbox(
    request: pytest.FixtureRequest, display: Display, lay_out: Callable[[Path], None]
) -> Iterator[Sandbox]:
    """A pretend installation for this test only, checked when the test is over.

    Whoever still runs in it then, other than what the test started itself, is a fault, and so is
    any unexpected line that a program printed on standard error.
    """
    display.reset()
    installation = Sandbox(display, lay_out)
    request.node.stash[_SANDBOX] = installation
    records = request.config.getoption("record_in")
    recorder = Recorder(installation) if records else None
    try:
        yield installation
        if request.node.stash.get(_FAILED, False):
            return
        installation.end_started()
        faults = [f"still running: {left}" for left in installation.leftovers()]
        if recorder:
            recorder.save(records, _file_name(request.node))
        faults += _unexpected_output(request.node, installation)
        if faults:
            kept = _keep(request.node)
            pytest.fail("\n".join([*faults, f"kept in {kept}"]), pytrace=False)
    finally:
        display.reset()
        installation.cleanup()


@pytest.fixture
def program(sandbox: Sandbox) -> RunningProgram:
    """The program, started, its window shown, active and painted."""
    started = sandbox.start()
    started.ready()
    return started


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item: pytest.Item, call: pytest.CallInfo[None]):
    """Keeps what is left of a failed scenario while it is still to be seen, and says where."""
    outcome = yield
    report = outcome.get_result()
    if not report.failed or call.when == "teardown":
        return
    item.stash[_FAILED] = True
    if _SANDBOX in item.stash:
        try:
            report.sections.append(("kept", f"remains of the scenario: {_keep(item)}"))
        except Exception as error:  # The failure itself matters more than its remains.
            report.sections.append(("kept", f"the remains could not be kept: {error!r}"))


def _file_name(item: pytest.Item) -> str:
    """A test's name as that of a file."""
    full_name = f"{item.path.name}::{item.nodeid.partition('::')[2]}"
    return re.sub(r"[^A-Za-z0-9_.-]+", "_", full_name).strip("_")[:120]


def _keep(item: pytest.Item) -> Path:
    """Keeps the remains of an item's sandbox, in a folder named after it, replacing older ones."""
    if _KEPT not in item.stash:
        folder = item.config.getoption("keep_failures_in") / _file_name(item)
        item.stash[_KEPT] = evidence.keep(item.stash[_SANDBOX], folder)
    return item.stash[_KEPT]


def _unexpected_output(item: pytest.Item, installation: Sandbox) -> list[str]:
    """The lines on standard error that nothing allows."""
    if item.get_closest_marker("stderr_unchecked") is not None:
        return []
    further = [
        pattern for marker in item.iter_markers("stderr_allowed") for pattern in marker.args
    ]
    return [
        f"on standard error of {program!r}: {line}"
        for program in installation.programs
        for line in unexpected_lines(program.stderr, further)
    ]
