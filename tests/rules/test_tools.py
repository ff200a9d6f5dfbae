"""The tools that check every change: they report defects, and never pass without checking."""

import json
import os
import re
import shlex
import shutil
import subprocess
import sys
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
TOOLS = ROOT / "tools"

# A small project without a defect.
HEADER = "#pragma once\n\nint One(const int *p);\n"
ONE = '#include "app/one.h"\n\nint One(const int *p)\n{\n    return p == nullptr ? 1 : 2;\n}\n'
PROJECT = {
    "src/app/one.h": HEADER, "src/app/one.cpp": ONE, "src/app/windows/one.cpp": ONE,
    "src/qml/One.qml": "import QtQuick 2.14\nItem {}\n",
    "tools/one": "#!/usr/bin/python3\nONE = 1\n",
    "tools/two": '#!/bin/sh\necho "$1"\n',
}
SCOPE = ("\nint Two(int n)\n{\n    int twice = 0;\n    if (n > 1) {\n        twice = 2 * n;\n"
         "        return twice + n;\n    }\n    return 0;\n}\n")
COPY = ("struct Small\n{\n    int value;\n};\n\n"
        "inline int Value(const Small &small)\n{\n    return small.value;\n}\n")
# Defects: a file, its text, and the tool that reports it.
DEFECTS = (
    ("src/app/one.cpp", ONE.replace("    return", "  return"), "clang-format"),
    ("src/app/one.cpp", ONE.replace("nullptr", "0"), "clang-tidy"),
    ("src/app/one.h", f"{HEADER}typedef int Number;\n", "clang-tidy"),
    (".clang-tidy", "Checks: [\n", "clang-tidy"),
    ("src/app/one.h", f"{HEADER}\n{COPY}", "clazy"),
    ("src/app/one.cpp", ONE + SCOPE, "cppcheck"),
    ("src/app/windows/one.cpp", SCOPE[1:], "cppcheck"),
    ("src/app/two.cpp", ONE, "compile_commands.json"),
    ("src/qml/One.qml", "Item {", "qmllint"),
    ("tools/two", "#!/bin/sh\necho $1\n", "shellcheck"),
    ("tools/one", "#!/usr/bin/python3\nimport os\n", "pyflakes"),
    ("tools/one", '#!/usr/bin/python3\ndef one():\n    return 1 + "one"\n', "mypy"),
)


def run(*command: str | Path, **variables: str | Path) -> subprocess.CompletedProcess[str]:
    return subprocess.run(command, env=os.environ | {name: str(value) for name, value
                                                     in variables.items()},
                          capture_output=True, text=True, check=False)


@pytest.fixture(name="project")
def small_project(tmp_path: Path) -> Path:
    """A project without a defect, reached through a symbolic link."""
    folder, link = tmp_path / "a b ü (c++)", tmp_path / "link"
    folder.mkdir()
    link.symlink_to(folder)
    tools = {name: (ROOT / name).read_text("utf-8") for name in (
        ".clang-format", ".clang-tidy", "mypy.ini", "tools/lint",
        "tools/cppcheck-suppressions.txt")}
    for name, text in {**PROJECT, **tools}.items():
        (link / name).parent.mkdir(parents=True, exist_ok=True)
        (link / name).write_text(text)
    (link / "compile_commands.json").write_text(json.dumps([{
        "directory": str(folder), "file": f"{folder}/src/app/one.cpp",
        "command": f"c++ -DQT_CORE_LIB '-I{folder}/src' -c '{folder}/src/app/one.cpp'"}]))
    run("git", "init", "-q", folder)
    return link


def lint(project: Path, *files: str) -> list[str]:
    """Runs tools/lint on a project; returns the tools that report something."""
    done = run(sys.executable, project / "tools/lint", project, *files,
               MYPY_CACHE_DIR=ROOT / "build" / "mypy")
    complaints = re.findall("^tools/lint: ([^ ]+)", done.stderr, re.MULTILINE)
    assert bool(complaints) == bool(done.returncode), done.stdout + done.stderr
    return complaints


@pytest.mark.lint
@pytest.mark.parametrize("file, text, tool", DEFECTS, ids=[f"{row[2]}-{row[0]}" for row in DEFECTS])
def test_lint_finds_a_defect(project: Path, file: str, text: str, tool: str) -> None:
    (project / file).write_text(text)
    assert lint(project, "src/app/one.cpp", file) == [tool]


@pytest.mark.lint
def test_lint_checks_a_whole_project_and_fails_without_files_to_check(project: Path) -> None:
    assert lint(project) == []
    for name in ("src/app", "src/qml"):
        shutil.rmtree(project / name)
    assert lint(project) == ["clang-format", "cppcheck", "cppcheck", "clazy", "clang-tidy",
                             "qmllint"]
    assert lint(project, "src/app/one.cpp")


@pytest.mark.parametrize("wrong, reason", (
    (None, ""), ("content", "its SHA-256 is not the one in"), ("checksum", "there is no"),
))
def test_an_archive_of_the_kit_is_unpacked_only_if_it_is_intact(
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


def test_missing_packages_count_as_one_failure(tmp_path: Path) -> None:
    (tmp_path / "tools").mkdir()
    shutil.copy2(ROOT / "test", tmp_path)
    (tmp_path / "tools/bootstrap").write_text("#!/bin/sh\necho cmake is missing >&2\nexit 1\n")
    (tmp_path / "tools/bootstrap").chmod(0o755)
    done = run(tmp_path / "test")
    assert (done.returncode, done.stderr) == (1, "cmake is missing\n")
    assert done.stdout.splitlines()[-1] == "0 passed, 1 failed, 0 skipped"


def test_each_set_of_tests_is_a_preset() -> None:
    listed = json.loads((ROOT / "CMakePresets.json").read_text("utf-8"))["testPresets"]
    sets = set(re.findall(r"^  --(\w+)", run(ROOT / "test", "--help").stdout, re.MULTILINE))
    assert {"quick", "unit", "lint", "windows"} < sets <= {preset["name"] for preset in listed}


def test_a_step_over_its_budget_is_listed_but_passes(tmp_path: Path) -> None:
    script = (f'. {shlex.quote(str(TOOLS))}/steps.sh; budgets=([slow]=-1 [quick]=3600); '
              'step slow true && step quick true && step other true && '
              'printf "%s\\n" "over:" "${overran[@]}"')
    done = subprocess.run(["bash", "-c", script], cwd=tmp_path, capture_output=True, text=True,
                          check=False)
    over = done.stdout.partition("over:\n")[2].splitlines()
    assert [line.split()[0] for line in over] == ["slow"], done.stderr


@pytest.mark.parametrize("case, counts", (
    ('status="run"/>', "1 passed, 0 failed, 0 skipped"),
    ('status="fail"/>', "0 passed, 1 failed, 0 skipped"),
    ('status="notrun"><skipped message="SKIP_RETURN_CODE=77"/></testcase>',
     "0 passed, 0 failed, 1 skipped"),
    ('status="notrun"><skipped message="Unable to find executable: x"/></testcase>',
     "0 passed, 1 failed, 0 skipped"),
))
def test_the_summary_counts_a_test(tmp_path: Path, case: str, counts: str) -> None:
    (tmp_path / "all.xml").write_text(f'<testsuite><testcase name="one" {case}</testsuite>')
    done = run(TOOLS / "test-summary", tmp_path)
    assert done.stdout.splitlines()[-1] == counts
    assert done.returncode == (counts[0] == "0")
