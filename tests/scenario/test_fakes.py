"""The fakes do what their settings say, and write it to the journal."""

from __future__ import annotations

import os
import shutil
import signal
import subprocess
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from types import SimpleNamespace
from typing import Any, Callable, Iterator, cast

import pytest

from ktr import wait
from ktr.display import Display
from ktr.installation import assemble, build_directory
from ktr.sandbox import Sandbox
from ktr.wine import system_under_test

LIBRARY = "SkyrelWrap.DLL"
COMPANION = "SkyrelWrapExe.exe"
UNINSTALLER = "uninstall.exe"
PRODUCT_UI = "KTRUI.exe"
NO_TASKS = b"INFO: No tasks are running which match the specified criteria.\r\n"


def lay_out(into: Path) -> None:
    assemble(into, program=Path("/bin/true"))


@pytest.fixture
def sandbox() -> Iterator[Sandbox]:
    """A sandbox without the program and without a display: no fake has a window."""
    installation = Sandbox(cast(Display, SimpleNamespace(name=":none")), lay_out)
    try:
        yield installation
        installation.end_started()
    finally:
        installation.cleanup()


@pytest.fixture
def load(sandbox: Sandbox) -> Iterator[Callable[..., subprocess.Popen[str]]]:
    """Starts a process that has the telemetry library loaded until its input is closed."""
    started = []

    def start() -> subprocess.Popen[str]:
        loader = "telemetry_loader" + sandbox.system.executable_suffix
        process = subprocess.Popen(
            sandbox.system.command(build_directory() / "testkit" / "fakes" / loader,
                                   [sandbox.shown(sandbox.bin / LIBRARY)]),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, env=sandbox.environment())
        started.append(process)
        assert process.stdout and process.stdout.readline() == "loaded\n"
        return process

    yield start
    for process in started:
        with process:
            process.kill()


def end(loader: subprocess.Popen[str]) -> None:
    assert loader.stdin
    loader.stdin.close()
    assert loader.wait(wait.DEADLINE) == 0


def run(
    sandbox: Sandbox, name: str, *arguments: str, **options: Any
) -> subprocess.CompletedProcess[bytes]:
    where: dict[str, Any] = {"env": sandbox.environment(), "cwd": sandbox.bin}
    return subprocess.run(
        sandbox.system.command(sandbox.locate(name), list(arguments)), capture_output=True,
        check=False, timeout=wait.DEADLINE, **where | options)


def ask(sandbox: Sandbox, image: str, *more: str, **options: Any) -> bytes:
    """What `tasklist` prints about an image."""
    done = run(sandbox, "tasklist", *more, "/NH", "/FO", "CSV", "/FI", f"IMAGENAME eq {image}",
               **options)
    assert (done.returncode, done.stderr) == (0, b"")
    return done.stdout


# The sandbox -----------------------------------------------------------------------------------


def test_a_sandbox_has_its_files_and_replaces_an_older_one(tmp_path: Path) -> None:
    place = tmp_path / "in a folder" / "sandbox"
    lay_out(place)
    (place / "Dravik" / "bin" / "left over").touch()
    lay_out(place)
    assert {entry.name for entry in place.parent.iterdir()} == {"sandbox"}
    names = {str(file.relative_to(place)) for file in place.rglob("*") if file.is_file()}
    system = system_under_test()
    tasklist = f"{system.commands}/tasklist{system.executable_suffix}"
    assert names >= {f"Dravik/bin/{name}" for name in (
        UNINSTALLER, PRODUCT_UI, COMPANION, LIBRARY, "clearKTR.bat", "registry.reg", "Dravik.dat")}
    assert names >= {tasklist, "tools/xdg-open", "sandbox.mark"}
    assert "Dravik/bin/left over" not in names and "journal.log" not in names
    assert (place / "run").stat().st_mode & 0o777 == 0o700
    assert "Dravik/bin/translations/ktr_German.qm" in names
    settings = (place / (tasklist + ".txt")).read_text()
    assert settings == f"root={system.shown(place)}\n".replace("\\", "/")


def test_a_folder_that_is_no_sandbox_is_not_replaced(tmp_path: Path) -> None:
    (tmp_path / "letter").write_text("dear")
    with pytest.raises(RuntimeError, match="nothing was changed"):
        lay_out(tmp_path)
    assert [entry.name for entry in tmp_path.iterdir()] == ["letter"]


def remove(place: Path) -> None:
    """Removes a sandbox; its fakes may still write a line meanwhile."""
    def gone() -> bool:
        shutil.rmtree(place, ignore_errors=True)
        return not place.exists()

    wait.until(gone, f"{place} to be removed")


@pytest.mark.parametrize("change", [remove, lay_out])
def test_a_fake_ends_when_its_sandbox_is_removed_or_replaced(
    sandbox: Sandbox, change: Callable[[Path], None]
) -> None:
    product_ui = sandbox.spawn(PRODUCT_UI)
    sandbox.wait_noted(PRODUCT_UI, "start")
    change(sandbox.root)
    wait.until(lambda: not product_ui.running, "the fake to end")


def test_journal_lines_of_parallel_writers_do_not_mix(sandbox: Sandbox) -> None:
    text = "x" * 3000

    def write(number: int) -> list[int]:
        return [run(sandbox, "note", f"w{number}", "e", "--", str(index), text).returncode
                for index in range(1, 11)]

    with ThreadPoolExecutor(6) as writers:
        assert list(writers.map(write, range(6))) == [[0] * 10] * 6
    entries = sandbox.journal()
    for number in range(6):
        items = [entry.items("args") for entry in entries if entry.image == f"w{number}"]
        assert items == [[str(index), text] for index in range(1, 11)]


# The uninstaller and the product ---------------------------------------------------------------


def test_the_uninstaller_notes_how_it_was_started(sandbox: Sandbox) -> None:
    odd = 'tab\t line\n percent% [x] ü 中 "quoted\\" \\'
    sandbox.configure(UNINSTALLER, run_ms=0, env="SET,EMPTY,UNSET", exit=7)
    done = run(sandbox, UNINSTALLER, "/SP-", odd, "", cwd=sandbox.home,
               env={**sandbox.environment(), "SET": "a b", "EMPTY": ""})
    assert done.returncode == 7
    start = sandbox.journal(UNINSTALLER, "start")[0]
    assert start.fields["args"] == (
        '[/SP-][tab%09 line%0A percent%25 %5Bx%5D ü 中 "quoted\\" \\][]')
    assert start.text("cwd") == sandbox.shown(sandbox.home)
    assert [start.text(f"env.{name}") for name in ("SET", "EMPTY", "UNSET")] == [
        "set:a b", "empty", "unset"]
    assert sandbox.journal()[-1].matches(UNINSTALLER, "end", pid=start.text("pid"), exit=7)


def test_the_uninstaller_notes_inherited_files_and_arguments_that_are_not_utf8(
    sandbox: Sandbox
) -> None:
    sandbox.configure(UNINSTALLER, run_ms=0)
    with open(sandbox.root / "sandbox.mark", encoding="utf-8") as inherited:
        assert run(sandbox, UNINSTALLER, "\udcff", pass_fds=[inherited.fileno()]).returncode == 0
        start = sandbox.journal(UNINSTALLER, "start")[0]
        assert start.items("fds") == [str(inherited.fileno())]
    assert start.fields["args"] == "[%FF]"


def test_the_uninstaller_removes_its_files_and_nothing_outside(sandbox: Sandbox) -> None:
    outside = sandbox.root / "outside.dat"
    outside.touch()
    refused = ["../../outside.dat", sandbox.shown(outside), "presets/../../../outside.dat", "."]
    sandbox.configure(UNINSTALLER, run_ms=0, remove=[
        "Dravik.dat", *refused, "presets", "absent.dat"])
    assert run(sandbox, UNINSTALLER).returncode == 0
    results = {entry.text("file"): entry.text("result")
               for entry in sandbox.journal(UNINSTALLER, "remove")}
    assert results == {"Dravik.dat": "gone", **{name: "refused" for name in refused},
                       "presets": "failed", "absent.dat": "missing"}
    assert outside.exists()
    assert not (sandbox.bin / "Dravik.dat").exists() and (sandbox.bin / "presets").exists()


def test_the_uninstaller_removes_itself_but_nothing_behind_a_link(sandbox: Sandbox) -> None:
    (sandbox.home / "kept.dat").touch()
    (sandbox.bin / "link").symlink_to(sandbox.home)
    sandbox.configure(UNINSTALLER, run_ms=0, remove=["link/kept.dat", UNINSTALLER])
    assert run(sandbox, UNINSTALLER).returncode == 0
    assert [entry.text("result") for entry in sandbox.journal(UNINSTALLER, "remove")] == [
        "refused", "gone"]
    assert (sandbox.home / "kept.dat").exists()


def test_the_uninstaller_waits_before_and_after_its_work_until_told(sandbox: Sandbox) -> None:
    linger, farewell = sandbox.root / "hold" / "linger", sandbox.root / "hold" / "farewell"
    linger.touch()
    hold = sandbox.hold(UNINSTALLER)
    sandbox.spawn(UNINSTALLER, run_ms=0, linger_while=linger, linger_until=farewell)
    sandbox.wait_noted(UNINSTALLER, "start")
    assert not sandbox.journal(UNINSTALLER, "remove")
    hold.unlink()
    sandbox.wait_noted(UNINSTALLER, "remove", file="presets", result="gone")
    assert sandbox.processes(UNINSTALLER)
    linger.unlink()
    assert not sandbox.journal(UNINSTALLER, "end")
    farewell.touch()
    sandbox.wait_noted(UNINSTALLER, "end")
    sandbox.wait_processes(UNINSTALLER, 0)


def test_an_uninstaller_that_never_appears_does_nothing(sandbox: Sandbox) -> None:
    sandbox.configure(UNINSTALLER, mode="never", exit=3)
    assert run(sandbox, UNINSTALLER, "/SP-").returncode == 3
    assert [entry.event for entry in sandbox.journal()] == ["never"]
    assert (sandbox.bin / "Dravik.dat").exists()


def test_the_uninstaller_outlives_the_session_that_started_it(sandbox: Sandbox) -> None:
    hold = sandbox.hold(UNINSTALLER)
    # Under nohup SIGHUP is ignored, and child processes inherit that.
    shell = subprocess.Popen(["env", "--default-signal=HUP", "sh", "-c", '"$0" & wait',
                              sandbox.bin / UNINSTALLER], start_new_session=True)
    pid = sandbox.wait_noted(UNINSTALLER, "start").number("pid")
    os.killpg(shell.pid, signal.SIGHUP)
    assert shell.wait(wait.DEADLINE) == -signal.SIGHUP
    assert [process.pid for process in sandbox.processes(UNINSTALLER)] == [pid]
    hold.unlink()
    sandbox.wait_noted(UNINSTALLER, "end", exit=0)


def test_the_product_runs_until_told_to_end_or_killed(sandbox: Sandbox) -> None:
    hold = sandbox.hold(PRODUCT_UI)
    sandbox.spawn(PRODUCT_UI)
    first = sandbox.wait_noted(PRODUCT_UI, "start").number("pid")
    hold.unlink()
    sandbox.wait_noted(PRODUCT_UI, "end", pid=first)
    sandbox.configure(PRODUCT_UI, hold_file=None)
    second = sandbox.spawn(PRODUCT_UI)
    wait.until(lambda: len(sandbox.journal(PRODUCT_UI, "start")) == 2, "the second start")
    second.kill()
    assert len(sandbox.journal(PRODUCT_UI, "end")) == 1


# Telemetry -------------------------------------------------------------------------------------


def test_the_companion_lives_as_long_as_the_library_is_in_use(sandbox: Sandbox, load) -> None:
    first, second = load(), load()
    start = sandbox.wait_noted(COMPANION, "start")
    wait.until(lambda: len(sandbox.processes(COMPANION)) == 1, "one companion to remain")
    end(first)
    # The second process still has the library loaded, so the companion must not end now.
    assert not sandbox.journal(COMPANION, "end") and sandbox.processes(COMPANION)
    end(second)
    sandbox.wait_noted(COMPANION, "end", pid=start.text("pid"))
    sandbox.wait_processes(COMPANION, 0)
    assert len(sandbox.journal(LIBRARY, "load")) == 2
    assert len(sandbox.journal(COMPANION, "start")) == 1


def test_every_use_of_the_library_has_a_companion(sandbox: Sandbox, load) -> None:
    def at_work() -> int:
        return len(sandbox.journal(COMPANION, "start")) - len(sandbox.journal(COMPANION, "end"))

    for _ in range(20):
        loader = load()
        # The companion continues if it has not begun to end; otherwise a new one starts.
        wait.until(at_work, "a companion", accept=lambda count: count == 1)
        end(loader)
    wait.until(at_work, "no companion", accept=lambda count: count == 0)


def test_the_companion_is_detached_and_inherits_nothing(sandbox: Sandbox, load) -> None:
    loader = load()
    pid = sandbox.wait_noted(COMPANION, "start").number("pid")
    process = Path(f"/proc/{pid}")
    parent, _, session = (process / "stat").read_text().rpartition(") ")[2].split()[1:4]
    assert int(parent) not in (loader.pid, os.getpid()) and int(session) != os.getsid(0)
    links = {int(link.name): os.readlink(link) for link in (process / "fd").iterdir()}
    assert [links.pop(stream) for stream in (0, 1, 2)] == ["/dev/null"] * 3
    state = sandbox.root / "state"
    assert sorted(links.values()) == [
        str(state / f"Dravik-bin.{name}.lock") for name in ("companion", "loaders")]


def test_a_killed_companion_notes_no_end(sandbox: Sandbox, load) -> None:
    loader = load()
    sandbox.wait_noted(COMPANION, "start")
    sandbox.system.end(*sandbox.wait_processes(COMPANION, 1))
    sandbox.wait_processes(COMPANION, 0)
    end(loader)
    assert not sandbox.journal(COMPANION, "end")


def test_a_companion_of_another_folder_is_independent(sandbox: Sandbox, load) -> None:
    hold = sandbox.root / "hold" / "elsewhere"
    hold.touch()
    sandbox.spawn(COMPANION, inside=False, hold_file=hold)
    other = sandbox.wait_noted(COMPANION, "start").text("pid")
    loader = load()
    wait.until(lambda: len(sandbox.journal(COMPANION, "start")) == 2, "the library's own companion")
    end(loader)
    own = sandbox.wait_noted(COMPANION, "end").text("pid")
    assert own != other and len(sandbox.processes(COMPANION)) >= 1
    hold.unlink()
    sandbox.wait_noted(COMPANION, "end", pid=other)


def test_the_library_can_be_told_to_have_no_companion(sandbox: Sandbox, load) -> None:
    sandbox.configure(LIBRARY, companion="none")
    end(load())
    assert [entry.image for entry in sandbox.journal()] == [LIBRARY]


# The task list ---------------------------------------------------------------------------------


@pytest.fixture
def running(sandbox: Sandbox) -> int:
    """The id of a running product, whose image is in the task list."""
    sandbox.spawn(PRODUCT_UI)
    return sandbox.wait_noted(PRODUCT_UI, "start").number("pid")


def test_a_running_image_is_listed_in_the_format_of_windows(sandbox: Sandbox, running) -> None:
    for asked in (PRODUCT_UI, "ktrui.EXE"):
        image, pid, session, number, memory = ask(sandbox, asked).decode().split('","')
        assert (image, pid, session, number) == ('"KTRUI.exe', str(running), "Console", "1")
        kilobytes = memory.removesuffix(' K"\r\n')
        assert f"{int(kilobytes.replace(',', '')):,}" == kilobytes != "0"
    header = run(sandbox, "tasklist", "/fo", "csv").stdout.splitlines()[0]
    assert header == b'"Image Name","PID","Session Name","Session#","Mem Usage"'


@pytest.mark.parametrize("image", ["uninstall.exe", "TRUI.exe", "KTRUI.ex", "KTRUI"])
def test_an_image_that_does_not_run_gets_the_message(sandbox: Sandbox, running, image) -> None:
    assert running and ask(sandbox, image) == NO_TASKS


def test_a_deleted_executable_is_listed_by_its_name(sandbox: Sandbox, running: int) -> None:
    (sandbox.bin / PRODUCT_UI).unlink()
    assert os.readlink(f"/proc/{running}/exe").endswith(" (deleted)")
    assert ask(sandbox, PRODUCT_UI).startswith(f'"KTRUI.exe","{running}",'.encode())


def test_tasklist_lists_only_programs_below_its_roots(sandbox: Sandbox, running: int) -> None:
    line = f'"{running}"'.encode()
    sibling = sandbox.bin.with_name("bi")
    sibling.mkdir()
    table: list[tuple[list[Path], bool]] = [
        ([sandbox.root / "elsewhere"], False), ([sandbox.bin], True), ([sibling], False),
        ([Path("/")], True), ([], True), ([sandbox.home, sandbox.root], True),
        ([Path("/no such folder")], False)]
    for roots, seen in table:
        sandbox.configure("tasklist", root=[sandbox.shown(root) for root in roots])
        assert (line in ask(sandbox, PRODUCT_UI)) == seen, roots


def test_tasklist_can_hide_and_invent_programs_and_print_anything(
    sandbox: Sandbox, running: int
) -> None:
    sandbox.configure("tasklist", hide="KTRUI.exe", show="uninstall.exe")
    assert ask(sandbox, PRODUCT_UI) == NO_TASKS
    assert ask(sandbox, UNINSTALLER) == b'"uninstall.exe","4242","Console","1","4,212 K"\r\n'
    sandbox.configure("tasklist", hide=None, show=None, bytes=10 * 1024 * 1024 + 1)
    padding, quote, line = ask(sandbox, PRODUCT_UI).partition(b'"')
    assert (len(padding), set(padding)) == (10 * 1024 * 1024 + 1, set(b".\r\n"))
    assert (quote + line).startswith(f'"KTRUI.exe","{running}",'.encode())
    sandbox.configure("tasklist", bytes=None, say=["a%FFb%00", "Ünde %zz%"], silent=1)
    assert ask(sandbox, PRODUCT_UI) == b"a\xffb\0\r\n" + "Ünde %zz%\r\n".encode()


def test_tasklist_can_hang_and_fail(sandbox: Sandbox) -> None:
    sandbox.configure("tasklist", hang=1)
    tasklist = sandbox.locate("tasklist")
    hanging = subprocess.Popen(sandbox.system.command(tasklist, ["/NH", "/FO", "CSV"]),
                               stdout=subprocess.PIPE, env=sandbox.environment())
    # It prints before it hangs, and lists itself.
    assert hanging.stdout
    assert hanging.stdout.readline().startswith(f'"{tasklist.name}","'.encode())
    assert hanging.poll() is None
    hanging.kill()
    hanging.communicate()
    sandbox.configure("tasklist", hang=None, exit=5, note=1)
    query = ["/NH", "/FO", "CSV", "/FI", "IMAGENAME eq none.exe"]
    assert run(sandbox, "tasklist", *query).returncode == 5
    assert [entry.items("args") for entry in sandbox.journal("tasklist", "query")] == [query]
    sandbox.configure("tasklist", exit=None, note=None, say="text", silent=1, complain="error",
                      killed=1)
    done = run(sandbox, "tasklist", *query)
    assert (done.stdout, done.stderr.rstrip()) == (b"text\r\n", b"error")
    assert done.returncode != 0


@pytest.mark.parametrize("wrong", [
    ["/NH", "/FO", "LIST"], ["/NH", "/FO", "CSV", "/FI", "PID eq 1"], ["/FO", "CSV", "KTRUI.exe"],
    ["/FO", "CSV", "/FI"], []])
def test_tasklist_refuses_other_arguments(sandbox: Sandbox, wrong: list[str]) -> None:
    done = run(sandbox, "tasklist", *wrong)
    assert (done.returncode, done.stdout) == (1, b"") and done.stderr.startswith(b"ERROR: ")


# The scripts -----------------------------------------------------------------------------------


def test_an_opened_link_is_noted(sandbox: Sandbox) -> None:
    def open_link() -> int:
        # A Linux script that also opens the links of the Windows executable.
        return subprocess.run([sandbox.locate("xdg-open"), link], env=sandbox.environment(),
                              timeout=wait.DEADLINE, check=False).returncode

    link = "https://torvan.example/?a=%20[1]&b='\"$HOME;*"
    assert open_link() == 0
    assert [entry.items("args") for entry in sandbox.journal("xdg-open", "open")] == [[link]]
    sandbox.configure("xdg-open", exit=3)
    assert open_link() == 3


def test_the_clean_up_script_notes_how_it_was_called(sandbox: Sandbox) -> None:
    copy = Path(shutil.copy2(sandbox.bin / "clearKTR.bat", sandbox.temp))
    script = subprocess.run(
        sandbox.system.command(copy, ["/a b/[c]", ""]), cwd=sandbox.temp, capture_output=True,
        env=sandbox.environment(), timeout=wait.DEADLINE, check=False)
    assert (script.returncode, script.stdout, script.stderr) == (0, b"", b"")
    start = sandbox.journal("clearKTR.bat", "start")[0]
    assert start.items("args") == ["/a b/[c]", ""]
    assert start.text("cwd") == sandbox.shown(sandbox.temp)
    assert start.text("script") == sandbox.shown(copy)


def test_the_clean_up_script_notes_its_session_priority_and_streams(sandbox: Sandbox) -> None:
    copy = shutil.copy2(sandbox.bin / "clearKTR.bat", sandbox.temp)
    script = subprocess.Popen(
        ["chrt", "--idle", "0", "nice", "-n", "19", copy], start_new_session=True,
        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    assert script.wait(wait.DEADLINE) == 0
    start = sandbox.journal("clearKTR.bat", "start")[0]
    assert {key: start.text(key) for key in ("sid", "nice", "policy")} == {
        "sid": str(script.pid), "nice": "19", "policy": "5"}
    streams = ("stdin", "stdout", "stderr")
    assert [start.text(stream) for stream in streams] == ["/dev/null"] * 3
    subprocess.run([copy], stdin=subprocess.DEVNULL, capture_output=True, check=True)
    other = sandbox.journal("clearKTR.bat", "start")[1]
    assert (other.text("nice"), other.text("policy")) != ("19", "5")
    assert other.text("stdout").startswith("pipe:") and other.text("sid") != str(script.pid)
