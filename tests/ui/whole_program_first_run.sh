#!/usr/bin/env bash
# The whole program's first run in an empty folder, read through the accessibility bus (AT-SPI):
# first_run.py checks what is on screen while each notice of the start is up, and after them.
#   dbus-run-session -- whole_program_first_run.sh PROGRAM
set -euo pipefail
game=$1
here=$(dirname "$0")
. "$here/../support/xvfb.sh"
x_server
x_accessibility
work=$(mktemp -d)
x_on_exit "rm -rf '$work'"
x_start "$work" "$game"
/usr/bin/python3 "$here/first_run.py" || x_fail "the first run"
