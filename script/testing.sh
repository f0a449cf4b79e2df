# Shared by the scripts that run tests; sourced after common.sh. prepare_tests PRESET comes first, verdict last.
failed=()

# A display, an English and a Chinese Wine prefix with their servers, and a folder for what tests leave.
prepare_tests() {
    trap clean_up EXIT
    wine_environment
    virtual_display
    wine_start en_US
    wine_start zh_CN
    build=$root/build/$1
    export WINEPREFIX=$wine_root/en_US CRASHVANE_WINEPREFIX_ZH=$wine_root/zh_CN CRASHVANE_WINE_ROOT=$wine_root
    export CRASHVANE_BUILD=$build
    export TMPDIR=$root/build/tmp
    rm -rf "$TMPDIR"
    mkdir -p "$TMPDIR"
}

# On a busy machine Wine's server now and then hangs up on a program, which then ends in the middle of its work. So what
# fails is run up to twice more, and the runners' closing lines say that it was. What fails three times has failed.
unit_tests() { # LOCALE
    say "unit tests, $1"
    LC_ALL=$1.UTF-8 WINEPREFIX=$wine_root/$1 ctest --test-dir "$build" --output-on-failure --repeat until-pass:3 \
        </dev/null || failed+=("unit tests, $1")
}

python_tests() { # FOLDER ARGUMENTS
    say "$1"
    LC_ALL=C.UTF-8 /usr/bin/python3 -m pytest -q -p no:cacheprovider --reruns 2 --durations=5 "$@" </dev/null ||
        failed+=("$1")
}

verdict() {
    [ ${#failed[@]} -gt 0 ] || return 0
    printf 'FAILED: %s\n' "${failed[@]}"
    exit 1
}
