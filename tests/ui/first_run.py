#!/usr/bin/python3
# A first run in an empty folder, as a new player meets it, read through AT-SPI and the window list:
# while each notice of the start is up it stands alone, and nothing on screen shows a counter's design
# placeholder or an empty board; once the notices are answered the window shows the first game drawn
# and the counters primed.
import subprocess

import pyatspi
from at_spi import app, pump, table_names, walk


def on_screen():  # the program's objects that are showing
    return [o for o in walk(app()) if o.getState().contains(pyatspi.STATE_SHOWING)] if app() else []


def xdotool(*args):
    return subprocess.run(["xdotool", *args], capture_output=True, text=True).stdout.split("\n")[:-1]


def board_cells():  # the names of the board's cells, when the board is showing
    board = next((o for o in on_screen() if o.getRole() == pyatspi.ROLE_TABLE and o.name == "Map"), None)
    return board and list(table_names(board).values())


PLACEHOLDERS = ("999,999,999", "Reconnects: 9999", "Sites Hit: 9999", "Viruses: 9999")
for title in ("Error: LoadOptions", "Error: LoadHighScoresError"):
    windows = lambda: xdotool("search", "--onlyvisible", "--name", ".", "getwindowname", "%@")
    assert pump(30, lambda: windows() == [title] and title in [o.name for o in on_screen()]), \
        f"the notice {title} does not stand alone: windows {windows()}"
    shown = [o.name for o in on_screen()]
    assert not [n for n in shown if any(p in n for p in PLACEHOLDERS)], f"placeholders under {title}: {shown}"
    assert set(board_cells() or ["Whisk"]) != {"empty"}, f"an empty board under {title}"
    xdotool("windowfocus", "--sync", xdotool("search", "--onlyvisible", "--name", f"^{title}$")[0], "key", "Return")

assert pump(30, lambda: board_cells()), "no board after the notices"
drawn, shown = board_cells(), {o.name for o in on_screen()}
assert (drawn.count("Whisk"), drawn.count("virus")) == (1, 7), f"the first site: {sorted(set(drawn))}"
primed = {"Score: 0", "High Score: 0", "Reconnects: 2", "Sites Hit: 0", "Viruses: 7"}
assert primed <= shown, f"counters shown: {sorted(n for n in shown if ':' in n)}"
print("first run: each notice alone, no placeholder or empty board; then the board and the primed counters")
