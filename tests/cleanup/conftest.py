"""A machine for each worker."""

from __future__ import annotations

from typing import Iterator

import pytest

from machine import Machine


@pytest.fixture(scope="session")
def machine() -> Iterator[Machine]:
    """The machine of this worker; each test fills its drives."""
    made = Machine()
    try:
        yield made
    finally:
        made.close()
