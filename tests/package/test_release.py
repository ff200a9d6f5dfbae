"""What ./package makes: the archives, the bill of materials, and the acceptance run under Wine."""

from __future__ import annotations

import getpass
import hashlib
import json
import os
import re
import shutil
import subprocess
import time
from pathlib import Path
from typing import Any
from zipfile import ZipFile

import pefile
import pytest

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("KTR_BUILD", REPOSITORY / "build" / "windows"))
KIT = Path(os.environ["KTR_QT_KIT"])
KTR = REPOSITORY / "tools" / "ktr"
ENVIRONMENT = {**os.environ, "SOURCE_DATE_EPOCH": "1700000000"}
SHORT_LIST = "tests/unit/text/convert_text_test.exe\n"
"""One test program for acceptance runs that are about something else."""


def make(into: Path, *options: str | Path) -> "subprocess.CompletedProcess[str]":
    """Makes the archives of this build."""
    return subprocess.run(
        [REPOSITORY / "packaging" / "make-archives", "--build", BUILD, "--kit", KIT,
         "--into", into, *options], env=ENVIRONMENT, capture_output=True, text=True, check=False)


@pytest.fixture(scope="module")
def release(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """The folder with the archives."""
    into = tmp_path_factory.mktemp("made") / "release"
    done = make(into)
    assert done.returncode == 0, done.stderr
    return into


def archive(release: Path, kind: str) -> ZipFile:
    """One of the archives."""
    file, = release.glob(f"UninstallUI-*-{kind}.zip")
    return ZipFile(file)


@pytest.mark.timeout(1500)  # Without ccache, everything is compiled again.
def test_two_runs_in_two_folders_are_identical(release, tmp_path):
    other = tmp_path / "another f\u00f6lder"
    files = subprocess.run(["git", "ls-files", "-z"], cwd=REPOSITORY, capture_output=True,
                           text=True, check=True).stdout.split("\0")
    for name in filter(None, files):
        (other / name).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(REPOSITORY / name, other / name)
    done = subprocess.run(["./package"], cwd=other, env=ENVIRONMENT, capture_output=True, text=True,
                          check=False)
    assert done.returncode == 0, done.stdout + done.stderr
    for file in release.iterdir():
        again = other / "build" / "release" / file.name
        assert again.read_bytes() == file.read_bytes(), file.name


def test_the_sums_are_right(release):
    done = subprocess.run(["sha256sum", "--check", "--strict", "SHA256SUMS"], cwd=release,
                          capture_output=True, text=True, check=False)
    assert done.returncode == 0, done.stdout
    assert done.stdout.count(": OK") == len(list(release.iterdir())) - 1 == 4


@pytest.mark.parametrize("kind", ["win64", "win64-symbols", "acceptance"])
def test_an_archive_does_not_tell_where_when_and_by_whom_it_was_made(release, kind):
    places = [str(place) for place in (REPOSITORY, BUILD, KIT)]
    places += [f"{home}/" for home in ("/root", Path.home(), f"/home/{getpass.getuser()}")]
    with archive(release, kind) as packed:
        for entry in packed.infolist():
            content = packed.read(entry)
            assert entry.date_time == (2023, 11, 14, 22, 13, 20), entry
            assert not [place for place in places if os.fsencode(place) in content], entry
            if content.startswith(b"MZ"):
                assert times(content) <= {0, 1700000000}, entry


def times(content: bytes) -> set[int]:
    """The times in a PE file."""
    image = pefile.PE(data=content, fast_load=True)
    image.parse_data_directories(
        [pefile.DIRECTORY_ENTRY[f"IMAGE_DIRECTORY_ENTRY_{name}"] for name in ("EXPORT", "DEBUG")])
    entries = [*getattr(image, "DIRECTORY_ENTRY_DEBUG", []),
               *filter(None, [getattr(image, "DIRECTORY_ENTRY_EXPORT", None)])]
    return {image.FILE_HEADER.TimeDateStamp, *(entry.struct.TimeDateStamp for entry in entries)}


def test_the_release_archive_has_exactly_the_files_for_the_setup(release):
    packed = archive(release, "win64")
    languages = [source.stem for source in REPOSITORY.glob("src/translations/ktr_*.ts")]
    assert len(languages) == 28
    assert packed.namelist() == sorted([
        "Dravik/bin/UninstallUI.exe", "Dravik/bin/clearKTR.bat", "Dravik/res/install_box.ico",
        *(f"Dravik/bin/translations/{language}.qm" for language in languages),
        *(f"Dravik/licenses/{name}.txt" for name in (
            "GPL-3.0", "LGPL-3.0", "NOTICE-GCC-run-time", "NOTICE-MinGW-w64", "NOTICE-Qt")),
        "QT-IS-MISSING.txt"])
    assert b"./package --qt KIT" in packed.read("QT-IS-MISSING.txt")
    for part, text in (("GCC-run-time", b"GCC RUNTIME LIBRARY EXCEPTION\n\nVersion 3.1"),
                       ("MinGW-w64", b"winpthreads/*\nCopyright:")):
        assert text in packed.read(f"Dravik/licenses/NOTICE-{part}.txt")


def test_a_debugger_finds_the_symbols(release, tmp_path):
    archive(release, "win64").extractall(tmp_path)
    archive(release, "win64-symbols").extractall(tmp_path)
    done = subprocess.run(
        ["gdb", "-nx", "-batch", "-iex", f"set debug-file-directory {tmp_path}", "-ex",
         "info line LaunchCleanupCommand", tmp_path / "Dravik" / "bin" / "UninstallUI.exe"],
        capture_output=True, text=True, check=False)
    assert '"src/app/process_utils.cpp" starts at' in done.stdout, done.stdout + done.stderr


def bill_of_materials(release: Path) -> dict[str, Any]:
    """The bill of a release."""
    file, = release.glob("*.spdx.json")
    bill: dict[str, Any] = json.loads(file.read_text(encoding="utf-8"))
    return bill


def relations(bill: dict[str, Any]) -> set[tuple[str, str, str]]:
    """Which part uses which, and how."""
    return {(relation["spdxElementId"].removeprefix("SPDXRef-"), relation["relationshipType"],
             relation["relatedSpdxElement"].removeprefix("SPDXRef-"))
            for relation in bill["relationships"]}


def test_the_bill_of_materials_lists_each_part_and_the_executable_s_checksum(release):
    bill = bill_of_materials(release)
    assert bill["spdxVersion"] == "SPDX-2.3"
    assert bill["creationInfo"]["created"] == "2023-11-14T22:13:20Z"
    parts = {part["name"]: part for part in bill["packages"]}
    assert parts["Qt"]["versionInfo"] == "5.15.8"
    assert len(parts) == 4
    for part in parts.values():
        assert re.fullmatch(r"\d+\.\d+\.\d+", part["versionInfo"]), part
        assert part["supplier"].startswith("Organization: ") and part["licenseDeclared"]
    program = archive(release, "win64").read("Dravik/bin/UninstallUI.exe")
    digest, = parts["UninstallUI"]["checksums"]
    assert digest["checksumValue"] == hashlib.sha256(program).hexdigest()
    assert relations(bill) == {
        ("DOCUMENT", "DESCRIBES", "UninstallUI"), ("UninstallUI", "DYNAMIC_LINK", "Qt"),
        ("UninstallUI", "STATIC_LINK", "GCC-run-time-libraries"),
        ("UninstallUI", "STATIC_LINK", "MinGW-w64-run-time-and-winpthreads")}


def test_the_files_of_a_kit_are_added(release, tmp_path):
    kit = tmp_path / "kit"
    for folder in ("bin", "plugins"):
        (kit / folder).parent.mkdir(exist_ok=True)
        (kit / folder).symlink_to(KIT / folder)
    shutil.copytree(KIT / "qml", kit / "qml")
    shutil.copytree(REPOSITORY / "testkit" / "qml_modules", kit / "qml", dirs_exist_ok=True)
    # A failure leaves the previous release.
    into = tmp_path / "made" / "release"
    shutil.copytree(release, into)
    refused = make(into, "--qt", kit)
    assert refused.returncode != 0 and "a test module: QtQuick/Controls" in refused.stderr
    assert f"{into} is unchanged" in refused.stderr
    for file in release.iterdir():
        assert (into / file.name).read_bytes() == file.read_bytes(), file.name
    for file in kit.glob("qml/**/qmldir"):
        text = file.read_text(encoding="utf-8")
        file.write_text(text.replace("# for tests only", "#"), encoding="utf-8")
    done = make(into, "--qt", kit)
    assert done.returncode == 0, done.stderr
    assert list(into.parent.iterdir()) == [into]
    packed = archive(into, "win64")
    assert packed.read("Dravik/bin/Qt5Core.dll") == (KIT / "bin" / "Qt5Core.dll").read_bytes()
    names = packed.namelist()
    assert {"Dravik/bin/Qt5Quick.dll", "Dravik/bin/platforms/qwindows.dll",
            "Dravik/bin/QtQuick/Shapes/qmldir"} < set(names)
    assert [name for name in names if "MISSING" in name] == ["SOURCES-ARE-MISSING.txt"]
    assert b"KIT/SOURCES-Qt.txt" in packed.read("SOURCES-ARE-MISSING.txt")
    bill = bill_of_materials(into)
    parts = {part["name"]: part for part in bill["packages"]}
    for library in ("libgcc_s_seh-1.dll", "libstdc++-6.dll", "libwinpthread-1.dll"):
        digest, = parts[library]["checksums"]
        content = packed.read(f"Dravik/bin/{library}")
        assert digest["checksumValue"] == hashlib.sha256(content).hexdigest()
        assert ("Qt", "DYNAMIC_LINK", parts[library]["SPDXID"][8:]) in relations(bill)
    (kit / "SOURCES-Qt.txt").write_text("Ask us.\n", encoding="ascii")
    done = make(into, "--qt", kit)
    assert done.returncode == 0, done.stderr
    names = archive(into, "win64").namelist()
    assert "Dravik/licenses/SOURCES-Qt.txt" in names
    assert not [name for name in names if "MISSING" in name]


def test_a_folder_that_is_no_kit_is_refused_before_the_build(tmp_path):
    done = subprocess.run([REPOSITORY / "package", "--qt", "."], cwd=tmp_path, capture_output=True,
                          text=True, check=False)
    assert done.returncode == 2 and f"{tmp_path} has no bin/Qt5Core.dll" in done.stderr


@pytest.fixture
def unpacked(release, tmp_path) -> Path:
    """The acceptance archive, unpacked in a folder with a difficult name."""
    folder = tmp_path / "unpacked p\u00e4th ! & \u65e5 (1)"
    archive(release, "acceptance").extractall(folder)
    return folder


def start(folder: Path, *options: str, tests: str = "*") -> "subprocess.Popen[str]":
    """Starts the checks of an unpacked acceptance archive under Wine, in a prefix of its own."""
    tools = folder.parent / "tools"
    if not tools.exists():
        tools.mkdir()
        (tools / "xdg-open").symlink_to("/bin/true")  # Wine opens pages with it.
    environment = {**ENVIRONMENT, "GTEST_FILTER": tests, "PATH": f"{tools}:{os.environ['PATH']}"}
    del environment["KTR_QT_KIT"]  # The archive brings its own Qt.
    return subprocess.Popen(
        [KTR, "display", "--", "env", f"KTR_WINEPREFIX={folder.parent / 'prefix'}",
         KTR, "wine", "--", "cmd", "/c", "acceptance.cmd", *options],
        cwd=folder, env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT, text=True, errors="replace")


def end_wine(folder: Path) -> None:
    """Ends all programs of the prefix."""
    subprocess.run(["wineserver", "-k"], check=True,
                   env={**os.environ, "WINEPREFIX": str(folder.parent / "prefix")})


def traces(folder: Path) -> set[str]:
    """All files and registry keys of the prefix."""
    prefix = folder.parent / "prefix"
    return {str(path) for path in (prefix / "drive_c").rglob("*")} | {
        line.split("]")[0] for hive in ("user.reg", "system.reg")
        for line in (prefix / hive).read_text(encoding="utf-8").splitlines() if line[:1] == "["}


def accept(folder: Path, *options: str, answers: str = "", tests: str = "*") -> tuple[int, str]:
    """Runs the checks; returns the status and what they print."""
    subprocess.run([KTR, "wine", "--", "cmd", "/c", "exit"], check=True,
                   env={**os.environ, "KTR_WINEPREFIX": str(folder.parent / "prefix")})
    end_wine(folder)
    before = traces(folder)
    with start(folder, *options, tests=tests) as checks:
        output, _ = checks.communicate(answers, timeout=900)
    end_wine(folder)
    assert not traces(folder) - before, output
    return checks.returncode, output


def rows_of(folder: Path) -> dict[str, str]:
    """The state of each row of a report."""
    report = (folder / "report.html").read_text(encoding="utf-8")
    return {name: state for state, name in re.findall(
        r'<tr><td><span class="[^"]*">([^<]*)</span></td><td>([^<]*)', report)}


@pytest.mark.timeout(1200)
def test_the_acceptance_archive_passes_under_wine(unpacked):
    before = {path: path.stat().st_mtime_ns for path in unpacked.rglob("*") if path.is_file()}
    status, output = accept(unpacked, "/unattended")
    assert status == 0, output
    after = {path: path.stat().st_mtime_ns for path in unpacked.rglob("*") if path.is_file()}
    assert after.pop(unpacked / "report.html") and after == before
    rows = rows_of(unpacked)
    assert set(rows.values()) == {"passed", "not shown"}
    assert rows["CleanUp.RemovesTheProductFolderAndItself"] == "passed"
    assert rows["Start.ShowsAWindowThatClosesWithoutACleanUp"] == "passed"
    # Wine cannot show that a link is removed, and nobody looked at the window.
    assert rows["CleanUp.DoesNotFollowAJunction"] == rows["The window opens"] == "not shown"
    report = (unpacked / "report.html").read_text(encoding="utf-8")
    for line in (unpacked / "files" / "unit-programs.txt").read_text(encoding="ascii").splitlines():
        assert f"<b>{Path(line).stem}</b>" in report
    facts = dict(re.findall(r"<tr><th>([^<]*)</th><td>([^<]*)", report))
    assert re.fullmatch(r"10\.0, build \d+\.\d+, reported by Wine .*", facts["Windows"])
    assert re.fullmatch(r"\d+ \(ANSI\), \d+ \(OEM\)", facts["Code page"])
    assert facts["Scale"] == "100 %"
    assert re.fullmatch(r"Segoe UI \w+, Microsoft YaHei \w+", facts["Fonts"])
    assert re.fullmatch(r"\d+, \d+, \d+ ms to the window", facts["Start-up"])


@pytest.mark.parametrize("last, status", [("y", 0), ("No, no\u00ebl", 1), ("s", 1)])
def test_a_person_decides_about_each_step(unpacked, last, status):
    (unpacked / "files" / "unit-programs.txt").write_text(SHORT_LIST, encoding="ascii")
    # An answer that is none of the three is asked for again.
    answers = "\nwhat?\ny sharp & clear\n" + "\ny\n" * 7 + f"\n{last}\n\n"
    seen, output = accept(unpacked, answers=answers, tests="Start.*:ConvertText.*")
    assert seen == status, output
    rows = rows_of(unpacked)
    assert rows["The window opens"] == rows["The main job"] == "passed"
    assert rows["Logging off"] == {"y": "passed", "N": "failed", "s": "not shown"}[last[0]]
    report = (unpacked / "report.html").read_text(encoding="utf-8")
    assert "sharp &amp; clear" in report and last.partition(" ")[2] in report


def interrupt(folder: Path, answers: str, step: int) -> str:
    """Answers until a step begins, and ends all programs; returns what the checks have printed."""
    with start(folder, tests="Start.*:ConvertText.*") as checks:
        assert checks.stdin and checks.stdout
        checks.stdin.write(answers)
        checks.stdin.flush()
        page = folder / "report.html"
        while not (page.exists() and f"<h2>Step {step}" in page.read_text(encoding="utf-8")):
            assert checks.poll() is None
            time.sleep(0.1)
        with start(folder) as second:
            output, _ = second.communicate(timeout=900)
            assert second.returncode == 2 and "run already" in output
        end_wine(folder)
        return checks.stdout.read()


def test_the_steps_resume_after_logging_off(unpacked):
    (unpacked / "files" / "unit-programs.txt").write_text(SHORT_LIST, encoding="ascii")
    interrupt(unpacked, "\ny\n\nn before\n", 3)
    output = interrupt(unpacked, "\ny\n" * 6, 9)
    # The tests are not repeated, and each step is done, "Logging off" included.
    assert "convert_text_test" not in output and output.count("Press Enter") == 7, output
    status, output = accept(unpacked, answers="y\n\n", tests="Start.*:ConvertText.*")
    assert status == 1 and "convert_text_test" not in output, output
    rows = rows_of(unpacked)
    assert rows["Logging off"] == rows["Start.ShowsAWindowThatClosesWithoutACleanUp"] == "passed"
    assert [name for name, state in rows.items() if state == "failed"] == ["A reason and an answer"]


def test_another_archive_does_not_resume(unpacked):
    (unpacked / "files" / "unit-programs.txt").write_text(SHORT_LIST, encoding="ascii")
    interrupt(unpacked, "\nn before\n", 2)
    with (unpacked / "files" / "clearKTR.bat").open("ab") as script:
        script.write(b"\r\n")
    status, output = accept(unpacked, answers="\ny\n" * 9 + "\n", tests="Start.*:ConvertText.*")
    assert status == 0 and "convert_text_test passed" in output, output


def test_a_failed_check_fails_the_acceptance(unpacked):
    files = unpacked / "files"
    program = "tests/unit/app/app_test.exe"
    (files / "unit-programs.txt").write_text(f"testkit/fakes/note.exe\n{program}\n",
                                             encoding="ascii")
    # OpenProcess without PROCESS_TERMINATE.
    code, rights = (files / program).read_bytes(), b"\xb9\x01\x10\x00\x00"
    assert code.count(rights) == 1
    (files / program).write_bytes(code.replace(rights, b"\xb9\x00\x10\x00\x00"))
    script = (files / "clearKTR.bat").read_bytes()
    # Without this step, Wine's rd /s follows links.
    planted = script.replace(b"    call :unlink\r\n", b"")
    assert planted != script
    (files / "clearKTR.bat").write_bytes(planted)
    status, output = accept(unpacked, "/unattended",
                            tests="CleanUp.*Junction:CleanUp.RemovesThe*:ProcessUtils.Telemetry*")
    assert status == 1, output
    rows = rows_of(unpacked)
    assert rows["The program itself"] == rows["CleanUp.DoesNotFollowAJunction"] == "failed"
    assert [name for name in rows if name.startswith("ProcessUtils.") and rows[name] == "failed"]
    assert rows["CleanUp.RemovesTheProductFolderAndItself"] == "passed"


def test_checks_that_cannot_run_are_not_passed(unpacked):
    shutil.rmtree(unpacked / "files" / "sandbox")
    (unpacked / "report.html").write_text("passed", encoding="ascii")
    status, output = accept(unpacked, "/unattended", tests="Start.*")
    assert status == 2, output
    assert rows_of(unpacked)["The checks"] == "failed"
    (unpacked / "files" / "acceptance.exe").unlink()
    status, output = accept(unpacked, "/unattended")
    assert status == 2 and "Unpack the whole archive" in output
