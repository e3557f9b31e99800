#!/usr/bin/env bash
# Chooses a material with real input on a virtual display, once with the mouse and once with the keyboard alone:
# choose-on-display.sh BIN-FOLDER PICTURE-FOLDER
set -euo pipefail
bin=$1
pictures=$2
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
export LC_ALL=C.UTF-8

choose()
{
    local story=$1 expected=$2 chosen
    chosen=$(scripts/on-display.sh --virtual scripts/choose-like-a-user.sh "--$story" "$pictures/$story" \
        cmake/wine-run.sh "$bin/matlib.exe" --lib examples/materials/DefaultMaterialD.mat choose)
    if [[ $chosen != "$expected" ]]; then
        echo "With $story, \"$chosen\" was assigned instead of \"$expected\": see $pictures/$story" >&2
        exit 1
    fi
    echo "With $story, \"$chosen\" was assigned."
}

choose filtered "PTFE Ceramic Core 0.254 mm"
choose keyboard "Hydrocarbon Ceramic Core 0.254 mm"
