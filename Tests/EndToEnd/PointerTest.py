# SPDX-License-Identifier: MIT
"""The pointer on the ring."""
import pytest

from harness.waiting import wait_until


@pytest.fixture
def apps(applications):
    return [applications.add(name) for name in ("Alder", "Birch", "Cedar", "Dogwood")]


@pytest.fixture
def ring(launcher, apps):
    launcher.pin(*apps)
    return launcher.start()


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
