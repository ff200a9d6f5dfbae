r"""The calls of the Windows executable to the system: which, in which order, with which arguments.

The tables are the contract with Windows and with the product's setup; each line is a call. ROOT is
the sandbox and `*` an address; Qt makes the calls that begin with "Qt: ". `testkit/ktr/relay.py`
names the handles; each test names the processes and windows that it knows.
"""

import re

import pytest

from ktr import layout, relay, wait
from ktr.steps import POLLS, uninstall, wait_climbing, wait_complete, wait_given_up

pytestmark = pytest.mark.stderr_unchecked  # The trace is written there.


def table(text):
    """The lines of a table; a line that begins with a space continues the one before."""
    return re.sub(r"\n +", " ", text.strip()).splitlines()


# Every start begins like this.
EVERY_START = table(r"""
LoadLibraryA("ROOT\Dravik\bin\SkyrelWrap.DLL")
GetProcAddress(telemetry, "SkyrelOpenSession")
GetProcAddress(telemetry, "SkyrelCloseSession")
GetProcAddress(telemetry, "SkyrelAddParamToSessionA")
GetProcAddress(telemetry, "SkyrelAddParamToSessionW")
GetProcAddress(telemetry, "SkyrelSendInfo")
GetProcAddress(telemetry, "SkyrelEnableUserInfoCollect")
GetProcAddress(telemetry, "SkyrelInstallConfigFilePath")
GetProcAddress(telemetry, "SkyrelInstallInitUid")
GetProcAddress(telemetry, "SkyrelUninstallStart")
GetProcAddress(telemetry, "SkyrelUninstallEnd")
GetProcAddress(telemetry, "SkyrelIsEnableUserInfoCollect")
GetProcAddress(telemetry, "SkyrelEndCache")
GetProcAddress(telemetry, "SkyrelGetUserUid")
GetProcAddress(telemetry, "SkyrelStopProcess")
GetProcAddress(telemetry, "SkyrelGetKeyValue")
GetProcAddress(telemetry, "SkyrelSetKeyValue")
CreateMutexW(null, 1, "ktr_uninstall_version_2023_Ostrel_Torvan")
""")

# The first instance, until it loads the interface. The empty folder is deliberate.
BEFORE_THE_INTERFACE = [*EVERY_START, *table(r"""
GetLastError() = 0
GetModuleFileNameW(null, *, 260)
SetCurrentDirectoryW("")
Qt: SetCurrentDirectoryW("ROOT\Dravik\bin")
Qt: CopyFileW("\\?\ROOT\Dravik\bin\clearKTR.bat", "\\?\ROOT\tmp\clearKTR.bat", 1)
RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\TORVAN\KTR", 0, 0x20019, *) = 0
RegQueryValueExA(opened, "Language", null, null, *, *) = 0
RegCloseKey(opened)
RegOpenKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\Torvan\KTR", 0, 0x20019, *) = 0
RegCloseKey(opened)
""")]
REMOVES_AN_OLDER_SCRIPT = r'Qt: DeleteFileW("\\?\ROOT\tmp\clearKTR.bat")'

# Reads while the interface loads, in any order and number.
VERSION = r"""
GetModuleFileNameW(null, *, 260)
GetPrivateProfileStringW("main", "versionNo", "18.0", *, 100,
    "ROOT\Dravik\bin\UninstallUI.exe\config.ini")
"""
SHADOW = r"""
SystemParametersInfoA(0x1024, 0, *, 0)
"""
LANGUAGE = r"""
RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\TORVAN\KTR", 0, 0x20019, *) = 0
RegQueryValueExA(opened, "Language", null, null, *, *) = 0
RegCloseKey(opened)
"""
OEM = r"""
RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\TORVAN\KTR\Version", 0, 0x20019, *) = 0
RegQueryValueExA(opened, "OEM", null, null, *, *) = 0
RegCloseKey(opened)
"""
NO_OEM = r"""
RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\TORVAN\KTR\Version", 0, 0x20019, *) = 2
"""
LINK = r"""
RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\WOW6432Node\TORVAN\KTR_dd", 0, 0x20019, *) = 0
RegQueryValueExA(opened, "xurlID", null, null, *, *) = 0
RegCloseKey(opened)
"""
# The setup is a 32-bit program, so its key comes first.
LINK_OF_ANOTHER_SETUP = r"""
RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\WOW6432Node\TORVAN\KTR_dd", 0, 0x20019, *) = 2
RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\TORVAN\KTR_dd", 0, 0x20019, *) = 0
RegQueryValueExA(opened, "xurlID", null, null, *, *) = 0
RegCloseKey(opened)
"""

PUBLISHES_ITS_WINDOW = table(r"""
fopen("ROOT\Dravik\bin\hwndFile.ini", "wb")
fclose(stream)
""")

ASKS_FOR_THE_PRODUCT = \
    r'Qt: CreateProcessW(null, "tasklist  /NH /FO CSV /FI "IMAGENAME eq KTRUI.exe"")'
STARTS_UNINSTALLER = r'Qt: CreateProcessW(null, "ROOT\Dravik\bin\uninstall.exe  /SP- /VERYSILENT")'
ASKS_FOR_UNINSTALLER = \
    r'Qt: CreateProcessW(null, "tasklist  /NH /FO CSV /FI "IMAGENAME eq uninstall.exe"")'

# Only the companion from the program's own folder is ended.
CLEANS_UP = table(r"""
GetModuleFileNameW(null, *, 260)
CreateToolhelp32Snapshot(0x2, 0)
Process32FirstW(snapshot, *)
Process32NextW(snapshot, *)
OpenProcess(0x1001, 0, stranger)
QueryFullProcessImageNameW(process, 0, *, *)
CloseHandle(process)
Process32NextW(snapshot, *)
OpenProcess(0x1001, 0, companion)
QueryFullProcessImageNameW(process, 0, *, *)
TerminateProcess(process, 0)
CloseHandle(process)
Process32NextW(snapshot, *)
CloseHandle(snapshot)
CreateProcessA(null, "ROOT\tmp\clearKTR.bat "ROOT\Dravik"", null, null, 0, 0x0, null,
    "ROOT/tmp", *, *)
SetPriorityClass(child, 0x40)
SetProcessPriorityBoost(child, 1)
""")

RELEASES_AND_EXITS = table(r"""
ReleaseMutex(mutex)
CloseHandle(mutex)
DeleteFileA("ROOT\Dravik\bin\hwndFile.ini")
exit(0)
""")

# A start that is not the first.
BEGINS_AS_SECOND_START = [*EVERY_START, *table(r"""
GetLastError() = 183
CloseHandle(mutex)
fopen("ROOT\Dravik\bin\hwndFile.ini", "rb")
fclose(stream)
""")]
BRINGS_IT_TO_THE_FRONT = table(r"""
IsWindow(window) = 1
GetForegroundWindow()
GetWindowThreadProcessId(foreground, null)
AttachThreadInput(own-thread, its-thread, 1)
ShowWindow(window, 1)
SetWindowPos(window, -1, 0, 0, 0, 0, 0x3)
SetWindowPos(window, -2, 0, 0, 0, 0, 0x3)
SetForegroundWindow(window)
AttachThreadInput(own-thread, its-thread, 0)
""")

# These calls are repeated until they get an answer; the tables list them once.
UNTIL_ANSWERED = ("Process32NextW", ASKS_FOR_UNINSTALLER)
# The path in the ANSI code page is read wherever it is needed, and then again in UTF-16, to check
# that the code page has all its letters.
ANSI_PATH = {"GetModuleFileNameA(null, *, 260)", "GetModuleFileNameW(null, *, 32768)"}


def calls_to_the_end(sandbox, program, named=None):
    """All calls of a program that has ended; waits until the trace has the last one."""
    seen: list[str] = wait.until(
        lambda: relay.calls(sandbox, program, named=named), "the end in the trace",
        accept=lambda calls: calls[-1:] == ["exit(0)"])
    assert ANSI_PATH <= set(seen)
    calls = [call for call in seen if call not in ANSI_PATH]
    return [call for before, call in zip(["", *calls], calls)
            if call != before or not call.startswith(UNTIL_ANSWERED)]


def assert_calls(calls, beginning, loading, end):
    """Asserts the calls at the beginning and at the end, and the reads of loading in between."""
    loaded = calls.index(end[0]) if end[0] in calls else len(calls)
    assert calls[:len(beginning)] == beginning
    assert reads(calls[len(beginning):loaded]) == {tuple(table(read)) for read in loading}
    assert calls[loaded:] == end


def reads(calls):
    """Groups of calls that read one thing."""
    found: list[tuple[str, ...]] = []
    for call in calls:
        # The second registry key of the link is opened only after the first has failed.
        other_place = r'"Software\TORVAN\KTR_dd"' in call
        begins = call.startswith(("RegOpenKeyExA", "GetModuleFileName", "SystemParameters"))
        if begins and not other_place or not found:
            found.append(())
        found[-1] += (call,)
    return set(found)


def console_shown(sandbox, program):
    """The calls that show the console of a program started by this one."""
    return [call for call in relay.calls(sandbox, program, relay.CONSOLE)
            if call.startswith("ShowWindow")]


def test_an_uninstallation_makes_these_calls(sandbox):
    sandbox.set_registry("German", oem="a channel", xurl_id="a link")
    hold = sandbox.hold("uninstall.exe")
    (sandbox.temp / "clearKTR.bat").write_text("an older one", encoding="utf-8")
    stranger_hold = sandbox.root / "hold" / "stranger"
    stranger_hold.touch()
    sandbox.spawn("SkyrelWrapExe.exe", inside=False, hold_file=stranger_hold)
    stranger = sandbox.wait_noted("SkyrelWrapExe.exe", "start").number("pid")
    program = relay.start(sandbox)
    window = program.ready()
    uninstall(window)
    wait_climbing(window)
    hold.unlink()
    wait_complete(window)
    window.click(layout.CANCEL)
    assert program.wait_exit() == 0
    companion = sandbox.journal("SkyrelWrapExe.exe", "start")[1].number("pid")

    staging = next(at for at, call in enumerate(BEFORE_THE_INTERFACE) if "CopyFileW" in call)
    assert_calls(
        calls_to_the_end(sandbox, program, {("process", stranger): "stranger",
                                            ("process", companion): "companion"}),
        [*BEFORE_THE_INTERFACE[:staging], REMOVES_AN_OLDER_SCRIPT, *BEFORE_THE_INTERFACE[staging:]],
        [VERSION, SHADOW, LANGUAGE, OEM, LINK],
        [*PUBLISHES_ITS_WINDOW, ASKS_FOR_THE_PRODUCT, STARTS_UNINSTALLER, ASKS_FOR_UNINSTALLER,
         *CLEANS_UP, *RELEASES_AND_EXITS])
    # The trace has only the address of STARTUPINFO; this is its effect.
    shown = wait.until(lambda: console_shown(sandbox, program), "the script's console")
    assert shown == ["ShowWindow(unknown window, 0)"], "hidden"
    stranger_hold.unlink()
    sandbox.wait_noted("SkyrelWrapExe.exe", "end", pid=stranger)


def test_cancelling_makes_these_calls(sandbox):
    sandbox.set_registry("German", xurl_id="a link", xurl_key="Software\\TORVAN\\KTR_dd")
    program = relay.start(sandbox)
    program.ready().click(layout.CANCEL)
    assert program.wait_exit() == 0
    assert_calls(
        calls_to_the_end(sandbox, program),
        BEFORE_THE_INTERFACE,
        [VERSION, SHADOW, LANGUAGE, NO_OEM, LINK_OF_ANOTHER_SETUP],
        [*PUBLISHES_ITS_WINDOW, *RELEASES_AND_EXITS])


def test_an_uninstaller_that_never_appears_is_queried_25_times(sandbox):
    (sandbox.bin / "uninstall.exe").unlink()
    sandbox.configure("tasklist", note=1)
    program = relay.start(sandbox)
    window = program.ready()
    uninstall(window)
    wait_given_up(sandbox)
    window.close()
    assert program.wait_exit() == 0
    calls = calls_to_the_end(sandbox, program)
    assert calls[calls.index(ASKS_FOR_THE_PRODUCT):] == [
        ASKS_FOR_THE_PRODUCT, STARTS_UNINSTALLER,
        *[ASKS_FOR_UNINSTALLER, "Sleep(200)"] * POLLS, *RELEASES_AND_EXITS]


def test_a_second_start_brings_the_window_to_the_front_with_these_calls(sandbox, program):
    window = program.ready()
    window.minimise()
    with sandbox.display.windows.bystander():
        second = relay.start(sandbox)
        assert second.wait_exit() == 0
    calls = calls_to_the_end(sandbox, second, {("window", sandbox.read_handle()): "window"})
    assert calls == [*BEGINS_AS_SECOND_START, *BRINGS_IT_TO_THE_FRONT, "exit(0)"]
    window.close()
    assert program.wait_exit() == 0


@pytest.mark.parametrize("handle, looks", [(0x7FFFFFF, ["IsWindow(stale) = 0"]), (0, [])],
                         ids=["stale", "none"])
def test_a_second_start_without_a_window_ends(sandbox, handle, looks):
    with sandbox.holding_instance_lock():
        sandbox.write_handle(handle)
        second = relay.start(sandbox)
        assert second.wait_exit() == 0
    calls = calls_to_the_end(sandbox, second, {("window", handle): "stale"})
    assert calls == [*BEGINS_AS_SECOND_START, *looks, "exit(0)"]
