#!/usr/bin/env bash
# The dialog opens by the command that the native tool names, and where nobody could see it, that is said:
# open-dialog.sh BIN-FOLDER PICTURE-FOLDER
set -euo pipefail
bin=$1
pictures=$2
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
export LC_ALL=C.UTF-8
library=examples/materials/DefaultMaterialD.mat

expect()
{
    [[ $2 == "$3" ]] || { echo "$1: \"$3\" instead of \"$2\"" >&2 && exit 1; }
}

read -ra named < <(sed -n 's/^! matlib: .*on a desktop: //p' tests/cli/expected/choose.txt)
expect "Without a desktop" "on-display.sh: there is no desktop" "$(env -u DISPLAY "${named[@]}" 2>&1 || true)"
expect "On a desktop" "Hydrocarbon Ceramic Core 0.254 mm" "$(scripts/on-display.sh --virtual \
    scripts/choose-like-a-user.sh --keyboard "$pictures/named" "${named[@]}" --lib $library)"
# What this starts has no display and would share that with the next test: it must not stay for half a minute.
export ML_WINE_GRAPHICS=x11 ML_WINE_PREFIX="$PWD/build/wine-prefix-x11"
trap 'cmake/wine-run.sh --end' EXIT
expect "Without a display" "matlib: the dialog could not open: there is no display" "$(env -u DISPLAY \
    cmake/wine-run.sh "$bin/matlib.exe" --lib $library choose 2>&1 || true)"
