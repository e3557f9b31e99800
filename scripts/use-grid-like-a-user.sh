#!/usr/bin/env bash
# Uses the window of the material grid as a user does, with the mouse and the keyboard of a display, and takes a
# picture of each step: use-grid-like-a-user.sh PICTURE-FOLDER COMMAND [ARGUMENT...]
# The command opens the window "Materials"; it runs twice, and the second window must open where the first one
# was left. Run it through scripts/on-display.sh --virtual.
set -euo pipefail
pictures=$1
shift
source "$(dirname "${BASH_SOURCE[0]}")/like-a-user.sh"

place()
{
    xdotool windowmove --sync "$window" "$1" "$2"
    xdotool windowsize --sync "$window" "$3" "$4"
    locate_window
}

geometry()
{
    xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y|WIDTH|HEIGHT)=' | tr '\n' ' '
}

close_window()
{
    press alt+F4
    wait_for_end
}

open_window '^Materials$' "$@"
place 60 60 1200 600
picture 1-opened
header=$((Y + 30)) # below the menu, unless the screen is scaled
click_at $((X + WIDTH / 3)) $((Y + HEIGHT / 3))
picture 2-selected
click_at $((X + 100)) $header
picture 3-sorted
click_at $((X + 100)) $header
picture 4-sorted-backwards
click_at $((X + 250)) $header
picture 5-sorted-by-two-columns
xdotool type --delay 60 "fr4 h"
press ctrl+shift+Right ctrl+shift+Right
picture 6-found-by-name-and-a-column-chosen
press ctrl+shift+Return
picture 7-sorted-by-keys
press ctrl+a
picture 8-all-selected
place 300 200 800 450
picture 9-resized
left_at=$(geometry)
close_window
open_window '^Materials$' "$@"
picture 10-reopened
opened_at=$(geometry)
close_window
[[ $left_at == "$opened_at" ]] || fail "the window was left at $left_at and opened at $opened_at"
echo "The window reopened where it was left: $opened_at"
