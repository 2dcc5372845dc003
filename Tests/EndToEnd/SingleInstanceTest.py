# SPDX-License-Identifier: MIT
"""One program per session: commands that reach it, and how it ends."""
import signal

import pytest

from gi.repository import Gio, GLib

from harness.launcher import BUS_NAME, IN_BACKGROUND, hot_key_record
from harness.waiting import stays, wait_until


@pytest.fixture
def ring(launcher, applications):
    launcher.pin(applications.add("Alder"), applications.add("Birch"))
    return launcher.start()


def test_commands_show_toggle_and_hide_the_running_ring(ring, display):
    for argument, expected in (("--show", True), ("--hide", False), ("--toggle", True), ("--toggle", False)):
        answer = ring.command(argument)
        assert answer.returncode == 0, answer.stderr
        if expected:
            ring.wait_open()
        else:
            ring.wait_hidden()


def test_a_second_start_ends_at_once_and_leaves_one_program(ring, desktop):
    answer = ring.command()
    assert answer.returncode == 0, answer.stderr
    assert not ring.exited()
    assert desktop.name_has_owner(BUS_NAME)


def test_a_start_with_a_command_and_nothing_running_carries_it_out(launcher, applications):
    launcher.pin(applications.add("Alder"))
    launcher.start("--show")
    launcher.wait_open()
    assert launcher.command("--toggle").returncode == 0
    launcher.wait_hidden()


@pytest.mark.parametrize("action", ["toggle-launcher", "show-launcher", "hide-launcher", "quit"])
def test_the_bus_interface_offers_what_the_command_line_does(ring, desktop, action):
    bus = desktop.bus()
    try:
        bus.call_sync(
            BUS_NAME, "/org/tavik/Launcher", "org.freedesktop.Application", "ActivateAction",
            GLib.Variant("(sava{sv})", (action, [], {})), None, Gio.DBusCallFlags.NONE, 5000, None)
    finally:
        bus.close_sync(None)
    if action == "quit":
        assert ring.wait_exit() == 0
    elif action != "hide-launcher":
        ring.wait_open()


@pytest.mark.parametrize("argument, expected", [("--version", "0."), ("--help", "--toggle")])
def test_questions_are_answered_without_a_running_program(launcher, desktop, argument, expected):
    answer = launcher.command(argument)
    assert answer.returncode == 0 and expected in answer.stdout
    assert not desktop.name_has_owner(BUS_NAME)


def test_an_unknown_argument_is_refused(launcher, desktop):
    answer = launcher.command("--no-such-thing")
    assert answer.returncode != 0 and answer.stderr
    assert not desktop.name_has_owner(BUS_NAME)


def test_quit_ends_the_program_and_frees_the_key(ring, display):
    assert ring.command("--quit").returncode == 0
    assert ring.wait_exit() == 0
    assert not display.is_grabbed(ring.hot_key)
    display.press(ring.hot_key)
    stays(lambda: not ring.is_shown(), "nothing is shown")


@pytest.mark.parametrize("number", [signal.SIGTERM, signal.SIGINT], ids=["SIGTERM", "SIGINT"])
def test_a_signal_ends_the_program_cleanly_with_its_settings_saved(ring, display, number):
    ring.summon(640, 400)
    ring.process.send_signal(number)
    assert ring.wait_exit() == 0
    assert ring.defaults()["LauncherSettings.ringLaunchCount"] == 1
    assert ring.defaults()["LauncherSettings.hotKeyConfig"] == hot_key_record(ring.hot_key)
    assert not list(ring.defaults_file.parent.glob("*.damaged*"))


def test_a_hot_key_that_another_program_holds_is_reported_and_toggle_still_works(
        launcher, applications, desktop, display):
    launcher.pin(applications.add("Alder"))
    display.grab(launcher.hot_key)
    launcher.start()
    lines = wait_until(
        lambda: [line for line in launcher.log_lines() if "RegisterEventHotKey status" in line],
        "the refused key is in the log")
    assert len(lines) == 1
    launcher.command("--toggle")
    launcher.wait_open()
    assert launcher.defaults()["LauncherSettings.hotKeyConfig"] == hot_key_record(launcher.hot_key)


def test_without_a_session_bus_the_hot_key_still_works(launcher, applications, desktop, display):
    launcher.pin(applications.add("Alder"))
    desktop.bus_address = "unix:path=/nowhere/bus"
    launcher.process = desktop.spawn([launcher.program, *IN_BACKGROUND], launcher.environment, log="launcher")
    wait_until(lambda: display.is_grabbed(launcher.hot_key), "the hot key is taken")
    launcher.summon(640, 400)
    assert len(launcher.log_lines()) <= 1


def test_a_shortcut_of_another_key_is_honoured(launcher, applications, display):
    launcher.use_hot_key("super+F9")
    launcher.pin(applications.add("Alder"))
    launcher.start().summon(640, 400)
    assert not display.is_grabbed("F9") and not display.is_grabbed("ctrl+alt+space")
