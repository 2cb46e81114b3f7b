"""The zip and the installer as a user has them, under a Spanish region (decimal comma)."""

import shutil
import unittest

from desktop import (
    EXAMPLES, INSTALLER, PROGRAMS, WORK, Velmora, Windows, press, take_picture, unpack, wait_for,
    wait_for_keyboard,
)


class Product(unittest.TestCase):
    """One Windows with the zip in it, unpacked below a name with accents."""

    @classmethod
    def setUpClass(cls):
        cls.windows = Windows(WORK / "zip")
        cls.folder = cls.windows.drive / "Datos de Añil"
        cls.root = unpack(cls.folder)
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
        program = self.windows.start(PROGRAMS / "from_desktop.exe", self.root / "velmora-informe.exe",
                                     self.folder / "soltado.doc")
        wait_for_keyboard("Informe de Velmora")
        take_picture("soltado")
        press("Informe de Velmora", "alt+s")
        self.assertEqual(program.wait(timeout=60), 0)
        self.assertEqual(report.read_bytes(),
                         (EXAMPLES / "tres-dias-tres-tareas.html").read_bytes())

    def test_in_a_console_it_takes_orders_and_names_one_by_one(self):
        program = str(self.root / "velmora-informe.exe")
        status, told = self.windows.ask(program, "--resumen", str(self.plan))
        self.assertEqual(status, 0)
        self.assertTrue(told.endswith("plan.doc\r\n"), told)
        every = str(self.plan.with_stem("*"))
        self.assertEqual(self.windows.ask(program, "--resumen", every), (1, ""))

    def test_the_licence_of_each_part_is_there(self):
        licences = self.root / "licencias"
        parts = (licences / "contenido.txt").read_text().splitlines()[1:]
        texts = {part.split()[-1] for part in parts}
        self.assertIn("qt.txt", texts)
        self.assertLessEqual(texts, {path.name for path in licences.iterdir()})

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
        menu = {path.name: path.read_bytes() for path in windows.drive.rglob("Velmora/*.lnk")}
        opens = {"Velmora.lnk": b"velmora.exe", "Informes de Velmora.lnk": b"velmora-informe.exe",
                 "Guía de Velmora.lnk": b"guia.html"}
        self.assertEqual(menu.keys(), opens.keys())
        for name, opened in opens.items():
            self.assertIn(rb"\Programs\Velmora" + b"\\" + opened, menu[name])
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
    unittest.main()
