"""The external bundle UninstallUI.rcc: what it cannot replace, and how it can change the interface.

It is optional, is not built here (`rcc -binary -o UninstallUI.rcc NAME.qrc`), and is registered at
the root of the resources after the application is created and before the interface loads. At the
same path, what is compiled in wins. But Qt looks at some other paths first:

- `/+windows/NAME` (`/+unix/` on Linux) and `/+en_US/NAME` for the user's locale replace `/NAME`;
- types of `/qmldir` win over the files of the interface;
- `/qt-project.org/imports/MODULE.VERSION/` with the full version wins over every installed module,
  `/qt-project.org/imports/MODULE/` only over modules of the system, not over those beside the
  program, where a release has them;
- images for densities above 2, such as `/home_bg@3x.png`, are used above scale 2;
- texts of `/i18n/qml_LOCALE.qm` for the user's locale win over the product's language.

Everything else in a bundle is unused. What replaces a part can do all that the interface can.
The tests recognise a bundle by its colours: what it replaces is covered with `MARK`. Each bundle of
the first table also has an image in `PLANTED`, so that a bundle that is not read fails there.
"""

import io
import shutil
import subprocess

import pytest
from PIL import Image

from ktr import layout, steps, wait
from ktr.installation import REPOSITORY, build_directory

MARK = "#FF00FF"
PLANTED = "#00FF00"
QML = REPOSITORY / "src" / "qml"
SYSTEMS = ("unix", "windows")
"""The names of the two systems in Qt's file selectors."""
LOCALES = ("C", "en", "en_US")
"""The names of the user's locale in a sandbox."""
QUESTION = layout.Rect(layout.FRAME.right - 48 - 132, layout.FRAME.top, 132, layout.FRAME.height)
"""The place of the image on the page of the reasons."""


def marked(name):
    """A file of the interface, with the mark over everything that it draws."""
    text = (QML / name).read_text("utf-8")
    end = text.rindex("}")
    return f'{text[:end]}Rectangle {{ anchors.fill: parent; color: "{MARK}"; z: 99 }}\n}}\n'


def marked_script():
    """public.js with the mark as the colour of the filled button."""
    return (QML / "public.js").read_text("utf-8").replace(layout.CANCEL_NORMAL, MARK)


def image(colour, width=640, height=306):
    """An image of one colour, as the bytes of its file."""
    content = io.BytesIO()
    Image.new("RGB", (width, height), colour).save(content, "png")
    return content.getvalue()


def marked_label():
    """A Label, like that of Qt Quick Controls, with the mark over it."""
    return ("import QtQuick 2.14\n"
            f'Text {{ Rectangle {{ anchors.fill: parent; color: "{MARK}" }} }}\n')


def for_each_system(path, content):
    """A file at the paths where it replaces another one on one system only."""
    return {f"+{system}/{path}": content for system in SYSTEMS}


def module(folder):
    """A module of Qt's with a marked label in it."""
    where = f"qt-project.org/imports/{folder}"
    return {f"{where}/qmldir": "module QtGraphicalEffects\nLabel 1.0 Label.qml\n",
            f"{where}/Label.qml": marked_label()}


def style(configuration):
    """Settings of Qt Quick Controls at a path, which choose a style with a marked label."""
    return {configuration: "[Controls]\nStyle=:/marked\n", "marked/Label.qml": marked_label()}


@pytest.fixture
def bundle(sandbox, tmp_path):
    """Puts a bundle beside the program: contents by resource path, compiled with Qt's `rcc`."""
    def make(files):
        entries = []
        for number, (path, content) in enumerate(files.items()):
            source = tmp_path / f"file{number}"
            source.write_bytes(content if isinstance(content, bytes) else content.encode())
            entries.append(f'<file alias="{path}">{source.name}</file>')
        (tmp_path / "bundle.qrc").write_text(
            f'<RCC><qresource prefix="/">{"".join(entries)}</qresource></RCC>', "utf-8")
        subprocess.run([shutil.which("rcc") or "/usr/lib/qt5/bin/rcc", "-binary",
                        "-o", sandbox.bin / "UninstallUI.rcc", tmp_path / "bundle.qrc"], check=True)
    return make


def wait_mark(window, area, share=0.5):
    """Waits until this share of an area has the mark."""
    wait.until(lambda: window.screen.share(window.area(area), MARK), f"the mark in {area}",
               accept=lambda seen: seen >= share)


def leave(sandbox, program, window):
    """Cancels, which works with every bundle."""
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=False)


def leaving_with(code):
    """A page that exits with a code as soon as it is loaded."""
    return ("import QtQuick 2.14\nItem {\n    signal uninstalling(var running)\n    Timer {\n"
            f"        interval: 1; running: true; onTriggered: window.titleClose({code})\n"
            "    }\n}\n")


# What it cannot do ------------------------------------------------------------------------------

OF_NO_EFFECT = {
    "the main window": {"Main.qml": marked("Main.qml")},
    "the page": {"HomePage.qml": marked("HomePage.qml")},
    "a control": {"WinTitle.qml": marked("WinTitle.qml")},
    "the script": {"public.js": marked_script()},
    "an image": {"home_bg.png": image(MARK), "home_bg@2x.png": image(MARK, 1280, 612)},
    "the settings of Qt Quick Controls": style("qtquickcontrols2.conf"),
    # Installed modules load their own files.
    "a folder of Qt's own resources": {
        "qt-project.org/imports/QtQuick/Controls.2/Label.qml": marked_label(),
        "QtQuick/Controls/Button.qml": marked_label(),
    },
    # Read earlier, when the application object is created. It would hide all modules.
    "the paths of Qt": {
        "qt/etc/qt.conf": "[Paths]\nPrefix=/nowhere\nPlugins=/nowhere\nQml2Imports=/nowhere\n"},
    # A compiled file beside a source belongs to the QML disk cache, which is turned off.
    "a compiled form": {"Main.qmlc": b"qv4cdata", "public.jsc": b"qv4cdata"},
    # The interface uses no icon from a theme.
    "an icon theme": {"icons/marked/index.theme": "[Icon Theme]\nName=marked\n",
                      "icons/install_box.ico": image(MARK, 16, 16)},
}


@pytest.mark.parametrize("files", OF_NO_EFFECT.values(), ids=OF_NO_EFFECT)
def test_compiled_in_files_win(sandbox, bundle, files):
    bundle({**files, **for_each_system("pic_question.png", image(PLANTED, 132, 132))})
    program = sandbox.start()
    window = program.ready()
    wait.until(lambda: window.screen.share(window.area(QUESTION), PLANTED),
               "the image that shows that the bundle is read", accept=lambda seen: seen > 0.3)
    assert window.screen.share(window.area(layout.CARD), MARK) == 0
    leave(sandbox, program, window)


# What it can do ---------------------------------------------------------------------------------

FOR_ONE_SYSTEM = {
    "the page": ("HomePage.qml", marked("HomePage.qml"), layout.TITLE_LABEL),
    "a control": ("WinTitle.qml", marked("WinTitle.qml"), layout.TITLE_BAR),
    "the script": ("public.js", marked_script(), layout.CANCEL),
    "an image": ("home_bg.png", image(MARK), layout.TITLE_BAR),
}


@pytest.mark.parametrize("path, content, area", FOR_ONE_SYSTEM.values(), ids=FOR_ONE_SYSTEM)
def test_a_file_for_one_system_wins(sandbox, bundle, path, content, area):
    bundle(for_each_system(path, content))
    window = sandbox.start().window()
    wait_mark(window, area)


def test_settings_for_one_system_win(sandbox, bundle):
    files = {}
    for system in SYSTEMS:
        files.update(style(f"+{system}/qtquickcontrols2.conf"))
    bundle(files)
    program = sandbox.start()
    window = program.ready()
    wait_mark(window, layout.TITLE_LABEL)
    leave(sandbox, program, window)


def test_a_file_for_the_users_locale_wins(sandbox, bundle):
    bundle({f"+{locale}/WinTitle.qml": marked("WinTitle.qml") for locale in LOCALES})
    window = sandbox.start().window()
    wait_mark(window, layout.TITLE_BAR)


def test_a_qmldir_replaces_a_type(sandbox, bundle):
    bundle({"qmldir": "WinTitle 1.0 Marked.qml\n", "Marked.qml": marked("WinTitle.qml")})
    window = sandbox.start().window()
    wait_mark(window, layout.TITLE_BAR)


def test_a_module_with_its_version_in_the_name_is_found_first(sandbox, bundle):
    bundle(module("QtGraphicalEffects.1.0"))
    program = sandbox.start()
    window = program.ready()
    wait_mark(window, layout.TITLE_LABEL)
    leave(sandbox, program, window)


def test_a_module_is_found_before_those_of_the_system(sandbox, bundle):
    bundle({**module("QtGraphicalEffects"),
            **for_each_system("pic_question.png", image(PLANTED, 132, 132))})
    program = sandbox.start()
    window = program.ready()
    wait.until(lambda: window.screen.share(window.area(QUESTION), PLANTED),
               "the image that shows that the bundle is read", accept=lambda seen: seen > 0.3)
    found = window.screen.share(window.area(layout.TITLE_LABEL), MARK) > 0.5
    # A module beside the program wins over both.
    assert found == (not sandbox.system.modules_beside_program)
    leave(sandbox, program, window)


@pytest.mark.parametrize("code, cleanup",
                         ((0, True), (1, False), (5, False), (-3, False), (-(1 << 31), False)))
def test_a_page_may_exit_with_any_code(sandbox, bundle, code, cleanup):
    bundle(for_each_system("HomePage.qml", leaving_with(code)))
    steps.expect_end(sandbox, sandbox.start(), cleanup)


@pytest.mark.parametrize("factor, taken", (("2", False), ("2.25", True)))
def test_an_image_of_a_density_that_is_not_compiled_in_wins(sandbox, bundle, factor, taken):
    bundle({"home_bg@3x.png": image(MARK, 1920, 918)})
    window = sandbox.start(environment={"QT_SCALE_FACTOR": factor}).window()
    scale = float(factor)
    title = layout.Rect(0, 0, int(560 * scale), int(32 * scale))
    button = layout.face(layout.CANCEL)
    window.wait_colour(layout.Point(int(button.x * scale), int(button.y * scale)),
                       layout.CANCEL_NORMAL)
    assert (window.screen.share(window.area(title), MARK) > 0.9) == taken


def test_a_translation_for_the_users_locale_wins_over_the_product_language(sandbox, bundle):
    def title():
        program = sandbox.start()
        window = program.ready()
        seen = steps.title(window)
        leave(sandbox, program, window)
        return seen

    sandbox.set_registry("French")
    french = title()
    german = (build_directory() / "src" / "translations" / "ktr_German.qm").read_bytes()
    bundle({f"i18n/qml_{locale}.qm": german for locale in LOCALES})
    planted = title()
    (sandbox.bin / "UninstallUI.rcc").unlink()
    sandbox.set_registry("German")
    assert planted == title() != french


# A broken bundle --------------------------------------------------------------------------------


@pytest.mark.stderr_allowed(r"QQmlApplicationEngine failed.*", r"qrc:/.*", r"\s.*")
def test_a_bundle_that_breaks_the_interface_ends_the_program(sandbox, bundle):
    bundle(for_each_system("HomePage.qml", "this is not QML\n"))
    program = sandbox.start()
    assert program.wait_exit() == 0
    assert "HomePage.qml" in program.stderr
    assert not sandbox.handle_file.exists()
    assert not sandbox.instance_lock_held()
    sandbox.wait_noted("SkyrelWrapExe.exe", "end")
    assert not sandbox.journal("uninstall.exe")
    assert not sandbox.journal("clearKTR.bat")
