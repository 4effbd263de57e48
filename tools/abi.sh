#!/bin/sh
# Compares what the library promises in binary (symbols, sizes, places of members and virtual functions) with the last
# dump in the tree. What was only added passes; anything else needs a new SOVERSION, and with it a new dump.
#
# usage: tools/abi.sh LIBRARY              compares; LIBRARY has to be built with -g
#        tools/abi.sh --update LIBRARY     writes the dump anew
set -eu
dump=$(dirname "$0")/../abi/libZyrZyrTopApi.abi

case "$#:${1-}" in
    2:--update) update=yes library=$2 ;;
    1:*) update=no library=$1 ;;
    *)
        sed -n 's/^# usage: /usage: /p; s/^#  \( *tools\)/  \1/p' "$0" >&2
        exit 2
        ;;
esac

if [ "$update" = yes ]; then
    mkdir -p "$(dirname "$dump")"
    # Neither places in sources nor the names of the machine's folders are part of a promise.
    abidw --no-show-locs --no-comp-dir-path --no-corpus-path --exported-interfaces-only "$library" |
        sed -E "s,path='[^']*/(build/[^/]*/)?src/,path='src/," >"$dump"
    exit
fi

if abidiff --no-added-syms --no-show-locs --exported-interfaces-only "$dump" "$library"; then
    echo "The binary interface is that of abi/$(basename "$dump")."
else
    cat >&2 <<'END'

The binary interface is no longer that of the last release: a program that was linked against it may break.
Either take the change back, or raise the major version of the project (it is the SOVERSION), and write the dump anew:
    tools/abi.sh --update LIBRARY
END
    exit 1
fi
