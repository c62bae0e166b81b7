#!/usr/bin/env bash
# What the tool writes for shells and for man. Arguments: the tool, the source directory.
set -u
uom=$1
. "$(dirname "$0")/checks.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
for shell in bash zsh fish; do
    "$uom" --generate-completion $shell >completion.$shell || is "completion for $shell" "status 0" "status $?"
done
"$uom" --generate-man >uom.1 || is "man page" "status 0" "status $?"

# --- bash, asked as it asks
# shellcheck disable=SC1091
. ./completion.bash
uom() { "$uom" "$@"; } # what is run for names
is "bash knows the command" "complete -F _uom uom" "$(complete -p uom)"
touch 'a file.csv' afile.txt
while IFS='|' read -r line expected; do
    # shellcheck disable=SC2206 # words
    COMP_WORDS=($line)
    [[ $line != *' ' ]] || COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _uom
    is "completion of '$line'" "$expected" "$(printf '%s\n' "${COMPREPLY[@]}" | sort | paste -sd,)"
done <<'TEXT'
uom con|constants,convert
uom conv|convert
uom |check,classes,constants,convert,keyword,related,report,search,show,slate,slates,typed,units
uom --mo|--mode,--molar,--mole
uom --mode |kesta,orbex,vel2go
uom --mode kesta sl|slate,slates
uom --data a|a file.csv,afile.txt
uom convert --c|--class,--classic,--column,--csv
uom convert --csv a|a file.csv,afile.txt
uom convert --csv afile.txt -o a|a file.csv,afile.txt
uom convert --no|--no-header
uom convert --column |
uom convert Tempe|
uom convert TempA|TempAbs
uom convert Temp kg/m2-hor|kg/m2-horsepower,kg/m2-horsepower-hour
uom 250 kpag|kPag
uom 5 m ft --p|--precision
uom 5 m ft --output |csv,json,text
uom --data units cl|classes
uom --precision 3 kpag|kPag
uom slate Engl|English
uom slate kPa|
uom units kPag|
uom 5 kPa/Lengt|
uom show Mass/Len|Mass/Leng
uom search het|
uom search kpag|kPag
uom units --slate MetricR|MetricRefinery
uom classes --output |csv,json,text
uom slates --define afile.txt --output j|json
uom show --style token|token,tokensuper,tokenupper
uom report --for e|enduser,excel
uom check a|a file.csv,afile.txt
uom nonsense|
uom --generate|
TEXT
unset -f uom

# Every command and every option of --help, in each text.
commands=$("$uom" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p')
[ "$(wc -w <<<"$commands")" -ge 11 ] || is "commands in --help" "11 or more" "$commands"
for command in $commands; do
    grep -q "^\.SS uom $command\b" uom.1 || is "man page" "a section on $command" "none"
    grep -q "'$command:" completion.zsh || is "zsh" "$command" "none"
    grep -q " -a $command -d " completion.fish || is "fish" "$command" "none"
    for option in $("$uom" "$command" --help | grep -o '^  \(-[a-zA-Z],\)\?--\?[a-z-]*' | tr ', ' '\n\n' | grep -v '^-h$\|^--help$'); do
        section=$(sed -n "/^\.SS uom $command\b/,/^\.S[SH] /p" uom.1 | sed 's/\\-/-/g; s/\\f[BR]/|/g')
        [[ $section == *"|$option|"* ]] || is "man page on $command" "$option" "none"
        name=${option#-}
        [[ $option == --* ]] && flag="-l ${name#-}" || flag="-s $name"
        grep -q -- "__fish_seen_subcommand_from $command' $flag " completion.fish || is "fish: $command" "$flag" "none"
        sed -n "/^        $command) _arguments/,/;;/p" completion.zsh | grep -q -- "'\*\?$option\[" || is "zsh: $command" "$option" "none"
    done
done

# --- where the other programs are
if command -v zsh >/dev/null; then
    is "zsh reads its completion" "" "$(zsh -n completion.zsh 2>&1)"
    is "zsh knows the command" "_uom" \
        "$(zsh -fc "autoload -U compinit && compinit -D -u && source ./completion.zsh && print \$_comps[uom]" 2>&1)"
fi
if command -v fish >/dev/null; then
    mkdir bin && ln -s "$uom" bin/uom
    export PATH=$work/bin:$PATH
    is "fish reads its completion" "" "$(fish -n completion.fish 2>&1)"
    is "fish completes" "constants,convert" "$(HOME=$work fish --no-config -c 'source completion.fish; complete -C "uom con"' | cut -f1 | sort | paste -sd,)"
    is "fish completes options" "--class,--classic,--column,--csv" "$(HOME=$work fish --no-config -c 'source completion.fish; complete -C "uom convert --c"' | cut -f1 | sort | paste -sd,)"
    is "fish completes options of typed texts" "--precision" "$(HOME=$work fish --no-config -c 'source completion.fish; complete -C "uom 5 m ft --p"' | cut -f1)"
    is "fish completes names" "TempAbs" "$(HOME=$work fish --no-config -c 'source completion.fish; complete -C "uom units TempA"' | cut -f1)"
    is "fish completes values" "csv,json,text" "$(HOME=$work fish --no-config -c 'source completion.fish; complete -C "uom slates --output "' | cut -f1 | sort | paste -sd,)"
fi
if command -v mandoc >/dev/null; then
    is "mandoc on the man page" "" "$(mandoc -Tlint uom.1)"
fi
if command -v man >/dev/null && man --version 2>/dev/null | grep -q '^man 2' && man -l uom.1 2>/dev/null | grep -q SYNOPSIS; then
    is "man on the man page" "" "$(LC_ALL=C.UTF-8 man --warnings -l uom.1 2>&1 >/dev/null)"
fi
for section in NAME SYNOPSIS DESCRIPTION 'GLOBAL OPTIONS' COMMANDS EXAMPLES 'EXIT STATUS'; do
    grep -qx "\.SH $section" uom.1 || is "man page" "$section" "none"
done
is "hidden" 0 "$("$uom" --help | grep -c generate)"
refused --generate-completion tcsh
exit $failed
