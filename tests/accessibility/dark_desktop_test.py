"""The program's boxes on desktops that would have them otherwise: one whose icons are white, for a
dark ground, and one that puts No before Yes.

VELMORA names the program; an argument that is a path does, too.
"""

import os
import sys
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(os.path.dirname(HERE), "printing"))

import desktop  # noqa: E402
import picture  # noqa: E402

SIZE = 48  # pixels of a themed icon


def white_icons(place):
    """A desktop's folders: settings that name a theme, whose icons are white squares."""
    icons = os.path.join(place, "data", "icons", "oscuro", "status")
    os.makedirs(icons)
    with open(os.path.join(os.path.dirname(icons), "index.theme"), "w") as opened:
        opened.write(
            "[Icon Theme]\nName=Oscuro\nComment=white\nDirectories=status\n"
            f"[status]\nSize={SIZE}\nType=Scalable\nMinSize=8\nMaxSize=512\n"
        )
    rows = ",\n".join([f'"{" " * SIZE}"'] * SIZE)
    for name in ("dialog-information", "dialog-question", "go-up", "go-previous"):
        with open(os.path.join(icons, f"{name}.xpm"), "w") as opened:
            opened.write(
                f'/* XPM */\nstatic char* i[] = {{\n"{SIZE} {SIZE} 1 1",\n"  c #FFFFFF",\n{rows}\n}};\n'
            )
    settings = os.path.join(place, "config")
    os.makedirs(settings)
    with open(os.path.join(settings, "kdeglobals"), "w") as opened:
        opened.write("[Icons]\nTheme=oscuro\n")
    return {
        "XDG_CURRENT_DESKTOP": "KDE",
        "KDE_SESSION_VERSION": "5",
        "XDG_CONFIG_HOME": settings,
        "XDG_DATA_DIRS": os.path.join(place, "data") + ":/usr/local/share:/usr/share",
    }


class Boxes(unittest.TestCase):
    def start(self, environment):
        program = desktop.Program(os.environ["VELMORA"], environment)
        self.addCleanup(program.close)
        program.press("Salir")
        return program, program.box()

    def place(self, program, node):
        return node.get_extents(program.atspi.CoordType.SCREEN)

    def test_yes_stands_before_no_where_the_desktop_has_it_behind(self):
        program, box = self.start({"XDG_CURRENT_DESKTOP": "GNOME"})
        yes, no = (self.place(program, program.find(name, within=box)) for name in ("Sí", "No"))
        self.assertLess(yes.x, no.x)
        self.assertEqual(yes.y, no.y)

    def test_the_sign_of_a_box_is_seen_where_the_desktops_own_is_white(self):
        program, box = self.start(white_icons(os.path.join(desktop.folder(), "dark")))
        sign = self.place(program, program.find("Información", within=box))

        def dark_part():
            shown = picture.of_display(os.path.join(desktop.folder(), "Xvfb_screen0"))
            icon = shown.cut(sign.x, sign.y, sign.width, sign.height)
            dark = sum(1 for row in icon.rows for grey in row if grey < 128)
            return dark / (sign.width * sign.height)

        # A disc in a square, less the white letter on it.
        desktop.wait_for("a dark disc", lambda: dark_part() > 0.4)


if __name__ == "__main__":
    if "VELMORA" not in os.environ and len(sys.argv) > 1 and os.path.exists(sys.argv[1]):
        os.environ["VELMORA"] = os.path.abspath(sys.argv.pop(1))
    desktop.enter()
    unittest.main()
