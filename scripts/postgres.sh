#!/usr/bin/env bash
# A private PostgreSQL server for the tests and the simulator: its own cluster in a folder, on
# loopback at a port of its own, with its socket in that folder, and a role sa (password as the
# start-up's connection string has it) that may create databases.
#   scripts/postgres.sh start <folder> <port>
#   scripts/postgres.sh stop <folder>
# Run as root, the server runs as the user postgres; otherwise as the caller.
set -euo pipefail
action="$1"
folder="$2"
bindir="$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)"
[ -x "$bindir/initdb" ] || { echo "postgres.sh: no PostgreSQL server installed" >&2; exit 1; }

as_owner() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

case "$action" in
start)
    port="$3"
    mkdir -p "$folder"
    [ "$(id -u)" -ne 0 ] || chown postgres: "$folder"
    cd "$folder" # the server's user may not be allowed into the caller's folder
    if [ ! -f "$folder/data/PG_VERSION" ]; then
        as_owner "$bindir/initdb" -D "$folder/data" -U postgres -A trust -E UTF8 --locale=C.UTF-8 >/dev/null
    fi
    # A throw-away cluster: durability costs time and buys nothing here.
    as_owner "$bindir/pg_ctl" -D "$folder/data" -l "$folder/server.log" -w -t 60 start -o \
        "-c listen_addresses=127.0.0.1 -p $port -k $folder -c fsync=off -c synchronous_commit=off \
         -c full_page_writes=off -c max_connections=200" >/dev/null
    as_owner "$bindir/psql" -h "$folder" -p "$port" -U postgres -d postgres -v ON_ERROR_STOP=1 -q -c \
        "DO \$\$BEGIN IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = 'sa') THEN
             CREATE ROLE sa LOGIN CREATEDB PASSWORD '@vzqrmlkd#318'; END IF; END\$\$;"
    ;;
stop)
    cd /
    if [ -f "$folder/data/postmaster.pid" ]; then
        as_owner "$bindir/pg_ctl" -D "$folder/data" -m immediate -w stop >/dev/null || true
    fi
    ;;
*)
    echo "usage: postgres.sh start <folder> <port> | stop <folder>" >&2
    exit 2
    ;;
esac
