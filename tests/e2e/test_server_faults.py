"""Servers that are not there, hang up, lie or talk nonsense: the run says so, goes on, and ends.

One request (-a) shows what counts as success; the platform reads the answers, so the rows say what it makes of them.
"""
import socket

import pytest

from crashvane import check_error, process_error, run
from raw_server import Behaviour, hang_up, reset, response
from reports import random_bytes, write_report, write_settings
from test_main_flow import NOT_SENT, REFUSED

LOGIN = "/dumpserver/playerloginbase.php"
PATHS = {"playerlogin": LOGIN, "session": "/dumpserver/dumpsession.php", "dumpinfo": "/dumpserver/dumpinfo.php",
         "dumpfile": "/dumpserver/dumpfile.php"}
FAILED = REFUSED["playerlogin"]
ALL = ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"]


@pytest.fixture
def ready(folder, raw_server):
    write_report(folder)
    write_settings(folder, raw_server.url)
    return folder


def login_succeeds(folder):
    """Runs with the one request; the run itself must always end well and clean."""
    result = run(folder, ["-f", "CrashReport.xml", "-a"])
    assert result.exit_code == 0
    assert result.log[-1] == NOT_SENT
    assert result.files == set()
    return FAILED not in result.log


def assert_all_failed(result):
    assert result.exit_code == 0
    assert [line for line in result.checks if line in REFUSED.values()] == list(REFUSED.values())
    assert result.files == set()


def test_a_refused_connection_fails_every_request(ready):
    with socket.socket() as deaf:  # bound, so that nobody else takes the port, but never listening
        deaf.bind(("127.0.0.1", 0))
        write_settings(ready, f"http://127.0.0.1:{deaf.getsockname()[1]}")
        assert_all_failed(run(ready, ALL))


def test_an_unknown_host_fails_every_request(ready):
    write_settings(ready, "http://" + "n" * 64 + ".invalid")  # too long a label for any resolver to ask about
    assert_all_failed(run(ready, ALL))


@pytest.mark.parametrize("name", PATHS)
def test_a_server_that_hangs_up_behind_one_request_fails_that_one_alone(ready, raw_server, name):
    raw_server.on(PATHS[name], Behaviour(answer=b""))
    result = run(ready, ALL)
    assert result.exit_code == 0
    assert [line for line in result.checks if line in REFUSED.values()] == [REFUSED[name]]
    assert set(PATHS.values()) == {request.path for request in raw_server.requests}
    assert result.files == set()


@pytest.mark.parametrize("misbehave", [hang_up, reset])
def test_a_server_that_hangs_up_before_it_reads_fails_the_request(ready, raw_server, misbehave):
    raw_server.at_accept += [misbehave] * 8  # the platform may try again
    assert not login_succeeds(ready)


@pytest.mark.parametrize("reset_it", [False, True])
def test_a_server_that_hangs_up_in_the_body_fails_the_upload(ready, raw_server, reset_it):
    (ready / "crash.dmp").write_bytes(random_bytes(1 << 20))
    raw_server.on(PATHS["dumpfile"], Behaviour(read=100000, answer=b"", reset=reset_it))
    result = run(ready, ALL)
    assert result.exit_code == 0
    assert REFUSED["dumpfile"] in result.log
    assert result.files == set()


@pytest.mark.parametrize("status", [
    "201 Created", "204 No Content", "206 Partial", "304 Not Modified", "400 Bad Request", "401 Unauthorized", "403 No",
    "404 Not Found", "407 Proxy", "413 Too Large", "429 Too Many", "500 Broken", "503 Later", "2000 OK", "20 OK", "199 OK",
    "abc OK", "-200 OK"])
def test_no_status_but_200_is_a_success(ready, raw_server, status):
    raw_server.on(LOGIN, Behaviour(response(status=status)))
    assert not login_succeeds(ready)


@pytest.mark.parametrize("status", ["301 Moved", "302 Found", "303 Other", "307 Again"])
@pytest.mark.parametrize("target, good", [("200 OK", True), ("404 Not Found", False)])
def test_a_redirection_counts_as_what_it_leads_to(ready, raw_server, status, target, good):
    raw_server.on(LOGIN, Behaviour(response(status=status, headers=b"Location: /there\r\n")))
    raw_server.on("/there", Behaviour(response(status=target)))
    assert login_succeeds(ready) == good
    assert raw_server.requests[-1].path == "/there"


def test_a_continue_before_the_answer_is_passed_over(ready, raw_server):
    raw_server.on(LOGIN, Behaviour(early=b"HTTP/1.1 100 Continue\r\n\r\n"))
    assert login_succeeds(ready)


def head(*lines):
    return b"HTTP/1.1 200 OK\r\n" + b"".join(line + b"\r\n" for line in lines) + b"\r\n"


CHUNKED = head(b"Transfer-Encoding: chunked")


@pytest.mark.parametrize("answer, good", [
    (response(b""), True),
    (response(b"x" * (1 << 20)), True),
    (response("\ufeff成功".encode()), True),
    (response(b"\xff\xfe\0\0 not a text"), True),
    (head(b"Content-Length: 5") + b"12345", True),
    (head(b"Content-Length: 5") + b"123", False),
    (head(b"Content-Length: 5"), False),
    (head(b"Content-Length: -1") + b"123", False),
    (head(b"Content-Length: 999999999999") + b"123", False),
    (head(b"Content-Length: letters") + b"123", False),
    (head() + b"until the end", True),
    (head(), True),
    (CHUNKED + b"3\r\nabc\r\n0\r\n\r\n", True),
    (CHUNKED + b"3\r\nabc\r\n5\r\nab", True),  # no length was announced, so nothing is known to be missing
], ids=["empty", "1 MB", "BOM", "no UTF-8", "exact", "shorter", "nothing", "negative", "absurd", "letters", "no length",
        "no length, empty", "chunked", "cut chunk"])
def test_an_announced_length_must_be_met(ready, raw_server, answer, good):
    raw_server.on(LOGIN, Behaviour(answer))
    assert login_succeeds(ready) == good


@pytest.mark.parametrize("answer", [
    b"\0" * 1000, b"garbage\r\n\r\n", b"SSH-2.0-server\r\n", b"\r\n\r\n", b"HTTP/1.1\r\n\r\n", b"HTTP/1.1 \r\n\r\n",
    b"HTTP/1.1 200 OK\r\nno colon\r\n: no name\r\n\r\n", b"HTTP/1.1 200 OK", random_bytes(5000),
    head(*[b"X-%d: y" % number for number in range(10000)]), head(b"X: " + b"y" * (1 << 20)),
    head(b"X: \0\0\0", b"\0: y"),
], ids=["zeros", "line", "SSH", "blank lines", "no status", "empty status", "odd headers", "cut status", "noise",
        "10,000 headers", "1 MB header", "zeros in headers"])
def test_nonsense_for_an_answer_never_stops_the_run(ready, raw_server, answer):
    raw_server.on(LOGIN, Behaviour(answer))
    login_succeeds(ready)
    assert raw_server.requests[0].path == LOGIN


def test_every_request_fails_when_every_answer_is_broken(ready, raw_server):
    for path in PATHS.values():
        raw_server.on(path, Behaviour(head(b"Content-Length: 9") + b"1"))
    result = run(ready, ALL)
    assert_all_failed(result)
    assert check_error("nRetCode", "SendDumpInfo") in result.log
    assert process_error("nRetCode", "SendSession") in result.log


def test_the_answer_of_one_request_has_no_say_in_the_next(ready, raw_server):
    raw_server.on(LOGIN, Behaviour(response(headers=b"Set-Cookie: a=b; path=/\r\n")))
    result = run(ready, ALL)
    assert result.exit_code == 0
    assert not [line for line in result.checks if line in REFUSED.values()]
    assert len(raw_server.requests) == 4
