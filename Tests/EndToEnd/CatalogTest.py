# SPDX-License-Identifier: MIT
"""The applications on disk: the cache file, and changes while the program runs."""
from harness.waiting import wait_until


def test_what_comes_goes_or_is_written_in_place_is_found_as_it_is_now(launcher, applications, display, look):
    launcher.settings(searchesAllApps=True)
    remains, goes, old = applications.add("Mulberry", "red"), applications.add("Mulch", "yellow"), applications.add("Sloe")
    launcher.start().wait_indexed()
    launcher.summon(640, 400)
    display.press("Escape")

    def is_known(*names):
        return {entry["name"] for entry in launcher.cache()} == {remains.name, *names}

    goes.entry.unlink()
    comes = applications.add("Mulled Wine", "blue")
    text = old.entry.read_text()
    empty = old.entry.with_name("org.example.filled.desktop")
    empty.touch()
    wait_until(lambda: is_known(comes.name, "Sloe"), "the catalogue has changed")
    old.entry.write_text(text.replace("Name=Sloe", "Name=Medlar"))
    empty.write_text(text.replace("Name=Sloe", "Name=Sorb"))
    wait_until(lambda: is_known(comes.name, "Medlar", "Sorb"), "both are known anew", timeout=2)
    launcher.summon(640, 400)
    display.type("mul")
    launcher.wait_shows(comes, remains)
    look("search")
