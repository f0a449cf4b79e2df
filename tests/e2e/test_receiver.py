"""The local crash server by itself: what it keeps, what it refuses and why, what it can be made to answer."""
import http.client
import io
import json
import socket
import subprocess
import time
import urllib.error
import urllib.request
import zipfile

import pytest

from receivers import DIRECT, Receiver
from wine import ROOT
from wire import FIRST_BOUNDARIES, body_of

SESSION = "/dumpserver/dumpsession.php"
DUMP_FILE = "/dumpserver/dumpfile.php"
DUMP_TYPE = "/dump_api/get_dump_type"
BOUNDARY = FIRST_BOUNDARIES[0]
SESSION_FIELDS = {"clientname": "a.exe", "newuuid": "n", "project": "QRL", "uuid": "u", "ver": "1", "verex": "x"}
PACKAGE_FIELDS = {"filename": "Crash_7.zip", "guid": "g", "key": "k", "project": "QRL", "remark": ""}


def archive_of(**files):
    made = io.BytesIO()
    with zipfile.ZipFile(made, "w") as archive:
        for name, content in files.items():
            archive.writestr(name, content)
    return made.getvalue()


def post(url, body, content_type=f"multipart/form-data; boundary={BOUNDARY}"):
    """Status and text of the answer."""
    try:
        with DIRECT.open(urllib.request.Request(url, body, {"Content-Type": content_type}), timeout=60) as answer:
            return answer.status, answer.read().decode()
    except urllib.error.HTTPError as error:
        with error:
            return error.code, error.read().decode()


def page(receiver):
    with DIRECT.open(receiver.url + "/", timeout=60) as answer:
        return answer.read().decode()


def test_keeps_the_fields_in_the_order_of_the_body(receiver):
    assert post(receiver.url + SESSION, body_of(SESSION_FIELDS)) == (200, "OK")
    (kept,) = receiver.requests
    assert kept.endpoint == "session"
    assert list(kept.fields.items()) == list(SESSION_FIELDS.items())


@pytest.mark.parametrize("value", ["x", "", "x\r\n", "\r\n", "x\n", "x\r\n\r\n"])
def test_takes_exactly_one_line_end_off_the_last_field(receiver, value):
    post(receiver.url + SESSION, body_of({**SESSION_FIELDS, "verex": value}))
    assert receiver.requests[0].fields["verex"] == value


@pytest.mark.parametrize("remark", ["", "it fell over\r\n", "\r\n"])
def test_takes_nothing_off_a_field_that_a_file_follows(receiver, remark):
    post(receiver.url + DUMP_FILE, body_of({**PACKAGE_FIELDS, "remark": remark}, archive_of(a="1")))
    assert receiver.requests[0].fields["remark"] == remark


def test_keeps_the_archive_byte_for_byte(receiver):
    archive = archive_of(**{"CrashReport.xml": "<x/>", "crash.dmp": "MDMP"})
    assert post(receiver.url + DUMP_FILE, body_of(PACKAGE_FIELDS, archive)) == (200, "OK")
    (kept,) = receiver.requests
    assert kept.archive.read_bytes() == archive
    assert kept.file_name == "C:\\Game\\Crash_7.zip"


def test_takes_a_body_whose_last_field_has_no_extra_line_end(receiver):
    body = body_of({"dump_key": "k", "project": "QRL"}).replace(b"QRL\r\n\r\n--", b"QRL\r\n--")
    assert post(receiver.url + DUMP_TYPE, body) == (200, "0")
    assert receiver.requests[0].fields["project"] == "QRL"


def test_takes_an_absolute_address_in_the_request_line(receiver):
    connection = http.client.HTTPConnection("127.0.0.1", receiver.port, timeout=60)
    connection.request("POST", "http://127.0.0.1:8787" + SESSION, body_of(SESSION_FIELDS),
                       {"Content-Type": f"multipart/form-data; boundary={BOUNDARY}"})
    assert connection.getresponse().status == 200
    connection.close()
    assert receiver.requests[0].fields["clientname"] == "a.exe"


WITHOUT_PROJECT = {name: value for name, value in SESSION_FIELDS.items() if name != "project"}
GOOD = body_of(SESSION_FIELDS)


@pytest.mark.parametrize("body, why", [
    (body_of(WITHOUT_PROJECT), "missing field: project"),
    (body_of({"project": "QRL"}), "missing field: clientname, newuuid, uuid, ver, verex"),
    (body_of({**SESSION_FIELDS, "project": ""}), "the field project is empty"),
    (body_of([*SESSION_FIELDS.items(), ("ver", "2")]), "the field ver came twice"),
    (body_of({}), "missing field: clientname, newuuid, project, uuid, ver, verex"),
    (body_of(SESSION_FIELDS, b"PK"), "a file is not expected here"),
    (b"", "the body is empty"),
    (b"project=QRL", "the body does not end with the closing boundary"),
    (GOOD[:-4], "the body does not end with the closing boundary"),
    (b"x" + GOOD, "the body does not begin with the boundary"),
    (GOOD.replace(b"\r\n\r\na.exe", b"\r\na.exe"), "a part has no empty line behind its headers"),
    (GOOD.replace(b'name="ver"', b'name=""'), "a part has an empty name"),
    (GOOD.replace(b'; name="ver"', b""), "a part has no readable Content-Disposition"),
    (GOOD.replace(b"a.exe", b"\xff\xfe"), "the field clientname is not UTF-8"),
    (GOOD.replace(BOUNDARY.encode() + b"\r\n", BOUNDARY.encode() + b"?\r\n", 1),
     "a boundary is not followed by a line end"),
])
def test_refuses_a_bad_body_and_says_why(receiver, body, why):
    assert post(receiver.url + SESSION, body) == (400, why + "\n")
    (kept,) = receiver.requests
    assert (kept.status, kept.refused) == (400, why)


@pytest.mark.parametrize("body, why", [
    (body_of(PACKAGE_FIELDS), "missing file part: File"),
    (body_of(PACKAGE_FIELDS, b""), "the file is empty"),
    (body_of(PACKAGE_FIELDS, b"not an archive"), "the file is no zip archive: File is not a zip file"),
    (body_of(PACKAGE_FIELDS, b"PK").replace(b'name="File"', b'name="Dump"'), "the file part is named Dump, not File"),
])
def test_refuses_a_bad_package_and_says_why(receiver, body, why):
    assert post(receiver.url + DUMP_FILE, body) == (400, why + "\n")
    assert receiver.requests[0].archive is None


@pytest.mark.parametrize("content_type", ["application/x-www-form-urlencoded", "multipart/form-data", ""])
def test_refuses_another_content_type(receiver, content_type):
    why = "the content type is not multipart/form-data with a boundary\n"
    assert post(receiver.url + SESSION, GOOD, content_type) == (400, why)


def test_answers_what_it_was_told(receiver):
    receiver.answer("session", status=503, body="full")
    assert post(receiver.url + SESSION, GOOD) == (503, "full")
    assert receiver.requests[0].status == 503
    receiver.reset()
    assert post(receiver.url + SESSION, GOOD) == (200, "OK")


def test_answers_so_many_times_only(receiver):
    receiver.answer("session", body="once", times=1)
    assert [post(receiver.url + SESSION, GOOD)[1] for _ in range(2)] == ["once", "OK"]


def test_delays_an_answer(receiver):
    receiver.answer("session", delay=0.3)
    before = time.monotonic()
    assert post(receiver.url + SESSION, GOOD) == (200, "OK")
    assert time.monotonic() - before >= 0.3


def test_cuts_an_answer_short_of_what_it_announced(receiver):
    receiver.answer("session", body="123456", cut=2)
    with pytest.raises(http.client.IncompleteRead) as cut:
        post(receiver.url + SESSION, GOOD)
    assert (cut.value.partial, cut.value.expected) == (b"12", 4)


@pytest.mark.parametrize("values, why", [
    ({"endpoint": "nowhere"}, "no endpoint 'nowhere'; there are playerlogin, session, dumpinfo, dumptype, dumpfile"),
    ({"endpoint": "session", "status": 99}, "status is a number from 200 to 599"),
    ({"endpoint": "session", "status": "200"}, "status is a number from 200 to 599"),
    ({"endpoint": "session", "delay": -1}, "delay is a number from 0 to 600"),
    ({"endpoint": "session", "body": 1}, "body is a text"),
    ({"endpoint": "session", "colour": 1}, "unknown key 'colour'"),
    ([], "a JSON object with endpoint, status, body, delay, cut, times is expected"),
])
def test_refuses_an_answer_that_it_cannot_give(receiver, values, why):
    body = json.dumps(values).encode()
    assert post(receiver.url + "/control/answers", body, "application/json") == (400, why + "\n")


def test_takes_answers_from_the_command_line(tmp_path):
    started = Receiver(tmp_path / "kept", "--answer", 'dumptype={"body":"3"}')
    try:
        assert post(started.url + DUMP_TYPE, body_of({"dump_key": "k", "project": "QRL"})) == (200, "3")
    finally:
        started.end()


@pytest.mark.parametrize("options, why", [
    (["--answer", "session=nonsense"], "receiver: --answer session=nonsense: "),
    (["--answer", 'session={"cut":-1}'], "cut is a number from 0 to"),
    (["--port", "99999"], "receiver: cannot listen on 127.0.0.1:99999"),
    (["--folder", "/dev/null/kept"], "receiver: cannot use the folder /dev/null/kept"),
])
def test_says_in_one_line_what_keeps_it_from_starting(options, why):
    assert_does_not_start(options, why)


def test_says_in_one_line_that_its_port_is_taken():
    with socket.create_server(("127.0.0.1", 0)) as taken:
        port = taken.getsockname()[1]
        why = f"receiver: cannot listen on 127.0.0.1:{port}: Address already in use"
        assert_does_not_start(["--port", str(port)], why)


def assert_does_not_start(options, why):
    ended = subprocess.run(["/usr/bin/python3", str(ROOT / "tools/receiver"), "--port", "0", *options],
                           capture_output=True, text=True, timeout=60)
    assert ended.returncode != 0
    assert ended.stdout == ""
    assert why in ended.stderr and ended.stderr.count("\n") == 1


def test_shows_crashes_fields_and_archive_contents(receiver):
    fields = {**PACKAGE_FIELDS, "guid": "the-guid-of-it", "remark": "它崩溃了"}
    post(receiver.url + DUMP_FILE, body_of(fields, archive_of(**{"CrashReport.xml": "x" * 1234})))
    shown = page(receiver)
    for text in ("the-guid-of-it", "它崩溃了", "CrashReport.xml", "1,234", "C:\\Game\\Crash_7.zip"):
        assert text in shown
    number = receiver.requests[0].number
    with DIRECT.open(f"{receiver.url}/requests/{number}/archive.zip", timeout=60) as answer:
        assert answer.read() == receiver.requests[0].archive.read_bytes()


def test_shows_what_senders_wrote_as_text_and_never_as_markup(receiver):
    nasty = "<script>alert(1)</script>"
    post(receiver.url + DUMP_FILE, body_of({**PACKAGE_FIELDS, "remark": nasty, "guid": nasty, "key": nasty},
                                          archive_of(**{nasty: "x"}), file_name=nasty))
    shown = page(receiver)
    assert nasty not in shown
    assert shown.count("&lt;script&gt;alert(1)&lt;/script&gt;") >= 5


def test_shows_why_a_request_was_refused(receiver):
    post(receiver.url + SESSION, body_of([*SESSION_FIELDS.items(), ("ver", "2")]))
    assert "the field ver came twice" in page(receiver)


def test_goes_on_counting_in_a_folder_of_an_earlier_run(tmp_path):
    for run in (1, 2):
        started = Receiver(tmp_path)
        try:
            post(started.url + SESSION, GOOD)
            assert [one.number for one in started.requests] == list(range(1, run + 1))
        finally:
            started.end()


def test_a_half_made_folder_of_a_killed_receiver_is_not_taken_for_a_request(tmp_path):
    (tmp_path / ".0001-session").mkdir()
    started = Receiver(tmp_path)
    try:
        assert post(started.url + SESSION, GOOD) == (200, "OK")
        assert [one.number for one in started.requests] == [2]
        assert "Other requests (1)" in page(started)
    finally:
        started.end()


def test_survives_a_sender_that_hangs_up_in_the_body(receiver):
    with socket.create_connection(("127.0.0.1", receiver.port)) as sender:
        sender.sendall(f"POST {SESSION} HTTP/1.1\r\nHost: x\r\nContent-Length: 1000\r\n"
                       f"Content-Type: multipart/form-data; boundary={BOUNDARY}\r\n\r\n--".encode())
        sender.shutdown(socket.SHUT_WR)
        assert b" 400 " in sender.recv(65536)
    assert post(receiver.url + SESSION, GOOD) == (200, "OK")
