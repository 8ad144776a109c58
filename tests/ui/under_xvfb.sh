#!/usr/bin/env bash
# Runs a command on a fresh X server with a small window manager, so that
# windows get real title bars and borders:  under_xvfb.sh COMMAND [ARGS...]
set -euo pipefail
display=""
cleanup() {
  [ -n "${wm_pid:-}" ] && kill "$wm_pid" 2>/dev/null || true
  [ -n "${xvfb_pid:-}" ] && kill "$xvfb_pid" 2>/dev/null || true
}
trap cleanup EXIT
for n in $(seq 150 250); do
  if [ ! -e "/tmp/.X11-unix/X$n" ] && [ ! -e "/tmp/.X$n-lock" ]; then display=":$n"; break; fi
done
[ -n "$display" ] || { echo "under_xvfb.sh: no free display" >&2; exit 1; }
Xvfb "$display" -screen 0 1600x1200x24 -nolisten tcp >/dev/null 2>&1 &
xvfb_pid=$!
export DISPLAY=$display
for _ in $(seq 100); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
openbox --sm-disable >/dev/null 2>&1 &
wm_pid=$!
# The window manager is up once it has claimed the screen.
for _ in $(seq 100); do xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break; sleep 0.1; done
export QT_QPA_PLATFORM=xcb
"$@"
