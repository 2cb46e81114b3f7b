"""What the six screens of the model have in common: controls, menus, clock, printing and exit."""

from arithmetic import (
    ConvertirDoble,
    ConvertirEntero,
    ConvertirLargo,
    FormatoDosDecimales,
    TextoDoble,
)
from controls import Control, ControlArray, MessageBox, PrintDialog

ASK_EXIT = "¿Está seguro de que quiere salir?"


def entry(name, caption, **listed):
    """An entry of a menu bar, and the captions of its list by their names."""
    return (name, caption, tuple(listed.items()))


def bar(*parts):
    """A menu bar; a text among the entries holds the names of the spacers that stand there."""
    rows = []
    for part in parts:
        rows += [entry(name, "") for name in part.split()] if isinstance(part, str) else [part]
    return tuple(rows)


PRINT = entry("imprimir", "Imprimir")
EXIT = entry("salir", "Salir")

# Where the entries lead that do nothing else.
TARGETS = {
    "datosempresa": "Form2", "datosdeempresa": "Form2",
    "datosiniciales": "Form3",
    "contaminantes": "Form4",
    "calculos": "Form5", "pagina5": "Form5", "regresar": "Form5",
    "resulatadofinal": "Form6", "resultadofinal": "Form6", "resultadosfinales": "Form6",
}  # fmt: skip


class ProgramEnd(Exception):
    """The process ends at once with the given status."""

    def __init__(self, status):
        super().__init__(status)
        self.status = status


class Screen:
    """One screen. Handlers that may wait on a box are generators; the others are plain methods."""

    title = ""
    menu = ()  # rows of (name, caption, list); the list holds rows of (name, caption)
    clock = ""
    exit_style = 68
    print_notice = ""

    def __init__(self, model):
        self.model = model
        self.record = model.record
        self.separator = model.separator
        self.controls = {}
        self.place_controls()

    def place_controls(self):
        """Lays the controls out as they stand before the load handler."""

    def load(self):
        """The load handler."""

    def place(self, name, kind, text="", visible=True, **more):
        control = Control(kind, text, visible, **more)
        self.controls[name] = control
        return control

    def array(self, name, indices, kind, texts="", visible=True, **more):
        """An array of controls; `texts` is one text for all or one for each."""
        elements = ControlArray()
        for position, i in enumerate(indices):
            text = texts if isinstance(texts, str) else texts[position]
            elements[i] = self.place(f"{name}({i})", kind, text, visible, **more)
        return elements

    def TextoDoble(self, value):
        return TextoDoble(value, self.separator)

    def FormatoDosDecimales(self, value):
        return FormatoDosDecimales(value, self.separator)

    def ConvertirDoble(self, text):
        return ConvertirDoble(text, self.separator)

    def ConvertirEntero(self, text):
        return ConvertirEntero(text, self.separator)

    def ConvertirLargo(self, text):
        return ConvertirLargo(text, self.separator)

    def entry_names(self):
        """Every menu entry by name, spacers included."""
        for name, _, entries in self.menu:
            yield name
            yield from (row[0] for row in entries)

    def menu_picked(self, entry):
        if handler := getattr(self, entry, None):
            return handler()
        return self.go_on(TARGETS[entry]) if entry in TARGETS else None

    def go_on(self, target):
        """Goes to another screen, past the guard of this one."""
        return self.model.go_to(target)

    def salir(self):
        if (yield MessageBox(ASK_EXIT, self.exit_style)) != "no":
            raise ProgramEnd(0)

    def imprimir(self):
        lines = (
            self.print_notice,
            "¿Desea continuar?",
            " ",
            "Pulsar 'Si' no admite cancelación posterior",
        )
        if (yield MessageBox("\n".join(lines), 4)) != "no":
            yield PrintDialog()

    def key_filter(self, name, index, code):
        """The key filter of a cell: the code that goes on to the cell, 0 when it is refused."""
        return code

    def is_filtered(self, name):
        """Whether the only way into the control is its key filter."""
        return False

    def list_picked(self, name, index):
        """The click handler of a list."""

    def double_clicked(self, name, index):
        """The double-click handler of a cell."""

    def pressed(self, button):
        return getattr(self, button + "_Click")()
