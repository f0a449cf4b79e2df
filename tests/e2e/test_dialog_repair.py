"""A crash with a known solution: the query, the link in the dialog, the offer afterwards, the tool's start."""
import os
import signal
from pathlib import Path

import pytest

import crashvane
from crashvane import process_error
from reports import MODULE, write_report, write_settings
from windows import (BOX_TEXT, EXIT, FIX_LINK, SEND, VIEW_LINK, put_recorder, started, wait_for)
from wine import windows_path

pytest_plugins = ["dialog_fixtures"]

OFFER = "经分析，本次崩溃已经有了解决方案，点击“确定”查看详情"
OFFER_CAPTION = "客户端问题"
REPAIR_ERROR, VIEW_ERROR, ERROR_CAPTION = "查看修复方案出错!", "查看错误报告出错!", "错误"
CAN_BE_FIXED, NOT_FOUND = "[main] This crash can be fixed.", "[main] No solution was found."
CANCELED = "[main] The repaire of solution has been canceled!"
FAILED, SUCCESS = "[main] StartRepair failed!", "[main] StartRepair success."
OK, CANCEL = 1, 2


class Installation:
    """A game with its repair tool; the program lies where its clients have it, or the game is named with -r."""

    def __init__(self, desktop, folder, receiver):
        self.desktop, self.folder, self.receiver = desktop, folder, receiver
        self.tool = folder / "game" / "Mendwell.exe"
        self.client = folder / "game" / "bin64" / "BRENNClientX64.exe"
        receiver.answer("dumptype", body="3")

    def start(self, *args, project="BRENN", locale="en_US", named=True, **options):
        write_report(self.folder, **options)
        write_settings(self.folder, self.receiver.url, project=project)
        restart = ["-r", windows_path(self.client)] if named else []
        return self.desktop.start(self.folder, ["-f", "CrashReport.xml", "-d", *restart, *args], locale, self.receiver)

    def command_line(self, crash="3=(k=ab12cd34,m=engine.dll,v=1.0.0.5,t=1567130000,r=125)"):
        return f'{windows_path(self.tool)} -crash "{crash}"'


@pytest.fixture
def game(desktop, folder, receiver):
    return Installation(desktop, folder, receiver)


def asked(receiver):
    return [one.fields for one in receiver.requests if one.endpoint == "dumptype"]


def text_of(box):
    return box.window.text, box.text(BOX_TEXT)


def test_a_known_solution_can_be_opened_in_the_dialog_and_is_not_offered_again(game, receiver):
    put_recorder(game.tool)
    run = game.start()
    dialog = run.dialog()
    assert asked(receiver) == [{"dump_key": "ab12cd34", "project": "BRENN"}]
    dialog.click(FIX_LINK)
    wait_for("the repair tool", lambda: started(game.tool))
    dialog.press(SEND)
    result = run.finish()
    assert started(game.tool) == [game.command_line()]
    assert result.exit_code == 0
    assert CAN_BE_FIXED in result.log
    tool = windows_path(game.tool)
    at = result.log.index(f"[QuerySolution] {tool} is exist!")
    assert result.log[at + 1] == "[QuerySolution] CrashType=3, DumpKey=ab12cd34  Module=engine.dll,1.0.0.5"
    assert not {CANCELED, FAILED, SUCCESS} & set(result.log)


def test_the_fix_link_starts_the_tool_on_every_press(game):
    put_recorder(game.tool)
    dialog = game.start().dialog()
    dialog.press_link(FIX_LINK)
    dialog.press_link(FIX_LINK)
    wait_for("two starts", lambda: len(started(game.tool)) == 2)
    assert started(game.tool) == [game.command_line()] * 2


def test_the_offer_is_taken(game):
    put_recorder(game.tool)
    run = game.start()
    run.dialog().press(SEND)
    box = run.box()
    assert text_of(box) == (OFFER_CAPTION, OFFER)
    assert [endpoint.endpoint for endpoint in game.receiver.requests] == ["dumpinfo", "dumptype", "dumpfile"]
    box.press(OK)
    result = run.finish()
    assert result.exit_code == 0
    assert result.log[-1] == SUCCESS
    assert wait_for("the repair tool", lambda: started(game.tool)) == [game.command_line()]


@pytest.mark.parametrize("locale", ["zh_CN", "ko_KR"])
def test_the_offer_is_right_under_every_code_page(game, locale):
    put_recorder(game.tool)
    run = game.start(locale=locale)
    run.dialog().press(SEND)
    box = run.box()
    assert text_of(box) == (OFFER_CAPTION, OFFER)


@pytest.mark.parametrize("refuse", [
    lambda box: box.press(CANCEL),
    lambda box: box.keys("Escape"),
    lambda box: box.close(),
], ids=["cancel", "escape", "close box"])
def test_the_offer_is_refused(game, refuse):
    put_recorder(game.tool)
    run = game.start()
    run.dialog().press(SEND)
    refuse(run.box())
    result = run.finish()
    assert result.exit_code == 0
    assert result.log[-1] == CANCELED
    assert started(game.tool) == []
    assert not (game.folder / "CrashReport.xml").exists()


def test_declining_the_report_brings_no_offer(game):
    put_recorder(game.tool)
    run = game.start()
    run.dialog().press(EXIT)
    result = run.finish()
    assert CAN_BE_FIXED in result.log
    assert not {CANCELED, FAILED, SUCCESS} & set(result.log)


def test_a_tool_that_cannot_be_started_is_shown_in_the_dialog(game):
    game.tool.parent.mkdir()
    game.tool.write_text("not a program")
    run = game.start()
    dialog = run.dialog()
    dialog.click(FIX_LINK)
    box = run.box()
    assert text_of(box) == (ERROR_CAPTION, REPAIR_ERROR)
    assert not dialog.window.enabled
    box.press(OK)
    dialog = run.dialog()
    dialog.press(SEND)
    result = run.finish()
    assert result.exit_code == 0
    assert not {CANCELED, FAILED, SUCCESS} & set(result.log)


def test_a_tool_that_cannot_be_started_is_shown_after_the_offer(game):
    game.tool.parent.mkdir()
    game.tool.write_text("not a program")
    run = game.start()
    run.dialog().press(SEND)
    run.box().press(OK)
    box = wait_for("the warning", lambda: next((box for box in [run.box()] if text_of(box)[0] == ERROR_CAPTION), None))
    assert text_of(box) == (ERROR_CAPTION, REPAIR_ERROR)
    box.press(OK)
    result = run.finish()
    assert result.exit_code == 0
    assert result.log[-1] == FAILED


def test_a_tool_behind_blanks_is_found_and_started(game):
    game.tool = game.folder / "my game" / "Mendwell.exe"
    game.client = game.folder / "my game" / "bin 64" / "BRENNClientX64.exe"
    put_recorder(game.tool)
    run = game.start()
    run.dialog().press_link(FIX_LINK)
    (line,) = wait_for("the repair tool", lambda: started(game.tool))
    # A system may put quotation marks around a program's path that it had to search for.
    tool = windows_path(game.tool)
    assert line.replace(f'"{tool}"', tool) == game.command_line()


def test_without_a_named_game_the_tool_lies_above_the_program(game, desktop):
    game.folder = game.client.parent
    game.folder.mkdir(parents=True)
    crashvane.install(game.folder)
    put_recorder(game.tool)
    run = game.start(named=False)
    run.dialog().press_link(FIX_LINK)
    assert wait_for("the repair tool", lambda: started(game.tool)) == [game.command_line()]


def test_a_module_that_is_not_listed_has_no_version(game):
    put_recorder(game.tool)
    run = game.start(modules=[{**MODULE, "FullPath": "C:\\Game\\other.dll"}])
    run.dialog().press_link(FIX_LINK)
    expected = game.command_line("3=(k=ab12cd34,m=engine.dll,v=,t=1567130000,r=125)")
    assert wait_for("the repair tool", lambda: started(game.tool)) == [expected]


@pytest.mark.parametrize("answer", ["0", "-1", "", "no number"])
def test_without_a_solution_the_link_is_hidden_and_nothing_is_offered(game, answer):
    put_recorder(game.tool)
    game.receiver.answer("dumptype", body=answer)
    run = game.start()
    dialog = run.dialog()
    assert not dialog.child(FIX_LINK).visible
    dialog.press(SEND)
    result = run.finish()
    assert result.exit_code == 0
    assert NOT_FOUND in result.log
    assert started(game.tool) == []


def test_a_failed_query_means_no_solution(game):
    put_recorder(game.tool)
    game.receiver.answer("dumptype", status=404, body="3")
    run = game.start()
    dialog = run.dialog()
    assert not dialog.child(FIX_LINK).visible
    dialog.press(EXIT)
    result = run.finish()
    assert process_error("nRetCode", "SendDumpSolution") in result.log
    assert NOT_FOUND in result.log


@pytest.mark.parametrize("options", [
    {"project": "GALDOR"},
    {"changes": {"Exception.ProcessName": "BRENNClient.exe"}},
], ids=["other product", "32-bit client"])
def test_only_the_flagships_64_bit_client_is_asked_for(game, receiver, options):
    put_recorder(game.tool)
    run = game.start(**options)
    run.dialog().press(EXIT)
    result = run.finish()
    assert asked(receiver) == []
    assert result.log.count(process_error("bRetCode", "ZCrashRepair::QuerySolution")) == 1
    assert NOT_FOUND in result.log


def test_product_and_process_count_in_any_case(game, receiver):
    put_recorder(game.tool)
    run = game.start(project="bREnn", changes={"Exception.ProcessName": "brennCLIENTx64.exe"})
    assert run.dialog().child(FIX_LINK).visible


def test_without_the_tool_nothing_is_asked(game, receiver):
    run = game.start()
    run.dialog().press(EXIT)
    result = run.finish()
    assert asked(receiver) == []
    assert NOT_FOUND in result.log
    assert not any("QuerySolution" in line for line in result.log)


def test_the_view_link_shows_the_dump_in_the_file_manager(game):
    run = game.start()
    run.dialog().click(VIEW_LINK)
    wanted = f"/select,{windows_path(game.folder / 'crash.dmp')}"
    process = wait_for("the file manager", lambda: process_with(wanted))
    os.kill(process, signal.SIGTERM)
    wait_for("its end", lambda: not process_with(wanted))


def process_with(argument):
    """The process that was started with an argument of this text."""
    for path in Path("/proc").glob("[0-9]*/cmdline"):
        try:
            arguments = path.read_bytes().split(b"\0")
        except OSError:
            continue
        if b"explorer" in arguments[0].lower() and argument.encode() in arguments[1:]:
            return int(path.parent.name)
    return None


def test_a_file_manager_that_cannot_be_started_is_shown(game, desktop):
    away = []
    for name in ("windows/explorer.exe", "windows/system32/explorer.exe", "windows/syswow64/explorer.exe"):
        path = desktop.prefix / "drive_c" / name
        if path.exists():
            path.rename(path.with_suffix(".away"))
            away.append(path)
    try:
        run = game.start()
        run.dialog().click(VIEW_LINK)
        box = run.box()
        assert text_of(box) == (ERROR_CAPTION, VIEW_ERROR)
        box.press(OK)
        run.dialog().press(EXIT)
        assert run.finish().exit_code == 0
    finally:
        for path in away:
            path.with_suffix(".away").rename(path)
