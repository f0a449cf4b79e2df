"""Reports that are missing, locked, malformed, strange or stuck: refused or sent, never a crash or a hang."""
import os

import pytest

import holding
from crashvane import process_error, run
from expected import NO_LOGIN_NO_THREADS, VERSION_FILE
from reports import FACTS, report, write_report, write_settings
from test_package import SAVED, contents

ARGS = ["-f", "CrashReport.xml", "-a", "-d", "-b"]
NOT_LOADED = [process_error("nRetCode", "Collection::Init"), process_error("nRetCode", "WinMain")]
LOAD_FAILED = process_error("nRetCode", "CrashReporter::Load")


@pytest.fixture(scope="module")
def holder(tmp_path_factory):
    return holding.build(tmp_path_factory.mktemp("hold"))


@pytest.fixture
def ready(folder, receiver):
    write_report(folder)
    write_settings(folder, receiver.url)
    (folder / "version.cfg").write_bytes(VERSION_FILE)
    return folder


def assert_refused(result, receiver, *first):
    assert result.exit_code == 1
    assert result.log[1:] == [*first, *NOT_LOADED]
    assert receiver.requests == []


def assert_sent(result, receiver):
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["playerlogin", "dumpinfo", "dumpfile"]
    assert not {"CrashReport.xml", "crash.dmp"} & result.files
    return receiver.requests[1].fields


# Missing, empty, a folder, locked

def test_a_missing_report_is_refused(ready, receiver):
    (ready / "CrashReport.xml").unlink()
    assert_refused(run(ready, ARGS), receiver, LOAD_FAILED)


def test_a_folder_is_refused(ready, receiver):
    (ready / "CrashReport.xml").unlink()
    (ready / "CrashReport.xml").mkdir()
    assert_refused(run(ready, ARGS), receiver, LOAD_FAILED)
    assert (ready / "CrashReport.xml").is_dir()


def test_a_report_that_another_program_shares_with_nobody_is_refused_and_stays(ready, receiver, holder):
    with holding.held(holder, ready / "CrashReport.xml", "none"):
        result = run(ready, ARGS)
    assert_refused(result, receiver, LOAD_FAILED)
    assert "CrashReport.xml" in result.files


# Malformed

WHOLE = report()


@pytest.mark.parametrize("content", [
    b"", b"\0", b"\0" * 5000, b"<", b"plain text", WHOLE[:40], WHOLE[:len(WHOLE) // 2], WHOLE[:-20],
    WHOLE.replace(b"</Exception>", b"</Exceptional>"), WHOLE.replace(b"<Product>", b"<Product"),
    WHOLE.replace(b'Project="', b"Project="), b"<!-- never closed", b"<!DOCTYPE x [",
], ids=["empty", "NUL", "NULs", "less-than", "text", "cut at 40", "cut in the middle", "cut at the end",
        "foreign end tag", "open tag", "open quote", "open comment", "open DOCTYPE"])
def test_a_malformed_report_is_refused_and_deleted(ready, receiver, content):
    (ready / "CrashReport.xml").write_bytes(content)
    result = run(ready, ARGS)
    assert result.exit_code == 1
    assert result.log[-2:] == NOT_LOADED
    assert result.log[-3] in (LOAD_FAILED, process_error("pElement", "CrashReporter::Load"))
    assert receiver.requests == []
    assert "CrashReport.xml" not in result.files


@pytest.mark.parametrize("content", [
    WHOLE.replace(b"CrashReporter", b"CrashReport"), b"<html><body/></html>", b'<?xml version="1.0"?>\n<x/>'])
def test_a_foreign_document_is_refused(ready, receiver, content):
    (ready / "CrashReport.xml").write_bytes(content)
    assert_refused(run(ready, ARGS), receiver, process_error("pElement", "CrashReporter::Load"))


@pytest.mark.parametrize("content", [
    b"\xef\xbb\xbf" + WHOLE, "\ufeff".encode("utf-16-le") + WHOLE.decode("cp936").encode("utf-16-le"),
    WHOLE.decode("cp936").encode("utf-16-be"), WHOLE[:100] + b"\0" + WHOLE[100:], WHOLE + WHOLE, WHOLE + b"\0trailing",
    b"<!-- " + b"x" * 100000 + b" -->" + WHOLE, WHOLE.replace(b"gb2312", b"utf-8")],
    ids=["UTF-8 mark", "UTF-16", "UTF-16 without mark", "NUL inside", "twice", "trailing bytes", "comment", "utf-8"])
def test_a_report_in_another_dress_is_refused_or_sent(ready, receiver, content):
    (ready / "CrashReport.xml").write_bytes(content)
    result = run(ready, ARGS)
    if result.exit_code == 1:
        assert result.log[-2:] == NOT_LOADED
        assert receiver.requests == []
    else:
        assert assert_sent(result, receiver)["guid"] == FACTS["Exception.DumpGuid"]
    assert "CrashReport.xml" not in result.files


@pytest.mark.parametrize("seed", range(12))
def test_a_report_with_flipped_bytes_is_refused_or_sent(ready, receiver, seed):
    broken = bytearray(WHOLE)
    for step in range(8):
        broken[(seed * 7919 + step * 104729) % len(broken)] ^= 1 << (seed + step) % 8
    (ready / "CrashReport.xml").write_bytes(bytes(broken))
    result = run(ready, ARGS)
    if result.exit_code == 1:
        assert result.log[-2:] == NOT_LOADED
        assert receiver.requests == []
    else:
        assert result.exit_code == 0
        assert len(receiver.requests) == 3
    assert "CrashReport.xml" not in result.files


# Parts that are missing

@pytest.mark.parametrize("cut, first", [
    ({"Exception.DumpKey": None}, [process_error("nRetCode", "Exception::LoadException")]),
    ({"Product.ProductName": None}, [process_error("nRetCode", "Product::LoadProduct")]),
    ({"Machine.OS": None}, [process_error("nRetCode", "Machine::LoadMachine")]),
    ({"Machine.PhysMemory@TotalMemory": None},
     [process_error("nRetCode", "Memory::LoadMemory"), process_error("nRetCode", "Machine::LoadMachine")]),
    ({"Machine.PhysMemory@TotalMemory": None, "Machine.PhysMemory@AvailMemory": None},
     [process_error("pElement", "Memory::LoadMemory"), process_error("nRetCode", "Machine::LoadMachine")]),
    ({"Exception.ExceptionCode": ""}, [process_error("nRetCode", "Exception::LoadException")]),
    ({"Exception.ExceptionTime": ""}, [process_error("nRetCode", "Exception::LoadException")]),
    ({"Exception.ProcessInstance": ""}, [process_error("nRetCode", "Exception::LoadException")]),
])
def test_a_report_without_a_required_fact_is_refused_innermost_line_first(ready, receiver, cut, first):
    write_report(ready, changes=cut)
    assert_refused(run(ready, ARGS), receiver, *first, LOAD_FAILED)


@pytest.mark.parametrize("fact", ["ProductThreadType", "ProductBitType"])
def test_two_facts_of_the_product_may_be_missing(ready, receiver, fact):
    write_report(ready, changes={f"Product.{fact}": None})
    result = run(ready, ARGS)
    fields = assert_sent(result, receiver)
    assert result.log[1] == "ZTLOG_CHECK_ERROR(nRetCode) in Product::LoadProduct"
    assert (fields["threadtype"], fields["bittype"]) == ("" if fact == "ProductThreadType" else "MT", "x64")


def test_a_module_without_a_version_refuses_the_report(ready, receiver):
    write_report(ready, modules=[{"FullPath": "C:\\a.dll", "BaseOfImage": "0x1", "SizeOfImage": "0x1",
                                  "TimeDateStamp": "1", "FileVersion": "1"}])
    assert_refused(run(ready, ARGS), receiver, process_error("nRetCode", "Module::LoadMachine"),
                   process_error("nRetCode", "CrashReporter::LoadModule"),
                   process_error("nRetCode", "CrashReporter::LoadVectorData"), LOAD_FAILED)


# Strange texts and numbers

TEXTS = [name for name, value in FACTS.items() if "@" not in name and name.rpartition(".")[2] not in (
    "ExceptionCode", "ExceptionAddress", "ExceptionTime", "TimeToFailure", "ProcessInstance")]


def test_format_directives_pass_through_every_text(ready, receiver):
    texts = {name: f"%s%n%x%d{number}" for number, name in enumerate(TEXTS)}
    write_report(ready, changes=texts, custom_infos=["%n%n%n%s"], custom_files=["%s%n"])
    result = run(ready, ARGS)
    fields = assert_sent_without_dump(result, receiver)
    assert fields["guid"] == texts["Exception.DumpGuid"]
    assert fields["os"] == texts["Machine.OS"]
    assert fields["custominfo"] == "%n%n%n%s;"
    saved = {**texts, **SAVED, "Product.ProductBitType": "x64"}
    whole = report(saved, custom_infos=["%n%n%n%s"], custom_files=["%s%n"])
    assert contents(receiver.requests[2])["CrashReport.xml"] == whole


def assert_sent_without_dump(result, receiver):
    assert result.exit_code == 0
    assert len(receiver.requests) == 3
    return receiver.requests[1].fields


def test_very_long_texts_arrive_whole(ready, receiver):
    lines = [f"line {number}" for number in range(3000)]
    write_report(ready, changes={"Machine.OS": "o" * 100000}, custom_infos=lines)
    fields = assert_sent(run(ready, ARGS), receiver)
    assert fields["os"] == "o" * 100000
    assert fields["custominfo"] == "".join(line + ";" for line in lines)


def test_twenty_thousand_modules_arrive_in_order(ready, receiver):
    modules = [{"FullPath": f"C:\\Game\\{number}.dll", "BaseOfImage": f"0x{number:x}", "SizeOfImage": "0x1000",
                "TimeDateStamp": str(number), "FileVersion": "1", "ProductVersion": ""} for number in range(20000)]
    write_report(ready, modules=modules)
    assert_sent(run(ready, ARGS), receiver)
    assert contents(receiver.requests[2])["CrashReport.xml"] == report(SAVED, modules=modules)


def test_markup_in_texts_arrives_as_it_was_meant(ready, receiver):
    text = "a < b & \"c\" > 'd'"
    write_report(ready, changes={"Machine.OS": text}, custom_infos=[text])
    fields = assert_sent(run(ready, ARGS), receiver)
    assert (fields["os"], fields["custominfo"]) == (text, text + ";")
    whole = report({"Machine.OS": text, **SAVED}, custom_infos=[text])
    assert contents(receiver.requests[2])["CrashReport.xml"] == whole


def test_white_space_around_and_inside_texts_is_condensed_when_loaded(ready, receiver):
    write_report(ready, changes={"Machine.OS": "  two \t words  "})
    assert assert_sent(run(ready, ARGS), receiver)["os"] == "two words"


@pytest.mark.parametrize("text, minutes", [("59", "0"), ("60", "1"), ("125", "2"), ("-61", "-1"), ("-59", "0"),
                                           ("letters", "0"), ("12letters", "0"), ("  120", "2")])
def test_the_time_to_failure_is_sent_in_whole_minutes(ready, receiver, text, minutes):
    write_report(ready, changes={"Exception.TimeToFailure": text})
    assert assert_sent(run(ready, ARGS), receiver)["timetofailure"] == minutes


@pytest.mark.parametrize("text, saved", [
    ("0xc0000005", "0xc0000005"), ("0xC0000005", "0xc0000005"), ("c0000005", "0x0"), ("letters", "0x0"), ("-1", "0x0")])
def test_an_exception_code_is_read_with_its_prefix_or_not_at_all(ready, receiver, text, saved):
    write_report(ready, changes={"Exception.ExceptionCode": text})
    assert_sent(run(ready, ARGS), receiver)
    assert f"<ExceptionCode>{saved}</ExceptionCode>".encode() in contents(receiver.requests[2])["CrashReport.xml"]


@pytest.mark.parametrize("text, megabytes", [("3221225472", "3072"), ("1048575", "0"), ("letters", "0"), ("0", "0")])
def test_memory_is_sent_in_whole_megabytes(ready, receiver, text, megabytes):
    write_report(ready, changes={"Machine.PhysMemory@TotalMemory": text})
    assert assert_sent(run(ready, ARGS), receiver)["totalphysmem"] == megabytes


@pytest.mark.parametrize("text", ["18446744073709551616", "-1", "9" * 10000, "0x10", "1e9", "１２"])
def test_numbers_beyond_their_range_are_sent_as_some_number(ready, receiver, text):
    write_report(ready, changes={"Machine.PhysMemory@TotalMemory": text, "Exception.ProcessInstance": text,
                                 "Exception.TimeToFailure": text, "Exception.ExceptionTime": text})
    fields = assert_sent(run(ready, ARGS), receiver)
    for name in ("totalphysmem", "ProcessInstance", "timetofailure"):
        assert int(fields[name]) < 1 << 44


def test_a_process_instance_over_31_bits_is_sent_as_a_negative_number(ready, receiver):
    write_report(ready, changes={"Exception.ProcessInstance": "4294967295"})
    assert assert_sent(run(ready, ARGS), receiver)["ProcessInstance"] == "-1"


# Reports that cannot be written back or deleted

def test_a_report_that_cannot_be_written_back_is_sent_as_it_was_and_stays(ready, receiver, holder):
    with holding.held(holder, ready / "CrashReport.xml", "read"):
        result = run(ready, ARGS)
    assert result.exit_code == 0
    assert result.checks == [*NO_LOGIN_NO_THREADS, process_error("nRetCode", "CrashReporter::Save")]
    info, package = receiver.requests[1:]
    assert info.fields["ver"] == "2.4.6_SVN"
    assert contents(package)["CrashReport.xml"] == WHOLE
    assert result.files == {"CrashReport.xml", "version.cfg"}


def test_a_dump_that_is_held_open_is_sent_and_stays(ready, receiver, holder):
    with holding.held(holder, ready / "crash.dmp", "read"):
        result = run(ready, ARGS)
    assert result.exit_code == 0
    assert contents(receiver.requests[2])["crash.dmp"] == b"MDMP not a real one"
    assert result.files == {"crash.dmp", "version.cfg"}


def test_a_dump_shared_with_nobody_is_left_out(ready, receiver, holder):
    with holding.held(holder, ready / "crash.dmp", "none"):
        result = run(ready, ARGS)
    assert result.exit_code == 0
    assert list(contents(receiver.requests[2])) == ["CrashReport.xml"]
    assert result.files == {"crash.dmp", "version.cfg"}


def test_a_read_only_report_is_sent(ready, receiver):
    os.chmod(ready / "CrashReport.xml", 0o444)
    result = run(ready, ARGS)
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["playerlogin", "dumpinfo", "dumpfile"]
