"""The program prints on a real CUPS server, which the test starts on a socket of its own.

VELMORA names the program; an argument that is a path does, too.
"""

import os
import re
import subprocess
import sys
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
for neighbour in ("accessibility", "process"):
    sys.path.insert(0, os.path.join(os.path.dirname(HERE), neighbour))

import desktop  # noqa: E402
import picture  # noqa: E402
from desktop import wait_for  # noqa: E402
from print_server import PrintServer, SilentServer  # noqa: E402

TOOLS = ("cupsd", "lpadmin", "lpstat", "pdfinfo", "pdftotext", "pdfimages", "pdftoppm")

NOTICE = "\n".join(
    (
        "Se imprimirá la pantalla",
        "¿Desea continuar?",
        " ",
        "Pulsar 'Si' no admite cancelación posterior",
    )
)
A4_LANDSCAPE = (842, 595)  # points
MARGIN = 28  # points: ten millimetres, but for what rounding takes
RESOLUTION = 144  # dots an inch at which the page is looked at
# Width by height of the sheet's screen: 11880 by 8310 twips and the clock, which goes beyond both.
SHEET = (9840 + 2535) / (8160 + 255)
ALIKE = 10  # unlikeness up to which a page shows the screen; measured 3, and 70 with damage


class PrintingTest(unittest.TestCase):
    queues = ("cola",)

    def setUp(self):
        place = os.path.join(desktop.folder(), self.id().rsplit(".", 1)[-1][:20])
        self.server = self.start_server(place)
        self.addCleanup(self.server.close)
        self.program = desktop.Program(os.environ["VELMORA"], self.server.environment())
        self.addCleanup(self.program.close)
        self.program.press("Iniciar")
        self.arrive("h2")

    def start_server(self, place):
        return PrintServer(place, self.queues)

    def arrive(self, page):
        wait_for(page, lambda: f"Velmora / {page}" in self.program.title())

    def print_with(self, button):
        """Prints the screen, with this button of the print dialog."""
        self.program.press("Imprimir", within=self.program.find("Menú"))
        self.assertIn("¿Desea continuar?", self.program.answer("Sí"))
        dialog = self.program.box()
        self.assertEqual(dialog.get_name(), "Imprimir")
        self.program.press(button, within=dialog)
        self.program.gone(dialog)

    def page(self):
        """The document of the one job, printed to its end."""
        wait_for("the job printed", self.server.finished)
        jobs = self.server.jobs()
        self.assertEqual(len(jobs), 1)
        return jobs[0]

    def expect_still_there(self):
        """The program answers, on the same screen and with nothing over it."""
        self.program.write("Parcela", "12")
        self.assertIn("h2", self.program.title())
        self.assertEqual(len(self.program.windows()), 1)


class Answers(PrintingTest):
    def test_the_question_has_its_four_lines_and_no_prints_nothing(self):
        self.program.press("Imprimir")
        self.assertEqual(self.program.answer("No"), NOTICE)
        self.expect_still_there()
        # A page printed now is the first: nothing was on its way.
        self.print_with("Imprimir")
        self.page()

    def test_print_prints_one_page_once(self):
        self.print_with("Imprimir")
        self.page()
        copies = re.search(b"copies\0\4\0\0(..)", self.server.records(), re.S)
        self.assertIn(copies and copies[1], (None, b"\0\1"))
        self.expect_still_there()

    def test_cancel_of_the_dialog_still_prints(self):
        self.print_with("Cancelar")
        self.page()
        self.expect_still_there()


class NoPrinter(PrintingTest):
    queues = ()

    def test_without_any_printer_printing_is_passed_over(self):
        for button in ("Imprimir", "Cancelar"):
            self.print_with(button)
            self.expect_still_there()
        self.assertEqual(self.server.jobs(), [])
        left = [f for place in ("work", "home") for _, _, fs in
                os.walk(os.path.join(desktop.folder(), place)) for f in fs]
        self.assertEqual([f for f in left if f.endswith((".pdf", ".ps"))], [])


class NoAnswer(PrintingTest):
    def start_server(self, place):
        return SilentServer(place)

    def test_a_server_that_never_answers_is_given_up(self):
        self.program.press("Imprimir")
        self.program.answer("Sí")
        self.expect_still_there()


class Page(PrintingTest):
    """The sheet of a day, laid out from a restored plan."""

    def setUp(self):
        super().setUp()
        from process_test import WORKED_DAY

        plan = os.path.join(desktop.folder(), "work", "plan.doc")
        with open(plan, "wb") as opened:
            opened.write(WORKED_DAY)
        self.restore(plan)
        self.program.choose("Continuar", "Cálculos")
        self.arrive("h5")
        self.program.choose("Introducir datos", "Primer dia")
        self.program.find("Tarea 1, contaminante 3, muestra C4")
        self.screen = picture.of_display(os.path.join(desktop.folder(), "Xvfb_screen0"))
        self.canvas = self.area_of_the_screen()
        self.print_with("Imprimir")
        self.document = self.page()

    def restore(self, plan):
        self.program.press("Recuperar datos")
        dialog = self.program.box()
        edit = self.program.atspi.Role.TEXT
        name = next(n for n in self.program.everything(dialog) if n.get_role() == edit)
        name.set_text_contents(plan)
        self.program.press("Guardar", within=dialog)
        self.program.gone(dialog)

    def area_of_the_screen(self):
        """Left, top, width and height in pixels of what is below the menu bar."""
        filler = self.program.atspi.Role.FILLER
        area = next(n for n in desktop.children(self.program.window()) if n.get_role() == filler)
        place = area.get_extents(self.program.atspi.CoordType.SCREEN)
        return place.x, place.y, place.width, place.height

    def output(self, *command):
        return subprocess.run([*command, self.document, *(["-"] if "text" in command[0] else [])],
                              capture_output=True, text=True, check=True).stdout

    def test_the_printed_sheet_is_one_sharp_landscape_page_that_looks_like_the_screen(self):
        self.check_page()
        self.check_what_stands_in_the_margin()
        self.check_that_letters_are_letters()
        self.check_that_nothing_is_a_large_bitmap()
        self.check_looks()

    def image_on(self, page, resolution):
        """Left, top, width and height of the screen's image: the ink between the two margins."""
        band = MARGIN * resolution // 72
        wide, tall = page.size
        left, top, width, height = page.cut(0, band, wide, tall - 2 * band).ink()
        return left, top + band, width, height

    def check_what_stands_in_the_margin(self):
        margin = self.output("pdftotext", "-layout", "-l", "1").splitlines()[0]
        self.assertIn("Velmora / h5 CÁLCULOS Y RESULTADOS: PRIMER DIA", margin)
        title = "Velmora / h5 CÁLCULOS Y RESULTADOS: PRIMER DIA"
        self.assertIn(title, self.output("pdfinfo"))
        wait_for("the print job's name", lambda: title.encode() in self.server.records())

    def check_page(self):
        told = self.output("pdfinfo")
        self.assertEqual(re.search(r"Pages: +(\d+)", told).group(1), "1")
        size = re.search(r"Page size: +([\d.]+) x ([\d.]+)", told).groups()
        self.assertEqual(tuple(round(float(n)) for n in size), A4_LANDSCAPE)
        # At 72 dots an inch a dot is a point.
        page = picture.of_page(self.document, 72)
        left, top, width, height = self.image_on(page, 72)
        right, bottom = page.size[0] - left - width, page.size[1] - top - height
        self.assertGreaterEqual(min(left, top, right, bottom), MARGIN - 1)
        self.assertLessEqual(min(left, top), MARGIN + 2, "as large as the margins let it")
        self.assertLessEqual(max(abs(left - right), abs(top - bottom)), 2, "in the middle")

    def check_that_letters_are_letters(self):
        text = " ".join(self.output("pdftotext", "-layout").split())
        for words in ("tolueno", "etilbenceno", "Validar 1ª tarea", "Indic.+", "mg/m3", "192"):
            self.assertIn(words, text)

    def check_that_nothing_is_a_large_bitmap(self):
        pixels = 0
        for line in self.output("pdfimages", "-list").splitlines()[2:]:
            _, _, _, width, height, *_ = line.split()
            pixels += int(width) * int(height)
        self.assertLess(pixels, 200 * 200)

    def check_looks(self):
        page = picture.of_page(self.document, RESOLUTION)
        printed = page.cut(*self.image_on(page, RESOLUTION))
        wide, tall = printed.size
        self.assertAlmostEqual(wide / tall, SHEET, delta=0.005, msg="nothing beyond the screen")
        shown = self.shown_part(printed.size)
        self.assertLess(picture.unlikeness(shown, printed), ALIKE)
        # The measure sees damage: a blank page, a cut one, a stamp.
        width, height = printed.size
        for damage in (
            printed.whitened(0, 0, width, height),
            printed.whitened(width * 3 // 4, 0, width, height),
            printed.whitened(0, height * 4 // 5, width, height),
            page,
        ):
            self.assertGreater(picture.unlikeness(shown, damage), ALIKE)

    def shown_part(self, size):
        """The part of the canvas that is printed: of the page's shape, in the middle."""
        left, top, width, height = self.canvas
        wide = min(width, round(height * size[0] / size[1]))
        tall = min(height, round(width * size[1] / size[0]))
        return self.screen.cut(left + (width - wide) // 2, top + (height - tall) // 2, wide, tall)


if __name__ == "__main__":
    if "VELMORA" not in os.environ and len(sys.argv) > 1 and os.path.exists(sys.argv[1]):
        os.environ["VELMORA"] = os.path.abspath(sys.argv.pop(1))
    desktop.enter(TOOLS)
    unittest.main()
