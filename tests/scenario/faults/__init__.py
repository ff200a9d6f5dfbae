"""The table of injected faults."""

from faults import files, folders, interruptions, programs, registry, variables

TABLE = {
    "Files beside the program": files.FAULTS,
    "Program and temp directory": folders.FAULTS,
    "Task list and uninstaller": programs.FAULTS,
    "Registry values": registry.FAULTS,
    "Environment variables for Qt": variables.FAULTS,
    "Interruptions": interruptions.FAULTS,
}
