#!/usr/bin/env bash
# uom check: silent on the shipped data file; one of each fault, and nothing else, in a file broken here.
# Arguments: the tool, the source directory.
set -u
uom=$1 data=$2/data/uomdata.txt
. "$(dirname "$0")/checks.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

is "shipped file" "status 0" "$("$uom" check "$data" 2>&1; echo "status $?")"
is "shipped aliases" "status 0" "$("$uom" check "${data%/*}/aliases.txt" 2>&1; echo "status $?")"
printf '%s\n' '// ours' 'kilopond = kgf // as is' 'bucket = 10 litter' '[Pres Nope]' 'x' '[]' 'bucket = 3 liter' >aliases.txt
is "aliases" 'aliases.txt:3: "litter" is no unit that is known here. Did you mean "10 liter"?
aliases.txt:4: there is no class "Nope"
aliases.txt:5: this is no "alias = unit text"
aliases.txt:7: "bucket" stands in line 3 already
status 1' "$("$uom" check aliases.txt 2>&1; echo "status $?")"
printf '%s\n' '[Plant]' BasedOn=SI Pres=kPs Presure=kPa Htco=BTU/ft2-hr-F Temp=C GaugePresBasis=90 >slate.txt
is "slate" 'slate.txt:3: "kPs" is no unit that is known here. Did you mean "kPa"?
slate.txt:4: "Presure" is no class of quantities. Did you mean "Pres"?
slate.txt:5: a slate takes units as the catalogue prints them: "BTU/hr-ft2-F"
status 1' "$("$uom" check slate.txt 2>&1; echo "status $?")"
printf '%s\n' 'm = ft' '[Pres' >hides.txt
is "aliases that hide units" 'hides.txt:1: "m" is a unit of Leng, which the alias hides
hides.txt:2: "[Pres" has no "]" at its end
status 1' "$(run check hides.txt)"
cat >odd.txt <<'TEXT'
Temp=C
[P]
# a remark
BasedOn=Nowhere
Temp=C
temp=F
Pres=
=
nonsense
[]
Temp=C
[P2
Temp=C
[R1]
BasedOn=R2
[R2]
BasedOn=R1
[p]
NewClass0=OddFlux,MassRate / Area
OddFlux=kg/hr-m2
OdFlux=kg/hr-m2
TEXT
is "slate definitions that cannot be meant" '1: "Temp=C" does not belong to a slate.
4: There is no slate "Nowhere".
6: "temp" stands in line 5 already
7: there are no units behind "Pres="
8: "=" has nothing in front of the "=".
9: "nonsense" is not a key=value line.
10: "[]" is not a section name.
11: "Temp=C" does not belong to a slate.
12: "[P2" is not a section name.
13: "Temp=C" does not belong to a slate.
15: "R1" is based on itself, by way of "r2"
17: "R2" is based on itself, by way of "r1"
18: "p" stands in line 2 already
21: "OdFlux" is no class of quantities. Did you mean "OddFlux"?' "$("$uom" check odd.txt | sed 's/^odd.txt://')"
"$uom" slate Current >current.txt
is "what the tool writes" "status 0" "$(run check current.txt)"
echo nonsense >nonsense.txt
is "several files, and standard input" 'nonsense.txt:1: this is no data file, no file of aliases and none of slate definitions
hides.txt:1: "m" is a unit of Leng, which the alias hides
hides.txt:2: "[Pres" has no "]" at its end
standard input:1: "m" is a unit of Leng, which the alias hides
status 1' "$(head -1 hides.txt | run check nonsense.txt hides.txt -)"
is "no file" 'uom: Unable to open the Unit of Measure data file "none.txt".; status 1' \
    "$("$uom" check none.txt 2>&1 | tr '\n' ';'; echo " status ${PIPESTATUS[0]}")"

blanks=$(printf '%131s' '')
sed -e '/^BEGINUOMLIST/i Stray=1\nUOMOPTION fast' \
    -e "/^ENDUOMLIST/i five FIVE 'Five' 0 0.0\nseven SEVEN 'Seven' 0 0.0 1.0 7\nword WORD 'Word' 0 0.0 1.0x" \
    -e "/^ENDUOMLIST/i KPA KPA2 'Again' 0 0.0 1.0\n9th NINTH 'Digit' 0 0.0 1.0\n'a - b' AB 'Blanks' 0 0.0 1.0" \
    -e "/^ENDUOMLIST/i lost LOST 'Lost' 0 0.0 1.0 // remark\nret RET 'Return' 0 0.0 1.0\r" \
    -e "/^ENDUOMLIST/i split SPLIT 'Split' 0 0.0 1.0${blanks}tail" \
    -e "/^ENDUOMLIST/i zero ZERO 'Zero' 0 0.0 0\nminus MINUS 'Minus' 0 0.0 -1\nnone1 NAN 'NaN' 2 inf nan" \
    -e '/^BTU\/Kg-C /d' \
    -e '/^Dimensionless$/s/.*/Nonsense/' \
    -e '/^ENDSELECTLISTS/i BEGINLIST\nOXTimeList\nsec\nnone\nENDLIST' \
    -e "/^BEGINCLASSLIST/a Early=Late\nSpaced = 'Mass / Time'\nBad='Nope / Time'\nLate='Mass / Area'" \
    -e '/^ENDCLASSLIST/a BEGINCOMMONLIST\nHollow\nENDCOMMONLIST\nBEGINLIST\nANGLE\ndeg\nrad\nENDLIST' \
    -e '/^OXInternal$/s/.*/Elsewhere/' "$data" >broken.txt
cat >>broken.txt <<'TEXT'
BEGINSLATE
Plant
BasedOn=Nowhere
CopyFrom=Nobody
Wrong=C
Leng=foot
Mass
VapVolRate=SCF/fortnight
NewClass0=Rapid
GaugePresBasis=high
TEXT

line() { grep -nF -- "$1" broken.txt | head -1 | cut -d: -f1; }
last=$(wc -l <broken.txt)
sed 's/^/broken.txt:/' >expected.txt <<TEXT
$(line Stray=1): the line belongs to no section and is not read: Stray=1
$(line 'UOMOPTION fast'): "fast" is no option
$(line five): the unit has 5 fields in place of 6
$(line seven): the unit has 7 fields in place of 6
$(line 1.0x): the factor "1.0x" is not a number
$(line KPA2): the unit "KPA" is hidden by that of line $(line '"Kilopascal"')
$(line NINTH): the unit "9th" can't be found in a text
$(line 'a - b'): the unit "a - b" can't be found in a text
$(line lost): the comment mark in the line hides all of it: lost LOST 'Lost' 0 0.0 1.0 // remark
$(line ret): a carriage return stays in the last field (lines with one: 1)
$(line split): the line has more than 131 characters, the rest is read as a line of its own: tail
$(line split): the unit has 1 fields in place of 6
$(line ZERO): the factor "0" is not a finite number above 0
$(line MINUS): the factor "-1" is not a finite number above 0
$(line "'NaN'"): the multiplier style "2" is not 0 or 1
$(line "'NaN'"): the offset "inf" is not a finite number
$(line "'NaN'"): the factor "nan" is not a finite number above 0
$(line ENDUOMLIST): the unit "BTU/Kg-C" is missing
$(line Nonsense): the list "Nonsense" names no class and no application list
$(line BTU/Kg-C): "BTU/Kg-C" in the list "Cp" is no unit
$(grep -nF BTU/Kg-C broken.txt | sed -n '2s/:.*//p'): "BTU/Kg-C" in the list "OXHeatCapList" is no unit
$(grep -nF OXTimeList broken.txt | sed -n '2s/:.*//p'): the list "OXTimeList" replaces that of line $(line OXTimeList)
$(grep -nx none broken.txt | cut -d: -f1): the placeholder "none" in the list "OXTimeList" can't be a unit
$(line Early): UOM class "Early" was not created: "Late" is only known further down.
$(line Spaced): UOM class "=" not recognized or does not exist. New class was not created.
$(line Bad=): UOM class "Nope / Time" not recognized or does not exist. New class was not created.
$(line Hollow): the common list "Hollow" has no items
$(line ANGLE): the list "ANGLE" replaces that of line $(grep -nx Angle broken.txt | cut -d: -f1)
$(line ANGLE): the list "ANGLE" stands behind classes or slates that may need it
$((last - 8)): ENDSLATE is missing at the end of the file
$((last - 7)): the parent "Nowhere" is no slate
$((last - 6)): the slate "Nobody" is not known here and is not copied
$((last - 5)): Unrecognized Unit-of-Measure class "Wrong".
$((last - 4)): UOM string "foot": unidentified UOM for UOM class "Leng".
$((last - 3)): "Mass" is not a key=value line
$((last - 2)): UOM string "SCF/fortnight" at character 5: unidentified UOM for UOM class "Time".
$((last - 1)): "NewClass0" needs a class, a comma and its definition
$last: "high" is no atmospheric pressure: "GaugePresBasis" wants a number in kPa.
$last: the class "Dimensionless" has no list of units
$last: the slate "OXInternal" is missing
TEXT
[ -z "$windows" ] || sed -i '/a carriage return stays/d' expected.txt # it belongs to the ends of lines there
"$uom" check broken.txt >found.txt
is "status of a broken file" 1 $?
# In the order of the lines; what is found at one line may stand in any order.
diff <(sort expected.txt) <(sort found.txt) || is "findings" expected "other ones, above"
is "order of lines" "$(cut -d: -f2 found.txt | sort -n)" "$(cut -d: -f2 found.txt)"

sed '/^ENDSELECTLISTS/i ENDSLATE' "$data" >order.txt
n=$(grep -nx ENDSLATE order.txt | head -1 | cut -d: -f1)
is "keyword in a wrong place" "order.txt:$n: UOM File \"order.txt\", Error on line $n, \"ENDSLATE\" not expected." \
    "$("$uom" check order.txt)"
sed 's/$/\r/' "$data" >returns.txt
finding="returns.txt:1: a carriage return stays in the last field (lines with one: $(wc -l <"$data"))"
[ -z "$windows" ] || finding=
is "carriage returns" "$finding" "$("$uom" check returns.txt)"
for option in qx71 orbex kesta molar; do
    sed "s/^UOMOPTION.*/UOMOPTION $option/" "$data" >option.txt
    is "with the option $option" "" "$("$uom" check option.txt 2>&1)"
done
exit $failed
