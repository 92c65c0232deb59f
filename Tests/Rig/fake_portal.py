"""A desktop portal that answers a colour pick in the way that its argument names; "ready" when it is there."""

import sys

import dbus
import dbus.lowlevel
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SCREENSHOT = "org.freedesktop.portal.Screenshot"
REQUEST = "org.freedesktop.portal.Request"


def color(*components, signature=None):
    return {"color": dbus.Struct(components, signature=signature or "d" * len(components))}


# mode: code and results of the Response
ANSWERS = {
    "done": (0, color(0.25, 0.5, 1.0)),
    "outside": (0, color(-0.5, 0.5, 1.5)),
    "more results": (0, {**color(0.25, 0.5, 1.0), "uri": "x"}),
    "cancelled": (1, {}),
    "ended otherwise": (2, {}),
    "cancelled with a colour": (1, color(0.25, 0.5, 1.0)),
    "no colour": (0, {}),
    "text": (0, {"color": "#4080FF"}),
    "two numbers": (0, color(0.25, 0.5)),
    "floats of another type": (0, color(1, 2, 3, signature="iii")),
    "array": (0, {"color": dbus.Array([0.25, 0.5, 1.0], signature="d")}),
    "not a number": (0, color(float("nan"), 0.5, 1.0)),
    "another handle": (0, color(0.25, 0.5, 1.0)),
    "before the reply": (0, color(0.25, 0.5, 1.0)),
}


class Request(dbus.service.Object):
    @dbus.service.method(REQUEST)
    def Close(self):
        print("closed", flush=True)

    @dbus.service.signal(REQUEST, signature="ua{sv}")
    def Response(self, code, results):
        pass


class Portal(dbus.service.Object):
    def __init__(self, bus, mode):
        super().__init__(bus, PATH)
        self.bus, self.mode, self.requests = bus, mode, []

    def answer(self, request, code, results):
        request.Response(dbus.UInt32(code), dbus.Dictionary(results, signature="sv"))
        return False

    def stranger_answers(self, handle):
        """Another program of the session speaks in the portal's place."""
        message = dbus.lowlevel.SignalMessage(handle, REQUEST, "Response")
        message.append(dbus.UInt32(0), dbus.Dictionary(color(1.0, 1.0, 1.0), signature="sv"),
                       signature="ua{sv}")
        stranger = dbus.SessionBus(private=True)
        stranger.send_message(message)
        stranger.flush()
        stranger.close()

    @dbus.service.method(SCREENSHOT, in_signature="sa{sv}", out_signature="o", sender_keyword="sender",
                         async_callbacks=("reply", "fail"))
    def PickColor(self, parent, options, reply, fail, sender):
        assert parent == ""
        mode = self.mode
        token = "other" if mode == "another handle" else options["handle_token"]
        handle = f"{PATH}/request/{sender[1:].replace('.', '_')}/{token}"
        request = Request(self.bus, handle)
        self.requests.append(request)
        print("asked", flush=True)
        if mode == "dies":
            reply(handle)
            GLib.timeout_add(50, sys.exit, 0)
        elif mode == "dies before the reply":
            sys.exit(0)
        elif mode == "refuses":
            fail(dbus.DBusException("not here", name="org.freedesktop.portal.Error.NotAllowed"))
        elif mode == "replies late":
            GLib.timeout_add(200, reply, handle)
        elif mode == "never replies":
            self.pending = reply
        elif mode == "never answers":
            reply(handle)
        elif mode == "stranger":
            reply(handle)
            self.stranger_answers(handle)
            GLib.timeout_add(50, self.answer, request, 0, color(0.25, 0.5, 1.0))
        elif mode == "before the reply":
            self.answer(request, *ANSWERS[mode])
            reply(handle)
        else:
            reply(handle)
            GLib.timeout_add(20, self.answer, request, *ANSWERS[mode])


class NoScreenshot(dbus.service.Object):
    """A portal whose backends can do other things."""


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    mode = sys.argv[1]
    portal = NoScreenshot(bus, PATH) if mode == "no screenshot" else Portal(bus, mode)
    name = dbus.service.BusName(NAME, bus)
    print("ready", flush=True)
    GLib.MainLoop().run()
    return portal, name


if __name__ == "__main__":
    main()
