"""What a failed test leaves behind."""

import shutil
from pathlib import Path

from ktr.sandbox import Sandbox
from ktr.wine import WINE_PREFIX


def keep(sandbox: Sandbox, folder: Path) -> Path:
    """Copies the sandbox with its logs and journal, and saves what is on the screen right now.

    The folder is replaced. Returns it.
    """
    shutil.rmtree(folder, ignore_errors=True)
    windows = sandbox.display.windows
    sandbox.display.screen.save(folder / "screen.png")
    lines = ["processes:", *map(str, sandbox.system.offspring(sandbox.root)),
             "windows, the topmost last:", *map(repr, windows.stacking()),
             f"active: {windows.active()!r}",
             "started:", *map(repr, (*sandbox.programs, *sandbox.fakes))]
    (folder / "state.txt").write_text("\n".join(lines) + "\n", encoding="utf-8")
    shutil.copytree(sandbox.root, folder / "sandbox", symlinks=True, ignore=_left_out)
    return folder


def _left_out(directory: str, names: list[str]) -> list[str]:
    """What cannot be copied, such as sockets, and Wine and large libraries, which never change."""
    return [
        path.name for path in (Path(directory, name) for name in names)
        if not (path.is_symlink() or path.is_file() or path.is_dir())
        or path.name == WINE_PREFIX or path.is_file() and path.stat().st_size > 5_000_000]
