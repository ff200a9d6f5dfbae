"""What a process has used so far: time, memory, and what the memory is for."""

from __future__ import annotations

import re
import struct
import time
from functools import lru_cache

_GROUPS = [
    (r"/(uninstallui|measure_[a-z_]+|question-page)(\.exe)?$", "the executable itself"),
    (r"/(skyrelwrap|vantoronlineconfig)\.dll$", "the product's own libraries (stand-ins)"),
    (r"/lib(stdc\+\+|gcc_s|winpthread)[^/]*$", "run-time libraries of the compiler"),
    (r"/(lib)?qt5[^/]*\.(dll|so[.0-9]*)$", "Qt's libraries"),
    (r"/qt5/|/dravik/bin/.*/.*\.dll$|/dravik/bin/.*\.dll$", "Qt's plug-ins and QML modules"),
    (r"/(d3d\w*|dxgi|wined3d|opengl32)\.(dll|so)$|/dri/|/lib(llvm|gl|egl|z3|vulkan|drm|glapi|elf|"
     r"sensors|edit|gallium)[^/]*$", "Direct3D, OpenGL and a driver"),
    (r"\.(ttf|otf|ttc|t1|pfb|pcf|fon)(\.gz)?$|/fontconfig/", "fonts"),
    (r"/wine/|/drive_c/|/wine64[^/]*$", "Wine's own modules and tables"),
    (r"\.so[.0-9]*$|/ld-linux[^/]*$", "libraries of the Linux system"),
    (r"^/sysv|^/memfd|^/dev/shm", "pictures shared with the display"),
    (r"", "heaps, stacks, all that has no file"),
]
_MODULES = (".dll", ".exe", ".drv", ".sys")
_PATTERNS = [(re.compile(pattern), title) for pattern, title in _GROUPS]
_MAPPING = re.compile(r"([0-9a-f]+)-([0-9a-f]+) \S+ ([0-9a-f]+) \S+ \d+ *(.*)")


def cpu_time(pid: int) -> float:
    """Seconds of processor time of all its threads, exact to less than a microsecond."""
    return time.clock_gettime((~pid << 3) | 2)  # what clock_getcpuclockid(3) gives


def peak_memory(pid: int) -> float:
    """The most memory, in megabytes of 1024 x 1024 bytes, that was resident at any time."""
    with open(f"/proc/{pid}/status", encoding="ascii", errors="replace") as status:
        return next(int(line.split()[1]) for line in status if line.startswith("VmHWM")) / 1024


def memory_by_origin(pid: int) -> dict[str, float]:
    """The resident memory in megabytes, by what it is for.

    Wine reads a module into memory without a file wherever its parts in the file do not begin at
    pages; such memory counts for the module in whose image it lies.
    """
    sums = dict.fromkeys(groups(), 0.0)
    image, image_end, group = "", 0, ""
    with open(f"/proc/{pid}/smaps", encoding="utf-8", errors="replace") as lines:
        for line in lines:
            mapping = _MAPPING.match(line)
            if mapping:
                start, path = int(mapping[1], 16), mapping[4].removesuffix(" (deleted)")
                if path.lower().endswith(_MODULES) and int(mapping[3], 16) == 0:
                    image, image_end = path, start + _size_of_image(path)
                group = group_of(image if not path and start < image_end else path)
            elif line.startswith("Rss:"):
                sums[group] += int(line.split()[1]) / 1024
    return sums


def group_of(path: str) -> str:
    """What memory with this file is for."""
    return next(title for pattern, title in _PATTERNS if pattern.search(path.lower()))


def groups() -> list[str]:
    """All that memory can be for."""
    return [title for _, title in _GROUPS]


@lru_cache(maxsize=None)
def _size_of_image(path: str) -> int:
    with open(path, "rb") as file:
        head = file.read(4096)
    if not head.startswith(b"MZ"):
        return 0  # a library of the Linux build, whatever its name
    header = struct.unpack_from("<I", head, 0x3C)[0]
    return struct.unpack_from("<I", head, header + 24 + 56)[0]
