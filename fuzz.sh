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
targets=("$@")
if (($# == 0)); then
    targets=(fuzz/fuzz_*.cpp)
    targets=("${targets[@]#fuzz/fuzz_}")
    targets=("${targets[@]%.cpp}")
fi

# Where memory came from is recorded too deep otherwise: a fifth of the time. An input that fails tells it when it is
# run alone.
export ASAN_OPTIONS=malloc_context_size=1

scripts/packages.sh fuzz
scripts/build.sh fuzz "${targets[@]/#/fuzz_}"
mkdir -p build/fuzz/failures
results=()
status=0
for target in "${targets[@]}"; do
    log=build/fuzz/$target.log
    mkdir -p "build/fuzz/corpus/$target"
    case $target in
    c) seeds=(fuzz/corpus/file) ;; # small ones: each question fits a model
    file | check) seeds=(fuzz/corpus/file examples/materials tests/cli/data) ;;
    *) seeds=("fuzz/corpus/$target") ;;
    esac
    failed=""
    echo "$target: $seconds seconds"
    # What is longer than a few pages finds nothing that a page does not, and takes its time a thousand times.
    # Without counting how often a branch is taken, and on short inputs without weighing what they reach: for those two
    # more than half of the time went, and no more was reached.
    case $target in
    chart | import) limits=(-max_len=128 -use_counters=0 -entropic=0) ;;
    check) limits=(-max_len=1024 -use_counters=0) ;;
    format) limits=(-max_len=384) ;; # what can be read is read and laid out several times
    *) limits=(-max_len=4096) ;;
    esac
    "build/fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" "${limits[@]}" -print_final_stats=1 -timeout=20 \
        -artifact_prefix=build/fuzz/failures/ "build/fuzz/corpus/$target" "${seeds[@]}" >"$log" 2>&1 </dev/null ||
        failed=", FAILED"
    if [[ -n $failed ]]; then
        status=1
        tail -n 40 "$log"
    fi
    results+=("$target: $(awk '/stat::number_of_executed_units/ { print $2 }' "$log") inputs$failed")
done
printf '%s\n' "${results[@]}"
exit "$status"
