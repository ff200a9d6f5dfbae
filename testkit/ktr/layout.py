"""Where everything is in the program's windows, in pixels from the window's top left corner.

The numbers hold for a main window without a drop-shadow margin. With one, everything moves by
`shadow_margin(width)`; `Window.place` adds it.
"""

from ktr.geometry import Point, Rect

# Main window -----------------------------------------------------------------------------------

CARD = Rect(0, 0, 640, 408)
"""The visible card: the whole main window when there is no shadow."""

SHADOW = 15
"""Width of the margin round the card when the system draws drop shadows."""

TITLE_BAR = Rect(0, 0, CARD.width, 32)
TITLE_CLOSE = Rect(TITLE_BAR.right - 8 - 16, (TITLE_BAR.height - 16) // 2, 16, 16)
TITLE_GRIP = Point(200, TITLE_BAR.height // 2)
"""A point of the title bar from which the window can be dragged."""

PAGE = Rect(32, TITLE_BAR.bottom + 8, CARD.width - 2 * 32, CARD.bottom - TITLE_BAR.bottom - 8)
TITLE_LABEL = Rect(PAGE.left, PAGE.top, PAGE.width, 48)

BUTTON_ROW = Rect(PAGE.left, PAGE.bottom - 24 - 28, PAGE.width, 28)
CANCEL = Rect(BUTTON_ROW.right - 100, BUTTON_ROW.top, 100, 28)
"""The filled button: "Cancel", after the uninstallation "OK"."""
UNINSTALL = Rect(CANCEL.left - 20 - 100, BUTTON_ROW.top, 100, 28)

PROGRESS_BAR = Rect(PAGE.left, BUTTON_ROW.top - 14 - 4, PAGE.width, 4)
PROGRESS_LABEL = Rect(PAGE.left, PROGRESS_BAR.top - 4 - 17, PAGE.width, 17)
"""One line of 14 pixels; its bottom edge is exact, its height depends on the font by a few."""

FRAME = Rect(PAGE.left, TITLE_LABEL.bottom + 30, PAGE.width,
             PROGRESS_LABEL.top - 5 - TITLE_LABEL.bottom - 30)
"""The content area; its bottom edge depends on the font by a few pixels."""


def reason(row: int) -> Rect:
    """The reason in a row from 0: its left part, which even a short text reaches."""
    return Rect(FRAME.left, FRAME.top + row * (19 + 10), 60, 19)


def ring(row: int) -> Point:
    """The centre of the radio button's ring in a row from 0."""
    return Point(FRAME.left + 6 + 7, FRAME.top + row * (19 + 10) + 3 + 7)


GIFT = Rect(FRAME.right - 48 - 210, FRAME.top + (FRAME.height - 140) // 2, 210, 140)
"""The image of the coupon pages."""
COUPON = FRAME
"""The whole coupon area can be clicked."""

FEEDBACK = Rect(FRAME.left, FRAME.top, FRAME.width, 156)
FEEDBACK_SUBMIT = Rect(FEEDBACK.right - 16 - 100, FEEDBACK.bottom - 16 - 28, 100, 28)
SUBMIT_EDGE = Point(FEEDBACK_SUBMIT.right - 1, FEEDBACK_SUBMIT.top + 14)
"""A point of its border, whose colour tells whether it is enabled. On the right, since a long text
widens the button to the left."""
FEEDBACK_LINK = Point(FRAME.left + 40, FRAME.bottom - 11 - 8)
"""A point inside the link under the feedback box (a line of 13 pixels, 11 above the bottom)."""


def shadow_margin(width: int) -> int:
    """Width of the shadow round the card, from the width of the main window."""
    return SHADOW if width == CARD.width + 2 * SHADOW else 0


# Message box -----------------------------------------------------------------------------------

BOX = Rect(0, 0, 480, 240)
BOX_TITLE_GRIP = Point(200, 16)
BOX_CLOSE = Rect(BOX.right - 1 - 16 - 16, 1 + (31 - 16) // 2, 16, 16)
BOX_OK = Rect(BOX.right - 32 - 100, BOX.bottom - 20 - 28, 100, 28)


def box_on(main: Rect) -> Rect:
    """Where a message box stands that is centred on the given main window (root coordinates)."""
    return BOX.moved(main.left + (main.width - BOX.width) // 2,
                     main.top + (main.height - BOX.height) // 2)


# Colours ---------------------------------------------------------------------------------------

WHITE = "#FFFFFF"
CANCEL_NORMAL = "#1F6FFF"
CANCEL_HOVERED = "#227AFF"
UNINSTALL_NORMAL = "#E0EAFC"
BUTTON_DISABLED = "#E9ECF2"
BAR_TRACK = "#EBEEF2"
BAR_FILL = "#1F6FFF"
COMPLETE_TEXT = "#10A91D"
GIFT_COLOUR = "#1F6FFF"
SELECTION = "#1F6FFF"
FEEDBACK_FOCUSED = "#7AAAFF"
SUBMIT_BORDER = "#1F6FFF"
SUBMIT_DISABLED_BORDER = "#E9ECF2"


def face(button: Rect) -> Point:
    """A point of a button that shows its background: above its text."""
    return Point(button.left + button.width // 2, button.top + 4)
