# SPDX-License-Identifier: MIT
"""Applications made up for a test: a desktop entry, an icon of one colour, and a program with a window."""
import dataclasses
import itertools
import json
import os
import pathlib
import shutil
import subprocess
import sys

from PIL import Image

from harness.waiting import wait_until

PROGRAM = pathlib.Path(__file__).with_name("window_program.py")
# Far enough apart to be told from each other when drawn dimmed on the ring's dark band.
PALETTE = {
    "red": (235, 40, 40), "green": (40, 200, 60), "blue": (50, 90, 245), "yellow": (245, 225, 50),
    "magenta": (230, 50, 230), "cyan": (40, 220, 230), "white": (245, 245, 245), "orange": (250, 140, 20),
}


def open_window(desktop, title, *arguments):
    """Another program's window, which has the focus; what it gets is in the log of that title."""
    desktop.spawn([sys.executable, str(PROGRAM), "--title", title, *arguments], log=title)
    window = desktop.display.wait_for(title)
    desktop.display.activate(window)
    wait_until(lambda: desktop.display.has_focus(window), f"{title} has the focus")
    return window


@dataclasses.dataclass(frozen=True)
class Application:
    name: str
    colour: tuple
    entry: pathlib.Path
    report: pathlib.Path

    @property
    def path(self):
        return str(self.entry)

    def starts(self):
        """What each started instance has reported about itself, oldest first."""
        if not self.report.exists():
            return []
        return [json.loads(line) for line in self.report.read_text().splitlines() if line.endswith("}")]

    def wait_started(self, times=1):
        """Waits for the given number of starts and returns the last one's report."""
        return wait_until(lambda: len(self.starts()) >= times and self.starts()[-1], f"{self.name} was started")

    def has_run(self):
        return bool(self.starts())


class Applications:
    """The applications of one desktop, kept in its own data folder."""

    def __init__(self, data_home, reports):
        self.folder = data_home / "applications"
        self.icons = data_home / "pictures"
        self.reports = reports
        self._colours = itertools.cycle(PALETTE)
        for folder in (self.folder, self.icons, self.reports):
            folder.mkdir(parents=True)

    def add(self, name, colour=None, arguments="", lines=None):
        """Installs an application whose program opens a window titled as the name. More can be told to the
        program, and other lines be written into the entry."""
        colour = colour or next(self._colours)
        slug = name.lower().replace(" ", "-")
        report = self.reports / f"{slug}.json"
        command = f'{sys.executable} "{PROGRAM}" --title "{name}" --colour {bytes(PALETTE[colour]).hex()} --report "{report}" {arguments}'
        entry = self.folder / f"org.example.{slug}.desktop"
        if lines is None or "StartupWMClass" not in lines:
            lines = f"StartupWMClass={name}\n{lines or ''}"
        self.write_entry(entry, name, command, self._icon(colour), lines)
        return Application(name, PALETTE[colour], entry, report)

    def add_image(self, name, folder, ending=".AppImage"):
        """Puts an application of one file there: a shell in front, its entry, words and icon inside."""
        colour = next(self._colours)
        report, inside = self.reports / f"{name}.json", self.reports / name
        inside.mkdir()
        command = f"exec {sys.executable} {PROGRAM} --title {name} --report {report}"
        self.write_entry(inside / "it.desktop", name, f'it -c "{command}"', "it")
        shutil.copy(self._icon(colour), inside / ".DirIcon")
        subprocess.run(["mksquashfs", inside, self.reports / "packed", "-quiet", "-no-progress"], check=True)
        shell = bytearray(pathlib.Path("/bin/dash").read_bytes())
        shell[8:11] = b"AI\2"
        folder.mkdir(parents=True, exist_ok=True)
        image = folder / f"{name}{ending}"
        image.write_bytes(shell + (self.reports / "packed").read_bytes())
        image.chmod(0o755)
        return Application(name, PALETTE[colour], image, report)

    @staticmethod
    def run_stray(desktop, name, *arguments):
        """Opens a window of a program that has no entry; returns the window."""
        desktop.spawn([sys.executable, str(PROGRAM), "--title", name, *arguments], log=name)
        return desktop.display.wait_for(name)

    @staticmethod
    def open_native(desktop, name, *arguments):
        desktop.spawn([sys.executable, str(PROGRAM), "--title", name, "--native", *arguments], log=name)

    def add_many(self, count):
        """Installs `count` applications that start nothing of interest, with all icons among them."""
        icons = [self._icon(colour) for colour in PALETTE]
        for index in range(count):
            self.write_entry(
                self.folder / f"org.example.filler-{index:05}.desktop", f"Filler {_spelled(index)}", "/bin/true",
                icons[index % len(icons)])

    @staticmethod
    def write_entry(path, name, command, icon, extra=""):
        """Writes the entry whole or not at all, as an installer does."""
        partial = path.with_suffix(".partial")
        partial.write_text(
            f"[Desktop Entry]\nType=Application\nName={name}\nExec={command}\nIcon={icon}\n{extra}")
        os.replace(partial, path)

    def _icon(self, colour, side=64):
        path = self.icons / f"{colour}.png"
        if not path.exists():
            Image.new("RGB", (side, side), PALETTE[colour]).save(path)
        return path


def _spelled(number):
    """A pronounceable, distinct word per number, so that searches find realistic shares of many names."""
    consonants, vowels, word = "bdfgklmnprstvz", "aeiou", ""
    for _ in range(3):
        number, syllable = divmod(number, len(consonants) * len(vowels))
        word += consonants[syllable // len(vowels)] + vowels[syllable % len(vowels)]
    return word.capitalize()
