#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The program behind a made-up application: reports how it was started, then shows a window."""
import argparse
import json
import os
import time

import Xlib.display
from Xlib import X, XK, Xatom


def report(path):
    fields = {
        "pid": os.getpid(), "parent": os.getppid(), "session": os.getsid(0), "folder": os.getcwd(),
        "environment": dict(os.environ),
    }
    note(path, json.dumps(fields))


def note(path, line):
    with open(path, "a", encoding="utf-8") as stream:
        stream.write(line + "\n")


def show_window(options):
    display = Xlib.display.Display()
    screen = display.screen()
    width, height, x, y = options.geometry
    window = screen.root.create_window(
        x, y, width, height, 0, screen.root_depth, background_pixel=int(options.colour, 16),
        event_mask=X.KeyPressMask | X.ButtonPressMask | X.StructureNotifyMask)
    utf8 = display.intern_atom("UTF8_STRING")
    window.set_wm_name(options.title)
    window.change_property(display.intern_atom("_NET_WM_NAME"), utf8, 8, options.title.encode())
    window.set_wm_class(*(options.window_class or (options.title.lower(), options.title)))
    window.change_property(display.intern_atom("_NET_WM_PID"), Xatom.CARDINAL, 32, [os.getpid()])
    window.set_wm_protocols([display.intern_atom("WM_DELETE_WINDOW")])
    window.set_wm_hints(flags=1, input=0 if options.panel else 1)
    if options.panel:
        kind = display.intern_atom("_NET_WM_WINDOW_TYPE_DOCK")
        window.change_property(display.intern_atom("_NET_WM_WINDOW_TYPE"), Xatom.ATOM, 32, [kind])
    window.set_wm_normal_hints(flags=1, x=x, y=y)
    if options.full_screen:
        state = display.intern_atom("_NET_WM_STATE_FULLSCREEN")
        window.change_property(display.intern_atom("_NET_WM_STATE"), Xatom.ATOM, 32, [state])
    window.map()
    while True:
        event = display.next_event()
        if event.type == X.ClientMessage:
            return
        if event.type == X.KeyPress:
            print("key", XK.keysym_to_string(display.keycode_to_keysym(event.detail, 0)), flush=True)
        elif event.type == X.ButtonPress:
            print("click", event.detail, flush=True)


def show_native_window(options):
    """A large window of a Wayland program, which bears its entry's name, and has that on the session bus."""
    os.environ |= {"GDK_BACKEND": "wayland", "XDG_DATA_DIRS": "/usr/share"}  # Its own buttons, where the desktop draws none.
    import gi
    gi.require_version("Gtk", "3.0")
    from gi.repository import Gtk, Gdk, GLib  # The first chooses the version of the second.

    name = f"org.example.{options.title.lower()}"
    GLib.set_prgname(name)
    style = Gtk.CssProvider()
    style.load_from_data(f"window {{ background: #{options.colour}; }}".encode())
    Gtk.StyleContext.add_provider_for_screen(Gdk.Screen.get_default(), style, 800)
    application = Gtk.Application(application_id=name)
    application.register()
    window = Gtk.ApplicationWindow(title=options.title, application=application)
    application.connect("activate", lambda _: window.present())
    if options.report:
        window.connect("key-press-event", lambda _, event: note(options.report, f"key {Gdk.keyval_name(event.keyval)}"))
        window.add_events(Gdk.EventMask.BUTTON_PRESS_MASK)
        window.connect("button-press-event", lambda *_: note(options.report, "click"))
    window.maximize()
    application.run()


parser = argparse.ArgumentParser()
parser.add_argument("--title", required=True)
parser.add_argument("--colour", default="f5f5f5")
parser.add_argument("--report")
parser.add_argument("--geometry", type=int, nargs=4, default=[300, 200, 40, 40])
parser.add_argument("--full-screen", action="store_true")
parser.add_argument("--native", action="store_true")
parser.add_argument("--panel", action="store_true", help="it takes no focus")
parser.add_argument("--class", dest="window_class", nargs=2)
parser.add_argument("--delay", type=float, default=0)
parser.add_argument("--report-only", action="store_true")
arguments = parser.parse_args()
if arguments.report:
    report(arguments.report)
if arguments.delay:
    time.sleep(arguments.delay)
if not arguments.report_only:
    (show_native_window if arguments.native else show_window)(arguments)
