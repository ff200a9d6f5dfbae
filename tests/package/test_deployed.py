"""The check of a folder before it ships, on one that was deployed with our own Qt kit.

That folder contains our replacements for three QML modules, so the check never passes here: the
tests look at which problems it finds.
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
TEST_MODULES = {
    f"a test module: {file}/qmldir"
    for file in ("QtGraphicalEffects", "QtQuick/Controls", "QtQuick/Controls/Styles")
}


@pytest.fixture
def folder(tmp_path: Path) -> Path:
    """A program directory with everything that the executable needs."""
    deployed = tmp_path / "bin"
    shutil.copytree(BUILD / "runtime", deployed)
    shutil.copy2(BUILD / "src" / "app" / "UninstallUI.exe", deployed)
    return deployed


def problems(folder: Path) -> set[str]:
    """The lines that the check prints; its exit code must agree with them."""
    done = subprocess.run([REPOSITORY / "packaging" / "check-deployed", folder],
                          capture_output=True, text=True, check=False)
    assert done.stderr == ""
    lines = done.stdout.splitlines()
    assert done.returncode == (1 if lines else 0)
    return set(lines)


def test_only_the_test_modules_of_our_own_kit_are_found(folder):
    assert problems(folder) == TEST_MODULES


def test_a_missing_library_is_found_with_the_library_that_imports_it(folder):
    (folder / "Qt5QmlModels.dll").unlink()
    found = problems(folder) - TEST_MODULES
    assert "missing: qt5qmlmodels.dll, which Qt5Quick.dll imports" in found
    assert all(line.startswith("missing: qt5qmlmodels.dll, ") for line in found)


def test_a_missing_plug_in_is_found(folder):
    (folder / "platforms" / "qwindows.dll").unlink()
    assert "missing: platforms/qwindows.dll" in problems(folder)


def test_a_missing_qml_module_is_found(folder):
    shutil.rmtree(folder / "QtQuick" / "Shapes")
    assert "missing: the QML module QtQuick.Shapes" in problems(folder)


def test_superfluous_libraries_and_modules_are_found(folder):
    shutil.copy2(KIT / "bin" / "Qt5Test.dll", folder)
    shutil.copy2(KIT / "plugins" / "platforms" / "qoffscreen.dll", folder / "platforms")
    shutil.copytree(KIT / "qml" / "QtTest", folder / "QtTest")
    assert problems(folder) - TEST_MODULES == {
        "superfluous: Qt5Test.dll, which nothing needs",
        "superfluous: platforms/qoffscreen.dll, which nothing needs",
        "superfluous: the QML module QtTest, which nothing imports",
    }


@pytest.mark.parametrize("name", ["SkyrelWrap.DLL", "vantoronlineconfig.dll", "tasklist.exe",
                                  "uninstall.exe", "KTRUI.exe", "SkyrelWrapExe.exe"])
def test_a_fake_is_found(folder, name):
    shutil.copy2(BUILD / "testkit" / "fakes" / name, folder)
    assert f"a test module: {name}" in problems(folder)


def test_a_missing_program_is_found(folder):
    (folder / "UninstallUI.exe").unlink()
    assert problems(folder) == {f"there is no UninstallUI.exe in {folder}"}
