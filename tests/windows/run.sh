#!/usr/bin/env bash
# What only Windows has, under Wine: where the data file is looked for, paths with any letters and of any length, load
# and unload notices, ends of lines. Arguments: the directory of the programs, the source directory.
set -u
bin=$1 data=$2/data/uomdata.txt
. "$(dirname "$0")/../cli/checks.bash"
work=$(cd "$(mktemp -d)" && pwd -P)
trap 'rm -rf "$work"' EXIT
there="$work/Größe Ωμ 單位"
mkdir -p "$there"/{host,kit,plug,tree/bin,tree/share/uom,here}
cp "$bin/uom_loader.exe" "$there/host/loader.exe"
cp "$bin/uom.dll" "$there/kit/corekit.dll"
cp "$bin/uom.dll" "$there/plug/"
cp "$bin"/uom.{dll,exe} "$there/tree/bin/"
cp "$bin/uom_plugin.dll" "$there/plug/static.dll"
cd "$there/here" || exit 1

# A path of this system as Windows has it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

load() { # function, libraries under $there; prints what the host does, on one line, with the folder cut
    local function=$1 library libraries=()
    shift
    for library; do
        libraries+=("$(windows_path "$there/$library")")
    done
    wine ../host/loader.exe "$function" "${libraries[@]}" | tr -d '\r' | tr '\\' / | sed "s:Z\\:$there/::" | paste -sd';'
}
found() { # title, expected path, libraries
    local title=$1 path=$2
    shift 2
    is "$title" "0 $path;0;unloaded" "$(load uom_FindDataFile "$@")"
}

# --- the data file: one place less at a time

for place in host kit plug tree/bin tree/share/uom here; do
    cp "$data" "$there/$place/"
done
found "beside corekit.dll" kit/uomdata.txt kit/corekit.dll plug/uom.dll
found "beside the executable" host/uomdata.txt plug/uom.dll
is "beside the executable, static" "0 host/uomdata.txt;unloaded" "$(load plugin_FindDataFile plug/static.dll)"
rm ../kit/uomdata.txt
found "corekit.dll without one" plug/uomdata.txt kit/corekit.dll plug/uom.dll
rm ../host/uomdata.txt
found "beside the library" plug/uomdata.txt plug/uom.dll
is "beside the plug-in that holds the library" "0 plug/uomdata.txt;unloaded" "$(load plugin_FindDataFile plug/static.dll)"
found "beside the library, and not where it is installed" tree/bin/uomdata.txt tree/bin/uom.dll
rm ../tree/bin/uomdata.txt
found "where the library is installed" tree/bin/../share/uom/uomdata.txt tree/bin/uom.dll
rm ../tree/share/uom/uomdata.txt ../plug/uomdata.txt
found "the working directory" ./uomdata.txt plug/uom.dll
rm uomdata.txt
is "none" "1 ./uomdata.txt;1;unloaded" "$(load uom_FindDataFile plug/uom.dll)"
tool="$there/tree/bin/uom.exe"
is "the message of none" 'uom: Unable to open the Unit of Measure data file ".\uomdata.txt". Looked for it as "BIN", "SHARE" and ".\uomdata.txt".' \
    "$(wine "$tool" slates 2>&1 | tr -d '\r' | sed 's:"[^"]*\\bin\\uomdata.txt":"BIN":; s:"[^"]*/share/uom/uomdata.txt":"SHARE":')"
cp "$data" ../tree/share/uom/

# --- paths

for name in 'Größe Ωμ 單位.txt' "$(printf 'd%.0s' {1..100})/$(printf 'e%.0s' {1..100})/$(printf 'f%.0s' {1..100}).txt"; do
    [[ $name != */* ]] || mkdir -p "${name%/*}"
    cp "$data" "$name"
    is "data file of ${#name} letters" "1000" "$(wine "$tool" --data "$name" convert Leng km m 1 2>&1 | tr -d '\r')"
    is "check of it" "status 0" "$(wine "$tool" check "$name" 2>&1; echo "status $?")"
    printf '[Plant]\r\nBasedOn=SI\r\nTemp=C\r\n' >"$name"
    is "definitions" "C" "$(wine "$tool" --define "$name" show Temp --slate Plant 2>&1 | tr -d '\r')"
    printf 'L\r\n1\r\n' >"$name"
    is "csv" $'L\r\n1000\r\n.' "$(wine "$tool" convert --csv "$name" --column L=km:m@Leng 2>&1; echo .)"
    is "csv onto itself" "uom: The output is the input file \"$name\"." \
        "$(wine "$tool" convert --csv "$name" --column L=km:m@Leng -o "$PWD/$name" 2>&1 | tr -d '\r')"
    is "csv to a file" $'L\r\n1000\r\n.' "$(wine "$tool" convert --csv "$name" --column L=km:m@Leng -o "${name%.txt}.csv" 2>&1; cat "${name%.txt}.csv"; echo .)"
    rm "$name"
    is "report" "0" "$(wine "$tool" report -o "$name" >/dev/null 2>&1; echo $?)"
    [ -s "$name" ] || is "report" "a file" "none"
done

# --- what the library says to a debugger: at its load and unload, once each

notices() { # command; prints "Load Release" of the library
    WINEDEBUG=+debugstr wine "$@" 2>&1 >/dev/null | grep -o -- '-- [A-Za-z]* dll QXUomLib' | cut -d' ' -f2 | paste -sd' '
}
is "notices of the DLL" "Load Release" "$(notices ../host/loader.exe uom_FindDataFile "$(windows_path "$there/plug/uom.dll")")"
is "notices of a plug-in with the library in it" "Load Release" \
    "$(notices ../host/loader.exe plugin_FindDataFile "$(windows_path "$there/plug/static.dll")")"
is "notices of a program with the library in it" "Load Release" "$(notices "$bin/uom_host_static.exe" . 100)"
is "notices of both in one process" "Load Load Release Release" \
    "$(notices ../host/loader.exe plugin_FindDataFile "$(windows_path "$there/plug/uom.dll")" "$(windows_path "$there/plug/static.dll")")"

# --- what is written

is "ends of lines" $'1 m³ = 1000 liter\r\n.' "$(wine "$tool" 1 m³ liter; echo .)"
is "ends of lines of CSV" "factor,offset\r\n1,273.15\r\n" "$(wine "$tool" constants Temp C K --output csv | sed 's/\r/\\r/' | sed -z 's/\n/\\n/g')"
wine "$tool" report -o report.txt
is "ends of lines of a report" "$(wc -l <report.txt)" "$(grep -c $'\r$' report.txt)"
[ -s report.txt ] || is "a report" "text" "none"
exit $failed
