#!/usr/bin/env bash
# The whole program's first run in an empty folder, read through the accessibility bus (AT-SPI):
# first_run.py checks what is on screen while each notice of the start is up, and after them.
#   dbus-run-session -- whole_program_first_run.sh PROGRAM
exec bash "$(dirname "$0")/whole_program_screen_reader.sh" "$1" "" first_run.py
