"""The error report dialog: what the user does in it and what becomes of it."""
import pytest

from crashvane import process_success
from reports import write_report, write_settings
from windows import EXIT, FEEDBACK, RESTART, SEND, FRAME, put_recorder, started, wait_for
from wine import windows_path

pytest_plugins = ["dialog_fixtures"]

DECLINED = process_success("nRetCode == WinFormCancel && !pCollection->IsForceSend()", "WinMain")


@pytest.fixture
def show(desktop, folder, receiver):
    """Starts the program on a report and waits for the dialog."""
    def start(*args, project="QRL", locale="en_US", **changes):
        write_report(folder, changes=changes)
        write_settings(folder, receiver.url, project=project)
        run = desktop.start(folder, ["-f", "CrashReport.xml", "-d", *args], locale)
        return run, run.dialog()
    return start


def endpoints(receiver):
    return [one.endpoint for one in receiver.requests]


def remark(receiver):
    (archive,) = [one for one in receiver.requests if one.endpoint == "dumpfile"]
    return archive.fields["remark"]


def test_sends_what_the_user_typed_with_its_line_break(show, receiver):
    run, dialog = show()
    dialog.click(FEEDBACK)
    dialog.type("it fell over")
    dialog.keys("Return")
    dialog.type("in the big cave")
    wait_for("the typed text", lambda: dialog.text(FEEDBACK) == "it fell over\r\nin the big cave")
    dialog.click(SEND)
    result = run.finish()
    assert result.exit_code == 0
    assert remark(receiver) == "it fell over\r\nin the big cave"
    assert endpoints(receiver) == ["dumpinfo", "dumpfile"]
    assert result.files == set()


def test_sends_chinese_feedback_with_line_breaks(show, receiver):
    run, dialog = show(locale="zh_CN")
    dialog.set_text(FEEDBACK, "我在打怪，\r\n然后就崩溃了。\r\n")
    dialog.press(SEND)
    assert run.finish().exit_code == 0
    assert remark(receiver) == "我在打怪，\r\n然后就崩溃了。\r\n"


def test_sends_without_feedback(show, receiver):
    run, dialog = show()
    dialog.press(SEND)
    assert run.finish().exit_code == 0
    assert remark(receiver) == ""


@pytest.mark.parametrize("length", [1023, 1024, 1500, 100000])
def test_keeps_1023_characters_of_the_feedback(show, receiver, length):
    text = ("it fell over\r\n" * (length // 14 + 1))[:length - 1] + "!"
    run, dialog = show()
    dialog.set_text(FEEDBACK, text)
    dialog.press(SEND)
    assert run.finish().exit_code == 0
    assert remark(receiver) == text[:1023]


def test_cuts_long_chinese_feedback_between_characters(show, receiver):
    run, dialog = show(locale="zh_CN")
    dialog.set_text(FEEDBACK, "崩" * 1500)  # two bytes each
    dialog.press(SEND)
    assert run.finish().exit_code == 0
    assert remark(receiver) == "崩" * 511


@pytest.mark.parametrize("leave", [
    lambda dialog: dialog.click(EXIT),
    lambda dialog: dialog.press(EXIT),
    lambda dialog: dialog.close(),
    lambda dialog: dialog.keys("Escape"),
    lambda dialog: dialog.keys("alt+F4"),
], ids=["exit by mouse", "exit by message", "close box", "escape", "alt+F4"])
def test_leaving_sends_nothing_and_removes_the_files(show, receiver, leave):
    run, dialog = show()
    dialog.set_text(FEEDBACK, "not to be sent")
    leave(dialog)
    result = run.finish()
    assert result.exit_code == 0
    assert DECLINED in result.log
    assert endpoints(receiver) == ["dumpinfo"]
    assert result.files == set()


def test_a_declined_report_is_sent_without_feedback_where_the_product_forces_it(show, receiver):
    run, dialog = show(project="GALDOR")
    dialog.set_text(FEEDBACK, "not to be sent")
    dialog.keys("Escape")
    result = run.finish()
    assert result.exit_code == 0
    assert DECLINED not in result.log
    assert endpoints(receiver) == ["dumpinfo", "dumpfile"]
    assert remark(receiver) == ""
    assert "-----Process memory info-----" in result.log


@pytest.mark.parametrize("leave", [
    lambda dialog: dialog.press(SEND),
    lambda dialog: dialog.press(EXIT),
    lambda dialog: dialog.close(),
    lambda dialog: dialog.keys("Escape"),
], ids=["send", "exit", "close box", "escape"])
def test_restarts_the_game_however_the_dialog_is_left(show, folder, leave):
    game = put_recorder(folder / "game" / "client.exe")
    run, dialog = show("-r", windows_path(game), "-c", "client.exe -again \"a b\"")
    dialog.click(RESTART)
    wait_for("the check mark", lambda: dialog.is_checked(RESTART))
    leave(dialog)
    assert run.finish().exit_code == 0
    assert wait_for("the game", lambda: started(game)) == ["client.exe -again \"a b\""]


def test_an_unchecked_box_restarts_nothing(show, folder):
    game = put_recorder(folder / "game" / "client.exe")
    run, dialog = show("-r", windows_path(game), "-c", "client.exe")
    assert not dialog.is_checked(RESTART)
    dialog.press(SEND)
    assert run.finish().exit_code == 0
    assert started(game) == []


def test_without_a_program_to_restart_nothing_is_started_or_said(show):
    run, dialog = show()
    dialog.press(RESTART)
    wait_for("the check mark", lambda: dialog.is_checked(RESTART))
    dialog.press(EXIT)
    result = run.finish()
    assert result.exit_code == 0
    assert result.log[-1] == DECLINED


def test_a_restart_that_fails_is_logged(show):
    run, dialog = show("-r", "C:\\nowhere\\client.exe", "-c", "client.exe")
    dialog.press(RESTART)
    wait_for("the check mark", lambda: dialog.is_checked(RESTART))
    dialog.press(SEND)
    result = run.finish()
    assert result.exit_code == 0
    assert any(line.startswith("Start process error! ") for line in result.log)


def test_a_double_click_on_send_is_one_upload(show, desktop, receiver):
    run, dialog = show()
    x, y = dialog.child(SEND).center
    desktop.tool("xdotool", "mousemove", str(x), str(y), "click", "--repeat", "2", "--delay", "10", "1")
    assert run.finish().exit_code == 0
    assert endpoints(receiver) == ["dumpinfo", "dumpfile"]


def test_two_presses_that_wait_together_are_one_upload(show, receiver):
    run, dialog = show()
    dialog.press(SEND)
    try:
        dialog.press(SEND)
        dialog.press(EXIT)
    except (StopIteration, AssertionError):
        pass  # the dialog was quicker and is gone
    assert run.finish().exit_code == 0
    assert endpoints(receiver) == ["dumpinfo", "dumpfile"]


def test_enter_held_down_is_one_upload(show, desktop, receiver):
    run, dialog = show()
    desktop.tool("xdotool", "key", "--clearmodifiers", "--repeat", "10", "--delay", "10", "Return")
    assert run.finish().exit_code == 0
    assert endpoints(receiver) == ["dumpinfo", "dumpfile"]


def test_tab_walks_in_the_order_of_the_template(show):
    _, dialog = show()
    walked = [dialog.focus()]
    for _ in range(4):
        before = dialog.focus()
        dialog.keys("Tab")
        wait_for("the next control", lambda: dialog.focus() not in (before, None))
        walked.append(dialog.focus())
    assert walked == [SEND, EXIT, FEEDBACK, RESTART, SEND]


def test_the_keyboard_alone_writes_and_sends(show, receiver):
    run, dialog = show()
    dialog.keys("Tab", "Tab")
    wait_for("the edit", lambda: dialog.focus() == FEEDBACK)
    dialog.type("by keys")
    wait_for("the typed text", lambda: dialog.text(FEEDBACK) == "by keys")
    dialog.keys("Tab")
    wait_for("the check box", lambda: dialog.focus() == RESTART)
    dialog.keys("space")
    wait_for("the check mark", lambda: dialog.is_checked(RESTART))
    dialog.keys("Tab")
    wait_for("the button", lambda: dialog.focus() == SEND)
    dialog.keys("space")
    assert run.finish().exit_code == 0
    assert remark(receiver) == "by keys"


def test_a_screen_reader_finds_a_name_for_the_edit(show):
    """It takes the text of the nearest control in front of the edit."""
    _, dialog = show()
    seen = [child for child in dialog.children() if child.visible]
    before = seen[[child.id for child in seen].index(FEEDBACK) - 1]
    assert before.id == FRAME
    assert before.text.strip()
