#!/bin/sh
# Installs a build into a folder of its own and builds a program against it, in both ways.
# The program and its CMake file are those that the README shows.
# usage: install_test.sh CMAKE BUILD COMPILER LIBDIR
set -eu
cmake=$1 build=$2 compiler=$3 libdir=$4
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

consumer=$folder/consumer
mkdir "$consumer"
shown() {
    sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" "$here/../../README.md" | sed '1d;$d'
}
shown cpp >"$consumer/main.cpp"
shown cmake >"$consumer/CMakeLists.txt"
"$cmake" -G Ninja -S "$consumer" -B "$folder/build" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_PREFIX_PATH="$folder/prefix" >/dev/null
"$cmake" --build "$folder/build" >/dev/null
found=$("$folder/build/app")
[ "$found" = "$expected" ] || { echo "find_package: '$found'" >&2; exit 1; }

# The folder is another one than the prefix that the build was configured for.
flags=$(PKG_CONFIG_PATH="$folder/prefix/$libdir/pkgconfig" pkg-config --cflags --libs zyrtopapi)
# shellcheck disable=SC2086
"$compiler" "$consumer/main.cpp" -o "$folder/app" $flags -Wl,-rpath,"$folder/prefix/$libdir"
found=$("$folder/app")
[ "$found" = "$expected" ] || { echo "pkg-config: '$found'" >&2; exit 1; }

"$folder/prefix/bin/zyrnode" --version >/dev/null
"$folder/prefix/bin/zyrctl" --version >/dev/null

share=$folder/prefix/share
for file in bash-completion/completions/zyrctl zsh/site-functions/_zyrctl fish/vendor_completions.d/zyrctl.fish \
    doc/ZyrTopApi/README.md doc/ZyrTopApi/docs/commands.md doc/ZyrTopApi/docs/fade.md; do
    [ -s "$share/$file" ] || { echo "share/$file is not installed" >&2; exit 1; }
done
