# SPDX-License-Identifier: MIT
"""One program per session, and what reaches it."""
import os
import signal
import socket
import time

import pytest

from harness.launcher import BUS_NAME, hot_key_record
from harness.waiting import stays, wait_until

PAIRS = int(os.environ.get("TAVIK_PAIRS", "4"))  # Of a quit and a start.


def test_commands_and_the_bus_reach_the_one_program_and_quit_frees_the_key(launcher, applications, desktop, display):
    launcher.pin(applications.add("Alder"), applications.add("Birch"))
    ring = launcher.start("--show")  # Where nothing runs yet, a command is a start that carries it out.
    ring.wait_open()

    def by_command(name):
        answer = ring.command(f"--{name}")
        assert answer.returncode == 0, answer.stderr

    def over_the_bus(name):
        ring.activate_action("summon" if name == "summon" else f"{name}-launcher")

    for send in (by_command, over_the_bus):
        for name, expected in (("hide", False), ("show", True), ("toggle", False), ("toggle", True), ("summon", False),
                               ("summon", True)):
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


with_and_without_a_bus = pytest.mark.parametrize(
    "environment", [{}, {"DBUS_SESSION_BUS_ADDRESS": "disabled:"}], ids=["bus", "no bus"])


@with_and_without_a_bus
def test_of_starts_at_one_moment_one_stays_and_the_others_reach_it(launcher, desktop, environment):
    launcher.environment.update(environment)
    starts = [desktop.spawn([launcher.program], launcher.environment, log="launcher") for _ in range(6)]
    wait_until(lambda: sum(start.poll() is not None for start in starts) == 5, "one is left")
    assert launcher.command("--quit").returncode == 0
    assert [start.wait(5) for start in starts] == [0] * 6


def is_running(launcher, is_on_bus):
    desktop = launcher.desktop
    return launcher.display.is_grabbed(launcher.hot_key) and (not is_on_bus or desktop.name_has_owner(BUS_NAME))


def quit_now(launcher):
    """Returns as soon as the program has the request, and is about to end."""
    with socket.socket(socket.AF_UNIX) as connection:
        connection.connect(str(launcher.desktop.home / "runtime" / "tavik-launcher.socket"))
        connection.sendall(b"quit\n")
        assert connection.recv(1) == b"\n"


@with_and_without_a_bus
@pytest.mark.parametrize("arguments", [(), ("--background",), ("--toggle",)], ids=["by hand", "login", "command"])
def test_a_start_right_after_a_quit_takes_over(launcher, applications, desktop, environment, arguments):
    applications.add_many(1500)  # There is a walk to be ended.
    launcher.environment.update(environment)

    def start():
        return desktop.spawn([launcher.program, *arguments], launcher.environment, log="launcher")

    running = start()
    for _ in range(PAIRS):
        wait_until(lambda: is_running(launcher, not environment), "it has begun")
        quit_now(launcher)
        following = start()
        assert running.wait(10) == 0
        running = following
    wait_until(lambda: is_running(launcher, not environment), "the last one runs")
    assert running.poll() is None
    assert launcher.command("--quit").returncode == 0
    assert running.poll() is not None or running.wait(0.5) == 0, "whoever quits it has it ended"


def test_a_stopped_launcher_is_told_of_as_it_is_and_toggles_once(launcher, applications, display):
    launcher.pin(applications.add("Alder"))
    launcher.start()
    launcher.process.send_signal(signal.SIGSTOP)
    for argument in ("--toggle", "--hide"):
        answer = launcher.command(argument)
        assert answer.returncode == 1 and "does not answer" in answer.stderr
        launcher.process.send_signal(signal.SIGCONT if argument == "--toggle" else signal.SIGSTOP)
        if argument == "--toggle":
            launcher.wait_open()
            stays(launcher.is_shown, "it was toggled once", 1)
            launcher.process.send_signal(signal.SIGSTOP)
    launcher.process.send_signal(signal.SIGCONT)
    launcher.wait_hidden()
    assert launcher.command("--quit").returncode == 0
    answer = launcher.command("--quit")
    assert answer.returncode == 1 and "no launcher is running" in answer.stderr


@pytest.fixture
def mute_bus(tmp_path):
    """The address of a bus that takes every connection and never says a word."""
    with socket.socket(socket.AF_UNIX) as bus:
        bus.bind(str(tmp_path / "bus"))
        bus.listen(50)
        yield f"unix:path={tmp_path / 'bus'}"


@pytest.fixture
def full_bus():
    """The address of one that takes no more connections, which has no file."""
    name = f"/tavik-test-{os.getpid()}"
    with socket.socket(socket.AF_UNIX) as bus, socket.socket(socket.AF_UNIX) as waiting:
        bus.bind("\0" + name)
        bus.listen(0)
        waiting.connect("\0" + name)
        yield f"tcp:host=127.0.0.1,port=1;unix:guid=0,abstract=%2f{name[1:]}"


REFUSING = """<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>
    <policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><deny own="*"/></policy></busconfig>"""


@pytest.fixture
def refusing_bus(desktop, tmp_path):
    """The address of a bus that gives nobody a name."""
    (tmp_path / "refusing.conf").write_text(REFUSING)
    return desktop.start_bus("refusing", f"--config-file={tmp_path / 'refusing.conf'}")


@pytest.mark.parametrize("bus", ["mute_bus", "full_bus", "refusing_bus"])
def test_a_bus_that_is_of_no_use_costs_a_second_and_no_start(launcher, display, request, bus):
    launcher.environment["DBUS_SESSION_BUS_ADDRESS"] = request.getfixturevalue(bus)
    began = time.monotonic()
    launcher.process = launcher.desktop.spawn([launcher.program], launcher.environment, log="launcher")
    wait_until(lambda: display.is_grabbed(launcher.hot_key), "the hot key is taken")
    assert time.monotonic() - began < 4
    began = time.monotonic()
    assert launcher.command("--show").returncode == 0
    launcher.wait_open()
    assert launcher.command("--quit").returncode == 0
    assert time.monotonic() - began < 4
    assert launcher.wait_exit() == 0


def test_questions_and_mistakes_are_answered_without_a_running_program(launcher, desktop):
    for arguments, code, expected in (
            (("--version",), 0, "tavik-launcher 0."), (("--version",), 0, "\ndisplay: X11\n"),
            (("--help",), 0, "--toggle"), (("",), 2, "unknown option \n"),
            (("%1",), 2, "unknown option %1\nUsage:"), (("--show", "--quit"), 2, "one option at a time"),
            (("--quit=now",), 2, "--quit takes no value"),
            (("--settings=%1",), 2, 'no section "%1"; there are general, shortcut, appearance, ')):
        answer = launcher.command(*arguments)
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
    assert "\n[!!] Trigger: " in "\n" + launcher.command("--check-desktop").stdout
    launcher.command("--toggle")
    launcher.wait_open()
    assert launcher.defaults()["LauncherSettings.hotKeyConfig"] == hot_key_record(launcher.hot_key)
