#!/bin/sh
# Builds the library, the host platform and their tests for an Arm processor, and runs the tests in an emulator.
set -eu
cd "$(dirname "$0")/.."

. tools/packages.sh
case "${1-}" in
    armhf) compiler=g++-arm-linux-gnueabihf ;;
    arm64) compiler=g++-aarch64-linux-gnu ;;
    *)
        echo "usage: tools/cross.sh armhf|arm64" >&2
        exit 2
        ;;
esac
# shellcheck disable=SC2086
sh tools/install-packages.sh $CROSS_PACKAGES "$compiler"

cmake --preset "$1"
cmake --build --preset "$1" -j "$(nproc)"
ctest --preset "$1" -j "$(nproc)"
