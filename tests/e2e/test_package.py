"""The uploaded archive, as four other programs and a reader of our own see it."""
import os
import re
import subprocess
import zipfile

import pytest

from crashvane import check_error, run
from expected import NO_LOGIN_NO_THREADS, PACKAGE, VERSION_FILE
from reports import random_bytes, report, write_report, write_settings
from wine import windows_path

ARGS = ["-f", "CrashReport.xml", "-d", "-b"]
NOT_ADDED = check_error("nRetCode", "CreateZipFile")
SAVED = {"Product.ProductVersion": "2.4.6_SVN", "Product.ProductVersionEx": "hdzhcn"}
# 2019-08-30 12:34:56 UTC; its seconds, doubled and cut to five bits, are 16, which readers show as 32.
WRITTEN, SHOWN = 1567168496, (2019, 8, 30, 12, 34, 32)


@pytest.fixture
def complete(folder, receiver):
    write_settings(folder, receiver.url)
    (folder / "version.cfg").write_bytes(VERSION_FILE)
    return folder


def send(folder, receiver, args=ARGS, **options):
    """Runs an unattended send and hands back the result and the package as it arrived."""
    result = run(folder, args, **options)
    assert result.exit_code == 0
    assert not list(folder.rglob("Crash_*.zip"))
    (package,) = [one for one in receiver.requests if one.endpoint == "dumpfile"]
    assert package.status == 200, package.refused
    return result, package


def contents(package):
    with zipfile.ZipFile(package.archive) as archive:
        return {name: archive.read(name) for name in archive.namelist()}


def write_files(folder, **files):
    for name, content in files.items():
        (folder / name).write_bytes(content)
        os.utime(folder / name, (WRITTEN, WRITTEN))


def test_holds_the_completed_report_the_dump_and_the_custom_files_in_order(complete, receiver):
    write_files(complete, **{"b.log": b"b" * 100000, "a.zip": random_bytes(20000), "empty": b""})
    (complete / "sub").mkdir()
    write_files(complete / "sub", **{"c.txt": b"text"})
    named = ["b.log", "a.zip", "empty", "sub\\c.txt"]
    dump = random_bytes(70000) + bytes(70000)
    write_report(complete, dump=dump, custom_files=named, custom_infos=["x=1"])
    result, package = send(complete, receiver)
    assert list(contents(package).items()) == [
        ("CrashReport.xml", report(SAVED, custom_files=named, custom_infos=["x=1"])), ("crash.dmp", dump),
        ("b.log", b"b" * 100000), ("a.zip", random_bytes(20000)), ("empty", b""), ("c.txt", b"text")]
    assert result.checks == NO_LOGIN_NO_THREADS
    with zipfile.ZipFile(package.archive) as archive:
        assert [info.compress_type for info in archive.infolist()] == [8, 8, 8, 0, 8, 8]


@pytest.mark.parametrize("program", [
    ["unzip", "-t"], ["zipinfo", "-v"], ["7z", "t"], ["bsdtar", "-xOf"], ["zip", "-T"]])
def test_other_programs_read_it_without_a_warning(complete, receiver, program):
    write_files(complete, **{"a.log": b"line\r\n" * 5000, "b.gz": random_bytes(3000), "empty": b""})
    write_report(complete, dump=bytes(1 << 20) + random_bytes(1 << 16), custom_files=["a.log", "b.gz", "empty"])
    _, package = send(complete, receiver)
    read = subprocess.run([*program, str(package.archive)], capture_output=True, timeout=60)
    said = (read.stdout + read.stderr).decode("latin-1")
    if program[0] == "7z" and "Headers Error" in said:
        # The required time stamp of a file written in second 15, 31 or 47 names second 60, which 7z alone minds.
        with zipfile.ZipFile(package.archive) as archive:
            assert 60 in {info.date_time[5] for info in archive.infolist()}
        said = said.replace("Headers Error", "").replace("ERRORS:", "").replace("Errors: ", "")
    assert read.returncode == 0, said
    if program[0] == "bsdtar":
        assert read.stderr == b""
    else:
        said = said.replace("No errors detected", "")
        assert not re.search("(?i)warning|error|mismatch|bad ", said), said


def test_python_finds_every_checksum_right(complete, receiver):
    write_report(complete, dump=random_bytes(200000))
    _, package = send(complete, receiver)
    with zipfile.ZipFile(package.archive) as archive:
        assert archive.testzip() is None
        assert archive.comment == b""
        assert all(info.flag_bits == 0 and info.create_version == 0x17 and info.extract_version == 20
                   for info in archive.infolist())


@pytest.mark.parametrize("zone", ["UTC", "Asia/Shanghai", "America/New_York"])
def test_times_are_those_of_the_files_in_utc_with_doubled_seconds(complete, receiver, zone):
    write_report(complete)
    os.utime(complete / "crash.dmp", (WRITTEN, WRITTEN))
    _, package = send(complete, receiver, env={"TZ": zone})
    with zipfile.ZipFile(package.archive) as archive:
        info = archive.getinfo("crash.dmp")
    assert info.date_time == SHOWN
    assert info.extra == b"UT\5\0\7" + WRITTEN.to_bytes(4, "little")


def test_a_missing_dump_is_logged_and_the_rest_is_sent(complete, receiver):
    write_files(complete, **{"a.log": b"a"})
    write_report(complete, dump=None, custom_files=["a.log"])
    result, package = send(complete, receiver)
    assert list(contents(package)) == ["CrashReport.xml", "a.log"]
    assert result.checks == [*NO_LOGIN_NO_THREADS, NOT_ADDED]


def test_a_dump_that_is_a_folder_is_logged_and_the_rest_is_sent(complete, receiver):
    write_report(complete, dump=None)
    (complete / "crash.dmp").mkdir()
    result, package = send(complete, receiver)
    assert list(contents(package)) == ["CrashReport.xml"]
    assert result.checks == [*NO_LOGIN_NO_THREADS, NOT_ADDED]


def test_each_custom_file_that_cannot_be_added_is_logged_and_skipped(complete, receiver):
    write_files(complete, **{"a.log": b"a"})
    (complete / "sub").mkdir()
    write_report(complete, custom_files=["nowhere.log", "", "sub", "a.log", "NUL"])
    result, package = send(complete, receiver)
    assert list(contents(package)) == ["CrashReport.xml", "crash.dmp", "a.log"]
    assert result.checks == [*NO_LOGIN_NO_THREADS, *[NOT_ADDED] * 4]


def test_two_files_of_one_name_are_both_kept(complete, receiver):
    for name, content in (("one", b"first"), ("two", b"second")):
        (complete / name).mkdir()
        write_files(complete / name, **{"game.log": content})
    write_report(complete, custom_files=["one\\game.log", "two\\game.log"])
    _, package = send(complete, receiver)
    with zipfile.ZipFile(package.archive) as archive:
        assert archive.namelist() == ["CrashReport.xml", "crash.dmp", "game.log", "game.log"]
        assert [archive.read(info) for info in archive.infolist()[2:]] == [b"first", b"second"]


def test_a_report_of_another_name_is_packed_under_the_fixed_one(complete, receiver):
    write_report(complete, name="BRENN_20190830.xml")
    result, package = send(complete, receiver, args=["-f", "BRENN_20190830.xml", "-d", "-b"])
    assert contents(package)["CrashReport.xml"] == report(SAVED)
    assert result.files == {"version.cfg"}


def test_the_fields_name_the_archive_barely_and_the_file_part_names_its_whole_path(complete, receiver):
    write_report(complete)
    _, package = send(complete, receiver)
    name = package.fields.pop("filename")
    assert re.fullmatch(r"Crash_\d+\.zip", name)
    assert package.fields == PACKAGE
    assert package.file_name == f"{windows_path(complete)}\\{name}"


def test_a_dump_elsewhere_is_packed_by_its_last_name_and_deleted(complete, receiver, tmp_path):
    write_files(tmp_path, **{"far.dmp": b"MDMP far"})
    write_report(complete, dump=None, changes={"Exception.DumpFileName": windows_path(tmp_path / "far.dmp")})
    _, package = send(complete, receiver)
    assert contents(package)["far.dmp"] == b"MDMP far"
    assert not (tmp_path / "far.dmp").exists()


def test_custom_files_stay_on_disk(complete, receiver):
    write_files(complete, **{"a.log": b"a"})
    write_report(complete, custom_files=["a.log"])
    result, _ = send(complete, receiver)
    assert result.files == {"version.cfg", "a.log"}


@pytest.mark.parametrize("distance, taken", [(0, True), (3600, True), (-3600, True), (3601, False), (-3601, False)])
def test_a_log_within_an_hour_of_the_crash_goes_along(complete, receiver, distance, taken):
    folder = complete / "logs/game"
    folder.mkdir(parents=True)
    (folder / "game.log").write_bytes(b"what happened")
    os.utime(folder / "game.log", (1567130000 + distance,) * 2)
    write_report(complete)
    _, package = send(complete, receiver)
    assert contents(package).get("game.log") == (b"what happened" if taken else None)


def test_of_each_log_folder_the_log_nearest_to_the_crash_goes_along(complete, receiver):
    for folder, name, distance in (("one", "early.log", -10), ("one", "late.log", 5), ("two", "far.log", 4000),
                                   ("three/day", "below.log", 60), ("three/day/deep", "deeper.log", 1)):
        place = complete / "logs" / folder
        place.mkdir(parents=True, exist_ok=True)
        (place / name).write_bytes(name.encode())
        os.utime(place / name, (1567130000 + distance,) * 2)
    write_report(complete)
    _, package = send(complete, receiver)
    assert sorted(contents(package)) == ["CrashReport.xml", "below.log", "crash.dmp", "late.log"]
