#!/usr/bin/env bash
# Runs a command that shows windows: on-display.sh [--virtual | --desktop] COMMAND [ARGUMENT...]
# On a desktop its windows appear there; without one, or with --virtual, on a virtual display with a window manager, of
# 1600x1200 pixels or what ML_SCREEN says. There the command can take pictures ("import -window root x.png") and send
# input (xdotool). With --desktop it fails where there is no desktop: nobody would see the windows. The command finds
# in the environment what cmake/wine-run.sh needs, and in ML_DISPLAY whether it is "desktop" or "virtual".
set -euo pipefail
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

virtual=false
[[ ${1:-} == --virtual ]] && virtual=true && shift
if [[ ${1:-} == --desktop ]]; then
    shift
    if [[ -z ${DISPLAY:-} ]]; then
        echo "on-display.sh: there is no desktop" >&2
        exit 1
    fi
    export ML_WINE_TIMEOUT=${ML_WINE_TIMEOUT:-0} # its user takes any time
fi
[[ -n ${DISPLAY:-} ]] || virtual=true

export ML_WINE_GRAPHICS=x11 ML_WINE_PREFIX=${ML_WINE_PREFIX:-$repository/build/wine-prefix-x11}
if ! $virtual; then
    export ML_DISPLAY=desktop
    exec "$@"
fi

folder=$(mktemp -d "${TMPDIR:-/tmp}/on-display.XXXXXX")
finish()
{
    "$repository/cmake/wine-run.sh" --end # it holds on to the display
    kill "${manager:-}" "${server:-}" 2>/dev/null || true
    rm -rf "$folder"
}
trap finish EXIT
trap 'exit 143' TERM INT HUP

mkfifo "$folder/number"
Xvfb -displayfd 3 -screen 0 ${ML_SCREEN:-1600x1200}x24 -nolisten tcp 3>"$folder/number" >"$folder/server.log" 2>&1 </dev/null &
server=$!
if ! read -r -t 30 number <"$folder/number"; then
    echo "on-display.sh: the virtual display did not start" >&2
    cat "$folder/server.log" >&2
    exit 1
fi
export DISPLAY=:$number ML_DISPLAY=virtual
openbox --sm-disable >"$folder/manager.log" 2>&1 </dev/null &
manager=$!

status=0
"$@" || status=$?
exit "$status"
