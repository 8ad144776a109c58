#!/usr/bin/env bash
# Runs a command on a fresh X server with a small window manager, so that
# windows get real title bars and borders:  under_xvfb.sh COMMAND [ARGS...]
exec "$(dirname "$0")/../support/xvfb.sh" --wm "$@"
