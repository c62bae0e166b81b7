# What the scripts beside it share. Sourced behind `uom=TOOL`.
failed=0
# Not empty where the tool is that of Windows, by ../windows/uom.
# shellcheck disable=SC2034 # those beside it look at it
windows=${UOM_WINDOWS_TOOL-}

is() { # title, expected, actual
    [ "$2" = "$3" ] || { printf 'FAILED: %s\n  expected: %s\n  found:    %s\n' "$1" "$2" "$3"; failed=1; }
}

run() { # arguments of the tool; prints its output, then its messages, then its status
    local status
    "$uom" "$@" 2>&1
    status=$?
    echo "status $status"
}

refused() { # arguments of the tool: wrong usage, with one line of message
    local found
    found=$(run "$@" </dev/null | tr '\n' ';')
    [[ $found =~ ^uom:\ [^\;]*\ --help\)\;status\ 2\;$ ]] || is "usage: $*" "refused" "$found"
}
