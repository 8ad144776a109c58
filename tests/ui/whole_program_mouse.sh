#!/usr/bin/env bash
# The whole program under Xvfb, played with the mouse as a player would (xdotool): each click on
# the board moves Whisk one step toward the cell clicked, and the debug log shows the click, then
# the key of that step and Whisk's move.
#   whole_program_mouse.sh PATH-TO-skitterweb SEEDS-DIR
set -euo pipefail
. "$(dirname "$0")/../../scripts/xvfb"
x_server
x_work
# Sound off, the debug log on, empty lists: a quiet start, with no box in the way.
printf '"Version","1.14"\r\n"LastOption"," 0"\r\n"Debug",-1\r\n"Sound",0\r\n' >"$work/sw.opt"
cp "$2/webmaster/empty.dat" "$work/SWhscore.dat"
x_start "$work" "$1"
sleep 1.5
# Clicks a point of the window; prints the log's new lines once they hold the text $3, then
# answers the box a death brings.
click() {
  local n want=$3
  n=$(wc -l <"$work/SWDebug.log")
  xdotool mousemove --window "$(x_window)" "$1" "$2" click 1
  x_until 100 'tail -n "+$((n + 1))" "$work/SWDebug.log" | grep -F -- "$want" >/dev/null' ||
    x_fail "the debug log never showed '$3' after a click"
  tail -n "+$((n + 1))" "$work/SWDebug.log"
  sleep 0.5
  [ -z "$(x_boxes)" ] || x_answer Return
}
# A first click tells where the board lies: the cell under a point of the window. A cell is 32 pixels.
x0=400 y0=200
cell=$(click $x0 $y0 "KeyAscii=" | grep -oE 'ctCell=[0-9]+,[0-9]+' | cut -d= -f2)
for _ in 1 2 3; do  # three steps toward a cell three columns away on Whisk's row: right, or left near the edge
  read -r _ c r _ < <(grep -oE 'ctPlayer=[0-9]+,[0-9]+ \(return\) sucessful=-1' "$work/SWDebug.log" | tail -n 1 | tr '=,' '  ')
  if [ "$c" -lt 18 ]; then d=1 key=54; else d=-1 key=52; fi
  got=$(click $((x0 + (c + 3 * d - ${cell%,*}) * 32)) $((y0 + (r - ${cell#*,}) * 32)) "{{ MovePlayer }}" | tr -d '\r')
  # The click's line, then the key's. (grep and sed read all they are given: with pipefail, a writer
  # cut short would fail the line.)
  want="{{ frmMain.grdMap_MouseUp }} (input) Button=1 ctCell=$((c + 3 * d)),$r|"
  want+="{{ frmMain.Form_KeyPress }} (input) KeyAscii=$key [$(printf "\\$(printf %o $key)")]|"
  echo "$got" | sed -n 1,2p | tr '\n' '|' | grep -xF "$want" >/dev/null || x_fail "the click ran: $got"
  echo "$got" | grep -F "{{ MovePlayer }} (input) ctPlayer=$((c + d)),$r (return)" >/dev/null || x_fail "Whisk stayed at $c,$r: $got"
done
echo "whole program: three steps by clicks on the board, as the debug log shows"
