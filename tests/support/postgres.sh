#!/bin/sh
# postgres.sh start|stop FOLDER [PORT]: a PostgreSQL server for tests, on a socket in FOLDER. With a port it also listens
# to TCP on this computer alone, where it wants passwords and offers no encryption. It keeps nothing: what it writes is
# not forced to the disk, and the folder is removed at the stop. The server refuses to run as root, so for root it runs
# as the package's own user.
set -eu
folder=$2
listen="-c listen_addresses=${3:+127.0.0.1 -p $3}"
programs=$(pg_config --bindir 2>/dev/null || true)
for found in "$programs" /usr/lib/postgresql/*/bin; do
    [ -x "$found/initdb" ] && programs=$found
done
[ -x "$programs/initdb" ] || { echo "postgres.sh: no PostgreSQL server is installed" >&2; exit 1; }

as_user() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

stop() {
    [ ! -e "$folder/data/postmaster.pid" ] || as_user "$programs/pg_ctl" -D "$folder/data" -w -m immediate stop
    rm -rf "$folder"
}

stop
[ "$1" = start ] || exit 0
mkdir "$folder"
[ "$(id -u)" -ne 0 ] || chown postgres "$folder"
cd "$folder"
# Locale C: texts are compared byte by byte, as by the embedded engine.
as_user "$programs/initdb" -D "$folder/data" --auth-local=trust --auth-host=scram-sha-256 -U "$(id -un)" \
    --locale=C -E UTF8 -N >"$folder/initdb.log" 2>&1
as_user "$programs/pg_ctl" -D "$folder/data" -w -l "$folder/server.log" start -o "-k $folder $listen \
    -c fsync=off -c synchronous_commit=off -c full_page_writes=off -c autovacuum=off" >/dev/null
