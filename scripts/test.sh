#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test through ctest on the offscreen platform,
# the store's suites also on a private PostgreSQL server that lives only for that run, then builds
# the Debian package and checks it (installed, started and purged again when run as root), then
# runs the tests once more in a second build under AddressSanitizer and UBSan, leaks included.
# ZARVEL_PG_PORT chooses the server's loopback port (54329 when not set).
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build"
"$root/scripts/setup.sh" "$build"

pgport="${ZARVEL_PG_PORT:-54329}"
pgdir="$(mktemp -d /tmp/zarvel-pg.XXXXXX)"
stop_server() {
    "$root/scripts/postgres.sh" stop "$pgdir" || true
    rm -rf "$pgdir"
}
trap stop_server EXIT
"$root/scripts/postgres.sh" start "$pgdir" "$pgport"

cmake -S "$root" -B "$build" -DZARVEL_TEST_POSTGRES="127.0.0.1:$pgport" >/dev/null
cd "$build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)"
stop_server
trap - EXIT

deb="$("$root/scripts/package.sh" "$build" | tail -n 1)"
"$root/tests/package/check-contents.sh" "$deb"
"$root/tests/package/check-installed.sh" "$deb"

asan="$root/build-asan"
cmake -S "$root" -B "$asan" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DASAN=ON -DZARVEL_BENCH=OFF >/dev/null
cmake --build "$asan" -j "$(nproc)"
cd "$asan"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 QT_QPA_PLATFORM=offscreen \
    ctest --output-on-failure -j "$(nproc)"
