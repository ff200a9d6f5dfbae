"""What several scenarios do and expect, in the words of a user."""

import json
from pathlib import Path
from typing import Callable

from ktr import layout, wait
from ktr.display import Display
from ktr.program import RunningProgram
from ktr.sandbox import Sandbox
from ktr.window import Window

POLLS = 25
"""How often the program asks for an uninstaller that does not appear."""


def uninstall(window: Window) -> None:
    """Presses "Uninstall"."""
    window.click(layout.UNINSTALL)


def wait_climbing(window: Window, beyond: float = 0.0, patience: float = 0.0) -> float:
    """Waits until the progress bar is filled further than a fraction; returns how far.

    `patience` is how many seconds that may take longer than usual.
    """
    return wait.until(
        lambda: window.bar_fraction() or 0.0, f"the bar to be filled beyond {beyond:g}",
        wait.DEADLINE + patience, accept=lambda seen: seen > beyond)


def uninstall_held(sandbox: Sandbox, window: Window, beyond: float = 0.0) -> Path:
    """Presses "Uninstall" and waits until the bar is filled further than a fraction.

    The uninstaller runs until the returned file is deleted.
    """
    hold = sandbox.hold("uninstall.exe")
    uninstall(window)
    wait_climbing(window, beyond)
    return hold


def wait_buttons_disabled(window: Window) -> None:
    window.wait_colour(layout.face(layout.CANCEL), layout.BUTTON_DISABLED)
    window.wait_colour(layout.face(layout.UNINSTALL), layout.BUTTON_DISABLED)


def wait_complete(window: Window) -> None:
    """Waits until the window says that the uninstallation is complete and offers to close."""
    wait.until(lambda: complete_text_seen(window), "the green text")
    window.hover(layout.TITLE_GRIP)
    window.wait_colour(layout.face(layout.CANCEL), layout.CANCEL_NORMAL)
    wait.expect("progress bar", window.bar_fraction(), None)


def complete_text_seen(window: Window) -> bool:
    """Whether the progress label has the colour that means "complete".

    Searches the whole width: Arabic and Hebrew texts are aligned to the right.
    """
    area = window.area(layout.PROGRESS_LABEL)
    return window.screen.share(area, layout.COMPLETE_TEXT, tolerance=40) > 0.0003


def wait_given_up(sandbox: Sandbox) -> None:
    """Waits until the program has asked for the uninstaller for the last time.

    `tasklist` must note its queries.
    """
    wait.until(lambda: uninstaller_queries(sandbox), f"{POLLS} queries for the uninstaller",
               accept=lambda count: count >= POLLS)


def uninstaller_queries(sandbox: Sandbox) -> int:
    """How often `tasklist` was asked for the uninstaller; it must note its queries."""
    entries = sandbox.journal("tasklist", "query")
    return sum("uninstall.exe" in entry.text("args") for entry in entries)


def expect_end(sandbox: Sandbox, program: RunningProgram, cleanup: bool) -> None:
    """Expects the end with status 0; `cleanup`: with the clean-up and a terminated companion."""
    wait.expect("exit status", program.wait_exit(), 0)
    events(sandbox)
    wait.expect("handle file", sandbox.read_handle(), None)
    wait.expect("instance lock held", sandbox.instance_lock_held(), False)
    if cleanup:
        entry = sandbox.wait_noted("clearKTR.bat", "start")
        wait.expect("clean-up arguments", entry.items("args"),
                    [sandbox.shown(sandbox.root / "Dravik")])
        sandbox.wait_processes("SkyrelWrapExe.exe", 0)
        wait.expect("companion ended by itself", sandbox.journal("SkyrelWrapExe.exe", "end"), [])
    else:
        sandbox.wait_noted("SkyrelWrapExe.exe", "end")
        wait.expect("clean-up", sandbox.journal("clearKTR.bat"), [])


# The pages ------------------------------------------------------------------------------------

REASONS = {
    1: "The price is too expensive",
    2: "The product has solved my problem",
    3: "The product doesn't solve my problem",
    4: "I have other reasons",
}
"""The reasons by number, as usage events name them."""

_REASON = "Result_Question_Why_Unistall"
"""The activity that reports a chosen reason."""

LAST_REASON = max(REASONS)
"""Always in the last row; the others are in random order."""


def events(sandbox: Sandbox) -> list[tuple[str, str, str]]:
    """The usage events so far: window, activity and attribute of each.

    Each is checked for the form in which the library wants all of them.
    """
    found = []
    for entry in sandbox.journal("SkyrelWrap.DLL", "SkyrelSendInfo"):
        names, values = zip(*(item.split("=", 1) for item in entry.items("pairs")))
        wait.expect(f"names in {entry}", names,
                    ("torvanSendType", "Window", "Activity", "Attribute")[:max(3, len(names))])
        # The argument count: the two flags, the texts, the end marker.
        wait.expect(f"form of {entry}",
                    (values[0], entry.number("count"), entry.text("flag"), entry.text("wide")),
                    ("0", 2 + 2 * len(names) + 1, "0", "1"))
        shown, activity, attribute = (*values[1:], "")[:3]
        found.append((shown, activity, attribute))
    wait.expect("misuse of the library", sandbox.journal("SkyrelWrap.DLL", "unexpected"), [])
    return found


def wait_event(sandbox: Sandbox, activity: str, count: int = 1) -> tuple[str, str, str]:
    """Waits for the `count`-th usage event of an activity; returns it."""
    return wait.until(lambda: [event for event in events(sandbox) if event[1] == activity],
                      f"{count} event(s) {activity}",
                      accept=lambda found: len(found) >= count)[count - 1]


def reasons_given(sandbox: Sandbox) -> list[tuple[str, str, str]]:
    """The usage events so far that report a chosen reason."""
    return [event for event in events(sandbox) if event[1] == _REASON]


_known_looks: dict[bytes, int] = {}
"""The reasons by how their rows look; `learn_reasons` fills it."""


def learn_reasons(display: Display, prepare: Callable[[Sandbox], object] = lambda sandbox: None,
                  start: Callable[[Sandbox], RunningProgram] = Sandbox.start) -> None:
    """Finds out how each reason looks, since their order differs at each start.

    Chooses them, one at each start; their usage events tell which they are. `prepare` and `start`
    may give the program another font.
    """
    sandbox = Sandbox(display)
    prepare(sandbox)
    numbers: dict[bytes, int] = {}
    try:
        # Twice as often as necessary: a font that loads late changes a row's look.
        for _ in range(2 * LAST_REASON):
            program = start(sandbox)
            window = program.ready()
            looks = _looks(window)
            unknown = [look for look in looks if look not in numbers]
            if unknown:
                numbers[unknown[0]] = choose_row(sandbox, window, looks.index(unknown[0]))
            program.kill()
            sandbox.forget_journal()
            if len(unknown) <= 1:
                break
    finally:
        sandbox.cleanup()
    _known_looks.update(numbers)


def knows_reasons(window: Window) -> bool:
    """Whether `row_of` can tell the reasons of this window apart."""
    return _known_looks.keys() >= set(_looks(window))


def row_of(window: Window, reason: int) -> int:
    """In which row, from 0, a reason of the English window stands.

    The test, or its module, needs the fixture `reasons`.
    """
    if reason == LAST_REASON:
        return LAST_REASON - 1
    numbers = [_known_looks.get(look) for look in _looks(window)]
    if reason not in numbers:
        raise wait.Unexpected(f"reason {reason} is in none of the rows: {numbers}")
    return numbers.index(reason)


def reasons_seen(window: Window) -> bool:
    """Whether the first row shows a reason and not a coupon.

    Checks its upper part only: a coupon's price begins below.
    """
    return any(_ink(window, 0, 13))


def _looks(window: Window) -> list[bytes]:
    """The texts in all rows but the last as they are drawn, once they are complete."""
    return wait.until(
        lambda: [_ink(window, row) for row in range(LAST_REASON - 1)], "a reason in each row",
        accept=lambda found: all(map(any, found)) and len(set(found)) == len(found))


def _ink(window: Window, row: int, height: int = 19) -> bytes:
    """Where a row has dark pixels."""
    area = layout.reason(row)
    text = layout.Rect(area.left + 20, area.top, 280, height)
    image = window.screen.screenshot(window.area(text)).convert("L")
    return bytes(image.point(lambda value: 255 if value < 100 else 0).tobytes())


def choose(sandbox: Sandbox, window: Window, reason: int) -> None:
    """Chooses a reason of the English window with the mouse; waits for its page."""
    wait.expect("chosen reason", choose_row(sandbox, window, row_of(window, reason)), reason)


def choose_row(sandbox: Sandbox, window: Window, row: int) -> int:
    """Chooses the reason in a row from 0, in any language, and waits for its page.

    Returns the reason's number, taken from the usage event.
    """
    given = len(reasons_given(sandbox))
    window.click(layout.reason(row))
    event = wait_event(sandbox, _REASON, given + 1)
    numbers = {reported(reason): reason for reason in REASONS}
    if event not in numbers:
        raise wait.Unexpected(f"no reason is reported like this: {event}")
    wait_page(sandbox, window, numbers[event], given + 1)
    return numbers[event]


def reported(reason: int) -> tuple[str, str, str]:
    """The usage event of a chosen reason."""
    return "UninstallPop", _REASON, json.dumps({"answer": REASONS[reason]}, separators=(",", ":"))


def wait_page(sandbox: Sandbox, window: Window, reason: int, count: int = 1) -> None:
    """Waits until a reason, the `count`-th one here, has been reported and its page is seen."""
    wait.expect("reported reason", wait_event(sandbox, _REASON, count), reported(reason))
    if reason in (1, 2):
        wait_coupon(window)
    else:
        window.wait_colour(layout.Point(layout.FEEDBACK.left + 200, layout.FEEDBACK.bottom - 20),
                           layout.WHITE)


def title(window: Window) -> bytes:
    """The title as drawn, once it no longer changes, for comparison."""
    return bytes(window.screen.wait_steady(window.area(layout.TITLE_LABEL)).tobytes())


def page_screenshot(window: Window) -> bytes:
    """The page as drawn, once it no longer changes, with the pointer elsewhere."""
    window.hover(layout.TITLE_GRIP)
    return bytes(window.screen.wait_steady(window.area(layout.PAGE)).tobytes())


def wait_coupon(window: Window) -> None:
    wait.until(lambda: window.screen.share(window.area(layout.GIFT), layout.GIFT_COLOUR, 24),
               "the image of the gift", accept=lambda share: share > 0.05)


def write(window: Window, text: str) -> None:
    """Clicks into the feedback box and types."""
    window.click(layout.Point(layout.FEEDBACK.left + 100, layout.FEEDBACK.top + 20))
    window.wait_colour(layout.Point(layout.FEEDBACK.left, layout.FEEDBACK.top + 80),
                       layout.FEEDBACK_FOCUSED)
    window.keyboard.type(text)


def submit(window: Window) -> None:
    """Presses "Submit" as soon as it can be pressed."""
    window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_BORDER)
    window.click(layout.FEEDBACK_SUBMIT)
