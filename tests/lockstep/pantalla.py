"""What the six screens of the model have in common: controls, menus, clock, printing and exit."""

from controles import Arreglo, Caja, Control, DialogoImprimir
from numeros import (
    ConvertirDoble,
    ConvertirEntero,
    ConvertirLargo,
    FormatoDosDecimales,
    TextoDoble,
)

PREGUNTA_SALIR = "¿Está seguro de que quiere salir?"


class FinPrograma(Exception):
    """The process ends at once with the given status."""

    def __init__(self, estado):
        super().__init__(estado)
        self.estado = estado


class Pantalla:
    """One screen. Handlers that may wait on a box are generators; the others are plain methods."""

    titulo = ""
    menu = ()  # rows of (name, caption, list); the list holds rows of (name, caption)
    reloj = ""
    estilo_salir = 68
    aviso_imprimir = ""
    destinos = {}  # entries that go to a screen with no guard

    def __init__(self, programa):
        self.programa = programa
        self.registro = programa.registro
        self.separador = programa.separador
        self.controles = {}
        self.construir()

    def construir(self):
        """Lays the controls out as they stand before the load handler."""

    def cargar(self):
        """The load handler."""

    def nuevo(self, nombre, clase, texto="", visible=True, **mas):
        control = Control(clase, texto, visible, **mas)
        self.controles[nombre] = control
        return control

    def arreglo(self, nombre, indices, clase, textos="", visible=True, **mas):
        """An array of controls; `textos` is one text for all or one for each."""
        elementos = Arreglo()
        for puesto, i in enumerate(indices):
            texto = textos if isinstance(textos, str) else textos[puesto]
            elementos[i] = self.nuevo(f"{nombre}({i})", clase, texto, visible, **mas)
        return elementos

    def TextoDoble(self, valor):
        return TextoDoble(valor, self.separador)

    def FormatoDosDecimales(self, valor):
        return FormatoDosDecimales(valor, self.separador)

    def ConvertirDoble(self, texto):
        return ConvertirDoble(texto, self.separador)

    def ConvertirEntero(self, texto):
        return ConvertirEntero(texto, self.separador)

    def ConvertirLargo(self, texto):
        return ConvertirLargo(texto, self.separador)

    def entradas(self):
        """Every menu entry by name, spacers included."""
        for nombre, _, lista in self.menu:
            yield nombre
            yield from (fila[0] for fila in lista)

    def menu_elegido(self, entrada):
        if entrada in self.destinos:
            return self.programa.ir(self.destinos[entrada])
        if entrada == "salir":
            return self.salir()
        if entrada == "imprimir":
            return self.imprimir()
        manejador = getattr(self, entrada, None)
        return manejador() if manejador else None

    def salir(self):
        if (yield Caja(PREGUNTA_SALIR, self.estilo_salir)) != "no":
            raise FinPrograma(0)

    def imprimir(self):
        lineas = (
            self.aviso_imprimir,
            "¿Desea continuar?",
            " ",
            "Pulsar 'Si' no admite cancelación posterior",
        )
        if (yield Caja("\n".join(lineas), 4)) != "no":
            yield DialogoImprimir()

    def filtro(self, nombre, indice, codigo):
        """The key filter of a cell: the code that goes on to the cell, 0 when it is refused."""
        return codigo

    def filtrada(self, nombre):
        """Whether the only way into the control is its key filter."""
        return False

    def lista_elegida(self, nombre, indice):
        """The click handler of a list."""

    def doble_clic(self, nombre, indice):
        """The double-click handler of a cell."""

    def pulsado(self, boton):
        return getattr(self, boton + "_Click")()
