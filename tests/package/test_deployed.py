"""The check of a folder that is to be shipped, on one made with our own Qt kit.

That one has our stand-ins for two QML modules in it, so it is never without a fault: what is asked
for here is which faults are found.
"""

from __future__ import annotations

import os
import shutil
import subprocess
from pathlib import Path

import pytest

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("KTR_BUILD", REPOSITORY / "build" / "windows"))
KIT = Path(os.environ["KTR_QT_KIT"])
OWN_STAND_INS = {
    f"a stand-in of the tests: {file}/qmldir"
    for file in ("QtGraphicalEffects", "QtQuick/Controls", "QtQuick/Controls/Styles")
}


@pytest.fixture
def folder(tmp_path: Path) -> Path:
    """A program directory with everything that the executable needs."""
    deployed = tmp_path / "bin"
    shutil.copytree(BUILD / "runtime", deployed)
    shutil.copy2(BUILD / "src" / "app" / "UninstallUI.exe", deployed)
    return deployed


def faults(folder: Path) -> set[str]:
    """The lines of the check; its status must agree with them."""
    done = subprocess.run([REPOSITORY / "packaging" / "check-deployed", folder],
                          capture_output=True, text=True, check=False)
    assert done.stderr == ""
    lines = done.stdout.splitlines()
    assert done.returncode == (1 if lines else 0)
    return set(lines)


def test_ours_has_its_stand_ins_and_no_other_fault(folder):
    assert faults(folder) == OWN_STAND_INS


def test_a_missing_library_is_named_with_who_needs_it(folder):
    (folder / "Qt5QmlModels.dll").unlink()
    found = faults(folder) - OWN_STAND_INS
    assert "missing: qt5qmlmodels.dll, which Qt5Quick.dll imports" in found
    assert all(line.startswith("missing: qt5qmlmodels.dll, ") for line in found)


def test_a_missing_plug_in(folder):
    (folder / "platforms" / "qwindows.dll").unlink()
    assert "missing: platforms/qwindows.dll" in faults(folder)


def test_a_missing_module(folder):
    shutil.rmtree(folder / "QtQuick" / "Shapes")
    assert "missing: the QML module QtQuick.Shapes" in faults(folder)


def test_superfluous_libraries_and_modules(folder):
    shutil.copy2(KIT / "bin" / "Qt5Test.dll", folder)
    shutil.copy2(KIT / "plugins" / "platforms" / "qoffscreen.dll", folder / "platforms")
    shutil.copytree(KIT / "qml" / "QtTest", folder / "QtTest")
    assert faults(folder) - OWN_STAND_INS == {
        "superfluous: Qt5Test.dll, which nothing needs",
        "superfluous: platforms/qoffscreen.dll, which nothing needs",
        "superfluous: the QML module QtTest, which nothing imports",
    }


@pytest.mark.parametrize("name", ["SkyrelWrap.DLL", "vantoronlineconfig.dll", "tasklist.exe",
                                  "uninstall.exe", "KTRUI.exe", "SkyrelWrapExe.exe"])
def test_a_stand_in(folder, name):
    shutil.copy2(BUILD / "testkit" / "fakes" / name, folder)
    assert f"a stand-in of the tests: {name}" in faults(folder)


def test_a_folder_without_the_program(folder):
    (folder / "UninstallUI.exe").unlink()
    assert faults(folder) == {f"there is no UninstallUI.exe in {folder}"}
