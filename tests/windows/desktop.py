"""A Windows of Wine's and the programs in it, driven by keys alone, as by a user without a mouse.

packaging/windows/test.sh sets the environment: VELMORA_ZIP, VELMORA_INSTALLER, VELMORA_PROGRAMS with
the small programs built beside the tests, VELMORA_WORK for pictures and for each Windows, a fresh
folder; LC_ALL=es_ES.UTF-8 and a display with a window manager.
"""

import os
import re
import subprocess
import time
import zipfile
from pathlib import Path

ZIP, INSTALLER, PROGRAMS, WORK = (
    Path(os.environ[f"VELMORA_{name}"]) for name in ("ZIP", "INSTALLER", "PROGRAMS", "WORK")
)
TREE = Path(__file__).resolve().parents[2]
WINE = TREE / "packaging/windows/wine.sh"
EXAMPLES = TREE / "examples"
SAMPLES = ((120, 95, 150, 110), (30, 45, 20, 35), (15, 25, 10, 20))
PLACES = 6  # for samples, in each row


def xdotool(*words):
    return subprocess.run(["xdotool", *words], capture_output=True, text=True, check=False).stdout


def wait_for(what, condition, pause=0.1):
    """Asks at most for a minute."""
    for _ in range(int(60 / pause)):
        if condition():
            return
        time.sleep(pause)
    take_picture("vano")
    raise AssertionError(f"waited in vain for {what}")


def take_picture(name):
    subprocess.run(["import", "-window", "root", WORK / f"{name}.png"], check=True)


class Windows:
    """A Windows of its own, a folder of the machine, for a user of the machine: `as_user` is the
    command that becomes one."""

    def __init__(self, folder, as_user=(), **environment):
        self.folder = folder
        self.as_user = as_user
        self.environment = {**os.environ, "VELMORA_WINE": str(folder), **environment}
        self.started = []
        self.run("wineboot")
        self.drive = folder / "prefix/drive_c"

    def start(self, *words):
        process = subprocess.Popen([*self.as_user, WINE, *words], env=self.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.started.append(process)
        return process

    def ask(self, *words):
        """The exit status and what the program says."""
        told = subprocess.run([*self.as_user, WINE, *words], env=self.environment, timeout=60,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
        return told.returncode, told.stdout.decode()

    def run(self, *words):
        return self.start(*words).wait(timeout=300)

    def name(self, path):
        """The name of a file of this Windows, as it is there."""
        return "C:\\" + str(path.relative_to(self.drive)).replace("/", "\\")

    def end(self):
        """Ends what still runs in it."""
        self.tell_server("--kill")
        for process in self.started:
            process.wait(timeout=60)

    def tell_server(self, option):
        subprocess.run([*self.as_user, "wineserver", option], check=False,
                       env={**self.environment, "WINEPREFIX": str(self.folder / "prefix")})

    def registry(self):
        """The user's part, as lines; Windows has written it once its last program has ended."""
        self.tell_server("--wait")
        return (self.folder / "prefix/user.reg").read_text(errors="replace").splitlines()

    def files(self):
        return {str(path) for path in self.drive.rglob("*")}


def unpack(folder):
    """Unpacks the zip below the folder; gives the program's own."""
    with zipfile.ZipFile(ZIP) as archive:
        archive.extractall(folder)
    return folder / "Velmora"


def active():
    """The number and the title of the window that has the keyboard; empty between two of them."""
    number = xdotool("getactivewindow").strip()
    if number != xdotool("getwindowfocus").strip():
        return number, ""
    return number, xdotool("getwindowname", number).strip()


def wait_for_keyboard(title):
    """Until a window with this in its title has the keyboard, where each key goes."""
    wait_for(f"the keyboard in {title!r}", lambda: re.search(title, active()[1]))


def press(title, *names):
    wait_for_keyboard(title)
    xdotool("key", "--delay", "100", *names)


def enter(text):
    """Types the text; what the keyboard doesn't have is pasted."""
    if text.isascii():
        xdotool("type", "--delay", "50", text)
        return
    subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), check=True)
    xdotool("key", "ctrl+v")


class Velmora:
    """A running program, driven by keys."""

    def __init__(self, windows, program):
        self.windows = windows
        self.process = windows.start(program)
        wait_for_keyboard("/ h1")

    def menu(self, screen, title, entry=0):
        """On this screen, chooses the entry of the title, both counted from 1; 0 is the title."""
        press(f"/ {screen}", "F10", *["Right"] * (title - 1), *["Down"] * entry, "Return")

    def name_file(self, path, screen):
        """Types the name into the dialog and confirms it."""
        wait_for_keyboard("Guardar datos")
        enter(self.windows.name(path))
        take_picture(f"dialogo-{screen}")
        self.confirm(screen)

    def confirm(self, screen):
        """Confirms the dialog that has the keyboard and says yes to what it asks, until the screen
        has the keyboard again; the list of names that fit wants a key, too. After the two boxes
        Wine may leave the keyboard with neither; then the screen is activated."""
        dialog = active()[0]

        def is_over():
            number, title = active()
            if f"/ {screen}" in title:
                return True
            if title:
                xdotool("key", "Return" if number == dialog else "alt+s")
            elif number:
                xdotool("search", "--onlyvisible", "--name", f"/ {screen}", "windowactivate")
            return False

        wait_for(f"the end of the dialog over {screen}", is_over, pause=1)

    def restore(self, name):
        self.menu("h1", 1)
        self.menu("h2", 3)
        self.name_file(name, "h2")

    def worked_day(self):
        """From the screen of the company to the final one, by the samples of the guide."""
        self.menu("h2", 1, entry=3)
        self.menu("h5", 1, entry=1)
        wait_for_keyboard("PRIMER DIA")
        for row in SAMPLES:
            for sample in row:
                xdotool("type", "--delay", "50", str(sample))
                press("/ h5", "Tab")
            press("/ h5", *["Tab"] * (PLACES - len(row)))
        # Each of the four buttons opens the next one.
        press("/ h5", *["F6", "Return"] * 4)
        take_picture("jornada")
        self.menu("h5", 3, entry=3)

    def save(self, name):
        self.menu("h6", 2)
        self.name_file(name, "h6")

    def leave(self, screen, titles):
        """Chooses "Salir", the last of the titles of the screen, and says yes; the exit status."""
        self.menu(screen, titles)
        press("^Velmora$", "alt+s")
        return self.process.wait(timeout=60)
