"""Offers: the queries to the remote configuration, the links that are opened, the events."""

import json

import pytest

from ktr import layout, steps, wait
from offer_keys import CART, LANDING, OTHERS_PRICE, PRICE

pytestmark = pytest.mark.usefixtures("reasons")

CONFIG = "vantoronlineconfig.dll"


def look_ups(sandbox):
    """The keys and suffixes of the queries so far."""
    return [(entry.text("key"), entry.text("suffix"))
            for entry in sandbox.journal(CONFIG, "get_string_value", buffer="given")]


def opened(sandbox):
    """The links opened so far."""
    return [entry.items("args")[0] for entry in sandbox.journal("xdg-open", "open")]


def leave(sandbox, program, window):
    """Cancels and waits for the end."""
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=False)


@pytest.mark.parametrize("oem, language, prefix", (
    ("official", "English", "official__uninstall__180__English"),
    ("ACME", None, "ACME__uninstall__180"),
    (None, "Arabic", "uninstall__180__Arabic"),
    (None, None, "uninstall__180"),
    ("", "", "uninstall__180"),
    ("\u00c9cole", "\u4e2d\u6587", "\u00c9cole__uninstall__180__\u4e2d\u6587"),
))
def test_loading_the_window_queries_the_configuration(sandbox, oem, language, prefix):
    sandbox.set_registry(language, oem, "5521")
    suffix = (oem or "").lower()
    sandbox.configure(CONFIG, **{f"string.{CART}": "https://a.example", f"string.{LANDING}": "x",
                                 f"string.{CART}__{suffix}": "https://b.example",
                                 f"string.{LANDING}__{suffix}": "y"})
    program = sandbox.start()
    window = program.ready()
    entries = sandbox.journal(CONFIG)
    assert [entry.event for entry in entries[:4]] == [
        "load", "create_config", "init_config", "set_filter_environment"]
    assert entries[2].text("mode") == "0"
    assert entries[3].text("prefix") == sandbox.system.multibyte(prefix)
    assert len(sandbox.journal(CONFIG, "set_filter_environment")) == 1
    assert sorted(look_ups(sandbox)) == sorted([
        (PRICE, ""), (CART, suffix), (OTHERS_PRICE, ""), (LANDING, suffix)])
    sizes = [entry.text("size") for entry in sandbox.journal(CONFIG, "get_string_value")
             if entry.text("buffer") == "null"]
    assert sizes == ["4294967295"] * 4
    assert not sandbox.journal(CONFIG, "unexpected")
    leave(sandbox, program, window)
    assert not sandbox.journal(CONFIG, "release_config"), "the program exits without releasing it"


@pytest.mark.parametrize("reason, url, link", (
    (1, "https://a.example/?p=1", "https://a.example/?p=1&x-url=1-5521"),
    (1, "https://a.example/cart/", "https://a.example/cart?x-url=1-5521"),
    (2, "https://b.example/%C3%A9", "https://b.example/%C3%A9?x-url=1-5521"),
))
def test_a_coupon_opens_its_link(sandbox, reason, url, link):
    sandbox.set_registry("English", None, "5521")
    sandbox.configure(CONFIG, **{f"string.{CART if reason == 1 else LANDING}": url})
    program = sandbox.start()
    window = program.ready()
    steps.choose(sandbox, window, reason)
    window.click(layout.COUPON)
    event = steps.wait_event(sandbox, "Click_Gift_Url")
    assert json.loads(event[2]) == {"url": link}
    sandbox.wait_noted("xdg-open", "open")
    assert opened(sandbox) == [link]
    leave(sandbox, program, window)


# The value in the key of 32-bit programs and in the other key; None: no key, "": no value in it.
@pytest.mark.parametrize("first, second, tail", (
    (None, "77", "?x-url=1-77"),
    ("88", "77", "?x-url=1-88"),
    ("", "77", ""),
    (None, "", ""),
    (None, None, ""),
    (None, "\u00e4 1", "?x-url=1-%C3%A4%201"),
))
def test_the_link_has_the_identifier_of_the_download(sandbox, first, second, tail):
    values = {("Software\\TORVAN\\KTR", "Language"): "English"}
    for key, text in (("WOW6432Node\\TORVAN\\KTR_dd", first), ("TORVAN\\KTR_dd", second)):
        if text is not None:
            values["Software\\" + key, "xurlID" if text else "something else"] = text or "x"
    sandbox.system.write_registry(sandbox.bin, values)
    sandbox.configure(CONFIG, **{f"string.{CART}": "https://a.example/cart"})
    program = sandbox.start()
    window = program.ready()
    steps.choose(sandbox, window, 1)
    window.click(layout.COUPON)
    sandbox.wait_noted("xdg-open", "open")
    assert opened(sandbox) == ["https://a.example/cart" + tail]
    leave(sandbox, program, window)


@pytest.mark.parametrize("reason", (3, 4))
def test_the_feedback_link_and_the_thank_you_coupon_open_the_same_offer(sandbox, reason):
    sandbox.set_registry("English", "acme", "5521")
    sandbox.configure(CONFIG, **{f"string.{LANDING}__acme": "https://b.example/thanks"})
    link = "https://b.example/thanks?x-url=1-5521"
    program = sandbox.start()
    window = program.ready()
    before = look_ups(sandbox)
    steps.choose(sandbox, window, reason)
    assert look_ups(sandbox) == before, "a feedback page queries only when its link is used"
    window.click(layout.FEEDBACK_LINK)
    sandbox.wait_noted("xdg-open", "open")
    asked = [(OTHERS_PRICE, ""), (LANDING, "acme")]
    assert look_ups(sandbox) == before + asked
    steps.write(window, "x")
    steps.submit(window)
    steps.wait_coupon(window)
    assert look_ups(sandbox) == before + 2 * asked
    window.click(layout.COUPON)
    wait.until(lambda: opened(sandbox), "two links", accept=lambda links: len(links) == 2)
    assert opened(sandbox) == [link, link]
    assert len(sandbox.journal(CONFIG, "set_filter_environment")) == 1

    url = json.dumps({"url": link}, separators=(",", ":"))
    submitted = [("noSolvedPage", "Click_Submit", '{"attribute":"x"}')] if reason == 3 else []
    assert steps.events(sandbox)[1:] == [
        ("UninstallPop", "Click_Text_Url", url),
        *submitted,
        ("UninstallPop", "Result_Question_What_Problem", '{"answer":"x"}'),
        ("UninstallPop", "Click_Gift_Url", url),
    ]
    leave(sandbox, program, window)


def test_the_library_receives_the_events(sandbox, program):
    window = program.window()
    steps.choose(sandbox, window, 1)
    steps.uninstall(window)
    steps.wait_event(sandbox, "Click_Uninstall")
    steps.wait_complete(window)
    reason, uninstall = sandbox.journal("SkyrelWrap.DLL", "SkyrelSendInfo")
    for entry, count in ((reason, 11), (uninstall, 9)):
        assert entry.number("count") == count
        assert (entry.text("flag"), entry.text("wide")) == ("0", "1")
    assert reason.items("pairs") == [
        "torvanSendType=0", "Window=UninstallPop", "Activity=Result_Question_Why_Unistall",
        'Attribute={"answer":"The price is too expensive"}']
    assert uninstall.items("pairs") == [
        "torvanSendType=0", "Window=UninstallPop", "Activity=Click_Uninstall"]
    assert not sandbox.journal("SkyrelWrap.DLL", "unexpected")
    window.click(layout.CANCEL)
    steps.expect_end(sandbox, program, cleanup=True)


def test_a_query_is_logged(sandbox, program):
    leave(sandbox, program, program.window())
    lines = program.stderr.splitlines()
    assert lines[:3] == [
        "CVantorConfigInstance::CVantorConfigInstance() enter",
        "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet= true",
        "CVantorConfigInstance::CVantorConfigInstance() leave"]
    assert lines[3:8] == [
        "CVantorConfigInstance::SetPreFix enter(strVersion= uninstall__180 )",
        "CVantorConfigInstance::SetPreFix enter(pszPrefix= official__uninstall__180__English )",
        "CVantorConfigInstance::SetPreFix set_filter_environment start",
        "CVantorConfigInstance::SetPreFix set_filter_environment end",
        "CVantorConfigInstance::SetPreFix(char*) leave"]
    assert f'CVantorConfigInstance::GetString enter(qstrKey= "{PRICE}"  strDefault= "" )' in lines
    assert 'CVantorConfigInstance::GetString leave. strRet= "$19.95"' in lines
