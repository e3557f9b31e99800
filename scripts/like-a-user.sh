# Functions for the scripts that use a window as a user does. They want the virtual display of on-display.sh and set:
#   command       the process of the program, empty when none runs
#   window        its window
#   X Y WIDTH HEIGHT  where the window's inside was found last
# The caller sets "pictures", the folder for the pictures.
command=
trap '[[ -z $command ]] || kill "$command" 2>/dev/null || true' EXIT

fail()
{
    import -window root "$pictures/failed.png"
    echo "${0##*/}: $1 (see $pictures/failed.png)" >&2
    exit 1
}

# open_window NAME COMMAND [ARGUMENT...]: the name is a pattern
open_window()
{
    local attempt name=$1
    shift
    mkdir -p "$pictures"
    "$@" &
    command=$!
    for attempt in {1..300}; do
        window=$(xdotool search --onlyvisible --name "$name" 2>/dev/null | tail -n 1) || true
        [[ -n $window ]] && sleep 0.5 && locate_window && return
        kill -0 "$command" 2>/dev/null || break
        sleep 0.2
    done
    fail "the window did not open"
}

locate_window()
{
    eval "$(xdotool getwindowgeometry --shell "$window")" # a window with a frame has another position than it says
    eval "$(xdotool mousemove --sync --window "$window" 1 1 getmouselocation --shell)"
    X=$((X - 1)) Y=$((Y - 1))
}

# Waits until the program has ended; its exit code is this one's.
wait_for_end()
{
    local attempt ended=$command
    for attempt in {1..50}; do
        kill -0 "$command" 2>/dev/null || break
        sleep 0.2
    done
    kill -0 "$command" 2>/dev/null && fail "the window did not close"
    command=
    wait "$ended"
}

# The window with its frame.
picture()
{
    sleep 0.5
    import -window root -crop "$((WIDTH + 16))x$((HEIGHT + 40))+$((X - 8))+$((Y - 32))" +repage "$pictures/$1.png"
}

move_to()
{
    xdotool mousemove --sync "$1" "$2"
    sleep 0.1
}

click_at()
{
    move_to "$1" "$2"
    xdotool click 1
    sleep 0.3
}

# drag_between FROM-X FROM-Y TO-X TO-Y [PICTURE-ON-THE-WAY]
drag_between()
{
    local step
    move_to "$1" "$2"
    xdotool mousedown 1
    for step in 1 2 3 4; do
        sleep 0.1
        move_to $(($1 + ($3 - $1) * step / 4)) $(($2 + ($4 - $2) * step / 4))
    done
    [[ -z ${5:-} ]] || picture "$5"
    xdotool mouseup 1
    sleep 0.3
}

press()
{
    xdotool key --delay 60 "$@"
    sleep 0.3
}
