"""Controls of the model, the boxes and dialogs that a handler waits on, and the edit field."""

from dataclasses import dataclass

from numeros import ErrorEjecucion

NO_DICHO = None  # a property that the rules leave open: it is not compared


class Control:
    """One control: `clase` is "cell", "list", "button" or "label"."""

    __slots__ = (
        "clase", "Text", "Visible", "Enabled", "Locked", "fondo", "letra", "items", "indice"
    )  # fmt: skip

    def __init__(self, clase, texto="", visible=True, bloqueado=False, items=()):
        self.clase = clase
        self.Text = texto
        self.Visible = visible
        self.Enabled = True
        self.Locked = bloqueado if clase in ("cell", "list") else NO_DICHO
        self.fondo = self.letra = NO_DICHO
        self.items = items
        self.indice = -1  # of a list: the present item, None when it can't be told

    def estado(self):
        return (self.clase, self.Text, self.Visible, self.Enabled, self.Locked)

    def poner(self, texto):
        """The program writes the text of a list; which item is present is then open."""
        self.Text = texto
        self.indice = -1 if texto == "" else None


class Arreglo(dict):
    """An array of controls; a missing element is the subscript error."""

    def __missing__(self, indice):
        raise ErrorEjecucion("subindice")


@dataclass
class Caja:
    """A message box as a handler asks for it."""

    texto: str
    estilo: int = 0
    titulo: str = "Velmora"

    #                style: icon, buttons, default
    ESTILOS = {
        0: ("none", ("ok",), "ok"),
        4: ("none", ("yes", "no"), "yes"),
        68: ("information", ("yes", "no"), "yes"),
        292: ("question", ("yes", "no"), "no"),
        324: ("information", ("yes", "no"), "no"),
    }

    @property
    def botones(self):
        return self.ESTILOS[self.estilo][1]

    def respuesta(self, cual):
        """The button that an answer presses: "esc" is No or OK, "enter" the default one."""
        if cual == "esc":
            return "no" if "no" in self.botones else "ok"
        return self.ESTILOS[self.estilo][2] if cual == "enter" else cual


@dataclass
class CajaError:
    """The run-time's message; its sentence is the program's own."""

    clase: str


@dataclass
class DialogoArchivo:
    guardar: bool


@dataclass
class PreguntaDialogo:
    """The file dialog's own question on replacing or creating `ruta`."""

    dialogo: DialogoArchivo
    ruta: str


@dataclass
class DialogoImprimir:
    pass


CODIGOS = {
    "<BS>": 8, "<ENTER>": 13, "<ESC>": 27, "<C-V>": 22, "<C-X>": 24, "<C-C>": 3, "<C-Z>": 26,
    "<C-H>": 8, "<C-M>": 13,
}  # fmt: skip


class Edicion:
    """The visit to one cell: caret and selection of an ordinary text field."""

    def __init__(self, control, portapapeles):
        self.control = control
        self.portapapeles = portapapeles
        self.cursor = self.ancla = len(control.Text)

    def _reemplazar(self, nuevo):
        inicio, fin = sorted((self.cursor, self.ancla))
        texto = self.control.Text
        self.control.Text = texto[:inicio] + nuevo + texto[fin:]
        self.cursor = self.ancla = inicio + len(nuevo)

    def _borrar(self, desde, hasta):
        if self.cursor == self.ancla:
            self.ancla = max(0, min(len(self.control.Text), self.cursor + hasta - desde))
        self._reemplazar("")

    def _mover(self, lugar, seleccionando):
        self.cursor = max(0, min(len(self.control.Text), lugar))
        if not seleccionando:
            self.ancla = self.cursor

    def navegar(self, tecla):
        """Keys that change no text; True when `tecla` is one of them."""
        fin = len(self.control.Text)
        destinos = {
            "<HOME>": (0, False), "<END>": (fin, False),
            "<S-HOME>": (0, True), "<S-END>": (fin, True),
            "<LEFT>": (self.cursor - 1, False), "<RIGHT>": (self.cursor + 1, False),
        }  # fmt: skip
        if tecla not in destinos:
            return False
        self._mover(*destinos[tecla])
        return True

    def ajustar(self):
        """After the program has written the text."""
        self.cursor = min(self.cursor, len(self.control.Text))
        self.ancla = min(self.ancla, len(self.control.Text))

    def escribir(self, tecla):
        """A key that no filter has refused."""
        if self.control.Locked:
            return
        if tecla == "<BS>":
            self._borrar(0, -1)
        elif tecla == "<DEL>":
            self._borrar(0, 1)
        elif tecla in ("<C-V>", "<S-INS>"):
            self._reemplazar(self.portapapeles)
        elif len(tecla) == 1:
            self._reemplazar(tecla)


def codigo(tecla):
    """The key code that a filter receives, or None for a key without a character."""
    return ord(tecla) if len(tecla) == 1 else CODIGOS.get(tecla)
