#!/usr/bin/env bash
# The version stands in include/uom/uom.h. Where a format wants it written down, it is the same, and the dates agree.
#   versions.sh SOURCES
set -euo pipefail
cd "$1"
version=$(sed -n 's/^#define UOM_VERSION "\(.*\)"$/\1/p' include/uom/uom.h)
failed=0
same() { # what, expected, found
    [ "$3" = "$2" ] && return
    echo "$1 has \"$3\", not \"$2\""
    failed=1
}
latest=$(sed -n 's/^## //p' CHANGELOG.md | head -n 1)
date=${latest#* - }
same CHANGELOG.md "$version" "${latest% - *}"
same "the date in CHANGELOG.md" "$(date -u -d "$date" +%Y-%m-%d)" "$date"
same CITATION.cff "$version" "$(sed -n 's/^version: //p' CITATION.cff)"
same "CITATION.cff, date-released," "$date" "$(sed -n 's/^date-released: //p' CITATION.cff)"
same packaging/vcpkg/ports/uom/vcpkg.json "$version" "$(sed -n 's/^ *"version": "\(.*\)",$/\1/p' packaging/vcpkg/ports/uom/vcpkg.json)"
# Those that read the header hold none of their own.
for file in CMakeLists.txt bindings/python/pyproject.toml bindings/python/setup.py bindings/python/uom/__init__.py \
    packaging/conan/conanfile.py packaging/debian/changelog.in; do
    ! grep -nF "$version" "$file" || { echo "$file has a version of its own"; failed=1; }
done
# A node of versions is that of a release, and the latest no later than this one.
newest=$(sed -n 's/^UOM_\([0-9.]*\) {.*/\1/p' cmake/exports.map | sort -V | tail -n 1)
[ "$(printf '%s\n%s\n' "$newest" "$version" | sort -V | tail -n 1)" = "$version" ] ||
    { echo "cmake/exports.map has UOM_$newest, in version $version"; failed=1; }
exit $failed
