"""What only the Windows executable can show: its shadow, real uninstallers, the ANSI code page."""

import subprocess

import pytest

import steps
from driver import layout, wait
from driver.installation import REPOSITORY
from steps import expect_end, uninstall, wait_climbing, wait_complete

SOURCES = REPOSITORY / "tests" / "windows"


@pytest.mark.parametrize("shadow", [True, False], ids=["on", "off"])
def test_the_shadow_follows_the_setting(sandbox, shadow):
    sandbox.system.set_drop_shadow(sandbox.root, shadow)
    program = sandbox.start()
    window = program.window()
    margin = layout.SHADOW if shadow else 0
    size = (640 + 2 * margin, 408 + 2 * margin)
    wait.until(lambda: window.geometry.size, f"a window of {size}", accept=lambda seen: seen == size)
    window.wait_colour(layout.face(layout.CANCEL), layout.CANCEL_NORMAL)
    window.close()
    expect_end(sandbox, program, cleanup=False)


def make(source, into):
    """Makes a real uninstaller."""
    subprocess.run(["makensis", "-V2", f"-DOUT={into}", str(SOURCES / source)], check=True,
                   capture_output=True)


def put_product_files(sandbox):
    """Files that the real uninstallers know."""
    (sandbox.bin / "data" / "more").mkdir(parents=True)
    (sandbox.bin / "data" / "more" / "file").write_text("x", encoding="utf-8")


def removed(sandbox):
    """Whether the uninstaller has removed what it knows."""
    return not (sandbox.bin / "data").exists() and not (sandbox.bin / "KTRUI.exe").exists()


def test_a_real_uninstaller_that_works_where_it_lies(sandbox):
    put_product_files(sandbox)
    (sandbox.bin / "uninstall.exe").unlink()
    make("in-place.nsi", sandbox.bin / "uninstall.exe")
    program = sandbox.start()
    window = program.ready()
    uninstall(window)
    wait_climbing(window)
    assert not removed(sandbox), "the bar climbs while it works"
    wait_complete(window)
    # It was complete only when the uninstaller had gone.
    assert (sandbox.bin / "uninstall.ended").exists() and removed(sandbox)
    window.click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=True)


def test_a_real_uninstaller_that_hands_over_to_a_copy_of_itself(sandbox):
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
    # Its name may be gone before anybody has asked for it: then it counts as one that never appeared
    # and only the system closes the window. Else the bar is at its end before the work is.
    complete = wait.until(
        lambda: ("complete" if steps.complete_text_share(window) > 0.002 else "")
        or ("never seen" if steps.questions(sandbox) >= steps.POLLS else ""),
        "the end of the bar, or the last question for it") == "complete"
    wait.until(lambda: (sandbox.bin / "uninstall.ended").exists(), "the copy to be done")
    assert removed(sandbox)
    if complete:
        window.click(layout.CANCEL)
    else:
        window.close()
    expect_end(sandbox, program, cleanup=complete)
