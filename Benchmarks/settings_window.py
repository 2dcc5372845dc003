# SPDX-License-Identifier: MIT
"""The settings window and the ring's preview beside it, measured from outside: how soon the window is
drawn, and how many frames of the preview a second can be seen while the user works in it."""
import statistics
import time

from gi.repository import Gio, GLib

from harness.desktop import Desktop, DesktopOptions
from harness.display import Rect
from harness.launcher import BUS_NAME, TITLE, Launcher
from harness.settings_window import ENVIRONMENT, SLIDER, SettingsWindow
from harness.waiting import wait_until

SECTIONS = ("general", "shortcut", "appearance", "theme", "permanentApps", "hints", "updates", "backup", "about")
BACKGROUND = (0x30, 0x60, 0xA0)
STEP_SECONDS = 0.005  # Between two movements of the pointer, as a fast mouse reports them.
PINNED = 15


class SettingsBench:
    """One desktop with a launcher whose settings window has not been opened yet."""

    def __init__(self, build):
        self.desktop = Desktop(DesktopOptions(width=1700, height=900))
        self.build = build

    def __enter__(self):
        self.desktop.__enter__()
        self.display = self.desktop.display
        self.launcher = Launcher(self.desktop, self.build / "tavik-launcher")
        self.launcher.pin(*(self.desktop.applications.add(f"Pinned {index}") for index in range(PINNED)))
        # The largest ring takes the most work, and shows every thickness but the greatest.
        self.launcher.settings(ringDiameter=550.0)
        self.launcher.start(environment=ENVIRONMENT).wait_indexed()
        self.window = SettingsWindow(self.launcher)
        self.bus = self.desktop.bus()
        return self

    def __exit__(self, *details):
        self.bus.close_sync(None)
        self.launcher.stop()
        self.desktop.__exit__(*details)

    def ask_for(self, section):
        arguments = GLib.Variant("(sava{sv})", ("settings", [GLib.Variant("s", section)], {}))
        self.bus.call(
            BUS_NAME, "/org/tavik/Launcher", "org.freedesktop.Application", "ActivateAction", arguments, None,
            Gio.DBusCallFlags.NO_AUTO_START, 5000, None, None)
        self.bus.flush_sync(None)

    def opening(self, section):
        """Milliseconds from the wish to see a section until the middle of its window is drawn."""
        middle = Rect(500, 450, 4, 4)
        wait_until(lambda: self.display.picture(middle).pixel(1, 1) == BACKGROUND, "the desktop is empty")
        begin = time.monotonic()
        self.ask_for(section)
        wait_until(
            lambda: self.display.picture(middle).pixel(1, 1) != BACKGROUND, "the window is drawn", interval=0.0005)
        return 1000 * (time.monotonic() - begin)

    def show_preview(self, slider):
        """Has the preview shown by a change; returns its frame."""
        self.display.click(*slider.centre)
        window = self.display.wait_for(TITLE)
        self.launcher.wait_still()
        return self.display.geometry(window)

    def frames(self, strip, seconds, act):
        """Calls `act(step)` every few milliseconds; returns the times at which the strip was seen changed."""
        seen, looks = self.display.picture(strip), []
        begin = now = time.monotonic()
        step = 0
        while now - begin < seconds:
            if now - begin >= step * STEP_SECONDS:
                act(step)
                step += 1
            look = self.display.picture(strip)
            now = time.monotonic()
            if look != seen:
                seen = look
                looks.append(now)
        return looks


def rate(looks):
    """Frames per second, and the median and the 95th percentile of the milliseconds between two."""
    gaps = sorted(1000 * (later - earlier) for earlier, later in zip(looks, looks[1:]))
    return (len(looks) - 1) / (looks[-1] - looks[0]), (gaps[len(gaps) // 2], gaps[len(gaps) * 95 // 100])


def drag(bench, name, seconds):
    """Drags a slider to and fro over its whole length."""
    slider = bench.window.control(SLIDER, name).place
    frame = bench.show_preview(slider)
    left, length = slider.x + 20, slider.width - 40
    y = slider.centre[1]
    strip = Rect(frame.x - 130, frame.centre[1], frame.width // 2 + 130, 1)

    def move(step):
        place = step % (2 * length)
        bench.display.move_pointer(left + min(place, 2 * length - place), y)

    with bench.display.button_held(left, y):
        return rate(bench.frames(strip, seconds, move))


def drag_window(bench, seconds, reach=60):
    """Drags the window to and fro by its title bar, with the preview beside it."""
    frame = bench.display.geometry(bench.display.find(TITLE))
    window = bench.window.frame()
    x, y = window.x + window.width // 3, window.y - 8
    strip = Rect(frame.x - reach, frame.centre[1], frame.width + 2 * reach, 1)

    def move(step):
        place = step % (2 * reach)
        bench.display.move_pointer(x - min(place, 2 * reach - place), y)

    with bench.display.button_held(x, y):
        return rate(bench.frames(strip, seconds, move))


def scroll(bench, section, rounds):
    """Scrolls the page while the preview comes with its animation; the slowest round counts."""
    results = []
    bench.window.open(section)
    window = bench.window.frame()
    strip = Rect(window.x + window.width + 40, window.centre[1], 550, 1)
    for _ in range(rounds):
        bench.window.close()
        wait_until(lambda: bench.display.picture(strip).pixel(strip.width // 2, 0) == BACKGROUND, "the preview is gone")
        bench.display.move_pointer(window.x + window.width * 2 // 3, window.centre[1])

        def turn_wheel(step):
            if step == 0:
                bench.ask_for(section)
            elif step > 30 and step % 3 == 0:  # Once the window is there: the desktop's own wheel does something else.
                bench.display.click(button=5 if step // 3 % 40 < 20 else 4)

        results.append(rate(bench.frames(strip, 0.6, turn_wheel)))
    return min(results)


def measure_settings(table, build, rounds=5):
    with SettingsBench(build) as bench:
        first = bench.opening("general")
        bench.window.close()
        table.add("settings window: first opening", first, limit=300)
        durations = []
        for section in SECTIONS * rounds:
            durations.append(bench.opening(section))
            bench.window.close()
        durations.sort()
        table.add("settings window: opening after that, any section", statistics.median(durations),
                  durations[len(durations) * 95 // 100], limit=150)

        bench.window.open("appearance")
        for slider in ("Thickness", "Diameter"):
            per_second, gap = drag(bench, slider, 2.0)
            table.add(f"settings window: preview frames a second, dragging “{slider}”", per_second, least=60, unit="")
            table.add(f"settings window: from one to the next, dragging “{slider}”", *gap)
        table.add("settings window: preview frames a second, dragging the window", drag_window(bench, 2.0)[0],
                  least=60, unit="")
        per_second, _ = scroll(bench, "theme", rounds)
        table.add("settings window: preview frames a second, scrolling", per_second, least=60, unit="")
