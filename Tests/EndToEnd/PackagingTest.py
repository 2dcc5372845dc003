# SPDX-License-Identifier: MIT
"""What is installed beside the program agrees with it: the same actions everywhere, and nothing left behind."""
import configparser
import os
import pathlib
import re
import subprocess
import xml.etree.ElementTree as xml

import pytest

from harness.launcher import BUS_NAME

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get("TAVIK_LAUNCHER", ROOT / "build" / "release" / "tavik-launcher")).resolve().parent
PACKAGING = BUILD / "Packaging"
# A menu takes the keyboard, so the ring is hidden before this could be chosen from one; the other is for keys.
NOT_IN_MENUS = {"--hide", "--summon"}
# Of the bus and of questions.
NOT_FOR_THE_BUS = {"--background", "--check-desktop", "--version", "--help"}


def entry():
    parser = configparser.ConfigParser(interpolation=None)
    parser.optionxform = str
    parser.read(PACKAGING / "org.tavik.Launcher.desktop")
    return parser


def menu_actions():
    """The option that each action of the desktop entry runs, by the action's name."""
    parsed = entry()
    names = parsed["Desktop Entry"]["Actions"].rstrip(";").split(";")
    return {name: parsed[f"Desktop Action {name}"]["Exec"].split()[-1] for name in names}


def manual():
    return (PACKAGING / "tavik-launcher.1").read_text().replace("\\-", "-")


@pytest.fixture
def options(launcher):
    """The options that the program tells of."""
    return set(re.findall(r"^  (--[a-z-]+)", launcher.command("--help").stdout, re.M))


def test_menu_manual_and_command_line_know_the_same_options(launcher, options):
    assert set(menu_actions().values()) == options - NOT_IN_MENUS - NOT_FOR_THE_BUS
    described = set(re.findall(r"^\.BR? (--[a-z-]+)", manual(), re.M))
    assert described == options
    assert "den Ring zeigen" in launcher.desktop.run([launcher.program, "--help"], {"LANGUAGE": "de"}).stdout
    sections = set(re.search(r"there are (.*)", launcher.command("--settings=none").stderr)[1].split(", "))
    told = re.search(r"at a section: ([\w\s,]+)\.", manual())[1]
    assert set(re.split(r",\s+|\s+or\s+", told)) == sections


def test_every_action_of_the_menu_is_one_of_the_bus(launcher):
    launcher.start()
    for name in sorted(menu_actions(), key=lambda name: name == "quit"):  # That ends the program.
        launcher.activate_action(name)
    assert launcher.wait_exit() == 0


def test_the_files_name_the_same_program(launcher):
    launch = entry()["Desktop Entry"]
    service = (PACKAGING / "org.tavik.Launcher.service").read_text()
    metadata = xml.parse(PACKAGING / "org.tavik.Launcher.metainfo.xml").getroot()
    assert f"Name={BUS_NAME}\n" in service and f"Exec={launch['Exec']} --dbus-service\n" in service
    assert launch["Icon"] == metadata.findtext("id") == BUS_NAME
    assert metadata.findtext("launchable") == "org.tavik.Launcher.desktop"
    assert metadata.findtext("provides/dbus") == BUS_NAME
    assert metadata.findtext("provides/binary") == pathlib.Path(launch["Exec"]).name
    version = launcher.command("--version").stdout.split()[1]
    assert metadata.find("releases/release").get("version") == version and version in manual()


def test_installing_and_uninstalling_leaves_nothing_behind(tmp_path):
    def files():
        return {str(path.relative_to(tmp_path)) for path in tmp_path.rglob("*") if path.is_file()}

    subprocess.run(["cmake", "--install", BUILD, "--prefix", tmp_path], check=True, capture_output=True)
    installed = files()
    for wanted in ("bin/tavik-launcher", "share/applications/org.tavik.Launcher.desktop",
                   "share/dbus-1/services/org.tavik.Launcher.service", "share/man/man1/tavik-launcher.1",
                   "share/metainfo/org.tavik.Launcher.metainfo.xml",
                   "share/icons/hicolor/symbolic/apps/org.tavik.Launcher-symbolic.svg"):
        assert wanted in installed
    sides = {path.split("/")[3] for path in installed if path.endswith("apps/org.tavik.Launcher.png")}
    assert {f"{side}x{side}" for side in (16, 22, 24, 32, 48, 64, 128, 256, 512)} <= sides
    for file in ("share/applications/org.tavik.Launcher.desktop", "share/dbus-1/services/org.tavik.Launcher.service"):
        programs = re.findall(r"^Exec=(\S+)", (tmp_path / file).read_text(), re.M)
        assert set(programs) == {str(tmp_path / "bin" / "tavik-launcher")}
    manifest = f"-DMANIFEST={BUILD / 'install_manifest.txt'}"
    subprocess.run(["cmake", manifest, "-P", ROOT / "cmake" / "Uninstall.cmake"], check=True, capture_output=True)
    assert files() == set()
