#!/bin/sh
# Builds everything and runs all tests, then those with threads again under the thread sanitizer.
# With --all, all tests run under the address and undefined behaviour sanitizers, without them only those that need to be
# (they count allocations or look at what is installed), and clang-tidy reads all sources.
set -eu
cd "$(dirname "$0")"

all=no
case "${1-}" in
    "") ;;
    --all) all=yes ;;
    *)
        echo "usage: ./test.sh [--all]" >&2
        exit 2
        ;;
esac

. tools/packages.sh
# shellcheck disable=SC2086
sh tools/install-packages.sh $TEST_PACKAGES
jobs=$(nproc)
begin=$(date +%s)

step() { printf '\n== %s (after %d s)\n' "$*" "$(($(date +%s) - begin))"; }

step "source format"
find src tests benchmarks -name '*.h' -o -name '*.cpp' | xargs -r -n 40 -P "$jobs" clang-format --dry-run -Werror

log=$(mktemp)
trap 'rm -f "$log"' EXIT

build() { # preset, further arguments of the build
    step "build $1"
    if ! { cmake --preset "$1" && cmake --build --preset "$@" -j "$jobs"; } >"$log" 2>&1; then
        grep -A 8 'error' "$log" || tail -n 60 "$log"
        exit 1
    fi
}

run_tests() { # preset, further arguments of ctest
    step "tests $1"
    # The system tests wait more than they work.
    ctest --preset "$@" -j $((jobs + 1))
}

if [ "$all" = yes ]; then
    # One build less: what the sanitizers see needn't be seen without them too.
    build dev --target ZyrLibraryTests ZyrPlatformTests zyrnode zyrctl
    run_tests dev -R '^(ZyrLibraryTests|ZyrPlatformTests|ZyrInstallTest)$'
    build asan-ubsan
    export ZYR_WALK_CALLS=100000
    run_tests asan-ubsan
else
    build dev
    run_tests dev
fi

threaded='ZyrLibraryTests ZyrPlatformTests ZyrSimulationTests ZyrGatewayTests'
# shellcheck disable=SC2086
build tsan --target $threaded zyrnode zyrctl
run_tests tsan -R '^(ZyrLibraryTests|ZyrPlatformTests|ZyrSimulationTests|ZyrGatewayTests|ZyrSystemTests.*)$'

if [ "$all" = yes ]; then
    if command -v arm-linux-gnueabihf-g++ >/dev/null; then
        build armhf
    else
        step "no build for 32 bits: g++-arm-linux-gnueabihf is not installed"
    fi
    step "clang-tidy"
    # shellcheck disable=SC2086
    sh tools/install-packages.sh $TIDY_PACKAGES
    python3 tools/tidy.py
fi
step "done"
