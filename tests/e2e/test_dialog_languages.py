"""The dialog in every language and at every scale: its texts, and that each of them has its place."""
import itertools

import pytest
from PIL import Image

from reports import write_report, write_settings
from windows import (BANNER, EXIT, FEEDBACK, FIRST_LINE, FIX_LINK, FRAME, PRIVACY_LINE, RESTART, SECOND_LINE, SEND,
                     SEPARATOR, VIEW_LINK, put_recorder)
from wine import ROOT, windows_path

pytest_plugins = ["dialog_fixtures"]

CAPTION = "caption"
ENGLISH = {
    CAPTION: "Error Reporting",
    FIRST_LINE: "Sorry! Client unexpected error has occurred, will terminate the operation.",
    SECOND_LINE: "In order to improve our products and generate a bug report and hope you will send a report to us.",
    PRIVACY_LINE: "Error report does not contain any of your private information.",
    VIEW_LINK: "View the error report",
    RESTART: "Restart the program",
    FRAME: "Please enter the feedback information ",
    SEND: "Send report",
    EXIT: "Exit",
    FIX_LINK: "Click to fix the error",
}
TEXTS = {
    "en_US": ENGLISH,
    "en_GB": ENGLISH,
    "vi_VN": ENGLISH,
    "zh_CN": {
        CAPTION: "错误报告",
        FIRST_LINE: "非常抱歉！客户端程序发生了意外错误，即将终止运行。",
        SECOND_LINE: "为了改进我们的产品，生成了一份错误报告，并希望您将报告发送给我们。",
        PRIVACY_LINE: "错误报告中，不包含任何您的私人信息。",
        VIEW_LINK: "查看错误报告内容",
        RESTART: "重新启动程序",
        FRAME: "请输入反馈信息（如错误发生时您正在做的操作）",
        SEND: "发送错误报告",
        EXIT: "退出",
        FIX_LINK: "点此查看修复方案",
    },
    "zh_TW": {
        CAPTION: "錯誤報告",
        FIRST_LINE: "非常抱歉！客戶端程序發生了意外錯誤，即將終止運行。",
        SECOND_LINE: "為了改進我們的產品，生成了一份錯誤報告，並希望您將報告發送給我們。",
        PRIVACY_LINE: "錯誤報告中，不包含任何您的私人?息。",
        VIEW_LINK: "查看錯誤報告",
        RESTART: "重新啟動程式",
        FRAME: "請輸入反饋信息(如錯誤發生時您正在做的操作)",
        SEND: "發送錯誤報告",
        EXIT: "退出",
        FIX_LINK: "點此查看修復方案",
    },
    "ko_KR": {
        CAPTION: "오류보고",
        FIRST_LINE: "죄송합니다. 클라이언트에 알 수 없는 오류가 발생하여, 즉시 종료합니다.",
        SECOND_LINE: "제품을 개선하기 위해 생성된 오류보고를 우리에게 보내 주시기 바랍니다.",
        PRIVACY_LINE: "오류보고는 개인 정보가 포함되어 있지 않습니다.",
        VIEW_LINK: "오류 보고서 보기",
        RESTART: "프로그램을 다시 시작",
        FRAME: "피드백을 입력해 주세요(예를 들어 오류 발생시 작업 하시던 업무)",
        SEND: "오류보고 보내기",
        EXIT: "종료",
        FIX_LINK: "이를 점검하여 복구 방안을 살펴보다",
    },
}
LINES = (FIRST_LINE, SECOND_LINE, PRIVACY_LINE, VIEW_LINK, FIX_LINK)


@pytest.fixture
def show(desktop_of_session, folder, receiver):
    """Shows the flagship's dialog with a known solution: every control is there."""
    def start(locale, dots=96):
        desktop_of_session.set_dots(dots)
        receiver.answer("dumptype", body="3")
        write_report(folder)
        write_settings(folder, receiver.url, project="BRENN")
        put_recorder(folder / "Mendwell.exe")
        client = windows_path(folder / "bin64" / "BRENNClientX64.exe")
        run = desktop_of_session.start(folder, ["-f", "CrashReport.xml", "-d", "-r", client], locale, receiver)
        return run.dialog()
    yield start
    desktop_of_session.end_runs()


def needed(dialog, control, text, dots, place=10000):
    """Height and width that a text needs in pixels, in the font that its control is to have."""
    if control == FIX_LINK:
        return dialog.driver.measure("宋体", 14 * dots // 96, 8 * dots // 96, 700, 136, place, text)
    return dialog.driver.measure("MS Shell Dlg", -(8 * dots // 72), 0, 400, 1, place, text)


def overlap(one, other):
    return one[0] < other[2] and other[0] < one[2] and one[1] < other[3] and other[1] < one[3]


@pytest.mark.parametrize("locale", TEXTS)
@pytest.mark.parametrize("dots", [96, 144, 192])
def test_every_text_is_there_and_has_its_place(show, dots, locale):
    dialog = show(locale, dots)
    children = {child.id: child for child in dialog.children() if child.visible}
    # The text of the banner is the number of the bitmap that its template names.
    texts = {control: child.text for control, child in children.items() if child.text and control != BANNER}
    assert {CAPTION: dialog.window.text, **texts} == TEXTS[locale]

    for one, other in itertools.combinations(children.values(), 2):
        if FRAME not in (one.id, other.id):
            assert not overlap(one.rect, other.rect), (one.id, other.id)
    frame, edit = children[FRAME].rect, children[FEEDBACK].rect
    assert frame[0] < edit[0] and frame[1] < edit[1] and edit[2] < frame[2] and edit[3] < frame[3]
    for control in LINES:
        assert not overlap(children[control].rect, frame), control

    for control in LINES:
        width, height = children[control].size
        high, wide = needed(dialog, control, TEXTS[locale][control], dots, width)
        assert high <= height and wide <= width, control
    for control, edges in ((SEND, 8), (EXIT, 8), (RESTART, 18), (FRAME, 20)):
        width, height = children[control].size
        high, wide = needed(dialog, control, TEXTS[locale][control], dots)
        assert wide + edges * dots // 96 <= width, control
    assert children[SEND].size[1] >= needed(dialog, SEND, TEXTS[locale][SEND], dots)[0]


@pytest.mark.parametrize("dots", [96, 144, 192])
def test_the_banner_fills_its_place(show, tmp_path, dots):
    dialog = show("en_US", dots)
    banner = dialog.child(BANNER)
    assert banner.size[0] == dialog.child(SEPARATOR).size[0]
    with Image.open(ROOT / "src/ui/art/banner_130.bmp") as drawn, \
            Image.open(dialog.desktop.screenshot(tmp_path / "banner.png", banner.rect)) as shown:
        drawn, shown = drawn.convert("RGB"), shown.convert("RGB")
        expected = drawn.resize(shown.size, Image.BILINEAR)
        for x in (0.01, 0.25, 0.5, 0.75, 0.99):
            for y in (0.05, 0.5, 0.95):
                assert close(average(shown, x, y), average(expected, x, y)), (x, y)


def average(image, x, y, half=6):
    """The mean colour around a place that is given as parts of the size."""
    left, top = int(x * image.width), int(y * image.height)
    box = (max(left - half, 0), max(top - half, 0), min(left + half, image.width), min(top + half, image.height))
    return image.crop(box).resize((1, 1), Image.BOX).getpixel((0, 0))


def close(one, other):
    return all(abs(a - b) <= 24 for a, b in zip(one, other))


def test_the_links_have_their_colours(show, tmp_path):
    dialog = show("en_US")
    assert has_text_colour(dialog, tmp_path, VIEW_LINK, (0, 0, 255))
    assert has_text_colour(dialog, tmp_path, FIX_LINK, (255, 0, 0))
    assert has_text_colour(dialog, tmp_path, PRIVACY_LINE, (0, 0, 0))


def has_text_colour(dialog, tmp_path, control, colour):
    """The text is drawn between its colour and that of the dialog, and nothing else is there."""
    with Image.open(dialog.desktop.screenshot(tmp_path / f"{control}.png", dialog.child(control).rect)) as shown:
        pixels = [pixel for _, pixel in shown.convert("RGB").getcolors(1 << 20)]
        ground = shown.convert("RGB").getpixel((shown.width - 1, shown.height - 1))
    between = [all(min(a, b) - 2 <= value <= max(a, b) + 2 for value, a, b in zip(pixel, colour, ground))
               for pixel in pixels]
    return all(between) and min(sum(abs(a - b) for a, b in zip(pixel, colour)) for pixel in pixels) < 60
