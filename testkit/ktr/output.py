"""What a program may print on standard error: nearly nothing."""

from __future__ import annotations

import re
from typing import Iterable

# What the client of the remote configuration logs, and nothing else, belongs on standard error.
# A text that is logged as such stands between quotation marks.
_ALLOWED = (
    r"CVantorConfigInstance::.*",
    r"load vantoronlineconfig\.dll error!",
    r"vantoronlineconfig create  fun error!",
    r"vantoronlineconfig init failure!",
    r"vantoronlineconfig need Create!",
    r'"?.* query error!"?',
    r'"?.* has No value!"?',
    r'"?.* is too long! length:-?\d+"?',
    # Wine does not have this function, and the toolkit does without.
    r"EnableNonClientDpiScaling\(\) failed .*\(Call not implemented\.\)",
    # A link that nothing can open: on Windows the toolkit says so.
    r"ShellExecute '.*' failed \(error \d+\)\.",
    # The toolkit asks for the frame of a closing pop-up while the window manager destroys it: a
    # race between those two that exists on X11 only and that no program can avoid.
    r"qt\.qpa\.xcb: QXcbConnection: XCB error: 3 \(BadWindow\).*TranslateCoords.*",
)


def unexpected_lines(text: str, further: Iterable[str] = ()) -> list[str]:
    """The lines of a program's standard error that nothing allows; `further` allows more."""
    allowed = re.compile("|".join(f"(?:{pattern})" for pattern in (*_ALLOWED, *further)))
    return [line for line in text.splitlines() if not allowed.fullmatch(line)]
