"""What is installed to be shipped: these files and no other, each as it was built.

tests/rules runs the same tests on the native build.
"""

from __future__ import annotations

import os
import shutil
import subprocess
from pathlib import Path
from xml.etree import ElementTree

import pytest

REPOSITORY = Path(__file__).resolve().parents[2]
SOURCES = sorted((REPOSITORY / "src" / "translations").glob("ktr_*.ts"))
TEST_MODULES = REPOSITORY / "testkit" / "qml_modules"
ICON = REPOSITORY / "src" / "resources" / "icon" / "uninstall.ico"
BACK_TO_SOURCE = "/usr/lib/qt5/bin/lconvert"


def translated(catalogue: str) -> dict[tuple[str, str], str]:
    """The translations of a catalogue's text, by context and source."""
    return {
        (context.findtext("name", ""), message.findtext("source", "")):
            message.findtext("translation", "")
        for context in ElementTree.fromstring(catalogue).iter("context")
        for message in context.iter("message")
    }


class Installation:
    build = Path(os.environ.get("KTR_BUILD", REPOSITORY / "build" / "windows"))

    @pytest.fixture(scope="class")
    def folder(self, tmp_path_factory: pytest.TempPathFactory) -> Path:
        """The product's folder with what is installed into it, and nothing else."""
        folder = tmp_path_factory.mktemp("installed") / "Dravik"
        done = subprocess.run(["cmake", "--install", self.build, "--component", "program",
                               "--prefix", folder], capture_output=True, text=True, check=False)
        assert done.returncode == 0, done.stderr
        return folder

    @property
    def executable(self) -> Path:
        """The executable that was built, for either system."""
        built = self.build / "src" / "app" / "UninstallUI"
        for_windows = built.with_suffix(".exe")
        return for_windows if for_windows.exists() else built


class TestWhatShips(Installation):
    def test_only_these_files_are_installed(self, folder):
        installed = {path.relative_to(folder).as_posix()
                     for path in folder.rglob("*") if not path.is_dir()}
        assert SOURCES
        assert installed == {
            f"bin/{self.executable.name}", "bin/clearKTR.bat", "res/install_box.ico",
            *(f"bin/translations/{source.stem}.qm" for source in SOURCES),
        }

    def test_the_executable_is_the_one_that_was_built(self, folder):
        installed = folder / "bin" / self.executable.name
        assert installed.read_bytes() == self.executable.read_bytes()
        assert os.access(installed, os.X_OK)

    def test_script_and_icon_are_installed_unchanged(self, folder):
        script = REPOSITORY / "packaging" / "clearKTR.bat"
        assert (folder / "bin" / "clearKTR.bat").read_bytes() == script.read_bytes() != b""
        assert (folder / "res" / "install_box.ico").read_bytes() == ICON.read_bytes() != b""

    @pytest.mark.parametrize("source", SOURCES, ids=lambda source: source.stem)
    def test_a_compiled_translation_has_the_texts_of_its_source(self, folder, source):
        compiled = folder / "bin" / "translations" / f"{source.stem}.qm"
        done = subprocess.run([BACK_TO_SOURCE, "-i", compiled, "-of", "ts", "-o", "-"],
                              capture_output=True, text=True, encoding="utf-8", check=False)
        assert done.returncode == 0, done.stderr
        expected = translated(source.read_text(encoding="utf-8"))
        assert expected
        assert translated(done.stdout) == expected


class TestWithQtBesideIt(Installation):
    def test_only_the_test_modules_of_our_own_kit_are_found(self, folder):
        shutil.copytree(self.build / "runtime", folder / "bin", dirs_exist_ok=True)
        done = subprocess.run([REPOSITORY / "packaging" / "check-deployed", folder / "bin"],
                              capture_output=True, text=True, check=False)
        assert done.stderr == ""
        # Our replacements for modules of the official kit.
        assert set(done.stdout.splitlines()) == {
            f"a test module: {description.relative_to(TEST_MODULES)}"
            for description in TEST_MODULES.rglob("qmldir")
        }
