"""Which executable the scenarios test: the one that the build has made."""

from ktr.installation import build_directory
from ktr.system import Native
from ktr.wine import Wine


def is_windows() -> bool:
    """Whether it is the Windows executable."""
    return (build_directory() / "src" / "app" / Wine.program_name).exists()


def system_under_test() -> Native:
    """Where it runs."""
    return Wine() if is_windows() else Native()
