#!/usr/bin/env bash
# When scripts/run builds: on sources that came, went or changed, and not on what a user writes into the tree. A tree
# made here, in which the compilers are stand-ins that count builds. Argument: the source directory.
set -u
failed=0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$1/scripts" "$work/"
mkdir -p "$work"/{stand-ins,support,tools/uom,data,tests}
for name in g++ make cmake; do
    printf '#!/bin/sh\n' >"$work/stand-ins/$name"
    chmod +x "$work/stand-ins/$name"
done
cat >>"$work/stand-ins/cmake" <<'TEXT'
[ "$1" = --build ] || exit 0
mkdir -p "$2/bin"
echo built >>"$2/../../builds"
printf '#!/bin/sh\necho "the tool: $*"\n' >"$2/bin/uom"
chmod +x "$2/bin/uom"
TEXT
touch "$work"/{CMakeLists.txt,support/text.cpp,support/text.h,tools/uom/main.cpp,data/uomdata.txt}
export PATH=$work/stand-ins:$PATH

while IFS='|' read -r title change builds; do
    (cd "$work" && eval "$change")
    : >"$work/builds"
    found=$("$work/scripts/run" a b)
    count=$(grep -c . "$work/builds")
    [ "$found $count" = "the tool: a b $builds" ] && continue
    printf 'FAILED: %s\n  expected: %s builds\n  found: %s builds, %s\n' "$title" "$builds" "$count" "$found"
    failed=1
done <<'TEXT'
the first run|:|1
the second|:|0
a user's files|touch -d 'now + 1 hour' values.txt data/mine.txt support/notes.md report.h; mkdir plant|0
a test|touch -d 'now + 1 hour' tests/new_test.cpp|0
a changed source|sleep 0.05; touch support/text.cpp|1
nothing|:|0
a changed data file|sleep 0.05; touch data/uomdata.txt|1
changed aliases|sleep 0.05; touch data/aliases.txt|1
a new source, older than the build|touch -d '2001-01-01' tools/uom/new.cpp|1
a source that went|rm tools/uom/new.cpp|1
a source in a new folder|mkdir entry; touch -d '2001-01-01' entry/names.cpp|1
nothing again|:|0
the tool is gone|rm build/release/bin/uom|1
TEXT
exit $failed
