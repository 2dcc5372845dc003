# SPDX-License-Identifier: MIT
"""Something that answers on a bus of the desktop, on a thread of its own."""
import contextlib
import threading

from gi.repository import Gio, GLib

from harness.waiting import wait_until

DO_NOT_QUEUE, OWNER = 4, 1


class BusService:
    """Has its name when it is made, until `end()`, the end of a block, or the end of the desktop. An object is its
    path, its interface, and what that has inside, as XML."""

    def __init__(self, desktop, name, *objects, address=None):
        self.bus = desktop.bus(address)
        self._name, self._objects, self._loop = name, objects, None
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._thread.start()
        desktop.at_end(self.end)
        wait_until(lambda: self._loop and self._loop.is_running(), f"{name} serves")

    def _serve(self):
        context = GLib.MainContext.new()
        context.push_thread_default()
        for path, interface, members in self._objects:
            text = f'<node><interface name="{interface}">{members}</interface></node>'
            self.bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(text).interfaces[0], self._called, self._asked, None)
        answer = self.bus.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
            GLib.Variant("(su)", (self._name, DO_NOT_QUEUE)), None, Gio.DBusCallFlags.NONE, -1, None)
        assert answer.unpack() == (OWNER,), f"another has the name {self._name}"
        self._loop = GLib.MainLoop.new(context, False)
        self._loop.run()
        context.pop_thread_default()

    def end(self):
        """Goes as when its process dies."""
        with contextlib.suppress(GLib.Error):  # The bus may have gone first.
            self.bus.close_sync(None)
        self._loop.quit()
        self._thread.join()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def signal(self, path, interface, name, signature, *values):
        self.bus.emit_signal(None, path, interface, name, GLib.Variant(signature, values) if signature else None)

    def _called(self, _bus, sender, _path, _interface, method, arguments, invocation):
        self.called(sender, method, arguments.unpack(), invocation)

    def _asked(self, _bus, _sender, _path, _interface, name):
        return self.properties()[name]

    def called(self, sender, method, arguments, invocation):
        """Answers a call."""
        raise NotImplementedError

    def properties(self):
        """The values of the properties that can be read."""
        return {}
