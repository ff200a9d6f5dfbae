"""Makes a sandbox from a build: the program with fakes of everything delivered beside it.

Several may be made at the same time, each in a folder of its own. An older one in the same place is
replaced; a folder that is not a sandbox is refused.
"""

import argparse
import os
import shlex
import shutil
import uuid
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
_TEMPLATES = REPOSITORY / "testkit" / "fakes" / "templates"
_ICON = REPOSITORY / "src" / "resources" / "icon" / "uninstall.ico"
_MARK = "sandbox.mark"


def arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("--build", type=Path, required=True, help="the build directory")
    parser.add_argument("--into", type=Path, required=True, help="the folder of the sandbox")
    parser.add_argument("--language", default="English", help="the product's language")


def run(options: argparse.Namespace) -> int:
    assemble(options.into, language=options.language, build=options.build)
    return 0


def build_directory() -> Path:
    """Where the program was built: `KTR_BUILD`, or the debug build of this repository."""
    return Path(os.environ.get("KTR_BUILD") or REPOSITORY / "build" / "linux-debug").resolve()


def assemble(into: Path, program: Path | None = None, language: str = "English",
             build: Path | None = None) -> None:
    """Makes a sandbox; `program` replaces the program of the build."""
    place = into.resolve()
    if place.exists() and not place.is_dir():
        raise RuntimeError(f"{place} is not a folder; nothing was changed")
    if place.exists() and not (place / _MARK).is_file() and any(place.iterdir()):
        raise RuntimeError(f"{place} is no sandbox (it has no {_MARK}); nothing was changed")
    token = uuid.uuid4().hex
    tree = place.with_name(f"{place.name}.new-{token}")
    old = place.with_name(f"{place.name}.old-{token}")
    tree.mkdir(parents=True)
    try:
        # First, so that the remains of a broken run can be recognised. The token tells fakes of a
        # replaced sandbox that theirs is gone.
        (tree / _MARK).write_text(f"A sandbox, which may be replaced.\n{token}\n", encoding="utf-8")
        _fill(tree, place, (build or build_directory()).resolve(), program, language)
        if place.exists():
            place.rename(old)
        tree.rename(place)
    except OSError as error:
        shutil.rmtree(tree, ignore_errors=True)
        raise RuntimeError(f"the sandbox {place} could not be made: {error}") from error
    shutil.rmtree(old, ignore_errors=True)


def configure(executable: Path, **settings: object) -> None:
    """Changes the settings in the text file that lies beside a fake."""
    if not settings:
        return
    file = executable.with_name(executable.name + ".txt")
    lines = file.read_text(encoding="utf-8").splitlines() if file.exists() else []
    kept = [line for line in lines if line.partition("=")[0].strip() not in settings]
    for key, value in settings.items():
        values = value if isinstance(value, (list, tuple)) else [value]
        kept += [f"{key}={item}" for item in values if item is not None]
    file.write_text("".join(f"{line}\n" for line in kept), encoding="utf-8")


def _fill(tree: Path, place: Path, build: Path, program: Path | None, language: str) -> None:
    """Fills the empty folder `tree`, which is to become `place`."""
    fakes, runtime = build / "testkit" / "fakes", build / "runtime"
    suffix = ".exe" if (fakes / "tasklist.exe").exists() else ""
    program_directory, tools = tree / "Dravik" / "bin", tree / "tools"
    for folder in (program_directory / "translations", tree / "Dravik" / "res", tools,
                   *(tree / name for name in ("config", "home", "tmp", "state"))):
        folder.mkdir(parents=True)
    (tree / "run").mkdir(mode=0o700)

    def fill(template: str, target: Path, **values: object) -> None:
        text = (_TEMPLATES / template).read_text(encoding="utf-8")
        for name, value in values.items():
            text = text.replace(f"@{name}@", str(value))
        newline = "\r\n" if template.endswith(".bat") else "\n"
        target.write_text(text, encoding="utf-8", newline=newline)
        target.chmod(0o755 if text.startswith("#!") else 0o644)

    if runtime.exists():
        shutil.copytree(runtime, program_directory, copy_function=_link, dirs_exist_ok=True)
    shutil.copy2(program or build / "src" / "app" / f"UninstallUI{suffix}",
                 program_directory / f"UninstallUI{suffix}")
    for name in ("uninstall.exe", "KTRUI.exe", "SkyrelWrapExe.exe", "SkyrelWrap.DLL"):
        shutil.copy2(fakes / name, program_directory)
    shutil.copy2(fakes / f"note{suffix}", tools)
    shutil.copytree(_TEMPLATES / "product", program_directory, dirs_exist_ok=True)
    fill("registry.reg", program_directory / "registry.reg", LANGUAGE=language)
    for translation in (build / "src" / "translations").glob("*.qm"):
        shutil.copy2(translation, program_directory / "translations")
    fill("uninstall.exe.txt", program_directory / "uninstall.exe.txt")
    note = shlex.quote(str(place / "tools" / f"note{suffix}"))
    # Windows looks for commands and libraries beside the program first; Linux along PATH and
    # LD_LIBRARY_PATH. Wine's own tasklist prints nothing, so ours must be found first. Wine hands
    # links to the system that it runs on.
    commands = program_directory if suffix else tools
    libraries = program_directory if suffix else tree / "config"
    fill("clearKTR.bat" if suffix else "clearKTR.sh", program_directory / "clearKTR.bat", NOTE=note)
    fill("xdg-open", tools / "xdg-open", NOTE=note, RUN="/usr/bin/wine " if suffix else "")
    shutil.copy2(fakes / "vantoronlineconfig.dll", libraries)
    fill("vantoronlineconfig.dll.txt", libraries / "vantoronlineconfig.dll.txt")
    shutil.copy2(fakes / f"tasklist{suffix}", commands)
    drive = "Z:" if suffix else ""
    (commands / f"tasklist{suffix}.txt").write_text(f"root={drive}{place}\n", encoding="utf-8")
    shutil.copy2(_ICON, tree / "Dravik" / "res" / "install_box.ico")


def _link(source: str, target: str) -> None:
    try:
        os.link(source, target)
    except OSError:  # another file system
        shutil.copy2(source, target)
