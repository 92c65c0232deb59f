"""Installs into a folder like ~/.local, looks whether a desktop finds everything there, and takes it back.

Arguments: cmake, the folder of the build."""

import os
import shlex
import subprocess
import sys
import tempfile
import unittest

import gi
gi.require_version("Gtk", "3.0")
from gi.repository import Gio, Gtk  # noqa: E402

CMAKE, BUILD = sys.argv[1:3]
del sys.argv[1:]
APPLICATION = "io.github.tintwell.Tintwell"
RECORD = os.path.join(BUILD, "installed.txt")


def cmake(*words):
    return subprocess.run([CMAKE, *words], check=True, capture_output=True, text=True).stdout


class InstallationTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="installation ")
        self.addCleanup(folder.cleanup)
        self.prefix = os.path.join(folder.name, ".local")
        # The developer's own installation stays as it is.
        if os.path.exists(RECORD):
            os.rename(RECORD, RECORD + ".kept")
            self.addCleanup(os.rename, RECORD + ".kept", RECORD)
        self.addCleanup(lambda: os.path.exists(RECORD) and os.remove(RECORD))
        cmake("--install", BUILD, "--prefix", self.prefix, "--strip")

    def at(self, *parts):
        return os.path.join(self.prefix, *parts)

    def files(self):
        return [os.path.join(folder, name) for folder, _, names in os.walk(self.prefix) for name in names]

    def test_a_desktop_finds_the_program_and_its_icon(self):
        entry = Gio.DesktopAppInfo.new_from_filename(self.at("share/applications", f"{APPLICATION}.desktop"))
        self.assertIsNotNone(entry, "the entry is valid and its program exists")
        self.assertEqual(shlex.split(entry.get_commandline()), [self.at("bin/tintwell")])
        self.assertEqual(entry.get_string("TryExec"), self.at("bin/tintwell"))
        icons = Gtk.IconTheme()
        icons.append_search_path(self.at("share/icons"))
        for name, size in ((APPLICATION, 48), (APPLICATION, 512), (f"{APPLICATION}-symbolic", 16)):
            found = icons.lookup_icon(name, size, 0)
            self.assertIsNotNone(found, name)
            self.assertTrue(found.get_filename().startswith(self.prefix))

    def test_programs_run_from_there(self):
        for program in ("tintwell", "tintwell-cli"):
            answer = subprocess.run([self.at("bin", program), "--version"], check=True, capture_output=True, text=True)
            self.assertRegex(answer.stdout, r"\d+\.\d+\.\d+")
        # Where the program looks from its own place.
        for picture in ("BrandMascot.png", "WindowIcon.png"):
            self.assertTrue(os.path.exists(self.at("bin/../share/tintwell", picture)))

    def test_manual_pages_can_be_read(self):
        for page in ("tintwell.1.gz", "tintwell-cli.1.gz"):
            text = subprocess.run(["gzip", "-dc", self.at("share/man/man1", page)], check=True, capture_output=True).stdout
            self.assertIn(b".SH SYNOPSIS", text)

    def test_uninstall_takes_everything_back_and_nothing_else(self):
        foreign = self.at("share/applications/foreign.desktop")
        with open(foreign, "w", encoding="ascii"):
            pass
        cmake("--build", BUILD, "--target", "uninstall")
        self.assertEqual(self.files(), [foreign])
        folders = [name for _, names, _ in os.walk(self.prefix) for name in names]
        self.assertFalse([name for name in folders if "tintwell" in name.lower()])


if __name__ == "__main__":
    unittest.main(warnings="ignore")
