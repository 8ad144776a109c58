#!/usr/bin/env bash
# Installs into a temporary prefix (not the configured one) and checks what a
# desktop finds there: every file in its place, the desktop entry and the
# AppStream data valid and naming the same id, the release the project's
# version and date, icons of the right sizes on a transparent ground, a launcher
# that holds no trace of the configured prefix, and a manual page in section 6
# of the project's version that names the game folder and its files.
#   install_metadata.sh BUILD-DIR BINDIR PROGRAM-DIR DATA-DIR SOURCE-DIR VERSION APP-ID
#                       CONFIGURED-PREFIX MANDIR RELEASE-DATE
# (BINDIR, PROGRAM-DIR, DATA-DIR and MANDIR relative to the prefix)
set -euo pipefail
build=$1 bindir=$2 programdir=$3 datadir=$4 src=$5 version=$6 id=$7 configured=$8 mandir=$9 date=${10}
. "$(dirname "$0")/common.sh"
prefix=$work/prefix
install_into "$build" "$prefix"
[ "$prefix" != "$configured" ] || fail "the test prefix is the configured one"

# ---- the files
launcher=$prefix/$bindir/skitterweb
[ -x "$launcher" ] || fail "no launcher $bindir/skitterweb"
[ -x "$prefix/$programdir/skitterweb" ] || fail "no program $programdir/skitterweb"
diff -r "$src/assets/sounds" "$prefix/$datadir/sounds" || fail "the installed sounds differ from assets/sounds"
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
sh -n "$launcher" || fail "the launcher is not a valid sh script"
head -n1 "$launcher" | grep -qx '#!/bin/sh' || fail "the launcher does not run with /bin/sh"
if grep -qF "$configured" "$launcher"; then fail "the launcher names the configured prefix $configured"; fi

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
newest=$(xml '<release version="[^"]*" date="[^"]*"' | sed 's/.*version="//; s/" date="/ /; s/"//')
[ "$newest" = "$version $date" ] || fail "the newest release in the metainfo is $newest, the project is $version of $date"
xml '<content_rating type="oars-1.1">' | grep -q . || fail "no OARS 1.1 content rating"
xml '<image[^>]*>https://[^<]*/docs/screenshot.png</image>' | grep -q . || fail "no screenshot of docs/screenshot.png"

# ---- the manual page: section 6, the project's version, what a player looks for in it
man=$prefix/$mandir/man6/skitterweb.6
[ -f "$man" ] || fail "no manual page $mandir/man6/skitterweb.6"
th=$(grep -m1 '^\.TH ' "$man")
[ "$th" = ".TH SKITTERWEB 6 \"$date\" \"Skitterweb $version\" \"Games\"" ] || fail "the manual page's title line is $th"
if grep -q '@' "$man"; then fail "the manual page holds an unfilled @VARIABLE@: $(grep '@' "$man")"; fi
for section in NAME SYNOPSIS DESCRIPTION KEYS FILES ENVIRONMENT; do
  grep -qx "\.SH $section" "$man" || fail "the manual page has no $section section"
done
for word in sw.opt SWhscore.dat SWDebug.log XDG_DATA_HOME '~/.local/share}/skitterweb' 'Number Pad (Default)'; do
  grep -qF -- "$word" "$man" || fail "the manual page does not name $word"
done
echo "installed into $prefix: files, desktop entry, AppStream data, icons and manual page correct"
echo "1 passed, 0 failed"
