"""How a pretend installation comes into being, and how its stand-ins are told what to do."""

from __future__ import annotations

import os
import subprocess
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]


def build_directory() -> Path:
    """Where the program was built: `KTR_BUILD`, or the debug build of this repository."""
    return Path(os.environ.get("KTR_BUILD") or REPOSITORY / "build" / "linux-debug").resolve()


def assemble(into: Path, program: Path | None = None, language: str = "English") -> None:
    """Lays out the sandbox of a product in a language; `program` replaces the built program."""
    command = [str(REPOSITORY / "testkit" / "fakes" / "assemble"),
               "--build", str(build_directory()), "--into", str(into),
               "--language", language]
    runtime = build_directory() / "runtime"
    if runtime.exists():
        command += ["--runtime", str(runtime)]
    if program is not None:
        command += ["--program", str(program)]
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise RuntimeError(f"{' '.join(command)}: {done.stderr.strip() or done.stdout.strip()}")


def configure(executable: Path, **settings: object) -> None:
    """Changes the settings in the text file that lies beside a stand-in."""
    if not settings:
        return
    file = executable.with_name(executable.name + ".txt")
    lines = file.read_text(encoding="utf-8").splitlines() if file.exists() else []
    kept = [line for line in lines if line.partition("=")[0].strip() not in settings]
    for key, value in settings.items():
        values = value if isinstance(value, (list, tuple)) else [value]
        kept += [f"{key}={item}" for item in values if item is not None]
    file.write_text("".join(f"{line}\n" for line in kept), encoding="utf-8")
