#!/usr/bin/env bash
# Uses the window of the material grid as a user does, with the mouse and the keyboard of a display, and takes a
# picture of each step: use-grid-like-a-user.sh PICTURE-FOLDER COMMAND [ARGUMENT...]
# The command opens the window "Materials"; it runs twice, and the second window must open where the first one
# was left. Run it through scripts/on-display.sh --virtual.
set -euo pipefail

pictures=$1
shift
mkdir -p "$pictures"
command=
trap '[[ -z $command ]] || kill "$command" 2>/dev/null || true' EXIT

fail()
{
    import -window root "$pictures/failed.png"
    echo "use-grid-like-a-user.sh: $1 (see $pictures/failed.png)" >&2
    exit 1
}

open_window()
{
    local attempt
    "$@" &
    command=$!
    for attempt in {1..300}; do
        window=$(xdotool search --onlyvisible --name '^Materials$' 2>/dev/null | tail -1) || true
        [[ -n $window ]] && sleep 1 && return
        kill -0 "$command" 2>/dev/null || break
        sleep 0.2
    done
    fail "the window did not open"
}

close_window()
{
    xdotool key alt+F4
    for _ in {1..50}; do
        kill -0 "$command" 2>/dev/null || break
        sleep 0.2
    done
    kill -0 "$command" 2>/dev/null && fail "the window did not close"
    wait "$command"
    command=
}

picture()
{
    sleep 0.5
    import -window root "$pictures/$1.png"
}

click()
{
    xdotool mousemove --sync --window "$window" "$1" "$2"
    sleep 0.1
    xdotool click 1
    sleep 0.4
}

geometry()
{
    xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y|WIDTH|HEIGHT)=' | tr '\n' ' '
}

open_window "$@"
xdotool windowmove "$window" 60 60 windowsize "$window" 1200 600
picture 1-opened
eval "$(geometry)"
header=30 # below the menu, unless the screen is scaled
click $((WIDTH / 3)) $((HEIGHT / 3))
picture 2-selected
click 100 $header
picture 3-sorted
click 100 $header
picture 4-sorted-backwards
xdotool key ctrl+a
picture 5-all-selected
xdotool windowmove --sync "$window" 300 200
xdotool windowsize --sync "$window" 800 450
picture 6-resized
left_at=$(geometry)
close_window
open_window "$@"
picture 7-reopened
opened_at=$(geometry)
close_window
[[ $left_at == "$opened_at" ]] || fail "the window was left at $left_at and opened at $opened_at"
echo "The window reopened where it was left: $opened_at"
