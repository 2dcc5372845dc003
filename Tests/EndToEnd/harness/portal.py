#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A desktop's settings portal, with colour scheme and contrast, in a process of its own."""
import pathlib
import subprocess
import sys

from gi.repository import Gio, GLib

BUS_NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
GROUP = "org.freedesktop.appearance"
WISHES = {"none": ("color-scheme", 0), "dark": ("color-scheme", 1), "light": ("color-scheme", 2), "contrast": ("contrast", 1)}
DESCRIPTION = f"""<node><interface name="{INTERFACE}">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


class Portal:
    """The portal of one desktop; it has started when it is made."""

    def __init__(self, desktop, scheme):
        self._process = desktop.spawn(
            [sys.executable, str(pathlib.Path(__file__)), scheme], log="portal", stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, text=True)
        assert self._process.stdout.readline() == "ready\n", desktop.log("portal")

    def prefer(self, scheme):
        """Changes one setting to what a word of `WISHES` says, and tells whoever listens."""
        self._process.stdin.write(f"{scheme}\n")
        self._process.stdin.flush()


def _serve(scheme):
    loop, bus = GLib.MainLoop(), Gio.bus_get_sync(Gio.BusType.SESSION)
    values = {"contrast": 0, **dict([WISHES[scheme]])}

    def call(_connection, _sender, _path, _interface, _method, arguments, invocation):
        group, key = arguments.unpack()
        if group == GROUP and key in values:
            # Twice wrapped, as this old call has always answered.
            inner = GLib.Variant("v", GLib.Variant("u", values[key]))
            invocation.return_value(GLib.Variant("(v)", (inner,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    def heard(source, _condition):
        line = source.readline().strip()
        if not line:
            loop.quit()
            return False
        key, value = WISHES[line]
        values[key] = value
        bus.emit_signal(
            None, PATH, INTERFACE, "SettingChanged",
            GLib.Variant("(ssv)", (GROUP, key, GLib.Variant("u", value))))
        return True

    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0], call, None, None)
    Gio.bus_own_name_on_connection(
        bus, BUS_NAME, Gio.BusNameOwnerFlags.NONE, lambda *_: print("ready", flush=True), None)
    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, heard)
    loop.run()


if __name__ == "__main__":
    _serve(sys.argv[1])
