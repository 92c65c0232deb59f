#!/usr/bin/python3
"""Uses the panel as another process sees it: finds every control of the three workspaces in the accessibility tree by
role and name, presses it through its action, and looks at what reached the clipboard and the disk.

Usage: panel_test.py TINTWELL   (under with-desktop --a11y)"""

import json
import os
import subprocess
import sys
import unittest

import pyatspi
from gi.repository import GLib

from pick_support import PATIENCE, eventually
from reader import find_window, walk

APPLICATION = sys.argv.pop(1)
LIBRARY = os.path.join(os.environ["XDG_DATA_HOME"], "Tintwell/saved-palettes.json")
COLOR_LIST = os.path.join(os.environ["HOME"], "Library/Colors/Tintwell.clr")
HELP = "Click to copy this color, or drag it into a compatible color control."


def wait_for(condition, what):
    """The condition's first true value."""
    def ask():
        try:
            return condition()
        except Exception:  # the tree changes while it is walked
            return None
    value = eventually(ask)
    assert value, f"waited in vain for {what}"
    return value


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def press(node):
    action = node.queryAction()
    for index in range(action.nActions):
        if action.getName(index).lower() in ("press", "click", "toggle", "select", "switch"):
            assert action.doAction(index)
            return
    raise AssertionError(f"{node.name} has no press action")


def clipboard(target):
    return subprocess.run(["xclip", "-selection", "clipboard", "-o", "-t", target],
                          capture_output=True, timeout=10, check=False).stdout


class Panel(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.process = subprocess.Popen([APPLICATION, "--preview-window"])
        cls.window = wait_for(lambda: find_window("Tintwell Preview"), "the preview window")

    @classmethod
    def tearDownClass(cls):
        if cls.process.poll() is None:
            cls.process.terminate()
            cls.process.wait(PATIENCE)

    def controls(self, role):
        return [node for node in walk(self.window) if node.getRole() == role and showing(node)]

    def button(self, name):
        return wait_for(lambda: next((node for node in self.controls(pyatspi.ROLE_PUSH_BUTTON)
                                      if node.name == name), None), f'a button named "{name}"')

    def state(self, node, state):
        return node.getState().contains(state)

    def texts(self):
        return {node.name for node in walk(self.window) if showing(node)}

    def wait_text(self, text):
        return wait_for(lambda: text in self.texts(), f'the text "{text}"')

    def choose(self, tab):
        segment = wait_for(lambda: next((node for node in self.controls(pyatspi.ROLE_RADIO_BUTTON)
                                         if node.name == tab), None), f"the segment {tab}")
        press(segment)
        wait_for(lambda: self.state(segment, pyatspi.STATE_CHECKED), f"{tab} to be the chosen one")

    def test_1_copies_reach_the_clipboard(self):
        press(self.button("Complement"))
        self.wait_text("Copied Complement · #767300")
        wait_for(lambda: clipboard("UTF8_STRING") == b"#767300", "the hex text on the clipboard")
        self.assertEqual(clipboard("application/x-color"),
                         b"".join(bytes([v, v]) for v in (0x76, 0x73, 0x00, 0xFF)))
        press(self.button("Copy #6E56CF"))
        self.wait_text("Copied Violet · #6E56CF")

    def test_2_every_control_says_what_it_is(self):
        self.assertIn(self.window.getRole(), (pyatspi.ROLE_FRAME, pyatspi.ROLE_WINDOW))
        group = next(node for node in walk(self.window) if node.name == "Workspace")
        self.assertEqual([(node.getRole(), node.name) for node in group],
                         [(pyatspi.ROLE_RADIO_BUTTON, name) for name in ("Studio", "Themes", "Saved")])
        for tab in ("Themes", "Saved", "Studio"):
            self.choose(tab)
            checked = [node.name for node in group if self.state(node, pyatspi.STATE_CHECKED)]
            self.assertEqual(checked, [tab])
            for node in walk(self.window):
                if showing(node) and self.state(node, pyatspi.STATE_FOCUSABLE):
                    self.assertTrue(node.name, f"a {node.getRoleName()} without a name in {tab}")
        swatch = self.button("Complement")
        self.assertEqual((swatch.queryText().getText(0, -1), swatch.description),
                         ("#767300", f"#767300, Complementary. {HELP}"))

    def test_3_save_use_install_delete(self):
        self.choose("Saved")
        self.wait_text("No saved palettes")
        press(self.button("Save + Install"))
        self.wait_text("Saved and installed Tintwell.clr")
        with open(LIBRARY, encoding="utf-8") as file:
            library = json.load(file)
        self.assertEqual([entry["name"] for entry in library], ["Violet"])
        with open(COLOR_LIST, encoding="utf-8") as file:
            self.assertEqual(json.load(file)["colors"][0]["key"], "Source — Violet")
        os.remove(COLOR_LIST)
        press(self.button("Install"))
        self.wait_text("Installed Tintwell.clr")
        self.assertTrue(os.path.exists(COLOR_LIST))
        press(self.button("Use"))
        self.wait_text("Loaded Violet")
        self.wait_text("Complementary")
        self.choose("Saved")
        # A sync tool brings another palette; a double click on it leaves the one that moves up.
        with open(LIBRARY + ".synced", "w", encoding="utf-8") as file:
            json.dump([dict(library[0], id="6E56CF00-0000-4000-8000-000000000000", name="Elsewhere"), *library], file)
        os.replace(LIBRARY + ".synced", LIBRARY)
        trash = wait_for(lambda: next((node for node in self.controls(pyatspi.ROLE_PUSH_BUTTON)
                                       if (node.name, node.description) == ("Delete palette", "Elsewhere")), None),
                         "the other palette")
        place = trash.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        subprocess.run(["xdotool", "mousemove", str(place.x + place.width // 2), str(place.y + place.height // 2),
                        "click", "--repeat", "2", "--delay", "60", "1"], check=True)
        self.wait_text("Deleted Elsewhere")
        with open(LIBRARY, encoding="utf-8") as file:
            self.assertEqual(json.load(file), library)
        self.assertEqual(self.button("Delete palette").description, "Violet")
        press(self.button("Delete palette"))
        self.wait_text("Deleted Violet")
        self.wait_text("No saved palettes")
        with open(LIBRARY, encoding="utf-8") as file:
            self.assertEqual(json.load(file), [])

    def test_4_readers_are_told_of_every_status_and_of_little_else(self):
        events = []
        context = GLib.MainContext.default()

        def listen(event):
            events.append((event.type, event.source.name if event.source.getRole() == pyatspi.ROLE_NOTIFICATION else ""))

        def heard(text):
            while context.iteration(False):
                pass
            return sum(name == text and kind.endswith("showing") for kind, name in events)

        self.choose("Studio")
        tile = self.button("Complement")
        kinds = ("object:state-changed:showing", "object:property-change")
        pyatspi.Registry.registerEventListener(listen, *kinds)
        self.addCleanup(pyatspi.Registry.deregisterEventListener, listen, *kinds)
        for times in (1, 2):
            press(tile)
            wait_for(lambda: heard("Copied Complement · #767300") == times, "the announcement")
        self.assertIn("#767300", tile.description)
        subprocess.run(["xdotool", "search", "--name", "^Tintwell Preview$", "windowfocus", "--sync"], check=True)
        # What was read is told anew, and kept from then on by a reader that does not ask again.
        for text, status in ((b"#FF0000", "Pasted Vivid Coral · #FF0000"), (b"#00FF80", "Pasted Pale Green · #00FF80")):
            events.clear()
            subprocess.run(["xclip", "-selection", "clipboard"], input=text, check=True)
            subprocess.run(["xdotool", "key", "ctrl+v"], check=True)
            wait_for(lambda: heard(status), "the announcement of the change")
        self.assertLess(len(events), 10, events)
        self.assertNotIn("#767300", tile.description)

    def item(self, name):
        more = self.button("More")
        self.assertTrue(self.state(more, pyatspi.STATE_EXPANDABLE))
        self.assertFalse(self.state(more, pyatspi.STATE_EXPANDED))
        press(more)
        wait_for(lambda: self.state(more, pyatspi.STATE_EXPANDED), "the open menu")
        items = wait_for(lambda: self.controls(pyatspi.ROLE_MENU_ITEM), "the menu")
        self.assertEqual([item.name for item in items], ["Open macOS Colors", "Quit Tintwell"])
        return next(item for item in items if item.name == name)

    def test_5_menu(self):
        press(self.item("Open macOS Colors"))
        self.wait_text("Opened macOS Colors")
        wait_for(lambda: not self.controls(pyatspi.ROLE_MENU_ITEM), "the menu to close")
        press(self.item("Quit Tintwell"))
        self.assertEqual(self.process.wait(PATIENCE), 0)


if __name__ == "__main__":
    unittest.main()
