#!/usr/bin/env bash
# Chooses a material with real input on a virtual display, with the mouse, with the keyboard alone, after a tour of
# the chart, three times in the list, or after saving the chart: choose-on-display.sh filtered|keyboard|chart|grid|save
# BIN-FOLDER PICTURE-FOLDER
set -euo pipefail
story=$1
bin=$2
pictures=$3
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
export LC_ALL=C.UTF-8

case $story in
filtered) expected="PTFE Ceramic Core 0.254 mm" ;;
keyboard) expected="Hydrocarbon Ceramic Core 0.254 mm" ;;
chart) expected="Polyimide Flex Core 0.025 mm" ;;
save) expected="LCP Flex Core 0.025 mm" ;;
grid)
    expected=$'PTFE Glass Core 0.787 mm\nVery Low Loss Prepreg 1078\nFR4 Standard Core 1.50 mm'
    forget_columns()
    {
        ML_WINE_GRAPHICS=x11 ML_WINE_PREFIX=${ML_WINE_PREFIX:-$PWD/build/wine-prefix-x11} cmake/wine-run.sh reg delete \
            'HKCU\Software\Corvane\MaterialLibrary\SelectMaterial' /v DielectricColumns /f >/dev/null 2>&1 || true
    }
    forget_columns
    trap forget_columns EXIT
    ;;
esac
chosen=$(scripts/on-display.sh --virtual scripts/choose-like-a-user.sh "--$story" "$pictures/$story" \
    cmake/wine-run.sh "$bin/matlib.exe" --lib examples/materials/DefaultMaterialD.mat choose)
if [[ $chosen != "$expected" ]]; then
    echo "With $story, \"$chosen\" was assigned instead of \"$expected\": see $pictures/$story" >&2
    exit 1
fi
if [[ $story == save ]] && ! grep -q "^<text .*>Loss Tangent</text>" "$pictures/save/chart.svg"; then
    echo "The picture was not saved: see $pictures/save" >&2
    exit 1
fi
