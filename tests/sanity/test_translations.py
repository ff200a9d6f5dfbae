"""The translations: complete, true to their sources, and of one shape."""

import re
from pathlib import Path
from xml.etree import ElementTree

import pytest

ROOT = Path(__file__).resolve().parents[2]
FILES = sorted((ROOT / "translations").glob("ktr_*.ts"))
TEXT = re.compile(r'qsTr\("((?:[^"\\]|\\.)*)"\)')
# Written out one by one in the sources; in the catalogue they are the characters themselves.
ESCAPES = re.compile(r"\\u([0-9a-fA-F]{4})")


def sources():
    """Every text of the interface that can be translated, with its context."""
    return {
        (file.stem, ESCAPES.sub(lambda code: chr(int(code[1], 16)), text))
        for file in (ROOT / "qml").glob("*.qml")
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


@pytest.mark.parametrize("file", FILES, ids=lambda file: file.stem)
def test_a_catalogue_has_every_text_and_no_other(file):
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
def test_one_text_has_one_translation(file):
    seen = {}
    for _, source, translation in messages(file):
        assert seen.setdefault(source, translation.text) == translation.text, source


def test_english_repeats_the_sources():
    for _, source, translation in messages(ROOT / "translations" / "ktr_English.ts"):
        assert translation.text == source
