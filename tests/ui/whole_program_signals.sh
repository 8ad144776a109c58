#!/usr/bin/env bash
# A logout (SIGTERM), Ctrl+C (SIGINT) or a closed terminal (SIGHUP) ends the game at any moment
# within a second, with status 0: the options file written as Game > Quit writes it, nothing
# half-written left beside it, the debug log closed; nothing asked, no goodbye pause.
#   whole_program_signals.sh PROGRAM SEEDS-DIR
set -euo pipefail
game=$1
seeds=$2
. "$(dirname "$0")/../support/xvfb.sh"
x_server
work=$(mktemp -d)
x_on_exit "rm -rf '$work'"

# A folder for one run: with a player whose debug log and sound are on and with no webmaster
# lists (a notice at the start), or empty (the options notice first).
folder() {  # name with|empty
  mkdir "$work/$1"
  [ "$2" = empty ] || cp "$seeds/options/two.opt" "$work/$1/sw.opt"
  echo "$work/$1"
}

# What Game > Quit leaves, for each kind of folder.
for kind in with empty; do
  dir=$(folder "quit-$kind" "$kind")
  x_start "$dir" "$game"
  x_wait_boxes 50 && while [ -n "$(x_boxes)" ]; do x_press Return; sleep 0.2; done
  x_press alt+g q
  for _ in $(seq 50); do kill -0 "$game_pid" 2>/dev/null || break; [ -n "$(x_boxes)" ] && x_press Return; sleep 0.1; done
  x_ended "$game_pid" || x_fail "Game > Quit did not end the game"
  cp "$dir/sw.opt" "$work/quit-$kind.opt"
done

report=""
# Sends the signal, then checks the end: status, time, files.
end_with() {  # moment signal kind dir
  local t0 t1 status=0
  t0=$(date +%s%N)
  kill "-$2" "$game_pid"
  for _ in $(seq 300); do kill -0 "$game_pid" 2>/dev/null || break; sleep 0.01; done
  t1=$(date +%s%N)
  kill -0 "$game_pid" 2>/dev/null && x_fail "$1: SIG$2 did not end the game"
  wait "$game_pid" || status=$?
  [ "$status" = 0 ] || x_fail "$1: SIG$2 ended the game with status $status"
  local ms=$(((t1 - t0) / 1000000))
  [ "$ms" -lt 1000 ] || x_fail "$1: the game took $ms ms to end"
  cmp -s "$4/sw.opt" "$work/quit-$3.opt" || x_fail "$1: sw.opt is not what Game > Quit writes"
  [ -z "$(ls "$4" | grep -vxE 'sw\.opt|SWDebug\.log|game\.log|sounds')" ] || x_fail "$1: left behind: $(ls "$4")"
  if [ "$3" = with ]; then
    tail -n 2 "$4/SWDebug.log" | grep -q '^Exit Program - ' || x_fail "$1: the debug log was not closed"
  fi
  report+="$1 (SIG$2): ${ms} ms; "
}

# ---- before the window shows: as soon as the program listens.
dir=$(folder before with)
(cd "$dir" && exec "$game" >>"$dir/game.log" 2>&1) &
game_pid=$!
for _ in $(seq 500); do
  caught=$(sed -n 's/^SigCgt:\s*//p' "/proc/$game_pid/status" 2>/dev/null || true)
  [ -n "$caught" ] && (((0x$caught >> 14) & 1)) && break
  sleep 0.002
done
[ -z "$(x_window)" ] || echo "note: the window was up before the signal"
end_with "before the window shows" TERM with "$dir"

# ---- with a start-up notice up: the options notice, and the webmaster lists' notice.
dir=$(folder options-notice empty)
x_start "$dir" "$game"
x_wait_boxes 50 && [ "$(x_boxes)" = "Error: LoadOptions" ] || x_fail "no options notice at the start"
end_with "the options notice at the start" TERM empty "$dir"

dir=$(folder lists-notice with)
x_start "$dir" "$game"
x_wait_boxes 50 && [ "$(x_boxes)" = "Error: LoadHighScoresError" ] || x_fail "no lists notice at the start"
end_with "the lists notice at the start" INT with "$dir"

# ---- once the game is up: idle, a question, a dialog, the help window, during a wait.
up() {  # name
  dir=$(folder "$1" with)
  x_start "$dir" "$game"
  x_wait_boxes 50 && x_press Return
  sleep 0.3
}
up idle
end_with "idle" HUP with "$dir"

up question
x_press alt+g n
x_wait_boxes && [ "$(x_boxes)" = "Start New Game" ] || x_fail "no question ($(x_boxes))"
end_with "a message box" TERM with "$dir"

up dialog
x_press alt+o c
x_wait_boxes && [ "$(x_boxes)" = "Controls" ] || x_fail "no Controls dialog ($(x_boxes))"
end_with "the Controls dialog" TERM with "$dir"

up help
x_press F1
x_wait_boxes || x_fail "no help window"
end_with "the help window" TERM with "$dir"

up wait
x_press 0
sleep 0.1
end_with "a wait" TERM with "$dir"

echo "${report%; }"
echo "1 passed, 0 failed"
