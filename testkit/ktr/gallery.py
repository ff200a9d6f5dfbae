"""Takes screenshots of every state of the interface at several scales and writes an index of them.

With --translations it takes every pane in every language as well, onto a page of their own.
With --reference-images it updates the reference images of tests/qml/images/ instead and names those
that changed.
"""

import argparse
import csv
import html
import os
import shutil
import subprocess
import sys
import tempfile
from collections.abc import Sequence
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from ktr import page, reference_images
from ktr.installation import REPOSITORY as ROOT

BUILD = ROOT / "build" / "linux-debug"
SCALES = ("1", "1.25", "1.5", "2")
LANGUAGE_SCALES = ("1", "2")
QML = ROOT / "tests" / "qml"


def take(runner: Path, scale: str, into: Path, scenes: str, variables: dict[str, str]) -> None:
    """Takes the screenshots of one scale, on a display large enough for the largest scale."""
    with tempfile.TemporaryDirectory(prefix="ktr-gallery-") as private:
        # Fonts, themes, desktop and scale of the user would all be visible.
        environment = {name: os.environ[name] for name in ("PATH", "TMPDIR") if name in os.environ}
        environment.update({
            "FONTCONFIG_FILE": str(reference_images.FONTS), "HOME": private,
            "KTR_GALLERY": str(into / scale), "LC_ALL": "C.UTF-8",
            "QML_DISABLE_DISK_CACHE": "1", "QT_QPA_PLATFORM": "xcb", "QT_QUICK_BACKEND": "software",
            "QT_SCALE_FACTOR": scale, "XDG_RUNTIME_DIR": private,
            # Qt warns when the window manager no longer knows a closed window.
            "QT_LOGGING_RULES": "qt.qpa.xcb.warning=false", **variables,
        })
        done = subprocess.run(
            [ROOT / "tools" / "ktr", "display", "--size", "1600x1200", "--", runner,
             "-input", QML / scenes],
            env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
            timeout=600, check=False)
    if done.returncode != 0:
        sys.exit(f"{done.stdout}\nktr gallery: the screenshots at scale {scale} could not be taken "
                 f"(the reason is above)")


def take_all(runner: Path, scales: Sequence[str], into: Path, scenes: str = "gallery.qml",
             **variables: str) -> None:
    """Takes the screenshots at all scales in parallel, each on a display of its own.

    The variables change the environment.
    """
    with ThreadPoolExecutor(os.cpu_count()) as threads:
        list(threads.map(lambda scale: take(runner, scale, into, scenes, variables), scales))


def figures_of(folder: Path, into: Path) -> list[str]:
    """The screenshots of a folder, for a page in another one above it."""
    # The title is the file name without the number that orders it.
    return [f"<figure><figcaption>{html.escape(image.stem.split('-', 1)[1])}</figcaption>"
            f"{page.image(image, into)}</figure>" for image in sorted(folder.glob("*.png"))]


def write_languages(into: Path) -> int:
    """Writes languages.html: each language with its panes; returns the number of screenshots."""
    table = (ROOT / "src" / "translations" / "languages.csv").read_text("utf-8")
    sections, links, count = [], [], 0
    for row in csv.DictReader(table.splitlines()):
        name = html.escape(row["name"])
        links.append(f'<a href="#{name}">{name}</a>')
        facts = html.escape(f"{row['english_name']}, {row['code']}, {row['layout']}, "
                            f"Open Sans and {row['font']}, name {row['recorded_name']}")
        sections.append(f'<section id="{name}"><h2>{name}</h2><p>{facts}</p>')
        for scale in LANGUAGE_SCALES:
            figures = figures_of(into / "languages" / scale / row["name"], into)
            count += len(figures)
            sections.append(f"<div>{''.join(figures)}</div>")
        sections.append("</section>")
    nav = f'<nav><a href="index.html">Every state</a> &middot; {" ".join(links)}</nav>'
    page.write(into / "languages.html", "every language", "\n".join([nav, *sections]))
    return count


def write_index(into: Path, scales: Sequence[str], languages: bool) -> int:
    """Writes index.html: every screenshot by scale; returns how many there are."""
    sections, count = [], 0
    for scale in scales:
        figures = figures_of(into / scale, into)
        count += len(figures)
        sections.append("\n".join([f'<section id="x{scale}"><h2>Scale {scale}</h2>', *figures,
                                   "</section>"]))
    links = " ".join(f'<a href="#x{scale}">{scale}</a>' for scale in scales)
    nav = (f"<nav>Scale {links} &middot; "
           + ('<a href="languages.html">every language</a> &middot; ' if languages else "")
           + '<a href="../side-by-side/index.html">both executables side by side</a>, at all '
           "scales (./test --scenario --windows)</nav>")
    page.write(into / "index.html", "every state", "\n".join([nav, *sections]))
    return count


def update_reference_images(runner: Path) -> None:
    """Replaces reference images by what the interface shows now; prints which changed."""
    if shutil.which("optipng") is None:
        sys.exit("ktr gallery: optipng is missing: tools/bootstrap test")
    with tempfile.TemporaryDirectory(prefix="ktr-reference-images-") as taken:
        take_all(runner, reference_images.SCALES, Path(taken))
        for scale in reference_images.SCALES:
            images = reference_images.by_reference(Path(taken) / scale)
            folder = reference_images.folder(scale)
            folder.mkdir(parents=True, exist_ok=True)
            for gone in sorted({path.name for path in folder.iterdir()} - set(images)):
                (folder / gone).unlink()
                print(f"removed {scale}/{gone}")
            for name, image in images.items():
                known = (folder / name).exists()
                if known and not reference_images.Comparison(image, folder / name).complaint:
                    continue
                print(f"{'changed' if known else 'new'} {scale}/{name}")
                subprocess.run(["optipng", "-quiet", "-o2", "-strip", "all", image], check=True)
                shutil.copyfile(image, folder / name)


def built_runner() -> Path:
    """The interface's test program, brought up to date."""
    if not (BUILD / "build.ninja").exists():
        subprocess.run(["cmake", "--preset", BUILD.name], cwd=ROOT, check=True)
    subprocess.run(["cmake", "--build", BUILD, "--target", "ktr_qml_tests"], check=True)
    return BUILD / "tests" / "qml" / "ktr_qml_tests"


def arguments(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("--runner", type=Path, help="the interface's test program (default: built)")
    parser.add_argument("--into", type=Path, default=ROOT / "build" / "gallery",
                        help="folder, replaced as a whole (default: %(default)s)")
    parser.add_argument("--scales", nargs="+", default=SCALES, metavar="SCALE")
    parser.add_argument("--translations", type=Path, metavar="FOLDER",
                        help="the compiled translations: every language as well")
    parser.add_argument("--reference-images", action="store_true",
                        help="update tests/qml/images/reference/ instead")


def run(options: argparse.Namespace) -> int:
    """Takes the screenshots and writes the index."""
    runner = (options.runner or built_runner()).resolve()
    if options.reference_images:
        update_reference_images(runner)
        return 0
    into = options.into.resolve()
    shutil.rmtree(into, ignore_errors=True)
    take_all(runner, options.scales, into)
    count = write_index(into, options.scales, options.translations is not None)
    print(f"{count} screenshots: {into}/index.html")
    if options.translations is not None:
        take_all(runner, LANGUAGE_SCALES, into / "languages", "tst_Languages.qml",
                 FONTCONFIG_FILE=str(QML / "language-fonts.conf"),
                 KTR_TRANSLATIONS=str(options.translations.resolve()))
        count = min(count, write_languages(into))
        print(f"every language: {into}/languages.html")
    return 0 if count else 1

