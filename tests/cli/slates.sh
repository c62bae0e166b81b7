#!/usr/bin/env bash
# Classes, units, slates, display units, and slate definitions from files. Arguments: the tool, the source directory.
set -u
uom=$1 data=$2/data/uomdata.txt
. "$(dirname "$0")/checks.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

is "class" "7 Pres Pressure PRES" "$("$uom" classes | awk '$1 == 7 { print $1, $2, $3, $4 }')"
is "composite class" "Mass / Leng Time 2" "$("$uom" classes | sed -n 's/.* RhoVV .*  //p')"
is "internal classes" 0/3 "$("$uom" classes | grep -c 'Powertop\|Petro Mass')/$("$uom" classes --all | grep -c 'Powertop\|Petro Mass')"
is "default unit" "* F 459.67" "$("$uom" units Temp --slate English | awk '$1 == "*" { print $1, $2, $3 }')"
is "components" "Offered: lb-ft2, lb-in2, kg-m2, g-cm2 Mass (Mass) Length (Leng 2)" \
    "$("$uom" units Inertia | sed -n '1p; /^$/ { n; p; }' | xargs)"
is "root" "HXREPORTSI HXREPORT HXSI" "$("$uom" slates | awk '$1 == "HXREPORTSI" { print $1, $2, $3 }')"
{ cat "$data"; printf 'BEGINSLATE\n%s\nBasedOn=%s\nENDSLATE\n' Child orphan Orphan Nowhere; } >orphan.txt
is "a parent that is no slate" "Child Orphan;Orphan Orphan;" \
    "$("$uom" --data orphan.txt slates | awk '/^(Child|Orphan)/ { printf "%s %s;", $1, $3 }')"
# A long line of parents, and a circle with a way into it.
{
    printf '[S0]\nBasedOn=si\n'
    for ((i = 1; i < 400; i++)); do printf '[S%d]\nBasedOn=S%d\n' $i $((i - 1)); done
    printf '[Round1]\nBasedOn=Round2\n[Round2]\nBasedOn=Round1\n[Into]\nBasedOn=round2\n'
} >roots.txt
is "roots" "S0 si SI;S399 S398 SI;Round1 Round2 allowDelete;Round2 Round1 allowDelete;Into round2 allowDelete;" \
    "$("$uom" --define roots.txt slates | awk '/^(S0|S399|Round|Into)/ { printf "%s %s %s;", $1, $2, $3 }')"

is "show" "kPa/(m³/sec)²" "$("$uom" show --style TokenSuper "Pres/VolRate 2" --units "kpa/(m³/sec)2")"
is "show in a slate" "lb/ft<SUP>3</SUP>" "$("$uom" show Density --slate English --style html)"
is "show in Current" "$("$uom" show Rate --slate English)" "$("$uom" show Rate)"
is "unknown class" 'uom: Parsing UOM class string "Nope" but unable to identify the UOM class "Nope".status 1' \
    "$("$uom" show Nope 2>&1 | tr -d "\n"; echo "status ${PIPESTATUS[0]}")"
is "mode" "StdLiqVol Liq. Vol." "$("$uom" --mode kesta units Basis | grep -o '^StdLiqVol') $("$uom" units Basis | grep -o '^Liq. Vol.')"
is "molar" "Molar Mole" "$(for how in --molar --mole; do "$uom" units Quantity $how; done |
    sed -n 's/^Mol.* (\(.*\))$/\1/p' | xargs)"

cat >plant.txt <<'TEXT'
# a comment
// and another

[Plant]
  BasedOn=Base
  Pres=kPa
  NewClass0=DensFlux,MassRate / Area
  DensFlux=kg/hr-m2
[Base]
BasedOn=Metric
CopyFrom=Metric
TEXT
is "definition" "BasedOn=Base DensFlux=kg/hr-m2 0" \
    "$("$uom" --define plant.txt slate Plant | grep '^BasedOn\|^DensFlux=' | xargs) $?"
is "copied" "C" "$("$uom" show Temp --slate Base --define plant.txt)"
for slate in Current HXSI; do
    "$uom" slate $slate >once.txt
    is "$slate reads back" "$(cat once.txt)" "$("$uom" --define once.txt slate $slate)"
done
is "layouts" "BasedOn=English English English" "$(for n in 2 1 0; do "$uom" slate Current --layout $n; done | grep English | xargs)"

cat >broken.txt <<'TEXT'
Temp=C
[Plant]
BasedOn=Nowhere
Pres=kPaa
Wrong=C
Temp
CopyFrom=None
NewClass0=A
NewClass1=B,Nope / Nope
gaugepresbasis=83,5
GaugePresBasis=-1
GaugePresBasis=inf
GaugePresBasis= 83.5
GaugePresBasis=
GaugePresBasis=0
[x
TEXT
is "each broken line" '1:1 2:4 3:5 4:6 5:7 6:8 7:9 8:10 9:11 10:12 11:13 12:16 13:3 status 1' \
    "$("$uom" --define broken.txt slates 2>&1 | sed -n 's/^uom: broken.txt:\([0-9]*\): ..*/\1/p' | grep -n . | xargs) status $("$uom" --define broken.txt slates >/dev/null 2>&1; echo $?)"
is "its message" 'uom: broken.txt:5: Unrecognized Unit-of-Measure class "Wrong".' \
    "$("$uom" --define broken.txt slates 2>&1 | grep :5:)"
printf '[Plant]\nBasedOn=Metrik\nCopyFrom=Englisch\nPres=kPs\n' >near.txt
is "names that are near" 'near.txt:3: There is no slate "Englisch". Did you mean "English"?
near.txt:4: UOM string "kPs": unidentified UOM for UOM class "Pres". Did you mean "kPa"?
near.txt:2: There is no slate "Metrik". Did you mean "Metric"?' "$("$uom" --define near.txt slates 2>&1 | sed 's/^uom: //')"
for words in "slate Plnat" "show Temp --slate Plnat" "units Temp --slate Plnat"; do
    # shellcheck disable=SC2086 # words
    is "$words" 'uom: There is no slate "Plnat". Did you mean "Plant"?' "$("$uom" --define plant.txt $words 2>&1)"
done
is "a pressure that is none" \
    'uom: broken.txt:10: "83,5" is no atmospheric pressure: "gaugepresbasis" wants a number in kPa.' \
    "$("$uom" --define broken.txt slates 2>&1 | grep :10:)"
is "no such definitions" 'uom: Unable to read the slate definitions "none.txt".' "$("$uom" --define none.txt slates 2>&1)"
# What some editors put in front of a text file.
printf '\xEF\xBB\xBF[Marked]\r\nBasedOn=SI\r\nTemp=C\r\n' >marked.txt
is "definitions behind a byte-order mark" "C" "$("$uom" --define marked.txt show Temp --slate Marked 2>&1)"
is "a definition file that is checked" "status 0" "$(run check marked.txt)"
exit $failed
