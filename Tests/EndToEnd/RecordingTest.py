# SPDX-License-Identifier: MIT
"""What the shortcut recorder does with gestures that would cost the user something."""
import pytest

from harness import accessibility
from harness.settings_window import BUTTON, ENVIRONMENT, SettingsWindow
from harness.waiting import stays, wait_until

RECORDING = "Trigger shortcut: Press a shortcut…"
ALT_GR = "AltGr only chooses which character a key types and cannot be part of a shortcut. Try one without it."
# Places of keys: one that stands for AltGr in every layout, without being on a keyboard, and the one to the right of
# the space bar.
ANY_ALT_GR, RIGHT_ALT = 92, 108


@pytest.fixture
def recorder(launcher):
    launcher.start(environment=ENVIRONMENT)
    window = SettingsWindow(launcher)
    window.open("shortcut")
    window.click(BUTTON, "Trigger shortcut: ")
    window.control(BUTTON, RECORDING)
    return window


@pytest.mark.parametrize("layout, alt_gr", [("us", ANY_ALT_GR), ("de", RIGHT_ALT)])
def test_a_gesture_with_altgr_becomes_no_other_shortcut(recorder, launcher, desktop, display, look, layout, alt_gr):
    assert desktop.run(["setxkbmap", layout]).returncode == 0
    before = launcher.defaults()
    with accessibility.heard(desktop) as events:
        with display.held("ctrl", alt_gr, "e"):
            pass
        shown = ("object:state-changed:showing", "notification")
        wait_until(lambda: shown in {event[:2] for event in events()}, "the refusal is announced")
        recorder.wait_text(ALT_GR)
        look("refused")
        stays(lambda: launcher.defaults() == before and not display.is_grabbed("ctrl+e"), "nothing is taken", 0.3)
        recorder.control(BUTTON, RECORDING)
        display.press("ctrl+F9")
        wait_until(lambda: display.is_grabbed("ctrl+F9"), "the next gesture is taken")
        wait_until(lambda: (*shown, "Ctrl + F9") in events(), "the new shortcut is announced")
