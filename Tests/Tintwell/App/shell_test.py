"""The application on a real desktop: its item in the tray, its panel beside it, its one process.

First argument: the program; second: the case, which says how with-desktop was started."""

import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

from pick_support import eventually
from shell_support import (BLACK_WINDOW, BUS_TRAY, CLIPBOARD_MANAGER, SCREEN, SETTINGS_PORTAL, SHORTCUTS_PORTAL, WATCHER,
                           active_window, call, click, embedded_item, key, menu, notifier_items, output, owner_process, panel, pixels, windows)

PROGRAM = sys.argv.pop(1)
CASE = sys.argv.pop(1)
BUS_NAME = "io.github.tintwell.Tintwell"
TRAYER = ["trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "24"]
SCRATCH = tempfile.mkdtemp(dir=os.environ["HOME"])


def leftovers():
    """What a process could leave behind outside the user's data."""
    return {os.path.join(folder, name) for folder in (os.environ["XDG_RUNTIME_DIR"], SCRATCH)
            for name in os.listdir(folder)}


class ShellTest(unittest.TestCase):
    def setUp(self):
        self.before = leftovers()

    def start(self, *arguments, **environment):
        process = subprocess.Popen([PROGRAM, *arguments], env={**os.environ, "TMPDIR": SCRATCH, **environment})
        self.addCleanup(self.end, process)
        return process

    def start_pick(self):
        process = subprocess.Popen([PROGRAM, "--pick"], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        for cleanup in (process.stderr.close, process.stdout.close, lambda: self.end(process)):
            self.addCleanup(cleanup)
        return process

    def expect_loupe(self):
        self.expect(lambda: windows("Loupe"), "the loupe")

    def expect_pick(self, process, code, text=""):
        """It prints the color alone, and nothing else keeps its standard output open."""
        self.assertEqual(process.communicate(timeout=20), (text, ""))
        self.assertEqual(process.returncode, code)
        self.expect(lambda: not windows("Loupe"), "the loupe goes")

    def start_trayer(self):
        tray = self.start_service(*TRAYER)
        self.expect(lambda: "_TYPE_DOCK" in output("xprop", "-name", "panel"), "the tray")
        return tray

    def start_service(self, *command):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(self.end, process)
        return process

    def start_speaker(self, script, **environment):
        """A program of ours that is ready once it says so."""
        process = subprocess.Popen([sys.executable, "-c", script], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   text=True, bufsize=1, env={**os.environ, **environment})
        for cleanup in (process.stdin.close, process.stdout.close, lambda: self.end(process)):
            self.addCleanup(cleanup)
        self.assertEqual(process.stdout.readline(), "ready\n")
        return process

    def start_settings(self):
        """Returns what sets the desktop's appearance."""
        portal = subprocess.Popen([sys.executable, "-c", SETTINGS_PORTAL], stdin=subprocess.PIPE, text=True,
                                  stdout=subprocess.DEVNULL)
        self.addCleanup(portal.stdin.close)
        self.addCleanup(self.end, portal)
        self.expect(lambda: owner_process("org.freedesktop.portal.Desktop"), "the settings")

        def choose(scheme):
            portal.stdin.write(f"{scheme}\n")
            portal.stdin.flush()
        return choose

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

    def open_window(self, kind, title, *place):
        process = self.start_service(sys.executable, "-c", BLACK_WINDOW, kind, title, *map(str, place))
        return process, self.expect(lambda: windows(title), title)[0]

    def open_other_window(self):
        _, other = self.open_window("TOPLEVEL", "Another program", 20, 60, 200)
        self.expect(lambda: active_window() == other.number, "the other window has the focus")
        return other


class TrayTest(ShellTest):
    """What holds for either kind of tray; `self.item()` is where to click."""

    def item(self):
        raise NotImplementedError

    def start_with_item(self, *arguments, **environment):
        process = self.start(*arguments, **environment)
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
        self.assertIn("SKIP_TASKBAR", opened.states())
        self.assertIn("SKIP_PAGER", opened.states())
        click(*self.place)
        self.expect(lambda: panel() is None, "a second click closes the panel")
        self.open_panel()
        process.terminate()
        self.expect_end(process)


@unittest.skipUnless(CASE == "trayer", "needs an X11 tray")
class EmbeddedTest(TrayTest):
    def setUp(self):
        super().setUp()
        self.tray = self.start_trayer()

    def item(self):
        return embedded_item()

    def test_click_opens_and_closes(self):
        self.check_click_opens_and_closes()

    def test_tray_restarts(self):
        self.start_with_item()
        self.end(self.tray)
        self.expect(lambda: embedded_item() is None, "the item goes with its tray")
        self.start_trayer()
        self.place = self.expect(self.item, "the item in the new tray")
        self.open_panel()

    def test_icon_follows_the_bar(self):
        choose = self.start_settings()
        self.start_with_item()
        x, y = self.place[0] - 11, self.place[1] - 11

        def shows(ink):
            return ink in pixels(x, y, 22, 22)
        self.expect(lambda: shows("#2A2A2E"), "dark ink on the light bar")
        # Twice, as the looks that the item takes by itself at its start may serve for the first time.
        for _ in range(2):
            # Where the item looks at the bar.
            dot, _ = self.open_window("POPUP", "Dark bar", x, y, 2)
            choose(1)
            self.expect(lambda: shows("#F2F2F4"), "light ink on the dark bar")
            self.end(dot)
            choose(2)
            self.expect(lambda: shows("#2A2A2E"), "dark ink again")

    def test_panel_stays_during_a_drag(self):
        self.start_with_item()
        other = self.open_other_window()
        opened = self.open_panel()
        self.expect(lambda: active_window() == opened.number, "focus")
        source = opened.x + 70, opened.y + 80
        subprocess.run(["xdotool", "mousemove", *map(str, source), "mousedown", "1"], check=True)
        for x in range(source[0], other.x + 100, -20):
            subprocess.run(["xdotool", "mousemove", str(x), str(source[1])], check=True)
        subprocess.run(["xdotool", "windowactivate", "--sync", other.number], check=True)
        self.expect(lambda: active_window() == other.number, "the other window")
        self.assertIsNotNone(panel())
        subprocess.run(["xdotool", "mouseup", "1"], check=True)
        self.expect(lambda: panel() is None, "then the focus is gone, and with it the panel")

    def test_panel_stays_until_a_press_elsewhere_ends(self):
        self.start_with_item()
        other = self.open_other_window()
        self.open_panel()
        self.expect(lambda: active_window() == panel().number, "focus")
        subprocess.run(["xdotool", "mousemove", str(other.x + 50), str(other.y + 50), "mousedown", "1"], check=True)
        self.expect(lambda: active_window() == other.number, "the press takes the focus")
        self.assertIsNotNone(panel(), "it may be a drag to the panel")
        subprocess.run(["xdotool", "mouseup", "1"], check=True)
        self.expect(lambda: panel() is None, "it was none")

    def test_middle_click_picks_and_copies(self):
        self.start_with_item()
        _, dot = self.open_window("POPUP", "Black", 20, 60, 200)
        click(*self.place, button=2)
        self.expect_loupe()
        click(dot.x + 50, dot.y + 50)
        self.expect(lambda: output("xclip", "-o", "-selection", "clipboard") == "#000000", "the color on the clipboard")
        self.assertIsNone(panel())

    def test_item_outlives_a_pick(self):
        self.start_with_item()
        self.open_panel()
        self.expect(lambda: active_window() == panel().number, "focus")
        key("ctrl+shift+c")
        self.expect(lambda: panel() is None, "the panel makes room for the loupe")
        self.expect_loupe()
        key("Escape")
        self.expect(panel, "the panel comes back")
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

    def test_closing_while_the_tray_may_come_back(self):
        process = self.start_with_item("--preview-window")
        preview = self.expect(lambda: windows("Tintwell Preview"), "the preview window")[0]
        self.end(self.tray)
        self.expect(lambda: embedded_item() is None, "the item goes with its tray")
        preview.close()
        self.expect(panel, "the panel as a window: nothing else would reach the process")
        self.assertIsNone(process.poll())

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
        x, y = self.place
        self.expect(lambda: "#2A2A2E" in pixels(x - 8, y - 8, 16, 16), "the picture in the bar")
        return super().open_panel()

    def test_click_opens_and_closes(self):
        self.check_click_opens_and_closes()

    def test_focus_and_keys(self):
        self.start_with_item()
        other = self.open_other_window()
        self.open_panel()
        self.expect(lambda: active_window() == panel().number, "focus")
        for _ in range(12):
            key("Escape")
            self.expect(lambda: panel() is None, "Escape closes the panel")
            # The toolkit may tell only now that the focus went.
            self.open_panel()
            self.expect(lambda: active_window() == panel().number, "focus once more")
        subprocess.run(["xdotool", "windowactivate", other.number], check=True)
        self.expect(lambda: panel() is None, "the panel closes when the focus goes")

    def test_second_start(self):
        first = self.start_with_item()
        self.assertEqual(self.start().wait(timeout=10), 0)
        opened = self.expect(panel, "a second start shows the panel")
        self.assertTrue(opened.is_on_screen())
        self.assertEqual(self.start("--preview-window").wait(timeout=10), 0)
        self.expect(lambda: windows("Tintwell Preview"), "and the preview window with the switch")
        self.assertIsNone(first.poll())
        first.send_signal(signal.SIGINT)
        self.expect_end(first)

    def test_item_describes_itself(self):
        self.start_with_item()
        for name, value in (("Title", "'Tintwell'"), ("Id", BUS_NAME), ("Status", "'Active'"),
                            ("Menu", "/MenuBar"), ("IconPixmap", "(16, 16,")):
            self.assertIn(value, self.item_property(name), name)
        layout = call(notifier_items()[0], "/MenuBar", "com.canonical.dbusmenu.GetLayout", "0",
                      "1", "[]")
        self.assertEqual(re.findall(r"'label': <'([^']*)'>", layout),
                         ["Open Tintwell", "Sample", "Keep Open", "Quit Tintwell"])

    def test_icon_follows_the_appearance(self):
        choose = self.start_settings()
        self.start_with_item()
        # A pixel in the middle of the 16 points: alpha and ink.
        inks = ("0xff, 0x2a, 0x2a, 0x2e", "0xff, 0xf2, 0xf2, 0xf4")
        for scheme, ink in zip((2, 1, 2), (inks[0], inks[1], inks[0])):
            choose(scheme)
            self.expect(lambda ink=ink: ink in self.item_property("IconPixmap"), f"the ink for {scheme}")

    def test_panel_opens_where_the_click_was(self):
        bar = SCREEN[1] - 32
        cases = [
            # session, the place that the tray tells, the panel's middle; the pointer is elsewhere
            ("x11", (900, bar), 400),
            ("wayland", (900, bar), 900),
            ("wayland", (0, 0), SCREEN[0] - 224),
        ]
        subprocess.run(["xdotool", "mousemove", "400", str(bar)], check=True)
        for session, told, middle in cases:
            with self.subTest(session=session, told=told):
                process = self.start_with_item(XDG_SESSION_TYPE=session, WAYLAND_DISPLAY="")
                call(notifier_items()[0], "/StatusNotifierItem", "org.kde.StatusNotifierItem.Activate",
                     *map(str, told))
                opened = self.expect(panel, "the panel")
                self.assertLess(abs(opened.x + opened.width / 2 - middle), 20)
                self.end(process)
                self.expect(lambda: not notifier_items(), "the item goes")

    def test_menu_acts(self):
        process = self.start_with_item()
        for entry, outcome in ((1, panel), (4, lambda: process.poll() is not None)):
            call(notifier_items()[0], "/MenuBar", "com.canonical.dbusmenu.Event", str(entry),
                 "clicked", "<''>", "0")
            self.expect(outcome, f"entry {entry}")
        self.expect_end(process)
        self.expect(lambda: not notifier_items(), "the item is gone")
        self.assertIsNone(owner_process(BUS_NAME))

    def keeps_open(self):
        return "'toggle-state': <1>" in call(notifier_items()[0], "/MenuBar", "com.canonical.dbusmenu.GetLayout", "0",
                                             "1", "[]")

    def test_keep_open_outlives_the_process(self):
        process = self.start_with_item()
        self.addCleanup(shutil.rmtree, os.path.expanduser("~/.config/Tintwell"))
        self.assertFalse(self.keeps_open())
        call(notifier_items()[0], "/MenuBar", "com.canonical.dbusmenu.Event", "3", "clicked", "<''>", "0")
        self.expect(self.keeps_open, "the mark")
        process.terminate()
        self.expect_end(process)
        self.expect(lambda: not notifier_items(), "the item goes")
        self.start_with_item()
        self.assertTrue(self.keeps_open())
        other = self.open_other_window()
        opened = self.open_panel()
        self.expect(lambda: active_window() == opened.number, "focus")
        subprocess.run(["xdotool", "windowactivate", "--sync", other.number], check=True)
        self.assertIsNotNone(panel())

    def test_pick_by_a_key(self):
        process = self.start_with_item()
        _, black = self.open_window("POPUP", "Black", 20, 60, 200)
        pick = self.start_pick()
        self.expect_loupe()
        self.expect_pick_beside_another()
        click(black.x + 50, black.y + 50)
        self.expect_pick(pick, 0, "#000000\n")
        self.assertEqual(output("xclip", "-o", "-selection", "clipboard"), "#000000")
        pick = self.start_pick()
        self.expect_loupe()
        key("Escape")
        self.expect_pick(pick, 1)
        self.assertIsNone(panel())
        call(BUS_NAME, "/io/github/tintwell/Tintwell", "org.freedesktop.Application.ActivateAction", "pick", "[]", "{}")
        self.expect_loupe()
        key("Escape")
        self.expect(lambda: not windows("Loupe"), "the loupe goes")
        process.terminate()
        self.expect_end(process)

    def test_pick_without_any_means(self):
        self.start_with_item(XDG_SESSION_TYPE="wayland", WAYLAND_DISPLAY="")
        pick = self.start_pick()
        text, error = pick.communicate(timeout=20)
        self.assertEqual((pick.returncode, text, error.count("\n")), (os.EX_UNAVAILABLE, "", 1))

    def test_key_of_the_desktop(self):
        portal = self.start_speaker(SHORTCUTS_PORTAL)
        said = portal.stdout.readline
        process = self.start_with_item()
        self.assertEqual((said(), said()), ("list\n", "bind ('pick', 'Sample a Color')\n"))
        portal.stdin.write("\n")
        self.expect_loupe()
        key("Escape")
        process.terminate()
        self.expect_end(process)
        self.expect(lambda: not notifier_items(), "the item goes")
        self.start_with_item()
        self.assertEqual(said(), "list pick\n")
        portal.stdin.write("\n")
        self.expect_loupe()
        key("Escape")
        portal.terminate()
        self.assertEqual(portal.stdout.read(), "", "what is known is not bound: a desktop may open its settings then")

    def expect_pick_beside_another(self):
        other = self.start_pick()
        self.assertEqual((*other.communicate(timeout=20), other.returncode), ("", "", 1), "one pick at a time")
        self.assertEqual(len(windows("Loupe")), 1)

    def test_name_goes_before_the_clipboard(self):
        manager = self.start_speaker(CLIPBOARD_MANAGER)
        first = self.start_with_item()
        pick = self.start_pick()
        self.expect_loupe()
        key("Return")
        self.assertEqual(pick.wait(timeout=20), 0)
        manager.send_signal(signal.SIGSTOP)
        first.terminate()
        second = self.start()
        self.expect(lambda: owner_process(BUS_NAME) == second.pid, "the next process")
        self.assertIsNone(first.poll(), "the first still waits for the clipboard manager")

    def test_ignored_signal_stays_ignored(self):
        process = subprocess.Popen(["nohup", PROGRAM], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        self.addCleanup(self.end, process)
        self.expect(self.item, "the item in the tray")
        process.send_signal(signal.SIGHUP)
        self.assertEqual(self.start().wait(timeout=10), 0)
        self.expect(panel, "it lives on")
        process.terminate()
        self.expect_end(process)

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
        self.expect(lambda: active_window() == window.number, "focus")
        tray = self.start_trayer()
        self.expect(embedded_item, "the item")
        self.assertIsNotNone(panel())
        panel().close()
        self.expect(lambda: panel() is None, "the window closes")
        self.assertIsNone(process.poll(), "with an item, closing is not the end")
        self.end(tray)
        self.expect(panel, "the window again")
        self.start_trayer()
        self.expect(lambda: panel() is None, "nobody has used it this time")

    def test_second_start_brings_the_window_back(self):
        process = self.start()
        window = self.expect(panel, "the panel as a window")
        self.open_other_window()
        self.assertEqual(self.start().wait(timeout=10), 0)
        self.expect(lambda: active_window() == window.number, "focus")
        self.assertIsNone(process.poll())
        self.start_trayer()
        self.expect(embedded_item, "the item")
        self.assertIsNotNone(panel(), "somebody asked for this window")
        key("Escape")
        self.expect(lambda: panel() is None, "with an item, Escape closes it")
        self.assertIsNone(process.poll())


    def test_pick_starts_the_process(self):
        pick = self.start_pick()
        self.expect_loupe()
        process = owner_process(BUS_NAME)
        self.assertNotEqual(process, pick.pid)
        key("Escape")
        self.expect_pick(pick, 1)
        self.expect(panel, "without a tray, the panel as a window").close()
        self.expect(lambda: owner_process(BUS_NAME) is None, "closing it is the end")

    def test_bus_dies(self):
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE,
                               text=True)
        self.addCleanup(self.end, bus)
        self.addCleanup(bus.stdout.close)
        address = {"DBUS_SESSION_BUS_ADDRESS": bus.stdout.readline().strip()}
        tray = self.start_speaker(BUS_TRAY, **address)
        self.before = leftovers()
        process = self.start(**address)
        self.assertRegex(tray.stdout.readline(), r"^:\d+\.\d+$", "the item by its unique name")
        self.assertIsNone(panel())
        bus.kill()
        self.expect(panel, "the panel as a window: nothing else would reach the process").close()
        self.expect_end(process)


@unittest.skipUnless(CASE == "no-bus", "needs a desktop without a session bus")
class NoBusTest(ShellTest):
    def test_runs_with_an_x11_tray(self):
        self.start_trayer()
        process = self.start()
        item = self.expect(embedded_item, "the item")
        click(*item)
        self.expect(panel, "the panel")
        answer = self.start_pick()
        self.assertEqual((answer.wait(timeout=10), answer.stderr.read().count("\n")), (os.EX_UNAVAILABLE, 1))
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
        top, bottom = (int(extent) for extent in output("xprop", "-id", preview.number, "_NET_FRAME_EXTENTS").split(",")[2:])
        area = [int(number) for number in re.findall(r"\d+", output("xprop", "-root", "_NET_WORKAREA"))[:4]]
        self.assertAlmostEqual(preview.y - top - area[1],
                               area[1] + area[3] - preview.y - preview.height - bottom, delta=1)
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
                self.check_preview(process, opens)

    def check_preview(self, process, opens):
        self.expect(embedded_item, "the item")
        if opens:
            window = self.expect(lambda: windows("Tintwell Preview"), "the window")[0]
            self.assertEqual((window.width, window.height), (448, 680))
            self.assertLess(abs(window.x + 224 - SCREEN[0] / 2), 20)
            self.assertLess(abs(window.y + 340 - SCREEN[1] / 2), 30)
            self.assertNotIn("SKIP_TASKBAR", window.states())
            self.assertIn("Icon (128 x 128)", output("xprop", "-id", window.number, "_NET_WM_ICON"))
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
        cases = [
            {},
            {"DISPLAY": ""},
            {"DISPLAY": ":987"},
            {"DISPLAY": ":987", "QT_QPA_PLATFORM": "xcb"},
            {"DISPLAY": os.environ["DISPLAY"], "QT_QPA_PLATFORM": "no-such-platform"},
            {"WAYLAND_DISPLAY": "wayland-none"},
        ]
        for display in cases:
            with self.subTest(display=display):
                answer = subprocess.run(
                    [PROGRAM], capture_output=True, text=True, check=False,
                    env={name: os.environ[name] for name in ("PATH", "XDG_RUNTIME_DIR")} | display)
                self.assertEqual(answer.returncode, os.EX_UNAVAILABLE)
                self.assertEqual(answer.stderr.count("\n"), 1)
                self.assertIn("needs a desktop", answer.stderr)


if __name__ == "__main__":
    unittest.main()
