# SPDX-License-Identifier: MIT
"""The hot key: where the ring opens, and what closes it."""
import pytest

from harness.display import Rect

SIDE = 352  # 1.1 times the default diameter.


@pytest.fixture
def ring(launcher, applications):
    launcher.pin(*(applications.add(name) for name in ("Alder", "Birch", "Cedar", "Dogwood")))
    return launcher.start()


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
    # Just outside the ring at rest, left of it, where only its shadow lies then.
    beyond = 18, 233
    shade = sum(complete.pixel(*beyond))
    assert min(sum(taken.pixel(*beyond)) for taken in looks) < shade - 60, "it overshoots before it settles"
