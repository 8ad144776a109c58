#!/usr/bin/env bash
# The whole program under Xvfb, played with keys as a player would: a game on
# Easy that scores, game over, the webmaster lists open on the row earned, a
# name typed and Enter, quit. A second start in the same directory then shows
# no box about the lists, and on Easy its High Score label shows the score.
#   whole_program_webmaster.sh PATH-TO-skitterweb
set -euo pipefail
game=$1
. "$(dirname "$0")/../support/xvfb.sh"
x_server
work=$(mktemp -d)
x_on_exit "rm -rf '$work'"
start() { x_start "$work" env SKITTERWEB_LABELS_AT_EXIT="$work/labels.txt" "$game"; }
label() { sed -n "s/^$1=//p" "$work/labels.txt"; }
easy() {  # Options > Difficulty > Easy, and Yes
  x_press alt+o; x_press d; x_press e
  x_wait_box "Change Game Difficulty" || x_fail "no difficulty question: '$(x_boxes)'"
  x_press Return
}

start
for notice in LoadOptions LoadHighScoresError; do  # no options file, no lists yet
  x_wait_box "Error: $notice" && x_press Return || x_fail "first start: '$(x_boxes)', not $notice"
done
x_wait_window || x_fail "no main window after the notices"
easy
named=""  # wait ('0') until a game earns a row, answering every box
for _ in $(seq 1500); do
  case "$(x_boxes)" in
    *"Webmaster Lists"*) x_answer ctrl+a; xdotool type --delay 30 "Whisk Fan"; x_press Return; x_press Return; named=1 ;;
    *"Play again?"*) [ -z "$named" ] || { x_answer Escape; break; }; x_answer Return ;;
    "") x_press 0 ;;
    *) x_answer Return ;;
  esac
  sleep 0.2
done
[ -n "$named" ] || x_fail "the webmaster lists never opened on an earned row"
x_press alt+g; x_press q  # no game in progress: nothing asked
x_ended "$game_pid" 60 || x_fail "Quit did not end the game ($(x_boxes))"
score=$(label lblScore)
[ "${score:-0}" != 0 ] || x_fail "the game scored nothing"

start
sleep 1.5
[ -z "$(x_boxes)" ] || x_fail "second start shows: $(x_boxes)"
easy
x_press alt+g; x_press q
x_wait_box "Quit Skitterweb" 30 && x_press Return  # Yes: quit the game in progress
x_ended "$game_pid" 60 || true
[ "$(label lblHighScore)" = "$score" ] || x_fail "High Score shows '$(label lblHighScore)', the game scored '$score'"
echo "whole program: scored $score, named, high score shown at the next start"
