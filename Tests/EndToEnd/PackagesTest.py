# SPDX-License-Identifier: MIT
"""The packages as a user gets them: installed or unpacked, started, made newer, and taken away again."""
import json
import pathlib
import re
import subprocess

import pytest

from harness import accessibility
from harness.launcher import BUS_NAME, Launcher
from harness.scratch_root import HOME, ScratchRoot, bus_configuration, why_none
from harness.update_feed import UpdateFeed
from harness.waiting import wait_front, wait_until
from harness.wayland import Sway
from conftest import PROGRAM, ROOT

MOST_BYTES = 5_000_000
ENTRY = "share/applications/org.tavik.Launcher.desktop"
LIBRARIES = "usr/lib/x86_64-linux-gnu"


@pytest.fixture(scope="session")
def packages(staged_program, tmp_path_factory):
    """The folder with all of them, made of the build that is tested. The AppImage has the staged program inside."""
    folder = tmp_path_factory.mktemp("packages")
    done = subprocess.run(
        [ROOT / "Packaging" / "build-packages", "--of", PROGRAM.parent, "--image-program", staged_program, folder],
        capture_output=True, text=True, check=False)
    assert done.returncode == 0, done.stdout + done.stderr
    folder.chmod(0o755)
    for above in folder.parents:
        if above.is_relative_to("/tmp") and above != pathlib.Path("/tmp"):
            above.chmod(0o755)  # The user of the scratch root reads them, too.
    return folder


def only(folder, ending):
    found, = folder.glob(f"*{ending}")
    return found


@pytest.fixture
def root(desktop):
    if reason := why_none():
        pytest.skip(reason)
    with ScratchRoot(desktop) as made:
        yield made


def newer(package, folder):
    """The same package with a higher number."""
    subprocess.run(["dpkg-deb", "-R", package, folder / "newer"], check=True)
    control = folder / "newer" / "DEBIAN" / "control"
    control.write_text(re.sub(r"^Version: .*", "Version: 9.0", control.read_text(), flags=re.M))
    subprocess.run(["dpkg-deb", "-b", folder / "newer", folder / "newer.deb"], check=True, capture_output=True)
    return folder / "newer.deb"


def runs(root):
    return root.desktop.name_has_owner(BUS_NAME)


def show(root, program):
    """Has the ring shown in a corner, and waits until it is seen."""
    display = root.desktop.display
    display.move_pointer(200, 200)
    empty = display.picture()
    root.ask([program, "--show"])
    wait_until(lambda: display.picture().share_unlike(empty) > 0.02, "the ring is seen")


def quit_launcher(root):
    root.ask(["tavik-launcher", "--quit"])
    assert not runs(root)


def test_the_debian_package_lives_and_goes(packages, root, desktop, display, look):
    package = only(packages, ".deb")
    root.run(["dpkg", "-i", str(package)])
    installed = root.run(["dpkg", "-L", "tavik-launcher"]).split()
    program = root.path / "usr/bin/tavik-launcher"
    if "BUILD_TYPE:STRING=RelWithDebInfo" in (PROGRAM.parent / "CMakeCache.txt").read_text():
        assert program.stat().st_size < MOST_BYTES
    fetching = root.path / "usr/libexec/tavik-launcher-fetch"
    assert [b"libQt6Network" in file.read_bytes() for file in (program, fetching)] == [False, True]
    depends = root.run(["dpkg-query", "-W", "-f", "${Depends}", "tavik-launcher"])
    assert {"libqt6svg6", "qt6-wayland", "libqt6widgets6"} <= {word.split()[0] for word in depends.split(", ")}

    # From the menu, by somebody who has never seen it: the tour opens.
    assert "DBusActivatable=true" in (root.path / "usr" / ENTRY).read_text()
    desktop.call(BUS_NAME, "/org/tavik/Launcher", "org.freedesktop.Application.Activate", "(a{sv})", ({},))
    display.wait_for("Welcome to Tavik Launcher")
    look("menu")
    quit_launcher(root)

    # An entry for the login that has lost its program is mended by the next start by hand, and works.
    at_login = f"{HOME}/.config/autostart/org.tavik.Launcher.desktop"
    entry = root.path / at_login.lstrip("/")
    root.ask(["install", "-D", "-m", "644", f"/usr/{ENTRY}", at_login])
    root.ask(["sed", "-i", "/^$/,$d; /^DBus/d; s|^Exec=.*|Exec=/gone|", at_login])
    root.spawn(["tavik-launcher"])
    wait_until(lambda: "/gone" not in entry.read_text(), "the entry is mended")
    wait_until(lambda: runs(root), "it runs")
    quit_launcher(root)
    root.spawn(["gio", "launch", at_login])
    wait_until(lambda: runs(root), "the login has started it")
    show(root, "tavik-launcher")
    look("login")
    assert " $ tavik-launcher --settings\n" in root.ask(["sh", "-c", "tavik-launcher --check-desktop || true"])

    # Upgraded while it runs, and removed: what is the user's stays, nothing else does.
    root.run(["dpkg", "-i", str(newer(package, desktop.home))])
    assert runs(root)
    quit_launcher(root)
    kept = root.user_files()
    assert any(name.endswith("Defaults.plist") for name in kept)
    root.run(["dpkg", "--purge", "tavik-launcher"])
    assert root.user_files() == kept
    assert not [path for path in installed if "avik" in path and (root.path / path.lstrip("/")).exists()]


def test_the_debian_package_runs_under_wayland(packages):
    if reason := Sway.missing() or why_none():
        pytest.skip(reason)
    with Sway(False) as desktop, ScratchRoot(desktop) as root:
        root.run(["dpkg", "-i", str(only(packages, ".deb"))])
        root.spawn(["tavik-launcher", "--background"])
        wait_until(lambda: runs(root), "it runs")
        show(root, "tavik-launcher")


def test_the_archive_runs_where_it_lies_and_goes_into_the_menu(packages, desktop, display, tmp_path):
    place, target = tmp_path / "a folder", tmp_path / "in the menu"
    place.mkdir()
    subprocess.run(["tar", "-xf", only(packages, ".tar.gz"), "-C", place, "--strip-components=1"], check=True)
    launcher = Launcher(desktop, place / "bin" / "tavik-launcher")
    launcher.start().summon(640, 400)
    assert f" $ '{launcher.program}' --settings\n" in launcher.command("--check-desktop").stdout
    launcher.stop()

    subprocess.run([place / "install", target], check=True)
    entry = (target / ENTRY).read_text()
    assert set(re.findall(r'^Exec="(.*?)"', entry, re.M)) == {str(target / "bin/tavik-launcher")}
    subprocess.run(["desktop-file-validate", target / ENTRY], check=True)
    # The bus understands what was written for it.
    services = f"<servicedir>{target}/share/dbus-1/services</servicedir>"
    bus = desktop.start_bus("menu-bus", f"--config-file={bus_configuration(tmp_path, services)}")
    desktop.call(BUS_NAME, "/org/tavik/Launcher", "org.freedesktop.Application.Activate", "(a{sv})", ({},), bus)
    assert desktop.name_has_owner(BUS_NAME, bus)
    assert desktop.run([target / "bin" / "tavik-launcher", "--quit"], {"DBUS_SESSION_BUS_ADDRESS": bus}).returncode == 0
    subprocess.run([place / "install", "--remove", target], check=True)
    assert not [path for path in target.rglob("*") if path.is_file()]


def test_the_image_needs_nothing_of_ours_and_nothing_to_mount(packages, root, look):
    for library in ("libQt6*", "libicu*", "libplist*", "libsodium*", "libwayland*", "libxcb-*", "libOpenGL*",
                    "libGL*", "libEGL.*", "qt6"):
        root.run(["sh", "-c", f"rm -r /{LIBRARIES}/{library}"])
    image = f"{HOME}/Tavik.AppImage"
    root.run(["install", "-m", "755", str(only(packages, ".AppImage")), image])
    root.spawn([image, "--background"])
    wait_until(lambda: runs(root), "it runs", 20)
    show(root, image)
    look("ring")
    root.ask([image, "--quit"])


def mounts():
    return [line.split()[1] for line in pathlib.Path("/proc/mounts").read_text().splitlines() if "tavik-launcher" in line]


def test_an_image_is_mounted_and_replaced_by_its_successor(packages, desktop, display):
    if reason := why_none():
        pytest.skip(f"{reason.replace('install into a scratch root', 'be sure to be let mount')}")
    made = only(packages, ".AppImage").read_bytes()
    installed = desktop.home / "Tavik.AppImage"
    installed.write_bytes(made)
    installed.chmod(0o755)
    before = mounts()
    with UpdateFeed() as feed:
        feed.offer("2.1", made + b"newer")
        launcher = Launcher(desktop, installed)
        launcher.environment |= {**feed.environment, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        launcher.start("--background")
        place, = [path for path in mounts() if path not in before]
        assert f" $ {installed} --settings\n" in launcher.command("--check-desktop").stdout, "not what is inside"
        assert launcher.command("--check-for-updates").returncode == 0
        accessibility.wait_text(desktop, "A new version of Tavik Launcher is available.")
        wait_front(display, "Software Update")
        display.press("Return")
        accessibility.wait_text(desktop, "Ready to install")
        accessibility.click(desktop, "Install and Relaunch")
        assert launcher.wait_exit(20) == 0
    wait_until(lambda: installed.read_bytes() == made + b"newer", "the successor has its place")
    assert installed.stat().st_mode & 0o111 and not [*installed.parent.glob(".*Tavik*")], "and nothing else is left"
    wait_until(lambda: desktop.name_has_owner(BUS_NAME), "and runs", 20)
    wait_until(lambda: place not in mounts() and not pathlib.Path(place).exists(), "what the old one used is gone")
    launcher.command("--quit")
    wait_until(lambda: mounts() == before, "and what the new one used")


def test_the_manifest_for_flatpak_asks_for_what_the_ring_needs():
    manifest = json.loads((ROOT / "Packaging" / "Linux" / f"{BUS_NAME}.json").read_text())
    assert manifest["id"] == BUS_NAME and manifest["command"] == PROGRAM.name
    granted = set(manifest["finish-args"])
    # The display, who is asked to start programs, where they and their icons are, and every bus name that is spoken to.
    assert {"--socket=wayland", "--socket=x11", "--talk-name=org.freedesktop.Flatpak", "--filesystem=host:ro"} <= granted
    sources = "".join(path.read_text() for path in (ROOT / "Sources" / "TavikLauncherPlatform" / "Linux").rglob("*.cpp"))
    named = set(re.findall(r'"(org\.\w+(?:\.ScreenSaver|\.StatusNotifierWatcher|\.kglobalaccel))"', sources))
    assert {f"--talk-name={name}" for name in named} <= granted
