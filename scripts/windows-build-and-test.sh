#!/usr/bin/env bash
# The Windows build and its tests, on Debian: the CMake preset "windows" cross-compiles the core,
# the logic libraries, velmora-cli.exe and the non-GUI tests with MinGW-w64 into build-windows/,
# and Wine runs them: the tests through ctest, then velmora-cli.exe's rewrite and resave, whose
# files must be the native build's byte for byte. It takes foods.db and the native velmora-cli
# from build/, so it runs after scripts/build-and-test.sh (CI runs it right after the main suite).
# Wine runs headless in a prefix of its own that is removed at the end; nothing asks anything.
set -euo pipefail
cd "$(dirname "$0")/.."
started=$SECONDS

native=build/bin
if [ ! -x "$native/velmora-cli" ] || [ ! -f "$native/foods.db" ]; then
    echo "windows: build/bin has no velmora-cli or foods.db; run scripts/build-and-test.sh first" >&2
    exit 1
fi
wine="$(command -v wine64 || command -v wine || echo /usr/lib/wine/wine64)"
wineserver="$(command -v wineserver || echo /usr/lib/wine/wineserver)"
if [ ! -x "$wine" ] || ! command -v x86_64-w64-mingw32-g++-posix >/dev/null; then
    echo "windows: MinGW-w64 or Wine is missing; run scripts/install-deps.sh" >&2
    exit 1
fi

scratch="$(mktemp -d)"
export WINEPREFIX="$scratch/wine" WINEARCH=win64 WINEDEBUG=-all
# No installer of Mono or Gecko is offered: nothing here needs .NET or a browser engine.
export WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY WAYLAND_DISPLAY
cleanup() {
    "$wineserver" -k 2>/dev/null || true
    rm -rf "$scratch"
}
trap cleanup EXIT

echo "-- Windows build (preset windows)"
cmake --preset windows -DVELMORA_FOODS_DB_FROM="$PWD/$native/foods.db" >/dev/null
cmake --build --preset windows
echo "built after $((SECONDS - started)) s"

echo "-- Wine prefix"
# One server for the whole stage, so that each test program starts in a fraction of a second. The
# set-up starts Wine's services under it with their output going to a file: a service that
# inherited a test program's output would keep ctest waiting for it to end.
mkdir -p "$WINEPREFIX"
"$wineserver" -p
if ! "$wine" wineboot --init >"$scratch/wineboot.log" 2>&1; then
    cat "$scratch/wineboot.log"
    exit 1
fi
echo "Wine ready after $((SECONDS - started)) s"

echo "-- Non-GUI tests under Wine"
# Now and then Wine fails to start a test program, which then ends at once without a line of
# output. The failed tests run once more, one at a time; a test that fails again fails the stage.
if ! ctest --preset windows -j2; then
    echo "-- The failed tests once more"
    ctest --preset windows --rerun-failed
fi

echo "-- velmora-cli.exe: rewrite and resave give the native build's bytes"
cli="$PWD/build-windows/bin/velmora-cli.exe"
foods="$PWD/$native/foods.db"
check_same() { cmp "$1" "$2" || { echo "windows: $1 and $2 differ" >&2; exit 1; }; }
for pair in foods:foods.db shared:velmora.db user:Bert.db; do
    kind="${pair%%:*}" file="${pair#*:}"
    "$wine" "$cli" rewrite "$kind" "tests/data/canonical/$file" "$scratch/rewritten-$file"
    check_same "tests/data/canonical/$file" "$scratch/rewritten-$file"
done
"$wine" "$cli" rewrite foods "$foods" "$scratch/rewritten-foods.db"
check_same "$foods" "$scratch/rewritten-foods.db"
# The same data folder resaved by both builds: velmora.db normalised against the real foods.db.
for side in native windows; do
    mkdir -p "$scratch/$side"
    cp tests/data/canonical/velmora.db tests/data/canonical/Bert.db "$scratch/$side/"
done
"$native/velmora-cli" resave --data-dir "$scratch/native" --foods "$foods"
"$wine" "$cli" resave --data-dir "$scratch/windows" --foods "$foods"
for file in velmora.db Bert.db; do
    check_same "$scratch/native/$file" "$scratch/windows/$file"
done
echo "rewrite and resave agree byte for byte"
echo "Windows stage took $((SECONDS - started)) s"
