# SPDX-License-Identifier: MIT
"""The settings window as a user and assistive technology see it."""
from harness import accessibility
from harness.display import Rect
from harness.waiting import wait_front, wait_until

TITLE = "Tavik Launcher Settings"
ENVIRONMENT = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
SWITCH, SLIDER, BUTTON, RADIO, FIELD, LIST, ITEM = (
    "check box", "slider", "push button", "radio button", "text", "list", "list item")


class Control:
    """A control as it was when it was looked for."""

    def __init__(self, node):
        self.name, self.role, self.text = node["name"], node["role"], node["text"]
        self.place = Rect(*node["place"])
        self.is_checked = "checked" in node["states"]
        self.is_focused = "focused" in node["states"]
        self.is_enabled = "enabled" in node["states"]
        self.value = node["value"]


class SettingsWindow:
    """The settings window of one launcher, started with this module's ENVIRONMENT."""

    def __init__(self, launcher):
        self.launcher, self.desktop, self.display = launcher, launcher.desktop, launcher.display

    # --- the window

    def open(self, section=None):
        """Opens the window, or brings up a section, through the command line."""
        answer = self.launcher.command(f"--settings={section}" if section else "--settings")
        assert answer.returncode == 0, answer.stderr
        self.wait_open()
        self.wait_still()

    def wait_open(self):
        wait_front(self.display, TITLE)

    def wait_still(self):
        """Waits until the window manager has put the window where it is wanted."""
        places = []

        def is_still():
            places.append(self.frame())
            return places[-1] and places[-3:] == 3 * places[-1:]

        wait_until(is_still, "the settings window stands still", interval=0.03)

    def window(self):
        return self.display.find(TITLE)

    def frame(self):
        return self.display.geometry(self.window())

    def close(self):
        self.wait_open()
        self.display.press("ctrl+w")
        self.display.wait_gone(TITLE)

    # --- what is in it

    def nodes(self):
        """Every accessible object that is shown in the window."""
        def shown(node):
            # What lies in something hidden may count itself as shown.
            if "showing" in node["states"]:
                yield node
                for child in node["children"]:
                    yield from shown(child)

        for tree in accessibility.trees(self.desktop):
            for node in tree["children"]:
                if node["name"] == TITLE:
                    yield from shown(node)

    def find(self, role, name):
        """The shown control of that role whose name begins so, or None."""
        return next(
            (Control(node) for node in self.nodes() if node["role"] == role and node["name"].startswith(name)), None)

    def control(self, role, name):
        return wait_until(lambda: self.find(role, name), f"the {role} {name!r} is shown")

    def wait(self, role, name, condition, what):
        def fulfilled():
            found = self.find(role, name)
            return found if found and condition(found) else None

        return wait_until(fulfilled, f"the {role} {name!r} {what}")

    def focused(self):
        # Of a list the current item counts as focused, whether the list has the keyboard or not.
        return next(
            (Control(node) for node in self.nodes() if "focused" in node["states"] and node["role"] != ITEM), None)

    def texts(self):
        return {text for node in self.nodes() for text in (node["name"], node["text"]) if text}

    def wait_text(self, text):
        wait_until(lambda: text in self.texts(), f"the window says {text!r}")

    # --- hands

    def click(self, role, name):
        self.display.click(*self.control(role, name).place.centre)

    def focus(self, role, name):
        """Goes to a control with the Tab key alone."""
        for _ in range(60):
            stops = [Control(node) for node in self.nodes() if self._is_stop(node)]
            here = next((i for i, stop in enumerate(stops) if stop.is_focused), None)
            there = next((i for i, stop in enumerate(stops) if (stop.role, stop.name) == (role, name)), None)
            if here is not None and here == there:
                return stops[here]
            # A chain of several keys where the order is known, one by one where it is not.
            ahead = there - here if None not in (here, there) and there > here else 1
            for _ in range(ahead):
                self.display.press("Tab")
            self._wait_focus_settles()
        raise AssertionError(f"the Tab key does not reach the {role} {name!r}")

    def _wait_focus_settles(self):
        seen = []

        def is_settled():
            here = self.focused()
            seen.append(here and (here.role, here.name))
            return seen[-1] and seen[-2:] == 2 * seen[-1:]

        wait_until(is_settled, "the focus stays where it is")

    @staticmethod
    def _is_stop(node):
        """Whether Tab stops there; in a group of which one is chosen it stops at that one."""
        states = node["states"]
        if "focusable" not in states or "enabled" not in states:
            return False
        return node["role"] != ITEM and (node["role"] != RADIO or "checked" in states)
