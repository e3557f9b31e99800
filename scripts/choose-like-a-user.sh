#!/usr/bin/env bash
# Chooses a material as a user does, with the mouse and the keyboard of a display, and takes a picture of each
# step: choose-like-a-user.sh [--filtered | --keyboard | --chart] PICTURE-FOLDER COMMAND [ARGUMENT...]
# The command opens the dialog "Select Material Models". With --filtered, for dielectrics, a type, a technology, a
# range of thicknesses and a unit are chosen first; with --keyboard the mouse is left alone; --chart goes through the chart's menu. What the command prints
# is printed, and its exit code is this one's. Run it through scripts/on-display.sh --virtual.
set -euo pipefail
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
template=$repository/MaterialLibrary/resources/ChooseMaterialDlg.rc

story=plain
[[ $1 == --filtered || $1 == --keyboard || $1 == --chart ]] && story=${1#--} && shift
pictures=$1
shift
source "$repository/scripts/like-a-user.sh"

# The screen position of a point in a control: its identifier, and how far into it in per cent of its size.
point_in()
{
    local left top width height
    read -r left top width height < <(grep -E "[ ,]$1, " "$template" | grep -oE '[0-9]+, [0-9]+, [0-9]+, [0-9]+(, [A-Z].*)?$' |
        grep -oE '^([0-9]+, ){3}[0-9]+' | tr -d ',')
    # 505 x 322 dialog units cover the whole client area.
    echo "$((X + (left * 100 + width * $2) * WIDTH / 50500)) $((Y + (top * 100 + height * $3) * HEIGHT / 32200))"
}

click()
{
    # shellcheck disable=SC2046 # two words
    click_at $(point_in "$1" "${2:-50}" "${3:-50}")
}

# The combo box drops down; keys choose from it.
choose()
{
    click "$1" 50 5
    shift
    press "$@" Return
}

replace_text()
{
    click "$1"
    press ctrl+a
    xdotool type --delay 40 "$2"
    press Tab
}

# drag CONTROL FROM-X FROM-Y TO-X TO-Y [PICTURE-ON-THE-WAY]
drag()
{
    # shellcheck disable=SC2046 # two words each
    drag_between $(point_in "$1" "$2" "$3") $(point_in "$1" "$4" "$5") "${6:-}"
}

# A row, a part of its curves, Assign, OK.
use_mouse()
{
    click ML_GRID 30 32
    picture 4-selected
    drag ML_CHART 7 9 45 61 5-zooming
    picture 6-zoomed
    click ML_BUTTON_ASSIGN
    picture 7-assigned
    click IDOK
}

# The bar between the list and the chart, with the mouse and with keys, and back to where it was.
use_bar()
{
    local bar=($(point_in ML_CHART 70 -2))
    drag_between "${bar[@]}" "${bar[0]}" $((bar[1] + HEIGHT / 12))
    picture 9-bar-dragged
    press shift+F10 b End
    picture 10-bar-with-keys
    press Escape
    drag_between "${bar[0]}" $((bar[1] + HEIGHT / 12)) "${bar[@]}"
}

# Values under the mouse, the menu by mouse and by keyboard, a kept material, a zoom and the way back.
use_chart()
{
    click ML_GRID 30 32
    # shellcheck disable=SC2046 # two words
    move_to $(point_in ML_CHART 40 30)
    picture 2-values-under-the-mouse
    xdotool click 3
    picture 3-menu
    press l
    picture 4-logarithmic
    press shift+F10 k
    click ML_GRID 30 55
    # shellcheck disable=SC2046 # two words
    move_to $(point_in ML_CHART 60 40)
    picture 5-kept
    drag ML_CHART 20 15 45 61
    picture 6-zoomed
    press shift+F10 p
    picture 7-previous-view
    press shift+F10 v
    press shift+F10 c
    press shift+F10 f
    press shift+F10 l
    picture 8-as-before
    use_bar
    picture 11-as-before
    click ML_BUTTON_ASSIGN
    click IDOK
}

open_window '^Select Material Models$' "$@"
picture 1-opened
case $story in
filtered)
    choose ML_COMBO_TYPE Down
    choose ML_COMBO_TECHNOLOGY End
    picture 2-cores
    replace_text ML_EDIT_THICKNESS_MINIMUM 3
    replace_text ML_EDIT_THICKNESS_MAXIMUM 20
    picture 3-thickness
    choose ML_COMBO_UNITS Home
    use_mouse
    ;;
plain)
    use_mouse
    ;;
chart)
    use_chart
    ;;
keyboard)
    press Tab End Tab # the last technology
    xdotool type --delay 60 3
    press Tab Tab Tab Tab Down Down
    picture 2-selected
    press Tab space # Assign
    picture 3-assigned
    press Tab Tab Tab Return # past Unassign and the name to OK
    ;;
esac

wait_for_end
