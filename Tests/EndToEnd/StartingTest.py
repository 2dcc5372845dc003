# SPDX-License-Identifier: MIT
"""Every kind of entry starts, once, and is found again by its windows."""
import os
import pathlib
import shutil

import pytest

from harness import processes, services
from harness.launcher import IN_BACKGROUND
from harness.waiting import stays, wait_front, wait_until


def launch(launcher, application, **options):
    """Starts the launcher with this application on the ring, and launches it."""
    launcher.pin(application)
    launcher.start(**options)
    launcher.launch()


def test_a_slow_starter_is_started_once_and_says_that_it_starts(launcher, applications, display):
    slow = applications.add("Slow", arguments="--delay 2.5")
    heard = display.listen_to_starts()
    launch(launcher, slow)
    slow.wait_started()
    launcher.launch()
    display.wait_for("Slow")
    launcher.launch()
    stays(lambda: len(slow.starts()) == 1, "it was started once", seconds=1.0)
    given = slow.starts()[0]["environment"]["DESKTOP_STARTUP_ID"]
    told = [kind for kind, text in heard() if f'ID="{given}"' in text]
    assert told == ["new", "change", "remove"]


def test_a_browser_and_its_web_application_are_two_though_one_process(launcher, applications, desktop, display):
    browser = applications.add("Browser", arguments="--class browser Browser", lines="StartupWMClass=Browser\n")
    page = applications.add("Page", arguments="--class crx_page Browser", lines="StartupWMClass=crx_page\n")
    launcher.pin(browser, page)
    launcher.start()
    launcher.launch(1)
    window = wait_front(display, "Page")

    launcher.launch(0)
    browser.wait_started()
    other = wait_front(display, "Browser")

    launcher.launch(1)
    wait_until(lambda: display.has_focus(window), "the page has the focus again")
    assert display.is_above(window, other)
    assert len(page.starts()) == 1 and len(browser.starts()) == 1


@pytest.mark.parametrize("place, ending", [("Applications", ".AppImage"), (".local/bin", "")])
def test_an_image_is_started_once_and_shows_what_is_inside(launcher, applications, desktop, display, place, ending):
    alder = applications.add_image("Alder", desktop.home / place, ending)
    launcher.pin(alder)
    launcher.start().wait_indexed()
    assert [entry["name"] for entry in launcher.cache()] == ["Alder"]
    for _ in range(2):
        launcher.summon(640, 400)
        launcher.wait_shows(alder)
        display.press("ctrl+1")
        window = wait_front(display, "Alder")
    assert len(alder.starts()) == 1


@pytest.mark.parametrize("manner", ["answers", "refuses", "is silent", "missing"])
def test_an_activatable_entry_is_asked_and_otherwise_started(launcher, applications, desktop, display, manner):
    alder = applications.add("Alder", lines="DBusActivatable=true\n")
    service = manner != "missing" and services.application(desktop, "org.example.alder", manner)
    launch(launcher, alder)
    if service:
        [platform_data] = service.wait_called()
        assert "_TIME" in platform_data["desktop-startup-id"]
        assert platform_data["activation-token"] == platform_data["desktop-startup-id"]
    if manner == "answers":
        stays(lambda: not alder.has_run(), "no program was started")
    else:
        alder.wait_started()


@pytest.mark.parametrize("terminal, words", [
    ("xdg-terminal-exec", []), ("x-terminal-emulator", ["-e"]), ("xfce4-terminal", ["-x"]), ("kitty", [])])
def test_a_terminal_program_starts_in_a_terminal(launcher, applications, desktop, display, terminal, words):
    alder = applications.add("Alder", lines=f"Terminal=true\nPath={desktop.home / 'share'}\n")
    folder, seen = desktop.home / "bin", desktop.home / "terminal"
    folder.mkdir()
    program = folder / terminal
    program.write_text(f'#!/bin/sh\nprintf "%s\\n" "$@" > {seen}\nshift {len(words)}\nexec "$@"\n')
    program.chmod(0o755)
    (folder / "python3").symlink_to("/usr/bin/python3")
    launch(launcher, alder, environment={"PATH": str(folder)})
    assert alder.wait_started()["folder"] == str(desktop.home / "share")
    assert seen.read_text().splitlines()[:len(words)] == words


@pytest.mark.parametrize("lines, has_command", [("Terminal=true\n", True), ("DBusActivatable=true\n", False)],
                         ids=["no terminal", "neither service nor command"])
def test_what_cannot_start_is_one_line_and_a_word(launcher, applications, desktop, display, lines, has_command):
    broken = applications.add("Broken", lines=lines)
    if not has_command:
        kept = [line for line in broken.entry.read_text().splitlines() if not line.startswith("Exec=")]
        broken.entry.write_text("\n".join(kept))
    notices = services.notifications(desktop)
    (desktop.home / "empty").mkdir()
    launch(launcher, broken, environment={"PATH": str(desktop.home / "empty")})
    assert "Broken" in notices.wait_called()[3]
    lines = [line for line in launcher.log_lines() if "failed to open" in line]
    assert len(lines) == 1 and broken.path in lines[0], lines


def test_no_bus_is_started_where_there_is_none(launcher, applications, desktop, display):
    assert shutil.which("dbus-launch"), "the library that would call it can"
    alder = applications.add("Alder", lines="DBusActivatable=true\n")
    launcher.pin(alder)
    launcher.environment.update(DBUS_SESSION_BUS_ADDRESS="")
    launcher.process = desktop.spawn([launcher.program, *IN_BACKGROUND], launcher.environment, log="launcher")
    wait_until(lambda: display.is_grabbed(launcher.hot_key), "the hot key is taken")
    launcher.launch()
    assert not alder.wait_started()["environment"]["DBUS_SESSION_BUS_ADDRESS"]
    ours = [pathlib.Path(f"/proc/{pid}/comm").read_text().strip() for pid in processes.descendants(os.getpid())]
    assert "dbus-launch" not in ours


def test_each_program_gets_a_scope_of_its_own(launcher, applications, desktop, display):
    alder = applications.add("Alder")
    manager = services.unit_manager(desktop)
    launch(launcher, alder)
    start = alder.wait_started()
    name, mode, properties, _ = manager.wait_called()
    assert name.startswith("app-tavik-org.example.alder-") and name.endswith(".scope") and mode == "fail"
    values = dict(properties)
    assert values["PIDs"] == [start["pid"]] and values["Slice"] == "app.slice"


def test_windows_join_their_entries_whatever_started_them(launcher, applications, desktop, display):
    """A program that the desktop has started by a script, and an entry that changes while it runs."""
    alder = applications.add("Alder", arguments="--class odd Odd")
    launcher.pin(alder)
    launcher.start()
    launcher.wait_indexed()
    stray = applications.run_stray(desktop, "Stray", "--class", "late", "Late")
    text = pathlib.Path(alder.path).read_text()
    pathlib.Path(alder.path).write_text(text.replace("StartupWMClass=Alder", "StartupWMClass=Late"))

    def is_raised():
        launcher.launch()
        return display.has_focus(stray)

    wait_until(is_raised, "the entry, edited in place, has the window", timeout=6)
