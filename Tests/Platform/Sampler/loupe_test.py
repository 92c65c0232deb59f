"""The loupe on a real X server: every pixel, every way in and out."""

import ctypes
import os
import re
import signal
import subprocess
import sys
import unittest

from pick_support import PickTest, X, code_of, eventually, run

SCALES = ("1", "1.25", "1.5", "2")
WIDTH, HEIGHT = 1280, 800
LEFT = ("L", "640/169x800/211+0+0", "screen")
RIGHT = ("R", "640/169x800/211+640+0", "none")


def window_is_there(title):
    # A window that vanishes while the tree is read makes the program fail: ask again.
    while True:
        tree = subprocess.run(["xwininfo", "-root", "-tree"], capture_output=True, text=True, check=False)
        if tree.returncode == 0:
            return f'"{title}"' in tree.stdout


def process_of(program):
    """The process of that name that runs on our display."""
    display = f"DISPLAY={os.environ['DISPLAY']}".encode()
    for process in run("pgrep", "-x", program).split():
        try:
            with open(f"/proc/{process}/environ", "rb") as file:
                if display in file.read().split(b"\0"):
                    return int(process)
        except OSError:
            continue
    raise AssertionError(f"no {program} runs here")


def loupe_is_there():
    return window_is_there("Loupe")


def xdotool(*words):
    run("xdotool", *(str(word) for word in words))


class Profile:
    """A wide-gamut profile, and what its colours are in sRGB by the published matrices, clamped."""

    GAMMA = 563 / 256
    WHITE = (0.3127, 0.3290, 1.0)
    PRIMARIES = ((0.64, 0.33, 1.0), (0.21, 0.71, 1.0), (0.15, 0.06, 1.0))
    TO_XYZ = ((0.5767309, 0.1855540, 0.1881852), (0.2973769, 0.6273491, 0.0752741),
              (0.0270343, 0.0706872, 0.9911085))
    XYZ_TO_SRGB = ((3.2404542, -1.5371385, -0.4985314), (-0.9692660, 1.8760108, 0.0415560),
                   (0.0556434, -0.2040259, 1.0572252))

    @classmethod
    def data(cls):
        lcms = ctypes.CDLL("liblcms2.so.2")
        for name in ("cmsBuildGamma", "cmsCreateRGBProfile"):
            getattr(lcms, name).restype = ctypes.c_void_p
        three = ctypes.c_double * 3
        curve = lcms.cmsBuildGamma(None, ctypes.c_double(cls.GAMMA))
        profile = ctypes.c_void_p(lcms.cmsCreateRGBProfile(
            three(*cls.WHITE), (three * 3)(*(three(*each) for each in cls.PRIMARIES)),
            (ctypes.c_void_p * 3)(curve, curve, curve)))
        size = ctypes.c_uint32()
        lcms.cmsSaveProfileToMem(profile, None, ctypes.byref(size))
        data = ctypes.create_string_buffer(size.value)
        lcms.cmsSaveProfileToMem(profile, data, ctypes.byref(size))
        return data.raw

    @classmethod
    def to_srgb(cls, code):
        def times(matrix, vector):
            return [sum(a * b for a, b in zip(row, vector)) for row in matrix]

        def encoded(value):
            value = min(max(value, 0), 1)
            return value * 12.92 if value <= 0.0031308 else 1.055 * value ** (1 / 2.4) - 0.055

        linear = [(component / 255) ** cls.GAMMA for component in code]
        return [255 * encoded(value) for value in times(cls.XYZ_TO_SRGB, times(cls.TO_XYZ, linear))]


class LoupeTest(PickTest):
    @classmethod
    def setUpClass(cls):
        cls.x = X()
        cls.x.paint_root(WIDTH, HEIGHT, code_of)

    def setUp(self):
        xdotool("mousemove", 640, 400)

    def open_loupe(self, command="pick"):
        self.driver.say(command)
        self.assertTrue(eventually(loupe_is_there))

    def set_monitors(self, *monitors):
        for monitor in monitors:
            run("xrandr", "--setmonitor", *monitor)
            self.addCleanup(run, "xrandr", "--delmonitor", monitor[0])

    def pick_at(self, x, y):
        self.open_loupe()
        xdotool("mousemove", x, y, "click", 1)
        return self.picked()

    def assert_picked(self, x, y):
        self.assert_color(self.picked(), code_of(x, y))
        self.assertFalse(loupe_is_there())

    def test_a_click_takes_the_pixel_under_the_pointer_at_every_scale(self):
        places = ((333, 257), (334, 258), (0, 0), (WIDTH - 1, HEIGHT - 1), (641, 799), (1279, 1))
        for scale in SCALES:
            driver = self.start_driver(QT_SCALE_FACTOR=scale)
            for x, y in places:
                with self.subTest(scale=scale, x=x, y=y):
                    self.open_loupe()
                    xdotool("mousemove", x, y, "click", 1)
                    self.assert_picked(x, y)
            driver.end()

    def test_keys(self):
        rows = [
            # name, start, keys, what comes back
            ("take at once", (640, 400), ["Return"], (640, 400)),
            ("single steps", (640, 400), ["Left"] * 3 + ["Up", "space"], (637, 399)),
            ("far steps", (640, 400), ["shift+Right", "shift+Down", "Right", "Down", "Return"],
             (651, 411)),
            ("a held arrow", (200, 200), ["Right"] * 60 + ["KP_Enter"], (260, 200)),
            ("stops at the edge", (4, 3), ["shift+Left", "shift+Up", "Return"], (0, 0)),
            ("stops at the other edge", (1275, 797), ["shift+Right", "shift+Down", "Return"],
             (1279, 799)),
            ("Escape", (640, 400), ["Escape"], None),
            ("moves, then Escape", (640, 400), ["Left", "shift+Down", "Escape"], None),
            ("other keys do nothing", (640, 400), ["a", "Tab", "F1", "Return"], (640, 400)),
        ]
        self.start_driver(QT_SCALE_FACTOR="2")
        for name, start, keys, result in rows:
            with self.subTest(name):
                xdotool("mousemove", *start)
                self.open_loupe()
                xdotool("key", "--delay", 1, *keys)
                if result:
                    self.assert_picked(*result)
                else:
                    self.assertIsNone(self.picked())

    def test_a_right_click_cancels_and_the_wheel_does_nothing(self):
        self.start_driver()
        self.open_loupe()
        xdotool("click", 4, "click", 5, "click", 2, "click", 3)
        self.assertIsNone(self.picked())

    def test_what_was_pressed_before_is_not_meant_for_the_loupe(self):
        self.start_driver("--window", "500", "300")
        self.assertTrue(eventually(lambda: window_is_there("Panel")))
        xdotool("mousemove", 600, 350, "mousedown", 1)
        self.open_loupe()
        xdotool("mouseup", 1, "mousemove", 100, 90)
        self.assertEqual(self.driver.hear(), "hidden")
        self.assert_still_usable()
        self.assertTrue(loupe_is_there())
        xdotool("click", 1)
        self.assertEqual(self.driver.hear(), "shown")
        self.assert_picked(100, 90)

    def test_a_key_that_was_down_before_does_not_take(self):
        self.start_driver()
        run("xset", "r", "rate", "100", "50")
        xdotool("keydown", "Return")
        self.addCleanup(xdotool, "keyup", "Return")
        self.open_loupe()
        self.wait_for_wakeups()  # by the repeated key
        self.assertTrue(loupe_is_there())
        xdotool("keyup", "Return", "mousemove", 11, 12, "key", "Return")
        self.assert_picked(11, 12)

    def test_our_own_window_is_not_in_the_picture_and_gets_the_focus_back(self):
        self.start_driver("--window", "600", "350")
        self.assertTrue(eventually(self.panel_is_active))
        self.open_loupe()
        self.assertEqual(self.driver.hear(), "hidden")
        xdotool("mousemove", 700, 420, "click", 1)
        self.assertEqual(self.driver.hear(), "shown")
        self.assert_picked(700, 420)
        self.assertTrue(eventually(self.panel_is_active))

    @staticmethod
    def panel_is_active():
        window = run("xprop", "-root", "_NET_ACTIVE_WINDOW").split()[-1]
        name = subprocess.run(["xprop", "-id", window, "WM_NAME"], capture_output=True, text=True,
                              check=False)
        return "Panel" in name.stdout

    def test_the_picture_waits_for_a_slow_window_manager(self):
        title_bar = (700, 340)
        self.start_driver("--window", "600", "350")
        self.assertTrue(eventually(self.panel_is_active))
        manager = process_of("openbox")
        os.kill(manager, signal.SIGSTOP)
        try:
            self.driver.say("pick")
            self.assertEqual(self.driver.hear(), "hidden")
            self.wait_for_wakeups()  # by its looks at the screen
            self.assertFalse(loupe_is_there())
        finally:
            os.kill(manager, signal.SIGCONT)
        self.assertTrue(eventually(loupe_is_there))
        xdotool("mousemove", *title_bar, "click", 1)
        self.assertEqual(self.driver.hear(), "shown")
        self.assert_picked(*title_bar)

    def test_two_monitors_of_different_scale(self):
        self.set_monitors(LEFT, RIGHT)
        self.start_driver(QT_SCREEN_SCALE_FACTORS="L=1;R=2")
        for x, y in ((639, 5), (640, 5), (1279, 799), (901, 333)):
            with self.subTest(x=x, y=y):
                self.open_loupe()
                xdotool("mousemove", x, y, "click", 1)
                self.assert_picked(x, y)
        xdotool("mousemove", 636, 70)
        self.open_loupe()
        xdotool("key", "shift+Right", "Return")
        self.assert_picked(646, 70)

    def test_monitors_that_change_end_the_pick(self):
        self.start_driver()
        self.open_loupe()
        self.set_monitors(LEFT)
        self.assertIsNone(self.picked())
        self.assertFalse(loupe_is_there())

    def test_a_grab_of_another_program(self):
        self.start_driver("--window", "600", "350")
        for device in ("keyboard", "pointer"):
            with self.subTest(device, lasts=True):
                self.x.grab(device)
                self.driver.say("loupe")
                self.assertIsNone(self.picked(), "and the window was never hidden")
                self.x.ungrab()
            with self.subTest(device, lasts=False):
                self.x.grab(device)
                self.driver.say("pick")
                self.assert_still_usable()
                self.x.ungrab()
                self.assertEqual(self.driver.hear(), "hidden")
                self.assertTrue(eventually(loupe_is_there))
                xdotool("key", "Escape")
                self.assertEqual(self.driver.hear(), "shown")
                self.assertIsNone(self.picked())

    def test_without_any_event_it_ends_by_itself_and_leaves_no_grab(self):
        self.start_driver()
        self.open_loupe("loupe")
        self.assertIsNone(self.picked())
        self.assertFalse(loupe_is_there())
        for device in ("keyboard", "pointer"):
            self.x.grab(device)
        self.x.ungrab()

    def test_a_sampler_that_is_dropped_takes_its_loupe_away_and_says_nothing(self):
        self.start_driver("--window", "600", "350")
        self.open_loupe()
        self.assertEqual(self.driver.hear(), "hidden")
        self.driver.say("drop")
        self.assertEqual(self.driver.hear(), "shown")
        self.assertTrue(eventually(lambda: not loupe_is_there()))
        self.assert_still_usable()
        self.open_loupe()
        xdotool("key", "Escape")
        self.assertEqual([self.driver.hear() for _ in range(3)], ["hidden", "shown", "nothing"])

    def test_nothing_runs_after_the_end(self):
        self.start_driver()
        self.open_loupe()
        xdotool("key", "Escape")
        self.assertIsNone(self.picked())
        self.assertTrue(eventually(self.waits_without_a_time_limit))

    def waits_without_a_time_limit(self):
        poll, forever, lock = "7", "0xffffffff", "202"
        calls = [call.split() for call in self.of_every_thread("syscall")]
        # Threads of the toolkit's pool wait for work at a lock.
        return all(call[0] == lock or call[0] == poll and call[3] == forever for call in calls)

    def of_every_thread(self, name):
        folder = f"/proc/{self.driver.process.pid}/task"
        texts = []
        for task in os.listdir(folder):
            with open(f"{folder}/{task}/{name}", encoding="ascii") as file:
                texts.append(file.read())
        return texts

    def wait_for_wakeups(self):
        def wakeups():
            return sum(int(re.search(r"\nvoluntary_ctxt_switches:\s*(\d+)", status)[1])
                       for status in self.of_every_thread("status"))

        enough = wakeups() + 20
        self.assertTrue(eventually(lambda: wakeups() >= enough))

    def test_a_pixel_is_converted_from_its_monitors_profile(self):
        self.set_monitors(LEFT, RIGHT)
        inside, outside = (400, 170), (511, 40)
        on_right = (940, 700)
        plain = {place: code_of(*place) for place in (inside, outside, on_right)}
        wide = {place: Profile.to_srgb(code) for place, code in plain.items()}
        self.assertGreater(max(abs(a - b) for a, b in zip(plain[inside], wide[inside])), 5)
        self.start_driver()
        rows = [
            # name, properties, expected colours
            ("none", {}, plain),
            ("left", {"_ICC_PROFILE": Profile.data()}, {**wide, on_right: plain[on_right]}),
            ("right", {"_ICC_PROFILE_1": Profile.data()}, {**plain, on_right: wide[on_right]}),
            ("broken", {"_ICC_PROFILE": b"no profile", "_ICC_PROFILE_1": Profile.data()[:200]}, plain),
        ]
        for name, properties, expected in rows:
            for key, value in properties.items():
                self.x.set_root_property(key, value)
            for place, color in expected.items():
                with self.subTest(name, place=place):
                    self.assert_color(self.pick_at(*place), color, tolerance=0.3)
            for key in properties:
                self.x.delete_root_property(key)


if __name__ == "__main__":
    PickTest.driver_path = sys.argv.pop(1)
    unittest.main()
