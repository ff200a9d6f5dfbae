"""What a program may print on standard error."""

import re
from typing import Iterable

# Only the remote-configuration client logs to standard error. Qt puts logged texts in quotation
# marks.
_ALLOWED = (
    r"CVantorConfigInstance::.*",
    r"load vantoronlineconfig\.dll error!",
    r"vantoronlineconfig create  fun error!",
    r"vantoronlineconfig init failure!",
    r"vantoronlineconfig need Create!",
    r'"?.* query error!"?',
    r'"?.* has No value!"?',
    r'"?.* is too long! length:-?\d+"?',
    # Wine lacks this function; Qt works without it.
    r"EnableNonClientDpiScaling\(\) failed .*\(Call not implemented\.\)",
    # A process that exits closes Wine's socket to its server first; a thread that starts meanwhile
    # cannot pass its pipes over it.
    r"wine client error:[0-9a-f]+: sendmsg: (Bad file descriptor|Socket operation on non-socket)",
    # On Windows, Qt reports a link that no program can open.
    r"ShellExecute '.*' failed \(error \d+\)\.",
    # Qt asks for the frame of a closing pop-up while the window manager destroys it: a race on
    # X11 only, which no program can avoid.
    r"qt\.qpa\.xcb: QXcbConnection: XCB error: 3 \(BadWindow\).*TranslateCoords.*",
)


def unexpected_lines(text: str, further: Iterable[str] = ()) -> list[str]:
    """The lines of standard error that are not allowed; `further` allows more."""
    allowed = re.compile("|".join(f"(?:{pattern})" for pattern in (*_ALLOWED, *further)))
    return [line for line in text.splitlines() if not allowed.fullmatch(line)]
