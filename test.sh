#!/bin/sh
# Builds everything and runs all tests, then the tests that watch memory and threads under the sanitizers.
# With --quick the sanitizer builds are left out.
set -eu
cd "$(dirname "$0")"

quick=no
case "${1-}" in
    "") ;;
    --quick) quick=yes ;;
    *)
        echo "usage: ./test.sh [--quick]" >&2
        exit 2
        ;;
esac

. tools/packages.sh
# shellcheck disable=SC2086
sh tools/install-packages.sh $TEST_PACKAGES
jobs=$(nproc)

step() { printf '\n== %s\n' "$*"; }

step "source format"
find src tests benchmarks -name '*.h' -o -name '*.cpp' | xargs -r -n 40 -P "$jobs" clang-format --dry-run -Werror

run_tests() { # preset
    step "build $1"
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" -j "$jobs"
    step "tests $1"
    ctest --preset "$1"
}

run_tests dev
if [ "$quick" = no ]; then
    run_tests asan-ubsan
    run_tests tsan
fi
