#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Films the ring on a virtual desktop with a wallpaper, an icon theme and fonts as a desktop has them, and
writes an animated picture. It needs the section `film` of Packaging/Linux/packages.txt.

usage: Tools/film.py [--program build/release/tavik-launcher] [docs/ring.webp]"""
import argparse
import contextlib
import math
import pathlib
import sys
import tempfile
import threading
import time

import Xlib.display
from PIL import Image

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "Tests" / "EndToEnd"))

from harness.desktop import Desktop, DesktopOptions  # noqa: E402
from harness.display import Display, Rect  # noqa: E402
from harness.launcher import Launcher  # noqa: E402
from harness.waiting import wait_until  # noqa: E402

WALLPAPER = "/usr/share/backgrounds/gnome/adwaita-l.webp"
SIZE = (1280, 800)
STAGE = Rect(360, 175, 560, 450)
MIDDLE = STAGE.centre
ASIDE = (MIDDLE[0] + 48, MIDDLE[1] + 44)  # Still in the ring's hole, and over no text.
FRAMES_PER_SECOND = 25
# In the ring's order: a name, an icon of the theme, and what is started.
APPLICATIONS = (
    ("Text Editor", "text-editor", "mousepad"), ("Web Browser", "web-browser", "true"),
    ("Mail", "internet-mail", "true"), ("Files", "system-file-manager", "pcmanfm"),
    ("Calendar", "office-calendar", "true"), ("Photos", "multimedia-photo-manager", "true"),
    ("Music", "multimedia-audio-player", "true"), ("Terminal", "utilities-terminal", "lxterminal"),
    ("Maps", "maps", "true"), ("Calculator", "accessories-calculator", "galculator"),
    ("Videos", "multimedia-video-player", "true"), ("Weather", "weather", "true"),
    ("Chat", "internet-chat", "true"), ("Notes", "notes", "true"), ("Settings", "preferences-system", "true"))
RUNNING = ("Text Editor", "Terminal")
LOOK = {
    "config/gtk-3.0/settings.ini": "[Settings]\ngtk-icon-theme-name=Papirus\ngtk-theme-name=Adwaita\ngtk-font-name=Cantarell 11\n",
    "config/fontconfig/fonts.conf": """<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>
        <alias binding="strong"><family>sans-serif</family><prefer><family>Cantarell</family></prefer></alias>
        <alias binding="strong"><family>Sans</family><prefer><family>Cantarell</family></prefer></alias></fontconfig>""",
    ".icons/default/index.theme": "[Icon Theme]\nInherits=Adwaita\n",
}


class HandsomeDesktop(Desktop):
    """One that looks like somebody's."""

    def start_window_manager(self):
        for name, text in LOOK.items():
            path = self.home / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        super().start_window_manager()


class Camera:
    """Takes pictures of the stage, the pointer included, for the duration of the block."""

    def __init__(self, display_name):
        self.frames = []  # When it was taken, in seconds, and the picture.
        self._display = Display(display_name)
        self._display.connection.xfixes_query_version()
        self._ended = threading.Event()
        self._thread = threading.Thread(target=self._film)

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._ended.set()
        self._thread.join()
        self._display.close()

    def _film(self):
        while not self._ended.wait(1 / FRAMES_PER_SECOND):
            self.frames.append((time.monotonic(), self._shoot()))

    def _shoot(self):
        seen = self._display.picture(STAGE)
        frame = Image.frombytes("RGB", (seen.width, seen.height), seen.data, "raw", "BGRX")
        pointer = self._display.connection.xfixes_get_cursor_image(self._display.root)
        pixels = b"".join(value.to_bytes(4, "little") for value in pointer.cursor_image)
        shape = Image.frombytes("RGBa", (pointer.width, pointer.height), pixels, "raw", "BGRa").convert("RGBA")
        place = (pointer.x - pointer.xhot - STAGE.x, pointer.y - pointer.yhot - STAGE.y)
        frame.paste(shape, place, shape)
        return frame


def glide(display, x, y, seconds=0.5):
    """Moves the pointer there as a hand does."""
    from_x, from_y = display.pointer()
    steps = max(2, round(60 * seconds))
    for step in range(1, steps + 1):
        part = (1 - math.cos(math.pi * step / steps)) / 2
        display.move_pointer(from_x + part * (x - from_x), from_y + part * (y - from_y))
        time.sleep(seconds / steps)


def play(launcher):
    """What the film shows: hold, point, let go; tap twice, type, launch."""
    display = launcher.display
    glide(display, *MIDDLE, 0.7)
    with display.held("ctrl", "alt"):
        launcher.wait_open()
        time.sleep(0.4)
        for step in range(0, 46):
            angle = math.radians(6 * step - 90)
            place = (MIDDLE[0] + 118 * math.cos(angle), MIDDLE[1] + 118 * math.sin(angle))
            if step == 0:
                glide(display, *place, 0.35)
            display.move_pointer(*place)
            time.sleep(0.035)
        glide(display, *MIDDLE, 0.35)
        time.sleep(0.3)
    launcher.wait_hidden()
    time.sleep(0.5)
    for _ in range(2):
        with display.held("ctrl", "alt"):
            time.sleep(0.08)
        time.sleep(0.1)
    launcher.wait_open()
    glide(display, *ASIDE, 0.3)
    time.sleep(0.4)
    for letter in "calc":
        display.press(letter)
        time.sleep(0.22)
    time.sleep(0.6)
    display.press("Return")
    launcher.wait_hidden()
    glide(display, STAGE.x + 60, STAGE.y + STAGE.height - 40, 0.5)
    time.sleep(1.5)


def furnish(desktop, program):
    """A launcher among applications that everybody knows, two of them running on another desktop."""
    entries = {}
    for name, icon, command in APPLICATIONS:
        entries[name] = desktop.applications.folder / f"{name.lower().replace(' ', '-')}.desktop"
        desktop.applications.write_entry(entries[name], name, command, icon, f"StartupWMClass={command}\n")
    launcher = Launcher(desktop, program)
    launcher.environment = {"XDG_DATA_DIRS": f"{desktop.home / 'share'}:{desktop.home / 'icons'}"}
    (desktop.home / "icons").mkdir()
    (desktop.home / "icons" / "icons").symlink_to("/usr/share/icons")
    launcher.settings(permanentAppPaths=[str(entry) for entry in entries.values()])
    launcher.use_chord()
    desktop.display.switch_to_desktop(1)
    for name in RUNNING:
        desktop.spawn(["gio", "launch", str(entries[name])], log=name)
    wait_until(lambda: len(desktop.display.root_property("_NET_CLIENT_LIST") or []) >= len(RUNNING), "windows are open")
    desktop.display.switch_to_desktop(0)
    return launcher


def write(frames, path):
    """Pictures that do not differ from the one before are left out; the last one stays for a moment."""
    kept = [frame for index, frame in enumerate(frames) if not index or frame[1] != frames[index - 1][1]]
    times = [taken for taken, _ in kept] + [frames[-1][0] + 0.8]
    durations = [round(1000 * (after - taken)) for taken, after in zip(times, times[1:])]
    pictures = [picture for _, picture in kept]
    pictures[0].save(path, save_all=True, append_images=pictures[1:], duration=durations, loop=0, quality=82, method=4)
    print(f"{path}: {len(pictures)} pictures, {sum(durations) / 1000:.1f} s, {pathlib.Path(path).stat().st_size / 1e6:.2f} MB")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", default=ROOT / "build" / "release" / "tavik-launcher")
    parser.add_argument("film", nargs="?", default=ROOT / "docs" / "ring.webp")
    options = parser.parse_args()
    with contextlib.ExitStack() as stack:
        folder = stack.enter_context(tempfile.TemporaryDirectory())
        wallpaper = pathlib.Path(folder) / "wallpaper.png"
        Image.open(WALLPAPER).convert("RGB").resize(SIZE, Image.LANCZOS).save(wallpaper)
        desktop = stack.enter_context(HandsomeDesktop(
            DesktopOptions(*SIZE, background=("-fill", str(wallpaper)))))
        launcher = furnish(desktop, options.program)
        desktop.display.move_pointer(STAGE.x + 60, STAGE.y + STAGE.height - 40)
        launcher.start()
        stack.callback(launcher.stop)
        launcher.wait_indexed()
        time.sleep(2)  # Icons are decoded ahead.
        camera = Camera(desktop.display_name)
        with camera:
            play(launcher)
    write(camera.frames, options.film)


if __name__ == "__main__":
    sys.exit(main())
