# SPDX-License-Identifier: MIT
"""What becomes of an application that the ring starts or raises."""
import os

import pytest

from harness import processes
from harness.waiting import stays, wait_front, wait_until
from harness.window_managers import leave_desktop, switching_managers, under


@pytest.fixture
def ring(launcher, apps):
    launcher.pin(*apps)
    return launcher.start(environment={"TAVIK_TEST_MARK": "kept", "LC_NUMERIC": "C"})


@pytest.mark.parametrize("end", ["quit", "kill"])
def test_a_launched_program_shows_its_window_and_outlives_the_launcher(ring, apps, display, look, end):
    ring.launch(0)
    start = apps[0].wait_started()
    window = wait_front(display, "Alder")
    look("started")
    assert start["session"] != os.getsid(ring.process.pid), "it has a session of its own"
    if end == "quit":
        ring.quit()
    else:
        ring.process.kill()
        ring.wait_exit()
    stays(lambda: processes.is_alive(start["pid"]) and display.is_viewable(window), "the program lives on")


def test_a_launched_program_sees_the_users_environment_and_nothing_of_ours(ring, apps, desktop, display):
    ring.launch(0)
    given = apps[0].wait_started()["environment"]
    expected = {**desktop.environment, **ring.environment}
    allowed = {"GIO_LAUNCHED_DESKTOP_FILE", "GIO_LAUNCHED_DESKTOP_FILE_PID", "DESKTOP_STARTUP_ID",
               "XDG_ACTIVATION_TOKEN"}
    assert {name: value for name, value in given.items() if name not in allowed} == expected
    assert given["GIO_LAUNCHED_DESKTOP_FILE"] == apps[0].path


@under(*switching_managers())
def test_applications_come_up_from_everywhere(ring, apps, desktop, display, look, desktop_options):
    ring.launch(0)
    window = wait_front(display, "Alder")
    leave_desktop(desktop, display)
    wait_until(lambda: not display.has_focus(window), "its desktop is left")
    ring.launch(0)
    wait_until(lambda: display.has_focus(window) and display.is_viewable(window), "it is up again")
    look("up again")
    assert len(apps[0].starts()) == 1
