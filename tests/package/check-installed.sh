#!/usr/bin/env bash
# Installs a till package with apt, makes the demo database and starts the installed till as an
# ordinary user of the group until its login screen shows, then purges the package again.
# Needs root and a machine where the package is not installed (it is left alone otherwise).
# Usage: tests/package/check-installed.sh dist/zarvel_<version>_amd64.deb [screenshot.png]
set -euo pipefail
deb="$(realpath "$1")"
shot="${2:-}"
if [ "$(id -u)" -ne 0 ]; then
    echo "installed package: skipped, needs root"
    exit 0
fi
if dpkg-query -W -f='${Status}' zarvel 2>/dev/null | grep -q installed; then
    echo "installed package: skipped, zarvel is already installed on this machine"
    exit 0
fi

work="$(mktemp -d)"
chmod 777 "$work"
server_ini_before="$([ -e /etc/tarvex/SERVER.ini ] && echo yes || echo no)"
cleanup() {
    DEBIAN_FRONTEND=noninteractive apt-get purge -y -qq -o DPkg::Lock::Timeout=300 zarvel >/dev/null 2>&1 || true
    # The machine file stays after a purge; this one was made here.
    if [ "$server_ini_before" = no ]; then
        rm -f /etc/tarvex/SERVER.ini
        rmdir /etc/tarvex 2>/dev/null || true
    fi
    rm -rf "$work"
}
trap cleanup EXIT

DEBIAN_FRONTEND=noninteractive apt-get install -y -qq -o DPkg::Lock::Timeout=300 "$deb" >"$work/apt.log" 2>&1 ||
    { cat "$work/apt.log"; exit 1; }

# The folders the terminal's user writes in belong to the group.
for folder in /opt/zarvel /etc/tarvex /opt/centralis /var/lib/zarvel; do
    [ "$(stat -c '%a %U:%G' "$folder")" = "2775 root:zarvel" ] ||
        { echo "FAIL: $folder is $(stat -c '%a %U:%G' "$folder")"; exit 1; }
done

# The terminal's user: no right but the group's.
as_user=(setpriv --reuid=nobody --regid=nogroup --groups=zarvel --reset-env env HOME="$work")
"${as_user[@]}" zarvel-demo /var/lib/zarvel/demo.db /etc/tarvex >/dev/null
grep -q "IPCONEXAO=/var/lib/zarvel/demo.db" /etc/tarvex/SERVER.ini ||
    { echo "FAIL: zarvel-demo did not point SERVER.ini at the demo database"; exit 1; }

# Through the launcher in /usr/bin, as the desktop's menu starts it.
cat >"$work/session.sh" <<EOF_SESSION
zarvel &
if xdotool search --sync --onlyvisible --name "^Cred.*nciais de acesso\$" >/dev/null; then
    [ -z "$shot" ] || import -window root "$work/login.png"
    echo up >"$work/result"
fi
kill \$!
EOF_SESSION
timeout 60 "${as_user[@]}" xvfb-run -a -s "-screen 0 1280x800x24" sh "$work/session.sh" 2>"$work/session.log" || true
if [ ! -f "$work/result" ]; then
    echo "FAIL: the installed till did not reach its login"
    cat "$work/session.log"
    exit 1
fi
[ -z "$shot" ] || cp "$work/login.png" "$shot"

# With no updater on the machine, the start logs that in the program's folder.
# The line is in the machine's 8-bit code page.
log="/opt/zarvel/log/$(date +%d%m%Y).txt"
LC_ALL=C grep -q "Atualizador.exe n.o localizado" "$log" ||
    { echo "FAIL: no updater line in $log"; exit 1; }
# What the programs made stays writable by the next user of the group.
for file in "$log" /opt/zarvel/log /etc/tarvex/SERVER.ini /var/lib/zarvel/demo.db; do
    [ -n "$(find "$file" -maxdepth 0 -group zarvel -perm -g+w)" ] ||
        { echo "FAIL: $file is $(stat -c '%A %U:%G' "$file")"; exit 1; }
done
echo "installed package: installs, makes the demo database and reaches the login"
