# SPDX-License-Identifier: MIT
"""An X client that looks at windows and pixels and presses keys and buttons through XTEST."""
import contextlib
import typing

import Xlib.display
import Xlib.error
from Xlib import X, XK, Xatom, Xutil
from Xlib.ext import xtest
from Xlib.protocol import event

from harness.picture import Picture
from harness.waiting import wait_until

SYMBOLS = {".": "period", "/": "slash", "-": "minus", " ": "space"}
KEYS = {"ctrl": "Control_L", "alt": "Alt_L", "super": "Super_L", "shift": "Shift_L"}
MODIFIER_MASKS = {"ctrl": X.ControlMask, "alt": X.Mod1Mask, "super": X.Mod4Mask, "shift": X.ShiftMask}
GONE = (Xlib.error.BadWindow, Xlib.error.BadDrawable, Xlib.error.BadMatch)


class Rect(typing.NamedTuple):
    x: int
    y: int
    width: int
    height: int

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2


class Display:
    """One connection to the X server `name`. Windows are named by their id."""

    def __init__(self, name):
        self.connection = Xlib.display.Display(name)
        self.root = self.connection.screen().root
        self._grabbing = []
        # Windows come and go while we look; what is not answered through a reply is of no interest.
        self.connection.set_error_handler(lambda *_: None)

    def close(self):
        for connection in (*self._grabbing, self.connection):
            with contextlib.suppress(Xlib.error.ConnectionClosedError):  # The server may have gone first.
                connection.close()

    # --- windows

    @property
    def size(self):
        geometry = self.root.get_geometry()
        return geometry.width, geometry.height

    def window(self, window_id):
        return self.connection.create_resource_object("window", window_id)

    def property(self, window_id, name):
        """The property's values as a list (text as one string), or None."""
        atom = self.connection.intern_atom(name)
        try:
            answer = self.window(window_id).get_full_property(atom, X.AnyPropertyType)
        except GONE:
            return None
        if answer is None:
            return None
        if isinstance(answer.value, (bytes, str)):
            text = answer.value
            return text.decode("utf-8", "replace") if isinstance(text, bytes) else text
        if answer.property_type == Xatom.ATOM:
            return [self.connection.get_atom_name(value) for value in answer.value]
        return list(answer.value)

    def root_property(self, name):
        return self.property(self.root.id, name)

    def title(self, window_id):
        return self.property(window_id, "_NET_WM_NAME") or self.property(window_id, "WM_NAME")

    def all_windows(self):
        """Every window below the root, in stacking order from bottom to top."""
        def below(window):
            with contextlib.suppress(*GONE):
                for child in window.query_tree().children:
                    yield child.id
                    yield from below(child)

        return list(below(self.root))

    def is_viewable(self, window_id):
        try:
            return self.window(window_id).get_attributes().map_state == X.IsViewable
        except GONE:
            return False

    def find(self, title, wider_than=0):
        """The viewable window with that title, or None."""
        def is_it(window):
            return (self.title(window) == title and self.is_viewable(window)
                    and (place := self.geometry(window)) and place.width > wider_than)

        return next(filter(is_it, self.all_windows()), None)

    def wait_for(self, title, timeout=10.0, **which):
        return wait_until(lambda: self.find(title, **which), f"a window titled {title!r} is shown", timeout)

    def wait_gone(self, title, timeout=10.0, **which):
        wait_until(lambda: self.find(title, **which) is None, f"no window titled {title!r} is shown", timeout)

    def geometry(self, window_id):
        """The place of a window on the root, or None when it is gone."""
        try:
            window = self.window(window_id)
            geometry = window.get_geometry()
            place = window.translate_coords(self.root, 0, 0)
        except GONE:
            return None
        return Rect(-place.x, -place.y, geometry.width, geometry.height)

    def switch_to_desktop(self, number):
        self._ask_window_manager(self.root.id, "_NET_CURRENT_DESKTOP", [number, X.CurrentTime, 0, 0, 0])
        wait_until(lambda: self.root_property("_NET_CURRENT_DESKTOP") == [number], f"desktop {number} is shown")

    def listen_to_starts(self):
        """Hears the messages of start-up notification from now on; the result returns them as kinds and texts."""
        connection = Xlib.display.Display(self.connection.get_display_name())
        self._grabbing.append(connection)
        connection.screen().root.change_attributes(event_mask=X.PropertyChangeMask)
        connection.sync()
        parts, messages = {}, []

        def heard():
            while connection.pending_events():
                message = connection.next_event()
                if message.type != X.ClientMessage:
                    continue
                text = parts.get(message.window.id, b"") + bytes(message.data[1])
                parts[message.window.id] = text
                if b"\0" in text:
                    whole = parts.pop(message.window.id).split(b"\0")[0].decode()
                    messages.append(whole.split(": ", 1))
            return messages

        return heard

    def focused_window(self):
        """The window that receives key presses, or 0."""
        focus = self.connection.get_input_focus().focus
        return focus if isinstance(focus, int) else focus.id

    def has_focus(self, window_id):
        """True when the keyboard belongs to the window or to a window inside it."""
        focus = self.focused_window()
        while focus not in (0, 1, self.root.id):
            if focus == window_id:
                return True
            try:
                focus = self.window(focus).query_tree().parent.id
            except GONE:
                return False
        return False

    def state(self, window_id):
        return self.property(window_id, "_NET_WM_STATE") or []

    def is_above(self, upper, lower):
        """True when the top-level window that holds `upper` lies above the one that holds `lower`."""
        order = [child.id for child in self.root.query_tree().children]
        return order.index(self._top_level(upper)) > order.index(self._top_level(lower))

    def _top_level(self, window_id):
        while (parent := self.window(window_id).query_tree().parent.id) != self.root.id:
            window_id = parent
        return window_id

    def activate(self, window_id):
        """Asks the window manager, as a pager does, to give the focus to a window."""
        self._ask_window_manager(window_id, "_NET_ACTIVE_WINDOW", [2, X.CurrentTime, 0, 0, 0])

    def minimise(self, window_id):
        self._ask_window_manager(window_id, "WM_CHANGE_STATE", [Xutil.IconicState, 0, 0, 0, 0])

    def close_window(self, window_id):
        """Asks the window manager, as its close button does, to close a window."""
        self._ask_window_manager(window_id, "_NET_CLOSE_WINDOW", [X.CurrentTime, 2, 0, 0, 0])

    def _ask_window_manager(self, window_id, message_type, numbers):
        message = event.ClientMessage(
            window=window_id, client_type=self.connection.intern_atom(message_type), data=(32, numbers))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.connection.sync()

    # --- pixels

    def picture(self, rect=None, window_id=None):
        """What the screen shows there, the compositor's work included; or what this window has drawn there."""
        rect = rect or Rect(0, 0, *self.size)
        width, height = self.size
        left, top = max(0, rect.x), max(0, rect.y)
        right, bottom = min(width, rect.x + rect.width), min(height, rect.y + rect.height)
        place = self.geometry(window_id) if window_id else Rect(0, 0, *self.size)
        source = self.window(window_id) if window_id else self.root
        image = source.get_image(
            left - place.x, top - place.y, right - left, bottom - top, X.ZPixmap, 0xFFFFFFFF)
        return Picture(right - left, bottom - top, image.data)

    # --- hands

    def move_pointer(self, x, y):
        """Returns when the pointer is there: it waits for a window manager that is thinking about a click."""
        xtest.fake_input(self.connection, X.MotionNotify, x=int(x), y=int(y))
        self.connection.sync()
        wait_until(lambda: self.pointer() == (int(x), int(y)), f"the pointer is at {int(x)}, {int(y)}")

    def pointer(self):
        answer = self.root.query_pointer()
        return answer.root_x, answer.root_y

    def _send(self, kind, codes):
        for code in codes:
            xtest.fake_input(self.connection, kind, code)
        self.connection.sync()

    @contextlib.contextmanager
    def _down(self, press, release, codes):
        self._send(press, codes)
        try:
            yield
        finally:
            self._send(release, reversed(codes))

    def button_held(self, x, y, button=1):
        """Holds a button of the pointer down from that place on, for the duration of the block."""
        self.move_pointer(x, y)
        return self._down(X.ButtonPress, X.ButtonRelease, [button])

    def click(self, x=None, y=None, button=1):
        with self.button_held(*((x, y) if x is not None else self.pointer()), button):
            pass

    def keycode(self, key):
        """The place of a key on the keyboard, given by its name or as that place."""
        if isinstance(key, int):
            return key
        code = self.connection.keysym_to_keycode(XK.string_to_keysym(KEYS.get(key, key)))
        assert code, f"this keyboard has no key {key!r}"
        return code

    def held(self, *keys):
        """Holds keys down for the duration of the block."""
        return self._down(X.KeyPress, X.KeyRelease, [self.keycode(key) for key in keys])

    def press(self, *chords):
        """Presses and releases chords such as "ctrl+alt+space" or single keys such as "Return", one after the other."""
        for chord in chords:
            with self.held(*chord.split("+")):
                pass

    def type(self, text):
        """Types lower-case letters, digits and a few symbols, one key press each."""
        for character in text:
            self.press(SYMBOLS.get(character, character))

    def _grab_key(self, client, chord):
        """Asks for a chord on another client's behalf; returns how it can be given back, or nothing."""
        *modifiers, key = chord.split("+")
        code, mask = self.keycode(key), sum(MODIFIER_MASKS[name] for name in modifiers)
        refused = Xlib.error.CatchError(Xlib.error.BadAccess)
        root = client.screen().root
        root.grab_key(code, mask, False, X.GrabModeAsync, X.GrabModeAsync, onerror=refused)
        client.sync()
        return None if refused.get_error() else lambda: root.ungrab_key(code, mask)

    def is_grabbed(self, chord):
        """True when another client holds this chord. Nobody else can see the short attempt."""
        self.connection.grab_server()
        try:
            give_back = self._grab_key(self.connection, chord)
            if give_back:
                give_back()
            return not give_back
        finally:
            self.connection.ungrab_server()
            self.connection.sync()

    def grab(self, chord):
        """Takes a chord until the connection is closed, as a program of its own would."""
        self._grabbing.append(Xlib.display.Display(self.connection.get_display_name()))
        assert self._grab_key(self._grabbing[-1], chord), f"{chord} is taken"

    def grabbed_events(self):
        """The key events of the chord that was taken last, since they were asked for the last time."""
        client = self._grabbing[-1]
        events = [client.next_event() for _ in range(client.pending_events())]
        return [event for event in events if event.type in (X.KeyPress, X.KeyRelease)]
