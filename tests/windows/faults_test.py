"""The whole program when the disk, the file or the name misbehaves, as on Debian: saving and restoring
pass over every failed step and say nothing, no other file appears, and the program can be used on."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import desktop
from desktop import EXAMPLES, Velmora, Windows, press, unpack, wait_for_keyboard

NOBODY = 65534
CONTENT = (EXAMPLES / "tres-dias-tres-tareas.doc").read_bytes()
BEFORE = b"contenido anterior"


def machine():
    """A Windows for a user who may not write everywhere: the superuser may, so it is nobody's then,
    in a folder that nobody reaches, with the display's key."""
    folder = Path(tempfile.mkdtemp(prefix="velmora-windows"))
    folder.chmod(0o755)
    if os.geteuid() != 0:
        return Windows(folder)
    desktop.WINE = shutil.copy(desktop.WINE, folder)
    key = shutil.copy(os.environ["XAUTHORITY"], folder)
    for path in (folder, key):
        os.chown(path, NOBODY, NOBODY)
    as_nobody = ("setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups")
    return Windows(folder, as_nobody, XAUTHORITY=key, TMPDIR=str(folder))


def setUpModule():
    FaultTest.windows = machine()
    unittest.addModuleCleanup(shutil.rmtree, FaultTest.windows.folder)
    FaultTest.program = str(unpack(FaultTest.windows.drive) / "velmora.exe")


class FaultTest(unittest.TestCase):
    def setUp(self):
        self.folder = self.windows.drive / "datos"
        self.make_folder(self.folder)
        self.addCleanup(self.remove, self.folder)
        self.make("plan.doc", CONTENT)
        self.velmora = Velmora(self.windows, self.program)
        self.addCleanup(self.windows.end)

    def make_folder(self, folder):
        folder.mkdir(mode=0o777)
        folder.chmod(0o777)

    def make(self, name, content, mode=0o666):
        """A file of the user's own, who may change its mode."""
        path = self.folder / name
        path.write_bytes(content)
        path.chmod(mode)
        if os.geteuid() == 0:
            os.chown(path, NOBODY, NOBODY)
        return path

    def remove(self, folder):
        for path in folder.rglob("*/"):
            path.chmod(0o777)
        shutil.rmtree(folder)

    def files(self):
        return sorted(path.name for path in self.folder.iterdir())

    def on_the_final_screen(self):
        self.velmora.restore(self.folder / "plan.doc")
        self.velmora.menu("h2", 1, entry=4)

    def save(self, name):
        self.velmora.save(self.folder / name)

    def cancel(self, screen, title):
        """Opens the screen's file dialog and cancels it: it keeps the name accepted before."""
        self.velmora.menu(screen, title)
        press("Guardar datos", "Escape")
        wait_for_keyboard(f"/ {screen}")

    def leave(self, screen="h6", titles=4):
        self.assertEqual(self.velmora.leave(screen, titles), 0)

    def expect_whole_save(self):
        """The program goes on: a further save is whole."""
        self.save("entera.doc")
        self.assertEqual((self.folder / "entera.doc").read_bytes(), CONTENT)
        self.leave()


class Forbidden(FaultTest):
    def test_what_may_not_be_written_keeps_its_content_and_nothing_is_said(self):
        kept = self.make("datos.doc", BEFORE, mode=0o444)
        closed = self.folder / "cerrada"
        closed.mkdir(mode=0o555)
        self.on_the_final_screen()
        self.save("datos.doc")
        self.save("cerrada/datos.doc")
        self.assertEqual(kept.read_bytes(), BEFORE)
        self.assertEqual(list(closed.iterdir()), [])
        self.expect_whole_save()


class Vanishing(FaultTest):
    def test_a_folder_gone_after_its_save_is_not_made_anew(self):
        folder = self.folder / "casa"
        self.make_folder(folder)
        self.on_the_final_screen()
        self.save("casa/datos.doc")
        self.assertEqual((folder / "datos.doc").read_bytes(), CONTENT)
        shutil.rmtree(folder)
        self.cancel("h6", 2)
        self.assertEqual(self.files(), ["plan.doc"])
        self.expect_whole_save()

    def test_a_file_gone_after_it_was_read_leaves_the_record(self):
        self.velmora.restore(self.folder / "plan.doc")
        (self.folder / "plan.doc").unlink()
        self.cancel("h2", 3)
        self.velmora.menu("h2", 1, entry=4)
        self.expect_whole_save()


class FullDisk(FaultTest):
    def test_it_cuts_the_file_in_silence(self):
        disk = self.folder / "disco"
        self.make_folder(disk)
        size = 2 * os.sysconf("SC_PAGE_SIZE")
        mounted = subprocess.run(
            ["mount", "-t", "tmpfs", "-o", f"size={size},mode=777", "velmora", disk],
            capture_output=True, check=False)
        if mounted.returncode != 0:
            self.leave("h1", titles=2)
            self.skipTest("no file system may be mounted here")
        self.addCleanup(subprocess.run, ["umount", "--lazy", disk], check=True)
        self.on_the_final_screen()
        self.save("disco/datos.doc")
        self.assertEqual((disk / "datos.doc").read_bytes(), CONTENT[:size])
        self.expect_whole_save()


class Names(FaultTest):
    def test_reserved_ones_are_no_files(self):
        self.on_the_final_screen()
        for name in ("NUL", "COM1", "nul.doc"):
            self.save(name)
            self.assertEqual(self.files(), ["plan.doc"], name)
        self.expect_whole_save()

    def test_what_may_not_be_read_and_reserved_ones_leave_the_record(self):
        self.make("otra.doc", BEFORE, mode=0o222)
        self.velmora.restore(self.folder / "plan.doc")
        for name in ("otra.doc", "NUL", "COM1"):
            self.velmora.menu("h2", 3)
            self.velmora.name_file(self.folder / name, "h2")
        self.velmora.menu("h2", 1, entry=4)
        self.expect_whole_save()

    def test_points_and_blanks_at_the_end_are_not_there(self):
        self.on_the_final_screen()
        for name, made in (("punto.", "punto"), ("espacio.doc  ", "espacio.doc")):
            self.save(name)
            self.assertEqual((self.folder / made).read_bytes(), CONTENT)
        self.assertEqual(self.files(), ["espacio.doc", "plan.doc", "punto"])
        self.expect_whole_save()

    def test_accents_and_more_than_260_letters_are_a_name_like_any_other(self):
        deep = self.folder
        for _ in range(10):
            deep = deep / ("carpeta del año " * 2).strip()
            self.make_folder(deep)
        self.assertGreater(len(str(deep.relative_to(self.windows.drive))), 300)
        shutil.move(self.folder / "plan.doc", deep / "plan.doc")
        self.velmora.restore(deep / "plan.doc")
        self.velmora.menu("h2", 1, entry=4)
        self.velmora.save(deep / "mañana.doc")
        self.assertEqual((deep / "mañana.doc").read_bytes(), CONTENT)
        self.leave()


if __name__ == "__main__":
    unittest.main()
