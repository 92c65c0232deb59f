"""The application on a real desktop: its item in the tray, its panel beside it, its one process.

First argument: the program; second: the case, which says how with-desktop was started."""

import os
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = sys.argv.pop(1)
CASE = sys.argv.pop(1)
BUS_NAME = "io.github.tintwell.Tintwell"
WATCHER = "org.kde.StatusNotifierWatcher"
TRAYER = ["trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "24"]
SCRATCH = tempfile.mkdtemp(dir=os.environ["HOME"])
SCREEN = tuple(map(int, re.search(r"dimensions:\s+(\d+)x(\d+)", subprocess.run(
    ["xdpyinfo"], capture_output=True, text=True, check=True).stdout).groups()))
OTHER_WINDOW = """
import gi
gi.require_version("Gtk", "3.0")
from gi.repository import Gtk
window = Gtk.Window(title="Another program", default_width=200, default_height=200)
window.move(20, 60)
window.show()
Gtk.main()
"""


# Tells the desktop's appearance: 1 is dark, 2 is light; a line of the input changes it.
SETTINGS_PORTAL = """
import sys
import dbus, dbus.mainloop.glib, dbus.service
from gi.repository import GLib
SETTINGS = "org.freedesktop.portal.Settings"
class Portal(dbus.service.Object):
    scheme = 2
    @dbus.service.method(SETTINGS, in_signature="as", out_signature="a{sa{sv}}")
    def ReadAll(self, namespaces):
        return {"org.freedesktop.appearance": {"color-scheme": dbus.UInt32(self.scheme)}}
    @dbus.service.signal(SETTINGS, signature="ssv")
    def SettingChanged(self, namespace, key, value):
        pass
dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
portal = Portal(bus, "/org/freedesktop/portal/desktop")
name = dbus.service.BusName("org.freedesktop.portal.Desktop", bus)
def read(*_):
    portal.scheme = int(sys.stdin.readline())
    portal.SettingChanged("org.freedesktop.appearance", "color-scheme", dbus.UInt32(portal.scheme))
    return True
GLib.io_add_watch(sys.stdin, GLib.IO_IN, read)
GLib.MainLoop().run()
"""


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def eventually(condition, seconds=10):
    limit = time.monotonic() + seconds
    while True:
        value = condition()
        if value or time.monotonic() > limit:
            return value
        time.sleep(0.01)


class Window:
    def __init__(self, number, geometry):
        self.number = number
        self.x, self.y, self.width, self.height = geometry

    def is_on_screen(self):
        return (self.x >= 0 and self.y >= 0 and self.x + self.width <= SCREEN[0]
                and self.y + self.height <= SCREEN[1])

    def states(self):
        return output("xprop", "-id", self.number, "_NET_WM_STATE")

    def close(self):
        """As the window manager's close button does. A key can reach the manager before it has taken the window
        into its care, so it is pressed until the window is gone."""
        def is_gone():
            if subprocess.run(["timeout", "3", "xdotool", "windowactivate", "--sync", self.number, "key", "alt+F4"],
                              check=False, stderr=subprocess.DEVNULL).returncode:
                return True
            return eventually(lambda: "IsViewable" not in output("xwininfo", "-id", self.number), seconds=2)
        eventually(is_gone)


def windows(title):
    """Every window of exactly that title that is on the screen."""
    found = []
    for number in output("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split():
        facts = output("xwininfo", "-id", number)
        values = [re.search(rf"{name}:\s+(-?\d+)", facts) for name in
                  ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        if all(values):
            found.append(Window(number, [int(value.group(1)) for value in values]))
    return found


def panel():
    """The panel or the window that stands in for it."""
    return next((window for window in windows("Tintwell") if window.width > 400), None)


def menu():
    return re.search(r'"Tintwell".* 1\d\dx\d+\+', output("xwininfo", "-root", "-tree"))


def embedded_item():
    """The middle of the item in an X11 tray at the top of the screen."""
    place = re.search(r'"Tintwell".* 22x22\+\S+ +\+(\d+)\+(\d)$', output("xwininfo", "-root", "-tree"),
                      re.MULTILINE)
    # The tray is put into its corner once it has an item.
    if place is None or int(place.group(1)) < SCREEN[0] - 40:
        return None
    return int(place.group(1)) + 11, int(place.group(2)) + 11


def call(destination, path, method, *arguments):
    return output("gdbus", "call", "--session", "--dest", destination, "--object-path", path,
                  "--method", method, *arguments)


def notifier_items():
    return re.findall(r"org\.kde\.StatusNotifierItem-[\d-]+", call(
        WATCHER, "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties.Get", WATCHER,
        "RegisteredStatusNotifierItems"))


def owner_process(name):
    answer = re.search(r"uint32 (\d+)", call(
        "org.freedesktop.DBus", "/org/freedesktop/DBus",
        "org.freedesktop.DBus.GetConnectionUnixProcessID", name))
    return int(answer.group(1)) if answer else None


def click(x, y, button=1):
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)], check=True)


def key(name):
    subprocess.run(["xdotool", "key", name], check=True)


def leftovers():
    """What a process could leave behind outside the user's data."""
    return {os.path.join(folder, name) for folder in (os.environ["XDG_RUNTIME_DIR"], SCRATCH)
            for name in os.listdir(folder)}


class ShellTest(unittest.TestCase):
    def setUp(self):
        self.before = leftovers()

    def start(self, *arguments):
        process = subprocess.Popen([PROGRAM, *arguments], env={**os.environ, "TMPDIR": SCRATCH})
        self.addCleanup(self.end, process)
        return process

    def start_trayer(self):
        tray = self.start_service(*TRAYER)
        self.expect(lambda: "_TYPE_DOCK" in output("xprop", "-name", "panel"), "the tray")
        return tray

    def start_service(self, *command):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
            process.wait()

    def expect(self, condition, message):
        value = eventually(condition)
        self.assertTrue(value, message)
        return value

    def expect_end(self, process, code=0):
        """The process ends in good order and leaves nothing."""
        self.assertEqual(process.wait(timeout=10), code)
        self.assertEqual(leftovers() - self.before, set())
        self.assertIsNone(panel())

    def open_other_window(self):
        self.start_service(sys.executable, "-c", OTHER_WINDOW)
        other = self.expect(lambda: windows("Another program"), "the other window")[0]
        self.expect(lambda: output("xdotool", "getactivewindow").strip() == other.number,
                    "the other window has the focus")
        return other


class TrayTest(ShellTest):
    """What holds for either kind of tray; `self.item()` is where to click."""

    def item(self):
        raise NotImplementedError

    def start_with_item(self, *arguments):
        process = self.start(*arguments)
        self.place = self.expect(self.item, "the item in the tray")
        return process

    def open_panel(self):
        click(*self.place)
        return self.expect(panel, "the panel")

    def check_click_opens_and_closes(self):
        process = self.start_with_item()
        self.assertIsNone(panel(), "no window opens at the start")
        opened = self.open_panel()
        self.assertTrue(opened.is_on_screen())
        self.assertLess(abs(opened.x + opened.width / 2 - self.place[0]), opened.width / 2 + 9)
        beside = min(abs(opened.y - self.place[1]), abs(opened.y + opened.height - self.place[1]))
        self.assertLess(beside, 45, "beside the bar")
        for state in ("SKIP_TASKBAR", "SKIP_PAGER"):
            self.assertIn(state, opened.states())
        click(*self.place)
        self.expect(lambda: panel() is None, "a second click closes the panel")
        self.open_panel()
        process.terminate()
        self.expect_end(process)

    def check_focus_and_keys(self):
        self.start_with_item()
        other = self.open_other_window()
        self.open_panel()
        self.expect(lambda: output("xdotool", "getactivewindow").strip() == panel().number, "focus")
        key("Escape")
        self.expect(lambda: panel() is None, "Escape closes the panel")
        self.open_panel()
        subprocess.run(["xdotool", "windowactivate", other.number], check=True)
        self.expect(lambda: panel() is None, "the panel closes when the focus goes")

    def check_second_start(self):
        first = self.start_with_item()
        self.assertEqual(self.start().wait(timeout=10), 0)
        opened = self.expect(panel, "a second start shows the panel")
        self.assertTrue(opened.is_on_screen())
        self.assertEqual(self.start("--preview-window").wait(timeout=10), 0)
        self.expect(lambda: windows("Tintwell Preview"), "and the preview window with the switch")
        self.assertIsNone(first.poll())
        first.send_signal(signal.SIGINT)
        self.expect_end(first)


@unittest.skipUnless(CASE == "trayer", "needs an X11 tray")
class EmbeddedTest(TrayTest):
    def setUp(self):
        super().setUp()
        self.tray = self.start_trayer()

    def item(self):
        return embedded_item()

    def test_click_opens_and_closes(self):
        self.check_click_opens_and_closes()

    def test_focus_and_keys(self):
        self.check_focus_and_keys()

    def test_second_start(self):
        self.check_second_start()

    def test_tray_restarts(self):
        self.start_with_item()
        self.end(self.tray)
        self.expect(lambda: embedded_item() is None, "the item goes with its tray")
        self.start_trayer()
        self.place = self.expect(self.item, "the item in the new tray")
        self.open_panel()

    def test_panel_stays_during_a_drag(self):
        self.start_with_item()
        other = self.open_other_window()
        opened = self.open_panel()
        self.expect(lambda: output("xdotool", "getactivewindow").strip() == opened.number, "focus")
        source = opened.x + 70, opened.y + 80
        subprocess.run(["xdotool", "mousemove", *map(str, source), "mousedown", "1"], check=True)
        for x in range(source[0], other.x + 100, -20):
            subprocess.run(["xdotool", "mousemove", str(x), str(source[1])], check=True)
        subprocess.run(["xdotool", "windowactivate", "--sync", other.number], check=True)
        self.expect(lambda: output("xdotool", "getactivewindow").strip() == other.number, "the other window")
        self.assertIsNotNone(panel())
        subprocess.run(["xdotool", "mouseup", "1"], check=True)
        self.expect(lambda: panel() is None, "then the focus is gone, and with it the panel")

    def test_item_outlives_a_pick(self):
        self.start_with_item()
        self.open_panel()
        self.expect(lambda: output("xdotool", "getactivewindow").strip() == panel().number, "focus")
        key("ctrl+shift+c")
        self.expect(lambda: panel() is None, "the panel makes room for the loupe")
        self.expect(lambda: key("Escape") or panel(), "the panel comes back")
        self.assertEqual(embedded_item(), self.place)
        key("Escape")
        self.expect(lambda: panel() is None, "Escape closes the panel")
        self.open_panel()

    def test_tray_goes_for_good(self):
        process = self.start_with_item()
        self.open_panel()
        key("Escape")
        self.expect(lambda: panel() is None, "Escape closes the panel")
        self.end(self.tray)
        self.expect(panel, "the panel as a window").close()
        self.expect_end(process)

    def test_quit_through_menu(self):
        process = self.start_with_item()
        click(*self.place, button=3)
        self.expect(menu, "the menu")
        key("Up")
        key("Return")
        self.expect_end(process)


@unittest.skipUnless(CASE == "lxqt", "needs a tray on the bus")
class NotifierTest(TrayTest):
    def item(self):
        # The only icon of the bar's right end.
        return notifier_items() and (SCREEN[0] - 16, SCREEN[1] - 16)

    def item_property(self, name):
        return call(notifier_items()[0], "/StatusNotifierItem",
                    "org.freedesktop.DBus.Properties.Get", "org.kde.StatusNotifierItem", name)

    def open_panel(self):
        # The bar shows an item a moment after it has registered.
        def click_until_open():
            click(*self.place)
            return eventually(panel, 0.3)
        return self.expect(click_until_open, "the panel")

    def test_click_opens_and_closes(self):
        self.check_click_opens_and_closes()

    def test_focus_and_keys(self):
        self.check_focus_and_keys()

    def test_second_start(self):
        self.check_second_start()

    def test_item_describes_itself(self):
        self.start_with_item()
        for name, value in (("Title", "'Tintwell'"), ("Id", BUS_NAME), ("Status", "'Active'"),
                            ("Menu", "/MenuBar"), ("IconPixmap", "(16, 16,")):
            self.assertIn(value, self.item_property(name), name)
        layout = call(notifier_items()[0], "/MenuBar", "com.canonical.dbusmenu.GetLayout", "0",
                      "1", "[]")
        self.assertEqual(re.findall(r"'label': <'([^']*)'>", layout),
                         ["Open Tintwell", "Sample", "Quit Tintwell"])

    def test_icon_follows_the_appearance(self):
        portal = subprocess.Popen([sys.executable, "-c", SETTINGS_PORTAL], stdin=subprocess.PIPE, text=True,
                                  stdout=subprocess.DEVNULL)
        self.addCleanup(self.end, portal)
        self.expect(lambda: owner_process("org.freedesktop.portal.Desktop"), "the settings")
        self.start_with_item()
        # A pixel in the middle of the 16 points: alpha and ink.
        inks = ("0xff, 0x2a, 0x2a, 0x2e", "0xff, 0xf2, 0xf2, 0xf4")
        for scheme, ink in zip((2, 1, 2), (inks[0], inks[1], inks[0])):
            portal.stdin.write(f"{scheme}\n")
            portal.stdin.flush()
            self.expect(lambda ink=ink: ink in self.item_property("IconPixmap"), f"the ink for {scheme}")

    def test_menu_acts(self):
        process = self.start_with_item()
        for entry, outcome in ((1, panel), (3, lambda: process.poll() is not None)):
            call(notifier_items()[0], "/MenuBar", "com.canonical.dbusmenu.Event", str(entry),
                 "clicked", "<''>", "0")
            self.expect(outcome, f"entry {entry}")
        self.expect_end(process)
        self.expect(lambda: not notifier_items(), "the item is gone")
        self.assertIsNone(owner_process(BUS_NAME))

    def test_tray_restarts(self):
        self.start_with_item()
        os.kill(owner_process(WATCHER), signal.SIGTERM)
        self.expect(lambda: owner_process(WATCHER) is None, "the tray ends")
        self.start_service("lxqt-panel")
        self.place = self.expect(self.item, "the item in the new tray")
        self.open_panel()


@unittest.skipUnless(CASE == "none", "needs a desktop without a tray")
class NoTrayTest(ShellTest):
    def test_panel_is_a_window_whose_closing_ends_the_process(self):
        process = self.start()
        window = self.expect(panel, "the panel as a window")
        self.assertEqual((window.width, window.height), (448, 680))
        self.assertNotIn("SKIP_TASKBAR", window.states())
        window.close()
        self.expect_end(process)

    def test_item_moves_to_a_late_tray(self):
        process = self.start()
        self.expect(panel, "the panel as a window")
        self.start_trayer()
        item = self.expect(embedded_item, "the item")
        self.expect(lambda: panel() is None, "nobody has used the window: it gives way to the item")
        self.assertIsNone(process.poll())
        click(*item)
        self.expect(panel, "the panel beside the item")

    def test_window_in_use_stays(self):
        process = self.start()
        window = self.expect(panel, "the panel as a window")
        click(window.x + 5, window.y + window.height - 5)
        self.expect(lambda: output("xdotool", "getactivewindow").strip() == window.number, "focus")
        self.start_trayer()
        self.expect(embedded_item, "the item")
        self.assertIsNotNone(panel())
        panel().close()
        self.expect(lambda: panel() is None, "the window closes")
        self.assertIsNone(process.poll(), "with an item, closing is not the end")

    def test_second_start_brings_the_window_back(self):
        process = self.start()
        window = self.expect(panel, "the panel as a window")
        self.open_other_window()
        self.assertEqual(self.start().wait(timeout=10), 0)
        self.expect(lambda: output("xdotool", "getactivewindow").strip() == window.number, "focus")
        self.assertIsNone(process.poll())
        self.start_trayer()
        self.expect(embedded_item, "the item")
        self.assertIsNotNone(panel(), "somebody asked for this window")
        key("Escape")
        self.expect(lambda: panel() is None, "with an item, Escape closes it")
        self.assertIsNone(process.poll())


@unittest.skipUnless(CASE == "no-bus", "needs a desktop without a session bus")
class NoBusTest(ShellTest):
    def test_runs_with_an_x11_tray(self):
        self.start_trayer()
        process = self.start()
        item = self.expect(embedded_item, "the item")
        click(*item)
        self.expect(panel, "the panel")
        process.terminate()
        self.expect_end(process)


@unittest.skipUnless(CASE == "small", "needs a screen smaller than the panel")
class SmallScreenTest(ShellTest):
    def test_all_of_the_panel_can_be_reached(self):
        self.start_trayer()
        self.start("--preview-window")
        item = self.expect(embedded_item, "the item")
        preview = self.expect(lambda: windows("Tintwell Preview"), "the preview window")[0]
        self.assertLess(preview.height, SCREEN[1])
        click(*item)
        self.assertTrue(self.expect(panel, "the panel").is_on_screen())


@unittest.skipUnless(CASE == "arguments", "needs an X11 tray")
class ArgumentsTest(ShellTest):
    def test_preview_switch(self):
        self.start_trayer()
        cases = [
            # arguments, opens the preview window
            ([], False),
            (["--preview-window"], True),
            (["file", "--other", "--preview-window", "more"], True),
            (["-style", "--preview-window"], True),
            (["--preview-windows"], False),
            (["--Preview-Window"], False),
            (["--preview-window=1"], False),
            (["-preview-window"], False),
            (["--preview-window "], False),
        ]
        for arguments, opens in cases:
            with self.subTest(arguments=arguments):
                process = self.start(*arguments)
                try:
                    self.check_preview(process, opens)
                finally:
                    self.end(process)

    def check_preview(self, process, opens):
        self.expect(embedded_item, "the item")
        if opens:
            window = self.expect(lambda: windows("Tintwell Preview"), "the window")[0]
            self.assertEqual((window.width, window.height), (448, 680))
            self.assertLess(abs(window.x + 224 - SCREEN[0] / 2), 20)
            self.assertLess(abs(window.y + 340 - SCREEN[1] / 2), 30)
            self.assertNotIn("SKIP_TASKBAR", window.states())
            window.close()
            self.expect(lambda: not windows("Tintwell Preview"), "it closes")
        self.assertEqual(windows("Tintwell Preview"), [])
        self.assertIsNone(process.poll(), "the item stays")
        process.terminate()
        self.expect_end(process)

    def test_information(self):
        for argument, text in (("--help", "--preview-window"), ("--version", "tintwell 1.")):
            answer = subprocess.run([PROGRAM, argument], capture_output=True, text=True, check=False,
                                    env={"PATH": os.environ["PATH"]})
            self.assertEqual((answer.returncode, answer.stderr), (0, ""))
            self.assertIn(text, answer.stdout)

    def test_without_a_display(self):
        for display in ({}, {"DISPLAY": ""}, {"DISPLAY": ":987"}, {"WAYLAND_DISPLAY": "wayland-none"}):
            with self.subTest(display=display):
                answer = subprocess.run([PROGRAM], capture_output=True, text=True, check=False,
                                        env={"PATH": os.environ["PATH"], **display})
                self.assertEqual(answer.returncode, os.EX_UNAVAILABLE)
                self.assertEqual(answer.stderr.count("\n"), 1)
                self.assertIn("needs a desktop", answer.stderr)


if __name__ == "__main__":
    unittest.main()
