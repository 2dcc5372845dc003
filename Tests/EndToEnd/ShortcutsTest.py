# SPDX-License-Identifier: MIT
"""The chord lives beside the shortcuts of the desktop and of other programs."""
import time

import pytest
from Xlib import X

from harness.applications import open_window
from harness.waiting import stays, wait_until

CHORD = ("ctrl", "alt")
DELAYS = (0.01, 0.03, 0.12, 0.3, 0.6)  # Seconds from the chord to the key.
MANAGERS = [{"window_manager": name} for name in ("openbox", "xfwm4")]
both_managers = pytest.mark.parametrize("desktop_options", MANAGERS, ids=lambda o: o["window_manager"])


@pytest.fixture
def ring(launcher, applications, display):
    launcher.pin(*(applications.add(name) for name in ("Alder", "Birch")))
    launcher.use_chord()
    launcher.start()
    display.move_pointer(640, 400)
    return launcher


def press_with_chord(display, ring, key, delay):
    """Returns whether the ring was still there a moment after the key, with the chord held."""
    with display.held(*CHORD):
        time.sleep(delay)
        display.press(key)
        time.sleep(0.1)
        was_shown = ring.is_shown()
    return was_shown


@both_managers
def test_the_desktops_own_shortcut_switches_the_workspace(ring, display, desktop_options):
    def workspace():
        return (display.root_property("_NET_CURRENT_DESKTOP") or [None])[0]

    assert display.root_property("_NET_NUMBER_OF_DESKTOPS")[0] >= 2
    for delay, key in zip(DELAYS, ("Right", "Left") * len(DELAYS)):
        before = workspace()
        assert not press_with_chord(display, ring, key, delay)
        wait_until(lambda: workspace() != before, f"the workspace is another, {delay} s after the chord")
        stays(lambda: not ring.is_shown(), "the ring is gone", seconds=0.2)


@both_managers
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


def test_sticky_keys_hold_the_chord_until_the_next_key(ring, desktop, display, applications):
    desktop.run(["xkbset", "accessx", "sticky"])
    display.press("ctrl")
    display.press("alt")
    ring.wait_open()
    display.press("b")
    stays(ring.is_shown, "what was typed into stays open")
    display.press("Escape")
    ring.dismiss()
