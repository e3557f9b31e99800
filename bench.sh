#!/usr/bin/env bash
# Measures speed and memory against well-known libraries and prints the ratios.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

scripts/packages.sh bench
targets=(bench/bench_*.cpp)
targets=("${targets[@]##*/}")
scripts/build.sh bench "${targets[@]%.cpp}"
for target in "${targets[@]%.cpp}"; do
    "build/bench/bench/$target" </dev/null
done
scripts/build.sh bench materials
PYTHONPATH=python MATERIALLIBRARY_PATH=build/bench/bin /usr/bin/python3 -B bench/bench_python.py

# The chart's window and the module's entries, under Wine.
scripts/packages.sh run
scripts/build.sh windows bench_repaint bench_entries
trap 'cmake/wine-run.sh --end' EXIT
cmake/wine-run.sh build/windows/bench/bench_repaint.exe
cmake/wine-run.sh build/windows/bench/bench_entries.exe
