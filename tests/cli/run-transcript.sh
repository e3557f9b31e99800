#!/usr/bin/env bash
# Runs the commands of a transcript and compares what they print with what the transcript says.
#   run-transcript.sh [--update] TRANSCRIPT BIN-FOLDER [RUNNER]
#
# A transcript holds commands ("$ matlib list"), what each writes to standard output as it is and to
# standard error after "! ", and the exit code in brackets unless it is 0. Commands run in the folder of
# this script; BIN stands for the folder of the programs, VERSION for that of the project. RUNNER starts Windows programs. With --update the
# transcript is rewritten.
set -euo pipefail
unset MATLIB_PATH

update=false
[[ $1 == --update ]] && update=true && shift
transcript=$(realpath "$1")
BIN=$(realpath "$2")
runner=${3:-}
suffix=
[[ -e $BIN/matlib.exe ]] && suffix=.exe
cd "$(dirname "${BASH_SOURCE[0]}")"
version=$(sed -n 's/^#define MATERIALLIBRARY_VERSION "\(.*\)"/\1/p' ../../include/MaterialLibrary/Version.h)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

matlib() { $runner "$BIN/matlib$suffix" "$@"; }
smallest_host() { $runner "$BIN/smallest_host$suffix" "$@" | tr -d '\r'; }
# matlib without the folders that belong beside it
lone_matlib() { cp "$BIN/matlib$suffix" "$work/" && $runner "$work/matlib$suffix" "$@"; }

# Without the digits in which the systems' mathematics may differ.
matlib_rounded() { matlib "$@" | sed -E 's/([0-9.]{8})[0-9.]+/\1/g' | tr -s ' '; }

name_what_varies() { sed "s|$BIN|BIN|g; s|${version//./\\.}|VERSION|g" "$1"; }

while IFS= read -r line; do
    printf '%s\n' "$line"
    [[ $line == '$ '* ]] || continue
    status=0
    eval "${line#\$ }" >"$work/out" 2>"$work/err" </dev/null || status=$?
    name_what_varies "$work/out"
    name_what_varies "$work/err" | sed 's/^/! /'
    ((status == 0)) || printf '[%s]\n' "$status"
done < <(grep '^[$#] ' "$transcript") >"$work/now"

if $update; then
    cp "$work/now" "$transcript"
else
    diff -u --label "expected: $transcript" --label "printed" "$transcript" "$work/now"
fi
