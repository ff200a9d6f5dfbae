"""What other applications put on the clipboard, and what they find there, by xclip."""

import subprocess
from contextlib import contextmanager
from typing import IO, Iterator, cast

from ktr import wait


class Clipboard:
    """The selections of one display: "clipboard", and "primary" of the middle button."""

    def __init__(self, display_name: str) -> None:
        self._xclip = ["xclip", "-display", display_name, "-selection"]

    def read(self, selection: str = "clipboard") -> str | None:
        """The text that a selection holds; None if it has no owner or holds no text."""
        done = subprocess.run([*self._xclip, selection, "-out", "-target", "UTF8_STRING"],
                              capture_output=True, timeout=wait.DEADLINE, check=False)
        return done.stdout.decode("utf-8") if done.returncode == 0 else None

    @contextmanager
    def holding(self, text: str, selection: str = "clipboard") -> Iterator[None]:
        """Owns a selection with a text, for a `with` statement, as a running application does.

        Wait for a paste to arrive within the block: at its end the selection has no owner.
        """
        # -quiet keeps it in the foreground.
        with subprocess.Popen([*self._xclip, selection, "-in", "-quiet"],
                              stdin=subprocess.PIPE, stderr=subprocess.DEVNULL) as owner:
            with cast(IO[bytes], owner.stdin) as pipe:
                pipe.write(text.encode("utf-8"))
            try:
                wait.until(lambda: self.read(selection) == text, f"{selection} to be owned")
                yield
            finally:
                owner.kill()
