#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a file under Sources/ includes something its room must not know."""
import pathlib
import re
import sys

CORE = "TavikLauncherCore"
PLATFORM = "TavikLauncherPlatform"
CATALOG = "TavikLauncher/Catalog"
SETTINGS = "TavikLauncher/Settings"
RING = "TavikLauncher/Ring"
TRIGGER = "TavikLauncher/Trigger"
LOOK = "TavikLauncher/Look"
LANGUAGES = "TavikLauncher/Languages"
VIEWS = [f"TavikLauncher/Views/{view}" for view in ("Ring", "Windows", "SettingsWindow", "Updates", "Tray")]
SHELL = "TavikLauncher/Shell"
BASE = {CORE, PLATFORM}
LINUX = f"{PLATFORM}/Linux"
DISK, SESSION, APPLICATIONS, DESKTOPS, UPDATES, X11, WAYLAND = (
    f"{LINUX}/{room}" for room in ("Disk", "Session", "Applications", "Desktops", "Updates", "X11", "Wayland"))

ROOMS = {  # room: (rooms it may include, may use widgets, may use native headers)
    CORE: (set(), False, False),
    PLATFORM: ({CORE}, False, False),
    f"{PLATFORM}/Null": (BASE, False, False),
    DISK: (BASE, False, True),
    SESSION: (BASE | {DISK}, False, True),
    APPLICATIONS: (BASE | {DISK, SESSION}, False, True),
    DESKTOPS: (BASE | {SESSION, APPLICATIONS}, False, True),
    UPDATES: (BASE | {DISK, SESSION}, False, True),
    X11: (BASE | {DISK, SESSION, APPLICATIONS}, False, True),
    WAYLAND: (BASE | {APPLICATIONS, DESKTOPS}, False, True),
    LINUX: (BASE | {f"{PLATFORM}/Null", DISK, SESSION, APPLICATIONS, DESKTOPS, UPDATES, X11, WAYLAND}, False, True),
    CATALOG: (BASE, False, False),
    SETTINGS: (BASE, False, False),
    RING: (BASE | {CATALOG, SETTINGS}, False, False),
    TRIGGER: ({PLATFORM, SETTINGS}, False, False),
    LOOK: (BASE, True, False),
    LANGUAGES: (set(), False, False),
    **{view: (BASE | {LOOK, CATALOG, SETTINGS, RING}, True, False) for view in VIEWS},
    SHELL: (BASE | {f"{PLATFORM}/Null", LINUX, SESSION, APPLICATIONS, CATALOG, SETTINGS, RING, TRIGGER, LOOK, LANGUAGES, *VIEWS},
            True, False),
}
NATIVE = re.compile(
    r"^(xcb/|X11/|xkbcommon/|wayland|gio/|glib|plist/|AppKit/|Carbon/|CoreGraphics/|unistd\.h|fcntl\.h|signal\.h|sys/)")
WIDGETS = re.compile(
    r"^(QtWidgets/|Q(Widget|Application|Menu|SystemTrayIcon|PushButton|Label|Dialog|LineEdit|AccessibleWidget)\b)")
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.M)
SPDX = "SPDX-License-Identifier: MIT"


def roomOf(path):
    return max((r for r in ROOMS if path == r or path.startswith(r + "/")), key=len, default=None)


def faults(sources):
    for file in sorted(p for p in sources.rglob("*") if p.suffix in {".h", ".cpp", ".mm"}):
        name = file.relative_to(sources).as_posix()
        text = file.read_text(encoding="utf-8")
        room = roomOf(name)
        if room is None:
            yield f"{name}: stands in no room"
            continue
        if SPDX not in text.split("\n", 1)[0]:
            yield f"{name}: the first line must name the licence"
        mayInclude, widgets, native = ROOMS[room]
        for target in INCLUDE.findall(text):
            other = roomOf(target)
            if other and other != room and other not in mayInclude:
                yield f"{name}: {room} must not know {other} ({target})"
            if not widgets and WIDGETS.match(target):
                yield f"{name}: {room} must not know widgets ({target})"
            if not native and NATIVE.match(target):
                yield f"{name}: {room} must not know the system underneath ({target})"


found = list(faults(pathlib.Path(sys.argv[1]) / "Sources"))
print("\n".join(found))
sys.exit(1 if found else 0)
