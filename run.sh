#!/usr/bin/env bash
# Builds the library and shows it at work: run.sh [FILE.mat...] or, for a window with a chart or with the example
# libraries in the grid to try, run.sh --chart or run.sh --grid
# The same commands run twice: with matlib.exe under Wine, which loads MaterialLibrary.dll as any host does,
# and with the native matlib. Both must print the same. Without files the example libraries are shown.
set -euo pipefail
started_in=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")"

scripts/packages.sh run
[[ -n ${DISPLAY:-} ]] || scripts/packages.sh display

# show_demo chart|grid [FILE.mat...]: on a desktop for the user, on a virtual display for a script with the mouse.
show_demo()
{
    local name=$1
    local demo=(cmake/wine-run.sh "build/windows/bin/${name}_demo.exe" "${@:2}")
    scripts/build.sh windows "${name}_demo"
    if [[ -n ${DISPLAY:-} ]]; then
        ML_WINE_TIMEOUT=0 scripts/on-display.sh "${demo[@]}"
    else
        scripts/on-display.sh --virtual "scripts/use-$name-like-a-user.sh" "build/pictures/$name" "${demo[@]}"
        echo "There is no desktop: a script used the $name. Pictures are in build/pictures/$name."
    fi
}
case ${1:-} in
--chart)
    show_demo chart
    exit
    ;;
--grid)
    show_demo grid examples/materials/*.mat
    exit
    ;;
esac

scripts/build.sh native matlib
scripts/build.sh windows MaterialLibrary matlib
trap 'cmake/wine-run.sh --end' EXIT

files=(examples/materials/*.mat)
if (($# > 0)); then
    files=()
    for file in "$@"; do
        [[ $file == /* ]] || file=$started_in/$file
        if [[ ! -f $file ]]; then
            echo "run.sh: there is no file $file" >&2
            exit 2
        fi
        files+=("$file")
    done
fi
libraries=()
for file in "${files[@]}"; do
    libraries+=(--lib "$file")
done

native=(build/native/bin/matlib)
windows=(cmake/wine-run.sh build/windows/bin/matlib.exe --dll build/windows/bin/MaterialLibrary.dll)
outputs=$(mktemp -d "${TMPDIR:-/tmp}/run.XXXXXX")
trap 'cmake/wine-run.sh --end; rm -rf "$outputs"' EXIT

# The name of the first material of that kind, empty when there is none.
first_of_kind()
{
    { "${native[@]}" "${libraries[@]}" --json list 2>/dev/null || true; } | awk -v kind="\"$1\"," '
        $1 == "\"name\":" { name = $0; sub(/^[^:]*: "/, "", name); sub(/",$/, "", name) }
        $1 == "\"kind\":" && $2 == kind && name != "" && name !~ /\\/ && !found++ { print name }'
}

# Shows what a command prints under Wine and notes whether the native program prints the same.
differences=0
compare()
{
    local native_status=0 windows_status=0
    local argument line='$ matlib'
    for argument in "$@"; do
        [[ $argument == *' '* ]] && argument="\"$argument\""
        line+=" $argument"
    done
    printf '\n%s\n' "$line"
    "${windows[@]}" "${libraries[@]}" "$@" >"$outputs/w.out" 2>"$outputs/w.err" </dev/null || windows_status=$?
    "${native[@]}" "${libraries[@]}" "$@" >"$outputs/n.out" 2>"$outputs/n.err" </dev/null || native_status=$?
    sed -i 's/\r$//' "$outputs"/w.*
    cat "$outputs/w.err" "$outputs/w.out"
    if ! diff "$outputs/w.out" "$outputs/n.out" || ! diff "$outputs/w.err" "$outputs/n.err" ||
        ((windows_status != native_status)); then
        echo "The native program answers differently (exit codes $windows_status and $native_status)."
        differences=$((differences + 1))
    fi
}

echo "The library of ${files[*]}"
compare list
dielectric=$(first_of_kind dielectric)
if [[ -n $dielectric ]]; then
    compare show "$dielectric"
    compare value "$dielectric" --kind er --freq 2.5GHz
    compare value "$dielectric" --kind losstangent --freq 2.5GHz
    compare sweep "$dielectric" --from 1MHz --to 20GHz --points 5 --log
fi
metal=$(first_of_kind metal)
if [[ -n $metal ]]; then
    compare show "$metal"
    compare value "$metal" --kind roughtop --freq 2.5GHz
fi

echo
if ((differences > 0)); then
    echo "$differences outputs of MaterialLibrary.dll and of the native build differ."
    exit 1
fi
echo "MaterialLibrary.dll under Wine and the native build print the same."

# The dialog that a host opens: on a desktop for the user, on a virtual display for a script with the mouse and
# the keyboard.
kind=dielectric
[[ -n $dielectric ]] || kind=metal
choose=("${windows[@]}" "${libraries[@]}" choose --kind "$kind")
echo
if [[ -n ${DISPLAY:-} ]]; then
    echo "The dialog is open: choose a material."
    chosen=$(ML_WINE_TIMEOUT=0 scripts/on-display.sh "${choose[@]}") || chosen=
    echo "Assigned: ${chosen:-nothing}"
else
    story=(--filtered)
    (($# == 0)) || story=()
    echo "There is no desktop: a script uses the dialog on a virtual display."
    chosen=$(scripts/on-display.sh --virtual scripts/choose-like-a-user.sh "${story[@]}" build/pictures "${choose[@]}")
    echo "Assigned: $chosen"
    echo "Pictures of each step are in build/pictures."
fi
