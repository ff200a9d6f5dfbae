"""The artwork and the icon: sizes, transparency, and that they are rendered from the drawings."""

import io
import math
import struct
import subprocess
from collections import Counter
from pathlib import Path

import pytest
from PIL import Image, ImageChops

ROOT = Path(__file__).resolve().parents[2]
IMAGES = ROOT / "src/qml/images"
ICON = ROOT / "src/resources/icon/uninstall.ico"

SIZES = {
    "home_bg": (640, 306),
    "ico_info48": (48, 48),
    "ico_popup_close_disable": (16, 16),
    "ico_popup_close_hover": (16, 16),
    "ico_popup_close_normal": (16, 16),
    "ico_popup_close_press": (16, 16),
    "pic_gift": (210, 140),
    "pic_question": (132, 132),
    "pic_shadow": (256, 256),
}
CLOSE_STATES = ("normal", "hover", "press", "disable")
DENSITIES = {"": 1, "@2x": 2}
CORNER = 15
MARGIN = 15
ICON_IMAGES = Counter(
    [(size, 32) for size in (16, 20, 24, 32, 40, 48, 64, 128, 256)]
    + [(size, 8) for size in (16, 32, 48)]
)
# Other releases of the renderer may round differently; a changed drawing differs by far more.
TOLERANCE = 2
# The renderer's antialiasing is not quite symmetric.
ROUNDING = 10

both_densities = pytest.mark.parametrize("suffix", DENSITIES)


def artwork(name: str, suffix: str = "") -> Image.Image:
    """An image of the interface."""
    image = Image.open(IMAGES / f"{name}{suffix}.png")
    assert image.mode == "RGBA"
    return image


def premultiplied(image: Image.Image) -> Image.Image:
    """The image with premultiplied alpha, which ignores the colours of transparent pixels."""
    return image.convert("RGBA").convert("RGBa")


def largest_difference(one: Image.Image, other: Image.Image) -> int:
    """The largest difference of any channel of any pixel."""
    assert one.size == other.size
    bands = zip(premultiplied(one).split(), premultiplied(other).split())
    return max(ImageChops.difference(a, b).getextrema()[1] for a, b in bands)


def icon_images(path: Path) -> list[tuple[int, int, bytes]]:
    """Size, bits per pixel and data of each image of an icon file, according to its directory."""
    data = path.read_bytes()
    reserved, kind, count = struct.unpack_from("<HHH", data)
    assert (reserved, kind) == (0, 1)
    images = []
    for index in range(count):
        width, height, _, _, planes, depth, length, offset = struct.unpack_from(
            "<BBBBHHII", data, 6 + 16 * index
        )
        assert width == height
        assert planes == 1
        assert offset + length <= len(data)
        images.append((width or 256, depth, data[offset : offset + length]))
    return images


def icon_pixels(size: int, depth: int, data: bytes) -> Image.Image:
    """One image of an icon file, decoded by Pillow, which did not write it."""
    entry = struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, depth, len(data), 22)
    single = Image.open(io.BytesIO(struct.pack("<HHH", 0, 1, 1) + entry + data))
    return single.convert("RGBA")


@pytest.fixture(scope="module")
def rendered(tmp_path_factory):
    """A folder with all artwork rendered again."""
    folder = tmp_path_factory.mktemp("artwork")
    subprocess.run([ROOT / "tools/render-artwork", folder], check=True, timeout=120)
    return folder


def test_every_image_has_a_drawing_and_all_densities():
    expected = {f"{name}{suffix}.png" for name in SIZES for suffix in DENSITIES}
    assert {path.name for path in IMAGES.iterdir()} == expected
    drawings = {path.stem for path in (ROOT / "src/resources/artwork").glob("*.svg")}
    assert drawings == set(SIZES)


@pytest.mark.parametrize("name", SIZES)
@both_densities
def test_an_image_has_its_size(name, suffix):
    scale = DENSITIES[suffix]
    assert artwork(name, suffix).size == tuple(scale * side for side in SIZES[name])


def test_drawings_contain_no_text():
    for path in (ROOT / "src/resources").rglob("*.svg"):
        assert "<text" not in path.read_text("utf-8"), path.name


@pytest.mark.parametrize("name", ["ico_info48", "pic_gift", "pic_question"])
@both_densities
def test_a_drawing_is_not_cut_off_at_the_edge(name, suffix):
    alpha = artwork(name, suffix).getchannel("A")
    width, height = alpha.size
    sides = [(0, 0, width, 1), (0, height - 1, width, height)]
    sides += [(0, 0, 1, height), (width - 1, 0, width, height)]
    for side in sides:
        # A round shape may touch the edge; a shape that is cut off has many pixels there.
        assert sum(value > 8 for value in alpha.crop(side).getdata()) <= 16 * DENSITIES[suffix]
    for corner in ((0, 0), (width - 1, 0), (0, height - 1), (width - 1, height - 1)):
        assert alpha.getpixel(corner) == 0
    assert alpha.getextrema()[1] > 240


@both_densities
def test_background_has_round_top_corners_only(suffix):
    scale = DENSITIES[suffix]
    alpha = artwork("home_bg", suffix).getchannel("A")
    width, height = alpha.size
    radius = CORNER * scale
    for x in range(width):
        for y in range(height):
            # Distance of the pixel's centre from the corner's round edge, positive outside.
            in_x = radius - min(x + 0.5, width - x - 0.5)
            in_y = radius - (y + 0.5)
            outside = math.hypot(in_x, in_y) - radius if in_x > 0 and in_y > 0 else -radius
            if outside > 1:
                assert alpha.getpixel((x, y)) == 0, (x, y)
            elif outside < -1:
                assert alpha.getpixel((x, y)) == 255, (x, y)


@both_densities
def test_background_fades_into_the_white_card(suffix):
    background = artwork("home_bg", suffix).convert("RGB")
    width, height = background.size
    last = background.crop((0, height - 1, width, height))
    assert min(low for low, _ in last.getextrema()) >= 253
    # The fade has no step, and a visible tint where the white text box begins.
    for x in range(20, width, 20):
        column = [background.getpixel((x, y)) for y in range(20, height)]
        steps = [abs(a - b) for one, two in zip(column, column[1:]) for a, b in zip(one, two)]
        assert max(steps) <= 2
    for x in (20, width // 2, width - 20):
        assert min(background.getpixel((x, 130 * DENSITIES[suffix]))) <= 240


@both_densities
def test_background_is_light_behind_dark_text(suffix):
    grey = artwork("home_bg", suffix).convert("RGB").convert("L")
    scale = DENSITIES[suffix]
    darkest, _ = grey.crop((32 * scale, 32 * scale, 608 * scale, 300 * scale)).getextrema()
    assert darkest >= 200


@both_densities
def test_shadow_is_transparent_inside(suffix):
    scale = DENSITIES[suffix]
    alpha = artwork("pic_shadow", suffix).getchannel("A")
    low, high = MARGIN * scale, (SIZES["pic_shadow"][0] - MARGIN) * scale
    assert alpha.crop((low, low, high, high)).getextrema() == (0, 0)
    assert alpha.getextrema()[1] > 30


@both_densities
def test_shadow_is_even_on_all_sides(suffix):
    alpha = artwork("pic_shadow", suffix).getchannel("A")
    for turn in (
        Image.Transpose.FLIP_LEFT_RIGHT,
        Image.Transpose.FLIP_TOP_BOTTOM,
        Image.Transpose.ROTATE_180,
    ):
        assert ImageChops.difference(alpha, alpha.transpose(turn)).getextrema()[1] <= 1
    # Vertical and horizontal sides are stretched differently but fade alike.
    middle = alpha.width // 2
    for step in range(MARGIN * DENSITIES[suffix]):
        assert abs(alpha.getpixel((middle, step)) - alpha.getpixel((step, middle))) <= 1


@both_densities
def test_shadow_grows_softly_towards_the_card(suffix):
    scale = DENSITIES[suffix]
    alpha = artwork("pic_shadow", suffix).getchannel("A")
    side = alpha.width
    for along in range(side):
        line = [alpha.getpixel((along, depth)) for depth in range(MARGIN * scale)]
        assert line[0] <= 2
        assert line == sorted(line)
        assert max(b - a for a, b in zip(line, line[1:])) <= 16 // scale
    # No seam where a corner and a side meet. The image has the sides squeezed and the window
    # stretches them: a pixel here becomes up to three on the screen.
    for depth in range(MARGIN * scale):
        line = [alpha.getpixel((along, depth)) for along in range(side)]
        assert max(abs(b - a) for a, b in zip(line, line[1:])) <= 18 // scale


def test_the_states_of_the_close_button_differ():
    states = [artwork(f"ico_popup_close_{state}") for state in CLOSE_STATES]
    for index, one in enumerate(states):
        for other in states[index + 1 :]:
            assert largest_difference(one, other) > 30


@pytest.mark.parametrize("state", CLOSE_STATES)
@both_densities
def test_cross_is_symmetric_and_sharp(state, suffix):
    cross = artwork(f"ico_popup_close_{state}", suffix)
    for turn in (Image.Transpose.FLIP_LEFT_RIGHT, Image.Transpose.ROTATE_90):
        assert largest_difference(cross, cross.transpose(turn)) <= ROUNDING
    # The strokes run through the centres of pixels, which are filled completely.
    alpha = cross.getchannel("A")
    scale = DENSITIES[suffix]
    for place in range(5 * scale, 11 * scale):
        assert alpha.getpixel((place, place)) >= 225


def test_icon_has_twelve_images():
    images = icon_images(ICON)
    assert len(images) == 12
    assert Counter((size, depth) for size, depth, _ in images) == ICON_IMAGES


def test_icon_images_match_the_directory():
    for size, depth, data in icon_images(ICON):
        if size == 256:
            assert Image.open(io.BytesIO(data)).size == (256, 256)
            continue
        header = struct.unpack_from("<IiiHHI", data)
        assert header == (40, size, 2 * size, 1, depth, 0)
        palette = 4 * 256 if depth == 8 else 0
        mask_row = (size + 31) // 32 * 4
        assert len(data) == 40 + palette + size * size * depth // 8 + size * mask_row


def test_icon_palette_images_look_like_the_32_bit_ones():
    pixels = {(size, depth): icon_pixels(size, depth, d) for size, depth, d in icon_images(ICON)}
    shallow = [size for size, depth in pixels if depth == 8]
    assert shallow
    for size in shallow:
        deep, flat = pixels[size, 32], pixels[size, 8]
        inside = (size // 4, size // 4, 3 * size // 4, 3 * size // 4)
        assert largest_difference(deep.crop(inside), flat.crop(inside)) <= 12
        assert flat.getpixel((0, 0))[3] == 0


def test_committed_artwork_is_rendered_from_the_drawings(rendered):
    for name in SIZES:
        for suffix in DENSITIES:
            again = Image.open(rendered / f"src/qml/images/{name}{suffix}.png")
            assert largest_difference(again, artwork(name, suffix)) <= TOLERANCE, name + suffix


def test_committed_icon_is_rendered_from_the_drawings(rendered):
    committed, again = icon_images(ICON), icon_images(rendered / "src/resources/icon/uninstall.ico")
    assert [image[:2] for image in committed] == [image[:2] for image in again]
    for one, other in zip(committed, again):
        # A colour that is rounded differently may lead to another palette.
        allowed = TOLERANCE if one[1] == 32 else 6 * TOLERANCE
        assert largest_difference(icon_pixels(*one), icon_pixels(*other)) <= allowed
