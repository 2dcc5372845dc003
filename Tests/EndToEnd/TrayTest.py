# SPDX-License-Identifier: MIT
"""The wheel in the desktop's tray and its menu, as panels see them, and a desktop without any."""
import pytest

from harness import services
from harness.notifier_host import NotifierHost
from harness.waiting import stays, wait_front, wait_until

SETTINGS = "Tavik Launcher Settings"
MENU = [
    "About Tavik Launcher", "-", "Settings... [Control+,]", "Check for Updates…", "-",
    "Show Tavik Launcher", "Repeat Tour", "Reindex Apps…", "Support…", "-", "Quit [Control+Q]",
]


@pytest.fixture
def item(panel, launcher):
    launcher.start()
    return panel.wait_item()


def docked(display):
    """The small window of ours that a tray of the older kind has taken up; it has the program's name."""
    window = display.wait_for("Tavik Launcher", 15)
    wait_until(lambda: 16 <= display.geometry(window).width <= 24, "the icon has been docked")
    return window


def start_trayer(desktop, *options):
    desktop.spawn(["trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "24", *options])


def alpha(icon, x, y):
    return icon[y][x][3]


def test_the_menu_and_the_icon_read_as_they_should(item):
    assert [str(line) for line in item.menu()] == MENU
    assert all(line.is_enabled for line in item.menu())
    properties = item.properties()
    assert properties["Title"] == item.tool_tip == "Tavik Launcher"
    assert (properties["Category"], properties["Status"]) == ("ApplicationStatus", "Active")
    assert {16, 22, 24, 32} <= set(item.icon_sides())
    for side in item.icon_sides():
        icon = item.icon(side)
        middle, reach = side // 2, round(0.36 * side)
        assert alpha(icon, middle, middle) == 0, "the middle is empty without an update"
        assert alpha(icon, middle, middle - reach) > 200, "a dot is at the top"
        assert alpha(icon, middle, middle + reach - 1) > 200, "and one at the bottom"
        assert alpha(icon, 0, 0) == alpha(icon, side - 1, 0) == 0


def test_the_menu_speaks_the_language_of_the_session(panel, launcher):
    launcher.start(environment={"LANG": "de_DE.UTF-8"})
    assert [line.title for line in panel.wait_item().menu()][-1] == "Beenden"


def test_every_line_of_the_menu_opens_its_window_with_the_keyboard(item, display):
    for title, window in (
            ("Show Tavik Launcher", "Tavik Launcher"), ("Settings...", SETTINGS), ("About Tavik Launcher", SETTINGS),
            ("Repeat Tour", "Welcome to Tavik Launcher"), ("Reindex Apps…", "Reindex Apps")):
        item.choose(title)
        opened = wait_front(display, window)
        if window != "Tavik Launcher":
            display.close_window(opened)
            display.wait_gone(window)


def test_support_opens_in_the_browser_and_quit_ends(panel, launcher, desktop):
    browser, opened = desktop.home / "browser", desktop.home / "opened"
    browser.write_text(f'#!/bin/sh\necho "$1 $LD_LIBRARY_PATH" > {opened}.part; mv {opened}.part {opened}\n')
    browser.chmod(0o700)
    entries = desktop.home / "data" / "applications"
    entries.mkdir(parents=True, exist_ok=True)
    (entries / "browser.desktop").write_text(f"[Desktop Entry]\nType=Application\nName=Browser\nExec={browser} %u\n")
    (desktop.home / "config" / "mimeapps.list").write_text(
        "[Default Applications]\nx-scheme-handler/https=browser.desktop\n")
    # From an image that brings libraries of its own, which are no browser's.
    launcher.start(environment={
        "APPDIR": "/tmp/.mount", "APPIMAGE": "/tmp/Tavik.AppImage", "LD_LIBRARY_PATH": "/tmp/.mount/usr/lib"})
    item = panel.wait_item()
    item.choose("Support…")
    wait_until(opened.exists, "it is opened")
    assert opened.read_text().startswith("https://") and opened.read_text().endswith("/support \n")
    item.choose("Quit")
    assert launcher.wait_exit() == 0


def test_the_item_comes_to_a_panel_that_starts_late_and_comes_back_with_it(launcher, desktop, display):
    launcher.start()
    for _ in range(3):
        with NotifierHost(desktop) as panel:
            assert [str(line) for line in panel.wait_item().menu()] == MENU
            panel.wait_item().choose("Reindex Apps…")
            display.close_window(display.wait_for("Reindex Apps"))


@pytest.mark.parametrize("tint, colour", [("0x181818", (255, 255, 255)), ("0xf0f0f0", (0, 0, 0))], ids=["dark", "light"])
@pytest.mark.desktop(background=("-solid", "#808080"))
def test_the_icon_can_be_seen_on_a_panel_that_tells_no_colour(launcher, desktop, display, look, tint, colour):
    start_trayer(desktop, "--transparent", "true", "--alpha", "0", "--tint", tint)
    launcher.start()
    window = docked(display)

    def seen():
        place = display.geometry(window)
        top_dot = round((0.5 - 0.36) * place.height)
        return display.picture().pixel(place.centre[0], place.y + top_dot)

    wait_until(lambda: seen() == colour, "the wheel stands out")
    look("panel")


@pytest.mark.desktop(has_compositor=False)
@pytest.mark.parametrize("button", [1, 3])
def test_a_tray_of_the_older_kind_shows_the_icon_and_its_menu(launcher, desktop, display, look, button):
    start_trayer(desktop)
    launcher.start()
    display.click(*display.geometry(docked(display)).centre, button=button)
    wait_until(
        lambda: [w for w in display.all_windows() if display.is_viewable(w) and display.geometry(w).height > 150],
        "the menu is open")
    look("menu")
    display.press("Down", "Down", "Return")
    display.wait_for(SETTINGS)


def test_without_a_tray_the_settings_offer_themselves_once_per_login_to_who_starts_it(launcher, display):
    def starts(by_hand, shows_settings):
        launcher.start(by_hand=by_hand)
        if shows_settings:
            display.wait_for(SETTINGS)
        else:
            stays(lambda: display.find(SETTINGS) is None and not launcher.is_shown(), "nothing is shown", 3.4)
        launcher.quit()

    starts(by_hand=False, shows_settings=False)
    starts(by_hand=True, shows_settings=True)
    starts(by_hand=True, shows_settings=False)


def test_without_a_tray_a_notice_tells_of_a_lost_shortcut_and_opens_the_settings(launcher, desktop, display):
    notices = services.notifications(desktop)
    launcher.start()
    desktop.run(["xmodmap", "-e", "clear mod1"])  # Now no key is Alt.
    *_, title, _text, _actions, _hints, _patience = notices.wait_called()
    assert title == f"{launcher.hot_key} cannot be had."
    interface = "org.freedesktop.Notifications"
    notices.signal("/org/freedesktop/Notifications", interface, "ActionInvoked", "(us)", 1, "default")
    wait_front(display, SETTINGS)
