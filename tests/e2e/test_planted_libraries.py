"""What lies beside the program under the name of a system library is not loaded."""
import os
import shutil
import subprocess

import pytest

from crashvane import PROGRAM, run
from reports import write_report, write_settings

COMPILER = "x86_64-w64-mingw32-gcc-posix"
PLANTED = """
#include <windows.h>
BOOL WINAPI DllMain(HINSTANCE hLibrary, DWORD dwReason, LPVOID pReserved) {
    (void)hLibrary; (void)pReserved;
    if (dwReason == DLL_PROCESS_ATTACH) {
        CloseHandle(CreateFileA("planted.txt", GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, 0, NULL));
    }
    return TRUE;
}
"""
# Without this Wine takes its own library whatever the program asks for. version.dll cannot be tried like that: Wine's
# own user32.dll is bound to it and would load the planted one for any program.
FOREIGN_FIRST = "mscoree,mshtml,winemenubuilder.exe=;wininet,comctl32,psapi,dbghelp,uxtheme=n,b"


@pytest.fixture(scope="module")
def planted(tmp_path_factory):
    folder = tmp_path_factory.mktemp("planted")
    (folder / "planted.c").write_text(PLANTED)
    subprocess.run([COMPILER, "-shared", "-o", folder / "planted.dll", folder / "planted.c"], check=True)
    return folder / "planted.dll"


@pytest.mark.parametrize("name", ["wininet", "comctl32", "psapi", "dbghelp", "uxtheme"])
def test_a_library_beside_the_program_is_not_loaded(folder, receiver, planted, name):
    write_report(folder)
    write_settings(folder, receiver.url)
    shutil.copy(planted, folder / f"{name}.dll")
    result = run(folder, ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"], env={"WINEDLLOVERRIDES": FOREIGN_FIRST})
    assert result.exit_code == 0
    assert result.files == {f"{name}.dll"}
    assert [one.endpoint for one in receiver.requests] == ["playerlogin", "session", "dumpinfo", "dumpfile"]


def test_such_a_library_would_be_loaded_by_a_program_bound_to_it(folder, planted):
    source = folder / "bound.c"
    source.write_text("#include <windows.h>\n#include <wininet.h>\n"
                      "int main(void) { return InternetCloseHandle(NULL) ? 1 : 0; }\n")
    subprocess.run([COMPILER, "-o", folder / "bound.exe", source, "-lwininet"], check=True)
    shutil.copy(planted, folder / "wininet.dll")
    # The plant lacks the function, of which Wine tells in a box where there is a display, and waits.
    result = run(folder, [], program="bound.exe", env={"WINEDLLOVERRIDES": FOREIGN_FIRST, "DISPLAY": ""})
    assert "planted.txt" in result.files


def test_the_program_is_bound_to_libraries_alone_that_the_system_always_takes_from_its_own_folder():
    # Windows keeps these names in its list of known libraries.
    known = {"advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "shell32.dll", "shlwapi.dll",
             "user32.dll", "ws2_32.dll"}
    listing = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", os.fspath(PROGRAM)], check=True, capture_output=True,
                             text=True).stdout
    bound = {line.split()[-1].lower() for line in listing.splitlines() if "DLL Name:" in line}
    assert bound and bound <= known
