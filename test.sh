#!/bin/sh
# Builds everything and runs all tests. With --all, also: those with threads and the running node under the thread
# sanitizer, all tests under the address and undefined behaviour sanitizers, some under valgrind and compiled by clang,
# those of the library emulated on both Arm processors, the bars of the benchmarks, the binary interface, and clang-tidy
# over all sources.
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
packages=$TEST_PACKAGES
[ "$all" = no ] || packages="$packages $ALL_PACKAGES"
# shellcheck disable=SC2086
sh tools/install-packages.sh $packages
jobs=$(nproc)
log=$(mktemp)
times=$(mktemp)
trap 'rm -f "$log" "$times"' EXIT

stage=
begin=
end_stage() {
    [ -z "$stage" ] || printf '%6d s  %s\n' "$(($(date +%s) - begin))" "$stage" >>"$times"
}
begin_stage() {
    end_stage
    stage=$*
    begin=$(date +%s)
    printf '\n== %s\n' "$stage"
}

quietly() { # a build, of which only what went wrong is shown
    if ! "$@" >"$log" 2>&1; then
        grep -A 8 'error' "$log" || tail -n 60 "$log"
        exit 1
    fi
}

build() { # preset, further arguments of the build
    begin_stage "build $1"
    quietly cmake --preset "$1"
    quietly cmake --build --preset "$@" -j "$jobs"
}

run_tests() { # preset, further arguments of ctest
    begin_stage "tests $1"
    # The system tests wait more than they work.
    ctest --preset "$@" -j $((jobs + 1))
}

begin_stage "source format"
find src tests benchmarks -name '*.h' -o -name '*.cpp' | xargs -r -n 40 -P "$jobs" clang-format --dry-run -Werror

build dev
run_tests dev

if [ "$all" = yes ]; then
    build tsan --target ZyrLibraryTests ZyrPlatformTests ZyrSimulationTests ZyrGatewayTests zyrnode
    run_tests tsan -R '^(ZyrLibraryTests|ZyrPlatformTests|ZyrSimulationTests|ZyrGatewayTests|ZyrSystemTests.*)$'

    build asan-ubsan
    ZYR_WALK_CALLS=100000 run_tests asan-ubsan

    begin_stage "valgrind"
    for tests in ZyrLibraryTests ZyrRegistrationTests; do
        valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite --error-exitcode=1 \
            "build/dev/bin/$tests" --gtest_brief=1
    done

    build clang
    run_tests clang -R '^(ZyrLibraryTests|ZyrCommandTests|ZyrRegistrationTests|ZyrGatewayTests)$'

    for processor in armhf arm64; do
        begin_stage "library on $processor"
        if ! tools/cross.sh "$processor" >"$log" 2>&1; then
            tail -n 80 "$log"
            exit 1
        fi
    done

    build bench --target benchmark-programs
    begin_stage "bars of the benchmarks"
    cmake --build --preset bench --target benchmark-check
    begin_stage "binary interface"
    tools/abi.sh build/bench/lib*/libZyrZyrTopApi.so

    begin_stage "clang-tidy"
    python3 tools/tidy.py
fi
end_stage
echo
cat "$times"
