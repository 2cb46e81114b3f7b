"""The programs among the other things of a Windows desktop: browser, printers, screen reader, displays
of many dots, task bar."""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from desktop import (
    EXAMPLES, PROGRAMS, TREE, WORK, Velmora, Windows, active, press, take_picture, unpack, wait_for,
    wait_for_keyboard,
)

sys.path.insert(0, str(TREE / "tests/printing"))

from print_server import PrintServer  # noqa: E402

NOTED = "abierto.txt"


class AtHome(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.windows = Windows(WORK / "en-casa")
        cls.root = unpack(cls.windows.drive / "programas")
        cls.set_browser()

    @classmethod
    def set_browser(cls):
        """Makes a program that notes what it opens the one for pages, on the disk and elsewhere."""
        browser = shutil.copy(PROGRAMS / "browser.exe", cls.windows.drive)
        opens = f'"{cls.windows.name(Path(browser))}" "%1"'
        for key, value in ((".html", "pagina"), ("pagina\\shell\\open\\command", opens),
                           ("http\\shell\\open\\command", opens)):
            cls.windows.run("reg", "add", "HKLM\\Software\\Classes\\" + key,
                            "/ve", "/d", value, "/f")

    def setUp(self):
        self.addCleanup(self.windows.end)
        (self.windows.drive / NOTED).unlink(missing_ok=True)

    def start(self, **environment):
        self.windows.environment.update(environment)
        return Velmora(self.windows, str(self.root / "velmora.exe"))

    def opened(self):
        """What the browser has been asked to open."""
        noted = self.windows.drive / NOTED
        wait_for("the browser", lambda: noted.exists() and noted.read_text("utf-8-sig"))
        return noted.read_text("utf-8-sig")

    def test_f1_opens_the_guide_in_the_browser_at_the_screens_section(self):
        self.start()
        press("/ h1", "F1")
        self.assertEqual(self.opened(), "file:///C:/programas/Velmora/guia.html#inicio")

    def test_the_report_opens_in_the_browser(self):
        shutil.copy(EXAMPLES / "tres-dias-tres-tareas.doc", self.windows.drive / "nuevo.doc")
        made = self.windows.run(str(PROGRAMS / "from_desktop.exe"),
                                str(self.root / "velmora-informe.exe"), "C:\\nuevo.doc")
        self.assertEqual(made, 0)
        self.assertEqual(self.opened().lower(), "c:\\nuevo.html")

    def test_screen_readers_are_told_the_window_by_the_toolkit(self):
        self.start()
        status, told = self.windows.ask(str(PROGRAMS / "names.exe"), "/ h1")
        self.assertEqual(status, 0)
        self.assertRegex(told, r"Velmora / h1\s+velmora::Window")

    def print_screen(self, *queues):
        """Prints the screen of the company; the print server with these queues."""
        folder = Path(tempfile.mkdtemp(prefix="velmora-impresoras"))
        folder.chmod(0o755)
        self.addCleanup(shutil.rmtree, folder)
        server = PrintServer(str(folder / "cups"), queues)
        self.addCleanup(server.close)
        velmora = self.start(**server.environment())
        velmora.menu("h1", 1)
        velmora.menu("h2", 4)
        press("^Velmora$", "alt+s")
        return velmora, server

    def test_without_a_printer_it_says_so(self):
        velmora, server = self.print_screen()
        wait_for_keyboard("^Velmora$")
        take_picture("sin-impresora")
        press("^Velmora$", "Return")
        self.assertEqual(velmora.leave("h2", titles=5), 0)
        self.assertEqual(server.jobs(), [])

    def test_the_page_is_printed_whole_even_after_a_cancel(self):
        velmora, server = self.print_screen("cola")
        wait_for_keyboard("^(Print|Imprimir)$")
        take_picture("impresora")
        press("^(Print|Imprimir)$", "Escape")
        wait_for("the job", server.finished)
        (job,) = server.jobs()
        self.assertEqual(velmora.leave("h2", titles=5), 0)
        self.check_page(Path(job))

    def check_page(self, job):
        """One page, which lies across, with nothing cut at the edge of what the printer prints."""
        edge = 18  # points that the printer leaves white, as its description says
        scale = 2  # dots in a point
        with job.open("rb") as opened:
            head = opened.read(1000)
        self.assertIn(b"%%Orientation: Landscape", head)
        pages = WORK / "pagina-%d.png"
        subprocess.run(["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-sDEVICE=pnggray",
                        f"-r{72 * scale}", f"-sOutputFile={pages}", job], check=True)
        (page,) = WORK.glob("pagina-*.png")
        ink = subprocess.run(["convert", page, "-format", "%@", "info:"], capture_output=True,
                             text=True, check=True).stdout
        # The paper stands upright: its left side is the top of what is printed.
        width, height, left, top = (int(number) for number in re.findall(r"\d+", ink))
        self.assertGreater(left, edge * scale + 1, "the first line is cut")
        self.assertGreater(width, 480 * scale)
        self.assertGreater(height, 680 * scale)

    def test_the_window_has_the_programs_icon(self):
        self.start()
        told = subprocess.run(["xprop", "-id", active()[0], "-notype", "-f", "_NET_WM_ICON", "32c",
                               "_NET_WM_ICON"], capture_output=True, text=True, check=True).stdout
        width, height, *dots = (int(number) for number in re.findall(r"\d+", told))
        self.assertEqual((width, height), (32, 32))
        shown = b"".join(dot.to_bytes(4, "little") for dot in dots[:width * height])
        drawn = subprocess.run(["convert", TREE / "assets/rendered/velmora-32.png", "-depth", "8",
                                "bgra:-"], capture_output=True, check=True).stdout
        off = sum(abs(one - other) for one, other in zip(shown, drawn, strict=True))
        # Drawn anew, its edges are other by some levels of 255.
        self.assertLess(off / len(drawn), 1)


if __name__ == "__main__":
    unittest.main()
