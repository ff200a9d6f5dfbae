"""The table: which files there are, how the script is called, its exit code, what it removes.

By default there is a complete product folder, and the script is in the user's temp directory. All
files that `gone` does not name must stay unchanged.

The mark of a product folder: exactly one direct sub-folder has the program and an equal script.
"""

from __future__ import annotations

from dataclasses import dataclass, field

from drives import (PRODUCT, PROFILE, PROGRAM, STAGED, TEMP, Step, attributes, file, files, folders,
                   link, mark, without)

GONE, REFUSED, STILL_RUNNING, LEFT = 0, 2, 3, 4
"""The exit codes, as the comment at the top of the script lists them."""

Variables = dict[str, "str | None"]


@dataclass(frozen=True)
class Case:
    """One call of the script."""

    name: str
    status: int
    folder: str = PRODUCT  # where the product is
    arguments: str | None = None  # as written on the command line; else the folder in quotes
    steps: tuple[Step, ...] = ()
    variables: Variables = field(default_factory=dict)  # None unsets one
    script: str = STAGED
    in_folder: str = TEMP
    call: str = "wide"  # an instruction of programs/start.cpp
    program: str = "bin"
    gone: tuple[str, ...] | None = None  # by default the folder if the status is GONE
    removes_script: bool = True
    patience: int | None = None  # seconds instead of two minutes, in a copy of the script
    quoted_script: bool = True

    def __str__(self) -> str:
        return self.name

    @property
    def removed(self) -> tuple[str, ...]:
        """The folders, with everything in them, and the files that the script removes."""
        if self.gone is not None:
            return self.gone
        return (self.folder,) if self.status == GONE else ()


def gone(name: str, folder: str = PRODUCT, *steps: Step, **more) -> Case:
    return Case(name, GONE, folder, steps=steps, **more)


def named(name: str, **more) -> Case:
    """A product folder with this name is removed."""
    return Case(f"folder called {name}", GONE, f"D:\\Program Files\\Torvan\\{name}", **more)


def refused(name: str, arguments: str, *steps: Step, **more) -> Case:
    """The product is complete, but the arguments are wrong."""
    return Case(name, REFUSED, arguments=arguments, steps=steps, **more)


def kept(name: str, folder: str = PRODUCT, *steps: Step, **more) -> Case:
    """The argument is right, but the folder must stay."""
    return Case(name, REFUSED, folder, steps=steps, **more)


def without_mark(name: str, *steps: Step, **more) -> Case:
    return kept(f"mark: {name}", PRODUCT, *steps, **more)


def from_script(name: str, script: str, **more) -> Case:
    return Case(f"script in {name}", GONE, script=script, **more)


def one_byte(script: bytes) -> bytes:
    """The script with one byte changed in its middle."""
    middle = len(script) // 2
    return script[:middle] + bytes([script[middle] ^ 1]) + script[middle + 1:]


DEEP = "D:\\" + "\\".join(["level"] * 12) + "\\Dravik"
RES = PRODUCT + "\\res"

# Names and places of the product folder.
NAMES = [
    gone("as the setup creates it"),
    named("Dräwïk", call="ansi"),
    *map(named, (
        "with spaces in it", "Dravik (x86)", "R&D && more", "a^b^^c", "Hey! You!!", "a;b, c=d",
        "it's [1] {2} +@#$`_-", "Dräwïk ß", "ドラビック 日本", "Дравик", "e\u0301 decomposed",
        "a & b (1) ^ ! ü;=,", ".dots.in.it", " space in front")),
    gone("in another letter case", arguments='"d:\\program FILES\\TORVAN\\dravik"'),
    gone("two levels", "D:\\Torvan\\Dravik"),
    gone("thirteen levels", DEEP),
    gone("on another drive", "E:\\Games\\Dravik"),
    gone("with quotation marks within", arguments='"D:\\Program Files"\\Torvan\\"Dravik"'),
    gone("without quotes", "D:\\Torvan\\Dravik", arguments="D:\\Torvan\\Dravik"),
    gone("program directory with another name", program="programs of v2"),
    gone("program directory with special characters in its name", program="b & n (1) ^ ! ü"),
    gone("named like the profile, elsewhere", "D:\\Elsewhere\\Anna"),
    gone("in the profile", PROFILE + "\\AppData\\Local\\Programs\\Dravik"),
    gone("in the shared program folder", "D:\\Program Files\\Common Files\\Dravik"),
    gone("a prefix of a folder that stays", "D:\\Users\\Ann"),
    gone("a folder that stays is a prefix", "D:\\Users\\Anna2"),
]

# Contents of the product folder.
CONTENTS = [
    gone("nothing but the mark", PRODUCT, without(RES, PRODUCT + "\\left over.txt",
                                                  PROGRAM + "\\translations")),
    gone("read-only files", PRODUCT, attributes(
        "r", PROGRAM + "\\UninstallUI.exe", PROGRAM + "\\clearKTR.bat", PROGRAM + "\\Qt5Core.dll",
        PRODUCT + "\\left over.txt")),
    gone("hidden files and system files", PRODUCT, attributes(
        "hs", PROGRAM + "\\UninstallUI.exe", PROGRAM + "\\clearKTR.bat",
        PRODUCT + "\\left over.txt")),
    gone("hidden folders below", PRODUCT, folders(RES + "\\deep"),
         attributes("hs", RES + "\\deep", PROGRAM + "\\translations")),
    gone("many files and folders", PRODUCT, files(*(
        f"{PRODUCT}\\data\\{a}\\{b}\\{c}.dat" for a in range(6) for b in range(6)
        for c in range(8)))),
    gone("twenty levels", PRODUCT, files(PRODUCT + "\\d" * 20 + "\\leaf.txt")),
    gone("names with special characters", PRODUCT, files(
        PRODUCT + "\\a & b (1) ^ ! ü\\c & d (2) ^ ! é.txt", PRODUCT + "\\日本\\日本.txt",
        PRODUCT + "\\;=,\\;=, .txt")),
    gone("a desktop.ini below", PRODUCT, files(RES + "\\desktop.ini")),
    gone("halves of the mark in other folders", PRODUCT, files(
        PRODUCT + "\\a\\UninstallUI.exe", PRODUCT + "\\b\\clearKTR.bat"),
         file(PRODUCT + "\\c\\clearKTR.bat", b"")),
    gone("another version beside", PRODUCT, mark(PRODUCT + "\\old", change=one_byte)),
    gone("a second mark below", PRODUCT, mark(RES + "\\deep", PROGRAM + "\\bin")),
    gone("a second mark in the folder itself", PRODUCT, mark(PRODUCT)),
    gone("the mark in another letter case", PRODUCT,
         without(PROGRAM + "\\UninstallUI.exe"), files(PROGRAM + "\\uninstallui.EXE")),
]

# Places of the script, and its working directory.
PLACES = [
    gone("called in the folder", in_folder=PRODUCT),
    gone("called in its program directory", in_folder=PROGRAM),
    gone("called in a folder above", in_folder="D:\\Program Files"),
    gone("called as the program calls it", call="detached", quoted_script=False,
         script="D:\\Temp\\clearKTR.bat", in_folder="D:\\Temp"),
    from_script("a folder with spaces", "D:\\Temp of Anna\\clearKTR.bat"),
    from_script("a folder with &", "D:\\R&D & more\\clearKTR.bat"),
    from_script("a folder with ^ and !", "D:\\^ a^b ! you!\\clearKTR.bat"),
    from_script("a folder with parentheses", "D:\\Temp (1)\\clearKTR.bat"),
    from_script("a folder with Japanese letters", "D:\\日本 ü\\clearKTR.bat"),
    from_script("a file with another name", "D:\\Temp\\copy of clearKTR.cmd"),
    gone("script that is read-only", PRODUCT, attributes("r", STAGED)),
]

# The script takes one argument: the folder as the program writes it.
ARGUMENTS = [
    refused("no argument", ""),
    refused("an empty argument", '""'),
    refused("a space", '" "'),
    refused("one quotation mark", '"'),
    refused("three quotation marks", '"""'),
    refused("two arguments", f'"{PRODUCT}" "{PRODUCT}"'),
    refused("an empty second argument", f'"{PRODUCT}" ""'),
    refused("a switch in front", f'/s "{PRODUCT}"'),
    refused("a switch behind", f'"{PRODUCT}" /q'),
    refused("spaces without quotes", PRODUCT),
    refused("a comma without quotes", "D:\\Torvan,Dravik", mark("D:\\Torvan\\bin")),
    refused("a folder that does not exist", '"D:\\Program Files\\Torvan\\Dravik9"'),
    refused("a file", f'"{PROGRAM}\\UninstallUI.exe"'),
    refused("its own program directory", f'"{PROGRAM}"'),
    refused("the folder above", '"D:\\Program Files\\Torvan"'),
    refused("a relative name", '"Torvan\\Dravik"', in_folder="D:\\Program Files"),
    refused("a bare name", '"Dravik"', in_folder="D:\\Program Files\\Torvan"),
    refused("the current folder", '"."', in_folder=PRODUCT),
    refused("the folder above the current one", '".."', in_folder=PROGRAM),
    refused("relative to another drive's folder", '"D:Torvan\\Dravik"',
            in_folder="D:\\Program Files"),
    refused("without a drive", '"\\Program Files\\Torvan\\Dravik"'),
    refused("a root", '"D:\\"', mark("D:\\bin")),
    refused("a root without a backslash", '"D:"', mark("D:\\bin")),
    refused("a drive's current folder", '"D:"', in_folder=PRODUCT),
    refused("a root by a dot", '"D:\\."', mark("D:\\bin")),
    refused("a root by detours", '"D:\\Torvan\\.."', mark("D:\\bin", "D:\\Torvan\\bin")),
    refused("one level", '"D:\\Torvan"', mark("D:\\Torvan\\bin")),
    refused("one level by detours", '"D:\\Torvan\\x\\.."', folders("D:\\Torvan\\x"),
            mark("D:\\Torvan\\bin")),
    refused("a share's root", '"\\\\localhost\\D$"', mark("D:\\bin")),
    refused("a share's folder", '"\\\\localhost\\D$\\Program Files\\Torvan\\Dravik"'),
    refused("an extended-length path", f'"\\\\?\\{PRODUCT}"'),
    refused("a device path", f'"\\\\.\\{PRODUCT}"'),
    refused("an NT object path", f'"\\??\\{PRODUCT}"'),
    refused("a device", '"NUL"'),
    refused("a device in the folder", f'"{PRODUCT}\\NUL"'),
    refused("slashes", f'"{PRODUCT}"'.replace("\\", "/")),
    refused("one slash", f'"{PRODUCT}"'.replace("\\Dravik", "/Dravik")),
    refused("a backslash at the end", f'"{PRODUCT}\\\\"'),
    refused("two backslashes", f'"{PRODUCT}"'.replace("\\Torvan", "\\\\Torvan")),
    refused("a dot at the end", f'"{PRODUCT}."'),
    refused("a space at the end", f'"{PRODUCT} "'),
    refused("a dot as a level", f'"{PRODUCT}\\."'),
    refused("there and back", f'"{PROGRAM}\\.."'),
    refused("a star", f'"{PRODUCT}*"'),
    refused("a star for the name", '"D:\\Program Files\\Torvan\\*"'),
    refused("a star for a level", '"D:\\*\\Torvan\\Dravik"'),
    refused("a question mark", '"D:\\Program Files\\Torvan\\Dravi?"'),
    refused("an NT wildcard", '"D:\\Program Files\\Torvan\\Drav<"'),
    refused("a stream", f'"{PRODUCT}:stream"'),
    refused("the folder's own stream", f'"{PRODUCT}::$INDEX_ALLOCATION"'),
    refused("a level that ends with a space", '"D:\\Torvan \\Dravik"',
            mark("D:\\Torvan \\Dravik\\bin"), folders("D:\\Torvan")),
    refused("a level that ends with a dot", '"D:\\Torvan.\\Dravik"',
            mark("D:\\Torvan.\\Dravik\\bin")),
    refused("a tilde", '"D:\\PROGRA~1\\Dravik"', mark("D:\\PROGRA~1\\Dravik\\bin")),
    refused("a command within", f'"{PRODUCT}"^&echo"'),
    refused("a character that the code page lacks", '"D:\\Torvan\\ドラビック"',
            mark("D:\\Torvan\\ドラビック\\bin"), call="ansi"),
]

# Folders that stay even with the mark in them, and the folders that contain one of those.
SYSTEM = "D:\\System\\"
PLACES_THAT_STAY = [
    kept("the profile", PROFILE),
    kept("the profile in another letter case", PROFILE, arguments='"d:\\USERS\\anna"'),
    kept("the profile with a backslash", PROFILE, variables={"USERPROFILE": PROFILE + "\\"}),
    kept("the profile with slashes", PROFILE, variables={"USERPROFILE": "D:/Users/Anna"}),
    kept("the profile by detours", PROFILE,
         variables={"USERPROFILE": "D:\\Users\\Public\\..\\Anna"}),
    kept("a profile with special characters in its name", SYSTEM + "a & b ^ ! (1) ü",
         variables={"USERPROFILE": SYSTEM + "a & b ^ ! (1) ü"}),
    kept("the folder of profiles", SYSTEM + "Users", folders(SYSTEM + "Users\\Anna\\Desktop"),
         variables={"USERPROFILE": SYSTEM + "Users\\Anna"}),
    kept("the desktop", PROFILE + "\\Desktop"),
    kept("the public desktop", "D:\\Users\\Public\\Desktop"),
    kept("the desktop in the cloud", PROFILE + "\\OneDrive\\Desktop"),
    kept("the cloud folder", PROFILE + "\\OneDrive"),
    kept("the public profile", "D:\\Users\\Public"),
    # Without a desktop or programs in it, which would also keep the folder.
    *(kept(f"what {name} names", SYSTEM + "Named", variables={name: SYSTEM + "Named"})
      for name in ("PUBLIC", "OneDrive", "LOCALAPPDATA", "ProgramFiles", "ProgramFiles(x86)",
                   "ProgramW6432", "CommonProgramFiles", "CommonProgramW6432", "ProgramData",
                   "ALLUSERSPROFILE")),
    *(kept(f"the temp directory in {name}", SYSTEM + "Temp", script="D:\\Elsewhere\\clearKTR.bat",
           variables={name: SYSTEM + "Temp"}) for name in ("TEMP", "TMP")),
    kept("application data", PROFILE + "\\AppData"),
    kept("application data, roaming", PROFILE + "\\AppData\\Roaming"),
    kept("application data, local", PROFILE + "\\AppData\\Local"),
    kept("programs of the user", PROFILE + "\\AppData\\Local\\Programs"),
    kept("a folder around the temp directory", "D:\\System\\A", folders("D:\\System\\A\\b\\c"),
         script="D:\\Elsewhere\\clearKTR.bat", variables={"TEMP": "D:\\System\\A\\b\\c"}),
    kept("the folder of the script", "D:\\System\\S", script="D:\\System\\S\\clearKTR.bat"),
    kept("a folder around the script", "D:\\System\\S", script="D:\\System\\S\\a ^!\\clearKTR.bat"),
    kept("the common files of 32-bit programs", "D:\\Program Files (x86)\\Common Files"),
    kept("the program data", SYSTEM + "Program Data"),
    kept("the system directory", "C:\\windows\\system32"),
    kept("the 32-bit system directory", "C:\\windows\\SysWOW64"),
    kept("a profile that no variable names", "D:\\Elsewhere\\Bert",
         files("D:\\Elsewhere\\Bert\\NTUSER.DAT")),
    kept("a desktop that no variable names", "D:\\Elsewhere\\Desktop",
         files("D:\\Elsewhere\\Desktop\\desktop.ini")),
    kept("a hidden desktop.ini", "D:\\Elsewhere\\Desktop",
         files("D:\\Elsewhere\\Desktop\\desktop.ini"),
         attributes("hs", "D:\\Elsewhere\\Desktop\\desktop.ini")),
]

LINK = "D:\\Elsewhere\\link"
BY_DRIVE = "F:\\Anna\\AppData\\Local"
"""The same folder as below the profile, under another drive letter."""

# Folders that stay, by a path that no variable contains.
OTHER_PATHS = [
    refused("application data behind a link", f'"{LINK}\\Local"',
            link(LINK, PROFILE + "\\AppData"), mark(PROFILE + "\\AppData\\Local\\bin")),
    refused("the product behind a link to the folder above", f'"{LINK}\\Dravik"',
            link(LINK, "D:\\Program Files\\Torvan")),
    refused("the product behind a link two levels up", f'"{LINK}\\Torvan\\Dravik"',
            link(LINK, "D:\\Program Files")),
    refused("the product behind a link to a drive", f'"{LINK}\\Program Files\\Torvan\\Dravik"',
            link(LINK, "D:\\")),
    refused("the folder of the temp directory, by another drive letter", f'"{BY_DRIVE}"',
            mark(PROFILE + "\\AppData\\Local\\bin")),
    refused("the temp directory, by another drive letter", f'"{BY_DRIVE}\\Temp"',
            mark(PROFILE + "\\AppData\\Local\\Temp\\bin")),
    refused("programs of the user, by another drive letter", f'"{BY_DRIVE}\\Programs"',
            mark(PROFILE + "\\AppData\\Local\\Programs\\bin"),
            folders(PROFILE + "\\AppData\\Local\\Microsoft")),
    gone("among the programs of the user, by another drive letter",
         PROFILE + "\\AppData\\Local\\Programs\\Dravik",
         folders(PROFILE + "\\AppData\\Local\\Microsoft"),
         arguments=f'"{BY_DRIVE}\\Programs\\Dravik"'),
    gone("a product called Programs", "D:\\Torvan\\Programs"),
    gone("beside a folder called Microsoft", PRODUCT,
         folders("D:\\Program Files\\Torvan\\Microsoft")),
    *(kept(f"a folder with {name} in it", SYSTEM + "Moved", folders(f"{SYSTEM}Moved\\{name}"))
      for name in ("Microsoft", "LocalLow", "All Users", "Common Files", "microsoft shared",
                   "System32", "Program Files")),
    kept("a folder with kernel32.dll in it", SYSTEM + "Moved",
         files(SYSTEM + "Moved\\kernel32.dll")),
    gone("names that a product may use itself", PRODUCT, folders(*(
        f"{PRODUCT}\\{name}" for name in ("Temp", "Windows", "Users", "Public", "Local",
                                         "Microsoft.VC90.CRT"))),
         files(RES + "\\Microsoft\\x.txt")),
]

HARMFUL = '" & mkdir D:\\harm & "'
HIJACK = tuple(f"D:\\Hijack\\{name}" for name in ("fc.exe", "ping.exe", "cmd.exe", "dir.exe"))
SCRIPTS = tuple(f"D:\\Hijack\\{name}.bat" for name in ("fc", "ping", "rd", "del", "dir", "cd"))

# Wrong or malicious variables.
ENVIRONMENT = [
    *(kept(f"no {name}", variables={name: None})
      for name in ("SystemRoot", "USERPROFILE", "ProgramFiles")),
    kept("another SystemRoot", variables={"SystemRoot": "D:\\Elsewhere"}),
    kept("a command in SystemRoot", variables={"SystemRoot": "C:\\windows" + HARMFUL}),
    *(gone(f"a command in {name}", variables={name: value}) for name, value in {
        "USERPROFILE": HARMFUL, "PUBLIC": "x" + HARMFUL, "OneDrive": "x & mkdir D:\\harm",
        "ProgramFiles(x86)": "x" + HARMFUL, "TEMP": HARMFUL}.items()),
    gone("all optional variables are missing", variables=dict.fromkeys((
        "APPDATA", "LOCALAPPDATA", "TEMP", "TMP", "OneDrive", "PUBLIC", "ProgramData",
        "ALLUSERSPROFILE", "ProgramW6432", "ProgramFiles(x86)", "CommonProgramFiles",
        "CommonProgramW6432", "CommonProgramFiles(x86)"))),
    gone("relative folders in the variables",
         variables={"APPDATA": ".", "TMP": "..", "PUBLIC": "x"}, in_folder=PRODUCT),
    kept("a profile, and USERPROFILE elsewhere", PROFILE,
         variables={"USERPROFILE": "D:\\Elsewhere"}),
    gone("the script's own variables are set", variables={
        "attributes": "l", "folder": "D:\\Elsewhere", "part": "", "status": "9", "found": "5",
        "entry": "x", "kept": "1", "program": "D:\\keep.txt", "seconds": "0", "below": "x",
        "above": "x", "self": "D:\\keep.txt", "here": "D:\\", "system": "D:\\Elsewhere"}),
    gone("variables hide the interpreter's own values", variables={
        "CD": "D:\\Elsewhere", "ERRORLEVEL": "1", "CMDEXTVERSION": "0", "CMDCMDLINE": "x",
        "DATE": "x", "RANDOM": "x"}),
    gone("DIRCMD changes dir", variables={"DIRCMD": "/s /p /ad-h"}),
    without_mark("another script, with ERRORLEVEL set to 0",
                 file(PROGRAM + "\\clearKTR.bat", b""), variables={"ERRORLEVEL": "0"}),
    gone("other programs are found first", PRODUCT, files(*HIJACK),
         *(file(script, b"@mkdir D:\\harm\r\n@exit 0\r\n") for script in SCRIPTS),
         variables={"PATH": "D:\\Hijack"}, in_folder="D:\\Hijack"),
    without_mark("another script, and another fc is found first", *(
        file(script, b"@mkdir D:\\harm\r\n@exit 0\r\n") for script in SCRIPTS),
                 file(PROGRAM + "\\clearKTR.bat", b"x"), variables={"PATH": "D:\\Hijack"},
                 in_folder="D:\\Hijack"),
]

# Folders without the mark.
MARKS = [
    without_mark("no program directory", without(PROGRAM)),
    without_mark("an empty folder", without(PROGRAM, RES, PRODUCT + "\\left over.txt")),
    without_mark("no script", without(PROGRAM + "\\clearKTR.bat")),
    without_mark("no program", without(PROGRAM + "\\UninstallUI.exe")),
    without_mark("in two folders", mark(PRODUCT + "\\bin2")),
    without_mark("in three folders", mark(PRODUCT + "\\bin2", RES)),
    without_mark("in two folders, one of them hidden", mark(PRODUCT + "\\bin2"),
                 attributes("h", PRODUCT + "\\bin2")),
    without_mark("in a hidden folder", attributes("h", PROGRAM)),
    without_mark("beside a hidden folder", folders(PRODUCT + "\\hidden"),
                 attributes("hs", PRODUCT + "\\hidden")),
    without_mark("in the folder itself only", without(PROGRAM), mark(PRODUCT)),
    without_mark("only two levels below", without(PROGRAM), mark(RES + "\\bin")),
    without_mark("split over two folders", without(PROGRAM + "\\clearKTR.bat"),
                 file(RES + "\\clearKTR.bat", b"")),
    without_mark("program with another name", without(PROGRAM + "\\UninstallUI.exe"),
                 files(PROGRAM + "\\UninstallUI.exe.bak", PROGRAM + "\\UninstallUI")),
    without_mark("one byte differs", mark(PROGRAM, change=one_byte)),
    without_mark("last byte differs", mark(PROGRAM, change=lambda text: text[:-1] + b" ")),
    without_mark("one byte more", mark(PROGRAM, change=lambda text: text + b"\n")),
    without_mark("one byte less", mark(PROGRAM, change=lambda text: text[:-1])),
    without_mark("other line ends", mark(PROGRAM, change=lambda t: t.replace(b"\r\n", b"\n"))),
    without_mark("upper case", mark(PROGRAM, change=bytes.upper)),
    without_mark("an empty script", mark(PROGRAM, change=lambda text: b"")),
    without_mark("the program is a folder", without(PROGRAM + "\\UninstallUI.exe"),
                 folders(PROGRAM + "\\UninstallUI.exe")),
    without_mark("the script is a folder", without(PROGRAM + "\\clearKTR.bat"),
                 folders(PROGRAM + "\\clearKTR.bat")),
    without_mark("the folder links to one", without(PROGRAM), mark("D:\\Elsewhere\\bin"),
                 link(PROGRAM, "D:\\Elsewhere\\bin")),
    without_mark("the program is a link to nothing", link(PROGRAM + "\\UninstallUI.exe", "D:\\no")),
    kept("a link to a product folder", "D:\\Elsewhere\\Dravik", link(
        "D:\\Elsewhere\\link", "D:\\Elsewhere\\Dravik"), arguments='"D:\\Elsewhere\\link"'),
    kept("the script beside the program, without arguments", arguments="",
         script=PROGRAM + "\\clearKTR.bat", removes_script=False),
    kept("the script beside the program", script=PROGRAM + "\\clearKTR.bat",
         removes_script=False),
]

ELSEWHERE = "D:\\Elsewhere"
ONLY_THE_PROGRAM = (PROGRAM + "\\UninstallUI.exe",)


def linked(name: str, *steps: Step, **more) -> Case:
    """Wine cannot remove links, so a link keeps all files; its target stays unchanged."""
    return Case(f"link {name}", LEFT, steps=steps, gone=ONLY_THE_PROGRAM, patience=2, **more)


# The script never follows links in the product folder.
LINKS = [
    linked("to a folder elsewhere", link(PRODUCT + "\\link", ELSEWHERE)),
    linked("in the program directory", link(PROGRAM + "\\link", ELSEWHERE)),
    linked("far below", folders(RES + "\\a\\b\\c"), link(RES + "\\a\\b\\c\\link", ELSEWHERE)),
    linked("in a hidden folder", folders(RES + "\\a"), link(RES + "\\a\\link", ELSEWHERE),
           attributes("h", RES + "\\a")),
    linked("to the folder above", link(RES + "\\up", "D:\\Program Files\\Torvan")),
    linked("to the folder itself", link(RES + "\\self", PRODUCT)),
    linked("to a root", link(RES + "\\root", "E:\\")),
    linked("to the profile", link(RES + "\\Anna", PROFILE)),
    linked("to a link", link(ELSEWHERE + "\\to", "E:\\"), link(RES + "\\two", ELSEWHERE + "\\to")),
    linked("among others", link(RES + "\\1", ELSEWHERE), link(RES + "\\2", "E:\\"),
           link(PROGRAM + "\\translations\\3", PROFILE)),
    linked("with special characters in its name", link(RES + "\\a & b (1) ^ ! ü", ELSEWHERE)),
    # Beyond MAX_PATH the interpreter reads no attributes, and Wine's prints an error.
    linked("with a path beyond MAX_PATH", folders(RES + "\\" + "x" * 200),
           link(RES + "\\" + "x" * 200 + "\\" + "y" * 60, ELSEWHERE),
           call="detached", quoted_script=False),
]

CASES = [*NAMES, *CONTENTS, *PLACES, *ARGUMENTS, *PLACES_THAT_STAY, *OTHER_PATHS, *ENVIRONMENT,
         *MARKS, *LINKS]
