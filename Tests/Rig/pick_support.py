"""What the tests of the screen pick share: the driver program, and a desktop whose every pixel is known."""

import ctypes
import os
import selectors
import subprocess
import time
import unittest

PATIENCE = 20


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def eventually(condition):
    """The condition's first true value, or its last false one when none comes in time."""
    limit = time.monotonic() + PATIENCE
    while not (value := condition()) and time.monotonic() < limit:
        time.sleep(0.01)
    return value


class Program:
    """A program that is spoken to in lines."""

    def __init__(self, *command, environment=None):
        self.process = subprocess.Popen(
            command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0,
            env={**os.environ, **(environment or {})})
        self.selector = selectors.DefaultSelector()
        self.selector.register(self.process.stdout, selectors.EVENT_READ)
        self.pending = b""

    def say(self, line):
        self.process.stdin.write(line.encode() + b"\n")

    def hear(self):
        """The next line; fails when none comes."""
        while b"\n" not in self.pending:
            if not self.selector.select(PATIENCE):
                raise AssertionError("the program says nothing")
            more = os.read(self.process.stdout.fileno(), 4096)
            if not more:
                raise AssertionError(f"the program ended with {self.process.wait()}")
            self.pending += more
        line, _, self.pending = self.pending.partition(b"\n")
        return line.decode()

    def end(self):
        self.process.stdin.close()
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self.process.kill()
            return self.process.wait()
        finally:
            self.process.stdout.close()
            self.selector.close()


class X:
    """The X server, as far as no command line program can be asked."""

    def __init__(self):
        self.lib = ctypes.CDLL("libX11.so.6")
        self.lib.XOpenDisplay.restype = ctypes.c_void_p
        self.lib.XDefaultRootWindow.restype = ctypes.c_ulong
        self.lib.XInternAtom.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.lib.XOpenDisplay(None))
        self.root = ctypes.c_ulong(self.lib.XDefaultRootWindow(self.display))

    def paint_root(self, width, height, color_of):
        """Gives each pixel of the desktop the colour that `color_of` says for its place."""
        lib, display = self.lib, self.display
        for name in ("XCreateImage", "XCreatePixmap", "XDefaultGC", "XDefaultVisual"):
            getattr(lib, name).restype = ctypes.c_void_p
        data = bytearray()
        for y in range(height):
            for x in range(width):
                red, green, blue = color_of(x, y)
                data += bytes((blue, green, red, 0))
        held = (ctypes.c_char * len(data)).from_buffer(data)
        image = ctypes.c_void_p(lib.XCreateImage(
            display, ctypes.c_void_p(lib.XDefaultVisual(display, 0)), 24, 2, 0, held, width, height, 32,
            0))
        pixmap = ctypes.c_ulong(lib.XCreatePixmap(display, self.root, width, height, 24))
        lib.XPutImage(display, pixmap, ctypes.c_void_p(lib.XDefaultGC(display, 0)), image, 0, 0, 0, 0,
                      width, height)
        lib.XSetWindowBackgroundPixmap(display, self.root, pixmap)
        lib.XClearWindow(display, self.root)
        lib.XSync(display, 0)

    def set_root_property(self, name, data):
        atom = ctypes.c_ulong(self.lib.XInternAtom(self.display, name.encode(), 0))
        cardinal = ctypes.c_ulong(6)
        self.lib.XChangeProperty(self.display, self.root, atom, cardinal, 8, 0, data, len(data))
        self.lib.XSync(self.display, 0)

    def delete_root_property(self, name):
        atom = ctypes.c_ulong(self.lib.XInternAtom(self.display, name.encode(), 0))
        self.lib.XDeleteProperty(self.display, self.root, atom)
        self.lib.XSync(self.display, 0)

    def grab(self, device):
        """Takes "keyboard" or "pointer" away from every other program."""
        if device == "keyboard":
            status = self.lib.XGrabKeyboard(self.display, self.root, 0, 1, 1, ctypes.c_ulong(0))
        else:
            status = self.lib.XGrabPointer(
                self.display, self.root, 0, 0, 1, 1, ctypes.c_ulong(0), ctypes.c_ulong(0),
                ctypes.c_ulong(0))
        self.lib.XSync(self.display, 0)
        assert status == 0, f"the {device} grab is refused with {status}"

    def ungrab(self):
        self.lib.XUngrabKeyboard(self.display, ctypes.c_ulong(0))
        self.lib.XUngrabPointer(self.display, ctypes.c_ulong(0))
        self.lib.XSync(self.display, 0)


def code_of(x, y):
    """The colour of a pixel of the painted desktop, which tells where it is."""
    return (x & 255, y & 255, (x >> 8) * 16 + (y >> 8))


class PickTest(unittest.TestCase):
    """Has one driver at a time and ends it with the test."""

    driver_path = None

    def start_driver(self, *arguments, **environment):
        self.driver = Program(self.driver_path, *arguments, environment=environment)
        self.addCleanup(self.end_driver, self.driver)
        self.driver.say("alive")
        self.assertEqual(self.driver.hear(), "alive")
        return self.driver

    def end_driver(self, driver):
        # A sanitizer speaks up at the end.
        self.assertEqual(driver.end(), 0)

    def picked(self):
        """The picked colour in steps of 1/255, or None for nothing."""
        words = self.driver.hear().split()
        if words == ["nothing"]:
            return None
        self.assertEqual(words[0], "picked")
        return tuple(float(word) * 255 for word in words[1:])

    def assert_color(self, color, expected, tolerance=0.01):
        self.assertIsNotNone(color)
        for one, other in zip((min(max(each, 0), 255) for each in color), expected):
            self.assertAlmostEqual(one, other, delta=tolerance, msg=f"{color} is not {expected}")

    def assert_still_usable(self):
        self.driver.say("alive")
        self.assertEqual(self.driver.hear(), "alive")
