#!/usr/bin/env bash
# Runs the example for C and compares what it prints with what stands beside its source:
#   run-example.sh EXAMPLES-FOLDER PROGRAM [RUNNER]
set -euo pipefail
cd "$1/materials"
"${@:3}" "$2" DefaultMaterialD.mat </dev/null | tr -d '\r' | diff "$1/c/laminate.txt" -
