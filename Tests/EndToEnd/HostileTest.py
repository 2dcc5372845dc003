# SPDX-License-Identifier: MIT
"""Damaged files and absurd neighbours: the program starts, says little, and loses nothing."""
import os
import plistlib

import pytest

from harness.launcher import HOT_KEY, hot_key_record
from harness.waiting import wait_until


def our_lines(launcher):
    """What the program itself has logged as a problem."""
    return [line for line in launcher.log_lines() if line.startswith("tavik.") or "TavikLauncher" in line]


def start_and_summon(launcher, display, *applications):
    launcher.start()
    launcher.summon(640, 400)
    if applications:
        launcher.wait_shows(*applications)
    display.press("Escape")
    launcher.wait_hidden()


@pytest.mark.parametrize("content", [
    b"", b"\0\xff" * 500, b"<?xml version='1.0'?><plist><dict><key>LauncherSettings", b"bplist00" + b"\xff" * 64,
    b"<?xml version='1.0'?><plist version='1.0'><array/></plist>",
    b"<?xml version='1.0'?><plist version='1.0'>" + b"<array>" * 20000,
], ids=["empty", "binary junk", "cut off", "bad binary list", "no dictionary", "deeply nested"])
def test_a_damaged_settings_file_is_set_aside_and_the_run_starts_on_defaults(launcher, display, content):
    launcher.defaults_file.write_bytes(content)
    launcher.hot_key = None  # The default shortcut has no key.
    launcher.start()
    launcher.command("--show")
    launcher.wait_open()
    set_aside = list(launcher.defaults_file.parent.glob("Defaults.plist.damaged-*"))
    assert [file.read_bytes() for file in set_aside] == [content]
    assert sum("Defaults.plist" in line for line in launcher.log_lines()) == 1, launcher.log_lines()
    wait_until(lambda: launcher.defaults().get("LauncherSettings.ringLaunchCount") == 1, "a new file is written")


def test_settings_of_wrong_types_are_repaired_and_the_others_kept(launcher, applications, display):
    alder = applications.add("Alder")
    launcher.pin(alder)
    launcher.settings(
        ringDiameter="wide", ringThickness=[1, 2], iconSize={}, maxVisibleApps=-7, ringColorHex=b"\0",
        pillOpacity=1e308, hasShownLaunchHintIntro="yes")
    launcher.write_defaults(RecentAppsPaths=7, SomebodyElses={"kept": [1, 2.5, True, b"data"]})
    start_and_summon(launcher, display, alder)
    launcher.command("--quit")
    launcher.wait_exit()
    assert launcher.defaults()["SomebodyElses"] == {"kept": [1, 2.5, True, b"data"]}
    assert launcher.defaults()["LauncherSettings.hotKeyConfig"] == hot_key_record(HOT_KEY)


def test_numbers_keep_their_kinds_in_the_settings_file(launcher, display):
    launcher.write_defaults(Kinds={"double": 320.0, "integer": 320, "bool": True})
    start_and_summon(launcher, display)
    launcher.command("--quit")
    launcher.wait_exit()
    kinds = plistlib.loads(launcher.defaults_file.read_bytes())["Kinds"]
    assert {name: type(value) for name, value in kinds.items()} == {"double": float, "integer": int, "bool": bool}


@pytest.mark.parametrize("content, is_reported", [
    (b"", False), (b"{}", True), (b"[{\"name\": 3, \"path\": \"/x\"}]", True), (b"\xff\xfe\0", True),
    (b"[" * 100000, True), (b"[" + b" " * (5 * 1024 * 1024) + b"]", False),
], ids=["empty", "object", "wrong type", "junk", "deep", "too large"])
def test_a_damaged_cache_is_ignored_and_rewritten(launcher, applications, display, content, is_reported):
    alder = applications.add("Alder")
    launcher.pin(alder)
    launcher.cache_file.parent.mkdir(parents=True)
    launcher.cache_file.write_bytes(content)
    start_and_summon(launcher, display, alder)
    wait_until(lambda: launcher.cache_file.read_bytes() != content, "the cache is rewritten")
    assert alder.path in [entry["path"] for entry in launcher.cache()]
    reports = [line for line in launcher.log_lines() if "failed to load cache: " in line]
    assert len(reports) == int(is_reported), launcher.log_lines()


def test_junk_among_the_applications_is_skipped(launcher, applications, desktop, display, look):
    alder = applications.add("Alder", "green")
    folder = applications.folder
    (folder / "binary.desktop").write_bytes(bytes(range(256)) * 64)
    (folder / "huge.desktop").write_bytes(b"[Desktop Entry]\nType=Application\nExec=true\nName=" + b"x" * 8_000_000)
    (folder / "nameless.desktop").write_text("[Desktop Entry]\nType=Application\nExec=true\n")
    (folder / "no-exec.desktop").write_text("[Desktop Entry]\nType=Application\nName=No Exec\n")
    (folder / "bro\nken\x1b[31m.desktop").write_text("[Desktop Entry]\nType=Application\nName=A\nExec=true\n")
    (folder / "folder.desktop").mkdir()
    (folder / "loop.desktop").symlink_to("loop.desktop")
    (folder / "round").symlink_to(folder)
    os.mkfifo(folder / "pipe.desktop")
    broken_icon = applications.icons / "broken.png"
    broken_icon.write_bytes(b"\x89PNG\r\n\x1a\n" + b"\xff" * 4000)
    iconless = applications.add("Iconless")
    applications.write_entry(iconless.entry, "Iconless", "/bin/true", broken_icon)
    bundle = desktop.home / "Applications" / "Bad.app" / "Contents"
    bundle.mkdir(parents=True)
    (bundle / "Info.plist").write_bytes(b"bplist00" + b"\xff" * 200)
    locked = desktop.home / "Applications" / "Locked"
    locked.mkdir(mode=0o000)

    launcher.pin(alder, iconless)
    start_and_summon(launcher, display)
    launcher.wait_indexed()
    paths = [entry["path"] for entry in launcher.cache()]
    assert alder.path in paths and str(folder / "nameless.desktop") not in paths
    launcher.summon()
    look("open")
    wait_until(lambda: launcher.icon_colour(0, 2) and not launcher.exited(), "the ring is drawn")
    assert len(our_lines(launcher)) <= 10, launcher.log_lines()


def test_a_neighbour_with_absurd_properties_does_no_harm(launcher, applications, display):
    alder = applications.add("Alder")
    launcher.pin(alder)
    launcher.start()
    root = display.root
    atom, cardinal = display.connection.intern_atom, 6
    odd = root.create_window(5, 5, 50, 50, 0, root.get_geometry().depth)
    odd.change_property(atom("_NET_WM_PID"), cardinal, 32, [0xFFFFFFFF])
    odd.change_property(atom("WM_CLASS"), 31, 8, b"\xff\xfe" * 30000)
    odd.change_property(atom("_NET_WM_NAME"), atom("UTF8_STRING"), 8, b"\xff" * 60000)
    odd.change_property(atom("_GTK_APPLICATION_ID"), atom("UTF8_STRING"), 8, b"../../../../etc/passwd\0\n")
    odd.change_property(atom("_BAMF_DESKTOP_FILE"), 31, 8, b"/dev/zero")
    odd.change_property(atom("_NET_WM_WINDOW_TYPE"), cardinal, 8, b"x")
    odd.map()
    display.connection.sync()
    root.change_property(atom("_NET_CLIENT_LIST"), 33, 32, [1, 0xFFFFFFFF, odd.id] * 500)
    root.change_property(atom("_NET_ACTIVE_WINDOW"), 33, 32, [0xDEADBEEF])
    root.change_property(atom("_NET_WORKAREA"), cardinal, 32, [0x7FFFFFFF, 0x7FFFFFFF, 0, 0])
    display.connection.sync()
    launcher.summon(640, 400)
    launcher.wait_shows(alder)
    odd.destroy()
    display.press("Escape")
    launcher.wait_hidden()
    assert not launcher.exited()


def test_an_unwritable_home_costs_settings_and_nothing_else(launcher, applications, desktop, display):
    alder = applications.add("Alder")
    launcher.pin(alder)
    blocked = launcher.cache_file.parent
    blocked.parent.mkdir(exist_ok=True)
    blocked.write_text("a file where the folder should be")
    start_and_summon(launcher, display, alder)
    reports = wait_until(
        lambda: [line for line in launcher.log_lines() if "failed to resolve cache path: " in line], "it is logged")
    assert 1 <= len(reports) <= 2
    assert blocked.read_text() == "a file where the folder should be"
