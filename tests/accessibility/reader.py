"""The program as an assistive tool meets it: windows, names, roles, states and keys, and nothing else."""

import time

import pyatspi
from gi.repository import GLib

PATIENCE = 60  # Seconds until a wait fails, whatever the machine's speed: no state needs so long.

# What a held key is for the registry, as the display server counts modifiers.
MODIFIERS = {"Shift": 1, "Ctrl": 4, "Alt": 8}
KEYS = {"Tab": 0xFF09, "Enter": 0xFF0D, "Escape": 0xFF1B, "F1": 0xFFBE, "F4": 0xFFC1, "Right": 0xFF53, "Down": 0xFF54}

# Whatever a user can choose, type in or press: what has to have a name.
CONTROLS = {pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_ENTRY, pyatspi.ROLE_LIST,
            pyatspi.ROLE_PASSWORD_TEXT, pyatspi.ROLE_PROGRESS_BAR, pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_RADIO_BUTTON,
            pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_TABLE, pyatspi.ROLE_TABLE_COLUMN_HEADER,
            pyatspi.ROLE_TABLE_ROW_HEADER, pyatspi.ROLE_TEXT, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_TOOL_BAR,
            pyatspi.ROLE_STATUS_BAR, pyatspi.ROLE_MENU_BAR, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_DOCUMENT_FRAME}
MESSAGES = {pyatspi.ROLE_ALERT, pyatspi.ROLE_DIALOG}
WITH_ENTRIES = {pyatspi.ROLE_LIST, pyatspi.ROLE_TABLE}
WITHOUT_ACTIONS = {pyatspi.ROLE_LIST}
MOST_TABS = 60
MOST_ENTRIES = 80  # Of a list or grid that are looked at.


def wait_for(condition, what):
    """Returns the condition's first true value. `what` is a text, or makes one when it is needed."""
    end = time.monotonic() + PATIENCE
    while True:
        trouble = ""
        try:
            if found := condition():
                return found
        except Exception as error:  # What was looked at is no longer there: pyatspi raises many kinds then.
            trouble = f" ({error})"
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what() if callable(what) else what}{trouble}")
        time.sleep(0.02)


def has(node, *states):
    known = node.getState()
    return all(known.contains(state) for state in states)


def is_showing(node):
    return has(node, pyatspi.STATE_SHOWING)


def text_of(node):
    """What stands in a field, the whole of it."""
    return node.queryText().getText(0, -1)


def children(node):
    count = node.childCount
    if node.getRole() in WITH_ENTRIES:
        count = min(count, MOST_ENTRIES)
    return [child for child in (node[i] for i in range(count)) if child is not None]


def walk(node):
    """The node and all that shows below it."""
    yield node
    for child in children(node):
        if is_showing(child):
            yield from walk(child)


def press_key(keys):
    """One key with what is held: "Alt+c", "Tab"."""
    *held, key = keys.split("+")
    mask = sum(MODIFIERS[name] for name in held)
    generate = pyatspi.Registry.generateKeyboardEvent
    if mask:
        generate(mask, None, pyatspi.KEY_LOCKMODIFIERS)
    generate(KEYS.get(key) or ord(key), None, pyatspi.KEY_SYM)
    if mask:
        generate(mask, None, pyatspi.KEY_UNLOCKMODIFIERS)


def type_text(text):
    for letter in text:
        press_key(letter)


class Listener:
    """Hears what programs report by themselves."""

    FOCUS, NAME = "object:state-changed:focused", "object:property-change:accessible-name"

    def __init__(self):
        self.heard = []
        pyatspi.Registry.registerEventListener(self._hear, self.FOCUS, self.NAME)

    def close(self):
        pyatspi.Registry.deregisterEventListener(self._hear, self.FOCUS, self.NAME)

    def _hear(self, event):
        if not str(event.type).startswith(self.FOCUS) or event.detail1:
            self.heard.append((str(event.type), event.source.getRole(), event.source.name))

    def wait_for(self, kind, role, name):
        """Waits until it was reported, and returns how often."""

        def reported():
            while GLib.MainContext.default().iteration(False):
                pass
            return sum(each[0].startswith(kind) and each[1:] == (role, name) for each in self.heard)

        return wait_for(reported, lambda: f"{kind} from {name!r}, heard were {self.heard}")


class Reader:
    """Reads one program and works with it."""

    def __init__(self, name, process):
        self.application = wait_for(lambda: self._application(process), f"the application {name}")

    @staticmethod
    def _application(process):
        return next((each for each in children(pyatspi.Registry.getDesktop(0))
                     if each.get_process_id() == process and each.childCount > 0), None)

    def active_window(self):
        """The window that has the keys; None while none has."""
        return next((each for each in children(self.application) if has(each, pyatspi.STATE_ACTIVE)), None)

    def wait_for_window(self, title):
        """The window in front, once its title begins so."""

        def in_front():
            window = self.active_window()
            return window if window is not None and window.name.startswith(title) else None

        return wait_for(in_front, f"the window {title!r}")

    def find(self, role, name):
        """The showing control of that name in the window in front, or None."""
        window = self.active_window()
        return None if window is None else next(
            (each for each in walk(window) if each.getRole() == role and each.name == name), None)

    def get(self, role, name):
        return wait_for(lambda: self.find(role, name), lambda: f"{name!r} in {self.active_window()}")

    def focused(self):
        """What has the keyboard in the window in front, the innermost."""
        window = self.active_window()
        found = [each for each in walk(window) if has(each, pyatspi.STATE_FOCUSED)] if window is not None else []
        return found[-1] if found else None

    def wait_for_focus(self, name):
        return wait_for(lambda: (at := self.focused()) is not None and at.name == name and at,
                        lambda: f"the focus on {name!r}, it is on {self.focused()}")

    def go_to(self, role, name):
        """Moves the keyboard to a control: by its action, or by Tab where it has none."""
        control = self.get(role, name)
        if role not in WITHOUT_ACTIONS:
            control.queryComponent().grabFocus()
        for _ in range(MOST_TABS if role in WITHOUT_ACTIONS else 0):
            if has(control, pyatspi.STATE_FOCUSED):
                break
            before = wait_for(self.focused, "a control that has the focus")
            press_key("Tab")
            wait_for(lambda before=before: not has(before, pyatspi.STATE_FOCUSED), f"the focus to leave {before}")
        wait_for(lambda: has(control, pyatspi.STATE_FOCUSED), f"the focus in {name!r}")
        return control

    def current_cell(self):
        """The cell that has the keyboard; None while no grid has it."""
        at = self.focused()
        return at if at is not None and at.getRole() == pyatspi.ROLE_TABLE_CELL else None

    @staticmethod
    def row_of(cell):
        return cell.parent.queryTable().getRowAtIndex(cell.getIndexInParent())

    def message(self):
        """The message that waits for an answer; None while there is none."""
        window = self.active_window()
        return window if window is not None and window.getRole() in MESSAGES else None

    def is_there(self, window):
        return any(each == window for each in children(self.application))

    def press(self, name):
        """Presses a button as an assistive tool does, by its action."""
        button = wait_for(lambda: (found := self.find(pyatspi.ROLE_PUSH_BUTTON, name)) is not None
                          and has(found, pyatspi.STATE_ENABLED) and found, f"the enabled button {name!r}")
        do(button, "Press")


def do(node, name):
    """Runs an action of that name."""
    action = node.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    assert name in names, f"{node} has no action {name!r} among {names}"
    action.doAction(names.index(name))
