"""What was measured as tables in Markdown."""

from __future__ import annotations

import os
import re
import textwrap
from pathlib import Path
from statistics import median, quantiles
from typing import Iterable, Sequence


def spread(values: Sequence[float], digits: int = 0) -> str:
    """The median, and in brackets the first and the third quartile."""
    if len(values) < 2:
        return f"{values[0]:.{digits}f}"
    low, _, high = quantiles(values, n=4, method="inclusive")
    return f"{median(values):.{digits}f} ({low:.{digits}f} to {high:.{digits}f})"


def milliseconds(values: Iterable[float]) -> str:
    """The same for seconds, in milliseconds."""
    return spread([1000 * value for value in values])


def table(head: Sequence[str], rows: Sequence[Sequence[str]]) -> str:
    """Its columns are aligned in the text, too; all but the first are numbers."""
    widths = [max(len(row[column]) for row in [head, *rows]) for column in range(len(head))]

    def line(cells: Sequence[str]) -> str:
        padded = [cells[0].ljust(widths[0])]
        padded += [cell.rjust(width) for cell, width in zip(cells[1:], widths[1:])]
        return f"| {' | '.join(padded)} |"

    rule = ["-" * widths[0], *("-" * (width - 1) + ":" for width in widths[1:])]
    return "\n".join([line(head), line(rule), *map(line, rows)])


def sentences(text: str) -> str:
    """Running text in lines of the usual length."""
    return textwrap.fill(text, 100)


def machine() -> str:
    """Processors and memory."""
    model = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text("utf-8"))
    memory = os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE")
    return (f"{os.cpu_count()} processors ({model[1] if model else 'unknown'}), "
            f"{memory / 1024 ** 3:.0f} GB")


def around_part(file: Path, name: str) -> tuple[str, str]:
    """What stands in a file before and behind what is measured; `ValueError` without its marks."""
    begin, end = f"<!-- measured: {name} -->\n", f"<!-- end of measured: {name} -->"
    before, opened, rest = file.read_text("utf-8").partition(begin)
    _, closed, after = rest.partition(end)
    if not opened or not closed:
        raise ValueError(f"{file} has no lines {begin.strip()} and {end}")
    return before + begin, end + after


def replace_part(file: Path, name: str, text: str) -> None:
    """Replaces what stands between the marks."""
    before, after = around_part(file, name)
    file.write_text(f"{before}{text}\n{after}", "utf-8")
