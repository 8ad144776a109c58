#!/usr/bin/env bash
# render_pictures.sh - render assets/pictures/*.svg to PNGs and contact sheets
# for eyeballing (nothing is written into the repository).
#
# Usage:  tools/render_pictures.sh [OUT_DIR]        (default: /tmp/skitterweb-pictures)
#
#  * OUT_DIR/<name>-<size>.png       each picture at 24, 32, 48, 128 px (rsvg-convert)
#  * OUT_DIR/contact<size>.png       all pictures on the game's #c0c0c0 cell grey
#                                    (ImageMagick montage), sizes 24, 48, 128
#  * OUT_DIR/qt-contact<size>.png    the same drawn by Qt's own QSvgRenderer, if the
#                                    Qt 6 Svg development files are installed - this is
#                                    the renderer the game uses, so check these too.
# Needs librsvg2-bin and imagemagick (installed with apt-get if missing).
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
src="$here/../assets/pictures"
out="${1:-/tmp/skitterweb-pictures}"
mkdir -p "$out"

need=()
command -v rsvg-convert >/dev/null || need+=(librsvg2-bin)
[ -x /usr/bin/montage ] || need+=(imagemagick)
if ((${#need[@]})); then
    sudo=""; [ "$(id -u)" -eq 0 ] || sudo="sudo"
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq --no-install-recommends "${need[@]}" >/dev/null
fi

# sheet order: the keypad layout of the mouse, then the rest
order=(player7 player8 player9 player4 player5 player6 player1 player2 player3
       death virus infected icon pointer)
files=()
for b in "${order[@]}"; do [ -f "$src/$b.svg" ] && files+=("$src/$b.svg"); done

for f in "${files[@]}"; do
    b="$(basename "$f" .svg)"
    for s in 24 32 48 128; do rsvg-convert -w "$s" -h "$s" "$f" -o "$out/$b-$s.png"; done
done
for s in 24 48 128; do
    pngs=(); for f in "${files[@]}"; do pngs+=("$out/$(basename "$f" .svg)-$s.png"); done
    /usr/bin/montage "${pngs[@]}" -background '#c0c0c0' -tile 7x \
        -geometry "${s}x${s}+$((s / 8))+$((s / 8))" "$out/contact$s.png"
done

# Qt's renderer (optional)
if [ -f /usr/include/x86_64-linux-gnu/qt6/QtSvg/QSvgRenderer ] || pkg-config --exists Qt6Svg 2>/dev/null; then
    tmp="$(mktemp -d)"; trap 'rm -rf "$tmp"' EXIT
    cat > "$tmp/sheet.cpp" <<'EOF'
// usage: sheet OUT.png SIZE file.svg...   (exit status = number of invalid files)
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>
int main(int argc, char **argv) {
    QGuiApplication app(argc, argv);
    if (argc < 4) return 100;
    const int size = QString(argv[2]).toInt(), pad = size / 8, cols = 7;
    const int n = argc - 3, rows = (n + cols - 1) / cols;
    QImage sheet((size + 2 * pad) * cols, (size + 2 * pad) * rows, QImage::Format_ARGB32);
    sheet.fill(QColor("#c0c0c0"));
    QPainter p(&sheet);
    p.setRenderHint(QPainter::Antialiasing);
    int bad = 0;
    for (int i = 0; i < n; ++i) {
        QSvgRenderer r{QString(argv[3 + i])};
        if (!r.isValid()) { std::fprintf(stderr, "INVALID: %s\n", argv[3 + i]); ++bad; continue; }
        r.render(&p, QRectF(pad + (i % cols) * (size + 2 * pad), pad + (i / cols) * (size + 2 * pad), size, size));
    }
    p.end();
    sheet.save(argv[1]);
    return bad;
}
EOF
    if pkg-config --exists Qt6Svg Qt6Gui 2>/dev/null; then
        flags="$(pkg-config --cflags --libs Qt6Svg Qt6Gui)"
    else
        q=/usr/include/x86_64-linux-gnu/qt6
        flags="-I$q -I$q/QtCore -I$q/QtGui -I$q/QtSvg -lQt6Svg -lQt6Gui -lQt6Core"
    fi
    # shellcheck disable=SC2086
    g++ -std=c++20 -fPIC -O1 "$tmp/sheet.cpp" -o "$tmp/sheet" $flags
    for s in 24 48 128; do
        QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$tmp" "$tmp/sheet" "$out/qt-contact$s.png" "$s" "${files[@]}"
    done
fi
ls "$out"/contact*.png "$out"/qt-contact*.png 2>/dev/null
