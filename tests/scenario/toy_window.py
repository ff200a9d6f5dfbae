"""A small X program that behaves a little like the real one, to prove the driver with.

It stands in for no part of the program: it only has windows, takes events and can misbehave.
"""

import argparse
import os
import subprocess
import sys
from typing import Any

from Xlib import X, Xatom, Xutil
from Xlib import display as xdisplay

BLUE, LIGHT, TRACK, WHITE = 0x1F6FFF, 0xE0EAFC, 0xEBEEF2, 0xFFFFFF


class Toy:
    """One main window, one box at most."""

    def __init__(self, options):
        self.options = options
        self.display = xdisplay.Display()
        self.screen = self.display.screen()
        self.box: Any = None
        self.pressed = (0, 0)
        self.main = self.open(640, 408, "toy", not options.framed)

    def atom(self, name):
        return self.display.intern_atom(name)

    def open(self, width, height, title, frameless, at=None):
        window = self.screen.root.create_window(
            *(at or (0, 0)), width, height, 0, self.screen.root_depth,
            background_pixel=WHITE,
            event_mask=X.ExposureMask | X.ButtonPressMask | X.ButtonReleaseMask
            | X.Button1MotionMask | X.KeyPressMask,
        )
        window.set_wm_name(title)
        if at:
            window.set_wm_normal_hints(flags=Xutil.USPosition)
            window.change_property(self.atom("WM_TRANSIENT_FOR"), Xatom.WINDOW, 32, [self.main.id])
            window.change_property(
                self.atom("_NET_WM_STATE"), Xatom.ATOM, 32, [self.atom("_NET_WM_STATE_MODAL")]
            )
        window.set_wm_protocols([self.atom("WM_DELETE_WINDOW")])
        window.change_property(self.atom("_NET_WM_PID"), Xatom.CARDINAL, 32, [os.getpid()])
        if frameless:
            hints = self.atom("_MOTIF_WM_HINTS")
            window.change_property(hints, hints, 32, [2, 0, 0, 0, 0])
        window.map()
        return window

    def fill(self, window, pixel, x, y, width, height):
        context = window.create_gc(foreground=pixel)
        window.fill_rectangle(context, x, y, width, height)
        context.free()

    def paint(self, window):
        if window == self.main:
            self.fill(window, BLUE, 508, 356, 100, 28)
            self.fill(window, LIGHT, 388, 356, 100, 28)
            if self.options.bar is not None:
                self.fill(window, TRACK, 32, 338, 576, 4)
                self.fill(window, BLUE, 32, 338, 576 * self.options.bar // 100, 4)
        else:
            self.fill(window, BLUE, 348, 192, 100, 28)

    def run(self):
        while True:
            event = self.display.next_event()
            if event.type == X.Expose:
                self.paint(event.window)
            elif event.type == X.ClientMessage:
                if event.window == self.main:
                    say("closed")
                    return self.options.status
                self.close_box("box closed")
            elif event.type == X.KeyPress:
                self.key(event)
            elif event.type == X.ButtonPress:
                self.pressed = (event.event_x, event.event_y)
            elif event.type == X.MotionNotify and self.pressed[1] < 32:
                self.drag(event)
            elif event.type == X.ButtonRelease:
                if self.click(event):
                    return 0

    def key(self, event):
        keysym = self.display.keycode_to_keysym(event.detail, event.state & X.ShiftMask)
        say(f"key {chr(keysym) if 0x20 <= keysym < 0x7F else hex(keysym)}")

    def drag(self, event):
        where = event.window.translate_coords(self.screen.root, 0, 0)
        event.window.configure(
            x=-where.x + event.event_x - self.pressed[0],
            y=-where.y + event.event_y - self.pressed[1],
        )

    def click(self, event):
        x, y = event.event_x, event.event_y
        say(f"click {'main' if event.window == self.main else 'box'} {x} {y}")
        if event.window != self.main:
            if 348 <= x < 448 and 192 <= y < 220:
                self.close_box("box ok")
            return False
        if 388 <= x < 488 and 356 <= y < 384 and self.box is None:
            where = self.main.translate_coords(self.screen.root, 0, 0)
            self.box = self.open(480, 240, "toy box", True, (-where.x + 80, -where.y + 84))
        return 508 <= x < 608 and 356 <= y < 384

    def close_box(self, text):
        say(text)
        self.box.destroy()
        self.box = None


def say(text):
    print(text, flush=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--framed", action="store_true")
    parser.add_argument("--bar", type=int)
    parser.add_argument("--status", type=int, default=0)
    parser.add_argument("--complain")
    parser.add_argument("--no-window", action="store_true")
    parser.add_argument("--leave", help="a program to start and leave behind")
    options = parser.parse_args()
    if options.complain:
        print(options.complain, file=sys.stderr, flush=True)
    if options.leave:
        subprocess.Popen([options.leave], start_new_session=True)
    return options.status if options.no_window else Toy(options).run()


if __name__ == "__main__":
    sys.exit(main())
