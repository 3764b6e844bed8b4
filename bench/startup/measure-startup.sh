#!/usr/bin/env bash
# Measures the time from process start to the first paint of the main window, with the full food
# database, and checks that the program quits with both data files saved. Each run also starts the
# bare window built beside the program (a menu, a tool bar, a list and a painted disc) the same
# way, so that the report compares the program with the floor measured on the same machine at the
# same time: median time to the first paint and peak memory of both, and their ratios.
#
# Usage: bench/startup/measure-startup.sh [VELMORA_BINARY] [FOODS_DB] [RUNS]
#   VELMORA_BINARY  default: build/bin/velmora (velmora_bare_window is looked for beside it)
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

bare="$binary_dir/velmora_bare_window"
[[ -x "$bare" ]] || { echo "no bare window at $bare (build velmora_bare_window)" >&2; exit 2; }
peak_file="$(mktemp)"
trap 'rm -rf "$data" "$config" "$peak_file"' EXIT

# Runs a program with --measure-startup; prints "<ms to first paint> <peak KiB>".
measure() {
    local start out painted
    start=$(date +%s%3N)
    if [[ -x /usr/bin/time ]]; then
        out="$(/usr/bin/time -f %M -o "$peak_file" "$@" --measure-startup)"
    else
        out="$("$@" --measure-startup)"; echo 0 >"$peak_file"
    fi
    painted=$(sed -n 's/^first-paint-epoch-ms=//p' <<<"$out")
    [[ -n "$painted" ]] || return 1
    echo "$((painted - start)) $(tail -n 1 "$peak_file")"
}
median() { sort -n | awk '{a[NR]=$1} END {print (NR % 2) ? a[(NR+1)/2] : int((a[NR/2]+a[NR/2+1])/2)}'; }

echo "program:  $binary"
echo "foods.db: $foods ($(stat -c %s "$foods") bytes)"
total=0
worst=0
times=() peaks=() bare_times=() bare_peaks=()
for ((i = 1; i <= runs; i++)); do
    rm -f "$data/velmora.db" "$data/Example User.db"
    read -r ms kb < <(measure "$binary" --data-dir "$data") ||
        { echo "run $i: no first paint reported" >&2; exit 1; }
    read -r bare_ms bare_kb < <(measure "$bare") ||
        { echo "run $i: the bare window reported no first paint" >&2; exit 1; }
    echo "run $i: ${ms} ms to the first paint, ${kb} KiB peak (bare window: ${bare_ms} ms, ${bare_kb} KiB)"
    for f in "velmora.db" "Example User.db"; do
        [[ -s "$data/$f" ]] || { echo "run $i: $f was not saved at shut-down" >&2; exit 1; }
    done
    times+=("$ms") peaks+=("$kb") bare_times+=("$bare_ms") bare_peaks+=("$bare_kb")
    total=$((total + ms))
    ((ms > worst)) && worst=$ms
done
med=$(printf '%s\n' "${times[@]}" | median)
med_kb=$(printf '%s\n' "${peaks[@]}" | median)
bare_med=$(printf '%s\n' "${bare_times[@]}" | median)
bare_kb=$(printf '%s\n' "${bare_peaks[@]}" | median)
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { if (b > 0) printf "%.2f", a / b; else print "n/a" }'; }
echo "mean $((total / runs)) ms, worst ${worst} ms (target: under ${target_ms} ms); both files saved on every run"
echo "median: program ${med} ms, ${med_kb} KiB; bare window ${bare_med} ms, ${bare_kb} KiB"
echo "ratio to the bare window: time $(ratio "$med" "$bare_med"), peak memory $(ratio "$med_kb" "$bare_kb") (target: 1.25 or less)"
((worst < target_ms))
