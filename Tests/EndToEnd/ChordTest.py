# SPDX-License-Identifier: MIT
"""The chord: modifiers held alone show the ring, tapped twice they pin it."""
import contextlib
import ctypes
import json
import os
import signal
import time

import pytest
from Xlib import X
from Xlib import display as xlib_display
from Xlib.ext import xtest

from harness.accessibility import find
from harness.waiting import stays, wait_until

CONTROL_ALT = 0xC0000
CONTROL_SHIFT = 0x60000
NAMES = ("Alder", "Birch", "Dog Rose", "Dogwood")
CHORD = ("ctrl", "alt")
CHORD_PLACES = (37, 64)
XKB_CORE_KEYBOARD = 0x100
TAP = 0.08  # Seconds from press to release, and between two taps.
REGISTERED = "Tavik Launcher hotkey registered (modifier-only): local=1 tap=1 global=1 AXTrusted=1"
SHOWN = "Tavik Launcher panel: shown"


@pytest.fixture
def apps(applications):
    return [applications.add(name) for name in NAMES]


@pytest.fixture
def ring(launcher, apps, display):
    launcher.pin(*apps)
    use_shortcut(launcher, CONTROL_ALT)
    launcher.start()
    wait_until(lambda: REGISTERED in launcher.desktop.log("launcher"), "the chord is watched for")
    display.move_pointer(640, 400)
    return launcher


def use_shortcut(launcher, flags, **key):
    """Stores a shortcut that cannot be waited for by its grab."""
    launcher.hot_key = None
    record = {"modifierFlagsRaw": flags, "displayName": "shortcut", **key}
    launcher.settings(hotKeyConfig=json.dumps(record).encode())


def shows(launcher):
    return launcher.desktop.log("launcher").count(SHOWN)


def tap(display, *names, hold=TAP):
    with display.held(*(names or CHORD)):
        time.sleep(hold)


def press_place(display, *codes):
    """Presses keys by their place on the keyboard, whatever is printed on them."""
    for kind in (X.KeyPress, X.KeyRelease):
        for code in codes:
            xtest.fake_input(display.connection, kind, code)
    display.connection.sync()


@contextlib.contextmanager
def places_held(display, *codes):
    """Holds keys by their place."""
    for code in codes:
        xtest.fake_input(display.connection, X.KeyPress, code)
    display.connection.sync()
    try:
        yield
    finally:
        for code in reversed(codes):
            xtest.fake_input(display.connection, X.KeyRelease, code)
        display.connection.sync()


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


def test_holding_shows_the_ring_and_releasing_hides_it(ring, display, look):
    with display.held(*CHORD):
        ring.wait_open()
        look("held")
        stays(ring.is_shown, "the ring is shown while the chord is held", seconds=1.5)
    ring.wait_hidden()
    assert shows(ring) == 1


@pytest.mark.parametrize(
    "desktop_options", [{"window_manager": name} for name in ("xfwm4", "metacity", "none")],
    ids=lambda options: options["window_manager"])
def test_the_ring_is_typed_into_and_hidden_under_every_window_manager(ring, apps, display, desktop_options):
    for _ in range(2):
        with display.held(*CHORD):
            ring.wait_open()
            display.press("Right")
            display.press("Left")
        ring.wait_hidden()
    with display.held(*CHORD):
        ring.wait_open()
        display.type("al")
        ring.wait_shows(apps[0])
    display.press("Escape")
    ring.wait_hidden()


def test_every_source_tells(ring, display):
    with display.held(*CHORD):
        ring.wait_open()
    ring.wait_hidden()
    with display.held("ctrl"):
        pass
    for source in ("event tap", "global monitor"):
        wait_until(
            lambda: f"Tavik Launcher hotkey: first event from {source}" in ring.desktop.log("launcher"), source)


def test_either_order_of_keys_and_either_side_of_the_keyboard_will_do(ring, display):
    for names in (("alt", "ctrl"), ("Control_R", "Alt_R"), ("Control_R", "alt")):
        with display.held(*names):
            ring.wait_open()
        ring.wait_hidden()


def test_one_of_two_control_keys_may_be_released(ring, display):
    with display.held("ctrl", "alt"):
        ring.wait_open()
        tap(display, "Control_R")
        stays(ring.is_shown, "the other Control key still holds the chord")
    ring.wait_hidden()
    assert shows(ring) == 1


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
    display.press("Escape")
    ring.wait_hidden()
    with display.held(*CHORD):
        ring.wait_open()
    ring.wait_hidden()


def test_a_tap_and_a_press_much_later_do_not_pin(ring, display):
    tap(display)
    ring.wait_hidden()
    time.sleep(1.3)
    tap(display)
    ring.wait_hidden()
    stays(lambda: not ring.is_shown(), "the ring is hidden")


def test_a_long_hold_is_no_tap(ring, display):
    tap(display, hold=0.5)
    ring.wait_hidden()
    time.sleep(0.15)
    tap(display)
    ring.wait_hidden()
    stays(lambda: not ring.is_shown(), "the ring is hidden")


def test_nothing_pins_when_the_setting_is_off(launcher, apps, display):
    launcher.settings(doubleTapModifiersPinsLauncher=False)
    use_shortcut(launcher, CONTROL_ALT)
    launcher.start()
    for _ in range(3):
        tap(display)
        time.sleep(0.15)
    launcher.wait_hidden()
    assert shows(launcher) == 3


def test_one_more_modifier_ends_the_chord_until_it_is_released(ring, display):
    with display.held(*CHORD):
        ring.wait_open()
        with display.held("shift"):
            ring.wait_hidden()
            stays(lambda: not ring.is_shown(), "the ring is hidden", seconds=0.3)
        ring.wait_open()
    ring.wait_hidden()


def test_one_modifier_alone_does_nothing(ring, display):
    for name in CHORD:
        tap(display, name)
    with display.held("ctrl", "shift"):
        stays(lambda: not ring.is_shown(), "the ring is hidden")
    assert shows(ring) == 0


@pytest.mark.parametrize("lock", ["Caps_Lock", "Num_Lock"])
def test_lock_keys_change_nothing(ring, display, lock):
    display.press(lock)
    try:
        with display.held(*CHORD):
            ring.wait_open()
            display.press(lock)
            stays(ring.is_shown, "the ring is shown while the lock changes", seconds=0.3)
            display.press(lock)
        ring.wait_hidden()
    finally:
        display.press(lock)


def test_the_chord_works_while_a_terminal_has_the_focus(ring, desktop, display):
    desktop.spawn(["xterm", "-T", "Terminal"])
    terminal = display.wait_for("Terminal")
    display.activate(terminal)
    wait_until(lambda: display.has_focus(terminal), "the terminal has the focus")
    with display.held(*CHORD):
        ring.wait_open()
    ring.wait_hidden()
    wait_until(lambda: display.has_focus(terminal), "the terminal has the focus again")


def test_the_chord_works_while_another_program_holds_the_keyboard(ring, display):
    with keyboard_grabbed(display):
        with display.held(*CHORD):
            display.wait_for("Tavik Launcher")
            stays(ring.is_shown, "the ring is shown while the chord is held", seconds=0.5)
        ring.wait_hidden()


def test_letters_filter_and_return_launches_while_the_chord_is_held(ring, apps, display, look):
    with display.held(*CHORD):
        ring.wait_open()
        display.type("dogw")
        ring.wait_shows(apps[3])
        look("filtered")
        display.press("Return")
        apps[3].wait_started()
    ring.wait_hidden()


def test_arrows_select_while_the_chord_is_held(ring, apps, display):
    with display.held(*CHORD):
        ring.wait_open()
        display.press("Right")
        display.press("Right")
        display.press("Left")
        display.press("Return")
        apps[1].wait_started()
    ring.wait_hidden()


def test_a_digit_launches_while_the_chord_is_held(ring, apps, display):
    with display.held(*CHORD):
        ring.wait_open()
        display.press("3")
        apps[2].wait_started()
    ring.wait_hidden()


@pytest.mark.parametrize("layout", ["de", "ru", "us,ru"])
def test_a_layout_changes_neither_chord_nor_release(ring, desktop, display, layout):
    desktop.run(["setxkbmap", "-layout", layout, "-option", "grp:menu_toggle"])
    time.sleep(0.4)
    if "," in layout:
        press_place(display, 135)  # The Menu key: on to the second layout.
    with places_held(display, *CHORD_PLACES):
        ring.wait_open()
    ring.wait_hidden()


def test_letters_of_the_users_own_layout_filter(launcher, applications, desktop, display, look):
    photo, other = applications.add("Фото"), applications.add("Alder")
    launcher.pin(other, photo)
    use_shortcut(launcher, CONTROL_ALT)
    desktop.run(["setxkbmap", "ru"])
    launcher.start()
    wait_until(lambda: REGISTERED in launcher.desktop.log("launcher"), "the chord is watched for")
    with places_held(display, *CHORD_PLACES):
        launcher.wait_open()
        press_place(display, 38)  # Where a Latin keyboard has its A.
        launcher.wait_shows(photo)
        look("filtered")
    stays(launcher.is_shown, "what was typed into stays open after the release")
    display.press("Escape")
    launcher.wait_hidden()


def test_digits_launch_where_the_digit_row_needs_shift(launcher, applications, desktop, display):
    apps = [applications.add(name) for name in NAMES]
    launcher.pin(*apps)
    desktop.run(["setxkbmap", "fr"])
    launcher.start().summon(640, 400)
    press_place(display, 37, 11)  # Control and the second key of the row.
    apps[1].wait_started()


def test_an_ended_process_leaves_nothing_behind(ring, display):
    ring.stop()
    with display.held(*CHORD):
        stays(lambda: not ring.is_shown(), "no ring appears")


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
    use_shortcut(launcher, CONTROL_ALT)
    launcher.start()
    log = lambda: desktop.log("launcher")  # noqa: E731
    wait_until(lambda: "(modifier-only): local=1 tap=0 global=1 AXTrusted=1" in log(), "the chord is watched for")
    assert "XKEYBOARD=1 RECORD=0" in log()
    lock_modifiers(desktop.display_name, X.ControlMask | X.Mod1Mask)
    launcher.wait_open()
    lock_modifiers(desktop.display_name, 0)
    launcher.wait_hidden()


def test_a_program_that_slept_through_a_chord_catches_up(ring, display):
    os.kill(ring.process.pid, signal.SIGSTOP)
    try:
        tap(display)
    finally:
        os.kill(ring.process.pid, signal.SIGCONT)
    wait_until(lambda: shows(ring) == 1, "the show is in the log")
    ring.wait_hidden()
    stays(lambda: not ring.is_shown(), "the ring is hidden")
    assert shows(ring) == 1


def test_modifiers_that_move_while_running_are_followed(ring, desktop, display):
    desktop.run(["setxkbmap", "-option", "altwin:swap_alt_win"])
    time.sleep(0.5)
    with places_held(display, 37, 133):  # Where Super was.
        ring.wait_open()
    ring.wait_hidden()
    with places_held(display, 37, 64):
        stays(lambda: not ring.is_shown(), "the ring is hidden", seconds=0.3)


def test_a_modifier_that_the_keyboard_gains_makes_the_shortcut_possible(launcher, apps, desktop, display):
    desktop.run(["xmodmap", "-e", "clear mod4"])
    use_shortcut(launcher, 0x140000)
    launcher.start()
    log = lambda: launcher.desktop.log("launcher")  # noqa: E731
    wait_until(lambda: "failed to install hotkey monitors" in log(), "the refusal is logged")
    desktop.run(["xmodmap", "-e", "add mod4 = Super_L"])
    wait_until(lambda: REGISTERED in log(), "the chord is watched for")
    with display.held("ctrl", "super"):
        launcher.wait_open()
    launcher.wait_hidden()


def test_a_key_that_another_program_owns_is_watched_for(launcher, apps, display):
    use_shortcut(launcher, 0x40000, keyCode=101)
    display.grab("ctrl+F9")
    launcher.start()
    log = lambda: launcher.desktop.log("launcher")  # noqa: E731
    wait_until(lambda: "Tavik Launcher: RegisterEventHotKey status 10" in log(), "the refusal is logged")
    assert "Carbon RegisterEventHotKey failed, falling back to NSEvent monitors" in log()
    display.press("ctrl+F9")
    launcher.wait_open()
    display.press("ctrl+F9")
    launcher.wait_hidden()
    assert shows(launcher) == 1


@pytest.mark.parametrize("record, line", [
    ({"modifierFlagsRaw": 0x40000, "keyCode": 52}, "failed to install hotkey monitors"),
    ({"modifierFlagsRaw": 0}, "failed to install hotkey monitors"),
    ({"modifierFlagsRaw": 0, "keyCode": 49}, "failed to install hotkey monitors"),
    ({"modifierFlagsRaw": 1 << 60}, "failed to install hotkey monitors"),
], ids=["no such key", "no modifier", "a bare key", "unknown bits"])
def test_a_shortcut_that_cannot_be_is_not_registered(launcher, apps, display, record, line):
    launcher.hot_key = None
    launcher.settings(hotKeyConfig=json.dumps({**record, "displayName": "odd"}).encode())
    launcher.start()
    wait_until(lambda: line in launcher.desktop.log("launcher"), "the refusal is logged")
    assert launcher.desktop.log("launcher").count(line) == 1
    with display.held(*CHORD):
        stays(lambda: not launcher.is_shown(), "the ring is hidden", seconds=0.3)
    launcher.command("--show")
    launcher.wait_open()


def test_a_hundred_fast_chords_show_the_ring_a_hundred_times(launcher, apps, display):
    launcher.pin(*apps)
    launcher.settings(doubleTapModifiersPinsLauncher=False)
    use_shortcut(launcher, CONTROL_ALT)
    launcher.start()
    for _ in range(100):
        tap(display, hold=0.01)
        time.sleep(0.01)
    wait_until(lambda: shows(launcher) >= 100, "a hundred shows are in the log")
    launcher.wait_hidden()
    stays(lambda: not launcher.is_shown(), "the ring is hidden")
    assert shows(launcher) == 100
    assert not launcher.exited()


def test_other_programs_get_their_keys_back_when_the_chord_ends(ring, display):
    """While it is held every key is the ring's; a pinned ring leaves the desktop's own shortcuts alone."""
    def keyboard_is_free():
        with contextlib.suppress(AssertionError), keyboard_grabbed(display):
            return True
        return False

    with display.held(*CHORD):
        ring.wait_open()
        wait_until(lambda: not keyboard_is_free(), "the ring holds the keyboard")
    ring.wait_hidden()
    wait_until(keyboard_is_free, "the keyboard is free")
    time.sleep(0.15)
    tap(display)
    time.sleep(0.15)
    tap(display)
    ring.wait_open()
    stays(ring.is_shown, "the ring is pinned")
    wait_until(keyboard_is_free, "the keyboard is free again")


def test_a_shortcut_changed_while_it_is_held_lets_go_and_the_new_one_serves(launcher, apps, desktop, display):
    launcher.pin(*apps)
    use_shortcut(launcher, CONTROL_SHIFT)
    launcher.start(environment={"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
    wait_until(lambda: REGISTERED in desktop.log("launcher"), "the chord is watched for")
    launcher.command("--settings=shortcut")
    wait_until(lambda: find(desktop, "Use Default Shortcut"), "the settings are open")
    x, y, width, height = find(desktop, "Use Default Shortcut")["place"]

    display.move_pointer(x, y + 350)
    with display.held("ctrl", "shift"):
        launcher.wait_open()
        display.move_pointer(x + width // 2, y + height // 2)
        display.click()
        wait_until(lambda: desktop.log("launcher").count(REGISTERED) == 2, "the new chord is watched for")
        launcher.wait_hidden()
        stays(lambda: not launcher.is_shown(), "the ring is hidden while the old chord is still down")
    before = shows(launcher)
    tap(display, "ctrl", "shift")
    stays(lambda: shows(launcher) == before, "the old chord does nothing")
    with display.held(*CHORD):
        launcher.wait_open()
    launcher.wait_hidden()
