#!/bin/sh
# Runs the fuzz targets with libFuzzer under the address and undefined behaviour sanitizers, one after the other:
#     tools/fuzz.sh MINUTES [TARGET...]
# The minutes are shared among them. What has been found new is kept between runs in build/fuzz/corpus, what breaks a
# property in build/fuzz/findings; then the exit status is 1. Such an input goes, as small as can be, into
# tests/fuzz/seeds, where every run of the tests takes it, and what it shows gets a test of its own.
set -eu
cd "$(dirname "$0")/.."

minutes=${1-}
case "$minutes" in
    '' | *[!0-9]*)
        echo "usage: tools/fuzz.sh MINUTES [TARGET...]" >&2
        exit 2
        ;;
esac
shift

. tools/packages.sh
# shellcheck disable=SC2086
sh tools/install-packages.sh $TEST_PACKAGES $FUZZ_PACKAGES
cmake --preset fuzz >/dev/null
if [ $# -eq 0 ]; then
    cmake --build --preset fuzz --target ZyrFuzzTargets -j "$(nproc)"
    for dictionary in tests/fuzz/dictionaries/*.dict; do
        set -- "$@" "$(basename "$dictionary" .dict)"
    done
else
    cmake --build --preset fuzz --target "$@" -j "$(nproc)"
fi

seconds=$((minutes * 60 / $#))
findings=build/fuzz/findings
mkdir -p "$findings"
status=0
for target in "$@"; do
    corpus=build/fuzz/corpus/$target
    log=build/fuzz/$target.log
    mkdir -p "$corpus"
    # A slow input is no finding before it takes as long as a hanging one.
    if "build/fuzz/bin/$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -max_len=16384 \
        -dict="tests/fuzz/dictionaries/$target.dict" -artifact_prefix="$findings/$target-" -print_final_stats=1 \
        "$corpus" "tests/fuzz/seeds/$target" >"$log" 2>&1 </dev/null; then
        result="nothing found"
    else
        result="BROKEN, see $log"
        status=1
    fi
    printf '%-22s %6s s %9s inputs  %s\n' "$target" "$seconds" \
        "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" "$result"
done
if [ "$status" != 0 ]; then
    echo "Findings are kept in $findings:"
    ls "$findings"
fi
exit "$status"
