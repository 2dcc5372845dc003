# SPDX-License-Identifier: MIT
"""A new user's first minutes: the tour, and the way to it through the permission."""
import time

import pytest

from harness import accessibility
from harness.launcher import Launcher
from harness.waiting import stays, wait_front, wait_until

TOUR = "Welcome to Tavik Launcher"
PERMISSION = "Allow Accessibility Access"
SETTINGS = "Tavik Launcher Settings"
READABLE = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
COMPLETED = "LauncherSettings.hasCompletedOnboarding"


def as_new_user(launcher, applications):
    launcher.pin(applications.add("Alder"), applications.add("Birch"))
    launcher.settings(hasCompletedOnboarding=False)
    return launcher


@pytest.fixture
def new_user(launcher, applications, panel):
    return as_new_user(launcher, applications)


@pytest.fixture
def refused_user(desktop, staged_program, applications, panel):
    """A new user with a chord, in a session that refuses until there is the file `granting`."""
    made = as_new_user(Launcher(desktop, staged_program), applications)
    made.granting = desktop.home / "granted"
    made.environment.update(READABLE, TAVIK_TEST_PERMISSION=str(made.granting))
    made.use_chord()
    yield made
    made.stop()


def framed_centre(display, window):
    left, right, top, bottom = display.property(window, "_NET_FRAME_EXTENTS") or (0, 0, 0, 0)
    x, y = display.geometry(window).centre
    return x + (right - left) / 2, y + (bottom - top) / 2


def test_the_tour_meets_a_new_user_once(new_user, display, desktop, look):
    new_user.start(by_hand=True, environment=READABLE)
    window = wait_front(display, TOUR)
    assert display.geometry(window).width == 560
    wait_until(lambda: framed_centre(display, window) == pytest.approx((640, 400), abs=1),
               "the tour is centred with the window manager's frame around it")
    look("tour")
    accessibility.wait_text(
        desktop, "A fast radial launcher centered wherever your pointer is.", "Press the shortcut",
        r"Press ctrl\+alt\+space to toggle the ring at the pointer. Press it again or hit Esc to dismiss.")

    assert accessibility.find(desktop, TOUR, "dialog"), "what it says is read out"

    # It can be tried at once, and the tour is still there afterwards.
    new_user.summon(640, 400)
    look("tried")
    display.press(new_user.hot_key)
    new_user.wait_hidden()
    assert display.find(TOUR) == window and not new_user.defaults()[COMPLETED]

    display.close_window(window)
    display.wait_gone(TOUR)
    wait_until(lambda: new_user.defaults()[COMPLETED], "the tour counts as taken")
    new_user.quit()
    new_user.start(by_hand=True)
    stays(lambda: display.find(TOUR) is None, "the tour does not come again")


REPEATS = 0.9  # Seconds after which a key that is held down repeats.


@pytest.mark.desktop(window_manager="metacity")
@pytest.mark.parametrize("keys, argument, title", [
    (("Return",), None, TOUR), (("Return",), "--show", "Tavik Launcher"), (("ctrl", "q"), "--settings", SETTINGS)])
def test_a_key_held_down_since_before_is_not_meant_for_us(new_user, desktop, display, keys, argument, title):
    """As the Return of the command that starts the program, or what closed another one."""
    new_user.settings(hasCompletedOnboarding=argument is not None)
    desktop.spawn(["xterm", "-T", "Terminal"])
    wait_front(display, "Terminal")
    if argument:
        new_user.start()
    with display.held(*keys):
        time.sleep(REPEATS)
        new_user.command(argument) if argument else new_user.start(by_hand=True)
        window = wait_front(display, title)
        stays(lambda: display.find(title) == window, "it stays", 0.5)
    time.sleep(0.05)  # Nobody lets a key go and presses it again within one thousandth.
    display.press("+".join(keys))
    display.wait_gone(title)


def test_the_permission_comes_first_and_without_it_the_program_still_serves(refused_user, display, desktop, look):
    refused_user.start(by_hand=True)
    window = wait_front(display, PERMISSION)
    assert display.geometry(window)[2:] == (440, 520)
    assert abs(display.geometry(window).centre[0] - 640) <= 2
    look("prompt")
    display.press("Return")
    stays(lambda: display.find(PERMISSION) == window and display.find(TOUR) is None, "the tour waits")
    look("waiting")
    accessibility.wait_text(desktop, "This desktop is a test.", "Make the file.")
    accessibility.click(desktop, "Copy the Command")
    wait_until(lambda: accessibility.find(desktop, "Command Copied"), "the button says what it has done")
    assert "local=1 tap=0 global=1 AXTrusted=0" in desktop.log("launcher")
    desktop.spawn(["xterm", "-T", "Terminal"])
    display.activate(display.wait_for("Terminal"))
    wait_front(display, "Terminal")
    with display.held("ctrl", "alt"):
        stays(lambda: not refused_user.is_shown(), "the chord is not heard in other programs", 0.5)
    refused_user.command("--toggle")
    refused_user.wait_open()
    refused_user.command("--hide")
    accessibility.click(desktop, "Skip for Now")  # Which only Return can have brought.
    display.wait_gone(PERMISSION)
    stays(lambda: display.find(TOUR) is None, "the tour waits for another start")
    assert not refused_user.defaults()[COMPLETED]


def test_once_granted_the_shortcut_works_and_the_tour_follows(refused_user, display, desktop, look):
    refused_user.start(by_hand=True)
    wait_front(display, PERMISSION)
    display.press("Return")
    refused_user.granting.touch()
    tour = wait_front(display, TOUR)
    look("granted")
    accessibility.wait_text(desktop, "The global hotkey is now working.")
    with display.held("ctrl", "alt"):
        refused_user.wait_open()
    refused_user.wait_hidden()
    display.close_window(tour)
    display.wait_gone(TOUR)
    stays(lambda: display.find(TOUR) is None and display.find(PERMISSION), "it follows once", 1.5)


def test_a_start_through_the_bus_is_a_start_and_no_summons(new_user, display):
    """As from the menu of a desktop that activates over the bus."""
    new_user.start("--dbus-service")
    new_user.call("Activate", "(a{sv})", ({},))
    wait_front(display, TOUR)
    stays(lambda: not new_user.is_shown(), "the ring does not lie over the tour")
    new_user.call("Activate", "(a{sv})", ({},))
    new_user.wait_open()
