# SPDX-License-Identifier: MIT
"""The settings window: every kind of control with the keyboard alone and with the pointer, the ring
beside it, backups through the real file dialogs, and the desktop's light and dark."""
import itertools
import json

import pytest

from harness.desktop import Monitor
from harness.display import Rect
from harness.launcher import TITLE, looks_like
from harness.picture import colour_distance
from harness.services import Portal
from harness.settings_window import (
    BUTTON, ENVIRONMENT, FIELD, ITEM, LIST, RADIO, SLIDER, SWITCH, SettingsWindow, TITLE as SETTINGS_TITLE)
from harness.waiting import stays, wait_front, wait_until
from harness.window_managers import under

pytestmark = pytest.mark.desktop(width=1700, height=900)
GAP = 40  # Between the window and the largest ring.
LARGEST = 550
BEFORE = 350  # The diameter before it is changed to the largest.


@pytest.fixture
def window(launcher):
    return SettingsWindow(launcher)


def preview(display):
    """The frame of the ring, or None."""
    found = display.find(TITLE)
    return found and display.geometry(found)


def wait_preview(display, condition, what):
    def fulfilled():
        frame = preview(display)
        return frame if frame and condition(frame) else None

    return wait_until(fulfilled, what)


class Keyboard:
    """A user without a pointer."""

    def __init__(self, window):
        self.window, self.display = window, window.display

    def turn_to(self, role, name):
        self.window.focus(role, self.window.control(role, name).name)

    def act(self, role, name):
        self.turn_to(role, name)
        self.display.press("Return")

    def set_to_most(self, name):
        self.turn_to(SLIDER, name)
        self.display.press("End")

    def choose_next(self, chosen, _following):
        self.turn_to(RADIO, chosen)
        self.display.press("Right")

    def type_colour(self, name, colour):
        self.turn_to(FIELD, name)
        self.display.press("ctrl+a")
        self.display.type(colour)

    def pick_swatch(self, name, _swatch):
        self.turn_to(BUTTON, f"{name}: choose a color")
        self.display.press("space", "Right", "Return")

    def add(self, app):
        self.turn_to(FIELD, "Search applications")
        self.display.type(app.name.lower())
        self.window.control(ITEM, app.name)
        self.take(app)

    def take(self, _app):
        self.display.press("Return")

    def move_first_down(self, _app):
        self.turn_to(LIST, "Permanent applications")
        self.display.press("Home", "alt+Down")

    def remove_last(self, _app):
        self.turn_to(LIST, "Permanent applications")
        self.display.press("End", "Delete")

    def record(self, chord):
        self.act(BUTTON, "Trigger shortcut: ")
        self.window.control(BUTTON, "Trigger shortcut: Press a shortcut…")
        self.display.press(chord)


class Pointer(Keyboard):
    """A user who types only where there is no other way."""

    def turn_to(self, role, name):
        self.window.click(role, name)
        self.window.wait(role, name, lambda control: control.is_focused, "has the keyboard")

    def act(self, role, name):
        self.window.click(role, name)

    def set_to_most(self, name):
        place = self.window.control(SLIDER, name).place
        with self.display.button_held(*place.centre):
            for step in range(1, 6):
                self.display.move_pointer(place.centre[0] + step * place.width // 10, place.centre[1])

    def choose_next(self, _chosen, following):
        self.window.click(RADIO, following)

    def pick_swatch(self, name, swatch):
        self.window.click(BUTTON, f"{name}: choose a color")
        self.window.click(RADIO, swatch)

    def take(self, app):
        self.window.click(ITEM, app.name)

    def move_first_down(self, app):
        first = self.window.control(ITEM, app.name).place
        x, y = first.centre
        with self.display.button_held(x, y):
            for step in range(1, 6):
                self.display.move_pointer(x, y + step * first.height // 5)

    def remove_last(self, app):
        self.window.click(ITEM, app.name)
        self.window.click(BUTTON, "Remove")


def setting(launcher, name):
    return launcher.defaults().get(f"LauncherSettings.{name}")


def wait_setting(launcher, name, value):
    wait_until(lambda: setting(launcher, name) == value, f"{name} is stored as {str(value)[:200]}")


def seen(launcher, slot, count):
    """The colour at a slot of the preview, or at its band half-way between two."""
    x, y = launcher.slot_place(slot, count, diameter=LARGEST)
    return launcher.display.picture(Rect(int(x) - 2, int(y) - 2, 5, 5)).mean(2, 2)


def wait_holds(launcher, apps):
    """Waits until the preview's slots but the highlighted first hold these applications."""
    def holds():
        return launcher.is_shown() and all(
            looks_like(seen(launcher, slot, len(apps)), app.colour) for slot, app in enumerate(apps) if slot > 0)

    wait_until(holds, f"the ring holds {', '.join(app.name for app in apps)}")


@pytest.mark.parametrize("hand", [Keyboard, Pointer])
def test_each_kind_of_control_shows_in_the_ring_and_is_kept(launcher, window, apps, display, look, hand):
    *first, added = apps
    launcher.pin(*first)
    launcher.settings(showsLaunchHints=True, ringDiameter=float(BEFORE))
    launcher.start(environment=ENVIRONMENT).wait_indexed()
    user = hand(window)

    assert preview(display) is None
    window.open("appearance")
    wait_preview(display, lambda frame: frame.width == round(BEFORE * 1.1), "the ring is shown from the start")
    user.set_to_most("Diameter")
    wait_preview(display, lambda frame: frame.width == round(LARGEST * 1.1), "the ring shows its new size")
    user.act(SWITCH, "Show application names")
    wait_setting(launcher, "showsAppNames", False)
    look("sizes")

    window.open("theme")
    user.choose_next("Tavik Classic", "Midnight Cyan")
    wait_setting(launcher, "highlightColorHex", "#00C7D9")
    launcher.wait_still()
    dark = seen(launcher, 1.5, 3)
    user.type_colour("Ring color", "5a1030")
    wait_until(lambda: colour_distance(seen(launcher, 1.5, 3), dark) > 30, "the ring shows its new colour")
    user.pick_swatch("Highlight color", "Mint")
    wait_until(lambda: setting(launcher, "highlightColorHex") != "#00C7D9", "the swatch is stored")
    look("colours")

    window.open("permanentApps")
    user.add(added)
    wait_holds(launcher, apps)
    user.move_first_down(apps[0])
    order = [apps[1], apps[0], *apps[2:]]
    wait_holds(launcher, order)
    wait_setting(launcher, "pinnedPermanentAppPaths", [app.path for app in order])
    user.remove_last(added)
    wait_setting(launcher, "permanentAppPaths", [app.path for app in first])
    look("applications")

    window.open("hints")
    user.choose_next("Interval: 25", "Interval: 50")
    wait_setting(launcher, "launchHintInterval", 50)
    window.open("shortcut")
    user.record(launcher.hot_key)
    window.control(BUTTON, "Trigger shortcut: Ctrl + Alt + Space")  # Recorded, not obeyed.
    user.record("ctrl+F9")
    wait_until(lambda: display.is_grabbed("ctrl+F9"), "the recorded shortcut is taken")
    wait_until(lambda: b"F9" in setting(launcher, "hotKeyConfig"), "the recorded shortcut is stored")
    assert not display.is_grabbed(launcher.hot_key)
    window.close()
    wait_until(lambda: preview(display) is None, "the ring goes with the window")

    stored = launcher.defaults()
    launcher.stop()
    assert launcher.defaults() == stored
    launcher.hot_key = "ctrl+F9"
    launcher.start()
    window.open("appearance")
    assert window.control(SLIDER, "Diameter").value == LARGEST
    assert not window.control(SWITCH, "Show application names").is_checked
    window.open("theme")
    assert window.control(FIELD, "Ring color").text == "#5A1030"
    assert window.control(RADIO, "Custom").is_checked
    window.open("permanentApps")
    window.control(ITEM, "Birch")
    names = [node["name"] for node in window.nodes() if node["role"] == ITEM]
    assert names == ["Birch", "Alder", "Cedar"]
    window.open("hints")
    assert window.control(RADIO, "Interval: 50").is_checked
    window.open("shortcut")
    window.control(BUTTON, "Trigger shortcut: Ctrl + F9")


# --- the ring beside the window

def drag_window(window, dx, dy, during=lambda: None, grip=0.3):
    """Drags the window by a place of its title bar, in small steps as a hand does."""
    frame = window.frame()
    x, y = frame.x + int(grip * frame.width), frame.y - 8
    with window.display.button_held(x, y):
        nudges = itertools.cycle((4, 8, 12))

        def follows():
            window.display.move_pointer(x + next(nudges), y)
            return window.frame() != frame

        wait_until(follows, "the window manager moves the window")
        for step in range(1, 21):
            window.display.move_pointer(x + dx * step // 20, y + dy * step // 20)
            during()
    window.wait_still()


def overlap(one, other):
    return (one.x < other.x + other.width and other.x < one.x + one.width
            and one.y < other.y + other.height and other.y < one.y + one.height)


def show_preview(window, look):
    window.open("appearance")
    window.click(SWITCH, "Show application names")
    window.display.wait_for(TITLE)
    window.launcher.wait_still()
    look("beside")


@under("openbox", "xfwm4", "metacity")
def test_the_ring_moves_with_the_window_and_goes_with_it(launcher, window, apps, display, look, desktop_options):
    launcher.pin(*apps)
    launcher.start(environment=ENVIRONMENT)
    show_preview(window, look)
    assert display.has_focus(window.window()), "the ring leaves the keyboard to the window"
    before, start = preview(display), window.frame()
    assert before.centre[0] == pytest.approx(start.x + start.width + GAP + LARGEST // 2, abs=8)

    places = []
    drag_window(window, -40, 40, during=lambda: places.append((window.frame(), preview(display))))
    wait_preview(display, lambda f: f.centre == pytest.approx((before.centre[0] - 40, before.centre[1] + 40), abs=3),
                 "the ring has moved with the window")
    assert len({frame.x for _, frame in places}) > 3, "it moves while the window is dragged"
    assert not any(overlap(*pair) for pair in places)
    look("moved")

    display.switch_to_desktop(1)
    wait_until(lambda: preview(display) is None, "the ring stays on its window's desktop")
    display.switch_to_desktop(0)
    wait_preview(display, lambda f: not overlap(f, window.frame()), "the ring is back with its window")
    display.minimise(window.window())
    wait_until(lambda: preview(display) is None, "the ring goes with the minimised window")
    minimised = next(w for w in display.root_property("_NET_CLIENT_LIST") if display.title(w) == SETTINGS_TITLE)
    display.activate(minimised)
    window.wait_open()
    wait_preview(display, lambda f: not overlap(f, window.frame()), "the ring comes back with the window")
    window.close()
    wait_until(lambda: preview(display) is None, "the ring goes with the closed window")
    stays(lambda: preview(display) is None, "the ring is gone")


TWO_MONITORS = (Monitor("left", 0, 0, 1700, 900), Monitor("right", 1700, 0, 1300, 900))


@pytest.mark.desktop(width=3000, height=900, monitors=TWO_MONITORS)
def test_the_ring_follows_the_window_to_another_screen_and_to_its_other_side(launcher, window, apps, display, look):
    launcher.pin(*apps)
    display.move_pointer(400, 400)
    launcher.start(environment=ENVIRONMENT)
    show_preview(window, look)
    drag_window(window, 1650, 0)
    frame = window.frame()
    wait_preview(display, lambda f: f.x >= frame.x + frame.width and f.x > 1700, "the ring is on the other screen")
    look("other screen")
    drag_window(window, 250, 0, grip=0.6)
    frame = window.frame()
    wait_preview(display, lambda f: f.x + f.width <= frame.x and f.centre[0] > 1700,
                 "the ring is where there is more room")
    look("other side")


def test_the_window_has_the_keyboard_again_when_its_tour_or_the_ring_has_gone(launcher, window, display):
    launcher.start(environment=ENVIRONMENT)
    window.open("about")
    window.click(BUTTON, "Repeat Tour")
    wait_front(display, "Welcome to Tavik Launcher")
    display.press("Return")
    wait_until(lambda: display.has_focus(window.window()), "the settings have it again")
    launcher.summon(1200, 400)
    launcher.dismiss()
    window.wait_open()


@pytest.mark.desktop(width=1024, height=600)
def test_on_a_small_screen_the_window_is_lower_and_shown_whole(launcher, window, display, look):
    launcher.start(environment=ENVIRONMENT)
    window.open("appearance")

    def fits():
        title_bar = display.property(window.window(), "_NET_FRAME_EXTENTS")[2]
        frame = window.frame()
        return title_bar > 0 and frame.y == title_bar and frame.y + frame.height <= 600

    wait_until(fits, "the title bar can be reached, and the last row")
    window.click(SWITCH, "Show application names")
    stays(lambda: preview(display) is None, "no ring is better than one that cannot be made out")
    look("appearance")


# --- light and dark

def test_the_window_is_light_and_dark_as_the_desktop_asks(launcher, window, apps, desktop, display, look):
    launcher.pin(*apps)
    portal = Portal(desktop, "dark")
    launcher.start(environment=ENVIRONMENT)

    def wait_ground(colour, what):
        frame = window.frame()
        wait_until(lambda: display.picture().pixel(frame.x + frame.width - 30, frame.y + frame.height - 30) == colour,
                   what)
        look(what)

    dark, light = (0x1E, 0x1F, 0x22), (0xF4, 0xF5, 0xF7)
    window.open("theme")
    wait_ground(dark, "dark from the start")
    for scheme, ground in (("light", light), ("dark", dark), ("none", light)):
        portal.prefer(scheme)
        wait_ground(ground, f"{scheme} at once")
    # What was drawn for one opening is drawn again for the next.
    window.close()
    portal.prefer("dark")
    window.open("about")
    wait_ground(dark, "dark when opened anew")
    portal.prefer("contrast")
    wait_ground((0, 0, 0), "nothing but black and white")


# --- backups

class FileDialog:
    """The desktop's file dialog; here the toolkit's own."""

    def __init__(self, window, button, title):
        self.window, self.display, self.title = window, window.display, title
        window.click(BUTTON, button)
        wait_front(self.display, title)

    def accept(self, path=None):
        if path:
            self.display.press("ctrl+a")
            self.display.type(path)
        self.display.press("Return")
        self.display.wait_gone(self.title)
        self.window.wait_open()


EXPORT, EXPORT_TITLE = "Export Settings…", "Export Tavik Launcher Settings"
IMPORT, IMPORT_TITLE = "Import Settings…", "Import Tavik Launcher Settings"
FILE_NAME = "Tavik Launcher Settings.json"


def test_settings_are_exported_imported_and_the_import_undone(launcher, window, apps, desktop, display, look):
    launcher.pin(*apps)
    launcher.settings(ringThickness=99.0)
    launcher.start(environment=ENVIRONMENT)
    window.open("backup")
    dialog = FileDialog(window, EXPORT, EXPORT_TITLE)
    look("export")
    dialog.accept()
    exported = desktop.home / FILE_NAME
    window.wait_text(f"Settings exported to {FILE_NAME}.")
    members = json.loads(exported.read_text())
    assert len(members) == 24 and list(members) == sorted(members)
    assert members["ringThickness"] == 99 and members["permanentAppPaths"] == [app.path for app in apps]

    stored = launcher.defaults()
    (desktop.home / "large.json").write_text(json.dumps(members) + " " * (100 << 20))
    FileDialog(window, IMPORT, IMPORT_TITLE).accept("large.json")
    window.wait_text("Couldn't import large.json — is it a valid Tavik settings file?")
    assert launcher.defaults() == stored
    look("refused")

    members.update(ringThickness=1000, maxVisibleApps=3, pinnedPermanentAppPaths=[apps[1].path, "/nowhere/Gone.app"])
    (desktop.home / "good.json").write_text(json.dumps(members))
    FileDialog(window, IMPORT, IMPORT_TITLE).accept("good.json")
    window.wait_text("Imported good.json — 1 pinned app restored, 1 not installed on this Mac.")
    wait_setting(launcher, "ringThickness", 220)
    wait_setting(launcher, "maxVisibleApps", 3)
    look("imported")
    window.click(BUTTON, "Undo Import")
    wait_setting(launcher, "ringThickness", 99)
    FileDialog(window, EXPORT, EXPORT_TITLE).accept("again.json")
    window.wait_text("Settings exported to again.json.")
    assert (desktop.home / "again.json").read_bytes() == exported.read_bytes(), "all is as before the import"
