#!/usr/bin/env python3
"""A whole evaluation worked out by the model: what was typed goes in, every figure comes out.

    python3 tests/lockstep/evaluation.py FILE.doc

takes from an evaluation file the plan, the contaminants and the samples alone, works out its days
and its final table, tells each cell that the file holds otherwise, and prints the rows of
tour/expected.cpp. The exit status is 1 if a cell differs.
"""

import sys

from model import Model
from record import EvaluacionRecord, read_evaluation

LAY_OUT = ("introprimero", "introsegundo", "introtercero")
SAMPLES = tuple(18 * row + column for row in range(18) for column in range(7, 13))
NAME = 2  # of the final table: it is noted with the contaminants
BUTTONS = tuple(f"Command{i}" for i in range(1, 9))


def _act(model, *action):
    assert model.applicable(action), action
    model.act(action)
    assert model.waiting_on is None, (action, model.waiting_on)


def work_out(record: EvaluacionRecord, samples: dict) -> None:
    """Calculates all days of the plan and the final table.

    `samples` gives the text of a sample by day, from 1, and index of its cell in `Text1`.
    """
    model = Model()
    model.record = record
    model.go_to("Form5")
    for day in range(1, record.NumJornadas + 1):
        _act(model, "menu", LAY_OUT[day - 1])
        for cell in SAMPLES:
            model.control(f"Text1({cell})").Text = samples.get((day, cell), "")
        for button in BUTTONS:
            if model.control(button).Visible:
                _act(model, "click", button)
    model.go_to("Form6")
    _act(model, "click", "Command1")


def _again(record: EvaluacionRecord, data: bytes) -> EvaluacionRecord:
    """The same evaluation without its results, worked out."""
    samples = {}
    for day in (1, 2, 3):
        sheet = record.sheet(day)
        samples.update({(day, cell): sheet[cell + 1] for cell in SAMPLES})
    again = EvaluacionRecord()
    read_evaluation(again, data)
    for day in (1, 2, 3):
        again.sheet(day).elements = dict.fromkeys(again.sheet(day).elements, "")
    for row, column in again.HojaFinal.elements:
        if column != NAME:
            again.HojaFinal[row, column] = ""
    work_out(again, samples)
    return again


def _differences(again, record):
    tables = [(f"day {day}", again.sheet(day), record.sheet(day)) for day in (1, 2, 3)]
    for name, ours, theirs in [*tables, ("final table", again.HojaFinal, record.HojaFinal)]:
        for place, text in ours.elements.items():
            if text != theirs[place]:
                yield f"{name}, {place}: {text!r} here, {theirs[place]!r} in the file"


def _quoted(texts):
    return ", ".join(f'"{text}"' for text in texts)


def _print_rows(record):
    for day in range(1, record.NumJornadas + 1):
        index, probability, *sentences, passed = (record.sheet(day)[i] for i in range(397, 402))
        print(f"    {{{_quoted((index, probability, passed))},\n     {_quoted(sentences)}}},")
    for row in range(1, 19):
        print(f"    {{{_quoted(record.HojaFinal[row, column] for column in range(3, 10))}}},")


def main():
    with open(sys.argv[1], "rb") as file:
        data = file.read()
    record = EvaluacionRecord()
    read_evaluation(record, data)
    again = _again(record, data)
    differences = list(_differences(again, record))
    _print_rows(again)
    print(*differences, sep="\n", file=sys.stderr, end="\n" if differences else "")
    print(f"{3 * 401 + 18 * 9} cells compared, {len(differences)} differ", file=sys.stderr)
    return 1 if differences else 0


if __name__ == "__main__":
    sys.exit(main())
