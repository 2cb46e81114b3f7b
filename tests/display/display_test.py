"""What the window system has of the program's window: its caption, and its size at first.

VELMORA names the program.
"""

import os
import re
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "accessibility"))

import desktop  # noqa: E402
from desktop import wait_for  # noqa: E402

# As they stand in the title bar on arrival, by the way there from the screen before.
CAPTIONS = (
    ((), ".     Velmora / h1"),
    (("Iniciar",), "     Velmora / h2"),
    (("Continuar", "Datos iniciales: Jornadas y Tareas"), "    Velmora / h3"),
    (("Continuar/Regresar", "Datos de empresa"), "     Velmora / h2"),
    (("Continuar", "Contaminantes"), " Velmora / h4"),
    (
        ("Continuar/Regresar", "Cálculos"),
        "Velmora / h5                          CÁLCULOS   Y   RESULTADOS ",
    ),
    (("Continuar/Regresar", "Resultado final"), " Velmora / h6"),
)


def told(*command, **environment):
    done = subprocess.run(command, env=os.environ | environment, capture_output=True, check=True)
    return done.stdout.decode()


def windows(**environment):
    """(identity, caption, width, height) of the program's windows on the display."""
    line = r'^ +(0x\w+) "(.*)": \("velmora" "velmora"\) +(\d+)x(\d+)'
    tree = told("xwininfo", "-root", "-tree", **environment)
    return [(i, name, int(w), int(h)) for i, name, w, h in re.findall(line, tree, re.M)]


class Caption(unittest.TestCase):
    def test_each_screen_gives_its_own_to_the_letter(self):
        program = desktop.Program(os.environ["VELMORA"])
        self.addCleanup(program.close)
        for way, caption in CAPTIONS:
            if len(way) == 1:
                program.press(*way)
            elif way:
                program.choose(*way)
            wait_for(caption, lambda: program.title() == caption)
            self.assertIn(caption, [name for _, name, _, _ in windows()])

    def test_the_window_bears_an_icon(self):
        program = desktop.Program(os.environ["VELMORA"])
        self.addCleanup(program.close)
        identity = next(i for i, name, _, _ in windows() if "Velmora" in name)
        self.assertIn("Icon (48 x 48)", told("xprop", "-id", identity, "_NET_WM_ICON"))


class FirstWindow(unittest.TestCase):
    """Under a window manager, on displays of many sizes."""

    def start(self, width, height):
        """The environment of a display of this size, with the program on it."""
        display, name = desktop.start_display(f"{width}x{height}")
        self.end_at_last(display)
        environment = {"DISPLAY": name}
        self.child("openbox", environment)
        wait_for("the window manager", lambda: self.root("_NET_SUPPORTING_WM_CHECK", environment))
        self.child(os.environ["VELMORA"], environment)
        return environment

    def child(self, program, environment):
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self.end_at_last(subprocess.Popen([program], env=os.environ | environment, **quiet))

    def end_at_last(self, process):
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)

    @staticmethod
    def root(name, environment):
        return "window id" in told("xprop", "-root", name, **environment)

    @staticmethod
    def frame(environment):
        """Left, top, right and bottom of the window with its frame, once it has one."""
        for identity, name, width, height in windows(**environment):
            place = told("xwininfo", "-id", identity, **environment)
            if "Velmora / h1" not in name or "IsViewable" not in place:
                continue
            x, y = (int(n) for n in re.findall(r"Absolute upper-left [XY]: +(-?\d+)", place))
            extents = told("xprop", "-id", identity, "_NET_FRAME_EXTENTS", **environment)
            left, right, top, bottom = (int(n) for n in re.findall(r"\d+", extents))
            return x - left, y - top, x + width + right, y + height + bottom
        return None

    def test_it_fits_the_display(self):
        for width, height in ((640, 480), (800, 600), (1024, 768), (1920, 1080), (600, 1000)):
            with self.subTest(f"{width} x {height}"):
                environment = self.start(width, height)

                def fits():
                    frame = self.frame(environment)
                    if frame is None:
                        return False
                    left, top, right, bottom = frame
                    return left >= 0 and top >= 0 and right <= width and bottom <= height

                wait_for("a window that fits", fits)
                self.doCleanups()


if __name__ == "__main__":
    desktop.enter(("openbox", "xwininfo", "xprop"))
    unittest.main()
