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
    """The accessible panel of the ring at the moment of asking."""

    def __init__(self, desktop):
        nodes = [node for tree in accessibility.trees(desktop) for node in accessibility.flatten(tree)]
        panels = [node for node in nodes if node["name"] == "Tavik Launcher" and node["role"] == "panel"]
        self.node = panels[0] if panels else None
        self.nodes = list(accessibility.flatten(self.node)) if panels else []

    @property
    def slots(self):
        return [node for node in self.nodes if node["role"] == "push button"]

    def names(self):
        return [slot["name"] for slot in self.slots]

    def selected(self):
        return [slot["name"] for slot in self.slots if {"selected", "focused"} & set(slot["states"])]

    def texts(self):
        return {text for node in self.nodes for text in (node["text"], node["name"]) if text}


def wait_panel(desktop, condition, what):
    def panel():
        seen = Panel(desktop)
        return seen if seen.node and condition(seen) else None

    return wait_until(panel, what)


def test_the_slots_are_buttons_named_after_their_applications(ring, desktop, look):
    look("open")
    panel = wait_panel(desktop, lambda p: p.names() == ["Alder", "Birch", "Cedar"], "three buttons in order")
    assert ["running" in slot["description"] for slot in panel.slots] == [True, False, False]
    assert {"showing", "visible"} <= set(panel.slots[0]["states"])


def test_the_selection_and_the_filter_are_told(ring, desktop, display):
    display.press("Right")
    wait_panel(desktop, lambda p: p.selected() == ["Birch"], "the second slot is selected")
    display.type("ced")
    panel = wait_panel(desktop, lambda p: p.names() == ["Cedar"], "one slot is left")
    assert panel.selected() == ["Cedar"]
    assert any(node["text"] == "ced" for node in panel.nodes), "the filter's text is told"
    display.type("zz")
    panel = wait_panel(desktop, lambda p: p.names() == [], "no slot is left")
    assert "No matches" in panel.texts()
