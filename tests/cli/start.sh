#!/usr/bin/env bash
# Where the data file is looked for, with option words and without, and what is no data file. Arguments: the tool, the
# source directory.
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
# A directory of the name does not end the search, nor is it named when there is a file behind it.
mkdir ../lib/uomdata.txt
ln -s "$data" ../bin/uomdata.txt
is "a directory, and behind it a link to a file" "status 0" "$(../bin/uom slates >out.txt 2>&1; echo "status $?")"
rm ../bin/uomdata.txt
message="uom: Unable to open the Unit of Measure data file \"./uomdata.txt\"."
for words in "" "--molar"; do
    # shellcheck disable=SC2086 # words
    is "no data file, with the words \"$words\"" \
        "$message Looked for it as \"LIB\", \"SHARE\", \"BIN\" and \"./uomdata.txt\".;status 1" \
        "$(../bin/uom $words slates 2>&1 | sed -e 's:"[^"]*/lib/uomdata.txt":"LIB":; s:"[^"]*/share/uom/uomdata.txt":"SHARE":
            s:"[^"]*/bin/uomdata.txt":"BIN":' | tr '\n' ';'; echo "status ${PIPESTATUS[0]}")"
done

mkfifo pipe
for path in pipe /dev/null .; do
    is "$path for a data file" "uom: Unable to open the Unit of Measure data file \"$path\".; status 1" \
        "$(timeout 20 ../bin/uom --data "$path" slates 2>&1 | tr '\n' ';'; echo " status ${PIPESTATUS[0]}")"
done
is "check of a pipe" 'uom: Unable to open the Unit of Measure data file "pipe".' "$(timeout 20 ../bin/uom check pipe 2>&1)"
exit $failed
