"""The system calls of the Windows executable: Wine's relay trace, made readable.

Wine writes a line for each call with the values of its arguments, and one for its result. Each
value is printed with 64 bits; for a smaller parameter only the lower bits are valid.
Handles and the like differ from run to run, so they are shown by names.
"""

import re
from dataclasses import dataclass, field
from typing import Iterator

from ktr.program import RunningProgram
from ktr.sandbox import Sandbox
from ktr.wine import Wine

ROOT = "ROOT"
"""How the sandbox's folder is shown, with and without Windows' own separators."""
CONSOLE = "conhost.exe"
"""The image of Windows' console, whose calls are traced, too."""

# What is traced, each call with the kinds of its parameters.
#   text, number, mask (hexadecimal), signed; pointer: null or *; any: not shown
#   Any other kind is a handle, which is shown by its name. -kind: the name is dropped after the
#   call. !kind: the call is shown only if the handle has a name.
# RegCreateKeyEx and RegSetValueEx are here so that a test fails on them: the registry is only read.
# Results: "= number" is shown; "-> kind name" names the returned handle; "=> kind name" names a
# handle that is returned through a pointer, when it is first used.
_PROGRAM = """
kernel32.LoadLibraryA(text) -> module telemetry
kernel32.GetProcAddress(!module, text)
kernel32.GetModuleFileNameA(module, pointer, number)
kernel32.GetModuleFileNameW(module, pointer, number)
kernel32.CreateMutexW(pointer, number, text) -> handle mutex
kernel32.GetLastError() = number
kernel32.ReleaseMutex(handle)
kernel32.CloseHandle(-handle)
kernel32.SetCurrentDirectoryW(text)
kernel32.GetPrivateProfileStringW(text, text, text, pointer, number, text)
kernel32.CreateToolhelp32Snapshot(mask, number) -> handle snapshot
kernel32.Process32FirstW(handle, pointer)
kernel32.Process32NextW(handle, pointer)
kernel32.OpenProcess(mask, number, process) -> handle process
kernel32.QueryFullProcessImageNameW(handle, number, pointer, pointer)
kernel32.TerminateProcess(handle, number)
kernel32.CreateProcessA(text, text, pointer, pointer, number, mask, pointer, text, \
pointer, pointer) => handle child
kernel32.SetPriorityClass(handle, mask)
kernel32.SetProcessPriorityBoost(handle, number)
kernel32.DeleteFileA(text)
advapi32.RegOpenKeyExA(key, text, number, mask, pointer) = number => key opened
advapi32.RegQueryValueExA(key, text, pointer, pointer, pointer, pointer) = number
advapi32.RegCloseKey(-key)
advapi32.RegCreateKeyExA(key, text, any, any, any, any, any, any, any)
advapi32.RegSetValueExA(key, text, any, any, any, any)
user32.SystemParametersInfoA(mask, number, pointer, number)
user32.IsWindow(window) = number
user32.GetForegroundWindow() -> foreground foreground
user32.GetWindowThreadProcessId(foreground, pointer) -> thread its-thread
user32.AttachThreadInput(thread, thread, number)
user32.ShowWindow(window, number)
user32.SetWindowPos(window, signed, signed, signed, signed, signed, mask)
user32.SetForegroundWindow(window)
kernel32.Sleep(number)
msvcrt.fopen(text, text) -> file stream
msvcrt.fclose(-file)
msvcrt.exit(number)
"""
_QT = """
kernel32.SetCurrentDirectoryW(text)
kernel32.DeleteFileW(text)
kernel32.CopyFileW(text, text, number)
kernel32.CreateProcessW(text, text, any, any, any, any, any, any, any, any)
advapi32.RegCreateKeyExW(key, text, any, any, any, any, any, any, any)
advapi32.RegSetValueExW(key, text, any, any, any, any)
"""

# The run-time library also calls GetLastError; only the call after CreateMutexW is the program's.
_ONLY_AFTER = {"GetLastError": "CreateMutexW"}

_LOADED = re.compile(r'([0-9a-f]{4,}):trace:loaddll:build_module Loaded L"(.*)" at ([0-9A-F]+): ')
_CALLED = re.compile(r"([0-9a-f]{4,}):Call (\w+)\.(\w+)\((.*)\) ret=([0-9a-f]+)")
_RETURNED = re.compile(r"([0-9a-f]{4,}):Ret  (\w+)\.(\w+)\(\) retval=([0-9a-f]+) ret=")
_ARGUMENT = re.compile(r'([0-9a-f]+)(?: L?"((?:[^"\\]|\\.)*)"(?:\.\.\.)?)?(?:,|$)')
_SIGNATURE = re.compile(r"(\w+)\.(\w+)\((.*)\)( = number)?(?: (->|=>) (\w+) ([\w-]+))?")


def start(sandbox: Sandbox) -> RunningProgram:
    """Starts the program so that its calls are written on its standard error."""
    watched = {f"{match[1]}.{match[2]}" for match in _SIGNATURE.finditer(_PROGRAM + _QT)}
    if not isinstance(sandbox.system, Wine):
        raise TypeError("only Wine traces calls")
    sandbox.system.set_user_values(sandbox.root, "Software\\Wine\\Debug", {
        "RelayFromInclude": f"{Wine.program_name};{CONSOLE};Qt5Core",
        "RelayInclude": ";".join(sorted(watched)),
        # Wine's default exclusions would win over the inclusions.
        "RelayFromExclude": None,
        "RelayExclude": None,
    })
    return sandbox.start(environment={"WINEDEBUG": "+relay,+loaddll"})


def calls(sandbox: Sandbox, program: RunningProgram, image: str = Wine.program_name,
          named: dict[tuple[str, int], str] | None = None) -> list[str]:
    """The calls of an image's first thread so far, a line each.

    `named` are names of things that exist already, by kind and value. If several processes run the
    image, the calls of all are in the list.
    """
    namer = _Namer({("key", 0xFFFFFFFF80000002): "HKEY_LOCAL_MACHINE", **(named or {})}, sandbox)
    return [line for call in _calls(program.stderr, image) if (line := namer.line(call))]


@dataclass
class _Call:
    """A call as it was traced: its arguments as numbers and texts."""

    name: str
    thread: int
    by_qt: bool
    arguments: list[tuple[int, str | None]]
    result: int | None = None


@dataclass
class _Thread:
    """The first thread of a process: what is loaded at which address, and its calls."""

    modules: dict[int, str] = field(default_factory=dict)
    calls: list[_Call] = field(default_factory=list)


def _calls(trace: str, image: str) -> Iterator[_Call]:
    """All calls of the image's first thread by the program or by Qt, in order."""
    threads: dict[str, _Thread] = {}
    for line in trace.splitlines():
        if loaded := _LOADED.match(line):
            module = loaded[2].rpartition("\\")[2]
            if module.lower().endswith(".exe"):
                # The executable comes first; the thread's number may have been another's before.
                if module == image:
                    threads[loaded[1]] = _Thread()
                elif loaded[1] in threads:
                    yield from threads.pop(loaded[1]).calls
            if loaded[1] in threads:
                threads[loaded[1]].modules[int(loaded[3], 16)] = module
        elif (called := _CALLED.match(line)) and called[1] in threads:
            thread, address = threads[called[1]], int(called[5], 16)
            caller = thread.modules[max(base for base in thread.modules if base <= address)]
            thread.calls.append(_Call(called[3], int(called[1], 16), caller != image, [
                (int(found[1], 16), found[2] and re.sub(r'\\([\\"])', r"\1", found[2]))
                for found in _ARGUMENT.finditer(called[4])]))
        elif (returned := _RETURNED.match(line)) and returned[1] in threads:
            for call in reversed(threads[returned[1]].calls):
                if call.name == returned[3] and call.result is None:
                    call.result = int(returned[4], 16)
                    break
    for thread in threads.values():
        yield from thread.calls


class _Namer:
    """Formats calls, with names for handles."""

    def __init__(self, named: dict[tuple[str, int], str], sandbox: Sandbox) -> None:
        self._named = named
        self._expected: dict[str, str] = {}
        folder = sandbox.shown(sandbox.root)
        self._folders = (folder, folder.replace("\\", "/"))
        self._program = {match[2]: match for match in _SIGNATURE.finditer(_PROGRAM)}
        self._qt = {match[2]: match for match in _SIGNATURE.finditer(_QT)}
        self._before = ""

    def line(self, call: _Call) -> str:
        """The call as a line; empty if it is not shown."""
        self._named["thread", call.thread] = "own-thread"
        before = self._before
        if not call.by_qt:
            self._before = call.name
        # Calls of the program itself to functions that only Qt should call are shown, too.
        signature = (None if call.by_qt else self._program.get(call.name)) \
            or self._qt.get(call.name)
        if signature is None or _ONLY_AFTER.get(call.name, before) != before:
            return ""
        arguments = list(zip(filter(None, signature[3].split(", ")), call.arguments, strict=True))
        if any(kind.startswith("!") and (kind[1:], number) not in self._named
               for kind, (number, _) in arguments):
            return ""
        shown = [self._shown(kind.lstrip("-!"), *value) for kind, value in arguments]
        for kind, (number, _) in arguments:
            if kind.startswith("-"):
                self._named.pop((kind[1:], number), None)
        result = call.result or 0
        if signature[5] == "->":
            self._named.setdefault((signature[6], result), signature[7])
        elif signature[5] == "=>":
            self._expected[signature[6]] = signature[7]
        given = f" = {result & 0xFFFFFFFF}" if signature[4] else ""
        return f"{'Qt: ' if call.by_qt else ''}{call.name}({', '.join(filter(None, shown))}){given}"

    def _shown(self, kind: str, number: int, text: str | None) -> str:
        low = number & 0xFFFFFFFF
        numeric = {"any": "", "number": str(low), "mask": hex(low),
                   "signed": str(low - (low >> 31 << 32))}
        if kind in numeric:
            return numeric[kind]
        if number == 0:
            return "null"
        if kind == "pointer":
            return "*"
        if kind == "text":
            for folder in self._folders:
                text = (text or "").replace(folder, ROOT)
            return f'"{text}"'
        value = low if kind in ("process", "thread") else number
        if (kind, value) not in self._named and kind in self._expected:
            self._named[kind, value] = self._expected.pop(kind)
        return self._named.get((kind, value), f"unknown {kind}")
