# SPDX-License-Identifier: MIT
"""Other launchers that Debian ships, where they are installed: how soon each is on the screen, beside ours.
Each is told by a command, as a desktop's own shortcut would tell it; ours by such a command, too."""
import dataclasses
import pathlib
import shutil
import time

from harness.desktop import Desktop, DesktopOptions
from harness.launcher import Launcher
from harness.processes import end
from harness.waiting import wait_until

START_SECONDS = 3.0  # What a peer has to read its applications, as after a login.


@dataclasses.dataclass(frozen=True)
class Peer:
    """A launcher of somebody else's."""
    name: str
    command: str  # Shows it; Escape hides it.
    resident: tuple = ()  # What runs all the time, where something does.


PEERS = (
    Peer("rofi", "rofi -show drun -show-icons"),
    Peer("xfce4-appfinder", "xfce4-appfinder", ("xfce4-appfinder",)),
    Peer("synapse", "synapse", ("synapse", "--startup")),
)


class PeersBench:
    """One desktop with applications, the launcher, and whatever peers are installed."""

    def __init__(self, build, count):
        self.build, self.count = build, count
        self.desktop = Desktop(DesktopOptions())

    def __enter__(self):
        self.desktop.__enter__()
        self.desktop.applications.add_many(self.count)
        return self

    def __exit__(self, *details):
        self.desktop.__exit__(*details)

    def latency(self, name, command, rounds):
        """The median and the 95th percentile in milliseconds; None where it was not seen."""
        answer = self.desktop.run(
            [str(self.build / "SummonLatency"), "--rounds", str(rounds), f"{name}=run:exec {command} >/dev/null 2>&1"],
            timeout=rounds * 12 + 60)
        fields = answer.stdout.rstrip("\n").split("\t")
        if answer.returncode != 0 or len(fields) < 3 or fields[1] == "-":
            return None, None
        return float(fields[1]), float(fields[2])


def measure_peers(table, build, rounds, count, megabytes):
    """Adds a row of latency for each, and one of memory (`megabytes` of a process) for each that stays."""
    with PeersBench(build, count) as bench:
        launcher = Launcher(bench.desktop, build / "tavik-launcher").start()
        wait_until(lambda: launcher.cache_file.exists() and len(launcher.cache()) >= count, "all are catalogued", 60)
        own = bench.latency("tavik-launcher", f"{launcher.program} --show", rounds)
        table.add(f"{count} applications: command to first pixel, tavik-launcher --show", *own)
        launcher.stop()
    for peer in PEERS:
        if not shutil.which(peer.name):
            continue
        with PeersBench(build, count) as bench:
            process = bench.desktop.spawn(list(peer.resident), log=peer.name) if peer.resident else None
            time.sleep(START_SECONDS)
            bench.desktop.display.press("Escape")  # Some begin by showing themselves.
            latency = bench.latency(peer.name, peer.command, rounds)
            table.add(f"{count} applications: command to first pixel, {peer.name}", *latency)
            if process and process.poll() is None and pathlib.Path(f"/proc/{process.pid}").exists():
                table.add(f"{count} applications: memory, {peer.name}", megabytes(process.pid), unit="MB")
                end(process)
