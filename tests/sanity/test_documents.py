"""What commands have written into documents says what they would write today."""

import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent


def test_the_table_of_faults_is_up_to_date():
    run = subprocess.run([ROOT / "tools" / "fault-table", "--check"], capture_output=True,
                         text=True, check=False)
    assert run.returncode == 0, run.stderr
