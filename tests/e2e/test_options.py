"""The command line as a client may get it wrong: what is printed, what is logged, what still happens."""
import pytest

from crashvane import process_error, run
from expected import VERSION_FILE
from reports import write_report, write_settings

NO_REPORT = [process_error("!m_strCrashReportFile.empty()", "Config::LoadCmd"),
             process_error("nRetCode", "Config::Init"), process_error("nRetCode", "WinMain")]


@pytest.fixture
def complete(folder, receiver):
    write_report(folder)
    write_settings(folder, receiver.url)
    (folder / "version.cfg").write_bytes(VERSION_FILE)
    return folder


def printed(result):
    """Standard error without the echo of the log."""
    text = result.stderr.replace("\r\n", "\n")
    for line in result.raw_log.decode("cp1252").splitlines(keepends=True):
        assert line in text
        text = text.replace(line, "", 1)
    return text


@pytest.mark.parametrize("args, message", [
    (["-x", "-f", "CrashReport.xml", "-a"], "Error in argument 1, char 2: option not found x\n"),
    (["-ax", "-f", "CrashReport.xml"], "Error in argument 1, char 3: option not found x\n"),
    (["-f", "CrashReport.xml", "-xa"], "Error in argument 3, char 2: option not found x\n"),
    (["-a:", "-f", "CrashReport.xml"], "Error in argument 1, char 3: : in flags\n"),
    (["-f", "CrashReport.xml", "-a", "-c"], "Error in argument 4, char 2: no argument for option c\n"),
])
def test_a_wrong_option_is_printed_and_passed_over(complete, receiver, args, message):
    result = run(complete, args)
    assert result.exit_code == 0
    assert printed(result) == message
    assert [one.endpoint for one in receiver.requests] == ["playerlogin"]


@pytest.mark.parametrize("args, message", [
    (["-f"], "Error in argument 1, char 2: no argument for option f\n"),
    (["-a", "-f"], "Error in argument 2, char 2: no argument for option f\n"),
    (["CrashReport.xml", "-f", "CrashReport.xml"], ""),
    (["-", "-f", "CrashReport.xml"], ""),
    (["--", "-f", "CrashReport.xml"], ""),
    (["--help"], ""),
    (["-a"], ""),
])
def test_without_a_report_path_the_run_ends_with_one(complete, receiver, args, message):
    result = run(complete, args)
    assert result.exit_code == 1
    assert printed(result) == message
    assert result.log[1:] == NO_REPORT
    assert {"CrashReport.xml", "crash.dmp"} <= result.files
    assert receiver.requests == []


def test_an_option_takes_the_next_argument_even_with_a_hyphen(complete, receiver):
    (complete / "CrashReport.xml").rename(complete / "-a")
    result = run(complete, ["-f", "-a", "-m"])
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["session"]


def test_what_follows_in_a_cluster_behind_an_option_with_a_value_is_ignored(complete, receiver):
    result = run(complete, ["-mfa", "CrashReport.xml"])
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["session"]


def test_the_last_of_a_repeated_option_counts(complete, receiver):
    result = run(complete, ["-f", "nowhere.xml", "-a", "-f", "CrashReport.xml", "-a"])
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["playerlogin"]


def test_two_hyphens_end_the_options(complete, receiver):
    result = run(complete, ["-f", "CrashReport.xml", "-m", "--", "-a"])
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["session"]


def test_a_settings_path_is_taken_from_the_current_folder(complete, receiver):
    (complete / "sub").mkdir()
    (complete / "Crashvane.cfg").rename(complete / "sub/other.ini")
    result = run(complete, ["-f", "CrashReport.xml", "-a", "-s", "sub/other.ini"])
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["playerlogin"]


def test_thirty_thousand_characters_of_arguments_are_read_and_logged_in_a_cut_line(complete, receiver):
    result = run(complete, ["-f", "CrashReport.xml", "-a", "-c", "x" * 30000])
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["playerlogin"]
    first = result.raw_log.split(b"\n")[0] + b"\n"
    assert len(first) == 1023 and first.endswith(b"xxx\n")


def test_a_report_path_over_260_characters_ends_with_one(complete):
    result = run(complete, ["-f", "y" * 300 + ".xml", "-a"])
    assert result.exit_code == 1
    assert process_error("nRetCode", "CrashReporter::Load") in result.log
