"""Compares what the window shows with what the model expects."""

import os
import re
import time

from controls import DialogQuestion, ErrorBox, FileDialog, MessageBox, PrintDialog

# Left open by the rules, hence not compared.
UNSAID = {
    "Form1.Label2/Label3": "the wording of the two credits",
    "Form1.Picture1": "pictures",
    "Form3.Text2": "a coloured mark without a role",
    "Form4.Text1/Text3 Locked before the first pick": "the rows are hidden until then",
    "colours": "all but those of the sample cells once a handler has set them",
    "other labels": "a screen may carry headings of its own",
    "the run-time's sentence": "only its box and the exit status are told",
    "the file dialog's questions": "the toolkit's own words",
    "a screen whose load has failed": "what stands behind the run-time's box",
    "geometry, fonts, focus, tool tips": "no part of this test",
}
_NOT_COMPARED = {("Form3", "Text2")}
_CLOCK = re.compile(r"\d\d:\d\d:\d\d {5}\d\d:\d\d:\d\d\Z", re.ASCII)
_FIELDS = ("class", "text", "visible", "enabled", "locked")
_REDS = {"250": "#fa0000", "255": "#ff0000"}


# The tab order where it is told.
TAB_ORDER = {
    "Form2": [
        f"Text1({i})"
        for i in (1, 4, 3, 5, 2, 6, 7, 11, 10, 12, 13, 15, 14, 16, 18, 19, 8, 17, 9)
    ],
    "Form3": ["Combo1(0)", "Combo1(1)", "Command1", "Command2"]
    + [f"Combo1({i})" for i in range(2, 8)]
    + [f"Text1({i})" for i in range(54)],
    "Form4": [f"Combo13({i})" for i in range(6)]
    + [f"Text3({i})" for i in range(6)]
    + [f"Text1({5 * r + c})" for c in (1, 2, 3, 4, 0) for r in range(6)]
    + ["Command1", "Command3", "Combo1"],
    "Form5": [f"Text1({18 * r + c})" for r in range(18) for c in range(7, 13)],
}


def _clock_is_right(text):
    """Whether the clock shows the present time, or did in the last seconds."""
    if not _CLOCK.match(text):
        return False
    now = time.time()
    moments = (time.localtime(now - s) for s in range(-1, 30))
    return any(time.strftime("%d:%m:%y     %H:%M:%S", moment) == text for moment in moments)


class Comparison:
    """One process against the model; the system colours are those first seen."""

    def __init__(self, model):
        self.model = model
        self.colors = dict(_REDS)
        self.seen_screen = None

    def differences(self, process):
        """Every disagreement, one line each."""
        found = []
        if process.error:
            found.append(f"driver: {process.error}")
        found += self._front(process.modal)
        if not self.model.half_loaded:
            found += self._window(process)
            found += self._controls(process.controls)
        written = self.model.written
        if written:
            found += self.file_differences(written)
        return found

    def file_differences(self, path):
        expected = self.model.files[path]
        if not os.path.exists(path):
            return [f"file {os.path.basename(path)}: not written"]
        with open(path, "rb") as opened:
            written = opened.read()
        if written == expected:
            return []
        name = os.path.basename(path)
        lines, expected_lines = written.split(b"\r\n"), expected.split(b"\r\n")
        for number, (line, expected_line) in enumerate(zip(lines, expected_lines), 1):
            if line != expected_line:
                return [f"file {name} line {number}: program {line!r}, model {expected_line!r}"]
        return [f"file {name}: program {len(lines) - 1} lines, model {len(expected_lines) - 1}"]

    def _front(self, modal):
        waiting_on = self.model.waiting_on
        expected = self._expected_modal(waiting_on)
        told = None if modal is None else {key: modal.get(key) for key in (expected or modal)}
        if told is not None and "buttons" in told and isinstance(told["buttons"], list):
            told["buttons"] = sorted(told["buttons"])
        return [] if told == expected else [f"in front: program {modal}, model {expected}"]

    @staticmethod
    def _expected_modal(waiting_on):
        if waiting_on is None:
            return None
        if isinstance(waiting_on, MessageBox):
            icon, buttons, default = MessageBox.STYLES[waiting_on.style]
            return {
                "kind": "box",
                "text": waiting_on.text,
                "title": waiting_on.title,
                "icon": icon,
                "buttons": sorted(buttons),
                "default": default,
            }
        if isinstance(waiting_on, ErrorBox):
            return {"kind": "box", "title": "Velmora", "icon": "Critical", "buttons": ["ok"]}
        if isinstance(waiting_on, DialogQuestion):
            return {"kind": "box", "buttons": ["no", "yes"]}
        if isinstance(waiting_on, FileDialog):
            return {"kind": "file", "title": " Guardar datos"}
        assert isinstance(waiting_on, PrintDialog)
        return {"kind": "print"}

    def _window(self, process):
        screen = self.model.screen
        name = type(screen).__name__
        expected = [name, screen.title]
        menu = [[n, text, [list(row) for row in entries]] for n, text, entries in screen.menu]
        found = []
        if process.window != expected:
            found.append(f"window: program {process.window}, model {expected}")
        order = TAB_ORDER.get(name, ())
        seen = [control for control in process.tabs or () if control in set(order)]
        if order and order[0] in seen:  # a ring: where the first Tab leads is open
            start = seen.index(order[0])
            seen = seen[start:] + seen[:start]
        if seen != list(order):
            found.append(f"tab order of {name}: program {seen}")
        if process.menu != menu:
            found.append(f"menu: program {process.menu}, model {menu}")
        return found

    def _controls(self, all_seen):
        screen = self.model.screen
        screen_name = type(screen).__name__
        just_entered = screen is not self.seen_screen
        self.seen_screen = screen
        found = []
        for name, control in screen.controls.items():
            seen = all_seen.get(name)
            if seen is None:
                found.append(f"{name}: missing")
                continue
            if name == screen.clock:
                if not (just_entered and seen[1] == "") and not _clock_is_right(seen[1]):
                    found.append(f"{name}: the clock shows {seen[1]!r}")
                continue
            expected = control.state()
            if seen[:5] != list(expected):
                found += self._one_control(name, seen, expected)
            if len(seen) > 7:
                found.append(f"{name}: stands twice in the window")
            if control.kind == "list" and seen[5] != list(control.items):
                found.append(f"{name} items: program {seen[5]}, model {control.items}")
            if control.BackColor is not None:
                found += self._color(name, "back", seen[5], control.BackColor)
                found += self._color(name, "fore", seen[6], control.ForeColor)
        if len(all_seen) > len(screen.controls):
            for name in all_seen.keys() - screen.controls.keys():
                free = name.startswith(("Label", "Picture"))
                if not free and (screen_name, name) not in _NOT_COMPARED:
                    found.append(f"{name}: not a control of {screen_name}")
        return found

    @staticmethod
    def _one_control(name, seen, expected):
        return [
            f"{name} {field}: program {v!r}, model {d!r}"
            for field, v, d in zip(_FIELDS, seen, expected)
            if d is not None and v != d
        ]

    def _color(self, name, which, seen, color):
        if color.startswith("initial"):
            return []
        expected = self.colors.setdefault(color, seen)
        if seen == expected:
            return []
        return [f"{name} {which} colour: program {seen}, model {color} ({expected})"]
