#!/bin/sh
# Writes docs/commands.md from the one list of commands.
set -eu
cd "$(dirname "$0")/.."
build/release/bin/zyrnode --print-reference >docs/commands.md
