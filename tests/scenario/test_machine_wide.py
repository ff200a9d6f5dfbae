"""Processes of other installations on the same machine.

In other scenarios `tasklist` lists only the processes of the sandbox, so that scenarios can run in
parallel; here it lists all processes, as on a real machine.
"""

import pytest
from ktr import layout, steps
from ktr.sandbox import Sandbox

pytestmark = pytest.mark.machine_wide


@pytest.fixture
def elsewhere(display, lay_out):
    """A second sandbox."""
    other = Sandbox(display, lay_out)
    try:
        yield other
        other.end_started()
    finally:
        other.cleanup()


@pytest.fixture(autouse=True)
def whole_machine(sandbox):
    """Makes `tasklist` list every process."""
    sandbox.configure("tasklist", root=None)


def test_a_product_of_any_folder_counts(sandbox, elsewhere, program):
    product = elsewhere.spawn("KTRUI.exe")
    elsewhere.wait_noted("KTRUI.exe", "start")
    window = program.window()
    steps.uninstall(window)
    box = program.box()
    box.click(layout.BOX_OK)
    box.wait_gone()
    assert not sandbox.journal("uninstall.exe")

    product.kill()
    elsewhere.wait_processes("KTRUI.exe", 0)
    steps.uninstall(window)
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


def test_an_uninstaller_of_any_folder_counts(sandbox, elsewhere, program):
    sandbox.configure("uninstall.exe", run_ms=300)
    hold = elsewhere.hold("uninstall.exe")
    elsewhere.spawn("uninstall.exe", hold_file=hold)
    elsewhere.wait_noted("uninstall.exe", "start")
    window = program.window()
    steps.uninstall(window)
    sandbox.wait_noted("uninstall.exe", "end")
    steps.wait_climbing(window, 0.985)
    steps.wait_buttons_disabled(window)
    assert window.bar_fraction() < 1.0
    hold.unlink()
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


def test_only_the_companion_of_the_own_folder_is_ended(sandbox, elsewhere, program):
    hold = elsewhere.hold("SkyrelWrapExe.exe")
    elsewhere.spawn("SkyrelWrapExe.exe", hold_file=hold)
    elsewhere.wait_noted("SkyrelWrapExe.exe", "start")
    window = program.window()
    steps.uninstall(window)
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)
    assert len(elsewhere.processes("SkyrelWrapExe.exe")) == 1
    hold.unlink()
    elsewhere.wait_processes("SkyrelWrapExe.exe", 0)
