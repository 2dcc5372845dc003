# SPDX-License-Identifier: MIT
"""The launcher under test: its process, its files, its window, and its ring as seen on the screen."""
import json
import math
import pathlib
import plistlib
import subprocess

from harness import processes
from harness.applications import PALETTE
from harness.display import Rect
from harness.picture import colour_distance
from harness.waiting import wait_until

TITLE = "Tavik Launcher"
LARGEST_ICON = 64  # Pixels. In a tray an icon bears its program's name, too.
BUS_NAME = "org.tavik.Launcher"
HOT_KEY = "ctrl+alt+space"
IN_BACKGROUND = ("--background",)
FLAGS = {"shift": 0x20000, "ctrl": 0x40000, "alt": 0x80000, "super": 0x100000}
KEY_CODES = {"space": 49, "F9": 101}  # Standard-layout virtual key codes.


def hot_key_record(chord):
    """The stored form of a shortcut such as "ctrl+alt+space"."""
    *modifiers, key = chord.split("+")
    flags = sum(FLAGS[modifier] for modifier in modifiers)
    return json.dumps(
        {"modifierFlagsRaw": flags, "keyCode": KEY_CODES[key], "displayName": chord}).encode()


class Launcher:
    """One launcher on one desktop. Write settings before `start()`; it keeps them in memory."""

    def __init__(self, desktop, program, hot_key=HOT_KEY):
        self.desktop, self.program = desktop, str(pathlib.Path(program).resolve())
        self.display = desktop.display
        self.process = None
        self.defaults_file = desktop.home / "config" / "TavikLauncher" / "Defaults.plist"
        self.cache_file = desktop.home / "data" / "TavikLauncher" / "app_index.json"
        # Only the applications made for the test, whatever is installed on this machine.
        self.environment = {"XDG_DATA_DIRS": str(desktop.home / "share")}
        self.use_hot_key(hot_key)
        self.settings(hasCompletedOnboarding=True, showsLaunchHints=False)

    # --- files

    def defaults(self):
        """The stored settings; empty when there are none."""
        if not self.defaults_file.exists():
            return {}
        return plistlib.loads(self.defaults_file.read_bytes())

    def settings(self, **values):
        """Stores settings by their property names."""
        stored = {f"LauncherSettings.{name}": value for name, value in values.items()}
        self.defaults_file.parent.mkdir(parents=True, exist_ok=True)
        self.defaults_file.write_bytes(plistlib.dumps({**self.defaults(), **stored}))

    def use_hot_key(self, chord):
        self.hot_key = chord
        self.settings(hotKeyConfig=hot_key_record(chord))

    def use_chord(self, flags=FLAGS["ctrl"] | FLAGS["alt"]):
        """A shortcut of modifiers alone."""
        self.hot_key = None
        self.settings(hotKeyConfig=json.dumps({"modifierFlagsRaw": flags, "displayName": "⌃⌥ (hold)"}).encode())

    def pin(self, *applications):
        """Makes these applications the ring's first slots, in order."""
        self.settings(permanentAppPaths=[application.path for application in applications])

    def cache(self):
        return json.loads(self.cache_file.read_text())

    def log_lines(self):
        return self.desktop.log("launcher").splitlines()

    # --- the process

    def start(self, *arguments, environment=None, by_hand=False):
        """Starts the background program and waits until its triggers answer. A start without arguments is
        one as at login, unless it is made by hand."""
        self.environment.update(environment or {})
        arguments = arguments or (() if by_hand else IN_BACKGROUND)
        self.process = self.desktop.spawn([self.program, *arguments], self.environment, log="launcher")
        self.wait_ready()
        return self

    def wait_ready(self):
        wait_until(lambda: self.exited() or self.desktop.name_has_owner(BUS_NAME), "the launcher is on the bus")
        assert not self.exited(), f"the launcher ended at start: {self.log_lines()}"
        if self.hot_key:
            wait_until(lambda: self.display.is_grabbed(self.hot_key), "the hot key is taken")
        else:
            told = ("hotkey registered (modifier-only)", "failed to install hotkey monitors")
            wait_until(lambda: any(line in self.desktop.log("launcher") for line in told), "the chord is watched for")

    def wait_indexed(self):
        """Waits until the first walk of the application folders has been written to the cache."""
        wait_until(self.cache_file.exists, "the cache file is written")

    def exited(self):
        return self.process.poll() is not None

    def wait_exit(self, timeout=5.0):
        """Waits for the end of the process and returns its exit code."""
        try:
            return self.process.wait(timeout)
        except subprocess.TimeoutExpired as error:
            raise AssertionError("the launcher did not end") from error

    def quit(self):
        assert self.command("--quit").returncode == 0
        assert self.wait_exit() == 0

    def stop(self):
        if self.process:
            processes.end(self.process)

    def command(self, *arguments):
        """Runs a second copy with these arguments, as a desktop's own key binding does."""
        return self.desktop.run([self.program, *arguments], self.environment)

    def call(self, method, signature="()", arguments=()):
        """Calls the program over the bus, as desktops do."""
        return self.desktop.call(
            BUS_NAME, "/org/tavik/Launcher", f"org.freedesktop.Application.{method}", signature, arguments)

    def activate_action(self, name, *parameters, platform_data=None):
        self.call("ActivateAction", "(sava{sv})", (name, parameters, platform_data or {}))

    # --- the ring

    def window(self):
        return self.display.find(TITLE, wider_than=LARGEST_ICON)

    def is_shown(self):
        return self.window() is not None

    def times_shown(self):
        """How often the ring has come since the start."""
        return self.desktop.log("launcher").count("panel: shown")

    def summon(self, x=None, y=None):
        """Moves the pointer there, presses the hot key, and waits until the ring is open."""
        if x is not None:
            self.display.move_pointer(x, y)
        self.display.press(self.hot_key)
        return self.wait_open()

    def wait_open(self):
        """Waits until the ring is shown, has the keyboard, and its opening animation has ended."""
        window = self.display.wait_for(TITLE, wider_than=LARGEST_ICON)
        wait_until(lambda: self.display.has_focus(window), "the ring has the keyboard")
        self.wait_still()
        return window

    def wait_still(self):
        """Waits until the picture of the ring's upper third, where no text cursor blinks, has not changed
        for three looks in a row."""
        looks = []

        def is_still():
            window = self.window()
            frame = window and self.display.geometry(window)
            looks.append(frame and self.display.picture(frame._replace(height=frame.height // 3)))
            return len(looks) >= 4 and looks[-1] and looks[-1] == looks[-2] == looks[-3] == looks[-4]

        wait_until(is_still, "the ring stands still", interval=0.04)

    def wait_hidden(self):
        self.display.wait_gone(TITLE, wider_than=LARGEST_ICON)

    def launch(self, slot=0):
        """Launches one of the first nine from the ring."""
        self.summon(640, 400)
        self.display.press(f"ctrl+{slot + 1}")
        self.wait_hidden()

    def dismiss(self):
        self.display.press("Escape")
        self.wait_hidden()

    def slot_place(self, slot, count, scale=1.0, diameter=320, thickness=80):
        """The centre of a slot's icon on the screen, in pixels."""
        frame = self.display.geometry(self.window())
        radius = diameter / 2
        icon_radius = (max(radius - thickness, 84) + radius - 2) / 2
        angle = math.radians(360 * slot / count - 90)
        return (
            frame.x + frame.width / 2 + scale * icon_radius * math.cos(angle),
            frame.y + frame.height / 2 + scale * icon_radius * math.sin(angle))

    def icon_colour(self, slot, count, scale=1.0):
        x, y = self.slot_place(slot, count, scale)
        manager = self.desktop.window_manager
        window = self.window() if manager and manager.loses_frames else None
        return self.display.picture(Rect(int(x) - 2, int(y) - 2, 5, 5), window).mean(2, 2)

    def shows(self, *applications, scale=1.0):
        """True when the ring's icons are those of these applications, slot by slot."""
        if not self.is_shown():
            return False
        count = len(applications)
        return all(
            looks_like(self.icon_colour(slot, count, scale), application.colour)
            for slot, application in enumerate(applications))

    def wait_shows(self, *applications, scale=1.0):
        names = ", ".join(application.name for application in applications)
        wait_until(lambda: self.shows(*applications, scale=scale), f"the ring holds {names}")


def looks_like(seen, colour):
    """True when a colour from the palette was drawn there, fully or dimmed over the dark band."""
    def distance(known):
        dimmed = tuple(0.72 * channel + 0.28 * 40 for channel in known)
        return min(colour_distance(seen, known), colour_distance(seen, dimmed))

    return min(PALETTE.values(), key=distance) == colour and distance(colour) < 60
