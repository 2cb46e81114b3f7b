"""Controls of the model, the boxes and dialogs that a handler waits on, and the edit field."""

from dataclasses import dataclass

from arithmetic import ErrorEjecucion

UNTOLD = None  # a property that the rules leave open: it is not compared


class Control:
    """One control: `kind` is "cell", "list", "button" or "label"."""

    __slots__ = (
        "kind", "Text", "Visible", "Enabled", "Locked", "BackColor", "ForeColor", "items", "index"
    )  # fmt: skip

    def __init__(self, kind, text="", visible=True, locked=False, items=()):
        self.kind = kind
        self.Text = text
        self.Visible = visible
        self.Enabled = True
        self.Locked = locked if kind in ("cell", "list") else UNTOLD
        self.BackColor = self.ForeColor = UNTOLD
        self.items = items
        self.index = -1  # of a list: the present item, None when it can't be told

    def state(self):
        return (self.kind, self.Text, self.Visible, self.Enabled, self.Locked)

    def set_text(self, text):
        """The program writes the text of a list; which item is present is then open."""
        self.Text = text
        self.index = -1 if text == "" else None


class ControlArray(dict):
    """An array of controls; a missing element is the subscript error."""

    def __missing__(self, index):
        raise ErrorEjecucion("subscript")


@dataclass
class MessageBox:
    """A message box as a handler asks for it."""

    text: str
    style: int = 0
    title: str = "Velmora"

    #                style: icon, buttons, default
    STYLES = {
        0: ("NoIcon", ("ok",), "ok"),
        4: ("NoIcon", ("yes", "no"), "yes"),
        68: ("Information", ("yes", "no"), "yes"),
        292: ("Question", ("yes", "no"), "no"),
        324: ("Information", ("yes", "no"), "no"),
    }

    @property
    def buttons(self):
        return self.STYLES[self.style][1]

    def button_for(self, which):
        """The button that an answer presses: "esc" is No or OK, "enter" the default one."""
        if which == "esc":
            return "no" if "no" in self.buttons else "ok"
        return self.STYLES[self.style][2] if which == "enter" else which


@dataclass
class ErrorBox:
    """The run-time's message; its sentence is the program's own."""

    kind: str


@dataclass
class FileDialog:
    saving: bool


@dataclass
class DialogQuestion:
    """The file dialog's own question on replacing or creating `path`."""

    dialog: FileDialog
    path: str


@dataclass
class PrintDialog:
    pass


KEY_CODES = {
    "<BS>": 8, "<ENTER>": 13, "<ESC>": 27, "<C-V>": 22, "<C-X>": 24, "<C-C>": 3, "<C-Z>": 26,
    "<C-H>": 8, "<C-M>": 13,
}  # fmt: skip


class CellEdit:
    """The visit to one cell: caret and selection of an ordinary text field."""

    def __init__(self, control, clipboard):
        self.control = control
        self.clipboard = clipboard
        self.caret = self.anchor = len(control.Text)

    def replace(self, replacement):
        start, end = sorted((self.caret, self.anchor))
        text = self.control.Text
        self.control.Text = text[:start] + replacement + text[end:]
        self.caret = self.anchor = start + len(replacement)

    def _delete(self, first, last):
        if self.caret == self.anchor:
            self.anchor = max(0, min(len(self.control.Text), self.caret + last - first))
        self.replace("")

    def _move(self, position, selecting):
        self.caret = max(0, min(len(self.control.Text), position))
        if not selecting:
            self.anchor = self.caret

    def navigate(self, key):
        """Keys that change no text; True when `key` is one of them."""
        end = len(self.control.Text)
        targets = {
            "<HOME>": (0, False), "<END>": (end, False),
            "<S-HOME>": (0, True), "<S-END>": (end, True),
            "<LEFT>": (self.caret - 1, False), "<RIGHT>": (self.caret + 1, False),
        }  # fmt: skip
        if key not in targets:
            return False
        self._move(*targets[key])
        return True

    def clamp(self):
        """After the program has written the text."""
        self.caret = min(self.caret, len(self.control.Text))
        self.anchor = min(self.anchor, len(self.control.Text))

    def type_key(self, key):
        """A key that no filter has refused."""
        if self.control.Locked:
            return
        if key == "<BS>":
            self._delete(0, -1)
        elif key == "<DEL>":
            self._delete(0, 1)
        elif key in ("<C-V>", "<S-INS>"):
            self.replace(self.clipboard)
        elif len(key) == 1:
            self.replace(key)


def key_code(key):
    """The key code that a filter receives, or None for a key without a character."""
    return ord(key) if len(key) == 1 else KEY_CODES.get(key)
