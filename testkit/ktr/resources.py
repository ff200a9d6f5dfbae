"""What a process and its display need at a moment: memory, handles, X resources."""

import psutil
from Xlib.ext import res

from ktr.display import Display


def usage(pid: int) -> tuple[int, int, int]:
    """A process's private memory in KB, and how many handles and threads it has."""
    process = psutil.Process(pid)
    memory = process.memory_info()
    return (memory.rss - memory.shared) // 1024, process.num_fds(), process.num_threads()


def peak_memory(pid: int) -> float:
    """The most memory, in megabytes of 1024 x 1024 bytes, that was resident at any time."""
    with open(f"/proc/{pid}/status", encoding="ascii", errors="replace") as status:
        return next(int(line.split()[1]) for line in status if line.startswith("VmHWM")) / 1024


def clients(display: Display) -> int:
    """How many programs are connected to a display."""
    return len(res.query_clients(display.connection).clients)


def resources(display: Display) -> int:
    """How many X resources of all kinds the programs on a display hold, except this process."""
    connection = display.connection
    mine = connection.display.info.resource_id_base
    return sum(kind.count
               for client in res.query_clients(connection).clients
               if client.resource_base != mine
               for kind in res.query_client_resources(connection, client.resource_base).types)
