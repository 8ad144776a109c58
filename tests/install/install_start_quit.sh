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
. "$(dirname "$0")/../support/xvfb.sh"   # its clean-up runs in place of common.sh's
x_on_exit "rm -rf '$work'"
prefix=$work/prefix
install_into "$build" "$prefix"
mkdir -p "$work/home" "$work/elsewhere"
game=$work/home/.local/share/skitterweb
x_server
x_log=$work/game.log x_start "$work/elsewhere" env -u XDG_DATA_HOME HOME="$work/home" "$prefix/$bindir/skitterweb"
window=$(x_window)
answer_boxes() { for _ in $(seq 20); do [ -n "$(x_boxes)" ] || return 0; x_answer Return; sleep 0.3; done; }

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
for i in $(seq 150); do  # Game > Quit (again if a closing box took the keys), every question Yes
  kill -0 "$game_pid" 2>/dev/null || break
  if [ -n "$(x_boxes)" ]; then x_answer Return; elif [ $((i % 30)) = 1 ]; then x_press alt+g; x_press q; fi
  sleep 0.1
done
kill -0 "$game_pid" 2>/dev/null && fail "Game > Quit did not end the game"
status=0; wait "$game_pid" || status=$?
[ "$status" = 0 ] || { cat "$work/game.log" >&2; fail "the game ended with $status"; }
[ -f "$game/sw.opt" ] || fail "no sw.opt in the game folder after Quit"
[ -z "$(ls -A "$work/elsewhere")" ] || fail "the game wrote into the folder it was started from: $(ls -A "$work/elsewhere")"
echo "installed game: window up, running in $game as the launcher's process, quit, sw.opt saved"
echo "1 passed, 0 failed"
