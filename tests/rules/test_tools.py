"""The tools that every change passes through: they say what is wrong, and never that all is well
when they have not looked."""

import os
import shutil
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
TOOLS = ROOT / "tools"

ONE = "int One(const int *p)\n{\n    return p == nullptr ? 1 : 2;\n}\n"
# What is planted in a small project, and how the lint complains.
PLANTED: dict[str, tuple[dict[str, str], str]] = {
    "nothing": ({}, ""),
    "a defect": ({"src/app/one.cpp": ONE.replace("nullptr", "0")}, "clang-tidy"),
    "a broken configuration": ({".clang-tidy": "Checks: [\n"}, "clang-tidy"),
    "a wrong type": ({"tools/one": '#!/usr/bin/python3\nNUMBER: int = "one"\n'}, "mypy"),
}


def run(*command: str | Path, **variables: str | Path) -> subprocess.CompletedProcess[str]:
    return subprocess.run(command, env=os.environ | {name: str(value) for name, value
                                                     in variables.items()},
                          capture_output=True, text=True, check=False)


@pytest.mark.lint
@pytest.mark.parametrize("planted", PLANTED)
def test_the_lint_finds(tmp_path: Path, planted: str) -> None:
    for name in (".clang-format", ".clang-tidy", "mypy.ini", "tools/lint", "tools/steps.sh",
                 "tools/cppcheck-suppressions.txt"):
        (tmp_path / name).parent.mkdir(exist_ok=True)
        shutil.copy2(ROOT / name, tmp_path / name)
    changed, complaint = PLANTED[planted]
    files = {"src/app/one.cpp": ONE, "src/app/windows/one.cpp": ONE,
             "src/qml/One.qml": "import QtQuick 2.14\nItem {}\n",
             "tools/one": "#!/usr/bin/python3\nNUMBER: int = 1\n"}
    for name, text in (files | changed).items():
        (tmp_path / name).parent.mkdir(parents=True, exist_ok=True)
        (tmp_path / name).write_text(text)
    (tmp_path / "compile_commands.json").write_text(
        f'[{{"directory": "{tmp_path}", "file": "src/app/one.cpp",'
        ' "command": "c++ -DQT_CORE_LIB -c src/app/one.cpp"}]')
    run("git", "init", "-q", tmp_path)
    lint = run(tmp_path / "tools/lint", ".")
    said = [line for line in lint.stderr.splitlines() if line.startswith("tools/lint: ")]
    assert bool(lint.returncode) == bool(complaint), lint.stdout + lint.stderr
    assert [line.split()[1] for line in said] == ([complaint] if complaint else []), lint.stdout


@pytest.mark.parametrize("wrong, reason", (
    (None, ""), ("content", "its SHA-256 is not the one in"), ("checksum", "there is no"),
))
def test_a_kit_comes_out_of_an_archive_as_it_went_in(
    tmp_path: Path, wrong: str | None, reason: str
) -> None:
    script = TOOLS / "windows-qt-kit"
    here, there, archives = tmp_path / "here", tmp_path / "there", tmp_path / "archives"
    kit = Path(run(script, "--check", XDG_CACHE_HOME=here).stdout.strip())
    (kit / "lib").mkdir(parents=True)
    (kit / "lib" / "one.dll").write_bytes(b"one")
    (kit / "complete").touch()
    archives.mkdir()
    packed = run(script, "--archive", archives, XDG_CACHE_HOME=here)
    archive = Path(packed.stdout.strip())
    assert archive.name == f"{kit.name}.tar.zst", packed.stderr
    if wrong == "content":
        archive.write_bytes(archive.read_bytes() + b"\0")
    elif wrong == "checksum":
        archive.with_name(f"{archive.name}.sha256").unlink()
    # Building from source begins with a download, which fails here.
    (tmp_path / "bin").mkdir()
    (tmp_path / "bin" / "apt-get").write_text("#!/bin/sh\nexit 1\n")
    (tmp_path / "bin" / "apt-get").chmod(0o755)
    got = run(script, XDG_CACHE_HOME=there, KTR_QT_KIT_ARCHIVES=f"/nowhere:{archives}",
              PATH=f"{tmp_path}/bin:{os.environ['PATH']}")
    unpacked = there / kit.relative_to(here)
    if wrong is None:
        assert (got.returncode, got.stdout, got.stderr) == (0, f"{unpacked}\n", "")
        assert (unpacked / "lib" / "one.dll").read_bytes() == b"one"
    else:
        assert f"{archive} is not used: {reason}" in got.stderr
        assert "this failed: download the sources" in got.stderr
        assert got.returncode != 0 and not unpacked.exists()


def test_a_step_over_its_budget_is_listed_and_passes(tmp_path: Path) -> None:
    script = (f'. {TOOLS}/steps.sh; budgets=([slow]=-1 [quick]=3600); step slow true && '
              'step quick true && step other true && printf "%s\\n" "over:" "${overran[@]}"')
    done = subprocess.run(["bash", "-c", script], cwd=tmp_path, capture_output=True, text=True,
                          check=False)
    over = done.stdout.partition("over:\n")[2].splitlines()
    assert [line.split()[0] for line in over] == ["slow"], done.stderr
