"""Form2, Form3 and Form4: company, plan of days and tasks, contaminants."""

from arithmetic import LeerValor, RedondearEntero, TextoEntero, add, integer
from controls import FileDialog, MessageBox
from record import read_evaluation
from screen import EXIT, PRINT, Screen, bar, entry

NAME_MISSING = "Debe cumplimentarse por lo menos el nombre de la empresa"
ASK_RETURN = (
    "Si regresa perderá todos los datos introducidos hasta el momento\n"
    "¿Está seguro de que quiere regresar?"
)
ASK_INCOMPLETE = (
    " Aún le faltan datos por introducir y sin ellos\n"
    "  el programa no funcionará correctamente\n"
    "¿Está seguro de que quiere continuar ?"
)
ASK_RESTART = (
    "Modificar los datos correspondientes al número de días y jornadas\n"
    "supone reiniciar todo el proceso de nuevo\n"
    " y perder los datos introducidos hasta el momento.\n"
    "¿Desea reiniciar el proceso?"
)
SUM_TOO_LARGE = "La suma total de contaminantes de 30' y de 15' ha de ser menor o igual que 6"
NUMBERS_MISSING = "Indique el número de Jornadas y de Tareas "
NO_PLAN = (
    "No puede cargar datos de mediciones si no indica previamente el número de jornadas y de tareas"
)
DATA_MISSING = "Antes de validar introduzca  todos los datos"
INCOHERENT = (
    "El número de Jornadas y Tareas seleccionado debe ser coherente con los valores asignados"
)
SUM_DIFFERS = "El número total de contaminantes es  la suma de los expresados para 30' y 15' "
PICK_A_TASK = " Seleccione una tarea"
TASK_TOO_LARGE = " El número de tareas seleccionado no es coherente"
TASK_BEYOND_PLAN = TASK_TOO_LARGE + " con el valor asignado inicialmente"
FILL_IN_ALL = " Cumplimente todos los datos"

PLAN_TO_FIX = "Validar"
PLAN_FIXED = " NO OPERATIVO"

FIELD_CAPTIONS = {
    0: "Nombre de la empresa ",
    1: "Poligono Industrial",
    2: "Parcela",
    3: "Calle/ Ctra./ Avedida/ Plaza",
    4: "Número",
    5: "Localidad",
    6: "Provincia",
    7: "  Fecha de la evaluación",
    8: "Responsable de la empresa ",
    9: "Número  C.I.F.",
    10: "Teléfono / Fax",
    11: "E-mail",
    12: "Página WEB",
    13: "Número total de trabajadores",
    14: "Número de centros de trabajo",
    15: " Evaluación: Centro de trabajo ",
    16: "  Nº de trabajadores expuestos",
    18: " Código de evaluación:",
    19: " Identificación de la evaluacion:",
}


class Form2(Screen):
    title = "     Velmora / h2"
    clock = "Label3"
    exit_style = 324
    print_notice = "Se imprimirá la pantalla"
    menu = bar(
        "vacio1 vacio2",
        entry("continuar", "Continuar", datosiniciales="Datos iniciales: Jornadas y Tareas",
              contaminantes="Contaminantes", calculos="Cálculos",
              resulatadofinal="Resultado final"),
        "vacio30 vacio32", entry("Regresar", "Regresar"), "vacio40 vacio50",
        entry("recuperardatos", "Recuperar datos"), "vacio51 vacio52", PRINT,
        "vacio53 vacio54", EXIT,
    )  # fmt: skip

    def place_controls(self):
        self.place("Label2", "label", "Datos de la Empresa")
        self.place("Label4", "label", "DATOS DE LA EVALUACIÓN")
        self.place("Label3", "label")
        self.array("Label1", FIELD_CAPTIONS, "label", list(FIELD_CAPTIONS.values()))
        self.Text1 = self.array("Text1", range(1, 20), "cell")
        self.Text1[1].Text = " El nombre de la empresa es imprescindible."
        self.Text1[9].Text = " "
        self.file_name = ""

    def load(self):
        if self.record.DatosEmpresa[1] != "":
            self.fill()

    def fill(self):
        for i in range(1, 20):
            self.Text1[i].Text = self.record.DatosEmpresa[i]

    def go_on(self, target):
        if self.Text1[1].Text == "":
            yield MessageBox(NAME_MISSING)
            return
        for i in range(1, 20):
            self.record.DatosEmpresa[i] = self.Text1[i].Text or "---"
        self.model.go_to(target)

    def Regresar(self):
        if (yield MessageBox(ASK_RETURN, 324)) == "yes":
            self.model.go_to("Form1")

    def recuperardatos(self):
        chosen = yield FileDialog(saving=False)
        self.file_name = chosen or self.file_name
        data = self.model.files.get(self.file_name)
        if data is not None:
            read_evaluation(self.record, data)
        self.fill()


PLAN_HEADINGS = (
    "     Día", "Tarea", "Tiempo exposi. horas.", "  Nº de muestras 30'",
    "Nº de muestras 15'", "Nº de contaminantes",
    "Día", "Tarea", "Tiempo exposi. horas.", "Muestras 30'", "Muestras  15'", "Contami_  nantes",
)  # fmt: skip


def _numbers(first, last):
    return tuple(str(i) for i in range(first, last + 1))


class Form3(Screen):
    title = "    Velmora / h3"
    clock = "Label2"
    exit_style = 324
    print_notice = "Se imprimirá la pantalla"
    menu = bar(
        "vacio1 vacio2",
        entry("continuar", "Continuar/Regresar", contaminantes="Contaminantes", pagina5="Cálculos",
              datosdeempresa="Datos de empresa", resultadofinal="Resultado final"),
        "vacio8 vacio9", PRINT, "vacio20 vacio22", EXIT,
    )  # fmt: skip

    ITEMS = (
        ("1", "3"), _numbers(1, 3), _numbers(1, 3), _numbers(1, 3),
        _numbers(1, 14), _numbers(0, 6), _numbers(0, 6), _numbers(1, 6),
    )  # fmt: skip

    def place_controls(self):
        self.place("Label1(2)", "label", "  Número de jornadas muestreadas:")
        self.place("Label1(3)", "label", "Número de tareas  en cada jornada:")
        self.place("Label2", "label")
        self.Label3 = self.array("Label3", range(12), "label", PLAN_HEADINGS)
        self.Combo1 = self.array("Combo1", range(8), "list")
        for i, items in enumerate(self.ITEMS):
            self.Combo1[i].items = items
        self.Command1 = self.place("Command1", "button", PLAN_TO_FIX)
        self.Command2 = self.place("Command2", "button", "Validar")
        self.Text1 = self.array("Text1", range(54), "cell")

    def cells_of_plan(self):
        r = self.record
        return integer(integer(r.NumTareas * r.NumJornadas) * 6)

    def pairs(self):
        r = self.record
        return [(d, t) for d in range(1, r.NumJornadas + 1) for t in range(1, r.NumTareas + 1)]

    def OcultarEntrada(self):
        self._show_entry(False)

    def MostrarEntrada(self):
        self._show_entry(True)

    def _show_entry(self, shown):
        for label in self.Label3.values():
            label.Visible = shown
        self.Command2.Visible = self.Command2.Enabled = shown
        for i in range(2, 8):
            self.Combo1[i].Visible, self.Combo1[i].Locked = shown, not shown

    def close_cells(self, n):
        for i in range(n):
            cell = self.Text1[i]
            cell.Text, cell.Visible, cell.Locked = "", False, True

    def AbrirCeldas(self, n):
        for i in range(n):
            cell = self.Text1[i]
            cell.Text, cell.Visible, cell.Locked = "", True, False

    def NumerarFilas(self):
        for k, (d, t) in enumerate(self.pairs(), 1):
            self.Text1[6 * k - 6].Text = TextoEntero(d)
            self.Text1[6 * k - 5].Text = TextoEntero(t)

    def load(self):
        r = self.record
        if r.NumJornadas == 0 or r.NumTareas == 0:
            self.OcultarEntrada()
            self.close_cells(54)
            return
        self.Command1.Text, self.Command1.Enabled = PLAN_FIXED, False
        self.close_cells(54)
        self.AbrirCeldas(self.cells_of_plan())
        self.NumerarFilas()
        for k in range(1, integer(r.NumTareas * r.NumJornadas) + 1):
            d = RedondearEntero(LeerValor(self.Text1[6 * k - 6].Text))
            t = RedondearEntero(LeerValor(self.Text1[6 * k - 5].Text))
            self._write_row(k, d, t)

    def _write_row(self, k, d, t):
        r = self.record
        self.Text1[6 * k - 4].Text = self.TextoDoble(r.TiempoExposicion[d, t])
        self.Text1[6 * k - 3].Text = TextoEntero(r.Muestras30[d, t])
        self.Text1[6 * k - 2].Text = TextoEntero(r.Muestras15[d, t])
        self.Text1[6 * k - 1].Text = TextoEntero(r.NumContaminantes[t])

    def is_filtered(self, name):
        return True

    def key_filter(self, name, index, code):
        return 0

    def list_picked(self, name, index):
        if index == 6:
            s = add(LeerValor(self.Combo1[6].Text), LeerValor(self.Combo1[5].Text))
            if s > 6:
                yield MessageBox(SUM_TOO_LARGE)
        if index not in (0, 1) or self.Command1.Text != PLAN_FIXED:
            return
        if (yield MessageBox(ASK_RESTART, 292, "Aviso")) != "yes":
            return
        self.Command1.Enabled, self.Command1.Text = True, PLAN_TO_FIX
        self.OcultarEntrada()
        self.close_cells(self.cells_of_plan())

    def Command1_Click(self):
        r = self.record
        days, tasks = self.Combo1[0], self.Combo1[1]
        if "" in (days.Text, tasks.Text) or 0 in (
            LeerValor(days.Text),
            LeerValor(tasks.Text),
        ):
            yield MessageBox(NUMBERS_MISSING)
            return
        if days.Locked or tasks.Locked:
            return
        if LeerValor(days.Text) > 0:
            r.NumJornadas = RedondearEntero(LeerValor(days.Text))
        if self.ConvertirDoble(tasks.Text) > 0:
            r.NumTareas = RedondearEntero(LeerValor(tasks.Text))
        self.Command1.Text, self.Command1.Enabled = PLAN_FIXED, False
        self.MostrarEntrada()
        self.AbrirCeldas(self.cells_of_plan())
        self.NumerarFilas()

    def Command2_Click(self):
        r = self.record
        texts = {i: self.Combo1[i].Text for i in range(2, 8)}
        if r.NumJornadas == 0 or r.NumTareas == 0:
            yield MessageBox(NO_PLAN)
            return
        if "" in texts.values():
            yield MessageBox(DATA_MISSING)
            return
        if (
            self.ConvertirDoble(texts[2]) > r.NumJornadas
            or self.ConvertirDoble(texts[3]) > r.NumTareas
        ):
            yield MessageBox(INCOHERENT)
            return
        if add(LeerValor(texts[5]), LeerValor(texts[6])) != LeerValor(texts[7]):
            yield MessageBox(SUM_DIFFERS)
            return
        d, t = self.ConvertirLargo(texts[2]), self.ConvertirLargo(texts[3])
        r.TiempoExposicion[d, t] = self.ConvertirDoble(texts[4])
        r.Muestras30[d, t] = self.ConvertirEntero(texts[5])
        r.Muestras15[d, t] = self.ConvertirEntero(texts[6])
        r.NumContaminantes[t] = self.ConvertirEntero(texts[7])
        for k, (d, t) in enumerate(self.pairs(), 1):
            if r.TiempoExposicion[d, t] != 0:
                self._write_row(k, d, t)

    def incomplete(self):
        r = self.record
        if r.NumTareas == 0 or r.NumJornadas == 0:
            return True
        n = integer(integer(r.NumJornadas * r.NumTareas) * 6)
        if any(self.Text1[i].Text == "" for i in range(n)):
            return True
        # The last pair of the plan is the one tested on every pass.
        return any(r.TiempoExposicion[r.NumJornadas, r.NumTareas] == 0 for _ in self.pairs())

    def go_on(self, target):
        if self.incomplete() and (yield MessageBox(ASK_INCOMPLETE, 324)) != "yes":
            return
        self.model.go_to(target)

    def datosdeempresa(self):
        self.model.go_to("Form2")
        self.model.screen.fill()


class Form4(Screen):
    title = " Velmora / h4"
    clock = "Label1"
    print_notice = "Se imprimirá pantalla"
    menu = bar(
        "vacio1 vacio7",
        entry("continuar", "Continuar/Regresar", pagina5="Cálculos",
              datosiniciales="Datos iniciales: Jornadas y Tareas",
              datosdeempresa="Datos de empresa", resultadosfinales="Resultado final"),
        "vacio10 vacio11", PRINT, "vacio22 vacio23", EXIT,
    )  # fmt: skip

    def place_controls(self):
        self.place(
            "Label2", "label", "Cararcteristicas de los contaminates  analizados por  tareas "
        )
        self.place("Label1", "label")
        self.place("Label3(0)", "label", "Tarea")
        self.Combo1 = self.place("Combo1", "list", items=("1", "2", "3"))
        self.place("Command3", "button", "Visualizar / Modificar")
        self.place("Command1", "button", "Validar")
        headings = ("Nº", "Nombre del contaminante", "VLA-ED", "VLA-EC", "Adit.", "Unidades")
        self.Label4 = self.array("Label4", range(6), "label", headings, visible=False)
        self.Label5 = self.place("Label5", "label", "TM", visible=False)
        self.Text1 = self.array("Text1", range(30), "cell")
        self.Text3 = self.array("Text3", range(6), "cell")
        self.Combo13 = self.array("Combo13", range(6), "list", items=("mg/m3", "ppm"))
        self.CifrasEd = self.PuntosEd = self.CifrasEc = self.PuntosEc = self.UltimaCelda = 0

    def load(self):
        for cell in [*self.Text1.values(), *self.Text3.values()]:
            cell.Text, cell.Visible, cell.Locked = "", False, None
        self._close_lists()

    def _close_lists(self):
        for list_box in self.Combo13.values():
            list_box.Visible, list_box.Locked = False, True
            list_box.set_text("")

    def CerrarFilas(self):
        for cell in [*self.Text1.values(), *self.Text3.values()]:
            cell.Text, cell.Visible, cell.Locked = "", False, True
        self._close_lists()
        for label in [*self.Label4.values(), self.Label5]:
            label.Visible = True

    def list_picked(self, name, index):
        if name == "Combo13":
            return
        self.CerrarFilas()
        if self.Combo1.Text == "":
            yield MessageBox(PICK_A_TASK)
            return
        if self.ConvertirDoble(self.Combo1.Text) > self.record.NumTareas:
            yield MessageBox(TASK_BEYOND_PLAN)
            return
        n = self.record.NumContaminantes[RedondearEntero(LeerValor(self.Combo1.Text))]
        for i in range(integer(5 * n)):
            cell = self.Text1[i]
            cell.Locked, cell.Visible, cell.Text = False, True, ""
        for i in range(n):
            self.Combo13[i].Locked, self.Combo13[i].Visible = False, True
            self.Text3[i].Locked, self.Text3[i].Visible = False, True
        for c in range(1, n + 1):
            cell = self.Text1[5 * (c - 1)]
            cell.Text, cell.Locked = TextoEntero(c), True

    def _refusal(self):
        if self.Combo1.Text == "":
            return PICK_A_TASK
        return TASK_TOO_LARGE if LeerValor(self.Combo1.Text) > self.record.NumTareas else None

    def Command1_Click(self):
        refusal = self._refusal()
        if refusal:
            yield MessageBox(refusal)
            return
        n = self.record.NumContaminantes[RedondearEntero(LeerValor(self.Combo1.Text))]
        if any(self.Text1[i].Text == "" for i in range(integer(5 * n))) or any(
            "" in (self.Combo13[i].Text, self.Text3[i].Text) for i in range(n)
        ):
            yield MessageBox(FILL_IN_ALL)
            return
        self._store_rows(self.ConvertirLargo(self.Combo1.Text), n)

    def _store_rows(self, t, n):
        r = self.record
        for c in range(1, n + 1):
            r.NombreContaminante[t, c] = self.Text1[5 * c - 4].Text
            r.VlaEd[t, c] = LeerValor(self.Text1[5 * c - 3].Text)
            r.VlaEc[t, c] = LeerValor(self.Text1[5 * c - 2].Text)
            r.Aditivo[t, c] = RedondearEntero(LeerValor(self.Text1[5 * c - 1].Text))
            r.Unidades[t, c] = self.Combo13[c - 1].Text
        for c in range(1, n + 1):
            r.TiempoMuestreo[t, c] = RedondearEntero(LeerValor(self.Text3[c - 1].Text))
        for c in range(1, n + 1):
            r.HojaFinal[6 * (t - 1) + c, 2] = self.Text1[5 * c - 4].Text

    def Command3_Click(self):
        refusal = self._refusal()
        if refusal:
            yield MessageBox(refusal)
            return
        r = self.record
        t = self.ConvertirLargo(self.Combo1.Text)
        n = r.NumContaminantes[t]
        for c in range(1, n + 1):
            self.Text1[5 * c - 4].Text = r.NombreContaminante[t, c]
            self.Text1[5 * c - 3].Text = self.TextoDoble(r.VlaEd[t, c])
            self.Text1[5 * c - 2].Text = self.TextoDoble(r.VlaEc[t, c])
            self.Text1[5 * c - 1].Text = TextoEntero(r.Aditivo[t, c])
            self.Combo13[c - 1].set_text(r.Unidades[t, c])
        for c in range(1, n + 1):
            self.Text3[c - 1].Text = TextoEntero(r.TiempoMuestreo[t, c])

    def double_clicked(self, name, index):
        if name != "Text3" or index not in self.Text3:
            return
        cell = self.Text3[index]
        if cell.Text == "":
            cell.Text = TextoEntero(30)
        elif LeerValor(cell.Text) == 30:
            cell.Text = "15"
        elif LeerValor(cell.Text) == 15:
            cell.Text = "30"

    def is_filtered(self, name):
        if not name.startswith("Text1("):
            return True
        return int(name[6:-1]) % 5 in (2, 3, 4)

    def key_filter(self, name, index, code):
        if name != "Text1":
            return 0
        if self.UltimaCelda != index:
            self.CifrasEd = self.PuntosEd = self.CifrasEc = self.PuntosEc = 0
        self.UltimaCelda = index
        column = index % 5
        if column == 2:
            code, self.CifrasEd, self.PuntosEd = self._filter_limit(
                index, code, self.CifrasEd, self.PuntosEd
            )
        elif column == 3:
            code, self.CifrasEc, self.PuntosEc = self._filter_limit(
                index, code, self.CifrasEc, self.PuntosEc
            )
        elif column == 4:
            if not 48 <= code <= 57:
                return 0
            self.Text1[index].Text = ""
        return code

    def _filter_limit(self, index, code, digits, points):
        """The rule of limit values: (key code that goes on, digits, points)."""
        if code == 8:
            self.Text1[index].Text = ""
            return code, 0, 0
        if code == 46:
            accepted = digits > 0 and points == 0
            return (code, digits, points + 1) if accepted else (0, digits, points)
        if 48 <= code <= 57:
            return code, integer(digits + 1), points
        return 0, digits, points
