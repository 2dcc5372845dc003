# SPDX-License-Identifier: MIT
"""A locked screen shows no ring, whoever has locked it."""
import pytest

from harness.launcher import FLAGS
from harness.locker import Grab, LoginManager, ScreenSaver
from harness.waiting import stays, wait_until


@pytest.fixture
def system_bus(desktop):
    return desktop.start_bus("system-bus")


@pytest.fixture
def locker(desktop, launcher, system_bus):
    """Makes a locker and starts the launcher, with the chord as its shortcut."""
    def make(kind):
        made = kind(desktop, system_bus)
        launcher.use_chord(FLAGS["ctrl"] | FLAGS["alt"])
        launcher.start(environment={"DBUS_SYSTEM_BUS_ADDRESS": system_bus})
        return made
    return make


def chord_shows(launcher, display):
    with display.held("ctrl", "alt"):
        launcher.wait_open()
    launcher.wait_hidden()


@pytest.mark.parametrize("kind", [Grab, ScreenSaver, LoginManager])
def test_neither_the_chord_nor_a_request_shows_the_ring_while_the_screen_is_locked(launcher, locker, display, kind):
    made = locker(kind)
    chord_shows(launcher, display)
    if kind != Grab:
        launcher.command("--show")
        launcher.wait_open()
    made.lock()
    launcher.wait_hidden()
    with display.held("ctrl", "alt"):
        stays(lambda: not launcher.is_shown(), "the chord shows nothing", 0.5)
    launcher.command("--show")
    launcher.command("--toggle")
    stays(lambda: not launcher.is_shown(), "no request shows anything", 1.3)
    made.lock(False)
    stays(lambda: not launcher.is_shown(), "what was asked for is not made up for", 0.3)
    launcher.command("--toggle")
    launcher.wait_open()
    launcher.command("--hide")
    chord_shows(launcher, display)


def test_a_screen_saver_that_dies_leaves_nothing_locked(launcher, locker, desktop, display):
    made = locker(ScreenSaver)
    launcher.command("--show")
    launcher.wait_open()
    made.lock()
    launcher.wait_hidden()
    made.end()
    wait_until(lambda: not desktop.name_has_owner("org.gnome.ScreenSaver"), "it has gone")
    chord_shows(launcher, display)


def test_a_choice_waits_for_its_menu_to_give_the_input_back(launcher, locker):
    made = locker(Grab)
    made.lock()
    launcher.command("--show")
    made.lock(False)
    launcher.wait_open()
