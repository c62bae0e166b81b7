#!/usr/bin/env bash
# The prompt on a terminal. Arguments: the tool, the source directory.
set -u
uom=$1
. "$(dirname "$0")/checks.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
export HOME=$work TERM=dumb
unset XDG_STATE_HOME

# The shell between the terminal and the tool lives through an interrupt, whichever shell it is.
ask() { # global options; the lines on standard input; prints what the tool answers
    { cat; } | timeout 20 script -qec "trap : INT; '$uom' $*; echo status \$?" /dev/null | tr -d '\r\a' | grep -av '^uom> \|^\(uom> \)*$'
}

is "no terminal" "uom: A subcommand is required (see uom --help)" "$("$uom" </dev/null 2>&1)"
printf '%s\n' '250 kPag psia --class Pres' '1 "m" ft' 'psi kPX' 'SCFMM' 'exit' |
    ask >answers
is "lines" "250 kPag = 50.9553832081 psia
1 m = 3.28083989501 ft
uom: \"kPX\" is no unit that is known here. Did you mean \"kPa\"?
status 0" "$(grep '=\|kPX" is\|status' answers)"
is "a lone word is looked for" 1 "$(grep -c '^alias  VapVolRate  SCFM ' answers)"
is "help, and uom in front" "1 1" "$(printf 'help\nuom 1 m ft\nexit\n' | ask >help; echo "$(grep -c '^Examples:' help) $(grep -c '^1 m = 3.28' help)")"
is "a quote that is not closed" 1 "$(printf '5 "m ft\nexit\n' | ask | grep -c '^uom: A quotation mark is not closed')"
# A sign that is dropped makes another unit. The environment's characters do not count.
for locale in C.UTF-8 C; do
    is "signs of UTF-8 under $locale" "5 µm = 0.005 mm;5 m³ = 5000 L" \
        "$(printf '5 µm mm\n5 m³ L\nexit\n' | LC_ALL=$locale ask | grep = | paste -sd';')"
done
is "what is no UTF-8" "uom: The line is not UTF-8 and is not read.;1 m = 100 cm" \
    "$(printf '5 \xb5m mm\n1 m cm\nexit\n' | ask | grep -a 'not UTF-8\|=' | paste -sd';')"
# The keys are pressed when the prompt is there.
is "an interrupt drops the line" "1 m = 100 cm status 0" \
    "$({ sleep 3; printf '5 m'; sleep 1; printf '\003'; sleep 1; printf '1 m cm\nexit\n'; } | ask | grep '=\|status' | xargs)"
printf '[Site]\nPres=kPag\n' >"$work/site.txt"
is "options hold for all lines" "2" "$(printf 'slates\npsi kPa\nslates\nexit\n' | ask --define "$work/site.txt" | grep -c '^Site ')"

if ldd "$uom" | grep -q libedit; then
    is "completion" "1000 lb/hr = 0.125997880556 kg/sec" "$(printf '1000 lb/hr kg/se\t\nexit\n' | ask | grep =)"
    is "completion between quotes" "5 in Hg 60F = 0.169 bar" "$(printf '5 "in Hg 6\t bar --precision 3\nexit\n' | ask | grep =)"
    is "completion of slates" "BasedOn=English" "$(printf 'slate Curr\t\nexit\n' | ask | grep ^BasedOn)"
    is "history" "slate Current" "$(tail -n 2 "$work/.local/state/uom/history" | head -n 1 | sed 's/\\040/ /g; s/ $//')"
fi
exit $failed
