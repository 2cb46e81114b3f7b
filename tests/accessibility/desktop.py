"""A desktop of the test's own, and the program on it as a screen reader has it.

The desktop is a display (Xvfb) and a session bus that nobody else is on, with the accessibility bus
switched on. The program is reached through that bus alone: what stands on it, what it can do.
Characters go to filtered cells as key strokes, since a filter looks at keys and nothing else.
"""

import ctypes
import os
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
REOPEN_S = 4  # seconds after which a list that shows no item is opened again
WAIT_S = 60
INSIDE = "VELMORA_TEST_DESKTOP"


def skip(reason):
    print(f"SKIPPED: {reason}")
    sys.exit(SKIPPED)


def enter(tools=()):
    """Runs this script again on a desktop of its own; goes on when it stands on one."""
    if INSIDE in os.environ:
        return
    for tool in ("dbus-run-session", "Xvfb", *tools):
        if shutil.which(tool, path=os.environ.get("PATH", "") + ":/usr/sbin") is None:
            skip(f"{tool} is not installed")
    try:
        _atspi()
    except (ImportError, ValueError) as error:
        skip(f"the accessibility bus can't be read from Python: {error}")
    folder = tempfile.mkdtemp(prefix="vel")
    os.chmod(folder, 0o711)  # a print server's own user passes through
    display = None
    try:
        display, name = start_display("1280x1024", "-fbdir", folder)
        environment = _environment(folder) | {"DISPLAY": name}
        sys.exit(subprocess.run(_on_bus(), env=environment).returncode)
    finally:
        if display is not None:
            display.terminate()
            display.wait()
        shutil.rmtree(folder, ignore_errors=True)


def start_display(size, *options):
    """Starts a display of width x height on a free number: the process and the display's name."""
    reading, writing = os.pipe()
    # Without a reset: when one program has gone, the next may come at that very moment.
    screen = ("-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset", *options)
    display = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), *screen],
        pass_fds=[writing],
        stdin=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )
    os.close(writing)
    with os.fdopen(reading) as answer:
        number = answer.readline().strip()
    if not number:
        raise RuntimeError("Xvfb doesn't start")
    return display, f":{number}"


def _on_bus():
    python = (sys.executable, "-B", "-W", "ignore::DeprecationWarning")
    return ["dbus-run-session", "--", *python, *sys.argv]


def _atspi():
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi

    return Atspi


def _environment(folder):
    kept = ("PATH", "VELMORA", "LD_LIBRARY_PATH", "PYTHONPATH")
    environment = {k: v for k, v in os.environ.items() if k in kept or k.endswith("SAN_OPTIONS")}
    for name in ("home", "run", "work"):
        os.mkdir(os.path.join(folder, name), 0o700)
    return environment | {
        INSIDE: folder,
        "HOME": os.path.join(folder, "home"),
        "XDG_RUNTIME_DIR": os.path.join(folder, "run"),
        "TMPDIR": folder,
        "LC_ALL": "C.UTF-8",
        "QT_QPA_PLATFORM": "xcb",
    }


def folder():
    return os.environ[INSIDE]


def wait_for(what, condition):
    """The first true value of the condition; an error says what was waited for."""
    limit = time.monotonic() + WAIT_S
    while True:
        try:
            if value := condition():
                return value
        except _errors():
            pass  # what was looked at has just gone
        if time.monotonic() > limit:
            raise AssertionError(f"not within {WAIT_S} s: {what}")
        time.sleep(0.05)


def _errors():
    from gi.repository import GLib

    return (GLib.Error, AttributeError)


class Program:
    """The program, started on the desktop."""

    def __init__(self, executable, environment=None):
        Atspi = self.atspi = _atspi()
        self._switch_on()
        Atspi.init()
        Atspi.set_timeout(20_000, 60_000)
        self.child = subprocess.Popen(
            [executable],
            env=os.environ | (environment or {}),
            cwd=os.path.join(folder(), "work"),
            stdin=subprocess.DEVNULL,
        )
        self.root = wait_for("the program on the accessibility bus", self._find)
        self.root.set_cache_mask(Atspi.Cache.NONE)

    @staticmethod
    def _switch_on():
        from gi.repository import Gio, GLib

        Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
            "org.a11y.Bus",
            "/org/a11y/bus",
            "org.freedesktop.DBus.Properties",
            "Set",
            GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled", GLib.Variant("b", True))),
            None,
            Gio.DBusCallFlags.NONE,
            60_000,
        )

    def _find(self):
        assert self.child.poll() is None, "the program has ended"
        desktop = self.atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_process_id() == self.child.pid:
                return child if child.get_child_count() > 0 else None
        return None

    def close(self):
        if self.child.poll() is None:
            self.child.kill()
        self.child.wait()

    def status(self):
        return self.child.wait(WAIT_S)

    # What stands on the screen.

    def windows(self):
        return children(self.root)

    def window(self):
        """The window of the screens, not a box over it."""
        return next(w for w in self.windows() if w.get_role() == self.atspi.Role.FRAME)

    def title(self):
        return self.window().get_name()

    def showing(self, node):
        return node.get_state_set().contains(self.atspi.StateType.SHOWING)

    def everything(self, node=None):
        """The nodes below this one, those of hidden branches left out."""
        for child in children(node or self.window()):
            if self.showing(child):
                yield child
                yield from self.everything(child)

    def find(self, name, *roles, within=None):
        """The first showing node of this name, and of one of these roles, once it is there."""

        def found():
            for node in self.everything(within):
                if node.get_name() == name and (not roles or node.get_role() in roles):
                    return node
            return None

        return wait_for(f"{name!r} on {self.title()!r}", found)

    def has(self, name):
        return any(node.get_name() == name for node in self.everything())

    def text(self, name):
        """The text of a cell or of a list; its heading may bear the same name."""
        return text_of(self.find(name, self.atspi.Role.TEXT, self.atspi.Role.COMBO_BOX))

    def nameless(self):
        """The showing controls without a name, by role. Fillers and panels only hold others."""
        holders = (self.atspi.Role.FILLER, self.atspi.Role.PANEL)
        return [
            node.get_role_name()
            for window in self.windows()
            for node in (window, *self.everything(window))
            if not node.get_name().strip() and node.get_role() not in holders
        ]

    # What a user of a screen reader does.

    def actions(self, node):
        return [node.get_action_name(i) for i in range(node.get_n_actions())]

    def act(self, node, action):
        names = self.actions(node)
        assert action in names, f"{node.get_name()!r} offers {names}, not {action}"
        assert node.do_action(names.index(action)), f"{action} on {node.get_name()!r}"

    def press(self, name, within=None):
        node = self.find(name, within=within)
        self.act(node, "Press")
        wait_for(f"{name!r} up again", lambda: not self.is_down(node))

    def is_down(self, node):
        """A button goes down when pressed, and runs its handler as it comes up."""
        try:
            return node.get_state_set().contains(self.atspi.StateType.PRESSED)
        except _errors():
            return False  # it has gone with its screen, or with the program

    def choose(self, title, item):
        """An entry of a list of the menu bar."""
        entry = self.find(title, self.atspi.Role.MENU_ITEM)
        self.act(entry, "ShowMenu")
        self.press(item, within=entry)

    def pick(self, name, item):
        """An item of a list, opened first.

        A display without a window manager may take the keyboard away, which closes an open list: it
        is opened again when its item hasn't shown for a while.
        """
        box = self.find(name, self.atspi.Role.COMBO_BOX)
        opened = None

        def node():
            nonlocal opened
            if opened is None or time.monotonic() - opened > REOPEN_S:
                self.act(box, "ShowMenu")
                opened = time.monotonic()
            return next((n for n in self.everything(box) if n.get_name() == item), None)

        self.act(wait_for(f"{item!r} of {name!r}", node), "Press")
        wait_for(f"{item!r} in {name!r}", lambda: text_of(box) == item)

    def write(self, name, text):
        """Puts a text into a cell through the bus, which free cells take."""
        cell = self.find(name, self.atspi.Role.TEXT)
        assert cell.set_text_contents(text), name
        wait_for(f"{text!r} in {name!r}", lambda: text_of(cell) == text)

    def take_keyboard(self):
        """What a window manager does when a window is shown; there is none on this desktop."""
        active = self.atspi.StateType.ACTIVE

        def taken():
            return self.window().get_state_set().contains(active) or focus_window_at_pointer()

        wait_for("the keyboard on the window", taken)
        wait_for("the window active", lambda: self.window().get_state_set().contains(active))

    def focus(self, name):
        self.take_keyboard()
        node = self.find(name, self.atspi.Role.TEXT)
        self.act(node, "SetFocus")
        focused = self.atspi.StateType.FOCUSED
        wait_for(f"the keyboard on {name!r}", lambda: node.get_state_set().contains(focused))
        return node

    def type(self, name, text, shown=None):
        """Key strokes into a cell."""
        cell = self.focus(name)
        for character in text:
            self.key(ord(character))
        shown = text if shown is None else shown
        wait_for(f"{shown!r} in {name!r}", lambda: text_of(cell) == shown)

    def key(self, symbol):
        assert self.atspi.generate_keyboard_event(symbol, None, self.atspi.KeySynthType.SYM)

    # Boxes and dialogs over the window.

    def box(self):
        """The box or dialog that stands over the window, once it is there."""

        def found():
            over = [w for w in self.windows() if w.get_role() != self.atspi.Role.FRAME]
            return next((w for w in over if self.showing(w)), None)

        return wait_for(f"a box over {self.title()!r}", found)

    def words(self, box):
        labels = (n for n in self.everything(box) if n.get_role() == self.atspi.Role.LABEL)
        return [label.get_name() for label in labels if label.get_name()]

    def answer(self, button):
        """Presses a button of the box, and gives what the box said."""
        box = self.box()
        words = "\n".join(self.words(box))
        self.press(button, within=box)
        self.gone(box)
        return words

    def gone(self, box):
        def away():
            return self.child.poll() is not None or all(w != box for w in self.windows())

        wait_for("the box away", away)


def focus_window_at_pointer():
    """Gives the keyboard to the window in the middle of the display, where the pointer rests."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    root, found = ctypes.c_ulong(), ctypes.c_ulong()
    others = [ctypes.byref(ctypes.c_int()) for _ in range(5)]
    top = ctypes.c_ulong(x11.XDefaultRootWindow(display))
    x11.XQueryPointer(display, top, ctypes.byref(root), ctypes.byref(found), *others)
    if found.value:
        to_parent, now = 2, ctypes.c_ulong(0)
        x11.XSetInputFocus(display, found, to_parent, now)
    x11.XCloseDisplay(display)
    return bool(found.value)


def children(node):
    nodes = (node.get_child_at_index(i) for i in range(node.get_child_count()))
    return [child for child in nodes if child is not None]


def text_of(node):
    Atspi = _atspi()
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))
