#!/usr/bin/env bash
# An X server of the caller's own, for every test and script that runs the whole program.
#
#   . tests/support/xvfb.sh                       sourced: the functions below
#   tests/support/xvfb.sh [--wm] COMMAND [ARGS]   runs COMMAND on a fresh server (and window manager)
#
# Xvfb picks a free display number itself (-displayfd), so any number of these run side by side.
# Everything started here is ended, last first, when the calling shell exits; x_on_exit adds
# the caller's own clean-up to that list.
#
#   x_work                      sets work to a fresh folder, removed at the end
#   x_server [--wm]             starts Xvfb (and openbox), exports DISPLAY and sets x_server_pid
#   x_start DIR COMMAND...      runs COMMAND in DIR (output to $x_log, default DIR/game.log), sets
#                               game_pid, and returns once the main window, or a notice before it, is on
#                               screen, with the input focus
#   x_window [NAME]             the id of the visible window named NAME (default: the main window)
#   x_wait_window [TENTHS]      waits until the main window is on screen, and gives it the focus
#   x_boxes                     names of the visible windows other than the main window
#   x_wait_box NAME [TRIES]     waits until the one box on screen is NAME, and gives it the focus
#   x_press KEY...              presses keys, as a player would, after a short pause
#   x_answer KEY...             gives the box on screen the focus, then presses keys in it
#   x_ended PID [TENTHS]        waits for PID to end; true when it has
#   x_until TRIES CONDITION     evaluates CONDITION every tenth of a second until it holds; true if it did
#   x_fail MESSAGE              prints MESSAGE and the game's output, and exits 1

_x_exit_steps=()
x_work() { work=$(mktemp -d) && x_on_exit "rm -rf '$work'"; }
x_on_exit() { _x_exit_steps+=("$*"); }
_x_run_exit_steps() {
  local i
  for ((i = ${#_x_exit_steps[@]} - 1; i >= 0; i--)); do eval "${_x_exit_steps[i]}" >/dev/null 2>&1 || true; done
}
trap _x_run_exit_steps EXIT

x_fail() {
  echo "FAIL: $*" >&2
  [ -n "${x_game_log:-}" ] && [ -s "$x_game_log" ] && tail -n 20 "$x_game_log" >&2
  exit 1
}

x_server() {
  local dir pid n=""
  dir=$(mktemp -d)
  mkfifo "$dir/display"
  # -noreset: the server does not reset when its last client leaves, which would turn away a
  # client that connects at that moment (the game, while xdotool looks for its window).
  Xvfb -displayfd 3 -noreset -screen 0 1600x1200x24 -nolisten tcp 3>"$dir/display" >"$dir/xvfb.log" 2>&1 &
  pid=$! x_server_pid=$!
  x_on_exit "kill $pid; wait $pid; rm -rf '$dir'"
  # The server writes its display number once it takes connections.
  read -r -t 20 n <"$dir/display" || true
  [ -n "$n" ] || { cat "$dir/xvfb.log" >&2; x_fail "Xvfb did not start"; }
  export DISPLAY=":$n" QT_QPA_PLATFORM=xcb
  if [ "${1:-}" = "--wm" ]; then
    openbox --sm-disable >/dev/null 2>&1 &
    x_on_exit "kill $!"
    # The window manager is up once it has claimed the screen.
    for _ in $(seq 100); do
      xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && return 0
      sleep 0.1
    done
    x_fail "the window manager did not start"
  fi
}

x_window() {
  { xdotool search --onlyvisible --name "^${1:-Skitterweb}\$" 2>/dev/null || true; } | head -n 1
}

x_start() {
  x_game_log=${x_log:-$1/game.log}
  (cd "$1" && shift && exec "$@" >>"$x_game_log" 2>&1) &
  game_pid=$!
  x_on_exit "kill -9 $game_pid"
  x_until 100 '[ -n "$(x_window)$(x_boxes)" ] || ! kill -0 $game_pid 2>/dev/null' || x_fail "the main window did not come up"
  kill -0 "$game_pid" 2>/dev/null || x_fail "the game ended before its window came up"
  # With no window manager, keys go where the input focus is set: on the game, as a player's would.
  if [ -n "$(x_window)" ]; then xdotool windowfocus "$(x_window)" 2>/dev/null || true; else _x_focus_box; fi
}

x_wait_window() { x_until "${1:-50}" '[ -n "$(x_window)" ]' && { xdotool windowfocus --sync "$(x_window)" 2>/dev/null || true; }; }

x_boxes() { xdotool search --onlyvisible --name '.' getwindowname %@ 2>/dev/null | grep -vx 'Skitterweb' || true; }

x_wait_box() { local box=$1; x_until "${2:-50}" '[ "$(x_boxes)" = "$box" ]' && _x_focus_box; }

# With no window manager, a box just shown may not have the input focus yet: give it the focus,
# as a player's click would.
_x_focus_box() {
  local id
  for id in $(xdotool search --onlyvisible --name '.' 2>/dev/null); do
    [ "$(xdotool getwindowname "$id" 2>/dev/null)" = Skitterweb ] && continue
    xdotool windowfocus --sync "$id" 2>/dev/null || true
    return
  done
}

x_answer() { _x_focus_box; x_press "$@"; }

x_press() { sleep 0.15; xdotool key --clearmodifiers "$@"; }

x_ended() { x_until "${2:-50}" "! kill -0 $1 2>/dev/null"; }

# Evaluates CONDITION every tenth of a second, up to TRIES times, until it holds; false if it never does.
x_until() {
  for _ in $(seq "$1"); do eval "$2" && return 0; sleep 0.1; done
  return 1
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then
  set -euo pipefail
  if [ "${1:-}" = "--wm" ]; then shift; x_server --wm; else x_server; fi
  "$@"
fi

# The desktop's accessibility bus, as a screen reader would find it, for the program started next.
x_accessibility() {
  export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
  /usr/libexec/at-spi-bus-launcher --launch-immediately &
  x_on_exit "kill $!"
}
