"""A swatch on a real desktop: pressed, dragged into another toolkit's colour control, copied, read aloud."""

import os
import queue
import subprocess
import sys
import threading
import time
import unittest

PATIENCE = 15
DRIVER = sys.argv.pop(1) if len(sys.argv) > 1 else ""
SCALE = int(float(os.environ.get("QT_SCALE_FACTOR", "1")))


def run_target():
    """A window with a GTK 3 colour button; prints "motion" as a drag passes and "rgba …" on a drop."""
    import gi
    gi.require_version("Gdk", "3.0")
    gi.require_version("Gtk", "3.0")
    from gi.repository import Gdk, GLib, Gtk
    window = Gtk.Window(title="Target")
    window.set_default_size(200, 120)
    window.move(700, 500)
    button = Gtk.ColorButton()
    button.props.use_alpha = True
    button.set_rgba(Gdk.RGBA(0, 0, 0, 1))
    window.add(button)

    def say(*words):
        print(*words, flush=True)

    def changed(*_arguments):
        rgba = button.get_rgba()
        say("rgba", rgba.red, rgba.green, rgba.blue, rgba.alpha)

    button.connect("drag-motion", lambda *_: say("motion"))
    button.connect("notify::rgba", changed)
    window.connect("map-event", lambda *_: GLib.idle_add(say, "at", 700, 500))
    window.show_all()
    Gtk.main()


class Program:
    """A process that tells what happens to it, line by line."""

    def __init__(self, *command):
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.lines = queue.Queue()
        self.seen = []
        self.reader = threading.Thread(target=self.read, daemon=True)
        self.reader.start()

    def read(self):
        for line in self.process.stdout:
            self.lines.put(line.split())

    def take(self):
        while not self.lines.empty():
            self.seen.append(self.lines.get())
        return self.seen

    def wait(self, word, count=1):
        """The words of the count-th line that begins with `word`."""
        limit = time.monotonic() + PATIENCE
        while True:
            found = [line for line in self.take() if line[0] == word]
            if len(found) >= count:
                return found[count - 1]
            left = limit - time.monotonic()
            if left <= 0 or self.process.poll() is not None:
                raise AssertionError(f"no {word} (number {count}) among {self.seen}")
            try:
                self.seen.append(self.lines.get(timeout=min(left, 0.1)))
            except queue.Empty:
                pass

    def count(self, word):
        return sum(line[0] == word for line in self.take())

    def end(self):
        self.process.terminate()
        self.process.wait()
        self.reader.join()
        self.process.stdout.close()


def pointer(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def clipboard(target):
    return subprocess.run(["xclip", "-selection", "clipboard", "-o", "-t", target],
                          capture_output=True, check=False).stdout


class Swatch(unittest.TestCase):
    def setUp(self):
        self.swatch = Program(DRIVER)
        self.addCleanup(self.swatch.end)
        self.swatch.wait("at")
        subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--name", "^Swatch$",
                        "windowfocus", "--sync"], check=True, stdout=subprocess.DEVNULL)
        # The window manager may have moved the window after its first picture.
        place = [line for line in self.swatch.take() if line[0] == "at"][-1]
        left, top, width, height = map(int, place[1:])
        self.x, self.y = left + width // 2, top + height // 2

    def press(self, dx=0, dy=0):
        pointer("mousemove", self.x + dx, self.y + dy, "mousedown", 1)

    def drag_away(self):
        self.press()
        pointer("mousemove", self.x + 10 * SCALE, self.y)
        self.swatch.wait("dragging")


class Gestures(Swatch):
    def test_only_a_move_beyond_three_points_is_a_drag(self):
        clicks = drags = 0
        # Device pixels from an even and from an odd place, so that rounding to points would show.
        for start in (0, 1):
            for dx, dy in ((3 * SCALE, 0), (0, -3 * SCALE), (3 * SCALE + 1, 0), (0, 3 * SCALE + 1)):
                with self.subTest(start=start, dx=dx, dy=dy):
                    self.press(start, start)
                    pointer("mousemove", self.x + start + dx, self.y + start + dy)
                    if max(abs(dx), abs(dy)) > 3 * SCALE:
                        drags += 1
                        self.swatch.wait("dragging", drags)
                        pointer("mouseup", 1)
                        self.swatch.wait("dropped", drags)
                    else:
                        clicks += 1
                        pointer("mouseup", 1)
                        self.swatch.wait("clicked", clicks)
        self.assertEqual((self.swatch.count("clicked"), self.swatch.count("dragging")), (4, 4))

    def test_a_click_copies_the_color_and_its_text(self):
        self.press()
        pointer("mouseup", 1)
        self.swatch.wait("clicked")
        self.assertEqual(clipboard("application/x-color").hex(), "ffff808040408080")
        for text in ("text/plain", "UTF8_STRING"):
            self.assertEqual(clipboard(text), b"#FF8040")
        offered = clipboard("TARGETS").decode().split()
        self.assertIn("application/x-color", offered)
        self.assertIn("text/plain", offered)


class Drop(Swatch):
    def test_a_color_button_takes_the_color_with_its_alpha(self):
        target = Program("/usr/bin/python3", __file__, "--target")
        self.addCleanup(target.end)
        target.wait("at")
        self.drag_away()
        # Each motion that the target hears follows an answer to the one before: when the third has
        # come, the swatch knows that the target takes the colour.
        for step in range(PATIENCE * 20):
            pointer("mousemove", 800 + step % 7, 560)
            if target.count("motion") >= 3:
                break
            time.sleep(0.05)
        target.wait("motion", 3)
        pointer("mouseup", 1)
        rgba = [round(float(part) * 255) for part in target.wait("rgba")[1:]]
        self.assertEqual(rgba, [255, 128, 64, 128])
        self.swatch.wait("dropped")
        self.assertEqual(self.swatch.count("clicked"), 0)
        # The swatch is ready for the next press.
        self.press()
        pointer("mouseup", 1)
        self.swatch.wait("clicked")


class Accessibility(Swatch):
    def test_it_is_a_button_with_name_help_value_and_press(self):
        import pyatspi
        button = None
        limit = time.monotonic() + PATIENCE
        while button is None and time.monotonic() < limit:
            for application in pyatspi.Registry.getDesktop(0):
                button = button or pyatspi.findDescendant(
                    application, lambda item: item.name == "Violet") if application else button
            time.sleep(0.02)
        self.assertIsNotNone(button)
        self.assertEqual(button.getRoleName(), "push button")
        self.assertEqual(button.description, "Click to copy this color, or drag it into a "
                                             "compatible color control.")
        self.assertEqual(button.queryText().getText(0, -1), "#FF8040")
        actions = button.queryAction()
        names = [actions.getName(number) for number in range(actions.nActions)]
        actions.doAction(names.index("Press"))
        self.swatch.wait("clicked")


if __name__ == "__main__":
    if DRIVER == "--target":
        run_target()
    else:
        unittest.main(warnings="ignore")
