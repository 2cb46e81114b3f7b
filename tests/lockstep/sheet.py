"""Form5: the daily calculation sheet, its day slots, its key filter and the chain of buttons."""

import math
from functools import partialmethod

from arithmetic import (
    ErrorEjecucion,
    LeerValor,
    RedondearEntero,
    TextoEntero,
    add,
    divide,
    exponential,
    integer,
    logarithm,
    multiply,
    power,
    subtract,
)
from controls import MessageBox
from screen import EXIT, PRINT, Screen, bar, entry
from stats import MediaEstimada, ProbabilidadExceso

LOAD_TITLE = "Velmora / h5                          CÁLCULOS   Y   RESULTADOS "
DAY_TITLES = {
    1: "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA ",
    2: "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA",
    3: "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA",
}
INCOHERENT_DAY = " El número de día seleccionado no es coherente con los datos introducidos"
NO_LIMITS = "No se dispone de datos relativos a los contaminantes "
NO_DATA = {
    1: "No hay datos para operar",
    2: " No hay datos para operar",
    3: " No hay datos para operar",
}
TOO_FEW = "No hay datos suficientes para operar "
GAPS = "No deje espacios vacios"

HEADINGS = (
    "Nº", "Contaminante", "ED", "EC", "Unid.", "T.M.", "A+", "C1", "C2", "C3", "C4", "C5", "C6",
    "MMP", "Indice", "Indic.+", "MG", "GSD",
)  # fmt: skip
TASK_TITLES = (
    "Datos  relativos a la 1ª tarea",
    "Datos relativos a la 2ª tarea",
    "Datos relativos a la 3ª tarea",
)
BUTTONS = {
    1: "Validar 1ª tarea",
    2: "Validar 2ª tarea",
    3: "Validar 3ª tarea",
    4: "Indice+ / MG / GSD",
    5: "EC+/MG+/GSD+/Prob.",
    6: "EC+/MG+/GSD+/Prob.",
    7: "EC+/MG+/GSD+/Prob.",
    8: "Conclusiones referidas a la jornada en curso :     Validar",
}
CONCLUSIONS = ("Label1", "Label2", "Label4", "Text2", "Text4", "Text5", "Text6", "Text7")
CONCLUSION_CELLS = ("Text2", "Text4", "Text5", "Text6", "Text7")

SAFE_BELOW_A_TENTH = "EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA"
UNACCEPTABLE = "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN"
VERDICTS = {
    1: (SAFE_BELOW_A_TENTH, "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS", UNACCEPTABLE),
    2: (SAFE_BELOW_A_TENTH, "SE CONTINUA  CON EL PLAN DE MEDICIONES", UNACCEPTABLE),
    3: (
        "EXPOSICIÓN INFERIOR AL VALOR LÍMITE: SITUACIÓN SEGURA",
        "PLAN DE MEDICIONES FINALIZADO",
        UNACCEPTABLE,
    ),
}
SHORT_EXPOSURE_VERDICTS = (
    " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS",
    " SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS",
    "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS",
)


class Form5(Screen):
    title = " Velmora / h5                                  CÁLCULOS   Y   RESULTADOS "
    clock = "Label5"
    print_notice = "Se imprimirán todos los datos en pantalla"
    menu = bar(
        "vacio1 vacio2",
        entry("introducirdatos", "Introducir datos", introprimero="Primer dia",
              introsegundo="Segundo dia", introtercero="Tercer dia"),
        "vacio3 vacio4",
        entry("recuperar", "Recuperar datos/cálculos", recupprimerdia="Primer dia",
              recupsegundodia="Segundo dia", recuptercerdia="Tercer dia"),
        "vacio5 vacio6",
        entry("continuar", "Continuar/Regresar",
              datosiniciales="Datos iniciales: Jornadas y Tareas", contaminantes="Contaminantes",
              resultadosfinales="Resultado final", datosempresa="Datos de empresa"),
        "vacio9 vacio14", PRINT, "vacio15", EXIT,
    )  # fmt: skip

    def place_controls(self):
        headings = HEADINGS * 3 + TASK_TITLES
        self.Label7 = self.array("Label7", range(57), "label", headings)
        headings = ("EC+", "MG+", "GSD+", "Prob.") * 3
        self.Label3 = self.array("Label3", range(12), "label", headings)
        self.place("Label1", "label", "¿Se ha superado   3 x VLA-ED  o    VLA-EC ?")
        self.place("Label2", "label", "Mayor indice calculado: simple y aditivo")
        self.place("Label4", "label", "Probabilidad de superar corta exposición:")
        self.place("Label5", "label")
        for i, caption in BUTTONS.items():
            self.place(f"Command{i}", "button", caption)
        self.Text1 = self.array("Text1", range(324), "cell")
        self.Text3 = self.array("Text3", range(72), "cell")
        for name in CONCLUSION_CELLS:
            self.place(name, "cell", locked=True)
        for i in range(324):
            if 7 <= i % 18 <= 12:
                sample = self.Text1[i]
                sample.BackColor, sample.ForeColor = "initial background", "initial text"
        self.DiaActual = self.CifrasTecleadas = self.PuntosTecleados = self.CeldaFiltrada = 0

    def load(self):
        self.title = LOAD_TITLE
        self.limpia()

    # Reading and writing numbers as cell text.

    def value(self, index):
        return LeerValor(self.Text1[index].Text)

    def value3(self, index):
        return LeerValor(self.Text3[index].Text)

    def write3(self, index, number):
        self.Text3[index].Text = self.TextoDoble(number)

    def _open(self, button):
        control = self.controls[button]
        control.Visible = control.Enabled = True

    def _show_conclusions(self):
        for name in CONCLUSIONS:
            self.controls[name].Visible = True

    # The sheet of a day.

    def limpia(self):
        for label in [*self.Label7.values(), *self.Label3.values()]:
            label.Visible = False
        for cell in [*self.Text1.values(), *self.Text3.values()]:
            cell.Visible, cell.Locked, cell.Text = False, True, ""
        for i in BUTTONS:
            button = self.controls[f"Command{i}"]
            button.Visible = button.Enabled = False
        for name in CONCLUSIONS:
            self.controls[name].Visible = False

    def _rows_in_use(self, day, t):
        return integer(self.record.Muestras15[day, t] + self.record.Muestras30[day, t])

    def _lay_out_task(self, day, t):
        """Lays out the area of a task; returns its rows in use."""
        for i in range((t - 1) * 18, (t - 1) * 18 + 18):
            self.Label7[i].Visible = True
        for i in range((t - 1) * 4, (t - 1) * 4 + 4):
            self.Label3[i].Visible = True
        self.Label7[53 + t].Visible = True
        base, base3 = (t - 1) * 108, (t - 1) * 24
        for i in range(base, base + 108):
            self.Text1[i].Text, self.Text1[i].Visible = "", False
        for i in range(base3, base3 + 24):
            self.Text3[i].Text, self.Text3[i].Visible = "", False
        n = self._rows_in_use(day, t)
        for i in range(base, base + integer(n * 18)):
            self.Text1[i].Visible = self.Text1[i].Locked = True
        for i in range(base3, base3 + integer(n * 4)):
            self.Text3[i].Visible = self.Text3[i].Locked = True
        return n

    def _unlock_samples(self, t, n):
        for r in range(n):
            for column in range(7, 13):
                self.Text1[(t - 1) * 108 + r * 18 + column].Locked = False

    def _fill_plan(self, t, n):
        r = self.record
        for c in range(1, n + 1):
            base = (t - 1) * 108 + (c - 1) * 18
            self.Text1[base].Text = TextoEntero(c)
            self.Text1[base + 1].Text = r.NombreContaminante[t, c]
            self.Text1[base + 2].Text = self.TextoDoble(r.VlaEd[t, c])
            self.Text1[base + 3].Text = self.TextoDoble(r.VlaEc[t, c])
            self.Text1[base + 4].Text = r.Unidades[t, c]
            self.Text1[base + 5].Text = TextoEntero(r.TiempoMuestreo[t, c])
            self.Text1[base + 6].Text = TextoEntero(r.Aditivo[t, c])

    def _turn_to(self, day):
        """Makes the day the present one; whether the plan has it."""
        self.DiaActual = day
        if day <= self.record.NumJornadas:
            return True
        self.limpia()
        yield MessageBox(INCOHERENT_DAY)
        return False

    def intro(self, c):
        if not (yield from self._turn_to(c)):
            return
        tasks = self.record.NumTareas
        if tasks < 1:
            return
        self._open("Command1")
        for t in (1, 2, 3):
            n = self._lay_out_task(c, t)
            self._fill_plan(t, n)
            self._unlock_samples(t, n)
            if (t == 1 and tasks < 2) or (t == 2 and tasks != 3):
                return

    def recupera(self, s):
        if not (yield from self._turn_to(s)):
            return
        self.limpia()
        tasks = self.record.NumTareas
        if self.record.NumJornadas == 0 or tasks == 0:
            return
        self._open("Command1")
        n = self._lay_out_task(s, 1)
        self._unlock_samples(1, n)
        if tasks >= 2:
            self._open("Command2")
            n = self._lay_out_task(s, 2)
            self._unlock_samples(2, n)
        if tasks == 3:
            self._open("Command1")  # and not Command3
            n = self._lay_out_task(s, 3)
            self._unlock_samples(3, n)
        self._open("Command8")
        self._show_conclusions()
        self._copy_from(self.record.sheet(s))
        if s == 3:
            self._unlock_samples(3, n)

    def _copy_from(self, sheet):
        for entry in range(1, 325):
            self.Text1[entry - 1].Text = sheet[entry]
        for entry in range(325, 397):
            self.Text3[entry - 325].Text = sheet[entry]
        for position, name in enumerate(CONCLUSION_CELLS):
            self.controls[name].Text = sheet[397 + position]

    def _begin(self, day):
        self.title = DAY_TITLES[day]
        self.limpia()
        return self.intro(day)

    def _take_up_again(self, day):
        self.title = DAY_TITLES[day]
        return self.recupera(day)

    introprimero = partialmethod(_begin, 1)
    introsegundo = partialmethod(_begin, 2)
    introtercero = partialmethod(_begin, 3)
    recupprimerdia = partialmethod(_take_up_again, 1)
    recupsegundodia = partialmethod(_take_up_again, 2)
    recuptercerdia = partialmethod(_take_up_again, 3)

    # The key filter of Text1.

    def is_filtered(self, name):
        return name.startswith("Text1(")

    def key_filter(self, name, index, code):
        if name != "Text1":
            return code
        if index != self.CeldaFiltrada:
            self.CifrasTecleadas = self.PuntosTecleados = 0
            self.CeldaFiltrada = index
        if code == 8:
            self.Text1[index].Text = ""
            self.CifrasTecleadas = self.PuntosTecleados = 0
            return code
        if code == 46 and self.CifrasTecleadas > 0 and self.PuntosTecleados == 0:
            self.PuntosTecleados += 1
            return code
        if 48 <= code <= 57:
            self.CifrasTecleadas = integer(self.CifrasTecleadas + 1)
            return code
        return 0

    # Validation of a task.

    def _samples(self, row):
        """The six sample cells of the row that starts at cell `row`."""
        return [self.Text1[row + 7 + c] for c in range(6)]

    def _refusal(self, t, base):
        """The text of the refusal, or None; the colours are set on the way."""
        n = self.record.NumContaminantes[t]
        for r in range(n):
            ed, ec = self.value(base + 18 * r + 2), self.value(base + 18 * r + 3)
            if ed == 0 and ec == 0:
                return NO_LIMITS
        # The first task's block, in all three handlers.
        if not any(self.Text1[7 + 18 * i + j].Text != "" for i in range(6) for j in range(6)):
            return NO_DATA[t]
        for r in range(6):
            for cell in self._samples(base + 18 * r):
                cell.ForeColor = "system text"
        for r in range(n):
            if sum(cell.Text != "" for cell in self._samples(base + 18 * r)) < 2:
                return TOO_FEW
        for r in range(6):
            cells = self._samples(base + 18 * r)
            for b, a in zip(cells, cells[1:]):
                if b.Text == "" and a.Text != "":
                    return GAPS
                if LeerValor(b.Text) == 0 and a.Text != "":
                    return GAPS
        return None

    def _validate(self, t):
        base = 108 * (t - 1)
        refusal = self._refusal(t, base)
        if refusal:
            yield MessageBox(refusal)
            return
        for r in range(1, 7):
            if self._rows_in_use(self.DiaActual, t) < r:
                break
            self._work_out_row(t, r, base + 18 * (r - 1))
        self.controls["Text7"].Text = ""
        for r in range(6):
            for cell in self._samples(base + 18 * r):
                cell.BackColor = "system background"
        tasks = self.record.NumTareas
        if tasks == t:
            self._open("Command4")
        elif tasks > t and t < 3:
            self._open(f"Command{t + 1}")

    Command1_Click = partialmethod(_validate, 1)
    Command2_Click = partialmethod(_validate, 2)
    Command3_Click = partialmethod(_validate, 3)

    def _work_out_row(self, t, r, row):
        samples = [0.0] * 7
        for c, cell in enumerate(self._samples(row), 1):
            if cell.Text == "" or LeerValor(cell.Text) == 0:
                break
            samples[c] = LeerValor(cell.Text)
        mmp = MediaEstimada(self.record, samples, self.DiaActual, t, r)
        self.Text1[row + 13].Text = self.FormatoDosDecimales(mmp)
        # Row 6 of the second task goes by the first day's time.
        day = 1 if (t, r) == (2, 6) else self.DiaActual
        limit = self.record.VlaEd[t, r]
        index = 0.0
        if limit != 0:
            hours = self.record.TiempoExposicion[day, t]
            index = divide(multiply(hours, mmp), multiply(limit, 8.0))
        self.Text1[row + 14].Text = self.FormatoDosDecimales(index)

    # Daily index.

    def Command4_Click(self):
        rows = range(1, 19)
        for row in rows:
            self.Text1[18 * row - 3].Text = ""
        for k in range(1, 21):
            self._sum_group(k)
        for t in (1, 2, 3):
            for c in range(1, 7):
                row = 6 * (t - 1) + c
                spot = (self.DiaActual, t, c)
                self.Text1[18 * row - 2].Text = self.FormatoDosDecimales(self.record.MG[spot])
                self.Text1[18 * row - 1].Text = self.FormatoDosDecimales(self.record.GSD[spot])
        self._open("Command5")
        for row in rows:
            if self.value(18 * row - 12) == 0:
                self.Text1[18 * row - 3].Text = self.Text1[18 * row - 4].Text
        for row in rows:
            # Only a group numbered as its own first row spreads its sum.
            if self.value(18 * row - 12) == row:
                w = self.value(18 * row - 3)
                for other in range(row + 1, 19):
                    if self.value(18 * other - 12) == row:
                        self.Text1[18 * other - 3].Text = self.TextoDoble(w)

    def _sum_group(self, k):
        first = 0
        for c in range(6, 313, 18):
            belongs = self.value(c) == k
            if first == 0 and belongs:
                first = c
            if belongs:
                x, y = self.value(c + 8), self.value(first + 9)
                self.Text1[first + 9].Text = self.TextoDoble(add(x, y))
        # With no row of the group these are C2 and C3 of the first row.
        if self.value(first + 8) == self.value(first + 9):
            self.Text1[first + 9].Text = ""

    # Short exposure.

    def _short_exposure(self, t, factor):
        base, base3 = 108 * (t - 1), 24 * (t - 1)
        n = self.record.NumContaminantes[t]
        for i in range(n):
            additive = self.value(base + 18 * i + 6)
            self.value(base + 18 * i + 3)
            if additive == 0:
                self._single_row(base + 18 * i, base3 + 4 * i)
        for k in range(1, 7):
            members = [
                base + 18 * i for i in range(n) if self.value(base + 18 * i + 6) == k
            ]
            if len(members) == 1:
                self._single_row(members[0], int(members[0] / 4.5))
        marks = range(base + 6, base + 18 * (n - 1) + 7, 18)
        for k in range(1, 7):
            self._group_limit(k, marks, factor)
        for k in range(1, 7):
            self._group_statistics(k, marks, t, base3)
        for i in range(base3, base3 + (n - 1) * 4 + 1, 4):
            if self.Text3[i].Text == "":
                continue
            mg = self.value3(i + 1)
            ratio = divide(self.value3(i), mg)
            self.write3(i + 3, ProbabilidadExceso(ratio, self.value3(i + 2)))
        tasks = self.record.NumTareas
        if t < 3 and tasks > t:
            self._open(f"Command{t + 5}")
        if tasks == t:
            self._open("Command8")
            self._show_conclusions()

    Command5_Click = partialmethod(_short_exposure, 1, 0.222)
    Command6_Click = partialmethod(_short_exposure, 2, 0.222)
    Command7_Click = partialmethod(_short_exposure, 3, 0.2222)

    def _single_row(self, c, d):
        ec = self.value(c + 3)
        self.write3(d, ec if ec != 0 else multiply(3.0, self.value(c + 2)))
        self.write3(d + 1, self.value(c + 16))
        self.write3(d + 2, self.value(c + 17))

    def _group_limit(self, k, marks, factor):
        w = s = 0.0
        members = first = 0
        for j in marks:
            if self.value(j) != k:
                continue
            first = first or j
            members += 1
            v = self.value(j + 7)
            if self.value(j - 3) == 0:
                w = add(w, divide(v, multiply(3.0, self.value(j - 4))))
            else:
                w = add(w, divide(v, self.value(j - 3)))
            s = add(s, self.value(j + 7))
        if w != 0 and members >= 2:
            self.write3(math.floor(first * factor - 1.3), divide(s, w))

    def _group_statistics(self, k, marks, t, base3):
        matrix = {(r, m): 0.0 for r in range(1, 8) for m in range(1, 7)}
        members = first = 0
        for r, j in enumerate(marks, 1):
            if self.value(j) != k:
                continue
            members += 1
            first = first or j
            for m in range(1, 7):
                if (r, m) not in matrix:
                    raise ErrorEjecucion("subscript")
                matrix[r, m] = self.value(j + m)
        if members < 2:
            return
        for m in range(1, 7):
            present = 0
            for r in range(1, 7):
                if matrix[r, m] != 0:
                    matrix[7, m] = add(matrix[7, m], matrix[r, m])
                    present += 1
            if present < members:
                matrix[7, m] = 0.0
                break
        z, total = 0, 0.0
        for m in range(1, 7):
            if matrix[7, m] == 0:
                break
            matrix[7, m] = logarithm(matrix[7, m])
            total = add(total, matrix[7, m])
            z += 1
        g = divide(total, float(z))
        spot = (self.DiaActual, t, RedondearEntero(self.value(first - 6)))
        self.record.MGmas[spot] = exponential(g)
        self._write_group(base3, first, 3, self.record.MGmas[spot])
        q = 0.0
        for m in range(1, z + 1):
            q = add(q, power(abs(subtract(g, matrix[7, m])), 2.0))
        s = power(divide(q, float(z - 1)), 0.5)
        self.record.GSDmas[spot] = exponential(s)
        self._write_group(base3, first, 2, self.record.GSDmas[spot])

    def _write_group(self, base3, first, offset, value):
        number = self.value(first - 6)
        self.write3(RedondearEntero(base3 + number * 4 - offset), value)

    # Conclusions of the day.

    def Command8_Click(self):
        x = max([0.0] + [self.value(i) for i in range(14, 321, 18)])
        y = max([0.0] + [self.value(i) for i in range(15, 322, 18)])
        y = max(x, y)
        self.controls["Text2"].Text = self.TextoDoble(y)
        p = max([0.0] + [self.value3(i) for i in range(3, 72, 4)])
        self.controls["Text4"].Text = self.TextoDoble(p)
        if not self._mark_over_limit(30, 3, 3.0, "250"):
            self._mark_over_limit(15, 2, 1.0, "255")
        day = self.DiaActual
        if day not in VERDICTS:
            return
        band = 0 if y <= 0.1 else 1 if y <= 1 else 2
        self.controls["Text5"].Text = VERDICTS[day][band]
        band = 0 if p <= 0.1 else 1 if p <= 5 else 2
        self.controls["Text6"].Text = SHORT_EXPOSURE_VERDICTS[band]
        self._copy_to(self.record.sheet(day))
        for row in range(1, 19):
            for text, column in (
                (self.Text1[row * 18 - 3].Text, 2 + day),
                (self.Text3[row * 4 - 1].Text, 6 + day),
            ):
                if text != "":
                    self.record.HojaFinal[row, column] = self.TextoDoble(LeerValor(text))

    def _mark_over_limit(self, minutes, offset, factor, color):
        """One scan for the first sample over its limit; True when it marks one."""
        for i in range(5, 312, 18):
            if self.value(i) != minutes:
                continue
            limit = multiply(factor, self.value(i - offset))
            for m in range(1, 7):
                if self.value(i + 1 + m) < limit:
                    self.controls["Text7"].Text = "NO"
                    continue
                self.controls["Text7"].Text = "SI"
                cell = self.Text1[i + 1 + m]
                cell.BackColor, cell.ForeColor = color, "system background"
                return True
        return False

    def _copy_to(self, sheet):
        for entry in range(1, 325):
            sheet[entry] = self.Text1[entry - 1].Text
        for entry in range(325, 397):
            sheet[entry] = self.Text3[entry - 325].Text
        for position, name in enumerate(CONCLUSION_CELLS):
            sheet[397 + position] = self.controls[name].Text
