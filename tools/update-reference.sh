#!/bin/sh
# Writes docs/commands.md from the one list of commands, by the program of a preset: release unless another is
# given.
set -eu
cd "$(dirname "$0")/.."
"build/${1:-release}/bin/zyrnode" --print-reference >docs/commands.md
