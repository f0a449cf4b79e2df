"""Files held open by another Windows program, as a virus scanner or the crashed game itself would."""
import contextlib
import subprocess

import wine

SOURCE = wine.ROOT / "tests/e2e/helpers/hold.c"


def build(folder):
    """Compiles the holder into a folder."""
    program = folder / "hold.exe"
    subprocess.run(["x86_64-w64-mingw32-gcc", "-O1", "-o", str(program), str(SOURCE)], check=True, timeout=60)
    return program


@contextlib.contextmanager
def held(program, path, share):
    """share: "none" shares the file with nobody, "read" lets others read it."""
    holder = subprocess.Popen([wine.WINE, str(program), wine.windows_path(path), share], env=wine.environment(1252),
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    try:
        assert holder.stdout.readline().strip() == b"held"
        yield
    finally:
        holder.stdin.close()
        holder.wait(60)
        holder.stdout.close()
