#!/bin/sh
# check.sh PACKAGE.deb: what can be said of a package without installing it.
set -eu
package=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

fail() {
    echo "check.sh: $package: $*" >&2
    exit 1
}

[ "$(stat -c %s "$package")" -lt 5000000 ] || fail "it has 5 MB or more"
dpkg-deb -x "$package" "$folder"
for program in "$folder"/usr/bin/*; do
    file "$program" | grep -q ', stripped$' || fail "${program##*/} is not stripped"
done
required=$(dpkg-deb -f "$package" Depends)
for library in libqt6widgets6 libqt6printsupport6 libqt6svg6 libsqlite3-0 libodbc2 fonts-dejavu-core fonts-liberation; do
    case ", $required," in
    *", $library "* | *", $library,"*) ;;
    *) fail "it does not depend on $library" ;;
    esac
done
case "$required" in
*odbc-postgresql* | *tdsodbc* | *cups*) fail "it cannot do without a server's driver or a printer" ;;
esac
lintian --allow-root --fail-on error,warning "$package"
