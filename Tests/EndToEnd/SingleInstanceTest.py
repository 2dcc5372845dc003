# SPDX-License-Identifier: MIT
"""One program per session, and what reaches it."""
import pytest

from harness.launcher import BUS_NAME, hot_key_record
from harness.waiting import stays, wait_until


def test_commands_and_the_bus_reach_the_one_program_and_quit_frees_the_key(launcher, applications, desktop, display):
    launcher.pin(applications.add("Alder"), applications.add("Birch"))
    ring = launcher.start("--show")  # Where nothing runs yet, a command is a start that carries it out.
    ring.wait_open()

    def by_command(name):
        answer = ring.command(f"--{name}")
        assert answer.returncode == 0, answer.stderr

    def over_the_bus(name):
        ring.activate_action(f"{name}-launcher")

    for send in (by_command, over_the_bus):
        for name, expected in (("hide", False), ("show", True), ("toggle", False), ("toggle", True)):
            send(name)
            if expected:
                ring.wait_open()
            else:
                ring.wait_hidden()
    by_command("hide")
    ring.wait_hidden()
    assert ring.command().returncode == 0
    ring.wait_open()
    assert not ring.exited() and desktop.name_has_owner(BUS_NAME)
    by_command("quit")
    assert ring.wait_exit() == 0
    assert not display.is_grabbed(ring.hot_key)
    display.press(ring.hot_key)
    stays(lambda: not ring.is_shown(), "nothing is shown")


@pytest.mark.parametrize("environment", [{}, {"DBUS_SESSION_BUS_ADDRESS": "disabled:"}], ids=["bus", "no bus"])
def test_of_starts_at_one_moment_one_stays_and_the_others_reach_it(launcher, desktop, environment):
    launcher.environment.update(environment)
    starts = [desktop.spawn([launcher.program], launcher.environment, log="launcher") for _ in range(6)]
    wait_until(lambda: sum(start.poll() is not None for start in starts) == 5, "one is left")
    assert launcher.command("--quit").returncode == 0
    assert [start.wait(5) for start in starts] == [0] * 6


def test_questions_and_mistakes_are_answered_without_a_running_program(launcher, desktop):
    for argument, code, expected in (
            ("--version", 0, "tavik-launcher 0."), ("--help", 0, "--toggle"), ("--no-such-thing", 2, "--no-such-thing")):
        answer = launcher.command(argument)
        assert answer.returncode == code and expected in (answer.stderr if code else answer.stdout)
        assert not desktop.name_has_owner(BUS_NAME)


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
