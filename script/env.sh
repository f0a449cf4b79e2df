# Sourced, for work by hand on one room: `source script/env.sh <name>` gives a build folder and a Wine prefix of its own.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export BUILD=$root/build/dev-${1:-main}
export WINEPREFIX=$root/build/wine-${1:-main}
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
export PATH=/usr/lib/wine:$PATH
if [ ! -d "$WINEPREFIX" ]; then
    mkdir -p "$WINEPREFIX"
    wine64 wineboot -i >/dev/null 2>&1
fi
wineserver -p >/dev/null 2>&1 || true
