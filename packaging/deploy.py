#!/usr/bin/python3
"""Copies what the Windows executable needs of a Qt kit at run time.

Copies only QML modules that the interface or another such module imports, and only DLLs that the
executable, its plug-ins and its QML modules need. `check-deployed` says what the kit lacked.
"""

from __future__ import annotations

import argparse
import re
import shutil
import subprocess
import sys
from collections.abc import Callable
from pathlib import Path

import pefile

from pe_imports import imports_of

# The second reads the window's icon.
PLUGINS = ("platforms/qwindows.dll", "imageformats/qico.dll")
# Qt Quick Controls 1 needs Qt5Widgets.dll. QtGraphicalEffects is imported, but unused. The program
# draws in software, so opengl32sw.dll, libEGL.dll, libGLESv2.dll and d3dcompiler_47.dll, which Qt
# loads by name, are left out. QtQuick/Extras is left out too: only styles of unused controls import
# it.
MODULES = ("QtQml", "QtQuick.2", "QtQuick/Window.2", "QtQuick/Controls", "QtQuick/Controls.2",
           "QtQuick/Templates.2", "QtQuick/Layouts", "QtQuick/Shapes", "QtGraphicalEffects")
# The interface uses the style Default. Only the designer of Qt Creator reads the type descriptions.
LEFT_OUT = ("Fusion", "Imagine", "Material", "Universal", "Flat", "designer", "plugins.qmltypes",
            "StateMachine")
COMPILER = "x86_64-w64-mingw32-g++-posix"
# The folder where tools/windows-qt-kit built the kit: its path would show a user's home folder.
BUILD_FOLDER = re.compile(rb"/[^\0\n]{0,300}?/dravik-uninstall(?=/windows-qt)")


def copy_anonymously(source: str | Path, target: str | Path) -> Path:
    """Copies a file of our own kit, without the folder and the time in which it was built."""
    content = BUILD_FOLDER.sub(lambda found: b"/" * len(found[0]), Path(source).read_bytes())
    if content.startswith(b"MZ"):
        image = pefile.PE(data=content, fast_load=True)
        image.FILE_HEADER.TimeDateStamp = 0
        image.OPTIONAL_HEADER.CheckSum = 0  # Means: none. Only drivers need one.
        for table in ("EXPORT", "DEBUG"):
            index = pefile.DIRECTORY_ENTRY[f"IMAGE_DIRECTORY_ENTRY_{table}"]
            if address := image.OPTIONAL_HEADER.DATA_DIRECTORY[index].VirtualAddress:
                image.set_dword_at_rva(address + 4, 0)
        content = image.write()
    Path(target).write_bytes(content)
    return Path(target)


def run_time_dll(name: str) -> Path | None:
    """The path of one of the compiler's DLLs; None if it has none of that name."""
    found = Path(subprocess.run([COMPILER, f"-print-file-name={name}"], capture_output=True,
                                text=True, check=True).stdout.strip())
    path = found if found.is_absolute() else Path("/usr/x86_64-w64-mingw32/lib") / name
    return path if path.exists() else None


def deploy(kit: Path, programs: list[Path], into: Path, plugins: tuple[str, ...] = PLUGINS,
           copy: Callable[..., Path] = copy_anonymously) -> None:
    """Fills a folder for programs that may lie elsewhere."""
    for plugin in plugins:
        target = into / plugin
        target.parent.mkdir(parents=True, exist_ok=True)
        copy(kit / "plugins" / plugin, target)
    for module in MODULES:
        if (kit / "qml" / module).is_dir():
            shutil.copytree(kit / "qml" / module, into / module, copy_function=copy,
                            ignore=shutil.ignore_patterns(*LEFT_OUT), dirs_exist_ok=True)
    of_kit = {file.name.lower(): file for file in (kit / "bin").glob("*.dll")}
    pending = [*programs, *into.rglob("*.dll")]
    while pending:
        for name in imports_of(pending.pop()):
            source = of_kit.get(name) or run_time_dll(name)
            if source is not None and not (into / source.name).exists():
                pending.append(copy(source, into / source.name))


def main() -> None:
    """Parses the command line and deploys."""
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--kit", type=Path, required=True, help="the Qt kit")
    parser.add_argument("--program", type=Path, required=True, help="the executable")
    parser.add_argument("--into", type=Path, required=True, help="a folder, which is replaced")
    parser.add_argument("--test-modules", type=Path, help="a folder with QML modules for tests")
    options = parser.parse_args()
    shutil.rmtree(options.into, ignore_errors=True)
    options.into.mkdir(parents=True)
    if options.test_modules:
        shutil.copytree(options.test_modules, options.into, dirs_exist_ok=True)
    deploy(options.kit, [options.program], options.into)


if __name__ == "__main__":
    try:
        main()
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"Deploying failed: {error}")
