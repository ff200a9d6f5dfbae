"""Scenarios that run on only one of the two executables, and why.

Besides these, `test_soak.py` and the injected faults with a `linux_only` reason run on Linux only.
All other scenarios run on both executables with the same expectations.
"""

# AT-SPI; tests of the test kit with a Linux program; Linux system calls; the tour of `./run`; other
# installations, which under Wine have prefixes of their own and cannot see each other's processes.
FILES_FOR_LINUX = ["test_accessibility.py", "test_driver.py", "test_machine_wide.py",
                   "test_order.py", "test_tour.py"]
# The drop shadow, real uninstallers, the calls of Windows.
FILES_FOR_WINDOWS = ["test_windows.py", "test_calls.py"]

# `file::scenario` to the reason.
ONLY_ON_LINUX = {
    "test_fakes.py::test_the_uninstaller_notes_inherited_files_and_arguments_that_are_not_utf8":
        "Windows tells what is inherited in another form, and arguments are UTF-16 there",
    "test_fakes.py::test_the_uninstaller_removes_itself_but_nothing_behind_a_link":
        "a running executable stays, and Wine shows a link as a folder",
    "test_fakes.py::test_the_uninstaller_outlives_the_session_that_started_it":
        "Windows has no POSIX sessions",
    "test_fakes.py::test_the_companion_is_detached_and_inherits_nothing":
        "read from /proc",
    "test_fakes.py::test_a_deleted_executable_is_listed_by_its_name":
        "a running executable cannot be deleted",
    "test_fakes.py::test_the_clean_up_script_notes_its_session_priority_and_streams":
        "a batch file cannot tell its priority, session and streams",
    "test_uninstall.py::test_the_clean_up_runs_hidden_and_idle":
        "a batch file cannot tell its priority, session and streams; the unit tests of the "
        "program's clean-up command show idle and hidden on Windows",
    "test_feedback.py::test_the_middle_button_pastes_to_the_limit":
        "Windows has no selection that the middle button pastes",
    "test_surroundings.py::test_no_graphics_driver_is_loaded":
        "Qt asks Direct3D for the adapter, for which Wine loads a driver; the Qt kit has no "
        "OpenGL, so nothing is drawn with it",
    "test_surroundings.py::test_a_page_opens_after_the_uninstaller_has_removed_qts_qml_modules":
        "only the real Qt Quick Controls 1 loads a file late; the runs under Wine have a fake of it",
    "test_surroundings.py::test_no_plug_in_of_another_qt_is_loaded":
        "what a process has loaded is read from /proc",
    "test_window.py::test_a_lock_file_that_cannot_be_opened_does_not_stop_the_program":
        "a named mutex has no file that could be in the way",
}

# What the two executables are recorded to do differently: the beginning of a scenario's name and an
# aspect, to the reason.
RECORDED_DIFFERENTLY = {
    ("test_a_configuration_library_without_its_entry_ends_the_program", "exit"):
        "a call through a null pointer: a signal on Linux, an access violation on Windows",
    ("test_loading_the_window_queries_the_configuration_xc9cole", "configuration"):
        "the registry is read in the ANSI code page, which has no Chinese",
    ("test_the_bar_completes_when_tasklist_is_removed_during_the_run", "files"):
        "the scenario removes a command that lies beside the program, where Windows looks first",
    ("test_events_are_in_english_in_every_language", "events"):
        "the reasons are in random order",
    ("test_of_many_starts_at_once_one_has_a_window", "exit"):
        "fewer start at once under Wine",
}


def reason_to_leave_out(node: str) -> str | None:
    """Why a test, by its node identifier, is not for the Windows executable; None if it is."""
    return ONLY_ON_LINUX.get(node.partition("[")[0].rpartition("/")[2])


def reason_to_differ(name: str, aspect: str) -> str | None:
    """Why the records of a scenario differ in an aspect; None if they must not."""
    return next((reason for (start, what), reason in RECORDED_DIFFERENTLY.items()
                 if what == aspect and name.partition(".py_")[2].startswith(start)), None)
