# SPDX-License-Identifier: MIT
"""A newer version: the quiet reminder, and the window that comes to the pointer. How it takes the place of the
old one is a journey of the packages."""
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time

import pytest
from gi.repository import GLib

from harness import accessibility
from harness.desktop import Monitor
from harness.launcher import Launcher
from harness.processes import descendants, is_alive
from harness.update_feed import UpdateFeed
from harness.waiting import stays, wait_front, wait_until

TITLE = "Software Update"
REMINDER = "Update to 2.1 Available…"
NOTIFICATIONS = "org.freedesktop.Notifications"
CHECK = "Check for Updates…"
TWO_MONITORS = (Monitor("left", 0, 0, 900, 900), Monitor("right", 900, 0, 900, 900))
IMAGE_MARK = b"AI\x02"  # Where a program's header has room to spare.
FILE_SYSTEM = b"hsqs\0\0\0\0\1\0\0\0"  # The beginning of one, made a second after 1970.


@pytest.fixture
def feed():
    with UpdateFeed() as made:
        yield made


@pytest.fixture(scope="session")
def image(staged_program, tmp_path_factory):
    """The launcher as an image: the program itself, marked as one, without what only a debugger reads."""
    stripped = tmp_path_factory.mktemp("image") / "stripped"
    subprocess.run(["strip", "-o", stripped, staged_program], check=True)
    content = stripped.read_bytes()
    return content[:8] + IMAGE_MARK + content[8 + len(IMAGE_MARK):] + FILE_SYSTEM


@pytest.fixture
def installed(desktop, image):
    """The image as the user keeps it."""
    path = desktop.home / "Tavik.AppImage"
    path.write_bytes(image)
    path.chmod(0o755)
    return path


@pytest.fixture
def launcher(desktop, staged_program, feed, installed, image):
    """The launcher as it runs from an image: below a folder to which the image has been mounted."""
    mounted = desktop.home / "mounted" / "tavik-launcher"
    mounted.parent.mkdir()
    mounted.write_bytes(image)
    mounted.chmod(0o755)
    shutil.copy(staged_program.with_name("tavik-launcher-fetch"), mounted.parent)
    made = Launcher(desktop, mounted)
    made.environment |= {
        **feed.environment, "APPIMAGE": str(installed), "APPDIR": str(mounted.parent),
        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
    }
    yield made
    made.stop()


def badge(item):
    """The colour in the middle of the icon's badge, at the upper right."""
    side = max(item.icon_sides())
    pixels = [pixel for row in item.icon(side)[: side // 2] for pixel in row[side // 2:]]
    return max(pixels, key=lambda pixel: pixel[0] - pixel[1] if pixel[3] > 200 else -255)


def is_red(pixel):
    return pixel[3] > 200 and pixel[0] > 2 * pixel[1] and pixel[0] > 2 * pixel[2]


def test_a_scheduled_update_is_a_quiet_reminder_until_the_user_asks(
        launcher, panel, feed, image, display, desktop, look):
    feed.offer("2.1", image)
    launcher.start("--background")
    item = panel.wait_item()
    assert CHECK in [line.title for line in item.menu()] and not is_red(badge(item))
    wait_until(lambda: REMINDER in [line.title for line in item.menu()], "the menu tells of the update", 15)
    assert CHECK not in [line.title for line in item.menu()]
    wait_until(lambda: is_red(badge(item)), "the icon has its badge")
    assert item.tool_tip == "Tavik Launcher — update available"
    stays(lambda: display.find(TITLE) is None, "no window is shown", 1)
    assert feed.requests == ["/feed.xml"], "and nothing is downloaded unasked"

    item.choose(REMINDER)
    wait_front(display, TITLE)
    wait_until(lambda: CHECK in [line.title for line in item.menu()], "the reminder is gone")
    wait_until(lambda: not is_red(badge(item)), "and the badge")
    accessibility.wait_text(desktop, "Version 2.1 is out; you have 2.0.")
    look("found")
    display.press("Escape")
    display.wait_gone(TITLE)


def test_where_there_is_no_tray_the_desktop_shows_a_notice(launcher, feed, image, display, desktop):
    desktop.spawn([sys.executable, "-m", "dbusmock", "--template", "notification_daemon"], log="notices")
    wait_until(lambda: desktop.name_has_owner(NOTIFICATIONS), "the desktop shows notices")
    feed.offer("2.1", image)
    launcher.start("--background")
    wait_until(lambda: REMINDER in desktop.log("notices"), "a notice tells of the update", 15)
    stays(lambda: display.find(TITLE) is None, "no window is shown", 0.5)
    chosen = [GLib.Variant("u", 1), GLib.Variant("s", "default")]
    desktop.call(NOTIFICATIONS, "/org/freedesktop/Notifications", "org.freedesktop.DBus.Mock.EmitSignal", "(sssav)",
                 (NOTIFICATIONS, "ActionInvoked", "us", chosen))
    wait_front(display, TITLE)
    wait_until(lambda: "CloseNotification 1" in desktop.log("notices"), "the notice is gone")


@pytest.mark.desktop(width=1800, height=900, monitors=TWO_MONITORS)
def test_a_check_by_the_user_comes_to_the_pointer(
        launcher, feed, image, installed, display, desktop, look):
    feed.offer("2.1", image + b"newer")
    launcher.start("--background")
    display.move_pointer(1350, 450)
    assert launcher.command("--check-for-updates").returncode == 0
    accessibility.wait_text(desktop, "A new version of Tavik Launcher is available.")
    opened = wait_front(display, TITLE)
    wait_until(
        lambda: all(abs(a - b) <= 16 for a, b in zip(display.geometry(opened).centre, (1350, 450))),
        "the window is in the middle of the pointer's monitor")
    look("found")
    place = display.geometry(opened)
    display.move_pointer(100, 100)
    stays(lambda: display.geometry(opened) == place, "it is moved once", 0.5)
    display.press("Return")
    accessibility.wait_text(desktop, "Ready to install")
    look("ready")
    assert installed.read_bytes() == image, "nothing is changed before the last word"


def type_until(display, condition, what):
    """Types on, 20 keys a second, until `condition()` and for a second more."""
    began, seen, typed = time.monotonic(), None, 0
    while not seen or time.monotonic() < seen + 1:
        assert time.monotonic() < began + 20, what
        display.press(("x", "space", "Return")[typed % 3])
        typed += 1
        time.sleep(0.05)
        seen = seen or (time.monotonic() if typed % 5 == 0 and condition() else None)
    return typed


@pytest.mark.parametrize("desktop_options", [{"window_manager": name} for name in ("openbox", "xfwm4", "metacity")])
def test_who_types_elsewhere_installs_nothing_when_the_download_ends(
        desktop_options, launcher, feed, image, installed, display, desktop, look):
    feed.offer("2.1", image + b"newer")
    launcher.start("--background")
    launcher.command("--check-for-updates")
    wait_front(display, TITLE)
    accessibility.wait_text(desktop, "A new version of Tavik Launcher is available.")
    feed.goes_on.clear()
    display.press("Return")
    accessibility.wait_text(desktop, "Downloading")
    heard = desktop.home / "typed"
    desktop.spawn(["xterm", "-T", "Terminal", "-e", f"cat > {heard}"])
    terminal = wait_front(display, "Terminal")
    feed.goes_on.set()
    typed = type_until(
        display, lambda: accessibility.find(desktop, "Install and Relaunch"), "it is ready to install")
    look("ready")
    assert display.find(TITLE) and display.has_focus(terminal)
    wait_until(lambda: heard.stat().st_size >= typed // 3 * 3, "the terminal has every key")
    assert not launcher.exited() and installed.read_bytes() == image


def test_who_types_into_the_settings_skips_nothing_that_the_schedule_finds(
        launcher, feed, image, display, desktop, look):
    feed.offer("2.1", image)
    launcher.start("--background")
    launcher.command("--settings=general")
    wait_front(display, "Tavik Launcher Settings")
    type_until(display, lambda: display.find(TITLE), "the update is shown")
    look("found")
    assert display.find(TITLE) and feed.requests == ["/feed.xml"]
    assert "Updater.skippedVersion" not in launcher.defaults()


@pytest.mark.parametrize("ending", [signal.SIGKILL, signal.SIGTERM, None], ids=["killed", "ended", "cancelled"])
def test_what_fetches_ends_with_whoever_wants_it(launcher, feed, image, desktop, display, ending):
    feed.offer("2.1", image)
    feed.goes_on.clear()
    launcher.start("--background")
    launcher.command("--check-for-updates")
    fetching, = wait_until(lambda: descendants(launcher.process.pid), "a process fetches")
    wait_until(lambda: feed.requests, "and has asked")
    opened = [os.readlink(entry) for entry in pathlib.Path(f"/proc/{fetching}/fd").iterdir()]
    assert not [name for name in opened if "inotify" in name or "tavik-launcher" in name], "nothing of ours is open there"
    os.kill(fetching, signal.SIGSTOP)  # Whatever it is busy with.
    if ending:
        launcher.process.send_signal(ending)
        launcher.process.wait(5)
    else:
        wait_front(display, TITLE)
        display.press("Escape")
    wait_until(lambda: not is_alive(fetching), "it is gone", 1)


def test_a_build_without_a_feed_says_so(desktop, launcher, display, look):
    launcher.environment["TAVIK_TEST_FEED"] = ""
    launcher.start("--background")
    launcher.command("--check-for-updates")
    accessibility.wait_text(desktop, "This build is not updated by itself.")
    look("answer")
    display.press("Escape")
    display.wait_gone(TITLE)
