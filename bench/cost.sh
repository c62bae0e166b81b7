#!/usr/bin/env bash
# What texts from outside cost: counts the instructions that a text of a size takes, and one of twice the size, and
# complains where these are more than 2.3 times as many. Instructions, and no times: a busy machine makes no difference.
#   cost.sh VALGRIND UOM_COST [TOOL]      the tool for CSV files
#   cost.sh VALGRIND UOM_COST TOOL NAME   one text of those that uom_cost names
set -euo pipefail
valgrind=$1 cost=$2 tool=${3-} only=${4-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

count() { # program, arguments
    "$valgrind" --tool=cachegrind --cache-sim=no --cachegrind-out-file=/dev/null "$@" >/dev/null 2>"$work/log" </dev/null || {
        tail -n 5 "$work/log" >&2
        return 1
    }
    sed -n 's/^==[0-9]*== I *refs: *//p' "$work/log" | tr -d ,
}

# judge NAME SIZE NONE ONCE TWICE: counts for no text, for one of the size, for one of twice the size. What is refused at
# a glance takes next to nothing at any size.
judge() {
    awk -v name="$1" -v size="$2" -v none="$3" -v once="$4" -v twice="$5" 'BEGIN {
        first = once - none; second = twice - none
        ratio = second / (first > 1 ? first : 1)
        grows = second > 20000
        printf "%-20s %7d %12d %12d %6.2f\n", name, size, first, second, ratio
        exit grows && ratio > 2.3
    }' || {
        echo "  that is more than twice as much"
        failed=1
    }
}

printf '%-20s %7s %12s %12s %6s\n' text size once twice ratio
while read -r name size; do
    [ -z "$only" ] || [ "$only" = "$name" ] || continue
    judge "$name" "$size" "$(count "$cost" "$name" 0)" "$(count "$cost" "$name" "$size")" \
        "$(count "$cost" "$name" $((2 * size)))"
done < <("$cost")

# Files: rows, columns, cells of any length, quotation marks.
repeated() { awk -v count="$1" -v piece="$2" 'BEGIN { while (count-- > 0) printf "%s", piece }'; }
rows() { repeated "$1" $'10,"a ""b""",x\n'; }
columns() { repeated "$1" 10,; }
cell() { head -c "$1" /dev/zero | tr '\0' x; }
marks() { repeated $(($1 / 2)) '""'; }
csv() { # name, size, command that writes so much behind a first cell
    [ -z "$only" ] || [ "$only" = "csv-$1" ] || return 0
    local counts=()
    for size in 0 "$2" $((2 * $2)); do
        { printf 'L,M\n10,'; "$3" "$size"; printf '\n'; } >"$work/in.csv"
        counts+=("$(count "$tool" convert --csv "$work/in.csv" --column L=ft:m@Leng)")
    done
    judge "csv-$1" "$2" "${counts[@]}"
}
if [ -n "$tool" ]; then
    csv rows 4000 rows
    csv columns 20000 columns
    csv cell 50000 cell
    csv marks 50000 marks
fi
exit $failed
