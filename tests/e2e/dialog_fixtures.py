"""Fixtures of the tests that show windows: one desktop for all of them, made when the first one asks for it."""
import pytest

import crashvane
from windows import STAND_INS, Desktop


@pytest.fixture(scope="session")
def desktop_of_session():
    stand_ins = (STAND_INS / name for name in ("windowdriver.exe", "recorder.exe", "dialoghost.exe"))
    for needed in (crashvane.PROGRAM, *stand_ins):
        if not needed.exists():
            pytest.fail(f"{needed} is missing: build it first", pytrace=False)
    made = Desktop()
    yield made
    made.end()


@pytest.fixture
def desktop(desktop_of_session):
    """The desktop at 100 %, without any program of ours when the test begins and when it has ended."""
    desktop_of_session.set_dots(96)
    yield desktop_of_session
    desktop_of_session.end_runs()
