"""The window on the desktop: its size, icon and colours."""

import pytest
from PIL import Image
from Xlib import X

from ktr import layout, steps, wait
from ktr.steps import expect_end

pytestmark = pytest.mark.usefixtures("reasons")


def leave(sandbox, program):
    """Cancels and waits for the end."""
    program.window().click(layout.CANCEL)
    expect_end(sandbox, program, cleanup=False)


def test_the_window_has_a_fixed_size(sandbox, program):
    window = program.window()
    place = window.geometry
    window.maximise()
    sandbox.display.windows.wait_for_window_manager()
    window.drag(layout.TITLE_GRIP, 20, 10)
    assert window.geometry == place.moved(20, 10)
    grip = window.place(layout.TITLE_GRIP)
    sandbox.display.input.double_click(grip.x, grip.y)
    window.drag(layout.TITLE_GRIP, -20, -10)
    assert window.geometry == place
    leave(sandbox, program)


def test_a_compositor_changes_nothing(sandbox):
    # Only on Windows does the program draw a shadow.
    connection = sandbox.display.connection
    owner = sandbox.display.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
    selection = connection.intern_atom("_NET_WM_CM_S0")
    owner.set_selection_owner(selection, X.CurrentTime)
    connection.sync()
    try:
        assert connection.get_selection_owner(selection) == owner
        program = sandbox.start()
        assert program.ready().geometry.size == layout.CARD.size
        leave(sandbox, program)
    finally:
        owner.destroy()
        connection.sync()


def install_icon(sandbox, colour):
    """Replaces the product's icon by one of one colour; returns its sizes."""
    sizes = [(16, 16), (32, 32), (48, 48)]
    Image.new("RGB", (48, 48), colour).save(
        sandbox.root / "Dravik" / "res" / "install_box.ico", sizes=sizes)
    return set(sizes)


@pytest.mark.parametrize("factor", [1.25, 1.5])
def test_the_radio_buttons_are_closed_circles_at_a_fractional_scale(sandbox, factor):
    program = sandbox.start(environment={"QT_SCALE_FACTOR": str(factor)})
    window = program.window()

    def scaled(point):
        return layout.Point(int(point.x * factor), int(point.y * factor))

    window.wait_colour(scaled(layout.face(layout.CANCEL)), layout.CANCEL_NORMAL)
    reach = int(9 * factor)
    for row in range(4):
        centre = scaled(layout.ring(row))
        area = layout.Rect(centre.x - reach, centre.y - reach, 2 * reach + 1, 2 * reach + 1)
        grey = window.screen.screenshot(window.area(area)).convert("L")
        radii = []
        # Between the white centre and the light background there is a grey line.
        for x, y in ((-1, 0), (1, 0), (0, -1), (0, 1)):
            line = [grey.getpixel((reach + x * step, reach + y * step))
                    for step in range(reach + 1)]
            assert line[0] == 255 and line[-1] > 225 and min(line) < 215, (row, x, y, line)
            ink = [max(0, line[-1] - value) for value in line]
            radii.append(sum(step * share for step, share in enumerate(ink)) / sum(ink))
        left, right, up, down = radii
        assert abs(left + right - up - down) < 0.5, (row, radii)
    window.close()
    expect_end(sandbox, program, cleanup=False)


def test_the_window_has_the_product_s_icon(sandbox):
    violet = (120, 20, 200)
    sizes = install_icon(sandbox, violet)
    program = sandbox.start()
    icons = program.ready().icons
    assert icons and set(icons) <= sizes
    assert set(icons.values()) == {violet}
    leave(sandbox, program)


def test_a_link_has_the_link_colour(sandbox, program):
    window = program.window()
    steps.choose(sandbox, window, 3)
    link = layout.FEEDBACK_LINK
    area = window.area(layout.Rect(link.x - 40, link.y - 10, 300, 20))
    wait.until(lambda: window.screen.share(area, "#037DFF", 2), "a link of the link colour",
               accept=lambda share: share > 0.01)
    leave(sandbox, program)


def test_a_lock_file_that_cannot_be_opened_does_not_stop_the_program(sandbox):
    # A dangling link: the lock is neither held nor denied.
    sandbox.system.lock_file(sandbox.root).symlink_to("/nowhere/at/all")
    program = sandbox.start()
    leave(sandbox, program)
