#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Services on the session bus that write down what they are asked, in a process of their own."""
import json
import pathlib
import subprocess
import sys

from gi.repository import Gio, GLib

from harness.waiting import wait_until

DESCRIPTIONS = {
    "org.freedesktop.Application": """
      <method name="Activate"><arg type="a{sv}" direction="in"/></method>""",
    "org.freedesktop.systemd1.Manager": """
      <method name="StartTransientUnit"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a(sv)" direction="in"/><arg type="a(sa(sv))" direction="in"/><arg type="o" direction="out"/></method>""",
    "org.freedesktop.Notifications": """
      <method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
        <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/></method>""",
}
ANSWERS = {
    "StartTransientUnit": GLib.Variant("(o)", ("/org/freedesktop/systemd1/job/1",)),
    "Notify": GLib.Variant("(u)", (1,)),
}


class Service:
    """One service; it has its name when it is made. Its manner: "answers", "refuses" or "is silent"."""

    def __init__(self, desktop, name, path, interface, manner="answers"):
        self._process = desktop.spawn(
            [sys.executable, str(pathlib.Path(__file__)), name, path, interface, manner], log=name,
            environment={"PYTHONPATH": str(pathlib.Path(__file__).parents[1])}, stdout=subprocess.PIPE, text=True)
        self._log, self._calls = desktop.home / "logs" / f"{name}.calls", []
        wait_until(lambda: desktop.name_has_owner(name), f"{name} is on the bus")

    def calls(self):
        """The arguments of each call so far."""
        if not self._log.exists():
            return []
        return [json.loads(line) for line in self._log.read_text().splitlines() if line.endswith("]")]

    def wait_called(self):
        return wait_until(lambda: self.calls() and self.calls()[-1], "the service is called")


def application(desktop, application_id, manner="answers"):
    path = "/" + application_id.replace(".", "/").replace("-", "_")
    return Service(desktop, application_id, path, "org.freedesktop.Application", manner)


def unit_manager(desktop):
    return Service(
        desktop, "org.freedesktop.systemd1", "/org/freedesktop/systemd1", "org.freedesktop.systemd1.Manager")


def notifications(desktop):
    return Service(
        desktop, "org.freedesktop.Notifications", "/org/freedesktop/Notifications", "org.freedesktop.Notifications")


def _serve(name, path, interface, manner):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    log = pathlib.Path.home() / "logs" / f"{name}.calls"

    def call(_connection, _sender, _path, _interface, method, arguments, invocation):
        with log.open("a") as stream:
            stream.write(json.dumps(list(arguments.unpack())) + "\n")
        if manner == "answers":
            invocation.return_value(ANSWERS.get(method))
        elif manner == "refuses":
            invocation.return_dbus_error("org.example.Error", "not today")

    text = f'<node><interface name="{interface}">{DESCRIPTIONS[interface]}</interface></node>'
    bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(text).interfaces[0], call, None, None)
    Gio.bus_own_name_on_connection(bus, name, Gio.BusNameOwnerFlags.NONE, None, None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    _serve(*sys.argv[1:])
