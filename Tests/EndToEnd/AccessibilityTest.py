# SPDX-License-Identifier: MIT
"""The ring as assistive technology sees it."""
import pytest

from harness import accessibility
from harness.waiting import wait_until

ENVIRONMENT = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}


@pytest.fixture
def ring(launcher, applications, desktop, display):
    running = applications.add("Alder")
    launcher.pin(running, applications.add("Birch"), applications.add("Cedar"))
    desktop.open(running)
    display.wait_for("Alder")
    launcher.start(environment=ENVIRONMENT).summon(640, 400)
    return launcher


class Panel:
    """What the ring's accessible panel says at the moment of asking."""

    def __init__(self, desktop):
        nodes = [node for tree in accessibility.trees(desktop) for node in accessibility.flatten(tree)]
        panel = [node for node in nodes if node["name"] == "Tavik Launcher" and node["role"] == "panel"]
        self.nodes = [inner for node in panel[:1] for inner in accessibility.flatten(node)]
        self.slots = [node for node in self.nodes if node["role"] == "push button"]
        self.names = [slot["name"] for slot in self.slots]
        self.selected = [slot["name"] for slot in self.slots if {"selected", "focused"} & set(slot["states"])]
        self.texts = {text for node in self.nodes for text in (node["text"], node["name"])}


def wait_panel(desktop, condition, what):
    def panel():
        seen = Panel(desktop)
        return seen if seen.nodes and condition(seen) else None

    return wait_until(panel, what)


def test_the_slots_are_buttons_named_after_their_applications(ring, desktop, look):
    look("open")
    panel = wait_panel(desktop, lambda p: p.names == ["Alder", "Birch", "Cedar"], "three buttons in order")
    assert ["running" in slot["description"] for slot in panel.slots] == [True, False, False]
    assert {"showing", "visible"} <= set(panel.slots[0]["states"])


def test_the_selection_and_the_filter_are_told(ring, desktop, display):
    display.press("Right")
    wait_panel(desktop, lambda p: p.selected == ["Birch"], "the second slot is selected")
    display.type("ced")
    panel = wait_panel(desktop, lambda p: p.names == ["Cedar"], "one slot is left")
    assert panel.selected == ["Cedar"]
    assert "ced" in panel.texts, "the filter's text is told"
    display.type("zz")
    panel = wait_panel(desktop, lambda p: p.names == [], "no slot is left")
    assert "No matches" in panel.texts
