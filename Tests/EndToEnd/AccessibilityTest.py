# SPDX-License-Identifier: MIT
"""The ring as assistive technology sees it."""
from harness import accessibility
from harness.launcher import LARGEST_ICON
from harness.settings_window import ENVIRONMENT, SLIDER, SettingsWindow
from harness.waiting import stays, wait_until

SPOKEN = (("object:state-changed:focused", "push button"), ("object:state-changed:showing", "notification"))


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


def told(events):
    """What a reader speaks of, in order: buttons that come to have the focus, and notifications."""
    return [event[-1] for event in events if event[:2] in SPOKEN]


def test_each_change_of_the_ring_is_told_once(launcher, applications, desktop, display):
    launcher.pin(*map(applications.add, ("Cedar", "Alder", "Calla")))
    launcher.start(environment=ENVIRONMENT).wait_indexed()
    with accessibility.heard(desktop) as events:
        expected = []
        for step, *news in (
                (lambda: launcher.summon(640, 400), "Cedar"), ("Right", "Alder"), ("c", "Calla"), ("a", "1 match"),
                ("z", "No matches"), ("BackSpace", "1 match"), ("BackSpace", "2 matches"), ("BackSpace", "Cedar"),
                ("z", "No matches"), ("BackSpace", "Cedar"), (launcher.dismiss,), (lambda: launcher.summon(640, 400), "Cedar")):
            step() if callable(step) else display.press(step)
            expected += news
            wait_until(lambda: told(events()) == expected, f"{expected} is told")
            stays(lambda: told(events()) == expected, "nothing is told twice", 0.2)


def test_the_ring_beside_the_settings_takes_no_focus(launcher, applications, desktop, display):
    launcher.pin(applications.add("Alder"))
    launcher.start(environment=ENVIRONMENT)
    window = SettingsWindow(launcher)
    window.open("appearance")
    display.wait_for("Tavik Launcher", wider_than=LARGEST_ICON)
    window.focus(SLIDER, "Diameter")
    with accessibility.heard(desktop) as events:
        display.press("Right")
        window.wait(SLIDER, "Diameter", lambda slider: slider.value == 321, "is moved")
        wait_slots(desktop, "Alder")
        assert told(events()) == []
    nodes = list(window.nodes())
    assert "pt. The ring's outer size" in {node["description"] for node in nodes}
    assert "layered pane" not in {node["role"] for node in nodes}
