# SPDX-License-Identifier: MIT
"""The ring under a hand: where the hot key opens it on two screens and on a dense one, and what the keyboard and
the pointer do in it."""
import pytest

from conftest import PICTURES
from harness.desktop import Monitor
from harness.display import Rect
from harness.services import Portal
from harness.waiting import wait_until
from harness.window_managers import under

NAMES = ("Alder", "Birch", "Dog Rose", "Dogwood")
SIDE = 352  # 1.1 times the default diameter.
TWO_MONITORS = (Monitor("left", 0, 0, 800, 900), Monitor("right", 800, 0, 800, 900))


@pytest.mark.desktop(width=1600, height=900, monitors=TWO_MONITORS)
@pytest.mark.parametrize("pointer, left", [
    ((400, 450), 400 - SIDE // 2), ((1200, 450), 1200 - SIDE // 2), ((799, 450), 800 - SIDE), ((800, 450), 800),
], ids=["left", "right", "left-of-the-seam", "right-of-the-seam"])
def test_the_ring_opens_whole_on_the_monitor_with_the_pointer(ring, apps, display, look, pointer, left):
    window = ring.summon(*pointer)
    ring.wait_shows(*apps)
    look("open")
    assert display.geometry(window) == Rect(left, 450 - SIDE // 2, SIDE, SIDE)


@pytest.mark.desktop(width=1600, height=1000)
@under("openbox", "kwin")
@pytest.mark.parametrize("scale, pointer, corner", [
    (2, (800, 500), (800 - SIDE, 500 - SIDE)), (2, (801, 499), (801 - SIDE, 499 - SIDE)),
    (2, (1599, 999), (1600 - 2 * SIDE, 1000 - 2 * SIDE)), (1.5, (640, 401), (640 - SIDE * 3 // 4, 401 - SIDE * 3 // 4)),
], ids=["even", "odd", "corner", "one-and-a-half"])
def test_a_dense_screen_has_the_ring_around_the_pointers_own_pixel(
        launcher, apps, display, look, desktop_options, scale, pointer, corner):
    launcher.pin(*apps)
    launcher.start(environment={"QT_SCALE_FACTOR": str(scale)})
    window = launcher.summon(*pointer)
    launcher.wait_shows(*apps, scale=scale)
    look("open")
    assert display.geometry(window) == Rect(*corner, int(scale * SIDE), int(scale * SIDE))
    display.click(*launcher.slot_place(1, 4, scale=scale))
    apps[1].wait_started()


@pytest.mark.parametrize("motion", ["none", "calm"])
def test_the_ring_opens_with_a_dot_that_grows_or_where_motion_is_reduced_fades_in_its_place(
        launcher, apps, desktop, display, motion):
    """Time is under test: between the key press and the end of the animation there are steps."""
    Portal(desktop, motion)
    launcher.pin(*apps)
    place = display.geometry(launcher.start().summon(640, 400))
    launcher.wait_shows(*apps)  # Before anything is painted it is still, too.
    launcher.wait_still()
    complete = display.picture(place)
    for _ in range(4):  # A busy machine may leave out all that lies between.
        launcher.dismiss()
        empty = display.picture(place)
        looks = []
        display.press(launcher.hot_key)
        while len(looks) < 2000 and (not looks or looks[-1] != complete):
            looks.append(display.picture(place))
        steps = [taken for taken in looks if taken not in (empty, complete)]
        if len({taken.data for taken in steps}) >= 4:
            break
    else:
        pytest.fail("the opening takes no time")
    steps[len(steps) // 3].save(PICTURES / f"RingTest.opening-motion-{motion}.png")
    sizes = [taken.share_unlike(empty) / complete.share_unlike(empty) for taken in steps]
    # Just outside the ring at rest, left of it, where only its shadow lies then.
    shades = [sum(taken.pixel(18, 233)) for taken in (*looks, complete)]
    if motion == "calm":
        assert min(sizes) > 0.9 and min(shades) == shades[-1], "it is where it will be"
    else:
        assert min(sizes) < 0.5, "it starts small"
        assert min(shades) < shades[-1] - 60, "it overshoots before it settles"


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
    display.press("BackSpace", "BackSpace", "BackSpace")
    ring.wait_shows(*apps)
    display.press("Right", "Right", "Right", "Down", "Left", "Up")  # Without any of them it is another slot.
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
