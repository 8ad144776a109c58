#!/usr/bin/env bash
# The Debian package carries the project's version: the newest entry of debian/changelog names it
# (as VERSION, or VERSION-REVISION). debian/rules refuses to build the package otherwise; this says
# so at test time already.
#   changelog_version.sh SOURCE-DIR VERSION
set -euo pipefail
src=$1 version=$2
top=$(head -n 1 "$src/debian/changelog")
named=$(echo "$top" | sed -n 's/^skitterweb (\([^)]*\)) [a-z-]*; urgency=[a-z]*$/\1/p')
[ -n "$named" ] || { echo "FAIL: the first line of debian/changelog is not an entry of skitterweb: $top" >&2; exit 1; }
[ "${named%-*}" = "$version" ] || {
  echo "FAIL: debian/changelog's newest entry is $named, the project (CMakeLists.txt) is at $version" >&2; exit 1; }
echo "debian/changelog at $named, the project at $version"
echo "1 passed, 0 failed"
