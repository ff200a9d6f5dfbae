"""What a process and its display need at a moment: memory, handles, X resources."""

from __future__ import annotations

import os
import re
from dataclasses import dataclass
from pathlib import Path

from Xlib.ext import res

from ktr.display import Display


@dataclass(frozen=True)
class Usage:
    """Of a process: KB of memory that are its own, KB at its peak, handles, threads."""

    own: int
    peak: int
    handles: int
    threads: int

    @classmethod
    def of(cls, pid: int) -> "Usage":
        """Now; the process has to run."""
        status = Path(f"/proc/{pid}/status").read_text(encoding="utf-8")
        numbers = {name: int(value) for name, value in re.findall(r"^(\w+):\s*(\d+)", status, re.M)}
        return cls(numbers["RssAnon"], numbers["VmHWM"], len(os.listdir(f"/proc/{pid}/fd")),
                   numbers["Threads"])


def clients(display: Display) -> int:
    """How many programs are connected to a display."""
    return len(res.query_clients(display.connection).clients)


def resources(display: Display) -> int:
    """How many X resources of all kinds all programs hold there, but for those of this process."""
    connection = display.connection
    mine = connection.display.info.resource_id_base
    return sum(kind.count
               for client in res.query_clients(connection).clients
               if client.resource_base != mine
               for kind in res.query_client_resources(connection, client.resource_base).types)
