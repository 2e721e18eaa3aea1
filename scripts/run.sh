#!/usr/bin/env bash
# Installs what is missing, builds, makes the demo database when it is missing, gives the demo its
# printers, and starts the till on it. Without a display it runs under xvfb-run.
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

# The printers: one queue per department (COZINHA, BAR, COPA) and CONFERENCIA for the slip, each
# ending as PDFs in demo/tickets/<queue>/. Where CUPS runs with the cups-pdf backend they are real
# CUPS queues; elsewhere the program prints into those folders itself.
tickets="$demo/tickets"
queues=(COZINHA BAR COPA CONFERENCIA)
for queue in "${queues[@]}"; do
    mkdir -p "$tickets/$queue"
done
cups_pdf_ready() {
    command -v lpadmin >/dev/null && [ -x /usr/lib/cups/backend/cups-pdf ] || return 1
    lpstat -r 2>/dev/null | grep -q "is running" && return 0
    # No systemd in a container: start the scheduler ourselves when we may.
    [ "$(id -u)" -eq 0 ] && [ -x /usr/sbin/cupsd ] || return 1
    mkdir -p /run/cups && /usr/sbin/cupsd && sleep 1
    lpstat -r 2>/dev/null | grep -q "is running"
}
if [ -z "${ZARVEL_PDF_PRINTERS:-}" ] && cups_pdf_ready; then
    for queue in "${queues[@]}"; do
        lpstat -p "$queue" >/dev/null 2>&1 && continue
        printf 'Out %s\n' "$tickets/$queue" >"/etc/cups/cups-pdf-$queue.conf"
        lpadmin -p "$queue" -v "cups-pdf:/$queue" -E -m lsb/usr/cups-pdf/CUPS-PDF_opt.ppd
    done
    lpstat -d 2>/dev/null | grep -q "destination:" || lpadmin -d CONFERENCIA
    echo "Tickets: CUPS queues ${queues[*]}, PDFs in $tickets/<queue>/"
else
    export ZARVEL_PDF_PRINTERS="${ZARVEL_PDF_PRINTERS:-$tickets}"
    for queue in "${queues[@]}"; do
        mkdir -p "$ZARVEL_PDF_PRINTERS/$queue"
    done
    [ -s "$ZARVEL_PDF_PRINTERS/.default" ] || echo CONFERENCIA >"$ZARVEL_PDF_PRINTERS/.default"
    echo "Tickets: PDFs in $ZARVEL_PDF_PRINTERS/<printer>/"
fi
# This terminal's conference printer, as the settings screen would write it.
[ -f "$build/config.ini" ] || printf '[PRINTERS]\r\nCONFERENCIA=CONFERENCIA\r\n' >"$build/config.ini"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    exec xvfb-run -a -s "-screen 0 1280x800x24" "$build/zarvel"
fi
exec "$build/zarvel"
