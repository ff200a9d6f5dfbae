"""Takes the program through its main job on a virtual display, with real input events, and prints
step by step what happened. Status 0 only when every step was seen."""

from __future__ import annotations

import argparse
import shutil
import sys
from pathlib import Path

from ktr import layout, steps, wait
from ktr.display import Display
from ktr.installation import REPOSITORY
from ktr.output import unexpected_lines
from ktr.sandbox import Sandbox
from ktr.window import Window


def say(step: str, *details: str) -> None:
    """Prints one step and what was seen of it."""
    print(f"* {step}", *(f"    {detail}" for detail in details), sep="\n", flush=True)


class Tour:
    """One walk through the program."""

    def __init__(self, sandbox: Sandbox, folder: Path, under: list[str]) -> None:
        self.sandbox = sandbox
        self.folder = folder
        self.under = under
        self.taken = 0
        self.known_events: list[tuple[str, str, str]] = []
        self.known_look_ups = 0

    def screenshot(self, window: Window, name: str) -> str:
        """Saves a screenshot of a window; returns its path."""
        self.taken += 1
        file = self.folder / f"{self.taken:02}-{name}.png"
        window.screenshot().save(file)
        return f"screenshot: {file}"

    def events(self) -> list[str]:
        """The usage events since the last call."""
        known, self.known_events = self.known_events, steps.events(self.sandbox)
        return [f"usage event: {' / '.join(event)}" for event in self.known_events[len(known):]]

    def look_ups(self) -> list[str]:
        """The look-ups in the remote configuration since the last call."""
        entries = self.sandbox.journal("vantoronlineconfig.dll")
        new, self.known_look_ups = entries[self.known_look_ups:], len(entries)
        prefixes = [f"configuration prefix: {entry.text('prefix')}" for entry in new
                    if entry.event == "set_filter_environment"]
        return prefixes + [
            f"configuration key: {entry.text('key')} {entry.text('suffix')}".rstrip()
            for entry in new if entry.event == "get_string_value" and entry.text("buffer") == "given"
        ]

    def opened(self, count: int) -> str:
        """Waits for the `count`-th opened link; says which it was."""
        links = wait.until(lambda: self.sandbox.journal("xdg-open", "open"), f"{count} opened links",
                           accept=lambda found: len(found) >= count)
        return f"opened: {links[count - 1].items('args')[0]}"

    def feedback(self, window: Window) -> None:
        """Chooses a reason, opens the link, gives a feedback, and is thanked with a coupon."""
        # The only reason whose row is fixed.
        steps.choose(self.sandbox, window, steps.LAST_REASON)
        say("A reason is chosen: the feedback box", *self.events())
        window.click(layout.FEEDBACK_LINK)
        link = self.opened(1)
        say("The link below it is clicked: an offer is asked for and opened", *self.look_ups(),
            *self.events(), link)
        steps.write(window, "The picture is cut off on the left.")
        window.wait_colour(layout.SUBMIT_EDGE, layout.SUBMIT_BORDER)
        say("Feedback is typed", self.screenshot(window, "feedback"))
        steps.submit(window)
        steps.wait_coupon(window)
        say("It is submitted: thanks, and a coupon", *self.look_ups(), *self.events(),
            self.screenshot(window, "thanks"))
        window.click(layout.COUPON)
        link = self.opened(2)
        say("The coupon is clicked", *self.events(), link)

    def walk(self) -> None:
        """All steps in turn; the first that is not seen raises."""
        sandbox = self.sandbox
        hold = sandbox.hold("uninstall.exe")
        product = sandbox.spawn("KTRUI.exe")
        sandbox.wait_noted("KTRUI.exe", "start")
        # valgrind would have to follow code that the JIT compiles.
        interpreted: dict[str, str | None] = {"QV4_FORCE_INTERPRETER": "1"} if self.under else {}
        program = sandbox.start(under=self.under, environment=interpreted)
        window = program.ready()
        sandbox.wait_noted("SkyrelWrapExe.exe", "start")
        say("The window is open", f"window {window.geometry}, handle file {sandbox.read_handle():#x}",
            "telemetry library loaded, its companion runs", *self.look_ups(),
            self.screenshot(window, "home"))

        self.feedback(window)

        steps.uninstall(window)
        box = program.box()
        say("Uninstall, while the product runs: the warning", *self.events(), self.screenshot(window, "warning"))
        product.kill()
        box.click(layout.BOX_OK)
        box.wait_gone()

        steps.uninstall(window)
        entry = sandbox.wait_noted("uninstall.exe", "start")
        say("Uninstall, with the product closed: the uninstaller runs",
            f"command line: uninstall.exe {' '.join(entry.items('args'))}", f"in {entry.text('cwd')}")
        steps.wait_buttons_disabled(window)
        first = steps.wait_climbing(window)
        reached = steps.wait_climbing(window, first)
        say("The bar climbs", f"{first:.1%}, then {reached:.1%}", self.screenshot(window, "progress"))
        hold.unlink()
        sandbox.wait_noted("uninstall.exe", "end")
        steps.wait_complete(window)
        say("The uninstaller has gone: complete", self.screenshot(window, "complete"))

        window.click(layout.CANCEL)
        steps.expect_end(sandbox, program, cleanup=True)
        entry = sandbox.wait_noted("clearKTR.bat", "start")
        say("OK closes the window", "exit decision: 0, so the clean-up follows",
            "the companion process was ended",
            f"clean-up: {entry.text('script')} \"{entry.items('args')[0]}\"",
            f"in {entry.text('cwd')}, nice {entry.text('nice')}")
        unexpected = unexpected_lines(program.stderr)
        if unexpected:
            raise wait.Unexpected(f"on standard error: {unexpected}")


def valgrind(log: Path | None) -> list[str]:
    """valgrind's command line, if the program is to be checked; an error gives status 99."""
    return [] if log is None else [
        "valgrind", "--error-exitcode=99", f"--log-file={log.resolve()}", "--trace-children=no",
        f"--suppressions={REPOSITORY}/tests/valgrind.supp"]


def arguments(parser: argparse.ArgumentParser) -> None:
    """The command line."""
    parser.add_argument("--sandbox", type=Path, required=True, help="the assembled sandbox")
    parser.add_argument("--screenshots", type=Path, required=True, help="where screenshots go")
    parser.add_argument("--valgrind", type=Path, metavar="LOG", help="let valgrind check the program "
                        "and write what it finds there; KTR_PATIENCE should be 10 or so")


def run(options: argparse.Namespace) -> int:
    """Takes the tour."""
    shutil.rmtree(options.screenshots, ignore_errors=True)
    options.screenshots.mkdir(parents=True)
    with Display() as display:
        sandbox = Sandbox(display, lambda root: None, root=options.sandbox)
        try:
            Tour(sandbox, options.screenshots, valgrind(options.valgrind)).walk()
        except (AssertionError, wait.TimedOut) as missing:
            image = display.screen.save(options.screenshots / "failed.png")
            print(f"ktr tour: this step was not seen: {missing}\nscreen: {image}", file=sys.stderr)
            return 1
        finally:
            sandbox.cleanup()
    print("Every step was seen.")
    return 0
