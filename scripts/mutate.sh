#!/usr/bin/env bash
# Changes portable code in one place at a time and lists the changes that no test notices:
#   mutate.sh [N] [FILE...]  N changes (30 when left out) of those that the files allow, the same ones for the same
#                            MUTATE_SEED (1 when unset)
#   mutate.sh --again        what survived the last time
# Changes that cannot change an answer are in scripts/mutate-exceptions.txt.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/packages.sh mutate
exec python3 scripts/mutate.py --seed "${MUTATE_SEED:-1}" "$@"
