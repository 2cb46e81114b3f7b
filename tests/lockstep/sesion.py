"""One session: the program and the model through the same actions, in lockstep."""

import base64
import os
import shutil
import tempfile

from cotejo import Cotejo
from modelo import Programa
from proceso import LOCALES, Proceso, Terminado


class Sesion:
    """`hacer` takes an action through both sides and returns the differences after it."""

    def __init__(self, ejecutable, complementos, locale):
        self.ejecutable, self.complementos, self.locale = ejecutable, complementos, locale
        self.carpeta = tempfile.mkdtemp(prefix="lockstep")
        self.datos = os.path.join(self.carpeta, "datos")
        os.makedirs(os.path.join(self.datos, "carpeta.v2"))
        self.programa = Programa(LOCALES[locale][1], self.datos)
        self.cotejo = Cotejo(self.programa)
        self.proceso = None
        self.hechas = []

    def abrir(self):
        self.proceso = Proceso(self.ejecutable, self.complementos, self.locale, self.carpeta)
        return self.cotejo.diferencias(self.proceso)

    def aplicable(self, accion):
        return self.programa.aplicable(accion)

    def hacer(self, accion):
        self.hechas.append(accion)
        if accion[0] == "put":
            return self._poner(accion)
        if accion[0] == "restart":
            self.proceso.matar()
            self.programa.actuar(accion)
            return self.abrir()
        enviada = list(accion)
        if accion[0] == "file" and len(accion) == 3:
            enviada[2] = self.programa.ruta(accion[2])
        try:
            self.proceso.enviar(enviada)
            self.programa.actuar(accion)
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
        """Ends the process; differences of what it leaves on the disk."""
        if self.proceso is None:
            return []
        self.proceso.matar()
        halladas = []
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
