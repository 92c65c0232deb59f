"""The pick through the desktop portal, against a portal that does everything a portal can do wrong."""

import os
import subprocess
import sys
import unittest

import pick_support
from pick_support import PickTest, Program

PORTAL = os.path.join(os.path.dirname(os.path.abspath(pick_support.__file__)), "fake_portal.py")
BLUE = (63.75, 127.5, 255)


class PortalTest(PickTest):
    def start_portal(self, mode):
        portal = Program("/usr/bin/python3", PORTAL, mode)
        self.addCleanup(self.end_portal, portal)
        self.assertEqual(portal.hear(), "ready")
        return portal

    @staticmethod
    def end_portal(portal):
        portal.process.kill()
        portal.end()

    def test_every_answer(self):
        rows = [
            # mode, what comes back
            ("done", BLUE),
            ("outside", (0, 127.5, 255)),
            ("more results", BLUE),
            ("another handle", BLUE),
            ("before the reply", BLUE),
            ("stranger", BLUE),
            ("replies late", None),
            ("cancelled", None),
            ("ended otherwise", None),
            ("cancelled with a colour", None),
            ("no colour", None),
            ("text", None),
            ("two numbers", None),
            ("floats of another type", None),
            ("array", None),
            ("not a number", None),
            ("refuses", None),
            ("no screenshot", None),
            ("dies", None),
            ("dies before the reply", None),
        ]
        # Even on X11, a Wayland session is the portal's.
        driver = self.start_driver(XDG_SESSION_TYPE="wayland")
        for mode, expected in rows:
            with self.subTest(mode):
                portal = self.start_portal(mode)
                driver.say("portal" if mode == "replies late" else "pick")
                color = self.picked()
                if expected is None:
                    self.assertIsNone(color)
                else:
                    self.assert_color(color, expected)
                self.end_portal(portal)
        self.assert_still_usable()

    def test_a_portal_that_never_answers_is_told_when_the_time_is_over(self):
        driver = self.start_driver()
        portal = self.start_portal("never answers")
        driver.say("portal")
        self.assertEqual(portal.hear(), "asked")
        self.assertIsNone(self.picked())
        self.assertEqual(portal.hear(), "closed")

    def test_a_call_without_reply_ends_when_the_time_is_over(self):
        driver = self.start_driver()
        self.start_portal("never replies")
        driver.say("portal")
        self.assertIsNone(self.picked())

    def test_a_pick_that_is_dropped_is_closed_and_says_nothing(self):
        driver = self.start_driver(XDG_SESSION_TYPE="wayland")
        # The handle is known at once, or only after the pick was dropped.
        for mode in ("never answers", "replies late"):
            with self.subTest(mode):
                portal = self.start_portal(mode)
                driver.say("pick")
                self.assertEqual(portal.hear(), "asked")
                driver.say("drop")
                self.assertEqual(portal.hear(), "closed")
                self.assert_still_usable()
                self.end_portal(portal)

    def test_windows_make_room_while_the_portal_picks(self):
        driver = self.start_driver("--window", "600", "350", XDG_SESSION_TYPE="wayland")
        portal = self.start_portal("done")
        driver.say("pick")
        self.assertEqual([driver.hear(), driver.hear()], ["hidden", "shown"])
        self.assert_color(self.picked(), BLUE)
        self.end_portal(portal)
        driver.say("pick")
        self.assertIsNone(self.picked(), "and stay where there is none")

    def test_no_portal(self):
        self.start_driver(XDG_SESSION_TYPE="wayland").say("pick")
        self.assertIsNone(self.picked())

    def test_no_bus(self):
        driver = self.start_driver(
            XDG_SESSION_TYPE="wayland", DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent")
        for command in ("pick", "portal"):
            driver.say(command)
            self.assertIsNone(self.picked())

    def test_a_bus_that_ends_in_the_middle(self):
        rig = os.path.dirname(os.environ["HOME"])
        bus = subprocess.Popen(
            ["dbus-daemon", f"--config-file={rig}/bus.conf", "--nofork", "--print-address=1"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(bus.stdout.close)
        self.addCleanup(bus.wait)
        self.addCleanup(bus.kill)
        address = bus.stdout.readline().strip()
        portal = Program("/usr/bin/python3", PORTAL, "never answers",
                         environment={"DBUS_SESSION_BUS_ADDRESS": address})
        self.addCleanup(self.end_portal, portal)
        self.assertEqual(portal.hear(), "ready")
        driver = self.start_driver(XDG_SESSION_TYPE="wayland", DBUS_SESSION_BUS_ADDRESS=address)
        driver.say("pick")
        self.assertEqual(portal.hear(), "asked")
        bus.kill()
        self.assertIsNone(self.picked())
        driver.say("pick")
        self.assertIsNone(self.picked(), "and so does the next one")


if __name__ == "__main__":
    PickTest.driver_path = sys.argv.pop(1)
    unittest.main()
