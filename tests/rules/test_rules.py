"""Rules of the code that no compiler enforces: which layer may include which, what is where."""

import re
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]

# app -> controller -> services -> platform, never back; app may use all four.
MAY_INCLUDE = {
    "app": {"app", "controller", "services", "platform"},
    "controller": {"controller", "services", "platform"},
    "services": {"services", "platform"},
    "platform": {"platform"},
}
OS_FOLDERS = ("src/platform/windows", "src/platform/posix")
OS_HEADERS = re.compile(
    r"^(windows|tlhelp32|winbase|shlobj|psapi|unistd|fcntl|dlfcn|signal|sched|spawn)\.h$"
    r"|^(sys|xcb|linux)/"
)
OS_MACRO = re.compile(
    r"\b(_WIN32|_WIN64|WIN32|__linux__|__unix__|__APPLE__|Q_OS_\w+|_MSC_VER|__MINGW\w+)\b")
HEX_COLOUR = re.compile(r"[\"']#[0-9a-fA-F]{3,8}[\"']")
# What each QML file imports, in this order: the version decides which properties exist, and the
# later of two modules with a type of the same name wins.
QML_IMPORTS = {
    "DiscountComponent.qml": ["QtQuick.Controls 2.14", "QtQuick 2.14", '"public.js" as Public'],
    "DiscountPage.qml": ["QtQuick 2.14"],
    "HomePage.qml": ["QtQuick 2.14", "QtQuick.Window 2.14", "QtQuick.Controls 2.5",
                     "QtGraphicalEffects 1.0", "QtQuick.Shapes 1.15", '"public.js" as Public',
                     '"."'],
    "Main.qml": ["QtQuick 2.14", "QtQuick.Window 2.14", "QtQuick.Controls 2.5",
                 "QtQuick.Layouts 1.15", '"."'],
    "ReasonComponent.qml": ["QtQuick.Controls 2.14", "QtQuick 2.14", '"public.js" as Public'],
    "SubmitAdviceComponent.qml": ["QtQuick.Controls 2.14", "QtQuick 2.14",
                                  '"public.js" as Public'],
    "SubmitAdvicePage.qml": ["QtQuick 2.14"],
    "WinTitle.qml": ["QtQuick 2.12", "QtQuick.Layouts 1.14", "QtQuick.Controls.Styles 1.4",
                     "QtQuick.Controls 1.4 as T", "QtQuick.Controls 2.14", "QtQuick.Window 2.14",
                     "QtGraphicalEffects 1.0"],
    "ZoCloseButton.qml": ["QtQuick 2.12", '"."'],
    "ZoDefaultRoundButton.qml": ["QtQuick 2.14", '"."', '"public.js" as Public'],
    "ZoDragArea.qml": ["QtQuick 2.12", "QtQuick.Window 2.14"],
    "ZoFocusFrame.qml": ["QtQuick 2.12", '"public.js" as Public'],
    "ZoGradientFill.qml": ["QtQuick 2.12", "QtQuick.Shapes 1.14"],
    "ZoImageButton.qml": ["QtQuick 2.6", "QtQuick.Controls 1.4", "QtQuick.Controls.Styles 1.4"],
    "ZoLinkFocusMark.qml": ["QtQuick 2.12", '"public.js" as Public'],
    "ZoLinkLabel.qml": ["QtQuick 2.14", '"public.js" as Public'],
    "ZoMessageBox.qml": ["QtQuick 2.12", "QtQuick.Window 2.12", '"."'],
    "ZoPopTitle.qml": ["QtQuick 2.12", "QtQuick.Window 2.14", '"."', '"public.js" as Public'],
    "ZoPopWindow.qml": ["QtQuick 2.12", "QtQuick.Window 2.14", '"."', "QtQuick.Layouts 1.14",
                        '"public.js" as Public'],
    "ZoProgressBar.qml": ["QtQuick.Shapes 1.14", "QtQuick 2.14"],
    "ZoPushButton.qml": ["QtQuick 2.14", "QtQuick.Controls 1.4"],
    "ZoRadioButton.qml": ["QtQuick 2.14", "QtQuick.Controls 2.14", "QtQuick.Shapes 1.14", '"."',
                          '"public.js" as Public'],
    "ZoRoundButton.qml": ["QtQuick 2.14", "QtQuick.Controls 1.4", "QtQuick.Controls.Styles 1.4",
                          '"."', '"public.js" as Public'],
    "ZoRoundButtonLegacy.qml": ["QtQuick 2.14", '"."', '"public.js" as Public'],
}
README_LINES = 15
CODE = (".cpp", ".h", ".c", ".qml", ".js", ".py", ".cmake", ".bat", ".nsi")


def sources(folder: str, *patterns: str) -> list[Path]:
    """The files below a folder of the project that match one of the patterns."""
    return sorted(path for pattern in patterns for path in (ROOT / folder).rglob(pattern))


def cpp(folder: str) -> list[Path]:
    """The C++ files below a folder of the project."""
    return sources(folder, "*.cpp", "*.h")


def includes(path: Path) -> list[str]:
    """The headers that a C++ file includes, as written."""
    return re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', path.read_text("utf-8"), re.MULTILINE)


def name(path: Path) -> str:
    """A path relative to the project."""
    return path.relative_to(ROOT).as_posix()


@pytest.mark.parametrize("layer", MAY_INCLUDE)
def test_a_layer_includes_only_layers_below(layer):
    files = cpp(f"src/{layer}")
    assert files
    wrong = [
        f"{name(path)} includes {include}"
        for path in files
        for include in includes(path)
        if include.split("/")[0]
        in {*MAY_INCLUDE, "testkit", "tests", "qml"} - MAY_INCLUDE[layer]
    ]
    assert not wrong


def test_platform_uses_no_qt():
    wrong = [
        f"{name(path)} includes {include}"
        for path in cpp("src/platform")
        for include in includes(path)
        if re.match(r"Q[A-Z]|Qt", include)
    ]
    assert not wrong
    for path in sources("src/platform", "CMakeLists.txt"):
        assert "Qt5" not in path.read_text("utf-8"), name(path)


def test_only_the_platform_folders_include_system_headers():
    wrong = [
        f"{name(path)} includes {include}"
        for layer in MAY_INCLUDE
        for path in cpp(f"src/{layer}")
        for include in includes(path)
        if OS_HEADERS.match(include) and not name(path).startswith(OS_FOLDERS)
    ]
    assert not wrong


def test_only_the_platform_folders_test_for_a_system():
    wrong = [
        f"{name(path)}: {line.strip()}"
        for folder in ("src", "testkit", "tests")
        for path in cpp(folder)
        if not name(path).startswith(OS_FOLDERS)
        for line in path.read_text("utf-8").splitlines()
        if re.match(r"\s*#\s*(if|ifdef|ifndef|elif)\b", line) and OS_MACRO.search(line)
    ]
    assert not wrong


def test_the_resource_list_names_exactly_the_files():
    qml = ROOT / "src/qml"
    listed: dict[str, str] = {}
    for entry in ElementTree.parse(qml / "qml.qrc").iter("file"):
        path = entry.text or ""
        listed[entry.get("alias") or path] = path
    on_disk = {
        path.relative_to(qml).as_posix()
        for path in qml.rglob("*")
        if path.is_file() and path.name not in ("qml.qrc", "README.md")
    }
    assert set(listed.values()) == on_disk
    # QML addresses each file as "qrc:/" and its name.
    assert all(alias == Path(path).name for alias, path in listed.items())


def test_every_resource_that_the_interface_names_exists():
    files = ElementTree.parse(ROOT / "src/qml/qml.qrc").iter("file")
    listed = {Path(file.text or "").name for file in files}
    named = {
        match
        for path in sources("src/qml", "*.qml", "*.js")
        for match in re.findall(r"qrc:/([\w@]+\.\w+)", path.read_text("utf-8"))
    }
    assert named
    assert named <= listed


def test_the_interface_imports_what_the_table_lists():
    imports = {
        path.name: re.findall(r"^\s*import\s+(.+?)\s*$", path.read_text("utf-8"), re.MULTILINE)
        for path in sources("src/qml", "*.qml")
    }
    assert imports == QML_IMPORTS


def test_only_qml_has_colours():
    wrong = [
        f"{name(path)}: {line.strip()}"
        for layer in MAY_INCLUDE
        for path in cpp(f"src/{layer}")
        for line in path.read_text("utf-8").splitlines()
        if HEX_COLOUR.search(line)
    ]
    assert not wrong


def test_push_buttons_take_their_colours_from_the_tables():
    for button in ("ZoRoundButton", "ZoRoundButtonLegacy", "ZoDefaultRoundButton"):
        text = (ROOT / "src/qml" / f"{button}.qml").read_text("utf-8")
        assert set(HEX_COLOUR.findall(text)) <= {'"#00000000"', '"#000000"'}, button


def test_qml_gets_one_native_object():
    main = (ROOT / "src/app/main.cpp").read_text("utf-8")
    assert re.findall(r"setContextProperty\(QStringLiteral\(\"(\w+)\"\)", main) == ["uninstallMgr"]
    for path in cpp("src/app") + cpp("src/controller"):
        assert not re.search(r"qmlRegister\w+", path.read_text("utf-8")), name(path)


def test_no_font_family_in_the_interface():
    for path in sources("src/qml", "*.qml", "*.js"):
        assert "font.family" not in path.read_text("utf-8"), name(path)


def code_folders() -> list[Path]:
    """Every folder of the project with a source file or a script."""
    roots = ["src", "packaging", "testkit", "tests", "tools", "cmake"]
    files = [path for root in roots for path in sources(root, "*")
             if path.suffix in CODE and "__pycache__" not in path.parts]
    return sorted({path.parent for path in files} | {ROOT / root for root in roots})


@pytest.mark.parametrize("folder", code_folders(), ids=name)
def test_every_code_folder_is_described_in_a_readme(folder):
    """In its own README, or in one line of the README of a folder above."""
    place = next(place for place in (folder, *folder.parents) if (place / "README.md").is_file())
    assert place != ROOT, f"{name(folder)}/README.md is missing"
    text = (place / "README.md").read_text("utf-8")
    assert len(text.splitlines()) <= README_LINES, name(place)
    if place != folder:
        part = folder.relative_to(place).parts[0]
        assert f"`{part}/" in text, f"{name(place)}/README.md does not say what {part}/ is"


def test_the_test_kit_never_asserts():
    for path in sources("testkit", "*.py"):
        assert not re.search(r"^\s*assert\b", path.read_text("utf-8"), re.MULTILINE), name(path)


def test_the_program_has_no_branch_for_tests():
    wrong = re.compile(r"\b(TESTING|UNIT_TEST|KTR_TEST\w*)\b|argv\[")
    for layer in MAY_INCLUDE:
        for path in cpp(f"src/{layer}"):
            assert not wrong.search(path.read_text("utf-8")), name(path)
