"""Compares what the scenarios recorded on the two executables.

Writes index.html into the folder of the records: a row for each scenario, with the last screenshots
of the window. Fails if the two executables behaved differently.
"""

import argparse
import html
import json
from pathlib import Path

from ktr import page
from ktr.differences import reason_to_differ

ASPECTS = ("events", "configuration", "processes", "files", "exit")


def records_in(folder: Path) -> dict[str, dict[str, list[str]]]:
    """The records of one executable by scenario."""
    return {file.stem: json.loads(file.read_text(encoding="utf-8"))
            for file in sorted(folder.glob("*.json"))}


def cell(left: list[str], right: list[str], reason: str | None) -> str:
    """The table cell for one aspect of a scenario: the line count, or both sides and the reason."""
    def listed(name: str, lines: list[str]) -> str:
        return f"{name}<pre>{html.escape(chr(10).join(lines)) or '(nothing)'}</pre>"

    if left == right:
        return (f"<td><details><summary>{len(left)}, equal</summary>"
                f"{listed('both', left)}</details></td>")
    kind = "known" if reason else "differs"
    return (f'<td class="{kind}">{html.escape(reason or "differs")}<br>'
            f'{listed("Linux", left)}{listed("Windows", right)}</td>')


def screenshot(folder: Path, side: str, name: str) -> str:
    """A screenshot that links to its full size; without one if the window was not used."""
    file = folder / side / f"{name}.png"
    if not file.exists():
        return "no window was used"
    return f'<a href="{html.escape(f"{side}/{name}.png")}">{page.image(file, folder)}</a>'


def arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("folder", type=Path, help="has the records in linux/ and windows/")


def run(options: argparse.Namespace) -> int:
    """Compares and writes the page; status 0 only without unexplained differences."""
    folder: Path = options.folder
    linux, windows = records_in(folder / "linux"), records_in(folder / "windows")
    if not linux or not windows:
        print(f"No records in {folder}/linux or {folder}/windows: run the scenarios of both.")
        return 77  # CTest counts the test as skipped.
    rows, alone, unexplained = [], [], []
    for name in sorted(linux.keys() | windows.keys()):
        images = {side: screenshot(folder, side, name) for side in ("linux", "windows")}
        if name not in linux or name not in windows:
            side = "linux" if name in linux else "windows"
            alone.append(f"<li>{html.escape(name)}: {side.title()} only, {images[side]}</li>")
            continue
        row = f"<tr><td>{html.escape(name)}</td>"
        for aspect in ASPECTS:
            left, right = linux[name][aspect], windows[name][aspect]
            reason = reason_to_differ(name, aspect)
            row += cell(left, right, reason)
            if left != right and not reason:
                unexplained.append(f"{name}: {aspect}")
        rows.append(row + "".join(f"<td>{shown}</td>" for shown in images.values()) + "</tr>")
    heads = "".join(f"<th>{head}</th>" for head in ("scenario", *ASPECTS, "Linux", "Windows"))
    page.write(folder / "index.html", "both systems", "\n".join(
        [f"<table><tr>{heads}</tr>", *rows, f"</table>\n<ul>{''.join(alone)}</ul>"]))
    print(*(f"differs: {difference}\n" for difference in unexplained), sep="", end="")
    print(f"{len(rows)} scenarios side by side, {len(alone)} on one system only: "
          f"{folder}/index.html")
    return 1 if unexplained else 0
