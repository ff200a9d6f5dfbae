"""What a screen reader hears on each page, and the whole job done through it alone."""

import re

import pytest

from ktr import accessibility, wait
from ktr.accessibility import Reader
from ktr.steps import REASONS, events, expect_end, wait_event

VALID = "Validity period: */*/*"


@pytest.fixture(scope="session")
def bus(display):
    """The variables that put a program on the accessibility bus."""
    with accessibility.bus(display) as variables:
        yield variables


@pytest.fixture
def program(sandbox, bus):
    started = sandbox.start(environment=bus)
    started.ready()
    return started


def label(text):
    return ("label", text, "", "read-only", "")


def button(text):
    return ("push button", text, "", "focusable", "Press SetFocus")


def radio(text):
    return ("radio button", text, "", "focusable", "Toggle Press SetFocus")


def link(text, details=""):
    return ("link", text, details, "focusable", "Press SetFocus")


def page(title, *content, buttons=("Uninstall", "Cancel")):
    """The main window."""
    return [("frame", "", "", "active", ""), button("Close"), label(title), *content,
            *map(button, buttons)]


BOX = "you voice is important to us."
DISCOUNTS = "Enjoy discounted prices to buy other products"


def feedback(text="", states="editable focusable"):
    return page("We'd like to know what problem you've been experiencing. "
                "And we have an extra coupon for you. ",
                ("text", BOX, text, states, "SetFocus"), button("Submit"), link(DISCOUNTS))


PAGES = {
    0: page("Please tell us why you want to uninstall Dravik:",
            *(radio(REASONS[reason]) for reason in (1, 3, 2, 4))),
    1: page("Give you an exclusive discount:",
            link("View exclusive discounted prices", f"$19.95 {VALID}")),
    2: page("Glad to solve your problem! We have an extra coupon for you. Hope you like it!",
            link(DISCOUNTS, f"50% OFF {VALID}")),
    3: feedback(),
    4: feedback(),
}
THANKS = "Thanks for your feedback! We have an extra coupon for you. Hope you like it!"
COUPON = link(DISCOUNTS, f"50% OFF {VALID}")
WARNING = [
    ("frame", "Warning", "Warning", "active", ""),
    ("dialog", "Warning", "", "focused", ""),
    label("Warning"), button("Close"),
    label("Uninstall has detected that Torvan Dravik is currently running."),
    label("Please close all instances and try again."),
    button("OK"),
]


def expect(reader, wanted):
    """Waits until exactly this is heard: `*` is any number, and the first three reasons, which
    stand in random order, are sorted."""
    def heard():
        rows = [(role, re.sub(r"^\d+ %", "* %", name), re.sub(r"\d+(?=/|$)", "*", detail), *more)
                for role, name, detail, *more in reader.controls()]
        reasons = [row for row in rows if row[0] == "radio button"][:3]
        ordered = iter(sorted(reasons))
        return [next(ordered) if row in reasons else row for row in rows]

    wait.until(heard, f"the reader to hear {wanted}", accept=lambda rows: rows == wanted)


@pytest.mark.parametrize("reason", REASONS)
def test_a_screen_reader_reads_each_page_and_can_close_the_window(sandbox, program, reason):
    reader = Reader(program)
    expect(reader, PAGES[0])
    reader.act("radio button", REASONS[reason])
    expect(reader, PAGES[reason])
    reader.act("push button", "Close")
    expect_end(sandbox, program, cleanup=False)


def test_the_whole_job_can_be_done_with_accessible_actions_only(sandbox, program):
    reader = Reader(program)
    product = sandbox.spawn("KTRUI.exe")
    sandbox.wait_noted("KTRUI.exe", "start")
    reader.act("push button", "Uninstall")
    inactive = [("frame", "", "", "", ""), *PAGES[0][1:]]
    expect(reader, inactive + WARNING)
    reader.act("push button", "OK")
    expect(reader, PAGES[0])
    product.kill()

    reader.act("radio button", REASONS[4])
    expect(reader, PAGES[4])
    reader.act("push button", "Submit")
    reader.act("text", BOX, "SetFocus")
    focused = "editable focusable focused"
    expect(reader, feedback("", focused))
    reader.type("too slow")
    expect(reader, feedback("too slow", focused))
    reader.act("push button", "Submit")
    expect(reader, page(THANKS, COUPON))
    assert wait_event(sandbox, "Result_Question_What_Problem")[2] == '{"answer":"too slow"}'
    reader.act("link", COUPON[1])
    sandbox.wait_noted("xdg-open", "open")

    hold = sandbox.hold("uninstall.exe")
    reader.act("push button", "Uninstall")
    expect(reader, page(THANKS, COUPON, label("Unistalling\u2026"),
                        ("progress bar", "* %", "", "", "")))
    for disabled in ("Uninstall", "Cancel", "Close"):
        reader.act("push button", disabled)
    hold.unlink()
    expect(reader, page(THANKS, COUPON, label("Unistall complete!"), buttons=["OK"]))
    assert [activity for _, activity, _ in events(sandbox)].count("Click_Uninstall") == 2
    reader.act("push button", "OK")
    expect_end(sandbox, program, cleanup=True)
