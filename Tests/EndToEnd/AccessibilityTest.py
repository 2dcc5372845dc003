# SPDX-License-Identifier: MIT
"""The ring as assistive technology sees it."""
from harness import accessibility
from harness.settings_window import ENVIRONMENT
from harness.waiting import wait_until



def wait_slots(desktop, *names, selected=None, text=None):
    """Waits until these are the ring's buttons, in order, and returns them."""
    def seen():
        nodes = [node for tree in accessibility.trees(desktop) for node in accessibility.flatten(tree)]
        panel = next((node for node in nodes if (node["name"], node["role"]) == ("Tavik Launcher", "panel")), None)
        inner = list(accessibility.flatten(panel)) if panel else []
        slots = [node for node in inner if node["role"] == "push button"]
        chosen = [slot["name"] for slot in slots if {"selected", "focused"} & set(slot["states"])]
        is_right = panel and [slot["name"] for slot in slots] == list(names)
        is_right = is_right and (selected is None or chosen == [selected])
        return (slots,) if is_right and text in {None, *(node[kind] for node in inner for kind in ("text", "name"))} else None

    return wait_until(seen, f"the slots are {names}")[0]


def test_the_slots_the_selection_and_the_filter_are_told(launcher, applications, desktop, display, look):
    running = applications.add("Alder")
    launcher.pin(running, applications.add("Birch"), applications.add("Cedar"))
    desktop.open(running)
    display.wait_for("Alder")
    launcher.start(environment=ENVIRONMENT).summon(640, 400)
    look("open")
    slots = wait_slots(desktop, "Alder", "Birch", "Cedar")
    assert [slot["description"] for slot in slots] == ["running, 1 of 3", "2 of 3", "3 of 3"]
    assert {"showing", "visible"} <= set(slots[0]["states"])
    display.press("Right")
    wait_slots(desktop, "Alder", "Birch", "Cedar", selected="Birch")
    display.type("ced")
    wait_slots(desktop, "Cedar", selected="Cedar", text="ced")
    display.type("zz")
    wait_slots(desktop, text="No matches")


def test_what_the_filter_finds_is_announced(launcher, applications, desktop, display):
    launcher.pin(*map(applications.add, ("Cedar", "Alder", "Calla")))
    launcher.start(environment=ENVIRONMENT).summon(640, 400)
    wait_slots(desktop, "Cedar", "Alder", "Calla")
    with accessibility.heard(desktop) as events:
        for letter, told, selected in (("c", "2 matches", "Calla"), ("e", "1 match", "Cedar"), ("z", "No matches", None)):
            display.type(letter)
            wait_until(lambda: ("object:state-changed:showing", "notification", told) in events(), told)
            # The first slot has another application now, and the reader has spoken of it before.
            assert not selected or ("object:property-change:accessible-name", "push button", selected) in events()
