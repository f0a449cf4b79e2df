"""Drives the program's windows under a virtual display, by mouse and keyboard and by messages. A test reads like this:

    pytest_plugins = ["dialog_fixtures"]

    def test_something(desktop, folder, receiver):
        write_report(folder)
        write_settings(folder, receiver.url)
        run = desktop.start(folder, ["-f", "CrashReport.xml", "-d"])
        dialog = run.dialog()                         # waits until it is up and has the keyboard
        dialog.set_text(FEEDBACK, "it fell over")     # by message
        dialog.click(SEND)                            # by mouse
        result = run.finish()                         # see crashvane.Result

Nothing sleeps for a fixed time: everything waits for its condition, at most LIMIT seconds.
"""
import os
import shutil
import subprocess
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

import crashvane
import wine
from crashvane import LIMIT

SEND, EXIT = 1, 2
FEEDBACK, VIEW_LINK, RESTART, FIX_LINK = 1003, 1005, 1006, 1007
FIRST_LINE, SECOND_LINE, PRIVACY_LINE, FRAME, BANNER, SEPARATOR = 1008, 1009, 1010, 1011, 1012, 1013
BOX_TEXT = 0xFFFF  # the text of a message box

WM_CLOSE, WM_COMMAND, WM_LBUTTONDOWN, BM_CLICK, BM_GETCHECK = 0x10, 0x111, 0x201, 0xF5, 0xF0
WS_EX_TOPMOST = 8

STAND_INS = crashvane.PROGRAM.parent / "tests/e2e"
SCREEN = (1280, 1024)
ENCODINGS = {"zh_CN": 936}  # code pages that collect() is to read logs in; the others' logs are ASCII

# The fonts that script/bootstrap installs and no others, so that texts are as wide on every machine.
FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/opentype/noto</dir>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <include ignore_missing="yes">/etc/fonts/conf.d</include>
</fontconfig>
"""


def wait_for(what, probe, limit=LIMIT):
    """The probe's first true value."""
    end = time.monotonic() + limit
    while True:
        value = probe()
        if value:
            return value
        assert time.monotonic() < end, f"{what}: not within {limit} seconds"
        time.sleep(0.03)


@dataclass
class Window:
    """A top-level window or, with id, style and so on, a child."""
    handle: int
    rect: tuple  # left, top, right, bottom on the screen
    text: str
    class_name: str
    ex_style: int
    enabled: bool = True
    process: int = 0
    program: str = ""
    owner: int = 0
    id: int = 0
    style: int = 0
    visible: bool = True

    @property
    def center(self):
        return (self.rect[0] + self.rect[2]) // 2, (self.rect[1] + self.rect[3]) // 2

    @property
    def size(self):
        return self.rect[2] - self.rect[0], self.rect[3] - self.rect[1]


class Driver:
    """The helper inside the prefix that looks at windows and sends messages (standin/windowdriver.c)."""

    def __init__(self, environ):
        self.process = subprocess.Popen([wine.WINE, str(STAND_INS / "windowdriver.exe")], env=environ,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def ask(self, *words):
        """The answer's lines, each a list of fields."""
        line = "\t".join(escape(str(word)) for word in words) + "\n"
        self.process.stdin.write(line.encode())
        self.process.stdin.flush()
        answer = []
        for got in iter(self.process.stdout.readline, b""):
            fields = got.decode().rstrip("\r\n").split("\t")
            if fields == ["."]:
                return answer
            answer.append([unescape(field) for field in fields[:-1]])
        raise AssertionError("the window driver has gone")

    def windows(self):
        return [Window(int(f[0]), tuple(map(int, f[5:9])), f[4], f[3], int(f[9]), f[11] != "0", int(f[1]), f[2],
                       int(f[10])) for f in self.ask("windows")]

    def children(self, handle):
        return [Window(int(f[0]), tuple(map(int, f[5:9])), f[11], f[2], int(f[4]), f[10] != "0", id=int(f[1]) & 0xFFFF,
                       style=int(f[3]), visible=f[9] != "0") for f in self.ask("children", handle)]

    def send(self, handle, message, w=0, l=0):
        return int(self.ask("send", handle, message, w, l)[0][0])

    def post(self, handle, message, w=0, l=0):
        assert self.ask("post", handle, message, w, l) == [["1"]]

    def measure(self, face, height, width, weight, charset, place, text):
        """Height and width of a text that is broken into a place so many pixels wide."""
        return tuple(map(int, self.ask("measure", face, height, width, weight, charset, place, text)[0]))

    def foreground(self, handle):
        """Foreground window, and active window and focus of the window's thread."""
        return tuple(map(int, self.ask("input", handle)[0]))

    def end(self):
        self.process.stdin.close()
        self.process.wait(LIMIT)
        self.process.stdout.close()


def escape(text):
    return text.replace("\\", "\\\\").replace("\t", "\\t").replace("\r", "\\r").replace("\n", "\\n")


def unescape(text):
    pieces = text.split("\\\\")
    return "\\".join(piece.replace("\\t", "\t").replace("\\r", "\r").replace("\\n", "\n") for piece in pieces)


class Desktop:
    """A screen with a window manager and a Wine prefix whose programs show their windows on it."""

    def __init__(self):
        self._x, self.display = start_x_server()
        self._manager = subprocess.Popen(["openbox"], env={**os.environ, "DISPLAY": self.display},
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.prefix = Path(os.environ.get("CRASHVANE_WINEPREFIX_UI") or wine.ROOT / "build/wine-e2e-ui")
        self._scratch = Path(tempfile.mkdtemp(prefix="crashvane-desktop-"))
        (self._scratch / "fonts.conf").write_text(FONTS)
        self._driver = None
        self.running = []
        self._prepare()

    def environment(self, locale="en_US", proxy=None, **changes):
        """A program's environment; its locale decides language and code page."""
        left_out = tuple(name.lower() for name in wine.LEFT_OUT)
        environ = {name: value for name, value in os.environ.items()
                   if not name.startswith(("LC_", "WINE")) and name.lower() not in left_out}
        environ.update(WINEPREFIX=str(self.prefix), WINEDEBUG="-all", DISPLAY=self.display, LC_ALL=locale + ".UTF-8",
                       WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=",
                       FONTCONFIG_FILE=str(self._scratch / "fonts.conf"))
        if proxy is not None:
            environ["http_proxy"] = proxy.url
        return {**environ, **changes}

    @property
    def driver(self):
        if self._driver is None:
            self._driver = Driver(self.environment())
        return self._driver

    def set_dots(self, dots):
        """Dots an inch of programs that start from now on: 96 is 100 %."""
        if self._dots != dots:
            if self._driver is not None:
                self._driver.end()
                self._driver = None
            self._wine("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d",
                       str(dots), "/f")
            self._dots = dots
            assert self.driver.ask("dots") == [[str(dots)]]

    def start(self, folder, args, locale="en_US", proxy=None, program="Crashvane.exe", **changes):
        """Starts the program in its folder and keeps it running. proxy: gets all requests, built-in addresses too."""
        return self.start_program(Path(folder) / program, args, folder, locale, proxy, **changes)

    def start_program(self, path, args=(), folder=None, locale="en_US", proxy=None, **changes):
        run = Run(self, Path(folder or path.parent), path, args, locale, self.environment(locale, proxy, **changes),
                  self._scratch / f"stderr-{len(self.running)}")
        self.running.append(run)
        return run

    def end_runs(self):
        """Ends what a test left running."""
        for run in self.running:
            run.end()
        self.running.clear()

    def tool(self, *command):
        """The output of a program of the X world (xdotool, import)."""
        done = subprocess.run(command, env={**os.environ, "DISPLAY": self.display}, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=LIMIT)
        return done.stdout

    def screenshot(self, path, rect=None):
        left, top, right, bottom = rect or (0, 0, *SCREEN)
        place = f"{right - left}x{bottom - top}+{left}+{top}"
        self.tool("import", "-window", "root", "-crop", place, "+repage", str(path))
        return path

    def end(self):
        self.end_runs()
        if self._driver is not None:
            self._driver.end()
        if self._own_server:
            for option in ("-k", "-w"):  # end it, and wait until it is gone: the next run may be close behind
                subprocess.run([wine.WINESERVER, option], env=self.environment(), check=False, timeout=LIMIT)
        for process in (self._manager, self._x):
            process.terminate()
            process.wait()
        shutil.rmtree(self._scratch, ignore_errors=True)

    def _prepare(self):
        self.prefix.mkdir(parents=True, exist_ok=True)
        environ = self.environment()
        # The server leaves with 2 when another one serves this prefix already; that one is somebody else's to end.
        self._own_server = subprocess.run([wine.WINESERVER, "-p"], env=environ, stdout=subprocess.DEVNULL,
                                          stderr=subprocess.DEVNULL).returncode == 0
        if not (self.prefix / "system.reg").exists():
            self._wine("wineboot", "-i")
        self._dots = None
        self.set_dots(96)

    def _wine(self, *command):
        subprocess.run([wine.WINE, *command], env=self.environment(), check=True, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=300)


def start_x_server():
    read, write = os.pipe()
    screen = f"{SCREEN[0]}x{SCREEN[1]}x24"
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", screen, "-nolisten", "tcp"],
                              pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(write)
    with os.fdopen(read) as pipe:
        number = pipe.readline().strip()
    assert number, "Xvfb did not start"
    return server, f":{number}"


class Run:
    """One started program."""

    def __init__(self, desktop, folder, path, args, locale, environ, stderr):
        self.desktop, self.folder, self.path, self.locale = desktop, folder, path, locale
        self._stderr = stderr
        with open(stderr, "wb") as file:
            # A file and not a pipe: what the program starts may keep it open for longer than the program lives.
            self.process = subprocess.Popen([wine.WINE, str(path), *map(str, args)], cwd=folder, env=environ,
                                            stdin=subprocess.DEVNULL, stdout=file, stderr=file)

    @property
    def output(self):
        return self._stderr.read_bytes()

    def windows(self):
        """Top-level windows of this program, the topmost first."""
        program = wine.windows_path(self.path).lower()
        return [one for one in self.desktop.driver.windows() if one.program.lower() == program]

    def dialog(self):
        """The error report dialog, up and with the keyboard."""
        return self._wait("the dialog", lambda dialog: dialog.has(FEEDBACK))

    def box(self):
        """A message box, up and with the keyboard."""
        return self._wait("the message box", lambda dialog: not dialog.has(FEEDBACK) and dialog.has(BOX_TEXT))

    def finish(self):
        """Waits for the program's end and gathers what it left."""
        self.process.wait(LIMIT)
        return crashvane.collect(self.folder, self.process.returncode, self.output, ENCODINGS.get(self.locale, 1252),
                                 self.folder)

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()

    def _wait(self, what, is_wanted):
        def probe():
            assert self.process.poll() is None, f"{what} did not come: exit code {self.process.returncode}"
            for window in self.windows():
                dialog = Dialog(self.desktop, window.handle)
                if window.class_name == "#32770" and window.enabled and is_wanted(dialog) and dialog.is_in_front():
                    return dialog
            return None
        return wait_for(what, probe)


class Dialog:
    """A dialog on the screen, the error report or a message box."""

    def __init__(self, desktop, handle):
        self.desktop, self.handle, self.driver = desktop, handle, desktop.driver

    @property
    def window(self):
        return next(one for one in self.driver.windows() if one.handle == self.handle)

    def children(self):
        return self.driver.children(self.handle)

    def has(self, control):
        return any(child.id == control for child in self.children())

    def child(self, control):
        return next(child for child in self.children() if child.id == control)

    def text(self, control):
        return self.child(control).text

    def set_text(self, control, text):
        assert self.driver.ask("settext", self.child(control).handle, text) == [["1"]]

    def is_checked(self, control):
        return self.driver.send(self.child(control).handle, BM_GETCHECK) == 1

    def press(self, control):
        """Presses a button by message, without the mouse."""
        self.driver.post(self.child(control).handle, BM_CLICK)

    def press_link(self, control):
        self.driver.post(self.child(control).handle, WM_LBUTTONDOWN, 1, 0)

    def close(self):
        self.driver.post(self.handle, WM_CLOSE)

    def is_in_front(self):
        """The program, the window manager and the X server agree on the window with the keyboard."""
        foreground, active, focus = self.driver.foreground(self.handle)
        if not (foreground == active == self.handle and focus != 0):
            return False
        managed = self.desktop.tool("xdotool", "getactivewindow").split()
        return (managed != [] and managed == self.desktop.tool("xdotool", "getwindowfocus", "-f").split()
                and self.desktop.tool("xdotool", "getwindowname", managed[0]).decode().strip() == self.window.text)

    def focus(self):
        """The control with the keyboard."""
        focus = self.driver.foreground(self.handle)[2]
        return next((child.id for child in self.children() if child.handle == focus), None)

    def click(self, control):
        """Clicks with the mouse."""
        x, y = self.child(control).center
        self.click_at(x, y)

    def click_at(self, x, y):
        self.desktop.tool("xdotool", "mousemove", str(x), str(y), "click", "1")

    def keys(self, *names):
        self.desktop.tool("xdotool", "key", "--clearmodifiers", "--delay", "20", *names)

    def type(self, text):
        self.desktop.tool("xdotool", "type", "--delay", "20", text)


def started(path):
    """Command lines with which a recorder (standin/recorder.c) at this path was started so far."""
    record = Path(f"{path}.started")
    return record.read_text("utf-8").splitlines() if record.exists() else []


def put_recorder(path, window=None):
    """Puts a stand-in program there; window: "o" or "f" makes it show one, see standin/recorder.c."""
    path.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(STAND_INS / "recorder.exe", path)
    if window:
        Path(f"{path}.window").write_text(window)
    return path
