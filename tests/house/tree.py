"""The working copy as the house tests see it: its files, their texts, the facts that stand in the code."""
import fnmatch
import re
import subprocess
from functools import lru_cache
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


@lru_cache
def files():
    """Every file that belongs to the project, relative, sorted: what git tracks, and what is new and not ignored."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                            stdout=subprocess.PIPE, check=True).stdout.decode()
    return sorted({Path(name) for name in listed.split("\0") if name and (ROOT / name).is_file()})


@lru_cache
def binary_patterns():
    lines = (ROOT / ".gitattributes").read_text(encoding="utf-8").splitlines()
    return [line.split()[0] for line in lines if line.split()[1:] == ["binary"]]


def is_binary(path):
    for pattern in binary_patterns():
        if fnmatch.fnmatch(f"/{path}" if "/" in pattern else path.name, pattern):
            return True
    return False


def text_files():
    return [path for path in files() if not is_binary(path)]


@lru_cache
def text(path):
    """A file's text; what .gitattributes does not call binary has to be UTF-8."""
    return (ROOT / path).read_bytes().decode("utf-8")


def headers():
    return [path for path in files() if path.parts[0] == "src" and path.suffix == ".h"]


def documents():
    return [path for path in files() if path.suffix == ".md"]


def version():
    return re.search(r"^project\(Crashvane VERSION ([\d.]+)", text(Path("CMakeLists.txt")), re.M).group(1)


def nothing(found):
    """Fails with one line for everything that was found."""
    assert not found, "\n" + "\n".join(map(str, found))
