# SPDX-License-Identifier: MIT
"""The ring among other windows, under each window manager and under none."""
import sys
import time

import pytest

from harness.applications import PROGRAM, open_window
from harness.processes import stopped
from harness.waiting import stays, wait_until
from harness.window_managers import (
    WINDOW_MANAGERS, leave_desktop, switching_managers, under, wants_all, window_managers)

every_manager = under()


def letters(desktop, title):
    return [line for line in desktop.log(title).splitlines() if line in ("key d", "key o", "key g", "key w")]


def close(ring, display):
    display.press("Escape")
    if ring.is_shown():
        display.press("Escape")  # The first one emptied the filter.
    ring.wait_hidden()


@every_manager
def test_the_ring_takes_the_focus_at_once_and_gives_it_back(ring, desktop, display, look, desktop_options):
    for _ in range(2):  # Nothing is there yet that could have the focus.
        window = ring.summon(640, 400)
        display.type("b")
        close(ring, display)
    editor = open_window(desktop, "Editor", "--geometry", "400", "300", "60", "60")
    # Where the focus follows the pointer, it must not leave the editor before the ring is there.
    middle = display.geometry(editor).centre
    display.move_pointer(*middle)
    time.sleep(0.2)
    for _ in range(2):
        display.type("typing into the editor")  # Newer user time than the ring's last showing.
        window = ring.summon()
        look("open")
        assert display.is_above(window, editor)
        assert display.geometry(window).centre == middle, "no frame moves it"
        display.type("b")
        ring.dismiss()
        wait_until(lambda: display.has_focus(editor), "the editor has the focus again")


@every_manager
def test_the_ring_appears_above_a_full_screen_window(ring, desktop, display, look, desktop_options):
    film = open_window(desktop, "Film", "--full-screen", "--colour", "28c83c")

    def shows_film(x, y):
        return display.picture().pixel(x, y) == (0x28, 0xC8, 0x3C)

    corner = (10, display.size[1] - 10)  # Where no bar lies.
    wait_until(lambda: display.geometry(film)[2:] == display.size, "the film fills the screen")
    wait_until(lambda: shows_film(*corner), "the film is seen")
    window = ring.summon(640, 400)
    slot = ring.slot_place(1, 4)
    # A slow compositor stands still before it draws the ring for the first time, too.
    wait_until(lambda: not shows_film(*slot), "the ring is seen")
    look("open")
    assert display.is_above(window, film) and shows_film(*corner)
    ring.dismiss()
    wait_until(lambda: display.has_focus(film), "the film has the focus again")


@every_manager
def test_another_programs_held_grab_does_not_hide_the_ring(ring, desktop, display, desktop_options):
    display.grab("F8")  # A volume key's program.
    ring.summon(640, 400)
    with display.held("F8"):
        stays(ring.is_shown, "the ring is shown", seconds=0.8)
    stays(ring.is_shown, "the ring is shown")


@every_manager
def test_what_is_typed_at_once_is_typed_into_the_ring(ring, apps, desktop, display, desktop_options):
    editor = open_window(desktop, "Editor", "--geometry", "400", "300", "60", "60")
    display.move_pointer(*display.geometry(editor).centre)
    time.sleep(0.2)
    for count in range(100 if wants_all() else 30):
        if count % 2:  # Rolled over: the hot key is still down when the next one comes.
            with display.held("ctrl", "alt", "space"):
                display.type("dog")
            display.press("w")
        else:
            display.press(ring.hot_key)
            display.type("dogw")
        ring.wait_shows(apps[3])
        close(ring, display)
        wait_until(lambda: display.has_focus(editor), "the editor has the keyboard again")
    assert not letters(desktop, "Editor")


@pytest.mark.parametrize(
    "desktop_options",
    [{"window_manager": name} for name in window_managers()] + [{"window_manager": "openbox", "has_compositor": False}],
    ids=lambda options: "-".join(map(str, options.values())))
def test_a_click_elsewhere_ends_the_ring_and_arrives(ring, desktop, display, desktop_options):
    def click(place):
        window = ring.summon(900, 500)
        display.click(*place(display.geometry(window)))
        ring.wait_hidden()

    def click_in(title, window):
        clicks = desktop.log(title).count("click")
        place = display.geometry(window)  # A corner, which lies beside the ring where windows are tiled, too.
        click(lambda _: (place.x + 12, place.y + 12))
        wait_until(lambda: desktop.log(title).count("click") > clicks, f"the click has reached {title}")

    geometry = ["--geometry", "300", "30", "200", "740"]
    desktop.spawn([sys.executable, str(PROGRAM), "--title", "Panel", "--panel", *geometry], log="Panel")
    panel = display.wait_for("Panel")
    editor = open_window(desktop, "Editor", "--geometry", "400", "300", "60", "60")
    click(lambda frame: (frame.x + 6, frame.y + 6))  # A corner of the ring's own square.
    click(lambda _: (1270, 790))  # The bare desktop, where the manager leaves some of it.
    if display.is_above(panel, editor):  # With bspwm it is below.
        click_in("Panel", panel)
    click_in("Editor", editor)
    wait_until(lambda: display.has_focus(editor), "the editor has the focus")


@every_manager
def test_a_ring_shown_again_at_once_goes_with_a_click_elsewhere(ring, desktop, display, desktop_options):
    editor = open_window(desktop, "Editor", "--geometry", "400", "300", "60", "60")
    place = display.geometry(editor)
    for count in range(6):
        display.move_pointer(900, 500)
        for _ in range(3):  # Shown, hidden, and shown again within a tenth of a second.
            display.press(ring.hot_key)
            time.sleep(0.03)
        # The later presses wait while the window manager has not given the first ring the keyboard.
        wait_until(lambda: ring.times_shown() == 2 * (count + 1) and ring.is_shown(), "the ring is shown again")
        display.click(place.x + 20, place.y + 40)
        ring.wait_hidden()
        wait_until(lambda: display.has_focus(editor), "the editor has the focus")


@under("kwin")  # Which manages the ring.
def test_a_busy_window_manager_delays_the_ring_and_nothing_else(ring, desktop, display, desktop_options):
    editor = open_window(desktop, "Editor", "--geometry", "400", "300", "60", "60")
    display.move_pointer(640, 400)
    with stopped(desktop.window_manager_process):
        display.press(ring.hot_key)
        time.sleep(0.5)
    ring.wait_open()
    ring.dismiss()
    wait_until(lambda: display.has_focus(editor), "the editor has the focus again")
    with stopped(desktop.window_manager_process):
        for action in ("--show", "--hide"):
            assert ring.command(action).returncode == 0
        desktop.spawn([ring.program, "--show"], ring.environment)
        time.sleep(0.1)
    window = ring.wait_open()
    assert "_NET_WM_STATE_ABOVE" in display.state(window), "its marks are not lost"
    ring.dismiss()


@pytest.mark.parametrize("desktop_options", [
    {"window_manager": name, "has_compositor": has_compositor}
    for name in window_managers("i3", "openbox-follow", "dwm", "kwin-follow") for has_compositor in (False, True)
    if not (has_compositor and WINDOW_MANAGERS[name].composites)],
    ids=lambda options: f"{options['window_manager']}-{'composited' if options['has_compositor'] else 'bare'}")
def test_a_pointer_that_crosses_other_windows_takes_nothing_from_the_ring(ring, desktop, display, desktop_options):
    open_window(desktop, "Editor", "--geometry", "600", "700", "20", "20")
    open_window(desktop, "Other", "--geometry", "600", "700", "660", "20")
    ring.summon(640, 400)
    for x in (640, 560, 640, 40, 1240, 640, 200):
        display.move_pointer(x, 400)
        time.sleep(0.1)
        wait_until(lambda: ring.is_shown() and display.has_focus(ring.window()), "the ring has the keyboard")
    ring.dismiss()


@under(*switching_managers())
def test_nobody_is_thrown_back_to_a_desktop_that_was_left(ring, desktop, display, desktop_options):
    film = open_window(desktop, "Film", "--full-screen", "--colour", "28c83c")
    ring.summon(640, 400)
    ring.dismiss()
    stays(lambda: display.geometry(film)[2:] == display.size, "the film fills the screen")

    ring.summon(640, 400)
    leave_desktop(desktop, display)
    for _ in range(2):  # First the ring that was open, then one of the empty desktop.
        close(ring, display)
        stays(lambda: display.root_property("_NET_CURRENT_DESKTOP") == [1] and not display.has_focus(film),
              "the user is not thrown back")
        ring.summon(640, 400)
