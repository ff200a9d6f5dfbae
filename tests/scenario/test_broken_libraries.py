"""The in-house libraries missing, incomplete or wrong: the window still works."""

import re

import pytest

from ktr import layout, steps
from ktr.installation import REPOSITORY
from offer_keys import PRICE

pytestmark = pytest.mark.usefixtures("reasons")

CONFIG = "vantoronlineconfig.dll"
TELEMETRY = "SkyrelWrap.DLL"
EXPORTS = re.findall(
    r"ENTRY\((Skyrel\w+)\)",
    (REPOSITORY / "src/services/telemetry/telemetry_contract.h").read_text("utf-8"))


def walk_through(sandbox, with_events=True):
    """Chooses a reason, clicks its coupon, and cancels; returns the program."""
    program = sandbox.start()
    window = program.ready()
    if with_events:
        steps.choose(sandbox, window, 1)
    else:
        window.click(layout.reason(steps.row_of(window, 1)))
    window.click(layout.COUPON)
    window.drag(layout.TITLE_GRIP, 20, 10)
    window.click(layout.CANCEL)
    assert program.wait_exit() == 0
    return program


def remove_export(library, export):
    """Renames an export to another name of the same length that keeps the table sorted."""
    whole, name = library.read_bytes(), export.encode()
    other = name[:-1] + bytes([name[-1] + 1])
    partial = whole.replace(b"\0%s\0" % name, b"\0%s\0" % other)
    assert partial != whole
    library.write_bytes(partial)


def test_the_contract_lists_all_exports():
    assert len(EXPORTS) == 16


@pytest.mark.parametrize("export", EXPORTS)
def test_the_window_works_without_one_telemetry_export(sandbox, export):
    remove_export(sandbox.bin / TELEMETRY, export)
    walk_through(sandbox, with_events=False)


def test_an_incomplete_telemetry_library_gets_the_events(sandbox):
    remove_export(sandbox.bin / TELEMETRY, "SkyrelGetKeyValue")
    walk_through(sandbox)


@pytest.mark.parametrize("library", (TELEMETRY, CONFIG))
def test_the_window_works_without_a_library(sandbox, library):
    sandbox.locate(library).unlink()
    program = walk_through(sandbox, with_events=library == CONFIG)
    if library == CONFIG:
        assert "load vantoronlineconfig.dll error!" in program.stderr
        assert "vantoronlineconfig need Create!" in program.stderr


@pytest.mark.parametrize("settings, line", (
    ({"create": "null"}, "vantoronlineconfig create  fun error!"),
    ({"init": 0}, "vantoronlineconfig init failure!"),
    ({f"length.{PRICE}": 0}, f'"{PRICE} query error!"'),
    ({f"length.{PRICE}": -1}, f'"{PRICE} has No value!"'),
    ({f"length.{PRICE}": -5}, f'"{PRICE} is too long! length:-4"'),
    ({f"length.{PRICE}": 7}, 'GetString leave. strRet= "$19.95"'),
    ({f"fill.{PRICE}": "none"}, 'GetString leave. strRet= ""'),
    ({f"length.{PRICE}": 1 << 20}, 'GetString leave. strRet= "$19.95"'),
    # The allocation may succeed or fail.
    ({f"length.{PRICE}": (1 << 31) - 1},
     ('GetString leave. strRet= "$19.95"', f'"{PRICE} is too long! length:2147483648"')),
    ({f"string.{PRICE}": "x" * (1 << 20)}, 'GetString leave. strRet= "xxx'),
    ({f"string.{PRICE}": "a/"}, 'GetString leave. strRet= "a"'),
    ({f"string.{PRICE}": "a//"}, 'GetString leave. strRet= "a/"'),
    ({f"string.{PRICE}": "\u7279\u60e0 50 %"}, 'GetString leave. strRet= "\u7279\u60e0 50 %"'),
))
def test_the_window_works_with_wrong_answers_of_the_configuration(sandbox, settings, line):
    sandbox.configure(CONFIG, **settings)
    log = walk_through(sandbox).stderr
    lines = (line,) if isinstance(line, str) else line
    assert any(sandbox.system.multibyte(allowed) in log for allowed in lines)


# A sanitizer reports the crash.
@pytest.mark.stderr_unchecked
def test_a_configuration_library_without_its_entry_ends_the_program(sandbox):
    # The program calls the null pointer, deliberately: docs/security.md.
    remove_export(sandbox.locate(CONFIG), "create_config")
    assert sandbox.start().wait_exit() != 0


def test_a_slow_library_only_delays_the_window(sandbox):
    sandbox.configure(TELEMETRY, delay_ms=3000)
    program = sandbox.start()
    window = program.ready()
    steps.choose(sandbox, window, 1)
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=False)
