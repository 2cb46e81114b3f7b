"""The guided random user: it follows roads that go deep and strays from them now and then."""

import base64
import itertools

from captura import ROTULO_FIJO
from controles import Caja, CajaError, DialogoArchivo, DialogoImprimir
from ficheros import NOMBRES, fichero, limite, marcas_aditivas
from numeros import ErrorEjecucion, LeerValor
from pantalla import PREGUNTA_SALIR

DESTINOS = {
    "Form2": {"Form3": "datosiniciales", "Form4": "contaminantes", "Form5": "calculos",
              "Form6": "resulatadofinal"},
    "Form3": {"Form4": "contaminantes", "Form5": "pagina5", "Form2": "datosdeempresa",
              "Form6": "resultadofinal"},
    "Form4": {"Form5": "pagina5", "Form3": "datosiniciales", "Form2": "datosdeempresa",
              "Form6": "resultadosfinales"},
    "Form5": {"Form3": "datosiniciales", "Form4": "contaminantes", "Form6": "resultadosfinales",
              "Form2": "datosempresa"},
    "Form6": {"Form5": "calculos", "Form4": "contaminantes", "Form3": "datosiniciales",
              "Form2": "datosdeempresa"},
}  # fmt: skip
INTRODUCIR = {1: "introprimero", 2: "introsegundo", 3: "introtercero"}
RECUPERAR = {1: "recupprimerdia", 2: "recupsegundodia", 3: "recuptercerdia"}

TECLAS_FILTRADAS = (
    *"0123456789..,-a ñ+eE/:", "<BS>", "<DEL>", "<HOME>", "<END>", "<LEFT>", "<RIGHT>",
    "<S-HOME>", "<S-END>", "<ENTER>", "<ESC>", "<C-V>", "<C-X>", "<C-Z>", "<S-INS>", "<S-DEL>",
    "<C-H>", "<C-M>",
)  # fmt: skip
TECLAS_LIBRES = (
    *'abcXYZ 019.,-_áñÜ€µΩ"&/', "<BS>", "<DEL>", "<HOME>", "<END>", "<LEFT>", "<RIGHT>",
    "<S-HOME>", "<S-END>", "<ENTER>",
)  # fmt: skip
EMPRESAS = ("Pinturas Ñandú, S.L.", "ACME & Cía", " ", "Taller «El 3»", 'La "Buena"', "Ωmega 😀")


def _hasta_intro(teclas):
    """Enter leaves the cell: nothing is typed into it after that."""
    return teclas[: teclas.index("<ENTER>") + 1] if "<ENTER>" in teclas else teclas


class Guia:
    """Gives the next action for the model's present state."""

    def __init__(self, azar, programa, roces=0.12):
        self.azar, self.programa, self.roces = azar, programa, roces
        self.archivo = None  # name that the next file dialog is given
        self.nombres = []
        self.camino = iter(())
        self.cuenta = itertools.count(1)
        self.estreno = True

    def siguiente(self):
        if self.programa.estado_final is not None:
            self.camino, self.estreno = iter(()), True
            return ["restart"]
        if self.programa.espera is not None:
            return self._respuesta()
        if self.azar.random() < self.roces:
            accion = self._roce()
            if accion and self.programa.aplicable(accion):
                return accion
        for _ in range(60):
            accion = next(self.camino, None)
            if accion is None:
                self.camino = self._intencion()
            elif self.programa.aplicable(accion):
                return accion
        return ["clip", "7"]

    # Answers.

    def _respuesta(self):
        espera, azar = self.programa.espera, self.azar
        if isinstance(espera, CajaError):
            return ["answer", azar.choice(("ok", "esc", "enter"))]
        if isinstance(espera, DialogoArchivo):
            return self._nombre_de_archivo()
        if isinstance(espera, DialogoImprimir):
            return ["print", azar.choice(("accept", "cancel"))]
        if not isinstance(espera, Caja):
            return ["answer", azar.choice(("yes", "yes", "yes", "no", "esc"))]
        if espera.estilo == 0:
            return ["answer", azar.choice(("ok", "ok", "esc", "enter"))]
        if azar.random() < 0.08 and espera.texto != PREGUNTA_SALIR:
            return ["answer", "enter"]
        return ["answer", "yes" if azar.random() < self._ganas(espera) else
                azar.choice(("no", "no", "esc"))]  # fmt: skip

    def _ganas(self, caja):
        if caja.texto == PREGUNTA_SALIR:
            return 0.15
        if caja.texto.startswith("Se imprimir"):
            return 0.2
        return 0.5 if caja.titulo == "Aviso" or "regresar" in caja.texto else 0.85

    def _nombre_de_archivo(self):
        nombre, self.archivo = self.archivo, None
        if nombre is None:
            if self.azar.random() < 0.3:
                return ["file", "cancel"]
            nombre = self._un_nombre()
        return ["file", "accept", nombre]

    def _un_nombre(self):
        if self.nombres and self.azar.random() < 0.7:
            return self.azar.choice(self.nombres)
        formas = ("@/ev{}", "@/evaluación {}", "@/ev{}.doc", "@/ev{}.txt", "@/carpeta.v2/ev{}")
        nombre = self.azar.choice(formas).format(next(self.cuenta))
        self.nombres.append(nombre)
        return nombre

    # Roads.

    def _en(self):
        return type(self.programa.pantalla).__name__

    def _intencion(self):
        azar, registro = self.azar, self.programa.registro
        if self.estreno:
            self.estreno = False
            self.camino = iter(())
            if azar.random() < 0.7:
                return self._cargar()
            return itertools.chain(self._empresa(), self._plan(), self._todas_las_tareas())
        sin_plan = registro.NumTareas < 1 or registro.NumJornadas < 1
        sin_agentes = not sin_plan and any(
            registro.VlaEd[t, 1] == 0 for t in range(1, min(registro.NumTareas, 3) + 1)
        )
        caminos = (
            (self._cargar, 3 if sin_plan else 1),
            (self._empresa, 1),
            (self._plan, 4 if sin_plan else 1),
            (self._todas_las_tareas, 12 if sin_agentes else 2),
            (self._un_dia, 1 if sin_plan else 8),
            (self._dia_recuperado, 1 if sin_plan else 5),
            (self._final, 2),
            (self._otra_vez, 1),
            (self._plan_reabierto, 1),
            (self._curiosear, 2),
        )
        elegido = azar.choices([c for c, _ in caminos], [peso for _, peso in caminos])[0]
        return elegido()

    def _ir(self, destino):
        for _ in range(6):
            en = self._en()
            if en == destino:
                return
            if en == "Form1":
                yield ["menu", "Nuevaempresa"]
                continue
            sin_nombre = en == "Form2" and self.programa.control("Text1(1)").Text == ""
            if sin_nombre and self.azar.random() < 0.8:
                yield ["type", "Text1(1)", list(self.azar.choice(EMPRESAS))]
            if (en, destino) == ("Form6", "Form5") and self.azar.random() < 0.6:
                yield ["menumouse", "regresar"]
                continue
            yield self._entrada(DESTINOS[en][destino])

    def _entrada(self, nombre):
        if self.azar.random() < 0.7:
            return ["menu", nombre]
        for titulo, _, lista in self.programa.pantalla.menu:
            if any(fila[0] == nombre for fila in lista) and titulo != "regresar":
                return ["menumouse", titulo, nombre]
        return ["menu", nombre]

    def _cargar(self):
        yield from self._ir("Form2")
        if not self.nombres or self.azar.random() < 0.6:
            nombre = f"@/dado{next(self.cuenta)}.doc"
            datos = fichero(self.azar, self.programa.separador)
            yield ["put", nombre, base64.b64encode(datos).decode()]
            self.nombres.append(nombre)
            self.archivo = nombre
        yield ["menu", "recuperardatos"]

    def _empresa(self):
        yield from self._ir("Form2")
        for _ in range(self.azar.randint(0, 4)):
            celda = f"Text1({self.azar.choice((1, 1, 9, self.azar.randint(1, 19)))})"
            teclas = self.azar.choices(TECLAS_LIBRES, k=self.azar.randint(1, 8))
            if self.azar.random() < 0.5:
                teclas = ["<S-HOME>", *teclas]
            if self.azar.random() < 0.1:
                yield ["clip", "pegado ñ"]
                teclas = [self.azar.choice(("<C-V>", "<S-INS>")), *teclas]
            yield ["type", celda, _hasta_intro(teclas)]
        if self.azar.random() < 0.1:
            yield ["type", "Text1(1)", ["<S-HOME>", self.azar.choice(("<BS>", "<DEL>"))]]
            yield self._entrada(self.azar.choice(("datosiniciales", "calculos")))
        if self.azar.random() < 0.05:
            yield ["menu", "Regresar"]
        yield from self._ir(self.azar.choice(("Form3", "Form4", "Form5", "Form6")))

    def _elegir(self, lista, texto):
        """A pick of the item with that text."""
        control = self.programa.control(lista)
        lugar = control.items.index(texto) if control else 0
        return ["pick", lista, lugar, self.azar.choice(("enter", "mouse"))]

    def _plan(self):
        azar = self.azar
        yield from self._ir("Form3")
        if self._en() != "Form3":
            return
        if self.programa.pantalla.Command1.Text == ROTULO_FIJO and azar.random() < 0.4:
            yield self._elegir("Combo1(0)", azar.choice("13"))
        if self._en() == "Form3" and self.programa.pantalla.Command1.Text != ROTULO_FIJO:
            yield self._elegir("Combo1(0)", azar.choice("133"))
            yield self._elegir("Combo1(1)", azar.choice("123"))
            yield ["click", "Command1"]
        registro = self.programa.registro
        dias, tareas = min(registro.NumJornadas, 3), min(registro.NumTareas, 3)
        pares = [(d, t) for d in range(1, dias + 1) for t in range(1, tareas + 1)]
        if azar.random() < 0.3:
            azar.shuffle(pares)
        totales = {t: azar.randint(1, 6) for t in (1, 2, 3)}
        for d, t in pares:
            if self._en() != "Form3":
                return
            total = totales[t] if azar.random() < 0.95 else azar.randint(1, 6)
            treinta = azar.randint(0, total)
            horas = str(azar.randint(1, 14))
            textos = [str(d), str(t), horas, str(treinta), str(total - treinta), str(total)]
            if azar.random() < 0.1:
                textos[azar.randrange(3, 6)] = str(azar.randint(1, 6))
            for i, texto in enumerate(textos, 2):
                yield self._elegir(f"Combo1({i})", texto)
                if self._en() != "Form3":
                    return
            yield ["click", "Command2"]

    def _plan_reabierto(self):
        """The two numbers touched again, and what the first face refuses."""
        yield from self._ir("Form3")
        if self._en() == "Form3":
            yield self._elegir(f"Combo1({self.azar.randint(0, 1)})", "1")
        if self.azar.random() < 0.5:
            yield ["click", "Command1"]
        if self.azar.random() < 0.3:
            yield ["menu", "datosdeempresa"]

    def _curiosear(self):
        """A while of aimless clicks on one screen, "Regresar" and "Salir" among them."""
        azar = self.azar
        en = azar.choice(("Form2", "Form3", "Form4", "Form5", "Form6", "Form6"))
        yield from self._ir(en)
        for _ in range(azar.randint(2, 8)):
            if azar.random() < 0.15:
                yield azar.choice((["menu", "salir"], ["menu", "Regresar"], ["menu", "imprimir"]))
            yield self._roce() or ["clip", "7"]

    def _todas_las_tareas(self):
        yield from self._ir("Form4")
        for t in range(1, min(max(self.programa.registro.NumTareas, 1), 3) + 1):
            if self._en() != "Form4":
                return
            yield self._elegir("Combo1", str(t))
            if self.azar.random() < 0.3:
                yield ["click", "Command3"]
            yield from self._contaminantes(t)
            yield ["click", "Command1"]

    def _contaminantes(self, t):
        azar = self.azar
        marcas = marcas_aditivas(azar, t)
        for c in range(1, 7):
            if self._en() != "Form4" or not self.programa.control(f"Text1({5 * c - 4})").Visible:
                return
            diario = limite(azar, self.programa.separador)
            corto = azar.choice((0, diario * 2, limite(azar, self.programa.separador)))
            if corto and azar.random() < 0.04:
                diario = 0
            yield ["type", f"Text1({5 * c - 4})", ["<S-HOME>", *azar.choice(NOMBRES)]]
            yield ["type", f"Text1({5 * c - 3})", ["<BS>", *f"{diario:g}"]]
            cifras = "9" * 400 if azar.random() < 0.004 else f"{corto:g}"
            yield ["type", f"Text1({5 * c - 2})", ["<BS>", *cifras]]
            yield ["type", f"Text1({5 * c - 1})", [str(marcas[c - 1])]]
            yield ["double", f"Text3({c - 1})"]
            if azar.random() < 0.5:
                yield ["double", f"Text3({c - 1})"]
            yield self._elegir(f"Combo13({c - 1})", azar.choice(("mg/m3", "ppm")))

    def _celdas_abiertas(self):
        """Visible unlocked sample cells of the sheet, by row."""
        filas = {}
        for i, celda in self.programa.pantalla.Text1.items():
            if 7 <= i % 18 <= 12 and celda.Visible and not celda.Locked:
                filas.setdefault(i // 18, []).append(i)
        return filas

    def _un_dia(self):
        azar = self.azar
        yield from self._ir("Form5")
        if self._en() != "Form5":
            return
        dias = self.programa.registro.NumJornadas
        dia = azar.randint(1, dias) if 1 <= dias <= 3 else azar.randint(1, 3)
        yield self._entrada(INTRODUCIR[dia])
        if self._en() != "Form5":
            return
        muestras = azar.randint(2, 6)
        for fila, celdas in self._celdas_abiertas().items():
            if azar.random() < 0.2:
                muestras = azar.randint(2, 6)
            for m in range(muestras):
                if self._en() != "Form5":
                    return
                if azar.random() < 0.995:
                    yield ["type", f"Text1({celdas[m]})", list(self._medida(fila))]
        yield from self._cadena((1, 2, 3, 4, 5, 6, 7, 8))

    def _medida(self, fila):
        azar = self.azar
        if azar.random() < 0.02 or self._en() != "Form5":
            return azar.choice(("0", "0.0", "5.", "9" * 20, "0.00001", "1.", "00.5"))
        try:
            diario = abs(LeerValor(self.programa.pantalla.Text1[fila * 18 + 2].Text)) or 1.0
        except ErrorEjecucion:
            diario = 1.0
        if azar.random() < 0.03:
            return f"{min(diario * 3, 1e9):.6g}"
        valor = min(diario * 10 ** azar.uniform(-1.7, 0.2), 1e12)
        if self.programa.separador == "," and azar.random() < 0.9:
            valor += 2  # a mean below 1 reads back as 0 there
        return f"{valor:.{azar.randint(0, 3)}f}" if valor > 2 else f"{valor:.3f}"

    def _cadena(self, botones):
        for b in botones:
            for _ in range(2 if self.azar.random() < 0.1 else 1):
                if self._en() != "Form5":
                    return
                yield ["click", f"Command{b}"]

    def _dia_recuperado(self):
        azar = self.azar
        yield from self._ir("Form5")
        if self._en() != "Form5":
            return
        registro = self.programa.registro
        guardados = [d for d in (1, 2, 3) if registro.hoja(d)[3] and d <= registro.NumJornadas]
        dia = azar.choice(guardados) if guardados and azar.random() < 0.85 else azar.randint(1, 3)
        yield self._entrada(RECUPERAR[dia])
        if azar.random() < 0.3 and self._en() == "Form5":
            filas = self._celdas_abiertas()
            for fila in azar.sample(sorted(filas), min(len(filas), 2)):
                celda = azar.choice(filas[fila])
                yield ["type", f"Text1({celda})", ["<BS>", *self._medida(fila)]]
        if azar.random() < 0.1 and self._en() == "Form5":
            yield from self._cadena((1,))
            for celda in itertools.chain(*self._celdas_abiertas().values()):
                vacia = self._en() != "Form5" or not self.programa.pantalla.Text1[celda].Text
                if celda < 108 and not vacia:
                    yield ["type", f"Text1({celda})", ["<BS>"]]
            yield from self._cadena((2, 3))
        desde = azar.choice((1, 1, 1, 8))
        yield from self._cadena(range(desde, 9))

    def _final(self):
        yield from self._ir("Form6")
        yield ["click", "Command1"]
        if self.azar.random() < 0.6:
            self.archivo = self._un_nombre()
            yield self._entrada("guardararchivo")

    def _otra_vez(self):
        yield ["restart"]
        self.estreno = True

    # Straying.

    def _visibles(self, clase):
        controles = self.programa.pantalla.controles.items()
        return [n for n, c in controles if c.clase == clase and c.Visible]

    def _roce(self):
        return self.azar.choice(
            (self._roce_menu, self._roce_boton, self._roce_teclas, self._roce_teclas,
             self._roce_lista, self._roce_lista, self._roce_celda)
        )()  # fmt: skip

    def _roce_menu(self):
        azar, pantalla = self.azar, self.programa.pantalla
        if azar.random() < 0.05:
            return ["close"]
        if azar.random() < 0.1:
            return ["reader", azar.choice(pantalla.menu)[0]]
        if azar.random() < 0.4:
            titulo, _, lista = azar.choice(pantalla.menu)
            if lista and azar.random() < 0.7 and titulo != "regresar":
                return ["menumouse", titulo, azar.choice(lista)[0]]
            return ["menumouse", titulo]
        nombre = azar.choice(list(pantalla.entradas()))
        return None if nombre == "regresar" else ["menu", nombre]

    def _roce_boton(self):
        botones = self._visibles("button")
        como = self.azar.choice(("click", "click", "space"))
        return [como, self.azar.choice(botones)] if botones else None

    def _roce_teclas(self):
        celdas = self._visibles("cell")
        if not celdas:
            return None
        celda = self.azar.choice(celdas)
        filtrada = self.programa.pantalla.filtrada(celda)
        teclas = TECLAS_FILTRADAS if filtrada else TECLAS_LIBRES
        elegidas = self.azar.choices(teclas, k=self.azar.randint(1, 6))
        return ["type", celda, _hasta_intro(elegidas)]

    def _roce_lista(self):
        listas = self._visibles("list")
        if not listas:
            return None
        nombre = self.azar.choice(listas)
        lista = self.programa.control(nombre)
        suerte = self.azar.random()
        if suerte < 0.4:
            return ["pick", nombre, self.azar.randrange(len(lista.items)),
                    self.azar.choice(("enter", "mouse", "esc"))]  # fmt: skip
        if suerte < 0.43:
            return ["drop", nombre, "2"]
        if suerte < 0.5:
            return ["wheel", nombre]
        if suerte < 0.6 or lista.indice is None:
            return ["listkeys", nombre, [self.azar.choice(("a", "1", "m", "<BS>", "<DEL>", " "))]]
        if lista.indice < 0:
            return ["listkeys", nombre, ["<DOWN>"]]
        return ["listkeys", nombre, [self.azar.choice(("<DOWN>", "<UP>"))]]

    def _roce_celda(self):
        celdas = self._visibles("cell")
        if self.azar.random() < 0.2:
            return ["clip", self.azar.choice(("42", "1.5", "texto", "-3"))]
        if not celdas:
            return None
        if self.azar.random() < 0.3:
            return self._otra_entrada(self.azar.choice(celdas))
        if self.azar.random() < 0.4:
            return ["im", self.azar.choice(celdas), self.azar.choice(("5", "é", "12.5"))]
        return ["double", self.azar.choice(celdas)]

    def _otra_entrada(self, celda):
        """The roads into a cell that are neither keys nor input methods."""
        if not self.programa.pantalla.filtrada(celda):
            return ["context", celda, "+V"]
        if self.azar.random() < 0.5:
            return ["drop", celda, "12"]
        return ["context", celda, self.azar.choice(("+V", "+X", "+Z"))]
