"""The table of faults."""

from faults import files, folders, interruptions, programs, registry, variables

TABLE = {
    "Files beside the program": files.FAULTS,
    "Its folders": folders.FAULTS,
    "The task list and the uninstaller": programs.FAULTS,
    "What the setup has recorded": registry.FAULTS,
    "Variables of the toolkit that somebody has set": variables.FAULTS,
    "The end of a run, and what changes meanwhile": interruptions.FAULTS,
}
