"""The zip and the installer as a user has them, under Wine and a Spanish region (decimal comma):
product_test.py ZIP INSTALLER FROM_DESKTOP FOLDER [TEST...], on a display, with
LC_ALL=es_ES.UTF-8; FOLDER is a fresh one.

Each test has a Windows of its own below FOLDER, where its pictures stay, too. The programs are
driven by keys alone, as by a user without a mouse.
"""

import os
import re
import shutil
import subprocess
import sys
import time
import unittest
import zipfile
from pathlib import Path

ZIP, INSTALLER, FROM_DESKTOP, WORK = (Path(argument).resolve() for argument in sys.argv[1:5])
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
    """A Windows of its own, a folder of the machine."""

    def __init__(self, folder):
        self.folder = folder
        self.environment = {**os.environ, "VELMORA_WINE": str(folder)}
        self.run("wineboot")
        self.drive = folder / "prefix/drive_c"

    def start(self, *words):
        return subprocess.Popen([WINE, *words], env=self.environment,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def run(self, *words):
        return self.start(*words).wait(timeout=300)

    def name(self, path):
        """The name of a file of this Windows, as it is there."""
        return "C:\\" + str(path.relative_to(self.drive)).replace("/", "\\")

    def registry(self):
        """The user's part, as lines; Windows has written it once its last program has ended."""
        subprocess.run(["wineserver", "--wait"], check=True,
                       env={**self.environment, "WINEPREFIX": str(self.folder / "prefix")})
        return (self.folder / "prefix/user.reg").read_text(errors="replace").splitlines()

    def files(self):
        return {str(path) for path in self.drive.rglob("*")}


def active():
    """The number and the title of the window that has the keyboard; empty between two of them."""
    number = xdotool("getactivewindow").strip()
    return number, xdotool("getwindowname", number).strip() if number else ""


def wait_for_keyboard(title):
    """Until a window with this in its title has the keyboard, where each key goes."""
    wait_for(f"the keyboard in {title!r}", lambda: re.search(title, active()[1]))


def press(title, *names):
    wait_for_keyboard(title)
    xdotool("key", "--delay", "100", *names)


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
        """Types the name into the dialog and confirms it until the screen has the keyboard again:
        the list of names that fit wants a key, and so does the question whether to make the file.
        After the two boxes Wine may leave the keyboard with neither; then the screen is activated."""
        wait_for_keyboard("Guardar datos")
        xdotool("type", "--delay", "50", self.windows.name(path))
        take_picture(f"dialogo-{screen}")

        def is_over():
            number, title = active()
            if f"/ {screen}" in title:
                return True
            if title:
                xdotool("key", "Return")
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


class Product(unittest.TestCase):
    """One Windows with the zip in it, unpacked below a name with accents."""

    @classmethod
    def setUpClass(cls):
        cls.windows = Windows(WORK / "zip")
        cls.folder = cls.windows.drive / "Datos de Añil"
        with zipfile.ZipFile(ZIP) as archive:
            archive.extractall(cls.folder)
        cls.root = cls.folder / "Velmora"
        # Where its name can be typed: xdotool knows the letters of the keyboard alone.
        cls.plan = cls.windows.drive / "plan.doc"
        shutil.copy(cls.root / "examples/plan-dia-trabajado.doc", cls.plan)

    def evaluate(self, program, name):
        """The worked day on this program, saved under this name: the lines of the file."""
        name = self.windows.drive / name
        velmora = Velmora(self.windows, str(program))
        velmora.restore(self.plan)
        velmora.worked_day()
        velmora.save(name)
        self.assertEqual(velmora.leave("h6", titles=4), 0)
        return name.read_bytes().decode("cp1252").split("\r\n")

    def test_what_people_start_has_the_point(self):
        lines = self.evaluate(self.root / "velmora.exe", "punto.doc")
        self.assertIn('".61"', lines)
        self.assertIn('".15"', lines)
        self.assertIn('"DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS"', lines)

    def test_the_program_as_such_follows_the_region(self):
        lines = self.evaluate(self.root / "programa/velmora.exe", "coma.doc")
        self.assertIn('",61"', lines)
        self.assertIn('",15"', lines)

    def test_the_report_is_that_of_debian(self):
        shutil.copy(EXAMPLES / "tres-dias-tres-tareas.doc", self.folder / "añil.doc")
        self.assertEqual(self.windows.run(str(self.root / "velmora-informe.exe"),
                                          str(self.folder / "añil.doc")), 0)
        self.assertEqual((self.folder / "añil.html").read_bytes(),
                         (EXAMPLES / "tres-dias-tres-tareas.html").read_bytes())

    def test_a_file_dropped_on_the_reports_program_is_reported_on(self):
        shutil.copy(EXAMPLES / "tres-dias-tres-tareas.doc", self.folder / "soltado.doc")
        report = self.folder / "soltado.html"
        report.write_text("el anterior")
        program = self.windows.start(FROM_DESKTOP, self.root / "velmora-informe.exe",
                                     self.folder / "soltado.doc")
        wait_for_keyboard("Informe de Velmora")
        take_picture("soltado")
        press("Informe de Velmora", "alt+s")
        self.assertEqual(program.wait(timeout=60), 0)
        self.assertEqual(report.read_bytes(),
                         (EXAMPLES / "tres-dias-tres-tareas.html").read_bytes())

    def test_it_leaves_nothing_of_its_own(self):
        before = self.windows.files()
        self.evaluate(self.root / "velmora.exe", "otra.doc")
        self.assertEqual(self.windows.files() - before, {str(self.windows.drive / "otra.doc")})
        self.assertNotRegex("\n".join(self.windows.registry()), "(?i)velmora|qtproject")

    def test_without_the_rest_of_the_zip_it_says_what_is_missing(self):
        alone = self.folder / "sola"
        alone.mkdir()
        shutil.copy(self.root / "velmora.exe", alone)
        started = self.windows.start(str(alone / "velmora.exe"))
        press("^Velmora$", "Return")
        self.assertEqual(started.wait(timeout=60), 3)


class Installer(unittest.TestCase):
    def test_installs_starts_and_leaves_nothing(self):
        windows = Windows(WORK / "instalador")
        files, registry = windows.files(), windows.registry()
        self.assertEqual(windows.run(str(INSTALLER), "/S"), 0)
        (program,) = windows.drive.rglob("Programs/Velmora/velmora.exe")
        menu = {path.name for path in windows.drive.rglob("*.lnk") if "Velmora" in str(path)}
        self.assertEqual(menu, {"Velmora.lnk", "Informes de Velmora.lnk", "Guía de Velmora.lnk"})
        self.assertRegex("\n".join(windows.registry()), "(?i)uninstall.*velmora")

        velmora = Velmora(windows, str(program))
        velmora.menu("h1", 1)
        self.assertEqual(velmora.leave("h2", titles=5), 0)

        mine = program.parent / "mi evaluación.doc"
        mine.write_text("")
        windows.run(str(program.parent / "desinstalar.exe"), "/S")
        wait_for("the removal", lambda: not program.exists())
        windows.registry()
        # The remover runs from a copy of itself among the temporary files; it goes at the next start,
        # and its empty folder stays.
        windows.run("wineboot")
        added = set(windows.registry()) - set(registry)
        left = {path for path in windows.files() - files if not path.endswith("Temp/~nsu1.tmp")}
        self.assertEqual(left, {str(mine), *map(str, list(mine.parents)[:2])})
        self.assertNotRegex("\n".join(added), "(?i)velmora")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[5:])
