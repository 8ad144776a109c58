#!/usr/bin/env bash
# The whole program's start and end under Xvfb. Keys typed while the start's notice is up (there
# are no webmaster lists yet) run no turn; the first key to play is the unbound one typed once the
# notice is answered and the window is up. Then SIGTERM, SIGINT or SIGHUP ends the game (and SIGINT
# at the start's notice, SIGTERM with a dialog open) with status 0, nothing asked: the options saved
# as Game > Quit saves them, nothing half-written left beside them, the debug log closed.
#   whole_program_start_end.sh PROGRAM SEEDS-DIR [STARTS]
set -euo pipefail
game=$1 seeds=$2 starts=${3:-10}
. "$(dirname "$0")/../../scripts/xvfb"
x_server
x_work
typed=0 signals=(TERM INT HUP)

up() {  # NAME [KEYS [answered]]: a player with sound and the debug log on, no lists; the game's start at its
  # notice, KEYS typed there; "answered": then the notice answered, the window up
  dir=$work/$1
  mkdir "$dir" && cp "$seeds/options/two.opt" "$dir/sw.opt"
  x_start "$dir" "$game"
  x_wait_box "Error: LoadHighScoresError" || x_fail "$1: '$(x_boxes)' at the start"
  for ((i = 0; i < ${2:-0}; i++)); do xdotool key "$((i % 10))"; done
  typed=$((typed + i))
  [ -z "${3:-}" ] || { x_press Return && x_wait_window; } || x_fail "$dir: no main window after the notice"
}
end_with() {  # SIGNAL
  kill "-$1" "$game_pid"
  x_ended "$game_pid" || x_fail "$dir: SIG$1 did not end the game"
  wait "$game_pid" || x_fail "$dir: SIG$1 ended the game with status $?"
  cmp -s "$dir/sw.opt" "$work/quit/sw.opt" || x_fail "$dir: sw.opt is not what Game > Quit writes"
  [ -z "$(ls "$dir" | grep -vxE 'sw\.opt|SWDebug\.log|game\.log')" ] || x_fail "$dir: left behind: $(ls "$dir")"
  tail -n 2 "$dir/SWDebug.log" | grep -q '^Exit Program - ' || x_fail "$dir: the debug log was not closed"
}

up quit 0 answered
x_press alt+g q
for _ in $(seq 50); do kill -0 "$game_pid" 2>/dev/null || break; [ -z "$(x_boxes)" ] || x_answer Return; sleep 0.1; done
x_ended "$game_pid" || x_fail "Game > Quit did not end the game"
for run in $(seq "$starts"); do
  up "start$run" 40 answered
  sleep 0.3
  x_press z
  sleep 0.3
  end_with "${signals[run % 3]}"
  grep -m1 '{{ frmMain.Form_KeyPress }}' "$dir/SWDebug.log" | grep -q 'KeyAscii=122 \[z\]' ||
    x_fail "$dir: a key played inside the start"
done
up notice
end_with INT
up dialog 0 answered
x_press alt+o c
x_wait_box Controls || x_fail "no Controls dialog: '$(x_boxes)'"
end_with TERM
echo "$starts starts: none of the $typed keys typed during them played; each signal ended the game, options saved"
