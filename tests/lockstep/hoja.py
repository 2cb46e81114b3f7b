"""Form5: the daily calculation sheet, its day slots, its key filter and the chain of buttons."""

import math

from controles import Caja
from estadistica import MediaEstimada, ProbabilidadExceso
from numeros import (
    ErrorEjecucion,
    LeerValor,
    RedondearEntero,
    TextoEntero,
    cociente,
    entero,
    exponencial,
    logaritmo,
    potencia,
    producto,
    resta,
    suma,
)
from pantalla import Pantalla

TITULO_CARGA = "Velmora / h5                          CÁLCULOS   Y   RESULTADOS "
TITULOS_DIA = {
    1: "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA ",
    2: "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA",
    3: "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA",
}
DIA_INCOHERENTE = " El número de día seleccionado no es coherente con los datos introducidos"
SIN_LIMITES = "No se dispone de datos relativos a los contaminantes "
SIN_DATOS = {
    1: "No hay datos para operar",
    2: " No hay datos para operar",
    3: " No hay datos para operar",
}
INSUFICIENTES = "No hay datos suficientes para operar "
HUECOS = "No deje espacios vacios"

CABECERAS = (
    "Nº", "Contaminante", "ED", "EC", "Unid.", "T.M.", "A+", "C1", "C2", "C3", "C4", "C5", "C6",
    "MMP", "Indice", "Indic.+", "MG", "GSD",
)  # fmt: skip
TITULOS_TAREA = (
    "Datos  relativos a la 1ª tarea",
    "Datos relativos a la 2ª tarea",
    "Datos relativos a la 3ª tarea",
)
BOTONES = {
    1: "Validar 1ª tarea",
    2: "Validar 2ª tarea",
    3: "Validar 3ª tarea",
    4: "Indice+ / MG / GSD",
    5: "EC+/MG+/GSD+/Prob.",
    6: "EC+/MG+/GSD+/Prob.",
    7: "EC+/MG+/GSD+/Prob.",
    8: "Conclusiones referidas a la jornada en curso :     Validar",
}
CONCLUSIONES = ("Label1", "Label2", "Label4", "Text2", "Text4", "Text5", "Text6", "Text7")
TEXTOS_FINALES = ("Text2", "Text4", "Text5", "Text6", "Text7")

SEGURA_10 = "EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA"
INACEPTABLE = "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN"
VEREDICTOS = {
    1: (SEGURA_10, "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS", INACEPTABLE),
    2: (SEGURA_10, "SE CONTINUA  CON EL PLAN DE MEDICIONES", INACEPTABLE),
    3: (
        "EXPOSICIÓN INFERIOR AL VALOR LÍMITE: SITUACIÓN SEGURA",
        "PLAN DE MEDICIONES FINALIZADO",
        INACEPTABLE,
    ),
}
VEREDICTOS_CORTA = (
    " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS",
    " SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS",
    "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS",
)


class Form5(Pantalla):
    titulo = " Velmora / h5                                  CÁLCULOS   Y   RESULTADOS "
    reloj = "Label5"
    aviso_imprimir = "Se imprimirán todos los datos en pantalla"
    menu = (
        ("vacio1", "", ()),
        ("vacio2", "", ()),
        ("introducirdatos", "Introducir datos", (
            ("introprimero", "Primer dia"),
            ("introsegundo", "Segundo dia"),
            ("introtercero", "Tercer dia"),
        )),
        ("vacio3", "", ()),
        ("vacio4", "", ()),
        ("recuperar", "Recuperar datos/cálculos", (
            ("recupprimerdia", "Primer dia"),
            ("recupsegundodia", "Segundo dia"),
            ("recuptercerdia", "Tercer dia"),
        )),
        ("vacio5", "", ()),
        ("vacio6", "", ()),
        ("continuar", "Continuar/Regresar", (
            ("datosiniciales", "Datos iniciales: Jornadas y Tareas"),
            ("contaminantes", "Contaminantes"),
            ("resultadosfinales", "Resultado final"),
            ("datosempresa", "Datos de empresa"),
        )),
        ("vacio9", "", ()),
        ("vacio14", "", ()),
        ("imprimir", "Imprimir", ()),
        ("vacio15", "", ()),
        ("salir", "Salir", ()),
    )  # fmt: skip
    destinos = {
        "datosiniciales": "Form3",
        "contaminantes": "Form4",
        "resultadosfinales": "Form6",
        "datosempresa": "Form2",
    }

    def construir(self):
        titulos = CABECERAS * 3 + TITULOS_TAREA
        self.Label7 = self.arreglo("Label7", range(57), "label", titulos)
        titulos = ("EC+", "MG+", "GSD+", "Prob.") * 3
        self.Label3 = self.arreglo("Label3", range(12), "label", titulos)
        self.nuevo("Label1", "label", "¿Se ha superado   3 x VLA-ED  o    VLA-EC ?")
        self.nuevo("Label2", "label", "Mayor indice calculado: simple y aditivo")
        self.nuevo("Label4", "label", "Probabilidad de superar corta exposición:")
        self.nuevo("Label5", "label")
        for i, rotulo in BOTONES.items():
            self.nuevo(f"Command{i}", "button", rotulo)
        self.Text1 = self.arreglo("Text1", range(324), "cell")
        self.Text3 = self.arreglo("Text3", range(72), "cell")
        for nombre in TEXTOS_FINALES:
            self.nuevo(nombre, "cell", bloqueado=True)
        for i in range(324):
            if 7 <= i % 18 <= 12:
                self.Text1[i].fondo, self.Text1[i].letra = "fondo inicial", "letra inicial"
        self.DiaActual = self.CifrasTecleadas = self.PuntosTecleados = self.CeldaFiltrada = 0

    def cargar(self):
        self.titulo = TITULO_CARGA
        self.limpia()

    # Reading and writing numbers as cell text.

    def valor(self, indice):
        return LeerValor(self.Text1[indice].Text)

    def valor3(self, indice):
        return LeerValor(self.Text3[indice].Text)

    def escribir3(self, indice, numero):
        self.Text3[indice].Text = self.TextoDoble(numero)

    def _abrir(self, boton):
        control = self.controles[boton]
        control.Visible = control.Enabled = True

    def _mostrar_conclusiones(self):
        for nombre in CONCLUSIONES:
            self.controles[nombre].Visible = True

    # The sheet of a day.

    def limpia(self):
        for rotulo in [*self.Label7.values(), *self.Label3.values()]:
            rotulo.Visible = False
        for celda in [*self.Text1.values(), *self.Text3.values()]:
            celda.Visible, celda.Locked, celda.Text = False, True, ""
        for i in BOTONES:
            boton = self.controles[f"Command{i}"]
            boton.Visible = boton.Enabled = False
        for nombre in CONCLUSIONES:
            self.controles[nombre].Visible = False

    def _filas(self, dia, t):
        return entero(self.registro.Muestras15[dia, t] + self.registro.Muestras30[dia, t])

    def _disponer(self, dia, t):
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
        n = self._filas(dia, t)
        for i in range(base, base + entero(n * 18)):
            self.Text1[i].Visible = self.Text1[i].Locked = True
        for i in range(base3, base3 + entero(n * 4)):
            self.Text3[i].Visible = self.Text3[i].Locked = True
        return n

    def _abrir_muestras(self, t, n):
        for r in range(n):
            for columna in range(7, 13):
                self.Text1[(t - 1) * 108 + r * 18 + columna].Locked = False

    def _rellenar(self, t, n):
        r = self.registro
        for c in range(1, n + 1):
            base = (t - 1) * 108 + (c - 1) * 18
            self.Text1[base].Text = TextoEntero(c)
            self.Text1[base + 1].Text = r.NombreContaminante[t, c]
            self.Text1[base + 2].Text = self.TextoDoble(r.VlaEd[t, c])
            self.Text1[base + 3].Text = self.TextoDoble(r.VlaEc[t, c])
            self.Text1[base + 4].Text = r.Unidades[t, c]
            self.Text1[base + 5].Text = TextoEntero(r.TiempoMuestreo[t, c])
            self.Text1[base + 6].Text = TextoEntero(r.Aditivo[t, c])

    def intro(self, c):
        self.DiaActual = c
        if c > self.registro.NumJornadas:
            self.limpia()
            yield Caja(DIA_INCOHERENTE)
            return
        tareas = self.registro.NumTareas
        if tareas < 1:
            return
        self._abrir("Command1")
        for t in (1, 2, 3):
            n = self._disponer(c, t)
            self._rellenar(t, n)
            self._abrir_muestras(t, n)
            if (t == 1 and tareas < 2) or (t == 2 and tareas != 3):
                return

    def recupera(self, s):
        self.DiaActual = s
        if s > self.registro.NumJornadas:
            self.limpia()
            yield Caja(DIA_INCOHERENTE)
            return
        self.limpia()
        tareas = self.registro.NumTareas
        if self.registro.NumJornadas == 0 or tareas == 0:
            return
        self._abrir("Command1")
        n = self._disponer(s, 1)
        self._abrir_muestras(1, n)
        if tareas >= 2:
            self._abrir("Command2")
            n = self._disponer(s, 2)
            self._abrir_muestras(2, n)
        if tareas == 3:
            self._abrir("Command1")  # and not Command3
            n = self._disponer(s, 3)
            self._abrir_muestras(3, n)
        self._abrir("Command8")
        self._mostrar_conclusiones()
        self._copiar_de(self.registro.hoja(s))
        if s == 3:
            self._abrir_muestras(3, n)

    def _copiar_de(self, hoja):
        for entrada in range(1, 325):
            self.Text1[entrada - 1].Text = hoja[entrada]
        for entrada in range(325, 397):
            self.Text3[entrada - 325].Text = hoja[entrada]
        for puesto, nombre in enumerate(TEXTOS_FINALES):
            self.controles[nombre].Text = hoja[397 + puesto]

    def _introducir(self, dia):
        self.titulo = TITULOS_DIA[dia]
        self.limpia()
        return self.intro(dia)

    def _recuperar(self, dia):
        self.titulo = TITULOS_DIA[dia]
        return self.recupera(dia)

    def introprimero(self):
        return self._introducir(1)

    def introsegundo(self):
        return self._introducir(2)

    def introtercero(self):
        return self._introducir(3)

    def recupprimerdia(self):
        return self._recuperar(1)

    def recupsegundodia(self):
        return self._recuperar(2)

    def recuptercerdia(self):
        return self._recuperar(3)

    # The key filter of Text1.

    def filtrada(self, nombre):
        return nombre.startswith("Text1(")

    def filtro(self, nombre, indice, codigo):
        if nombre != "Text1":
            return codigo
        if indice != self.CeldaFiltrada:
            self.CifrasTecleadas = self.PuntosTecleados = 0
            self.CeldaFiltrada = indice
        if codigo == 8:
            self.Text1[indice].Text = ""
            self.CifrasTecleadas = self.PuntosTecleados = 0
            return codigo
        if codigo == 46 and self.CifrasTecleadas > 0 and self.PuntosTecleados == 0:
            self.PuntosTecleados += 1
            return codigo
        if 48 <= codigo <= 57:
            self.CifrasTecleadas = entero(self.CifrasTecleadas + 1)
            return codigo
        return 0

    # Validation of a task.

    def Command1_Click(self):
        return self._validar(1)

    def Command2_Click(self):
        return self._validar(2)

    def Command3_Click(self):
        return self._validar(3)

    def _muestras(self, fila):
        """The six sample cells of the row that starts at cell `fila`."""
        return [self.Text1[fila + 7 + c] for c in range(6)]

    def _rechazo(self, t, base):
        """The text of the refusal, or None; the colours are set on the way."""
        n = self.registro.NumContaminantes[t]
        for r in range(n):
            ed, ec = self.valor(base + 18 * r + 2), self.valor(base + 18 * r + 3)
            if ed == 0 and ec == 0:
                return SIN_LIMITES
        # The first task's block, in all three handlers.
        if not any(self.Text1[7 + 18 * i + j].Text != "" for i in range(6) for j in range(6)):
            return SIN_DATOS[t]
        for r in range(6):
            for celda in self._muestras(base + 18 * r):
                celda.letra = "letra del sistema"
        for r in range(n):
            if sum(celda.Text != "" for celda in self._muestras(base + 18 * r)) < 2:
                return INSUFICIENTES
        for r in range(6):
            celdas = self._muestras(base + 18 * r)
            for b, a in zip(celdas, celdas[1:]):
                if b.Text == "" and a.Text != "":
                    return HUECOS
                if LeerValor(b.Text) == 0 and a.Text != "":
                    return HUECOS
        return None

    def _validar(self, t):
        base = 108 * (t - 1)
        rechazo = self._rechazo(t, base)
        if rechazo:
            yield Caja(rechazo)
            return
        for r in range(1, 7):
            if self._filas(self.DiaActual, t) < r:
                break
            self._calcular_fila(t, r, base + 18 * (r - 1))
        self.controles["Text7"].Text = ""
        for r in range(6):
            for celda in self._muestras(base + 18 * r):
                celda.fondo = "fondo del sistema"
        tareas = self.registro.NumTareas
        if tareas == t:
            self._abrir("Command4")
        elif tareas > t and t < 3:
            self._abrir(f"Command{t + 1}")

    def _calcular_fila(self, t, r, fila):
        muestras = [0.0] * 7
        for c, celda in enumerate(self._muestras(fila), 1):
            if celda.Text == "" or LeerValor(celda.Text) == 0:
                break
            muestras[c] = LeerValor(celda.Text)
        mmp = MediaEstimada(self.registro, muestras, self.DiaActual, t, r)
        self.Text1[fila + 13].Text = self.FormatoDosDecimales(mmp)
        # Row 6 of the second task goes by the first day's time.
        dia = 1 if (t, r) == (2, 6) else self.DiaActual
        limite = self.registro.VlaEd[t, r]
        indice = 0.0
        if limite != 0:
            tiempo = self.registro.TiempoExposicion[dia, t]
            indice = cociente(producto(tiempo, mmp), producto(limite, 8.0))
        self.Text1[fila + 14].Text = self.FormatoDosDecimales(indice)

    # Daily index.

    def Command4_Click(self):
        filas = range(1, 19)
        for fila in filas:
            self.Text1[18 * fila - 3].Text = ""
        for k in range(1, 21):
            self._sumar_grupo(k)
        for t in (1, 2, 3):
            for c in range(1, 7):
                fila = 6 * (t - 1) + c
                lugar = (self.DiaActual, t, c)
                self.Text1[18 * fila - 2].Text = self.FormatoDosDecimales(self.registro.MG[lugar])
                self.Text1[18 * fila - 1].Text = self.FormatoDosDecimales(self.registro.GSD[lugar])
        self._abrir("Command5")
        for fila in filas:
            if self.valor(18 * fila - 12) == 0:
                self.Text1[18 * fila - 3].Text = self.Text1[18 * fila - 4].Text
        for fila in filas:
            # Only a group numbered as its own first row spreads its sum.
            if self.valor(18 * fila - 12) == fila:
                w = self.valor(18 * fila - 3)
                for otra in range(fila + 1, 19):
                    if self.valor(18 * otra - 12) == fila:
                        self.Text1[18 * otra - 3].Text = self.TextoDoble(w)

    def _sumar_grupo(self, k):
        primero = 0
        for c in range(6, 313, 18):
            pertenece = self.valor(c) == k
            if primero == 0 and pertenece:
                primero = c
            if pertenece:
                x, y = self.valor(c + 8), self.valor(primero + 9)
                self.Text1[primero + 9].Text = self.TextoDoble(suma(x, y))
        # With no row of the group these are C2 and C3 of the first row.
        if self.valor(primero + 8) == self.valor(primero + 9):
            self.Text1[primero + 9].Text = ""

    # Short exposure.

    def Command5_Click(self):
        self._corta_exposicion(1, 0.222)

    def Command6_Click(self):
        self._corta_exposicion(2, 0.222)

    def Command7_Click(self):
        self._corta_exposicion(3, 0.2222)

    def _corta_exposicion(self, t, factor):
        base, base3 = 108 * (t - 1), 24 * (t - 1)
        n = self.registro.NumContaminantes[t]
        for i in range(n):
            aditivo = self.valor(base + 18 * i + 6)
            self.valor(base + 18 * i + 3)
            if aditivo == 0:
                self._fila_sola(base + 18 * i, base3 + 4 * i)
        for k in range(1, 7):
            miembros = [
                base + 18 * i for i in range(n) if self.valor(base + 18 * i + 6) == k
            ]
            if len(miembros) == 1:
                self._fila_sola(miembros[0], int(miembros[0] / 4.5))
        marcas = range(base + 6, base + 18 * (n - 1) + 7, 18)
        for k in range(1, 7):
            self._limite_grupo(k, marcas, factor)
        for k in range(1, 7):
            self._estadistica_grupo(k, marcas, t, base3)
        for i in range(base3, base3 + (n - 1) * 4 + 1, 4):
            if self.Text3[i].Text == "":
                continue
            mg = self.valor3(i + 1)
            razon = cociente(self.valor3(i), mg)
            self.escribir3(i + 3, ProbabilidadExceso(razon, self.valor3(i + 2)))
        tareas = self.registro.NumTareas
        if t < 3 and tareas > t:
            self._abrir(f"Command{t + 5}")
        if tareas == t:
            self._abrir("Command8")
            self._mostrar_conclusiones()

    def _fila_sola(self, c, d):
        ec = self.valor(c + 3)
        self.escribir3(d, ec if ec != 0 else producto(3.0, self.valor(c + 2)))
        self.escribir3(d + 1, self.valor(c + 16))
        self.escribir3(d + 2, self.valor(c + 17))

    def _limite_grupo(self, k, marcas, factor):
        w = s = 0.0
        miembros = primero = 0
        for j in marcas:
            if self.valor(j) != k:
                continue
            primero = primero or j
            miembros += 1
            v = self.valor(j + 7)
            if self.valor(j - 3) == 0:
                w = suma(w, cociente(v, producto(3.0, self.valor(j - 4))))
            else:
                w = suma(w, cociente(v, self.valor(j - 3)))
            s = suma(s, self.valor(j + 7))
        if w != 0 and miembros >= 2:
            self.escribir3(math.floor(primero * factor - 1.3), cociente(s, w))

    def _estadistica_grupo(self, k, marcas, t, base3):
        matriz = {(r, m): 0.0 for r in range(1, 8) for m in range(1, 7)}
        miembros = primero = 0
        for r, j in enumerate(marcas, 1):
            if self.valor(j) != k:
                continue
            miembros += 1
            primero = primero or j
            for m in range(1, 7):
                if (r, m) not in matriz:
                    raise ErrorEjecucion("subindice")
                matriz[r, m] = self.valor(j + m)
        if miembros < 2:
            return
        for m in range(1, 7):
            presentes = 0
            for r in range(1, 7):
                if matriz[r, m] != 0:
                    matriz[7, m] = suma(matriz[7, m], matriz[r, m])
                    presentes += 1
            if presentes < miembros:
                matriz[7, m] = 0.0
                break
        z, total = 0, 0.0
        for m in range(1, 7):
            if matriz[7, m] == 0:
                break
            matriz[7, m] = logaritmo(matriz[7, m])
            total = suma(total, matriz[7, m])
            z += 1
        g = cociente(total, float(z))
        lugar = (self.DiaActual, t, RedondearEntero(self.valor(primero - 6)))
        self.registro.MGmas[lugar] = exponencial(g)
        self._escribir_grupo(base3, primero, 3, self.registro.MGmas[lugar])
        q = 0.0
        for m in range(1, z + 1):
            q = suma(q, potencia(abs(resta(g, matriz[7, m])), 2.0))
        s = potencia(cociente(q, float(z - 1)), 0.5)
        self.registro.GSDmas[lugar] = exponencial(s)
        self._escribir_grupo(base3, primero, 2, self.registro.GSDmas[lugar])

    def _escribir_grupo(self, base3, primero, resto, valor):
        numero = self.valor(primero - 6)
        self.escribir3(RedondearEntero(base3 + numero * 4 - resto), valor)

    # Conclusions of the day.

    def Command8_Click(self):
        x = max([0.0] + [self.valor(i) for i in range(14, 321, 18)])
        y = max([0.0] + [self.valor(i) for i in range(15, 322, 18)])
        y = max(x, y)
        self.controles["Text2"].Text = self.TextoDoble(y)
        p = max([0.0] + [self.valor3(i) for i in range(3, 72, 4)])
        self.controles["Text4"].Text = self.TextoDoble(p)
        if not self._superado(30, 3, 3.0, "250"):
            self._superado(15, 2, 1.0, "255")
        dia = self.DiaActual
        if dia not in VEREDICTOS:
            return
        tramo = 0 if y <= 0.1 else 1 if y <= 1 else 2
        self.controles["Text5"].Text = VEREDICTOS[dia][tramo]
        tramo = 0 if p <= 0.1 else 1 if p <= 5 else 2
        self.controles["Text6"].Text = VEREDICTOS_CORTA[tramo]
        self._copiar_a(self.registro.hoja(dia))
        for fila in range(1, 19):
            for texto, columna in (
                (self.Text1[fila * 18 - 3].Text, 2 + dia),
                (self.Text3[fila * 4 - 1].Text, 6 + dia),
            ):
                if texto != "":
                    self.registro.HojaFinal[fila, columna] = self.TextoDoble(LeerValor(texto))

    def _superado(self, tiempo, atras, factor, fondo):
        """One scan for the first sample over its limit; True when it marks one."""
        for i in range(5, 312, 18):
            if self.valor(i) != tiempo:
                continue
            limite = producto(factor, self.valor(i - atras))
            for m in range(1, 7):
                if self.valor(i + 1 + m) < limite:
                    self.controles["Text7"].Text = "NO"
                    continue
                self.controles["Text7"].Text = "SI"
                celda = self.Text1[i + 1 + m]
                celda.fondo, celda.letra = fondo, "fondo del sistema"
                return True
        return False

    def _copiar_a(self, hoja):
        for entrada in range(1, 325):
            hoja[entrada] = self.Text1[entrada - 1].Text
        for entrada in range(325, 397):
            hoja[entrada] = self.Text3[entrada - 325].Text
        for puesto, nombre in enumerate(TEXTOS_FINALES):
            hoja[397 + puesto] = self.controles[nombre].Text
