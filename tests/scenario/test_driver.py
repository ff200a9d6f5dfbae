"""Every check of the test kit can fail. A shell replaces the program here."""

from __future__ import annotations

import os
import re
import signal
import subprocess
import sys
from pathlib import Path
from typing import Callable

import pytest
from Xlib import display as xdisplay
from Xlib.error import ConnectionClosedError, DisplayConnectionError

from ktr import tree, wait
from ktr.display import Display
from ktr.geometry import Point, Rect
from ktr.installation import REPOSITORY, assemble
from ktr.journal import parse
from ktr.sandbox import Sandbox
from ktr.system import PASSED_THROUGH

HERE = Path(__file__).resolve().parent
SHELL = """
import pytest
from pathlib import Path
from ktr.installation import assemble

@pytest.fixture
def lay_out():
    return lambda root: assemble(root, Path("/bin/sh").resolve())
"""


@pytest.fixture
def lay_out() -> Callable[[Path], None]:
    return lambda root: assemble(root, Path("/bin/sh").resolve())


def test_a_timeout_names_the_condition_and_the_last_value() -> None:
    looks = iter([1, 2, 3])
    assert wait.until(lambda: next(looks), "a three", accept=lambda seen: seen == 3) == 3
    with pytest.raises(wait.TimedOut, match="waited 0.1 s for the impossible; last seen: 'no'"):
        wait.until(lambda: "no", "the impossible", 0.1, accept=lambda seen: seen == "yes")


def test_a_wrong_colour_a_covered_place_and_a_missing_bar_are_found(display: Display) -> None:
    with display.windows.bystander(Rect(300, 200, 640, 408)) as window:
        window.wait_colour(Point(10, 10), "#FFFFFF")
        with pytest.raises(wait.TimedOut, match="colour #FF0000 at .*last seen: '#FFFFFF'"):
            window.wait_colour(Point(10, 10), "#FF0000", deadline=0.1)
        assert window.bar_fraction() is None
        with display.windows.bystander(Rect(300, 200, 320, 408)):
            with pytest.raises(wait.TimedOut, match="to be uncovered; last seen: .*bystander"):
                window.click(Point(100, 200), deadline=0.1)


def test_a_program_that_ends_before_it_shows_a_window_is_found(sandbox: Sandbox) -> None:
    with pytest.raises(wait.Doomed, match="status 7"):
        sandbox.start(["-c", "exit 7"]).window()


def test_killing_the_display_command_ends_its_servers() -> None:
    holder = subprocess.Popen(
        [REPOSITORY / "tools" / "ktr", "display", "--", "sh", "-c", "echo $DISPLAY; read end"],
        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    with holder:
        assert holder.stdout
        name = holder.stdout.readline().strip()

        def answers() -> bool:
            try:
                xdisplay.Display(name).close()
            except (DisplayConnectionError, ConnectionClosedError):
                return False
            return True

        assert answers()
        holder.kill()
        wait.until(lambda: not answers(), "the X server to end")


def test_the_environment_has_nothing_from_outside(
    sandbox: Sandbox, monkeypatch: pytest.MonkeyPatch
) -> None:
    for name in ("QT_QUICK_CONTROLS_STYLE", "QT_SCALE_FACTOR"):
        monkeypatch.setenv(name, "2")
    for name in PASSED_THROUGH:
        monkeypatch.delenv(name, raising=False)
    monkeypatch.setenv("ASAN_OPTIONS", "exitcode=23")
    program = sandbox.start(["-c", "env"], {"EXTRA": "1", "LC_ALL": None})
    assert program.wait_exit() == 0
    assert {line.partition("=")[0] for line in program.stdout.splitlines()} - {"PWD"} == {
        "ASAN_OPTIONS", "DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "EXTRA", "HOME", "LD_LIBRARY_PATH",
        "PATH", "QT_QPA_PLATFORM", "TMPDIR", "XDG_RUNTIME_DIR",
    }


def test_cleaning_up_ends_only_the_sandbox_s_own_processes(
    display: Display, lay_out: Callable[[Path], None]
) -> None:
    one, other = Sandbox(display, lay_out), Sandbox(display, lay_out)
    try:
        spared, ended = other.spawn("KTRUI.exe"), one.spawn("KTRUI.exe")
        command = one.start(["-c", "exec sleep 600"])
        wait.until(lambda: [p for p in one.system.offspring(one.root) if p.name == "sleep"],
                   "the command to be among the system's processes")
        one.cleanup()
        assert ended.wait_exit() == command.wait_exit() == -signal.SIGKILL
        assert not one.root.exists()
        assert [process.pid for process in other.processes()] == [spared.pid]
    finally:
        one.cleanup()
        other.cleanup()


def test_the_journal_is_parsed(sandbox: Sandbox) -> None:
    (sandbox.root / "journal.log").write_bytes(
        "uninstall.exe\tstart\tpid=12\targs=[/SP-][a%5Db]\tenv.A=set:ä%25%0A=\n"
        "x.DLL\tinfo\tpairs=[a=b=c][d=]\nhalf".encode()
    )
    start, info = sandbox.journal()
    assert start.items("args") == ["/SP-", "a]b"]
    assert start.text("env.A") == "set:ä%\n="
    assert info.items("pairs") == ["a=b=c", "d="]
    assert sandbox.journal(event="start", pid=12) == [start]
    assert sandbox.journal(event="start", pid=13) == []
    with pytest.raises(wait.TimedOut, match="waited 0.1 s for x.DLL gone in the journal"):
        sandbox.wait_noted("x.DLL", "gone", deadline=0.1)
    with pytest.raises(ValueError, match="not a line"):
        parse(b"no tabs\n")


def test_changes_on_disk_are_found(sandbox: Sandbox) -> None:
    (sandbox.temp / "gone").write_text("1")
    (sandbox.home / "kept").write_text("1")
    (sandbox.home / "mode").write_text("1")
    before = sandbox.snapshot()
    assert not tree.compare(before, sandbox.snapshot())
    (sandbox.temp / "gone").unlink()
    (sandbox.temp / "come").mkdir()
    (sandbox.home / "kept").write_text("2")
    (sandbox.home / "mode").chmod(0o755)
    difference = tree.compare(before, sandbox.snapshot())
    assert difference == tree.Difference(["tmp/come"], ["tmp/gone"], ["home/kept", "home/mode"])


COMPLAINS = "def test_it(sandbox):\n    sandbox.start(['-c', 'echo oh dear >&2']).wait_exit()\n"
FAILS = COMPLAINS + "    assert False, 'on purpose'\n"
WINE_AT_EXIT = "wine client error:14c: sendmsg: Socket operation on non-socket"
LEAVES = ("def test_it(sandbox):\n"
          "    sandbox.start(['-c', 'Dravik/bin/KTRUI.exe &']).wait_exit()\n"
          "    (process,) = sandbox.wait_processes('KTRUI.exe', 1)\n"
          "    Path('pid').write_text(str(process.pid))\n")


@pytest.mark.parametrize("body, said", [
    (FAILS, "on purpose"),
    (COMPLAINS, "on standard error of .*: oh dear"),
    ("@pytest.mark.stderr_allowed('oh')\n" + COMPLAINS, "on standard error of .*: oh dear"),
    ("@pytest.mark.stderr_allowed('oh .*')\n" + COMPLAINS, None),
    (COMPLAINS.replace("oh dear", "load vantoronlineconfig.dll error!"), None),
    (COMPLAINS.replace("oh dear", WINE_AT_EXIT), None),
    (LEAVES, "still running: .*/Dravik/bin/KTRUI.exe"),
], ids=["fails", "complains", "another line allowed", "allowed", "program log", "Wine at exit",
        "leaves a process"])
def test_a_failed_scenario_keeps_evidence(tmp_path: Path, body: str, said: str | None) -> None:
    (tmp_path / "test_inner.py").write_text(SHELL + body, encoding="utf-8")
    kept = tmp_path / "kept" / "test_inner.py_test_it"
    environment = {name: value for name, value in os.environ.items() if "PYTEST" not in name}
    environment["PYTHONPATH"] = os.pathsep.join((str(HERE), str(REPOSITORY / "testkit")))
    done = subprocess.run(
        [sys.executable, "-m", "pytest", "-c", str(HERE.parent / "pytest.ini"), "-p", "conftest",
         f"--rootdir={tmp_path}", f"--keep-failures-in={kept.parent}", "test_inner.py"],
        env=environment, cwd=tmp_path, capture_output=True, text=True, check=False,
    )
    assert bool(done.returncode) == bool(said), done.stdout + done.stderr
    assert kept.exists() == bool(said)
    if said is None:
        return
    assert any(re.search(said, line) for line in done.stdout.splitlines())
    assert str(kept) in done.stdout
    assert (kept / "sandbox" / "Dravik" / "bin" / "KTRUI.exe").exists()
    assert (kept / "screen.png").stat().st_size > 1000
    assert "UninstallUI" in (kept / "state.txt").read_text()
    if body == LEAVES:
        pid = (tmp_path / "pid").read_text()
        with pytest.raises(OSError):  # It has gone, or is about to be reaped.
            os.readlink(f"/proc/{pid}/exe")
    else:
        log = (kept / "sandbox" / "logs" / "1-UninstallUI.err").read_text()
        assert log == "oh dear\n"
