#!/usr/bin/env bash
# Installs what is missing, builds, makes the demo database when it is missing, and starts the
# till on it. Without a display it runs under xvfb-run.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build"
"$root/scripts/setup.sh" "$build"

demo="$root/demo"
export ZARVEL_MACHINE_DIR="$demo/machine"
mkdir -p "$ZARVEL_MACHINE_DIR"
if [ -x "$build/zarvel-demo" ] && [ ! -f "$demo/zarvel-demo.db" ]; then
    "$build/zarvel-demo" "$demo/zarvel-demo.db" "$ZARVEL_MACHINE_DIR"
fi

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    exec xvfb-run -a -s "-screen 0 1280x800x24" "$build/zarvel"
fi
exec "$build/zarvel"
