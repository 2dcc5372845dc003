# SPDX-License-Identifier: MIT
"""Everything that a hand on the keyboard can do in the ring."""
import pytest

NAMES = ("Alder", "Birch", "Dog Rose", "Dogwood")


@pytest.fixture
def apps(applications):
    return [applications.add(name) for name in NAMES]


@pytest.fixture
def ring(launcher, apps):
    launcher.pin(*apps)
    launcher.start().summon(640, 400)
    launcher.wait_shows(*apps)
    return launcher


def test_typing_filters_the_ring_and_backspace_brings_it_back(ring, apps, display, look):
    rose, dogwood = apps[2:]
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
    look("empty again")


@pytest.mark.parametrize("keys, slot", [("Right Right Left", 1), ("Down Down", 2), ("Left", 3), ("Up Up", 2)])
def test_arrows_go_around_the_ring_and_return_launches(ring, apps, display, look, keys, slot):
    for key in keys.split():
        display.press(key)
    ring.wait_still()
    look("selected")
    display.press("Return")
    apps[slot].wait_started()
    ring.wait_hidden()
    display.wait_for(NAMES[slot])
    assert [app.name for app in apps if app.has_run()] == [NAMES[slot]]
