"""Keeps each request in a folder of its own on disk and reads them back.

    <folder>/0001-dumpinfo/request.json   number, endpoint, moment, status answered, refusal, the sender's file name
                           fields.json    field name -> text (absent when the request was refused)
                           archive.zip    the uploaded file, only with a dump package

A folder appears under its final name only when it is complete.
"""
import json
import os
import re
import threading
import time
import zipfile
from pathlib import Path

NAME = re.compile(r"(\d{4,})-[a-z]+$")


class Store:
    """Shared by the server's threads. Numbers go on where an earlier run in the same folder stopped."""

    def __init__(self, folder):
        self.folder = Path(folder).resolve()
        self.folder.mkdir(parents=True, exist_ok=True)
        self._lock = threading.Lock()
        # Half-made folders of a receiver that was killed keep their numbers.
        taken = [NAME.match(entry.name.lstrip(".")) for entry in self.folder.iterdir()]
        self._last = max((int(match.group(1)) for match in taken if match), default=0)

    def keep(self, endpoint, status, form=None, refused=None):
        with self._lock:
            self._last += 1
            number = self._last
        name = f"{number:04}-{endpoint.name}"
        folder = self.folder / f".{name}"
        folder.mkdir()
        request = {"number": number, "endpoint": endpoint.name, "received": time.time(), "status": status}
        if refused is not None:
            request["refused"] = refused
        if form is not None:
            write_json(folder / "fields.json", form.fields)
        if form is not None and form.file is not None:
            request["file_name"] = form.file_name
            (folder / "archive.zip").write_bytes(form.file)
        write_json(folder / "request.json", request)
        os.rename(folder, self.folder / name)

    def all(self):
        """Every request, oldest first."""
        return [Request(folder) for _, folder in sorted(self._folders())]

    def archive(self, number):
        for found, folder in self._folders():
            if found == number and (folder / "archive.zip").is_file():
                return folder / "archive.zip"
        return None

    def _folders(self):
        for folder in self.folder.iterdir():
            match = NAME.match(folder.name)
            if match and (folder / "request.json").is_file():
                yield int(match.group(1)), folder


class Request:
    """One kept request as the page shows it."""

    def __init__(self, folder):
        facts = json.loads((folder / "request.json").read_text("utf-8"))
        self.number, self.endpoint, self.status = facts["number"], facts["endpoint"], facts["status"]
        self.refused, self.file_name = facts.get("refused"), facts.get("file_name")
        self.received = time.strftime("%Y-%m-%d %H:%M:%S", time.localtime(facts["received"]))
        fields = folder / "fields.json"
        self.fields = json.loads(fields.read_text("utf-8")) if fields.is_file() else {}
        self.entries = entries(folder / "archive.zip")


def entries(archive):
    """Name, size and packed size of each file in an archive; None without one that can be read."""
    try:
        with zipfile.ZipFile(archive) as opened:
            return [(info.filename, info.file_size, info.compress_size) for info in opened.infolist()]
    except (OSError, zipfile.BadZipFile):
        return None


def write_json(path, value):
    path.write_text(json.dumps(value, ensure_ascii=False, indent=1) + "\n", "utf-8")
