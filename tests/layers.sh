#!/usr/bin/env bash
# The folders under src/ stand as layers: each includes only itself and the folders below it,
# and no two modules include each other.
#   layers.sh SRC-DIR
# Prints every include that runs up or sideways and every pair of modules that include each
# other, and fails when there is one.
set -euo pipefail
layers=(runtime debuglog options scoring game ui)   # bottom first
src=$1
rank() { local i; for i in "${!layers[@]}"; do [ "${layers[i]}" = "$1" ] && { echo "$i"; return; }; done; echo -1; }
bad=0 seen=0
for dir in "$src"/*/; do
  from=$(basename "$dir")
  [ "$(rank "$from")" -ge 0 ] || { echo "src/$from: a folder that no layer names"; bad=1; continue; }
  while IFS=: read -r file line to; do
    seen=$((seen + 1))
    if [ "$(rank "$to")" -lt 0 ] || [ "$(rank "$to")" -gt "$(rank "$from")" ]; then
      echo "${file#"$src"/}:$line includes $to/, which is not below $from/"
      bad=1
    fi
  done < <(grep -rnoE '^#include "[a-z]+/' "$dir" | sed -E 's/#include "([a-z]+)\/$/\1/')
done
[ "$seen" -gt 0 ] || { echo "no includes found under $src"; exit 1; }
# Nor do two modules (a header with its source files: ui/MapGrid is MapGrid.h and MapGrid.cpp)
# include each other, in one folder or across two.
edges=$(cd "$src" && grep -roE '^#include "([a-z]+/)?[A-Za-z0-9_]+\.h"' --include='*.h' --include='*.cpp' . |
  sed -E 's|^\./([^:]+)\.[a-z]+:#include "(.*)\.h"$|\1 \2|' | awk '$1 != $2' | sort -u)
while read -r a b; do
  if [ "$a" \< "$b" ] && grep -qxF "$b $a" <<<"$edges"; then
    echo "$a and $b include each other"
    bad=1
  fi
done <<<"$edges"
[ "$bad" = 0 ] && echo "${layers[*]}: $seen includes, none runs up, no two modules include each other"
exit "$bad"
