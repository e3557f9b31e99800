#!/usr/bin/env bash
# Makes the reference of the public interfaces in build/api/html. A warning of Doxygen's is a failure.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/packages.sh docs
mkdir -p build
rm -rf build/api
doxygen docs/Doxyfile
echo "build/api/html/index.html"
