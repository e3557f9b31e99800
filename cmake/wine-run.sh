#!/usr/bin/env bash
# Runs a Windows program of the build under Wine: wine-run.sh PROGRAM.exe [ARGUMENT...]
# wine-run.sh --end ends the Wine server that such runs leave behind for half a minute.
#
# The first run makes a Wine prefix (0.7 GB, about ten seconds). Programs need no display and no terminal:
# windows are kept in memory. Set in the environment where that does not suit:
#   ML_WINE_PREFIX    the folder of the prefix; build/wine-prefix when unset
#   ML_WINE_GRAPHICS  the graphics driver that a new prefix gets: null, or x11 for pictures
#   ML_WINE_DPI       the display's scale, 96 when unset; another one has a prefix of its own, which shares the files
#   ML_WINE_TIMEOUT   seconds after which a program is ended, 570 when unset
#
# Once in many thousands of runs a program ended with exit code 1 and without a word. All that the build runs says why it
# fails: such a program is started again, twice at most, and PREFIX.silent.log tells of it.
set -euo pipefail

repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
graphics=${ML_WINE_GRAPHICS:-null}
managed=N # without a window manager each message box would wait two seconds for one
[[ $graphics == x11 ]] && managed=Y
prefix=${ML_WINE_PREFIX:-$repository/build/wine-prefix}
if [[ -e $prefix && ! -O $prefix ]]; then
    prefix=$prefix-$(id -u) # Wine refuses the prefix of another user
fi
base=$prefix
dpi=${ML_WINE_DPI:-96}
((dpi == 96)) || prefix=$base-$dpi
ready=$prefix/.ready-1

for folder in /usr/lib/wine "$(dirname "$(command -v wine64 || echo /usr/bin/wine64)")"; do
    [[ -x $folder/wine64 ]] && wine=$folder/wine64 && break
done
for folder in /usr/lib/wine "$(dirname "${wine:-/usr/bin/wine64}")"; do
    [[ -x $folder/wineserver ]] && wineserver=$folder/wineserver && break
done
if [[ -z ${wine:-} || -z ${wineserver:-} ]]; then
    echo "wine-run.sh: Wine is not installed (Debian: apt-get install wine64)" >&2
    exit 127
fi

export WINEPREFIX=$prefix WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
export LC_ALL=C.UTF-8 # the same code page (1252) on every machine
[[ $graphics == x11 ]] || unset DISPLAY

make_prefix()
{
    rm -rf "$prefix" && mkdir -p "$prefix/drive_c/windows/Fonts" || return
    # The dialog font "MS Shell Dlg" is Tahoma, which Debian keeps where its Wine does not look.
    ln -s /usr/share/wine/fonts/*.ttf "$prefix/drive_c/windows/Fonts/" || return
    "$wine" wineboot.exe --init || return
    {
        printf 'REGEDIT4\r\n\r\n'
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]\r\n"ShowCrashDialog"=dword:00000000\r\n\r\n'
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\r\n"Managed"="%s"\r\n\r\n' "$managed"
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Drivers]\r\n"Graphics"="%s"\r\n' "$graphics"
    } >"$prefix/settings.reg"
    "$wine" regedit.exe /S "$prefix/settings.reg" || return
    "$wineserver" -k
    "$wineserver" -w
    touch "$ready"
}

make_scaled_prefix()
{
    ML_WINE_DPI=96 "$0" cmd.exe /c exit || return # makes the other one
    rm -rf "$prefix" && mkdir "$prefix" && ln -s "$base/drive_c" "$prefix/drive_c" || return
    cp -r "$base"/{dosdevices,.update-timestamp,system.reg,userdef.reg,user.reg} "$prefix" || return
    printf 'REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\r\n"LogPixels"=dword:%08x\r\n' "$dpi" \
        >"$prefix/settings.reg"
    "$wine" regedit.exe /S "$prefix/settings.reg" || return
    "$wineserver" -k
    "$wineserver" -w
    touch "$ready"
}

if [[ ${1:-} == --end ]]; then
    if [[ -e $ready ]]; then
        "$wineserver" -k >/dev/null 2>&1 || true
        timeout 30 "$wineserver" -w || true
    fi
    exit 0
fi

if [[ ! -e $ready ]]; then
    mkdir -p "$(dirname "$prefix")"
    ( # the lock is descriptor 9; the server that stays must not inherit it
        flock 9
        make=make_prefix
        ((dpi == 96)) || make=make_scaled_prefix
        if [[ ! -e $ready ]] && ! $make </dev/null >"$prefix.log" 2>&1 9>&-; then
            echo "wine-run.sh: cannot make the Wine prefix $prefix, see $prefix.log" >&2
            exit 126
        fi
    ) 9>"$prefix.lock"
fi

# Output goes through files: Wine's helpers stay for a while and would hold the caller's pipe open.
output=$(mktemp -d "${TMPDIR:-/tmp}/wine-run.XXXXXX")
trap 'rm -rf "$output"' EXIT
"$wineserver" -p30 </dev/null >/dev/null 2>>"$prefix.server.log" || true # answers 2 when it is running already

# run_program PROGRAM [ARGUMENT...]: sets "status"
run_program()
{
    timeout --kill-after=10 "${ML_WINE_TIMEOUT:-570}" "$wine" "$@" </dev/null >"$output/out" 2>"$output/err" &
    program=$!
    trap 'kill -TERM "$program" 2>/dev/null' TERM INT HUP
    while true; do # a signal ends "wait" before the program has ended
        status=0
        wait "$program" || status=$?
        kill -0 "$program" 2>/dev/null || break
    done
}

for attempt in 1 2 3; do
    run_program "$@"
    if ((status == 0 || status >= 124)) || [[ -s $output/out || -s $output/err ]]; then # 124 and above: it was ended
        break
    fi
    echo "$(date '+%F %T'): attempt $attempt ended with $status: $*" >>"$prefix.silent.log"
done
cat "$output/out"
cat "$output/err" >&2

# The debugger that tells of a crash ends in the program's place, with 0.
if ((status == 0)) && grep -q '^wine: Unhandled ' "$output/err"; then
    status=139
fi
# Only eight bits of a Windows exit code come through, and a program whose Wine server is ended has 0: a test program must
# also have said that it passed.
if ((status == 0)) && [[ ${1##*/} == @(test_*|*_test).exe ]] && ! grep -q '^\[  PASSED  \]' "$output/out"; then
    echo "wine-run.sh: the test program ended early" >&2
    status=1
fi
exit "$status"
