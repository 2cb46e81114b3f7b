"""The real program in processes of its own: how it ends, and what passes from one to the next.

VELMORA names the program, VELMORA_DRIVER the folder above the driver's `generic`.
"""

import os
import shutil
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(os.path.dirname(HERE), "lockstep"))

from process import Ended, Process  # noqa: E402

LINES = 1524


def evaluation(days=1, tasks=1, company="Acme", agents=(), hours=8, slots=None, final=None):
    """A whole evaluation file. `agents` are those of task 1: (name, ED, EC, TM, mark, unit)."""
    lines = [f'"{company}"'] + ['"---"'] * 18 + [str(days), str(tasks)]
    for _ in range(9):
        lines += [str(hours), "0", str(len(agents))]
    lines += [str(len(agents)), "0", "0"]
    for task in (1, 2, 3):
        for place in range(6):
            listed = task == 1 and place < len(agents)
            name, ed, ec, tm, mark, unit = agents[place] if listed else ("", 0, 0, 0, 0, "")
            lines += [f'"{name}"', f"{ed:g}", f"{ec:g}", str(tm), str(mark), f'"{unit}"']
    slots = slots or {}
    for entry in range(1, 402):
        lines += [f'"{slots.get((day, entry), "")}"' for day in (1, 2, 3)]
    final = final or {}
    lines += [f'"{final.get((r, c), "")}"' for r in range(1, 19) for c in range(1, 10)]
    assert len(lines) == LINES
    return "".join(line + "\r\n" for line in lines).encode("windows-1252")


WORKED_DAY = evaluation(
    agents=(
        ("tolueno", 192, 384, 15, 0, "mg/m3"),
        ("xileno", 221, 442, 15, 1, "mg/m3"),
        ("etilbenceno", 442, 884, 15, 1, "mg/m3"),
    )
)
SAMPLES = ((120, 95, 150, 110), (30, 45, 20, 35), (15, 25, 10, 20))


class ProcessTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="velmora")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.process = None
        self.addCleanup(self.kill)

    def start(self, locale="point", arguments=()):
        self.kill()
        self.process = Process(
            os.environ["VELMORA"], os.environ["VELMORA_DRIVER"], locale, self.folder, arguments
        )
        self.assertEqual(self.process.window, ["Form1", ".     Velmora / h1"])

    def kill(self):
        if self.process is not None:
            self.process.kill()
            self.process.link.close()
            self.process = None

    def do(self, *action):
        self.process.send(list(action))
        self.process.receive()
        self.assertIsNone(self.process.error, action)

    def status_after(self, *action):
        """What the process ends with on this action."""
        with self.assertRaises(Ended) as ended:
            self.do(*action)
        return ended.exception.status

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content):
        with open(self.path(name), "wb") as opened:
            opened.write(content)

    def read(self, name):
        with open(self.path(name), "rb") as opened:
            return opened.read()

    def restore(self, name):
        self.do("menu", "Nuevaempresa")
        self.do("menu", "recuperardatos")
        self.assertEqual(self.process.modal["kind"], "file")
        self.do("file", "accept", self.path(name))
        self.assertIsNone(self.process.modal)

    def save(self, name):
        """Saves on the final screen under a name that doesn't exist yet."""
        self.do("menu", "guardararchivo")
        self.do("file", "accept", self.path(name))
        self.assertIn("no existe", self.process.modal["text"])
        self.do("answer", "yes")
        self.assertIsNone(self.process.modal)

    def text(self, control):
        return self.process.controls[control][1]

    def texts(self, name, indices):
        return [self.text(f"{name}({i})") for i in indices]

    def lay_out_worked_day(self):
        self.write("plan.doc", WORKED_DAY)
        self.start()
        self.restore("plan.doc")
        self.do("menu", "calculos")
        self.do("menu", "introprimero")

    def type_worked_day(self):
        self.do("menu", "calculos")
        self.do("menu", "introprimero")
        for row, samples in enumerate(SAMPLES):
            for place, sample in enumerate(samples):
                self.do("type", f"Text1({18 * row + 7 + place})", list(str(sample)))
        for button in ("Command1", "Command4", "Command5", "Command8"):
            self.do("click", button)
            self.assertIsNone(self.process.modal, button)


class Ending(ProcessTest):
    def test_arguments_of_the_toolkit_are_none_of_the_programs(self):
        self.start(arguments=("-platform", "nosuch", "-style", "windows"))
        self.do("menu", "salir")
        self.assertEqual(self.status_after("answer", "yes"), 0)

    def test_salir_answered_yes_ends_with_status_0(self):
        self.start()
        self.do("menu", "salir")
        self.assertEqual(self.process.modal["text"], "¿Está seguro de que quiere salir?")
        self.assertEqual(self.status_after("answer", "yes"), 0)

    def test_salir_answered_no_goes_on(self):
        self.start()
        self.do("menu", "salir")
        self.do("answer", "no")
        self.assertIsNone(self.process.modal)
        self.do("menu", "Nuevaempresa")
        self.assertEqual(self.process.window[0], "Form2")

    def test_the_cross_of_the_window_does_the_same_on_a_later_screen(self):
        self.start()
        self.do("menu", "Nuevaempresa")
        self.do("close")
        self.assertEqual(self.process.modal["default"], "no")
        self.do("answer", "esc")
        self.do("close")
        self.assertEqual(self.status_after("answer", "yes"), 0)

    def test_a_single_usable_sample_ends_with_status_1_after_its_box(self):
        self.lay_out_worked_day()
        for row in range(3):
            self.do("type", f"Text1({18 * row + 7})", ["5"])
            self.do("type", f"Text1({18 * row + 8})", ["0"])
        self.do("click", "Command1")
        box = self.process.modal
        self.assertEqual(
            (box["icon"], box["title"], box["buttons"]), ("Critical", "Velmora", ["ok"])
        )
        self.assertEqual(
            box["text"].splitlines()[0],
            "Error en tiempo de ejecución: operación aritmética no válida.",
        )
        self.assertEqual(self.status_after("answer", "ok"), 1)

    def test_a_restored_plan_of_four_days_ends_on_the_plans_screen(self):
        self.write("plan.doc", evaluation(days=4, tasks=3))
        self.start()
        self.restore("plan.doc")
        self.do("menu", "datosiniciales")
        self.assertEqual(
            self.process.modal["text"].splitlines()[0],
            "Error en tiempo de ejecución: subíndice fuera de rango.",
        )
        self.assertEqual(self.status_after("answer", "esc"), 1)


class Restoring(ProcessTest):
    def test_saved_restored_in_another_process_and_saved_again_gives_the_same_bytes(self):
        for locale in ("point", "comma"):
            with self.subTest(locale):
                self.write("plan.doc", WORKED_DAY)
                self.start(locale)
                self.restore("plan.doc")
                self.type_worked_day()
                # Python's mean of the first row, with the locale's own mark.
                mean = {"point": "117.76", "comma": "117,76"}[locale]
                self.assertEqual(self.text("Text1(13)"), mean)
                self.do("menu", "resultadosfinales")
                self.do("click", "Command1")
                self.save(f"{locale}1.doc")
                first = self.read(f"{locale}1.doc")
                self.assertEqual(first.count(b"\r\n"), LINES)
                self.assertNotEqual(first, WORKED_DAY)

                self.start(locale)
                self.restore(f"{locale}1.doc")
                self.do("menu", "resulatadofinal")
                self.save(f"{locale}2.doc")
                self.assertEqual(self.read(f"{locale}2.doc"), first)

    def test_a_whole_file_passes_through_unchanged(self):
        slots = {(day, entry): f"{day}/{entry}" for day in (1, 2, 3) for entry in range(1, 402)}
        final = {(r, c): f"ñ{r},{c}" for r in range(1, 19) for c in range(1, 10)}
        agents = [(f"agente {i}", 0.5 * i, 1.25, 15, i, "ppb") for i in range(1, 7)]
        whole = evaluation(3, 3, "Añil, S.A.", agents, 7.5, slots, final)
        self.write("plan.doc", whole)
        self.start()
        self.restore("plan.doc")
        self.do("menu", "resulatadofinal")
        self.save("otra.doc")
        self.assertEqual(self.read("otra.doc").split(b"\r\n"), whole.split(b"\r\n"))

    def test_the_worked_day_of_one_process_is_recovered_in_the_next(self):
        self.write("plan.doc", WORKED_DAY)
        self.start()
        self.restore("plan.doc")
        self.type_worked_day()
        row = self.texts("Text1", range(18, 36)) + self.texts("Text3", range(4, 8))
        self.assertEqual(
            row,
            "2 xileno 221 442 mg/m3 15 1 30 45 20 35".split()
            + ["", ""]
            + "32.77 .15 0.19 31.18 1.4".split()
            + "536.069661301946 47.7472786976975 1.43136286612149 0.001".split(),
        )
        self.do("menu", "resultadosfinales")
        self.save("dia.doc")
        self.start()
        self.restore("dia.doc")
        self.do("menu", "calculos")
        self.do("menu", "recupprimerdia")
        self.assertEqual(self.texts("Text1", range(18, 36)) + self.texts("Text3", range(4, 8)), row)
        self.assertEqual(self.text("Text5"), "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS")


class Separators(ProcessTest):
    """Limits of 12.5 and 1.25, eight hours."""

    PLAN = evaluation(agents=(("agente", 12.5, 1.25, 15, 0, "ppm"),))

    def lay_out(self, locale):
        self.write("plan.doc", self.PLAN)
        self.start(locale)
        self.restore("plan.doc")
        self.do("menu", "calculos")
        self.do("menu", "introprimero")

    def test_under_a_comma_one_line_says_that_the_results_are_not_valid(self):
        self.start("point")
        self.assertNotIn(b"separador", self.read("output.txt"))
        self.start("comma")
        said = [line for line in self.read("output.txt").splitlines() if b"separador" in line]
        self.assertEqual(len(said), 1, said)
        self.assertIn(b"los resultados no valen", said[0])

    def test_under_a_point_the_cells_show_a_point(self):
        self.lay_out("point")
        self.assertEqual(self.texts("Text1", (2, 3)), ["12.5", "1.25"])

    def test_under_a_comma_the_cells_show_a_comma(self):
        self.lay_out("comma")
        self.assertEqual(self.texts("Text1", (2, 3)), ["12,5", "1,25"])

    def test_under_a_comma_the_keys_still_give_a_point_and_results_a_comma(self):
        self.lay_out("comma")
        self.do("type", "Text1(7)", list("2,.0"))
        self.do("type", "Text1(8)", list("8"))
        self.assertEqual(self.text("Text1(7)"), "2.0")
        self.do("click", "Command1")
        # Geometric mean and mean of 2 and 8 are 4 and the index 8 x 4 / (12.5 x 8).
        self.assertEqual(self.texts("Text1", (13, 14)), ["4,", ",32"])

    def test_under_a_comma_an_index_of_a_third_reads_as_0_in_the_verdict(self):
        self.lay_out("comma")
        self.do("type", "Text1(7)", ["2"])
        self.do("type", "Text1(8)", ["8"])
        for button in ("Command1", "Command4", "Command5", "Command8"):
            self.do("click", button)
        self.assertEqual(self.text("Text2"), "0")
        self.assertEqual(
            self.text("Text5"), "EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA"
        )

    def test_under_a_comma_a_limit_validated_as_shown_keeps_its_whole_part(self):
        self.write("plan.doc", self.PLAN)
        self.start("comma")
        self.restore("plan.doc")
        self.do("menu", "contaminantes")
        self.do("pick", "Combo1", 0, "mouse")
        self.do("click", "Command3")
        self.assertEqual(self.texts("Text1", (2, 3)), ["12,5", "1,25"])
        self.do("click", "Command1")
        self.do("menu", "resultadosfinales")
        self.save("otra.doc")
        lines = self.read("otra.doc").split(b"\r\n")
        self.assertEqual(lines[52:54], [b"12", b"1"])

    def test_the_files_doubles_have_a_point_under_a_comma(self):
        self.write("plan.doc", self.PLAN)
        self.start("comma")
        self.restore("plan.doc")
        self.do("menu", "resulatadofinal")
        self.save("otra.doc")
        self.assertEqual(self.read("otra.doc").split(b"\r\n")[52:54], [b"12.5", b"1.25"])


class Files(ProcessTest):
    def test_the_program_leaves_no_file_of_its_own(self):
        self.write("plan.doc", WORKED_DAY)
        self.start()
        self.restore("plan.doc")
        self.do("menu", "resulatadofinal")
        self.save("otra.doc")
        self.do("menu", "salir")
        home, work = self.process.home, self.process.work
        self.assertEqual(self.status_after("answer", "yes"), 0)
        left = [os.path.join(d, n) for top in (home, work) for d, _, ns in os.walk(top) for n in ns]
        self.assertEqual(left, [])

    def test_a_cancelled_first_dialog_creates_nothing_and_wipes_the_boxes(self):
        self.start()
        self.do("menu", "Nuevaempresa")
        self.do("menu", "recuperardatos")
        self.do("file", "cancel")
        self.assertEqual(self.texts("Text1", range(1, 20)), [""] * 19)


if __name__ == "__main__":
    unittest.main()
