# SPDX-License-Identifier: GPL-3.0-or-later
"""The keys of the display, struck one by one without a process for each."""

from Xlib import XK, X, Xatom, display
from Xlib.error import BadWindow
from Xlib.ext import xtest

MODIFIERS = {"alt": "Alt_L", "ctrl": "Control_L", "shift": "Shift_L"}


class Keyboard:
    """A key goes by its character, by the name of its keysym, such as "Return", or by MODIFIERS. One
    that the display's keyboard has not raises a KeyError.
    """

    def __init__(self):
        self._display = display.Display()
        self._owner = self._display.intern_atom("_NET_WM_PID")

    def goes_to(self, process):
        """Whether a window of this process (a number) has the keys. None has them between the end of
        a dialog and what the window manager gives them to next: a key is lost then.
        """
        window = self._display.get_input_focus().focus
        try:
            owner = window.get_full_property(self._owner, Xatom.CARDINAL)
        except (AttributeError, BadWindow):  # no window; gone while it was looked at
            return False
        return owner is not None and owner.value[0] == process

    def down(self, name):
        """@return the code of the key, by which the display knows it"""
        return self._act(name, X.KeyPress)

    def up(self, name):
        return self._act(name, X.KeyRelease)

    def strike(self, name):
        """With Shift where the key alone has another character."""
        return self._act(name, X.KeyPress, X.KeyRelease)

    def _act(self, name, *events):
        code, takes_shift = self._place(name)
        if takes_shift:
            self.down("shift")
        for event in events:
            xtest.fake_input(self._display, event, code)
        if takes_shift:
            self.up("shift")
        self._display.sync()
        return code

    def _place(self, name):
        """The code of a key, and whether its plain character is another one."""
        # In Latin 1 a character's keysym is its own number.
        keysym = ord(name) if len(name) == 1 else XK.string_to_keysym(MODIFIERS.get(name, name))
        for code, level in self._display.keysym_to_keycodes(keysym):
            if level < 2:
                return code, level == 1
        raise KeyError(name)
