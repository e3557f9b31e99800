#!/usr/bin/env bash
# Checks that every include follows the arrows between the rooms of the house, and that windows.h stays in
# its rooms: check-includes.sh [ROOT]. Prints each include that does not and fails when there is one.
set -euo pipefail
cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../..}"

# Each room, or a file of it that is a room of its own, and what its files may include besides the standard library
# and the room itself. The rooms' win32 folders may include the same, and framework. docs/architecture.md has the
# picture.
declare -A arrows=(
    [include]=""
    [framework]="framework/CModuleState.h"
    [framework/CModuleState.h]=""
    [shared]="include framework/CModuleState.h"
    [MaterialLibrary/dielectric]="include"
    [MaterialLibrary/resources]=""
    [MaterialLibrary/model]="include framework/CModuleState.h MaterialLibrary/dielectric MaterialLibrary/resources shared"
    [MaterialLibrary/reader]="include MaterialLibrary/model MaterialLibrary/resources shared"
    [MaterialLibrary/writer]="include MaterialLibrary/model MaterialLibrary/reader shared"
    [MaterialLibrary/c]="include MaterialLibrary/reader MaterialLibrary/writer MaterialLibrary/model MaterialLibrary/dielectric"
    [MaterialLibrary/entry]="include framework/CModuleState.h MaterialLibrary/model MaterialLibrary/reader MaterialLibrary/resources shared"
    [MaterialLibrary/chart]="MaterialLibrary/resources shared"
    [MaterialLibrary/chooser]="include MaterialLibrary/model MaterialLibrary/chart MaterialLibrary/resources grid shared"
    [grid]="shared"
    [tools/chart_demo]="MaterialLibrary/chart"
    [tools/fit_report]="include MaterialLibrary/chart MaterialLibrary/dielectric MaterialLibrary/model MaterialLibrary/reader"
    [tools/grid_demo]="include MaterialLibrary/chooser shared"
    [tools/matlib]="include shared MaterialLibrary/writer MaterialLibrary/chart MaterialLibrary/resources tools/matlib/check tools/matlib/import"
    [tools/matlib/import]="include shared MaterialLibrary/writer tools/matlib tools/matlib/check"
    [tools/matlib/check]="include MaterialLibrary/dielectric MaterialLibrary/reader MaterialLibrary/model MaterialLibrary/resources shared tools/matlib"
    [examples/host]="include"
    [examples/messages]="include"
    [examples/translation]=""
)

# The longest room name that the path begins with.
room_of()
{
    local room best=""
    for room in "${!arrows[@]}"; do
        [[ $1/ == "$room"/* && ${#room} -gt ${#best} ]] && best=$room
    done
    echo "$best"
}

mistakes=0
checked=0
mistake()
{
    echo "$1:$2: $3"
    mistakes=$((mistakes + 1))
}

check_quoted()
{
    local file=$1 line=$2 target=$3 room allowed target_room
    [[ $file == examples/* && -e ${file%/*}/$target ]] && return # the examples are built away from here too
    if [[ -e include/$target ]]; then
        target=include/$target
    elif [[ -e MaterialLibrary/$target ]]; then
        target=MaterialLibrary/$target
    elif [[ ! -e $target || $target == MaterialLibrary/* ]]; then
        mistake "$file" "$line" "\"$target\" is named from neither the root nor include/ nor MaterialLibrary/"
        return
    fi
    room=$(room_of "$file")
    target_room=$(room_of "$target")
    [[ $file == MaterialLibrary/entry/win32/* ]] && return # puts the module together
    allowed=" $room ${arrows[$room]} "
    [[ $file == */win32/* ]] && allowed+="framework framework/CModuleState.h "
    [[ -n $target_room && $allowed == *" $target_room "* ]] ||
        mistake "$file" "$line" "$room does not include ${target_room:-$target}"
}

folders=()
for folder in include shared MaterialLibrary framework grid tools examples; do
    [[ -d $folder ]] && folders+=("$folder")
done
while IFS=: read -r file line text; do
    checked=$((checked + 1))
    [[ $text =~ ^[[:space:]]*#[[:space:]]*include[[:space:]]*([\"<])([^\">]+) ]] || continue
    target=${BASH_REMATCH[2]}
    if [[ -z $(room_of "$file") ]]; then
        mistake "$file" "$line" "this folder has no arrows yet: add them to $0"
    elif [[ ${BASH_REMATCH[1]} == '"' && $target != *.inc ]]; then
        check_quoted "$file" "$line" "$target"
    elif [[ ${target,,} == windows.h && ! $file =~ (^framework/|/win32/|^MaterialLibrary/resources/|^examples/) ]]; then
        mistake "$file" "$line" "windows.h is for framework, win32 folders, resources and examples"
    fi
done < <(grep -rnE '^[[:space:]]*#[[:space:]]*include' --include='*.h' --include='*.cpp' --include='*.inc' \
    "${folders[@]}")

echo "$checked includes, $mistakes mistakes"
((checked > 0 && mistakes == 0))
