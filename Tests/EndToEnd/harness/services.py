# SPDX-License-Identifier: MIT
"""Services that programs expect on the session bus: some write down what they are asked, the portal has settings."""
from gi.repository import GLib

from harness.bus_service import BusService
from harness.waiting import wait_until

MEMBERS = {
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


class Service(BusService):
    """Its manner: "answers", "refuses" or "is silent"."""

    def __init__(self, desktop, name, path, interface, manner="answers"):
        self._manner, self._calls = manner, []
        super().__init__(desktop, name, (path, interface, MEMBERS[interface]))

    def wait_called(self):
        """The arguments of the last call."""
        return wait_until(lambda: self._calls and self._calls[-1], "the service is called")

    def called(self, _sender, method, arguments, invocation):
        self._calls.append(arguments)
        if self._manner == "answers":
            invocation.return_value(ANSWERS.get(method))
        elif self._manner == "refuses":
            invocation.return_dbus_error("org.example.Error", "not today")


def application(desktop, application_id, manner="answers"):
    path = "/" + application_id.replace(".", "/").replace("-", "_")
    return Service(desktop, application_id, path, "org.freedesktop.Application", manner)


def unit_manager(desktop):
    return Service(
        desktop, "org.freedesktop.systemd1", "/org/freedesktop/systemd1", "org.freedesktop.systemd1.Manager")


def notifications(desktop):
    return Service(
        desktop, "org.freedesktop.Notifications", "/org/freedesktop/Notifications", "org.freedesktop.Notifications")


class Portal(BusService):
    """A desktop's settings, with colour scheme and contrast."""
    PATH, INTERFACE, GROUP = "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "org.freedesktop.appearance"
    WISHES = {"none": ("color-scheme", 0), "dark": ("color-scheme", 1), "light": ("color-scheme", 2), "contrast": ("contrast", 1),
              "calm": ("reduced-motion", 1)}

    def __init__(self, desktop, wish):
        self._values = {"contrast": 0, "reduced-motion": 0, **dict([self.WISHES[wish]])}
        super().__init__(desktop, "org.freedesktop.portal.Desktop", (self.PATH, self.INTERFACE, """
          <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
          <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>"""))

    def prefer(self, wish):
        """Changes one setting to what a word of `WISHES` says, and tells whoever listens."""
        key, value = self.WISHES[wish]
        self._values[key] = value
        self.signal(self.PATH, self.INTERFACE, "SettingChanged", "(ssv)", self.GROUP, key, GLib.Variant("u", value))

    def called(self, _sender, _method, arguments, invocation):
        group, key = arguments
        if group == self.GROUP and key in self._values:
            # Twice wrapped, as this old call has always answered.
            inner = GLib.Variant("v", GLib.Variant("u", self._values[key]))
            invocation.return_value(GLib.Variant("(v)", (inner,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")
