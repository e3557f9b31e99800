#!/usr/bin/env bash
# Measures speed and memory against well-known libraries and prints the ratios: bench.sh [NAME...]
# A name is that of a file bench/bench_NAME.cpp, bench/bench_NAME.py or bench/win32/bench_NAME.cpp; without one, all.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

run_native()
{
    scripts/packages.sh bench
    scripts/build.sh bench "bench_$1"
    "build/bench/bench/bench_$1" </dev/null
}

run_python()
{
    scripts/packages.sh bench
    scripts/build.sh bench materials matlib
    PYTHONPATH=python MATERIALLIBRARY_PATH=build/bench/bin /usr/bin/python3 -B "bench/bench_$1.py"
}

run_under_wine()
{
    scripts/packages.sh run
    scripts/build.sh windows "bench_$1"
    trap 'cmake/wine-run.sh --end' EXIT
    cmake/wine-run.sh "build/windows/bench/bench_$1.exe"
}

names=("$@")
if (($# == 0)); then
    for file in bench/bench_*.cpp bench/bench_*.py bench/win32/bench_*.cpp; do
        name=${file##*/bench_}
        names+=("${name%.*}")
    done
fi
for name in "${names[@]}"; do
    if [[ -e bench/bench_$name.py ]]; then
        run_python "$name"
    elif [[ -e bench/bench_$name.cpp ]]; then
        run_native "$name"
    elif [[ -e bench/win32/bench_$name.cpp ]]; then
        run_under_wine "$name"
    else
        sed -n '2,3s/^# \?//p' "$0" >&2
        exit 2
    fi
done
