# SPDX-License-Identifier: GPL-3.0-or-later
"""The keyboard and the mouse of the display, without a process for each stroke."""

import select
import time

from Xlib import XK, X, Xatom, display
from Xlib.error import BadWindow
from Xlib.ext import xtest
from Xlib.protocol.event import ClientMessage

MANAGER_PATIENCE = 1.0  # seconds to wait for the window manager's answer

CLICK_PAUSE = 0.05  # seconds that a hand needs at least from the mouse to the keyboard

MODIFIERS = {"alt": "Alt_L", "ctrl": "Control_L", "shift": "Shift_L"}


class Hands:
    """A key goes by its character, by the name of its keysym, such as "Return", or by MODIFIERS. One
    that the display's keyboard has not raises a KeyError.
    """

    def __init__(self):
        self._display = display.Display()
        self._owner = self._display.intern_atom("_NET_WM_PID")
        self._question = self._display.intern_atom("_NET_REQUEST_FRAME_EXTENTS")
        self._root = self._display.screen().root
        self._asking = self._root.create_window(
            0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask
        )

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

    def move(self, x, y):
        """The mouse, to a pixel of the screen."""
        xtest.fake_input(self._display, X.MotionNotify, x=x, y=y)
        self._display.sync()

    def click(self, times=1):
        """The left button, where the mouse is. Held, it would repeat what an arrow does."""
        for event in times * (X.ButtonPress, X.ButtonRelease):
            xtest.fake_input(self._display, event, 1)
        self._wait_for_manager()
        time.sleep(CLICK_PAUSE)

    def _wait_for_manager(self):
        """The window manager has each click before the window that it is meant for, while keys go
        there at once. When it answers a question, it has passed on what came before.
        """
        question = ClientMessage(
            window=self._asking, client_type=self._question, data=(32, (0, 0, 0, 0, 0))
        )
        self._root.send_event(question, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.flush()
        end = time.monotonic() + MANAGER_PATIENCE
        while not self._is_answered() and time.monotonic() < end:
            select.select([self._display], [], [], max(0, end - time.monotonic()))

    def _is_answered(self):
        """The answer is a property of the window that asked."""
        events = [self._display.next_event() for _ in range(self._display.pending_events())]
        return any(event.type == X.PropertyNotify for event in events)

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
