"""A bare socket server that records requests byte for byte and answers, or misbehaves, as a test says.

    raw_server.on("/dumpserver/dumpinfo.php", Behaviour(answer=b"HTTP/1.1 500 No\\r\\n\\r\\n"))
    raw_server.at_accept.append(hang_up)              # the next connection is closed before anything is read
    run(...)
    raw_server.requests[0].body                       # bytes

Without a behaviour a request is answered with 200 and "OK". Every connection carries one request.
"""
import re
import socket
import struct
import threading
from dataclasses import dataclass, field

LIMIT = 60


def response(body=b"OK", status="200 OK", headers=b""):
    """A whole answer with the right length."""
    length = b"Content-Length: %d\r\n" % len(body)
    return b"HTTP/1.1 " + status.encode() + b"\r\n" + length + b"Connection: close\r\n" + headers + b"\r\n" + body


@dataclass
class Behaviour:
    """What happens to one request."""
    answer: bytes = response()
    read: int = None  # how many bytes of the body are read before the answer; None reads all
    reset: bool = False  # the connection ends with a reset instead of an orderly close
    early: bytes = b""  # sent before the body is read


@dataclass
class RawRequest:
    head: bytes  # request line and headers with the empty line behind them
    body: bytes = b""
    done: threading.Event = field(default_factory=threading.Event)

    @property
    def line(self):
        return self.head.split(b"\r\n", 1)[0].decode("latin-1")

    @property
    def path(self):
        """The path, also of a request that came as to a proxy."""
        return re.sub(r"^http://[^/]*", "", self.line.split(" ")[1])

    def header(self, name):
        match = re.search(rb"(?im)^" + name.encode() + rb":[ \t]*(.*?)\r$", self.head)
        return match and match.group(1).decode("latin-1")


class RawServer:
    def __init__(self):
        self.requests = []
        self.at_accept = []  # functions of the connection; each is used for one connection, in order
        self._by_path = {}
        self._listener = socket.create_server(("127.0.0.1", 0), backlog=64)
        self.port = self._listener.getsockname()[1]
        self.url = f"http://127.0.0.1:{self.port}"
        self._threads = [threading.Thread(target=self._accept, daemon=True)]
        self._threads[0].start()

    def on(self, path, behaviour):
        self._by_path[path] = behaviour

    def end(self):
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()
        for thread in self._threads:
            thread.join(LIMIT)

    def _accept(self):
        while True:
            try:
                connection, _ = self._listener.accept()
            except OSError:
                return
            first = self.at_accept.pop(0) if self.at_accept else self._serve
            thread = threading.Thread(target=self._one, args=(connection, first), daemon=True)
            self._threads.append(thread)
            thread.start()

    @staticmethod
    def _one(connection, serve):
        connection.settimeout(LIMIT)
        try:
            serve(connection)
        except OSError:
            pass  # the program went away or was sent away; tests look at what was recorded
        finally:
            connection.close()

    def _serve(self, connection):
        got = b""
        while b"\r\n\r\n" not in got:
            piece = connection.recv(65536)
            if not piece:
                return
            got += piece
        head, _, body = got.partition(b"\r\n\r\n")
        request = RawRequest(head + b"\r\n\r\n", body)
        self.requests.append(request)
        behaviour = self._by_path.get(request.path, Behaviour())
        connection.sendall(behaviour.early)
        announced = int(request.header("Content-Length") or 0)
        request.body = read_on(connection, body, announced if behaviour.read is None else behaviour.read)
        request.done.set()
        if behaviour.reset:
            connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        connection.sendall(behaviour.answer)


def read_on(connection, body, wanted):
    pieces, count = [body], len(body)
    while count < wanted:
        piece = connection.recv(1 << 20)
        if not piece:
            break
        pieces.append(piece)
        count += len(piece)
    return b"".join(pieces)


def hang_up(connection):
    """Closes without reading."""


def reset(connection):
    """Ends the connection with a reset, without reading."""
    connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
