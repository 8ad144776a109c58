#!/usr/bin/env bash
# The whole program read through the desktop's accessibility bus (AT-SPI), as a screen reader
# reads it: screen_reader.py walks the tree, plays a turn and opens the dialogs.
#   dbus-run-session -- whole_program_screen_reader.sh PROGRAM SEEDS-DIR
set -euo pipefail
game=$1
seeds=$2
here=$(dirname "$0")
. "$here/../support/xvfb.sh"
x_server
x_accessibility
work=$(mktemp -d)
x_on_exit "rm -rf '$work'"
# Sound off and empty lists: a quiet start, with no box in the way.
printf '"Version","1.14"\r\n"LastOption"," 0"\r\n"Sound",0\r\n' >"$work/sw.opt"
cp "$seeds/webmaster/empty.dat" "$work/SWhscore.dat"
x_start "$work" "$game"
/usr/bin/python3 "$here/screen_reader.py" || x_fail "the accessibility tree"
