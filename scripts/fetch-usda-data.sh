#!/usr/bin/env bash
# Obtains the USDA SR24 data that Debian packages (package "cronometer") and unpacks it into the
# cache folder. Only two data files of the package are used: the per-food XML archive and the
# nutrient definitions. Nothing of the package is installed or run. A second call does nothing.
set -euo pipefail
cache="${1:-$(cd "$(dirname "$0")/.." && pwd)/.cache/usda}"
foods="$cache/usr/share/cronometer/usda_sr24.jar"
nutrients="$cache/usr/share/java/cronometer.jar"
if [ -f "$foods" ] && [ -f "$nutrients" ]; then
    exit 0
fi
mkdir -p "$cache"
cd "$cache"
if ! ls cronometer_*.deb >/dev/null 2>&1; then
    echo "Downloading the USDA SR24 package data..."
    apt-get download cronometer 2>/dev/null || { sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo";
        $sudo apt-get update -q && apt-get download cronometer; }
fi
dpkg-deb -x cronometer_*.deb "$cache"
test -f "$foods" && test -f "$nutrients"
echo "USDA data unpacked in $cache"
