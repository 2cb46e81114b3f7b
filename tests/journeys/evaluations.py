#!/usr/bin/env python3
"""Whole evaluation files, computed without the program, that the journeys type and must end with.

    python3 tests/journeys/evaluations.py FOLDER

Each file holds what a user types (company, plan, agents, measurements) and everything that must
come out: the cells of each day, its answers and sentences, the final table. The figures are those
of the independent model in tests/lockstep.
"""

import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "lockstep"))
from arithmetic import plain_decimal  # noqa: E402
from evaluation import NAME, work_out  # noqa: E402
from record import EvaluacionRecord, write_evaluation  # noqa: E402

PLACES = [(task, place) for task in (1, 2, 3) for place in range(1, 7)]

# The boxes that a user leaves alone: the person in charge starts with a blank.
ONLY_NAMED = ["---"] * 7 + [" "] + ["---"] * 10

# Name, VLA-ED, VLA-EC (0 for none), sampling time, additive group, unit.
AGENTS = {
    1: [("Estireno", 86, 172, 15, 1, "mg/m3"), ("Cumeno", 100, 250, 15, 1, "mg/m3"),
        ("Acetona", 1210, 0, 30, 0, "mg/m3"), ("Mesitileno", 100, 0, 30, 1, "mg/m3"),
        ("Dióxido de azufre", 0.5, 1, 15, 6, "ppm"), ("Cloro", 0.6, 0.5, 15, 6, "ppm")],
    # The group of 4 starts in the third row: its limit goes to the cell of the row above.
    2: [("n-Hexano", 72, 0, 30, 0, "mg/m3"), ("Metanol", 266, 0, 30, 0, "mg/m3"),
        ("Butanona", 600, 900, 15, 4, "mg/m3"), ("Isopropanol", 500, 1000, 15, 4, "mg/m3"),
        ("Ciclohexano", 700, 0, 30, 0, "mg/m3"), ("n-Heptano", 2085, 0, 30, 0, "mg/m3")],
    # Group 6 stands in two tasks; group 2 has one member; nobody looks for group 9 on a short time.
    3: [("Ácido nítrico", 1.2, 2.6, 15, 6, "mg/m3"), ("Ácido sulfúrico", 0.7, 1.5, 15, 6, "mg/m3"),
        ("Plomo", 0.15, 0, 30, 0, "mg/m3"), ("Ozono", 0.1, 0.2, 15, 2, "ppm"),
        ("Níquel", 0.9, 0, 30, 9, "mg/m3"), ("Cobre", 0.2, 0, 30, 9, "mg/m3")],
}
HOURS = {(1, 1): 8, (1, 2): 3, (1, 3): 2, (2, 1): 6, (2, 2): 5, (2, 3): 1,
         (3, 1): 7, (3, 2): 2, (3, 3): 4}

# Concentrations as parts of VLA-ED: the level of a row, and how its samples spread around it.
LEVELS = (0.31, 0.12, 0.05, 0.21, 0.08, 0.17, 0.26, 0.09, 0.14)
SPREADS = (1.0, 1.34, 0.81, 1.62, 0.67, 1.17)
PEAKS = {
    (2, 3, 3, 2): 3.5,   # day 2, task 3, third agent, second sample: over three times its VLA-ED
    (3, 2, 4, 3): 2.1,   # day 3, task 2, fourth agent, third sample: over its VLA-EC
}


class Evaluation:
    """What is typed."""

    def __init__(self, company, days, tasks):
        self.record = EvaluacionRecord()
        for field, text in enumerate(company, 1):
            self.record.DatosEmpresa[field] = text
        self.record.NumJornadas, self.record.NumTareas = days, tasks
        self.samples = {}

    def line(self, day, task, hours, minutes30, minutes15):
        """A line of the plan."""
        self.record.TiempoExposicion[day, task] = float(hours)
        self.record.Muestras30[day, task] = minutes30
        self.record.Muestras15[day, task] = minutes15
        self.record.NumContaminantes[task] = minutes30 + minutes15

    def agents(self, task, agents):
        for place, (name, ed, ec, minutes, group, unit) in enumerate(agents, 1):
            spot = task, place
            self.record.NombreContaminante[spot] = name
            self.record.VlaEd[spot], self.record.VlaEc[spot] = float(ed), float(ec)
            self.record.TiempoMuestreo[spot], self.record.Aditivo[spot] = minutes, group
            self.record.Unidades[spot] = unit
            self.record.HojaFinal[6 * (task - 1) + place, NAME] = name

    def measure(self, day, task, place, samples):
        first = (6 * (task - 1) + place - 1) * 18 + 7
        for m, sample in enumerate(samples):
            self.samples[day, first + m] = sample

    def write(self, folder, name):
        work_out(self.record, self.samples)
        with open(os.path.join(folder, name + ".doc"), "wb") as f:
            f.write(write_evaluation(self.record))


def one_day():
    """One day, one task, an additive pair with an agent without VLA-EC."""
    e = Evaluation(["Fundiciones del Narcea"] + ONLY_NAMED, 1, 1)
    e.line(1, 1, 7, 1, 2)
    e.agents(1, [("Plomo", 0.15, 0, 30, 0, "mg/m3"), ("Tolueno", 192, 384, 15, 2, "mg/m3"),
                 ("Xileno", 221, 442, 15, 2, "mg/m3")])
    e.measure(1, 1, 1, ["0.031", "0.052", "0.044", "0.038", "0.061"])
    e.measure(1, 1, 2, ["41", "58.5", "37", "62", "49", "55"])
    e.measure(1, 1, 3, ["22", "35", "19"])
    return e


def three_days():
    """Three days, three tasks, six agents in each."""
    company = ["Químicas Ñandú & Cía, S.A.", "La Huelga", "7-C", "Ctra. de Avilés", "s/n",
               "Corvera", "Asturias", "02/05/2024", "Íñigo Muñiz", "A-50000002", "985 000 000",
               "laboratorio@nandu.example", "www.nandu.example", "112", "3", "Planta 2", "14",
               "Decapado, lavado y pintura", "EV-2024-19"]
    e = Evaluation(company, 3, 3)
    for (day, task), hours in HOURS.items():
        minutes15 = sum(1 for agent in AGENTS[task] if agent[3] == 15)
        e.line(day, task, hours, 6 - minutes15, minutes15)
    for task, agents in AGENTS.items():
        e.agents(task, agents)
    for day in (1, 2, 3):
        for task, place in PLACES:
            row = 6 * (task - 1) + place - 1
            limit = AGENTS[task][place - 1][1]
            samples = []
            for m in range(2 + (row + day) % 5):
                part = PEAKS.get((day, task, place, m + 1))
                if part is None:
                    part = LEVELS[(row + 2 * day) % 9] * SPREADS[(m + row * day) % 6]
                samples.append(plain_decimal(float(f"{limit * part:.3g}")))
            e.measure(day, task, place, samples)
    return e


def restarted():
    """One day and two tasks after a start with three and three, whose traces stay in the file."""
    e = Evaluation(["Imprenta Vela"] + ONLY_NAMED, 1, 2)
    e.line(2, 1, 6, 1, 2)
    e.line(1, 2, 4, 0, 2)
    e.line(1, 1, 5, 1, 1)
    # The third agent of the first task was entered before the restart.
    e.agents(1, [("Tricloroetileno", 55, 0, 30, 0, "mg/m3"),
                 ("Acetona", 1210, 2420, 15, 0, "mg/m3"), ("Fenol", 8, 16, 15, 0, "mg/m3")])
    e.agents(2, [("Etanol", 1910, 1910, 15, 1, "mg/m3"), ("Amoníaco", 14, 36, 15, 1, "mg/m3")])
    e.measure(1, 1, 1, ["12", "18.4", "9.9"])
    e.measure(1, 1, 2, ["300", "280", "410", "355"])
    e.measure(1, 2, 1, ["640", "505", "710"])
    e.measure(1, 2, 2, ["4", "5.5"])
    return e


def main():
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    for make in (one_day, three_days, restarted):
        make().write(folder, make.__name__)


if __name__ == "__main__":
    main()
