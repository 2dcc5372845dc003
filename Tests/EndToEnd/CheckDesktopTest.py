# SPDX-License-Identifier: MIT
"""What the launcher says of the desktop that it runs on: by the command and on the page of the settings."""
import dataclasses
import itertools
import re
import time

import pytest

from conftest import PICTURES, PROGRAM
from harness.notifier_host import NotifierHost
from harness.settings_window import BUTTON, ENVIRONMENT, SettingsWindow
from harness.waiting import wait_until
from harness.wayland import AnotherWlroots, GnomeShell, KWin, Sway
from WaylandTest import Ring, present

# What some of the eight parts say where they are well.
X11 = ("The X server reserves the key", "The X server tells where it is.", "A window of its own above all others.",
       "The window manager lists its windows.")
LAYER = ("Not needed: ctrl+alt+space is pressed once", "An invisible surface on each screen", "layer above all windows.")
GNOME = ("Custom shortcuts in GNOME's", "The ring's own keyboard", LAYER[1], "A window that the window manager keeps above")
WAYLAND = {
    Sway: (*LAYER, "Bindings that sway holds", "sway lists its windows.", "sway's command to focus a window."),
    KWin: (*LAYER, "A global shortcut of KDE", "A script inside of KWin", "KWin brings a window forward")}


class SwayWithOwnKeys(Sway):
    configuration = Sway.configuration + "bindsym Ctrl+Mod1+space exec mine\n"


def parts(seen, before):
    """Of what has changed, from left to right: where each part begins that stands beside the others, and how wide it is."""
    changed = [any(seen.pixel(x, y) != before.pixel(x, y) for y in range(0, seen.height, 5)) for x in range(seen.width)]
    runs = [list(run) for _, run in itertools.groupby(range(seen.width), changed.__getitem__)]
    return [(run[0], len(run)) for run in runs if changed[run[0]]]


def check(launcher):
    """What the command says is well, as one text, and the names of what is not."""
    answer = launcher.command("--check-desktop")
    assert answer.stderr == "", answer.stderr
    good = [line for line in answer.stdout.splitlines() if line.startswith("[ok]")]
    missing = re.findall(r"^\[!!\] (.*?):", answer.stdout, re.M)
    assert len(good) + len(missing) == 8 and answer.returncode == (1 if missing else 0)
    return "\n".join(good), missing


def test_the_command_is_true_on_x11(launcher, desktop, display):
    assert f"     $ {PROGRAM}\n" in launcher.command("--check-desktop").stdout, "nobody finds it by its name"
    good, missing = check(launcher)
    assert "Trigger" in missing and [part for part in X11 if part not in good] == [X11[0]]
    assert not display.is_grabbed(launcher.hot_key) and not desktop.name_has_owner("org.tavik.Launcher")
    launcher.start()
    good, missing = check(launcher)
    assert all(part in good for part in X11) and missing == ["Tray"]
    with NotifierHost(desktop):
        wait_until(lambda: check(launcher)[1] == [], "all is well with a tray")
        answer = desktop.call("org.tavik.Launcher", "/org/tavik/Launcher", "org.tavik.Launcher.CheckDesktop")[0]
        assert answer == "0\n" + launcher.command("--check-desktop").stdout


@pytest.mark.desktop(width=1700, height=900)
def test_the_page_shows_it_and_repairs(launcher, desktop, look):
    window = SettingsWindow(launcher)
    launcher.start(environment={**ENVIRONMENT, "XDG_CURRENT_DESKTOP": "XFCE"})
    window.open("desktop")
    window.wait_text("Needs your attention: 2 of 8.")
    shown = "\n".join(window.texts())
    assert all(part in shown for part in X11)
    look("two are missing")
    window.focus(BUTTON, "Turn On: Autostart")
    window.display.press("space")
    window.wait_text("Needs your attention: 1 of 8.")
    assert (desktop.home / "config" / "autostart" / "org.tavik.Launcher.desktop").exists()
    with NotifierHost(desktop):
        window.wait_text("This desktop gives the launcher all it needs.")
        look("all is well")


@pytest.mark.parametrize("kind", [*WAYLAND, SwayWithOwnKeys, AnotherWlroots])
def test_the_command_is_true_on_wayland(kind):
    with present(kind, False) as desktop:
        ring = Ring(desktop)
        assert check(ring.launcher)[1] == ["Trigger", "Tray", "Autostart"], "that there is no window is known, too"
        if kind is AnotherWlroots:
            return
        ring.start()
        good, missing = check(ring.launcher)
        if kind is SwayWithOwnKeys:
            assert "Trigger" in missing, "the user's own binding rests"
            return
        assert all(part in good for part in WAYLAND[kind])
        assert missing == (["Tray", "Autostart"] if kind is KWin else ["Tray"]), "KDE would start what the folder has"
        ring.launcher.stop()


def test_command_and_page_are_true_on_gnome():
    with present(GnomeShell, True) as desktop:
        ring = Ring(desktop)
        ring.launcher.use_chord()
        ring.start()
        ring.wait_shown()  # The window that asks.
        assert "Trigger" in check(ring.launcher)[1]
        ring.display.press("Return")
        wait_until(lambda: all(part in check(ring.launcher)[0] for part in GNOME), "the trigger is set up, too")
        assert check(ring.launcher)[1] == ["Running programs", "Bringing to the front", "Tray", "Autostart"]
        ring.launcher.command("--settings=desktop")
        time.sleep(1)
        ring.display.picture().save(PICTURES / "CheckDesktopTest.gnome.png")
        ring.launcher.stop()


class FloatingSway(Sway):
    configuration = Sway.configuration + 'for_window [app_id="org.tavik.Launcher"] floating enable, move absolute position 40 60\n'


@pytest.mark.parametrize("kind", [FloatingSway, KWin])
def test_the_preview_stands_beside_its_window_on_wayland(kind):
    wide = present(kind, False)
    wide.options = dataclasses.replace(wide.options, width=1700, height=900)
    with wide as desktop:
        ring = Ring(desktop)
        ring.launcher.pin(ring.birch)
        ring.start()
        ring.launcher.command("--settings=general")
        ring.wait_shown()
        ring.launcher.command("--settings=appearance")

        def stands_beside():
            seen = parts(ring.display.picture(), ring.empty)
            return len(seen) == 2 and seen[0][1] >= 850 and seen[1][1] > 200 and seen

        try:
            wait_until(stands_beside, "the ring stands at the right of its window")
            ring.display.press("super+Left")
            wait_until(lambda: (seen := stands_beside()) and seen[0][0] <= 40, "it follows its window to the left")
        finally:
            ring.display.picture().save(PICTURES / f"CheckDesktopTest.preview-{kind.__name__}.png")
            ring.launcher.stop()
