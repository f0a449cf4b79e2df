"""The rooms of src/ lean on each other one way only."""
import re
import shutil
from pathlib import Path

import pytest

import arrows
from arrows import ALLOWED, ROOMS
from tree import ROOT, nothing, text

SOURCE = ROOT / "src"


def test_every_include_goes_along_an_arrow():
    nothing(arrows.wrong_arrows(SOURCE))


def test_every_linked_library_goes_along_an_arrow():
    nothing(arrows.wrong_links(SOURCE))


def test_no_two_rooms_lean_on_each_other():
    done = set()
    while len(done) < len(ALLOWED):
        free = {room for room, others in ALLOWED.items() if room not in done and others <= done}
        assert free, f"the arrows go round in {sorted(set(ALLOWED) - done)}"
        done |= free


def test_every_folder_of_src_is_a_room():
    folders = {path.name for path in SOURCE.iterdir() if path.is_dir()}
    assert folders | {"config"} == set(ROOMS) == set(ALLOWED)


def test_the_architecture_page_has_the_same_arrows():
    rooms = re.search(r"^## Rooms\n(.*?)^## ", text(Path("docs/architecture.md")), re.M | re.S).group(1)
    rows = re.findall(r"^\| `(\w+)` \|([^|]*)\|", rooms, re.M)
    told = {room: set(re.findall(r"`(\w+)`", others)) for room, others in rows}
    assert told == ALLOWED


PLANTED = [
    ("util/Text.cpp", "log/Log.h", "util/Text.cpp (util) must not include log/Log.h (log)"),
    ("log/Log.cpp", "util/Files.h", "log/Log.cpp (log) must not include util/Files.h (util)"),
    ("zip/ZipWriter.cpp", "report/Records.h", "zip/ZipWriter.cpp (zip) must not include report/Records.h (report)"),
    ("collection/Collection.h", "driver/Config.h",
     "collection/Collection.h (collection) must not include driver/Config.h (config)"),
    ("driver/Config.cpp", "net/Requests.h", "driver/Config.cpp (config) must not include net/Requests.h (net)"),
    ("net/Requests.h", "ui/WinForm.h", "net/Requests.h (net) must not include ui/WinForm.h (ui)"),
    ("net/FormPostClient.cpp", "net/RequestRecords.h",
     "net/RequestRecords.h (net's HTTP client) must not include report/CrashReporter.h (report)"),
    ("net/AnswerRules.h", "report/Records.h",
     "net/AnswerRules.h (net's HTTP client) must not include report/Records.h (report)"),
    ("ui/WinForm.cpp", "driver/Restart.h", "ui/WinForm.cpp (ui) must not include driver/Restart.h (driver)"),
    ("ui/WinForm.cpp", "ZCrashRepair.h", 'ui/WinForm.cpp: "ZCrashRepair.h" is not written from src/, or is not there'),
]


@pytest.mark.parametrize("file,header,line", PLANTED, ids=[f"{file}-{header}" for file, header, _ in PLANTED])
def test_finds_a_planted_include(tmp_path, file, header, line):
    planted = tmp_path / "src"
    shutil.copytree(SOURCE, planted, ignore=shutil.ignore_patterns("art"))
    path = planted / file
    path.write_text(f'{path.read_text(encoding="utf-8")}\n#include "{header}"\n', encoding="utf-8")
    assert line in arrows.wrong_arrows(planted)


def test_finds_a_planted_library(tmp_path):
    (tmp_path / "zip").mkdir()
    (tmp_path / "zip/CMakeLists.txt").write_text(
        "target_link_libraries(crashvane_zip PUBLIC\n  crashvane_util crashvane_net)\n", encoding="utf-8")
    assert arrows.wrong_links(tmp_path) == ["zip/CMakeLists.txt: crashvane_zip must not link crashvane_net"]
