# SPDX-License-Identifier: MIT
"""The program under what a year does to it. TAVIK_STRESS multiplies how much of it there is."""
import collections
import contextlib
import os
import pathlib
import random
import signal
import subprocess
import time

import pytest
from Xlib.ext import res

from harness import processes
from harness.applications import PROGRAM
from harness.desktop import Monitor
from harness.notifier_host import NotifierHost
from harness.settings_window import ENVIRONMENT, RADIO, SettingsWindow
from harness.waiting import wait_until

MEASURE = int(os.environ.get("TAVIK_STRESS", "1"))
SUMMONS = 25 * MEASURE
KILLS = 5 * MEASURE
NAMES = ("Alder", "Birch", "Cedar")
THEMES = ("Tavik Classic", "Midnight Cyan")
COUNT, RECENTS = "LauncherSettings.ringLaunchCount", "RecentAppsPaths"
CLOCK = pathlib.Path("/usr/lib/x86_64-linux-gnu/faketime/libfaketimeMT.so.1")


def works(launcher, app):
    """It shows the ring, hears letters, and launches."""
    before = len(app.starts())
    launcher.summon(640, 400)
    launcher.display.type(app.name[:3].lower())
    launcher.display.press("Return")
    launcher.wait_hidden()
    started = app.wait_started(before + 1)
    launcher.display.wait_for(app.name)
    os.kill(started["pid"], signal.SIGTERM)  # Nobody else may be there to close it: openbox can end with the bus.
    launcher.display.wait_gone(app.name)


def end_started(launcher):
    """Ends what the launcher has started and left behind, however far it has come."""
    def left():
        commands = ((pid, processes.command(pid)) for pid in processes.descendants(os.getpid()))
        return [pid for pid, words in commands if {str(PROGRAM), launcher.program} & set(words)]

    def is_over():
        for pid in left():
            with contextlib.suppress(ProcessLookupError):
                os.kill(pid, signal.SIGKILL)
        return not left()

    wait_until(is_over, "what was started has ended")


class Possessions:
    """What a process has of the system; X resources are those of all its connections."""

    def __init__(self, launcher):
        pid = launcher.process.pid
        self.descriptors = len(os.listdir(f"/proc/{pid}/fd"))
        self.threads = len(os.listdir(f"/proc/{pid}/task"))
        self.resources = self._resources(launcher.display.connection, pid)
        rollup = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text()
        # Its own: what it shares with others of its kind counts for less while they run.
        self.megabytes = next(int(line.split()[1]) / 1024 for line in rollup.splitlines() if line.startswith("Pss_Anon:"))

    @staticmethod
    def _resources(connection, pid):
        connection.res_query_version()
        found = collections.Counter()
        for client in connection.res_query_clients().clients:
            identity = connection.res_query_client_ids([{"client": client.resource_base, "mask": res.LocalClientPIDMask}])
            if any(pid in tuple(answer.value) for answer in identity.ids):
                for kind in connection.res_query_client_resources(client.resource_base).types:
                    found[connection.get_atom_name(kind.resource_type)] += kind.count
        return found

    def __repr__(self):
        return f"{self.descriptors} descriptors, {self.threads} threads, {self.megabytes:.1f} MB, {dict(self.resources)}"


def possessions(launcher):
    """What it has when nothing is left to do: threads that have no work end after a while."""
    looks = []

    def is_settled():
        looks.append(Possessions(launcher))
        return len({(look.descriptors, look.threads) for look in looks[-6:]}) == 1 and len(looks) >= 6

    wait_until(is_settled, "the launcher rests", 60, interval=0.5)
    return looks[-1]


class Day:
    """What happens around the launcher, each thing undone where it can be."""

    def __init__(self, launcher, rng):
        self.launcher, self.desktop, self.display = launcher, launcher.desktop, launcher.display
        self.window, self.rng = SettingsWindow(launcher), rng
        self.compositor = self.desktop.start_compositor()
        self.themes = 0

    def look(self):
        self.launcher.summon(self.rng.randrange(1280), self.rng.randrange(800))
        self.display.press(self.rng.choice(("Left", "Right")))
        self._dismiss()

    def filter(self):
        self.launcher.summon(640, 400)
        self.display.type(self.rng.choice(("al", "ce", "zz")))
        self._dismiss()

    def _dismiss(self):
        while self.launcher.is_shown():
            self.display.press("Escape")
            with contextlib.suppress(AssertionError):
                self.display.wait_gone("Tavik Launcher", 1, wider_than=64)

    def settings(self):
        self.themes += 1
        self.window.open("theme")
        self.window.click(RADIO, THEMES[self.themes % 2])
        self.window.close()

    def monitor(self):
        self.desktop.run(Monitor("other", 640, 0, 640, 800).command("none"))
        self.look()
        self.desktop.run(["xrandr", "--delmonitor", "other"])
        self.look()

    def compositor_restart(self):
        processes.end(self.compositor)
        wait_until(lambda: not self.desktop.is_composited(), "the compositor is gone")
        self.look()
        self.compositor = self.desktop.start_compositor()

    def tray_restart(self):
        with NotifierHost(self.desktop) as panel:
            panel.wait_item()


@pytest.mark.desktop(has_compositor=False)
def test_many_summons_leave_nothing_behind(launcher, apps, desktop):
    launcher.pin(*apps)
    launcher.start(environment=ENVIRONMENT).wait_indexed()
    day = Day(launcher, random.Random(1))
    rare = (day.settings, day.monitor, day.compositor_restart, day.tray_restart)

    def happen(number):
        if number % 10 == 0:
            works(launcher, apps[0])
        else:
            (day.look, day.filter)[number % 2]()
        if number % 10 == 5:
            rare[number // 10 % len(rare)]()

    for number in range(40):  # After which everything that is kept is there.
        happen(number)
    before = possessions(launcher)
    for number in range(SUMMONS):
        happen(number)
    after = possessions(launcher)
    print(f"before: {before}\nafter:  {after}")
    assert after.descriptors <= before.descriptors
    assert after.threads <= before.threads
    assert not after.resources - before.resources
    assert after.megabytes < before.megabytes + 2


def after_a_launch(settings, path):
    """The settings when that application has been launched from the ring."""
    recents = [path, *(other for other in settings.get(RECENTS, []) if other != path)]
    return {**settings, COUNT: settings.get(COUNT, 0) + 1, RECENTS: recents}


def test_a_kill_at_any_moment_leaves_the_old_or_the_new_value(launcher, apps, applications):
    rng = random.Random(2)
    extra = applications.folder / "org.example.extra.desktop"
    launcher.pin(*apps)
    launcher.start().wait_indexed()
    kept = collections.Counter()
    for number in range(KILLS):
        app = apps[number % len(apps)]
        settings, names = launcher.defaults(), {entry["name"] for entry in launcher.cache()}
        if extra.exists():
            extra.unlink()
        else:
            applications.write_entry(extra, "Extra", "/bin/true", "none")
        launcher.summon(640, 400)
        launcher.display.press(f"ctrl+{number % len(apps) + 1}")
        time.sleep(rng.uniform(0, 1.6))  # The recent ones are written a second later.
        launcher.process.kill()
        launcher.wait_exit()
        end_started(launcher)

        now = launcher.defaults()
        complete = after_a_launch(settings, app.path)
        kept[now == complete] += 1
        assert all(now.get(name) in (settings.get(name), complete[name]) for name in complete), f"round {number}"
        assert now.keys() <= complete.keys()
        assert {entry["name"] for entry in launcher.cache()} ^ names <= {"Extra"}, f"round {number}"
        assert list(launcher.defaults_file.parent.iterdir()) == [launcher.defaults_file]
        assert list(launcher.cache_file.parent.iterdir()) == [launcher.cache_file]
        launcher.start()
    print(f"{kept[True]} with the new values, {kept[False]} with the old or some of the new")
    assert kept[True], "what was launched was written in some of the rounds"
    works(launcher, apps[0])


@contextlib.contextmanager
def small_disk(folder):
    """The folder's files, on a disk of their own with little room."""
    files = {path.name: path.read_bytes() for path in folder.iterdir() if path.is_file()}
    mounted = subprocess.run(
        ["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", str(folder)], capture_output=True, text=True, check=False)
    if mounted.returncode != 0:
        pytest.skip(f"no small disk can be mounted here: {mounted.stderr.strip()}")
    try:
        for name, content in files.items():
            (folder / name).write_bytes(content)
        yield
    finally:
        subprocess.run(["umount", "--lazy", str(folder)], check=True)


def fill(folder):
    with open(folder / "filler", "wb", buffering=0) as stream, contextlib.suppress(OSError):
        while stream.write(bytes(512)):
            pass


@pytest.mark.parametrize("fault", ["full", "read-only"])
def test_a_disk_that_takes_nothing_costs_only_what_was_not_written(launcher, apps, fault):
    launcher.pin(*apps)
    folder = launcher.defaults_file.parent
    with small_disk(folder):
        launcher.start().wait_indexed()
        works(launcher, apps[0])
        wait_until(lambda: launcher.defaults_file.stat().st_size > 0, "the settings are there")
        if fault == "full":
            fill(folder)
        else:
            subprocess.run(["mount", "-o", "remount,ro", str(folder)], check=True)
        before = launcher.defaults()
        lines = len(launcher.log_lines())
        works(launcher, apps[1])
        works(launcher, apps[2])
        wait_until(lambda: len(launcher.log_lines()) > lines, "the log says that nothing could be written")
        assert launcher.defaults() == before
        if fault == "full":
            (folder / "filler").unlink()
        else:
            subprocess.run(["mount", "-o", "remount,rw", str(folder)], check=True)
        works(launcher, apps[0])
        wait_until(lambda: launcher.defaults() != before, "what was kept in memory is written with the next change")
        launcher.stop()


def lose_the_bus(launcher, _app):
    launcher.desktop.end_bus()


def replace_the_window_manager(launcher, _app):
    # Its successor takes the screen from it, as on a change of the desktop.
    launcher.desktop.spawn(["metacity", "--no-composite", "--replace"], log="successor")
    time.sleep(1)


def step_the_clock(launcher, app):
    for years in ("+10", "-10"):
        (launcher.desktop.home / "clock").write_text(f"{years}y")
        works(launcher, app)


@pytest.mark.parametrize("fault", [lose_the_bus, replace_the_window_manager, step_the_clock], ids=lambda fault: fault.__name__)
def test_it_goes_on_when_something_below_it_changes(launcher, apps, desktop, fault):
    launcher.pin(*apps)
    environment = {}
    if fault is step_the_clock:
        if not CLOCK.exists() or any(name.endswith("SAN_OPTIONS") for name in os.environ):
            pytest.skip("no clock can be set here")
        (desktop.home / "clock").write_text("+0")
        environment = {"LD_PRELOAD": str(CLOCK), "FAKETIME_TIMESTAMP_FILE": str(desktop.home / "clock"),
                       "FAKETIME_NO_CACHE": "1", "FAKETIME_ONLY_CMDS": "tavik-launcher", "DONT_FAKE_MONOTONIC": "1"}
    launcher.start(environment=environment).wait_indexed()
    works(launcher, apps[0])
    fault(launcher, apps[1])
    works(launcher, apps[2])
