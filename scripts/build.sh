#!/usr/bin/env bash
# Configures a preset where that was not done yet and builds it: build.sh PRESET [TARGET...]
# With nothing changed it does nothing and says nothing.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=$1
shift
log=build/$preset.log
mkdir -p build
exec 9>"build/$preset.lock"
flock 9 # one build of a preset at a time
if [[ ! -e build/$preset/build.ninja || CMakePresets.json -nt build/$preset/build.ninja ]]; then
    echo "Configuring build/$preset"
    if ! cmake --preset "$preset" >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        exit 1
    fi
fi
targets=()
(($# == 0)) || targets=(--target "$@")
if [[ $(ninja -C "build/$preset" -n "$@" 2>&1) == *"no work to do"* ]]; then
    exit 0
fi
echo "Building build/$preset"
if ! cmake --build --preset "$preset" --parallel "$(nproc)" "${targets[@]}" >"$log" 2>&1 </dev/null; then
    cat "$log" >&2
    exit 1
fi
