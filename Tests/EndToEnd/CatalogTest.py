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


def test_an_entry_written_in_place_shows_within_two_seconds(launcher, applications, desktop):
    old = applications.add("Mulberry")
    launcher.start().wait_indexed()
    text = old.entry.read_text()
    empty = old.entry.with_name("org.example.filled.desktop")
    empty.touch()
    wait_until(lambda: "Mulberry" in names(launcher), "the entry is known")
    old.entry.write_text(text.replace("Name=Mulberry", "Name=Medlar"))
    empty.write_text(text.replace("Name=Mulberry", "Name=Sorb"))
    wait_until(lambda: {"Medlar", "Sorb"} <= set(names(launcher)), "both are known anew", timeout=2)
