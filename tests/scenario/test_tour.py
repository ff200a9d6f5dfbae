"""The guided tour and the manual start, in a folder with spaces and non-ASCII letters.

Every change runs three languages: the right-to-left one, an Asian one, and one with a long text on
the "Submit" button. `./test --soak` runs the others, and `./run` in a copy of the sources.
"""

import csv
import os
import shutil
import subprocess
import tempfile
from pathlib import Path

import pytest

from ktr.installation import REPOSITORY, assemble
from ktr.journal import parse

FOLDER = "a b ü"
FOR_EVERY_CHANGE = ("Arabic", "ChineseSimp", "Turkish")
UNPRIVILEGED = 65534
HOUR = 3600


def languages():
    """All languages as test parameters."""
    table = REPOSITORY / "src" / "translations" / "languages.csv"
    with open(table, encoding="utf-8", newline="") as file:
        names = [row["name"] for row in csv.DictReader(file)]
    assert set(FOR_EVERY_CHANGE) < set(names)
    return [pytest.param(name, marks=() if name in FOR_EVERY_CHANGE else pytest.mark.soak)
            for name in names]


def run(*command, **options):
    """Runs a command without a display, which must succeed; returns its output."""
    environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
    done = subprocess.run(
        list(map(str, command)), env=options.pop("env", environment), text=True, check=False,
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)
    assert done.returncode == 0, done.stdout
    return done.stdout


@pytest.fixture
def folder(tmp_path):
    """A folder with spaces and a non-ASCII letter; only a failed test keeps it."""
    place = tmp_path / FOLDER
    place.mkdir()
    return place


@pytest.mark.parametrize("language", languages())
def test_every_step_of_the_tour_is_seen(folder, language):
    assemble(folder / "sandbox", language=language)
    output = run(REPOSITORY / "tools" / "ktr", "tour", "--sandbox", folder / "sandbox",
                 "--screenshots", folder / "tour")
    assert output.endswith("Every step was seen.\n")
    assert (folder / "tour" / "06-complete.png").exists()
    shutil.rmtree(folder)


def test_a_manual_start_puts_xdg_open_in_a_path_without_spaces(folder):
    # Qt starts xdg-open with a command line that it splits at spaces.
    program = folder / "program"
    program.write_text('#!/bin/sh\nxdg-open "an address"\ncommand -v xdg-open\n')
    program.chmod(0o755)
    assemble(folder / "sandbox", program=program)
    path, *_ = run(REPOSITORY / "tools" / "ktr", "start", folder / "sandbox").splitlines()
    assert path.endswith("/xdg-open") and " " not in path
    entry, = parse((folder / "sandbox" / "journal.log").read_bytes())
    assert entry.matches("xdg-open", "open") and entry.items("args") == ["an address"]
    assert not os.path.exists(path), "the link stayed"
    shutil.rmtree(folder)


@pytest.mark.soak
@pytest.mark.timeout(HOUR)
def test_an_unprivileged_user_can_run_the_tour_in_a_copy_of_the_sources():
    # Other users cannot read pytest's own folder.
    with tempfile.TemporaryDirectory(prefix="ktr-", dir="/tmp") as place:
        folder = Path(place) / FOLDER
        copy, home = folder / "copy", folder / "home"
        shutil.copytree(REPOSITORY, copy, ignore=shutil.ignore_patterns("build", ".git"))
        home.mkdir()
        as_user = {}
        if os.geteuid() == 0:
            as_user = {"user": UNPRIVILEGED, "group": UNPRIVILEGED, "extra_groups": []}
            run("chown", "-R", f"{UNPRIVILEGED}:{UNPRIVILEGED}", place)
        output = run(copy / "run", cwd=copy, **as_user,
                     env={"PATH": "/usr/local/bin:/usr/bin:/bin", "HOME": str(home)})
        assert output.endswith("Every step was seen.\n")
