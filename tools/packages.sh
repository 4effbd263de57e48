# Debian packages by purpose; read by the scripts at the root.
# shellcheck shell=sh disable=SC2034
BUILD_PACKAGES="g++ cmake ninja-build pkgconf libmicrohttpd-dev libpugixml-dev libcurl4-openssl-dev libcrypt-dev libssl-dev
    nlohmann-json3-dev libcli11-dev"
RUN_PACKAGES="$BUILD_PACKAGES python3"
TEST_PACKAGES="$RUN_PACKAGES libgtest-dev libgmock-dev clang-format python3-jsonschema openssl zsh fish"
CROSS_PACKAGES="cmake ninja-build googletest qemu-user"
ALL_PACKAGES="$CROSS_PACKAGES g++-arm-linux-gnueabihf g++-aarch64-linux-gnu clang clang-tidy libbenchmark-dev valgrind
    abigail-tools"
FUZZ_PACKAGES="clang libclang-rt-14-dev"
