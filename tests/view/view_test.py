#!/usr/bin/env python3
"""Drives the viewer by mouse and keyboard and reads back what it saved.

usage: view_test.py PROGRAM SOURCES SCENARIO
"""

import os
import shutil
import sqlite3
import subprocess
import sys
import tempfile

from desktop import Display, Failure, Viewer

CITIES = """NAME,PEOPLE,AREA
Bonn,336465,141.06
Mainz,222889,97.73
Trier,112195,117.06
Ulm,128928,118.69
Gera,94847,152.18
Jena,111191,114.77
"""


class Bench:
    """What a scenario works with: a display, a folder, the program."""

    def __init__(self, program, sources):
        self.program = program
        self.sources = sources
        self.folder = tempfile.TemporaryDirectory(prefix="tessera-view-")
        self.display = Display()
        self.viewers = []

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), encoding="utf-8") as file:
            return file.read()

    def example(self, *names):
        for name in names:
            shutil.copy(os.path.join(self.sources, "examples", name), self.path(name))
        return self.path(names[0])

    def view(self, *arguments, **options):
        self.viewers.append(Viewer(self.display, self.program, *arguments, **options))
        return self.viewers[-1]

    def run(self, *arguments, **environment):
        base = {key: value for key, value in self.display.environment().items() if key != "DISPLAY"}
        return subprocess.run([self.program, *arguments], env={**base, **environment}, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False, timeout=120)

    def stop(self):
        for viewer in self.viewers:
            viewer.stop()
        self.display.stop()
        self.folder.cleanup()


def check(actual, expected, what):
    if actual != expected:
        raise Failure(f"{what}: {actual!r} instead of {expected!r}")


def tall(rows):
    return "NO,NAME\n" + "".join(f"{i},name {i * 7919 % rows}\n" for i in range(1, rows + 1))


# Scenarios


def csv(bench):
    """Typing, Enter, Escape, F2, rows that come and go, saving."""
    viewer = bench.view(bench.write("cities.csv", CITIES))
    viewer.expect(title="cities.csv - Tessera", row=1, column="NAME", rows=6, text="Bonn").click_cell(2, "NAME")
    viewer.type("Worms").expect(edit="Worms", text="Mainz", keyboard="editor").key("Return")
    viewer.expect(text="Worms", keyboard="grid", title="cities.csv* - Tessera").type("nonsense")
    viewer.expect(edit="nonsense").key("Escape")
    state = viewer.expect(text="Worms", keyboard="grid").state
    check(state.get("edit"), None, "the editor after Escape")
    viewer.key("F2").expect(edit="Worms", keyboard="editor").key("End").type("!")
    # The commands on rows are none while a text is being edited.
    viewer.key("ctrl+Delete", "ctrl+i", "ctrl+shift+i").expect(edit="Worms!", rows=6, keyboard="editor").key("Down")
    viewer.expect(row=3, column="NAME", text="Trier", keyboard="grid")
    for key, row, column in [("Right", 3, "PEOPLE"), ("End", 3, "AREA"), ("ctrl+Home", 1, "NAME"),
                             ("ctrl+End", 6, "AREA"), ("Home", 6, "NAME"), ("Page_Up", 1, "NAME"),
                             ("Page_Down", 6, "NAME"), ("Up", 5, "NAME")]:
        viewer.key(key).expect(row=row, column=column)
    viewer.key("ctrl+f").expect(keyboard="elsewhere", find="").type("Zeitz")
    viewer.key("ctrl+Delete", "ctrl+i", "ctrl+shift+i", "Return").expect(rows=6, find='No cell has "Zeitz".')
    viewer.key("Escape").expect(keyboard="grid", find=None).key("ctrl+i")
    viewer.expect(rows=7, row=5, column="NAME", text="").type("Zeitz").key("Return", "Right").type("26834")
    viewer.key("Return").expect(text="26834", row=5, column="PEOPLE").type("9x99999999").expect(edit="999999999")
    viewer.type("9").key("Return")
    viewer.expect(text="26834", said="The data does not take this text: the cell stays as it was.")
    viewer.type("12345678901").key("Escape").expect(text="26834", keyboard="grid", said="").click_cell(1, "NAME")
    viewer.key("ctrl+Delete").expect(rows=6, row=1, text="Worms!")
    check(bench.read("cities.csv"), CITIES, "the file before saving")
    viewer.key("ctrl+s").expect(title="cities.csv - Tessera", said="Saved.", row=1, column="NAME")
    check(bench.read("cities.csv"), "NAME,PEOPLE,AREA\nWorms!,222889,97.73\nTrier,112195,117.06\n"
          "Ulm,128928,118.69\nZeitz,26834,\nGera,94847,152.18\nJena,111191,114.77\n", "the file")
    bench.write("cities.csv", CITIES)
    viewer.key("F5").expect(row=1, column="NAME", text="Bonn", rows=6, keyboard="grid")
    # Leaving does not lose in silence what cannot be kept.
    viewer.click_cell(1, "PEOPLE").type("12345678901").key("ctrl+q")
    viewer.expect(text="336465", said="The data does not take this text: the cell stays as it was.").key("ctrl+q")
    check(viewer.expect_end(), 0, "the exit code")


def sqlite(bench):
    """Changes go to the table at once or, when the table refuses one of them, not at all."""
    path = bench.path("shop.sqlite")
    with sqlite3.connect(path) as database:
        database.executescript(
            "CREATE TABLE first(x); CREATE TABLE city(id INTEGER PRIMARY KEY, name TEXT NOT NULL, people INTEGER);"
            "INSERT INTO city VALUES(1,'Bonn',336465),(2,'Mainz',222889),(3,'Ulm',128928);")
    database.close()

    def table():
        connection = sqlite3.connect(path)
        rows = connection.execute("SELECT * FROM city ORDER BY id").fetchall()
        connection.close()
        return rows

    before = table()
    viewer = bench.view(path + ":city")
    viewer.expect(title="shop.sqlite:city - Tessera", rows=3).click_cell(2, "people").type("1").key("Return")
    viewer.expect(text="1").key("ctrl+shift+i").expect(rows=4, row=4).key("ctrl+s").focus_window("Not saved")
    check(table(), before, "the table after a refused save")
    viewer.key("Return").expect_no_window("Not saved").focus_window(r"shop.sqlite:city\* - Tessera")
    viewer.click_cell(4, "name").type("Jena").key("Return").click_cell(1, "name").key("ctrl+Delete")
    viewer.expect(rows=3, row=1, text="Mainz").key("ctrl+s").expect(title="shop.sqlite:city - Tessera", said="Saved.")
    check(table(), [(2, "Mainz", 1), (3, "Ulm", 128928), (4, "Jena", None)], "the table")


def cells(bench):
    """Lists and marks by mouse and keyboard, and the way of Tab."""
    form = bench.example("editors.xml", "editors.columns.xml", "editors.csv", "editors.mechanics.csv")
    viewer = bench.view(form)
    viewer.expect(rows=10, errors=0).click_cell(1, "state").expect(text="Waiting").key("Return")
    viewer.expect(list=True, keyboard="list").key("Down", "Return")
    viewer.expect(list=False, text="In progress", keyboard="grid")
    # The arrow stands at the right end of the cell.
    viewer.click(viewer.state["headers"]["state"][2] - 8, viewer.cell(1, "state")[1])
    viewer.expect(list=True).key("Up", "Up").key("Escape").expect(list=False, text="In progress", keyboard="grid")
    viewer.key("F2").expect(list=True)
    # The second line of the list below the cell, by the mouse.
    x, y = viewer.cell(2, "state")
    viewer.click(x, y + 4).expect(list=False, text="Waiting").click_cell(3, "paid")
    state = viewer.expect(text="1").state
    viewer.key("space").expect(text="0").click_cell(2, "price").type("5").key("F2")
    viewer.expect(said="This cell cannot be edited.", text="38.90", keyboard="grid").key("ctrl+f")
    viewer.expect(keyboard="elsewhere", find="").click_cell(4, "bike").expect(keyboard="grid").key("ctrl+End", "Home")
    viewer.expect(row=10, column="job")
    for column in ["bike", "customer", "code", "hours", "price", "note", "photo", "state", "mechanic", "paid", "next"]:
        viewer.key("Tab").expect(row=10, column=column)
    viewer.key("Tab")
    state = viewer.expect(keyboard="elsewhere", row=10, column="next").state
    check(state.get("edit"), None, "the editor after the last Tab")
    viewer.key("Escape").expect(find=None, keyboard="grid").key("shift+Tab").expect(row=10, column="paid")


def headers(bench):
    """Sorting by a header, taking the press back, dragging an edge, the wheel, the thumb."""
    viewer = bench.view(bench.write("tall.csv", tall(2000)))
    viewer.expect(rows=2000, row=1, top=1, text="1").click_cell(3, "NAME").expect(text="name 1757")
    at = viewer.header("NAME")
    viewer.press(*at).move(at[0], at[1] + 200).release().expect(text="name 1757", row=3, top=1).click(*at)
    viewer.expect(column="NAME", text="name 1757").key("ctrl+Home").expect(row=1, column="NO", text="2000")
    viewer.click(*viewer.header("NO"))
    viewer.wait("the rows are sorted by number", lambda s: s["row"] == 2000)
    viewer.key("ctrl+Home").expect(row=1, text="1")
    left, top, right, bottom = viewer.state["headers"]["NO"]
    viewer.press(right - 1, (top + bottom) // 2).move(right + 20, (top + bottom) // 2)
    viewer.move(right + 59, (top + bottom) // 2).release()
    viewer.wait("the column is wider", lambda s: s["headers"]["NO"] == [left, top, right + 60, bottom])
    check(viewer.state["headers"]["NAME"][0], right + 60, "the next column's left")
    viewer.move(*viewer.cell(5, "NAME"))
    bench.display.xdotool("click", 5)
    state = viewer.wait("the wheel scrolls", lambda s: s["top"] > 1)
    bench.display.xdotool("click", 4)
    viewer.expect(top=1, row=1)
    # The thumb is short: the arrow at the top is above it.
    height = state["client"][3] - state["client"][1]
    bar = state["client"][2] - state["client"][0] + 8
    viewer.press(bar, 24).move(bar, height // 4).move(bar, height // 2)
    state = viewer.wait("the thumb scrolls while it is dragged", lambda s: 600 < s["top"] < 1400)
    viewer.release()
    check(state["row"], 1, "the focus row while scrolling")
    # In the order of reading nothing is left to save.
    check(state["title"], "tall.csv - Tessera", "the title")
    viewer.click(*viewer.header("NAME"))
    viewer.expect(title="tall.csv* - Tessera").key("ctrl+s").expect(title="tall.csv - Tessera", said="Saved.")
    check(bench.read("tall.csv").split("\n")[:3], ["NO,NAME", "2000,name 0", "1679,name 1"], "the start of the file")


def find(bench):
    """The find bar, also on rows that take long to look through."""
    viewer = bench.view(bench.write("cities.csv", CITIES))
    viewer.key("ctrl+f").expect(find="", keyboard="elsewhere").type("ER").key("Return")
    viewer.expect(row=3, column="NAME", find="Row 3, column NAME").key("F3").expect(row=5, text="Gera").key("F3")
    viewer.expect(row=3, find="Row 3, column NAME, around the end").key("shift+F3").expect(row=5).key("ctrl+a")
    viewer.type("nowhere").key("Return").expect(find='No cell has "nowhere".', row=5).key("Escape")
    viewer.expect(find=None, keyboard="grid", row=5, column="NAME").key("ctrl+f", "ctrl+a").type("114.77")
    viewer.key("Return").expect(row=6, column="AREA")
    viewer.stop()

    viewer = bench.view(bench.write("tall.csv", tall(1_000_000)))
    viewer.key("ctrl+f").type("nowhere").key("Return").expect(searching=True)
    viewer.wait("the bar tells how far it is", lambda s: " of 1000000." in (s["find"] or "").replace(",", ""))
    viewer.key("Escape").expect(searching=False, find="Stopped.")
    # From the grid as well.
    viewer.click_cell(2, "NAME").expect(keyboard="grid").key("F3").expect(searching=True).key("Escape")
    viewer.expect(searching=False, find="Stopped.", keyboard="grid").key("Escape").expect(find=None, keyboard="grid")
    viewer.key("ctrl+f", "ctrl+a").type("999999").key("Return")
    viewer.wait("the hit comes into view", lambda s: s["row"] == 982321 and 982200 < s["top"] <= 982321)


def clipboard(bench):
    """Copying a cell into another and into the find bar; what a cell does not take is not pasted."""
    viewer = bench.view(bench.write("cities.csv", CITIES))
    viewer.click_cell(2, "NAME").key("ctrl+v")
    viewer.expect(said="The clipboard has no text.", text="Mainz", title="cities.csv - Tessera").key("ctrl+c")
    viewer.expect(said="Copied.").click_cell(4, "NAME").key("ctrl+v")
    viewer.expect(text="Mainz", keyboard="grid", title="cities.csv* - Tessera")
    # While a cell is edited the keys are the edit box's own.
    viewer.click_cell(5, "NAME").key("F2").expect(edit="Gera").key("ctrl+c", "Escape", "Up").expect(row=4)
    viewer.key("ctrl+v").expect(text="Gera").click_cell(6, "NAME").key("ctrl+c", "ctrl+f", "ctrl+a", "ctrl+v", "Home")
    viewer.type("no ").key("Return").expect(find='No cell has "no Jena".')


def leaving(bench):
    """Nobody loses a change without being asked."""
    path = bench.write("cities.csv", CITIES)
    for way, expected in [("Escape", None), ("Discard", CITIES), ("Save", CITIES.replace("Bonn", "Kiel"))]:
        bench.write("cities.csv", CITIES)
        viewer = bench.view(path)
        viewer.type("Kiel").expect(edit="Kiel")
        for key in ["ctrl+o", "F5"]:
            viewer.key(key)
            viewer.dialog("Unsaved changes", "Escape", back=r"cities.csv\* - Tessera").expect(rows=6, text="Kiel")
        viewer.key("ctrl+q").focus_window("Unsaved changes")
        check(bench.read("cities.csv"), CITIES, "the file before the answer")
        viewer.key({"Escape": "Escape", "Discard": "alt+d", "Save": "Return"}[way])
        if expected is None:
            viewer.expect_no_window("Unsaved changes").expect(title="cities.csv* - Tessera", text="Kiel")
            viewer.stop()
            continue
        check(viewer.expect_end(), 0, "the exit code")
        check(bench.read("cities.csv"), expected, "the file after " + way)


def outside(bench):
    """What another program wrote meanwhile is not written over unasked; the way of writing stays."""
    path = bench.path("cities.csv")
    ours = CITIES.replace("Bonn", "Kiel")

    def write(text):
        with open(path, "wb") as file:
            file.write(b"\xef\xbb\xbf" + text.replace("\n", "\r\n").encode())

    def read():
        with open(path, "rb") as file:
            return file.read()

    write(CITIES)
    viewer = bench.view(path)
    viewer.type("Kiel").key("Return").expect(text="Kiel")
    write(CITIES + "Köln,1087353,405.02\n")
    theirs = read()
    viewer.key("ctrl+s")
    viewer.dialog("Changed outside", "Return", back=r"cities.csv\* - Tessera")
    check(read(), theirs, "the file after cancelling")
    viewer.key("ctrl+s").focus_window("Changed outside").key("alt+o")
    viewer.expect(said="Saved.", title="cities.csv - Tessera")
    check(read(), b"\xef\xbb\xbf" + ours.replace("\n", "\r\n").encode(), "the file")
    viewer.focus_window(r"cities.csv - Tessera").type("Jena").key("ctrl+s")
    viewer.expect(said="Saved.", text="Jena", title="cities.csv - Tessera")


def opening(bench):
    """Another file by the dialog, a file that is none, a picture of the grid, a reading that is stopped."""
    bench.write("other.csv", "A,B\n1,2\n")
    bench.write("broken.csv", "A,B\n1\n")
    viewer = bench.view(bench.write("cities.csv", CITIES))
    viewer.key("ctrl+o")
    viewer.dialog("Open", "Return", text=bench.path("broken.csv"))
    viewer.dialog("Not opened", "Return", back="cities.csv - Tessera").expect(rows=6, title="cities.csv - Tessera")
    viewer.key("ctrl+p").focus_window("Save as picture").key("ctrl+a")
    viewer.dialog("Save as picture", "Return", text=bench.path("grid"))
    viewer.wait("the picture is there", lambda s: s["said"].startswith("The picture is in"))
    with open(bench.path("grid.png"), "rb") as file:
        check(file.read(8), b"\x89PNG\r\n\x1a\n", "the start of the picture")
    viewer.focus_window("cities.csv - Tessera")
    # A picture that is there is replaced only after a question.
    bench.write("grid.png", "old")
    viewer.key("ctrl+p").focus_window("Save as picture").key("ctrl+a")
    viewer.dialog("Save as picture", "Return", text=bench.path("grid"))
    viewer.wait("there is a question", lambda _: len(bench.display.windows("Save as picture")) == 2)
    viewer.focus_window("Save as picture").key("Escape")
    viewer.wait("the question is gone", lambda _: len(bench.display.windows("Save as picture")) == 1)
    viewer.focus_window("Save as picture").key("Escape").expect_no_window("Save as picture")
    check(bench.read("grid.png"), "old", "the picture that was there")
    viewer.focus_window("cities.csv - Tessera").key("ctrl+o")
    viewer.dialog("Open", "Return", text=bench.path("other.csv"))
    viewer.expect(title="other.csv - Tessera", rows=1, text="1")
    viewer.stop()

    # A faulty form still opens, and says what is wrong; an empty window opens whatever it is given.
    bench.write("faulty.xml", """<form><dataset id="d" file="cities.csv"/><grid id="g">
      <property name="DataID">d</property><property name="MenuInfo">no menu</property></grid></form>""")
    viewer = bench.view(expect_window=False)
    viewer.focus_window("Tessera").key("ctrl+s", "F3", "ctrl+Delete").key("ctrl+o")
    viewer.dialog("Open", "Return", text=bench.path("faulty.xml"))
    viewer.expect(title="faulty.xml - Tessera", errors=1, said="Parsing Error, MenuInfo", rows=6)
    viewer.stop()

    # Rows without end: only a person stops them.
    sqlite3.connect(bench.path("empty.sqlite")).execute("VACUUM").connection.close()
    bench.write("endless.xml", """<form><dataset id="d" database="empty.sqlite"
      query="WITH RECURSIVE c(n) AS (VALUES(1) UNION ALL SELECT n + 1 FROM c) SELECT n FROM c WHERE n &lt; 0"/>
      <grid id="g"><property name="DataID">d</property></grid></form>""")
    # Nothing can be done to what is open while another file is read.
    viewer = bench.view(bench.path("cities.csv"))
    viewer.key("ctrl+o")
    viewer.dialog("Open", "Return", text=bench.path("endless.xml")).expect_no_window("Open")
    viewer.focus_window("cities.csv - Tessera").type("lost").key("Return", "ctrl+Delete").focus_window("Opening")
    viewer.key("Escape").expect(said="The reading was stopped.", title="cities.csv - Tessera", rows=6, text="Bonn")
    viewer.focus_window("cities.csv - Tessera").type("kept").expect(edit="kept")
    viewer.stop()
    viewer = bench.view(bench.path("endless.xml"), expect_window=False)
    viewer.focus_window("Opening").key("Escape")
    check(viewer.expect_end(), 0, "the exit code after stopping")


def refusals(bench):
    """No display, no answer from it, and files that cannot be read: one message and 2."""
    cities = bench.write("cities.csv", CITIES)
    bench.write("broken.csv", "A,B\n1\n")
    rows = [
        ({}, cities, "tessera: there is no display to show a window on (DISPLAY is not set)\n"),
        ({"DISPLAY": ":65000"}, cities, None),
    ]
    for name in ["broken.csv", "gone.xml", "gone.sqlite"]:
        same = bench.run("render", bench.path(name), bench.path("out.png"))
        check(same.returncode, 2, "the exit code of render")
        rows.append(({"DISPLAY": bench.display.name}, bench.path(name), same.stderr))
    for environment, path, message in rows:
        result = bench.run("view", path, **environment)
        check(result.returncode, 2, f"the exit code of {path} with {environment}")
        if message is None:
            check(result.stderr.startswith("tessera: the display cannot be used: "), True, result.stderr)
            check(result.stderr.count("\n"), 1, result.stderr)
        else:
            check(result.stderr, message, "the message")
    # What needs no display does without.
    check(bench.run("eval", "1+1").stdout, "2\n", "an expression")


SCENARIOS = {row.__name__: row for row in
             [csv, sqlite, cells, headers, find, clipboard, leaving, outside, opening, refusals]}


def main():
    program, sources, name = sys.argv[1:]
    bench = Bench(os.path.abspath(program), sources)
    try:
        SCENARIOS[name](bench)
    except Failure as failure:
        print(f"{name}: {failure}", file=sys.stderr)
        if bench.viewers:
            print(bench.viewers[-1].look(), file=sys.stderr)
        picture = os.path.abspath(f"view_{name}_failed.xwd")
        bench.display.picture(picture)
        print(f"the screen is in {picture}", file=sys.stderr)
        return 1
    finally:
        bench.stop()
    return 0


if __name__ == "__main__":
    sys.exit(main())
