"""Drives the built program as a crashing client does. A test reads like this:

    from crashvane import run, process_error
    from reports import write_report, write_settings

    def test_something(folder, receiver):
        write_report(folder)                          # CrashReport.xml and crash.dmp, see reports.py
        write_settings(folder, receiver.url)          # Crashvane.cfg, all addresses at the receiver
        result = run(folder, ["-f", "CrashReport.xml", "-d", "-b"])
        assert result.exit_code == 0
        assert process_error("nRetCode", "WinMain") not in result.log
        assert [one.endpoint for one in receiver.requests] == ["dumpinfo", "dumpfile"]

`folder` (an installation folder with Crashvane.exe), `receiver` and `raw_server` are fixtures of conftest.py.
The program is $CRASHVANE_BUILD/Crashvane.exe, by default build/release/Crashvane.exe.
"""
import os
import re
import shutil
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path

import wine

PROGRAM = Path(os.environ.get("CRASHVANE_BUILD") or wine.ROOT / "build/release") / "Crashvane.exe"
LIMIT = 60  # seconds that anything may take on a busy machine before a test gives up

LINE = re.compile(r"\d{8}-\d{6}<(RESR[0-3]|ERROR|WARN |INFO |DEBUG):[0-9A-F]{16}>: ", re.ASCII)
LINE_NUMBER = re.compile(r"(\)) at line \d+ in ")
PYTHON_NAMES = {1252: "cp1252", 936: "gb18030"}


@dataclass
class Result:
    """What a run left behind.

    log      messages of the log file in order, prefix and line end cut off, "at line 12 in" of a check line as "in"
    levels   the level word of each message ("DEBUG", "INFO ")
    raw_log  the log file's bytes
    stderr   standard error as text
    files    names of all files left in the folder, relative, but the program, the settings and the log
    """
    exit_code: int
    stderr: str
    log: list
    levels: list
    raw_log: bytes
    files: set

    @property
    def checks(self):
        """The log's check lines alone."""
        return [line for line in self.log if line.startswith("ZTLOG_")]


def install(folder):
    """Puts the built program into a folder; the fixture `folder` has it already."""
    shutil.copy(PROGRAM, Path(folder) / "Crashvane.exe")


def run(folder, args, timeout=LIMIT, **how):
    """Runs the program in its folder to its end and gathers what it left. how: as for start."""
    return start(folder, args, **how).finish(timeout)


def start(folder, args, code_page=1252, proxy=None, env=None, cwd=None, program="Crashvane.exe"):
    """Starts the program in its folder and hands back a Run.

    args: its arguments. proxy: a server (anything with .url) that gets all requests, whatever address they go to.
    env: further environment variables. cwd: the current folder when it is not the program's.
    """
    changes = dict(env or {})
    if proxy is not None:
        changes["http_proxy"] = proxy.url
    return Run(Path(folder), list(map(str, args)), code_page, changes, Path(cwd or folder), program)


class Run:
    """A program that was started; finish() waits for its end."""

    def __init__(self, folder, args, code_page, changes, cwd, program):
        self.folder, self.code_page, self.cwd = folder, code_page, cwd
        # A file and no pipe: background processes of Wine inherit it and would keep a pipe open.
        self._stderr = tempfile.TemporaryFile()
        self.process = subprocess.Popen(
            [wine.WINE, str(folder / program), *args], cwd=cwd, env=wine.environment(code_page, **changes),
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=self._stderr)

    def finish(self, timeout=LIMIT):
        """The Result; a program that does not end in time is killed and fails the test."""
        try:
            self.process.wait(timeout)
        finally:
            self.process.kill()
            self.process.wait()
        self._stderr.seek(0)
        with self._stderr:
            stderr = self._stderr.read()
        return collect(self.folder, self.process.returncode, stderr, self.code_page, self.cwd)


def collect(folder, exit_code, stderr, code_page, cwd):
    encoding = PYTHON_NAMES[code_page]
    raw_log = b"".join(path.read_bytes() for path in log_files(cwd))
    log, levels = [], []
    for line in raw_log.decode(encoding, "backslashreplace").split("\n")[:-1]:
        match = LINE.match(line)
        log.append(LINE_NUMBER.sub(r"\1 in ", line[match.end():]) if match else line)
        levels.append(match.group(1) if match else None)
    return Result(exit_code, stderr.decode(encoding, "backslashreplace"), log, levels, raw_log, files_of(folder))


def log_files(folder):
    """The program's own log files under a current folder, oldest first."""
    return sorted(Path(folder).glob("logs/Crashvane/*/Crashvane_*.log"))


def files_of(folder):
    own = {Path("Crashvane.exe"), Path("Crashvane.cfg")} | {path.relative_to(folder) for path in log_files(folder)}
    found = {path.relative_to(folder) for path in Path(folder).rglob("*") if path.is_file()}
    return {str(path) for path in found - own}


def process_error(condition, function):
    """A failed check that ended its function, as Result.log shows it."""
    return f"ZTLOG_PROCESS_ERROR({condition}) in {function}"


def check_error(condition, function):
    """A failed check after which its function went on, as Result.log shows it."""
    return f"ZTLOG_CHECK_ERROR({condition}) in {function}"


def process_success(condition, function):
    """A check that ended its function early and well, as Result.log shows it."""
    return f"ZTLOG_PROCESS_SUCCESS({condition}) in {function}"
