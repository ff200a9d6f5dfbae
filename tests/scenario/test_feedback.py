"""The feedback box: typing, the limit, pasting, and what is sent."""

import json

import pytest

import steps
from driver import layout

LIMIT = 700


@pytest.fixture
def window(sandbox, program):
    """The window on the feedback page of reason 4."""
    shown = program.window()
    steps.choose(sandbox, shown, 4)
    return shown


def sent(sandbox):
    """The feedback as it was sent."""
    return json.loads(steps.wait_event(sandbox, "Result_Question_What_Problem")[2])["answer"]


def submit(sandbox, window):
    """Submits what is in the box; returns what was sent."""
    steps.submit(window)
    steps.wait_coupon(window)
    return sent(sandbox)


def cancel(sandbox, program, window):
    """Ends the program without an uninstallation."""
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=False)


def copy_all(keyboard):
    """Copies all of the box to the clipboard and puts the cursor at its end."""
    keyboard.key("Control_L", "a")
    keyboard.key("Control_L", "c")
    keyboard.key("Control_L", "End")


def test_words_are_sent_as_typed(sandbox, program, window):
    text = " It's \"slow\"; {a} & <b> 100%\nreally. "
    steps.write(window, text)
    assert submit(sandbox, window) == text
    cancel(sandbox, program, window)


def test_page_3_sends_the_raw_text_first(sandbox, program):
    window = program.window()
    steps.choose(sandbox, window, 3)
    steps.write(window, "it crashed")
    steps.submit(window)
    steps.wait_coupon(window)
    assert sent(sandbox) == "it crashed"
    assert steps.events(sandbox)[1:] == [
        ("noSolvedPage", "Click_Submit", '{"attribute":"it crashed"}'),
        ("UninstallPop", "Result_Question_What_Problem", '{"answer":"it crashed"}'),
    ]
    cancel(sandbox, program, window)


def test_submit_is_for_text_only(sandbox, program, window):
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_DISABLED_BORDER)
    window.click(layout.FEEDBACK_SUBMIT)
    steps.write(window, " ")
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_BORDER)
    window.keyboard.key("BackSpace")
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_DISABLED_BORDER)
    window.click(layout.FEEDBACK_SUBMIT)
    window.keyboard.type("x")
    assert submit(sandbox, window) == "x"
    cancel(sandbox, program, window)


def test_typing_stops_at_the_limit(sandbox, program, window):
    text = "".join(f"{number:03} " for number in range(200))
    steps.write(window, text[: LIMIT + 20])
    assert submit(sandbox, window) == text[:LIMIT]
    cancel(sandbox, program, window)


def test_pasting_stops_at_the_limit(sandbox, program, window):
    text = "0123456789abcdefghijklmnopqrstuvwxyz\n"
    steps.write(window, text)
    copy_all(window.keyboard)
    for _ in range(20):
        window.keyboard.key("Control_L", "v")
    assert submit(sandbox, window) == (text * 21)[:LIMIT]
    cancel(sandbox, program, window)


def test_a_selection_is_replaced_by_what_is_typed(sandbox, program, window):
    steps.write(window, "some words")
    start = window.place(layout.Point(layout.FEEDBACK.left + 17, layout.FEEDBACK.top + 16))
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_BORDER)  # the words have arrived
    window.keyboard.drag(start, layout.Point(start.x + 300, start.y))
    window.keyboard.type("all")
    assert submit(sandbox, window) == "all"
    cancel(sandbox, program, window)


def test_tab_leaves_the_box(sandbox, program, window):
    steps.write(window, "x")
    window.keyboard.key("Tab")
    window.keyboard.key("space")
    steps.wait_coupon(window)
    assert sent(sandbox) == "x"
    cancel(sandbox, program, window)


def test_the_link_leaves_the_page_as_it_is(sandbox, program, window):
    window.click(layout.FEEDBACK_LINK)
    steps.wait_event(sandbox, "Click_Text_Url")
    steps.write(window, "x")
    assert submit(sandbox, window) == "x"
    cancel(sandbox, program, window)
