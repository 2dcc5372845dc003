# SPDX-License-Identifier: MIT
"""The wheel in the desktop's tray and its menu, as panels see them, and a desktop without any."""
import stat

import pytest

from harness.notifier_host import NotifierHost
from harness.waiting import stays, wait_until

SETTINGS = "Tavik Launcher Settings"
MENU = [
    "About Tavik Launcher", "-", "Settings... [Control+,]", "Check for Updates…", "-",
    "Show Tavik Launcher", "Repeat Tour", "Reindex Apps…", "Support…", "-", "Quit [Control+Q]",
]
NO_TRAY = "this desktop has no tray"


@pytest.fixture
def item(panel, launcher):
    launcher.start()
    return panel.wait_item()


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


@pytest.mark.parametrize("title, window", [
    ("Settings...", SETTINGS), ("About Tavik Launcher", SETTINGS), ("Repeat Tour", "Welcome to Tavik Launcher"),
    ("Reindex Apps…", "Reindex Apps"), ("Show Tavik Launcher", "Tavik Launcher"),
])
def test_every_line_of_the_menu_opens_its_window_with_the_keyboard(item, display, look, title, window):
    item.choose(title)
    opened = display.wait_for(window)
    wait_until(lambda: display.has_focus(opened), f"{window} has the keyboard")
    look("opened")


def test_support_opens_in_the_browser_and_quit_ends(panel, launcher, desktop):
    browser = desktop.home / "bin" / "xdg-open"
    browser.parent.mkdir()
    browser.write_text(f'#!/bin/sh\necho "$@" > "{desktop.home}/opened"\n')
    browser.chmod(browser.stat().st_mode | stat.S_IXUSR)
    path = f"{browser.parent}:{desktop.environment['PATH']}"
    launcher.start(environment={"PATH": path, "XDG_CURRENT_DESKTOP": "", "BROWSER": ""})
    item = panel.wait_item()
    item.choose("Support…")
    opened = wait_until(lambda: (desktop.home / "opened").exists() and (desktop.home / "opened").read_text(), "it is opened")
    assert opened.startswith("https://") and opened.strip().endswith("/support")
    item.choose("Quit")
    assert launcher.wait_exit() == 0


def test_the_item_comes_back_with_a_panel_that_restarts(panel, item, display):
    for _ in range(2):
        panel.stop()
        panel.start()
        assert [str(line) for line in panel.wait_item().menu()] == MENU
    panel.wait_item().choose("Reindex Apps…")
    display.wait_for("Reindex Apps")


def test_a_panel_that_starts_after_the_program_gets_the_item(launcher, desktop):
    launcher.start()
    with NotifierHost(desktop) as late:
        assert late.wait_item().tool_tip == "Tavik Launcher"


@pytest.mark.parametrize("tint, colour", [("0x181818", (255, 255, 255)), ("0xf0f0f0", (0, 0, 0))], ids=["dark", "light"])
@pytest.mark.desktop(background=("-solid", "#808080"))
def test_the_icon_can_be_seen_on_a_panel_that_tells_no_colour(launcher, desktop, display, look, tint, colour):
    desktop.spawn(["trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "24",
                   "--transparent", "true", "--alpha", "0", "--tint", tint])
    launcher.start()
    window = display.wait_for("Tavik Launcher", 15)
    wait_until(lambda: 16 <= display.geometry(window).width <= 24, "the icon has been docked")

    def seen():
        place = display.geometry(window)
        top_dot = round((0.5 - 0.36) * place.height)
        return display.picture().pixel(place.centre[0], place.y + top_dot)

    wait_until(lambda: seen() == colour, "the wheel stands out")
    look("panel")


@pytest.mark.desktop(has_compositor=False)
def test_a_tray_of_the_older_kind_shows_the_icon_and_its_menu(launcher, desktop, display, look):
    desktop.spawn(["trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "24"])
    launcher.start()

    # The icon lies in a small window of ours that has the program's name.
    window = display.wait_for("Tavik Launcher", 15)
    wait_until(lambda: 16 <= display.geometry(window).width <= 24, "the icon has been docked")
    display.click(*display.geometry(window).centre, button=3)
    wait_until(
        lambda: [w for w in display.all_windows() if display.is_viewable(w) and display.geometry(w).height > 150],
        "the menu is open")
    look("menu")
    for key in ("Down", "Down", "Return"):
        display.press(key)
    display.wait_for(SETTINGS)


def test_without_a_tray_the_settings_offer_themselves_once_per_login(launcher, display, desktop):
    launcher.start(by_hand=True)
    display.wait_for(SETTINGS)
    launcher.command("--quit")
    assert launcher.wait_exit() == 0
    launcher.start(by_hand=True)
    stays(lambda: display.find(SETTINGS) is None, "they do not come again", 3.5)
    wait_until(lambda: NO_TRAY in desktop.log("launcher"), "the missing tray is in the log", 10)
    assert desktop.log("launcher").count(NO_TRAY) == 1


def test_a_start_at_login_shows_nothing_unasked(launcher, display):
    launcher.start()
    stays(lambda: display.find(SETTINGS) is None and not launcher.is_shown(), "nothing is shown", 3.5)
    assert launcher.command("--background").returncode == 0
    stays(lambda: not launcher.is_shown(), "a second one shows nothing either")
