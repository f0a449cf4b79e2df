# Shared by the scripts of this folder: where things are, how to end, and Wine prefixes of our own.
# A script sources it first; it ends up in the project's root.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
export PATH=$PATH:/usr/lib/wine:/usr/sbin:/sbin

die() { # one line that says what is wrong
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

say() { printf '== %s\n' "$*"; }

jobs() { nproc 2>/dev/null || echo 2; }
