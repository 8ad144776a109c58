#!/usr/bin/env bash
# The whole program under Xvfb, played with keys as a player would: a game on
# Easy that scores, game over, the webmaster lists open on the row earned, a
# name typed and Enter, quit. A second start in the same directory then shows
# no "Failed to open high score file" box, and its High Score label shows the score on Easy.
#   whole_program_webmaster.sh PATH-TO-skitterweb
set -euo pipefail
game=$1
. "$(dirname "$0")/../support/xvfb.sh"
x_server
work=$(mktemp -d)
x_on_exit "rm -rf '$work'"
start() { x_start "$work" env SKITTERWEB_LABELS_AT_EXIT="$work/labels.txt" "$game"; }

# ---- first start: two notices (no options file, no lists yet), then Easy.
start
x_wait_boxes || true
seen=$(x_boxes)
echo "$seen" | grep -q 'Error: LoadOptions' || x_fail "first start: no options notice ($seen)"
x_press Return
x_wait_boxes || true
echo "$(x_boxes)" | grep -q 'Error: LoadHighScoresError' || x_fail "first start: no lists notice"
x_press Return
sleep 0.3
x_press alt+o; x_press d; x_press e          # Options > Difficulty > Easy
x_wait_boxes || true
echo "$(x_boxes)" | grep -q 'Change Game Difficulty' || x_fail "no difficulty question"
x_press Return                           # Yes

# ---- play: wait ('0') until the game is over, answering every box.
named=""
for _ in $(seq 1500); do
  b=$(x_boxes)
  case "$b" in
    *"Webmaster Lists"*)
      x_press ctrl+a; xdotool type --delay 30 "Whisk Fan"; x_press Return; x_press Return; named=1 ;;
    *"Play again?"*)
      if [ -n "$named" ]; then x_press Escape; break; fi
      x_press Return ;;                  # a game that scored nothing: another one
    "") x_press 0 ;;
    *) x_press Return ;;
  esac
  sleep 0.2
done
[ -n "$named" ] || x_fail "the webmaster lists never opened on an earned row"
sleep 0.5
[ -z "$(x_boxes)" ] || x_fail "boxes left after the game: $(x_boxes)"
x_press alt+g; x_press q                   # no game in progress: nothing asked
x_ended "$game_pid" 60 || x_fail "Quit did not end the game"
[ -s "$work/SWhscore.dat" ] || x_fail "SWhscore.dat was not written"
grep '^lblScore=' "$work/labels.txt"
score=$(sed -n 's/^lblScore=//p' "$work/labels.txt")
[ "$score" != "0" ] || x_fail "the game scored nothing"

# ---- second start: no box about the lists, and the high score shows the game's score.
# (The guest's settings are not kept, so the game starts on Normal: choosing Easy shows its list's best.)
start
sleep 1.5
[ -z "$(x_boxes)" ] || x_fail "second start shows: $(x_boxes)"
x_press alt+o; x_press d; x_press e
x_wait_boxes || true
echo "$(x_boxes)" | grep -q 'Change Game Difficulty' || x_fail "second start: no difficulty question ($(x_boxes))"
x_press Return                           # Yes: a new game on Easy
sleep 0.5
x_press alt+g; x_press q
x_wait_boxes || true
x_press Return                           # Yes: quit the game in progress
x_ended "$game_pid" 60 || true
high=$(sed -n 's/^lblHighScore=//p' "$work/labels.txt")
[ "$high" = "$score" ] || x_fail "High Score shows '$high', the game scored '$score'"
echo "whole program: scored $score, named, high score shown at the next start"
echo "1 passed, 0 failed"
