# SPDX-License-Identifier: MIT
"""The ring under a hand: where the hot key opens it, and what the keyboard and the pointer do in it."""
import pytest

from harness.display import Rect
from harness.waiting import wait_until

NAMES = ("Alder", "Birch", "Dog Rose", "Dogwood")
SIDE = 352  # 1.1 times the default diameter.


@pytest.mark.parametrize("pointer, corner", [
    ((0, 0), (0, 0)),
    ((1279, 799), (1280 - SIDE, 800 - SIDE)),
    ((640, 400), (640 - SIDE // 2, 400 - SIDE // 2)),
], ids=["top-left", "bottom-right", "middle"])
def test_the_ring_opens_at_the_pointer_and_stays_on_the_screen(ring, display, look, pointer, corner):
    window = ring.summon(*pointer)
    look("open")
    assert display.geometry(window) == Rect(*corner, SIDE, SIDE)


def test_the_ring_opens_with_a_dot_that_grows(ring, display, look):
    """Time is under test: between the key press and the end of the animation there are steps."""
    window = ring.summon(640, 400)
    place = display.geometry(window)
    complete = display.picture(place)
    ring.dismiss()
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
    # Just outside the ring at rest, left of it, where only its shadow lies then.
    beyond = 18, 233
    shade = sum(complete.pixel(*beyond))
    assert min(sum(taken.pixel(*beyond)) for taken in looks) < shade - 60, "it overshoots before it settles"


def test_typing_filters_backspace_brings_all_back_and_arrows_go_around_to_what_return_launches(ring, apps, display, look):
    rose, dogwood = apps[2:]
    ring.summon(640, 400)
    ring.wait_shows(*apps)
    look("fresh")
    display.type("d")
    ring.wait_shows(rose, dogwood)
    look("one letter")
    display.type("ogw")
    ring.wait_shows(dogwood)
    display.press("BackSpace")
    ring.wait_shows(rose, dogwood)
    for _ in range(3):
        display.press("BackSpace")
    ring.wait_shows(*apps)
    for key in ("Right", "Right", "Right", "Down", "Left", "Up"):  # Without any of them it is another slot.
        display.press(key)
    ring.wait_still()
    look("selected")
    display.press("Return")
    rose.wait_started()
    ring.wait_hidden()
    display.wait_for(rose.name)
    assert [app for app in apps if app.has_run()] == [rose]


def test_a_resting_pointer_selects_nothing_and_a_moving_one_selects_its_wedge(ring, apps, display, look):
    ring.summon(640, 400)
    fresh = display.picture(display.geometry(ring.window()))
    x, y = ring.slot_place(2, 4)
    display.move_pointer(642, 402)
    display.move_pointer(x, y - 20)
    ring.wait_still()
    display.move_pointer(x, y)
    wait_until(
        lambda: display.picture(display.geometry(ring.window())).share_unlike(fresh) > 0.02, "the wedge moves")
    ring.wait_still()
    look("third wedge")
    display.press("Return")
    apps[2].wait_started()
