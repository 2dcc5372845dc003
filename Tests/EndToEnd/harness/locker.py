# SPDX-License-Identifier: MIT
"""What locks a screen: a client that grabs all input, the desktop's screen saver, or the login manager. Start one before
the launcher, so that it is there to be followed."""
import Xlib.display
from gi.repository import GLib
from Xlib import X

from harness.bus_service import BusService


class Grab:
    def __init__(self, desktop, _system_bus):
        self._display = Xlib.display.Display(desktop.display_name)
        desktop.at_end(self._display.close)

    def lock(self, locks=True):
        root = self._display.screen().root
        if locks:
            assert root.grab_keyboard(False, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime) == X.GrabSuccess
            assert root.grab_pointer(
                False, 0, X.GrabModeAsync, X.GrabModeAsync, X.NONE, X.NONE, X.CurrentTime) == X.GrabSuccess
        else:
            self._display.ungrab_keyboard(X.CurrentTime)
            self._display.ungrab_pointer(X.CurrentTime)
        self._display.sync()


class ScreenSaver(BusService):
    PATH, INTERFACE = "/org/gnome/ScreenSaver", "org.gnome.ScreenSaver"

    def __init__(self, desktop, _system_bus):
        self._locks = False
        super().__init__(desktop, self.INTERFACE, (self.PATH, self.INTERFACE, """
          <method name="GetActive"><arg type="b" direction="out"/></method>
          <signal name="ActiveChanged"><arg type="b"/></signal>"""))

    def lock(self, locks=True):
        self._locks = locks
        self.signal(self.PATH, self.INTERFACE, "ActiveChanged", "(b)", locks)

    def called(self, _sender, _method, _arguments, invocation):
        invocation.return_value(GLib.Variant("(b)", (self._locks,)))


class LoginManager(BusService):
    PATH, INTERFACE = "/org/freedesktop/login1/session/_31", "org.freedesktop.login1.Session"

    def __init__(self, desktop, system_bus):
        self._locks = False
        super().__init__(
            desktop, "org.freedesktop.login1", (self.PATH, self.INTERFACE, '<property name="LockedHint" type="b" access="read"/>'),
            ("/org/freedesktop/login1", "org.freedesktop.login1.Manager", """
          <method name="GetSession"><arg type="s" direction="in"/><arg type="o" direction="out"/></method>"""), address=system_bus)

    def lock(self, locks=True):
        self._locks = locks
        self.signal(self.PATH, "org.freedesktop.DBus.Properties", "PropertiesChanged", "(sa{sv}as)", self.INTERFACE,
                    self.properties(), [])

    def called(self, _sender, _method, _arguments, invocation):
        invocation.return_value(GLib.Variant("(o)", (self.PATH,)))

    def properties(self):
        return {"LockedHint": GLib.Variant("b", self._locks)}
