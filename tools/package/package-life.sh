#!/bin/sh
# package-life.sh ROOT PACKAGES ARCHIVES
# Run by bare-debian.sh, as root and in a namespace of its own. On the bare Debian in ROOT a package is installed, used by
# somebody without any rights, upgraded, broken, mended, removed and purged; what the user entered must outlive all of it.
# PACKAGES holds tarnwell.deb and before.deb, the version before; ARCHIVES keeps what apt downloads.
set -eu
root=$1
packages=$2
archives=$3
home=$root/home/clerk
log=$packages/apt.log
. "$(dirname "$0")/desktop.sh"

fail() {
    echo "package-life.sh: $*" >&2
    exit 1
}

step() { printf '== %s\n' "$*"; }

in_root() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        "$@"
}

as_clerk() {
    chroot "$root" runuser -u clerk -- env -i PATH=/usr/bin:/bin HOME=/home/clerk LC_ALL=C.UTF-8 \
        DISPLAY="${DISPLAY:-}" "$@"
}

# Only what the package cannot do without is installed, so that nothing of it can be forgotten.
apt() { in_root apt-get -y -qq --no-install-recommends "$@" >>"$log" 2>&1; }

dpkg() { in_root dpkg "$@" >>"$log" 2>&1; }

must() { "$@" || { tail -n 30 "$log" >&2; fail "failed: $*"; }; }

is_in_order() {
    [ "$(in_root dpkg-query -W -f '${db:Status-Abbrev}' tarnwell)" = 'ii ' ] && [ -z "$(in_root dpkg --verify tarnwell)" ]
}

# Names, one a line.
installed_packages() { in_root dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p'; }

version() { as_clerk tarnwell-db --version | sed 's/.* //'; }

# Every file of the user, and what is in it.
users_files() { (cd "$home" && find . -type f -exec sha256sum {} + | LC_ALL=C sort -k 2); }

same_files_after() {
    users_files | diff "$packages/files" - >&2 || fail "the user's files are not the same after $1"
}

# Starts the program as the desktop's menu does, for at most five minutes.
start() {
    as_clerk timeout 300 sh -c "exec $(sed -n 's/^Exec=//p' "$root/usr/share/applications/tarnwell.desktop")" \
        >"$packages/program.log" 2>&1 &
    program=$!
}

# ended_with CODE: waits for the program's end.
ended_with() {
    code=0
    wait "$program" || code=$?
    [ "$code" -eq "$1" ] || { cat "$packages/program.log" >&2; fail "the program ended with $code"; }
}

begin_with_sample() {
    window '^Tarnwell$'
    keys alt+l Return
    window_closed '^Tarnwell$'
}

end_program() {
    window '^Tarnwell: Version'
    keys alt+F4
    ended_with 0
}

rows_of() {
    rm -f "$root/tmp/copy.mdb"
    as_clerk tarnwell-db copy "$1" /tmp/copy.mdb | sed 's/^Copied \([0-9]*\) rows.*/\1/'
}

mount -t proc proc "$root/proc"
mount -t devpts devpts "$root/dev/pts"
mount -t tmpfs tmpfs "$root/dev/shm"
mount --bind "$packages" "$root/mnt"
mount --bind "$archives" "$root/var/cache/apt/archives"
# What is lost in a power cut may be lost here.
echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/unsafe-io"
in_root useradd --create-home clerk
start_desktop "$packages/desktop" "$root"
must apt update
must apt upgrade
installed_packages >"$packages/bare"

step "dpkg alone leaves it half installed; apt finishes that"
! dpkg --install /mnt/before.deb || fail "dpkg installed it although what it needs is missing"
must apt --fix-broken install
is_in_order || fail "the half installed package is not in order"
must dpkg --purge tarnwell

step "Installing"
must apt install /mnt/before.deb
is_in_order || fail "the package is not in order"
! in_root fc-match sans | grep -q Mono || fail "screens are written in a typewriter's font"
before=$(version)
installed_packages >"$packages/installed"
! grep -qxE 'odbc-postgresql|tdsodbc|cups-client' "$packages/installed" || fail "it needs drivers or printing"

step "Starting it for the first time"
start
begin_with_sample
window '^Tarnwell: Version'
keys F1
window '^Tarnwell Help'
keys alt+F4
end_program
data=/home/clerk/.local/share/tarnwell/Sample.mdb
must as_clerk tarnwell-db check "$data"
rows=$(rows_of "$data")
[ "$rows" -gt 0 ] || fail "the sample is empty"
users_files >"$packages/files"

step "An upgrade that is killed in the middle"
! in_root prlimit --fsize=1500000 dpkg --install /mnt/tarnwell.deb >>"$log" 2>&1 || fail "the upgrade was not to end well"
! is_in_order || fail "the killed upgrade left nothing to mend"
must dpkg --configure -a
must apt install /mnt/tarnwell.deb
is_in_order || fail "the mended package is not in order"
[ "$(version)" != "$before" ] || fail "the version before is still there"
same_files_after "the upgrade"

step "Starting the new version"
start
end_program
must as_clerk tarnwell-db check "$data"
[ "$(rows_of "$data")" -eq "$rows" ] || fail "the new version has other rows"

step "Without its own files it says so"
mv "$root/usr/share/tarnwell" "$root/root/"
start
window '^Tarnwell$'
keys Return
end_program
must apt install --reinstall /mnt/tarnwell.deb
is_in_order || fail "the package that was installed again is not in order"
users_files >"$packages/files"

step "Removing and purging"
must apt remove tarnwell
same_files_after "the removal"
must apt install /mnt/tarnwell.deb
must apt purge --auto-remove tarnwell
same_files_after "the purge"
installed_packages | diff "$packages/bare" - >&2 || fail "packages stay behind"
left=$(find "$root/etc" "$root/opt" "$root/usr" "$root/var/lib" -iname '*tarnwell*')
[ -z "$left" ] || fail "files stay behind: $left"
step "The package was installed, used, upgraded, mended and removed; the user's data stayed"
