#!/usr/bin/env bash
# Measures the time from process start to the first paint of the main window, with the full food
# database, and checks that the program quits with both data files saved.
#
# Usage: bench/startup/measure-startup.sh [VELMORA_BINARY] [FOODS_DB] [RUNS]
#   VELMORA_BINARY  default: build/bin/velmora
#   FOODS_DB        default: foods.db beside the binary, else build/bin/foods.db
#   RUNS            default: 5
# Runs offscreen unless QT_QPA_PLATFORM is set (e.g. QT_QPA_PLATFORM=xcb under xvfb-run).
set -euo pipefail
root="$(cd "$(dirname "$0")/../.." && pwd)"
binary="${1:-$root/build/bin/velmora}"
binary_dir="$(cd "$(dirname "$binary")" && pwd)"
foods="${2:-}"
runs="${3:-5}"
target_ms=400

if [[ -z "$foods" ]]; then
    if [[ -f "$binary_dir/foods.db" ]]; then foods="$binary_dir/foods.db"; else foods="$root/build/bin/foods.db"; fi
fi
[[ -x "$binary" ]] || { echo "no program at $binary" >&2; exit 2; }
[[ -f "$foods" ]] || { echo "no foods.db at $foods (build the food database first)" >&2; exit 2; }

data="$(mktemp -d)"
config="$(mktemp -d)"
trap 'rm -rf "$data" "$config"' EXIT
# The data folder holds its own copy of foods.db (read when none lies beside the program).
cp "$foods" "$data/foods.db"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
# Keep the measurement away from the user's own settings.
export XDG_CONFIG_HOME="$config"

echo "program:  $binary"
echo "foods.db: $foods ($(stat -c %s "$foods") bytes)"
total=0
worst=0
for ((i = 1; i <= runs; i++)); do
    rm -f "$data/velmora.db" "$data/Example User.db"
    start=$(date +%s%3N)
    out="$("$binary" --data-dir "$data" --measure-startup)"
    painted=$(sed -n 's/^first-paint-epoch-ms=//p' <<<"$out")
    [[ -n "$painted" ]] || { echo "run $i: no first paint reported" >&2; exit 1; }
    ms=$((painted - start))
    echo "run $i: ${ms} ms to the first paint"
    for f in "velmora.db" "Example User.db"; do
        [[ -s "$data/$f" ]] || { echo "run $i: $f was not saved at shut-down" >&2; exit 1; }
    done
    total=$((total + ms))
    ((ms > worst)) && worst=$ms
done
echo "mean $((total / runs)) ms, worst ${worst} ms (target: under ${target_ms} ms); both files saved on every run"
((worst < target_ms))
