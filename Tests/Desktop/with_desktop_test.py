"""What tests rely on when they run under with-desktop: a desktop of their own, and nothing left of it."""

import glob
import os
import signal
import stat
import subprocess
import sys
import time
import unittest

RIG = os.path.join(os.path.dirname(os.path.abspath(__file__)), "with-desktop")
CASE = sys.argv.pop(1)


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def eventually(condition):
    limit = time.monotonic() + 20
    while not condition():
        if time.monotonic() > limit:
            return False
        time.sleep(0.02)
    return True


@unittest.skipUnless(CASE in ("trayer", "lxqt"), "runs under the rig")
class Desktop(unittest.TestCase):
    def test_folders_are_private(self):
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"):
            self.assertIn("/with-desktop-", os.environ[name])
            self.assertEqual(stat.S_IMODE(os.stat(os.environ[name]).st_mode), 0o700, name)

    def test_window_manager_runs(self):
        self.assertIn("window id", output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))

    def test_tray_host_is_there(self):
        if CASE == "trayer":
            self.assertEqual(os.environ["QT_SCALE_FACTOR"], "2")
            self.assertTrue(eventually(lambda: "_TYPE_DOCK" in output("xprop", "-name", "panel")))
            return
        self.assertIn("true", output(
            "gdbus", "call", "--session", "--dest", "org.kde.StatusNotifierWatcher", "--object-path",
            "/StatusNotifierWatcher", "--method", "org.freedesktop.DBus.Properties.Get",
            "org.kde.StatusNotifierWatcher", "IsStatusNotifierHostRegistered"))


@unittest.skipUnless(CASE == "ends", "starts rigs of its own")
class End(unittest.TestCase):
    def processes_with(self, mark):
        found = []
        for path in glob.glob("/proc/[0-9]*/environ"):
            try:
                with open(path, "rb") as file:
                    if mark.encode() in file.read():
                        found.append(int(path.split("/")[2]))
            except OSError:
                pass
        return [process for process in found if process != os.getpid()]

    def run_rig(self, mark, *arguments, **more):
        return subprocess.Popen([RIG, *arguments], env={**os.environ, "RIG_MARK": mark},
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, **more)

    def test_every_end_leaves_nothing(self):
        cases = [
            # name, arguments, signal, exit code
            ("exit", ["--", "sh", "-c", "echo $HOME; setsid sleep 100 & exit 7"], None, 7),
            ("timeout", ["--timeout", "0.5", "--", "sh", "-c", "echo $HOME; sleep 100"], None, 124),
            ("no command", ["--", "/nonexistent"], None, 125),
            ("no bus, no manager", ["--bus", "no", "--wm", "none", "--", "true"], None, 0),
            ("signal", ["--", "sh", "-c", "echo $HOME; sleep 100"], signal.SIGTERM, 143),
            ("killed", ["--", "sh", "-c", "echo $HOME; exec sleep 100"], signal.SIGKILL, -9),
        ]
        for name, arguments, number, code in cases:
            with self.subTest(name):
                mark = f"{os.getpid()}-{name}"
                rig = self.run_rig(f"<{mark}>", *arguments)
                home = rig.stdout.readline().strip() if "$HOME" in arguments[-1] else ""
                if number:
                    rig.send_signal(number)
                self.assertEqual(rig.wait(), code)
                rig.stdout.close()
                self.assertTrue(eventually(lambda: not self.processes_with(f"<{mark}>")))
                if home and number != signal.SIGKILL:
                    self.assertFalse(os.path.exists(os.path.dirname(home)))
                elif home:
                    subprocess.run(["rm", "-r", os.path.dirname(home)], check=True)


if __name__ == "__main__":
    unittest.main()
