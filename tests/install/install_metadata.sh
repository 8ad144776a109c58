#!/usr/bin/env bash
# Installs into a temporary prefix (not the configured one) and checks what a
# desktop finds there: every file in its place, the desktop entry and the
# AppStream data valid and naming the same id, the release the project's
# version, icons of the right sizes on a transparent ground, and a launcher
# that holds no trace of the configured prefix.
#   install_metadata.sh BUILD-DIR SOURCE-DIR VERSION APP-ID CONFIGURED-PREFIX
set -euo pipefail
build=$1 src=$2 version=$3 id=$4 configured=$5
. "$(dirname "$0")/common.sh"
prefix=$work/prefix
install_into "$build" "$prefix"
[ "$prefix" != "$configured" ] || fail "the test prefix is the configured one"

# ---- the files
[ -x "$prefix/bin/skitterweb" ] || fail "no launcher bin/skitterweb"
[ -x "$prefix/libexec/skitterweb/skitterweb" ] || fail "no program libexec/skitterweb/skitterweb"
diff -r "$src/assets/sounds" "$prefix/share/skitterweb/sounds" || fail "the installed sounds differ from assets/sounds"
diff -r "$src/assets/help" "$prefix/share/doc/skitterweb/help" || fail "the installed help pages differ from assets/help"
desktop=$prefix/share/applications/$id.desktop
metainfo=$prefix/share/metainfo/$id.metainfo.xml
[ -f "$desktop" ] || fail "no $desktop"
[ -f "$metainfo" ] || fail "no $metainfo"
icons=$prefix/share/icons/hicolor
cmp -s "$src/assets/pictures/icon.svg" "$icons/scalable/apps/$id.svg" || fail "the scalable icon is not assets/pictures/icon.svg"
for n in 16 24 32 48 64 128 256; do
  png=$icons/${n}x${n}/apps/$id.png
  [ -f "$png" ] || fail "no ${n}x${n} icon"
  # Right size, something drawn, and a transparent ground around it.
  read -r w h lo hi < <(convert "$png" -alpha extract -format '%w %h %[fx:minima] %[fx:maxima]\n' info:)
  [ "$w $h" = "$n $n" ] || fail "the ${n}x${n} icon is $w x $h"
  [ "$hi" = 1 ] || fail "the ${n}x${n} icon has nothing opaque"
  [ "$lo" = 0 ] || fail "the ${n}x${n} icon has no transparent ground"
done

# ---- the launcher: a POSIX script that is correct wherever the tree lies
sh -n "$prefix/bin/skitterweb" || fail "the launcher is not a valid sh script"
head -n1 "$prefix/bin/skitterweb" | grep -qx '#!/bin/sh' || fail "the launcher does not run with /bin/sh"
if grep -qF "$configured" "$prefix/bin/skitterweb"; then fail "the launcher names the configured prefix $configured"; fi

# ---- the desktop entry
desktop-file-validate "$desktop" || fail "desktop-file-validate rejects $desktop"
key() { sed -n "s/^$1=//p" "$desktop"; }
[ "$(key Icon)" = "$id" ] || fail "Icon=$(key Icon), the icons are named $id"
[ "$(key Exec)" = skitterweb ] && [ "$(key TryExec)" = skitterweb ] || fail "Exec/TryExec is not the launcher skitterweb"
key Categories | grep -q '^Game;' || fail "Categories=$(key Categories) is not a game's"

# ---- the AppStream data. The developer is given both as developer_name (read by
# AppStream 0.16) and as developer (1.0 on); each validator reports the other form,
# and only that, as a hint: anything else it reports fails the test.
report=$(appstreamcli validate --no-net --strict --pedantic "$metainfo" 2>&1) || true
echo "$report"
if echo "$report" | grep -E '^[EWI]: ' | grep -vE 'unknown-tag developer$|developer-name-tag-deprecated' | grep -q .; then
  fail "appstreamcli reports issues in $metainfo"
fi
appstreamcli validate --no-net "$metainfo" >/dev/null || fail "appstreamcli validate --no-net fails"
xml() { tr -d '\n' <"$metainfo" | grep -oE "$1" | head -n1; }
[ "$(xml '<id>[^<]*</id>')" = "<id>$id</id>" ] || fail "the metainfo's id is not $id"
[ "$(xml '<launchable type="desktop-id">[^<]*<')" = "<launchable type=\"desktop-id\">$id.desktop<" ] ||
  fail "the metainfo does not launch $id.desktop"
newest=$(xml '<release version="[^"]*"' | sed 's/.*version="//; s/"//')
[ "$newest" = "$version" ] || fail "the newest release in the metainfo is $newest, the project is $version"
xml '<content_rating type="oars-1.1">' | grep -q . || fail "no OARS 1.1 content rating"
xml '<image[^>]*>https://[^<]*/docs/screenshot.png</image>' | grep -q . || fail "no screenshot of docs/screenshot.png"
echo "installed into $prefix: files, desktop entry, AppStream data and icons correct"
echo "1 passed, 0 failed"
