"""The journal: what the fakes have done."""

import re
from dataclasses import dataclass
from urllib.parse import unquote

_ITEM = re.compile(r"\[([^\[\]]*)\]")


@dataclass(frozen=True)
class Entry:
    """One entry: image, event and details (still escaped; use `text` and `items`)."""

    image: str
    event: str
    fields: dict[str, str]

    def text(self, key: str) -> str:
        return unquote(self.fields[key])

    def number(self, key: str) -> int:
        return int(self.text(key))

    def items(self, key: str) -> list[str]:
        """A detail that is a list."""
        raw = self.fields[key]
        if _ITEM.sub("", raw):
            raise ValueError(f"{key}={raw} is not a list")
        return [unquote(item) for item in _ITEM.findall(raw)]

    def matches(self, image: str | None = None, event: str | None = None, **texts: object) -> bool:
        """Whether image, event and details match; None matches any."""
        return (image in (None, self.image) and event in (None, self.event)
                and all(key in self.fields and self.text(key) == str(value)
                        for key, value in texts.items()))


def parse(content: bytes) -> list[Entry]:
    """The entries of a journal; a last line that is still being written is left out."""
    whole = content[: content.rfind(b"\n") + 1].decode("utf-8")
    entries = []
    for line in filter(None, whole.split("\n")):
        image, *parts = line.split("\t")
        if not parts:
            raise ValueError(f"not a line of a journal: {line!r}")
        # A command of the system has a suffix on Windows only.
        entries.append(Entry("tasklist" if image == "tasklist.exe" else unquote(image), parts[0],
                             dict(part.partition("=")[::2] for part in parts[1:])))
    return entries
