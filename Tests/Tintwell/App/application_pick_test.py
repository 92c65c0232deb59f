"""A pick with the real program: from the press of Sample to the colour in its window.

First argument: the program; second: the command line program, which knows the names of colours."""

import os
import subprocess
import sys
import unittest

import pyatspi

from pick_support import X, code_of, eventually, run
from reader import find_window, walk
from shell_support import SCREEN, click, key, windows

PROGRAM = sys.argv.pop(1)
COMMAND_LINE = sys.argv.pop(1)
# Readers are told places in the toolkit's units.
SCALE = int(os.environ.get("QT_SCALE_FACTOR", "1"))
PREVIEW = "Tintwell Preview"


class ApplicationPickTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.x = X()
        cls.x.paint_root(*SCREEN, code_of)

    def setUp(self):
        self.process = subprocess.Popen([PROGRAM, "--preview-window"])
        self.addCleanup(self.end)
        self.expect(lambda: windows(PREVIEW), "the preview window")
        self.frame = self.expect(lambda: find_window(PREVIEW), "the window for readers")

    def end(self):
        self.process.terminate()
        self.assertEqual(self.process.wait(timeout=10), 0)

    def expect(self, condition, message):
        found = eventually(condition)
        self.assertTrue(found, message)
        return found

    def elements(self):
        """All that a reader finds in the window."""
        self.frame.clearCache()
        return list(walk(self.frame))

    def sees(self, text):
        # The element may go while it is read.
        try:
            return any(element.name == text for element in self.elements())
        except Exception:  # pylint: disable=broad-except
            return False

    def sample_button(self):
        return next((element for element in self.elements() if element.name == "Sample"
                     and element.getRole() == pyatspi.ROLE_PUSH_BUTTON), None)

    def press_sample(self):
        button = self.expect(self.sample_button, "Sample")
        place = button.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        # The loupe starts where the window was, so it shows whether the window is in its picture.
        middle = ((place.x + place.width // 2) * SCALE, (place.y + place.height // 2) * SCALE)
        click(*middle)
        self.expect(lambda: windows("Loupe"), "the loupe")
        self.assertEqual(windows(PREVIEW), [], "the program's window is out of the picture")
        return middle

    def expect_status(self, text):
        self.expect(lambda: self.sees(text), f"{text}; there are "
                    f"{[element.name for element in self.elements() if element.name]}")
        self.expect(lambda: windows(PREVIEW), "the window is back")
        self.assertEqual(windows("Loupe"), [])

    def check_color(self, place):
        code = "#{:02X}{:02X}{:02X}".format(*code_of(*place))
        name = run(COMMAND_LINE, "name", code).strip()
        self.expect_status(f"Sampled {name} · {code}")
        self.assertTrue(self.sees(code), "the header shows the color")
        self.assertTrue(self.sees(name), "the header shows its name")

    def test_picked_pixels_become_the_source(self):
        place = self.press_sample()
        click(*place)
        self.check_color(place)
        self.press_sample()
        run("xdotool", "mousemove", "3", "777", "key", "Return")
        self.check_color((3, 777))

    def codes(self):
        return {element.name for element in self.elements() if element.name.startswith("#")}

    def test_cancel_changes_nothing_but_the_status(self):
        before = self.codes()
        self.assertTrue(before)
        self.press_sample()
        key("Escape")
        self.expect_status("Sampling cancelled")
        self.assertEqual(self.codes(), before)

    def test_the_program_ends_in_the_middle_of_a_pick(self):
        self.press_sample()
        self.process.terminate()
        self.assertEqual(self.process.wait(timeout=10), 0)


if __name__ == "__main__":
    unittest.main(warnings="ignore")
