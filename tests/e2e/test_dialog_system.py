"""The dialog and the system around it: other windows, missing displays and bitmaps, and what it leaves behind."""
from PIL import Image

from crashvane import LIMIT, process_error
from reports import write_report, write_settings
from windows import BANNER, EXIT, FEEDBACK, FIX_LINK, SEND, STAND_INS, WS_EX_TOPMOST, put_recorder, wait_for

pytest_plugins = ["dialog_fixtures"]


def write_all(folder, receiver):
    write_report(folder)
    write_settings(folder, receiver.url)
    return ["-f", "CrashReport.xml", "-d"]


def test_comes_to_the_front_of_a_full_screen_game_and_takes_the_keyboard(desktop, folder, receiver):
    game = desktop.start_program(put_recorder(folder / "game" / "client.exe", window="f"))
    screen = wait_for("the full screen", lambda: next(iter(game.windows()), None))
    assert screen.ex_style & WS_EX_TOPMOST
    run = desktop.start(folder, write_all(folder, receiver))
    dialog = run.dialog()
    assert in_order(desktop, dialog, screen)
    dialog.click(FEEDBACK)
    dialog.type("seen")
    wait_for("the typed text", lambda: dialog.text(FEEDBACK) == "seen")
    dialog.click(SEND)
    assert run.finish().exit_code == 0


def test_steps_back_when_the_user_turns_to_another_window(desktop, folder, receiver):
    other = desktop.start_program(put_recorder(folder / "game" / "client.exe", window="o"))
    window = wait_for("the other window", lambda: next(iter(other.windows()), None))
    dialog = desktop.start(folder, write_all(folder, receiver)).dialog()
    assert dialog.window.ex_style & WS_EX_TOPMOST
    desktop.tool("xdotool", "search", "--name", "^ordinary$", "windowactivate")
    wait_for("the step back", lambda: not dialog.window.ex_style & WS_EX_TOPMOST)
    wait_for("the other window in front", lambda: in_order(desktop, window, dialog))


def test_raises_the_window_of_another_process(desktop, folder):
    below = desktop.start_program(put_recorder(folder / "below" / "tool.exe", window="o"))
    first = wait_for("the first window", lambda: next(iter(below.windows()), None))
    above = desktop.start_program(put_recorder(folder / "above" / "tool.exe", window="o"))
    second = wait_for("the second window", lambda: next(iter(above.windows()), None))
    wait_for("the second in front", lambda: in_order(desktop, second, first))
    raising = desktop.start_program(STAND_INS / "dialoghost.exe", ["raise", first.process])
    assert raising.process.wait(LIMIT) == 0
    wait_for("the first in front", lambda: in_order(desktop, first, second))


def in_order(desktop, front, back):
    handles = [window.handle for window in desktop.driver.windows()]
    return handles.index(front.handle) < handles.index(back.handle)


def test_without_a_display_the_run_ends_with_1(desktop, folder, receiver):
    run = desktop.start(folder, write_all(folder, receiver), DISPLAY="")
    result = run.finish()
    assert result.exit_code == 1
    assert any(line.startswith("WinForm Show Fail ") for line in result.log)
    assert process_error("nRetCode != WinFormError", "WinMain") in result.log
    assert [one.endpoint for one in receiver.requests] == ["dumpinfo"]


def test_an_unattended_run_loads_nothing_that_only_windows_need(desktop, folder, receiver):
    run = desktop.start(folder, [*write_all(folder, receiver), "-b"], WINEDEBUG="+loaddll")
    assert run.finish().exit_code == 0
    loaded = run.output.decode("latin-1").lower()
    assert "wininet" in loaded
    assert "comctl32" not in loaded


def test_the_dialog_uses_themed_controls(desktop, folder, receiver):
    run = desktop.start(folder, write_all(folder, receiver), WINEDEBUG="+loaddll")
    run.dialog().press(EXIT)
    run.finish()
    assert "microsoft.windows.common-controls" in run.output.decode("latin-1").lower()


def host(desktop, image, times=1):
    return desktop.start_program(STAND_INS / "dialoghost.exe", [image, times])


def lines(run):
    """What the host printed: result, brushes, other GDI objects, registered forms and links of each dialog."""
    split = [line.split() for line in run.output.decode("latin-1").splitlines()]
    return [tuple(map(int, fields)) for fields in split if len(fields) == 5 and all(map(str.isdigit, fields))]


def test_an_image_without_a_bitmap_leaves_the_banner_empty(desktop, tmp_path):
    run = host(desktop, 999)
    dialog = run.dialog()
    left, top, right, bottom = dialog.child(BANNER).rect
    picture = desktop.screenshot(tmp_path / "banner.png", (left, top, right, bottom))
    assert dialog.text(SEND) == "Send report"
    assert has_one_colour(picture)
    dialog.press(EXIT)
    run.process.wait(LIMIT)
    log = run.output.decode("latin-1")
    assert "ZTLOG_PROCESS_ERROR(m_hBitMap) at line" in log and "in WinForm::ChangeControlImage" in log
    assert "ZTLOG_CHECK_ERROR(nRetCode) at line" in log and "in WinForm::OnInit" in log
    assert lines(run)[0][0] == 0


def has_one_colour(picture):
    with Image.open(picture) as image:
        return len(image.convert("RGB").getcolors()) == 1


def test_only_the_links_brushes_stay_behind(desktop):
    """A dialog keeps the brushes that painting its view link made, and nothing else."""
    run = host(desktop, 151, 6)
    for count in range(6):
        dialog = run.dialog()
        assert not dialog.child(FIX_LINK).visible
        dialog.press(EXIT if count % 2 else SEND)
        wait_for("the dialog's end", lambda: len(lines(run)) == count + 1)
    run.process.wait(LIMIT)
    ends = lines(run)
    assert [one[0] for one in ends] == [1, 0, 1, 0, 1, 0]
    assert {one[3:] for one in ends} == {(0, 0)}
    # The first dialog also makes what the system keeps for the process.
    assert len({others for _, _, others, *_ in ends[1:]}) == 1
    grown = [later[1] - earlier[1] for earlier, later in zip(ends[1:], ends[2:])]
    assert all(1 <= brushes <= 8 for brushes in grown), grown
