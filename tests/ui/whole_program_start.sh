#!/usr/bin/env bash
# The start is one pause: move keys and Wait typed from the first frame on never run a turn inside
# it, and play once it has ended. The race is a matter of milliseconds, so the game is started
# many times, with sound and the debug log on. Every other start has no webmaster lists yet, so
# its start ends with a notice: keys are typed until the notice is up, then an unbound key marks
# the log once the start is over, and no key press may come before the mark. The other starts
# end quietly: keys are typed for a second, and none may come before the start's last trace line.
#   whole_program_start.sh PROGRAM SEEDS-DIR [STARTS]
set -euo pipefail
game=$1
seeds=$2
starts=${3:-20}
. "$(dirname "$0")/../support/xvfb.sh"
x_server
work=$(mktemp -d)
x_on_exit "rm -rf '$work'"

keys=(8 2 4 6 0 7 3 9 1)
typed=0 played=0
for run in $(seq "$starts"); do
  dir=$work/$run
  mkdir "$dir"
  printf '"Version","1.14"\r\n"LastOption"," 0"\r\n"Debug",-1\r\n"Sound",-1\r\n' >"$dir/sw.opt"
  notice=$((run % 2))
  [ "$notice" = 1 ] || cp "$seeds/webmaster/empty.dat" "$dir/SWhscore.dat"
  x_start "$dir" "$game"
  end=$((SECONDS + 2))
  for ((i = 0; SECONDS < end; i++)); do
    [ "$notice" = 1 ] && [ -n "$(x_boxes)" ] && break
    xdotool key "${keys[i % ${#keys[@]}]}"
    typed=$((typed + 1))
    [ "$notice" = 0 ] && [ "$i" -ge 40 ] && break
  done
  if [ "$notice" = 1 ]; then
    x_wait_boxes 50 || x_fail "run $run: no notice at the end of the start"
    [ "$(x_boxes)" = "Error: LoadHighScoresError" ] || x_fail "run $run: '$(x_boxes)' came up during the start"
    x_press Return
    sleep 0.3
    x_press z                             # unbound: a trace line and no turn
  fi
  x_press 8 2                             # the start is over: these play
  sleep 0.3
  while [ -n "$(x_boxes)" ]; do x_press Return; sleep 0.2; done
  kill -TERM "$game_pid"
  x_ended "$game_pid" 20 || x_fail "run $run: SIGTERM did not end the game"
  wait "$game_pid" 2>/dev/null || x_fail "run $run: the game ended with status $?"

  log=$dir/SWDebug.log
  first_key=$(grep -n -m1 '{{ frmMain.Form_KeyPress }}' "$log" | cut -d: -f1 || true)
  [ -n "$first_key" ] || x_fail "run $run: no key played after the start"
  if [ "$notice" = 1 ]; then
    sed -n "${first_key}p" "$log" | grep -q 'KeyAscii=122 \[z\]' ||
      x_fail "run $run: a key ran before the start had ended: $(sed -n "${first_key}p" "$log")"
  else
    start_end=$(grep -n '{{ LoadHighScores }}' "$log" | tail -n1 | cut -d: -f1 || true)
    [ -n "$start_end" ] && [ "$first_key" -gt "$start_end" ] ||
      x_fail "run $run: a key ran before the start had ended (line $first_key)"
  fi
  played=$((played + $(grep -c 'Form_KeyPress }} (variables)' "$log" || true)))
done
echo "$starts starts, $typed keys typed during them, none ran a turn inside a start; $played turns played after"
echo "1 passed, 0 failed"
