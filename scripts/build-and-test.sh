#!/usr/bin/env bash
# Builds everything (dependencies and the food database included) and runs the whole test suite.
# "--quick" leaves out the tests labelled long.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
cd "$root"
scripts/install-deps.sh
scripts/fetch-usda-data.sh
cmake --preset default
cmake --build --preset default
if [ "${1:-}" = "--quick" ]; then
    ctest --preset quick
else
    ctest --preset default
fi
