# SPDX-License-Identifier: MIT
"""The chord: modifiers held alone show the ring, tapped twice they pin it, beside the shortcuts of the desktop and of
other programs."""
import contextlib
import ctypes
import time

import pytest
from Xlib import X
from Xlib import display as xlib_display

from harness.accessibility import find
from harness.applications import open_window
from harness.waiting import settles, stays, wait_front, wait_until
from harness.window_managers import under

CONTROL_SHIFT = 0x60000
NAMES = ("Alder", "Birch", "Dog Rose", "Dogwood")
CHORD = ("ctrl", "alt")
DELAYS = (0.01, 0.03, 0.12, 0.3, 0.6)  # Seconds from the chord to another key.
XKB_CORE_KEYBOARD = 0x100
TAP = 0.08  # Seconds from press to release, and between two taps.
REGISTERED = "Tavik Launcher hotkey registered (modifier-only): local=1 tap=1 global=1 AXTrusted=1"


@pytest.fixture
def ring(launcher, apps, display):
    launcher.pin(*apps)
    launcher.use_chord()
    start(launcher)
    display.move_pointer(640, 400)
    return launcher


def wait_logged(launcher, line):
    wait_until(lambda: line in launcher.desktop.log("launcher"), f"{line!r} is in the log")


def start(launcher, line=REGISTERED, **options):
    launcher.start(**options)
    wait_logged(launcher, line)


def tap(display, *names, hold=TAP):
    with display.held(*(names or CHORD)):
        time.sleep(hold)


@contextlib.contextmanager
def keyboard_grabbed(display):
    """Another program takes the whole keyboard, as a menu or a screen locker does."""
    other = xlib_display.Display(display.connection.get_display_name())
    root = other.screen().root
    assert root.grab_keyboard(True, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime) == X.GrabSuccess
    other.sync()
    try:
        yield
    finally:
        other.close()


@pytest.mark.parametrize(
    "desktop_options", [{"window_manager": name} for name in ("openbox", "xfwm4", "metacity", "none")],
    ids=lambda options: options["window_manager"])
def test_holding_shows_the_ring_and_releasing_hides_it(ring, display, look, desktop_options):
    for count in (1, 2):
        with display.held(*CHORD):
            ring.wait_open()
            look("held")
            stays(ring.is_shown, "the ring is shown while the chord is held", seconds=1)
        ring.wait_hidden()
        assert ring.times_shown() == count


def test_a_tap_and_a_press_pin_the_ring(ring, apps, display, look):
    tap(display)
    ring.wait_hidden()
    time.sleep(0.2)
    tap(display)
    ring.wait_open()
    look("pinned")
    stays(ring.is_shown, "the pinned ring stays after the second release")
    display.type("al")
    ring.wait_shows(apps[0])
    ring.dismiss()
    time.sleep(1)  # A press any sooner after that tap is the second of two, and pins.
    with display.held(*CHORD):
        ring.wait_open()
    ring.wait_hidden()


def test_a_command_at_another_key_opens_the_ring_and_closes_it_and_twice_pins_it(ring, apps, display):
    for count in (1, 2):
        assert ring.command("--summon").returncode == 0
        ring.wait_open()
        stays(ring.is_shown, "nobody holds the chord, and the ring stays", seconds=1.2)
        assert ring.command("--summon").returncode == 0
        ring.wait_hidden()
        time.sleep(1)
    for count in (1, 2):
        assert ring.command("--summon").returncode == 0
        time.sleep(0.1)
    ring.wait_open()
    display.type("al")
    ring.wait_shows(apps[0])


def test_letters_filter_and_return_launches_from_within_a_terminal(ring, apps, desktop, display, look):
    desktop.spawn(["xterm", "-T", "Terminal"])
    terminal = display.wait_for("Terminal")
    display.activate(terminal)
    wait_until(lambda: display.has_focus(terminal), "the terminal has the focus")
    with display.held(*CHORD):
        ring.wait_open()
        display.type("dogw")
        ring.wait_shows(apps[3])
        look("filtered")
        display.press("Return")
        apps[3].wait_started()
    ring.wait_hidden()


def test_the_chord_works_while_another_program_holds_the_keyboard_and_leaves_it_free_for_everybody(ring, display):
    with keyboard_grabbed(display):
        with display.held(*CHORD):
            display.wait_for("Tavik Launcher")
            stays(ring.is_shown, "the ring is shown while the chord is held", seconds=0.5)
        ring.wait_hidden()
    time.sleep(1)  # That was no tap, but the next would be near it.
    with display.held(*CHORD):
        ring.wait_open()
        for _ in range(10):
            with keyboard_grabbed(display):
                pass
    ring.wait_hidden()


def test_letters_of_the_users_own_layout_filter(launcher, applications, desktop, display, look):
    photo, other = applications.add("Фото"), applications.add("Alder")
    launcher.pin(other, photo)
    launcher.use_chord()
    desktop.run(["setxkbmap", "-layout", "us,ru", "-option", "grp:menu_toggle"])
    start(launcher)
    with display.held(135):  # The Menu key: on to the second layout.
        pass
    with display.held(*CHORD):
        launcher.wait_open()
        with display.held(38):  # Where a Latin keyboard has its A.
            pass
        launcher.wait_shows(photo)
        look("filtered")
    stays(launcher.is_shown, "what was typed into stays open after the release")
    launcher.dismiss()


def test_digits_launch_where_the_digit_row_needs_shift(launcher, apps, desktop, display):
    launcher.pin(*apps)
    desktop.run(["setxkbmap", "fr"])
    launcher.start().summon(640, 400)
    with display.held(37, 11):  # Control and the second key of the row.
        apps[1].wait_started()


def lock_modifiers(display_name, mask):
    """Sets the keyboard's modifiers by themselves, without a key."""
    library = ctypes.CDLL("libX11.so.6")
    library.XOpenDisplay.restype = ctypes.c_void_p
    connection = ctypes.c_void_p(library.XOpenDisplay(display_name.encode()))
    library.XkbLockModifiers(connection, XKB_CORE_KEYBOARD, 0xFF, mask)
    library.XSync(connection, False)
    library.XCloseDisplay(connection)


@pytest.mark.desktop(missing_extensions=("RECORD",))
def test_a_server_that_records_nothing_leaves_the_other_sources(launcher, apps, desktop):
    """Such a server does not type for tests either, so the modifiers are set without a key."""
    launcher.use_chord()
    start(launcher, "(modifier-only): local=1 tap=0 global=1 AXTrusted=1")
    assert "XKEYBOARD=1 RECORD=0" in desktop.log("launcher")
    lock_modifiers(desktop.display_name, X.ControlMask | X.Mod1Mask)
    launcher.wait_open()
    lock_modifiers(desktop.display_name, 0)
    launcher.wait_hidden()


def test_a_modifier_that_the_keyboard_gains_makes_the_shortcut_possible(launcher, apps, desktop, display):
    desktop.run(["xmodmap", "-e", "clear mod4"])
    launcher.use_chord(0x140000)
    start(launcher, "failed to install hotkey monitors")
    desktop.run(["xmodmap", "-e", "add mod4 = Super_L"])
    wait_logged(launcher, REGISTERED)
    with display.held("ctrl", "super"):
        launcher.wait_open()
    launcher.wait_hidden()


def test_a_hundred_fast_chords_show_the_ring_a_hundred_times(launcher, apps, display):
    launcher.pin(*apps)
    launcher.settings(doubleTapModifiersPinsLauncher=False)
    launcher.use_chord()
    start(launcher)
    for _ in range(100):
        tap(display, hold=0.01)
        time.sleep(0.01)
    wait_until(lambda: launcher.times_shown() >= 100, "a hundred shows are in the log")
    launcher.wait_hidden()
    stays(lambda: not launcher.is_shown(), "the ring is hidden")
    assert launcher.times_shown() == 100
    assert not launcher.exited()


@under("metacity", "xfwm4", "kwin", "mutter", "gnome-shell")
def test_a_blink_of_the_chord_leaves_nothing_behind(launcher, apps, desktop, display, desktop_options):
    launcher.pin(*apps)
    launcher.settings(doubleTapModifiersPinsLauncher=False)
    launcher.use_chord()
    editor = open_window(desktop, "Editor", "--geometry", "400", "300", "60", "60")
    start(launcher)
    display.move_pointer(640, 400)
    for count in range(50):
        with display.held(*CHORD):
            time.sleep(0.002 + count % 5 * 0.002)
        wait_until(lambda: display.has_focus(editor), "the editor has the keyboard again")
        with display.held(*CHORD):
            time.sleep(0.004)
            with display.held("shift"):
                time.sleep(0.004 + count % 2 * 0.004)
        wait_until(lambda: display.has_focus(editor), "the editor has the keyboard again")
    settles(lambda: not launcher.is_shown() and display.has_focus(editor), "nothing is left of the ring")


def test_a_shortcut_changed_while_it_is_held_lets_go_and_the_new_one_serves(launcher, apps, desktop, display):
    launcher.pin(*apps)
    launcher.use_chord(CONTROL_SHIFT)
    start(launcher, environment={"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
    launcher.command("--settings=shortcut")
    wait_front(display, "Tavik Launcher Settings")
    button = wait_until(lambda: find(desktop, "Use Default Shortcut"), "the button is there")
    x, y, width, height = button["place"]

    display.move_pointer(x, (y + 400) % 800)  # Wherever the button is, the ring is elsewhere.
    with display.held("ctrl", "shift"):
        launcher.wait_open()
        display.move_pointer(x + width // 2, y + height // 2)
        display.click()
        wait_until(lambda: desktop.log("launcher").count(REGISTERED) == 2, "the new chord is watched for")
        launcher.wait_hidden()
        stays(lambda: not launcher.is_shown(), "the ring is hidden while the old chord is still down")
    before = launcher.times_shown()
    tap(display, "ctrl", "shift")
    stays(lambda: launcher.times_shown() == before, "the old chord does nothing")
    with display.held(*CHORD):
        launcher.wait_open()
    launcher.wait_hidden()


# --- beside the shortcuts of others


def press_with_chord(display, ring, key, delay):
    """Returns whether the ring was still there a moment after the key, with the chord held."""
    with display.held(*CHORD):
        time.sleep(delay)
        display.press(key)
        time.sleep(0.1)
        was_shown = ring.is_shown()
    return was_shown


@under("openbox", "xfwm4")
def test_the_desktops_own_shortcut_switches_the_workspace(ring, display, desktop_options):
    def workspace():
        return (display.root_property("_NET_CURRENT_DESKTOP") or [None])[0]

    assert display.root_property("_NET_NUMBER_OF_DESKTOPS")[0] >= 2
    for delay, key in zip(DELAYS, ("Right", "Left") * len(DELAYS)):
        before = workspace()
        assert not press_with_chord(display, ring, key, delay)
        wait_until(lambda: workspace() != before, f"the workspace is another, {delay} s after the chord")
        stays(lambda: not ring.is_shown(), "the ring is gone", seconds=0.2)


@under("openbox", "xfwm4")
def test_another_programs_shortcut_reaches_it_and_pins_nothing(ring, desktop, display, look, desktop_options):
    editor = open_window(desktop, "Editor", "--geometry", "400", "300", "60", "60")
    display.grab("ctrl+alt+t")
    for delay in DELAYS:
        for _ in range(2):  # Two quick ones are no double tap.
            assert not press_with_chord(display, ring, "t", delay)
            assert [event.type for event in display.grabbed_events()] == [X.KeyPress, X.KeyRelease]
            assert not ring.is_shown()
            wait_until(lambda: display.has_focus(editor), "the editor has the keyboard again")
        look(f"after {delay} s")


def test_a_third_modifier_that_is_let_go_first_is_no_second_press(ring, display):
    with display.held(*CHORD):
        ring.wait_open()
        with display.held("shift"):
            ring.wait_hidden()
        stays(lambda: not ring.is_shown(), "the ring is not there again")
    with display.held(*CHORD):
        ring.wait_open()
    ring.wait_hidden()


def test_switching_the_layout_with_the_pair_shows_no_ring(ring, desktop, display):
    desktop.run(["setxkbmap", "-layout", "us,ru", "-option", "grp:ctrl_alt_toggle"])
    time.sleep(0.5)  # The launcher reads the new map.
    for _ in range(4):
        with display.held(*CHORD):
            stays(lambda: not ring.is_shown(), "no ring", seconds=0.2)
