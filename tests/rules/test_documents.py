"""Documents: links work, decision records are numbered and short, and no document names a path of
the machine on which it was written."""

import re
import subprocess
from pathlib import Path
from urllib.parse import unquote

import pytest

ROOT = Path(__file__).resolve().parent.parent.parent

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)|<img\s[^>]*\bsrc=\"([^\"]+)\"")
ELSEWHERE = re.compile(r"[a-z][a-z0-9+.-]*:")
# Home folders: a document may only name paths of the project, or paths that every system has.
PERSONAL = re.compile(r"(?<![\w$.}-])/(?:root|(?:home|Users)/[\w.-]+)/|"
                      r"\b[A-Z]:\\Users\\(?!A\b|A\.exe|A B\b)\w+")
OF_EVERY_SYSTEM = {"/", "/tmp", "/opt", "/srv", "/home", "/usr/src"}
CODE = re.compile(r"^(```|~~~).*?^\1\s*$|`[^`\n]*`", re.MULTILINE | re.DOTALL)


def files(*patterns):
    """The project's files of these patterns, including uncommitted ones."""
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "--deduplicate",
         *patterns],
        cwd=ROOT, capture_output=True, text=True, check=True).stdout.splitlines()
    return [ROOT / name for name in listed if (ROOT / name).is_file()]


DOCUMENTS = files("*.md")
every_document = pytest.mark.parametrize(
    "document", DOCUMENTS, ids=lambda path: path.relative_to(ROOT).as_posix())


def anchors(document):
    """The anchors that the headings of a document get when it is shown as HTML."""
    headings = re.findall(r"^#+ +(.*?)\s*$", document.read_text("utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-") for text in headings}


def links(document):
    """The targets of a document's links and images, as written; not those in code."""
    text = CODE.sub("", document.read_text("utf-8"))
    return [link or image for link, image in LINK.findall(text)]


def problem(document, link):
    """What is wrong with a link of a document; an empty text if it works."""
    if ELSEWHERE.match(link):
        return ""
    path, _, anchor = unquote(link).partition("#")
    target = (document.parent / path).resolve() if path else document
    if not target.exists():
        return f"{link}: no such file"
    if ROOT not in (target, *target.parents):
        return f"{link}: outside the project"
    if anchor and anchor not in anchors(target):
        return f"{link}: no such heading"
    return ""


def test_there_are_documents():
    names = {path.relative_to(ROOT).as_posix() for path in DOCUMENTS}
    assert {"README.md", "CONTRIBUTING.md", "CHANGELOG.md", "docs/architecture.md"} <= names


@every_document
def test_every_link_works(document):
    assert not [wrong for link in links(document) if (wrong := problem(document, link))]


@every_document
def test_no_path_of_one_machine_is_named(document):
    text = document.read_text("utf-8")
    assert not PERSONAL.findall(text)
    # Nor the folder that contains the project here.
    here = str(ROOT.parent)
    assert here in OF_EVERY_SYSTEM or f"{here}/" not in text


def test_every_document_can_be_reached_from_the_readme():
    reached, waiting = set(), [ROOT / "README.md"]
    while waiting:
        document = waiting.pop()
        if document in reached:
            continue
        reached.add(document)
        waiting += [
            target for link in links(document) if not ELSEWHERE.match(link)
            if (target := (document.parent / link.partition("#")[0]).resolve()).suffix == ".md"
            and target.exists()
        ]
    assert not {path for path in DOCUMENTS if path.is_relative_to(ROOT / "docs")} - reached


def test_decision_records_are_short_and_numbered():
    records = sorted(path for path in (ROOT / "docs/decisions").glob("*.md")
                     if path.name != "README.md")
    assert [path.name[:5] for path in records] == [f"{number:04}-" for number in
                                                  range(1, len(records) + 1)]
    listed = links(ROOT / "docs/decisions/README.md")
    for path in records:
        lines = path.read_text("utf-8").splitlines()
        assert len(lines) <= 40, path.name
        assert lines[0].startswith(f"# {path.name[:4]} "), path.name
        assert path.name in listed


@pytest.mark.parametrize("text, expected", (
    ("[a](missing.md)", ["missing.md: no such file"]),
    ("[a](README.md#nowhere)", ["README.md#nowhere: no such heading"]),
    ("[a](../outside.md)", ["../outside.md: no such file"]),
    ('<img src="missing.png" alt="">', ["missing.png: no such file"]),
    ("[a](https://torvan.example/x) `[b](missing.md)` [c](README.md#uninstallui)", []),
))
def test_a_broken_link_is_found(tmp_path, monkeypatch, text, expected):
    monkeypatch.setitem(globals(), "ROOT", tmp_path)
    (tmp_path / "README.md").write_text("# UninstallUI\n")
    document = tmp_path / "document.md"
    document.write_text(text)
    found = [wrong for link in links(document) if (wrong := problem(document, link))]
    assert found == expected


@pytest.mark.parametrize("text, found", (
    ("see /home/anna/dravik/x", True), (r"C:\Users\Anna\Desktop", True), ("/root/x", True),
    ("`/usr/bin/python3 x`", False), ("build/home/x/y", False), (r"C:\Users\A B\Temp", False),
    ("${sourceDir}/root/x", False),
))
def test_a_path_in_a_home_folder_is_found(text, found):
    assert bool(PERSONAL.search(text)) == found
