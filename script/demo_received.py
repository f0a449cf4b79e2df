"""Shows what the demo's crash server received and compares it with what the crash left: script/demo calls it.

    demo_received.py FOLDER [--answered FEEDBACK | --dialog]

Exit code 0 only when everything is there and says the same. --answered: the dialog was answered by the script, with
this feedback, the game restarted and the repair tool started. --dialog: a person answered, who may have declined.
"""
import argparse
import json
import re
import struct
import sys
import time
import xml.etree.ElementTree as ElementTree
import zipfile
from pathlib import Path

ACCESS_VIOLATION = 0xC0000005
EXCEPTION_STREAM = 6
SHOWN = ("project", "key", "guid", "clientname", "exceptionmodule", "ver", "verex", "threadtype", "account", "rolename",
         "regionname", "servername", "os", "cpubrand", "totalphysmem", "timetofailure", "custominfo", "remark")

wrong = []


def check(condition, text):
    if not condition:
        wrong.append(text)


def read_requests(folder):
    """(endpoint, facts, fields, archive path or None) of each request, in the order of arrival."""
    requests = []
    for path in sorted(folder.glob("[0-9]*/request.json")):
        facts = json.loads(path.read_text("utf-8"))
        fields = path.with_name("fields.json")
        archive = path.with_name("archive.zip")
        requests.append((facts["endpoint"], facts, json.loads(fields.read_text("utf-8")) if fields.exists() else {},
                         archive if archive.exists() else None))
    return requests


def show_request(endpoint, facts, fields, archive):
    print(f"\n{facts['number']}. {endpoint}: status {facts['status']}, {len(fields)} fields")
    for name in SHOWN:
        if fields.get(name):
            print(f"     {name:16} {fields[name]}")
    if archive is not None:
        print(f"   archive, {archive.stat().st_size:,} bytes:")
        with zipfile.ZipFile(archive) as opened:
            for entry in opened.infolist():
                print(f"     {entry.file_size:>10,} bytes  {entry.filename}")


def exception_code(dump):
    """The code in the exception stream of a minidump; None when it has none."""
    if dump[:4] != b"MDMP":
        return None
    count, directory = struct.unpack_from("<II", dump, 8)
    for index in range(count):
        kind, _, offset = struct.unpack_from("<III", dump, directory + 12 * index)
        if kind == EXCEPTION_STREAM:
            return struct.unpack_from("<I", dump, offset + 8)[0]
    return None


def check_archive(archive, guid, fields, feedback):
    with zipfile.ZipFile(archive) as opened:
        check(opened.testzip() is None, "the archive is damaged")
        names = opened.namelist()
        dump = f"{guid}.dmp"
        check(names[:2] == ["CrashReport.xml", dump], f"the archive begins with {names[:2]}")
        for name in ("client.log", "engine.log", "config.ini"):
            check(name in names, f"{name} is not in the archive")
        if wrong:
            return
        check(exception_code(opened.read(dump)) == ACCESS_VIOLATION, "the dump tells of no access violation")
        # Its declaration names a code page that the parser does not know; the demo's texts are plain letters.
        text = opened.read("CrashReport.xml").split(b"?>", 1)[1].decode("ascii", "replace")
        report = ElementTree.fromstring(text)
    check(report.get("Project") == "BRENN", "the report is for another project")
    check(report.findtext("Exception/DumpGuid") == guid, "the report is of another crash")
    check(report.findtext("Exception/ExceptionCode") == "0xc0000005", "the report tells of no access violation")
    check(report.findtext("Product/ProductVersion") == "1.0.8.2_SVN", "the report has another version")
    check(len(report.findall("Modules/Module")) > 3, "the report has no modules")
    check("scene=harbour" in [one.text for one in report.findall("Custom/CustomInfo")], "the client's line is missing")
    check(fields.get("remark") == feedback or feedback is None, f"the feedback is {fields.get('remark')!r}")


def check_requests(requests, guid, dialog, feedback):
    expected = ["playerlogin", "session", "dumpinfo"] + ["dumptype"] * dialog + ["dumpfile"]
    came = [endpoint for endpoint, *_ in requests]
    check(came == expected, f"expected were {', '.join(expected)}; there came {', '.join(came) or 'nothing'}")
    check(all(facts["status"] == 200 for _, facts, *_ in requests), "a request was refused")
    for endpoint, _, fields, archive in requests:
        check(fields.get("project") == "BRENN", f"{endpoint} is for another project")
        if endpoint in ("dumpinfo", "dumpfile"):
            check(fields.get("guid") == guid, f"{endpoint} is of another crash")
        if endpoint == "dumpinfo":
            check(fields.get("rolename") == "Harbourmaster", "the last login is missing")
            check(fields.get("exceptionmodule") == "BRENNClientX64.exe", "the crashed module is another one")
        if endpoint == "dumpfile":
            check_archive(archive, guid, fields, feedback)


def check_player_side(game, declined):
    programs = game / "bin64"
    left = [*programs.glob("Crash_*.zip"), *programs.glob("crashes/*.dmp"), *programs.glob("crashes/*.xml")]
    check(not left, "left on the player's disk: " + ", ".join(path.name for path in left))
    logs = sorted(programs.glob("logs/Crashvane/*/*.log"))
    check(logs, "the sender wrote no log")
    for log in logs:
        print(f"\nlog of the run: {log}")
    if declined:
        print("\nYou declined: the dump was not sent, and nothing of it is left on the disk.")


def check_answers(game):
    """What the script chose in the dialog must have happened: solution shown, game restarted."""
    told = wait_for(game / "Mendwell.txt", '-crash "3=(k=')
    check(told, "the repair tool was not started for the crash")
    check(wait_for(game / "bin64/crashes/client.log", "how=none"), "the game was not started again")
    if told:
        print(f"\nrepair tool started as: {told.strip()}")


def wait_for(path, text):
    """The file's text once it holds the given one; None when that does not come to pass."""
    for _ in range(300):
        content = path.read_text("latin-1") if path.exists() else ""
        if text in content:
            return content
        time.sleep(0.1)
    return None


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder", type=Path)
    parser.add_argument("--answered")
    parser.add_argument("--dialog", action="store_true")
    options = parser.parse_args()

    said = (options.folder / "client.txt").read_text("latin-1")
    guid = re.search(r"report .*\\(\{[-0-9A-F]+\})\.xml", said)
    check(guid, f"the client did not write its report: {said.strip() or 'it said nothing'}")
    check("sender ended with 0" in said, f"the sender did not end well: {said.strip()}")
    requests = read_requests(options.folder / "received")
    for request in requests:
        show_request(*request)

    declined = options.dialog and not any(endpoint == "dumpfile" for endpoint, *_ in requests)
    if guid and not declined:
        feedback = options.answered if options.answered is not None else None if options.dialog else ""
        check_requests(requests, guid.group(1), options.dialog or options.answered is not None, feedback)
    check_player_side(options.folder / "game", declined)
    if options.answered is not None:
        check_answers(options.folder / "game")

    for text in wrong:
        print(f"demo: {text}", file=sys.stderr)
    if not wrong and not declined:
        print("\nEverything arrived, and says the same on both sides.")
    return 1 if wrong else 0


sys.exit(main())
