"""The examples in the documents are what the program sends and what the receiver takes."""
import io
import json
import re
import zipfile

import pytest

from crashvane import run
from expected import DUMP_INFO, PACKAGE, PLAYER_LOGIN, SESSION, VERSION_FILE
from reports import write_report, write_settings
from test_receiver import post
from wine import ROOT

WIRE_FORMAT = (ROOT / "docs/wire-format.md").read_text("utf-8")
SERVER = (ROOT / "docs/server.md").read_text("utf-8")


def example(name):
    """The bytes of an example body in the document."""
    text = re.search(rf"<!-- example: {name} -->\n```\n(.*?)```", WIRE_FORMAT, re.DOTALL).group(1)
    return text.replace("\n", "\r\n").encode()


def fields_of(body):
    return dict(re.findall(r'name="(\w+)"\r\n\r\n(.*?)\r\n', body.decode()))


def content_type(body):
    return "multipart/form-data; boundary=" + body.split(b"\r\n")[0][2:].decode()


def test_the_session_example_is_what_the_program_sends(folder, raw_server):
    write_report(folder)
    write_settings(folder, raw_server.url)
    (folder / "version.cfg").write_bytes(VERSION_FILE)
    run(folder, ["-f", "CrashReport.xml", "-m"])
    (request,) = raw_server.requests
    assert request.body == example("session")
    assert request.header("Content-Type") == content_type(example("session"))


@pytest.mark.parametrize("name, path", [
    ("session", "/dumpserver/dumpsession.php"), ("dumptype", "/dump_api/get_dump_type")])
def test_the_receiver_reads_the_examples(receiver, name, path):
    body = example(name)
    assert post(receiver.url + path, body, content_type(body))[0] == 200
    assert receiver.requests[0].fields == fields_of(body)


def test_the_receiver_reads_the_package_example(receiver):
    archive = io.BytesIO()
    zipfile.ZipFile(archive, "w").close()
    body = example("dumpfile").replace(b"<bytes of the archive>", archive.getvalue())
    assert post(receiver.url + "/dumpserver/dumpfile.php", body, content_type(body)) == (200, "OK")
    (kept,) = receiver.requests
    assert kept.fields == fields_of(example("dumpfile"))
    assert kept.file_name == "D:\\Game\\bin64\\Crash_4711.zip"
    assert kept.archive.read_bytes() == archive.getvalue()


@pytest.mark.parametrize("path, names", [
    ("/dumpserver/playerloginbase.php", list(PLAYER_LOGIN)),
    ("/dumpserver/dumpsession.php", list(SESSION)),
    ("/dumpserver/dumpinfo.php", list(DUMP_INFO)),
    ("/dump_api/get_dump_type", ["dump_key", "project"]),
    ("/dumpserver/dumpfile.php", ["filename", *PACKAGE, "File"]),
])
def test_the_tables_name_every_field_in_wire_order(path, names):
    section = WIRE_FORMAT[WIRE_FORMAT.index(f"`{path}`"):].split("\n### ")[0].split("\n## ")[0]
    first_cells = [line.split("|")[1] for line in section.splitlines() if line.startswith("| ")]
    assert re.findall(r"`(\w+)`", "".join(first_cells)) == names


def test_the_receiver_takes_the_answers_of_the_examples(receiver):
    (told,) = re.findall(r"curl .* -d '(.*?)' ", SERVER)
    receiver.answer(**json.loads(told))
    (option,) = re.findall(r"--answer '(.*?)'", SERVER)
    endpoint, _, values = option.partition("=")
    receiver.answer(endpoint, **json.loads(values))
    body = example("dumptype")
    assert post(receiver.url + "/dump_api/get_dump_type", body, content_type(body)) == (200, "3")
