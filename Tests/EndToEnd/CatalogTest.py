# SPDX-License-Identifier: MIT
"""The applications on disk: the cache file, and changes while the program runs."""
import json

import pytest

from harness.waiting import wait_until


@pytest.fixture
def searching(launcher):
    launcher.settings(searchesAllApps=True)
    return launcher


def names(launcher):
    return [entry["name"] for entry in launcher.cache()]


def test_a_new_application_can_be_found_and_a_removed_one_not(searching, applications, display, look):
    remains = applications.add("Mulberry", "red")
    goes = applications.add("Mulch", "yellow")
    searching.start().wait_indexed()
    searching.summon(640, 400)
    display.press("Escape")
    comes = applications.add("Mulled Wine", "blue")
    goes.entry.unlink()
    wait_until(
        lambda: comes.name in names(searching) and goes.name not in names(searching), "the catalogue has changed")
    searching.summon(640, 400)
    display.type("mul")
    searching.wait_shows(comes, remains)
    look("search")


def test_the_cache_serves_the_first_search_and_drops_what_is_gone(searching, applications, display):
    kept = applications.add("Quince", "cyan")
    searching.cache_file.parent.mkdir(parents=True)
    searching.cache_file.write_text(json.dumps([
        {"name": "Quince", "path": kept.path},
        {"name": "Quail", "path": "/nowhere/quail.desktop"},
    ]))
    searching.start().summon(640, 400)
    display.type("qu")
    searching.wait_shows(kept)
    wait_until(lambda: "Quail" not in names(searching), "the walk has rewritten the cache")


def test_three_thousand_applications_do_not_delay_the_first_summon(searching, applications, display, look):
    applications.add_many(3000)
    wanted = applications.add("Xylophone", "magenta")
    searching.pin(wanted)
    searching.start().summon(640, 400)
    searching.wait_shows(wanted)
    wait_until(lambda: searching.cache_file.exists() and len(searching.cache()) > 3000, "all are catalogued", 30)
    display.type("xyl")
    searching.wait_shows(wanted)
    look("search")
