# What the whole-program tests share to read the game through the accessibility bus (AT-SPI).
import time

import pyatspi
from gi.repository import GLib


def pump(seconds, until):  # runs the bus's events until `until()` holds, or for `seconds`; its last value
    end = time.time() + seconds
    while time.time() < end and not until():
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.02)
    return until()


def app():  # the game's application object, None while it is not on the bus
    return next((a for a in pyatspi.Registry.getDesktop(0) if a is not None and a.name == "Skitterweb"), None)


def walk(obj):  # an object and all below it; a table's cells are read through its table interface
    yield obj
    for child in obj if obj.getRole() != pyatspi.ROLE_TABLE else []:
        yield from walk(child)


def table_names(table):  # the names of a table's cells, row by row
    t = table.queryTable()
    return {(r, c): t.getAccessibleAt(r, c).name for r in range(t.nRows) for c in range(t.nColumns)}
