# SPDX-License-Identifier: MIT
"""Damaged settings: the program starts and loses nothing."""
from harness.launcher import HOT_KEY, hot_key_record


def test_settings_of_wrong_types_are_repaired_and_the_others_kept(launcher, applications):
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
