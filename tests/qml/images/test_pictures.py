"""Every state of the interface looks as its reference picture does."""

import fcntl
import os
import shutil
import subprocess
from pathlib import Path

import pytest
from PIL import Image, ImageChops

from ktr.references import SCALES, Comparison, by_reference, folder

ROOT = Path(__file__).resolve().parents[3]
BUILD = Path(os.environ.get("KTR_BUILD") or ROOT / "build" / "linux-debug").resolve()
REMAINS = ROOT / "build" / "picture-failures"
REFERENCES = [(scale, path.name) for scale in SCALES for path in sorted(folder(scale).iterdir())]

pytestmark = pytest.mark.timeout(300)


@pytest.fixture(scope="session")
def taken(tmp_path_factory) -> Path:
    """The folder of the pictures, by scale; taken once, by the first of all workers to ask."""
    base = tmp_path_factory.getbasetemp()
    shared = base.parent if "PYTEST_XDIST_WORKER" in os.environ else base
    into, done, log = shared / "pictures", shared / "pictures.status", REMAINS / "gallery.log"
    with open(shared / "pictures.lock", "w", encoding="utf-8") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not done.exists():
            shutil.rmtree(REMAINS, ignore_errors=True)
            REMAINS.mkdir(parents=True)
            runner = BUILD / "tests" / "qml" / "ktr_qml_tests"
            with open(log, "wb") as output:
                run = subprocess.run(
                    [ROOT / "tools" / "ktr", "gallery", "--runner", runner, "--into", into,
                     "--scales", *SCALES],
                    stdout=output, stderr=subprocess.STDOUT, timeout=240, check=False)
            done.write_text(str(run.returncode), "utf-8")
    if done.read_text("utf-8") != "0":
        pytest.fail(f"the pictures could not be taken; {log} says why", pytrace=False)
    return into


def remains(scale: str, name: str, **files: Path) -> Path:
    """A folder for what a failure leaves, with copies of these files in it."""
    place = REMAINS / scale / Path(name).stem
    place.mkdir(parents=True, exist_ok=True)
    for kind, path in files.items():
        shutil.copyfile(path, place / f"{kind}.png")
    return place


@pytest.mark.parametrize(("scale", "name"), REFERENCES)
def test_picture(taken, scale, name):
    actual, reference = by_reference(taken / scale).get(name), folder(scale) / name
    if actual is None:
        pytest.fail(f"no picture for this reference any more: {reference}")
    comparison = Comparison(actual, reference)
    if comparison.complaint:
        place = remains(scale, name, actual=actual, reference=reference)
        comparison.save_difference(place / "difference.png")
        pytest.fail(f"{comparison.complaint}; see actual, reference and difference in {place}. "
                    f"If it shall look like that: tools/ktr gallery --references")


@pytest.mark.parametrize("scale", SCALES)
def test_every_picture_has_a_reference(taken, scale):
    pictures = by_reference(taken / scale)
    new = [name for name in pictures if not (folder(scale) / name).exists()]
    for name in new:
        remains(scale, name, actual=pictures[name])
    assert not new, f"no reference: {new}; see {REMAINS}. To add them: tools/ktr gallery --references"


def recoloured(image: Image.Image) -> Image.Image:
    """With its most frequent colour off by three units in one channel."""
    _, (red, green, blue) = max(image.getcolors(1 << 24))
    mask = ImageChops.difference(image, Image.new("RGB", image.size, (red, green, blue)))
    same = mask.convert("L", (1, 1, 1, 0)).point(lambda value: 0 if value else 255)
    return Image.composite(Image.new("RGB", image.size, (red, green, abs(blue - 3))), image, same)


def dotted(image: Image.Image) -> Image.Image:
    """With one grey pixel too many."""
    image.putpixel((image.width // 3, image.height - 12), (200, 200, 200))
    return image


CHANGES = {
    "a colour off by three": recoloured,
    "one pixel too many": dotted,
    "a row down": lambda image: ImageChops.offset(image, 0, 1),
    "a column to the right": lambda image: ImageChops.offset(image, 1, 0),
    "a row less": lambda image: image.crop((0, 0, image.width, image.height - 1)),
}


@pytest.mark.parametrize("change", CHANGES)
@pytest.mark.parametrize("name", ["reasons", "light-button-hovered", "link", "bar-at-37"])
@pytest.mark.parametrize("scale", SCALES)
def test_a_changed_picture_is_seen(tmp_path, scale, name, change):
    reference = folder(scale) / f"{name}.png"
    with Image.open(reference) as image:
        CHANGES[change](image.convert("RGB")).save(tmp_path / "changed.png")
    assert Comparison(tmp_path / "changed.png", reference).complaint


def test_a_difference_in_rounding_is_none(tmp_path):
    reference = folder("1") / "reasons.png"
    with Image.open(reference) as image:
        image.convert("RGB").point(lambda value: max(0, value - 2)).save(tmp_path / "rounded.png")
    assert not Comparison(tmp_path / "rounded.png", reference).complaint
