#!/usr/bin/env bash
# This project within others: one by add_subdirectory, which gets the static library and nothing else, and one by
# FetchContent of the archive of sources, which asks for the shared library and for the rules of installation.
#   guests.sh SOURCES ARCHIVE WORK
set -euo pipefail
sources=$1 archive=$2 work=$3
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work"
mkdir -p "$work"

fail() {
    echo "guests: $*" >&2
    exit 1
}

guest() { # name, cmake's options...
    local name=$1
    shift
    {
        cmake -S "$here/guest" -B "$work/$name" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_EXPORT_COMPILE_COMMANDS=ON "$@" &&
            cmake --build "$work/$name" -j "${UOM_JOBS:-2}" &&
            ctest --test-dir "$work/$name" --output-on-failure &&
            cmake --install "$work/$name" --prefix "$work/$name-installed"
    } >"$work/$name.log" 2>&1 || { tail -n 30 "$work/$name.log" >&2; fail "$name does not build, run or install"; }
}

tests() { ctest --test-dir "$work/$1" -N | sed -n 's/^ *Test *#[0-9]*: //p' | xargs; }
installed() { (cd "$work/$1-installed" && find . -type f -o -type l) | LC_ALL=C sort | xargs; }

guest static -DUOM="$sources"
[[ $(tests static) =~ ^guest(\ guest_fortran)?$ ]] || fail "tests that are not the guest's: $(tests static)"
[ "$(installed static)" = ./bin/guest ] || fail "installs what is not the guest's: $(installed static)"
! grep -q -e -Werror "$work/static/compile_commands.json" || fail "warnings are errors"
! readelf -d "$work/static/guest" | grep -q libuom || fail "the shared library, without BUILD_SHARED_LIBS"
! find "$work/static" -name 'libuom.so*' | grep . || fail "builds the shared library, too"

guest shared -DBY=FetchContent -DUOM="$archive" -DBUILD_SHARED_LIBS=ON -DUOM_INSTALL=ON
[ "$(tests shared)" = guest ] || fail "tests that are not the guest's: $(tests shared)"
readelf -d "$work/shared/guest" | grep -q 'NEEDED.*libuom\.so\.1' || fail "no shared library, with BUILD_SHARED_LIBS"
for file in 'lib*/libuom.so.1' 'lib*/cmake/uom/uomConfig.cmake' share/uom/uomdata.txt include/uom/uom_module.f90; do
    compgen -G "$work/shared-installed/$file" >/dev/null || fail "UOM_INSTALL installs no $file"
done
! find "$work/shared" "$work/shared-installed" -name 'libuom*.a' | grep . || fail "builds the static library, too"
echo "guests: static by add_subdirectory, shared by FetchContent"
