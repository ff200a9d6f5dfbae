"""The native build installs what the Windows one does; tests/windows says what that is."""

import os
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "tests" / "windows"))

import test_install as windows  # noqa: E402


class TestWhatShips(windows.TestWhatShips):
    build = Path(os.environ.get("KTR_BUILD", ROOT / "build" / "linux-debug"))
