#!/usr/bin/env bash
# Checks a built till package without installing it: its name and dependencies, that it carries
# the programs, links, desktop entry and icon, the empty folders the program writes in, and nothing
# else: no build leftovers, nothing that the program itself creates on its first start.
# Usage: tests/package/check-contents.sh dist/zarvel_<version>_amd64.deb
set -uo pipefail
deb="$1"
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)"
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

version="$(sed -n 's/^project(Zarvel VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")"
[ "$(basename "$deb")" = "zarvel_${version}_amd64.deb" ] || fail "file name $(basename "$deb")"

# The run-time dependencies: what the programs link, and what Qt and the drivers load.
depends="$(dpkg-deb -f "$deb" Depends)"
for package in libqt6core6 libqt6widgets6 libqt6printsupport6 libqt6sql6-sqlite libqt6sql6-odbc \
    libqt6sql6-psql unixodbc tdsodbc fonts-liberation fonts-dejavu-core adduser; do
    grep -qE "(^|, )$package( |,|$)" <<<"$depends" || fail "Depends lacks $package: $depends"
done

# Entries: mode and owner, then the path (a link with its target).
listing="$(dpkg-deb -c "$deb" | awk '{ $3 = $4 = $5 = ""; print }' | tr -s ' ')"
while read -r expected; do
    grep -qxF -- "$expected" <<<"$listing" || fail "missing entry: $expected"
done <<'EOF_ENTRIES'
-rwxr-xr-x root/root ./opt/zarvel/zarvel
-rwxr-xr-x root/root ./opt/zarvel/zarvel-demo
-rwxr-xr-x root/root ./usr/bin/zarvel
lrwxrwxrwx root/root ./usr/bin/zarvel-demo -> zarvel
-rw-r--r-- root/root ./usr/share/applications/zarvel.desktop
-rw-r--r-- root/root ./usr/share/icons/hicolor/scalable/apps/zarvel.svg
-rw-r--r-- root/root ./usr/share/zarvel/zarvel-autostart.desktop
drwxr-xr-x root/root ./etc/tarvex/
drwxr-xr-x root/root ./opt/centralis/
drwxr-xr-x root/root ./var/lib/zarvel/
EOF_ENTRIES

# Every path lies under one of these; the machine's and the updater's folders stay empty, since the
# program writes SERVER.ini and the updater's mailbox itself, and log/ and config.ini likewise.
allowed='^\./($|(etc|opt|usr|usr/bin|usr/share|var|var/lib)/'
allowed+='|etc/tarvex/|opt/centralis/|var/lib/zarvel/|opt/zarvel/(zarvel|zarvel-demo)?'
allowed+='|usr/bin/zarvel(-demo)?|usr/share/(applications|icons|doc|zarvel)/.*)( -> .*)?$'
while read -r path; do
    grep -qE "$allowed" <<<"$path" || fail "unexpected entry: $path"
    grep -qE 'CMakeFiles|_autogen|moc_|\.(o|a|cmake|ninja)$|/test_|SERVER\.ini|config\.ini|/log/|atualizador' \
        <<<"$path" && fail "leftover: $path"
done < <(dpkg-deb -c "$deb" | awk '{ print substr($0, index($0, "./")) }')

unpacked="$(mktemp -d)"
trap 'rm -rf "$unpacked"' EXIT
dpkg-deb -x "$deb" "$unpacked"
for program in zarvel zarvel-demo; do
    elf="$unpacked/opt/zarvel/$program"
    readelf -d "$elf" | grep -qE 'R(UN)?PATH' && fail "$program keeps a run path: $(readelf -d "$elf" | grep PATH)"
    readelf -S "$elf" | grep -q '\.debug_' && fail "$program is not stripped"
done

# The desktop entry starts a program of the package and names its icon.
for file in "$unpacked/usr/share/applications/zarvel.desktop" "$unpacked/usr/share/zarvel/zarvel-autostart.desktop"; do
    exec_path="$(sed -n 's/^Exec=//p' "$file")"
    [ -x "$unpacked$exec_path" ] || fail "$(basename "$file"): Exec=$exec_path is not in the package"
    icon="$(sed -n 's/^Icon=//p' "$file")"
    [ -f "$unpacked/usr/share/icons/hicolor/scalable/apps/$icon.svg" ] || fail "$(basename "$file"): no icon $icon"
done

# The launcher reaches a program of the package under each of its names.
for name in zarvel zarvel-demo; do
    target="$(sed -n 's|^exec "\([^$]*\)\$(basename "\$0")".*|\1|p' "$unpacked/usr/bin/zarvel")$name"
    [ -x "$unpacked$target" ] || fail "launcher: /usr/bin/$name starts $target, not in the package"
done

# The shell scripts parse.
dpkg-deb -e "$deb" "$unpacked/DEBIAN"
for script in "$unpacked/DEBIAN/postinst" "$unpacked/DEBIAN/postrm" "$unpacked/usr/bin/zarvel"; do
    sh -n "$script" || fail "$(basename "$script") does not parse"
done

[ "$failures" -eq 0 ] || { echo "$failures check(s) failed on $deb"; exit 1; }
echo "package contents: all checks passed ($deb)"
