#!/usr/bin/env bash
# Tables as CSV and as JSON. Arguments: the tool, the source directory.
set -u
uom=$1 data=$2/data/uomdata.txt
. "$(dirname "$0")/checks.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

lines() { # arguments of the tool; its first two lines, with the bytes of their ends shown
    "$uom" "$@" 2>&1 | head -2 | sed 's/\r/\\r/' | tr '\n' '|'
}
while IFS='!' read -r words csv json; do
    # shellcheck disable=SC2086 # words
    is "csv: $words" "${csv// ; /|}|" "$(lines $words --output csv)"
    # shellcheck disable=SC2086 # words
    is "json: $words" "[|  $json|" "$(lines $words --output json | sed 's/,|$/|/')"
done <<'TEXT'
classes!Number,Token,Long name,Keyword,Components\r ; 3,Dimensionless,Dimensionless,NODM,\r!{"number":3,"token":"Dimensionless","long_name":"Dimensionless","keyword":"NODM","components":""}
units Leng!Class,Unit,Offset,Factor,Description\r ; Leng,m,0,1,Meter\r!{"class":"Leng","unit":"m","offset":0,"factor":1,"description":"Meter"}
units Leng --slate SI!Default,Class,Unit,Offset,Factor,Description\r ; *,Leng,m,0,1,Meter\r!{"default":"*","class":"Leng","unit":"m","offset":0,"factor":1,"description":"Meter"}
slates!Name,Parent,Root,GaugePresBasis,Properties\r ; English,English,English,101.325,isSystem\r!{"name":"English","parent":"English","root":"English","gauge_pres_basis":101.325,"properties":"isSystem"}
slate HXREPORTSI!Key,Value\r ; BasedOn,HXREPORT\r!{"key":"BasedOn","value":"HXREPORT"}
slate HXREPORTSI --layout 1!Key,Value\r ; BasedOn,HXREPORT\r!{"key":"BasedOn","value":"HXREPORT"}
related Leng!Class,Absolute,Difference,Standard,Dimensions\r ; Leng,Leng,Leng,Leng,M 0  L 1  t 0  T 0  Q 0  $ 0\r!{"class":"Leng","absolute":"Leng","difference":"Leng","standard":"Leng","dimensions":"M 0  L 1  t 0  T 0  Q 0  $ 0"}
constants Temp C K!factor,offset\r ; 1,273.15\r!{"factor":1,"offset":273.15}
TEXT
is "units of a composite class" "Mass,lb,0,0.45359237 StdLiqVol,ft3,0,28316.846592" \
    "$("$uom" units Density --output csv | grep -o '^Mass,lb,[^,]*,[^,]*\|^StdLiqVol,ft3,[^,]*,[^,]*' | xargs)"
is "a slate in turns" "Leng,m" "$("$uom" slate HXREPORTSI --layout 0 --output csv | tr -d '\r' | grep '^Leng')"

# Cells with what the forms have for themselves: commas, quotes, backslashes, UTF-8, and a byte that is none.
{
    printf '[a, "b"]\nBasedOn=SI\nGaugePresBasis=83.5\n'
    printf '[c\\d]\nBasedOn=a, "b"\n[Gr\xC3\xB6\xC3\x9Fe]\n[Gr\xF6\xDFe 2]\n'
} >odd.txt
all="allowDelete allowModify"
is "odd cells in csv" "\"a, \"\"b\"\"\",SI,SI,83.5,$all"$'\r\n'"c\\d,\"a, \"\"b\"\"\",SI,,$all"$'\r\n'"Größe,Größe,Größe,,$all"$'\r\n'"Größe 2,Größe 2,Größe 2,,$all"$'\r' \
    "$("$uom" --define odd.txt slates --output csv | tail -4)"
is "no number" '"gauge_pres_basis":null' "$("$uom" --define odd.txt slates --output json | grep '"c' | grep -o '"gauge[^,]*')"
is "odd cells in json" '{"name":"a, \"b\"","parent":"SI","root":"SI" {"name":"c\\d","parent":"a, \"b\"","root":"SI" {"name":"Größe" {"name":"Größe 2"' \
    "$("$uom" --define odd.txt slates --output json | grep -o '^  {"name":"\(a\|c\\\).*"root":"SI"\|^  {"name":"Gr[^"]*"' | sed 's/^  //' | paste -sd' ')"
{ cat "$data"; printf 'BEGINSLATE\nBare\nBasedOn=Nowhere\nENDSLATE\n'; } >bare.txt
is "no rows" "[] status 0" "$(run check "$data" --output json | xargs)"
is "findings" '[,  {"file":"none/x","line":1,"finding":"two \"words\""},],status 1' \
    "$(mkdir none; { echo 'two "words"'; cat "$data"; } >none/x
    run check none/x --output json | sed 's/"finding":"[^t]*t[^:]*: two/"finding":"two/' | paste -sd,)"
is "what is offered" '{"class":"VolRate","unit":"liter/min","offset":null,"factor":null,"description":"Offered"}' \
    "$("$uom" units VolRate --output json | grep -o '{[^}]*"liter/min"[^}]*}')"
is "the end" ']' "$("$uom" constants Temp C K --output json | tail -1)"
is "any case" "$("$uom" slates --output csv)" "$("$uom" slates --output CSV)"
is "text" "$("$uom" slates)" "$("$uom" slates --output text)"
if command -v python3 >/dev/null; then
    for words in "classes --all" "slates --define odd.txt" "units Pres" "slate English" "check bare.txt"; do
        # shellcheck disable=SC2086 # words
        is "rows of $words" "same" "$(python3 - "$uom" $words <<'TEXT'
import csv, io, json, subprocess, sys
def out(form):
    return subprocess.run(sys.argv[1:] + ["--output", form], capture_output=True).stdout.decode("utf-8")
rows = list(csv.reader(io.StringIO(out("csv"), newline="")))
objects = json.loads(out("json"))
texts = [["" if v is None else str(v) for v in o.values()] for o in objects]
def same(a, b):
    return a == b or (b != "" and float(a) == float(b))
print("same" if len(rows) - 1 == len(texts) and all(same(a, b) for r, t in zip(rows[1:], texts) for a, b in zip(r, t))
      else "other rows")
TEXT
)"
    done
fi
refused slates --output yaml
refused show Pres --output json
exit $failed
