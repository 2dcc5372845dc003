# SPDX-License-Identifier: MIT
"""The pointer on the ring, beside it, and what happens to the focus."""
import pytest

from harness.waiting import stays, wait_until


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


def test_a_click_outside_hides_the_ring_and_goes_where_it_was_aimed(ring, apps, desktop, display, look):
    victim = desktop.applications.add("Victim")
    desktop.open(victim)
    window = display.wait_for("Victim")
    wait_until(lambda: display.has_focus(window), "the other window has the focus")
    ring.summon(800, 500)
    assert not display.has_focus(window)
    look("open")
    place = display.geometry(window)
    display.click(place.x + 30, place.y + 30)
    ring.wait_hidden()
    wait_until(lambda: display.has_focus(window), "the clicked window has the focus")
    assert not any(app.has_run() for app in apps)


def test_a_click_on_the_empty_desktop_hides_the_ring(ring, display):
    ring.summon(640, 400)
    display.click(20, 20)
    ring.wait_hidden()


def test_the_hot_key_hides_the_ring_and_the_focus_returns_to_the_window_that_had_it(ring, desktop, display):
    for name in ("First", "Second"):
        desktop.open(desktop.applications.add(name))
        window = display.wait_for(name)
        wait_until(lambda: display.has_focus(window), f"{name} has the focus")
    ring.summon(800, 500)
    display.press(ring.hot_key)
    ring.wait_hidden()
    wait_until(lambda: display.has_focus(window), "the former window has the focus again")
    stays(lambda: display.has_focus(window), "it keeps the focus")
