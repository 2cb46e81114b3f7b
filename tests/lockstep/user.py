"""The guided random user: it follows roads that go deep and strays from them now and then."""

import base64
import itertools

from arithmetic import ErrorEjecucion, LeerValor
from capture import PLAN_FIXED
from controls import ErrorBox, FileDialog, MessageBox, PrintDialog
from files import NAMES, additive_marks, evaluation_file, limit
from screen import ASK_EXIT

TARGETS = {
    "Form2": {"Form3": "datosiniciales", "Form4": "contaminantes", "Form5": "calculos",
              "Form6": "resulatadofinal"},
    "Form3": {"Form4": "contaminantes", "Form5": "pagina5", "Form2": "datosdeempresa",
              "Form6": "resultadofinal"},
    "Form4": {"Form5": "pagina5", "Form3": "datosiniciales", "Form2": "datosdeempresa",
              "Form6": "resultadosfinales"},
    "Form5": {"Form3": "datosiniciales", "Form4": "contaminantes", "Form6": "resultadosfinales",
              "Form2": "datosempresa"},
    "Form6": {"Form5": "calculos", "Form4": "contaminantes", "Form3": "datosiniciales",
              "Form2": "datosdeempresa"},
}  # fmt: skip
LAY_OUT = {1: "introprimero", 2: "introsegundo", 3: "introtercero"}
TAKE_UP_AGAIN = {1: "recupprimerdia", 2: "recupsegundodia", 3: "recuptercerdia"}

FILTERED_KEYS = (
    *"0123456789..,-a ñ+eE/:", "<BS>", "<DEL>", "<HOME>", "<END>", "<LEFT>", "<RIGHT>",
    "<S-HOME>", "<S-END>", "<ENTER>", "<ESC>", "<C-V>", "<C-X>", "<C-Z>", "<S-INS>", "<S-DEL>",
    "<C-H>", "<C-M>",
)  # fmt: skip
FREE_KEYS = (
    *'abcXYZ 019.,-_áñÜ€µΩ"&/', "<BS>", "<DEL>", "<HOME>", "<END>", "<LEFT>", "<RIGHT>",
    "<S-HOME>", "<S-END>", "<ENTER>",
)  # fmt: skip
COMPANIES = ("Pinturas Ñandú, S.L.", "ACME & Cía", " ", "Taller «El 3»", 'La "Buena"', "Ωmega 😀")


def _up_to_enter(keys):
    """Enter leaves the cell: nothing is typed into it after that."""
    return keys[: keys.index("<ENTER>") + 1] if "<ENTER>" in keys else keys


class User:
    """Gives the next action for the model's present state."""

    def __init__(self, dice, model, straying=0.12):
        self.dice, self.model, self.straying = dice, model, straying
        self.next_file = None  # name that the next file dialog is given
        self.names = []
        self.road = iter(())
        self.counter = itertools.count(1)
        self.fresh = True

    def next_action(self):
        if self.model.exit_status is not None:
            self.road, self.fresh = iter(()), True
            return ["restart"]
        if self.model.waiting_on is not None:
            return self._answer()
        if self.dice.random() < self.straying:
            action = self._stray()
            if action and self.model.applicable(action):
                return action
        for _ in range(60):
            action = next(self.road, None)
            if action is None:
                self.road = self._intention()
            elif self.model.applicable(action):
                return action
        return ["clip", "7"]

    # Answers.

    def _answer(self):
        waiting_on, dice = self.model.waiting_on, self.dice
        if isinstance(waiting_on, ErrorBox):
            return ["answer", dice.choice(("ok", "esc", "enter"))]
        if isinstance(waiting_on, FileDialog):
            return self._file_name()
        if isinstance(waiting_on, PrintDialog):
            return ["print", dice.choice(("accept", "cancel"))]
        if not isinstance(waiting_on, MessageBox):
            return ["answer", dice.choice(("yes", "yes", "yes", "no", "esc"))]
        if waiting_on.style == 0:
            return ["answer", dice.choice(("ok", "ok", "esc", "enter"))]
        if dice.random() < 0.08 and waiting_on.text != ASK_EXIT:
            return ["answer", "enter"]
        return ["answer", "yes" if dice.random() < self._willingness(waiting_on) else
                dice.choice(("no", "no", "esc"))]  # fmt: skip

    def _willingness(self, box):
        if box.text == ASK_EXIT:
            return 0.15
        if box.text.startswith("Se imprimir"):
            return 0.2
        return 0.5 if box.title == "Aviso" or "regresar" in box.text else 0.85

    def _file_name(self):
        name, self.next_file = self.next_file, None
        if name is None:
            if self.dice.random() < 0.3:
                return ["file", "cancel"]
            name = self._some_name()
        return ["file", "accept", name]

    def _some_name(self):
        if self.names and self.dice.random() < 0.7:
            return self.dice.choice(self.names)
        patterns = ("@/ev{}", "@/evaluación {}", "@/ev{}.doc", "@/ev{}.txt", "@/carpeta.v2/ev{}")
        name = self.dice.choice(patterns).format(next(self.counter))
        self.names.append(name)
        return name

    # Roads.

    def _here(self):
        return type(self.model.screen).__name__

    def _intention(self):
        dice, record = self.dice, self.model.record
        if self.fresh:
            self.fresh = False
            self.road = iter(())
            if dice.random() < 0.7:
                return self._restore()
            return itertools.chain(self._company(), self._plan(), self._all_tasks())
        no_plan = record.NumTareas < 1 or record.NumJornadas < 1
        no_contaminants = not no_plan and any(
            record.VlaEd[t, 1] == 0 for t in range(1, min(record.NumTareas, 3) + 1)
        )
        roads = (
            (self._restore, 3 if no_plan else 1),
            (self._company, 1),
            (self._plan, 4 if no_plan else 1),
            (self._all_tasks, 12 if no_contaminants else 2),
            (self._day, 1 if no_plan else 8),
            (self._recovered_day, 1 if no_plan else 5),
            (self._final, 2),
            (self._again, 1),
            (self._reopened_plan, 1),
            (self._browse, 2),
        )
        chosen = dice.choices([c for c, _ in roads], [weight for _, weight in roads])[0]
        return chosen()

    def _go_to(self, target):
        for _ in range(6):
            here = self._here()
            if here == target:
                return
            if here == "Form1":
                yield ["menu", "Nuevaempresa"]
                continue
            nameless = here == "Form2" and self.model.control("Text1(1)").Text == ""
            if nameless and self.dice.random() < 0.8:
                yield ["type", "Text1(1)", list(self.dice.choice(COMPANIES))]
            if (here, target) == ("Form6", "Form5") and self.dice.random() < 0.6:
                yield ["menumouse", "regresar"]
                continue
            yield self._menu_entry(TARGETS[here][target])

    def _menu_entry(self, name):
        if self.dice.random() < 0.7:
            return ["menu", name]
        for title, _, entries in self.model.screen.menu:
            if any(row[0] == name for row in entries) and title != "regresar":
                return ["menumouse", title, name]
        return ["menu", name]

    def _restore(self):
        yield from self._go_to("Form2")
        if not self.names or self.dice.random() < 0.6:
            name = f"@/dado{next(self.counter)}.doc"
            data = evaluation_file(self.dice, self.model.separator)
            yield ["put", name, base64.b64encode(data).decode()]
            self.names.append(name)
            self.next_file = name
        yield ["menu", "recuperardatos"]

    def _company(self):
        yield from self._go_to("Form2")
        for _ in range(self.dice.randint(0, 4)):
            cell = f"Text1({self.dice.choice((1, 1, 9, self.dice.randint(1, 19)))})"
            keys = self.dice.choices(FREE_KEYS, k=self.dice.randint(1, 8))
            if self.dice.random() < 0.5:
                keys = ["<S-HOME>", *keys]
            if self.dice.random() < 0.1:
                yield ["clip", "pegado ñ"]
                keys = [self.dice.choice(("<C-V>", "<S-INS>")), *keys]
            yield ["type", cell, _up_to_enter(keys)]
        if self.dice.random() < 0.1:
            yield ["type", "Text1(1)", ["<S-HOME>", self.dice.choice(("<BS>", "<DEL>"))]]
            yield self._menu_entry(self.dice.choice(("datosiniciales", "calculos")))
        if self.dice.random() < 0.05:
            yield ["menu", "Regresar"]
        yield from self._go_to(self.dice.choice(("Form3", "Form4", "Form5", "Form6")))

    def _pick(self, list_name, text):
        """A pick of the item with that text."""
        control = self.model.control(list_name)
        item = control.items.index(text) if control else 0
        return ["pick", list_name, item, self.dice.choice(("enter", "mouse"))]

    def _plan(self):
        dice = self.dice
        yield from self._go_to("Form3")
        if self._here() != "Form3":
            return
        if self.model.screen.Command1.Text == PLAN_FIXED and dice.random() < 0.4:
            yield self._pick("Combo1(0)", dice.choice("13"))
        if self._here() == "Form3" and self.model.screen.Command1.Text != PLAN_FIXED:
            yield self._pick("Combo1(0)", dice.choice("133"))
            yield self._pick("Combo1(1)", dice.choice("123"))
            yield ["click", "Command1"]
        record = self.model.record
        days, tasks = min(record.NumJornadas, 3), min(record.NumTareas, 3)
        pairs = [(d, t) for d in range(1, days + 1) for t in range(1, tasks + 1)]
        if dice.random() < 0.3:
            dice.shuffle(pairs)
        totals = {t: dice.randint(1, 6) for t in (1, 2, 3)}
        for d, t in pairs:
            if self._here() != "Form3":
                return
            total = totals[t] if dice.random() < 0.95 else dice.randint(1, 6)
            thirty = dice.randint(0, total)
            hours = str(dice.randint(1, 14))
            texts = [str(d), str(t), hours, str(thirty), str(total - thirty), str(total)]
            if dice.random() < 0.1:
                texts[dice.randrange(3, 6)] = str(dice.randint(1, 6))
            for i, text in enumerate(texts, 2):
                yield self._pick(f"Combo1({i})", text)
                if self._here() != "Form3":
                    return
            yield ["click", "Command2"]

    def _reopened_plan(self):
        """The two numbers touched again, and what the first face refuses."""
        yield from self._go_to("Form3")
        if self._here() == "Form3":
            yield self._pick(f"Combo1({self.dice.randint(0, 1)})", "1")
        if self.dice.random() < 0.5:
            yield ["click", "Command1"]
        if self.dice.random() < 0.3:
            yield ["menu", "datosdeempresa"]

    def _browse(self):
        """A while of aimless clicks on one screen, "Regresar" and "Salir" among them."""
        dice = self.dice
        here = dice.choice(("Form2", "Form3", "Form4", "Form5", "Form6", "Form6"))
        yield from self._go_to(here)
        for _ in range(dice.randint(2, 8)):
            if dice.random() < 0.15:
                yield dice.choice((["menu", "salir"], ["menu", "Regresar"], ["menu", "imprimir"]))
            yield self._stray() or ["clip", "7"]

    def _all_tasks(self):
        yield from self._go_to("Form4")
        for t in range(1, min(max(self.model.record.NumTareas, 1), 3) + 1):
            if self._here() != "Form4":
                return
            yield self._pick("Combo1", str(t))
            if self.dice.random() < 0.3:
                yield ["click", "Command3"]
            yield from self._contaminants(t)
            yield ["click", "Command1"]

    def _contaminants(self, t):
        dice = self.dice
        marks = additive_marks(dice, t)
        for c in range(1, 7):
            if self._here() != "Form4" or not self.model.control(f"Text1({5 * c - 4})").Visible:
                return
            daily = limit(dice, self.model.separator)
            short = dice.choice((0, daily * 2, limit(dice, self.model.separator)))
            if short and dice.random() < 0.04:
                daily = 0
            yield ["type", f"Text1({5 * c - 4})", ["<S-HOME>", *dice.choice(NAMES)]]
            yield ["type", f"Text1({5 * c - 3})", ["<BS>", *f"{daily:g}"]]
            digits = "9" * 400 if dice.random() < 0.004 else f"{short:g}"
            yield ["type", f"Text1({5 * c - 2})", ["<BS>", *digits]]
            yield ["type", f"Text1({5 * c - 1})", [str(marks[c - 1])]]
            yield ["double", f"Text3({c - 1})"]
            if dice.random() < 0.5:
                yield ["double", f"Text3({c - 1})"]
            yield self._pick(f"Combo13({c - 1})", dice.choice(("mg/m3", "ppm")))

    def _open_cells(self):
        """Visible unlocked sample cells of the sheet, by row."""
        rows = {}
        for i, cell in self.model.screen.Text1.items():
            if 7 <= i % 18 <= 12 and cell.Visible and not cell.Locked:
                rows.setdefault(i // 18, []).append(i)
        return rows

    def _day(self):
        dice = self.dice
        yield from self._go_to("Form5")
        if self._here() != "Form5":
            return
        days = self.model.record.NumJornadas
        day = dice.randint(1, days) if 1 <= days <= 3 else dice.randint(1, 3)
        yield self._menu_entry(LAY_OUT[day])
        if self._here() != "Form5":
            return
        samples = dice.randint(2, 6)
        for row, cells in self._open_cells().items():
            if dice.random() < 0.2:
                samples = dice.randint(2, 6)
            for m in range(samples):
                if self._here() != "Form5":
                    return
                if dice.random() < 0.995:
                    yield ["type", f"Text1({cells[m]})", list(self._measurement(row))]
        yield from self._chain((1, 2, 3, 4, 5, 6, 7, 8))

    def _measurement(self, row):
        dice = self.dice
        if dice.random() < 0.02 or self._here() != "Form5":
            return dice.choice(("0", "0.0", "5.", "9" * 20, "0.00001", "1.", "00.5"))
        try:
            daily = abs(LeerValor(self.model.screen.Text1[row * 18 + 2].Text)) or 1.0
        except ErrorEjecucion:
            daily = 1.0
        if dice.random() < 0.03:
            return f"{min(daily * 3, 1e9):.6g}"
        value = min(daily * 10 ** dice.uniform(-1.7, 0.2), 1e12)
        if self.model.separator == "," and dice.random() < 0.9:
            value += 2  # a mean below 1 reads back as 0 there
        return f"{value:.{dice.randint(0, 3)}f}" if value > 2 else f"{value:.3f}"

    def _chain(self, buttons):
        for b in buttons:
            for _ in range(2 if self.dice.random() < 0.1 else 1):
                if self._here() != "Form5":
                    return
                yield ["click", f"Command{b}"]

    def _recovered_day(self):
        dice = self.dice
        yield from self._go_to("Form5")
        if self._here() != "Form5":
            return
        record = self.model.record
        stored = [d for d in (1, 2, 3) if record.sheet(d)[3] and d <= record.NumJornadas]
        day = dice.choice(stored) if stored and dice.random() < 0.85 else dice.randint(1, 3)
        yield self._menu_entry(TAKE_UP_AGAIN[day])
        if dice.random() < 0.3 and self._here() == "Form5":
            rows = self._open_cells()
            for row in dice.sample(sorted(rows), min(len(rows), 2)):
                cell = dice.choice(rows[row])
                yield ["type", f"Text1({cell})", ["<BS>", *self._measurement(row)]]
        if dice.random() < 0.1 and self._here() == "Form5":
            yield from self._chain((1,))
            for cell in itertools.chain(*self._open_cells().values()):
                empty = self._here() != "Form5" or not self.model.screen.Text1[cell].Text
                if cell < 108 and not empty:
                    yield ["type", f"Text1({cell})", ["<BS>"]]
            yield from self._chain((2, 3))
        start = dice.choice((1, 1, 1, 8))
        yield from self._chain(range(start, 9))

    def _final(self):
        yield from self._go_to("Form6")
        yield ["click", "Command1"]
        if self.dice.random() < 0.6:
            self.next_file = self._some_name()
            yield self._menu_entry("guardararchivo")

    def _again(self):
        yield ["restart"]
        self.fresh = True

    # Straying.

    def _visible(self, kind):
        controls = self.model.screen.controls.items()
        return [n for n, c in controls if c.kind == kind and c.Visible]

    def _stray(self):
        return self.dice.choice(
            (self._stray_menu, self._stray_button, self._stray_keys, self._stray_keys,
             self._stray_list, self._stray_list, self._stray_cell)
        )()  # fmt: skip

    def _stray_menu(self):
        dice, screen = self.dice, self.model.screen
        if dice.random() < 0.05:
            return ["close"]
        if dice.random() < 0.1:
            return ["reader", dice.choice(screen.menu)[0]]
        if dice.random() < 0.4:
            title, _, entries = dice.choice(screen.menu)
            if entries and dice.random() < 0.7 and title != "regresar":
                return ["menumouse", title, dice.choice(entries)[0]]
            return ["menumouse", title]
        name = dice.choice(list(screen.entry_names()))
        return None if name == "regresar" else ["menu", name]

    def _stray_button(self):
        buttons = self._visible("button")
        how = self.dice.choice(("click", "click", "space"))
        return [how, self.dice.choice(buttons)] if buttons else None

    def _stray_keys(self):
        cells = self._visible("cell")
        if not cells:
            return None
        cell = self.dice.choice(cells)
        filtered = self.model.screen.is_filtered(cell)
        keys = FILTERED_KEYS if filtered else FREE_KEYS
        chosen = self.dice.choices(keys, k=self.dice.randint(1, 6))
        return ["type", cell, _up_to_enter(chosen)]

    def _stray_list(self):
        list_boxes = self._visible("list")
        if not list_boxes:
            return None
        name = self.dice.choice(list_boxes)
        list_box = self.model.control(name)
        luck = self.dice.random()
        if luck < 0.4:
            return ["pick", name, self.dice.randrange(len(list_box.items)),
                    self.dice.choice(("enter", "mouse", "esc"))]  # fmt: skip
        if luck < 0.43:
            return ["drop", name, "2"]
        if luck < 0.5:
            return ["wheel", name]
        if luck < 0.6 or list_box.index is None:
            return ["listkeys", name, [self.dice.choice(("a", "1", "m", "<BS>", "<DEL>", " "))]]
        if list_box.index < 0:
            return ["listkeys", name, ["<DOWN>"]]
        return ["listkeys", name, [self.dice.choice(("<DOWN>", "<UP>"))]]

    def _stray_cell(self):
        cells = self._visible("cell")
        if self.dice.random() < 0.2:
            return ["clip", self.dice.choice(("42", "1.5", "texto", "-3"))]
        if not cells:
            return None
        if self.dice.random() < 0.3:
            return self._other_way_in(self.dice.choice(cells))
        if self.dice.random() < 0.4:
            return ["im", self.dice.choice(cells), self.dice.choice(("5", "é", "12.5"))]
        return ["double", self.dice.choice(cells)]

    def _other_way_in(self, cell):
        """The roads into a cell that are neither keys nor input methods."""
        if not self.model.screen.is_filtered(cell):
            return ["context", cell, "+V"]
        if self.dice.random() < 0.5:
            return ["drop", cell, "12"]
        return ["context", cell, self.dice.choice(("+V", "+X", "+Z"))]
