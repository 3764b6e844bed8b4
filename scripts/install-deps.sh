#!/usr/bin/env bash
# Installs the Debian packages that building and testing need, when any is missing.
set -euo pipefail
packages=(cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev
          qt6-base-dev qt6-base-dev-tools qt6-charts-dev qt6-svg-dev libqt6opengl6-dev libgl1-mesa-dev libxkbcommon-dev
          libzip-dev libxml2-dev xvfb xauth clang libclang-rt-14-dev)
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
