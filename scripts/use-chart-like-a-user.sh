#!/usr/bin/env bash
# Opens a program with a chart, zooms, pans and picks with the mouse and takes a picture after each step:
#   use-chart-like-a-user.sh PICTURE-FOLDER COMMAND [ARGUMENT...]
# Wants the virtual display of on-display.sh. Fails when the window does not appear.
set -euo pipefail
pictures=$1
shift
mkdir -p "$pictures"

"$@" >/dev/null 2>&1 &
program=$!
trap 'kill "$program" 2>/dev/null || true' EXIT
for _ in {1..300}; do
    window=$(xdotool search --onlyvisible --name '^Chart' 2>/dev/null | head -n 1) || true
    [[ -n $window ]] && break
    kill -0 "$program" 2>/dev/null || break
    sleep 0.2
done
if [[ -z ${window:-} ]]; then
    echo "use-chart-like-a-user.sh: no window appeared" >&2
    exit 1
fi
eval "$(xdotool getwindowgeometry --shell "$window")"

# Moves to a place in hundredths of the window.
go() { xdotool mousemove $((X + WIDTH * $1 / 100)) $((Y + HEIGHT * $2 / 100)) && sleep 0.1; }

picture()
{
    sleep 0.4
    import -window root -crop "$((WIDTH + 16))x$((HEIGHT + 60))+$((X - 8))+$((Y - 52))" +repage "$pictures/$1.png"
}

press_key() { xdotool key "$1" && sleep 0.3; }

# drag FROM-X FROM-Y TO-X TO-Y [PICTURE-ON-THE-WAY]
drag()
{
    local step
    go "$1" "$2"
    xdotool mousedown 1
    for step in 1 2 3 4 5; do
        go $(($1 + ($3 - $1) * step / 5)) $(($2 + ($4 - $2) * step / 5))
    done
    [[ -z ${5:-} ]] || picture "$5"
    xdotool mouseup 1
    sleep 0.3
}

go 50 4
xdotool click 1
press_key 1
go 40 40
picture 1-shown
drag 10 12 40 60 2-zooming-in
picture 3-zoomed-in
press_key 5
drag 50 50 58 44
picture 4-panned
press_key 2
drag 30 30 60 60 5-zooming-out
picture 6-zoomed-out
xdotool click --repeat 2 --delay 60 1
press_key l
picture 7-reset-and-logarithmic
press_key 3
drag 30 30 60 60 8-zooming-horizontally
picture 9-zoomed-horizontally
