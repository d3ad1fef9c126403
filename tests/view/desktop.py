"""A display without a screen, the viewer on it, and the hands and eyes of a person before it."""

import json
import os
import shutil
import subprocess
import tempfile
import time

# Seconds that anything may take: builds with sanitizers are slow, and machines are busy.
PATIENCE = 60


class Failure(Exception):
    pass


class Display:
    """An X server of its own, with its pixels in a file."""

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="tessera-display-")
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset",
             "-fbdir", self.folder.name],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise Failure("Xvfb did not start")
        self.name = ":" + number

    def environment(self):
        environment = {key: value for key, value in os.environ.items()
                       if key not in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        environment.update(DISPLAY=self.name, LC_ALL="C.UTF-8", QT_SCALE_FACTOR="1")
        suppressions = os.path.join(os.path.dirname(os.path.abspath(__file__)), "lsan.supp")
        environment["LSAN_OPTIONS"] = f"suppressions={suppressions}:print_suppressions=0"
        return environment

    def xdotool(self, *arguments):
        result = subprocess.run(["xdotool", *map(str, arguments)], env=self.environment(), text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        return result.stdout.strip() if result.returncode == 0 else ""

    def windows(self, title):
        """The visible windows whose whole title matches."""
        found = self.xdotool("search", "--onlyvisible", "--name", "^" + title + "$")
        return found.split()

    def picture(self, path):
        """Writes what the screen shows, as the server's own dump (XWD)."""
        shutil.copy(os.path.join(self.folder.name, "Xvfb_screen0"), path)

    def stop(self):
        self.server.terminate()
        self.server.wait()
        self.folder.cleanup()


class Viewer:
    """`tessera view FILE` on a display; its state file stands in for the eyes."""

    def __init__(self, display, program, *arguments, expect_window=True):
        self.display = display
        self.folder = tempfile.TemporaryDirectory(prefix="tessera-state-")
        self.state_path = os.path.join(self.folder.name, "state.json")
        self.process = subprocess.Popen(
            [program, "view", "--state", self.state_path, *arguments], env=display.environment(),
            stderr=subprocess.PIPE, text=True)
        self.state = {}
        if expect_window:
            self.focus_window(r".* - Tessera|.*\* - Tessera|Tessera")
            self.wait("the grid has the keyboard", lambda s: s.get("keyboard") == "grid")

    # Looking

    def look(self):
        try:
            with open(self.state_path, encoding="utf-8") as file:
                self.state = json.load(file)
        except FileNotFoundError:
            pass
        return self.state

    def wait(self, what, condition):
        end = time.monotonic() + PATIENCE
        while True:
            if condition(self.look()):
                return self.state
            if self.process.poll() is not None:
                raise Failure(f"the viewer ended ({self.process.returncode}): {self.process.stderr.read()}")
            if time.monotonic() > end:
                raise Failure(f"waited in vain until {what}")
            time.sleep(0.02)

    def expect(self, **values):
        """Waits until the state has all of these values."""
        self.wait(str(values), lambda s: all(s.get(key) == value for key, value in values.items()))
        return self

    def expect_end(self):
        """Waits for the program to end and returns its exit code."""
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired as error:
            raise Failure("the viewer does not end") from error

    # Acting

    def focus_window(self, title):
        """There is no window manager: whoever looks at a window gives it the keyboard."""
        self.wait(f"there is a window {title}", lambda _: self.display.windows(title))
        window = self.display.windows(title)[-1]
        self.display.xdotool("windowfocus", "--sync", window)
        return self

    def key(self, *names):
        self.display.xdotool("key", "--delay", "20", *names)
        return self

    def type(self, text):
        self.display.xdotool("type", "--delay", "20", text)
        return self

    def point(self, x, y):
        """A client point of the grid on the screen."""
        left, top = self.state["client"][:2]
        return left + x, top + y

    def move(self, x, y):
        self.display.xdotool("mousemove", *self.point(x, y))
        return self

    def press(self, x, y):
        self.move(x, y)
        self.display.xdotool("mousedown", 1)
        return self

    def release(self):
        self.display.xdotool("mouseup", 1)
        return self

    def click(self, x, y, button=1):
        self.move(x, y)
        self.display.xdotool("click", button)
        return self

    def cell(self, row, column):
        """The middle of a cell on the page."""
        left, top, right, bottom = self.state["views"][column]
        row_top = self.state["firstRowTop"] + (row - self.state["top"]) * self.state["rowHeight"]
        return (left + right) // 2, row_top + (top + bottom) // 2

    def header(self, column):
        left, top, right, bottom = self.state["headers"][column]
        return (left + right) // 2, (top + bottom) // 2

    def click_cell(self, row, column):
        self.click(*self.cell(row, column))
        self.expect(row=row, column=column)
        return self

    def dialog(self, title, *keys, text=None, back=None):
        """Answers a window of its own by a text and keys, then looks at the window `back` if there is one."""
        self.focus_window(title)
        if text:
            self.type(text)
        self.key(*keys)
        if back:
            self.expect_no_window(title)
            self.focus_window(back)
        return self

    def expect_no_window(self, title):
        self.wait(f"the window {title} is gone", lambda _: not self.display.windows(title))
        return self

    def stop(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.process.stderr.close()
        self.folder.cleanup()
