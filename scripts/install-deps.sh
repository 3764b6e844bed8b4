#!/usr/bin/env bash
# Installs every Debian package that building, testing and running need on Debian 12 (or a
# derivative with apt), as root or through sudo. Every package is named: nothing is left to what
# happens to be installed already or to what apt recommends. A second call installs nothing.
set -euo pipefail
packages=(
    # compilers and build tools
    cmake ninja-build g++ pkg-config
    # tests and benchmarks; the time-zone database for the tests of dates in other zones
    libgtest-dev libgmock-dev libbenchmark-dev tzdata
    # Qt 6: Qt Charts' CMake package needs Qt's OpenGL module and the GL headers
    qt6-base-dev qt6-base-dev-tools qt6-charts-dev qt6-svg-dev libqt6opengl6-dev
    libgl1-mesa-dev libxkbcommon-dev
    # the food-database builder reads the USDA archives
    libzip-dev libxml2-dev
    # a display for the program and its widget tests, and fonts to draw text with
    xvfb xauth fontconfig fonts-dejavu-core
    # fuzzing and the sanitizer runtime of clang
    clang libclang-rt-14-dev
    # the Windows build: MinGW-w64 with posix threads, GoogleTest's sources to build it with,
    # and Wine to run its tests
    g++-mingw-w64-x86-64-posix googletest wine64
    # the Debian package (dependencies read from the binaries, which needs file), and the checks of the menu entry,
    # the metainfo and the manual page
    dpkg-dev file desktop-file-utils appstream groff-base
)
if ! command -v apt-get >/dev/null 2>&1; then
    echo "install-deps: this script needs Debian 12 or a derivative with apt-get." >&2
    echo "Install these packages (or their equivalents) by hand: ${packages[*]}" >&2
    exit 1
fi
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
$sudo apt-get update -q
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
