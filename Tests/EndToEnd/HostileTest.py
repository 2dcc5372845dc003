# SPDX-License-Identifier: MIT
"""Damaged files: the program starts, says little, and loses nothing."""
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
