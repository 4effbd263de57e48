#!/bin/sh
# What the tests cover, as a table of the rooms with their bars; ends with 1 if a room is below:
#     tools/coverage.sh [--missing [PART_OF_A_PATH]]
# With --missing, the lines before the table that have something to be covered. Counted are the tests that tell what
# they expect, those that start the programs too; what random walks and fuzz targets come by is left out.
set -eu
cd "$(dirname "$0")/.."

python3 -B tools/coverage.py --check
. tools/packages.sh
# shellcheck disable=SC2086
sh tools/install-packages.sh $TEST_PACKAGES
tests='ZyrLibraryTests ZyrCommandTests ZyrPlatformTests ZyrSimulationTests ZyrRegistrationTests ZyrGatewayTests
    ClientTests ZyrWalkTests'
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# shellcheck disable=SC2086
if ! { cmake --preset coverage && cmake --build --preset coverage -j "$(nproc)" --target $tests zyrnode zyrctl; } \
    >"$log" 2>&1; then
    grep -A 8 'error' "$log" || tail -n 60 "$log"
    exit 1
fi
find build/coverage -name '*.gcda' -delete
GTEST_FILTER='-*WalkTest.*' ctest --preset coverage -E 'Fuzz$'
python3 -B tools/coverage.py build/coverage "$@"
