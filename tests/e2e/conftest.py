"""Fixtures of the end-to-end tests: an installation folder, the real receiver, a raw server."""
import sys

sys.dont_write_bytecode = True

import shutil
import tempfile
from pathlib import Path

import pytest

import crashvane
import wine
from raw_server import RawServer
from receivers import Receiver


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    outcome = yield
    if outcome.get_result().failed:
        item.failed = True


def pytest_sessionfinish():
    wine.end()


@pytest.fixture
def folder(request):
    """A new installation folder with the program in it; it stays on disk when the test failed."""
    if not crashvane.PROGRAM.exists():
        pytest.fail(f"{crashvane.PROGRAM} is missing: build it first", pytrace=False)
    made = Path(tempfile.mkdtemp(prefix="crashvane-"))
    crashvane.install(made)
    yield made
    if not getattr(request.node, "failed", False):
        shutil.rmtree(made)


@pytest.fixture(scope="session")
def receiver_process():
    kept = tempfile.mkdtemp(prefix="crashvane-received-")
    process = Receiver(kept)
    yield process
    process.end()
    shutil.rmtree(kept)


@pytest.fixture
def receiver(receiver_process):
    """The real receiver with its own answers; .requests holds what came since the test began."""
    receiver_process.reset()
    yield receiver_process


@pytest.fixture
def raw_server():
    """A socket server that records bytes and misbehaves as told."""
    server = RawServer()
    yield server
    server.end()
