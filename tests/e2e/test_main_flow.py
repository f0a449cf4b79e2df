"""Whole runs without a window: what is sent in which order, what is logged, what is left, how it ends."""
import re
import zipfile

import pytest

from crashvane import check_error, process_error, process_success, run, start
from expected import DUMP_INFO, NO_LOGIN_NO_THREADS, PACKAGE, PLAYER_LOGIN, SESSION, VERSION_FILE
from reports import report, write_report, write_settings
from wine import windows_path
from wire import FIRST_BOUNDARIES, body_of, boundary_of

NOT_SENT = process_success("!CrashvaneConfig.IsSendDump()", "WinMain")
CONFIG_FAILED = [process_error("nRetCode", "Config::Init"), process_error("nRetCode", "WinMain")]
NO_VERSION_FILE = [process_error("nRetCode", "Collection::CollectVersion"), check_error("nRetCode", "Collection::Init")]


def complete(folder, server, **options):
    """A folder in which nothing is missing."""
    write_report(folder, **options)
    write_settings(folder, server.url)
    (folder / "version.cfg").write_bytes(VERSION_FILE)


def endpoints(receiver):
    return [one.endpoint for one in receiver.requests]


def test_no_arguments_end_at_once_with_one_and_touch_nothing(folder, receiver):
    complete(folder, receiver)
    result = run(folder, [])
    assert result.exit_code == 1
    assert result.log == ["cmd\t", process_error("argc > 1", "Config::LoadCmd"), *CONFIG_FAILED]
    assert result.files == {"CrashReport.xml", "crash.dmp", "version.cfg"}
    assert receiver.requests == []


def test_sends_everything_and_leaves_nothing(folder, receiver):
    complete(folder, receiver)
    result = run(folder, ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"])
    assert result.exit_code == 0
    assert result.files == {"version.cfg"}
    assert endpoints(receiver) == ["playerlogin", "session", "dumpinfo", "dumpfile"]
    login, session, info, package = [one.fields for one in receiver.requests]
    assert login == PLAYER_LOGIN
    assert session == SESSION
    assert info == DUMP_INFO
    assert re.fullmatch(r"Crash_\d+\.zip", package.pop("filename"))
    assert package == PACKAGE


def test_logs_the_run_line_by_line(folder, receiver):
    complete(folder, receiver)
    result = run(folder, ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"])
    log, levels = result.log, result.levels
    program = windows_path(folder / "Crashvane.exe")
    assert log[0] == "cmd\t-f CrashReport.xml -a -m -d -b"
    assert log[1:3] == NO_LOGIN_NO_THREADS
    assert re.fullmatch(re.escape(f"[WinMain] {program} v") + r"\d+\.\d+\.\d+\.\d+", log[3])
    assert log[4:6] == ["-----Process memory info-----", "PID\tEXE\tWorkingSetSize(MB)\tPagefileUsage(MB)"]
    processes = log[6:-1]
    assert processes and all(re.fullmatch(r"\d+\t[^\t]+\t\d+\t\d+", line) for line in processes)
    assert any(line.split("\t")[1] == "Crashvane.exe" for line in processes)
    assert log[-1] == "-----End-----"
    assert levels == ["DEBUG"] * 3 + ["INFO "] * (len(log) - 3)


def test_echoes_the_log_to_standard_error(folder, receiver):
    complete(folder, receiver)
    result = run(folder, ["-f", "CrashReport.xml"])
    assert result.stderr.replace("\r\n", "\n") == result.raw_log.decode()
    assert len(result.log) == 4


def test_names_the_log_after_day_and_second(folder, receiver):
    complete(folder, receiver)
    run(folder, ["-f", "CrashReport.xml"])
    (log,) = (folder / "logs/Crashvane").rglob("*.*")
    day = re.fullmatch(r"Crashvane_(\d{4}_\d\d_\d\d)_\d\d_\d\d_\d\d\.log", log.name).group(1)
    assert log.parent == folder / "logs/Crashvane" / day


@pytest.mark.parametrize("options, sent", [
    ([], []),
    (["-a"], ["playerlogin"]),
    (["-m"], ["session"]),
    (["-m", "-a"], ["playerlogin", "session"]),
    (["-b"], []),
    (["-d", "-b"], ["dumpinfo", "dumpfile"]),
    (["-bd"], ["dumpinfo", "dumpfile"]),
    (["-bmda"], ["playerlogin", "session", "dumpinfo", "dumpfile"]),
])
def test_sends_what_the_options_ask_for_in_the_fixed_order(folder, receiver, options, sent):
    complete(folder, receiver)
    result = run(folder, ["-f", "CrashReport.xml", *options])
    assert result.exit_code == 0
    assert endpoints(receiver) == sent
    assert (NOT_SENT in result.log) == ("dumpinfo" not in sent)
    assert ("-----End-----" in result.log) == ("dumpinfo" in sent)
    assert result.files == {"version.cfg"}


def test_without_d_the_last_line_says_so_and_the_reports_are_deleted(folder, receiver):
    complete(folder, receiver)
    result = run(folder, ["-f", "CrashReport.xml", "-a"])
    assert result.log[1:] == [*NO_LOGIN_NO_THREADS, NOT_SENT]
    assert result.files == {"version.cfg"}


def test_writes_these_bytes_to_the_socket(folder, raw_server):
    complete(folder, raw_server)
    run(folder, ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"])
    first, second, third, package = raw_server.requests
    for request, path, boundary, fields in (
            (first, "/dumpserver/playerloginbase.php", FIRST_BOUNDARIES[0], PLAYER_LOGIN),
            (second, "/dumpserver/dumpsession.php", FIRST_BOUNDARIES[1], SESSION),
            (third, "/dumpserver/dumpinfo.php", FIRST_BOUNDARIES[2], DUMP_INFO)):
        assert request.line == f"POST {path} HTTP/1.1"
        assert request.header("User-Agent") == "Breakpad/1.0 (Windows)"
        assert request.header("Host") == f"127.0.0.1:{raw_server.port}"
        assert request.header("Content-Type") == f"multipart/form-data; boundary={boundary}"
        assert request.header("Content-Length") == str(len(request.body))
        assert request.body == body_of(fields, boundary=boundary)
    assert package.line == "POST /dumpserver/dumpfile.php HTTP/1.1"


def test_writes_these_bytes_around_the_archive(folder, raw_server):
    complete(folder, raw_server)
    run(folder, ["-f", "CrashReport.xml", "-d", "-b"])
    request = raw_server.requests[-1]
    boundary = boundary_of(request)
    assert re.fullmatch("-{27}[0-9A-F]{16}", boundary)
    name = re.search(rb'name="filename"\r\n\r\n(Crash_\d+\.zip)\r\n', request.body).group(1).decode()
    archive = request.body[request.body.index(b"PK\3\4"):request.body.rindex(b"\r\n--")]
    fields = {"filename": name, **PACKAGE}
    assert request.body == body_of(fields, archive, f"{windows_path(folder)}\\{name}", boundary)


def test_a_project_on_the_command_line_leaves_the_settings_unread(folder, receiver):
    complete(folder, receiver)
    write_settings(folder, "http://127.0.0.1:1", project="", DumpInfoUrl="")
    result = run(folder, ["-f", "CrashReport.xml", "-p", "tool", "-a", "-s", "Crashvane.cfg"], proxy=receiver)
    assert result.exit_code == 0
    assert result.log[1:] == [*NO_LOGIN_NO_THREADS, NOT_SENT]
    (login,) = receiver.requests
    assert login.fields == {**PLAYER_LOGIN, "project": "tool", "ver": "1.0.0.5", "verex": "zhcn_hd"}


def test_a_project_on_the_command_line_sends_to_the_built_in_addresses(folder, raw_server):
    write_report(folder)
    run(folder, ["-f", "CrashReport.xml", "-p", "QRL", "-a", "-m", "-d", "-b"], proxy=raw_server)
    assert [request.path for request in raw_server.requests] == [
        "/dumpserver/playerloginbase.php", "/dumpserver/dumpsession.php", "/dumpserver/dumpinfo.php",
        "/dumpserver/dumpfile.php"]


def test_an_unknown_project_is_sent_as_given_and_saved_as_the_default(folder, receiver):
    complete(folder, receiver)
    write_settings(folder, receiver.url, project="abc")
    run(folder, ["-f", "CrashReport.xml", "-d", "-b"])
    assert [one.fields["project"] for one in receiver.requests] == ["abc", "abc"]


def test_a_missing_version_file_is_logged_and_survived(folder, receiver):
    write_report(folder)
    write_settings(folder, receiver.url)
    result = run(folder, ["-f", "CrashReport.xml", "-a"])
    assert result.exit_code == 0
    assert result.log[1:] == [*NO_VERSION_FILE, *NO_LOGIN_NO_THREADS, NOT_SENT]
    assert receiver.requests[0].fields["ver"] == "1.0.0.5"


def test_a_folder_named_pak_marks_the_version_as_packed(folder, receiver):
    complete(folder, receiver)
    (folder / "Pak").mkdir()
    run(folder, ["-f", "CrashReport.xml", "-a"])
    assert receiver.requests[0].fields["ver"] == "2.4.6_PAK"


def test_a_report_that_is_missing_ends_with_one(folder, receiver):
    write_settings(folder, receiver.url)
    result = run(folder, ["-f", "nowhere.xml", "-a", "-m", "-d", "-b"])
    assert result.exit_code == 1
    assert result.log[1:] == [process_error("nRetCode", "CrashReporter::Load"),
                              process_error("nRetCode", "Collection::Init"), process_error("nRetCode", "WinMain")]
    assert receiver.requests == []


def test_a_report_that_cannot_be_loaded_is_deleted_and_so_is_the_dump_it_named(folder, receiver):
    complete(folder, receiver)
    whole = report()
    (folder / "CrashReport.xml").write_bytes(whole[:whole.index(b"    <Custom />")] + b"</CrashReporter>\r\n")
    result = run(folder, ["-f", "CrashReport.xml", "-d", "-b"])
    assert result.exit_code == 1
    assert result.log[-4:] == [process_error("pElement", "CrashReporter::LoadVectorData"),
                               process_error("nRetCode", "CrashReporter::Load"),
                               process_error("nRetCode", "Collection::Init"), process_error("nRetCode", "WinMain")]
    assert result.files == {"version.cfg"}


def test_a_failed_configuration_deletes_the_report_and_keeps_the_dump(folder, receiver):
    write_report(folder)
    result = run(folder, ["-f", "CrashReport.xml", "-d", "-b"])
    assert result.exit_code == 1
    assert result.log[1:] == [process_error("nRetCode", "Config::LoadSetting"), *CONFIG_FAILED]
    assert result.files == {"crash.dmp"}


REFUSED = {
    "playerlogin": process_error("nRetCode", "SendActiveMachine"),
    "session": process_error("nRetCode", "SendSession"),
    "dumpinfo": check_error("nRetCode", "SendDumpInfo"),
    "dumpfile": check_error("nRetCode", "SendDumpFile"),
}


@pytest.mark.parametrize("endpoint", REFUSED)
def test_a_failed_request_is_logged_and_the_others_are_sent(folder, receiver, endpoint):
    complete(folder, receiver)
    receiver.answer(endpoint, status=500)
    result = run(folder, ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"])
    assert result.exit_code == 0
    assert endpoints(receiver) == list(REFUSED)
    assert result.checks == [*NO_LOGIN_NO_THREADS, REFUSED[endpoint]]
    assert result.files == {"version.cfg"}


def test_all_requests_failing_still_ends_well_and_clean(folder, receiver):
    complete(folder, receiver)
    for endpoint in REFUSED:
        receiver.answer(endpoint, status=503)
    result = run(folder, ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"])
    assert result.exit_code == 0
    assert result.checks == [*NO_LOGIN_NO_THREADS, *REFUSED.values()]
    assert result.files == {"version.cfg"}


def test_an_answer_cut_short_is_no_success(folder, receiver):
    complete(folder, receiver)
    receiver.answer("session", body="0123456789", cut=4)
    result = run(folder, ["-f", "CrashReport.xml", "-m"])
    assert REFUSED["session"] in result.log


def test_the_log_stands_under_the_current_folder_and_the_settings_beside_the_program(folder, receiver):
    complete(folder, receiver)
    current = folder / "elsewhere"
    current.mkdir()
    write_report(current)
    result = run(folder, ["-f", "CrashReport.xml", "-a"], cwd=current)
    assert result.exit_code == 0
    assert endpoints(receiver) == ["playerlogin"]
    assert NOT_SENT in result.log
    # No "logs" beside the program, which is where a product's logs are looked for.
    assert process_error("nRetCode", "Collection::CollectLog") in result.log
    assert {"CrashReport.xml", "crash.dmp"} <= result.files
    assert not (current / "CrashReport.xml").exists()


def test_a_log_folder_that_cannot_be_made_is_told_to_standard_error_and_all_is_sent(folder, receiver):
    complete(folder, receiver)
    (folder / "logs").write_bytes(b"a file")
    result = run(folder, ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"])
    assert result.exit_code == 0
    assert 'ZTLog: ZT_mkdir("logs/Crashvane/") failed = ' in result.stderr
    assert "-----End-----" in result.stderr
    assert endpoints(receiver) == list(REFUSED)
    assert result.files == {"version.cfg", "logs"}


def test_senders_that_run_at_once_do_not_disturb_each_other(folder, receiver):
    complete(folder, receiver)
    senders = []
    for number in range(4):
        (folder / f"{number}.dmp").write_bytes(b"dump %d" % number)
        changes = {"Exception.DumpGuid": f"guid-{number}", "Exception.DumpFileName": f"{number}.dmp"}
        write_report(folder, f"{number}.xml", dump=None, changes=changes)
        senders.append(start(folder, ["-f", f"{number}.xml", "-d", "-b"]))
    for sender in senders:
        assert sender.finish().exit_code == 0
    packages = [one for one in receiver.requests if one.endpoint == "dumpfile"]
    assert sorted(one.fields["guid"] for one in packages) == [f"guid-{number}" for number in range(4)]
    assert len({one.fields["filename"] for one in packages}) == 4
    for one in packages:
        name = one.fields["guid"][-1] + ".dmp"
        assert zipfile.ZipFile(one.archive).read(name) == b"dump " + name[:1].encode()
    assert not list(folder.glob("Crash_*.zip")) and not list(folder.glob("?.xml")) and not list(folder.glob("?.dmp"))
