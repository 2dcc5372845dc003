#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What locks a screen, in a process of its own: a client that grabs all input ("grab"), the desktop's screen saver
("screen saver") or the login manager ("login manager")."""
import pathlib
import subprocess
import sys

import Xlib.display
from gi.repository import Gio, GLib
from Xlib import X

SAVER, SESSION = "org.gnome.ScreenSaver", "org.freedesktop.login1.Session"
SESSION_PATH = "/org/freedesktop/login1/session/_31"
SAVER_XML = f"""<node><interface name="{SAVER}">
  <method name="GetActive"><arg type="b" direction="out"/></method>
  <signal name="ActiveChanged"><arg type="b"/></signal>
</interface></node>"""
MANAGER_XML = """<node><interface name="org.freedesktop.login1.Manager">
  <method name="GetSession"><arg type="s" direction="in"/><arg type="o" direction="out"/></method>
</interface></node>"""
SESSION_XML = f"""<node><interface name="{SESSION}"><property name="LockedHint" type="b" access="read"/></interface></node>"""


class Locker:
    """Start one of a kind before the launcher, so that it is there to be followed."""

    def __init__(self, desktop, kind, address):
        self._process = desktop.spawn(
            [sys.executable, str(pathlib.Path(__file__)), kind, address], log="locker", stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, text=True)
        self._await(desktop, "ready")
        self._desktop = desktop

    def _await(self, desktop, word):
        assert self._process.stdout.readline() == f"{word}\n", desktop.log("locker")

    def lock(self, locks=True):
        self._process.stdin.write("lock\n" if locks else "unlock\n")
        self._process.stdin.flush()
        self._await(self._desktop, "done")

    def end(self):
        """Ends as a crash does."""
        self._process.kill()
        self._process.wait()


class _Grab:
    def __init__(self, _address):
        self._display = Xlib.display.Display()

    def lock(self, locks):
        root = self._display.screen().root
        if locks:
            assert root.grab_keyboard(False, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime) == X.GrabSuccess
            assert root.grab_pointer(
                False, 0, X.GrabModeAsync, X.GrabModeAsync, X.NONE, X.NONE, X.CurrentTime) == X.GrabSuccess
        else:
            self._display.ungrab_keyboard(X.CurrentTime)
            self._display.ungrab_pointer(X.CurrentTime)
        self._display.sync()


class _Service:
    """Something on a bus that answers whether it has locked."""

    def __init__(self, address, name, *objects):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.bus, self.locks = Gio.DBusConnection.new_for_address_sync(address, flags, None, None), False
        for path, xml in objects:
            self.bus.register_object(
                path, Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0], self._call,
                lambda *_: GLib.Variant("b", self.locks), None)
        Gio.bus_own_name_on_connection(self.bus, name, Gio.BusNameOwnerFlags.NONE, None, None)

    def _call(self, _connection, _sender, _path, _interface, method, _arguments, invocation):
        answers = {"GetActive": ("(b)", (self.locks,)), "GetSession": ("(o)", (SESSION_PATH,))}
        invocation.return_value(GLib.Variant(*answers[method]))


class _ScreenSaver(_Service):
    PATH = "/org/gnome/ScreenSaver"

    def __init__(self, address):
        super().__init__(address, SAVER, (self.PATH, SAVER_XML))

    def lock(self, locks):
        self.locks = locks
        self.bus.emit_signal(None, self.PATH, SAVER, "ActiveChanged", GLib.Variant("(b)", (locks,)))


class _LoginManager(_Service):
    def __init__(self, address):
        super().__init__(
            address, "org.freedesktop.login1", ("/org/freedesktop/login1", MANAGER_XML), (SESSION_PATH, SESSION_XML))

    def lock(self, locks):
        self.locks = locks
        changed = (SESSION, {"LockedHint": GLib.Variant("b", locks)}, [])
        self.bus.emit_signal(
            None, SESSION_PATH, "org.freedesktop.DBus.Properties", "PropertiesChanged",
            GLib.Variant("(sa{sv}as)", changed))


KINDS = {"grab": _Grab, "screen saver": _ScreenSaver, "login manager": _LoginManager}


def _serve(kind, address):
    loop, locker = GLib.MainLoop(), KINDS[kind](address)

    def heard(source, _condition):
        line = source.readline().strip()
        if not line:
            loop.quit()
            return False
        locker.lock(line == "lock")
        print("done", flush=True)
        return True

    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, heard)
    GLib.idle_add(lambda: print("ready", flush=True))
    loop.run()


if __name__ == "__main__":
    _serve(*sys.argv[1:])
