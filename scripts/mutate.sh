#!/usr/bin/env bash
# Changes portable code in one place at a time and looks whether a test notices: mutate.sh [N] [FILE...]
# N changes (30 when left out) of those that the files allow, the same ones for the same MUTATE_SEED (1 when unset).
# Prints the changes that survived. Those that cannot change an answer are in scripts/mutate-exceptions.txt.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/packages.sh mutate
exec python3 scripts/mutate.py --seed "${MUTATE_SEED:-1}" "$@"
