# SPDX-License-Identifier: MIT
"""How soon the ring comes on Wayland desktops, beside the least that a program can show there."""
import shutil
import sys
import time

from harness.launcher import BUS_NAME, IN_BACKGROUND, Launcher
from harness.waiting import wait_until
from harness.wayland import KWin, Sway

FLOOR = "org.tavik.EmptyLayer"
# Milliseconds beyond the empty layer: the pointer is found first, which takes KWin a frame.
LIMITS = {Sway: 5, KWin: 25}


def toggles(name, bus_name):
    """Both get the same call, by a program that takes as long to start."""
    return (f"{name}=toggle:gdbus call --session --dest {bus_name} --object-path /org/tavik/Launcher "
            "--method org.freedesktop.Application.ActivateAction toggle-launcher [] {} >/dev/null")


def measure_wayland(table, build, rounds, pinned):
    for kind, limit in LIMITS.items():
        if not shutil.which(kind.program) or not (build / "EmptyLayer").exists():
            continue
        print(f"… {kind.program}", file=sys.stderr)
        with kind(False) as desktop:
            launcher = Launcher(desktop, build / "tavik-launcher")
            launcher.pin(*(desktop.applications.add(f"Pinned {index}") for index in range(pinned)))
            desktop.spawn([str(build / "EmptyLayer")], log="floor")
            wait_until(lambda: "ready" in desktop.log("floor"), "the floor program is ready")
            launcher.process = desktop.spawn([launcher.program, *IN_BACKGROUND], launcher.environment, log="launcher")
            wait_until(lambda: desktop.name_has_owner(BUS_NAME), "the launcher is on the bus")
            time.sleep(2)
            answer = desktop.run(
                [str(build / "SummonLatency"), "--rounds", str(rounds), toggles("floor", FLOOR), toggles("ring", BUS_NAME)],
                {"DISPLAY": desktop.display_name}, timeout=rounds * 12 + 60)
            launcher.stop()
        if answer.returncode != 0:
            print(f"{kind.program}: rounds without an answer\n{answer.stdout}{answer.stderr}", file=sys.stderr)
        words = [line.split("\t") for line in answer.stdout.splitlines()]
        floor, ring = ([None if each == "-" else float(each) for each in (median, p95)] for _, median, p95, *_ in words)
        table.add(f"{kind.program}: call to first pixel, empty layer surface", *floor)
        table.add(f"{kind.program}: call to first pixel, ring", *ring)
        table.add(f"{kind.program}: ring beyond the empty layer surface",
                  ring[0] - floor[0] if ring[0] and floor[0] else None, limit=limit)
