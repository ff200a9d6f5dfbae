"""The imports of a PE file."""

from __future__ import annotations

from pathlib import Path

import pefile


def imports_of(file: Path) -> set[str]:
    """The names, in lower case, of the DLLs that it imports, including delay-loaded ones."""
    image = pefile.PE(str(file), fast_load=True)
    image.parse_data_directories([
        pefile.DIRECTORY_ENTRY["IMAGE_DIRECTORY_ENTRY_IMPORT"],
        pefile.DIRECTORY_ENTRY["IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT"]])
    entries = [*getattr(image, "DIRECTORY_ENTRY_IMPORT", []),
               *getattr(image, "DIRECTORY_ENTRY_DELAY_IMPORT", [])]
    return {entry.dll.decode("ascii").lower() for entry in entries}
