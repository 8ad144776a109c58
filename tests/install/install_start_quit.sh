#!/usr/bin/env bash
# The installed game, started as a desktop would start it: installed into a
# temporary prefix, its launcher run from another folder with HOME a fresh
# folder, on an Xvfb display of its own. The main window comes up; the game
# runs, as the launcher's own process, in the game folder it made; Game > Quit
# (its questions answered Yes) ends it, leaving sw.opt in the game folder.
#   install_start_quit.sh BUILD-DIR BINDIR PROGRAM-DIR DATA-DIR   (the last three relative to the prefix)
set -euo pipefail
build=$1 bindir=$2 programdir=$3
. "$(dirname "$0")/common.sh"
cleanup_more() {
  [ -n "${game_pid:-}" ] && kill -9 "$game_pid" 2>/dev/null || true
  [ -n "${xvfb_pid:-}" ] && kill "$xvfb_pid" 2>/dev/null || true
}
prefix=$work/prefix
install_into "$build" "$prefix"
mkdir -p "$work/home" "$work/elsewhere"
game=$work/home/.local/share/skitterweb

display=""
for n in $(seq 60 89); do
  if [ ! -e "/tmp/.X11-unix/X$n" ] && [ ! -e "/tmp/.X$n-lock" ]; then display=":$n"; break; fi
done
[ -n "$display" ] || fail "no free X display"
Xvfb "$display" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
xvfb_pid=$!
export DISPLAY=$display
for _ in $(seq 50); do xdotool getmouselocation >/dev/null 2>&1 && break; sleep 0.1; done

# The names of the windows on screen other than the main window.
boxes() { xdotool search --onlyvisible --name '.' getwindowname %@ 2>/dev/null | grep -vx 'Skitterweb' || true; }
press() { sleep 0.15; xdotool key --clearmodifiers "$@"; }
answer_boxes() { for _ in $(seq 20); do [ -n "$(boxes)" ] || return 0; press Return; sleep 0.3; done; }

(cd "$work/elsewhere" && exec env -u XDG_DATA_HOME HOME="$work/home" QT_QPA_PLATFORM=xcb \
   "$prefix/$bindir/skitterweb" >"$work/game.log" 2>&1) &
game_pid=$!
window=""
for _ in $(seq 150); do
  window=$(xdotool search --onlyvisible --name '^Skitterweb$' 2>/dev/null | head -n1) && [ -n "$window" ] && break
  sleep 0.1
done
[ -n "$window" ] || { cat "$work/game.log" >&2; fail "the main window did not come up"; }

# ---- the window is the launcher's own process, running the installed program in the game folder.
[ "$(xdotool getwindowpid "$window")" = "$game_pid" ] || fail "the window is not the launcher's process (no exec)"
[ "$(readlink "/proc/$game_pid/exe")" = "$(readlink -f "$prefix/$programdir/skitterweb")" ] ||
  fail "the process runs $(readlink "/proc/$game_pid/exe"), not the installed program"
[ -d "$game" ] || fail "no game folder $game"
[ "$(readlink "/proc/$game_pid/cwd")" = "$(cd "$game" && pwd -P)" ] ||
  fail "the game runs in $(readlink "/proc/$game_pid/cwd"), not $game"
[ -f "$game/sounds/comp-program start.mp3" ] || fail "the sounds cannot be found from the game folder"
[ ! -e "$game/sw.opt" ] || fail "sw.opt exists before the game was quit"

# ---- the first start's notices, then Game > Quit, every question answered Yes.
sleep 0.5
answer_boxes
xdotool windowfocus --sync "$window"
press alt+g; press q
for _ in $(seq 100); do
  kill -0 "$game_pid" 2>/dev/null || break
  [ -n "$(boxes)" ] && press Return
  sleep 0.1
done
kill -0 "$game_pid" 2>/dev/null && fail "Game > Quit did not end the game"
status=0; wait "$game_pid" || status=$?
game_pid=""
[ "$status" = 0 ] || { cat "$work/game.log" >&2; fail "the game ended with $status"; }
[ -f "$game/sw.opt" ] || fail "no sw.opt in the game folder after Quit"
[ -z "$(ls -A "$work/elsewhere")" ] || fail "the game wrote into the folder it was started from: $(ls -A "$work/elsewhere")"
echo "installed game: window up, running in $game as the launcher's process, quit, sw.opt saved"
echo "1 passed, 0 failed"
