"""Compares what the scenarios recorded on the two executables.

Writes index.html into the folder of the records: a row for each scenario, with the last screenshots
of the window. Fails if the two executables behaved differently.
"""

from __future__ import annotations

import argparse
import html
import json
from pathlib import Path

from ktr.differences import reason_to_differ

NOTHING_TO_COMPARE = 77
"""The status with which a test of CTest counts as skipped."""
ASPECTS = ("events", "configuration", "processes", "files", "exit")
STYLE = """
body { font: 14px sans-serif; margin: 24px; background: #f4f4f6; color: #202124; }
table { border-collapse: collapse; background: #fff; }
td, th { border: 1px solid #dadce0; padding: 6px 10px; text-align: left; vertical-align: top; }
.differs { background: #fce8e6; } .known { background: #fef7e0; }
img { width: 320px; display: block; } pre { white-space: pre-wrap; margin: 4px 0; max-width: 50em; }
"""


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
    """A screenshot that links to its full size; an empty cell if the window was not used."""
    if not (folder / side / f"{name}.png").exists():
        return "<td>no window was used</td>"
    source = html.escape(f"{side}/{name}.png")
    return f'<td><a href="{source}"><img src="{source}" alt=""></a></td>'


def only(folder: Path, name: str, side: str) -> str:
    """A list's entry for a scenario of one system, with its screenshot if there is one."""
    image = f"{side.lower()}/{name}.png"
    shown = f'<img src="{html.escape(image)}" alt="">' if (folder / image).exists() else ""
    return f"<li>{html.escape(name)}: {side} only{shown}</li>"


def arguments(parser: argparse.ArgumentParser) -> None:
    """The command line."""
    parser.add_argument("folder", type=Path, help="has the records in its folders linux and windows")


def run(options: argparse.Namespace) -> int:
    """Compares and writes the page; status 0 only without unexplained differences."""
    folder: Path = options.folder
    linux, windows = records_in(folder / "linux"), records_in(folder / "windows")
    if not linux or not windows:
        print(f"There are no records in {folder}/linux or {folder}/windows: run the scenarios of both.")
        return NOTHING_TO_COMPARE
    rows, faults = [], []
    both = [name for name in linux if name in windows]
    for name in both:
        cells = []
        for aspect in ASPECTS:
            reason = reason_to_differ(name, aspect)
            cells.append(cell(linux[name][aspect], windows[name][aspect], reason))
            if linux[name][aspect] != windows[name][aspect] and not reason:
                faults.append(f"{name}: {aspect}")
        rows.append(f"<tr><td>{html.escape(name)}</td>{''.join(cells)}"
                    f"{screenshot(folder, 'linux', name)}"
                    f"{screenshot(folder, 'windows', name)}</tr>")
    heads = "".join(f"<th>{head}</th>" for head in ("scenario", *ASPECTS, "Linux", "Windows"))
    alone = [only(folder, name, "Linux" if name in linux else "Windows")
             for name in sorted(linux.keys() ^ windows.keys())]
    (folder / "index.html").write_text(
        f"<!DOCTYPE html>\n<meta charset=\"utf-8\"><title>UninstallUI on both systems</title>\n"
        f"<style>{STYLE}</style>\n<table><tr>{heads}</tr>\n" + "\n".join(rows)
        + f"</table>\n<ul>{''.join(alone)}</ul>\n", "utf-8")
    print(*(f"differs: {fault}\n" for fault in faults), sep="", end="")
    print(f"{len(both)} scenarios side by side, {len(alone)} on one system only: {folder}/index.html")
    return 1 if faults else 0

