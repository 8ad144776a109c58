#!/usr/bin/python3
# The running game as a screen reader finds it through AT-SPI: the board is a focused table of
# named cells that follows a move, the lag bar a progress bar, no name holds an access-key marker
# or an internal name, a turn's news and a review key are spoken without moving the focus, every
# Controls box and its list are named by what they are for, a message box is an alert with its text,
# and the webmaster lists are a table.
import re
import subprocess
import time

import pyatspi
from at_spi import app, pump, table_names, walk
from gi.repository import GLib

events = []
pyatspi.Registry.registerEventListener(events.append, "object:state-changed:showing",
                                       "object:property-change:accessible-name")


def press(*keys):
    for key in keys:
        subprocess.run(["xdotool", "key", "--clearmodifiers", key], check=True)
        time.sleep(0.5)


def find(role, name=None):
    return next((o for o in walk(app()) if o.getRole() == role and name in (None, o.name)), None)


def window(role, name=None):  # a window on screen; one that closes as it is looked at is none
    for w in app():
        try:
            if w.getRole() == role and name in (None, w.name) and w.getState().contains(pyatspi.STATE_SHOWING):
                return w
        except (AttributeError, GLib.GError):
            pass
    return None


def click(box, names):  # a box's button, pressed as a screen reader's user can
    button = next(o for o in walk(box) if o.getRole() == pyatspi.ROLE_PUSH_BUTTON and o.name in names)
    button.queryAction().doAction(0)


def menu(key, item_key, role, name):  # picks a menu item by its keys, once the menu is on screen, until
    # the window it opens shows; again when a late change of the active window closed the menu first
    for _ in range(3):
        mark = len(events)
        press(key)

        def popup(showing):
            return any(e.type.endswith("showing") and e.detail1 == showing and
                       e.source.getRole() == pyatspi.ROLE_POPUP_MENU for e in events[mark:])
        assert pump(20, lambda: popup(1)), f"no menu on screen after {key}"
        press(item_key)
        if pump(20, lambda: window(role, name) or popup(0)) and pump(20, lambda: window(role, name)):
            return window(role, name)
    raise AssertionError(f"no {name} after {key} {item_key}")


def said(since):  # what the game's notification spoke after event number `since`
    return [e.source.name for e in events[since:] if e.type.endswith("showing") and e.detail1
            and e.source.getRole() == pyatspi.ROLE_NOTIFICATION]


board = find(pyatspi.ROLE_TABLE, "Map")
board_focused = lambda: board.getState().contains(pyatspi.STATE_FOCUSED)  # noqa: E731
t = board.queryTable()
assert ((t.nRows, t.nColumns, board.childCount, board.getChildAtIndex(335).getRole()) ==
      (14, 24, 336, pyatspi.ROLE_TABLE_CELL)), "the board is no table of 14 x 24 cells"
assert pump(20, board_focused), "the board does not have the focus"
names = [o.name for o in walk(board.parent.parent)]
bad = [n for n in names if "&" in n or re.match(r"(frm|lbl|lb|cmd|cmb|men|shp|pbr|pct|grd)[A-Z(]|announcer$", n)]
assert not bad, f"names with a marker or an internal name: {bad}"
bar = find(pyatspi.ROLE_PROGRESS_BAR, "Net Lag")
value = bar.queryValue()
assert (value.currentValue, value.maximumValue, bar.description) == (0, 13, "lag: blue"), "the lag bar"

# A move away from the viruses (on a new game if the site leaves none): the cells and the news follow.
MOVES = {(-1, 0): "8", (1, 0): "2", (0, -1): "4", (0, 1): "6", (-1, -1): "7", (-1, 1): "9", (1, -1): "1", (1, 1): "3"}
for _ in range(5):
    before = table_names(board)
    assert set(before.values()) <= {"Whisk", "virus", "empty"}, f"cells read {set(before.values())}"
    whisk = next(k for k, v in before.items() if v == "Whisk")
    viruses = [k for k, v in before.items() if v == "virus"]
    to, key = next(((w, k) for (dr, dc), k in MOVES.items() for w in [(whisk[0] + dr, whisk[1] + dc)]
                    if 0 <= w[0] < 14 and 0 <= w[1] < 24 and all(max(abs(v[0] - w[0]), abs(v[1] - w[1])) > 1
                                                              for v in viruses)), (None, None))
    if key:
        break
    click(menu("alt+g", "n", pyatspi.ROLE_ALERT, "Start New Game"), ("Yes",))
mark = len(events)
press(key)
assert pump(20, lambda: said(mark)), "no news after a turn"
after = table_names(board)
assert after[to] == "Whisk" and after[whisk] != "Whisk" and f"Whisk at {to[1] + 1}, {to[0] + 1}." in said(mark)[0], \
    f"Whisk moved to {to}: the cells read {after[whisk]} -> {after[to]}; the news: {said(mark)}"
renamed = {e.source.name for e in events[mark:] if e.type.endswith("name")}
assert {"Whisk", after[whisk]} <= renamed, f"names changed: {renamed}"

# A review key reads the next cell and plays no turn.
mark = len(events)
press("Right" if to[1] < 23 else "Left")
assert pump(20, lambda: said(mark)) and re.fullmatch(r"[a-z ]+, 1 (right|left)", said(mark)[0]), f"review: {said(mark)}"
assert table_names(board) == after and board_focused(), "the review key changed the board or the focus"

# The Controls key boxes, by command and key; the focus back on the board when the dialog closes.
combos = [o for o in walk(menu("alt+o", "c", pyatspi.ROLE_DIALOG, "Controls")) if o.getRole() == pyatspi.ROLE_COMBO_BOX]
boxes = {o.name: o.description for o in combos}
assert {"Up/Left": "7", "Pause": "5", "Wait": "0", "Link": "+"}.items() <= boxes.items(), f"key boxes: {boxes}"
lists = {o.name: [c.name for c in o if c.getRole() == pyatspi.ROLE_LIST] for o in combos}
assert len(lists) == 12 and all(v == [k] for k, v in lists.items()) and "Control Profile" in lists, \
    f"boxes and their lists: {lists}"
press("Escape")
assert pump(20, board_focused), "the board has no focus after the Controls dialog"

# A message box: an alert with its text and an Ok button; the focus back on the board after it.
inside = [(o.getRole(), o.name) for o in walk(menu("alt+h", "a", pyatspi.ROLE_ALERT, "About Skitterweb"))]
assert (pyatspi.ROLE_PUSH_BUTTON, "Ok") in inside and any("Version 1.14" in n for _, n in inside), f"alert: {inside}"
press("Return")
assert pump(20, board_focused), "the board has no focus after the message box"


# The webmaster lists: a table of ten rows under its headings, named and captioned with the list shown,
# a name's cell holding its place's box; the focus back on the board after it.
lists = menu("alt+g", "w", pyatspi.ROLE_DIALOG, "Webmaster Lists")
table = next(o for o in walk(lists) if o.getRole() == pyatspi.ROLE_TABLE)
t, rows = table.queryTable(), table_names(table)
heads, box = [t.getColumnDescription(c) for c in range(4)], t.getAccessibleAt(0, 1).getChildAtIndex(0)
assert (len(rows), heads, table.name, t.caption.name, rows[0, 0], box.name) == \
    (40, ["Place", "Webmaster Name", "Sites Hit", "Score"], "All Time, Normal", "All Time, Normal", "1", "Place 1 name"), \
    f"the lists' table: {len(rows)} cells, {heads}, named {table.name}, caption {t.caption.name}, {rows[0, 0]} {box.name}"
click(lists, ("Done",))
assert pump(20, board_focused), "the board has no focus after the webmaster lists"
