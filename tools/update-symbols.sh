#!/bin/sh
# Writes tests/install/symbols.txt, what the library shows, from the library of a preset: release unless another is
# given.
set -eu
cd "$(dirname "$0")/.."
tools/list-symbols.py "build/${1:-release}/lib/libZyrZyrTopApi.so" >tests/install/symbols.txt
