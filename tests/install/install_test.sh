#!/bin/sh
# Installs a build into a folder of its own and builds a program against it, in both ways.
# usage: install_test.sh CMAKE BUILD CONSUMER COMPILER LIBDIR
set -eu
cmake=$1 build=$2 consumer=$3 compiler=$4 libdir=$5
here=$(dirname "$0")
expected="eTI_E_INVALID_ARGUMENT RadioChannelID out of bounds"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$cmake" --install "$build" --prefix "$folder/prefix" >/dev/null

# The library shows what the list says and nothing else.
"$here/../../tools/list-symbols.py" "$folder/prefix/$libdir/libZyrZyrTopApi.so" >"$folder/symbols"
diff -u "$here/symbols.txt" "$folder/symbols" || { echo "see tools/update-symbols.sh" >&2; exit 1; }

# Both libraries stay loaded, since others keep addresses of what stands in them, and nothing is searched for in the
# folder that a program happens to be started in.
for library in libZyrZyrTopApi.so libZyrPlatform.so; do
    readelf -d "$folder/prefix/$libdir/$library" | grep -q NODELETE || { echo "$library: unloads" >&2; exit 1; }
done
for file in "$build/$libdir"/*.so "$build"/bin/* "$folder/prefix/$libdir"/*.so "$folder"/prefix/bin/*; do
    if readelf -d "$file" | grep -E 'R(UN)?PATH.*(\[:|::|:\]|\[\])'; then
        echo "$file: an empty entry in the search path" >&2
        exit 1
    fi
done

"$cmake" -S "$consumer" -B "$folder/build" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_PREFIX_PATH="$folder/prefix" >/dev/null
"$cmake" --build "$folder/build" >/dev/null
found=$("$folder/build/consumer")
[ "$found" = "$expected" ] || { echo "find_package: '$found'" >&2; exit 1; }

# The folder is another one than the prefix that the build was configured for.
flags=$(PKG_CONFIG_PATH="$folder/prefix/$libdir/pkgconfig" \
    pkg-config --define-prefix --define-variable=prefix="$folder/prefix" --cflags --libs zyrtopapi)
# shellcheck disable=SC2086
"$compiler" "$consumer/main.cpp" -o "$folder/consumer" $flags -Wl,-rpath,"$folder/prefix/$libdir"
found=$("$folder/consumer")
[ "$found" = "$expected" ] || { echo "pkg-config: '$found'" >&2; exit 1; }

"$folder/prefix/bin/zyrnode" --version >/dev/null
"$folder/prefix/bin/zyrctl" --version >/dev/null
