"""The feedback box: typing, its limit, pasting, and the event that is sent."""

import json

import pytest

from ktr import layout, steps, wait
from ktr.input import MIDDLE

pytestmark = pytest.mark.usefixtures("reasons")

LIMIT = 700
NUMBERS = "".join(f"{number:03} " for number in range(400))
"""Text in which every position is unique."""
BOX = layout.Point(layout.FEEDBACK.left + 100, layout.FEEDBACK.top + 20)


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


def copied(sandbox, window):
    """The text of the box, selected and copied to the clipboard."""
    clipboard = sandbox.display.clipboard
    with clipboard.holding("older"):
        window.keyboard.key("Control_L", "a")
        window.keyboard.key("Control_L", "c")
        return wait.until(clipboard.read, "the copy",
                          accept=lambda text: text not in (None, "older"))


def paste_first(sandbox, window, text):
    """Pastes into the empty box and waits until the text has arrived."""
    steps.write(window, "")
    with sandbox.display.clipboard.holding(text):
        window.keyboard.key("Control_L", "v")
        window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_BORDER)


# Typing ----------------------------------------------------------------------------------------


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


@pytest.mark.parametrize("reason", (3, 4))
def test_submit_is_enabled_for_text_only(sandbox, program, reason):
    window = program.window()
    steps.choose(sandbox, window, reason)
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_DISABLED_BORDER)
    window.click(layout.FEEDBACK_SUBMIT)
    steps.write(window, " ")
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_BORDER)
    window.keyboard.key("BackSpace")
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_DISABLED_BORDER)
    window.click(layout.FEEDBACK_SUBMIT)
    steps.write(window, " ")
    assert submit(sandbox, window) == " "
    cancel(sandbox, program, window)


def test_typing_stops_at_the_limit(sandbox, program, window):
    steps.write(window, NUMBERS[: LIMIT + 20])
    assert copied(sandbox, window) == NUMBERS[:LIMIT]
    assert submit(sandbox, window) == NUMBERS[:LIMIT]
    cancel(sandbox, program, window)


def test_typing_at_the_limit_cuts_the_end_and_moves_the_cursor_there(sandbox, program, window):
    paste_first(sandbox, window, NUMBERS[:LIMIT])
    assert copied(sandbox, window) == NUMBERS[:LIMIT]
    window.keyboard.key("Control_L", "Home")
    window.keyboard.type("a")  # is inserted, cuts the last character, and moves the cursor there
    window.keyboard.type("b")  # is beyond the limit
    window.keyboard.key("BackSpace")
    window.keyboard.type("c")
    assert submit(sandbox, window) == "a" + NUMBERS[: LIMIT - 2] + "c"
    cancel(sandbox, program, window)


# Pasting ---------------------------------------------------------------------------------------


@pytest.mark.parametrize("keys", (("Control_L", "v"), ("Shift_L", "Insert")), ids="+".join)
def test_pasting_from_another_program_stops_at_the_limit(sandbox, program, window, keys):
    steps.write(window, "")
    with sandbox.display.clipboard.holding(NUMBERS):
        window.keyboard.key(*keys)
        assert submit(sandbox, window) == NUMBERS[:LIMIT]
    cancel(sandbox, program, window)


def test_the_middle_button_pastes_to_the_limit(sandbox, program, window):
    steps.write(window, "")
    place = window.place(BOX)
    with sandbox.display.clipboard.holding(NUMBERS, "primary"):
        window.keyboard.click(place.x, place.y, MIDDLE)
        assert submit(sandbox, window) == NUMBERS[:LIMIT]
    cancel(sandbox, program, window)


@pytest.mark.parametrize("held, inserted", ((690, 10), (699, 1), (700, 0)))
def test_pasting_fills_the_box_to_the_limit(sandbox, program, window, held, inserted):
    paste_first(sandbox, window, "x" * held)
    assert copied(sandbox, window) == "x" * held
    window.keyboard.key("Control_L", "End")
    with sandbox.display.clipboard.holding(NUMBERS):
        window.keyboard.key("Control_L", "v")
        assert submit(sandbox, window) == "x" * held + NUMBERS[:inserted]
    cancel(sandbox, program, window)


def test_pasting_repeatedly_stops_at_the_limit(sandbox, program, window):
    text = "0123456789abcdefghijklmnopqrstuvwxyz\n"
    steps.write(window, text)
    assert copied(sandbox, window) == text
    window.keyboard.key("Control_L", "End")
    for _ in range(20):
        window.keyboard.key("Control_L", "v")
    assert submit(sandbox, window) == (text * 21)[:LIMIT]
    cancel(sandbox, program, window)


def test_text_of_any_language_is_pasted_copied_and_sent(sandbox, program, window):
    text = "gr\u00f6\u00dfer \u2013 \u65e5\u672c\u8a9e \u0639\u0631\u0628\u064a \U0001f600\nend"
    paste_first(sandbox, window, text)
    assert copied(sandbox, window) == text
    assert submit(sandbox, window) == text
    cancel(sandbox, program, window)


# Mouse and keys --------------------------------------------------------------------------------


def test_typing_replaces_a_selection(sandbox, program, window):
    steps.write(window, "some words")
    start = window.place(layout.Point(layout.FEEDBACK.left + 17, layout.FEEDBACK.top + 16))
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_BORDER)  # the words have arrived
    window.keyboard.drag(start, layout.Point(start.x + 300, start.y))
    # Qt delays a mouse move until it paints; a key would overtake it.
    line = layout.Rect(layout.FEEDBACK.left + 16, layout.FEEDBACK.top + 8, 60, 16)
    wait.until(lambda: window.screen.share(window.area(line), layout.SELECTION),
               "the words to be selected", accept=lambda share: share > 0.3)
    window.keyboard.type("all")
    assert submit(sandbox, window) == "all"
    cancel(sandbox, program, window)


def test_tab_moves_the_focus_from_the_box_to_submit_and_the_coupon(sandbox, program, window):
    steps.write(window, "x")
    window.keyboard.key("Tab")
    window.keyboard.key("Shift_L", "Tab")
    window.keyboard.type("y")
    window.keyboard.key("Tab")
    window.keyboard.key("space")
    steps.wait_coupon(window)
    assert sent(sandbox) == "xy"
    window.keyboard.key("Tab")
    window.keyboard.key("Return")
    steps.wait_event(sandbox, "Click_Gift_Url")
    cancel(sandbox, program, window)


def test_shift_tab_moves_the_focus_from_the_box_to_cancel(sandbox, program, window):
    steps.write(window, "x")
    window.keyboard.key("Shift_L", "Tab")
    window.keyboard.key("space")
    steps.expect_end(sandbox, program, cleanup=False)


def test_escape_does_nothing_in_the_box(sandbox, program, window):
    steps.write(window, "x")
    window.keyboard.key("Escape")
    window.keyboard.type("y")
    assert submit(sandbox, window) == "xy"
    cancel(sandbox, program, window)


def test_the_link_keeps_the_text(sandbox, program, window):
    steps.write(window, "x")
    window.click(layout.FEEDBACK_LINK)
    steps.wait_event(sandbox, "Click_Text_Url")
    assert submit(sandbox, window) == "x"
    cancel(sandbox, program, window)


def test_the_box_can_be_used_while_the_uninstaller_runs(sandbox, program, window):
    hold = sandbox.hold("uninstall.exe")
    steps.write(window, "before")
    steps.uninstall(window)
    first = steps.wait_climbing(window)
    steps.write(window, ", during")
    assert copied(sandbox, window) == "before, during"
    assert submit(sandbox, window) == "before, during"
    steps.wait_climbing(window, first)
    hold.unlink()
    steps.wait_complete(window)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)
