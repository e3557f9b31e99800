#!/usr/bin/env bash
# Checks that docs/numerics.md and its picture show what the program prints and draws: check-numerics.sh FIT_REPORT
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

picture=$(mktemp "${TMPDIR:-/tmp}/numerics.XXXXXX.svg")
trap 'rm -f "$picture"' EXIT
diff <(grep '^|' docs/numerics.md | grep -Fx -f <("$1" examples/materials/DefaultMaterialD.mat "$picture")) \
    <("$1" examples/materials/DefaultMaterialD.mat "$picture")
cmp docs/images/numerics.svg "$picture"
