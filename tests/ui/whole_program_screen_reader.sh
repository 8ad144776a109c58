#!/usr/bin/env bash
# The whole program read through the desktop's accessibility bus (AT-SPI), as a screen reader
# reads it: SCRIPT (by default screen_reader.py, which walks the tree, plays a turn and opens the
# dialogs) reads the game started with sound off and empty lists, or, with no SEEDS-DIR, on a first run.
#   dbus-run-session -- whole_program_screen_reader.sh PROGRAM [SEEDS-DIR [SCRIPT]]
set -euo pipefail
here=$(dirname "$0") script=${3:-screen_reader.py}
. "$here/../../scripts/xvfb"
x_server
x_accessibility
x_work
if [ -n "${2:-}" ]; then  # a quiet start, with no box in the way
  printf '"Version","1.14"\r\n"LastOption"," 0"\r\n"Sound",0\r\n' >"$work/sw.opt"
  cp "$2/webmaster/empty.dat" "$work/SWhscore.dat"
fi
x_start "$work" "$1"
/usr/bin/python3 -B "$here/$script" || x_fail "$script: what the accessibility bus shows"
