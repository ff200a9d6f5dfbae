"""The table of cases: the script removes what the case says, prints nothing, has the exit code."""

from __future__ import annotations

import pytest

from case_runner import wrong_after_call
from cases import CASES, Case
from machine import Machine


@pytest.mark.parametrize("case", CASES, ids=str)
def test_the_script_removes_what_the_case_says(machine: Machine, case: Case) -> None:
    assert wrong_after_call(machine, case) == []


def test_the_table_has_each_case_once() -> None:
    names = [case.name for case in CASES]
    assert len(names) >= 60
    assert len(set(names)) == len(names)
