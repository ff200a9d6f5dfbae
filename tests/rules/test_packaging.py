"""Runs the tests of the installed files (tests/package) on the native build."""

import os
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

import test_install as windows


class TestWhatShips(windows.TestWhatShips):
    build = Path(os.environ.get("KTR_BUILD", ROOT / "build" / "linux-debug"))
