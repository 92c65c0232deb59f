"""A pick with the real program: from the press of Sample to the colour in its window.

First argument: the program; second: the command line program, which knows the names of colours."""

import os
import subprocess
import sys
import unittest

from pick_support import X, code_of, eventually, run

PROGRAM = sys.argv.pop(1)
COMMAND_LINE = sys.argv.pop(1)
WIDTH, HEIGHT = 1280, 1500
# Readers are told places in the toolkit's units.
SCALE = int(os.environ.get("QT_SCALE_FACTOR", "1"))
PREVIEW = "Tintwell Preview"


def is_visible(title):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"],
                           capture_output=True, text=True, check=False)
    return bool(found.stdout.strip())


def xdotool(*words):
    run("xdotool", *(str(word) for word in words))


class ApplicationPickTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.x = X()
        cls.x.paint_root(WIDTH, HEIGHT, code_of)

    def setUp(self):
        self.process = subprocess.Popen([PROGRAM, "--preview-window"])
        self.addCleanup(self.end)
        self.expect(lambda: is_visible(PREVIEW), "the preview window")
        self.frame = self.expect(self.find_frame, "the window for readers")

    def end(self):
        self.process.terminate()
        self.assertEqual(self.process.wait(timeout=10), 0)

    def expect(self, condition, message):
        found = []
        self.assertTrue(eventually(lambda: found.append(condition()) or found[-1]), message)
        return found[-1]

    @staticmethod
    def find_frame():
        import pyatspi
        for application in pyatspi.Registry.getDesktop(0):
            for frame in application or ():
                if frame is not None and frame.name == PREVIEW:
                    return frame
        return None

    def elements(self, item=None):
        """All that a reader finds in the window."""
        import pyatspi
        item = item or self.frame
        item.clearCache()
        return pyatspi.findAllDescendants(item, lambda _: True)

    def sees(self, text):
        # The element may go while it is read.
        try:
            return any(element.name == text for element in self.elements())
        except Exception:  # pylint: disable=broad-except
            return False

    def sample_button(self):
        import pyatspi
        return next((element for element in self.elements() if element.name == "Sample"
                     and element.getRole() == pyatspi.ROLE_PUSH_BUTTON), None)

    def press_sample(self):
        import pyatspi
        button = self.expect(self.sample_button, "Sample")
        place = button.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        # The loupe starts where the window was, so it shows whether the window is in its picture.
        middle = ((place.x + place.width // 2) * SCALE, (place.y + place.height // 2) * SCALE)
        xdotool("mousemove", *middle, "click", 1)
        self.expect(lambda: is_visible("Loupe"), "the loupe")
        self.assertFalse(is_visible(PREVIEW), "the program's window is out of the picture")
        return middle

    def expect_status(self, text):
        self.expect(lambda: self.sees(text), f"{text}; there are "
                    f"{[element.name for element in self.elements() if element.name]}")
        self.expect(lambda: is_visible(PREVIEW), "the window is back")
        self.assertFalse(is_visible("Loupe"))

    def check_color(self, place):
        code = "#{:02X}{:02X}{:02X}".format(*code_of(*place))
        name = run(COMMAND_LINE, "name", code).strip()
        self.expect_status(f"Sampled {name} · {code}")
        self.assertTrue(self.sees(code), "the header shows the color")
        self.assertTrue(self.sees(name), "the header shows its name")

    def test_the_pixel_behind_the_window_becomes_the_source(self):
        place = self.press_sample()
        xdotool("click", 1)
        self.check_color(place)

    def test_picks_follow_each_other(self):
        for place in ((1200, 90), (3, 777)):
            self.press_sample()
            xdotool("mousemove", *place, "key", "Return")
            self.check_color(place)

    def test_cancel_changes_nothing_but_the_status(self):
        before = {element.name for element in self.elements() if element.name.startswith("#")}
        self.assertTrue(before)
        for words in (("key", "Escape"), ("click", 3)):
            self.press_sample()
            xdotool(*words)
            self.expect_status("Sampling cancelled")
            after = {element.name for element in self.elements() if element.name.startswith("#")}
            self.assertEqual(after, before)

    def test_the_program_ends_in_the_middle_of_a_pick(self):
        self.press_sample()
        self.process.terminate()
        self.assertEqual(self.process.wait(timeout=10), 0)


if __name__ == "__main__":
    unittest.main(warnings="ignore")
