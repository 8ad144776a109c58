#!/usr/bin/env bash
# render_pictures.sh - draw assets/pictures/*.svg into one contact sheet with Qt's
# own SVG renderer (the one the game uses) and print how much of its box each
# picture fills.
#
# Usage:  tools/render_pictures.sh [OUT.png]     (default: docs/pictures.png)
#         PICTURES=DIR tools/render_pictures.sh   draws the SVGs of DIR instead
#
# Builds tools/picture_sheet.cpp by hand with g++ against the Qt 6 Svg development
# files (Debian: qt6-svg-dev) into a temporary directory; the project's build is
# not involved.
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
root="$(cd "$here/.." && pwd)"
out="${1:-$root/docs/pictures.png}"

if ! pkg-config --exists Qt6Svg Qt6Gui 2>/dev/null; then
    echo "render_pictures.sh: needs the Qt 6 Svg development files (apt-get install qt6-svg-dev)" >&2
    exit 1
fi
tmp="$(mktemp -d)"; trap 'rm -rf "$tmp"' EXIT
# shellcheck disable=SC2046
g++ -std=c++20 -fPIC -O1 -Wall -Wextra "$here/picture_sheet.cpp" -o "$tmp/picture_sheet" \
    $(pkg-config --cflags --libs Qt6Svg Qt6Gui)
QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$tmp" "$tmp/picture_sheet" "${PICTURES:-$root/assets/pictures}" "$out"
echo "wrote $out"
