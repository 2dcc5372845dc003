# SPDX-License-Identifier: MIT
"""The applications on disk: the cache file, and changes while the program runs."""
from harness.waiting import wait_until


def names(launcher):
    return [entry["name"] for entry in launcher.cache()]


def test_a_new_application_can_be_found_and_a_removed_one_not(launcher, applications, display, look):
    launcher.settings(searchesAllApps=True)
    remains = applications.add("Mulberry", "red")
    goes = applications.add("Mulch", "yellow")
    launcher.start().wait_indexed()
    launcher.summon(640, 400)
    display.press("Escape")
    comes = applications.add("Mulled Wine", "blue")
    goes.entry.unlink()
    wait_until(
        lambda: comes.name in names(launcher) and goes.name not in names(launcher), "the catalogue has changed")
    launcher.summon(640, 400)
    display.type("mul")
    launcher.wait_shows(comes, remains)
    look("search")
