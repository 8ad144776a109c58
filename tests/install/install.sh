#!/usr/bin/env bash
# Installs into a temporary prefix (not the configured one), with the "skitterweb" component, so
# that build/install_manifest.txt is left to a real install, and checks:
#  - what a desktop finds there: every file in its place, the desktop entry and the AppStream data
#    valid and naming the same id, the release the project's version and date, icons of the right
#    sizes on a transparent ground, a launcher that holds no trace of the configured prefix, and a
#    manual page in section 6 of the project's version that names the game folder and its files;
#  - the tree moved elsewhere, the launcher with a stand-in for the program that records where it
#    runs (the real game started by its launcher is the package check's case): the game folder is
#    made under XDG_DATA_HOME (or HOME's .local/share), the program runs in it by exec with the
#    arguments unchanged, the sounds folder there links to the installed sounds, a player's own
#    sounds folder is kept, a stale link is mended, and a game folder that cannot be made stops it.
#   install.sh BUILD-DIR BINDIR PROGRAM-DIR DATA-DIR SOURCE-DIR VERSION APP-ID CONFIGURED-PREFIX MANDIR RELEASE-DATE
# (BINDIR, PROGRAM-DIR, DATA-DIR and MANDIR relative to the prefix)
set -euo pipefail
build=$1 bindir=$2 programdir=$3 datadir=$4 src=$5 version=$6 id=$7 configured=$8 mandir=$9 date=${10}
. "$(dirname "$0")/../../scripts/xvfb"
x_work
prefix=$work/first
cmake --install "$build" --prefix "$prefix" --component skitterweb >"$work/install.log" 2>&1 ||
  { cat "$work/install.log" >&2; x_fail "cmake --install $build --prefix $prefix failed"; }

# ---- the files
diff -r "$src/assets/sounds" "$prefix/$datadir/sounds" || x_fail "the installed sounds differ from assets/sounds"
diff -r "$src/assets/help" "$prefix/share/doc/skitterweb/help" || x_fail "the installed help differs from assets/help"
desktop=$prefix/share/applications/$id.desktop metainfo=$prefix/share/metainfo/$id.metainfo.xml
icons=$prefix/share/icons/hicolor
cmp -s "$src/assets/pictures/icon.svg" "$icons/scalable/apps/$id.svg" || x_fail "the scalable icon is not icon.svg"
for n in 16 24 32 48 64 128 256; do
  # Right size, something drawn (alpha up to 1), and a transparent ground around it (alpha down to 0).
  info=$(convert "$icons/${n}x${n}/apps/$id.png" -alpha extract -format '%w %h %[fx:minima] %[fx:maxima]' info: 2>&1) || true
  [ "$info" = "$n $n 0 1" ] || x_fail "the ${n}x${n} icon: width, height, alpha from and to: $info"
done

# ---- the launcher: a POSIX script (its cases below run it with /bin/sh) that is correct wherever the tree lies
head -n1 "$prefix/$bindir/skitterweb" | grep -qx '#!/bin/sh' || x_fail "the launcher does not run with /bin/sh"
if grep -qF "$configured" "$prefix/$bindir/skitterweb"; then x_fail "the launcher names the prefix $configured"; fi

# ---- the desktop entry
desktop-file-validate "$desktop" || x_fail "desktop-file-validate rejects $desktop"
key() { sed -n "s/^$1=//p" "$desktop"; }
[ "$(key Icon)" = "$id" ] || x_fail "Icon=$(key Icon), the icons are named $id"
[ "$(key Exec)" = skitterweb ] && [ "$(key TryExec)" = skitterweb ] || x_fail "Exec/TryExec is not skitterweb"
key Categories | grep -q '^Game;' || x_fail "Categories=$(key Categories) is not a game's"

# ---- the AppStream data. The developer is given both as developer_name (read by
# AppStream 0.16) and as developer (1.0 on); each validator reports the other form,
# and only that, as a hint: anything else it reports fails the test.
report=$(appstreamcli validate --no-net --strict --pedantic "$metainfo" 2>&1) || true
if echo "$report" | grep -E '^[EWI]: ' | grep -vE 'unknown-tag developer$|developer-name-tag-deprecated' | grep -q .; then
  x_fail "appstreamcli reports issues in $metainfo: $report"
fi
xml() { tr -d '\n' <"$metainfo" | grep -oE "$1" | head -n1; }
[ "$(xml '<id>[^<]*</id>')" = "<id>$id</id>" ] || x_fail "the metainfo's id is not $id"
[ "$(xml '<launchable type="desktop-id">[^<]*<')" = "<launchable type=\"desktop-id\">$id.desktop<" ] ||
  x_fail "the metainfo does not launch $id.desktop"
newest=$(xml '<release version="[^"]*" date="[^"]*"' | sed 's/.*version="//; s/" date="/ /; s/"//')
[ "$newest" = "$version $date" ] || x_fail "the newest release in the metainfo is $newest, not $version of $date"
xml '<content_rating type="oars-1.1">' | grep -q . || x_fail "no OARS 1.1 content rating"
xml '<image[^>]*>https://[^<]*/docs/screenshot.png</image>' | grep -q . || x_fail "no screenshot of docs/screenshot.png"

# ---- the manual page: section 6, the project's version, what a player looks for in it
man=$prefix/$mandir/man6/skitterweb.6
th=$(grep -m1 '^\.TH ' "$man") || x_fail "no manual page $mandir/man6/skitterweb.6 with a title line"
[ "$th" = ".TH SKITTERWEB 6 \"$date\" \"Skitterweb $version\" \"Games\"" ] || x_fail "the manual's title line is $th"
if grep -q '@' "$man"; then x_fail "the manual page holds an unfilled @VARIABLE@: $(grep '@' "$man")"; fi
for word in .SH\ {NAME,SYNOPSIS,DESCRIPTION,KEYS,FILES,ENVIRONMENT} sw.opt SWhscore.dat SWDebug.log XDG_DATA_HOME \
  '~/.local/share}/skitterweb' 'Number Pad (Default)'; do
  grep -qF -- "$word" "$man" || x_fail "the manual page does not name $word"
done

# ---- the tree moved; the launcher, with a stand-in for the program
mv "$work/first" "$work/moved"
prefix=$work/moved sounds=$work/moved/$datadir/sounds
mkdir -p "$work/elsewhere" "$work/home"
cat >"$prefix/$programdir/skitterweb" <<'STANDIN'
#!/bin/sh
{ echo "pid=$$"; echo "cwd=$(pwd -P)"; for a in "$@"; do echo "arg=$a"; done; } >"$STANDIN_OUT"
exit 7
STANDIN
# run NAME [ENV=VALUE...]: the launcher from another folder, its arguments two
# awkward ones; leaves its exit status in $status and its pid in $pid.
run() {
  local out=$work/$1.out; shift
  (cd "$work/elsewhere" && exec env -u XDG_DATA_HOME HOME="$work/home" STANDIN_OUT="$out" "$@" \
     "$launcher" "two words" --level=3 2>"$out.err") &
  pid=$!
  status=0; wait "$pid" || status=$?
}
ran_in() {  # NAME GAME-FOLDER [ENV=VALUE...]: run NAME, and the program ran in GAME-FOLDER
  local out=$work/$1.out
  run "$1" "${@:3}"
  [ "$status" = 7 ] || x_fail "$1: the launcher ended with $status, the program with 7 ($(cat "$out.err"))"
  grep -qx "pid=$pid" "$out" || x_fail "$1: the program is not exec'd in place of the launcher"
  grep -qx "cwd=$(cd "$2" && pwd -P)" "$out" || x_fail "$1: the program ran in $(sed -n 's/^cwd=//p' "$out"), not $2"
  [ "$(sed -n 's/^arg=//p' "$out" | paste -sd'|')" = "two words|--level=3" ] || x_fail "$1: the arguments changed"
}
launcher=$prefix/$bindir/skitterweb game=$work/home/.local/share/skitterweb
ran_in home "$game"  # HOME only: ~/.local/share/skitterweb is made, with the sounds linked
[ -L "$game/sounds" ] && [ "$(readlink "$game/sounds")" = "$sounds" ] || x_fail "home: sounds is not a link to $sounds"
[ -f "$game/sounds/comp-program start.mp3" ] || x_fail "home: the sounds cannot be read through the link"
ran_in xdg "$work/xdg/skitterweb" XDG_DATA_HOME="$work/xdg"  # XDG_DATA_HOME wins over HOME
ran_in relative "$game" XDG_DATA_HOME=relative/data  # a relative one is ignored
[ ! -e "$work/elsewhere/relative" ] || x_fail "relative: a game folder was made under a relative XDG_DATA_HOME"
ln -sfn "$work/gone" "$game/sounds"
ran_in stale "$game"
[ "$(readlink "$game/sounds")" = "$sounds" ] || x_fail "stale: the link still points to $(readlink "$game/sounds")"
rm "$game/sounds" && mkdir "$game/sounds" && echo mine >"$game/sounds/mine.mp3"
ran_in own "$game"
[ ! -L "$game/sounds" ] && [ "$(ls -A "$game/sounds")" = mine.mp3 ] && [ "$(cat "$game/sounds/mine.mp3")" = mine ] ||
  x_fail "own: the player's sounds folder was changed: $(ls -A "$game/sounds")"
mkdir -p "$work/linkbin" && ln -s "$prefix/$bindir/skitterweb" "$work/linkbin/skitterweb"
launcher=$work/linkbin/skitterweb ran_in linked "$work/xdg/skitterweb" XDG_DATA_HOME="$work/xdg"
run blocked XDG_DATA_HOME="$work/install.log"  # a file: no game folder can be made; said, nothing started
[ "$status" != 0 ] && [ "$status" != 7 ] || x_fail "blocked: the launcher ended with $status"
[ ! -e "$work/blocked.out" ] || x_fail "blocked: the program was started anyway"
grep -q 'cannot make the game folder' "$work/blocked.out.err" || x_fail "blocked: said $(cat "$work/blocked.out.err")"
echo "installed: files, metadata, icons, manual page, the launcher's every case"
