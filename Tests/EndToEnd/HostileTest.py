# SPDX-License-Identifier: MIT
"""Damaged files: the program starts, says little, and loses nothing."""
import os

from harness.launcher import HOT_KEY, hot_key_record
from harness.waiting import wait_until


def test_a_damaged_settings_file_is_set_aside_and_the_run_starts_on_defaults(launcher, display):
    content = b"<?xml version='1.0'?><plist><dict><key>LauncherSettings"
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
    launcher.start().summon(640, 400)
    launcher.wait_shows(alder)
    launcher.command("--quit")
    launcher.wait_exit()
    assert launcher.defaults()["SomebodyElses"] == {"kept": [1, 2.5, True, b"data"]}
    assert launcher.defaults()["LauncherSettings.hotKeyConfig"] == hot_key_record(HOT_KEY)


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
    launcher.start().wait_indexed()
    paths = [entry["path"] for entry in launcher.cache()]
    assert alder.path in paths and str(folder / "nameless.desktop") not in paths
    launcher.summon(640, 400)
    look("open")
    wait_until(lambda: launcher.icon_colour(0, 2) and not launcher.exited(), "the ring is drawn")
    ours = [line for line in launcher.log_lines() if line.startswith("tavik.") or "TavikLauncher" in line]
    assert len(ours) <= 10, ours
