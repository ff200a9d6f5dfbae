"""Only for the Windows executable: its shadow, real uninstallers, the ANSI code page."""

import shutil
import subprocess
import tempfile
from pathlib import Path

import pytest

from ktr import layout, steps, wait
from ktr.installation import REPOSITORY
from ktr.sandbox import Sandbox
from ktr.tree import compare, snapshot
from ktr.steps import expect_end, uninstall, wait_climbing, wait_complete
from ktr.system import all_processes
from ktr.wine import WINE_PREFIX

SOURCES = REPOSITORY / "tests" / "package"


# Else a start fails now and then: see prefix.fix_addresses and Wine._import.
def test_wines_own_processes_have_the_display_and_fixed_addresses(sandbox):
    permitted = subprocess.run(["setarch", "--addr-no-randomize", "true"], check=False,
                               stderr=subprocess.DEVNULL).returncode == 0
    own = [process for process in all_processes()
           if process.variable("WINEPREFIX") == str(sandbox.root / WINE_PREFIX)]
    assert own
    for process in own:
        assert process.variable("DISPLAY") == sandbox.display.name, process
        personality = int(Path(f"/proc/{process.pid}/personality").read_text(), 16)
        assert bool(personality & 0x40000) == permitted, process


@pytest.mark.parametrize("percent", [100, 125, 150, 200])
@pytest.mark.parametrize("shadow", [True, False], ids=["shadow", "no shadow"])
def test_the_window_size_follows_shadow_and_scale(sandbox, shadow, percent):
    sandbox.system.set_drop_shadow(sandbox.root, shadow)
    sandbox.system.set_scale(sandbox.root, percent)
    program = sandbox.start()
    window = program.window()
    margin = layout.SHADOW if shadow else 0

    def scaled(place):
        return layout.Point(*(round((margin + at) * percent / 100) for at in (place.x, place.y)))

    size = tuple((length + 2 * margin) * percent // 100 for length in layout.CARD.size)

    def fits(seen: tuple[int, int]) -> bool:
        return all(abs(a - b) <= 1 for a, b in zip(seen, size))

    wait.until(lambda: window.geometry.size, f"a window of {size}", accept=fits)
    origin = window.geometry.origin

    def wait_colour(place, colour):
        at = scaled(place)
        window.screen.wait_colour(at.moved(origin.x, origin.y), colour)

    wait_colour(layout.face(layout.CANCEL), layout.CANCEL_NORMAL)
    if shadow:
        # The shadow fades from the card to the edge of the window.
        middle = size[1] // 2
        edge, beside_card, card = (window.opacity(layout.Point(x, middle)) for x in (
            0, scaled(layout.Point(-2, 0)).x, scaled(layout.Point(2, 0)).x))
        assert edge < beside_card < card == 255
        assert window.opacity(layout.Point(0, 0)) == 0
    window.close()
    expect_end(sandbox, program, cleanup=False)


def make(source, into):
    """Builds a real uninstaller."""
    subprocess.run(["makensis", "-V2", f"-DOUT={into}", str(SOURCES / source)], check=True,
                   capture_output=True)


def put_product_files(sandbox):
    """Creates the files that the real uninstallers remove."""
    (sandbox.bin / "data" / "more").mkdir(parents=True)
    (sandbox.bin / "data" / "more" / "file").write_text("x", encoding="utf-8")


def removed(sandbox):
    """Whether the uninstaller has removed its files."""
    return not (sandbox.bin / "data").exists() and not (sandbox.bin / "KTRUI.exe").exists()


def test_the_bar_waits_for_a_real_uninstaller(sandbox):
    put_product_files(sandbox)
    (sandbox.bin / "uninstall.exe").unlink()
    make("in-place.nsi", sandbox.bin / "uninstall.exe")
    program = sandbox.start()
    window = program.ready()
    uninstall(window)
    wait_climbing(window)
    assert not removed(sandbox), "the bar must climb while the uninstaller works"
    wait_complete(window)
    # The bar completes only after the uninstaller has ended.
    assert (sandbox.bin / "uninstall.ended").exists() and removed(sandbox)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


def test_the_bar_does_not_wait_for_the_copy_that_a_real_uninstaller_starts(sandbox):
    put_product_files(sandbox)
    (sandbox.bin / "uninstall.exe").unlink()
    make("handing-over.nsi", sandbox.bin / "writer.exe")
    writer = sandbox.spawn("writer.exe")
    assert writer.wait_exit() == 0
    assert (sandbox.bin / "uninstall.exe").exists()
    sandbox.configure("tasklist", note=1)
    program = sandbox.start()
    window = program.ready()
    uninstall(window)
    # The original may end before the first query: then it counts as one that never appeared, and
    # only the window manager closes the window. Otherwise the bar completes before the copy's work.
    complete = wait.until(
        lambda: ("complete" if steps.complete_text_seen(window) else "")
        or ("never seen" if steps.uninstaller_queries(sandbox) >= steps.POLLS else ""),
        "the end of the bar, or the last query") == "complete"
    wait.until(lambda: (sandbox.bin / "uninstall.ended").exists(), "the copy to end")
    assert removed(sandbox)
    if complete:
        window.click(layout.CANCEL)
    else:
        window.close()
    expect_end(sandbox, program, cleanup=complete)


# Folders with non-ASCII names -------------------------------------------------------------------

BEYOND_THE_CODE_PAGE = "Дравик 中文"
"""Letters that the ANSI code page lacks; `LoadLibraryA` and `CreateProcessA` take ANSI text."""


@pytest.fixture
def sandbox_in(display):
    """Creates a sandbox in a folder of a given name."""
    display.reset()
    base = Path(tempfile.mkdtemp(prefix="ktr-"))
    made = []

    def make(name):
        made.append(Sandbox(display, root=base / name))
        return made[0]

    yield make
    for sandbox in made:
        sandbox.end_started()
        assert not sandbox.leftovers()
        sandbox.cleanup()
    display.reset()
    shutil.rmtree(base)


def run_through(sandbox, **variables):
    """Uninstalls, up to the end of the program."""
    before = sandbox.snapshot()
    program = sandbox.start(environment=variables)
    window = program.ready()
    uninstall(window)
    wait_complete(window)
    window.click(layout.CANCEL)
    assert program.wait_exit() == 0
    assert not sandbox.instance_lock_held()
    assert sandbox.read_handle() is None
    # Only the uninstaller has removed files, in a folder of any name.
    difference = compare(before, sandbox.snapshot())
    assert sorted(difference.removed) == [
        f"Dravik/bin/{name}" for name in
        ("Dravik.dat", "presets", "presets/default.preset", "presets/studio.preset", "readme.txt")]
    assert not difference.changed
    return program, difference.added


def temp_in(sandbox, folder):
    """The variables that set the temp directory."""
    return dict.fromkeys(("TEMP", "TMP"), sandbox.shown(folder))


@pytest.mark.parametrize("name", ["with spaces", "Ümläüte é"])
def test_a_folder_name_within_the_code_page_works(sandbox_in, name):
    sandbox = sandbox_in(name)
    program, added = run_through(sandbox)
    expect_end(sandbox, program, cleanup=True)
    assert added == ["tmp/clearKTR.bat"]
    assert [event[1] for event in steps.events(sandbox)] == ["Click_Uninstall"]


def test_a_product_folder_may_have_special_characters_of_cmd(sandbox_in, tmp_path):
    sandbox = sandbox_in("a & b (c) ^d!")
    program, _ = run_through(sandbox, **temp_in(sandbox, tmp_path))
    expect_end(sandbox, program, cleanup=True)


def test_a_temp_folder_beyond_the_code_page_prevents_the_clean_up(sandbox):
    folder = sandbox.temp / BEYOND_THE_CODE_PAGE
    folder.mkdir()
    _, added = run_through(sandbox, **temp_in(sandbox, folder))
    assert added == [f"tmp/{BEYOND_THE_CODE_PAGE}/clearKTR.bat"]
    assert [event[1] for event in steps.events(sandbox)] == ["Click_Uninstall"]
    sandbox.wait_processes("SkyrelWrapExe.exe", 0)
    assert not sandbox.journal("clearKTR.bat")


@pytest.mark.parametrize("name, similar", [("Łódź", "Lódz"), ("Дравик 中文", None)])
def test_a_product_folder_beyond_the_code_page_prevents_events_and_clean_up(
        sandbox_in, tmp_path, name, similar):
    """Everything else works, and no folder with a similar name is used instead."""
    sandbox = sandbox_in(name)
    if similar:
        decoy = sandbox.root.with_name(similar)
        shutil.copytree(sandbox.root / "Dravik", decoy / "Dravik")
        (decoy / "Dravik" / "bin" / "hwndFile.ini").write_bytes(bytes(8))
        before = snapshot(decoy, ("Dravik",))
    run_through(sandbox, **temp_in(sandbox, tmp_path))
    assert (tmp_path / "clearKTR.bat").exists()
    for image in ("SkyrelWrap.DLL", "SkyrelWrapExe.exe", "clearKTR.bat"):
        assert not sandbox.journal(image)
    if similar:
        assert not compare(before, snapshot(decoy, ("Dravik",)))
