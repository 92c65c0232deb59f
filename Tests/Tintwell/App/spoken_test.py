#!/usr/bin/python3
"""What Orca says on a walk through the three workspaces by key, as its log has it.

Usage: spoken_test.py TINTWELL   (under with-desktop --a11y)"""

import re
import subprocess
import sys
import threading
import unittest

from pick_support import X, code_of, eventually
from shell_support import SCREEN, key, windows

APPLICATION = sys.argv.pop(1)
HELP = "Click to copy this color, or drag it into a compatible color control."

# Not the script: that ends every other Orca of the user first.
ORCA = """
import sys
from orca import debug, orca
debug.debugLevel, debug.eventDebugLevel, debug.debugFile = debug.LEVEL_ALL, debug.LEVEL_OFF, sys.stdout
orca.getSettingsManager().activate(None, {})
sys.exit(orca.main())
"""

# Keys, and how what is said then begins, in this order; other sentences may be said between.
WALK = (
    (["Tab"], ["Violet push button.", f"#6E56CF. {HELP}"]),
    (["Tab", "Tab", "Tab"], ["Studio.", "selected radio button"]),
    (["Tab"], ["Complementary panel.", "Base push button.", f"#6E56CF, Complementary. {HELP}"]),
    (["Right"], ["Complement push button.", f"#767300, Complementary. {HELP}"]),
    (["Return"], ["notification Copied Complement · #767300."]),
    (["Return"], ["notification Copied Complement · #767300."]),
    (["Tab"], ["Analogous panel."]),
    (["ctrl+2", "Tab"], ["Light system panel.", "Background push button."]),
    (["Tab"], ["Dark system panel."]),
    (["Tab", "Return"], ["Save . Install push button.", "notification Saved and installed Tintwell.clr."]),
    (["Return"], ["notification Saved and installed Tintwell.clr."]),
    (["ctrl+3", "shift+Tab"], ["List with 2 items.", "Delete palette push button.", "Violet."]),
    (["shift+Tab", "Up"], ["Install push button.", "Violet."]),
)
COLORS = (
    (["shift+Tab"], ["More collapsed push button."]),
    (["Return"], ["Open macOS Colors"]),
    (["Down"], ["Quit Tintwell"]),
    (["Home", "Return"], ["Colors frame."]),
    (["Tab"], ["Hue and saturation slider 107."]),
    (["Tab", "Tab", "Tab"], ["Red slider 45."]),
    (["Right"], ["46"]),
)
PLACES = ((100, 200), (200, 300), (300, 400))


class SpokenTest(unittest.TestCase):
    def start(self, *command):
        process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def listen(self, log):
        for line in log:
            self.heard += re.findall(r"SPEECH OUTPUT: '(.*?)'\{", line)

    def expect(self, sentences):
        """Goes on in the log behind the last of the sentences."""
        def places():
            place = self.place
            for sentence in sentences:
                found = next((i for i in range(place, len(self.heard)) if re.match(sentence, self.heard[i])), None)
                if found is None:
                    return None
                place = found + 1
            return place
        place = eventually(places)
        self.assertTrue(place, f"{sentences} not in {self.heard[self.place:]}")
        self.place = place

    def walk(self, steps):
        for keys, sentences in steps:
            for each in keys:
                key(each)
            self.expect(sentences)

    def setUp(self):
        X().paint_root(*SCREEN, code_of)
        subprocess.run(["gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus",
                        "--method", "org.freedesktop.DBus.Properties.Set", "org.a11y.Status", "IsEnabled", "<true>"],
                       check=True, stdout=subprocess.DEVNULL)
        self.heard, self.place = [], 0
        orca = self.start("/usr/bin/python3", "-u", "-c", ORCA)
        listener = threading.Thread(target=self.listen, args=(orca.stdout,))
        listener.start()
        self.addCleanup(listener.join)
        self.addCleanup(orca.kill)
        self.expect(["Screen reader on."])
        self.start(APPLICATION, "--preview-window")
        self.expect(["Tintwell Preview frame."])

    def test_the_walk(self):
        self.walk(WALK)
        for x, y in PLACES:
            key("ctrl+shift+c")
            self.assertTrue(eventually(lambda: windows("Loupe")), "the loupe")
            subprocess.run(["xdotool", "mousemove", str(x), str(y), "key", "Right"], check=True)
            code = "#{:02X}{:02X}{:02X}".format(*code_of(x + 1, y))
            self.expect([f"notification .* · {code}"])
            key("Return")
            self.expect([f"notification Sampled .* · {code}"])
        self.walk(COLORS)


if __name__ == "__main__":
    unittest.main()
