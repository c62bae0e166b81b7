#!/usr/bin/env bash
# Compiles Uom.cs with its test, and runs it by mono. Arguments: mcs, mono, the directory of the library, the data file.
set -eu
mcs=$1 mono=$2 library=$3 data=$4
here=$(cd "$(dirname "$0")" && pwd -P)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$mcs" -unsafe -langversion:latest -warnaserror -out:"$work/UomTest.exe" "$here/Uom.cs" "$here/UomTest.cs"
LD_LIBRARY_PATH=$library LC_ALL=C.UTF-8 timeout 120 "$mono" "$work/UomTest.exe" "$data"
