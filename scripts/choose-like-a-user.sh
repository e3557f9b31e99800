#!/usr/bin/env bash
# Chooses a material as a user does, with the mouse and the keyboard of a display, and takes a picture of each
# step: choose-like-a-user.sh [--filtered | --keyboard | --chart | --grid | --save] PICTURE-FOLDER COMMAND [ARGUMENT...]
# The command opens the dialog "Select Material Models". With --filtered, for dielectrics, a type, a technology, a
# range of thicknesses and a unit are chosen first; with --keyboard the mouse is left alone; --chart goes through the
# chart's menu; --grid opens the dialog three times to search, arrange and sort the list, whose columns must be as no
# user has changed them yet; --save saves the chart as chart.svg in the folder. What the command prints is printed,
# and its exit code is this one's. Run it through scripts/on-display.sh --virtual.
set -euo pipefail
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
template=$repository/MaterialLibrary/resources/ChooseMaterialDlg.rc

story=plain
[[ $1 =~ ^--(filtered|keyboard|chart|grid|save)$ ]] && story=${1#--} && shift
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
    local bar
    read -ra bar < <(point_in ML_CHART 70 -2)
    drag_between "${bar[@]}" "${bar[0]}" $((bar[1] + HEIGHT / 12))
    picture 9-bar-dragged
    press shift+F10 b End
    picture 10-bar-with-keys
    press Escape
    drag_between "${bar[0]}" $((bar[1] + HEIGHT / 12)) "${bar[@]}"
}

save_as()
{
    press shift+F10 s
    sleep 1
    xdotool type --delay 40 "Z:$(realpath "$pictures" | tr / '\\')\\$1"
    press Return
    sleep 1
}

# "Save picture...": cancelled, to a place where nobody can write, and to a file.
save_picture()
{
    ln -sf /nowhere/chart.svg "$pictures/refused.svg"
    rm -f "$pictures/chart.svg"
    click ML_GRID 30 32
    press shift+F10 s
    sleep 1
    picture 2-asked
    press Escape
    save_as refused.svg
    picture 3-refused
    press Return
    save_as chart.svg
    picture 4-saved
    click ML_BUTTON_ASSIGN
    click IDOK
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

# header NAME: a picture of the list's headers
header()
{
    local left top right bottom
    read -r left top <<<"$(point_in ML_GRID 0 1)"
    read -r right bottom <<<"$(point_in ML_GRID 90 7)"
    move_to "$X" "$Y"
    sleep 0.5
    import -window root -crop "$((right - left))x$((bottom - top))+$left+$top" +repage "$pictures/$1.png"
}

# rest_on CONTROL X Y: until a tip would be there
rest_on()
{
    # shellcheck disable=SC2046 # two words
    move_to $(point_in "$1" "$2" "$3")
    sleep 1
}

# Whether two pictures show the same.
same_picture() { [[ $(compare -metric AE "$pictures/$1.png" "$pictures/$2.png" null: 2>&1) == 0 ]]; }

# With the keyboard: blanks in what is searched for; Ctrl+Enter assigns, Enter is OK.
search_list()
{
    press Tab Tab Tab Tab Tab Tab
    xdotool type --delay 60 "ptfe glass core 0.7"
    press ctrl+Return
    picture 2-found-and-assigned
    press Return
}

# With the mouse: columns moved and widened, two keys to sort by, tips, a drop-down list, a double-click on a row.
arrange_list()
{
    header 3-headers
    drag ML_GRID 70 4 2 4
    drag ML_GRID 30 4 34 4 # its right border
    header 4-arranged-headers
    same_picture 3-headers 4-arranged-headers && fail "the columns stay as they were"
    click ML_GRID 12 4
    click ML_GRID 47 4
    click ML_GRID 47 4
    rest_on ML_GRID 47 41
    picture 5-sorted-by-two-columns
    rest_on ML_GRID 81 41
    picture 6-values-in-a-tip
    same_picture 5-sorted-by-two-columns 6-values-in-a-tip && fail "there is no tip"
    click ML_COMBO_TYPE 50 5
    picture 7-all-types
    press Escape
    rest_on ML_GRID 20 41
    xdotool click --repeat 2 --delay 60 1
    picture 8-double-click-assigned
    click IDOK
}

# The columns stand as they were left; with the keyboard, the third and the fourth one sort the rows.
sort_list()
{
    header 9-headers-again
    same_picture 4-arranged-headers 9-headers-again || fail "the columns do not stand as they were left"
    press Tab Tab Tab Tab Tab Tab
    press ctrl+shift+Right ctrl+shift+Right ctrl+shift+Right ctrl+shift+Right ctrl+shift+Left ctrl+shift+Return
    press ctrl+shift+Right ctrl+shift+Return ctrl+shift+Return
    press Home ctrl+Return
    picture 10-sorted-by-keys
    press Return
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
save)
    save_picture
    ;;
grid)
    search_list
    wait_for_end
    open_window '^Select Material Models$' "$@"
    arrange_list
    wait_for_end
    open_window '^Select Material Models$' "$@"
    sort_list
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
