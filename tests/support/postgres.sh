#!/bin/sh
# postgres.sh start|stop|restart FOLDER [PORT]: a PostgreSQL server for tests, on a socket in FOLDER. With a port it also listens
# to TCP on this computer alone, where it wants passwords and offers no encryption. It keeps nothing: what it writes is
# not forced to the disk, and the folder is removed at the stop. The server refuses to run as root, so for root it runs
# as the package's own user. Nobody else may enter the folder: whoever reaches the socket is let in.
set -eu
action=$1
folder=$2
listen="-c listen_addresses=${3:+127.0.0.1 -p $3}"

fail() {
    echo "postgres.sh: $*" >&2
    exit 1
}

programs=
for found in /usr/lib/postgresql/*/bin "$(pg_config --bindir 2>/dev/null || true)"; do
    if [ -x "$found/initdb" ]; then programs=$found; fi
done
[ -n "$programs" ] ||
    fail "the tests need a PostgreSQL server of their own, and none is installed (Debian: apt-get install postgresql)"
odbcinst -q -d -n "PostgreSQL Unicode" >/dev/null 2>&1 ||
    fail "the tests need the ODBC driver \"PostgreSQL Unicode\" (Debian: apt-get install odbc-postgresql)"

as_user() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

# Runs a command silently; shows what it left in its log when it fails.
logged() {
    log=$folder/$1
    shift
    as_user "$@" >>"$log" 2>&1 || {
        cat "$log" >&2
        fail "no server could be started in $folder"
    }
}

stop() {
    if [ -e "$folder/data/postmaster.pid" ]; then
        # One that ended by itself left the file behind.
        as_user "$programs/pg_ctl" -D "$folder/data" -w -m immediate stop >/dev/null 2>&1 || true
    fi
    rm -rf "$folder"
}

if [ "$action" = restart ]; then # in the middle of whatever it does
    logged restart.log "$programs/pg_ctl" -D "$folder/data" -w -m immediate -l "$folder/server.log" restart
    exit 0
fi
stop
[ "$action" = start ] || exit 0
mkdir -m 700 "$folder" || fail "cannot make the folder $folder"
[ "$(id -u)" -ne 0 ] || chown postgres "$folder"
cd "$folder"
# Locale C: texts are compared byte by byte, as by the embedded engine.
logged start.log "$programs/initdb" -D "$folder/data" --auth-local=trust --auth-host=scram-sha-256 -U "$(id -un)" \
    --locale=C -E UTF8 -N
logged start.log "$programs/pg_ctl" -D "$folder/data" -w -l "$folder/server.log" start -o "-k $folder $listen \
    -c shared_preload_libraries=pg_stat_statements -c fsync=off -c synchronous_commit=off -c full_page_writes=off \
    -c autovacuum=off"
