"""Snapshots of folders, and their differences."""

from __future__ import annotations

import hashlib
import os
import stat
from dataclasses import dataclass, field
from pathlib import Path

Tree = dict[str, str]
"""Paths relative to the root, in plain text order, each with kind, permissions and content."""


@dataclass(frozen=True)
class Difference:
    """How one tree differs from another; the paths are sorted."""

    added: list[str] = field(default_factory=list)
    removed: list[str] = field(default_factory=list)
    changed: list[str] = field(default_factory=list)

    def __bool__(self) -> bool:
        return bool(self.added or self.removed or self.changed)


def snapshot(root: Path, folders: tuple[str, ...]) -> Tree:
    """Kind, permissions and content of everything in some folders below a root.

    Times are left out: reading and replacing a file by the same are no differences.
    """
    tree: Tree = {}
    for folder in folders:
        for directory, names, files in os.walk(root / folder):
            for name in (*names, *files):
                path = Path(directory, name)
                tree[str(path.relative_to(root))] = _describe(path)
    return dict(sorted(tree.items()))


def compare(before: Tree, after: Tree) -> Difference:
    """What was added, removed and changed between two snapshots."""
    return Difference(
        added=[path for path in after if path not in before],
        removed=[path for path in before if path not in after],
        changed=[path for path in after if path in before and after[path] != before[path]],
    )


def _describe(path: Path) -> str:
    status = path.lstat()
    text = stat.filemode(status.st_mode)
    if stat.S_ISLNK(status.st_mode):
        return f"{text} -> {os.readlink(path)}"
    if stat.S_ISREG(status.st_mode):
        return f"{text} {status.st_size} {hashlib.sha256(path.read_bytes()).hexdigest()}"
    return text
