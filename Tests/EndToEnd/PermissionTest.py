# SPDX-License-Identifier: MIT
"""The window that asks for the permission to watch the keyboard, in a session that withholds it."""
import json

import pytest

from harness.waiting import stays, wait_until

CONTROL_ALT = 0xC0000
TITLE = "Allow Accessibility Access"
WITHHELD = {"TAVIK_WITHHOLD_PERMISSION": "1"}


def find(display):
    """The toolkit may put the program's name behind a window's title."""
    return next(
        (w for w in display.all_windows()
         if (display.title(w) or "").startswith(TITLE) and display.is_viewable(w)), None)


@pytest.fixture
def asked(launcher, display):
    """A launcher whose chord would need the permission."""
    launcher.hot_key = None
    record = {"modifierFlagsRaw": CONTROL_ALT, "displayName": "chord"}
    launcher.settings(hotKeyConfig=json.dumps(record).encode())
    launcher.start(environment=WITHHELD)
    wait_until(lambda: find(display), "the permission window is shown")
    return launcher


def test_the_window_opens_in_the_middle_and_has_the_keyboard(asked, display, look):
    window = find(display)
    wait_until(lambda: display.has_focus(window), "the window has the keyboard")
    assert display.geometry(window)[2:] == (440, 520)
    assert abs(display.geometry(window).centre[0] - 640) <= 2
    look("prompt")
    display.press("Return")
    look("waiting")
    stays(lambda: find(display) == window, "the window stays")
    assert "local=1 tap=0 global=1 AXTrusted=0" in asked.desktop.log("launcher")


def test_the_chord_is_not_heard_in_other_programs_and_the_program_still_serves(asked, desktop, display):
    desktop.spawn(["xterm", "-T", "Terminal"])
    terminal = display.wait_for("Terminal")
    display.activate(terminal)
    wait_until(lambda: display.has_focus(terminal), "the terminal has the focus")
    with display.held("ctrl", "alt"):
        stays(lambda: not asked.is_shown(), "the ring is hidden", seconds=0.5)
    asked.command("--toggle")
    asked.wait_open()


def test_a_shortcut_with_a_key_asks_for_nothing(launcher, display):
    launcher.start(environment=WITHHELD)
    launcher.summon(640, 400)
    assert find(display) is None
