"""The native build installs what the Windows one does; tests/package says what that is."""

import os
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

import test_install as windows


class TestWhatShips(windows.TestWhatShips):
    build = Path(os.environ.get("KTR_BUILD", ROOT / "build" / "linux-debug"))
