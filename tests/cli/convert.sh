#!/usr/bin/env bash
# uom convert and uom constants: results, input, errors and their statuses. Arguments: the tool, the source directory.
set -u
uom=$1
. "$(dirname "$0")/checks.bash"

is "class string" $'4.845733787e-08\n8.076222979e-08\nstatus 0' \
    "$(run convert --format %.10g "Pres/VolRate 2" "kpa/(m3/sec)2" "psi/(ft3/min)2" 1.5 2.5)"
is "negative values" $'-40\n99.5\n31.1\n-148\nstatus 0' "$(run convert --format %.6g Temp C F -40 37.5 -.5 -1e2)"
is "shortest text" $'0.3048\nstatus 0' "$(run convert Leng ft m 1)"
is "no value stays" $'-1.5e+35\nstatus 0' "$(run convert Leng ft m -1.5e35)"
for value in 0.1 123456.789 -7e-12; do
    is "full precision of $value" "$("$uom" convert --format %.17g Pres psi bar $value)" \
        "$("$uom" convert Pres psi bar $value | awk '{ printf "%.17g", $1 }')"
done
is "a value does not depend on its place" "$("$uom" convert PetroDensity API kg/m3 30 40 | tail -1)" \
    "$("$uom" convert PetroDensity API kg/m3 40)"
is "superscripts" $'10.7639\nstatus 0' "$(run convert --format %.6g Area m² ft² 1)"
is "slates by option" $'100 C\nstatus 0' "$(run convert Temp 212 --from-slate English --to-slate Metric --format '%.9g C')"
is "slates in place" $'100\nstatus 0' "$(run convert Temp English Metric 212 --format %.9g)"

is "standard input" $'0.3048\n-0.6096\nstatus 0' "$(printf '1\n\n -2 \r\n' | run convert Leng ft m)"
is "no input" "status 0" "$(run convert Leng ft m </dev/null)"
is "bad line" $'0.3048\nuom: standard input:3: "x2" is not a number.\nstatus 1' \
    "$(printf '1\n\nx2\n3\n' | run convert Leng ft m)"
is "bad value" $'uom: "1,5" is not a number.\nstatus 1' "$(run convert Leng ft m 1 1,5)"
is "bad unit" $'uom: UOM string "nope": unidentified UOM for UOM class "Leng".\nstatus 1' "$(run convert Leng nope m 1)"
is "bad unit without input" "status 1" "$(run convert Leng ft nope </dev/null | tail -1)"
is "bad class" "status 1" "$(run convert Nope ft m 1 | tail -1)"
is "bad slate" $'uom: There is no slate "Nope".\nstatus 1' "$(run convert Temp --from-slate SI --to-slate Nope 1)"
is "no data file" $'uom: Unable to open the Unit of Measure data file "/nowhere".\nstatus 1' \
    "$(run --data /nowhere convert Leng ft m 1)"
is "no room" $'uom: Unable to write the output.\n1' "$("$uom" convert Leng ft m 1 2>&1 >/dev/full; echo $?)"

for format in %d %s '%.6g %g' plain '%*g' %Lg %1000g %; do
    run convert Leng ft m 1 --format "$format" | grep -q 'status 105' || is "format $format" refused accepted
done
for usage in "convert Leng ft" "convert Leng --from-slate SI 1" "constants Leng ft m 1" "nonsense" ""; do
    # shellcheck disable=SC2086 # words
    run $usage </dev/null | grep -q 'status 10[0-9]' || is "usage: $usage" refused accepted
done

constants=$("$uom" constants Temp C F)
is "constants" "212.000" "$(awk '/factor/ { f = $2 } /offset/ { o = $2 } END { printf "%.3f", (100 + o) * f }' <<<"$constants")"
is "not linear" $'uom: The conversion from "API" to "kg/m3" is not linear.\nstatus 1' "$(run constants PetroDensity API kg/m3)"
is "version" "status 0" "$(run --version | tail -1)"
"$uom" --help | grep -q 'uom convert Temp C F' || is "help" "examples" "none"
exit $failed
