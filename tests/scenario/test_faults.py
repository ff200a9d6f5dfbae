"""Fault injection: the program does what the table of faults says."""

import pytest

from ktr.output import unexpected_lines
from ktr.wine import is_windows
from faults import TABLE

# Wine is slower, and the program decides the same there.
pytestmark = [pytest.mark.usefixtures("reasons"),
              *([pytest.mark.soak] if is_windows() else [])]
FAULTS = [fault for faults in TABLE.values() for fault in faults]


@pytest.mark.stderr_unchecked  # Checked here, with what the fault allows.
@pytest.mark.parametrize("fault", [
    pytest.param(fault, marks=pytest.mark.uninstrumented if fault.uninstrumented else ())
    for fault in FAULTS], ids=[str(fault) for fault in FAULTS])
def test_the_program_does_what_the_table_says(sandbox, fault):
    if is_windows() and fault.linux_only:
        pytest.skip(fault.linux_only)
    fault.outcome.run(sandbox, fault)
    for program in sandbox.programs:
        assert unexpected_lines(program.stderr, fault.stderr) == []


def test_the_table_has_each_fault_once():
    names = [fault.what for fault in FAULTS]
    assert len(names) >= 60
    assert len(set(names)) == len(names)
