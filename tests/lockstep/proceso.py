"""The real program under the driver: one process, one socket, one action at a time."""

import json
import os
import signal
import socket
import subprocess

ESPERA_S = 60

# LC_ALL of each locale; the toolkit reads the variable, the locale need not be installed.
LOCALES = {"punto": ("C.UTF-8", "."), "coma": ("es_ES.UTF-8", ",")}


class Terminado(Exception):
    """The process has ended."""

    def __init__(self, estado):
        super().__init__(f"exit status {estado}")
        self.estado = estado


class Proceso:
    def __init__(self, ejecutable, complementos, locale, carpeta, argumentos=()):
        self.casa = os.path.join(carpeta, "casa")
        self.trabajo = os.path.join(carpeta, "trabajo")
        for camino in (self.casa, self.trabajo):
            os.makedirs(camino, exist_ok=True)
        escucha = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        enchufe = os.path.join(carpeta, "enchufe")
        if os.path.exists(enchufe):
            os.unlink(enchufe)
        escucha.bind(enchufe)
        escucha.listen(1)
        escucha.settimeout(ESPERA_S)
        entorno = {
            "PATH": os.environ["PATH"],
            "HOME": self.casa,
            "TMPDIR": carpeta,
            "LC_ALL": LOCALES[locale][0],
            "QT_QPA_PLATFORM": "offscreen",
            "QT_QPA_GENERIC_PLUGINS": "lockstep_driver",
            "QT_PLUGIN_PATH": complementos,
            "LOCKSTEP_SOCKET": enchufe,
            "XDG_RUNTIME_DIR": carpeta,
        }
        entorno.update({k: v for k, v in os.environ.items() if k.endswith("SAN_OPTIONS")})
        self.salida = open(os.path.join(carpeta, "salida.txt"), "ab")
        self.hijo = subprocess.Popen(
            [ejecutable, *argumentos],
            env=entorno,
            cwd=self.trabajo,
            stdin=subprocess.DEVNULL,
            stdout=self.salida,
            stderr=self.salida,
        )
        try:
            self.enlace, _ = escucha.accept()
        except TimeoutError:
            self.matar()
            raise RuntimeError("the driver does not call: was it built for this Qt?") from None
        finally:
            escucha.close()
        self.enlace.settimeout(ESPERA_S)
        self.resto = b""
        self.controles = {}
        self.ventana = self.menu = self.modal = self.orden = None
        self.error = None
        self.recibir()

    def enviar(self, accion):
        try:
            self.enlace.sendall(json.dumps(accion).encode() + b"\n")
        except (BrokenPipeError, ConnectionResetError):
            raise Terminado(self._estado()) from None

    def recibir(self):
        """Waits for the program to rest and takes in what has changed."""
        while b"\n" not in self.resto:
            try:
                trozo = self.enlace.recv(1 << 18)
            except TimeoutError:
                self.matar()
                raise Terminado("hung") from None
            except ConnectionResetError:
                trozo = b""
            if not trozo:
                raise Terminado(self._estado())
            self.resto += trozo
        linea, self.resto = self.resto.split(b"\n", 1)
        dicho = json.loads(linea)
        self.modal = dicho["modal"]
        self.error = dicho.get("error")
        self.ventana = dicho.get("window", self.ventana)
        self.menu = dicho.get("menu", self.menu)
        self.orden = dicho.get("tabs", self.orden)
        self.controles.update(dicho.get("set", {}))
        for nombre in dicho.get("gone", ()):
            del self.controles[nombre]

    def _estado(self):
        try:
            return self.hijo.wait(ESPERA_S)
        except subprocess.TimeoutExpired:
            self.matar()
            return "still running with its socket closed"

    def matar(self):
        if self.hijo.poll() is None:
            self.hijo.send_signal(signal.SIGKILL)
            self.hijo.wait()
        self.salida.close()
