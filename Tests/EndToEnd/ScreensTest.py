# SPDX-License-Identifier: MIT
"""Two monitors, and large scale factors."""
import pytest

from harness.desktop import Monitor
from harness.display import Rect

SIDE = 352
TWO_MONITORS = (Monitor("left", 0, 0, 800, 900), Monitor("right", 800, 0, 800, 900))


@pytest.fixture
def apps(applications):
    return [applications.add(name) for name in ("Alder", "Birch", "Cedar")]


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
@pytest.mark.parametrize("scale, pointer, corner", [
    ("2", (800, 500), (800 - SIDE, 500 - SIDE)), ("2", (1599, 999), (1600 - 2 * SIDE, 1000 - 2 * SIDE)),
], ids=["middle", "corner"])
def test_at_scale_factor_two_the_ring_has_twice_the_pixels(
        launcher, apps, display, look, scale, pointer, corner):
    launcher.pin(*apps)
    launcher.start(environment={"QT_SCALE_FACTOR": scale})
    window = launcher.summon(*pointer)
    launcher.wait_shows(*apps, scale=2)
    look("open")
    assert display.geometry(window) == Rect(*corner, 2 * SIDE, 2 * SIDE)
    display.click(*launcher.slot_place(1, 3, scale=2))
    apps[1].wait_started()
