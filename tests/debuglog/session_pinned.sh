#!/usr/bin/env bash
# A scripted session of 800 commands with the debug log on (bench/session_log.cpp, seed 1): its two logs, the
# options file and the webmaster lists it leaves are pinned in tests/debuglog/session/, the logs' dates and
# times aside. Any change to a trace line, to a rule that changes how the session plays, or to a file shows
# here. When a change is meant, make the pinned files anew with
#   tests/debuglog/session_pinned.sh BUILD/tests/session_pin tests/debuglog/session --update
# and read their diff.
#   session_pinned.sh PATH-TO-session_pin PINNED-DIR [--update]
set -euo pipefail
run=$1 pinned=$(cd "$2" && pwd) out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
"$run" "$out" 800 1 >/dev/null
norm() { sed -E 's#[0-9]{2}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}#MM/DD/YY HH:MM:SS#g' "$out/$1" | gzip -9n; }
for log in SWDebug.1.log SWDebug.log; do norm "$log" >"$out/$log.gz"; done
files="SWDebug.1.log.gz SWDebug.log.gz sw.opt SWhscore.dat"
if [ "${3:-}" = --update ]; then (cd "$out" && cp $files "$pinned/"); exit 0; fi
for f in $files; do
  cmp -s "$pinned/$f" "$out/$f" && continue
  echo "$f differs from the pinned one:"
  diff <(zcat -f "$pinned/$f") <(zcat -f "$out/$f") | head -20
  exit 1
done
echo "the session's logs and files are the pinned ones"
