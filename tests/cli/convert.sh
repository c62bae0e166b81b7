#!/usr/bin/env bash
# uom convert and uom constants: results, input, errors and their statuses. Arguments: the tool, the source directory.
set -u
uom=$1
. "$(dirname "$0")/checks.bash"

is "class string" $'4.845733787e-08\n8.076222979e-08\nstatus 0' \
    "$(run convert --format %.10g "Pres/VolRate 2" "kpa/(m3/sec)2" "psi/(ft3/min)2" 1.5 2.5)"
for mark in "" "--"; do
    # shellcheck disable=SC2086 # words
    is "negative values behind \"$mark\"" $'-40\n99.5\n31.1\n-148\n-inf\nstatus 0' \
        "$(run convert --format %.6g Temp C F $mark -40 37.5 -.5 -1e2 -inf)"
done
while IFS='|' read -r words results; do
    # shellcheck disable=SC2086 # words
    is "the mark in $words" "$results" "$(run $words | xargs)"
done <<'TEXT'
-- convert Leng ft m -1|-0.3048 status 0
--mole convert -- Leng ft m -.5|-0.1524 status 0
convert Leng ft m -1 -- -2|-0.3048 -0.6096 status 0
constants -- Leng ft m|factor 0.3048 offset 0 status 0
slate -- -x|uom: There is no slate -x. status 1
convert -- Leng ft m -x|uom: -x is not a number. status 1
TEXT

while IFS='|' read -r precision results; do
    # shellcheck disable=SC2086 # words
    is "digits: $precision" "$results status 0" "$(run convert $precision Leng m m 0.1234567890123456 123456789012345.6 -2500 | xargs)"
done <<'TEXT'
|0.123456789012 1.23456789012e+14 -2500
--precision 3|0.123 1.23e+14 -2.5e+03
--precision 17|0.12345678901234559 123456789012345.59 -2500
--precision full|0.1234567890123456 123456789012345.6 -2500
TEXT
is "no noise" $'-40\nstatus 0' "$(run convert Temp C F -40)"
is "no value stays" $'-1.5e+35\nstatus 0' "$(run convert Leng ft m -1.5e35)"
for value in 0.1 123456.789 -7e-12; do
    is "full precision of $value" "$("$uom" convert --format %.17g Pres psi bar $value)" \
        "$("$uom" convert --precision full Pres psi bar $value | awk '{ printf "%.17g", $1 }')"
done
is "a value does not depend on its place" "$("$uom" convert PetroDensity API kg/m3 30 40 | tail -1)" \
    "$("$uom" convert PetroDensity API kg/m3 40)"
is "superscripts" $'10.7639\nstatus 0' "$(run convert --format %.6g Area m² ft² 1)"
is "slates by option" $'100 C\nstatus 0' "$(run convert Temp 212 --from-slate English --to-slate Metric --format '%.9g C')"
is "slates in place" $'100\nstatus 0' "$(run convert Temp English Metric 212 --format %.9g)"

is "standard input" $'0.3048\n\n-0.6096\nstatus 0' "$(printf '1\n \n -2 \r\n' | run convert Leng ft m)"
is "no input" "status 0" "$(run convert Leng ft m </dev/null)"
is "bad lines" $'0.3048\n\n\n0.9144\n\nstatus 1' "$(printf '1\n\nx2\n3\n4 5' | run convert Leng ft m 2>/dev/null | grep -v ^uom)"
is "their messages" 'uom: standard input:3: "x2" is not a number.;uom: standard input:5: "4 5" is not a number.;' \
    "$(printf '1\n\nx2\n3\n4 5' | "$uom" convert Leng ft m 2>&1 >/dev/null | tr '\n' ';')"
is "input that can't be read" $'uom: Unable to read the standard input.\nstatus 1' "$(run convert Leng ft m </)"
is "bad value" $'uom: "1,5" is not a number.\nstatus 1' "$(run convert Leng ft m 1 1,5)"
is "bad unit" $'uom: "nope" is no unit that is known here.\nstatus 1' "$(run convert Leng nope m 1)"
is "bad unit without input" "status 1" "$(run convert Leng ft nope </dev/null | tail -1)"
is "bad class" "status 1" "$(run convert Nope ft m 1 | tail -1)"
is "bad slate" $'uom: There is no slate "Nope".\nstatus 1' "$(run convert Temp --from-slate SI --to-slate Nope 1)"
is "no data file" $'uom: Unable to open the Unit of Measure data file "/nowhere".\nstatus 1' \
    "$(run --data /nowhere convert Leng ft m 1)"
is "no room" $'uom: Unable to write the output.\n1' "$("$uom" convert Leng ft m 1 2>&1 >/dev/full; echo $?)"

for class in "" " " 2 /; do
    for command in show units related; do
        is "no class in '$class'" $'uom: The Unit-of-Measure class is missing.\nstatus 1' "$(run $command -- "$class")"
    done
    is "no class in '$class'" $'uom: The Unit-of-Measure class is missing.\nstatus 1' "$(run convert -- "$class" m ft 1)"
done
for format in %d %s '%.6g %g' plain '%*g' %Lg %1000g %; do
    refused convert Leng ft m 1 --format "$format"
done
for usage in "convert Leng ft" "convert Leng --from-slate SI 1" "constants Leng ft m 1" "nonsense" "" "slates --nope" \
    "--mode x slates" "convert Leng ft m 1 --precision "{0,18,1.5,x,""} "constants Leng ft m --precision 3 --format %g" \
    "convert Leng ft m 1 --format %g --precision 3"; do
    # shellcheck disable=SC2086 # words
    refused $usage
done

while IFS='|' read -r words expected; do
    # shellcheck disable=SC2086 # words
    is "typed: $words" "$expected" "$("$uom" $words 2>&1 | tr -d '\r' | paste -sd';')"
done <<'TEXT'
100 gpm m³/h --precision 6|100 gpm = 22.7125 m³/h
gpm m³/h --precision 6|1 gpm = 0.227125 m³/h
-40 F to C --class Temp|-40 F = -40 C
2.5e2 kPag = psia --class Pres --precision 6|250 kPag = 50.9554 psia
5x10^3 kPa Pa --class Pres|5000 kPa = 5000000 Pa
5 × 10³ kPa Pa --class Pres|5000 kPa = 5000000 Pa
60/min Hz|60/min = 1 Hz
1.5 kPa/(m³/s)² psi/(ft³/min)² --precision 6|1.5 kPa/(m³/s)² = 4.84573e-08 psi/(ft³/min)²
5 kPs psi|uom: "kPs" is no unit that is known here. Did you mean "kPa"?
5 kPa ft|uom: "kPa" is a unit of Pres and "ft" of Leng: they do not convert into each other.
250 kPag psia --class Pres --classic --precision 6|250 kPag = 50.9554 psia
mW MW --class Power --classic|1 mW = 1 MW
mW MW --class Power|1 mW = 1e-09 MW
-40 F C --class Temp|-40 F = -40 C
-5m ft --precision 4|-5 m = -16.4 ft
−5 m ft --precision 4|-5 m = -16.4 ft
--class TempDiff --precision 3 212 F C|212 F = 118 C
--mode kesta --class Leng --precision 4 -- -5 m ft|-5 m = -16.4 ft
1e308 km mm|uom: 1e+308 km has no finite result in "mm".
1e400 m ft|uom: "1e400" is beyond the range of numbers.
0x10 m ft|uom: "0x10" is not a number.
unitz Leng|uom: "unitz" is no command and no unit. Did you mean "units"? (see uom typed --help)
untis|uom: "untis" is no command. Did you mean "units"? A conversion has two units: uom 250 kPag psia (see uom --help)
kPa|uom: "kPa" is no command. A conversion has two units: uom 250 kPag psia (see uom --help)
-x|uom: "-x" is no option. (see uom --help)
5 m ft --clas Leng|uom: "--clas" is no option of uom typed. Did you mean "--class"? (see uom typed --help)
5 m ft --class|uom: --class has no value behind it. (see uom typed --help)
5 m ft --output jsn|uom: --output: "jsn" is not csv, json or text. Did you mean "json"? (see uom typed --help)
--mode kest slates|uom: --mode: "kest" is not kesta, vel2go or orbex. Did you mean "kesta"? (see uom slates --help)
convert Presure kPa psi 1|uom: "Presure" is no class of quantities. Did you mean "Pres"?
constants Pres kPs psi|uom: "kPs" is no unit that is known here. Did you mean "kPa"?
convert Temp --from-slate Englsh --to-slate SI 1|uom: There is no slate "Englsh". Did you mean "English"?
convert Leng km mm 1e308|uom: "1e308" has no finite result.
search zzzzqq --output json|[];uom: Nothing is found for "zzzzqq".
convert Leng ft m 1 2 --output csv|Value,Result;1,0.3048;2,0.6096
convert Temp F C 32.00000018 --precision 3|1e-07
convert Temp C F 20 --precision full|68
convert Leng 10ft English 3|uom: "10ft" is a multiple of a unit, and a slate has units alone.
constants Temp F C --precision full|factor 0.5555555555555556;offset -32
212 F C --class TempDiff --output csv|Value,From,Result,To;212,F,117.777777778,C
TEXT

is "a unit behind a sign" "-40 F = -40 C" "$("$uom" "-40 F" C --class Temp)"
is "no control characters" 'uom: There is no slate "\x1B[31m\x9B".' "$("$uom" slate $'\e[31m\xc2\x9b' 2>&1)"
for words in '"" m ft' '5 m ft --class ""' '5 "" ft' '--data "" slates' 'show Pres --units ""' 'units Pres --slate " "'; do
    eval "refused $words"
done
# A byte-order mark, and returns; words that other programs take for options or for patterns of file names.
is "marked input" "0.3048 0.6096" "$(printf '\xEF\xBB\xBF1\r\n2\r\n' | "$uom" convert Leng ft m | xargs)"
is "input with CR" "0.3048 0.6096 0.9144" "$(printf '1\r2\r\n3' | "$uom" convert Leng ft m | xargs)"
is "input without results" "0.3048  status 1" "$(printf '1\n1e400' | run convert Leng ft m 2>/dev/null | sed '/^uom/d' | paste -sd' ')"
is "input as a table" '[,  {"value":1,"result":0.3048},,  {"value":null,"result":null},]' \
    "$(printf '1\n\n' | "$uom" convert Leng ft m --output json | paste -sd,)"
is "words with a slash in front" "3600" "$(run convert /Time /sec /hr 1 | head -1)"
is "words with a star" "1000" "$(cd "$(mktemp -d)" && touch kam && "$uom" convert Leng 'k*m' m 1; rm kam; rmdir "$PWD" 2>&1)"

constants=$("$uom" constants Temp C F)
is "constants" "212.000" "$(awk '/factor/ { f = $2 } /offset/ { o = $2 } END { printf "%.3f", (100 + o) * f }' <<<"$constants")"
is "not linear" $'uom: The conversion from "API" to "kg/m3" is not linear.\nstatus 1' "$(run constants PetroDensity API kg/m3)"
is "version" "uom $(sed -n 's/^#define UOM_VERSION "\(.*\)"/\1/p' "$2/include/uom/uom.h") status 0" "$(run --version | xargs)"
run --help | grep -q 'uom convert Temp C F' || is "help" "examples" "none"
is "help as a word" "$("$uom" --help)" "$("$uom" help)"
is "help's status" "status 0" "$(run convert --help | tail -1)"
exit $failed
