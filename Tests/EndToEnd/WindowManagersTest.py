# SPDX-License-Identifier: MIT
"""The ring among other windows, under each window manager and under none."""
import sys

import pytest

from harness.applications import PROGRAM
from harness.waiting import stays, wait_until

MANAGERS = [{"window_manager": name} for name in ("openbox", "xfwm4", "metacity")]
every_manager = pytest.mark.parametrize("desktop_options", MANAGERS, ids=lambda o: o["window_manager"])


@pytest.fixture
def ring(launcher, applications):
    launcher.pin(*(applications.add(name) for name in ("Alder", "Birch")))
    return launcher.start()


def open_window(desktop, title, *arguments):
    desktop.spawn([sys.executable, str(PROGRAM), "--title", title, *arguments], log=title)
    window = desktop.display.wait_for(title)
    desktop.display.activate(window)
    wait_until(lambda: desktop.display.has_focus(window), f"{title} has the focus")
    return window


@every_manager
def test_the_ring_takes_the_focus_at_once_and_gives_it_back(ring, desktop, display, look, desktop_options):
    editor = open_window(desktop, "Editor", "--geometry", "400", "300", "60", "60")
    for _ in range(2):
        display.type("typing into the editor")  # Newer user time than the ring's last showing.
        window = ring.summon(700, 450)
        look("open")
        assert display.is_above(window, editor)
        display.type("b")
        display.press("Escape")
        ring.wait_hidden()
        wait_until(lambda: display.has_focus(editor), "the editor has the focus again")


@every_manager
def test_the_ring_appears_above_a_full_screen_window(ring, desktop, display, look, desktop_options):
    film = open_window(desktop, "Film", "--full-screen", "--colour", "28c83c")
    wait_until(lambda: display.geometry(film)[2:] == display.size, "the film fills the screen")
    window = ring.summon(640, 400)
    look("open")
    assert display.is_above(window, film)
    x, y = ring.slot_place(1, 2)
    assert display.picture().pixel(x, y) != (0x28, 0xC8, 0x3C), "the ring is seen, not the film"
    display.press("Escape")
    ring.wait_hidden()
    wait_until(lambda: display.has_focus(film), "the film has the focus again")


@every_manager
def test_another_programs_held_grab_does_not_hide_the_ring(ring, desktop, display, desktop_options):
    display.grab("F8")  # A volume key's program.
    ring.summon(640, 400)
    with display.held("F8"):
        stays(ring.is_shown, "the ring is shown", seconds=0.8)
    stays(ring.is_shown, "the ring is shown")
