"""An independent model of the whole program, driven by the same actions as the real one.

`Programa.actuar` takes one action (a list whose first word names it) and runs the handlers that it
sets off, until they end or wait on a box. `pantalla` then holds what the window must show, `espera`
the box or dialog in front of it, `estado_final` the exit status once the process has ended.

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

from captura import Form2, Form3, Form4
from controles import (
    Caja,
    CajaError,
    DialogoArchivo,
    DialogoImprimir,
    Edicion,
    PreguntaDialogo,
    codigo,
)
from hoja import Form5
from numeros import ErrorEjecucion, LeerValor, cociente, entero, potencia, producto
from pantalla import FinPrograma, Pantalla
from registro import EvaluacionRecord, escribir


class Form1(Pantalla):
    titulo = ".     Velmora / h1"
    reloj = "Label5"
    menu = (
        ("Vacio1", "", ()),
        ("Vacio2", "", ()),
        ("Nuevaempresa", "Iniciar", ()),
        ("Vacio3", "", ()),
        ("vacio4", "", ()),
        ("salir", "Salir", ()),
    )

    def construir(self):
        self.nuevo("Label1", "label", "Velmora")
        self.nuevo("Label6", "label", "Conforme a la norma UNE-689  y  a la Guía de Agentes Químicos")
        self.nuevo(
            "Label4", "label", "Material didactico de apoyo para cursos de actualización  "
        )
        self.nuevo("Label7", "label", "Version V.1.0        800 x 600 pixels")
        for credito in ("Label2", "Label3"):
            self.nuevo(credito, "label", texto=None)
        self.nuevo("Label5", "label")

    def Nuevaempresa(self):
        for i in range(1, 20):
            self.registro.DatosEmpresa[i] = ""
        self.programa.ir("Form2")


class Form6(Pantalla):
    titulo = " Velmora / h6"
    reloj = "Label2"
    aviso_imprimir = "Se imprimirán los resultados en  pantalla"
    menu = (
        ("vacio1", "", ()),
        ("vacio2", "", ()),
        ("regresar", "Continuar/Regresar", (
            ("calculos", "Cálculos"),
            ("contaminantes", "Contaminantes"),
            ("datosiniciales", "Datos  iniciales: Jornadas y Tareas"),
            ("datosdeempresa", "Datos de empresa"),
        )),
        ("vacio10", "", ()),
        ("vacio11", "", ()),
        ("guardararchivo", "Guardar en disco ", ()),
        ("vacio21", "", ()),
        ("vacio22", "", ()),
        ("imprimir", "Imprimir", ()),
        ("vacio30", "", ()),
        ("vacio32", "", ()),
        ("salir", "Salir", ()),
    )  # fmt: skip
    destinos = {
        "regresar": "Form5",
        "calculos": "Form5",
        "contaminantes": "Form4",
        "datosiniciales": "Form3",
        "datosdeempresa": "Form2",
    }

    def construir(self):
        self.nuevo("Label2", "label")
        self.nuevo("Command1", "button", "RESULTADOS FINALES :    VALIDAR")
        titulos = ("Nº", "Nombre del contaminante", "I1", "I2", "I3", "IG", "P1", "P2", "P3")
        self.Label4 = self.arreglo("Label4", range(9), "label", titulos)
        self.bloques = (
            self.nuevo("Label3", "label", "Primera Jornada"),
            self.nuevo("Label5", "label", "Segunda  Jornada"),
            self.nuevo("Label6", "label", "Tercera  Jornada"),
        )
        textos = [str(i // 9 % 6 + 1) if i % 9 == 0 else "" for i in range(162)]
        self.Text1 = self.arreglo("Text1", range(162), "cell", textos)
        self.nombre_archivo = ""

    def cargar(self):
        for control in [*self.Text1.values(), *self.Label4.values(), *self.bloques]:
            control.Visible = False

    def _tareas_en_uso(self):
        tareas = self.registro.NumTareas
        return [t for t, hay in ((1, tareas >= 1), (2, tareas >= 2), (3, tareas == 3)) if hay]

    def Command1_Click(self):
        r = self.registro
        for rotulo in self.Label4.values():
            rotulo.Visible = True
        for t in self._tareas_en_uso():
            self.bloques[t - 1].Visible = True
        for fila in range(1, 19):
            for columna in (2, 3, 4, 5, 7, 8, 9):
                self.Text1[fila * 9 - 9 + columna - 1].Text = r.HojaFinal[fila, columna]
        for fila in range(1, 19):
            u, v = LeerValor(r.HojaFinal[fila, 3]), LeerValor(r.HojaFinal[fila, 4])
            if u == 0 or v == 0:
                continue
            w = LeerValor(r.HojaFinal[fila, 5])
            media = potencia(producto(producto(u, v), w), cociente(1.0, 3.0))
            r.HojaFinal[fila, 6] = self.TextoDoble(media)
            self.Text1[fila * 9 - 4].Text = r.HojaFinal[fila, 6]
        for t in self._tareas_en_uso():
            primera = (t - 1) * 54
            for i in range(primera, entero(r.NumContaminantes[t] * 9) + primera):
                self.Text1[i].Visible = True
        for celda in self.Text1.values():
            celda.Text = celda.Text or "----"

    def guardararchivo(self):
        elegido = yield DialogoArchivo(guardar=True)
        self.nombre_archivo = elegido or self.nombre_archivo
        self.programa.escribir_archivo(self.nombre_archivo)


PANTALLAS = {f.__name__: f for f in (Form1, Form2, Form3, Form4, Form5, Form6)}
_ELEMENTO = re.compile(r"(\w+)\((\d+)\)\Z")


class Programa:
    """The process: its screen, its record, the box in front, and the files it reads and writes."""

    def __init__(self, separador=".", carpeta="/"):
        self.separador = separador
        self.carpeta = carpeta
        self.archivos = {}  # absolute path -> bytes
        self.arrancar()

    def arrancar(self):
        self.registro = EvaluacionRecord()
        self.portapapeles = ""  # without a desktop each process has its own
        self.espera = None
        self.estado_final = None
        self.a_medias = False  # a load failed: what the window shows is open
        self._manejador = None
        self.escrito = None  # path written by the last action
        self.ir("Form1")

    def ir(self, nombre):
        self.pantalla = PANTALLAS[nombre](self)
        self.a_medias = True
        self.pantalla.cargar()
        self.a_medias = False

    def ruta(self, nombre):
        return os.path.join(self.carpeta, nombre[2:]) if nombre.startswith("@/") else nombre

    def escribir_archivo(self, ruta):
        if ruta and os.path.isdir(os.path.dirname(ruta)):
            self.archivos[ruta] = escribir(self.registro)
            self.escrito = ruta

    def control(self, nombre):
        return self.pantalla.controles.get(nombre)

    def _visible(self, nombre, clase):
        control = self.control(nombre)
        return control is not None and control.clase == clase and control.Visible

    def aplicable(self, accion):
        """Whether the action means anything in the present state."""
        que, *resto = accion
        if que in ("put", "restart", "clip"):
            return que != "clip" or self.estado_final is None
        if self.estado_final is not None:
            return False
        if que in ("answer", "file", "print"):
            return self._respuesta_aplicable(que, resto[0])
        if self.espera is not None:
            return False
        if que in ("click", "space"):
            return self._visible(resto[0], "button")
        if que in ("menu", "menumouse", "reader"):
            return resto[-1] in self.pantalla.entradas()
        if que in ("type", "im", "double", "context"):
            return self._visible(resto[0], "cell")
        if que == "drop":
            return self._visible(resto[0], "cell") or self._visible(resto[0], "list")
        if que in ("pick", "wheel", "listkeys"):
            return self._visible(resto[0], "list")
        return que == "close"

    def _respuesta_aplicable(self, que, cual):
        if que == "file":
            return isinstance(self.espera, DialogoArchivo)
        if que == "print":
            return isinstance(self.espera, DialogoImprimir)
        if isinstance(self.espera, CajaError):
            return cual in ("ok", "esc", "enter")
        if isinstance(self.espera, PreguntaDialogo):
            return cual in ("yes", "no", "esc")
        return isinstance(self.espera, Caja) and cual in (*self.espera.botones, "esc", "enter")

    def actuar(self, accion):
        que, *resto = accion
        self.escrito = None
        try:
            getattr(self, "_accion_" + que)(*resto)
        except FinPrograma as fin:
            self.espera, self.estado_final = None, fin.estado
        except ErrorEjecucion as error:
            self.espera = CajaError(str(error))

    def _seguir(self, manejador, valor=None):
        """Runs a handler to its end or to its next box."""
        if not inspect.isgenerator(manejador):
            return
        self._manejador = manejador
        try:
            self.espera = manejador.send(valor)
        except StopIteration:
            self.espera = None

    def _accion_put(self, nombre, contenido):
        self.archivos[self.ruta(nombre)] = base64.b64decode(contenido)

    def _accion_restart(self):
        self.arrancar()

    def _accion_clip(self, texto):
        self.portapapeles = texto

    def _accion_click(self, nombre):
        if self.control(nombre).Enabled:
            self._seguir(self.pantalla.pulsado(nombre))

    _accion_space = _accion_click

    def _accion_reader(self, nombre):
        self._accion_menumouse(nombre)

    def _accion_context(self, nombre, entrada):
        if entrada == "+V":
            self._accion_im(nombre, self.portapapeles)

    def _accion_drop(self, nombre, texto):
        """Nothing comes in through a drop: free cells are not tried."""

    def _accion_menu(self, nombre):
        self._seguir(self.pantalla.menu_elegido(nombre))

    def _accion_menumouse(self, titulo, entrada=None):
        listas = {fila[0]: fila[2] for fila in self.pantalla.menu}
        if titulo == "regresar":
            self._seguir(self.pantalla.menu_elegido(titulo))  # on the press, before its list
        elif entrada is not None:
            self._seguir(self.pantalla.menu_elegido(entrada))
        elif not listas[titulo]:
            self._seguir(self.pantalla.menu_elegido(titulo))

    def _accion_close(self):
        self._seguir(self.pantalla.salir())

    def _accion_type(self, nombre, teclas):
        control = self.control(nombre)
        elemento = _ELEMENTO.match(nombre)
        edicion = Edicion(control, self.portapapeles)
        for tecla in teclas:
            cod = codigo(tecla)
            if cod is not None and elemento:
                antes = control.Text
                cod = self.pantalla.filtro(elemento[1], int(elemento[2]), cod)
                if control.Text != antes:
                    edicion.ajustar()
                if cod == 0:
                    continue
            if edicion.navegar(tecla):
                continue
            if cod is None and self.pantalla.filtrada(nombre):
                continue
            edicion.escribir(tecla)

    def _accion_im(self, nombre, texto):
        if not self.pantalla.filtrada(nombre):
            edicion = Edicion(self.control(nombre), "")
            if not self.control(nombre).Locked:
                edicion._reemplazar(texto)

    def _accion_double(self, nombre):
        elemento = _ELEMENTO.match(nombre)
        if elemento:
            self.pantalla.doble_clic(elemento[1], int(elemento[2]))

    def _elegir(self, nombre, item):
        lista = self.control(nombre)
        if lista.Locked:
            return
        lista.Text, lista.indice = lista.items[item], item
        elemento = _ELEMENTO.match(nombre)
        array, indice = (elemento[1], int(elemento[2])) if elemento else (nombre, 0)
        self._seguir(self.pantalla.lista_elegida(array, indice))

    def _accion_pick(self, nombre, item, como):
        if como != "esc":
            self._elegir(nombre, item)

    def _accion_listkeys(self, nombre, teclas):
        lista = self.control(nombre)
        for tecla in teclas:
            paso = {"<DOWN>": 1, "<UP>": -1}.get(tecla, 0)
            if paso and lista.indice is not None and 0 <= lista.indice + paso < len(lista.items):
                self._elegir(nombre, lista.indice + paso)
                if self.espera is not None:
                    return

    def _accion_wheel(self, nombre):
        """A wheel over a closed list does nothing."""

    def _accion_answer(self, cual):
        if isinstance(self.espera, CajaError):
            raise FinPrograma(1)
        if isinstance(self.espera, PreguntaDialogo):
            pregunta = self.espera
            if cual == "yes":
                self._seguir(self._manejador, pregunta.ruta)
            else:
                self.espera = pregunta.dialogo
            return
        self._seguir(self._manejador, self.espera.respuesta(cual))

    def _accion_file(self, que, nombre=None):
        if que == "cancel":
            self._seguir(self._manejador, None)
            return
        ruta = self.ruta(nombre)
        if "." not in os.path.basename(ruta):
            ruta += ".doc"
        if self.espera.guardar:
            self.espera = PreguntaDialogo(self.espera, ruta)
        else:
            self._seguir(self._manejador, ruta)

    def _accion_print(self, _que):
        self._seguir(self._manejador, None)
