"""What shell_test.py sees and does from outside the program: windows, the tray, the bus; and other programs."""

import ctypes
import re
import subprocess

from pick_support import eventually

CLIENT_MESSAGE = 33
# What a window manager selects on the root window: SubstructureNotifyMask, SubstructureRedirectMask.
SUBSTRUCTURE_MASKS = 1 << 19 | 1 << 20
WATCHER = "org.kde.StatusNotifierWatcher"
SCREEN = tuple(map(int, re.search(r"dimensions:\s+(\d+)x(\d+)", subprocess.run(
    ["xdpyinfo"], capture_output=True, text=True, check=True).stdout).groups()))
# A black window of another program: its kind, title, place and size.
BLACK_WINDOW = """
import sys
import gi
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk
kind = getattr(Gtk.WindowType, sys.argv[1])
x, y, size = map(int, sys.argv[3:])
window = Gtk.Window(type=kind, title=sys.argv[2], default_width=size, default_height=size)
window.override_background_color(Gtk.StateFlags.NORMAL, Gdk.RGBA(0, 0, 0, 1))
window.move(x, y)
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
# A clipboard manager; stopped, it never takes over what a program that ends would hand to it.
CLIPBOARD_MANAGER = """
import gi
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk
Gtk.Clipboard.get(Gdk.atom_intern("CLIPBOARD_MANAGER", False)).set_text("manager", -1)
Gdk.Display.get_default().sync()
print("ready", flush=True)
Gtk.main()
"""
# A tray on the bus, as far as an item looks at it.
BUS_TRAY = """
import dbus, dbus.mainloop.glib, dbus.service
from gi.repository import GLib
WATCHER = "org.kde.StatusNotifierWatcher"
class Watcher(dbus.service.Object):
    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return True
    @dbus.service.method(WATCHER, in_signature="s")
    def RegisterStatusNotifierItem(self, item):
        print(item, flush=True)
dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
watcher = Watcher(bus, "/StatusNotifierWatcher")
name = dbus.service.BusName(WATCHER, bus)
print("ready", flush=True)
GLib.MainLoop().run()
"""
# The portal for global shortcuts: tells what it is asked, remembers what was bound; a line of the input is the key.
SHORTCUTS_PORTAL = """
import sys
import dbus, dbus.mainloop.glib, dbus.service
from gi.repository import GLib
SHORTCUTS = "org.freedesktop.portal.GlobalShortcuts"
PATH = "/org/freedesktop/portal/desktop"
class Request(dbus.service.Object):
    @dbus.service.signal("org.freedesktop.portal.Request", signature="ua{sv}")
    def Response(self, code, results):
        pass
class Portal(dbus.service.Object):
    known = []
    session = None
    def answer(self, sender, options, results):
        path = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        request = Request(bus, path)
        def respond():
            request.Response(0, dbus.Dictionary(results, signature="sv"))
            request.remove_from_connection()
        GLib.idle_add(respond)
        return dbus.ObjectPath(path)
    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return dbus.UInt32(1)
    @dbus.service.method(SHORTCUTS, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender):
        # The second time, as Plasma 5.27 does it.
        self.known = options["shortcuts"] if self.session else []
        self.session = f"{PATH}/session/{sender[1:].replace('.', '_')}/{options['session_handle_token']}"
        return self.answer(sender, options, {"session_handle": self.session})
    @dbus.service.method(SHORTCUTS, in_signature="oa{sv}", out_signature="o", sender_keyword="sender")
    def ListShortcuts(self, session, options, sender):
        print("list", *(str(name) for name, _ in self.known), flush=True)
        return self.answer(sender, options, {"shortcuts": dbus.Array(self.known, signature="(sa{sv})")})
    @dbus.service.method(SHORTCUTS, in_signature="oa(sa{sv})sa{sv}", out_signature="o", sender_keyword="sender")
    def BindShortcuts(self, session, shortcuts, parent, options, sender):
        print("bind", *((str(name), str(more["description"])) for name, more in shortcuts), flush=True)
        return self.answer(sender, options, {"shortcuts": shortcuts})
    @dbus.service.signal(SHORTCUTS, signature="osta{sv}")
    def Activated(self, session, name, time, options):
        pass
dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
portal = Portal(bus, PATH)
name = dbus.service.BusName("org.freedesktop.portal.Desktop", bus)
print("ready", flush=True)
def press(*_):
    sys.stdin.readline()
    portal.Activated(dbus.ObjectPath(portal.session), "pick", dbus.UInt64(0), {})
    return True
GLib.io_add_watch(sys.stdin, GLib.IO_IN, press)
GLib.MainLoop().run()
"""


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


class CloseRequest(ctypes.Structure):
    """An XClientMessageEvent, filled up to the size of an XEvent."""
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 17)]


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
        """As the window manager's close button does; a key for it can get lost while the manager is busy."""
        x11 = ctypes.CDLL("libX11.so.6")
        for name in ("XOpenDisplay", "XDefaultRootWindow", "XInternAtom"):
            getattr(x11, name).restype = ctypes.c_ulong
        display = ctypes.c_void_p(x11.XOpenDisplay(None))
        event = CloseRequest(type=CLIENT_MESSAGE, format=32, window=int(self.number),
                             message=x11.XInternAtom(display, b"_NET_CLOSE_WINDOW", 0))
        to_the_manager = ctypes.c_long(SUBSTRUCTURE_MASKS)
        x11.XSendEvent(display, ctypes.c_ulong(x11.XDefaultRootWindow(display)), 0, to_the_manager, ctypes.byref(event))
        x11.XCloseDisplay(display)
        eventually(lambda: "IsViewable" not in output("xwininfo", "-id", self.number))


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
    return re.search(r'"Tintwell".* 2\d\dx\d+\+', output("xwininfo", "-root", "-tree"))


def embedded_item():
    """The middle of the item in an X11 tray at the top of the screen."""
    place = re.search(r'"Tintwell".* 22x22\+\S+ +\+(\d+)\+(\d)$', output("xwininfo", "-root", "-tree"),
                      re.MULTILINE)
    # The tray is put into its corner once it has an item.
    if place is None or int(place.group(1)) < SCREEN[0] - 40:
        return None
    return int(place.group(1)) + 11, int(place.group(2)) + 11


def active_window():
    return output("xdotool", "getactivewindow").strip()


def call(destination, path, method, *arguments):
    return output("gdbus", "call", "--session", "--dest", destination, "--object-path", path,
                  "--method", method, *arguments)


def notifier_items():
    """Items by the unique name of their connection: one by a well-known name gets lost on GNOME."""
    return re.findall(r":\d+\.\d+", call(
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


def pixels(x, y, width, height):
    """A part of the screen as text, each pixel with its hex code."""
    return output("import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8", "txt:-")
