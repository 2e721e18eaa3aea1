#!/usr/bin/env bash
# Builds the Debian package of a till: dist/zarvel_<version>_amd64.deb.
# Usage: scripts/package.sh [build-dir]
# Without a build folder it makes build-package (no tests, no benchmarks); scripts/test.sh passes
# its own build so that the programs are not compiled twice.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${1:-}"
if [ -z "$build" ]; then
    build="$root/build-package"
    "$root/scripts/setup.sh" --packages-only
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DZARVEL_TESTS=OFF -DZARVEL_BENCH=OFF >/dev/null
fi
cmake --build "$build" -j "$(nproc)" --target zarvel zarvel-demo
rm -f "$build"/zarvel_*.deb
(cd "$build" && cpack -G DEB >/dev/null)
mkdir -p "$root/dist"
rm -f "$root"/dist/zarvel_*.deb
cp "$build"/zarvel_*.deb "$root/dist/"
ls "$root"/dist/zarvel_*.deb
