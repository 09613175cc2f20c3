#!/bin/sh
# installed.sh BUILD SOURCE: installs what was built into a temporary folder and looks at what a user's desktop, man and
# the program itself will find there.
set -eu
build=$1
source=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
faults=0

fault() {
    echo "installed.sh: $*" >&2
    faults=$((faults + 1))
}

# Links instead of copies: the programs of a debug build are large.
CMAKE_INSTALL_MODE=ABS_SYMLINK cmake --install "$build" --prefix "$prefix" >/dev/null
share=$prefix/share
metainfo=$share/metainfo/com.brenmoor.tarnwell.metainfo.xml
entry=$share/applications/tarnwell.desktop
changelog=$share/doc/tarnwell/changelog.gz

# Every file: a forgotten one is missed by users only, and one too many is theirs for years.
cat >"$prefix.expected" <<'LIST'
bin/tarnwell
bin/tarnwell-db
share/applications/tarnwell.desktop
share/doc/tarnwell/changelog.gz
share/doc/tarnwell/copyright
share/doc/tarnwell/manual
share/icons/hicolor/128x128/apps/tarnwell.png
share/icons/hicolor/256x256/apps/tarnwell.png
share/icons/hicolor/48x48/apps/tarnwell.png
share/icons/hicolor/scalable/apps/tarnwell.svg
share/man/man1/tarnwell-db.1.gz
share/man/man1/tarnwell.1.gz
share/metainfo/com.brenmoor.tarnwell.metainfo.xml
LIST
trap 'rm -rf "$prefix" "$prefix.expected"' EXIT
(cd "$prefix" && find . ! -type d -printf '%P\n' | grep -v '^share/tarnwell/' | LC_ALL=C sort) |
    diff -u "$prefix.expected" - >&2 || fault "other files are installed than expected"
diff -r "$source/docs/manual" "$share/tarnwell/help" >&2 || fault "the help is not the manual"
diff -r "$source/resources/layouts" "$share/tarnwell/layouts" >&2 || fault "the grid layouts differ"

desktop-file-validate --no-hints "$entry" >&2 || fault "the desktop entry is not valid"
appstreamcli validate --no-net --pedantic "$metainfo" >&2 || fault "the metainfo is not valid"
grep -qx 'Exec=tarnwell' "$entry" || fault "the desktop entry starts something else"
grep -qx 'Icon=tarnwell' "$entry" || fault "the desktop entry shows another icon"
for picture in $(sed -n 's|.*<image[^>]*>.*/\(.*\)</image>.*|\1|p' "$metainfo"); do
    [ -e "$source/docs/manual/pictures/$picture" ] || fault "the metainfo names $picture, which is missing"
done
for pixels in 48 128 256; do
    file -L "$share/icons/hicolor/${pixels}x$pixels/apps/tarnwell.png" | grep -q "PNG.* $pixels x $pixels," ||
        fault "the icon of $pixels pixels has another size"
done

# One version everywhere, and the man page of tarnwell-db knows what the program accepts, and no more.
version=$("$prefix/bin/tarnwell-db" --version | sed 's/.* //')
zcat "$changelog" | head -n 1 | grep -qF "tarnwell ($version) " || fault "the changelog does not begin with $version"
grep -o '<release version="[^"]*"' "$metainfo" | head -n 1 | grep -qF "\"$version\"" ||
    fault "the metainfo does not begin with version $version"
help=$("$prefix/bin/tarnwell-db" --help)
page=$(zcat "$share/man/man1/tarnwell-db.1.gz" | sed 's/\\-/-/g')
accepted=$(printf '%s\n' "$help" | sed -n '/^Commands:/,/^$/s/^  \([a-z][a-z]*\) .*/\1/p')
[ -n "$accepted" ] || fault "tarnwell-db --help lists no commands"
described=$(printf '%s\n' "$page" | sed -n '/^.SH COMMANDS/,/^.SH OPTIONS/s/^\.B \([a-z]*\)$/\1/p')
for command in $accepted; do
    printf '%s\n' "$described" | grep -qx "$command" || fault "the man page lacks the command $command"
    printf '%s\n' "$page" | grep -qx "\.B tarnwell-db $command" || fault "the man page's synopsis lacks $command"
done
options() { grep -o -e '--[a-z][a-z]*' | sort -u; }
[ "$(printf '%s\n' "$help" | options)" = "$(printf '%s\n' "$page" | options)" ] ||
    fault "the man page has other options than tarnwell-db --help"

[ "$faults" -eq 0 ]
