"""Compares what the window shows with what the model expects."""

import os
import re
import time

from controles import Caja, CajaError, DialogoArchivo, DialogoImprimir, PreguntaDialogo

# Left open by the rules, hence not compared.
UNSAID = {
    "Form1.Label2/Label3": "the wording of the two credits",
    "Form1.Picture1": "pictures",
    "Form3.Text2": "a coloured mark without a role",
    "Form4.Text1/Text3 Locked before the first pick": "the rows are hidden until then",
    "colours": "all but those of the sample cells once a handler has set them",
    "other labels": "a screen may carry headings of its own",
    "the run-time's sentence": "only its box and the exit status are told",
    "the file dialog's questions": "the toolkit's own words",
    "a screen whose load has failed": "what stands behind the run-time's box",
    "geometry, fonts, focus, tool tips": "no part of this test",
}
_SIN_COTEJAR = {("Form3", "Text2")}
_RELOJ = re.compile(r"\d\d:\d\d:\d\d {5}\d\d:\d\d:\d\d\Z", re.ASCII)
_CAMPOS = ("class", "text", "visible", "enabled", "locked")
_ROJOS = {"250": "#fa0000", "255": "#ff0000"}


# The tab order where it is told.
ORDEN_TAB = {
    "Form2": [
        f"Text1({i})"
        for i in (1, 4, 3, 5, 2, 6, 7, 11, 10, 12, 13, 15, 14, 16, 18, 19, 8, 17, 9)
    ],
    "Form3": ["Combo1(0)", "Combo1(1)", "Command1", "Command2"]
    + [f"Combo1({i})" for i in range(2, 8)]
    + [f"Text1({i})" for i in range(54)],
    "Form4": [f"Combo13({i})" for i in range(6)]
    + [f"Text3({i})" for i in range(6)]
    + [f"Text1({5 * r + c})" for c in (1, 2, 3, 4, 0) for r in range(6)]
    + ["Command1", "Command3", "Combo1"],
    "Form5": [f"Text1({18 * r + c})" for r in range(18) for c in range(7, 13)],
}


def _reloj_en_hora(texto):
    """Whether the clock shows the present time, or did in the last seconds."""
    if not _RELOJ.match(texto):
        return False
    ahora = time.time()
    marcas = (time.localtime(ahora - s) for s in range(-1, 30))
    return any(time.strftime("%d:%m:%y     %H:%M:%S", marca) == texto for marca in marcas)


class Cotejo:
    """One process against the model; the system colours are those first seen."""

    def __init__(self, programa):
        self.programa = programa
        self.colores = dict(_ROJOS)
        self.pantalla_vista = None

    def diferencias(self, proceso):
        """Every disagreement, one line each."""
        halladas = []
        if proceso.error:
            halladas.append(f"driver: {proceso.error}")
        halladas += self._frente(proceso.modal)
        if not self.programa.a_medias:
            halladas += self._ventana(proceso)
            halladas += self._controles(proceso.controles)
        escrito = self.programa.escrito
        if escrito:
            halladas += self.archivo(escrito)
        return halladas

    def archivo(self, ruta):
        debido = self.programa.archivos[ruta]
        if not os.path.exists(ruta):
            return [f"file {os.path.basename(ruta)}: not written"]
        with open(ruta, "rb") as abierto:
            escrito = abierto.read()
        if escrito == debido:
            return []
        nombre = os.path.basename(ruta)
        lineas, debidas = escrito.split(b"\r\n"), debido.split(b"\r\n")
        for numero, (linea, debida) in enumerate(zip(lineas, debidas), 1):
            if linea != debida:
                return [f"file {nombre} line {numero}: program {linea!r}, model {debida!r}"]
        return [f"file {nombre}: program {len(lineas) - 1} lines, model {len(debidas) - 1}"]

    def _frente(self, modal):
        espera = self.programa.espera
        debido = self._modal_debido(espera)
        dicho = None if modal is None else {clave: modal.get(clave) for clave in (debido or modal)}
        if dicho is not None and "buttons" in dicho and isinstance(dicho["buttons"], list):
            dicho["buttons"] = sorted(dicho["buttons"])
        return [] if dicho == debido else [f"in front: program {modal}, model {debido}"]

    @staticmethod
    def _modal_debido(espera):
        if espera is None:
            return None
        if isinstance(espera, Caja):
            icono, botones, preset = Caja.ESTILOS[espera.estilo]
            return {
                "kind": "box",
                "text": espera.texto,
                "title": espera.titulo,
                "icon": icono,
                "buttons": sorted(botones),
                "default": preset,
            }
        if isinstance(espera, CajaError):
            return {"kind": "box", "title": "Velmora", "icon": "critical", "buttons": ["ok"]}
        if isinstance(espera, PreguntaDialogo):
            return {"kind": "box", "buttons": ["no", "yes"]}
        if isinstance(espera, DialogoArchivo):
            return {"kind": "file", "title": " Guardar datos"}
        assert isinstance(espera, DialogoImprimir)
        return {"kind": "print"}

    def _ventana(self, proceso):
        pantalla = self.programa.pantalla
        nombre = type(pantalla).__name__
        debida = [nombre, pantalla.titulo]
        menu = [[n, texto, [list(fila) for fila in lista]] for n, texto, lista in pantalla.menu]
        halladas = []
        if proceso.ventana != debida:
            halladas.append(f"window: program {proceso.ventana}, model {debida}")
        orden = ORDEN_TAB.get(nombre, ())
        visto = [control for control in proceso.orden or () if control in set(orden)]
        if orden and orden[0] in visto:  # a ring: where the first Tab leads is open
            principio = visto.index(orden[0])
            visto = visto[principio:] + visto[:principio]
        if visto != list(orden):
            halladas.append(f"tab order of {nombre}: program {visto}")
        if proceso.menu != menu:
            halladas.append(f"menu: program {proceso.menu}, model {menu}")
        return halladas

    def _controles(self, vistos):
        pantalla = self.programa.pantalla
        nombre_pantalla = type(pantalla).__name__
        recien = pantalla is not self.pantalla_vista
        self.pantalla_vista = pantalla
        halladas = []
        for nombre, control in pantalla.controles.items():
            visto = vistos.get(nombre)
            if visto is None:
                halladas.append(f"{nombre}: missing")
                continue
            if nombre == pantalla.reloj:
                if not (recien and visto[1] == "") and not _reloj_en_hora(visto[1]):
                    halladas.append(f"{nombre}: the clock shows {visto[1]!r}")
                continue
            debido = control.estado()
            if visto[:5] != list(debido):
                halladas += self._un_control(nombre, visto, debido)
            if len(visto) > 7:
                halladas.append(f"{nombre}: stands twice in the window")
            if control.clase == "list" and visto[5] != list(control.items):
                halladas.append(f"{nombre} items: program {visto[5]}, model {control.items}")
            if control.fondo is not None:
                halladas += self._color(nombre, "back", visto[5], control.fondo)
                halladas += self._color(nombre, "fore", visto[6], control.letra)
        if len(vistos) > len(pantalla.controles):
            for nombre in vistos.keys() - pantalla.controles.keys():
                libre = nombre.startswith(("Label", "Picture"))
                if not libre and (nombre_pantalla, nombre) not in _SIN_COTEJAR:
                    halladas.append(f"{nombre}: not a control of {nombre_pantalla}")
        return halladas

    @staticmethod
    def _un_control(nombre, visto, debido):
        return [
            f"{nombre} {campo}: program {v!r}, model {d!r}"
            for campo, v, d in zip(_CAMPOS, visto, debido)
            if d is not None and v != d
        ]

    def _color(self, nombre, cual, visto, color):
        if color.endswith("inicial"):
            return []
        debido = self.colores.setdefault(color, visto)
        if visto == debido:
            return []
        return [f"{nombre} {cual} colour: program {visto}, model {color} ({debido})"]
