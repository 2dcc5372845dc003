# SPDX-License-Identifier: MIT
"""The hot key: where the ring opens, and what closes it."""
import pytest

from harness.display import Rect
from harness.waiting import stays, wait_until

SIDE = 352  # 1.1 times the default diameter.


@pytest.fixture
def ring(launcher, applications):
    launcher.pin(*(applications.add(name) for name in ("Alder", "Birch", "Cedar", "Dogwood")))
    return launcher.start()


@pytest.mark.parametrize("pointer, corner", [
    ((0, 0), (0, 0)),
    ((1279, 0), (1280 - SIDE, 0)),
    ((0, 799), (0, 800 - SIDE)),
    ((1279, 799), (1280 - SIDE, 800 - SIDE)),
    ((640, 400), (640 - SIDE // 2, 400 - SIDE // 2)),
], ids=["top-left", "top-right", "bottom-left", "bottom-right", "middle"])
def test_the_ring_opens_at_the_pointer_and_stays_on_the_screen(ring, display, look, pointer, corner):
    window = ring.summon(*pointer)
    look("open")
    assert display.geometry(window) == Rect(*corner, SIDE, SIDE)


def test_the_ring_stays_clear_of_a_dock_at_the_screens_edge(ring, desktop, display, look):
    strut = 60
    dock = desktop.display.root.create_window(
        0, 0, 1280, strut, 0, display.root.get_geometry().depth, background_pixel=0x404040)
    dock.change_property(
        display.connection.intern_atom("_NET_WM_WINDOW_TYPE"), 4, 32,
        [display.connection.intern_atom("_NET_WM_WINDOW_TYPE_DOCK")])
    dock.change_property(
        display.connection.intern_atom("_NET_WM_STRUT_PARTIAL"), 6, 32,
        [0, 0, strut, 0, 0, 0, 0, 0, 0, 1279, 0, 0])
    dock.map()
    wait_until(lambda: (display.root_property("_NET_WORKAREA") or [0, 0])[1] == strut, "the dock takes its place")

    def is_below_the_dock():
        # The launcher learns of the dock on its own time, as the window manager does.
        place = display.geometry(ring.summon(640, 10))
        look("open")
        ring.command("--hide")
        ring.wait_hidden()
        return place.y == strut

    wait_until(is_below_the_dock, "the ring opens below the dock")


def test_the_hot_key_hides_the_ring_again_and_shows_it_at_the_new_place(ring, display):
    first = display.geometry(ring.summon(400, 400))
    display.press(ring.hot_key)
    ring.wait_hidden()
    second = display.geometry(ring.summon(800, 400))
    assert second.centre[0] - first.centre[0] == 400


def test_a_held_hot_key_shows_the_ring_once(ring, display):
    display.move_pointer(640, 400)
    with display.held(*ring.hot_key.split("+")):
        ring.wait_open()
        stays(ring.is_shown, "the ring is shown while the key repeats", seconds=1.2)


@pytest.mark.parametrize("lock", ["Caps_Lock", "Num_Lock"])
def test_the_hot_key_works_while_a_lock_key_is_on(ring, display, lock):
    display.press(lock)
    try:
        ring.summon(640, 400)
        display.press("Escape")
        ring.wait_hidden()
    finally:
        display.press(lock)


def test_more_modifiers_than_the_shortcut_has_do_nothing(ring, display):
    display.press("shift+" + ring.hot_key)
    stays(lambda: not ring.is_shown(), "the ring is hidden")


def test_escape_hides_the_ring(ring, display):
    ring.summon(640, 400)
    display.press("Escape")
    ring.wait_hidden()
    assert not ring.exited()


def test_the_ring_opens_with_a_dot_that_grows(ring, display, look):
    """Time is under test: between the key press and the end of the animation there are steps."""
    window = ring.summon(640, 400)
    place = display.geometry(window)
    complete = display.picture(place)
    display.press("Escape")
    ring.wait_hidden()
    empty = display.picture(place)

    looks = []
    display.press(ring.hot_key)
    while len(looks) < 2000 and (not looks or looks[-1] != complete):
        looks.append(display.picture(place))
    look("open")
    sizes = [taken.share_unlike(empty) for taken in looks if taken != empty and taken != complete]
    full = complete.share_unlike(empty)
    assert len({round(size, 3) for size in sizes}) >= 4, f"shares of the square seen: {sizes}"
    assert min(sizes) < 0.5 * full, "it starts small"
    assert max(sizes) > full, "it overshoots before it settles"


def test_the_summons_are_counted_in_the_settings(ring, display):
    for _ in range(2):
        ring.summon(640, 400)
        display.press("Escape")
        ring.wait_hidden()
    wait_until(lambda: ring.defaults().get("LauncherSettings.ringLaunchCount") == 2, "two summons are on disk")
