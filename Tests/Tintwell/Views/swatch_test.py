"""A swatch on a real desktop: copied by a click, dragged into another toolkit's colour control."""

import queue
import signal
import subprocess
import sys
import threading
import time
import unittest

PATIENCE = 15
DRIVER = sys.argv.pop(1) if len(sys.argv) > 1 else ""


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

    def press(self):
        pointer("mousemove", self.x, self.y, "mousedown", 1)


class Click(Swatch):
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


class Paste(Swatch):
    def own_clipboard(self, text):
        owner = subprocess.Popen(["xclip", "-quiet", "-selection", "clipboard"], stdin=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL)
        self.addCleanup(owner.wait)
        self.addCleanup(owner.kill)
        owner.stdin.write(text)
        owner.stdin.close()
        while not clipboard("TARGETS"):
            time.sleep(0.05)
        return owner

    def test_it_neither_waits_for_a_stopped_program_nor_reads_what_is_no_color(self):
        owner = self.own_clipboard(b"#F2C14E")
        for count, (stopped, said) in enumerate([(False, ["#F2C14E."]),
                                                 (True, "the other program does not answer".split())], 1):
            if stopped:
                owner.send_signal(signal.SIGSTOP)
            pointer("key", "ctrl+v")
            self.assertEqual(self.swatch.wait("pasted", count)[1:], said)
        owner.kill()
        self.own_clipboard(b"#F2C14E " * 1_000_000)
        pointer("key", "ctrl+v")
        self.assertEqual(self.swatch.wait("pasted", 3)[1:], "it is too long for a color".split())
        self.assertEqual(len(clipboard("UTF8_STRING")), 8_000_000, "others can have it")


class Drop(Swatch):
    def test_a_color_button_takes_the_color_with_its_alpha(self):
        target = Program("/usr/bin/python3", __file__, "--target")
        self.addCleanup(target.end)
        target.wait("at")
        self.press()
        pointer("mousemove", self.x + 10, self.y)
        self.swatch.wait("dragging")
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
        self.assertEqual(self.swatch.count("forbidden"), 0, "the hand stays closed")
        # The swatch is ready for the next press.
        self.press()
        pointer("mouseup", 1)
        self.swatch.wait("clicked")


if __name__ == "__main__":
    if DRIVER == "--target":
        run_target()
    else:
        unittest.main(warnings="ignore")
