"""Documents: links lead somewhere, records are numbered and short, and nothing names the machine on
which a document was written."""

import re
import subprocess
from pathlib import Path
from urllib.parse import unquote

import pytest

ROOT = Path(__file__).resolve().parent.parent.parent

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)|<img\s[^>]*\bsrc=\"([^\"]+)\"")
ELSEWHERE = re.compile(r"[a-z][a-z0-9+.-]*:")
# Folders of a person; a document names places of the project, or of every system.
PERSONAL = re.compile(r"(?<![\w$.}-])/(?:root|(?:home|Users)/[\w.-]+)/|"
                      r"\b[A-Z]:\\Users\\(?!A\b|A\.exe|A B\b)\w+")
OF_EVERY_SYSTEM = {"/", "/tmp", "/opt", "/srv", "/home", "/usr/src"}
CODE = re.compile(r"^(```|~~~).*?^\1\s*$|`[^`\n]*`", re.MULTILINE | re.DOTALL)


def files(*patterns):
    """The project's own files of these patterns, also those that are not committed yet."""
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "--deduplicate",
         *patterns],
        cwd=ROOT, capture_output=True, text=True, check=True).stdout.splitlines()
    return [ROOT / name for name in listed if (ROOT / name).is_file()]


DOCUMENTS = files("*.md")
every_document = pytest.mark.parametrize(
    "document", DOCUMENTS, ids=lambda path: path.relative_to(ROOT).as_posix())


def anchors(document):
    """What a link may name within a document: its headings, written as the web page writes them."""
    headings = re.findall(r"^#+ +(.*?)\s*$", document.read_text("utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-") for text in headings}


def links(document):
    """Where a document's links and pictures lead, as they are written; not those in code."""
    text = CODE.sub("", document.read_text("utf-8"))
    return [link or picture for link, picture in LINK.findall(text)]


def fault(document, link):
    """What is wrong with a link of a document; nothing, or a text."""
    if ELSEWHERE.match(link):
        return ""
    path, _, anchor = unquote(link).partition("#")
    target = (document.parent / path).resolve() if path else document
    if not target.exists():
        return f"{link}: there is no such file"
    if ROOT not in (target, *target.parents):
        return f"{link}: leads out of the project"
    if anchor and anchor not in anchors(target):
        return f"{link}: there is no such heading"
    return ""


def test_there_are_documents():
    names = {path.relative_to(ROOT).as_posix() for path in DOCUMENTS}
    assert {"README.md", "CONTRIBUTING.md", "CHANGELOG.md", "docs/architecture.md"} <= names


@every_document
def test_links_lead_somewhere(document):
    assert not [wrong for link in links(document) if (wrong := fault(document, link))]


@every_document
def test_no_place_of_one_machine_is_named(document):
    text = document.read_text("utf-8")
    assert not PERSONAL.findall(text)
    # Beside which the project lies here, too.
    here = str(ROOT.parent)
    assert here in OF_EVERY_SYSTEM or f"{here}/" not in text


def test_every_document_can_be_reached_from_the_first_page():
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


def test_the_records_of_decisions_are_short_and_numbered():
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
    ("[a](missing.md)", ["missing.md: there is no such file"]),
    ("[a](README.md#nowhere)", ["README.md#nowhere: there is no such heading"]),
    ("[a](../outside.md)", ["../outside.md: there is no such file"]),
    ('<img src="missing.png" alt="">', ["missing.png: there is no such file"]),
    ("[a](https://torvan.example/x) `[b](missing.md)` [c](README.md#uninstallui)", []),
))
def test_a_wrong_link_is_found(tmp_path, monkeypatch, text, expected):
    monkeypatch.setitem(globals(), "ROOT", tmp_path)
    (tmp_path / "README.md").write_text("# UninstallUI\n")
    document = tmp_path / "document.md"
    document.write_text(text)
    found = [wrong for link in links(document) if (wrong := fault(document, link))]
    assert found == expected


@pytest.mark.parametrize("text, found", (
    ("see /home/anna/dravik/x", True), (r"C:\Users\Anna\Desktop", True), ("/root/x", True),
    ("`/usr/bin/python3 x`", False), ("build/home/x/y", False), (r"C:\Users\A B\Temp", False),
    ("${sourceDir}/root/x", False),
))
def test_a_place_of_a_person_is_found(text, found):
    assert bool(PERSONAL.search(text)) == found
