"""The settings file beside the program, whole and broken."""
import pytest

from crashvane import process_error, run
from reports import SETTINGS, write_report, write_settings
from test_main_flow import CONFIG_FAILED, NOT_SENT

CHECKS = {"DumpFileUrl": "!m_strDumpFileUrl.empty()", "DumpInfoUrl": "!m_strDumpInfoUrl.empty()",
          "PlayerLoginUrl": "!m_strPlayerLoginUrl.empty()", "SessionUrl": "!m_strSessionUrl.empty()",
          "DumpSolutionUrl": "!m_strDumpSolutionUrl.empty()", "Project": "!m_strProject.empty()"}
ARGS = ["-f", "CrashReport.xml", "-a"]


def assert_refused(result, condition, receiver):
    assert result.exit_code == 1
    assert result.log[1:] == [process_error(condition, "Config::LoadSetting"), *CONFIG_FAILED]
    assert "CrashReport.xml" not in result.files
    assert receiver.requests == []


def test_a_missing_file_ends_with_one(folder, receiver):
    write_report(folder)
    assert_refused(run(folder, ARGS), "nRetCode", receiver)


def test_a_folder_in_its_place_ends_with_one(folder, receiver):
    write_report(folder)
    (folder / "Crashvane.cfg").mkdir()
    assert_refused(run(folder, ARGS), "nRetCode", receiver)


@pytest.mark.parametrize("content", [b"", b"\r\n", b"[Other]\r\nProject=QRL\r\n", b"Project=QRL\r\n",
                                     b"[Crashvane\r\nProject=QRL\r\n", bytes(range(256)) * 8, b"\0" * 4096],
                         ids=["empty", "blank", "other section", "no section", "cut section", "binary", "NULs"])
def test_a_file_without_a_project_ends_with_one(folder, receiver, content):
    write_report(folder)
    (folder / "Crashvane.cfg").write_bytes(content)
    assert_refused(run(folder, ARGS), "!m_strProject.empty()", receiver)


@pytest.mark.parametrize("key", CHECKS)
def test_a_key_that_is_present_but_empty_ends_with_one(folder, receiver, key):
    write_report(folder)
    write_settings(folder, receiver.url, **({"project": ""} if key == "Project" else {key: ""}))
    assert_refused(run(folder, ARGS), CHECKS[key], receiver)


@pytest.mark.parametrize("empty, first", [
    (["DumpSolutionUrl", "DumpFileUrl"], "DumpFileUrl"), (["SessionUrl", "DumpInfoUrl"], "DumpInfoUrl"),
    (["SessionUrl", "PlayerLoginUrl"], "PlayerLoginUrl"), (["DumpSolutionUrl", "SessionUrl"], "SessionUrl")])
def test_the_first_empty_key_in_reading_order_is_the_one_that_is_logged(folder, receiver, empty, first):
    write_report(folder)
    write_settings(folder, receiver.url, project="", **{key: "" for key in empty})
    assert_refused(run(folder, ARGS), CHECKS[first], receiver)


def test_missing_addresses_are_the_built_in_ones(folder, receiver):
    write_report(folder)
    write_settings(folder, "unused", **{key: None for key in SETTINGS})
    result = run(folder, [*ARGS, "-m", "-d", "-b"], proxy=receiver)
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["playerlogin", "session", "dumpinfo", "dumpfile"]


@pytest.mark.parametrize("value", ["0", "1", "-1", "2", "letters", ""])
def test_the_switch_for_system_exceptions_changes_nothing_that_is_sent(folder, receiver, value):
    write_report(folder)
    write_settings(folder, receiver.url, SendSystemException=value)
    result = run(folder, ARGS)
    assert result.exit_code == 0
    assert result.log[-1] == NOT_SENT
    assert [one.endpoint for one in receiver.requests] == ["playerlogin"]


def test_keys_and_section_are_found_whatever_their_case(folder, receiver):
    write_report(folder)
    (folder / "Crashvane.cfg").write_bytes(
        f"[CRASHVANE]\r\nproject=QRL\r\nPLAYERLOGINURL={receiver.url}/dumpserver/playerloginbase.php\r\n".encode())
    assert run(folder, ARGS).exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["playerlogin"]


def test_the_first_of_two_sections_of_one_name_counts(folder, receiver):
    write_report(folder)
    path = write_settings(folder, receiver.url)
    path.write_bytes(path.read_bytes() + b"[Crashvane]\r\nProject=\r\nPlayerLoginUrl=http://127.0.0.1:1/\r\n")
    assert run(folder, ARGS).exit_code == 0
    assert [one.fields["project"] for one in receiver.requests] == ["QRL"]


def test_a_byte_order_mark_is_read_as_the_platform_reads_it(folder, receiver):
    write_report(folder)
    path = write_settings(folder, receiver.url)
    path.write_bytes(b"\xef\xbb\xbf" + path.read_bytes())
    result = run(folder, ARGS)
    if result.exit_code == 0:
        assert [one.fields["project"] for one in receiver.requests] == ["QRL"]
    else:
        assert_refused(result, "!m_strProject.empty()", receiver)


@pytest.mark.parametrize("length, sent", [(255, True), (256, False)])
def test_an_address_path_of_255_characters_is_sent_and_a_longer_one_is_not(folder, raw_server, length, sent):
    write_report(folder)
    path = "/" + "p" * (length - 1)
    write_settings(folder, raw_server.url, PlayerLoginUrl=raw_server.url + path)
    result = run(folder, ARGS)
    assert result.exit_code == 0
    assert [request.path for request in raw_server.requests] == ([path] if sent else [])
    assert (process_error("nRetCode", "SendActiveMachine") in result.log) != sent


@pytest.mark.parametrize("url", [
    "HTTP:{}", "Http:{}", "ftp:{}", "gopher:{}", "{}", "no address at all", "http:", "http://",
    "http://127.0.0.1:65536/x", "h" * 16 + ":{}", "x" * 1023, "x" * 5000], ids=range(12))
def test_an_address_that_is_none_is_a_failed_request(folder, raw_server, url):
    write_report(folder)
    write_settings(folder, raw_server.url, PlayerLoginUrl=url.format(raw_server.url[5:] + "/x"))
    result = run(folder, [*ARGS, "-m"])
    assert result.exit_code == 0
    assert process_error("nRetCode", "SendActiveMachine") in result.log
    assert [request.path for request in raw_server.requests] == ["/dumpserver/dumpsession.php"]
