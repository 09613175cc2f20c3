#!/bin/sh
# bare-debian.sh [--cache FOLDER] [--before OLD.deb] [PACKAGE.deb]
# Takes the package through its whole life (package-life.sh) on a bare Debian 12, which debootstrap makes in a temporary
# folder and which is removed whatever comes of it. It needs root, or sudo, and a package mirror: the one that this
# computer uses.
#   --cache FOLDER    keeps the bare system and the packages that it was given there, for the next run
#   --before OLD.deb  the version to upgrade from; without it a lower version is built from the same source
#   PACKAGE.deb       what is tried; without it ./package makes it
set -eu
. "$(dirname "$0")/../packages.sh"
cd "$(dirname "$0")/../.."
suite=bookworm

fail() {
    echo "bare-debian.sh: $*" >&2
    exit 1
}

absolute() {
    [ -e "$1" ] || fail "$1 does not exist"
    realpath "$1"
}

# The same programs but for the number: an upgrade must replace them, and keep what users have. Where the number stands is
# compiled a second time, and once more by whoever builds next.
build_version_before() {
    cmake --preset release -D TARNWELL_VERSION=0.9.0 >/dev/null
    build release package || built=no
    cmake --preset release -U TARNWELL_VERSION >/dev/null
    [ "${built:-}" != no ] || fail "the lower version could not be built"
    mv build/release/tarnwell_0.9.0_*.deb "$place/packages/before.deb"
}

# "URI SUITE COMPONENT" of each part of Debian 12 that this computer's apt reads.
repositories() {
    apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(COMPONENT)' 'Identifier: Packages' 'Origin: Debian' |
        grep " $suite" | sort -u
}

make_base_system() {
    mirror=$(repositories | sed -n "s/ $suite main$//p" | head -n 1)
    [ -n "$mirror" ] || fail "this computer's apt reads no Debian 12 ($suite), from which a bare system could be made"
    say "Making a bare Debian 12"
    as_root env "http_proxy=$(apt-config dump --format '%v' Acquire::http::Proxy)" \
        debootstrap --variant=minbase "$suite" "$place/base" "$mirror" >"$place/debootstrap.log" 2>&1 ||
        { tail -n 20 "$place/debootstrap.log" >&2; fail "debootstrap could not make it"; }
    as_root tar -C "$place/base" -cf "$cache/$suite.tar.new" .
    as_root mv "$cache/$suite.tar.new" "$cache/$suite.tar"
    as_root rm -rf "$place/base"
}

# The bare system asks for packages where this computer does, in the same way.
give_package_sources() {
    repositories | sed 's/^/deb /' | as_root tee "$root/etc/apt/sources.list" >/dev/null
    apt-config dump | grep -E '^Acquire::(http|https|ftp|Check-)' |
        as_root tee "$root/etc/apt/apt.conf.d/90as-outside" >/dev/null || true
    as_root cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
}

cache=
before=
newer=
while [ $# -gt 0 ]; do
    case $1 in
    --cache)
        mkdir -p "$2"
        cache=$(absolute "$2")
        shift
        ;;
    --before)
        before=$(absolute "$2")
        shift
        ;;
    -*) fail "unknown option $1" ;;
    *) break ;;
    esac
    shift
done

[ $# -eq 0 ] || newer=$(absolute "$1")
install_missing $BUILD_PACKAGES $PACKAGE_PACKAGES $PACKAGE_CHECK_PACKAGES
place=$(mktemp -d "${TMPDIR:-/tmp}/tarnwell-debian.XXXXXX")
# The mounts are in a namespace of their own and end with its last process, so nothing else can be removed here.
trap 'as_root rm -rf --one-file-system "$place"' EXIT
trap 'exit 130' HUP INT TERM
mkdir "$place/packages"
chmod 755 "$place"

if [ -n "$before" ]; then
    cp "$before" "$place/packages/before.deb"
else
    say "Building a lower version"
    build_version_before
fi
if [ -z "$newer" ]; then
    ./package
    newer=$(newest_package build/release)
fi
cp "$newer" "$place/packages/tarnwell.deb"

: "${cache:=$place}"
root=$place/root
[ -e "$cache/$suite.tar" ] || make_base_system
say "Unpacking the bare Debian 12"
as_root mkdir -p "$root" "$cache/archives/partial"
as_root tar -C "$root" -xf "$cache/$suite.tar"
give_package_sources
as_root unshare --mount --pid --fork --kill-child tools/package/package-life.sh "$root" "$place/packages" "$cache/archives"
