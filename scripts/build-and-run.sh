#!/usr/bin/env bash
# Builds everything (dependencies and the food database included) and starts the program.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
cd "$root"
scripts/install-deps.sh
scripts/fetch-usda-data.sh
cmake --preset default
cmake --build --preset default
exec build/bin/velmora "$@"
