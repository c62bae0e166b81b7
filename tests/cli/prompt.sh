#!/usr/bin/env bash
# The prompt on a terminal. Arguments: the tool, the source directory.
set -u
uom=$1
. "$(dirname "$0")/checks.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work TERM=dumb
unset XDG_STATE_HOME

ask() { # global options; the lines on standard input; prints what the tool answers
    { cat; } | timeout 20 script -qec "'$uom' $*; echo status \$?" /dev/null | tr -d '\r\a' | grep -v '^uom> \|^\(uom> \)*$'
}

is "no terminal" "uom: A subcommand is required (see uom --help)" "$("$uom" </dev/null 2>&1)"
printf '%s\n' '250 kPag psia --class Pres' '1 "m" ft' 'psi kPX' 'SCFMM' 'exit' |
    ask >answers
is "lines" "250 kPag = 50.9553832081 psia
1 m = 3.28083989501 ft
uom: \"kPX\" is no unit that is known here. Did you mean \"kPa\"?
status 0" "$(grep '=\|kPX" is\|status' answers)"
is "a lone word is looked for" 1 "$(grep -c '^alias  VapVolRate  SCFM ' answers)"
printf '[Site]\nPres=kPag\n' >"$work/site.txt"
is "options hold for all lines" "2" "$(printf 'slates\npsi kPa\nslates\nexit\n' | ask --define "$work/site.txt" | grep -c '^Site ')"

if ldd "$uom" | grep -q libedit; then
    is "completion" "1000 lb/hr = 0.125997880556 kg/sec" "$(printf '1000 lb/hr kg/se\t\nexit\n' | ask | grep =)"
    is "history" "1000 lb/hr kg/sec" "$(tail -n 2 "$work/.local/state/uom/history" | head -n 1 | sed 's/\\040/ /g')"
fi
exit $failed
