# SPDX-License-Identifier: MIT
"""A new user's first minutes: the tour, and the way to it through the permission."""
import json

import pytest

from harness import accessibility
from harness.launcher import BUS_NAME
from harness.waiting import stays, wait_until

CONTROL_ALT = 0xC0000
TOUR = "Welcome to Tavik Launcher"
PERMISSION = "Allow Accessibility Access"
SETTINGS = "Tavik Launcher Settings"
READABLE = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
COMPLETED = "LauncherSettings.hasCompletedOnboarding"


@pytest.fixture
def new_user(launcher, applications, panel):
    launcher.pin(applications.add("Alder"), applications.add("Birch"))
    launcher.settings(hasCompletedOnboarding=False)
    return launcher


def use_chord(launcher):
    launcher.hot_key = None
    record = {"modifierFlagsRaw": CONTROL_ALT, "displayName": "⌃⌥ (hold)"}
    launcher.settings(hotKeyConfig=json.dumps(record).encode())


def wait_read_out(desktop, *sentences):
    """Waits until a screen reader can say all this of our windows."""
    def is_there():
        nodes = [node for tree in accessibility.trees(desktop) for node in accessibility.flatten(tree)]
        text = " ".join(node["text"] or node["name"] for node in nodes)
        return all(sentence in text for sentence in sentences)

    wait_until(is_there, f"the window says {sentences}")


def wait_front(display, title):
    window = display.wait_for(title)
    wait_until(lambda: display.has_focus(window), f"{title} has the keyboard")
    return window


def press_button(display, desktop, name):
    node = wait_until(lambda: accessibility.find(desktop, name), f"there is a button {name!r}")
    x, y, width, height = node["place"]
    display.click(x + width // 2, y + height // 2)


def test_the_tour_meets_a_new_user_once(new_user, display, desktop, look):
    new_user.start(by_hand=True, environment=READABLE)
    window = wait_front(display, TOUR)
    frame = display.geometry(window)
    assert frame.width == 560 and abs(frame.centre[0] - 640) <= 2 and abs(frame.centre[1] - 400) <= 20
    look("tour")
    wait_read_out(
        desktop, "A fast radial launcher centered wherever your pointer is.", "Press the shortcut",
        "Press ctrl+alt+space to toggle the ring at the pointer. Press it again or hit Esc to dismiss.")

    # It can be tried at once, and the tour is still there afterwards.
    new_user.summon(640, 400)
    look("tried")
    display.press(new_user.hot_key)
    new_user.wait_hidden()
    assert display.find(TOUR) == window and not new_user.defaults()[COMPLETED]

    display.close_window(window)
    display.wait_gone(TOUR)
    wait_until(lambda: new_user.defaults()[COMPLETED], "the tour counts as taken")
    new_user.command("--quit")
    assert new_user.wait_exit() == 0
    new_user.start(by_hand=True)
    stays(lambda: display.find(TOUR) is None, "the tour does not come again")


def test_the_tour_of_a_chord_tells_to_hold_it_and_leads_to_the_settings(new_user, display, desktop):
    use_chord(new_user)
    new_user.start(by_hand=True, environment=READABLE)
    window = wait_front(display, TOUR)
    wait_read_out(desktop, "Hold the shortcut", "Press and hold ⌃⌥ to open the ring at the pointer.")
    with display.held("ctrl", "alt"):
        new_user.wait_open()
    new_user.wait_hidden()
    press_button(display, desktop, "Open Settings")
    display.wait_for(SETTINGS)
    assert display.find(TOUR) == window
    display.activate(window)
    wait_until(lambda: display.has_focus(window), "the tour is in front again")
    press_button(display, desktop, "Start Using Tavik")
    display.wait_gone(TOUR)
    wait_until(lambda: new_user.defaults()[COMPLETED], "the tour counts as taken")


def test_a_tour_that_the_end_of_the_program_cut_short_comes_again(new_user, display):
    new_user.start(by_hand=True)
    wait_front(display, TOUR)
    new_user.process.terminate()
    assert new_user.wait_exit() == 0
    new_user.start(by_hand=True)
    wait_front(display, TOUR)


def test_the_menu_repeats_the_tour(new_user, panel, display):
    new_user.settings(hasCompletedOnboarding=True)
    new_user.start(by_hand=True)
    panel.wait_item().choose("Repeat Tour")
    wait_front(display, TOUR)
    wait_until(lambda: not new_user.defaults()[COMPLETED], "it is offered anew")
    display.press("Return")
    display.wait_gone(TOUR)
    wait_until(lambda: new_user.defaults()[COMPLETED], "the tour counts as taken")


def test_the_permission_comes_first_and_skipping_it_leaves_the_tour_for_later(new_user, display):
    use_chord(new_user)
    new_user.start(by_hand=True, environment={"TAVIK_WITHHOLD_PERMISSION": "1"})
    window = wait_front(display, PERMISSION)
    stays(lambda: display.find(TOUR) is None, "the tour waits")
    display.close_window(window)
    display.wait_gone(PERMISSION)
    stays(lambda: display.find(TOUR) is None, "the tour waits for another start")
    assert not new_user.defaults()[COMPLETED]


def test_once_granted_the_shortcut_works_and_the_tour_follows(new_user, display, desktop, look):
    granting = desktop.home / "granted"
    use_chord(new_user)
    new_user.start(by_hand=True, environment={**READABLE, "TAVIK_WITHHOLD_PERMISSION": str(granting)})
    wait_front(display, PERMISSION)
    display.press("Return")
    granting.touch()
    wait_front(display, TOUR)
    look("granted")
    wait_read_out(desktop, "The global hotkey is now working.")
    with display.held("ctrl", "alt"):
        new_user.wait_open()
    new_user.wait_hidden()


def test_a_start_through_the_bus_is_a_start_and_no_summons(new_user, desktop, display):
    """As from the menu of a desktop that activates over the bus."""
    new_user.start("--dbus-service")
    activate = ["gdbus", "call", "--session", "--dest", BUS_NAME, "--object-path", "/org/tavik/Launcher",
                "--method", "org.freedesktop.Application.Activate", "{}"]
    assert desktop.run(activate).returncode == 0
    wait_front(display, TOUR)
    stays(lambda: not new_user.is_shown(), "the ring does not lie over the tour")
    assert desktop.run(activate).returncode == 0
    new_user.wait_open()
