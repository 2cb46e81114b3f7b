"""The real program under the driver: one process, one socket, one action at a time."""

import json
import os
import signal
import socket
import subprocess

PATIENCE_S = 60

# LC_ALL of each locale; the toolkit reads the variable, the locale need not be installed.
LOCALES = {"point": ("C.UTF-8", "."), "comma": ("es_ES.UTF-8", ",")}


class Ended(Exception):
    """The process has ended."""

    def __init__(self, status):
        super().__init__(f"exit status {status}")
        self.status = status


def listen(folder):
    """A socket for the driver to call, and its path."""
    listener = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
    path = os.path.join(folder, "socket")
    if os.path.exists(path):
        os.unlink(path)
    listener.bind(path)
    listener.listen(1)
    listener.settimeout(PATIENCE_S)
    return listener, path


def environment(folder, home, locale, plugins, socket_path):
    """All that the program learns from outside: its driver, its locale and its folders."""
    sanitizers = {k: v for k, v in os.environ.items() if k.endswith("SAN_OPTIONS")}
    return sanitizers | {
        "PATH": os.environ["PATH"],
        "HOME": home,
        "TMPDIR": folder,
        "LC_ALL": LOCALES[locale][0],
        "QT_QPA_PLATFORM": "offscreen",
        "QT_QPA_GENERIC_PLUGINS": "lockstep_driver",
        "QT_PLUGIN_PATH": plugins,
        "LOCKSTEP_SOCKET": socket_path,
        "XDG_RUNTIME_DIR": folder,
    }


class Process:
    def __init__(self, executable, plugins, locale, folder, arguments=()):
        self.home = os.path.join(folder, "home")
        self.work = os.path.join(folder, "work")
        for path in (self.home, self.work):
            os.makedirs(path, exist_ok=True)
        listener, socket_path = listen(folder)
        self.output = open(os.path.join(folder, "output.txt"), "ab")
        self.child = subprocess.Popen(
            [executable, *arguments],
            env=environment(folder, self.home, locale, plugins, socket_path),
            cwd=self.work,
            stdin=subprocess.DEVNULL,
            stdout=self.output,
            stderr=self.output,
        )
        try:
            self.link, _ = listener.accept()
        except TimeoutError:
            self.kill()
            raise RuntimeError("the driver does not call: was it built for this Qt?") from None
        finally:
            listener.close()
        self.link.settimeout(PATIENCE_S)
        self.rest = b""
        self.controls = {}
        self.window = self.menu = self.modal = self.tabs = None
        self.error = None
        self.receive()

    def send(self, action):
        try:
            self.link.sendall(json.dumps(action).encode() + b"\n")
        except (BrokenPipeError, ConnectionResetError):
            raise Ended(self._status()) from None

    def receive(self):
        """Waits for the program to rest and takes in what has changed."""
        while b"\n" not in self.rest:
            try:
                chunk = self.link.recv(1 << 18)
            except TimeoutError:
                self.kill()
                raise Ended("hung") from None
            except ConnectionResetError:
                chunk = b""
            if not chunk:
                raise Ended(self._status())
            self.rest += chunk
        line, self.rest = self.rest.split(b"\n", 1)
        told = json.loads(line)
        self.modal = told["modal"]
        self.error = told.get("error")
        self.window = told.get("window", self.window)
        self.menu = told.get("menu", self.menu)
        self.tabs = told.get("tabs", self.tabs)
        self.controls.update(told.get("set", {}))
        for name in told.get("gone", ()):
            del self.controls[name]

    def _status(self):
        try:
            return self.child.wait(PATIENCE_S)
        except subprocess.TimeoutExpired:
            self.kill()
            return "still running with its socket closed"

    def kill(self):
        if self.child.poll() is None:
            self.child.send_signal(signal.SIGKILL)
            self.child.wait()
        self.output.close()
