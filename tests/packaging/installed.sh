#!/usr/bin/env bash
# Debian's packages in a fresh root: installed, used, removed and purged, after which nothing of them is left.
#   installed.sh ROOT_ARCHIVE PACKAGES WORK        as root; the archive is of a system with Python
set -euo pipefail
archive=$1 packages=$2 work=$3
here=$(cd "$(dirname "$0")" && pwd)
root=$work/root

fail() {
    echo "installed: $*" >&2
    exit 1
}
inside() { chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 "$@"; }
expect() { # what is printed, then the command
    local expected=$1 printed
    shift
    printed=$(inside "$@" 2>&1) || fail "$* failed: $printed"
    [ "$printed" = "$expected" ] || fail "$*: '$printed', not '$expected'"
}
# What dpkg and ldconfig keep for themselves may change.
files() {
    (cd "$root" && find . -xdev \( -path ./var/lib/dpkg -o -path ./var/log -o -path ./tmp -o -path ./proc -o -path ./dev \
        -o -path ./var/cache/ldconfig \) -prune -o -print) | LC_ALL=C sort
}

rm -rf "$root"
mkdir -p "$root"
trap 'rm -rf "$root"' EXIT
tar -C "$root" -xpf "$archive" --exclude='./dev/*'
files >"$work/files-before"
mkdir -p "$root/tmp/packages"
cp "$packages"/*.deb "$root/tmp/packages/"

log=$(inside sh -c 'dpkg -i /tmp/packages/*.deb' 2>&1) || fail "dpkg could not install: $log"
expect "" dpkg --verify uom libuom1 libuom-dev uom-data python3-uom
expect "" dpkg --audit

# The tool, and its pages.
expect "250 kPag = 351.325 kPa" uom 250 kPag kPa --class Pres
inside sh -c 'zcat /usr/share/man/man1/uom.1.gz' | grep -q '^\.SS uom convert' || fail "no man page"
for file in bash-completion/completions/uom zsh/vendor-completions/_uom fish/vendor_completions.d/uom.fish; do
    grep -q convert "$root/usr/share/$file" || fail "no $file"
done

# Python, over the system's library.
expect "50.955" python3 -c 'import uom; print(round(uom.convert(250, "kPag", "psia"), 3))'
expect "250 kPag = 50.9554 psia" python3 -m uom 250 kPag psia --precision 6
inside sh -c 'ldd /usr/lib/python3/dist-packages/uom/_core.*.so' | grep -q 'libuom\.so\.1 => /' ||
    fail "the package for Python does not use the library of the system"

# A host, compiled with the headers of the root, by what pkg-config and CMake find there.
eval "flags=($(PKG_CONFIG_LIBDIR=$(echo "$root"/usr/lib/*/pkgconfig) pkg-config --cflags --libs uom))"
cc -o "$root/tmp/host" "$here/../package/consumer.c" "${flags[@]}"
expect OK /tmp/host
cmake -S "$here/../package" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$root/usr" -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF \
    >"$work/consumer.log" 2>&1 || { tail "$work/consumer.log" >&2; fail "CMake does not find the package"; }
cmake --build "$work/consumer" >>"$work/consumer.log" 2>&1 || { tail "$work/consumer.log" >&2; fail "no host by CMake"; }
cp "$work/consumer/consumer" "$root/tmp/host"
expect OK /tmp/host

# All of that read the data of uom-data, and no other.
mv "$root/usr/share/uom" "$root/tmp/data"
! inside /tmp/host >/dev/null 2>&1 || fail "the library does not read /usr/share/uom"
mv "$root/tmp/data" "$root/usr/share/uom"

log=$(inside dpkg --remove python3-uom uom libuom-dev libuom1 uom-data 2>&1) || fail "dpkg could not remove: $log"
! inside uom --version >/dev/null 2>&1 || fail "removed, and still there"
log=$(inside dpkg --purge python3-uom uom libuom-dev libuom1 uom-data 2>&1) || fail "dpkg could not purge: $log"
[ -z "$(inside dpkg-query -W -f '${Package}\n' 'libuom*' 'uom*' 'python3-uom' 2>/dev/null)" ] || fail "dpkg knows purged packages"
files >"$work/files-after"
diff "$work/files-before" "$work/files-after" >&2 || fail "files that are left behind, or gone"
echo "installed: installed, used, removed and purged"
