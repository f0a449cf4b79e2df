"""Takes the pictures of the dialog that the documents show (script/screenshots)."""
import shutil
import sys
import tempfile
from pathlib import Path

from PIL import Image

import crashvane
from receivers import Receiver
from reports import write_report, write_settings
from windows import FEEDBACK, Desktop, put_recorder, wait_for
from wine import windows_path

# What the player wrote, by language.
FEEDBACKS = {
    "en_US": "It fell over when I opened the map\r\nin the big cave.",
    "en_GB": "It fell over when I opened the map\r\nin the big cave.",
    "vi_VN": "Toi vua mo ban do trong hang lon.",
    "zh_CN": "我在大山洞里打开地图的时候，\r\n游戏就崩溃了。",
    "zh_TW": "我在大山洞裡打開地圖的時候，\r\n遊戲就當掉了。",
    "ko_KR": "큰 동굴에서 지도를 열었을 때\r\n게임이 멈췄습니다.",
}
PICTURES = {f"{locale}": (locale, 96) for locale in FEEDBACKS}
PICTURES.update({"en_US-150": ("en_US", 144), "en_US-200": ("en_US", 192)})


def main(target, names):
    unknown = set(names) - set(PICTURES)
    if unknown:
        sys.exit(f"screenshots: no such picture: {', '.join(sorted(unknown))}; there are {', '.join(PICTURES)}")
    scratch = Path(tempfile.mkdtemp(prefix="crashvane-pictures-"))
    receiver, desktop = Receiver(scratch / "received"), Desktop()
    try:
        receiver.answer("dumptype", body="3")
        for name in names or PICTURES:
            take(desktop, receiver, scratch / name, Path(target) / f"dialog-{name}.png", *PICTURES[name])
    finally:
        desktop.end()
        receiver.end()
        shutil.rmtree(scratch)


def take(desktop, receiver, folder, picture, locale, dots):
    folder.mkdir()
    crashvane.install(folder)
    write_report(folder)
    write_settings(folder, receiver.url, project="BRENN")
    put_recorder(folder / "Mendwell.exe")
    desktop.set_dots(dots)
    client = windows_path(folder / "bin64" / "Client.exe")
    run = desktop.start(folder, ["-f", "CrashReport.xml", "-d", "-r", client], locale, receiver)
    dialog = run.dialog()
    dialog.set_text(FEEDBACK, FEEDBACKS[locale])
    desktop.tool("xdotool", "mousemove", "1279", "1023")
    raw = folder / "screen.png"
    wait_for("a picture that stands still", lambda: is_still(dialog, raw))
    with Image.open(raw) as image:
        shown = image.convert("RGB")
        # Without the black of the empty screen around the window.
        shown.crop(shown.getbbox()).quantize(256, kmeans=3, dither=Image.Dither.NONE).save(picture, optimize=True)
    run.end()
    print(picture)


def is_still(dialog, path):
    """Two pictures of the window with its frame, one after the other, are the same."""
    before = path.read_bytes() if path.exists() else None
    left, top, right, bottom = dialog.window.rect
    dialog.desktop.screenshot(path, (left, top, right, bottom))
    with Image.open(path) as image:
        image.convert("RGB").save(path.with_suffix(".bmp"))
    still = path.with_suffix(".bmp").read_bytes()
    same = still == getattr(is_still, "last", None)
    is_still.last = still
    return same and before is not None


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
