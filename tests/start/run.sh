#!/usr/bin/env bash
# A host that changes its directory before it starts the library finds the data file beside what it was run from, also
# when loader and host were named by relative paths. Arguments: the host with the shared library, with the static one,
# the shared library, the data file.
set -u
shared=$1 static=$2 library=$3 data=$4
failed=0
work=$(cd "$(mktemp -d)" && pwd -P)
trap 'rm -rf "$work"' EXIT

is() { # title, expected, actual
    [ "$2" = "$3" ] || { printf 'FAILED: %s\n  expected: %s\n  found:    %s\n' "$1" "$2" "$3"; failed=1; }
}

# The same tree twice: home is where the host is run, away where it goes to.
for tree in home away; do
    mkdir -p "$work/$tree/lib" "$work/$tree/bin"
    cp "$data" "$work/$tree/lib/"
    cp "$data" "$work/$tree/bin/"
done
cd "$work/home" || exit 1
cp "$shared" bin/shared
cp "$static" bin/static
cp "$library" lib/
export LD_LIBRARY_PATH=lib

is "shared" "0 $work/home/lib/uomdata.txt;0;" "$(bin/shared ../away 1024 | tr '\n' ';')"
is "static" "0 $work/home/bin/uomdata.txt;0;" "$(./bin/static ../away 1024 | tr '\n' ';')"
is "static, by the search path" "0 $work/home/bin/uomdata.txt;0;" "$(PATH=bin:$PATH static ../away/lib 1024 | tr '\n' ';')"

path=$work/home/bin/./uomdata.txt
is "just room" "0 $work/home/bin/uomdata.txt" "$(bin/static ../away $((${#path} - 1)) | head -1)"
is "no room" "1 " "$(bin/static ../away $((${#path} - 2)) | head -1)"
is "none" "1 untouched" "$(bin/static ../away 0 | head -1)"

rm bin/uomdata.txt
is "the working directory" "0 ./uomdata.txt;0;" "$(bin/static ../away/lib 1024 | tr '\n' ';')"
message='Unable to open the Unit of Measure data file "./uomdata.txt".'
installed=$(bin/static ../away 1024 | sed -n 's/.*", "\(.*\)" and .*/\1/p' | head -1)
message+=" Looked for it as \"$work/home/bin/uomdata.txt\", \"$installed\" and \"./uomdata.txt\"."
is "no file" "1 ./uomdata.txt;$message;1;$message;" "$(bin/static ../away 1024 | tr '\n' ';')"

# A path too long to be kept is passed over, and not cut to that of another file.
deep=$work/$(printf 'd%.0s' {1..250})
deep=$deep/$(printf "%$((511 - ${#deep} - 1))s" '' | tr ' ' e)
mkdir -p "$deep"
cp bin/static "$deep/"
for name in uomdata.txt uomdata; do
    cp "$data" "$deep/$name"
    is "too deep for $name" "1 ./uomdata.txt" "$("$deep/static" "$work/away" 1024 | head -1)"
done
exit $failed
