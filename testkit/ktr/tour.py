"""Takes the program through its main job on a virtual display, with real input events, and prints
step by step what happened. Status 0 only when every step was seen."""

import argparse
import shutil
import sys
from dataclasses import dataclass
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


@dataclass
class Tour:
    """One walk through the program."""

    sandbox: Sandbox
    folder: Path
    under: list[str]
    taken: int = 0
    known_events: int = 0
    known_look_ups: int = 0

    def screenshot(self, window: Window, name: str) -> str:
        self.taken += 1
        file = self.folder / f"{self.taken:02}-{name}.png"
        return f"screenshot: {window.screen.save(file, window.geometry)}"

    def events(self) -> list[str]:
        """The usage events since the last call."""
        events = steps.events(self.sandbox)
        new, self.known_events = events[self.known_events:], len(events)
        return [f"usage event: {' / '.join(event)}" for event in new]

    def look_ups(self) -> list[str]:
        """The look-ups in the remote configuration since the last call."""
        entries = self.sandbox.journal("vantoronlineconfig.dll")
        new, self.known_look_ups = entries[self.known_look_ups:], len(entries)
        prefixes = [f"configuration prefix: {entry.text('prefix')}" for entry in new
                    if entry.event == "set_filter_environment"]
        return prefixes + [
            f"configuration key: {entry.text('key')} {entry.text('suffix')}".rstrip()
            for entry in new if entry.matches(event="get_string_value", buffer="given")]

    def opened(self, count: int) -> str:
        """Waits for the `count`-th opened link; says which it was."""
        links = wait.until(lambda: self.sandbox.journal("xdg-open", "open"),
                           f"{count} opened links", accept=lambda found: len(found) >= count)
        return f"opened: {links[count - 1].items('args')[0]}"

    def feedback(self, window: Window) -> None:
        """Chooses a reason, opens the link, gives feedback, and is thanked with a coupon."""
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
        say("The window is open",
            f"window {window.geometry}, handle file {sandbox.read_handle():#x}",
            "telemetry library loaded, its companion runs", *self.look_ups(),
            self.screenshot(window, "home"))

        self.feedback(window)

        steps.uninstall(window)
        box = program.box()
        say("Uninstall, while the product runs: the warning", *self.events(),
            self.screenshot(window, "warning"))
        product.kill()
        box.click(layout.BOX_OK)
        box.wait_gone()

        steps.uninstall(window)
        entry = sandbox.wait_noted("uninstall.exe", "start")
        say("Uninstall, with the product closed: the uninstaller runs",
            f"command line: uninstall.exe {' '.join(entry.items('args'))}",
            f"in {entry.text('cwd')}")
        steps.wait_buttons_disabled(window)
        first = steps.wait_climbing(window)
        reached = steps.wait_climbing(window, first)
        say("The bar climbs", f"{first:.1%}, then {reached:.1%}",
            self.screenshot(window, "progress"))
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
        wait.expect("unexpected lines on standard error", unexpected_lines(program.stderr), [])


def arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("--sandbox", type=Path, required=True, help="the assembled sandbox")
    parser.add_argument("--screenshots", type=Path, required=True, help="where screenshots go")
    parser.add_argument("--valgrind", type=Path, metavar="LOG", help="let valgrind check the "
                        "program and write what it finds there; KTR_PATIENCE should be 10 or so")


def run(options: argparse.Namespace) -> int:
    shutil.rmtree(options.screenshots, ignore_errors=True)
    under = [] if options.valgrind is None else [
        "valgrind", "--error-exitcode=99", f"--log-file={options.valgrind.resolve()}",
        "--trace-children=no", f"--suppressions={REPOSITORY}/tests/valgrind.supp"]
    with Display() as display:
        sandbox = Sandbox(display, lambda root: None, root=options.sandbox)
        try:
            Tour(sandbox, options.screenshots, under).walk()
        except (AssertionError, wait.TimedOut) as missing:
            image = display.screen.save(options.screenshots / "failed.png")
            print(f"ktr tour: this step was not seen: {missing}\nscreen: {image}", file=sys.stderr)
            return 1
        finally:
            sandbox.cleanup()
    print("Every step was seen.")
    return 0
