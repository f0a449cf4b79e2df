"""The real receiver (tools/receiver) as a process of its own, seen by tests."""
import json
import subprocess
import urllib.request
from dataclasses import dataclass
from pathlib import Path

from wine import ROOT

DIRECT = urllib.request.build_opener(urllib.request.ProxyHandler({}))


@dataclass
class Received:
    """One kept request; endpoint is "playerlogin", "session", "dumpinfo", "dumptype" or "dumpfile"."""
    number: int
    endpoint: str
    status: int
    fields: dict
    refused: str = None
    file_name: str = None
    archive: Path = None


class Receiver:
    """One receiver process; reset() hides what came before and takes back all answers."""

    def __init__(self, kept, *options):
        self.kept = Path(kept)
        self.process = subprocess.Popen(
            ["/usr/bin/python3", str(ROOT / "tools/receiver"), "--port", "0", "--folder", str(kept), *options],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.port = int(self.process.stdout.readline())
        self.url = f"http://127.0.0.1:{self.port}"
        self._seen = 0

    @property
    def requests(self):
        """What came since the test began, oldest first."""
        return [one for one in self._all() if one.number > self._seen]

    def answer(self, endpoint, **values):
        """Sets what an endpoint answers from now on: status=, body=, delay= (seconds), cut= (bytes sent), times=."""
        self._control("POST", {"endpoint": endpoint, **values})

    def reset(self):
        self._seen = max((one.number for one in self._all()), default=0)
        self._control("DELETE")

    def end(self):
        self.process.terminate()
        self.process.wait()
        self.process.stdout.close()

    def _all(self):
        folders = [path.parent for path in self.kept.glob("[0-9]*/request.json")]
        return sorted(map(read_request, folders), key=lambda one: one.number)

    def _control(self, method, values=None):
        body = json.dumps(values or {}).encode()
        request = urllib.request.Request(self.url + "/control/answers", body, {"Content-Type": "application/json"},
                                         method=method)
        DIRECT.open(request, timeout=60).close()


def read_request(folder):
    facts = json.loads((folder / "request.json").read_text("utf-8"))
    fields, archive = folder / "fields.json", folder / "archive.zip"
    return Received(facts["number"], facts["endpoint"], facts["status"],
                    json.loads(fields.read_text("utf-8")) if fields.exists() else {},
                    facts.get("refused"), facts.get("file_name"), archive if archive.exists() else None)
