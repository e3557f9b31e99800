#!/usr/bin/env bash
# Feeds each fuzz target with new inputs for that many seconds: fuzz.sh SECONDS [TARGET...]
# What is found on the way stays in build/fuzz/corpus, an input that fails in build/fuzz/failures.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

seconds=${1:-}
if [[ ! $seconds =~ ^[0-9]+$ ]]; then
    sed -n '2,3s/^# \?//p' "$0" >&2
    exit 2
fi
shift

scripts/packages.sh fuzz
targets=(fuzz/fuzz_*.cpp)
targets=("${targets[@]##*/}")
scripts/build.sh fuzz "${targets[@]%.cpp}"
mkdir -p build/fuzz/failures
results=()
status=0
for program in build/fuzz/fuzz/fuzz_*; do
    name=${program##*/fuzz_}
    if (($# > 0)) && [[ " $* " != *" $name "* ]]; then
        continue
    fi
    log=build/fuzz/$name.log
    mkdir -p "build/fuzz/corpus/$name"
    seeds=("fuzz/corpus/$name")
    [[ $name == file ]] && seeds+=(examples/materials)
    failed=""
    echo "$name: $seconds seconds"
    "$program" -max_total_time="$seconds" -print_final_stats=1 -timeout=20 -artifact_prefix=build/fuzz/failures/ \
        "build/fuzz/corpus/$name" "${seeds[@]}" >"$log" 2>&1 </dev/null || failed=", FAILED"
    if [[ -n $failed ]]; then
        status=1
        tail -n 40 "$log"
    fi
    results+=("$name: $(awk '/stat::number_of_executed_units/ { print $2 }' "$log") inputs$failed")
done
printf '%s\n' "${results[@]}"
exit "$status"
