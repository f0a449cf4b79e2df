"""Rules that every file of the tree keeps, and facts that may stand in one place only."""
import re
from pathlib import Path

import pytest

import rules
import tree
from tree import ROOT, nothing, text

CONFIG = Path("src/driver/Config.cpp")


def offences(rule):
    """What a rule finds in all text files, one line each."""
    return [f"{path}:{number}: {what}" for path in tree.text_files() for number, what in rule(path, text(path))]


@pytest.mark.parametrize("rule", rules.ALL, ids=[rule.__name__ for rule in rules.ALL])
def test_every_text_file_keeps_the_rule(rule):
    nothing(offences(rule))


@pytest.mark.parametrize("rule,path,planted,number", rules.PLANTED,
                         ids=[f"{rule.__name__}-{path}" for rule, path, _, _ in rules.PLANTED])
def test_a_planted_offence_is_found(rule, path, planted, number):
    assert [found for found, _ in rule(Path(path), planted)] == [number]


def test_the_version_number_stands_once():
    version = re.compile(rf"(?<![\d.]){re.escape(tree.version())}(?![\d.])")
    told = [str(path) for path in tree.text_files()
            if path.suffix not in (".md", ".svg") and version.search(text(path))]
    assert told == ["CMakeLists.txt"]


def test_the_change_log_begins_with_the_version():
    headings = re.findall(r"^## (\S+)", text(Path("CHANGELOG.md")), re.M)
    assert headings[0] == tree.version()


def rows_below(heading, path="README.md"):
    """The first cells of the table below a heading."""
    part = re.search(rf"^##+ {heading}\n(.*?)(?=^##? |\Z)", text(Path(path)), re.M | re.S).group(1)
    return re.findall(r"^\| `([^`]+)`", part, re.M)


def test_the_option_table_is_the_programs():
    letters = re.search(r'OPTIONS\[\] = "([^"]+)"', text(CONFIG)).group(1)
    wanted = {f"-{letter}": bool(colon) for letter, colon in re.findall(r"([a-z])(:?)", letters)}
    told = {row.split(" ")[0]: " " in row for row in rows_below("Options")}
    assert told == wanted


def settings_keys():
    return re.findall(r'ReadProfile\w+\(strPath, SETTINGS_SECTION, "(\w+)"', text(CONFIG))


def test_the_settings_table_is_the_programs():
    assert rows_below("Settings") == settings_keys()


def test_the_settings_file_explains_every_key():
    lines = text(Path("src/driver/Crashvane.cfg")).splitlines()
    assert "[Crashvane]" in lines
    shown = [match.group(1) for match in (re.match(r";? ?(\w+)=", line) for line in lines) if match]
    assert sorted(set(shown)) == sorted(settings_keys())


def test_the_exit_codes_are_the_programs():
    names = set(re.findall(r"nExitCode = (\w+);", text(Path("src/driver/Main.cpp"))))
    assert names == {"EXIT_FAILURE", "EXIT_SUCCESS"}
    assert rows_below("Exit codes") == ["0", "1"]


def test_the_tables_of_requests_are_the_programs():
    defaults = set(re.findall(r'CRASHVANE_SERVER_HOST "(/[^"]+)"', text(CONFIG)))
    asked = defaults - {"/dump_api/get_solution"}  # has a key in the settings, and is never asked
    for page in ("docs/server.md", "docs/wire-format.md"):
        assert asked == set(re.findall(r"`(/dump\w+/\w+(?:\.php)?)`", text(Path(page)))), page


def test_the_project_keys_are_the_programs():
    headers = (ROOT / "src/collection").glob("*.h")
    keys = {key for path in headers for key in re.findall(r'ProjectKey = "(\w+)"', text(path.relative_to(ROOT)))}
    told = re.search(r"^## Project keys\n\n(.*?)Every other key", text(Path("docs/behaviour.md")), re.M | re.S)
    assert set(re.findall(r"`(\w+)`", told.group(1))) | {"QRL"} == keys
    assert len(keys) == 15


def test_everything_that_is_checked_is_text():
    unreadable = []
    for path in tree.text_files():
        try:
            text(path)
        except UnicodeDecodeError as error:
            unreadable.append(f"{path}: {error}")
    nothing(unreadable)


def test_no_script_is_left_without_its_right_to_run():
    scripts = [path for path in tree.files() if text_begins(path, b"#!")]
    nothing([str(path) for path in scripts if not (ROOT / path).stat().st_mode & 0o100])


def text_begins(path, mark):
    with open(ROOT / path, "rb") as file:
        return file.read(len(mark)) == mark
