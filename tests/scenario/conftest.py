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
from ktr.wine import is_windows

_SANDBOX = pytest.StashKey[Sandbox]()
_FAILED = pytest.StashKey[bool]()
_KEPT = pytest.StashKey[Path]()


def pytest_addoption(parser: pytest.Parser) -> None:
    parser.addoption(
        "--keep-failures-in", type=Path, default=REPOSITORY / "build" / "scenario-failures",
        help="folder for the sandbox, screenshot and state of failed scenarios",
    )
    parser.addoption(
        "--record-in", type=Path, default=None,
        help="folder for the records of what each scenario made the program do",
    )


# Some files test only one of the two executables.
collect_ignore = FILES_FOR_LINUX if is_windows() else FILES_FOR_WINDOWS


def pytest_collection_modifyitems(items: list[pytest.Item]) -> None:
    """Skips, with the reason, the tests that do not run on the Windows executable."""
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
    """For tests that choose a certain reason: learns how each of them looks."""
    steps.learn_reasons(display)


@pytest.fixture
def lay_out() -> Callable[[Path], None]:
    """The function that fills a sandbox; a test module may override it."""
    return assemble


@pytest.fixture
def sandbox(
    request: pytest.FixtureRequest, display: Display, lay_out: Callable[[Path], None]
) -> Iterator[Sandbox]:
    """A sandbox for this test only, checked after the test.

    The test fails if a process that it did not start itself still runs in the sandbox, or if a
    program printed an unexpected line on standard error.
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
        problems = [f"still running: {left}" for left in installation.leftovers()]
        if recorder:
            recorder.save(records, _file_name(request.node))
        problems += _unexpected_output(request.node, installation)
        if problems:
            kept = _keep(request.node)
            pytest.fail("\n".join([*problems, f"kept in {kept}"]), pytrace=False)
    finally:
        display.reset()
        installation.cleanup()


@pytest.fixture
def program(sandbox: Sandbox) -> RunningProgram:
    """The program, with its window shown, active and painted."""
    started = sandbox.start()
    started.ready()
    return started


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item: pytest.Item, call: pytest.CallInfo[None]):
    """Keeps the evidence of a failed scenario before its end, and reports the folder."""
    outcome = yield
    report = outcome.get_result()
    if not report.failed or call.when == "teardown":
        return
    item.stash[_FAILED] = True
    if _SANDBOX in item.stash:
        try:
            report.sections.append(("kept", f"evidence of the scenario: {_keep(item)}"))
        except Exception as error:  # The failure itself matters more than its evidence.
            report.sections.append(("kept", f"the evidence could not be kept: {error!r}"))


def _file_name(item: pytest.Item) -> str:
    """A test's name as a file name."""
    full_name = f"{item.path.name}::{item.nodeid.partition('::')[2]}"
    return re.sub(r"[^A-Za-z0-9_.-]+", "_", full_name).strip("_")[:120]


def _keep(item: pytest.Item) -> Path:
    """Keeps the evidence of a test in a folder named after it, replacing older evidence."""
    if _KEPT not in item.stash:
        folder = item.config.getoption("keep_failures_in") / _file_name(item)
        item.stash[_KEPT] = evidence.keep(item.stash[_SANDBOX], folder)
    return item.stash[_KEPT]


def _unexpected_output(item: pytest.Item, installation: Sandbox) -> list[str]:
    """The unexpected lines on standard error."""
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
