"""The translations: complete, in step with the sources, and all listed in the table."""

import csv
import re
import shutil
import subprocess
from pathlib import Path
from xml.etree import ElementTree

import pytest

ROOT = Path(__file__).resolve().parents[2]
FILES = sorted((ROOT / "src" / "translations").glob("ktr_*.ts"))
with open(ROOT / "src" / "translations" / "languages.csv", encoding="utf-8", newline="") as table:
    LANGUAGES = list(csv.DictReader(table))
TEXT = re.compile(r'qsTr\("((?:[^"\\]|\\.)*)"\)')
# Escaped in the sources; the catalogue has the characters themselves.
ESCAPES = re.compile(r"\\u([0-9a-fA-F]{4})")


def sources():
    """Every translatable text of the interface, with its context."""
    return {
        (file.stem, ESCAPES.sub(lambda code: chr(int(code[1], 16)), text))
        for file in (ROOT / "src" / "qml").glob("*.qml")
        for text in TEXT.findall(file.read_text("utf-8"))
    }


def messages(file):
    """Context, source and translation element of every message of a catalogue."""
    for context in ElementTree.parse(file).getroot().iter("context"):
        for message in context.iter("message"):
            yield context.findtext("name"), message.findtext("source"), message.find("translation")


def test_there_are_languages():
    assert len(FILES) >= 24
    assert {"ktr_English", "ktr_Arabic", "ktr_ChineseSimp"} <= {file.stem for file in FILES}


def test_the_table_has_exactly_the_languages():
    assert sorted(f"ktr_{row['name']}" for row in LANGUAGES) == [file.stem for file in FILES]


@pytest.mark.parametrize("row", LANGUAGES, ids=lambda row: row["name"])
def test_a_row_agrees_with_the_catalogue_and_the_fonts(row):
    # Some readers split lines at commas and do not understand quotation marks.
    assert len(row) == 7 and all(row.values()) and '"' not in "".join(row.values())
    language = ElementTree.parse(ROOT / "src" / "translations" / f"ktr_{row['name']}.ts").getroot()
    assert language.get("language") == row["code"].replace("-", "_")
    assert language.get("sourcelanguage") == "en"
    known = {"English", "Arabic", "ChineseSimp"}
    assert row["recorded_name"] == ("known" if row["name"] in known else "assumed")
    assert row["layout"] == ("right-to-left" if row["name"] == "Arabic" else "left-to-right")
    fonts = (ROOT / "tests" / "qml" / "language-fonts.conf").read_text("utf-8")
    assert f"<string>{row['font']}</string>" in fonts
    assert re.search(rf"\b{row['package']}\b", (ROOT / "tools" / "bootstrap").read_text("utf-8"))


@pytest.mark.parametrize("file", FILES, ids=lambda file: file.stem)
def test_a_catalogue_has_exactly_the_texts(file):
    found = [(context, source) for context, source, _ in messages(file)]
    assert sorted(found) == sorted(sources())


@pytest.mark.parametrize("file", FILES, ids=lambda file: file.stem)
def test_every_text_is_translated(file):
    for _, source, translation in messages(file):
        assert translation.get("type") is None, f"unfinished: {source}"
        text = translation.text
        assert text and text.strip(), f"empty: {source}"
        for mark in ("%1", "\u2026", "Dravik"):
            assert text.count(mark) == source.count(mark), f"{mark} in {text}"
        assert text.endswith(" ") == source.endswith(" "), repr(text)
        assert "  " not in text and not text.startswith(" "), repr(text)


@pytest.mark.parametrize("file", FILES, ids=lambda file: file.stem)
def test_every_text_has_a_comment_for_translators(file):
    for message in ElementTree.parse(file).getroot().iter("message"):
        assert message.findtext("extracomment"), message.findtext("source")


@pytest.mark.parametrize("file", FILES, ids=lambda file: file.stem)
def test_one_text_has_one_translation(file):
    seen: dict[str, str | None] = {}
    for _, source, translation in messages(file):
        assert seen.setdefault(source, translation.text) == translation.text, source


def test_english_repeats_the_sources():
    for _, source, translation in messages(ROOT / "src" / "translations" / "ktr_English.ts"):
        assert translation.text == source


@pytest.fixture(name="copy")
def copy_of_the_sources(tmp_path):
    """A folder with the texts, the translations and the command that updates them."""
    for name in ("src/qml", "src/translations"):
        shutil.copytree(ROOT / name, tmp_path / name)
    (tmp_path / "tools").mkdir()
    shutil.copy(ROOT / "tools" / "update-translations", tmp_path / "tools")
    return tmp_path


def update(copy):
    """Runs the command; returns its output."""
    return subprocess.run([copy / "tools" / "update-translations"], capture_output=True, text=True,
                          check=True).stdout


def contents(copy):
    """The contents of all translations."""
    return {path.name: path.read_bytes() for path in (copy / "src" / "translations").iterdir()}


def test_updating_changes_nothing(copy):
    before = contents(copy)
    assert update(copy) == "" and contents(copy) == before, \
        "the texts and their translations differ: run tools/update-translations"


def test_updating_follows_the_sources(copy):
    page = copy / "src" / "qml" / "ZoCloseButton.qml"
    text = page.read_text("utf-8").replace('qsTr("Close")', 'qsTr("Leave it")')
    page.write_text(text.replace("screen reader", "reader"), "utf-8")
    said = update(copy).splitlines()
    assert len(said) == len(FILES)
    assert "ktr_English.ts: changed, 0 to translate" in said
    assert "ktr_German.ts: changed, 1 to translate" in said
    for name, translation in ("German", None), ("English", "Leave it"):
        file = copy / "src" / "translations" / f"ktr_{name}.ts"
        found = [(context, source, target.text if target.get("type") is None else None)
                 for context, source, target in messages(file)
                 if context == "ZoCloseButton"]
        assert found == [("ZoCloseButton", "Leave it", translation)]
    after = contents(copy)
    assert b"What a reader calls" in after["ktr_German.ts"]
    assert update(copy) == "" and contents(copy) == after


def test_updating_creates_the_catalogue_of_a_new_language(copy):
    with open(copy / "src" / "translations" / "languages.csv", "a", encoding="utf-8") as languages:
        languages.write("Welsh,cy,Welsh,assumed,left-to-right,Open Sans,fonts-open-sans\n")
    assert update(copy) == f"ktr_Welsh.ts: changed, {len(sources())} to translate\n"
    begun = ElementTree.parse(copy / "src" / "translations" / "ktr_Welsh.ts").getroot()
    assert (begun.get("language"), begun.get("sourcelanguage")) == ("cy", "en")
