"""Every state of the interface looks like its reference image."""

import fcntl
import os
import shutil
import subprocess
from pathlib import Path

import pytest
from PIL import Image, ImageChops

from ktr.reference_images import SCALES, Comparison, by_reference, folder

ROOT = Path(__file__).resolve().parents[3]
BUILD = Path(os.environ.get("KTR_BUILD") or ROOT / "build" / "linux-debug").resolve()
FAILURES = ROOT / "build" / "image-failures"
REFERENCE_IMAGES = [
    (scale, path.name) for scale in SCALES for path in sorted(folder(scale).iterdir())]

pytestmark = pytest.mark.timeout(300)


@pytest.fixture(scope="session")
def taken(tmp_path_factory) -> Path:
    """The folder of the screenshots, by scale; the first worker takes them for all."""
    base = tmp_path_factory.getbasetemp()
    into = (base.parent if "PYTEST_XDIST_WORKER" in os.environ else base) / "images"
    done = into.with_suffix(".taken")
    with open(into.with_suffix(".lock"), "w", encoding="utf-8") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not done.exists():
            shutil.rmtree(FAILURES, ignore_errors=True)
            subprocess.run(
                [ROOT / "tools" / "ktr", "gallery", "--runner", BUILD / "tests/qml/ktr_qml_tests",
                 "--into", into, "--scales", *SCALES], timeout=240, check=True)
            done.touch()
    return into


@pytest.mark.parametrize(("scale", "name"), REFERENCE_IMAGES)
def test_a_state_looks_like_its_reference_image(taken, scale, name):
    actual, reference = by_reference(taken / scale).get(name), folder(scale) / name
    assert actual, f"no screenshot for this reference image: {reference}"
    comparison = Comparison(actual, reference)
    if comparison.complaint:
        place = FAILURES / scale / reference.stem
        place.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(actual, place / "actual.png")
        shutil.copyfile(reference, place / "reference.png")
        comparison.save_difference(place / "difference.png")
        pytest.fail(f"{comparison.complaint}; see actual, reference and difference in {place}. "
                    f"If the change is intended: tools/ktr gallery --reference-images")


@pytest.mark.parametrize("scale", SCALES)
def test_every_screenshot_has_a_reference_image(taken, scale):
    new = set(by_reference(taken / scale)) - {path.name for path in folder(scale).iterdir()}
    assert not new, (f"no reference image: {sorted(new)}. "
                     f"To add them: tools/ktr gallery --reference-images")


def recoloured(image: Image.Image) -> Image.Image:
    """Changes the most frequent colour by three units in one channel."""
    _, (red, green, blue) = max(image.getcolors(1 << 24))
    mask = ImageChops.difference(image, Image.new("RGB", image.size, (red, green, blue)))
    same = mask.convert("L", (1, 1, 1, 0)).point(lambda value: 0 if value else 255)
    return Image.composite(Image.new("RGB", image.size, (red, green, abs(blue - 3))), image, same)


def dotted(image: Image.Image) -> Image.Image:
    """Adds one grey pixel."""
    image.putpixel((image.width // 3, image.height - 12), (200, 200, 200))
    return image


CHANGES = {
    "a colour off by three": recoloured,
    "one pixel too many": dotted,
    "a row down": lambda image: ImageChops.offset(image, 0, 1),
    "a row less": lambda image: image.crop((0, 0, image.width, image.height - 1)),
    "rounding": lambda image: image.point(lambda value: max(0, value - 2)),
}


@pytest.mark.parametrize("change", CHANGES)
@pytest.mark.parametrize("name", ["reasons", "link"])
def test_a_change_is_found_unless_it_is_rounding(tmp_path, name, change):
    reference = folder("1") / f"{name}.png"
    with Image.open(reference) as image:
        CHANGES[change](image.convert("RGB")).save(tmp_path / "changed.png")
    seen = Comparison(tmp_path / "changed.png", reference).complaint
    assert bool(seen) == (change != "rounding")
