# Shared by the scripts of this folder: where things are, how to end, a display and Wine prefixes of our own.
# A script sources it first; it ends up in the project's root.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
# Debian's programs first: another python3 or clang may stand earlier in the path and know none of the packages.
export PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin:/usr/lib/wine
export PYTHONDONTWRITEBYTECODE=1

wine_root=$root/build/wine
started_servers=()
started_processes=()

die() { # one line that says what is wrong
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

say() { printf '== %s\n' "$*"; }

processors() { nproc 2>/dev/null || echo 2; }

# Ends what this script started, and nothing else: wineservers by their prefix, other programs by their number.
clean_up() {
    local prefix number
    for prefix in ${started_servers[@]+"${started_servers[@]}"}; do
        WINEPREFIX=$prefix timeout 30 wineserver -k </dev/null >/dev/null 2>&1 || true
    done
    for number in ${started_processes[@]+"${started_processes[@]}"}; do
        kill "$number" 2>/dev/null || true
    done
}

# The environment of Wine programs: quiet, without offers to install Mono or Gecko, without menu entries.
wine_environment() {
    export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
    unset LANG LANGUAGE LC_CTYPE LC_MESSAGES http_proxy https_proxy no_proxy all_proxy
}

# wine_prefix LOCALE: makes build/wine/LOCALE when it is missing. The second and later ones share the big files of the
# first one's Windows folder by hard links.
wine_prefix() {
    local prefix=$wine_root/$1 first making
    [ ! -e "$prefix/system.reg" ] || return 0
    mkdir -p "$wine_root"
    rm -rf "$prefix"
    first=$(find "$wine_root" -mindepth 2 -maxdepth 2 -name system.reg | sort | head -n 1)
    making=$wine_root/.making-$1
    rm -rf "$making"
    if [ -n "$first" ]; then
        cp -al "$(dirname "$first")" "$making"
        find "$making" -type f -size -16k -exec sh -c 'cp -p "$1" "$1.own" && mv "$1.own" "$1"' _ {} \;
        for file in "$making"/*.reg; do
            cp -p "$file" "$file.own" && mv "$file.own" "$file"
        done
    else
        mkdir "$making"
        if ! LC_ALL=$1.UTF-8 WINEPREFIX=$making timeout 300 wine64 wineboot -i </dev/null >"$wine_root/$1.log" 2>&1; then
            die "Wine could not make a prefix (see build/wine/$1.log)"
        fi
        WINEPREFIX=$making timeout 60 wineserver -w </dev/null >/dev/null 2>&1 || true
    fi
    mv "$making" "$prefix"
}

# wine_start LOCALE: the prefix is there and its server stays until clean_up.
wine_start() {
    wine_prefix "$1"
    WINEPREFIX=$wine_root/$1 LC_ALL=$1.UTF-8 wineserver -p </dev/null >/dev/null 2>&1 || true
    started_servers+=("$wine_root/$1")
}

# A virtual display with a window manager, for this script alone.
virtual_display() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$number_file" </dev/null >/dev/null 2>&1 &
    started_processes+=($!)
    for _ in $(seq 300); do
        [ ! -s "$number_file" ] || break
        sleep 0.1
    done
    [ -s "$number_file" ] || die "Xvfb did not start"
    DISPLAY=:$(cat "$number_file")
    export DISPLAY
    rm -f "$number_file"
    openbox </dev/null >/dev/null 2>&1 &
    started_processes+=($!)
}
