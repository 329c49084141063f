#!/bin/sh
# Installs the build into a scratch DESTDIR and checks that every file lands in
# its place, that nothing else is installed, and that the desktop entry and the
# AppStream metadata pass their validators.
# Arguments: the build folder, this folder, the application id, the version.
set -eu
build=$1 source=$2 id=$3 version=$4

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
DESTDIR=$root cmake --install "$build" --prefix /usr >/dev/null

# The whole tree, file by file.
expected="usr/bin/quillmark
usr/share/applications/$id.desktop
usr/share/doc/quillmark/changelog.gz
usr/share/doc/quillmark/copyright
usr/share/icons/hicolor/128x128/apps/$id.png
usr/share/icons/hicolor/256x256/apps/$id.png
usr/share/icons/hicolor/48x48/apps/$id.png
usr/share/icons/hicolor/scalable/apps/$id.svg
usr/share/man/man1/quillmark.1.gz
usr/share/metainfo/$id.metainfo.xml"
actual=$(cd "$root" && find . ! -type d | sed 's|^\./||' | LC_ALL=C sort)
[ "$actual" = "$expected" ] || fail "installed files differ:
$(printf '%s\n' "$expected" >"$root/expected"; printf '%s\n' "$actual" | diff "$root/expected" - || true)"

[ -x "$root/usr/bin/quillmark" ] || fail "usr/bin/quillmark is not executable"
for dir in $(cd "$root" && find . -mindepth 1 -type d); do
    [ "$(stat -c %a "$root/$dir")" = 755 ] || fail "folder $dir is not rwxr-xr-x"
done
for file in $(cd "$root" && find . -type f ! -path ./usr/bin/quillmark); do
    [ "$(stat -c %a "$root/$file")" = 644 ] || fail "file $file is not rw-r--r--"
done

# Each PNG has the size of the folder it sits in, and is the committed render.
share=$root/usr/share
for size in 48 128 256; do
    png=$share/icons/hicolor/${size}x$size/apps/$id.png
    cmp -s "$png" "$source/icons/quillmark-$size.png" || fail "$png is not quillmark-$size.png"
    dims=$(od -An -tu1 -j16 -N8 "$png" | awk '{ print $3 * 256 + $4 "x" $7 * 256 + $8 }')
    [ "$dims" = "${size}x$size" ] || fail "$png is $dims pixels, not ${size}x$size"
done
cmp -s "$share/icons/hicolor/scalable/apps/$id.svg" "$source/icons/$id.svg" || fail "SVG icon differs"
for gz in "$share/man/man1/quillmark.1.gz" "$share/doc/quillmark/changelog.gz"; do
    gzip -t "$gz" || fail "$gz is not gzip"
done

# The desktop entry starts the installed program with the icon of the same id.
desktop=$share/applications/$id.desktop
grep -qx "Exec=quillmark" "$desktop" || fail "desktop entry does not start quillmark"
grep -qx "Icon=$id" "$desktop" || fail "desktop entry does not name the icon $id"

# The metadata names the same id, its desktop entry, the licence and this release.
metainfo=$share/metainfo/$id.metainfo.xml
for line in "<id>$id</id>" \
    "<launchable type=\"desktop-id\">$id.desktop</launchable>" \
    "<project_license>GPL-3.0-or-later</project_license>" \
    "<content_rating type=\"oars-1.1\"/>"; do
    grep -qF "$line" "$metainfo" || fail "metainfo lacks $line"
done
newest=$(grep -o '<release version="[^"]*"' "$metainfo" | head -n 1)
[ "$newest" = "<release version=\"$version\"" ] || fail "newest release is $newest, not $version"
grep -q '<image type="source"[^>]*>https://[^<]*/quillmark-window-light\.png</image>' "$metainfo" \
    || fail "metainfo lacks the window screenshot"
zcat "$share/doc/quillmark/changelog.gz" | head -n 1 | grep -qF "quillmark ($version)" \
    || fail "changelog does not start with $version"
# The newest changelog entry dates the release in the metadata and the manual.
released=$(zcat "$share/doc/quillmark/changelog.gz" | sed -n 's/^ -- .*  [A-Z][a-z][a-z], //p' \
    | head -n 1 | cut -d ' ' -f 1-3)
date=$(LC_ALL=C date -d "$released" +%F) || fail "changelog date $released"
month=$(LC_ALL=C date -d "$released" '+%B %Y')
grep -qF "<release version=\"$version\" date=\"$date\">" "$metainfo" \
    || fail "metainfo does not date $version $date"
zcat "$share/man/man1/quillmark.1.gz" | head -n 1 \
    | grep -qxF ".TH QUILLMARK 1 \"$month\" \"Quillmark $version\" \"User Commands\"" \
    || fail "manual page is not of $version, $month"

desktop-file-validate "$desktop" || fail "desktop-file-validate"
appstreamcli validate --no-net "$metainfo" || fail "appstreamcli validate"
appstreamcli validate-tree --no-net "$root" || fail "appstreamcli validate-tree"
echo "install layout: all good"
