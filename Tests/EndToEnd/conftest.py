# SPDX-License-Identifier: MIT
"""The fixtures of the end-to-end journeys."""
import contextlib
import os
import pathlib
import re
import sys

import pytest
from Xlib.error import ConnectionClosedError

sys.path.insert(0, str(pathlib.Path(__file__).parent))

from harness.desktop import Desktop, DesktopOptions  # noqa: E402
from harness.launcher import Launcher  # noqa: E402
from harness.notifier_host import NotifierHost  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAM = pathlib.Path(os.environ.get("TAVIK_LAUNCHER", ROOT / "build" / "release" / "tavik-launcher"))
PICTURES = ROOT / "build" / "screenshots" / "e2e"


def pytest_configure(config):
    config.addinivalue_line("markers", "desktop(**options): what the virtual desktop is made of")


def pytest_runtest_logreport(report):
    if report.skipped and (told := os.environ.get("TAVIK_SKIPPED")):
        with open(told, "a") as skipped:
            skipped.write(f"{report.nodeid}\t{report.longrepr[2].removeprefix('Skipped: ')}\n")


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    report = (yield).get_result()
    if report.when == "call" and report.failed and "desktop" in item.funcargs:
        desktop = item.funcargs["desktop"]
        with contextlib.suppress(ConnectionClosedError):  # A journey may be about a display that goes.
            _picture(desktop, item, "failed")
        report.sections.append(("launcher's log", desktop.log("launcher")))


def _picture_name(item):
    return re.sub(r"[^\w.-]+", "-", f"{item.path.stem}.{item.name.removeprefix('test_')}").rstrip("-")


def _picture(desktop, item, step):
    desktop.display.picture().save(PICTURES / f"{_picture_name(item)}.{step.replace(' ', '-')}.png")


@pytest.fixture
def desktop(request):
    """A desktop made as the test's `desktop` marker or its `desktop_options` parameter says."""
    assert PROGRAM.exists(), f"{PROGRAM} is not built"
    for old in PICTURES.glob(f"{_picture_name(request.node)}.*.png"):
        old.unlink()
    options = {}
    for marker in reversed(list(request.node.iter_markers("desktop"))):
        options.update(marker.kwargs)
    if hasattr(request.node, "callspec"):
        options.update(request.node.callspec.params.get("desktop_options", {}))
    with Desktop(DesktopOptions(**options)) as made:
        yield made


@pytest.fixture
def display(desktop):
    return desktop.display


@pytest.fixture
def applications(desktop):
    return desktop.applications


@pytest.fixture
def apps(request, applications):
    """Applications with the names that the journey's file has chosen, or four."""
    names = getattr(request.module, "NAMES", ("Alder", "Birch", "Cedar", "Dogwood"))
    return [applications.add(name) for name in names]


@pytest.fixture
def ring(launcher, apps):
    """The launcher, started, with these applications on the ring."""
    launcher.pin(*apps)
    return launcher.start()


@pytest.fixture
def panel(desktop):
    """A panel that shows status items, running before the launcher is."""
    with NotifierHost(desktop) as host:
        yield host


@pytest.fixture
def launcher(desktop):
    """The launcher with a free hot key, not started yet, and none of its settings changed from the
    defaults but that the welcome has been read and no hints appear."""
    made = Launcher(desktop, PROGRAM)
    yield made
    made.stop()
    assert not re.search("Sanitizer|runtime error:", desktop.log("launcher")), desktop.log("launcher")


@pytest.fixture(scope="session")
def staged_program():
    """The launcher with updates and a permission that a journey plays."""
    made = pathlib.Path(os.environ["TAVIK_LAUNCHER_STAGED"])
    assert made.exists(), f"{made} is not built"
    return made


@pytest.fixture
def look(request, desktop):
    """Keeps a picture of the screen, for people to look at: look("after typing")."""
    return lambda step: _picture(desktop, request.node, step)
