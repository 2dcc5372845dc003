# SPDX-License-Identifier: MIT
"""The ring with a compositor, without one, and when one comes or goes."""
import math

import pytest

from harness import processes
from harness.display import Rect
from harness.picture import colour_distance
from harness.waiting import wait_until

BACKGROUND = (0x30, 0x60, 0xA0)


def assert_see_through(display, ring):
    """Looks at the window's four corners and at a place in the ring's hole that holds no text."""
    picture = display.picture(display.geometry(ring.window()))
    last = picture.width - 3
    colours = [picture.pixel(x, y) for x, y in ((2, 2), (last, 2), (2, last), (last, last), (176, 176 + 66))]
    assert all(colour_distance(colour, BACKGROUND) <= 12 for colour in colours), colours


def has_smooth_edge(display):
    """Whether pixels on the ring's outline are between its colour and the desktop's."""
    picture = display.picture(Rect(640 - 176, 400 - 176, 352, 352))
    outline = [picture.pixel(176 + 157.5 * math.cos(angle / 50), 176 + 157.5 * math.sin(angle / 50)) for angle in range(314)]
    return sum(30 < colour_distance(pixel, BACKGROUND) < 110 for pixel in outline) > 60


def assert_texts_have_no_black_corners(display, ring):
    """What is transparent but not cut away is purely black. A hard edge has some such pixels, a
    corner of a rectangle around a pill has dozens."""
    frame = display.geometry(ring.window())
    picture = display.picture(frame)
    hole = [
        (x, y) for x in range(frame.width) for y in range(frame.height)
        if (x - frame.width / 2) ** 2 + (y - frame.height / 2) ** 2 < 78 ** 2]
    black = [place for place in hole if max(picture.pixel(*place)) <= 3]
    assert len(black) <= 40, f"{len(black)} black pixels, the first at {black[:3]} of the window"


@pytest.mark.desktop(has_compositor=False)
def test_without_a_compositor_the_ring_is_shaped_and_nothing_is_black(ring, display, look):
    for _ in range(2):
        ring.summon(640, 400)
        assert_see_through(display, ring)
        wait_until(lambda: has_smooth_edge(display), "the ring's edge is neither ring nor desktop")
        display.type("al")
        ring.wait_still()
        look("filtered")
        assert_see_through(display, ring)
        assert_texts_have_no_black_corners(display, ring)
        ring.dismiss()


@pytest.mark.desktop(has_compositor=False)
def test_a_compositor_that_comes_and_goes_is_followed(ring, desktop, display, look):
    compositor = desktop.start_compositor()
    ring.summon(640, 400)
    look("with")
    band = display.picture().pixel(*ring.slot_place(0.5, 4))
    assert band[2] > band[0], f"the band lets the background through: {band}"
    assert_see_through(display, ring)
    ring.dismiss()

    processes.end(compositor)
    wait_until(lambda: not desktop.is_composited(), "the compositor is gone")
    ring.summon(640, 400)
    look("without")
    assert_see_through(display, ring)


@pytest.mark.desktop(has_compositor=False)
def test_a_compositor_puts_no_shadow_around_the_rings_square(ring, desktop, display):
    desktop.start_compositor("--shadow", "--shadow-exclude", "_GTK_FRAME_EXTENTS@:c")
    ring.summon(640, 400)
    frame = display.geometry(ring.window())
    beside = display.picture().pixel(frame.x + frame.width + 4, frame.centre[1])
    assert colour_distance(beside, BACKGROUND) <= 3, beside
