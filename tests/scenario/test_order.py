"""The order of the program's system calls from start to exit."""

from __future__ import annotations

import re
from pathlib import Path

import pytest

from ktr import layout, wait
from ktr.steps import expect_end, uninstall, wait_complete

TRACED = "openat,flock,chdir,kill,pidfd_send_signal,clone,clone3,fork,vfork,unlink,exit_group"

# The system call that shows each step; the first match counts. The telemetry library comes first.
STEPS = {
    "telemetry library": r'openat\(.*"ROOT/Dravik/bin/SkyrelWrap\.DLL"',
    "lock": r"flock\(\d+, LOCK_EX",
    "working directory": r'chdir\("ROOT/Dravik/bin"',
    "script read": r'openat\(.*"ROOT/Dravik/bin/clearKTR\.bat"',
    "script staged": r'openat\(.*"ROOT/tmp["/].*(O_CREAT|O_TMPFILE)',
    "further resources": r'openat\(.*"ROOT/Dravik/bin/UninstallUI\.rcc"',
    "translation": r'openat\(.*"ROOT/Dravik/bin/translations/ktr_German\.qm"',
    "user interface": r'openat\(.*/QtQuick\.2/qmldir"',
    "handle file": r'openat\(.*"ROOT/Dravik/bin/hwndFile\.ini".*O_WRONLY',
    "companion ended": r"(kill|pidfd_send_signal)\(\d+, SIGKILL",
    "clean-up": r"(clone3?|v?fork)\((?!.*CLONE_THREAD)",
    "lock released": r"flock\(\d+, LOCK_UN",
    "handle file deleted": r'unlink\("ROOT/Dravik/bin/hwndFile\.ini"',
    "end": r"exit_group\(0",
}
# Qt reads in a thread of its own.
NOT_BY_THE_MAIN_THREAD = {"user interface"}
# Other programs are started earlier: the clean-up is the one after this step.
ONLY_AFTER = {"clean-up": "companion ended"}
ONLY_AFTER_UNINSTALLING = {"companion ended", "clean-up"}


def steps_seen(trace: Path, sandbox, pid: int) -> list[str]:
    """The steps, in the order of their first system call."""
    seen: list[str] = []
    text = trace.read_text(errors="replace").replace(str(sandbox.root), "ROOT")
    for line in text.splitlines():
        for step, pattern in STEPS.items():
            own = line.startswith(f"{pid} ") or step in NOT_BY_THE_MAIN_THREAD
            due = step not in seen and ONLY_AFTER.get(step, "lock") in [*seen, "lock"]
            if own and due and re.search(pattern, line):
                seen.append(step)
    return seen


def assert_steps(trace: Path, sandbox, program, expected: list[str]) -> None:
    """Asserts these steps in this order; strace writes the last ones after the program's end."""
    seen: list[str] = wait.until(
        lambda: steps_seen(trace, sandbox, program.pid), "the end in the trace",
        accept=lambda found: "end" in found)
    assert seen == expected


def start_traced(sandbox) -> tuple:
    """Starts the program under strace; with -D the program stays our child."""
    trace = sandbox.root / "logs" / "trace"
    return sandbox.start(under=[
        "/usr/bin/strace", "-D", "-f", "-qq", "-s", "400", "-e", f"trace={TRACED}",
        "-e", "signal=none", "-o", str(trace),
    ]), trace


@pytest.mark.stderr_unchecked  # strace prints there.
@pytest.mark.parametrize("cleanup", [True, False], ids=["after uninstalling", "after cancel"])
def test_the_steps_from_start_to_exit_keep_their_order(sandbox, cleanup):
    sandbox.set_registry("German")
    sandbox.configure("uninstall.exe", run_ms=300)
    program, trace = start_traced(sandbox)
    window = program.ready()
    if cleanup:
        uninstall(window)
        wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup)
    expected = [step for step in STEPS if cleanup or step not in ONLY_AFTER_UNINSTALLING]
    assert_steps(trace, sandbox, program, expected)


@pytest.mark.stderr_unchecked
def test_a_second_start_only_looks_for_the_window(sandbox):
    with sandbox.holding_instance_lock():
        sandbox.write_handle(0)
        program, trace = start_traced(sandbox)
        assert program.wait_exit() == 0
    assert_steps(trace, sandbox, program, ["telemetry library", "lock", "end"])
    assert "hwndFile.ini" in trace.read_text(), "it has read the window's handle"
    assert sandbox.handle_file.exists(), "it must not delete the first start's file"
