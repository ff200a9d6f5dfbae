"""The program directory and the temp directory."""

from __future__ import annotations

from ktr.sandbox import Sandbox
from faults.fault import Fault
from faults.files import ROOT_READS_ALL, occupy
from faults.outcomes import NO_CLEAN_UP, NO_HANDLE, UNCHANGED, CompleteRun

_MOUNT = ("/usr/bin/unshare", "--mount", "/bin/sh", "-c",
          'mount -t tmpfs -o size=4k,nr_inodes=1 full "$TMPDIR" && exec "$0" "$@"')
"""Gives only the program a full temp directory."""

VICTIM = "elsewhere/victim"


def _read_only_program_directory(sandbox: Sandbox) -> None:
    sandbox.bin.chmod(0o555)


def _temp_is_a_file(sandbox: Sandbox) -> None:
    sandbox.temp.rmdir()
    sandbox.temp.write_text("a file")


def _read_only_temp(sandbox: Sandbox) -> None:
    sandbox.temp.chmod(0o555)


def _older_in_read_only_temp(sandbox: Sandbox) -> None:
    (sandbox.temp / "clearKTR.bat").write_text("something older")
    _read_only_temp(sandbox)


def _copy_is_a_folder(sandbox: Sandbox) -> None:
    occupy(sandbox.temp / "clearKTR.bat")


def _copy_is_a_link(sandbox: Sandbox) -> None:
    (sandbox.root / VICTIM).write_text("the victim")
    (sandbox.temp / "clearKTR.bat").symlink_to(sandbox.root / VICTIM)


def _victim_is_safe(sandbox: Sandbox) -> None:
    assert (sandbox.root / VICTIM).read_text() == "the victim"
    assert not (sandbox.temp / "clearKTR.bat").is_symlink()


def _copy_is_a_dangling_link(sandbox: Sandbox) -> None:
    (sandbox.temp / "clearKTR.bat").symlink_to(sandbox.root / VICTIM)


def _link_target_is_not_created(sandbox: Sandbox) -> None:
    assert not (sandbox.root / VICTIM).exists()
    assert not (sandbox.temp / "clearKTR.bat").is_symlink()


FAULTS = [
    Fault("program directory: read-only", NO_HANDLE, _read_only_program_directory,
          also=lambda sandbox: sandbox.bin.chmod(0o755), unprivileged=True,
          linux_only=ROOT_READS_ALL),
    Fault("temp directory: missing", NO_CLEAN_UP, lambda sandbox: sandbox.temp.rmdir(),
          also=lambda sandbox: sandbox.temp.mkdir()),
    Fault("temp directory: a file", NO_CLEAN_UP, _temp_is_a_file),
    Fault("temp directory: read-only", NO_CLEAN_UP, _read_only_temp, unprivileged=True,
          linux_only=ROOT_READS_ALL),
    Fault("temp directory: read-only, with an older script in it", NO_CLEAN_UP,
          _older_in_read_only_temp, unprivileged=True, linux_only=ROOT_READS_ALL),
    Fault("temp directory: full", NO_CLEAN_UP, under=_MOUNT,
          linux_only="it mounts a file system for the program"),
    Fault("the script's copy: an older file", UNCHANGED,
          lambda sandbox: (sandbox.temp / "clearKTR.bat").write_text("something older")),
    Fault("the script's copy: a folder",
          CompleteRun(NO_CLEAN_UP.description + " The folder stays.", clean_up=False),
          _copy_is_a_folder),
    Fault("the script's copy: a link to a file", UNCHANGED, _copy_is_a_link, also=_victim_is_safe,
          linux_only="Wine shows a link as its target"),
    Fault("the script's copy: a link to nothing", UNCHANGED, _copy_is_a_dangling_link,
          also=_link_target_is_not_created, linux_only="Wine shows a link as its target"),
]
