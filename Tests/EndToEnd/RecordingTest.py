# SPDX-License-Identifier: MIT
"""What the shortcut recorder does with gestures that would cost the user something."""
import pytest

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
    with display.held("ctrl", alt_gr, "e"):
        pass
    recorder.wait_text(ALT_GR)
    look("refused")
    stays(lambda: launcher.defaults() == before and not display.is_grabbed("ctrl+e"), "nothing is taken", 0.3)
    recorder.control(BUTTON, RECORDING)
    display.press("ctrl+F9")
    wait_until(lambda: display.is_grabbed("ctrl+F9"), "the next gesture is taken")


def test_a_shortcut_that_programs_use_is_taken_only_when_the_user_insists(recorder, display, look):
    display.press("ctrl+c")
    recorder.wait_text(
        "Programs use Control + C themselves to copy. As the shortcut of the ring it would not reach any of them any "
        "more.")
    look("asked")
    stays(lambda: not display.is_grabbed("ctrl+c"), "it is not taken", 0.3)
    recorder.click(BUTTON, "Choose Another")
    recorder.control(BUTTON, RECORDING)
    display.press("ctrl+v")
    recorder.click(BUTTON, "Use It Anyway")
    wait_until(lambda: display.is_grabbed("ctrl+v"), "what the user insists on is taken")
