# SPDX-License-Identifier: GPL-3.0-or-later
"""Hands and eyes of a stranger at the running program.

The eyes are the accessibility bus, where every control shows its role, name and place; the hands are
real key presses and mouse clicks on the display, but where a script would wait for them more than for
all else: a file dialog is told the name of the file. trigger() works an entry as assistive technology
does. Meant to run below on_virtual_display.
"""

import functools
import os
import signal
import subprocess
import time
import typing

import pyatspi
from gi.repository import Atspi, GLib

from hands import Hands

PATIENCE = 30.0  # seconds to wait for anything to appear; generous, for a loaded machine
ANSWER_PATIENCE = 5.0  # seconds to wait for each answer on the bus
# Seconds to wait until the program has the keys, until it tells the bus of one or moves the focus, and
# then until it tells of the release, which goes astray where the key closed its window. Each is longer
# by ANSWERS times what the last answer took: so loaded the machine is.
KEY_PATIENCE = 1.0
RELEASE_PATIENCE = 0.1
ANSWERS = 5

# All, Shift, Control, Alt, and two of them.
MODIFIERS = (0, 1, 4, 8, 5, 9, 12)

# A look leaves out what cannot hold what it is for, as each control costs several questions on the
# bus: what holds nothing, ...
CHILDLESS = {
    "chart", "check box", "image", "list item", "push button", "radio button", "separator",
    "table cell", "table column header", "table row header",
}  # fmt: skip
# ... what holds only controls of some roles, ...
INSIDE = {
    "menu bar": {"menu item", "check menu item", "radio menu item", "popup menu", "separator"},
    "table": {"table cell", "column header", "row header", "text"},
    **dict.fromkeys(CHILDLESS, ()),
}
# ... and all but what a role stands in only.
WITHIN = {
    "alert": {"application"},
    "dialog": {"application"},
    "menu item": {"application", "frame", "menu bar", "menu item", "popup menu"},
    "status bar": {"application", "frame"},
}

# What has the keys to itself as soon as it is active, and not before.
DIALOGS = {"dialog", "alert"}

FILE_NAME = "text «Nombre de archivo:»"  # where a file dialog has the focus

# What the bus raises for a control or an application that is gone while it is looked at, or does not
# answer in time.
Gone = GLib.GError
Atspi.set_timeout(round(1000 * ANSWER_PATIENCE), round(1000 * PATIENCE))


class NotFound(AssertionError):
    pass


def wait_for(what, look, patience=PATIENCE):
    """The first true result of look(), asked again, less and less often, until patience ends."""
    end = time.monotonic() + patience
    pause = 0.005
    while True:
        try:
            result = look()
        except Gone:
            result = None
        if result:
            return result
        if time.monotonic() > end:
            raise NotFound(f"waited in vain for {what}")
        time.sleep(pause)
        pause = min(1.5 * pause, 0.1)


@functools.cache
def role_of(control):
    """Asked once: no control changes its role."""
    return control.getRoleName()


class Box(typing.NamedTuple):
    """A place on the screen, in points."""

    x: int
    y: int
    width: int
    height: int


def box_of(control):
    box = control.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return Box(box.x, box.y, box.width, box.height)


def is_showing(control, name=None):
    """Whether a control is to be seen, and has this name still."""
    try:
        seen = control.getState().contains(pyatspi.STATE_SHOWING)
        return seen and (name is None or control.name == name)
    except Gone:
        return False


def is_active(window):
    """Whether it has the keys, and the window manager has put it where it stays."""
    try:
        return window.getState().contains(pyatspi.STATE_ACTIVE)
    except Gone:
        return False


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)


def output(*command):
    """What a command prints; nothing of one that fails."""
    return subprocess.run(
        list(map(str, command)), capture_output=True, text=True, check=False
    ).stdout


def screenshot(path):
    """The whole display as a PNG."""
    subprocess.run(["import", "-window", "root", str(path)], check=True)


class Program:
    """The program as a process, from its start to its end."""

    def __init__(self, executable, under=(), **environment):
        """`under` is a command that starts the program in its own place, such as a tracer."""
        self._application = None
        self._bus_name = None
        self._answering = []  # in this order, the bus and the program
        self._popups = []
        self._listeners = []  # each with its kind of event
        self._found = {}  # what find() found last, by what was sought
        self._hands = Hands()
        self._keys_told = set()  # (press or release, code of the key)
        self._has_moved = False  # the focus, since the last key
        self._answer_time = 0.0  # that the last answer took, in seconds
        self.focus = None  # the control that announced the focus last
        self._listen()
        self.process = subprocess.Popen(
            [*under, str(executable)], env={**os.environ, **environment}, start_new_session=True
        )
        # The bus tells places in points, the mouse moves by pixels.
        self._scale = float(environment.get("QT_SCALE_FACTOR", 1))
        try:
            self._application = wait_for("the program on the accessibility bus", self._find_itself)
            self._bus_name = self._application.app.bus_name
            frame = self.find("frame", "Cuadrado Latino")
            bus, own = pyatspi.Registry.getDesktop(0).queryComponent(), frame.queryComponent()
            # Once the bus has answered, it has given leave for what came before; once the program has,
            # it knows of that and has posted the key to itself; and then it has taken it.
            self._answering = [bus, own, own]
            wait_for("the focus", self._find_focus)
        except NotFound:
            self.kill()
            raise

    def _find_itself(self):
        if self.process.poll() is not None:
            raise NotFound(f"the program ended with {self.process.returncode}")
        desktop = pyatspi.Registry.getDesktop(0)
        for application in desktop:
            try:
                if application and application.get_process_id() == self.process.pid:
                    return application
            except Gone:  # an application that left the bus while it was looked at
                continue
        return None

    def _find_focus(self):
        """The focus of a program that has just started: its announcement may have been too early."""
        self.hear()
        if self.focus is None or not self._owns(self.focus):
            tables = self._of_role("table")
            focused = (it for it in tables if it.getState().contains(pyatspi.STATE_FOCUSED))
            self.focus = next(focused, None)
        return self.focus

    # Eyes

    def _listen(self):
        self.listen("object:state-changed:showing", self._note_popup)
        self.listen("object:state-changed:focused", self._note_focus)
        pyatspi.Registry.registerKeystrokeListener(
            self._note_key, mask=MODIFIERS, synchronous=False
        )

    def listen(self, event, listener):
        """Until the end of the program, which tells only of what it knows to be listened for."""
        pyatspi.Registry.registerEventListener(listener, event)
        self._listeners.append((listener, event))
        self._let_it_arrive()

    def _listen_no_more(self):
        while self._listeners:
            pyatspi.Registry.deregisterEventListener(*self._listeners.pop())
        pyatspi.Registry.deregisterKeystrokeListener(self._note_key, mask=MODIFIERS)

    def _note_key(self, event):
        self._keys_told.add((event.type, event.hw_code))

    def _note_popup(self, event):
        """A pop-up of a button hangs on nothing that can be walked to: it announces itself."""
        try:
            if role_of(event.source) != "popup menu":
                return
            if event.source.parent != self._application:  # of the menu bar, or another program's
                return
            self._popups = [popup for popup in self._popups if popup != event.source]
            if event.detail1:
                self._popups.append(event.source)
        except Gone:  # gone while it was looked at
            return

    def _note_focus(self, event):
        try:
            # A child window has the focus along with the control in it.
            if event.detail1 and self._owns(event.source) and role_of(event.source) != "frame":
                self.focus = event.source
                self._has_moved = True
        except Gone:  # gone while it was looked at
            return

    def _owns(self, control):
        """Known without a question: getApplication() asks all parents one after the other. What is
        gone is nobody's; before the program has told its name, all is its own.
        """
        return control.app is not None and self._bus_name in (None, control.app.bus_name)

    @staticmethod
    def hear():
        """Takes in what was announced in the meantime."""
        while GLib.MainContext.default().iteration(False):
            pass

    def focused(self):
        """What has the focus: "table cell «7,500»"."""
        self.hear()
        if self.focus is None:
            return None
        try:
            return f"{role_of(self.focus)} «{self.focus.name}»"
        except Gone:
            return None

    def wait_for_focus(self, *expected):
        """Waits until the focus is at one of these, each as focused() tells it."""
        try:
            wait_for("the focus", lambda: self.focused() in expected)
        except NotFound:
            raise NotFound(f"the focus is at {self.focused()}, not at {' or '.join(expected)}")

    def controls(self, inside=None):
        """Every control of the program, or inside one of its controls, each before what is in it."""
        return (control for control, _ in self._walk(inside, lambda _: True))

    def _walk(self, inside, descends, passes_over=lambda control: True):
        """Controls with their roles, each before what is in it; descends(role) says whether to look
        into one, passes_over(control) whether one may be left out that could not be asked.
        """
        self.hear()
        waiting = [self._application, *self._popups] if inside is None else [inside]
        while waiting:
            control = waiting.pop(0)
            try:
                role = role_of(control)
                children = range(min(control.childCount, 400)) if descends(role) else ()
                children = [control.getChildAtIndex(i) for i in children]
                children = [child for child in children if child is not None]
                if control is self._application:  # a dialog stands before the frame
                    children.sort(key=lambda window: role_of(window) == "frame")
            except Gone:
                if not passes_over(control):
                    raise
                continue
            if control is not self._application:
                yield control, role
            waiting[:0] = children

    def look(self, role, name=None, inside=None):
        """The controls of that role (and name) that are showing."""
        return list(self._look(role, name, inside))

    def _look(self, role, name, inside):
        return (control for control in self._of_role(role, inside) if is_showing(control, name))

    def _of_role(self, wanted, inside=None):
        def descends(role):
            return wanted in INSIDE.get(role, {wanted}) and role in WITHIN.get(wanted, {role})

        return (control for control, role in self._walk(inside, descends) if role == wanted)

    def showing(self):
        """Every control that is showing, with its role and its states; Gone is raised for one that shows
        still but could not be asked.
        """
        for control, role in self._walk(None, lambda _: True, lambda it: not is_showing(it)):
            states = control.getState()
            if states.contains(pyatspi.STATE_SHOWING):
                yield control, role, states

    def status(self):
        """The text of the status line."""
        return self.find("label", inside=self.find("status bar")).name

    def find(self, role, name=None, inside=None):
        """Waits until there is one; of dialogs, until it takes keys. A name that was found before, and
        shows still, is the same control again.
        """
        sought = (role, name, inside)
        found = self._found.get(sought)
        if found is None or not is_showing(found, name):
            found = wait_for(f"{role} «{name}»", lambda: next(self._look(*sought), None))
            if name:
                self._found[sought] = found
        if role in DIALOGS:
            wait_for(f"the keys for {role} «{name}»", lambda: is_active(found))
        return found

    def wait_until_gone(self, role, name=None):
        wait_for(f"the end of {role} «{name}»", lambda: not self.look(role, name))

    @staticmethod
    def wait_until_hidden(control):
        """Asks only the one, where wait_until_gone looks through all."""
        wait_for("the end of what was chosen", lambda: not is_showing(control))

    @staticmethod
    def text(control):
        return control.queryText().getText(0, -1)

    # Hands

    def click(self, control, times=1):
        def middle():
            box = box_of(control)
            return box.x + box.width / 2, box.y + box.height / 2

        self._move(*middle())
        self._wait_briefly(self._takes_clicks, KEY_PATIENCE)
        self._move(*middle())  # a dialog that was on its way may have been put elsewhere
        self._click(times)

    def click_at(self, x, y, times=1):
        """In points of the screen."""
        self._move(x, y)
        self._wait_briefly(self._takes_clicks, KEY_PATIENCE)
        self._click(times)

    def _move(self, x, y):
        self._hands.move(round(x * self._scale), round(y * self._scale))

    def _click(self, times):
        self._hands.click(times)
        self._let_it_arrive()  # a shortcut that comes with it would overtake it

    def _takes_clicks(self):
        """Whether no dialog is still on its way, and no tip of where the mouse was stands in its way."""
        windows = self._walk(None, lambda role: role == "application")
        showing = [(window, role) for window, role in windows if is_showing(window)]
        dialogs = [window for window, role in showing if role in DIALOGS]
        has_tip = any(role == "tool tip" for _, role in showing)
        return not has_tip and (not dialogs or any(map(is_active, dialogs)))

    def _let_it_arrive(self):
        """The program answers on the bus when it has taken in what the display told it."""
        asked = time.monotonic()
        try:
            for answering in self._answering:
                answering.getExtents(pyatspi.DESKTOP_COORDS)
        except Gone:  # the program has ended
            return
        self._answer_time = time.monotonic() - asked

    def press(self, *keys):
        """Keys and chords, such as "ctrl+a", each when the one before has arrived."""
        for key in keys:
            *modifiers, last = key.split("+")
            for modifier in modifiers:
                # Were Alt taken after the shortcut that it belongs to, the menu that is open by then
                # would take it for its end.
                self._strike(self._hands.down, modifier, pyatspi.KEY_PRESSED_EVENT)
            self._strike(self._hands.strike, last)
            for modifier in reversed(modifiers):
                self._strike(self._hands.up, modifier)

    def type(self, text):
        for character in text:
            self._strike(self._hands.strike, character)

    def _strike(self, act, key, last=pyatspi.KEY_RELEASED_EVENT):
        """A watched program takes its shortcuts at once, but tells the bus of every other key and
        waits for leave to take it: only then the next key is struck.
        """
        self._wait_briefly(lambda: self._hands.goes_to(self.process.pid), KEY_PATIENCE)
        self.hear()
        self._keys_told.clear()
        self._has_moved = False
        code = act(key)
        self._wait_briefly(lambda: self._has_moved or (last, code) in self._keys_told, KEY_PATIENCE)
        self._wait_briefly(lambda: (last, code) in self._keys_told, RELEASE_PATIENCE)
        self._let_it_arrive()

    def _wait_briefly(self, is_so, patience):
        """In vain for a key that the window manager keeps, and for one that closes its window."""
        end = time.monotonic() + patience + ANSWERS * self._answer_time
        while not is_so() and time.monotonic() < end and self.process.poll() is None:
            time.sleep(0.001)
            self.hear()

    def choose(self, menu, entry):
        """An entry of a menu of the bar, by mouse."""
        self.click(self.find("menu item", menu))
        chosen = self.find("menu item", entry)
        self.click(chosen)
        self.wait_until_hidden(chosen)  # with its menu, which takes keys

    def trigger(self, menu_item):
        """As assistive technology does: an entry of the bar, wherever it is and whatever is open."""
        for control in self._of_role("menu item"):
            if control.name == menu_item:
                control.queryAction().doAction(0)
                return
        raise NotFound(f"no entry {menu_item}")

    def windows(self):
        """The names of the child windows."""
        return [child.name for child in self.look("frame")[1:]]  # the first is the program's own

    def caption(self):
        """What stands on top of the frame, the name of a maximised child included; nothing while no
        window is to be seen.
        """
        for window in output("xdotool", "search", "--onlyvisible", "--pid", self.process.pid).split():
            name = output("xdotool", "getwindowname", window).strip()
            if name.startswith("Cuadrado Latino"):
                return name
        return ""

    def answer_file_dialog(self, path):
        """Gives the file dialog that is open a name, as dictation software does, and confirms it."""
        self.wait_for_focus(FILE_NAME)
        self.focus.queryEditableText().setTextContents(str(path))
        self.press("Return")

    def type_into_file_dialog(self, path):
        """As answer_file_dialog, key by key."""
        self.wait_for_focus(FILE_NAME)
        self.press("ctrl+a")
        self.type(str(path))
        self.press("Return")

    def confirm_alert(self):
        """Return in the box that is open."""
        self.wait_for_focus("push button «Aceptar»")
        self.press("Return")
        self.wait_until_gone("alert")

    # The end

    def wait_for_end(self):
        return self.process.wait(timeout=PATIENCE)

    def kill(self):
        self._listen_no_more()
        if self.process.poll() is None:
            os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait()
