# SPDX-License-Identifier: MIT
"""Wayland desktops: the trigger that each of them listens for in our place, and the ring at the pointer where a
window can be placed."""
import contextlib
import itertools
import re
import sys
import time

import pytest

from harness.applications import PROGRAM as WINDOW_PROGRAM
from harness.launcher import BUS_NAME, IN_BACKGROUND, Launcher, hot_key_record, looks_like
from harness.waiting import stays, wait_until
from harness.wayland import AnotherWlroots, GnomeShell, KWin, Screens, Sway, speaks_wayland
from conftest import PROGRAM

PLACE = 640, 400
TAP = 0.08  # Seconds from press to release.


class Ring:
    """The ring on a desktop whose windows nobody can list: it is told by the picture."""

    def __init__(self, desktop):
        self.desktop, self.display = desktop, desktop.display
        self.launcher = Launcher(desktop, PROGRAM)
        self.birch = desktop.applications.add("Birch")
        self.empty = None

    def start(self, in_background=True):
        display = self.display
        display.move_pointer(*PLACE)
        self.empty = display.picture()
        self.launcher.process = self.desktop.spawn(
            [PROGRAM, *(IN_BACKGROUND if in_background else ())], self.launcher.environment, log="launcher")
        wait_until(lambda: self.desktop.name_has_owner(BUS_NAME), "the launcher is on the bus")
        time.sleep(0.3)  # Nobody tells when a desktop has taken a shortcut.

    def is_shown(self):
        return self.display.picture().share_unlike(self.empty) > 0.02

    def press_until_shown(self, chord):
        """After a start or a reload of the desktop it takes a moment until the launcher has its keys."""
        def is_answered():
            self.desktop.display.press(chord)
            with contextlib.suppress(AssertionError):
                return wait_until(self.is_shown, "the ring is shown", 2)

        wait_until(is_answered, f"{chord} is answered")

    def wait_shown(self):
        wait_until(self.is_shown, "the ring is shown")

    def wait_hidden(self):
        wait_until(lambda: not self.is_shown(), "the ring is gone")

    def dismiss(self):
        self.display.press("Escape")
        self.wait_hidden()

    def open_at(self, place, around=None):
        """Asks for it there, and sees that it opens around it or the other place."""
        self.display.move_pointer(*place)
        time.sleep(0.2)  # Until the desktop has drawn the pointer there.
        self.empty = self.display.picture()
        self.launcher.command("--toggle")
        self.wait_shown()
        wait_until(lambda: self.is_around(*(around or place), below_bars=around is None), f"it is at {around or place}", 3)

    def grant(self, is_granted, what, look):
        """Answers the window that asks whether the launcher may have its shortcut."""
        self.wait_shown()
        look("asks")
        assert not is_granted(), "nothing is done unasked"
        self.display.press("Return")
        wait_until(is_granted, what)
        time.sleep(1.5)
        look("granted")
        self.dismiss()

    def is_around(self, x, y, below_bars=True):
        """Whether the middle of what has changed on the row and on the column through a place is there; the shadow
        lies lower."""
        seen = self.display.picture()
        row = [at for at in range(seen.width) if seen.pixel(at, y) != self.empty.pixel(at, y)]
        column = [at for at in range(80 if below_bars else 0, seen.height) if seen.pixel(x, at) != self.empty.pixel(x, at)]
        lower = 5 * self.desktop.screens.scale
        return row and column and abs((row[0] + row[-1]) / 2 - x) <= 1 and abs((column[0] + column[-1]) / 2 - y) <= lower


def present(kind, has_x, **options):
    """A desktop of that kind; skips the test where it is not installed."""
    if reason := kind.missing():
        pytest.skip(reason)
    return kind(has_x, **options)


@pytest.fixture
def desktop(request):
    kind, has_x, screens = request.param
    if not has_x and not speaks_wayland():
        pytest.skip("Qt's plugin for Wayland is not installed")
    with present(kind, has_x, screens=screens) as made:
        yield made


def on(*kinds, natively=(False, True), screens=(Screens(),), others=()):
    """Repeats a test on those desktops, with and without an X server, and with those screens; on others as they say."""
    every = [(kind, not native, these) for kind, native, these in itertools.product(kinds, natively, screens)]
    every += [(kind, has_x, Screens()) for kind, has_x in others]
    return pytest.mark.parametrize(
        "desktop", every, indirect=True,
        ids=[f"{kind.name}-{'with an X server' if has_x else 'native'}" + (f"-{these.count} at {these.scale}" if these != Screens() else "")
             for kind, has_x, these in every])


@pytest.fixture
def ring(desktop):
    made = Ring(desktop)
    made.launcher.pin(made.birch)
    yield made
    made.launcher.stop()


@on(Sway)
def test_sway_hears_a_chord_and_gives_it_back(ring, desktop, look):
    ring.launcher.use_chord()
    ring.start()
    for chord in (("ctrl", "alt"), ("alt", "ctrl")):
        with desktop.display.held(*chord):
            ring.wait_shown()
            look("held")
            stays(ring.is_shown, "the ring is shown while the chord is held", 0.6)
        ring.wait_hidden()
        time.sleep(1.1)  # Else it is the second of two taps.
    with desktop.display.held("ctrl", "alt"):
        ring.wait_shown()
        desktop.display.press("b")
        ring.wait_hidden()  # A shortcut of the user's own: the chord was part of it.
    time.sleep(0.2)
    for _ in range(2):
        with desktop.display.held("ctrl", "alt"):
            time.sleep(TAP)
        time.sleep(0.15)
    ring.wait_shown()
    stays(ring.is_shown, "tapped twice, it is pinned", 0.5)
    desktop.display.press("Return")
    ring.birch.wait_started()
    ring.launcher.quit()
    if desktop.has_x:  # Else it has had no window.
        wait_until(lambda: desktop.run(["swaymsg", "[title=Birch] kill"]).returncode == 0, "its window has come, and goes")
    ring.wait_hidden()
    with desktop.display.held("ctrl", "alt"):
        stays(lambda: not ring.is_shown(), "nobody answers any more", 0.3)


@on(Sway)
def test_sway_hears_a_key(ring, desktop):
    ring.launcher.settings(hotKeyConfig=hot_key_record("ctrl+alt+space"))
    desktop.message("bindcode", "Ctrl+Mod1+65", f"exec touch {desktop.home}/sway/own")
    ring.start()
    for reload in (False, True):
        if reload:
            desktop.reload()
        ring.press_until_shown("ctrl+alt+space")
        stays(ring.is_shown, "it stays without the key", 0.5)
        desktop.display.press("ctrl+alt+space")
        ring.wait_hidden()
        if not reload:
            ring.launcher.quit()

            def is_own_again():
                desktop.display.press("ctrl+alt+space")
                return (desktop.home / "sway" / "own").exists()

            wait_until(is_own_again, "the user's own binding of these keys is back", interval=0.3)
            ring.start()


@on(KWin, others=[(GnomeShell, False)])
def test_a_desktop_without_chords_is_asked_for_a_key_and_gives_it(ring, desktop, look):
    """The chord of the first start cannot be had there: the window offers what can be."""
    ring.launcher.use_chord()
    ring.start()
    ring.grant(lambda: b'"keyCode":49' in ring.launcher.defaults()["LauncherSettings.hotKeyConfig"], "it has a key now", look)
    for _ in range(2):
        desktop.display.press("ctrl+alt+space")
        ring.wait_shown()
        stays(ring.is_shown, "it stays without the key", 0.5)
        desktop.display.press("ctrl+alt+space")
        ring.wait_hidden()
    ring.launcher.quit()
    desktop.display.press("ctrl+alt+space")
    stays(lambda: not ring.is_shown(), "nobody answers any more", 0.5)


@on(GnomeShell, natively=(False,))
def test_gnome_is_given_shortcuts_that_go_again(ring, desktop, look):
    ring.launcher.use_chord()
    assert ring.launcher.command("--version").stdout.endswith("display: Xwayland\n")
    ring.start()
    ring.grant(lambda: "tavik" in desktop.custom_shortcuts(), "the shortcut is written", look)
    for _ in range(2):
        with desktop.display.held("ctrl", "alt"):
            ring.wait_shown()
            stays(ring.is_shown, "the ring is shown while the chord is held", 0.6)
        ring.wait_hidden()
        time.sleep(1.1)
    assert desktop.run_shortcut(lambda command: command.replace(str(PROGRAM), "/gone")) == "''", "uninstalled, it frees the keys"
    ring.launcher.quit()
    assert "tavik" not in desktop.custom_shortcuts()


@on(Sway, KWin)
def test_the_ring_opens_at_the_pointer_and_goes_with_a_click_elsewhere(ring, desktop, look):
    display = desktop.display
    assert ring.launcher.command("--version").stdout.endswith("display: Wayland\n")
    ring.start()
    for place in ((400, 300), (901, 499)):
        ring.open_at(place)
        look(f"at {place}")
        display.move_pointer(640, 40)
        stays(ring.is_shown, "a pointer that leaves takes nothing from it", 0.3)
        display.click()
        ring.wait_hidden()


@on(Sway, KWin, natively=(True,), screens=(Screens(2), Screens(scale=1.5), Screens(scale=2)))
def test_on_every_screen_the_ring_is_at_the_pointer_and_whole(ring, desktop, look):
    ring.start()
    width, height, half = desktop.screen_width, desktop.options.height, round(176 * desktop.screens.scale)
    for left in range(0, desktop.options.width, width):
        for x, y in (width // 2 - 40, height // 2 + 21), (0, 0), (width - 1, height - 1):
            ring.open_at((left + x, y), around=(left + min(max(x, half), width - half), min(max(y, half), height - half)))
            look(f"at {left + x} {y}")
            ring.dismiss()


@on(GnomeShell, natively=(False,), screens=(Screens(), Screens(2)))
def test_gnome_tells_where_the_pointer_is_over_native_windows(ring, desktop, look):
    """Its X server hears of the pointer only over its own: a window of ours, seen through, has it told for a moment."""
    display, report = desktop.display, desktop.home / "cedar"
    ring.start()
    desktop.spawn(["xev", "-root", "-event", "substructure"], log="windows")
    desktop.applications.open_native(desktop, "Cedar", "--report", str(report))
    native = 0xF5, 0xF5, 0xF5
    wait_until(lambda: display.picture().pixel(1200, 700) == native, "a native window is below the pointer")

    def made():
        return re.findall(r"window (0x\w+), \(0,0\), width 1280, height 800", desktop.log("windows"))

    def are_all_gone():
        return all(re.search(rf"Destroy.*\n.* window {one}\b", desktop.log("windows")) for one in made())

    for place, end in ((400, 300), "Escape"), ((901, 499), "Escape"), ((901, 499), "a click elsewhere"):
        searches = len(made())
        ring.open_at(place)
        assert len(made()) > searches
        look(f"at {place}")
        if end == "Escape":
            display.press("Escape")
        else:
            display.move_pointer(place[0], place[1] + 200)
            display.click()
        ring.wait_hidden()
        wait_until(are_all_gone, "what looked for the pointer goes")
        clicks = report.read_text().count("click")
        display.click()
        if ring.empty.pixel(place[0] - 9, place[1] - 9) == native:  # Of two screens it lies on one.
            wait_until(lambda: report.read_text().count("click") > clicks, "what lies below has the click")

    def has_keyboard():
        focus = re.search(r"focus:\s+window (0x\w+)", desktop.run(["xdpyinfo"]).stdout)
        return focus and '"Tavik Launcher"' in desktop.run(["xwininfo", "-id", focus[1]]).stdout

    def is_answered(key):
        """Its place may be looked for still; a key on the way from one window to another is lost."""
        display.press(key)
        return not has_keyboard() and are_all_gone()

    for key in "Escape", "Return":
        display.move_pointer(300 + len(key), 600)
        ring.launcher.command("--toggle")
        wait_until(has_keyboard, "the ring has the keyboard")
        wait_until(lambda: is_answered(key), f"{key} is answered", interval=0.1)
    ring.birch.wait_started()
    # Its own window the server knows about.
    desktop.spawn([sys.executable, str(WINDOW_PROGRAM), "--title", "Dogwood", "--full-screen", "--colour", "205020"], log="Dogwood")
    wait_until(lambda: display.picture().pixel(600, 700) == (0x20, 0x50, 0x20), "an X window is below the pointer")
    display.move_pointer(440, 400)
    display.click()  # It may not have had the focus.
    wait_until(lambda: "click" in desktop.log("Dogwood"), "it is told where the pointer is")
    searches = len(made())
    ring.open_at((440, 400))
    assert len(made()) == searches, "nothing is waited for"


@on(Sway, KWin, AnotherWlroots, others=[(GnomeShell, True)])
def test_a_native_program_is_seen_to_run_and_raised(ring, desktop, look):
    display = desktop.display
    alder = desktop.applications.add("Alder", "red", "--native --colour 205020")
    desktop.applications.add("Cedar")

    def wait_seen(*colour):
        wait_until(lambda: display.picture().pixel(1200, 700) == colour, f"{colour} is in front")

    def choose_alder():
        ring.empty = display.picture()
        ring.launcher.command("--toggle")
        ring.wait_shown()
        display.type("alder")
        display.press("Return")

    ring.launcher.pin()
    ring.launcher.settings(searchesAllApps=True)
    ring.start()
    ring.launcher.wait_indexed()
    choose_alder()
    alder.wait_started()
    wait_seen(0x20, 0x50, 0x20)
    desktop.applications.open_native(desktop, "Cedar", "--colour", "502020")
    wait_seen(0x50, 0x20, 0x20)
    ring.empty = display.picture()
    ring.launcher.command("--toggle")
    top = PLACE[0], PLACE[1] - 121
    wait_until(lambda: looks_like(display.picture().mean(*top), alder.colour), "it runs, so the ring shows it")
    look("running")
    ring.dismiss()
    choose_alder()
    wait_seen(0x20, 0x50, 0x20)
    display.press("k")
    wait_until(lambda: "key k" in alder.report.read_text(), "the raised window has the keyboard")
    assert len(alder.starts()) == 1


@on(Sway, KWin, natively=(True,))
def test_a_compositor_that_hangs_does_not_hang_the_launcher(ring, desktop):
    ring.start()
    durations = []
    with desktop.hung():
        for _ in range(3):
            start = time.monotonic()
            ring.launcher.activate_action("toggle-launcher")
            ring.launcher.activate_action("hide-launcher")
            durations.append(time.monotonic() - start)
        ring.launcher.activate_action("toggle-launcher")
        time.sleep(0.4)
    assert min(durations) < 0.1, f"80 ms and the bus: {durations}"
    ring.wait_shown()  # As soon as it can be.
    ring.dismiss()


@on(Sway, KWin, natively=(False,))
def test_a_held_chord_shows_the_ring_once(ring, desktop):
    """The X server tells of releases whenever the focus moves, as it does to the ring."""
    ring.launcher.use_chord()
    ring.launcher.settings(hasCompletedOnboarding=False)
    ring.launcher.environment["QT_QPA_PLATFORM"] = "xcb"
    ring.start(in_background=False)

    for in_front, times in ("the launcher's own tour", 1), ("another program", 1 if desktop.hears_chords else 0):
        if in_front == "another program":
            desktop.spawn([sys.executable, str(WINDOW_PROGRAM), "--title", "Cedar", "--full-screen"], log="Cedar")
            wait_until(lambda: desktop.display.picture().pixel(1200, 700) == (0xF5, 0xF5, 0xF5), "it is in front")
        time.sleep(1)
        before = ring.launcher.times_shown()
        with desktop.display.held("ctrl", "alt"):
            time.sleep(0.8)
            assert ring.launcher.times_shown() == before + times, in_front
        time.sleep(0.6)
        assert ring.launcher.times_shown() == before + times, f"{in_front}, after the release"
