"""One session: the program and the model through the same actions, in lockstep."""

import base64
import os
import shutil
import tempfile

from cotejo import Cotejo
from modelo import Programa
from proceso import LOCALES, Proceso, Terminado


# What may be followed at once by the next action: all that has had its effect when it returns.
DE_UN_GOLPE = ("click", "space", "menu", "type", "im", "double", "pick", "listkeys", "close", "clip")


class Sesion:
    """`hacer` takes an action through both sides and returns the differences after it.

    An action with "&" ahead of its name is kept back: the program gets it in one burst with those
    that follow, and no turn of its event loop comes between them.
    """

    def __init__(self, ejecutable, complementos, locale):
        self.ejecutable, self.complementos, self.locale = ejecutable, complementos, locale
        self.carpeta = tempfile.mkdtemp(prefix="lockstep")
        self.datos = os.path.join(self.carpeta, "datos")
        os.makedirs(os.path.join(self.datos, "carpeta.v2"))
        self.programa = Programa(LOCALES[locale][1], self.datos)
        self.cotejo = Cotejo(self.programa)
        self.proceso = None
        self.hechas = []
        self.rafaga = []

    def abrir(self):
        self.proceso = Proceso(self.ejecutable, self.complementos, self.locale, self.carpeta)
        return self.cotejo.diferencias(self.proceso)

    def aplicable(self, accion):
        return self.programa.aplicable([accion[0].removeprefix("&"), *accion[1:]])

    def hacer(self, accion):
        self.hechas.append(accion)
        espera_otra = accion[0].startswith("&")
        accion = [accion[0].removeprefix("&"), *accion[1:]]
        if accion[0] in ("put", "restart"):
            return self._soltar() or self._desde_fuera(accion)
        enviada = list(accion)
        if accion[0] == "file" and len(accion) == 3:
            enviada[2] = self.programa.ruta(accion[2])
        self.rafaga.append(enviada)
        antes = self.programa.pantalla
        self.programa.actuar(accion)
        # A box waits, and a screen just entered has no place for a click before it is laid out.
        sigue = (self.programa.espera, self.programa.estado_final) == (None, None)
        sigue = sigue and self.programa.pantalla is antes
        return [] if espera_otra and sigue else self._soltar()

    def _desde_fuera(self, accion):
        if accion[0] == "put":
            return self._poner(accion)
        self.proceso.matar()
        self.programa.actuar(accion)
        return self.abrir()

    def _soltar(self):
        """Lets the program do what was kept back; the differences after it."""
        rafaga, self.rafaga = self.rafaga, []
        if not rafaga:
            return []
        try:
            self.proceso.enviar(rafaga[0] if len(rafaga) == 1 else ["burst", *rafaga])
            self.proceso.recibir()
        except Terminado as fin:
            debido = self.programa.estado_final
            if fin.estado == debido:
                return []
            return [f"process: program ended ({fin.estado}), model {debido}"]
        if self.programa.estado_final is not None:
            return [f"process: program goes on, model ended ({self.programa.estado_final})"]
        return self.cotejo.diferencias(self.proceso)

    def _poner(self, accion):
        self.programa.actuar(accion)
        ruta = self.programa.ruta(accion[1])
        with open(ruta, "wb") as abierto:
            abierto.write(base64.b64decode(accion[2]))
        return []

    def cerrar(self):
        """Ends the process; differences of its last burst and of what it leaves on the disk."""
        if self.proceso is None:
            return []
        halladas = self._soltar()
        self.proceso.matar()
        for camino in (self.proceso.casa, self.proceso.trabajo):
            for lugar, _, nombres in os.walk(camino):
                halladas += [f"left behind: {os.path.join(lugar, n)}" for n in nombres]
        for lugar, _, nombres in os.walk(self.datos):
            for nombre in nombres:
                ruta = os.path.join(lugar, nombre)
                if ruta not in self.programa.archivos:
                    halladas.append(f"file that the model does not write: {ruta}")
                else:
                    halladas += self.cotejo.archivo(ruta)
        return halladas

    def salida(self):
        with open(os.path.join(self.carpeta, "salida.txt"), "rb") as abierto:
            dicho = abierto.read().decode("utf-8", "replace").splitlines()
        return "\n".join(linea for linea in dicho if "This plugin does not support" not in linea)

    def borrar(self):
        shutil.rmtree(self.carpeta, ignore_errors=True)
