#!/usr/bin/env bash
# Installs a build to a fresh prefix, moves the prefix, looks for both data files in it, and builds and runs the consumer beside this file from it:
# with find_package, shared and static, with pkg-config where there is one, and from C++.
# Arguments: cmake, the build directory, the library, data and header directories under the prefix, the configuration,
# the C and the C++ compiler, the directory of man pages under the prefix.
set -euo pipefail

cmake=$1 build=$2 libdir=$3 datadir=$4 includedir=$5 config=$6 cc=$7 cxx=$8 mandir=$9
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

expect_ok() { # title, command...
    local title=$1 out
    shift
    out=$("$@") || { echo "$title: failed: $out"; exit 1; }
    [ "$out" = OK ] || { echo "$title: printed '$out', not OK"; exit 1; }
    echo "$title: OK"
}

"$cmake" --install "$build" --config "$config" --prefix "$work/first" >"$work/log" || { cat "$work/log"; exit 1; }
prefix="$work/moved prefix"
mv "$work/first" "$prefix"
[ -s "$prefix/$datadir/uom/aliases.txt" ] || { echo "the aliases are not beside the data file"; exit 1; }

# By find_package.
{
    "$cmake" -S "$here" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_COMPILER="$cc" \
        -DCMAKE_BUILD_TYPE="$config" &&
        "$cmake" --build "$work/consumer"
} >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
expect_ok "find_package, shared" "$work/consumer/consumer"
# A program that holds the library in itself has its data beside itself.
cp "$prefix/$datadir/uom/uomdata.txt" "$work/consumer/"
expect_ok "find_package, static" "$work/consumer/consumer_static"

# By pkg-config.
if command -v pkg-config >/dev/null; then
    export PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig"
    # eval: pkg-config quotes blanks for a shell.
    eval "flags=($(pkg-config --cflags --libs uom))"
    "$cc" -o "$work/plain" "$here/consumer.c" "${flags[@]}"
    expect_ok "pkg-config" env LD_LIBRARY_PATH="$prefix/$libdir" "$work/plain"
else
    echo "pkg-config: skipped, not installed"
fi

# From C++. The static library's own code and uom.hpp have a namespace of one name: in one program they are kept apart.
"$cxx" -std=c++17 -I "$prefix/$includedir" -o "$work/cpp" "$here/consumer.cpp" -L "$prefix/$libdir" -luom
expect_ok "C++, shared" env LD_LIBRARY_PATH="$prefix/$libdir" "$work/cpp"
mkdir "$work/alone"
cp "$prefix/$datadir/uom/uomdata.txt" "$work/alone/"
"$cxx" -std=c++17 -I "$prefix/$includedir" -o "$work/alone/cpp" "$here/consumer.cpp" "$prefix/$libdir/libuom.a"
expect_ok "C++, static" "$work/alone/cpp"

# The installed tool starts, if it was built.
if [ -x "$prefix/bin/uom" ]; then
    "$prefix/bin/uom" --help >"$work/log" || { echo "the installed tool does not start"; cat "$work/log"; exit 1; }
    echo "tool: OK"
    for file in bash-completion/completions/uom zsh/site-functions/_uom fish/vendor_completions.d/uom.fish; do
        grep -q convert "$prefix/$datadir/$file" || { echo "$datadir/$file: missing, or not what it should be"; exit 1; }
    done
    grep -q '^\.SS uom convert' "$prefix/$mandir/man1/uom.1" || { echo "no man page"; exit 1; }
    echo "completion and man page: OK"
fi
