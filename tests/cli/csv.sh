#!/usr/bin/env bash
# uom convert --csv: what becomes of cells, rows and bytes. Arguments: the tool, the source directory.
set -u
uom=$1
. "$(dirname "$0")/checks.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

csv() { # arguments of the tool behind --csv, from standard input; shows line ends, messages and status
    local status
    "$uom" convert --csv "$@" 2>messages.txt | sed -n 'H; ${ x; s/^\n//; s/\n/\\n/g; s/\r/\\r/g; s/\t/\\t/g; s/\xEF\xBB\xBF/\\xEF\\xBB\\xBF/; p; }'
    status=${PIPESTATUS[0]}
    sed 's/^uom: //' messages.txt
    [ "$status" = 0 ] || echo "status $status"
}

# 1 ft is 0.3048 m, 12 in; 212 F are 100 C; 1 kPa is 1000 Pa. The text, the arguments, what comes out.
while IFS='!' read -r title text arguments expected; do
    # shellcheck disable=SC2086,SC2059 # words, a format
    is "$title" "$expected" "$(printf "$text" | csv - $arguments | paste -sd';')"
done <<'TEXT'
by heading!L,b\n1,x\n10,y\n!--column L=ft:m@Leng!L,b\n0.3048,x\n3.048,y
by number!L,b\n1,x\n!--column 1=ft:m@Leng!L,b\n0.3048,x
a heading goes before a number!2,b\n10,20\n!--column 2=ft:m@Leng!2,b\n3.048,20
the class by option!L,b\n1,1\n!--column L=ft:m --column b=m:ft --class Leng --precision 3!L,b\n0.305,3.28
the class of a column before that!L,T\n1,212\n!--column L=ft:m --column T=F:C@Temp --class Leng!L,T\n0.3048,100
a slate for units!L,b\n10,\n!--column L=English:SI@Leng!L,b\n3.048,
columns in any order!a,b,c\n1,2,212\n!--column c=F:C@Temp --column a=ft:m@Leng!a,b,c\n0.3048,2,100
no header!10,x\n20,y\n!--no-header --column 1=ft:m@Leng!3.048,x\n6.096,y
no header, the second!x,10\n!--no-header --column 2=ft:m@Leng!x,3.048
CRLF!L,b\r\n1,x\r\n10,y\r\n!--column L=ft:m@Leng!L,b\r\n0.3048,x\r\n3.048,y\r
CRLF behind a number!b,L\r\nx,1\r\ny,10\r\n!--column L=ft:m@Leng!b,L\r\nx,0.3048\r\ny,3.048\r
both line ends!b,L\nx,1\r\ny,10\n!--column L=ft:m@Leng!b,L\nx,0.3048\r\ny,3.048
last line without an end!b,L\nx,10!--column L=ft:m@Leng!b,L\nx,3.048
last line with half an end!b,L\nx,10\r!--column L=ft:m@Leng!b,L\nx,3.048\r
a header alone!b,L!--column L=ft:m@Leng!b,L
a mark of the byte order!\xEF\xBB\xBFL,b\n10,x\n!--column L=ft:m@Leng!\xEF\xBB\xBFL,b\n3.048,x
a mark, and no header!\xEF\xBB\xBF10,x\n!--no-header --column 1=ft:m@Leng!\xEF\xBB\xBF3.048,x
quoted numbers!L,b\n"10",x\n" 20 ","y"\n!--column L=ft:m@Leng!L,b\n"3.048",x\n" 6.096 ","y"
quoted cells on the way!a,L,b\n"x,""1""\n2",10,"3,\n"\n"",20,\n!--column L=ft:m@Leng!a,L,b\n"x,""1""\n2",3.048,"3,\n"\n"",6.096,
quotes inside cells!a,L\n5" pipe,10\nx"y,20\n!--column L=ft:m@Leng!a,L\n5" pipe,3.048\nx"y,6.096
text behind a closing quote!a,L\n"x"y,10\n"x" ,20\n!--column L=ft:m@Leng!a,L\n"x"y,3.048\n"x" ,6.096
quoted headings!"the ""L"", in ft",b\n10,x\n!--column 1=ft:m@Leng!"the ""L"", in ft",b\n3.048,x
empty cells!L,b\n,x\n"",y\n  ,z\n" ",w\n10,\n!--column L=ft:m@Leng!L,b\n,x\n"",y\n  ,z\n" ",w\n3.048,
empty and long rows!a,L\n\n \n\r\ny,10,more,30\n!--column L=ft:m@Leng!a,L\n\n \n\r\ny,3.048,more,30
short rows!a,L,c,M\nx\ny,10\n!--column L=ft:m@Leng --column M=ft:m@Leng!a,L,c,M\nx\ny,3.048;the standard input: row 2, column "L": the row ends in front of it.;the standard input: row 2, column "M": the row ends in front of it.;the standard input: row 3, column "M": the row ends in front of it.;status 3
CR alone!L,b\r1,x\r10,y\r!--column L=ft:m@Leng!L,b\r0.3048,x\r3.048,y\r
all line ends, and a quoted one!b,L\r"x\r",1\r\ny,10\nz,x\rw,20\n!--column L=ft:m@Leng!b,L\r"x\r",0.3048\r\ny,3.048\nz,x\rw,6.096;the standard input: row 4, column "L": "x" is not a number.;status 3
blanks and signs!L,b\n 10 ,x\n\t+20,y\n-10,z\n!--column L=ft:m@Leng!L,b\n 3.048 ,x\n\t6.096,y\n-3.048,z
forms of numbers!L\n1e1\n1E+01\n10.\n.1e2\n0010\n!--column L=ft:m@Leng!L\n3.048\n3.048\n3.048\n3.048\n3.048
no value!L\nnan\nNaN\n-2e35\ninf\n!--column L=ft:m@Leng!L\nnan\nNaN\n-2e35\ninf
large and small!L\n1e300\n1e-300\n!--column L=m:mm@Leng!L\n1e+303\n1e-297
semicolons!a;L\nx,y;10\n!--separator ; --column L=ft:m@Leng!a;L\nx,y;3.048
tabs!a\tL\nx\t10\n\t20\n!--separator tab --column L=ft:m@Leng!a\tL\nx\t3.048\n\t6.096
bad cells!b,L\nx,abc\ny,1,5\nz,"1,5"\nw,10 ft\nv,0x10\nu,10\n!--column L=ft:m@Leng!b,L\nx,abc\ny,0.3048,5\nz,"1,5"\nw,10 ft\nv,0x10\nu,3.048;the standard input: row 2, column "L": "abc" is not a number.;the standard input: row 4, column "L": "1,5" is not a number.;the standard input: row 5, column "L": "10 ft" is not a number.;the standard input: row 6, column "L": "0x10" is not a number.;status 3
no finite result!L\n1e308\n1\nx\ninf\n!--column L=km:mm@Leng!L\n1e308\n1e+06\nx\ninf;the standard input: row 2, column "L": "1e308" has no finite result.;the standard input: row 4, column "L": "x" is not a number.;status 3
too large a number!L\n1e999\n-1e999\n!--column L=ft:m@Leng!L\n1e999\n-1e999;the standard input: row 2, column "L": "1e999" is not a number.;the standard input: row 3, column "L": "-1e999" is not a number.;status 3
bad cells behind quoted line ends!a,L\n"1\n2",x\n"3\n4",--5\n!--column L=ft:m@Leng!a,L\n"1\n2",x\n"3\n4",--5;the standard input: row 2, column "L": "x" is not a number.;the standard input: row 3, column "L": "--5" is not a number.;status 3
bad cells without a header!x,y\n!--no-header --column 2=ft:m@Leng!x,y;the standard input: row 1, column "2": "y" is not a number.;status 3
an open quote!L,b\n10,x\n"10,y\n20,z\n!--column L=ft:m@Leng!L,b\n3.048,x\n"10,y\n20,z;the standard input: row 3, column "L": ""10,y 20,z" is not a number.;the standard input: row 3: a quotation mark is not closed; what is behind it was not converted.;status 1
an open quote elsewhere!P,R\n1,"5 inch\n2,x\n!--column P=m:cm@Leng!P,R\n100,"5 inch\n2,x;the standard input: row 2: a quotation mark is not closed; what is behind it was not converted.;status 1
an open quote in the header!P,"R\n1,2\n!--column P=m:cm@Leng!the standard input: row 1: a quotation mark is not closed; what is behind it was not converted.;status 1
a quote closed at the end!P,R\n1,"a""b"!--column P=m:cm@Leng!P,R\n100,"a""b"
no such column!L,"b, c"\n1,2\n!--column M=ft:m@Leng!There is no column "M"; those there are: "L", "b, c".;status 1
number 0!L,b\n1,2\n!--column 0=ft:m@Leng!There is no column "0"; those there are: "L", "b".;status 1
a number beyond!L,b\n1,2\n!--column 3=ft:m@Leng!There is no column "3"; those there are: "L", "b".;status 1
a number beyond, no header!1,2\n!--no-header --column 3=ft:m@Leng!There is no column "3"; the first row has 2 cells.;status 1
a heading without a header!L,2\n!--no-header --column L=ft:m@Leng!There is no column "L"; the first row has 2 cells.;status 1
two of a name!L,L\n1,2\n!--column L=ft:m@Leng!There are 2 columns "L": name the one by its number.;status 1
a column twice!L,b\n1,2\n!--column L=ft:m@Leng --column 1=m:ft@Leng!"L" and "1" are the same column.;status 1
a heading that is near!Pres,b\n1,2\n!--column Prs=ft:m!There is no column "Prs"; those there are: "Pres", "b". Did you mean "Pres"?;status 1
two meanings!T\n212\n!--column T=F:C!T\n100;Column "T": Read as Temp; as TempDiff, 1 F is 0.555556 C.
classic units!W\n1\n!--classic --column W=mW:MW@Power!W\n1
UTF-16!\xFF\xFEL\0\n\0!--column L=ft:m!the standard input is UTF-16: UTF-8 is wanted (iconv -f UTF-16 -t UTF-8).;status 1
no class!L,b\n1,2\n!--column L=ft:m!L,b\n0.3048,2
a bad class!L,b\n1,2\n!--column L=ft:m@Nope!Column "L": "Nope" is no class of quantities.;status 1
a bad unit!L,b\n1,2\n!--column L=nope:m@Leng!Column "L": "nope" is no unit that is known here.;status 1
no header line!!--column L=ft:m@Leng!There is no header line in the standard input.;status 1
TEXT
is "superscripts" $'A\n0.09290304' "$(printf 'A\n1\n' | "$uom" convert --csv - --column A=ft²:m²@Area)"
is "a heading with a blank, = and :" $'a = b:c\n3.048' \
    "$(printf 'a = b:c\n10\n' | "$uom" convert --csv - --column 'a = b:c=ft:m@Leng')"
is "a quoted heading" $'"the ""L"""\n3.048' "$(printf '"the ""L"""\n10\n' | "$uom" convert --csv - --column 'the "L"=ft:m@Leng')"

# More bad cells than are told, and a long one.
{ echo L,n; seq -f 'x%g,1' 30; printf '%060d,1\n' 0 | tr 0 z; } >bad.csv
"$uom" convert --csv bad.csv --column L=ft:m@Leng >out.csv 2>messages.txt
is "status of bad cells" 3 $?
cmp -s bad.csv out.csv || is "bad cells" "as they were" "others"
is "so many are told" 21 "$(wc -l <messages.txt)"
is "the last told" 'uom: "bad.csv": row 21, column "L": "x20" is not a number.;uom: "bad.csv": 11 more cells were not converted.;' \
    "$(tail -2 messages.txt | tr '\n' ';')"
is "a long cell" "\"$(printf '%040d' 0 | tr 0 z)...\" is not a number." \
    "$(tail -1 bad.csv | "$uom" convert --csv - --no-header --column 1=ft:m@Leng 2>&1 >/dev/null | sed 's/.*: //')"
is "a long cell of longer characters" "\"x$(printf 'ö%.0s' {1..19})...\" is not a number." \
    "$(printf 'x%s\n' "$(printf 'ö%.0s' {1..30})" | "$uom" convert --csv - --no-header --column 1=ft:m@Leng 2>&1 >/dev/null | sed 's/.*: //')"

# A file of many blocks, with cells that reach over their ends: awk has the same numbers, rows and messages.
seq 400000 | awk 'BEGIN { print "n,L,text,P" }
    { printf "%d,%.1f,%s,%d\n", $1, $1 / 8, $1 % 7 ? "plain" : "\"a,\n\"\"b\"\"\"", $1 % 1000 == 0 ? "" : $1 }' >many.csv
"$uom" convert --csv many.csv --column L=ft:in@Leng --column P=kPa:Pa@Pres --precision 10 -o out.csv
is "status of many rows" 0 $?
awk 'BEGIN { FS = OFS = ","; OFMT = CONVFMT = "%.10g" }
    NR > 1 && NF == 4 { $2 = $2 * 12; if ($4 != "") $4 = $4 * 1000 }
    NF == 3 { $2 = $2 * 12 } /^"?"b/ && $2 != "" { $2 = $2 * 1000 } { print }' many.csv >expected.csv
cmp -s expected.csv out.csv || is "many rows" "$(diff expected.csv out.csv | sed -n 's/^< //p' | head -1)" "$(diff expected.csv out.csv | sed -n 's/^> //p' | head -1)"
is "from a pipe" "$(cksum <out.csv)" "$(cat many.csv | "$uom" convert --csv - --column L=ft:in@Leng --column P=kPa:Pa@Pres --precision 10 | cksum)"
{ echo L; seq 0.1 0.7 9000; } >plain.csv
is "as values by themselves" "$(sed 1d plain.csv | "$uom" convert --precision 14 Leng ft m | cksum)" \
    "$("$uom" convert --csv plain.csv --column L=ft:m@Leng --precision 14 | sed 1d | cksum)"
sed 's/^399999,[^,]*/399999,bad/' many.csv >late.csv
is "a bad cell far behind" 'uom: "late.csv": row 400000, column "L": "bad" is not a number.;3' \
    "$("$uom" convert --csv late.csv --column L=ft:in@Leng 2>&1 >/dev/null | tr '\n' ';'; echo "${PIPESTATUS[0]}")"
# A row longer than a block, at the front, in the middle, and at the end.
long=$(printf '%02000000d' 0)
printf '%s,L\n"%s\n",10\n1,20\n%s,30' "$long" "$long" "$long" >long.csv
is "long rows" "$(sed 's/,10$/,3.048/; s/,20$/,6.096/; s/,30$/,9.144/' long.csv | cksum)" \
    "$("$uom" convert --csv long.csv --column L=ft:m@Leng | cksum)"
{ printf 'a,L\n"'; head -c 70000000 /dev/zero | tr '\0' 'x\n'; } >open.csv
is "a quote that is never closed" 'uom: A row of "open.csv" has more than 64 MB: a closing quotation mark is missing.;1' \
    "$("$uom" convert --csv open.csv --column L=ft:m@Leng 2>&1 >/dev/null | tr '\n' ';'; echo "${PIPESTATUS[0]}")"

# CR alone, over the ends of blocks.
tr '\n' '\r' <many.csv >returns.csv
is "many rows with CR" "$(tr '\n' '\r' <expected.csv | cksum)" \
    "$("$uom" convert --csv returns.csv --column L=ft:in@Leng --column P=kPa:Pa@Pres --precision 10 | cksum)"
seq 300000 | sed 's/.*/wide&/' | paste -sd, >wide.csv
is "a message of many columns" 1 "$("$uom" convert --csv wide.csv --column 'wde 1=ft:m@Leng' 2>&1 | awk 'length < 500' | wc -l)"
is "a tab by itself" $'a\tL\nx\t3.048' "$(printf 'a\tL\nx\t10\n' | "$uom" convert --csv - --separator $'\t' --column L=ft:m@Leng)"

# Files.
printf 'L\n10\n' >in.csv
column=(--column L=ft:m@Leng)
is "to standard output by name" $'L\n3.048\nstatus 0' "$(run convert --csv in.csv "${column[@]}" -o -)"
echo "what stood there, and longer" >out.csv
is "over a file" $'status 0\nL\n3.048' "$(run convert --csv in.csv "${column[@]}" -o out.csv; cat out.csv)"
echo "stays" >out.csv
# A file takes its name at the end; what is behind a link is replaced, with its permissions, and the rest is left alone.
if [ -z "$windows" ]; then
    chmod 640 out.csv && ln -s out.csv link.csv
    is "over a link" "status 0 640 link L 3.048" \
        "$({ run convert --csv in.csv "${column[@]}" -o link.csv; stat -c %a out.csv; [ -L link.csv ] && echo link; cat out.csv; } | xargs)"
    echo "stays" >out.csv
    printf 'L\n"1\n' | "$uom" convert --csv - "${column[@]}" -o out.csv 2>/dev/null
    is "a failed call leaves the output alone" "stays " "$(cat out.csv) $(find . -name 'out.csv.part*')"
    { echo L; seq 600000; sleep 4; } | "$uom" convert --csv - "${column[@]}" -o out.csv 2>/dev/null &
    tool=$!
    for ((i = 0; i < 30; i++)); do
        [ -z "$(find . -name 'out.csv.part*' -size +0)" ] || break
        sleep 0.1
    done
    is "the output of a call that goes on" "1 stays" "$(find . -name 'out.csv.part*' | wc -l) $(cat out.csv)"
    kill "$tool"
    wait "$tool" 2>/dev/null
    is "an interrupted call leaves the output alone" "stays " "$(cat out.csv) $(find . -name 'out.csv.part*')"
    is "a pipe for output" $'L\n3.048' "$(mkfifo pipe; cat pipe & "$uom" convert --csv in.csv "${column[@]}" -o pipe; wait)"
fi
is "a refused call leaves the output alone" "stays" "$(run convert --csv in.csv --column M=ft:m@Leng -o out.csv >/dev/null; cat out.csv)"
is "the input for output" $'uom: The output is the input file "in.csv".\nstatus 1' "$(run convert --csv in.csv "${column[@]}" -o ./in.csv)"
is "which stays" "L 10" "$(xargs <in.csv)"
is "no file" $'uom: Unable to read "none.csv": No such file or directory.\nstatus 1' "$(run convert --csv none.csv "${column[@]}")"
reason='Is a directory'
[ -z "$windows" ] || reason='Permission denied'
is "a directory" $'uom: Unable to read ".": '"$reason"$'.\nstatus 1' "$(run convert --csv . "${column[@]}")"
is "no such directory" $'uom: Unable to write "none/x": No such file or directory.\nstatus 1' \
    "$(run convert --csv in.csv "${column[@]}" -o none/x)"
is "no room" $'uom: Unable to write "/dev/full": No space left on device.\nstatus 1' "$(run convert --csv in.csv "${column[@]}" -o /dev/full)"
is "no room for many" 1 "$("$uom" convert --csv many.csv --column L=ft:m@Leng 2>/dev/null >/dev/full; echo $?)"

for usage in "--csv in.csv" "--csv in.csv Leng" "--column L=ft:m@Leng Leng ft m 1" "--no-header Leng ft m 1" \
    "--csv in.csv --column "{L,L=ft,=ft:m,L=ft:,L=:m,L=ft:m:in,ft:m,L=ft:m@} "--csv in.csv --classic --column L=ft:m" "--csv in.csv --output json --column L=ft:m" \
    "--csv in.csv --column L=ft:m@Leng --"{"format %g","from-slate SI --to-slate SI","separator .","separator x"}; do
    # shellcheck disable=SC2086 # words
    refused convert $usage
done

# The progress is for terminals.
if command -v script >/dev/null && [ -z "$windows" ]; then
    shown=$(script -qec "'$uom' convert --csv many.csv --column L=ft:m@Leng -o out.csv" /dev/null </dev/null)
    [[ $shown == *' MB, '*' MB/s'* ]] || is "progress" "MB and MB/s" "$shown"
fi
is "no progress" "" "$("$uom" convert --csv many.csv --column L=ft:m@Leng -o out.csv 2>&1)"
exit $failed
