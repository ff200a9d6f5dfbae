"""Snapshots of folders, and their differences."""

import hashlib
import stat
from dataclasses import dataclass
from pathlib import Path

Tree = dict[str, str]
"""Paths relative to the root, in plain text order, each with kind, permissions and content."""


@dataclass(frozen=True)
class Difference:
    """How one tree differs from another; the paths are sorted."""

    added: list[str]
    removed: list[str]
    changed: list[str]

    def __bool__(self) -> bool:
        return bool(self.added or self.removed or self.changed)


def snapshot(root: Path, folders: tuple[str, ...]) -> Tree:
    """Kind, permissions and content of everything in some folders below a root.

    Times are left out: reading and replacing a file by the same are no differences.
    """
    return {str(path.relative_to(root)): _describe(path)
            for folder in sorted(folders) for path in sorted((root / folder).rglob("*"), key=str)}


def compare(before: Tree, after: Tree) -> Difference:
    return Difference([path for path in after if path not in before],
                      [path for path in before if path not in after],
                      [path for path in after if before.get(path, after[path]) != after[path]])


def _describe(path: Path) -> str:
    status = path.lstat()
    text = stat.filemode(status.st_mode)
    if stat.S_ISLNK(status.st_mode):
        return f"{text} -> {path.readlink()}"
    if stat.S_ISREG(status.st_mode):
        return f"{text} {status.st_size} {hashlib.sha256(path.read_bytes()).hexdigest()}"
    return text
