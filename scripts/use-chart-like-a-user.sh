#!/usr/bin/env bash
# Opens a program with a chart, zooms, pans and picks with the mouse and takes a picture after each step:
#   use-chart-like-a-user.sh PICTURE-FOLDER COMMAND [ARGUMENT...]
# Wants the virtual display of on-display.sh. Fails when the window does not appear.
set -euo pipefail
pictures=$1
shift
source "$(dirname "${BASH_SOURCE[0]}")/like-a-user.sh"

# The screen position of a place in hundredths of the window.
at() { echo "$((X + WIDTH * $1 / 100)) $((Y + HEIGHT * $2 / 100))"; }

# drag FROM-X FROM-Y TO-X TO-Y [PICTURE-ON-THE-WAY]
drag()
{
    # shellcheck disable=SC2046 # two words each
    drag_between $(at "$1" "$2") $(at "$3" "$4") "${5:-}"
}

open_window '^Chart' "$@"
# shellcheck disable=SC2046 # two words
click_at $(at 50 4)
press 1
# shellcheck disable=SC2046 # two words
move_to $(at 40 40)
picture 1-shown
drag 10 12 40 60 2-zooming-in
picture 3-zoomed-in
press 5
drag 50 50 58 44
picture 4-panned
press 2
drag 30 30 60 60 5-zooming-out
picture 6-zoomed-out
xdotool click --repeat 2 --delay 60 1
press l
picture 7-reset-and-logarithmic
press 3
drag 30 30 60 60 8-zooming-horizontally
picture 9-zoomed-horizontally
