# SPDX-License-Identifier: MIT
"""The window managers that the journeys are made under, each as a desktop brings it."""
import contextlib
import dataclasses
import os
import pathlib
import sys

import pytest
from gi.repository import GLib

from harness.waiting import wait_until

FOLDER = pathlib.Path(__file__).parent


@dataclasses.dataclass(frozen=True)
class WindowManager:
    command: tuple
    composites: bool = False
    is_heavy: bool = False  # Only there where all desktops were installed.
    is_variant: bool = False  # Of another one, for journeys that name it.
    loses_frames: bool = False  # Drawn by the processor, it misses a window's last frame now and then: any window's.
    leave_key: str = ""  # Shows another desktop, where the standard's request does not.
    prepare: object = None  # Is given the desktop; returns what else the environment says.
    settle: object = None  # Is given the desktop, once the manager has taken the screen.


def _gnome_login_manager(desktop):
    """GNOME Shell does not start without a login manager: a stand-in on a system bus of its own. Its greeting is
    left out, and so are its animations: drawn by the processor, the one at the start takes seconds."""
    settings = desktop.home / "config" / "glib-2.0" / "settings" / "keyfile"
    settings.parent.mkdir(parents=True)
    settings.write_text("[org/gnome/shell]\nwelcome-dialog-last-shown-version='99'\n"
                        "[org/gnome/desktop/interface]\nenable-animations=false\n")
    address = desktop.start_bus("system-bus")
    environment = {"DBUS_SYSTEM_BUS_ADDRESS": address, "GSETTINGS_BACKEND": "keyfile", "LIBGL_ALWAYS_SOFTWARE": "1"}
    desktop.spawn([sys.executable, "-m", "dbusmock", "--system", "--template", "logind"], environment, log="logind")
    wait_until(lambda: desktop.name_has_owner("org.freedesktop.login1", address), "there is a login manager")
    return environment


def _close_gnome_overview(desktop):
    """The shell opens its overview when it starts, and the overview has all keys."""
    def call(member, signature, *arguments):
        return desktop.call("org.gnome.Shell", "/org/gnome/Shell", f"org.freedesktop.DBus.Properties.{member}",
                            signature, ("org.gnome.Shell", "OverviewActive", *arguments))

    def is_open():
        with contextlib.suppress(GLib.Error):  # The name comes first, the object somewhat later.
            return call("Get", "(ss)")[0]

    wait_until(is_open, "the overview is open", timeout=30)
    call("Set", "(ssv)", GLib.Variant("b", False))
    wait_until(lambda: is_open() is False, "the overview is closed")


def _kwin(settings=""):
    def prepare(desktop):
        (desktop.home / "config" / "kwinrc").write_text(f"[Desktops]\nNumber=2\nRows=1\n{settings}")

    return {"command": ("kwin_x11",), "composites": True, "is_heavy": True, "prepare": prepare}


WINDOW_MANAGERS = {
    "openbox": WindowManager(("openbox", "--sm-disable")),
    "openbox-follow": WindowManager(
        ("openbox", "--sm-disable", "--config-file", FOLDER / "openbox-follow.xml"), is_variant=True),
    "xfwm4": WindowManager(("xfwm4", "--compositor=off")),
    "metacity": WindowManager(("metacity", "--no-composite")),
    "marco": WindowManager(("marco", "--no-composite")),
    "i3": WindowManager(("i3", "-c", FOLDER / "i3.config"), leave_key="super+2"),
    "awesome": WindowManager(("awesome",), is_heavy=True),
    "bspwm": WindowManager(
        ("bspwm", "-c", "/dev/null"), is_heavy=True,
        settle=lambda desktop: desktop.run(["bspc", "monitor", "--reset-desktops", "one", "two"])),
    "dwm": WindowManager(("dwm",), is_heavy=True),
    "kwin": WindowManager(**_kwin()),
    "kwin-follow": WindowManager(**_kwin("[Windows]\nFocusPolicy=FocusFollowsMouse\nDelayFocusInterval=0\n"), is_variant=True),
    "mutter": WindowManager(("mutter", "--x11"), composites=True, is_heavy=True, loses_frames=True),
    "gnome-shell": WindowManager(
        ("gnome-shell", "--x11"), composites=True, is_heavy=True, loses_frames=True, prepare=_gnome_login_manager,
        settle=_close_gnome_overview),
}


def wants_all():
    """Whether this run is made under all desktops."""
    return bool(os.environ.get("TAVIK_ALL_DESKTOPS"))


def window_managers(*names):
    """Those of these names, or all, that this run is made under: with all desktops installed the heavy ones, too."""
    return [name for name, manager in WINDOW_MANAGERS.items()
            if (name in names if names else not manager.is_variant) and (wants_all() or not manager.is_heavy)]


def under(*names):
    """Repeats a test under each of them; it takes `desktop_options`."""
    return pytest.mark.parametrize("desktop_options", [{"window_manager": name} for name in window_managers(*names)],
                                   ids=lambda options: options["window_manager"])


def switching_managers():
    """The names of those that show another desktop when they are asked to; dwm listens to nobody."""
    return [name for name in window_managers() if name != "dwm"]


def leave_desktop(desktop, display):
    if desktop.window_manager.leave_key:
        display.press(desktop.window_manager.leave_key)
    else:
        display.switch_to_desktop(1)
    wait_until(lambda: display.root_property("_NET_CURRENT_DESKTOP") == [1], "the other desktop is shown")
