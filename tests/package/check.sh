#!/usr/bin/env bash
# The Debian package on this system, as a player meets it: installed with apt from the file; its files
# exactly those cmake --install put in place when it was built (INSTALL-MANIFEST, the manual page
# compressed) and Debian's copyright, changelog and doc-base entry; the installed game started under
# Xvfb with a fresh HOME (XDG_DATA_HOME unset), its two first-run notices answered, up to its first
# frame, its game folder made in ~/.local/share with the sounds linked there, ended by SIGTERM (status
# 0, its options saved); then purged: no file of the package is left, and no folder of its own.
#   tests/package/check.sh PACKAGE.deb INSTALL-MANIFEST
# Installs and removes system-wide: needs root or sudo, and a system where skitterweb is not installed.
set -euo pipefail
deb=$(readlink -f "$1") manifest=$2
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../../scripts/xvfb"

sudo=$([ "$(id -u)" = 0 ] || echo sudo)
[ -z "$sudo" ] || command -v sudo >/dev/null || x_fail "installing the package needs root (or sudo): cannot check it here"
apt() { $sudo env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 -y -q "$@"; }
state() { local s; s=$(dpkg-query -W -f='${db:Status-Status}' skitterweb 2>/dev/null) || true; echo "${s:-not-installed}"; }
[ "$(state)" = not-installed ] ||
  x_fail "skitterweb is on this system already ($(state)): the check installs and purges it; remove it first"

x_work
chmod 755 "$work"

# ---- installed with apt, which brings its dependencies; purged again however the check ends
apt install "$deb" >"$work/install.log" 2>&1 || { cat "$work/install.log" >&2; x_fail "apt-get install $deb failed"; }
purge_if_installed() { [ "$(state)" = not-installed ] || apt purge skitterweb; }
x_on_exit purge_if_installed
[ "$(state)" = installed ] || x_fail "skitterweb is $(state) after apt-get install"
dpkg -L skitterweb >"$work/files"
while IFS= read -r f; do [ -d "$f" ] || echo "$f"; done <"$work/files" | LC_ALL=C sort >"$work/installed"
{ sed 's#^/usr/share/man/.*#&.gz#' "$manifest"; echo; printf '%s\n' /usr/share/doc/skitterweb/{copyright,changelog.gz}
  echo /usr/share/doc-base/skitterweb.skitterweb; } | grep . | LC_ALL=C sort >"$work/expected"
diff -u "$work/expected" "$work/installed" || x_fail "the files of dpkg -L skitterweb are not those cmake --install put in place (diff above)"
[ -f /usr/share/man/man6/skitterweb.6.gz ] || x_fail "no manual page /usr/share/man/man6/skitterweb.6.gz"
depends=$(dpkg-query -W -f='${Depends}' skitterweb)
[[ "$depends" =~ libqt6widgets6\ \(\>=\ 6 ]] || x_fail "no Depends on libqt6widgets6 computed by shlibdeps: $depends"

# ---- the installed game, started as the menu entry starts it, with a fresh HOME
home=$work/home game=$work/home/.local/share/skitterweb
mkdir "$home" "$work/run"
x_server
x_start "$work/run" env -u XDG_DATA_HOME HOME="$home" /usr/games/skitterweb
for notice in LoadOptions LoadHighScoresError; do  # a first run: no options, no lists yet
  x_wait_box "Error: $notice" && x_answer Return || x_fail "first run: '$(x_boxes)', not the notice $notice"
done
x_wait_window || x_fail "no main window after the notices"
sleep 0.5
import -window root "$work/first-frame.png"
cp "$work/first-frame.png" "$(dirname "$deb")/installed-first-frame.png"
colours=$(convert "$work/first-frame.png" -format '%k' info:)
[ "$colours" -ge 16 ] || x_fail "the first frame is nearly blank ($colours colours)"
[ "$(readlink "/proc/$game_pid/exe")" = /usr/libexec/skitterweb/skitterweb ] ||
  x_fail "the window's process runs $(readlink "/proc/$game_pid/exe"), not /usr/libexec/skitterweb/skitterweb"
[ "$(readlink "/proc/$game_pid/cwd")" = "$(cd "$game" && pwd -P)" ] || x_fail "the game runs in $(readlink "/proc/$game_pid/cwd"), not $game"
[ "$(readlink "$game/sounds")" = /usr/share/skitterweb/sounds ] ||
  x_fail "$game/sounds is not a link to /usr/share/skitterweb/sounds: $(ls -la "$game")"
[ -f "$game/sounds/comp-program start.mp3" ] || x_fail "the sounds cannot be read through $game/sounds"

# ---- ended as a logout ends it: status 0, the options saved in the game folder
kill -TERM "$game_pid"
x_ended "$game_pid" 100 || x_fail "SIGTERM did not end the game"
status=0
wait "$game_pid" || status=$?
[ "$status" = 0 ] || x_fail "SIGTERM ended the game with status $status"
[ -s "$game/sw.opt" ] || x_fail "no sw.opt in $game after SIGTERM: $(ls -A "$game")"
[ -z "$(ls -A "$work/run" | grep -vx game.log)" ] || x_fail "the game wrote into the folder it was started from"

# ---- purged: every file of the package gone; of its folders, only those another package owns or
# that hold files of others may stay, and none with the game's name
apt purge skitterweb >"$work/purge.log" 2>&1 || { cat "$work/purge.log" >&2; x_fail "apt-get purge skitterweb failed"; }
[ "$(state)" = not-installed ] || x_fail "skitterweb is $(state) after apt-get purge"
left=$(while IFS= read -r path; do
  if { [ -e "$path" ] || [ -L "$path" ]; } && { [ ! -d "$path" ] || [ -L "$path" ] || [[ "$path" == *skitterweb* ]] ||
    ! { dpkg-query -S "$path" >/dev/null 2>&1 || [ -n "$(ls -A "$path")" ]; }; }; then echo "$path"; fi
done < <(grep -vx '/\.' "$work/files"))
[ -z "$left" ] || x_fail "left after apt-get purge: $(echo $left)"
[ -s "$game/sw.opt" ] || x_fail "purging the package touched the player's own files"

echo "package: installed with apt, files as listed, game started under Xvfb in $game, ended by SIGTERM, purged with nothing left"
