# SPDX-License-Identifier: MIT
"""Wayland desktops, each in a window that fills a virtual X display: what drives and watches that display
drives and watches the desktop."""
import ast
import dataclasses
import json
import os
import pathlib
import re
import shlex
import shutil

from Xlib import X

from harness import processes
from harness.desktop import Desktop, DesktopOptions
from harness.waiting import wait_until
from harness.window_managers import WINDOW_MANAGERS, wants_all

NOBODY = 65534  # sway refuses to run as root; root's programs may use it all the same.


@dataclasses.dataclass(frozen=True)
class Screens:
    """`count` outputs side by side, which share the display's width."""
    count: int = 1
    scale: float = 1


class WaylandDesktop(Desktop):
    """Use as a context manager. `has_x` says whether programs also find an X server."""
    program = ""  # What has to be installed.
    name = ""  # In $XDG_CURRENT_DESKTOP.
    is_heavy = False  # Only there where all desktops were installed.
    hears_chords = True
    has_one_window = False  # For all screens; else one for each.

    def __init__(self, has_x, screens=Screens()):
        super().__init__(DesktopOptions(window_manager="none", has_compositor=False))
        self.has_x = has_x
        self.screens = screens
        self._session = {}
        self.compositor = None

    @classmethod
    def missing(cls):
        """Why a test on this desktop is skipped here, or nothing."""
        if cls.is_heavy and not wants_all():
            return f"{cls.program} is for all desktops"
        return None if shutil.which(cls.program) else f"{cls.program} is not installed"

    def _start(self):
        super()._start()
        self._session = {"XDG_SESSION_TYPE": "wayland", "XDG_CURRENT_DESKTOP": self.name, **self._start_compositor()}
        self._place_windows()
        self.settle()

    def _start_compositor(self):
        """Starts it and returns what it adds to the environment of programs."""
        raise NotImplementedError

    def settle(self):
        """Waits until keys reach the programs."""

    def hung(self):
        return processes.stopped(self.compositor)

    @property
    def environment(self):
        session = {**super().environment, **self._session}
        return {name: value for name, value in session.items() if value}

    @property
    def screen_width(self):
        return self.options.width // self.screens.count

    def _place_windows(self):
        """Nobody else does, and gives one the keyboard."""
        def windows():
            shown = [w for w in self.display.root.query_tree().children
                     if self.display.is_viewable(w.id) and self.display.geometry(w.id).width >= self.screen_width]
            return len(shown) >= (1 if self.has_one_window else self.screens.count) and sorted(shown, key=lambda w: w.id)

        for position, host in enumerate(wait_until(windows, "the desktop has its windows")):
            host.configure(x=position * self.screen_width, y=0)
            host.set_input_focus(X.RevertToParent, X.CurrentTime)
        self.display.connection.sync()


class Sway(WaylandDesktop):
    program = "sway"
    name = "sway"
    configuration = "default_border none\nworkspace_layout tabbed\nfocus_follows_mouse no\nbindsym --no-repeat Ctrl+Mod1+b nop another\n"

    def _start_compositor(self):
        self.home.chmod(0o755)
        run = self.home / "sway"
        run.mkdir(mode=0o700)
        configuration = run / "config"
        configuration.write_text(
            f"xwayland {'enable' if self.has_x else 'disable'}\n{self.configuration}"
            + "".join(f"output X11-{i + 1} resolution {self.screen_width}x{self.options.height}"
                      f" position {i * self.screen_width},0 scale {self.screens.scale}\n" for i in range(self.screens.count)) +
            "exec swaybg -c '#307090'\n"  # Of our own: sway's goes for a moment at each reload.
            f"{'exec xhost +local:' if self.has_x else ''}\n"
            f"exec_always echo >> {run}/loads\n"
            f"exec env > {run}/environment.part && mv {run}/environment.part {run}/environment\n")
        command = ["sway", "-c", str(configuration)]
        if os.getuid() == 0:
            for path in (run, configuration):
                os.chown(path, NOBODY, NOBODY)
            command = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", *command]
        self.compositor = self.spawn(command, {
            "XDG_RUNTIME_DIR": str(run), "HOME": str(run), "WLR_BACKENDS": "x11", "WLR_X11_OUTPUTS": str(self.screens.count),
            "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": "1"}, log="compositor")
        told = run / "environment"
        wait_until(told.exists, "sway runs", timeout=20)
        inside = dict(line.split("=", 1) for line in told.read_text().splitlines() if "=" in line)
        return {"WAYLAND_DISPLAY": str(run / inside["WAYLAND_DISPLAY"]), "SWAYSOCK": inside["SWAYSOCK"],
                "DISPLAY": inside["DISPLAY"] if self.has_x else ""}

    def settle(self):
        wait_until(lambda: self.display.picture().pixel(5, 5) == (0x30, 0x70, 0x90), "the background is drawn", timeout=20)
        if self.has_x:  # It starts when it is first asked, and lets nobody in at first.
            wait_until(lambda: self.run(["xset", "q"]).returncode == 0, "the X server takes programs", timeout=20)

    def reload(self):
        """Returns when it has happened; sway answers before."""
        loads = self.home / "sway" / "loads"
        before = loads.stat().st_size
        self.message("reload")
        wait_until(lambda: loads.stat().st_size > before, "sway has read its configuration again")

    def message(self, *words):
        answer = self.run(["swaymsg", *words])
        assert answer.returncode == 0, answer.stderr
        return json.loads(answer.stdout or "null")


class AnotherWlroots(Sway):
    """A compositor that says nothing beside the protocols of its kind."""
    name = "wlroots"

    @property
    def environment(self):
        return {name: value for name, value in super().environment.items() if name != "SWAYSOCK"}


class KWin(WaylandDesktop):
    """KWin alone, which has KDE's service for global shortcuts inside."""
    program = "kwin_wayland"
    name = "KDE"
    is_heavy = True
    hears_chords = False

    def _start_compositor(self):
        # The installed file has a capability that a container may not give, and then cannot be run.
        copy = shutil.copy(shutil.which(self.program), self.home)
        width, height = (str(round(side / self.screens.scale)) for side in (self.screen_width, self.options.height))
        self.compositor = self.spawn(
            [copy, "--no-lockscreen", "--x11-display", self.display_name, "--width", width, "--height", height, "--output-count",
             str(self.screens.count), "--scale", str(self.screens.scale), "--socket", "wayland-test",
             *(["--xwayland"] if self.has_x else [])],
            {"KWIN_COMPOSE": "O2", "LIBGL_ALWAYS_SOFTWARE": "1"}, log="compositor")
        wait_until(lambda: self.name_has_owner("org.kde.kglobalaccel"), "KWin runs", timeout=30)
        session = {"WAYLAND_DISPLAY": "wayland-test", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5", "DISPLAY": ""}
        if self.has_x:
            session["DISPLAY"] = wait_until(lambda: x_server_below(self.compositor.pid), "the X server runs", timeout=20)
            session["XAUTHORITY"] = str(next((self.home / "runtime").glob("xauth_*"), ""))
        return session


class GnomeShell(WaylandDesktop):
    program = "gnome-shell"
    media_keys = "org.gnome.settings-daemon.plugins.media-keys"
    name = "GNOME"
    is_heavy = True
    has_one_window = True

    def _start_compositor(self):
        manager = WINDOW_MANAGERS["gnome-shell"]
        self._session = {
            **manager.prepare(self), "GSETTINGS_SCHEMA_DIR": "/usr/share/glib-2.0/schemas",
            "MUTTER_DEBUG_DUMMY_MODE_SPECS": f"{self.screen_width}x{self.options.height}",
            "MUTTER_DEBUG_NUM_DUMMY_MONITORS": str(self.screens.count)}
        with (self.home / "config" / "glib-2.0" / "settings" / "keyfile").open("a") as settings:
            settings.write("[org/gnome/desktop/notifications]\nshow-banners=false\n")
        self.compositor = self.spawn(["gnome-shell", "--wayland", "--nested", "--unsafe-mode", "--wayland-display", "wayland-test",
                    *([] if self.has_x else ["--no-x11"])], log="compositor")
        wait_until(lambda: self.name_has_owner("org.gnome.Shell"), "GNOME Shell runs", timeout=60)
        session = {**self._session, "WAYLAND_DISPLAY": "wayland-test", "DISPLAY": ""}
        if self.has_x:
            told = wait_until(lambda: re.search(r"public X11 display (:\d+)", self.log("compositor")), "it has an X server")
            session["DISPLAY"] = told[1]
            session["XAUTHORITY"] = str(next((self.home / "runtime").glob(".mutter-Xwaylandauth*"), ""))
        return session

    def settle(self):
        WINDOW_MANAGERS["gnome-shell"].settle(self)
        self.spawn(["/usr/libexec/gsd-media-keys"], log="media-keys")
        wait_until(lambda: self.name_has_owner("org.gnome.SettingsDaemon.MediaKeys"), "somebody listens for keys", timeout=30)

    def custom_shortcuts(self):
        return self.run(["gsettings", "get", self.media_keys, "custom-keybindings"]).stdout

    def run_shortcut(self, changed):
        """Runs the first custom shortcut's command, changed, and returns what is bound there then."""
        path = re.findall(r"'(\S+)'", self.custom_shortcuts())[0]

        def told(key):
            return self.run(["gsettings", "get", f"{self.media_keys}.custom-keybinding:{path}", key]).stdout.strip()

        assert told("binding") != "''"
        self.run(shlex.split(changed(ast.literal_eval(told("command")))))
        return told("binding")


def x_server_below(pid):
    """The name of the X server that a compositor has started, or nothing."""
    commands = map(processes.command, processes.descendants(pid))
    words = next((words for words in commands if words and words[0].endswith("Xwayland")), ())
    return next((word for word in words if word.startswith(":")), None)


def speaks_wayland():
    """Whether the toolkit can do without an X server here."""
    return any(pathlib.Path("/usr/lib").glob("*/qt6/plugins/platforms/libqwayland*.so"))
