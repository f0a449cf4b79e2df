"""Which room of src/ may lean on which, and who leans on whom by #include and by CMake."""
import re
from pathlib import Path

ROOMS = ("util", "log", "report", "zip", "config", "collection", "net", "ui", "driver")

# Room -> rooms that it may include. docs/architecture.md has the same table, with reasons.
ALLOWED = {
    "util": set(),
    "log": set(),
    "report": {"util", "log"},
    "zip": {"util", "log"},
    "config": {"util", "log"},
    "collection": {"report", "util", "log"},
    "net": {"collection", "config", "zip", "report", "util", "log"},
    "ui": {"net", "collection", "config", "report", "util", "log"},
    "driver": {"ui", "net", "collection", "config", "zip", "report", "util", "log"},
}

# One header that every room may have: what differs between compilers.
FOR_EVERYBODY = "util/Compat.h"

# The HTTP client could be lifted out of the program: of its own room it knows its own files, and nothing above util.
CLIENT = ("FormPostClient", "MultipartBody", "AnswerRules")
CLIENT_ALLOWED = {"util", "log"}

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.M)
CODE = {".h", ".cpp", ".rc", ".in", ".c"}


def room_of(name):
    """The room of a file named from src/, such as "driver/Config.h"."""
    room, rest = name.split("/", 1)
    if room == "driver" and rest.startswith(("Config.", "OptionParser.")):
        return "config"
    return room


def includes(source):
    """(file from src/, header as written) of every quoted include below a src folder."""
    found = []
    for path in sorted(Path(source).rglob("*")):
        if path.is_file() and path.suffix in CODE:
            text = path.read_text(encoding="utf-8")
            found += [(path.relative_to(source).as_posix(), header) for header in INCLUDE.findall(text)]
    return found


def wrong_arrows(source):
    """One line a forbidden include, and one an include that is not written from src/."""
    source = Path(source)
    found = includes(source)
    closed = client_files(found)
    wrong = []
    for file, header in found:
        if is_part_of_script(source, file, header):
            continue
        if not (source / header).is_file():
            wrong.append(f'{file}: "{header}" is not written from src/, or is not there')
        elif not may_include(file, header, closed):
            own = "net's HTTP client" if file in closed else room_of(file)
            wrong.append(f"{file} ({own}) must not include {header} ({room_of(header)})")
    return wrong


def is_part_of_script(source, file, header):
    """Resource scripts name the parts beside them, one of which CMake makes."""
    return file.endswith(".rc") and (header == "version.rc" or (source / file).parent.joinpath(header).exists())


def may_include(file, header, closed):
    own, other = room_of(file), room_of(header)
    if header == FOR_EVERYBODY or (own == other and file not in closed):
        return True
    if file in closed:
        return other in CLIENT_ALLOWED or header in closed
    return other in ALLOWED.get(own, set())


def client_files(found):
    """The client's files and the headers of net that they pull in: all of them have to stay below."""
    closed = {file for file, _ in found if file.startswith("net/") and Path(file).stem in CLIENT}
    while True:
        more = {header for file, header in found if file in closed and header.startswith("net/")}
        more |= {file for file, _ in found if file.startswith("net/") and f"{file.split('.')[0]}.h" in closed | more}
        if more <= closed:
            return closed
        closed |= more


LINK = re.compile(r"target_link_libraries\(\s*crashvane_(\w+)([^)]*)\)")


def wrong_links(source):
    """Libraries that a room's CMakeLists.txt links against the arrows."""
    wrong = []
    for path in sorted(Path(source).rglob("CMakeLists.txt")):
        for room, libraries in LINK.findall(path.read_text(encoding="utf-8")):
            others = set(re.findall(r"crashvane_(\w+)", libraries)) & set(ROOMS)
            wrong += [f"{path.relative_to(source)}: crashvane_{room} must not link crashvane_{other}"
                      for other in sorted(others - ALLOWED.get(room, set(ROOMS)) - {room})]
    return wrong
