#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Starts the launcher on a virtual desktop with a few real programs, summons the ring over them, and
leaves a picture. The user's own settings are not touched. Used by ./run where there is no display."""
import argparse
import pathlib
import signal
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "Tests" / "EndToEnd"))

from harness import processes  # noqa: E402
from harness.desktop import Desktop, DesktopOptions  # noqa: E402
from harness.launcher import IN_BACKGROUND, TITLE, Launcher  # noqa: E402
from harness.waiting import wait_until  # noqa: E402

ENTRIES = pathlib.Path("/usr/share/applications")
# In the ring's order; those of the first group are started before the ring is summoned.
RUNNING = ("gucharmap", "galculator")
PINNED = (
    "org.xfce.mousepad", *RUNNING, "lxterminal", "pcmanfm", "gpicview", "lxtask", "xarchiver", "xfce-wm-settings", "debian-xterm")
PLACE = (1010, 580)
BACKGROUND = ("-add", "#274b7a", "-add", "#5f5590", "-add", "#a8698e", "-gradient", "140")


def guest(desktop, program):
    """A launcher that offers what is installed on this machine."""
    launcher = Launcher(desktop, program)
    launcher.environment = {}
    present = [ENTRIES / f"{name}.desktop" for name in PINNED]
    launcher.settings(permanentAppPaths=[str(entry) for entry in present if entry.exists()], searchesAllApps=True)
    return launcher


def open_windows(desktop):
    for name in RUNNING:
        entry = ENTRIES / f"{name}.desktop"
        if not entry.exists():
            continue
        before = set(desktop.display.root_property("_NET_CLIENT_LIST") or [])
        desktop.spawn(["gio", "launch", str(entry)], log=name)
        wait_until(
            lambda seen=before: set(desktop.display.root_property("_NET_CLIENT_LIST") or []) - seen,
            f"{name} has opened a window", 20)


def run(program, arguments, picture):
    options = DesktopOptions(width=1400, height=860, background=BACKGROUND)
    with Desktop(options) as desktop:
        launcher = guest(desktop, program)
        launcher.process = desktop.spawn(
            [launcher.program, *(arguments or IN_BACKGROUND)], launcher.environment, log="launcher")
        try:
            wait_until(lambda: launcher.exited() or launcher.display.is_grabbed(launcher.hot_key), "the program answers")
            if not launcher.exited():
                open_windows(desktop)
                launcher.wait_indexed()
                summon(launcher)
                desktop.display.picture().save(picture)
                print(f"No display here: the ring was summoned on a virtual one. Picture: {picture}")
                launcher.command("--quit")
            code = launcher.wait_exit()
        finally:
            processes.end(launcher.process)
            sys.stdout.write(desktop.log("launcher"))
    return code


def summon(launcher):
    if launcher.window():  # The arguments have asked for it already.
        launcher.display.press(launcher.hot_key)
        launcher.wait_hidden()
    launcher.summon(*PLACE)
    time.sleep(0.3)  # Icons that were decoded while the ring was open are drawn by now.
    launcher.wait_still()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--picture", required=True)
    parser.add_argument("program", help=f"the binary whose window is titled {TITLE!r}")
    parser.add_argument("arguments", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    # A termination ends the block above as an interrupt does, so that nothing is left running.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    try:
        return run(options.program, options.arguments, options.picture)
    except AssertionError as failure:
        print(failure, file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main())
