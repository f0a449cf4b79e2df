"""Reads what the tests ask of a minidump: its streams, the crash, the modules, the crashed thread."""
import struct

THREADS, MODULES, EXCEPTION = 3, 4, 6
THREAD_SIZE, MODULE_SIZE = 48, 108


class Minidump:
    """code, address and thread_id of the crash; threads: ids; modules: path -> load address."""

    def __init__(self, content):
        assert content[:4] == b"MDMP", "no minidump"
        self._content = content
        count, directory = struct.unpack_from("<II", content, 8)
        entries = [struct.unpack_from("<III", content, directory + 12 * index) for index in range(count)]
        self._streams = {kind: (size, offset) for kind, size, offset in entries if kind}
        self.thread_id, self.code, self.address = self._exception()
        self.threads = [struct.unpack_from("<I", content, at)[0] for at in self._list(THREADS, THREAD_SIZE)]
        self.modules = dict(map(self._module, self._list(MODULES, MODULE_SIZE)))

    def _exception(self):
        _, offset = self._streams[EXCEPTION]
        thread_id, code, address = struct.unpack_from("<I4xI4x8xQ", self._content, offset)
        return thread_id, code, address

    def _list(self, kind, size):
        length, offset = self._streams[kind]
        count, = struct.unpack_from("<I", self._content, offset)
        assert 4 + count * size <= length
        return [offset + 4 + index * size for index in range(count)]

    def _module(self, at):
        base, = struct.unpack_from("<Q", self._content, at)
        name, = struct.unpack_from("<I", self._content, at + 20)
        length, = struct.unpack_from("<I", self._content, name)
        return self._content[name + 4:name + 4 + length].decode("utf-16-le"), base
