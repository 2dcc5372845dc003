# SPDX-License-Identifier: MIT
"""Two monitors, and large scale factors."""
import pytest

from harness.desktop import Monitor
from harness.display import Rect
from harness.window_managers import under

SIDE = 352
TWO_MONITORS = (Monitor("left", 0, 0, 800, 900), Monitor("right", 800, 0, 800, 900))


@pytest.mark.desktop(width=1600, height=900, monitors=TWO_MONITORS)
@pytest.mark.parametrize("pointer, left", [
    ((400, 450), 400 - SIDE // 2), ((1200, 450), 1200 - SIDE // 2), ((799, 450), 800 - SIDE), ((800, 450), 800),
], ids=["left", "right", "left-of-the-seam", "right-of-the-seam"])
def test_the_ring_opens_whole_on_the_monitor_with_the_pointer(launcher, apps, display, look, pointer, left):
    launcher.pin(*apps)
    window = launcher.start().summon(*pointer)
    launcher.wait_shows(*apps)
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
