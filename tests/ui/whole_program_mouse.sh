#!/usr/bin/env bash
# The whole program under Xvfb, played with the mouse as a player would (xdotool): each click
# on the board moves Whisk one step toward the cell clicked, and the debug log shows the click,
# then the key of that step and Whisk's move; the secondary button's menu gives Pause.
#   whole_program_mouse.sh PATH-TO-skitterweb SEEDS-DIR
set -euo pipefail
game=$1
seeds=$2
. "$(dirname "$0")/../support/xvfb.sh"
x_server
work=$(mktemp -d)
x_on_exit "rm -rf '$work'"
# Sound off, the debug log on, empty lists: a quiet start, with no box in the way.
printf '"Version","1.14"\r\n"LastOption"," 0"\r\n"Debug",-1\r\n"Sound",0\r\n' >"$work/sw.opt"
cp "$seeds/webmaster/empty.dat" "$work/SWhscore.dat"
log=$work/SWDebug.log
x_start "$work" "$game"
wid=$(x_window)

# The log's lines after its first $1, once they hold $2 (a fixed string).
after() {
  for _ in $(seq 100); do
    tail -n "+$(($1 + 1))" "$log" | grep -qF -- "$2" && { tail -n "+$(($1 + 1))" "$log"; return 0; }
    sleep 0.1
  done
  x_fail "the debug log never showed: $2"
}
lines() { wc -l <"$log"; }
# Whisk's cell, as the last move the log shows: "col row".
whisk() { grep -oE 'MovePlayer \}\} \(input\) ctPlayer=[0-9]+,[0-9]+ \(return\) sucessful=-1' "$log" | tail -n 1 |
  sed -E 's/.*=([0-9]+),([0-9]+) .*/\1 \2/'; }
# Clicks a point of the window with button $3 (default: the primary one).
click() { xdotool mousemove --window "$wid" "$1" "$2" click "${3:-1}"; }

after 1 "{{ StartGame }}" >/dev/null
sleep 1  # the start sound's pause is over (the sound is off: a short one)
# A first click tells where the board lies: the cell under a point of the window.
eval "$(xdotool getwindowgeometry --shell "$wid")"
x0=$((WIDTH / 2)) y0=$((HEIGHT / 3))
n=$(lines)
click "$x0" "$y0"
cell=$(after "$n" "grdMap_MouseUp" | grep -oE 'ctCell=[0-9]+,[0-9]+' | head -n 1 | cut -d= -f2)
c0=${cell%,*} r0=${cell#*,}
sleep 0.5
[ -z "$(x_boxes)" ] || x_answer Return

# Three steps, each toward a cell three columns away on Whisk's row: right, or left near the
# right edge. A cell is 32 pixels at this scale.
for _ in 1 2 3; do
  read -r wc wr < <(whisk)
  if [ "$wc" -lt 18 ]; then dc=3 key=54 step=1; else dc=-3 key=52 step=-1; fi
  tc=$((wc + dc))
  n=$(lines)
  click $((x0 + (tc - c0) * 32)) $((y0 + (wr - r0) * 32))
  got=$(after "$n" "{{ MovePlayer }}")
  want="{{ frmMain.grdMap_MouseUp }} (input) Button=1 ctCell=$tc,$wr"
  [ "$(echo "$got" | head -n 1 | tr -d '\r')" = "$want" ] || x_fail "the click wrote '$(echo "$got" | head -n 1)', not '$want'"
  echo "$got" | sed -n 2p | grep -qF "{{ frmMain.Form_KeyPress }} (input) KeyAscii=$key " ||
    x_fail "the click did not run the key $key: $(echo "$got" | sed -n 2p)"
  echo "$got" | grep -qF "{{ MovePlayer }} (input) ctPlayer=$((wc + step)),$wr (return) sucessful=-1" ||
    x_fail "Whisk did not move from $wc,$wr toward $tc,$wr"
  sleep 0.5
  [ -z "$(x_boxes)" ] || x_answer Return  # Whisk died on the way: the next site
done

# The secondary button opens the board's menu; its Pause (P) plays the Pause key's turn.
n=$(lines)
read -r wc wr < <(whisk)
click $((x0 + (wc - c0) * 32)) $((y0 + (wr - r0) * 32)) 3
sleep 0.5
xdotool key p
after "$n" "{{ frmMain.menBoard_Click }} (input) Command=CPPause" | grep -qF "KeyAscii=53 [5]" ||
  x_fail "the board's menu did not give Pause"
kill -TERM "$game_pid"
x_ended "$game_pid" 60 || x_fail "the game did not end"
echo "whole program: three steps by clicks and a pause from the board's menu, as the debug log shows"
