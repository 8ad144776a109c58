#!/usr/bin/env bash
# The launcher (BINDIR/skitterweb) on a tree installed into a temporary prefix and
# then moved, with a stand-in for the program that records where it runs: the
# game folder is made under XDG_DATA_HOME (or HOME's .local/share), the program
# runs in it by exec with the arguments unchanged, the sounds folder there links
# to the installed sounds, a player's own sounds folder is kept, a stale link is
# mended, and a game folder that cannot be made stops the launcher.
#   install_launcher.sh BUILD-DIR BINDIR PROGRAM-DIR DATA-DIR   (the last three relative to the prefix)
set -euo pipefail
build=$1 bindir=$2 programdir=$3 datadir=$4
. "$(dirname "$0")/common.sh"
install_into "$build" "$work/first"
mv "$work/first" "$work/moved"
prefix=$work/moved
sounds=$prefix/$datadir/sounds
cat >"$prefix/$programdir/skitterweb" <<'STANDIN'
#!/bin/sh
{ echo "pid=$$"; echo "cwd=$(pwd -P)"; for a in "$@"; do echo "arg=$a"; done; } >"$STANDIN_OUT"
exit 7
STANDIN
mkdir -p "$work/elsewhere" "$work/home"

# run NAME [ENV=VALUE...]: the launcher from another folder, its arguments two
# awkward ones; leaves its exit status in $status and its pid in $pid.
run() {
  local out=$work/$1.out; shift
  (cd "$work/elsewhere" && exec env -u XDG_DATA_HOME HOME="$work/home" STANDIN_OUT="$out" "$@" \
     "${launcher:-$prefix/$bindir/skitterweb}" "two words" --level=3 2>"$out.err") &
  pid=$!
  status=0; wait "$pid" || status=$?
}
expect_ran_in() {  # name game-folder
  local out=$work/$1.out
  [ "$status" = 7 ] || fail "$1: the launcher ended with $status, the program with 7 ($(cat "$out.err"))"
  grep -qx "pid=$pid" "$out" || fail "$1: the program is not exec'd in place of the launcher"
  grep -qx "cwd=$(cd "$2" && pwd -P)" "$out" || fail "$1: the program ran in $(sed -n 's/^cwd=//p' "$out"), not $2"
  [ "$(sed -n 's/^arg=//p' "$out" | paste -sd'|')" = "two words|--level=3" ] || fail "$1: the arguments changed"
}

# ---- HOME only: ~/.local/share/skitterweb is made, with the sounds linked.
run home
game=$work/home/.local/share/skitterweb
expect_ran_in home "$game"
[ -L "$game/sounds" ] && [ "$(readlink "$game/sounds")" = "$sounds" ] || fail "home: sounds is not a link to $sounds"
[ -f "$game/sounds/comp-program start.mp3" ] || fail "home: the sounds cannot be read through the link"

# ---- XDG_DATA_HOME wins over HOME; a relative one is ignored.
run xdg XDG_DATA_HOME="$work/xdg"
expect_ran_in xdg "$work/xdg/skitterweb"
run relative XDG_DATA_HOME=relative/data
expect_ran_in relative "$game"
[ ! -e "$work/elsewhere/relative" ] || fail "relative: a game folder was made under a relative XDG_DATA_HOME"

# ---- a stale link is mended; a player's own sounds folder is left alone.
ln -sfn "$work/gone" "$game/sounds"
run stale
expect_ran_in stale "$game"
[ "$(readlink "$game/sounds")" = "$sounds" ] || fail "stale: the link still points to $(readlink "$game/sounds")"
rm "$game/sounds"; mkdir "$game/sounds"; echo mine >"$game/sounds/mine.mp3"
run own
expect_ran_in own "$game"
[ ! -L "$game/sounds" ] && [ "$(ls -A "$game/sounds")" = mine.mp3 ] && [ "$(cat "$game/sounds/mine.mp3")" = mine ] ||
  fail "own: the player's sounds folder was changed: $(ls -A "$game/sounds")"

# ---- started through a link to the launcher, from a bin folder of its own.
mkdir -p "$work/linkbin" && ln -s "$prefix/$bindir/skitterweb" "$work/linkbin/skitterweb"
launcher=$work/linkbin/skitterweb run linked XDG_DATA_HOME="$work/xdg"
expect_ran_in linked "$work/xdg/skitterweb"

# ---- no game folder can be made: the launcher says so and starts nothing.
touch "$work/file"
run blocked XDG_DATA_HOME="$work/file"
[ "$status" != 0 ] && [ "$status" != 7 ] || fail "blocked: the launcher ended with $status"
[ ! -e "$work/blocked.out" ] || fail "blocked: the program was started anyway"
grep -q 'cannot make the game folder' "$work/blocked.out.err" || fail "blocked: no message ($(cat "$work/blocked.out.err"))"
echo "launcher: game folder, exec, arguments, sounds link, own sounds, stale link, linked launcher, blocked folder"
echo "1 passed, 0 failed"
