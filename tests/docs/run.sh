#!/usr/bin/env bash
# The pages for users, held against the tool and the examples. Arguments: the tool, the source directory.
#
#   ```console   "$ command", then just what it prints, on both outputs. The commands of a page run one behind the
#                other in a directory of their own, which holds a copy of uomdata.txt. "scripts/run" stands for the
#                tool. "$ cat FILE" of a file that is not there yet makes it from the lines shown.
#   table row    with a cell `uom ...` and behind it a cell `what it prints`
#   ```c         a whole file of examples/c when it has a main(), else lines that stand together in one of them
#   ```cpp, ```fortran   lines that stand together in a file of examples/cpp, examples/fortran
#   links        to files of this tree
#
# Indentation does not count in lines of code.
set -u
root=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
PATH=$(dirname "$1"):$PATH
export LC_ALL=C.UTF-8
failed=0 commands=0 quotes=0

wrong() { # place, what, then an expected and a found text
    printf '%s: %s\n' "$1" "$2"
    [ $# -lt 4 ] || diff <(printf '%s\n' "$3") <(printf '%s\n' "$4") | sed -n 's/^</  shown:/p; s/^>/  found:/p'
    failed=1
}

# --- shell examples

status=0 # of the last command of the page
run_command() { # place, command, expected lines
    local place=$1 command=$2 expected=$3 found
    commands=$((commands + 1))
    if [[ $command =~ ^cat\ ([A-Za-z0-9_.-]+)$ && ! -e ${BASH_REMATCH[1]} ]]; then
        printf '%s\n' "$expected" >"${BASH_REMATCH[1]}"
        status=0
        return
    fi
    command=${command//scripts\/run /uom }
    found=$( (exit $status); eval "$command" 2>&1 </dev/null)
    status=$?
    [ "$found" = "$expected" ] || wrong "$place" "$command" "$expected" "$found"
}

# --- code

bare() { sed 's/^[[:blank:]]*//; s/[[:blank:]]*$//'; }

check_code() { # place, language, text
    local place=$1 language=$2 text=$3 file bareText
    quotes=$((quotes + 1))
    bareText=$'\n'$(bare <<<"$text")$'\n'
    for file in "$root/examples/$language"/*; do
        case $text in
        *'int main('*) [ "$text" != "$(cat "$file")" ] || return 0 ;;
        *) [[ $'\n'$(bare <"$file")$'\n' != *"$bareText"* ]] || return 0 ;;
        esac
    done
    wrong "$place" "the lines stand in no file of examples/$language"
}

# --- pages

check_links() { # page, line number, line
    local rest=$3 target
    while [[ $rest =~ \]\(([^\)#]+)(#[^\)]*)?\)(.*)$ ]]; do
        target=${BASH_REMATCH[1]} rest=${BASH_REMATCH[3]}
        [[ $target == *://* || -e $root/$(dirname "$1")/$target ]] || wrong "$1:$2" "no such file: $target"
    done
}

check_page() { # page, from the root
    local page=$1 number=0 block='' text='' command='' place='' line
    local row='\| `(uom [^`]*)` \| `([^`]*)` \|'
    mkdir -p "$work/$page"
    cd "$work/$page" || exit 1
    cp "$root/data/uomdata.txt" .
    status=0
    end_command() {
        [ -z "$command" ] || run_command "$place" "$command" "${text%$'\n'}"
        command='' text=''
    }
    while IFS= read -r line; do
        number=$((number + 1))
        if [[ $line == '```'* && -z $block ]]; then
            block=${line#'```'} text='' place=$page:$number
            block=${block:-plain}
        elif [[ $line == '```' ]]; then
            case $block in
            console) end_command ;;
            c | cpp | fortran) check_code "$place" "$block" "${text%$'\n'}" ;;
            esac
            block=''
        elif [[ $block == console && $line == '$ '* ]]; then
            end_command
            command=${line#'$ '} place=$page:$number
        elif [[ $block == console && $command == *\\ ]]; then
            command=${command%\\}$line
        elif [[ -n $block ]]; then
            text+=$line$'\n'
        else
            [[ ! $line =~ $row ]] || run_command "$page:$number" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
            check_links "$page" $number "$line"
        fi
    done <"$root/$page"
    [ -z "$block" ] || wrong "$page:$number" "a block is not closed"
}

cd "$root" || exit 1
for page in README.md CONTRIBUTING.md docs/*.md examples/*.md; do
    check_page "$page"
    cd "$root" || exit 1
done
echo "$commands commands and $quotes pieces of code in the documents"
[ $commands -gt 0 ] && [ $quotes -gt 0 ] || failed=1
exit $failed
