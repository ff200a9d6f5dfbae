"""The driver itself, proved on a toy program: what it says it does and sees must be so."""

from __future__ import annotations

import os
import shutil
import signal
import subprocess
import sys
from pathlib import Path
from typing import Callable

import pytest

from ktr import layout, tree, wait
from ktr.display import Display
from ktr.geometry import Point, Rect
from ktr.installation import assemble
from ktr.journal import parse
from ktr.sandbox import Sandbox
from ktr.system import PASSED_THROUGH

HERE = Path(__file__).resolve().parent
TOY = str(HERE / "toy_window.py")


@pytest.fixture(scope="session")
def idler(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """An executable that does nothing until it is ended."""
    executable = tmp_path_factory.mktemp("idler") / "idler"
    subprocess.run(
        ["cc", "-x", "c", "-", "-o", str(executable)], check=True,
        input=b"#include <unistd.h>\nint main(void) { for(;;) { pause(); } }\n",
    )
    return executable


@pytest.fixture
def lay_out(idler: Path) -> Callable[[Path], None]:
    """Instead of the product: an interpreter that runs the toy, and one idle stand-in."""

    def fill(root: Path) -> None:
        programs = root / "Dravik" / "bin"
        programs.mkdir(parents=True)
        shutil.copy2(os.path.realpath("/usr/bin/python3"), programs / "UninstallUI")
        shutil.copy2(idler, programs / "KTRUI.exe")

    return fill


def lines_of(program, deadline: float = wait.DEADLINE, **awaited: str) -> list[str]:
    """What the toy has said, once the awaited line is there."""
    line = awaited["until"]
    said: list[str] = wait.until(
        lambda: program.stdout.splitlines(), f"the toy to say {line!r}", deadline,
        accept=lambda seen: line in seen,
    )
    return said


# Waiting ---------------------------------------------------------------------------------------


def test_a_wait_tells_what_was_awaited_and_what_was_seen_last() -> None:
    looks = iter([1, 2, 3])
    assert wait.until(lambda: next(looks), "a three", accept=lambda seen: seen == 3) == 3
    with pytest.raises(wait.TimedOut, match="waited 0.1 s for the impossible; last seen: 'no'"):
        wait.until(lambda: "no", "the impossible", 0.1, accept=lambda seen: seen == "yes")


# Layout ----------------------------------------------------------------------------------------


def test_the_layout_has_the_numbers_of_the_design() -> None:
    assert layout.TITLE_CLOSE == Rect(616, 8, 16, 16)
    assert layout.CANCEL == Rect(508, 356, 100, 28)
    assert layout.UNINSTALL == Rect(388, 356, 100, 28)
    assert layout.PROGRESS_BAR == Rect(32, 338, 576, 4)
    assert layout.PROGRESS_LABEL.bottom == 334
    assert layout.TITLE_LABEL == Rect(32, 40, 576, 48)
    assert layout.FRAME.origin == Point(32, 118)
    assert layout.reason(1).y == 147
    assert layout.FEEDBACK_SUBMIT == Rect(492, 230, 100, 28)
    assert layout.BOX_OK == Rect(348, 192, 100, 28)
    assert layout.BOX_CLOSE.right == 480 - 1 - 16
    assert layout.box_on(Rect(10, 20, 640, 408)) == Rect(90, 104, 480, 240)
    assert layout.shadow_margin(640) == 0
    assert layout.shadow_margin(670) == 15


# Clipboard -------------------------------------------------------------------------------------


@pytest.mark.parametrize("selection", ("CLIPBOARD", "PRIMARY"))
def test_a_text_is_on_the_clipboard_while_it_is_held(display: Display, selection: str) -> None:
    clipboard = display.clipboard
    text = "one\ntwo \u00e9\u65e5" + "x" * 100_000
    assert clipboard.read(selection) is None
    with clipboard.holding(text, selection):
        assert clipboard.read(selection) == text
        assert clipboard.read("PRIMARY" if selection == "CLIPBOARD" else "CLIPBOARD") is None
        with clipboard.holding("newer", selection):
            assert clipboard.read(selection) == "newer"
    assert clipboard.read(selection) is None


# Windows and input -----------------------------------------------------------------------------


def test_a_frameless_window_is_found_and_clicked(sandbox: Sandbox) -> None:
    program = sandbox.start([TOY])
    window = program.ready()
    assert window.pid == program.pid
    assert window.title == "toy"
    assert window.geometry and window.geometry.size == (640, 408)
    assert not window.framed
    assert window.topmost and window.visible and not window.iconified
    window.click(layout.CANCEL)
    assert program.wait_exit() == 0
    window.wait_gone()
    assert not window.exists
    assert program.stdout.splitlines() == ["click main 558 370"]


def test_an_ordinary_window_gets_a_frame_and_true_coordinates(sandbox: Sandbox) -> None:
    program = sandbox.start([TOY, "--framed"])
    window = program.ready()
    assert window.framed
    window.click(Point(100, 200))
    assert lines_of(program, until="click main 100 200") == ["click main 100 200"]


def test_dragging_moves_the_window_by_the_whole_distance(sandbox: Sandbox) -> None:
    window = sandbox.start([TOY]).ready()
    before = window.geometry
    assert before
    window.drag(layout.TITLE_GRIP, -70, 45)
    assert window.geometry == before.moved(-70, 45)
    window.drag(layout.UNINSTALL, 30, 30, follows=False)
    assert window.geometry == before.moved(-70, 45)


def test_typing_sends_the_keys_that_give_the_text(sandbox: Sandbox, display: Display) -> None:
    program = sandbox.start([TOY])
    program.ready()
    display.input.type("aB~ \n")
    display.input.key("Escape")
    keys = lines_of(program, until="key 0xff1b")
    shift = "key 0xffe1"
    expected = ["key a", shift, "key B", shift, "key ~", "key  ", "key 0xff0d", "key 0xff1b"]
    assert keys == expected
    with pytest.raises(ValueError, match="no key for 'NoSuchKey'"):
        display.input.key("NoSuchKey")


def test_both_ways_of_closing_reach_the_program(sandbox: Sandbox, display: Display) -> None:
    first = sandbox.start([TOY, "--status", "3"])
    first.ready().close()
    assert first.wait_exit() == 3
    second = sandbox.start([TOY, "--status", "4"])
    second.ready()
    display.input.alt_f4()
    assert second.wait_exit() == 4
    assert "closed" in second.stdout


def test_a_box_is_told_from_the_main_window(sandbox: Sandbox) -> None:
    program = sandbox.start([TOY])
    window = program.ready()
    window.click(layout.UNINSTALL)
    box = program.box()
    assert box != window and window.geometry
    assert program.windows() == [window, box]
    assert box.geometry == layout.box_on(window.geometry)
    assert box.states == {"_NET_WM_STATE_MODAL"}
    assert box.transient_for == window.identifier
    box.click(layout.BOX_OK)
    box.wait_gone()
    assert "box ok" in lines_of(program, until="box ok")
    window.click(layout.UNINSTALL)
    program.box().close()
    lines_of(program, until="box closed")
    assert program.running


def test_minimised_covered_and_activated_again(sandbox: Sandbox, display: Display) -> None:
    window = sandbox.start([TOY]).ready()
    window.minimise()
    assert window.iconified and window.managed and not window.visible
    with display.windows.bystander() as other:
        assert other.active and other.topmost and not window.active
        window.activate()
        assert window.visible and not window.iconified
        wait.until(lambda: window.topmost, "the window on top")
        other.activate()
        assert not window.active
    assert not other.exists


def test_a_click_waits_for_an_uncovered_place_and_for_its_effect_on_the_stacking(
    sandbox: Sandbox, display: Display
) -> None:
    program = sandbox.start([TOY])
    window = program.ready()
    main = window.geometry
    assert main
    left_half = Rect(main.x, main.y, main.width // 2, main.height)
    with display.windows.bystander(left_half) as other:
        with pytest.raises(wait.TimedOut, match="to be uncovered; last seen: .*bystander"):
            window.click(Point(100, 200), deadline=0.1)
        assert other.topmost
        window.click(Point(600, 200))
        assert window.topmost and window.active
        window.click(Point(100, 200))
    lines_of(program, until="click main 100 200")
    assert program.stdout.splitlines() == ["click main 600 200", "click main 100 200"]


def test_a_program_that_ends_before_its_window_comes_is_noticed_at_once(sandbox: Sandbox) -> None:
    program = sandbox.start([TOY, "--no-window", "--status", "7"])
    with pytest.raises(wait.Doomed, match="status 7"):
        program.window()


# The screen ------------------------------------------------------------------------------------


@pytest.mark.parametrize("percent", [0, 1, 50, 99, 100])
def test_the_filled_part_of_a_bar_is_measured(sandbox: Sandbox, percent: int) -> None:
    window = sandbox.start([TOY, "--bar", str(percent)]).ready()
    edge = layout.BAR_FILL if percent == 100 else layout.BAR_TRACK
    window.wait_colour(Point(layout.PROGRESS_BAR.right - 4, layout.PROGRESS_BAR.top + 2), edge)
    assert window.bar_fraction() == pytest.approx(percent / 100, abs=1 / 576)


def test_no_bar_is_not_an_empty_bar(sandbox: Sandbox) -> None:
    window = sandbox.start([TOY]).ready()
    assert window.bar_fraction() is None


def test_colours_and_pictures(sandbox: Sandbox, display: Display, tmp_path: Path) -> None:
    window = sandbox.start([TOY]).ready()
    screen = display.screen
    assert window.geometry
    assert screen.main_colour(window.area(layout.UNINSTALL)) == (0xE0, 0xEA, 0xFC)
    assert screen.share(window.area(layout.UNINSTALL), layout.UNINSTALL_NORMAL) == 1.0
    assert screen.share(window.area(layout.UNINSTALL), layout.CANCEL_NORMAL) == 0.0
    assert screen.colour_at(window.place(layout.CANCEL)) == (0x1F, 0x6F, 0xFF)
    assert screen.wait_steady(window.geometry).size == (640, 408)
    assert window.picture().getpixel((510, 360)) == (0x1F, 0x6F, 0xFF)
    assert screen.save(tmp_path / "new" / "screen.png").stat().st_size > 0
    with pytest.raises(wait.TimedOut, match="colour #FF0000 at .*last seen: '#1F6FFF'"):
        window.wait_colour(layout.CANCEL, "#FF0000", deadline=0.1)


# The sandbox -----------------------------------------------------------------------------------


def test_the_environment_holds_nothing_from_outside(
    sandbox: Sandbox, monkeypatch: pytest.MonkeyPatch
) -> None:
    monkeypatch.setenv("QT_QUICK_CONTROLS_STYLE", "Fusion")
    monkeypatch.setenv("QT_SCALE_FACTOR", "2")
    for variable in PASSED_THROUGH:
        monkeypatch.delenv(variable, raising=False)
    monkeypatch.setenv("ASAN_OPTIONS", "exitcode=23")
    code = "import os; print(*sorted(os.environ), sep='\\n')"
    program = sandbox.start(["-c", code], {"EXTRA": "1", "LC_ALL": None})
    assert program.wait_exit() == 0
    # The interpreter sets LC_CTYPE itself when no locale is given.
    assert set(program.stdout.split()) - {"LC_CTYPE"} == {
        "ASAN_OPTIONS", "DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "EXTRA", "HOME", "LD_LIBRARY_PATH",
        "PATH", "QT_QPA_PLATFORM", "TMPDIR", "XDG_RUNTIME_DIR",
    }


def test_processes_are_known_by_the_real_path_of_their_executable(sandbox: Sandbox) -> None:
    inside = sandbox.spawn("KTRUI.exe")
    outside = sandbox.spawn("KTRUI.exe", inside=False, called="ktrui.EXE")
    assert [process.pid for process in sandbox.wait_processes("KTRUI.exe", 1)] == [inside.pid]
    assert [process.pid for process in sandbox.wait_processes("ktrui.EXE", 1)] == [outside.pid]
    (sandbox.bin / "KTRUI.exe").unlink()
    (process,) = sandbox.processes("KTRUI.exe")
    assert process.executable == sandbox.bin / "KTRUI.exe"
    inside.kill()
    assert sandbox.wait_processes("KTRUI.exe", 0) == []
    assert inside.wait_exit() == -signal.SIGKILL
    assert outside.running


def test_cleaning_up_ends_the_own_processes_and_no_others(
    display: Display, lay_out: Callable[[Path], None]
) -> None:
    one, other = Sandbox(display, lay_out), Sandbox(display, lay_out)
    try:
        spared = other.spawn("KTRUI.exe")
        ended = one.spawn("KTRUI.exe")
        script = one.start(["-c", "import os; os.execv('/bin/sleep', ['sleep', '600'])"])
        wait.until(
            lambda: [p for p in one.system.offspring(one.root) if p.name == "sleep"],
            "the program to become one of the system's",
        )
        one.cleanup()
        assert ended.wait_exit() == -signal.SIGKILL
        assert script.wait_exit() == -signal.SIGKILL
        assert not one.root.exists()
        assert spared.running
        assert [process.pid for process in other.processes()] == [spared.pid]
    finally:
        one.cleanup()
        other.cleanup()


def test_a_sandbox_in_a_given_place_stays_there(
    display: Display, lay_out: Callable[[Path], None], tmp_path: Path
) -> None:
    sandbox = Sandbox(display, lay_out, root=tmp_path / "kept")
    ended = sandbox.spawn("KTRUI.exe")
    sandbox.cleanup()
    assert ended.wait_exit() == -signal.SIGKILL
    assert (tmp_path / "kept" / "Dravik" / "bin" / "KTRUI.exe").exists()


def test_the_journal_is_read_line_by_line(sandbox: Sandbox) -> None:
    file = sandbox.root / "journal.log"
    assert sandbox.journal() == []
    file.write_bytes(
        "uninstall.exe\tstart\tpid=12\targs=[/SP-][a%5Db]\tenv.A=set:ä%25%0A=\n"
        "x.DLL\tinfo\tpairs=[a=b=c][d=]\nhalf".encode()
    )
    start, info = sandbox.journal()
    assert start.items("args") == ["/SP-", "a]b"]
    assert start.number("pid") == 12
    assert start.text("env.A") == "set:ä%\n="
    assert info.pairs() == {"a": "b=c", "d": ""}
    assert sandbox.journal(event="start", pid=12) == [start]
    assert sandbox.journal(event="start", pid=13) == []
    assert sandbox.wait_noted("x.DLL", "info") == info
    with pytest.raises(wait.TimedOut, match="waited 0.1 s for x.DLL gone in the journal"):
        sandbox.wait_noted("x.DLL", "gone", deadline=0.1)
    with pytest.raises(ValueError, match="not a line"):
        parse(b"no tabs\n")


def test_settings_replace_those_of_the_same_name_only(sandbox: Sandbox) -> None:
    file = sandbox.bin / "KTRUI.exe.txt"
    file.write_text("# a comment\nrun_ms=5\nremove=a\nremove=b\n", encoding="utf-8")
    sandbox.configure("KTRUI.exe", run_ms=7, remove=["c", "d"])
    assert file.read_text() == "# a comment\nrun_ms=7\nremove=c\nremove=d\n"
    hold = sandbox.hold("KTRUI.exe")
    assert hold.exists()
    sandbox.configure("KTRUI.exe", remove=None)
    assert file.read_text() == f"# a comment\nrun_ms=7\nhold_file={hold}\n"
    with pytest.raises(FileNotFoundError):
        sandbox.configure("missing.exe", run_ms=1)


def test_what_changed_on_disk_is_found(sandbox: Sandbox) -> None:
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


def test_the_handle_file_is_eight_bytes(sandbox: Sandbox) -> None:
    assert sandbox.read_handle() is None
    sandbox.write_handle(0x0102030405060708)
    assert sandbox.handle_file.read_bytes() == bytes([8, 7, 6, 5, 4, 3, 2, 1])
    assert sandbox.read_handle() == 0x0102030405060708
    sandbox.write_handle(b"short")
    assert sandbox.handle_file.read_bytes() == b"short"


def test_the_instance_lock_is_seen(sandbox: Sandbox) -> None:
    assert not sandbox.instance_lock_held()
    assert not sandbox.system.lock_file(sandbox.root).exists()
    with sandbox.holding_instance_lock():
        assert sandbox.instance_lock_held()
    assert not sandbox.instance_lock_held()
    code = (
        "import fcntl, os, signal\n"
        f"file = os.open({str(sandbox.system.lock_file(sandbox.root))!r}, os.O_RDONLY)\n"
        "fcntl.flock(file, fcntl.LOCK_EX)\nprint('locked', flush=True)\nsignal.pause()"
    )
    program = sandbox.start(["-c", code])
    lines_of(program, until="locked")
    assert sandbox.instance_lock_held()
    program.kill()
    assert not sandbox.instance_lock_held()


class TestWithTheStandIns:
    """The same sandbox as the scenarios have, only with the interpreter as the program."""

    @pytest.fixture
    def lay_out(self) -> Callable[[Path], None]:
        return lambda root: assemble(root, Path("/usr/bin/python3").resolve())

    def test_a_stand_in_runs_as_long_as_it_is_held(self, sandbox: Sandbox) -> None:
        hold = sandbox.hold("uninstall.exe")
        started = sandbox.spawn("uninstall.exe", exit=5)
        entry = sandbox.wait_noted("uninstall.exe", "start")
        assert entry.number("pid") == started.pid
        assert entry.items("args") == []
        assert [process.pid for process in sandbox.processes("uninstall.exe")] == [started.pid]
        hold.unlink()
        assert started.wait_exit() == 5
        sandbox.wait_noted("uninstall.exe", "end", exit=5)

    def test_a_copy_elsewhere_writes_the_same_journal(self, sandbox: Sandbox) -> None:
        copy = sandbox.spawn("KTRUI.exe", inside=False, called="ktrui.exe", run_ms=1)
        assert copy.wait_exit() == 0
        assert sandbox.wait_noted("ktrui.exe", "end", pid=copy.pid, exit=0)

    def test_the_tools_come_first_in_the_path(self, sandbox: Sandbox) -> None:
        code = (
            "import subprocess\n"
            "subprocess.run(['tasklist', '/NH', '/FO', 'CSV', '/FI', 'IMAGENAME eq KTRUI.exe'])\n"
            "subprocess.run(['xdg-open', 'https://example.org/?a=b'])"
        )
        running = sandbox.spawn("KTRUI.exe")
        sandbox.wait_noted("KTRUI.exe", "start")
        program = sandbox.start(["-c", code])
        assert program.wait_exit() == 0
        assert f'"KTRUI.exe","{running.pid}"' in program.stdout
        entry = sandbox.wait_noted("xdg-open", "open")
        assert entry.items("args") == ["https://example.org/?a=b"]


# The display -----------------------------------------------------------------------------------


def test_a_display_leaves_no_process_and_disturbs_no_other(display: Display) -> None:
    with Display() as second:
        assert second.name != display.name
        with second.windows.bystander(Rect(10, 20, 300, 200), "there") as window:
            assert [found.title for found in second.windows.all()] == ["there"]
            assert window.active
            assert "there" not in [found.title for found in display.windows.all()]
        pids = [process.pid for process in second._processes]
    assert len(pids) == 2
    assert not [pid for pid in pids if Path(f"/proc/{pid}").exists()]
    assert display.windows.manager_ready()


# The checks after each scenario ----------------------------------------------------------------


def run_scenario(folder: Path, body: str) -> tuple[int, str, Path]:
    """Runs one scenario in a test run of its own; returns its status, its output, what it kept."""
    module = (HERE / "test_driver.py").read_text(encoding="utf-8")
    start = module.index("@pytest.fixture(scope=\"session\")\ndef idler")
    fixtures = module[start:module.index("def lines_of")]
    (folder / "test_inner.py").write_text(
        "import os, shutil, subprocess\nfrom pathlib import Path\nfrom typing import Callable\n"
        f"import pytest\nTOY = {TOY!r}\n{fixtures}\n{body}", encoding="utf-8",
    )
    kept = folder / "kept"
    environment = {name: value for name, value in os.environ.items() if "PYTEST" not in name}
    environment["PYTHONPATH"] = os.pathsep.join((str(HERE), str(HERE.parents[1] / "testkit")))
    done = subprocess.run(
        [sys.executable, "-m", "pytest", "-c", str(HERE.parent / "pytest.ini"), "-p", "conftest",
         f"--rootdir={folder}", f"--keep-failures-in={kept}", str(folder / "test_inner.py")],
        env=environment, cwd=folder, capture_output=True, text=True, check=False,
    )
    return done.returncode, done.stdout + done.stderr, kept


def test_a_failure_keeps_the_sandbox_the_picture_and_the_logs(tmp_path: Path) -> None:
    status, output, kept = run_scenario(
        tmp_path,
        "def test_it(sandbox):\n"
        "    program = sandbox.start([TOY, '--complain', 'oh dear'])\n"
        "    program.ready()\n"
        "    assert False, 'on purpose'\n",
    )
    folder = kept / "test_inner.py_test_it"
    assert status == 1
    assert "on purpose" in output
    assert f"remains of the scenario: {folder}" in output
    assert (folder / "sandbox" / "logs" / "1-UninstallUI.err").read_text() == "oh dear\n"
    assert (folder / "sandbox" / "Dravik" / "bin" / "KTRUI.exe").exists()
    assert (folder / "screen.png").stat().st_size > 1000
    assert "'toy'" in (folder / "state.txt").read_text()


@pytest.mark.parametrize("allowance, passes", [
    ("", False),
    ("@pytest.mark.stderr_allowed('oh .*')\n", True),
    ("@pytest.mark.stderr_allowed('oh')\n", False),
    ("@pytest.mark.stderr_unchecked\n", True),
])
def test_an_unexpected_line_on_standard_error_fails(
    tmp_path: Path, allowance: str, passes: bool
) -> None:
    status, output, kept = run_scenario(
        tmp_path,
        f"{allowance}def test_it(sandbox):\n"
        "    sandbox.start([TOY, '--no-window', '--complain', 'oh dear']).wait_exit()\n",
    )
    assert (status == 0) == passes, output
    assert kept.exists() != passes
    assert ("oh dear" in output) != passes


def test_the_log_of_the_configuration_client_is_allowed(tmp_path: Path) -> None:
    line = 'CVantorConfigInstance::GetString enter(qstrKey= "coupon"  strDefault= "" )'
    status, output, _ = run_scenario(
        tmp_path,
        "def test_it(sandbox):\n"
        f"    sandbox.start([TOY, '--no-window', '--complain', {line!r}]).wait_exit()\n",
    )
    assert status == 0, output


def test_a_process_that_is_left_over_fails_and_is_ended(tmp_path: Path) -> None:
    status, output, kept = run_scenario(
        tmp_path,
        "def test_it(sandbox):\n"
        "    leave = ['--leave', str(sandbox.locate('KTRUI.exe'))]\n"
        "    sandbox.start([TOY, '--no-window', *leave]).wait_exit()\n"
        "    (process,) = sandbox.wait_processes('KTRUI.exe', 1)\n"
        "    Path('pid').write_text(str(process.pid))\n",
    )
    assert status == 1
    pid = (tmp_path / "pid").read_text()
    assert f"still running: {pid} " in output and "/Dravik/bin/KTRUI.exe" in output
    with pytest.raises(OSError):  # it has gone, or is about to be buried
        os.readlink(f"/proc/{pid}/exe")
    assert kept.exists()
