# SPDX-License-Identifier: MIT
"""What assistive technology sees of a program, read in a process of its own: the accessibility
library binds itself to one session bus per process."""
import contextlib
import json
import pathlib
import re
import sys

with contextlib.suppress(ImportError):  # The reader's own process has no need of it.
    from harness import processes
    from harness.waiting import wait_until

READER = pathlib.Path(__file__)


def trees(desktop):
    """The accessible objects of each program on the desktop, as nested dictionaries."""
    answer = desktop.run([sys.executable, str(READER)])
    assert answer.returncode == 0, answer.stderr
    return json.loads(answer.stdout)


def flatten(node):
    """A node and everything below it."""
    yield node
    for child in node["children"]:
        yield from flatten(child)


@contextlib.contextmanager
def heard(desktop):
    """What a screen reader is told meanwhile, as a list that grows: kinds of event, roles and names."""
    process = desktop.spawn([sys.executable, str(READER), "listen"], log="heard")
    lines = lambda: [tuple(line.split("\t")) for line in desktop.log("heard").splitlines()]
    wait_until(lambda: ("listening",) in lines(), "the reader listens")
    # A program hears late of a new reader, and tells nothing before; but it answers in order.
    wait_until(lambda: trees(desktop), "the program has heard of the reader")
    yield lines
    processes.end(process)


def find(desktop, name, role=None):
    """The first accessible object of that name (and role) that has a place on the screen, or None."""
    nodes = (node for program in trees(desktop) for node in flatten(program))
    return next(
        (node for node in nodes if node["name"] == name and node["place"] and role in (None, node["role"])), None)


def wait_text(desktop, *patterns):
    """Waits until all this can be read out."""
    def is_said():
        nodes = [node for program in trees(desktop) for node in flatten(program)]
        said = "\n".join(text for node in nodes for text in (node["name"], node["text"]))
        return all(re.search(pattern, said) for pattern in patterns)

    wait_until(is_said, f"the program says {patterns}", interval=0.1)


def click(desktop, name, role=None):
    """Clicks the middle of the control of that name as soon as it is shown."""
    def shown():
        node = find(desktop, name, role)
        return node if node and "showing" in node["states"] else None

    x, y, width, height = wait_until(shown, f"there is {name!r}", interval=0.1)["place"]
    desktop.display.click(x + width // 2, y + height // 2)


def _read():
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib

    def describe(node, depth=0):
        # What goes while it is looked at was not there.
        try:
            return described(node, depth)
        except GLib.GError:
            return None

    def described(node, depth):
        states = node.get_state_set()
        children = range(min(node.get_child_count(), 200)) if depth < 24 else ()
        text = node.get_text_iface()
        value = node.get_value_iface()
        component = node.get_component_iface()
        place = component.get_extents(Atspi.CoordType.SCREEN) if component else None
        return {
            "role": node.get_role_name(),
            "name": node.get_name() or "",
            "description": node.get_description() or "",
            "states": sorted(state.value_nick for state in states.get_states()),
            "place": [place.x, place.y, place.width, place.height] if place else None,
            "value": Atspi.Value.get_current_value(value) if value else None,
            "text": Atspi.Text.get_text(text, 0, -1) if text else "",
            "children": [
                seen for i in children
                if (child := node.get_child_at_index(i)) and (seen := describe(child, depth + 1))],
        }

    desktop = Atspi.get_desktop(0)
    applications = (desktop.get_child_at_index(index) for index in range(desktop.get_child_count()))
    return [seen for application in applications if application and (seen := describe(application))]


def _listen():
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi

    def tell(event):
        if event.detail1 or event.type.startswith("object:property-change"):
            print(event.type, event.source.get_role_name(), event.source.get_name(), sep="\t", flush=True)

    listener = Atspi.EventListener.new(tell)
    for kind in ("state-changed:focused", "state-changed:showing", "property-change:accessible-name"):
        listener.register(f"object:{kind}")
    print("listening", flush=True)
    Atspi.event_main()


if __name__ == "__main__":
    _listen() if "listen" in sys.argv else print(json.dumps(_read()))
