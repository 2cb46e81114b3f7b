#!/usr/bin/python3
"""Opens reports in Chromium as their readers do, and checks them with a validator of HTML.

    browser_test.py <velmora-informe> <folder with axe-core and vnu-jar> <folder for the pictures>

Needs chromium, chromium-driver, python3-selenium, a Java runtime and poppler-utils. Each page is
looked at at three widths and printed; pictures and prints stay in the folder, for a person to look at.
"""

import base64
import pathlib
import re
import subprocess
import sys
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

HERE = pathlib.Path(__file__).resolve().parent
EXAMPLES = HERE.parents[2] / "examples"
INFORME, TOOLS, PICTURES = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
WIDTHS = (360, 800, 1400)

HOSTILE = "</title></style></svg><script>self.taken=1</script><img src=x onerror=self.taken=1>'\"]]>&"


def hostile_evaluation() -> bytes:
    """The example with every text hostile, control characters and all; two MiB in one of them."""
    lines = (EXAMPLES / "tres-dias-tres-tareas.doc").read_bytes().split(b"\r\n")
    hostile = (HOSTILE.replace('"', "") + "\x01\x1b[31m\x7f").encode("cp1252")
    for i, line in enumerate(lines):
        # Cells that the second reading takes for numbers stay, every seventh excepted.
        if line.startswith(b'"') and (not re.fullmatch(rb'"[\d.]*"', line) or i % 7 == 0):
            lines[i] = b'"' + hostile + line[1:]
    lines[0] = b'"' + hostile + b"<" * (2 << 20) + b'"'
    return b"\r\n".join(lines)


def make_reports() -> dict[str, pathlib.Path]:
    """The pages by name."""
    PICTURES.mkdir(parents=True, exist_ok=True)
    (PICTURES / "hostile.doc").write_bytes(hostile_evaluation())
    # Cut short in its first day: remarks, a day without figures.
    whole = (EXAMPLES / "tres-dias-tres-tareas.doc").read_bytes().split(b"\r\n")
    (PICTURES / "cut.doc").write_bytes(b"\r\n".join(whole[:700]))
    sources = {
        "full": EXAMPLES / "tres-dias-tres-tareas.doc",
        "plan": EXAMPLES / "plan-dia-trabajado.doc",
        "hostile": PICTURES / "hostile.doc",
        "cut": PICTURES / "cut.doc",
    }
    pages = {}
    for name, source in sources.items():
        pages[name] = PICTURES / f"{name}.html"
        subprocess.run([INFORME, "--reemplazar", f"--salida={pages[name]}", source], check=True)
    return pages


def open_browser() -> webdriver.Chrome:
    options = Options()
    options.binary_location = "/usr/bin/chromium"
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                     f"--user-data-dir={PICTURES / 'profile'}"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


class BrowserTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.pages = make_reports()
        cls.browser = open_browser()
        cls.browser.set_script_timeout(300)

    @classmethod
    def tearDownClass(cls) -> None:
        cls.browser.quit()

    def each_page(self):
        for name, path in self.pages.items():
            self.browser.get(path.resolve().as_uri())
            with self.subTest(page=name):
                yield name

    def test_the_validator_finds_nothing(self) -> None:
        found = subprocess.run(
            ["java", "-jar", TOOLS / "node_modules/vnu-jar/build/dist/vnu.jar", "--format", "gnu",
             *self.pages.values()], capture_output=True, text=True)
        self.assertEqual((found.returncode, found.stderr), (0, ""))

    def test_axe_finds_nothing(self) -> None:
        axe = (TOOLS / "node_modules/axe-core/axe.min.js").read_text(encoding="utf-8")
        for _ in self.each_page():
            for width in (WIDTHS[0], WIDTHS[-1]):
                self.set_width(width, 900)
                self.browser.execute_script(axe)
                result = self.browser.execute_async_script(
                    "axe.run().then(arguments[arguments.length - 1])")
                self.assertGreater(len(result["passes"]), 10)
                found = [(rule["id"], [node["html"][:200] for node in rule["nodes"]][:3])
                         for rule in result["violations"]]
                self.assertEqual(found, [])

    def test_no_page_is_wider_than_the_window(self) -> None:
        for name in self.each_page():
            for width in WIDTHS:
                self.set_width(width, 900)
                wide = self.browser.execute_script("return document.documentElement.scrollWidth")
                self.assertLessEqual(wide, width)
                picture = self.browser.execute_cdp_cmd(
                    "Page.captureScreenshot", {"captureBeyondViewport": True})
                (PICTURES / f"{name}-{width}.png").write_bytes(base64.b64decode(picture["data"]))

    def test_no_text_of_the_file_does_anything(self) -> None:
        for _ in self.each_page():
            seen = self.browser.execute_script(
                "return [typeof self.taken, document.querySelectorAll('script, img, iframe, "
                "object, embed, link, base, form, [onerror], [onload]').length]")
            self.assertEqual(seen, ["undefined", 0])
            self.assertEqual(self.browser.get_log("browser"), [])
            self.assertEqual(self.browser.execute_script(
                "return performance.getEntriesByType('resource').length"), 0)

    def test_the_hostile_texts_are_shown(self) -> None:
        self.browser.get(self.pages["hostile"].resolve().as_uri())
        heading = self.browser.execute_script("return document.querySelector('h1').textContent")
        self.assertIn("</style></svg><script>self.taken=1</script>", heading)

    def test_each_printed_page_has_its_head(self) -> None:
        for name in self.each_page():
            text = self.print_page(name)
            pages = text.rstrip("\f").split("\f")
            for number, page in enumerate(pages, 1):
                self.assertIn(f"Página {number} de {len(pages)}", page)
                if name == "full":
                    lines = page.split("\n")
                    self.assertRegex(lines[0], r"^ *Talleres Ebro Pinturas, S\.L\. +Evaluación EV-2024-07$")

    def test_the_days_lie_on_a_page_each(self) -> None:
        self.browser.get(self.pages["full"].resolve().as_uri())
        pages = self.print_page("full").split("\f")
        for day in (1, 2, 3):
            of_day = [page for page in pages if f"resultados de la jornada {day}." in page]
            self.assertEqual(len(of_day), 1)
            self.assertIn("Formaldehído", of_day[0], "its last row")
            self.assertIn("Conclusión sobre la exposición corta", of_day[0])
        sizes = subprocess.run(["pdfinfo", "-l", "99", PICTURES / "full.pdf"], check=True,
                               capture_output=True, text=True).stdout
        kinds = re.findall(r"Page +\d+ size: +([\d.]+) x ([\d.]+)", sizes)
        self.assertEqual(sum(float(width) > float(height) for width, height in kinds), 3)

    def set_width(self, width: int, height: int) -> None:
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})

    def print_page(self, name: str) -> str:
        """Prints the page as a browser's own dialog does; its text, a form feed behind each page."""
        printed = self.browser.execute_cdp_cmd("Page.printToPDF", {
            "preferCSSPageSize": True, "printBackground": True})
        target = PICTURES / f"{name}.pdf"
        target.write_bytes(base64.b64decode(printed["data"]))
        return subprocess.run(["pdftotext", "-layout", target, "-"], check=True,
                              capture_output=True, text=True).stdout


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
