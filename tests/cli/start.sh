#!/usr/bin/env bash
# With option words the tool looks for the data file where the library itself does. Arguments: the tool, the source
# directory.
set -u
uom=$1 data=$2/data/uomdata.txt
. "$(dirname "$0")/checks.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# An installed tree, with a data file in each place that one may be found in. A slate of each tells which was read.
cd "$work" || exit 1
places="lib share/uom bin here"
for place in $places; do
    mkdir -p "$place"
    { cat "$data"; printf 'BEGINSLATE\nIn_%s\nENDSLATE\n' "$place"; } >"$place/uomdata.txt"
done
cp "$uom" bin/
cp "$(ldd "$uom" | sed -n 's/^[[:space:]]*libuom[^ ]* => \(.*\) (0x[0-9a-f]*)$/\1/p')" lib/
export LD_LIBRARY_PATH=$work/lib
cd here || exit 1
for place in $places; do
    for words in "" "--mole" "--molar" "--mode kesta"; do
        # shellcheck disable=SC2086 # words
        is "data file with the words \"$words\"" "In_$place" "$(../bin/uom $words slates 2>&1 | grep -o '^In_[^ ]*')"
    done
    rm "../$place/uomdata.txt"
done
is "no data file" 'uom: Unable to open the Unit of Measure data file "./uomdata.txt".' "$(../bin/uom --molar slates 2>&1)"
exit $failed
