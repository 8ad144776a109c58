#!/usr/bin/env python3
"""make_player_svgs.py - write the eight moving facings of Whisk the mouse.

Whisk is drawn once below, top-down and facing up, as a list of shapes.  Each
facing file (keypad numbering: 8 up, 9 up-right, 6 right, 3 down-right, 2 down,
1 down-left, 4 left, 7 up-left) turns that drawing about the centre (32,32),
then scales and moves it so that its ink (outlines and rim included) is centred
in the 64 x 64 box.  All facings share one scale, the largest at which none is
longer than LONG_SIDE units: the mouse fills its map cell, keeps its size as it
turns, and keeps a margin of at least 1.5 px at 32 px, so neighbours never touch.
player5.svg (sitting, facing the viewer) is hand-drawn separately.

Usage:  tools/make_player_svgs.py [OUTPUT_DIR]   (default: <repo>/assets/pictures)
"""
import math
import os
import re
import sys

# keypad digit -> clockwise rotation in degrees (0 = facing up)
FACINGS = {8: 0, 9: 45, 6: 90, 3: 135, 2: 180, 1: 225, 4: 270, 7: 315}
NAMES = {8: "up", 9: "up-right", 6: "right", 3: "down-right", 2: "down",
         1: "down-left", 4: "left", 7: "up-left"}

LONG_SIDE = 57.0      # ink size on the long side (rim included), in 64ths of the cell
MAX_SCALE = 1.0       # never drawn larger than designed

INK = "#2b211c"       # outline colour shared by all of Whisk's pictures
# A light, half-clear rim round the dark outline: it vanishes on a light board and
# keeps the silhouette apart from a dark one.
RIM = {"stroke": "#ffffff", "stroke_opacity": "0.55", "fill": "none"}
RIM_WIDTH = 1.3       # how far the rim reaches beyond the outline

DEFS = """\
  <defs>
    <radialGradient id="fur" gradientUnits="userSpaceOnUse" cx="32" cy="37.5" r="18.5">
      <stop offset="0" stop-color="#d7cbbe"/>
      <stop offset="0.6" stop-color="#ab9988"/>
      <stop offset="1" stop-color="#7f6d5e"/>
    </radialGradient>
    <radialGradient id="head" gradientUnits="userSpaceOnUse" cx="32" cy="15.5" r="16.5">
      <stop offset="0" stop-color="#e6ddd3"/>
      <stop offset="0.6" stop-color="#b9a999"/>
      <stop offset="1" stop-color="#8a7a6c"/>
    </radialGradient>
    <radialGradient id="ear" cx="0.5" cy="0.42" r="0.6">
      <stop offset="0" stop-color="#ffc3cf"/>
      <stop offset="1" stop-color="#ea8399"/>
    </radialGradient>
  </defs>
"""


K = 0.5523  # control point distance of a quarter circle drawn as one cubic


class Shape:
    """One SVG element of the drawing, points along its outline for the ink box and,
    for a filled and outlined shape, its outline as path data for the light rim."""

    def __init__(self, svg, points, stroke, outline=None):
        self.svg = svg
        self.points = points
        self.half = stroke / 2.0
        self.outline = outline


def _attrs(kw):
    return " ".join(f'{k.replace("_", "-")}="{v}"' for k, v in kw.items())


def _stroke(kw):
    return float(kw.get("stroke_width", 0)) if kw.get("stroke", "none") != "none" else 0.0


def _solid(kw):
    return kw.get("fill", "black") != "none" and _stroke(kw) > 0


def _num(v):
    return f"{v:.2f}".rstrip("0").rstrip(".")


def ellipse_d(cx, cy, rx, ry, rot=0):
    """An ellipse as four cubics (path data: SVG Tiny has no arcs)."""
    t = math.radians(rot)

    def pt(u, v):
        return f"{_num(cx + u * math.cos(t) - v * math.sin(t))} {_num(cy + u * math.sin(t) + v * math.cos(t))}"
    k, q = K * rx, K * ry
    return (f"M{pt(rx, 0)} C{pt(rx, q)} {pt(k, ry)} {pt(0, ry)} C{pt(-k, ry)} {pt(-rx, q)} {pt(-rx, 0)}"
            f" C{pt(-rx, -q)} {pt(-k, -ry)} {pt(0, -ry)} C{pt(k, -ry)} {pt(rx, -q)} {pt(rx, 0)} Z")


def _sample(d):
    """Points along path data of absolute M, L, Q, C and Z commands."""
    toks = re.findall(r"[MLQCZ]|-?\d+(?:\.\d+)?", d)
    pts, cur, i, cmd = [], (0.0, 0.0), 0, None
    while i < len(toks):
        if toks[i] in "MLQCZ":
            cmd = toks[i]
            i += 1
            if cmd == "Z":
                continue
        n = {"M": 1, "L": 1, "Q": 2, "C": 3}[cmd]
        ctrl = [(float(toks[i + 2 * k]), float(toks[i + 2 * k + 1])) for k in range(n)]
        i += 2 * n
        if n == 1:
            pts.append(ctrl[0])
        else:
            for step in range(1, 21):
                t = step / 20
                p = [cur] + ctrl  # de Casteljau
                while len(p) > 1:
                    p = [((1 - t) * a[0] + t * b[0], (1 - t) * a[1] + t * b[1]) for a, b in zip(p, p[1:])]
                pts.append(p[0])
        cur = ctrl[-1]
        if cmd == "M":
            cmd = "L"
    return pts


def circle(cx, cy, r, **kw):
    d = ellipse_d(cx, cy, r, r)
    return Shape(f'<circle cx="{cx}" cy="{cy}" r="{r}" {_attrs(kw)}/>', _sample(d), _stroke(kw),
                 d if _solid(kw) else None)


def ellipse(cx, cy, rx, ry, rot=0, **kw):
    d = ellipse_d(cx, cy, rx, ry, rot)
    tr = f' transform="rotate({rot} {cx} {cy})"' if rot else ""
    return Shape(f'<ellipse cx="{cx}" cy="{cy}" rx="{rx}" ry="{ry}"{tr} {_attrs(kw)}/>', _sample(d),
                 _stroke(kw), d if _solid(kw) else None)


def path(d, **kw):
    d = " ".join(d.split())
    return Shape(f'<path d="{d}" {_attrs(kw)}/>', _sample(d), _stroke(kw), d if _solid(kw) else None)


def raw(svg):
    """Detail that lies inside other shapes and does not count for the ink box."""
    return Shape(svg, [], 0)


TAIL = "M36 54 C41 58 48 57 50.5 52 C52.5 48 51.5 44 55 42"
BODY = ("M32 26 C41.5 26 47.5 33 47.5 41.5 C47.5 50 41 56 32 56"
        " C23 56 16.5 50 16.5 41.5 C16.5 33 22.5 26 32 26 Z")
HEAD = ("M32 3.5 C36 3.5 45.5 12.5 45.5 21.5 C45.5 28.5 39.5 32 32 32"
        " C24.5 32 18.5 28.5 18.5 21.5 C18.5 12.5 28 3.5 32 3.5 Z")

# Whisk, top-down, nose up, in drawing order.
MOUSE = [
    path(TAIL, fill="none", stroke=INK, stroke_width="5.6", stroke_linecap="round"),
    path(TAIL, fill="none", stroke="#f2a6b4", stroke_width="3", stroke_linecap="round"),
    # paws peeking out under the body
    ellipse(17.6, 34, 2.6, 3.2, -30, fill="#f4aab9", stroke=INK, stroke_width="1.4"),
    ellipse(46.4, 34, 2.6, 3.2, 30, fill="#f4aab9", stroke=INK, stroke_width="1.4"),
    ellipse(17.6, 49.5, 3, 4.2, -35, fill="#f4aab9", stroke=INK, stroke_width="1.4"),
    ellipse(46.4, 49.5, 3, 4.2, 35, fill="#f4aab9", stroke=INK, stroke_width="1.4"),
    path(BODY, fill="url(#fur)", stroke=INK, stroke_width="2.4", stroke_linejoin="round"),
    path(HEAD, fill="url(#head)", stroke=INK, stroke_width="2.4", stroke_linejoin="round"),
    # round ears at the back of the head, pink inside
    circle(18.8, 25, 7.4, fill="#a69482", stroke=INK, stroke_width="2.2"),
    circle(45.2, 25, 7.4, fill="#a69482", stroke=INK, stroke_width="2.2"),
    circle(19.1, 24.5, 4.8, fill="url(#ear)"),
    circle(44.9, 24.5, 4.8, fill="url(#ear)"),
    # whiskers
    path("M28.6 9.6 L21 7.8", fill="none", stroke=INK, stroke_width="1.1",
         stroke_linecap="round", stroke_opacity="0.7"),
    path("M28.6 11.4 L21.4 12.8", fill="none", stroke=INK, stroke_width="1.1",
         stroke_linecap="round", stroke_opacity="0.7"),
    path("M35.4 9.6 L43 7.8", fill="none", stroke=INK, stroke_width="1.1",
         stroke_linecap="round", stroke_opacity="0.7"),
    path("M35.4 11.4 L42.6 12.8", fill="none", stroke=INK, stroke_width="1.1",
         stroke_linecap="round", stroke_opacity="0.7"),
    # eyes with a glint, nose
    raw('<ellipse cx="26.2" cy="16" rx="2.7" ry="3.3" fill="#1a1210"/>'),
    raw('<ellipse cx="37.8" cy="16" rx="2.7" ry="3.3" fill="#1a1210"/>'),
    raw('<circle cx="25.4" cy="14.8" r="1.1" fill="#ffffff"/>'),
    raw('<circle cx="37" cy="14.8" r="1.1" fill="#ffffff"/>'),
    circle(32, 5.4, 3.2, fill="#f2768f", stroke=INK, stroke_width="1.5"),
    raw('<circle cx="31" cy="4.4" r="0.9" fill="#ffffff" fill-opacity="0.85"/>'),
]


def rim(shapes, tail_width, outline_width):
    """The light rim: one path round every filled, outlined shape (one path, so that
    its overlaps are not doubled), and a wider stroke along the tail."""
    tail = path(TAIL, stroke_width=_num(tail_width + 2 * RIM_WIDTH), stroke_linecap="round", **RIM)
    body = path(" ".join(sh.outline for sh in shapes if sh.outline is not None),
                stroke_width=_num(outline_width + 2 * RIM_WIDTH), stroke_linejoin="round", **RIM)
    return [tail, body]


DRAWING = rim(MOUSE, 5.6, 2.4) + MOUSE


def ink_box(angle, scale=1.0):
    """The box that the drawing's ink covers after turning by ANGLE and scaling about (32,32)."""
    c, s = math.cos(math.radians(angle)), math.sin(math.radians(angle))
    x0 = y0 = math.inf
    x1 = y1 = -math.inf
    for shape in DRAWING:
        h = shape.half * scale
        for x, y in shape.points:
            u, v = x - 32, y - 32
            px, py = 32 + scale * (u * c - v * s), 32 + scale * (u * s + v * c)
            x0, x1 = min(x0, px - h), max(x1, px + h)
            y0, y1 = min(y0, py - h), max(y1, py + h)
    return x0, y0, x1, y1


def fit_scale():
    """One scale for every facing, so that Whisk keeps its size as it turns: the
    largest at which no facing's ink is longer than LONG_SIDE."""
    longest = 0.0
    for angle in FACINGS.values():
        x0, y0, x1, y1 = ink_box(angle)
        longest = max(longest, x1 - x0, y1 - y0)
    return min(MAX_SCALE, LONG_SIDE / longest)


def placement(angle):
    """Scale and offset that centre the turned drawing in the box."""
    scale = fit_scale()
    x0, y0, x1, y1 = ink_box(angle, scale)
    return scale, 32 - (x0 + x1) / 2, 32 - (y0 + y1) / 2


def svg(digit: int) -> str:
    angle = FACINGS[digit]
    scale, dx, dy = placement(angle)
    tr = (f"translate({32 + dx:.2f} {32 + dy:.2f}) scale({scale:.4f}) "
          f"rotate({angle}) translate(-32 -32)")
    body = "".join(f"    {s.svg}\n" for s in DRAWING)
    return (
        '<?xml version="1.0" encoding="UTF-8"?>\n'
        f'<!-- Skitterweb: Whisk the mouse, moving {NAMES[digit]} (keypad {digit}).'
        ' Generated by tools/make_player_svgs.py -->\n'
        '<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny"\n'
        '     width="64" height="64" viewBox="0 0 64 64">\n'
        f"{DEFS}"
        f'  <g id="whisk" transform="{tr}">\n'
        f"{body}"
        "  </g>\n"
        "</svg>\n"
    )


def main() -> None:
    here = os.path.dirname(os.path.abspath(__file__))
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "assets", "pictures")
    os.makedirs(out, exist_ok=True)
    for digit in FACINGS:
        path_ = os.path.join(out, f"player{digit}.svg")
        with open(path_, "w", encoding="utf-8") as fh:
            fh.write(svg(digit))
        print(os.path.normpath(path_))


if __name__ == "__main__":
    main()
