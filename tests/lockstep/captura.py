"""Form2, Form3 and Form4: company, plan of days and tasks, contaminants."""

from controles import Caja, DialogoArchivo
from numeros import LeerValor, RedondearEntero, TextoEntero, entero, suma
from pantalla import Pantalla
from registro import leer

FALTA_NOMBRE = "Debe cumplimentarse por lo menos el nombre de la empresa"
PREGUNTA_REGRESAR = (
    "Si regresa perderá todos los datos introducidos hasta el momento\n"
    "¿Está seguro de que quiere regresar?"
)
PREGUNTA_INCOMPLETO = (
    " Aún le faltan datos por introducir y sin ellos\n"
    "  el programa no funcionará correctamente\n"
    "¿Está seguro de que quiere continuar ?"
)
PREGUNTA_REINICIO = (
    "Modificar los datos correspondientes al número de días y jornadas\n"
    "supone reiniciar todo el proceso de nuevo\n"
    " y perder los datos introducidos hasta el momento.\n"
    "¿Desea reiniciar el proceso?"
)
SUMA_MAYOR = "La suma total de contaminantes de 30' y de 15' ha de ser menor o igual que 6"
FALTAN_NUMEROS = "Indique el número de Jornadas y de Tareas "
SIN_PLAN = (
    "No puede cargar datos de mediciones si no indica previamente el número de jornadas y de tareas"
)
FALTAN_DATOS = "Antes de validar introduzca  todos los datos"
INCOHERENTE = (
    "El número de Jornadas y Tareas seleccionado debe ser coherente con los valores asignados"
)
SUMA_DISTINTA = "El número total de contaminantes es  la suma de los expresados para 30' y 15' "
ELIJA_TAREA = " Seleccione una tarea"
TAREA_MAYOR = " El número de tareas seleccionado no es coherente"
TAREA_MAYOR_INICIAL = TAREA_MAYOR + " con el valor asignado inicialmente"
CUMPLIMENTE = " Cumplimente todos los datos"

ROTULO_INICIAL = "Validar"
ROTULO_FIJO = " NO OPERATIVO"

ETIQUETAS_FORM2 = {
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


class Form2(Pantalla):
    titulo = "     Velmora / h2"
    reloj = "Label3"
    estilo_salir = 324
    aviso_imprimir = "Se imprimirá la pantalla"
    menu = (
        ("vacio1", "", ()),
        ("vacio2", "", ()),
        ("continuar", "Continuar", (
            ("datosiniciales", "Datos iniciales: Jornadas y Tareas"),
            ("contaminantes", "Contaminantes"),
            ("calculos", "Cálculos"),
            ("resulatadofinal", "Resultado final"),
        )),
        ("vacio30", "", ()),
        ("vacio32", "", ()),
        ("Regresar", "Regresar", ()),
        ("vacio40", "", ()),
        ("vacio50", "", ()),
        ("recuperardatos", "Recuperar datos", ()),
        ("vacio51", "", ()),
        ("vacio52", "", ()),
        ("imprimir", "Imprimir", ()),
        ("vacio53", "", ()),
        ("vacio54", "", ()),
        ("salir", "Salir", ()),
    )  # fmt: skip

    def construir(self):
        self.nuevo("Label2", "label", "Datos de la Empresa")
        self.nuevo("Label4", "label", "DATOS DE LA EVALUACIÓN")
        self.nuevo("Label3", "label")
        self.arreglo("Label1", ETIQUETAS_FORM2, "label", list(ETIQUETAS_FORM2.values()))
        self.Text1 = self.arreglo("Text1", range(1, 20), "cell")
        self.Text1[1].Text = " El nombre de la empresa es imprescindible."
        self.Text1[9].Text = " "
        self.nombre_archivo = ""

    def cargar(self):
        if self.registro.DatosEmpresa[1] != "":
            self.rellenar()

    def rellenar(self):
        for i in range(1, 20):
            self.Text1[i].Text = self.registro.DatosEmpresa[i]

    def _continuar(self, destino):
        if self.Text1[1].Text == "":
            yield Caja(FALTA_NOMBRE)
            return
        for i in range(1, 20):
            self.registro.DatosEmpresa[i] = self.Text1[i].Text or "---"
        self.programa.ir(destino)

    def datosiniciales(self):
        return self._continuar("Form3")

    def contaminantes(self):
        return self._continuar("Form4")

    def calculos(self):
        return self._continuar("Form5")

    def resulatadofinal(self):
        return self._continuar("Form6")

    def Regresar(self):
        if (yield Caja(PREGUNTA_REGRESAR, 324)) == "yes":
            self.programa.ir("Form1")

    def recuperardatos(self):
        elegido = yield DialogoArchivo(guardar=False)
        self.nombre_archivo = elegido or self.nombre_archivo
        datos = self.programa.archivos.get(self.nombre_archivo)
        if datos is not None:
            leer(self.registro, datos)
        self.rellenar()


TITULOS_ENTRADA = (
    "     Día", "Tarea", "Tiempo exposi. horas.", "  Nº de muestras 30'",
    "Nº de muestras 15'", "Nº de contaminantes",
    "Día", "Tarea", "Tiempo exposi. horas.", "Muestras 30'", "Muestras  15'", "Contami_  nantes",
)  # fmt: skip


def _numeros(primero, ultimo):
    return tuple(str(i) for i in range(primero, ultimo + 1))


class Form3(Pantalla):
    titulo = "    Velmora / h3"
    reloj = "Label2"
    estilo_salir = 324
    aviso_imprimir = "Se imprimirá la pantalla"
    menu = (
        ("vacio1", "", ()),
        ("vacio2", "", ()),
        ("continuar", "Continuar/Regresar", (
            ("contaminantes", "Contaminantes"),
            ("pagina5", "Cálculos"),
            ("datosdeempresa", "Datos de empresa"),
            ("resultadofinal", "Resultado final"),
        )),
        ("vacio8", "", ()),
        ("vacio9", "", ()),
        ("imprimir", "Imprimir", ()),
        ("vacio20", "", ()),
        ("vacio22", "", ()),
        ("salir", "Salir", ()),
    )  # fmt: skip

    LISTAS = (
        ("1", "3"), _numeros(1, 3), _numeros(1, 3), _numeros(1, 3),
        _numeros(1, 14), _numeros(0, 6), _numeros(0, 6), _numeros(1, 6),
    )  # fmt: skip

    def construir(self):
        self.nuevo("Label1(2)", "label", "  Número de jornadas muestreadas:")
        self.nuevo("Label1(3)", "label", "Número de tareas  en cada jornada:")
        self.nuevo("Label2", "label")
        self.Label3 = self.arreglo("Label3", range(12), "label", TITULOS_ENTRADA)
        self.Combo1 = self.arreglo("Combo1", range(8), "list")
        for i, items in enumerate(self.LISTAS):
            self.Combo1[i].items = items
        self.Command1 = self.nuevo("Command1", "button", ROTULO_INICIAL)
        self.Command2 = self.nuevo("Command2", "button", "Validar")
        self.Text1 = self.arreglo("Text1", range(54), "cell")

    def celdas(self):
        r = self.registro
        return entero(entero(r.NumTareas * r.NumJornadas) * 6)

    def pares(self):
        r = self.registro
        return [(d, t) for d in range(1, r.NumJornadas + 1) for t in range(1, r.NumTareas + 1)]

    def OcultarEntrada(self):
        for rotulo in self.Label3.values():
            rotulo.Visible = False
        self.Command2.Visible = self.Command2.Enabled = False
        for i in range(2, 8):
            self.Combo1[i].Visible, self.Combo1[i].Locked = False, True

    def MostrarEntrada(self):
        for rotulo in self.Label3.values():
            rotulo.Visible = True
        self.Command2.Visible = self.Command2.Enabled = True
        for i in range(2, 8):
            self.Combo1[i].Visible, self.Combo1[i].Locked = True, False

    def CerrarCeldas(self, n):
        for i in range(n):
            celda = self.Text1[i]
            celda.Text, celda.Visible, celda.Locked = "", False, True

    def AbrirCeldas(self, n):
        for i in range(n):
            celda = self.Text1[i]
            celda.Text, celda.Visible, celda.Locked = "", True, False

    def NumerarFilas(self):
        for k, (d, t) in enumerate(self.pares(), 1):
            self.Text1[6 * k - 6].Text = TextoEntero(d)
            self.Text1[6 * k - 5].Text = TextoEntero(t)

    def cargar(self):
        r = self.registro
        if r.NumJornadas == 0 or r.NumTareas == 0:
            self.OcultarEntrada()
            self.CerrarCeldas(54)
            return
        self.Command1.Text, self.Command1.Enabled = ROTULO_FIJO, False
        self.CerrarCeldas(54)
        self.AbrirCeldas(self.celdas())
        self.NumerarFilas()
        for k in range(1, entero(r.NumTareas * r.NumJornadas) + 1):
            d = RedondearEntero(LeerValor(self.Text1[6 * k - 6].Text))
            t = RedondearEntero(LeerValor(self.Text1[6 * k - 5].Text))
            self._fila(k, d, t)

    def _fila(self, k, d, t):
        r = self.registro
        self.Text1[6 * k - 4].Text = self.TextoDoble(r.TiempoExposicion[d, t])
        self.Text1[6 * k - 3].Text = TextoEntero(r.Muestras30[d, t])
        self.Text1[6 * k - 2].Text = TextoEntero(r.Muestras15[d, t])
        self.Text1[6 * k - 1].Text = TextoEntero(r.NumContaminantes[t])

    def filtrada(self, nombre):
        return True

    def filtro(self, nombre, indice, codigo):
        return 0

    def lista_elegida(self, nombre, indice):
        if indice == 6:
            s = suma(LeerValor(self.Combo1[6].Text), LeerValor(self.Combo1[5].Text))
            if s > 6:
                yield Caja(SUMA_MAYOR)
        if indice not in (0, 1) or self.Command1.Text != ROTULO_FIJO:
            return
        if (yield Caja(PREGUNTA_REINICIO, 292, "Aviso")) != "yes":
            return
        self.Command1.Enabled, self.Command1.Text = True, ROTULO_INICIAL
        self.OcultarEntrada()
        self.CerrarCeldas(self.celdas())

    def Command1_Click(self):
        r = self.registro
        jornadas, tareas = self.Combo1[0], self.Combo1[1]
        if "" in (jornadas.Text, tareas.Text) or 0 in (
            LeerValor(jornadas.Text),
            LeerValor(tareas.Text),
        ):
            yield Caja(FALTAN_NUMEROS)
            return
        if jornadas.Locked or tareas.Locked:
            return
        if LeerValor(jornadas.Text) > 0:
            r.NumJornadas = RedondearEntero(LeerValor(jornadas.Text))
        if self.ConvertirDoble(tareas.Text) > 0:
            r.NumTareas = RedondearEntero(LeerValor(tareas.Text))
        self.Command1.Text, self.Command1.Enabled = ROTULO_FIJO, False
        self.MostrarEntrada()
        self.AbrirCeldas(self.celdas())
        self.NumerarFilas()

    def Command2_Click(self):
        r = self.registro
        textos = {i: self.Combo1[i].Text for i in range(2, 8)}
        if r.NumJornadas == 0 or r.NumTareas == 0:
            yield Caja(SIN_PLAN)
            return
        if "" in textos.values():
            yield Caja(FALTAN_DATOS)
            return
        if (
            self.ConvertirDoble(textos[2]) > r.NumJornadas
            or self.ConvertirDoble(textos[3]) > r.NumTareas
        ):
            yield Caja(INCOHERENTE)
            return
        if suma(LeerValor(textos[5]), LeerValor(textos[6])) != LeerValor(textos[7]):
            yield Caja(SUMA_DISTINTA)
            return
        d, t = self.ConvertirLargo(textos[2]), self.ConvertirLargo(textos[3])
        r.TiempoExposicion[d, t] = self.ConvertirDoble(textos[4])
        r.Muestras30[d, t] = self.ConvertirEntero(textos[5])
        r.Muestras15[d, t] = self.ConvertirEntero(textos[6])
        r.NumContaminantes[t] = self.ConvertirEntero(textos[7])
        for k, (d, t) in enumerate(self.pares(), 1):
            if r.TiempoExposicion[d, t] != 0:
                self._fila(k, d, t)

    def incompleto(self):
        r = self.registro
        if r.NumTareas == 0 or r.NumJornadas == 0:
            return True
        n = entero(entero(r.NumJornadas * r.NumTareas) * 6)
        if any(self.Text1[i].Text == "" for i in range(n)):
            return True
        # The last pair of the plan is the one tested on every pass.
        return any(r.TiempoExposicion[r.NumJornadas, r.NumTareas] == 0 for _ in self.pares())

    def _continuar(self, destino):
        if self.incompleto() and (yield Caja(PREGUNTA_INCOMPLETO, 324)) != "yes":
            return
        self.programa.ir(destino)

    def contaminantes(self):
        return self._continuar("Form4")

    def pagina5(self):
        return self._continuar("Form5")

    def resultadofinal(self):
        return self._continuar("Form6")

    def datosdeempresa(self):
        self.programa.ir("Form2")
        self.programa.pantalla.rellenar()


class Form4(Pantalla):
    titulo = " Velmora / h4"
    reloj = "Label1"
    aviso_imprimir = "Se imprimirá pantalla"
    menu = (
        ("vacio1", "", ()),
        ("vacio7", "", ()),
        ("continuar", "Continuar/Regresar", (
            ("pagina5", "Cálculos"),
            ("datosiniciales", "Datos iniciales: Jornadas y Tareas"),
            ("datosdeempresa", "Datos de empresa"),
            ("resultadosfinales", "Resultado final"),
        )),
        ("vacio10", "", ()),
        ("vacio11", "", ()),
        ("imprimir", "Imprimir", ()),
        ("vacio22", "", ()),
        ("vacio23", "", ()),
        ("salir", "Salir", ()),
    )  # fmt: skip
    destinos = {
        "pagina5": "Form5",
        "datosiniciales": "Form3",
        "datosdeempresa": "Form2",
        "resultadosfinales": "Form6",
    }

    def construir(self):
        self.nuevo(
            "Label2", "label", "Cararcteristicas de los contaminates  analizados por  tareas "
        )
        self.nuevo("Label1", "label")
        self.nuevo("Label3(0)", "label", "Tarea")
        self.Combo1 = self.nuevo("Combo1", "list", items=("1", "2", "3"))
        self.nuevo("Command3", "button", "Visualizar / Modificar")
        self.nuevo("Command1", "button", "Validar")
        titulos = ("Nº", "Nombre del contaminante", "VLA-ED", "VLA-EC", "Adit.", "Unidades")
        self.Label4 = self.arreglo("Label4", range(6), "label", titulos, visible=False)
        self.Label5 = self.nuevo("Label5", "label", "TM", visible=False)
        self.Text1 = self.arreglo("Text1", range(30), "cell")
        self.Text3 = self.arreglo("Text3", range(6), "cell")
        self.Combo13 = self.arreglo("Combo13", range(6), "list", items=("mg/m3", "ppm"))
        self.CifrasEd = self.PuntosEd = self.CifrasEc = self.PuntosEc = self.UltimaCelda = 0

    def cargar(self):
        for celda in [*self.Text1.values(), *self.Text3.values()]:
            celda.Text, celda.Visible, celda.Locked = "", False, None
        self._cerrar_listas()

    def _cerrar_listas(self):
        for lista in self.Combo13.values():
            lista.Visible, lista.Locked = False, True
            lista.poner("")

    def CerrarFilas(self):
        for celda in [*self.Text1.values(), *self.Text3.values()]:
            celda.Text, celda.Visible, celda.Locked = "", False, True
        self._cerrar_listas()
        for rotulo in [*self.Label4.values(), self.Label5]:
            rotulo.Visible = True

    def lista_elegida(self, nombre, indice):
        if nombre == "Combo13":
            return
        self.CerrarFilas()
        if self.Combo1.Text == "":
            yield Caja(ELIJA_TAREA)
            return
        if self.ConvertirDoble(self.Combo1.Text) > self.registro.NumTareas:
            yield Caja(TAREA_MAYOR_INICIAL)
            return
        n = self.registro.NumContaminantes[RedondearEntero(LeerValor(self.Combo1.Text))]
        for i in range(entero(5 * n)):
            celda = self.Text1[i]
            celda.Locked, celda.Visible, celda.Text = False, True, ""
        for i in range(n):
            self.Combo13[i].Locked, self.Combo13[i].Visible = False, True
            self.Text3[i].Locked, self.Text3[i].Visible = False, True
        for c in range(1, n + 1):
            celda = self.Text1[5 * (c - 1)]
            celda.Text, celda.Locked = TextoEntero(c), True

    def _rechazo(self):
        if self.Combo1.Text == "":
            return ELIJA_TAREA
        return TAREA_MAYOR if LeerValor(self.Combo1.Text) > self.registro.NumTareas else None

    def Command1_Click(self):
        rechazo = self._rechazo()
        if rechazo:
            yield Caja(rechazo)
            return
        n = self.registro.NumContaminantes[RedondearEntero(LeerValor(self.Combo1.Text))]
        if any(self.Text1[i].Text == "" for i in range(entero(5 * n))) or any(
            "" in (self.Combo13[i].Text, self.Text3[i].Text) for i in range(n)
        ):
            yield Caja(CUMPLIMENTE)
            return
        self._guardar(self.ConvertirLargo(self.Combo1.Text), n)

    def _guardar(self, t, n):
        r = self.registro
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
        rechazo = self._rechazo()
        if rechazo:
            yield Caja(rechazo)
            return
        r = self.registro
        t = self.ConvertirLargo(self.Combo1.Text)
        n = r.NumContaminantes[t]
        for c in range(1, n + 1):
            self.Text1[5 * c - 4].Text = r.NombreContaminante[t, c]
            self.Text1[5 * c - 3].Text = self.TextoDoble(r.VlaEd[t, c])
            self.Text1[5 * c - 2].Text = self.TextoDoble(r.VlaEc[t, c])
            self.Text1[5 * c - 1].Text = TextoEntero(r.Aditivo[t, c])
            self.Combo13[c - 1].poner(r.Unidades[t, c])
        for c in range(1, n + 1):
            self.Text3[c - 1].Text = TextoEntero(r.TiempoMuestreo[t, c])

    def doble_clic(self, nombre, indice):
        if nombre != "Text3" or indice not in self.Text3:
            return
        celda = self.Text3[indice]
        if celda.Text == "":
            celda.Text = TextoEntero(30)
        elif LeerValor(celda.Text) == 30:
            celda.Text = "15"
        elif LeerValor(celda.Text) == 15:
            celda.Text = "30"

    def filtrada(self, nombre):
        if not nombre.startswith("Text1("):
            return True
        return int(nombre[6:-1]) % 5 in (2, 3, 4)

    def filtro(self, nombre, indice, codigo):
        if nombre != "Text1":
            return 0
        if self.UltimaCelda != indice:
            self.CifrasEd = self.PuntosEd = self.CifrasEc = self.PuntosEc = 0
        self.UltimaCelda = indice
        columna = indice % 5
        if columna == 2:
            codigo, self.CifrasEd, self.PuntosEd = self._limite(
                indice, codigo, self.CifrasEd, self.PuntosEd
            )
        elif columna == 3:
            codigo, self.CifrasEc, self.PuntosEc = self._limite(
                indice, codigo, self.CifrasEc, self.PuntosEc
            )
        elif columna == 4:
            if not 48 <= codigo <= 57:
                return 0
            self.Text1[indice].Text = ""
        return codigo

    def _limite(self, indice, codigo, cifras, puntos):
        """The rule of limit values: (key code that goes on, digits, points)."""
        if codigo == 8:
            self.Text1[indice].Text = ""
            return codigo, 0, 0
        if codigo == 46:
            aceptado = cifras > 0 and puntos == 0
            return (codigo, cifras, puntos + 1) if aceptado else (0, cifras, puntos)
        if 48 <= codigo <= 57:
            return codigo, entero(cifras + 1), puntos
        return 0, cifras, puntos
