# SPDX-License-Identifier: MIT
"""Other launchers that Debian ships, where they are installed: how soon each is on the screen, beside ours.
Each is told by a command, as a desktop's own shortcut would tell it; ours by such a command, too. One that knows
no command is told by its key."""
import dataclasses
import pathlib
import shutil
import time

from harness.desktop import Desktop, DesktopOptions
from harness.launcher import Launcher
from harness.processes import end
from harness.waiting import wait_until

START_SECONDS = 3.0  # What a peer has to read its applications, as after a login.


def by_command(command):
    """The command shows it, Escape hides it."""
    return f"run:exec {command} >/dev/null 2>&1"


@dataclasses.dataclass(frozen=True)
class Peer:
    """A launcher of somebody else's."""
    name: str
    way: str  # How SummonLatency shows it.
    resident: tuple = ()  # What runs all the time, where something does.
    key_service: tuple = ()  # Runs before that, and listens for the key.
    settings: tuple = ()  # A file below the configuration's folder, and its content.


PEERS = (
    Peer("rofi", by_command("rofi -show drun -show-icons")),
    Peer("xfce4-appfinder", by_command("xfce4-appfinder"), resident=("xfce4-appfinder",)),
    Peer("synapse", by_command("synapse"), resident=("synapse", "--startup")),
    # In the middle of the screen, which is what is watched.
    Peer("lxqt-runner", "alt+F2", resident=("lxqt-runner",), key_service=("lxqt-globalkeysd",),
         settings=("lxqt/lxqt-runner.conf", "[dialog]\nshow_on_top=false\n")),
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

    def start(self, peer):
        """What of it stays; None where nothing does."""
        if peer.settings:
            name, content = peer.settings
            file = self.desktop.home / "config" / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(content)
        if peer.key_service:
            self.desktop.spawn(list(peer.key_service), log="keys")
            time.sleep(START_SECONDS)
        process = self.desktop.spawn(list(peer.resident), log=peer.name) if peer.resident else None
        time.sleep(START_SECONDS)
        self.desktop.display.press("Escape")  # Some begin by showing themselves.
        return process

    def latency(self, name, way, rounds):
        """The median and the 95th percentile in milliseconds; None where it was not seen."""
        answer = self.desktop.run(
            [str(self.build / "SummonLatency"), "--rounds", str(rounds), f"{name}={way}"], timeout=rounds * 12 + 60)
        fields = answer.stdout.rstrip("\n").split("\t")
        if answer.returncode != 0 or len(fields) < 3 or fields[1] == "-":
            return None, None
        return float(fields[1]), float(fields[2])


def measure_peers(table, build, rounds, count, megabytes):
    """Adds a row of latency for each, and one of memory (`megabytes` of a process) for each that stays."""
    with PeersBench(build, count) as bench:
        launcher = Launcher(bench.desktop, build / "tavik-launcher").start()
        wait_until(lambda: launcher.cache_file.exists() and len(launcher.cache()) >= count, "all are catalogued", 60)
        own = bench.latency("tavik-launcher", by_command(f"{launcher.program} --show"), rounds)
        table.add(f"{count} applications: command to first pixel, tavik-launcher --show", *own)
        launcher.stop()
    for peer in PEERS:
        if not all(shutil.which(program[0]) for program in (peer.resident, peer.key_service, (peer.name,)) if program):
            continue
        with PeersBench(build, count) as bench:
            process = bench.start(peer)
            latency = bench.latency(peer.name, peer.way, rounds)
            told = "command" if peer.way.startswith("run:") else "key"
            table.add(f"{count} applications: {told} to first pixel, {peer.name}", *latency)
            if process and process.poll() is None and pathlib.Path(f"/proc/{process.pid}").exists():
                table.add(f"{count} applications: memory, {peer.name}", megabytes(process.pid), unit="MB")
                end(process)
