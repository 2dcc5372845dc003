# SPDX-License-Identifier: MIT
"""A virtual desktop: X server, session bus, window manager, compositor, and a scratch home."""
import contextlib
import dataclasses
import os
import pathlib
import subprocess
import tempfile

from gi.repository import Gio, GLib

from harness import processes
from harness.applications import Applications
from harness.display import Display
from harness.waiting import wait_until
from harness.window_managers import WINDOW_MANAGERS

COMPOSITOR = ["picom", "--backend", "xrender", "--config", "/dev/null"]
BACKGROUND = "#3060a0"


@dataclasses.dataclass(frozen=True)
class Monitor:
    """A monitor cut out of the one virtual screen."""
    name: str
    x: int
    y: int
    width: int
    height: int

    def command(self, output):
        size = f"{self.width}/{self.width // 4}x{self.height}/{self.height // 4}+{self.x}+{self.y}"
        return ["xrandr", "--setmonitor", self.name, size, output]


@dataclasses.dataclass(frozen=True)
class DesktopOptions:
    width: int = 1280
    height: int = 800
    window_manager: str = "openbox"
    has_compositor: bool = True
    monitors: tuple = ()
    background: tuple = ("-solid", BACKGROUND)  # What hsetroot is told to paint.
    missing_extensions: tuple = ()  # What the X server does not offer, such as "RECORD".


class Desktop:
    """Use as a context manager: everything runs inside the block, and nothing is left after it."""

    def __init__(self, options=None):
        self.options = options or DesktopOptions()
        self._cleanup = contextlib.ExitStack()
        self._known = set()
        self.display_name = self.bus_address = ""
        self._server = None
        self._buses = []  # The session's is the first.

    def __enter__(self):
        processes.adopt_orphans()
        self._known = set(processes.descendants(os.getpid()))
        try:
            self._start()
        except BaseException:
            self._cleanup.close()
            raise
        return self

    def __exit__(self, *_):
        self._cleanup.close()

    def _start(self):
        folder = self._cleanup.enter_context(tempfile.TemporaryDirectory(prefix="tavik-desktop-"))
        self._cleanup.callback(processes.end_orphans, self._known)
        self.home = pathlib.Path(folder)
        for name in ("config", "data", "cache", "share", "logs"):
            (self.home / name).mkdir()
        (self.home / "runtime").mkdir(mode=0o700)
        self.applications = Applications(self.home / "data", self.home / "reports")

        self.display_name = self._start_server()
        self.bus_address = self.start_bus("dbus")
        self.display = Display(self.display_name)
        self._cleanup.callback(self.display.close)
        for monitor, output in zip(self.options.monitors, ("screen", "none", "none")):
            self.run(monitor.command(output))
        self.start_window_manager()
        if self.options.has_compositor and not (self.window_manager and self.window_manager.composites):
            self.start_compositor()
        self.run(["hsetroot", *self.options.background])

    # --- the parts

    def _start_server(self):
        reading, writing = os.pipe()
        size = f"{self.options.width}x{self.options.height}x24"
        missing = [word for name in self.options.missing_extensions for word in ("-extension", name)]
        with open(reading) as answer:
            self._server = self.spawn(
                ["Xvfb", "-displayfd", str(writing), "-screen", "0", size, "-nolisten", "tcp", "-noreset",
                 *missing],
                log="xvfb", pass_fds=[writing])
            os.close(writing)
            number = answer.readline().strip()
        assert number, f"Xvfb did not start: {self.log('xvfb')}"
        return f":{number}"

    def end_server(self):
        """Ends the X server as a crash does, with everybody still connected."""
        self._server.kill()
        self._server.wait()

    def start_bus(self, log, configuration="--session"):
        """Starts a message bus of its own and returns its address."""
        process = self.spawn(
            ["dbus-daemon", configuration, "--nofork", "--nosyslog", "--print-address=1"], log=log,
            stdout=subprocess.PIPE, text=True)
        self._buses.append(process)
        address = process.stdout.readline().strip()
        process.stdout.close()
        assert address, f"the bus did not start: {self.log(log)}"
        return address

    def end_bus(self):
        """Ends the session bus under everybody who is on it."""
        processes.end(self._buses[0])

    @property
    def window_manager(self):
        return WINDOW_MANAGERS.get(self.options.window_manager)

    def start_window_manager(self):
        if not (manager := self.window_manager):
            assert self.options.window_manager == "none"
            return
        environment = manager.prepare(self) if manager.prepare else None
        self.window_manager_process = self.spawn(manager.command, environment, log="window-manager")
        wait_until(self._window_manager_answers, "the window manager has taken the screen", timeout=30)
        if manager.settle:
            manager.settle(self)

    def _window_manager_answers(self):
        check = self.display.root_property("_NET_SUPPORTING_WM_CHECK")
        return check and self.display.property(check[0], "_NET_SUPPORTING_WM_CHECK")

    def start_compositor(self, *arguments):
        process = self.spawn([*COMPOSITOR, *arguments], log="compositor")
        wait_until(self.is_composited, "the compositor has taken the screen")
        return process

    def is_composited(self):
        selection = self.display.connection.intern_atom("_NET_WM_CM_S0")
        return self.display.connection.get_selection_owner(selection) != 0

    # --- what runs here

    @property
    def environment(self):
        """What every program on this desktop sees; nothing of the developer's own session."""
        return {
            "PATH": "/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin",
            "HOME": str(self.home),
            "LANG": "C.UTF-8",
            "DISPLAY": self.display_name,
            "XDG_SESSION_TYPE": "x11",
            "XDG_CONFIG_HOME": str(self.home / "config"),
            "XDG_DATA_HOME": str(self.home / "data"),
            "XDG_CACHE_HOME": str(self.home / "cache"),
            "XDG_RUNTIME_DIR": str(self.home / "runtime"),
            "DBUS_SESSION_BUS_ADDRESS": self.bus_address,
            **{name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")},
            "NO_AT_BRIDGE": "1",
            "GTK_A11Y": "none",
        }

    def spawn(self, command, environment=None, log=None, **options):
        """Starts a program; it is ended with the desktop. Its output goes to a log."""
        with open(self.home / "logs" / (log or pathlib.Path(command[0]).name), "ab") as stream:
            options = {"stdin": subprocess.DEVNULL, "stdout": stream, "stderr": stream, **options}
            process = subprocess.Popen(
                command, env={**self.environment, **(environment or {})}, cwd=self.home, **options)
        self._cleanup.callback(processes.end, process)
        return process

    def at_end(self, act):
        """Has something done before what runs by now is ended with the desktop."""
        self._cleanup.callback(act)

    def open(self, application):
        """Starts an application as a file manager does."""
        self.spawn(["gio", "launch", application.path], log="gio")

    def run(self, command, environment=None, timeout=20):
        """Runs a program to its end and returns the completed process, its output as text."""
        return subprocess.run(
            command, env={**self.environment, **(environment or {})}, cwd=self.home, timeout=timeout,
            stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)

    def log(self, name):
        path = self.home / "logs" / name
        return path.read_text(errors="replace") if path.exists() else ""

    def bus(self, address=None):
        """A connection of its own to the session bus, or to another; close it."""
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        connection = Gio.DBusConnection.new_for_address_sync(address or self.bus_address, flags, None, None)
        connection.set_exit_on_close(False)
        return connection

    def call(self, name, path, member, signature="()", arguments=(), address=None):
        """Calls a method, given with its interface, over a connection of its own; returns the answer's values."""
        bus = self.bus(address)
        try:
            answer = bus.call_sync(
                name, path, *member.rsplit(".", 1), GLib.Variant(signature, arguments), None,
                Gio.DBusCallFlags.NONE, 30000, None)
            return answer.unpack()
        finally:
            bus.close_sync(None)

    def name_has_owner(self, name, address=None):
        return self.call(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.NameHasOwner", "(s)", (name,),
            address)[0]
