#!/usr/bin/env bash
# Chooses a material as a user does, with the mouse and the keyboard of a display, and takes a picture of each
# step: choose-like-a-user.sh [--filtered | --keyboard] PICTURE-FOLDER COMMAND [ARGUMENT...]
# The command opens the dialog "Select Material Models". With --filtered, for dielectrics, a type, a technology, a
# range of thicknesses and a unit are chosen first; with --keyboard the mouse is left alone. What the command prints
# is printed, and its exit code is this one's. Run it through scripts/on-display.sh --virtual.
set -euo pipefail
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
template=$repository/MaterialLibrary/resources/ChooseMaterialDlg.rc

story=plain
[[ $1 == --filtered || $1 == --keyboard ]] && story=${1#--} && shift
pictures=$1
shift
mkdir -p "$pictures"
"$@" &
command=$!
trap 'kill "$command" 2>/dev/null || true' EXIT

fail()
{
    import -window root "$pictures/failed.png"
    echo "choose-like-a-user.sh: $1 (see $pictures/failed.png)" >&2
    exit 1
}

find_dialog()
{
    local attempt
    for attempt in {1..300}; do
        window=$(xdotool search --onlyvisible --name '^Select Material Models$' 2>/dev/null | tail -1) || true
        [[ -n $window ]] && return
        kill -0 "$command" 2>/dev/null || break
        sleep 0.2
    done
    fail "the dialog did not open"
}

picture()
{
    sleep 0.5
    import -window root -crop "$((WIDTH + 16))x$((HEIGHT + 40))+$((X - 8))+$((Y - 32))" +repage "$pictures/$1.png"
}

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
    xdotool mousemove --sync $(point_in "$1" "${2:-50}" "${3:-50}")
    sleep 0.1
    xdotool click 1
    sleep 0.3
}

press()
{
    xdotool key --delay 60 "$@"
    sleep 0.3
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

drag()
{
    local from to step
    read -ra from < <(point_in "$1" "$2" "$3")
    read -ra to < <(point_in "$1" "$4" "$5")
    xdotool mousemove --sync "${from[@]}"
    sleep 0.1
    xdotool mousedown 1
    for step in 1 2 3 4; do
        sleep 0.1
        xdotool mousemove --sync $((from[0] + (to[0] - from[0]) * step / 4)) $((from[1] + (to[1] - from[1]) * step / 4))
    done
    sleep 0.1
    [[ -n ${6:-} ]] && picture "$6"
    xdotool mouseup 1
    sleep 0.3
}

# A row, a part of its curves, Assign, OK.
use_mouse()
{
    click ML_GRID 30 32
    picture 4-selected
    drag ML_CHART 30 20 70 50 5-zooming
    picture 6-zoomed
    click ML_BUTTON_ASSIGN
    picture 7-assigned
    click IDOK
}

find_dialog
eval "$(xdotool getwindowgeometry --shell "$window")" # a window with a frame has another position than it says
eval "$(xdotool mousemove --sync --window "$window" 1 1 getmouselocation --shell)"
X=$((X - 1)) Y=$((Y - 1))
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

for _ in {1..50}; do
    kill -0 "$command" 2>/dev/null || break
    sleep 0.2
done
kill -0 "$command" 2>/dev/null && fail "the dialog did not close"
trap - EXIT
wait "$command"
