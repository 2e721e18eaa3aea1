#!/usr/bin/env bash
# Installs what is missing (Debian 12) and builds the program, the tests and the benchmarks.
# Usage: scripts/setup.sh [build-dir]
#        scripts/setup.sh --packages-only
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${1:-$root/build}"

packages=(build-essential cmake ninja-build qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite
          libqt6sql6-odbc libqt6sql6-psql postgresql libqt6test6 libgl-dev tdsodbc unixodbc libbenchmark-dev sqlite3
          xvfb xauth imagemagick fonts-dejavu-core fonts-liberation)
missing=()
# The Debian package: cpack finds the programs with file; the check of the installed till drives it
# with xdotool, and its drivers are there before apt is asked to install it.
packages+=(file xdotool libqt6sql6-psql)
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
[ "${1:-}" = --packages-only ] && exit 0

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j "$(nproc)"
