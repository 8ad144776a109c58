#!/usr/bin/python3
# The running game as a screen reader finds it through AT-SPI: the board is a focused table of
# named cells that follows a move, the lag bar a progress bar, no name holds an access-key marker
# or an internal name, a turn's news and a review key are spoken without moving the focus, every
# Controls box and its list are named by what they are for, a message box is an alert with its text,
# and a game that earns a place opens the webmaster lists as a table, saying which place and score.
import re
import subprocess
import time

import pyatspi
from gi.repository import GLib

events = []
pyatspi.Registry.registerEventListener(events.append, "object:state-changed:showing",
                                       "object:property-change:accessible-name")


def pump(seconds, until):
    end = time.time() + seconds
    while time.time() < end and not until():
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.02)
    return until()


def press(*keys):
    for key in keys:
        subprocess.run(["xdotool", "key", "--clearmodifiers", key], check=True)
        time.sleep(0.5)


def walk(obj):
    yield obj
    for child in obj if obj.getRole() != pyatspi.ROLE_TABLE else []:
        yield from walk(child)


def find(role, name=None):
    app = next(a for a in pyatspi.Registry.getDesktop(0) if a is not None and a.name == "Skitterweb")
    return next((o for o in walk(app) if o.getRole() == role and name in (None, o.name)), None)


def window(role, name=None):  # a window on screen; one that closes as it is looked at is none
    app = next(a for a in pyatspi.Registry.getDesktop(0) if a is not None and a.name == "Skitterweb")
    for w in app:
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


def cells():
    t = board.queryTable()
    return {(r, c): t.getAccessibleAt(r, c).name for r in range(t.nRows) for c in range(t.nColumns)}


def board_focused():
    return board.getState().contains(pyatspi.STATE_FOCUSED)


board = find(pyatspi.ROLE_TABLE, "Map")
t = board.queryTable()
assert ((t.nRows, t.nColumns, board.childCount, board.getChildAtIndex(335).getRole()) ==
      (14, 24, 336, pyatspi.ROLE_TABLE_CELL)), "the board is no table of 14 x 24 cells"
assert pump(20, board_focused), "the board does not have the focus"
names = [o.name for o in walk(board.parent.parent)]
bad = [n for n in names if "&" in n or re.match(r"(frm|lbl|lb|cmd|cmb|men|shp|pbr|pct|grd)[A-Z(]|announcer$", n)]
assert not bad, f"names with a marker or an internal name: {bad}"
assert "Score: 0" in names and "Viruses: 7" in names, "the counters are not read with their captions"
bar = find(pyatspi.ROLE_PROGRESS_BAR, "Net Lag")
value = bar.queryValue()
assert (value.currentValue, value.maximumValue, bar.description) == (0, 13, "lag: blue"), "the lag bar"

# A move away from the viruses (on a new game if the site leaves none): the cells and the news follow.
MOVES = {(-1, 0): "8", (1, 0): "2", (0, -1): "4", (0, 1): "6", (-1, -1): "7", (-1, 1): "9", (1, -1): "1", (1, 1): "3"}
for _ in range(5):
    before = cells()
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
after = cells()
assert after[to] == "Whisk" and after[whisk] != "Whisk" and f"Whisk at {to[1] + 1}, {to[0] + 1}." in said(mark)[0], \
    f"Whisk moved to {to}: the cells read {after[whisk]} -> {after[to]}; the news: {said(mark)}"
assert after[whisk] == "empty" or any(max(abs(v[0] - whisk[0]), abs(v[1] - whisk[1])) <= 2 for v in viruses), \
    f"Whisk's old cell reads {after[whisk]}"
renamed = {e.source.name for e in events[mark:] if e.type.endswith("name")}
assert {"Whisk", after[whisk]} <= renamed, f"names changed: {renamed}"

# A review key reads the next cell and plays no turn.
mark = len(events)
press("Right" if to[1] < 23 else "Left")
assert pump(20, lambda: said(mark)) and re.fullmatch(r"[a-z ]+, 1 (right|left)", said(mark)[0]), f"review: {said(mark)}"
assert cells() == after and board_focused(), "the review key changed the board or the focus"

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


# A game played to its end with a score: the lists open for the new name, as a table of ten rows with
# the list shown as its caption; the caret in the row earned, and the dialog says which place and score.
main = window(pyatspi.ROLE_FRAME, "Skitterweb")
for _ in range(600):
    if pump(0.5, lambda: window(pyatspi.ROLE_DIALOG, "Webmaster Lists")):
        break
    if box := window(pyatspi.ROLE_ALERT):
        click(box, ("Ok", "Yes"))  # the game goes on; a game that scored nothing is played again
        pump(20, lambda: window(pyatspi.ROLE_ALERT) is None)
    else:
        subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Skitterweb$", "windowfocus"])
        press("0")  # wait: the viruses come
webmasters = window(pyatspi.ROLE_DIALOG, "Webmaster Lists")
assert webmasters, "no game earned a place"
table = next(o for o in walk(webmasters) if o.getRole() == pyatspi.ROLE_TABLE)
t = table.queryTable()
heads, caption = [t.getColumnDescription(c) for c in range(t.nColumns)], t.caption.name if t.caption else None
assert (t.nRows, heads, table.name, caption) == (10, ["Place", "Webmaster Name", "Sites Hit", "Score"],
                                                 "All Time, Normal", "All Time, Normal"), \
    f"the lists' table: {t.nRows} rows, {heads}, named {table.name}, caption {caption}"
row = [t.getAccessibleAt(0, c) for c in range(4)]
score, box = row[3].name, row[1].getChildAtIndex(0)
assert row[0].name == "1" and f"Score: {score}" in [o.name for o in walk(main)] and score != "0", \
    f"place 1 reads {[c.name for c in row]}"
names = [t.getAccessibleAt(r, 1).getChildAtIndex(0).name for r in range(10)]
assert names == [f"Place {r} name" for r in range(1, 11)], f"the name boxes: {names}"
assert pump(20, lambda: box.getState().contains(pyatspi.STATE_FOCUSED)), "the caret is not in the row earned"
assert webmasters.description == f"All Time, Normal: place 1, score {score}. Type your name.", \
    f"the lists say: {webmasters.description!r}"
radios = {o.name: o.description for o in walk(webmasters) if o.getRole() == pyatspi.ROLE_RADIO_BUTTON}
assert radios == {**dict.fromkeys(["Personal", "All Time"], "Score Board"),
                  **dict.fromkeys(["Easy", "Normal", "Hard", "Nightmare"], "Difficulty")}, f"the lists' rows: {radios}"
click(webmasters, ("Done",))
