"""Starts the program of a sandbox for a person, with the sandbox's own folders around it."""

import argparse
import os
import pwd
import subprocess
from pathlib import Path

from ktr.sandbox import reachable


def arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("sandbox", type=Path)


def run(options: argparse.Namespace) -> int:
    root = options.sandbox.resolve()
    environment = dict(os.environ)
    environment.pop("QT_QUICK_CONTROLS_STYLE", None)
    libraries = [f"{root}/config", *filter(None, [environment.get("LD_LIBRARY_PATH")])]
    environment.setdefault("XAUTHORITY", f"{pwd.getpwuid(os.getuid()).pw_dir}/.Xauthority")
    with reachable(root / "tools") as tools:
        environment.update(
            PATH=f"{tools}:{environment['PATH']}", LD_LIBRARY_PATH=":".join(libraries),
            TMPDIR=f"{root}/tmp", XDG_RUNTIME_DIR=f"{root}/run", HOME=f"{root}/home",
            QT_QPA_PLATFORM="xcb")
        status = subprocess.call([root / "Dravik" / "bin" / "UninstallUI"], env=environment)
    print(f"What the fakes noted: {root}/journal.log")
    return status
