#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test through ctest on the offscreen platform.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build"
"$root/scripts/setup.sh" "$build"
cd "$build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)"
