"""The program from outside, through the accessibility bus alone: from "Iniciar" to the saved file.

VELMORA names the program; an argument that is a path does, too. What comes by key strokes, because
the program lets nothing else in: limit values, additive marks, sampling times (F2) and samples.
Everything else is read, written, pressed and picked through the bus.
"""

import os
import sys
import unittest

import desktop
from desktop import wait_for

F2, F10, ENTER, DOWN, LEFT, RIGHT, ESCAPE, BACKSPACE = (
    *(0xFFBF, 0xFFC7, 0xFF0D, 0xFF54, 0xFF51, 0xFF53, 0xFF1B, 0xFF08),
)

# The worked day: name, VLA-ED, VLA-EC, additive group, samples of fifteen minutes.
AGENTS = (
    ("Tolueno", "192", "384", "0", ("120", "95", "150", "110")),
    ("Xileno", "221", "442", "1", ("30", "45", "20", "35")),
    ("Etilbenceno", "442", "884", "1", ("15", "25", "10", "20")),
)

# Checked with Python: math.log, math.exp and the general power.
SHEET = (
    ("Tarea 1, contaminante 1, media estimada MMP", "117.76"),
    ("Tarea 1, contaminante 1, índice", ".61"),
    ("Tarea 1, contaminante 2, índice aditivo", "0.19"),
    ("Tarea 1, contaminante 3, media geométrica MG", "16.55"),
    ("Tarea 1, contaminante 3, desviación geométrica GSD", "1.49"),
    ("Tarea 1, contaminante 2, límite de corta exposición EC+", "536.069661301946"),
    ("Tarea 1, contaminante 2, probabilidad", "0.001"),
)
ANSWERS = (
    ("¿Se ha superado 3 x VLA-ED o VLA-EC?", "NO"),
    ("Mayor índice calculado, simple y aditivo", "0.61"),
    ("Conclusión sobre el índice", "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS"),
    ("Probabilidad de superar corta exposición", "0.001"),
    (
        "Conclusión sobre la probabilidad",
        " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS",
    ),
)
FINAL = (
    ("Tarea 1, contaminante 1, nombre del contaminante", "Tolueno"),
    ("Tarea 1, contaminante 1, índice del primer día", "0.61"),
    ("Tarea 1, contaminante 2, índice del primer día", "0.19"),
    ("Tarea 1, contaminante 3, índice del primer día", "----"),
    ("Tarea 1, contaminante 1, índice del segundo día", "----"),
    ("Tarea 1, contaminante 1, índice global IG", "----"),
    ("Tarea 1, contaminante 2, probabilidad del primer día", "0.001"),
)


class DesktopTest(unittest.TestCase):
    def setUp(self):
        self.program = desktop.Program(os.environ["VELMORA"])
        self.addCleanup(self.program.close)
        self.arrive("h1")

    def arrive(self, page):
        wait_for(page, lambda: f"Velmora / {page}" in self.program.title())

    def expect_names(self):
        self.assertEqual(self.program.nameless(), [], self.program.title())
        names = [n.get_name() for n in self.program.everything()]
        self.assertGreater(len(names), 10, "the walk saw the screen")

    def expect_texts(self, texts):
        self.assertEqual([(name, self.program.text(name)) for name, _ in texts], list(texts))

    def start(self):
        self.program.press("Iniciar")
        self.arrive("h2")

    def enter_company(self):
        self.program.write("Nombre de la empresa, imprescindible", "Añil, S.A.")
        self.program.write("Responsable de la empresa", "María")
        self.program.choose("Continuar", "Datos iniciales: Jornadas y Tareas")
        self.arrive("h3")

    def enter_plan(self):
        self.program.pick("Número de jornadas muestreadas", "1")
        self.program.pick("Número de tareas en cada jornada", "1")
        self.program.press("Validar jornadas y tareas")
        self.program.pick("Día", "1")
        self.program.pick("Tarea", "1")
        self.program.pick("Tiempo de exposición en horas", "8")
        self.program.pick("Número de muestras de 30 minutos", "0")
        self.program.pick("Número de muestras de 15 minutos", "3")
        self.program.pick("Número de contaminantes", "3")
        self.program.press("Validar la línea del plan")


class WholeRoad(DesktopTest):
    def test_from_the_start_to_the_saved_file_and_back_every_control_has_a_name(self):
        self.expect_names()
        self.start()
        self.expect_names()
        self.enter_company()
        self.expect_names()
        self.enter_plan()
        self.check_plan()
        self.enter_contaminants()
        self.check_sheet()
        self.check_final_table()
        self.check_saved_file()
        self.leave()

    def check_plan(self):
        line = ("día", "tarea", "tiempo de exposición en horas", "muestras de 30 minutos")
        last = ", contaminantes"
        row = [n.get_name() for n in self.program.everything() if n.get_name().endswith(last)]
        self.assertEqual(len(row), 1, "the plan's only line")
        start = row[0].removesuffix("contaminantes")
        self.expect_texts(
            [(start + n, t) for n, t in zip(line, ("1", "1", "8", "0"))]
            + [(start + "muestras de 15 minutos", "3"), (start + "contaminantes", "3")]
        )
        self.expect_names()

    def go_on(self, entry, screen):
        self.program.choose("Continuar/Regresar", entry)
        self.arrive(screen)
        self.expect_names()

    def enter_contaminants(self):
        program = self.program
        self.go_on("Contaminantes", "h4")
        program.pick("Tarea", "1")
        program.press("Validar los contaminantes de la tarea")
        self.assertEqual(program.answer("Aceptar"), " Cumplimente todos los datos")
        for row, (name, ed, ec, group, _) in enumerate(AGENTS, 1):
            start = f"Contaminante {row}, "
            program.write(start + "nombre", name)
            self.expect_closed(start + "número", str(row))
            self.expect_closed(start + "VLA-ED", "")
            program.type(start + "VLA-ED", ed)
            program.type(start + "VLA-EC", ec)
            program.type(start + "grupo aditivo", group)
            minutes = program.focus(start + "tiempo de muestreo en minutos")
            for shown in ("30", "15"):
                program.key(F2)
                wait_for(shown, lambda: desktop.text_of(minutes) == shown)
            program.pick(start + "unidad", "mg/m3")
        self.expect_names()
        program.press("Validar los contaminantes de la tarea")

    def expect_closed(self, name, text):
        """A locked cell, and one with a filter, takes no text by the bus."""
        cell = self.program.find(name, self.program.atspi.Role.TEXT)
        cell.set_text_contents("77")
        self.assertEqual(desktop.text_of(cell), text)

    def check_sheet(self):
        program = self.program
        self.go_on("Cálculos", "h5")
        program.choose("Introducir datos", "Primer dia")
        for row, (*_, samples) in enumerate(AGENTS, 1):
            for place, sample in enumerate(samples, 1):
                program.type(f"Tarea 1, contaminante {row}, muestra C{place}", sample)
        last = "Conclusiones referidas a la jornada en curso :     Validar"
        for button in (
            "Validar 1ª tarea",
            "Indice+ / MG / GSD",
            "EC+, MG+, GSD+ y probabilidad de la 1ª tarea",
            last,
        ):
            program.press(button)
            if button != last:
                wait_for(f"{button} done", lambda: self.next_is_open(button))
        wait_for("the conclusions", lambda: program.text(ANSWERS[0][0]) == "NO")
        self.expect_texts(SHEET + ANSWERS)
        self.expect_names()

    def next_is_open(self, button):
        """Each of the sheet's buttons opens the next one."""
        boxes = [w.get_name() for w in self.program.windows() if w != self.program.window()]
        self.assertEqual(boxes, [], [self.program.words(w) for w in self.program.windows()])
        done = {
            "Validar 1ª tarea": "Indice+ / MG / GSD",
            "Indice+ / MG / GSD": "EC+, MG+, GSD+ y probabilidad de la 1ª tarea",
        }
        following = done.get(button, "Conclusiones referidas a la jornada en curso :     Validar")
        return self.program.has(following)

    def check_final_table(self):
        self.go_on("Resultado final", "h6")
        self.program.press("RESULTADOS FINALES :    VALIDAR")
        self.program.find(FINAL[0][0])
        self.expect_texts(FINAL)
        self.expect_names()

    def check_saved_file(self):
        program = self.program
        path = os.path.join(desktop.folder(), "work", "evaluación de añil")
        program.press("Guardar en disco ")
        dialog = program.box()
        self.assertEqual(dialog.get_name(), " Guardar datos")
        edit = program.atspi.Role.TEXT
        name = next(n for n in program.everything(dialog) if n.get_role() == edit)
        self.assertTrue(name.set_text_contents(path))
        program.press("Guardar", within=dialog)
        question = wait_for(
            "the question about creating the file",
            lambda: next(w for w in program.windows() if "no existe" in "".join(program.words(w))),
        )
        program.press("Sí", within=question)
        wait_for("the file", lambda: os.path.exists(path + ".doc"))
        program.gone(dialog)
        with open(path + ".doc", encoding="windows-1252", newline="") as saved:
            lines = saved.read().split("\r\n")
        self.assertEqual(len(lines), 1524 + 1, "1524 lines, each ended")
        self.assertEqual(lines[0], '"Añil, S.A."')
        self.assertEqual(lines[19:24], ["1", "1", "8", "0", "3"])
        self.assertEqual(lines[51:57], ['"Tolueno"', "192", "384", "15", "0", '"mg/m3"'])
        self.assertEqual(lines[1362 + 2], '"0.61"', "row 1, column 3 of the final table")

    def leave(self):
        program = self.program
        program.press("Salir")
        self.assertEqual(program.answer("No"), "¿Está seguro de que quiere salir?")
        program.press("Salir")
        program.press("Sí", within=program.box())
        self.assertEqual(program.status(), 0)


class Entries(DesktopTest):
    def go_to_the_end(self):
        self.start()
        self.program.choose("Continuar", "Resultado final")
        self.arrive("h6")

    def test_the_title_that_moves_at_once_does_so_when_pressed(self):
        self.go_to_the_end()
        self.program.press("Continuar/Regresar")
        self.arrive("h5")

    def test_the_list_of_the_title_that_moves_at_once_opens_and_each_entry_works(self):
        self.go_to_the_end()
        title = self.program.find("Continuar/Regresar")
        self.assertEqual(self.program.actions(title), ["Press", "ShowMenu"])
        self.program.act(title, "ShowMenu")
        listed = [n for n in self.program.everything(title)]
        names = [n.get_name() for n in listed if n.get_role() == self.program.atspi.Role.MENU_ITEM]
        self.assertEqual(
            names,
            [
                "Cálculos",
                "Contaminantes",
                "Datos  iniciales: Jornadas y Tareas",
                "Datos de empresa",
            ],
        )
        self.program.press("Datos de empresa", within=title)
        self.arrive("h2")

    def test_spacers_are_separators_that_do_nothing(self):
        bar = self.program.find("Menú")
        roles = [(e.get_role_name(), e.get_name(), self.program.actions(e))
                 for e in desktop.children(bar)]
        spacer = ("separator", "Separador", [])
        entry = [("menu item", name, ["Press"]) for name in ("Iniciar", "Salir")]
        self.assertEqual(roles, [spacer, spacer, entry[0], spacer, spacer, entry[1]])

    def test_other_titles_only_open_their_list(self):
        self.start()
        self.assertEqual(self.program.actions(self.program.find("Continuar")), ["ShowMenu"])

    def test_behind_a_box_no_entry_runs(self):
        self.program.press("Salir")
        self.program.box()
        self.program.press("Iniciar")
        self.assertEqual(self.program.answer("No"), "¿Está seguro de que quiere salir?")
        self.assertIn("h1", self.program.title())


class Lists(DesktopTest):
    def setUp(self):
        super().setUp()
        self.start()
        self.enter_company()

    def test_a_pick_runs_its_handler_and_the_list_keeps_its_name(self):
        self.enter_plan()
        self.program.pick("Número de muestras de 30 minutos", "4")
        self.program.pick("Número de muestras de 15 minutos", "4")
        said = self.program.answer("Aceptar")
        self.assertEqual(
            said, "La suma total de contaminantes de 30' y de 15' ha de ser menor o igual que 6"
        )
        self.assertEqual(self.program.text("Número de muestras de 15 minutos"), "4")

    def test_the_open_list_tells_which_item_is_shown(self):
        self.program.pick("Número de tareas en cada jornada", "2")
        role = self.program.atspi.Role.COMBO_BOX
        box = self.program.find("Número de tareas en cada jornada", role)
        expanded = self.program.atspi.StateType.EXPANDED
        self.assertFalse(box.get_state_set().contains(expanded))
        self.program.act(box, "ShowMenu")
        wait_for("the list told as open", lambda: box.get_state_set().contains(expanded))
        selected = self.program.atspi.StateType.SELECTED
        items = [n for n in self.program.everything(box) if n.get_role_name() == "list item"]
        self.assertEqual([n.get_name() for n in items], ["1", "2", "3"])
        self.assertEqual(
            [n.get_state_set().contains(selected) for n in items], [False, True, False]
        )

    def test_no_text_can_be_written_into_a_list(self):
        role = self.program.atspi.Role.COMBO_BOX
        box = self.program.find("Número de tareas en cada jornada", role)
        self.assertIsNone(box.get_editable_text_iface())
        inside = [n for n in self.program.everything(box) if n.get_editable_text_iface()]
        self.assertEqual(inside, [])


class Boxes(DesktopTest):
    def test_a_box_says_its_text_and_every_control_of_it_has_a_name(self):
        self.program.press("Salir")
        box = self.program.box()
        self.assertEqual(box.get_name(), "Velmora")
        self.assertIn("¿Está seguro de que quiere salir?", self.program.words(box))
        self.assertEqual(self.program.nameless(), [])
        self.program.answer("No")

    def test_the_refusal_of_an_empty_company_is_said(self):
        self.start()
        self.program.write("Nombre de la empresa, imprescindible", "")
        self.program.choose("Continuar", "Datos iniciales: Jornadas y Tareas")
        self.assertEqual(
            self.program.answer("Aceptar"),
            "Debe cumplimentarse por lo menos el nombre de la empresa",
        )
        self.assertIn("h2", self.program.title())


class Keyboard(DesktopTest):
    """No mouse and no bus but for reading."""

    def setUp(self):
        super().setUp()
        self.program.take_keyboard()

    def test_f10_and_the_arrows_reach_every_entry_and_enter_runs_it(self):
        key = self.program.key
        key(F10)
        self.expect_active("Iniciar")
        key(RIGHT)
        self.expect_active("Salir")
        key(LEFT)
        self.expect_active("Iniciar")
        key(ENTER)
        self.arrive("h2")
        key(F10)
        self.expect_active("Continuar")
        key(DOWN)
        self.expect_active("Datos iniciales: Jornadas y Tareas")
        key(DOWN)
        self.expect_active("Contaminantes")
        key(ENTER)
        self.arrive("h4")

    def expect_active(self, name):
        focused = self.program.atspi.StateType.FOCUSED
        entry = self.program.find(name, self.program.atspi.Role.MENU_ITEM)
        wait_for(f"{name!r} active", lambda: entry.get_state_set().contains(focused))


class Words(DesktopTest):
    """A screen reader that goes through a text part by part gets an answer to every question."""

    EXAMPLE = os.path.join(os.path.dirname(__file__), "../../examples/tres-dias-tres-tareas.doc")

    def setUp(self):
        super().setUp()
        self.asked = set()
        self.start()

    def ask_everything(self, within=None):
        for node in self.program.everything(within):
            if node.get_text_iface() is not None:
                self.ask_about(node)

    def ask_about(self, node):
        text = desktop.text_of(node)
        if (node.get_role(), text) in self.asked:
            return
        self.asked.add((node.get_role(), text))
        questions = self.program.atspi.Text
        kinds = self.program.atspi.TextBoundaryType
        boundaries = (kinds.CHAR, kinds.WORD_START, kinds.WORD_END, kinds.SENTENCE_START,
                      kinds.SENTENCE_END, kinds.LINE_START, kinds.LINE_END)
        for offset in range(len(text) + 1):
            for boundary in boundaries:
                for ask in (questions.get_text_before_offset, questions.get_text_at_offset,
                            questions.get_text_after_offset):
                    part = ask(node, offset, boundary)
                    begin, end = max(part.start_offset, 0), max(part.end_offset, 0)
                    self.assertEqual(part.content, text[begin:end], (text, offset, boundary))

    def test_texts_at_whose_end_a_word_ends_or_none_stands(self):
        for text in ("Acme", "2026", "0.19", " ", ".", ".61", "---", "----", "Añil, S.A."):
            self.program.write("Parcela", text)
            self.ask_about(self.program.find("Parcela", self.program.atspi.Role.TEXT))

    def test_every_text_of_every_screen_and_of_the_file_dialog(self):
        program = self.program
        program.press("Recuperar datos")
        dialog = program.box()
        edit = program.atspi.Role.TEXT
        name = next(n for n in program.everything(dialog) if n.get_role() == edit)
        name.set_text_contents(os.path.realpath(self.EXAMPLE))
        self.ask_about(name)
        program.press("Guardar", within=dialog)
        program.gone(dialog)
        self.ask_everything()
        program.choose("Continuar", "Datos iniciales: Jornadas y Tareas")
        self.arrive("h3")
        self.ask_everything()
        program.choose("Continuar/Regresar", "Contaminantes")
        self.arrive("h4")
        program.pick("Tarea", "1")
        self.ask_everything()
        program.choose("Continuar/Regresar", "Cálculos")
        self.arrive("h5")
        program.choose("Recuperar datos/cálculos", "Primer dia")
        self.ask_everything()
        program.choose("Continuar/Regresar", "Resultado final")
        self.arrive("h6")
        self.ask_everything()
        self.assertGreater(len(self.asked), 50)


if __name__ == "__main__":
    if "VELMORA" not in os.environ and len(sys.argv) > 1 and os.path.exists(sys.argv[1]):
        os.environ["VELMORA"] = os.path.abspath(sys.argv.pop(1))
    desktop.enter()
    unittest.main()
