"""The Windows executable as a file: its headers, resources and imports."""

from __future__ import annotations

import os
import re
import shutil
import struct
import subprocess
from itertools import product
from pathlib import Path, PurePosixPath
from xml.etree import ElementTree

import pefile
import pytest

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("KTR_BUILD", REPOSITORY / "build" / "windows"))
EXECUTABLE = BUILD / "src" / "app" / "UninstallUI.exe"
ALLOWED = Path(__file__).with_name("allowed-imports.txt")
ICON = REPOSITORY / "src" / "resources" / "icon" / "uninstall.ico"
COMPILED_IN = REPOSITORY / "src" / "qml" / "qml.qrc"

V1 = "{urn:schemas-microsoft-com:asm.v1}"
V3 = "{urn:schemas-microsoft-com:asm.v3}"
COMPATIBILITY = "{urn:schemas-microsoft-com:compatibility.v1}"
SETTINGS = "{http://schemas.microsoft.com/SMI/%d/WindowsSettings}"


@pytest.fixture(scope="module")
def image() -> pefile.PE:
    return pefile.PE(str(EXECUTABLE))


def version() -> str:
    """The project's version from CMakeLists.txt: three numbers."""
    project = (REPOSITORY / "CMakeLists.txt").read_text(encoding="utf-8")
    found = re.search(r"VERSION (\d+\.\d+\.\d+)", project.split("project(")[1])
    assert found
    return found[1]


def resources(image: pefile.PE, kind: str) -> dict[int, bytes]:
    """The resources of a type by their identifier."""
    found = {}
    for entry in image.DIRECTORY_ENTRY_RESOURCE.entries:
        if entry.id == pefile.RESOURCE_TYPE[kind]:
            for item in entry.directory.entries:
                place = item.directory.entries[0].data.struct
                found[item.id] = image.get_data(place.OffsetToData, place.Size)
    return found


def test_it_is_a_64_bit_program_without_a_console(image):
    assert image.FILE_HEADER.Machine == pefile.MACHINE_TYPE["IMAGE_FILE_MACHINE_AMD64"]
    assert image.OPTIONAL_HEADER.Magic == 0x20B
    assert image.OPTIONAL_HEADER.Subsystem == pefile.SUBSYSTEM_TYPE["IMAGE_SUBSYSTEM_WINDOWS_GUI"]
    assert not image.is_dll()


def test_it_requires_windows_7(image):
    header = image.OPTIONAL_HEADER
    assert (header.MajorOperatingSystemVersion, header.MinorOperatingSystemVersion) == (6, 1)
    assert (header.MajorSubsystemVersion, header.MinorSubsystemVersion) == (6, 1)


def test_it_uses_aslr_and_dep(image):
    flags = image.OPTIONAL_HEADER.DllCharacteristics
    for name in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
        assert flags & pefile.DLL_CHARACTERISTICS[f"IMAGE_DLLCHARACTERISTICS_{name}"], name
    # Without relocations ASLR has no effect.
    assert not image.FILE_HEADER.Characteristics & 0x0001
    assert image.OPTIONAL_HEADER.DATA_DIRECTORY[5].Size > 0
    writable, executable = 0x80000000, 0x20000000
    for section in image.sections:
        both = writable | executable
        assert section.Characteristics & both != both, section.Name


def test_it_has_stack_protection():
    assert b"stack smashing detected" in EXECUTABLE.read_bytes()


def test_its_manifest_sets_privileges_systems_scaling_and_long_paths(image):
    (number, text), = resources(image, "RT_MANIFEST").items()
    assert number == 1
    root = ElementTree.fromstring(text)
    level, = root.iterfind(f".//{V3}requestedExecutionLevel")
    assert level.attrib == {"level": "asInvoker", "uiAccess": "false"}
    assert (root.tag, root.attrib) == (f"{V1}assembly", {"manifestVersion": "1.0"})
    itself, = root.findall(f"{V1}assemblyIdentity")
    assert itself.attrib == {"type": "win32", "name": "Torvan.Dravik.UninstallUI",
                             "version": f"{version()}.0", "processorArchitecture": "amd64"}
    # With a wrong token or architecture Windows finds no such assembly, and the start fails.
    controls, = root.iterfind(f"{V1}dependency/{V1}dependentAssembly/{V1}assemblyIdentity")
    assert controls.attrib == {"type": "win32", "name": "Microsoft.Windows.Common-Controls",
                               "version": "6.0.0.0", "processorArchitecture": "amd64",
                               "publicKeyToken": "6595b64144ccf1df", "language": "*"}
    systems = [item.get("Id") for item in root.iter(f"{COMPATIBILITY}supportedOS")]
    assert systems == ["{35138b9a-5d96-4fbd-8e2d-a2440225f93a}",
                       "{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}",
                       "{1f676c76-80e1-4239-95bb-83d0f6d0da78}",
                       "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"]
    assert root.findtext(f".//{SETTINGS % 2005}dpiAware") == "true/pm"
    assert root.findtext(f".//{SETTINGS % 2016}dpiAwareness") == "PerMonitor"
    assert root.findtext(f".//{SETTINGS % 2016}longPathAware") == "true"


def test_its_icon_resource_has_the_images_of_the_icon_file(image):
    groups = resources(image, "RT_GROUP_ICON")
    assert list(groups) == [101]
    count = struct.unpack_from("<3H", groups[101])[2]
    assert count == 12
    source = ICON.read_bytes()
    images = resources(image, "RT_ICON")
    for index in range(count):
        entry = struct.unpack_from("<4B2HIH", groups[101], 6 + 14 * index)
        original = struct.unpack_from("<4B2H2I", source, 6 + 16 * index)
        assert entry[:2] == original[:2] and entry[5:7] == original[5:7]
        begin = original[7]
        assert images[entry[7]] == source[begin : begin + original[6]]


def test_its_version_resource_has_the_project_s_version(image):
    numbers = [int(part) for part in version().split(".")]
    fixed = image.VS_FIXEDFILEINFO[0]
    high_low = (numbers[0] << 16 | numbers[1], numbers[2] << 16)
    assert (fixed.FileVersionMS, fixed.FileVersionLS) == high_low
    assert (fixed.ProductVersionMS, fixed.ProductVersionLS) == high_low
    texts: dict[str, str] = {}
    for info in image.FileInfo[0]:
        for table in getattr(info, "StringTable", []):
            texts.update((key.decode(), value.decode()) for key, value in table.entries.items())
    assert texts == {
        "CompanyName": "Torvan", "ProductName": "Dravik", "FileDescription": "Dravik Uninstall",
        "FileVersion": version(), "ProductVersion": version(), "InternalName": "UninstallUI",
        "OriginalFilename": "UninstallUI.exe", "LegalCopyright": "Torvan",
    }


def test_manifest_and_version_resource_agree(image):
    text, = resources(image, "RT_MANIFEST").values()
    itself, = ElementTree.fromstring(text).iterfind(f"{V1}assemblyIdentity")
    fixed = image.VS_FIXEDFILEINFO[0]
    parts = [fixed.FileVersionMS >> 16, fixed.FileVersionMS & 0xFFFF,
             fixed.FileVersionLS >> 16, fixed.FileVersionLS & 0xFFFF]
    assert itself.get("version") == ".".join(map(str, parts))


def test_its_qml_resources_have_format_version_3():
    compiled = EXECUTABLE.with_name("UninstallUI_interface_sources_qrc.cpp")
    assert set(re.findall(r"int version = (.+);", compiled.read_text("utf-8"))) == {"3"}


def test_it_contains_no_path_of_the_build():
    content = EXECUTABLE.read_bytes()
    for place in (REPOSITORY, BUILD, Path.home() / ".cache"):
        for text, encoding in product((str(place), place.as_posix()), ("utf-8", "utf-16-le")):
            assert text.encode(encoding) not in content, place


def test_it_contains_no_time_of_the_build(image):
    """Otherwise two builds of the same sources would differ."""
    assert image.FILE_HEADER.TimeDateStamp == 0
    assert image.DIRECTORY_ENTRY_RESOURCE.struct.TimeDateStamp == 0
    # The resource compiler writes a date for each file and folder: here always one of 1980.
    files = ElementTree.parse(COMPILED_IN).getroot().iter("file")
    names = [PurePosixPath(item.get("alias") or item.text or "") for item in files]
    folders = {folder for name in names for folder in name.parents}
    date = (315532800 * 1000).to_bytes(8, "big")
    assert names
    assert EXECUTABLE.read_bytes().count(date) == len(names) + len(folders)


def imported(image: pefile.PE) -> dict[str, list[str]]:
    """The names of the imported functions, by DLL."""
    return {entry.dll.decode(): [function.name.decode() for function in entry.imports]
            for entry in image.DIRECTORY_ENTRY_IMPORT}


def test_it_imports_only_what_is_allowed(image):
    lines = ALLOWED.read_text(encoding="utf-8").splitlines()
    allowed = {line.strip() for line in lines if line.strip() and not line.startswith("#")}
    # Qt only by library: which of its functions are imported changes with every build of Qt.
    needed = set()
    for library, functions in imported(image).items():
        qt = library.startswith("Qt5")
        needed |= {library} if qt else {f"{library} {name}" for name in functions}
    assert not needed - allowed, "imported and not allowed"
    assert not allowed - needed, "allowed and not imported: take it off the list"


def test_it_has_no_debug_sections_and_no_symbols(image):
    names = [section.Name.rstrip(b"\0").decode() for section in image.sections]
    assert not [name for name in names if name.startswith((".debug", "/"))]
    # On Windows, where the compiler builds for its own system, the tool has no prefix.
    tool = shutil.which("x86_64-w64-mingw32-nm") or "nm"
    read = subprocess.run([tool, EXECUTABLE], capture_output=True, text=True, check=False)
    assert read.stdout == ""
