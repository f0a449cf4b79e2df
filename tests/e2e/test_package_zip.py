"""The zip file that is shipped: what is in it, that it runs where it is unpacked, and that none is made by mistake."""
import os
import re
import subprocess
import zipfile

import pytest

import crashvane
from crashvane import run
from reports import write_report
from wine import ROOT

BUILD = crashvane.PROGRAM.parent
VERSION = re.search(r"^project\(Crashvane VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text(), re.M).group(1)
NAME = f"Crashvane-{VERSION}-win64"
URL_KEYS = {"DumpFileUrl", "DumpInfoUrl", "PlayerLoginUrl", "SessionUrl", "DumpSolutionUrl"}


def pack(to, **allowed):
    """Packs the built program into a folder, leaving the build folder alone."""
    environ = {name: value for name, value in os.environ.items() if name != "CRASHVANE_ALLOW_LOCAL_HOST"}
    return subprocess.run(["cpack", "--config", str(BUILD / "CPackConfig.cmake"), "-B", str(to)],
                          env={**environ, **allowed}, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


@pytest.fixture(scope="module")
def package(tmp_path_factory):
    """The zip file of the program under test."""
    folder = tmp_path_factory.mktemp("package")
    packed = pack(folder, CRASHVANE_ALLOW_LOCAL_HOST="ON")
    assert packed.returncode == 0, packed.stdout
    return folder / f"{NAME}.zip"


@pytest.fixture
def unpacked(package, tmp_path):
    """The package in a folder with blanks and Chinese characters."""
    folder = tmp_path / "我的 游戏 folder"
    folder.mkdir()
    subprocess.run(["unzip", "-q", str(package), "-d", str(folder)], check=True)
    return folder / NAME


def test_holds_program_settings_documents_and_notices(package):
    with zipfile.ZipFile(package) as archive:
        assert archive.testzip() is None
        names = {name.removeprefix(f"{NAME}/") for name in archive.namelist() if not name.endswith("/")}
    documents = {f"docs/{path.name}" for path in (ROOT / "docs").glob("*.md")}
    pictures = {f"docs/images/{path.name}" for path in (ROOT / "docs/images").glob("*.png")}
    assert names == {"Crashvane.exe", "Crashvane.cfg", "README.md", "CHANGELOG.md", "THIRD-PARTY.txt",
                     *documents, *pictures}


def test_the_program_is_the_one_that_was_built(unpacked):
    assert (unpacked / "Crashvane.exe").read_bytes() == crashvane.PROGRAM.read_bytes()


def test_the_notices_name_everything_that_is_linked_in(unpacked):
    notices = (unpacked / "THIRD-PARTY.txt").read_text(encoding="utf-8")
    for name in ("TinyXML", "zlib", "mingw-w64 runtime", "winpthreads", "GCC runtime libraries", "Cinzel", "DejaVu",
                 "Noto Serif CJK"):
        assert name in notices, name
    # The texts that the linked libraries themselves carry.
    deps = ROOT / "build/deps"
    assert (deps / "zlib/LICENSE").read_text(encoding="utf-8").strip("\n") in notices
    assert "1. The origin of this software must not be misrepresented" in notices


def test_runs_from_where_it_is_unpacked(unpacked, receiver):
    settings = unpacked / "Crashvane.cfg"
    shipped = settings.read_bytes()
    settings.write_bytes(for_server(shipped, receiver.url))
    write_report(unpacked)
    before = crashvane.files_of(unpacked)
    # The characters of the path are ones of code page 936.
    result = run(unpacked, ["-f", "CrashReport.xml", "-d", "-b"], code_page=936)
    assert result.exit_code == 0
    assert [one.endpoint for one in receiver.requests] == ["dumpinfo", "dumpfile"]
    assert before - result.files == {"CrashReport.xml", "crash.dmp"}
    with zipfile.ZipFile(receiver.requests[-1].archive) as archive:
        assert archive.namelist() == ["CrashReport.xml", "crash.dmp"]
        assert archive.read("crash.dmp") == b"MDMP not a real one"


def for_server(settings, url):
    """The shipped settings as an integrator changes them: every address at his server, his project's key."""
    lines, done = [], set()
    for line in settings.decode("cp936").splitlines():
        match = re.match(r";? ?(\w+)=(?:http://[^/]+)?(.*)", line)
        if match and match.group(1) in URL_KEYS - done:
            done.add(match.group(1))
            line = f"{match.group(1)}={url}{match.group(2)}"
        elif match and match.group(1) == "Project":
            done.add("Project")
            line = "Project=QRL"
        lines.append(line)
    assert done == URL_KEYS | {"Project"}
    return "".join(f"{line}\r\n" for line in lines).encode("cp936")


def test_a_program_for_the_local_machine_is_not_packed(tmp_path):
    if re.search(r"^CRASHVANE_ALLOW_LOCAL_HOST:BOOL=ON", (BUILD / "CMakeCache.txt").read_text(), re.M):
        pytest.fail("this build allows what is tested here; configure it without CRASHVANE_ALLOW_LOCAL_HOST")
    packed = pack(tmp_path)
    assert packed.returncode != 0
    assert "Not packaged: this program sends its reports to" in packed.stdout
    assert not list(tmp_path.glob("*.zip"))


def refusal(host, allowed="OFF"):
    """What the check says about a host; empty when it lets it pass."""
    environ = {name: value for name, value in os.environ.items() if name != "CRASHVANE_ALLOW_LOCAL_HOST"}
    check = ["cmake", f"-Dhost={host}", f"-Dallowed={allowed}", "-P", str(ROOT / "cmake/RefuseLocalHost.cmake")]
    checked = subprocess.run(check, env=environ, stderr=subprocess.PIPE, text=True)
    assert (checked.returncode != 0) == bool(checked.stderr)
    return checked.stderr


@pytest.mark.parametrize("host", ["localhost", "localhost:8787", "127.0.0.1", "127.0.0.1:8787", "127.8.9.10",
                                  "0.0.0.0:80", "[::1]", "[::1]:8787"])
def test_every_name_of_the_local_machine_is_refused(host):
    assert host in refusal(host)
    assert refusal(host, allowed="ON") == ""


@pytest.mark.parametrize("host", ["crashes.example.com", "crashes.example.com:8787", "127.example.com", "10.0.0.1",
                                  "localhost.example.com", "[2001:db8::1]:80"])
def test_other_hosts_pass(host):
    assert refusal(host) == ""


def test_the_program_holds_no_folder_of_the_machine_that_built_it():
    program = crashvane.PROGRAM.read_bytes()
    for folder in (str(ROOT), str(BUILD), os.path.expanduser("~/"), "/usr/"):
        assert folder.encode() not in program, folder
        assert folder.encode("utf-16-le") not in program, folder
