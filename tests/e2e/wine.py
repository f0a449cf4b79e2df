"""Wine prefixes for the end-to-end tests: one a code page, each with a wineserver that stays for the whole test run."""
import os
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
WINE = "/usr/lib/wine/wine64" if os.path.exists("/usr/lib/wine/wine64") else "wine"
WINESERVER = "/usr/lib/wine/wineserver" if os.path.exists("/usr/lib/wine/wineserver") else "wineserver"

# code page: (variable that names a prepared prefix, the prefix made without it, locale)
PREFIXES = {
    1252: ("WINEPREFIX", "build/wine-e2e", "en_US.UTF-8"),
    936: ("CRASHVANE_WINEPREFIX_ZH", "build/wine-e2e-zh", "zh_CN.UTF-8"),
}
LEFT_OUT = ("LANG", "LANGUAGE", "http_proxy", "https_proxy", "no_proxy", "all_proxy")

_ready = {}
_started = []


def environment(code_page, **changes):
    """The environment of a program in this code page's prefix; the prefix is made and kept warm on the first call."""
    if code_page not in _ready:
        _ready[code_page] = _prepare(code_page)
    environ = {name: value for name, value in _ready[code_page].items()}
    environ.update(changes)
    return environ


def windows_path(path):
    """A Unix path as programs under Wine see it."""
    return "Z:" + str(path).replace("/", "\\")


def end():
    """Ends the wineservers that this test run started, and no others."""
    while _started:
        subprocess.run([WINESERVER, "-k"], env=_started.pop(), check=False)


def _prepare(code_page):
    variable, folder, locale = PREFIXES[code_page]
    prefix = Path(os.environ.get(variable) or ROOT / folder)
    environ = {name: value for name, value in os.environ.items()
               if not name.startswith(("LC_", "WINE")) and name.lower() not in LEFT_OUT and name not in LEFT_OUT}
    environ.update(WINEPREFIX=str(prefix), WINEDEBUG="-all", LC_ALL=locale,
                   WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=")
    prefix.parent.mkdir(parents=True, exist_ok=True)
    prefix.mkdir(exist_ok=True)
    # The server leaves with 2 when another one serves this prefix already; that one is somebody else's to end.
    if subprocess.run([WINESERVER, "-p"], env=environ, stderr=subprocess.DEVNULL).returncode == 0:
        _started.append(environ)
    if not (prefix / "system.reg").exists():
        subprocess.run([WINE, "wineboot", "-i"], env=environ, check=True, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=300)
    return environ
