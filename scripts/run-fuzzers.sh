#!/usr/bin/env bash
# Builds the fuzz targets with clang (preset "fuzz") and runs each for the given number of
# seconds (default 60). Corpora grow in build-fuzz/corpus/<kind>; inputs that made a target fail
# are left in build-fuzz/crashes/<kind> and should be copied to tests/data/fuzz/<kind>/ once fixed.
set -euo pipefail
seconds="${1:-60}"
root="$(cd "$(dirname "$0")/.." && pwd)"
cd "$root"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
seeds="build-fuzz/seeds"
build-fuzz/bin/fuzz_make_seeds "$seeds"
status=0
# One target per row of the file-kinds table; the build lists them.
for kind in $(tr ';' ' ' < build-fuzz/fuzz-kinds.txt); do
    corpus="build-fuzz/corpus/$kind"
    crashes="build-fuzz/crashes/$kind"
    mkdir -p "$corpus" "$crashes"
    cp -n "$seeds/$kind"/* "$corpus"/ 2>/dev/null || true
    cp -n tests/data/fuzz/"$kind"/* "$corpus"/ 2>/dev/null || true
    echo "== fuzz_$kind for ${seconds}s"
    if ! build-fuzz/bin/fuzz_"$kind" -max_total_time="$seconds" -max_len=65536 -rss_limit_mb=2048 \
            -artifact_prefix="$crashes/" -print_final_stats=1 "$corpus" 2>"build-fuzz/fuzz_$kind.log"; then
        echo "fuzz_$kind found a failing input:"; tail -n 40 "build-fuzz/fuzz_$kind.log"; status=1
    fi
    grep -E "stat::number_of_executed_units|Done [0-9]+ runs" "build-fuzz/fuzz_$kind.log" | tail -n 2 || true
done
exit $status
