"""What the program changes besides its window: environment, companions, files."""

import shutil
from pathlib import Path

import pytest

from ktr import layout, steps, tree
from ktr.system import MUTEX
from ktr.steps import expect_end, uninstall, uninstall_held, wait_complete

VARIABLES = (
    "QT_PLUGIN_PATH", "QML2_IMPORT_PATH", "QT_AUTO_SCREEN_SCALE_FACTOR", "QML_DISABLE_DISK_CACHE",
)


@pytest.mark.parametrize(
    ("given", "seen"),
    [
        ({"QT_PLUGIN_PATH": "/nowhere", "QML2_IMPORT_PATH": "/nowhere"}, "unset"),
        ({"QT_PLUGIN_PATH": "", "QML2_IMPORT_PATH": ""}, "empty"),
        ({"QT_PLUGIN_PATH": None, "QML2_IMPORT_PATH": None}, "unset"),
    ],
    ids=["set", "empty", "absent"],
)
def test_the_uninstaller_inherits_an_environment_without_qt_paths(sandbox, given, seen):
    sandbox.configure("uninstall.exe", run_ms=500, env=",".join(VARIABLES))
    program = sandbox.start(environment={**given, "QT_AUTO_SCREEN_SCALE_FACTOR": "1"})
    window = program.ready()
    uninstall(window)
    entry = sandbox.wait_noted("uninstall.exe", "start")
    system = sandbox.system
    for name in ("QT_PLUGIN_PATH", "QML2_IMPORT_PATH"):
        expected = system.empty_from_outside(name) if seen == "empty" else seen
        assert entry.text(f"env.{name}") == expected
    assert entry.text("env.QT_AUTO_SCREEN_SCALE_FACTOR") == system.empty_variable
    assert entry.text("env.QML_DISABLE_DISK_CACHE") == "set:1"
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


def test_arguments_are_ignored(sandbox):
    program = sandbox.start(["--help", "/S", "file"])
    program.ready().click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=False)


def test_companions_of_other_folders_survive(sandbox, program):
    hold = sandbox.root / "hold" / "companion"
    hold.touch()
    outside = sandbox.spawn("SkyrelWrapExe.exe", inside=False, hold_file=hold)
    shouting = sandbox.spawn("SkyrelWrapExe.exe", called="SKYRELWRAPEXE.EXE", hold_file=hold)
    sandbox.wait_processes("SKYRELWRAPEXE.EXE", 1)
    sandbox.configure("uninstall.exe", run_ms=500)
    window = program.window()
    uninstall(window)
    wait_complete(window)
    window.click(layout.CANCEL)
    assert program.wait_exit() == 0
    assert shouting.wait_exit() == sandbox.system.terminated
    sandbox.wait_noted("clearKTR.bat", "start")
    assert [process.pid for process in sandbox.processes("SkyrelWrapExe.exe")] == [outside.pid]
    hold.unlink()
    assert outside.wait_exit() == 0


def test_only_the_expected_files_are_left_on_disk(sandbox):
    before = sandbox.snapshot()
    program = sandbox.start()
    program.ready()
    while_running = tree.compare(before, sandbox.snapshot())
    lock = [f"run/{MUTEX}.lock"] if sandbox.system.has_lock_file else []
    assert while_running.added == ["Dravik/bin/hwndFile.ini", *lock, "tmp/clearKTR.bat"]
    assert not while_running.changed and not while_running.removed
    program.window().click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=False)
    after = tree.compare(before, sandbox.snapshot())
    assert after.added == [*lock, "tmp/clearKTR.bat"]
    assert not after.changed and not after.removed


def test_the_staged_script_is_a_fresh_copy(sandbox):
    (sandbox.temp / "clearKTR.bat").write_text("something older")
    program = sandbox.start()
    program.ready()
    staged = sandbox.temp / "clearKTR.bat"
    assert staged.read_bytes() == (sandbox.bin / "clearKTR.bat").read_bytes()
    assert staged.stat().st_mode & 0o111 or not sandbox.system.has_execute_bit
    program.window().click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=False)


@pytest.mark.stderr_allowed(r"QQmlApplicationEngine failed.*", r"qrc:/.*", r"\s.*")
def test_a_window_that_cannot_be_created_ends_the_program(sandbox):
    sandbox.system.hide_modules(sandbox.bin)
    program = sandbox.start()
    assert program.wait_exit() == 0
    assert "Main.qml" in program.stderr
    assert not sandbox.handle_file.exists()
    assert not sandbox.instance_lock_held()
    sandbox.wait_noted("SkyrelWrapExe.exe", "end")
    assert not sandbox.journal("clearKTR.bat")


def test_no_graphics_driver_is_loaded(sandbox, program):
    maps = Path(f"/proc/{program.pid}/maps").read_text()
    assert "libQt5Quick" in maps
    assert "_dri.so" not in maps
    assert "libgallium" not in maps


@pytest.mark.parametrize("variable, folder", (
    ("QT_PLUGIN_PATH", "."), ("QT_QPA_PLATFORM_PLUGIN_PATH", "platforms"),
))
def test_no_plug_in_of_another_qt_is_loaded(sandbox, variable, folder):
    foreign = sandbox.root / "elsewhere"
    # This plug-in would work, so only its path tells whether it was loaded.
    own = next(Path("/usr/lib").glob("*/qt5/plugins/platforms/libqxcb.so"))
    (foreign / "platforms").mkdir()
    shutil.copy(own, foreign / "platforms")
    program = sandbox.start(environment={variable: str(foreign / folder)})
    program.ready()
    maps = Path(f"/proc/{program.pid}/maps").read_text()
    assert "libqxcb.so" in maps
    assert str(foreign) not in maps


@pytest.mark.usefixtures("reasons")
def test_a_page_opens_after_the_uninstaller_has_removed_qts_qml_modules(sandbox):
    modules = sandbox.root / "modules"
    shutil.copytree(next(Path("/usr/lib").glob("*/qt5/qml")), modules)
    sandbox.system.hide_modules(sandbox.bin, but=modules)
    program = sandbox.start()
    window = program.ready()
    hold = uninstall_held(sandbox, window)
    shutil.rmtree(modules)
    steps.choose(sandbox, window, 3)
    hold.unlink()
    wait_complete(window)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


# The language ---------------------------------------------------------------------------------


def ink_of_title(window):
    """The bounding box of the drawn title."""
    area = layout.Rect(
        layout.TITLE_LABEL.left, layout.TITLE_LABEL.top, layout.TITLE_LABEL.width, 24)
    grey = window.screen.screenshot(window.area(area)).convert("L")
    return grey.point(lambda value: 255 if value < 100 else 0).getbbox()


def test_the_window_is_in_the_product_language(sandbox):
    drawn = {}
    for language in (None, "English", "German", "ChineseSimp", "Klingon"):
        sandbox.set_registry(language)
        program = sandbox.start()
        window = program.ready()
        drawn[language] = ink_of_title(window)
        window.click(layout.CANCEL)
        assert program.wait_exit() == 0
    # Without a translation the window shows the source texts.
    assert drawn[None] == drawn["English"] == drawn["Klingon"]
    assert len({drawn["English"], drawn["German"], drawn["ChineseSimp"]}) == 3


@pytest.mark.parametrize("row", range(4))
def test_events_are_in_english_in_every_language(sandbox, row):
    sandbox.set_registry("French")
    program = sandbox.start()
    window = program.ready()
    number = steps.choose_row(sandbox, window, row)  # found by the English text of the event
    assert (number == 4) == (row == 3)
    window.click(layout.CANCEL)
    assert program.wait_exit() == 0


def test_arabic_does_not_mirror_the_layout(sandbox):
    sandbox.set_registry("Arabic")
    program = sandbox.start()
    window = program.ready()
    window.wait_colour(layout.face(layout.CANCEL), layout.CANCEL_NORMAL)
    window.click(layout.reason(3))
    steps.wait_event(sandbox, "Result_Question_Why_Unistall")
    window.click(layout.CANCEL)
    assert program.wait_exit() == 0
