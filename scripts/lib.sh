# Shared by the scripts beside it, which source it. Sets `root`, the top of the tree, whatever directory it is
# called from. Everything here is silent on stdout, and on stderr unless something fails.

root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd -P)
jobs=${UOM_JOBS:-$(nproc 2>/dev/null || echo 2)}

fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# quietly LOG COMMAND...: runs with the output kept in build/LOG, and shows its end if the command fails.
quietly() {
    local log=$root/build/$1
    shift
    mkdir -p "$root/build" || fail "cannot write to $root/build"
    "$@" >"$log" 2>&1 </dev/null && return
    tail -n 60 "$log" >&2
    printf '(the whole output is in %s)\n' "$log" >&2
    return 1
}

# What is missing ----------------------------------------------------------------------------------------------

missing=() # Debian packages

need_command() { # command, package
    command -v "$1" >/dev/null || missing+=("$2")
}

need_header() { # header, package
    printf '#if !__has_include(<%s>)\n#error missing\n#endif\n' "$1" | g++ -E -x c++ - >/dev/null 2>&1 || missing+=("$2")
}

need_file() { # path, package
    [ -e "$1" ] || missing+=("$2")
}

install_missing() {
    [ ${#missing[@]} -gt 0 ] || return 0
    local by_hand="install by hand and try again: ${missing[*]} (names as in Debian)"
    local root_command=()
    command -v apt-get >/dev/null || fail "no apt-get on this machine; $by_hand"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "not root, and no sudo; $by_hand"
        root_command=(sudo)
    fi
    # The lists may be old and still do, so only the installation has to succeed.
    quietly apt-update.log "${root_command[@]}" apt-get update ||
        echo "apt-get update failed; going on with the package lists that are there" >&2
    quietly apt-install.log "${root_command[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}" ||
        fail "apt-get could not install; $by_hand"
    missing=()
}

# Building -----------------------------------------------------------------------------------------------------

# configure PRESET OPTION...: leaves a build directory that is configured to its end, or none.
configure() {
    local preset=$1 dir=$root/build/$1
    shift
    # A directory that an interrupted run left half done, or that came here with a copied tree, is of no use.
    if [ -e "$dir" ]; then
        { [ -e "$dir/Makefile" ] || [ -e "$dir/build.ninja" ]; } &&
            grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$dir/CMakeCache.txt" || rm -rf "$dir"
    fi
    cd "$root" || fail "cannot enter $root"
    quietly "configure-$preset.log" cmake --preset "$preset" "$@" || {
        rm -rf "$dir"
        fail "could not configure the $preset build; the reason stands above"
    }
}

# build PRESET ARGUMENT...: after configure; the arguments go to cmake --build.
build() {
    local preset=$1
    shift
    quietly "build-$preset.log" cmake --build "$root/build/$preset" -j "$jobs" "$@" ||
        fail "could not build $preset; the reason stands above"
}

# Windows ------------------------------------------------------------------------------------------------------

# dll_exports FILE, dll_needs FILE: the names that it exports, sorted; the DLLs that a DLL or program needs.
dll_exports() {
    x86_64-w64-mingw32-objdump -p "$1" | sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/p' |
        awk '$1 == "[" || $1 ~ /^\[/ { if ($1 != "[Ordinal/Name") print $NF }' | LC_ALL=C sort -u
}
dll_needs() {
    x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/.*DLL Name: //p'
}

# The interface ------------------------------------------------------------------------------------------------

# interface_headers: those that hosts in C include.
interface_headers() {
    printf '%s\n' "$root"/include/uom/*.h
}

# declared_names HEADER...: the functions and variables that they declare with UOM_API, sorted; fails when there is none.
# The preprocessor takes away comments and shows UOM_API as what it stands for; then each declaration is one text up
# to its semicolon, in which the name stands before the first parenthesis or at the end.
declared_names() {
    for header; do
        ${CC:-cc} -E -P -x c -I "$(dirname "$header")/.." "$header"
    done | grep -v '^#' | tr '\n' ' ' | awk '
        BEGIN { RS = ";"; attribute = "__attribute__ *\\(\\(([^()]|\\([^()]*\\))*\\)\\)" }
        /visibility *\("default"\)/ {
            gsub(attribute, " ")
            isFunction = sub(/\(.*/, "")
            count = isFunction ? 1 : split($0, names, ",")
            if (isFunction) names[1] = $0
            for (i = 1; i <= count; i++) {
                sub(/[[=].*/, "", names[i])
                gsub(/[^A-Za-z0-9_]+/, " ", names[i])
                words = split(names[i], word, " ")
                print word[words]
            }
        }' | LC_ALL=C sort -u | grep .
}
