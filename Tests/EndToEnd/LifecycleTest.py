# SPDX-License-Identifier: MIT
"""The program around the ring: its windows, what reaches it from the desktop, and how it ends."""
import fcntl
import os
import signal
import socket
import stat
import time

import pytest
from gi.repository import Gio, GLib

from harness import accessibility
from harness.launcher import BUS_NAME, IN_BACKGROUND, hot_key_record
from harness.waiting import stays, wait_front, wait_until

SETTINGS = "Tavik Launcher Settings"
REINDEX = "Reindex Apps"
TAP = 0.08  # Seconds.
APART = 1.0  # Too long for two taps to pair.
LOGIND = "/org/freedesktop/login1"
APPLICATION = "org.freedesktop.Application"


# --- windows


def test_command_comma_opens_the_settings_from_any_window_of_ours(ring, display, desktop):
    ring.summon(640, 400)
    display.press("ctrl+comma")
    settings = wait_front(display, SETTINGS)
    ring.wait_hidden()
    display.close_window(settings)
    display.wait_gone(SETTINGS)
    # After another program has been in front, too.
    ring.command("--reindex")
    reindex = wait_front(display, REINDEX)
    desktop.spawn(["xterm", "-T", "Terminal"])
    wait_front(display, "Terminal")
    display.activate(reindex)
    wait_until(lambda: display.has_focus(reindex), "our window is in front again")
    display.press("ctrl+comma")
    wait_front(display, SETTINGS)


def test_the_dock_is_switched_with_the_settings_staying_in_front(launcher, panel, display, desktop):
    launcher.start(environment={"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
    launcher.command("--reindex")
    reindex = wait_front(display, REINDEX)
    launcher.command("--settings=general")
    settings = wait_front(display, SETTINGS)

    def skips(window):
        return "_NET_WM_STATE_SKIP_TASKBAR" in display.state(window)

    assert skips(settings) and skips(reindex)
    for shown in (True, False):
        accessibility.click(desktop, "Show in the Dock", role="check box")
        wait_until(lambda: skips(settings) != shown and skips(reindex) != shown, "the taskbar is told")
        stays(lambda: display.has_focus(settings) and display.is_above(settings, reindex), "the settings are in front", 0.3)
        assert launcher.defaults()["LauncherSettings.showInDock"] == shown


# --- what comes from the desktop


def test_what_a_start_was_given_is_handed_on_and_completed(launcher, panel, display):
    heard, expected = display.listen_to_starts(), ['ID="some-panel_TIME4711"']

    def completed():
        return [text for kind, text in heard() if kind == "remove"]

    ring = launcher.start(by_hand=True, environment={"DESKTOP_STARTUP_ID": "some-panel_TIME4711"})
    wait_until(lambda: expected[0] in completed(), "our own is completed")
    del ring.environment["DESKTOP_STARTUP_ID"]
    for variable in ("DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"):
        for arguments, window in ((), "Tavik Launcher"), (("--hide",), None), (("--reindex",), REINDEX):
            identifier = f'some-panel-{len(expected)}-"quoted"_TIME4711'
            answer = ring.desktop.run([ring.program, *arguments], {**ring.environment, variable: identifier})
            assert answer.returncode == 0
            opened = window and wait_front(display, window)
            if window:
                wait_until(lambda: display.property(opened, "_NET_STARTUP_ID") == identifier, "the window answers it")
            expected.append('ID="%s"' % identifier.replace('"', '\\"'))
            wait_until(lambda: expected[-1] in completed(), "the start is completed")
            # The toolkit tells of the program's own, too.
            assert set(completed()) - {"ID=some-panel_TIME4711"} == set(expected)
        display.close_window(opened)
        display.wait_gone(REINDEX)


def tap(display):
    with display.held("ctrl", "alt"):
        time.sleep(TAP)


def test_a_tap_before_sleep_does_not_pair_with_one_after_it(launcher, panel, applications, desktop, display):
    system_bus = desktop.start_bus("system-bus")
    launcher.pin(applications.add("Alder"))
    launcher.use_chord()
    launcher.start(environment={"DBUS_SYSTEM_BUS_ADDRESS": system_bus})
    wait_until(lambda: "tap=1" in desktop.log("launcher"), "the chord is watched for")
    bus = desktop.bus(system_bus)
    try:
        wait_until(lambda: has_match(desktop, system_bus, "PrepareForSleep"), "the program listens for sleep")
        for sleeps in (False, True):
            tap(display)
            launcher.wait_hidden()
            if sleeps:
                bus.emit_signal(
                    None, LOGIND, "org.freedesktop.login1.Manager", "PrepareForSleep", GLib.Variant("(b)", (True,)))
                bus.flush_sync(None)
            time.sleep(0.2)
            tap(display)
            if sleeps:
                stays(lambda: not launcher.is_shown(), "nothing is pinned", 0.5)
            else:
                launcher.wait_open()
                launcher.dismiss()
                time.sleep(APART)
    finally:
        bus.close_sync(None)


def has_match(desktop, address, member):
    """True once somebody on the bus has asked for that signal."""
    rules, = desktop.call(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.Debug.Stats.GetAllMatchRules",
        address=address)
    return any(member in rule for of_one in rules.values() for rule in of_one)


# --- bad neighbours


def test_hostile_calls_on_the_bus_change_nothing(ring, display):
    long = "x" * 100_000
    for action in ("no-such-action", "", long, "../../quit", "Quit", "activate"):
        with pytest.raises(GLib.Error, match="No such action"):
            ring.activate_action(action)
    odd = [GLib.Variant("i", 7), GLib.Variant("as", ["about"]), GLib.Variant("s", long),
           GLib.Variant("v", GLib.Variant("s", "no"))]
    for parameter in odd:
        ring.activate_action("settings", parameter, parameter, platform_data={
            "desktop-startup-id": GLib.Variant("s", long), "activation-token": GLib.Variant("ay", b"\\xff\\0"),
            "another": GLib.Variant("(iv)", (1, GLib.Variant("s", long)))})
    wait_front(display, SETTINGS)
    for method, signature, arguments in (
            ("ActivateAction", "(s)", ("quit",)), ("ActivateAction", "(i)", (1,)), ("Activate", "(s)", ("x",)),
            ("Nothing", "()", ())):
        with pytest.raises(GLib.Error):
            ring.call(method, signature, arguments)
    ring.call("Open", "(asa{sv})", ([long] * 10, {}))
    ring.wait_open()
    ring.command("--hide")
    ring.wait_hidden()
    assert not ring.exited()


def test_a_flood_of_calls_is_survived(ring, desktop):
    bus = desktop.bus()
    size = memory(ring)
    try:
        for index in range(4000):
            action = ("toggle-launcher", "no-such-action", "hide-launcher", "")[index % 4]
            bus.call(
                BUS_NAME, "/org/tavik/Launcher", APPLICATION, "ActivateAction",
                GLib.Variant("(sava{sv})", (action, [], {})), None, Gio.DBusCallFlags.NONE, 60000, None, None)
        bus.flush_sync(None)
        ring.activate_action("hide-launcher")  # Whoever waits in line is answered in the end.
    finally:
        bus.close_sync(None)
    ring.wait_hidden()
    if not any(name.endswith("SAN_OPTIONS") for name in os.environ):  # Sanitizers keep much for themselves.
        assert memory(ring) - size < 30, "megabytes"
    ring.summon(640, 400)


def memory(launcher):
    """What the program has for itself, in megabytes."""
    with open(f"/proc/{launcher.process.pid}/statm", encoding="ascii") as stream:
        _, resident, shared, *_ = map(int, stream.read().split())
    return (resident - shared) * os.sysconf("SC_PAGE_SIZE") / 2**20


def start_without_bus(launcher, address, **environment):
    """Waits for the key only: there is no bus to ask."""
    launcher.environment.update(environment, DBUS_SESSION_BUS_ADDRESS=address)
    launcher.process = launcher.desktop.spawn(
        [launcher.program, *IN_BACKGROUND], launcher.environment, log="launcher")
    wait_until(lambda: launcher.exited() or launcher.display.is_grabbed(launcher.hot_key), "the hot key is taken")


@pytest.mark.desktop(window_manager="none", has_compositor=False)
def test_a_bare_x_server_is_enough(launcher, applications, desktop, display):
    """No session bus, no system bus, no window manager, no compositor, no tray."""
    alder = applications.add("Alder")
    launcher.pin(alder)
    start_without_bus(launcher, "", DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nowhere/bus")
    launcher.summon(640, 400)
    launcher.wait_shows(alder)
    for argument in ("--hide", "--toggle", "--hide"):  # Over the socket.
        assert launcher.command(argument).returncode == 0
        wait_until(lambda: launcher.is_shown() == (argument == "--toggle"), argument)
    assert launcher.command().returncode == 0
    launcher.wait_open()
    socket = desktop.home / "runtime" / "tavik-launcher.socket"
    assert stat.S_IMODE(socket.stat().st_mode) & 0o077 == 0, "no other user gets in"
    launcher.quit()
    assert not socket.exists() and not display.is_grabbed(launcher.hot_key)
    assert launcher.command("--quit").returncode == 1
    assert problems(launcher) == []


def problems(launcher):
    """What has been logged beyond the ring's comings."""
    return [line for line in launcher.log_lines() if line and "panel: shown" not in line]


def test_a_runtime_folder_of_others_is_not_used(launcher, desktop, display):
    foreign = desktop.home / "foreign"
    foreign.mkdir()
    foreign.chmod(0o777)
    start_without_bus(launcher, "unix:path=/nowhere/bus", XDG_RUNTIME_DIR=str(foreign))
    launcher.summon(640, 400)
    assert list(foreign.iterdir()) == []
    assert len(problems(launcher)) <= 2, problems(launcher)


# --- the end


def test_quitting_in_the_middle_of_a_walk_loses_nothing(launcher, panel, applications):
    applications.add_many(4000)
    launcher.start()
    assert not launcher.cache_file.exists(), "the walk is under way"
    before = launcher.defaults()
    began = time.monotonic()
    launcher.quit()
    assert time.monotonic() - began < 2
    assert before.items() <= launcher.defaults().items()
    left = list(launcher.cache_file.parent.iterdir()) if launcher.cache_file.parent.exists() else []
    assert left in ([], [launcher.cache_file]), "no half-written file"
    assert not left or len(launcher.cache()) >= 4000
    launcher.start().wait_indexed()
    assert len(launcher.cache()) >= 4000


def test_a_signal_ends_it_with_every_window_open_and_everything_saved(ring, desktop, display):
    for count, number in enumerate((signal.SIGTERM, signal.SIGINT, signal.SIGHUP), start=1):
        for argument, title in (
                ("--reindex", REINDEX), ("--settings", SETTINGS), ("--tour", "Welcome to Tavik Launcher")):
            ring.command(argument)
            display.wait_for(title)
        ring.summon()
        ring.process.send_signal(number)
        assert ring.wait_exit() == 0
        assert not desktop.name_has_owner(BUS_NAME) and not display.is_grabbed(ring.hot_key)
        assert ring.defaults()["LauncherSettings.ringLaunchCount"] == count
        assert ring.defaults()["LauncherSettings.hotKeyConfig"] == hot_key_record(ring.hot_key)
        assert not list(ring.defaults_file.parent.glob("*.damaged*"))
        ring.settings(hasCompletedOnboarding=True)
        ring.start()


def test_a_signal_during_the_start_ends_it_cleanly(launcher, applications, desktop, display):
    applications.add_many(500)
    # Until the program itself runs, and not only what loads it, its end is the system's.
    for moment in (None, 0.05, 0.1, 0.2, 0.4, 0.8):
        with open(desktop.home / "runtime" / "tavik-launcher.lock", "w", encoding="ascii") as lock:
            if moment is None:
                fcntl.flock(lock, fcntl.LOCK_EX)  # Another one is ending, and is waited for.
            launcher.process = desktop.spawn([launcher.program], launcher.environment, log="launcher")
            time.sleep(moment or 0.5)
            launcher.process.send_signal(signal.SIGTERM)
            assert launcher.wait_exit() in ((0,) if moment in (None, 0.8) else (0, -signal.SIGTERM))
        assert not display.is_grabbed(launcher.hot_key)
    launcher.start()


def test_a_signal_that_it_was_started_to_ignore_stays_ignored(launcher):
    launcher.process = launcher.desktop.spawn(["nohup", launcher.program], launcher.environment, log="launcher")
    launcher.wait_ready()
    launcher.process.send_signal(signal.SIGHUP)
    stays(lambda: not launcher.exited(), "it goes on", 1)
    launcher.quit()


def test_when_the_display_goes_it_ends_with_everything_saved(ring, desktop, display):
    ring.summon(640, 400)
    desktop.end_server()
    assert ring.wait_exit() in (0, 1), "an end of its own, not by a signal"
    assert ring.defaults()["LauncherSettings.ringLaunchCount"] == 1
    assert not list(ring.defaults_file.parent.glob("*.damaged*"))
    assert len(problems(ring)) <= 2, problems(ring)


def test_without_a_display_it_says_so(launcher, desktop):
    for display_name, compositor, word in (
            ("", "", "DISPLAY"), (":4711", "", ":4711"), ("", "wayland-4711", "wayland-4711")):
        launcher.environment.update(DISPLAY=display_name, WAYLAND_DISPLAY=compositor)
        answer = launcher.command()
        assert answer.returncode == 1 and word in answer.stderr and len(answer.stderr.splitlines()) == 1, answer


def test_a_compositor_that_never_answers_leaves_the_x_server(launcher, desktop, display):
    with socket.socket(socket.AF_UNIX) as silent:
        silent.bind(str(desktop.home / "runtime" / "wayland-0"))
        silent.listen()
        launcher.environment.update(WAYLAND_DISPLAY="wayland-0", XDG_SESSION_TYPE="wayland")
        launcher.start().summon(640, 400)
        launcher.dismiss()
