"""An independent model of the whole program, driven by the same actions as the real one.

`Model.act` takes one action (a list whose first word names it) and runs the handlers that it sets
off, until they end or wait on a box. `screen` then holds what the window must show, `waiting_on`
the box or dialog in front of it, `exit_status` the exit status once the process has ended.

Actions, NAME being a control or a menu entry and PATH starting with "@/" for the session's folder:

    click NAME              a mouse click on a button
    menu NAME               a menu entry, set off by its action
    menumouse TITLE [NAME]  the same by mouse: a title of the bar, and an entry of its list
    close                   the close button of the window
    type NAME KEYS          keys in a cell: single characters and names such as <BS>
    listkeys NAME KEYS      keys in a closed list
    pick NAME ITEM HOW      an item of a list; HOW is "enter" or "mouse", or "esc", which picks none
    wheel NAME              a turn of the wheel over a list
    space NAME              the space bar on a button
    reader TITLE            a title of the bar as a screen reader presses it
    context NAME ENTRY      an entry of a cell's context menu, by its keys (+V)
    drop NAME TEXT          text dropped on a control
    im NAME TEXT            text committed by an input method
    clip TEXT               fills the clipboard
    double NAME             a double click on a cell
    answer WHICH            yes, no, ok, esc or enter in the present box
    file accept PATH | file cancel
    print accept | print cancel
    put PATH BASE64         writes a file in the session's folder, from outside the program
    restart                 kills the process and starts a new one

A session puts "&" ahead of the name of an action that the next one follows at once.
"""

import base64
import inspect
import os
import re

from arithmetic import ErrorEjecucion, LeerValor, divide, integer, multiply, power
from capture import Form2, Form3, Form4
from controls import (
    CellEdit,
    DialogQuestion,
    ErrorBox,
    FileDialog,
    MessageBox,
    PrintDialog,
    key_code,
)
from record import EvaluacionRecord, write_evaluation
from screen import EXIT, PRINT, ProgramEnd, Screen, bar, entry
from sheet import Form5


class Form1(Screen):
    title = ".     Velmora / h1"
    clock = "Label5"
    menu = bar(
        "Vacio1 Vacio2", entry("Nuevaempresa", "Iniciar"), "Vacio3 vacio4", EXIT,
    )  # fmt: skip

    def place_controls(self):
        self.place("Label1", "label", "Velmora")
        self.place(
            "Label6", "label", "Conforme a la norma UNE-689  y  a la Guía de Agentes Químicos"
        )
        self.place(
            "Label4", "label", "Material didactico de apoyo para cursos de actualización  "
        )
        self.place("Label7", "label", "Version V.1.0        800 x 600 pixels")
        for credit in ("Label2", "Label3"):
            self.place(credit, "label", text=None)
        self.place("Label5", "label")

    def Nuevaempresa(self):
        for i in range(1, 20):
            self.record.DatosEmpresa[i] = ""
        self.model.go_to("Form2")


class Form6(Screen):
    title = " Velmora / h6"
    clock = "Label2"
    print_notice = "Se imprimirán los resultados en  pantalla"
    menu = bar(
        "vacio1 vacio2",
        entry("regresar", "Continuar/Regresar", calculos="Cálculos", contaminantes="Contaminantes",
              datosiniciales="Datos  iniciales: Jornadas y Tareas",
              datosdeempresa="Datos de empresa"),
        "vacio10 vacio11", entry("guardararchivo", "Guardar en disco "),
        "vacio21 vacio22", PRINT, "vacio30 vacio32", EXIT,
    )  # fmt: skip

    def place_controls(self):
        self.place("Label2", "label")
        self.place("Command1", "button", "RESULTADOS FINALES :    VALIDAR")
        headings = ("Nº", "Nombre del contaminante", "I1", "I2", "I3", "IG", "P1", "P2", "P3")
        self.Label4 = self.array("Label4", range(9), "label", headings)
        self.blocks = (
            self.place("Label3", "label", "Primera Jornada"),
            self.place("Label5", "label", "Segunda  Jornada"),
            self.place("Label6", "label", "Tercera  Jornada"),
        )
        texts = [str(i // 9 % 6 + 1) if i % 9 == 0 else "" for i in range(162)]
        self.Text1 = self.array("Text1", range(162), "cell", texts)
        self.file_name = ""

    def load(self):
        for control in [*self.Text1.values(), *self.Label4.values(), *self.blocks]:
            control.Visible = False

    def _tasks_in_use(self):
        tasks = self.record.NumTareas
        return [t for t, used in ((1, tasks >= 1), (2, tasks >= 2), (3, tasks == 3)) if used]

    def Command1_Click(self):
        r = self.record
        for label in self.Label4.values():
            label.Visible = True
        for t in self._tasks_in_use():
            self.blocks[t - 1].Visible = True
        for row in range(1, 19):
            for column in (2, 3, 4, 5, 7, 8, 9):
                self.Text1[row * 9 - 9 + column - 1].Text = r.HojaFinal[row, column]
        for row in range(1, 19):
            u, v = LeerValor(r.HojaFinal[row, 3]), LeerValor(r.HojaFinal[row, 4])
            if u == 0 or v == 0:
                continue
            w = LeerValor(r.HojaFinal[row, 5])
            mean = power(multiply(multiply(u, v), w), divide(1.0, 3.0))
            r.HojaFinal[row, 6] = self.TextoDoble(mean)
            self.Text1[row * 9 - 4].Text = r.HojaFinal[row, 6]
        for t in self._tasks_in_use():
            first = (t - 1) * 54
            for i in range(first, integer(r.NumContaminantes[t] * 9) + first):
                self.Text1[i].Visible = True
        for cell in self.Text1.values():
            cell.Text = cell.Text or "----"

    def guardararchivo(self):
        chosen = yield FileDialog(saving=True)
        self.file_name = chosen or self.file_name
        self.model.write_file(self.file_name)


SCREENS = {f.__name__: f for f in (Form1, Form2, Form3, Form4, Form5, Form6)}
_ELEMENT = re.compile(r"(\w+)\((\d+)\)\Z")


class Model:
    """The process: its screen, its record, the box in front, and the files it reads and writes."""

    def __init__(self, separator=".", folder="/"):
        self.separator = separator
        self.folder = folder
        self.files = {}  # absolute path -> bytes
        self.start()

    def start(self):
        self.record = EvaluacionRecord()
        self.clipboard = ""  # without a desktop each process has its own
        self.waiting_on = None
        self.exit_status = None
        self.half_loaded = False  # a load failed: what the window shows is open
        self._handler = None
        self.written = None  # path written by the last action
        self.go_to("Form1")

    def go_to(self, name):
        self.screen = SCREENS[name](self)
        self.half_loaded = True
        self.screen.load()
        self.half_loaded = False

    def path(self, name):
        return os.path.join(self.folder, name[2:]) if name.startswith("@/") else name

    def write_file(self, path):
        if path and os.path.isdir(os.path.dirname(path)):
            self.files[path] = write_evaluation(self.record)
            self.written = path

    def control(self, name):
        return self.screen.controls.get(name)

    def _visible(self, name, kind):
        control = self.control(name)
        return control is not None and control.kind == kind and control.Visible

    def applicable(self, action):
        """Whether the action means anything in the present state."""
        what, *rest = action
        if what in ("put", "restart", "clip"):
            return what != "clip" or self.exit_status is None
        if self.exit_status is not None:
            return False
        if what in ("answer", "file", "print"):
            return self._answer_applicable(what, rest[0])
        if self.waiting_on is not None:
            return False
        if what in ("click", "space"):
            return self._visible(rest[0], "button")
        if what in ("menu", "menumouse", "reader"):
            return rest[-1] in self.screen.entry_names()
        if what in ("type", "im", "double", "context"):
            return self._visible(rest[0], "cell")
        if what == "drop":
            return self._visible(rest[0], "cell") or self._visible(rest[0], "list")
        if what in ("pick", "wheel", "listkeys"):
            return self._visible(rest[0], "list")
        return what == "close"

    def _answer_applicable(self, what, which):
        if what == "file":
            return isinstance(self.waiting_on, FileDialog)
        if what == "print":
            return isinstance(self.waiting_on, PrintDialog)
        if isinstance(self.waiting_on, ErrorBox):
            return which in ("ok", "esc", "enter")
        if isinstance(self.waiting_on, DialogQuestion):
            return which in ("yes", "no", "esc")
        box = self.waiting_on
        return isinstance(box, MessageBox) and which in (*box.buttons, "esc", "enter")

    def act(self, action):
        what, *rest = action
        self.written = None
        try:
            getattr(self, "_do_" + what)(*rest)
        except ProgramEnd as end:
            self.waiting_on, self.exit_status = None, end.status
        except ErrorEjecucion as error:
            self.waiting_on = ErrorBox(str(error))

    def _proceed(self, handler, value=None):
        """Runs a handler to its end or to its next box."""
        if not inspect.isgenerator(handler):
            return
        self._handler = handler
        try:
            self.waiting_on = handler.send(value)
        except StopIteration:
            self.waiting_on = None

    def _do_put(self, name, content):
        self.files[self.path(name)] = base64.b64decode(content)

    def _do_restart(self):
        self.start()

    def _do_clip(self, text):
        self.clipboard = text

    def _do_click(self, name):
        if self.control(name).Enabled:
            self._proceed(self.screen.pressed(name))

    _do_space = _do_click

    def _do_reader(self, name):
        self._do_menumouse(name)

    def _do_context(self, name, entry):
        if entry == "+V":
            self._do_im(name, self.clipboard)

    def _do_drop(self, name, text):
        """Nothing comes in through a drop: free cells are not tried."""

    def _do_menu(self, name):
        self._proceed(self.screen.menu_picked(name))

    def _do_menumouse(self, title, entry=None):
        lists = {row[0]: row[2] for row in self.screen.menu}
        if title == "regresar":
            self._proceed(self.screen.menu_picked(title))  # on the press, before its list
        elif entry is not None:
            self._proceed(self.screen.menu_picked(entry))
        elif not lists[title]:
            self._proceed(self.screen.menu_picked(title))

    def _do_close(self):
        self._proceed(self.screen.salir())

    def _do_type(self, name, keys):
        control = self.control(name)
        element = _ELEMENT.match(name)
        edit = CellEdit(control, self.clipboard)
        for key in keys:
            code = key_code(key)
            if code is not None and element:
                before = control.Text
                code = self.screen.key_filter(element[1], int(element[2]), code)
                if control.Text != before:
                    edit.clamp()
                if code == 0:
                    continue
            if edit.navigate(key):
                continue
            if code is None and self.screen.is_filtered(name):
                continue
            edit.type_key(key)

    def _do_im(self, name, text):
        if not self.screen.is_filtered(name):
            edit = CellEdit(self.control(name), "")
            if not self.control(name).Locked:
                edit.replace(text)

    def _do_double(self, name):
        element = _ELEMENT.match(name)
        if element:
            self.screen.double_clicked(element[1], int(element[2]))

    def _pick(self, name, item):
        list_box = self.control(name)
        if list_box.Locked:
            return
        list_box.Text, list_box.index = list_box.items[item], item
        element = _ELEMENT.match(name)
        array, index = (element[1], int(element[2])) if element else (name, 0)
        self._proceed(self.screen.list_picked(array, index))

    def _do_pick(self, name, item, how):
        if how != "esc":
            self._pick(name, item)

    def _do_listkeys(self, name, keys):
        list_box = self.control(name)
        for key in keys:
            step = {"<DOWN>": 1, "<UP>": -1}.get(key, 0)
            if not step or list_box.index is None:
                continue
            item = list_box.index + step
            if 0 <= item < len(list_box.items):
                self._pick(name, item)
                if self.waiting_on is not None:
                    return

    def _do_wheel(self, name):
        """A wheel over a closed list does nothing."""

    def _do_answer(self, which):
        if isinstance(self.waiting_on, ErrorBox):
            raise ProgramEnd(1)
        if isinstance(self.waiting_on, DialogQuestion):
            question = self.waiting_on
            if which == "yes":
                self._proceed(self._handler, question.path)
            else:
                self.waiting_on = question.dialog
            return
        self._proceed(self._handler, self.waiting_on.button_for(which))

    def _do_file(self, what, name=None):
        if what == "cancel":
            self._proceed(self._handler, None)
            return
        path = self.path(name)
        if "." not in os.path.basename(path):
            path += ".doc"
        if self.waiting_on.saving:
            self.waiting_on = DialogQuestion(self.waiting_on, path)
        else:
            self._proceed(self._handler, path)

    def _do_print(self, _what):
        self._proceed(self._handler, None)
