# SPDX-License-Identifier: MIT
"""A panel that shows status items: it owns the watcher's name on the session bus, reads what the items
say of themselves, and chooses from their menus as a user does."""
import contextlib
import dataclasses

from gi.repository import Gio, GLib

from harness.bus_service import BusService
from harness.waiting import wait_until

WATCHER = "org.kde.StatusNotifierWatcher"
WATCHER_PATH = "/StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"
TIMEOUT = 5000
MEMBERS = """
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierHostRegistered"/>"""


class NotifierHost(BusService):
    def __init__(self, desktop):
        self._registered = []
        super().__init__(desktop, WATCHER, (WATCHER_PATH, WATCHER, MEMBERS))
        self.signal(WATCHER_PATH, WATCHER, "StatusNotifierHostRegistered", None)

    def items(self):
        """Everything that has registered and not been forgotten, oldest first."""
        return [Item(self.bus, name) for name in self._registered]

    def wait_item(self, timeout=15.0):
        """The first item of all; waits until there is one whose menu answers."""
        return wait_until(
            lambda: next((item for item in self.items() if item.is_complete()), None),
            "a status item is in the panel", timeout)

    # --- what the items call

    def called(self, sender, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            service, = arguments
            name = sender if service.startswith("/") else service
            if name not in self._registered:
                self._registered.append(name)
        invocation.return_value(None)

    def properties(self):
        return {
            "RegisteredStatusNotifierItems": GLib.Variant("as", self._registered),
            "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
            "ProtocolVersion": GLib.Variant("i", 0),
        }


@dataclasses.dataclass(frozen=True)
class MenuLine:
    """One line of a menu, as the panel would draw it."""
    id: int
    title: str = ""
    shortcut: str = ""  # Such as "Control+comma".
    is_enabled: bool = True
    is_separator: bool = False

    def __str__(self):
        return "-" if self.is_separator else self.title + (f" [{self.shortcut}]" if self.shortcut else "")


class Item:
    """One status item in the panel, by its name on the bus."""

    def __init__(self, bus, name):
        self._bus, self.name = bus, name

    def is_complete(self):
        """True when the item answers and has a menu with something in it."""
        with contextlib.suppress(GLib.Error):
            return bool(self.menu())
        return False

    def properties(self):
        answer = self._call("/StatusNotifierItem", PROPERTIES, "GetAll", GLib.Variant("(s)", (ITEM,)))
        return answer.unpack()[0]

    @property
    def tool_tip(self):
        """The text that is shown, and read out, for the icon."""
        return self.properties()["ToolTip"][2]

    def icon(self, side):
        """The icon drawn at `side` pixels, as rows of (red, green, blue, alpha)."""
        for width, height, data in self.properties()["IconPixmap"]:
            if width == side and height == side:
                pixels = bytes(data)
                return [
                    [(*pixels[i + 1:i + 4], pixels[i]) for i in range(4 * side * row, 4 * side * (row + 1), 4)]
                    for row in range(side)]
        raise AssertionError(f"the icon does not come in {side} pixels")

    def icon_sides(self):
        return sorted(width for width, _, _ in self.properties()["IconPixmap"])

    def menu(self):
        """The lines of the menu from top to bottom."""
        layout = GLib.Variant("(iias)", (0, -1, []))
        _, (_, _, children) = self._call(self.properties()["Menu"], MENU, "GetLayout", layout).unpack()
        return [_line(identifier, properties) for identifier, properties, _ in children if properties.get("visible", True)]

    def choose(self, title):
        """Opens the menu and clicks the line of that title."""
        self._call(self.properties()["Menu"], MENU, "AboutToShow", GLib.Variant("(i)", (0,)))
        line = next((line for line in self.menu() if line.title == title), None)
        assert line, f"{title!r} is not among {[str(line) for line in self.menu()]}"
        event = GLib.Variant("(isvu)", (line.id, "clicked", GLib.Variant("i", 0), 0))
        self._call(self.properties()["Menu"], MENU, "Event", event)

    def _call(self, path, interface, method, arguments):
        return self._bus.call_sync(
            self.name, path, interface, method, arguments, None, Gio.DBusCallFlags.NO_AUTO_START, TIMEOUT, None)


def _line(identifier, properties):
    if properties.get("type") == "separator":
        return MenuLine(identifier, is_separator=True)
    # A doubled underscore is one; a single one marks a letter for the keyboard.
    title = properties.get("label", "").replace("__", "\0").replace("_", "").replace("\0", "_")
    shortcut = ", ".join("+".join(keys) for keys in properties.get("shortcut", []))
    return MenuLine(identifier, title, shortcut, properties.get("enabled", True))
