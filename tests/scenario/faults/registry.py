"""Malicious registry values: they reach a path, a URL, and the configuration's keys and prefix."""

from __future__ import annotations

import json
from dataclasses import dataclass

from ktr import steps
from ktr import layout
from ktr.sandbox import Sandbox
from ktr.system import Raw
from faults.fault import Fault
from faults.outcomes import CONFIG
from offer_keys import CART

PLAIN = "https://shop.torvan.example/cart?product=dravik"
MAX_SIZE = 260
"""The largest size of a value, in bytes with its terminating NUL."""
NOT_TEXT = "the Windows registry has types and returns such values differently"


@dataclass(frozen=True)
class Hostile:
    """The program with the same text in all registry values."""

    description: str
    value: str | Raw
    text: str
    """The text that the program must read."""

    def run(self, sandbox: Sandbox, fault: Fault) -> None:
        """See `description`."""
        sandbox.set_registry(self.value, self.value, self.value)
        sandbox.configure(CONFIG, **{f"string.{CART}": PLAIN})
        before = sandbox.snapshot()
        program = fault.start(sandbox)
        window = program.ready()
        parts = [part for part in (self.text, "uninstall__180", self.text) if part]
        prefix = sandbox.journal(CONFIG, "set_filter_environment")[0].text("prefix")
        assert prefix == sandbox.system.multibyte("__".join(parts))
        # There is no translation of this name, so the reasons are the source texts.
        steps.choose(sandbox, window, 1)
        window.click(layout.COUPON)
        link = json.loads(steps.wait_event(sandbox, "Click_Gift_Url")[2])["url"]
        # There is no link for an unknown OEM, so only the appended x-url parameter is left.
        assert link == (f"?x-url=1-{sandbox.system.multibyte(self.text)}" if self.text else PLAIN)
        window.drag(layout.TITLE_GRIP, 20, 10)
        window.click(layout.CANCEL)
        steps.expect_end(sandbox, program, cleanup=False)
        for entry in sandbox.journal("xdg-open", "open"):
            assert len(entry.items("args")) == 1
        after = sandbox.snapshot()
        assert {path for path in after if "harm" in path} == set()
        assert before.keys() <= after.keys()


TAKEN = "The value is plain text: nothing in it is executed, and everything works."
LEFT_OUT = "The value counts as missing, and everything works."


def _text(name: str, text: str) -> Fault:
    return Fault(f"registry: {name}", Hostile(TAKEN, text, text))


def _raw(name: str, kind: int, data: bytes, text: str, stderr: tuple[str, ...] = ()) -> Fault:
    return Fault(f"registry: {name}", Hostile(TAKEN if text else LEFT_OUT, Raw(kind, data), text),
                 linux_only=NOT_TEXT, stderr=stderr)


FAULTS = [
    *(Fault(f"registry: values of {size} bytes",
            Hostile(TAKEN if size <= MAX_SIZE else LEFT_OUT, "x" * (size - 1),
                    "x" * (size - 1) if size <= MAX_SIZE else "")) for size in (259, 260, 261)),
    Fault("registry: values of 64 KiB", Hostile(LEFT_OUT, "x" * 65535, "")),
    _text("quotation marks", "a\"b\"'c'"),
    _text("percent signs", "%1%2%n%s%99%PATH%%41"),
    _text("commands of a shell", "$(touch harm)`touch harm`;touch harm|touch harm&touch harm"),
    _text("options of a command", "--help -e harm"),
    _text("a path upwards", "../../../../harm"),
    _text("a path upwards, with backslashes", "..\\..\\..\\harm"),
    _text("a URL", "&x-url=2#fragment?https://harm.example/@"),
    _text("markup", "<img src='file:///harm'><b>&amp;"),
    _text("separators of keys", "__a__b____"),
    _text("non-ASCII letters", "\u00c4\u00df\u00e9"),
    _raw("line breaks", 1, b"one\r\ntwo\tthree\0", "one\r\ntwo\tthree",
         stderr=(r"two\tthree.*",)),  # the log does not escape the prefix
    _raw("no terminating NUL", 1, b"acme", "acme"),
    _raw("no terminating NUL in the largest size", 1, b"x" * MAX_SIZE, "x" * MAX_SIZE),
    _raw("a NUL in the middle", 1, b"acme\0harm\0", "acme"),
    _raw("a number in place of a text", 4, b"acme", "acme"),
    _raw("bytes in place of a text", 3, b"acme\0", "acme"),
    _raw("an empty value", 1, b"", ""),
]
