"""The sample game client: it crashes for real, and what the server receives about it is true."""
import re
import shutil
import time
import xml.etree.ElementTree as ElementTree
import zipfile

import pytest

from crashvane import PROGRAM, run
from minidump import Minidump
from reports import write_settings

CLIENT = PROGRAM.parent / "samples" / "crash_client.exe"
SLOW = 240  # Wine's dump writer reads the symbols of every module

# how -> exception code, what the description says
CRASHES = {
    "access": (0xC0000005, "Access violation writing 0x0000000000000010"),
    "stack": (0xC00000FD, "Stack overflow"),
    "abort": (0x40000015, "The program aborted itself"),
    "memory": (0xC0000017, "Out of memory"),
    "exception": (0x40000015, "The program aborted itself"),
}


@pytest.fixture
def game(folder, receiver):
    shutil.copy(CLIENT, folder / "crash_client.exe")
    write_settings(folder, receiver.url)
    return folder


def crash(game, how, *more, options="-d -b"):
    return run(game, ["-how", how, "-options", options, "-wait", *more], timeout=SLOW, program="crash_client.exe")


def package(receiver):
    """Names in the uploaded archive, its dump and its report."""
    archive = receiver.requests[-1].archive
    with zipfile.ZipFile(archive) as opened:
        names = opened.namelist()
        text = opened.read("CrashReport.xml").split(b"?>", 1)[1].decode("cp1252")
        dump = next(name for name in names if name.endswith(".dmp"))
        return names, Minidump(opened.read(dump)), ElementTree.fromstring(text)


def fields(receiver, endpoint):
    return next(one.fields for one in receiver.requests if one.endpoint == endpoint)


@pytest.mark.parametrize("how", CRASHES)
def test_a_real_crash_arrives_with_dump_and_report(game, receiver, how):
    code, description = CRASHES[how]
    result = crash(game, how)
    assert result.exit_code == code & 0xFF  # all that Unix keeps of it
    assert [one.endpoint for one in receiver.requests] == ["dumpinfo", "dumpfile"]
    assert result.files == {"crash_client.exe", "client.log"}
    names, dump, report = package(receiver)
    guid = fields(receiver, "dumpinfo")["guid"]
    assert re.fullmatch(r"\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}", guid)
    # The sender's own log lies among the product's logs and goes along.
    assert names[:3] == ["CrashReport.xml", f"{guid}.dmp", "client.log"]
    assert [name[:10] for name in names[3:]] == ["Crashvane_"]
    assert dump.code == code
    assert dump.thread_id in dump.threads
    assert report.findtext("Exception/ExceptionCode") == f"{code:#x}"
    assert report.findtext("Exception/ExceptionDescription") == description
    assert report.findtext("Exception/ExceptionAddress") == f"0X{dump.address:016X}"


def test_the_report_tells_the_truth_about_process_and_machine(game, receiver):
    begin = int(time.time())
    crash(game, "access", "-info", "scene=harbour", "-info", 'say "<hello>" & go')
    end = int(time.time())
    _, dump, report = package(receiver)
    text = report.findtext
    assert begin <= int(text("Exception/ExceptionTime")) <= end
    assert 0 <= int(text("Exception/TimeToFailure")) <= end - begin
    assert text("Exception/ExceptionModuleName") == "crash_client.exe"
    assert text("Exception/ProcessName") == text("Product/ProductName") == "crash_client.exe"
    assert text("Exception/ProcessInstance") == "1"
    used, peak = report.find("Exception/ProcessMemUsed").attrib, report.find("Exception/ProcessMemPeak").attrib
    assert 0 < int(used["WorkingSetSize"]) <= int(peak["WorkingSetSize"])
    assert text("Product/ProductVersion") == "3.1.0.0"
    with open("/proc/meminfo", encoding="ascii") as meminfo:
        kibibytes = int(re.search(r"MemTotal: +(\d+) kB", meminfo.read()).group(1))
    assert abs(int(report.find("Machine/PhysMemory").get("TotalMemory")) - kibibytes * 1024) < 1 << 20
    assert text("Machine/OS").startswith("Windows ")
    assert re.fullmatch(r"[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}", text("Machine/NewUUID"))
    infos = [one.text for one in report.findall("Custom/CustomInfo")]
    assert infos == ["scene=harbour", 'say "<hello>" & go', "how=access"]
    modules = {one.get("FullPath"): one.attrib for one in report.findall("Modules/Module")}
    own = next(one for path, one in modules.items() if path.endswith("\\crash_client.exe"))
    assert (own["FileVersion"], own["ProductVersion"]) == ("3.1.4.15", "3.1.0.0")
    address = int(text("Exception/ExceptionAddress"), 16)
    base = int(own["BaseOfImage"], 16)
    assert base <= address < base + int(own["SizeOfImage"], 16)
    # The dump lists the modules by itself: both agree.
    bases = {path.rpartition("\\")[2].lower(): base for path, base in dump.modules.items()}
    assert bases["crash_client.exe"] == base
    assert {path.rpartition("\\")[2].lower() for path in modules} >= {"ntdll.dll", "kernel32.dll", "msvcrt.dll"}


def test_crashes_of_one_kind_share_a_key_and_no_others(game, receiver):
    keys, guids = {}, set()
    for how in ("access", "access", "memory"):
        receiver.reset()
        crash(game, how)
        keys.setdefault(how, set()).add(fields(receiver, "dumpinfo")["key"])
        guids.add(fields(receiver, "dumpinfo")["guid"])
    assert len(keys["access"]) == 1
    assert keys["access"].isdisjoint(keys["memory"])
    assert len(guids) == 3


def test_the_files_that_the_game_names_go_along(game, receiver):
    (game / "settings.ini").write_bytes(b"[Video]\r\nfullscreen=1\r\n")
    crash(game, "access", "-file", "settings.ini")
    with zipfile.ZipFile(receiver.requests[-1].archive) as opened:
        assert opened.read("settings.ini") == b"[Video]\r\nfullscreen=1\r\n"
        assert opened.read("client.log") == b"the game runs, how=access\r\n"


def test_dump_and_report_stay_when_there_is_no_sender(game, receiver):
    (game / "Crashvane.exe").unlink()
    result = crash(game, "access")
    assert result.exit_code == 5
    assert sorted(name.rpartition(".")[2] for name in result.files) == ["dmp", "exe", "log", "xml"]
    assert receiver.requests == []


def test_no_crash_sends_nothing(game, receiver):
    result = crash(game, "none")
    assert result.exit_code == 0
    assert result.files == {"crash_client.exe", "client.log"}
    assert receiver.requests == []


@pytest.mark.parametrize("args", [["-how"], ["-nonsense", "x"], ["-how", "nonsense"]])
def test_wrong_arguments_are_refused_with_the_usage(game, receiver, args):
    result = run(game, args, program="crash_client.exe")
    assert result.exit_code == 2
    assert result.stderr.startswith("crash_client [-how access|stack|abort|memory|exception|none]")
    assert receiver.requests == []
