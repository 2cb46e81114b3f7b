"""The real program when the disk, the file or the user misbehaves.

Saving and restoring pass over every failed step and say nothing: a failed save leaves the file cut
short with the old content gone, a failed read leaves the record as it was. Whatever happens, no box
opens, nothing hangs, no other file appears and the program can be used on. What the file routines do
by themselves is tested beside them; here the whole program is driven from outside.

VELMORA names the program, VELMORA_DRIVER the folder above the driver's `generic`.
"""

import os
import random
import resource
import shutil
import signal
import socket
import stat
import subprocess
import sys
import time
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(os.path.dirname(HERE), "process"))

import process_test  # noqa: E402
from process_test import LINES, WORKED_DAY, evaluation  # noqa: E402

GIB = 1 << 30
MIB = 1 << 20
NOBODY = 65534

# What restoring may take beyond what the program has anyway, in KiB, and in seconds.
ROOM = 256 << 10
PATIENCE = 30


def has_sanitizer(program):
    with open(program, "rb") as opened:
        return b"__asan_init" in opened.read()


if has_sanitizer(os.environ.get("VELMORA", sys.executable)):
    ROOM *= 4  # it keeps what was freed for a while
    PATIENCE *= 4

OWN_FILES = {"home", "work", "socket", "output.txt", "velmora.sh"}

NAMES = {(day, entry): f"{day}/{entry}" for day in (1, 2, 3) for entry in range(1, 402)}
LONG = evaluation(3, 3, "Añil, S.A.", (("agente", 1, 2, 15, 0, "ppm"),), slots=NAMES)


class FaultTest(process_test.ProcessTest):
    """A process that the shell starts first: `prelude` sets up what it will find."""

    prelude = "exec"

    def start(self, locale="point"):
        real = os.environ["VELMORA"]
        shell = self.path("velmora.sh")
        with open(shell, "w") as opened:
            opened.write(f"#!/bin/sh\n{self.prelude} '{real}'\n")
        os.chmod(shell, 0o755)
        os.environ["VELMORA"] = shell
        try:
            super().start(locale)
        finally:
            os.environ["VELMORA"] = real

    @property
    def pid(self):
        return self.process.child.pid

    def limit_files_to(self, size):
        """No file of the process grows beyond a size from now on: a write that would fails, as on a
        full disk."""
        resource.prlimit(self.pid, resource.RLIMIT_FSIZE, (size, resource.RLIM_INFINITY))

    def peak(self):
        """The most memory that the process ever held, in KiB."""
        with open(f"/proc/{self.pid}/status") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmHWM:"))

    def files(self):
        return sorted(set(os.listdir(self.folder)) - OWN_FILES)

    def plan_on_the_final_screen(self, content=LONG):
        self.write("plan.doc", content)
        self.start()
        self.restore("plan.doc")
        os.unlink(self.path("plan.doc"))
        self.do("menu", "resulatadofinal")

    def save(self, name):
        """Saves under a name and answers yes to what the dialog asks of it."""
        self.do("menu", "guardararchivo")
        self.do("file", "accept", self.path(name))
        self.assertTrue(self.process.modal["ofDialog"])
        self.do("answer", "yes")
        self.assertIsNone(self.process.modal)

    def save_again(self):
        """Saves under the name that the dialog holds: a cancelled dialog keeps it."""
        self.do("menu", "guardararchivo")
        self.do("file", "cancel")
        self.assertIsNone(self.process.modal)

    def restore_again(self):
        self.do("menu", "recuperardatos")
        self.do("file", "cancel")
        self.assertIsNone(self.process.modal)

    def company(self):
        return self.texts("Text1", range(1, 20))

    def expect_whole_save(self, name="entera.doc", content=LONG):
        """The program goes on: a further save is whole."""
        self.save(name)
        self.assertEqual(self.read(name), content)
        os.unlink(self.path(name))


class FullDisk(FaultTest):
    prelude = "trap '' XFSZ; exec"  # the signal of a file size limit, which a full disk doesn't send

    def test_a_limit_in_the_middle_of_a_save_cuts_the_file_in_silence(self):
        self.plan_on_the_final_screen()
        for size in (1, 4096, 8191, 8192, 9000, len(LONG) - 1):
            with self.subTest(size):
                self.write("datos.doc", b"contenido anterior" * 2000)
                self.limit_files_to(size)
                self.save("datos.doc")
                self.assertEqual(self.read("datos.doc"), LONG[:size])
                self.assertEqual(self.files(), ["datos.doc"])
        self.limit_files_to(resource.RLIM_INFINITY)
        self.expect_whole_save()

    def test_a_disk_full_from_the_start_leaves_an_empty_file(self):
        self.plan_on_the_final_screen()
        self.write("datos.doc", b"contenido anterior")
        self.limit_files_to(0)
        self.save("datos.doc")
        self.assertEqual(self.read("datos.doc"), b"")

    def test_the_cut_file_gives_back_the_values_before_its_end(self):
        self.plan_on_the_final_screen()
        self.limit_files_to(9000)
        self.save("datos.doc")
        self.start()
        self.restore("datos.doc")
        self.do("menu", "resulatadofinal")
        self.save("otra.doc")
        whole = LONG[:9000].count(b"\r\n")
        self.assertGreater(whole, 160)
        lines = self.read("otra.doc").split(b"\r\n")
        self.assertEqual(lines[:whole], LONG.split(b"\r\n")[:whole])
        # Behind the line that the end cuts everything is as in a fresh record: the empty string.
        self.assertEqual(set(lines[whole + 1 :]), {b'""', b""})
        self.assertEqual(len(lines), LINES + 1)

    def test_a_small_file_system_that_fills_up_cuts_the_file_in_silence(self):
        small = self.path("disco")
        os.mkdir(small)
        size = 2 * resource.getpagesize()
        mounted = subprocess.run(
            ["mount", "-t", "tmpfs", "-o", f"size={size},mode=777", "velmora", small],
            capture_output=True,
            check=False,
        )
        if mounted.returncode != 0:
            self.skipTest("no file system may be mounted here")
        self.addCleanup(subprocess.run, ["umount", "--lazy", small], check=True)
        self.plan_on_the_final_screen()
        self.write("disco/datos.doc", b"contenido anterior")
        self.save("disco/datos.doc")
        self.assertEqual(self.read("disco/datos.doc"), LONG[:size])
        self.assertEqual(os.listdir(small), ["datos.doc"])
        self.expect_whole_save()

    def test_the_full_device_is_no_file_and_gets_nothing(self):
        self.plan_on_the_final_screen()
        os.symlink("/dev/full", self.path("lleno.doc"))
        self.save("lleno.doc")
        self.assertTrue(stat.S_ISCHR(os.stat(self.path("lleno.doc")).st_mode))
        self.assertEqual(self.files(), ["lleno.doc"])
        self.expect_whole_save()


class FileSizeLimit(FaultTest):
    """The limit that a user or an administrator sets, with the signal that comes with it."""

    def test_it_cuts_the_file_like_a_full_disk_and_the_program_goes_on(self):
        self.plan_on_the_final_screen()
        self.limit_files_to(9000)
        self.save("datos.doc")
        self.assertEqual(self.read("datos.doc"), LONG[:9000])
        self.limit_files_to(resource.RLIM_INFINITY)
        self.expect_whole_save()


class Forbidden(FaultTest):
    """Folders and files that the user may not write or read. The superuser may everything, so the
    program then runs as nobody."""

    if os.geteuid() == 0:
        prelude = f"exec setpriv --reuid={NOBODY} --regid={NOBODY} --clear-groups"

    def setUp(self):
        super().setUp()
        reach = [*self.prelude.split()[1:], "test", "-x", os.environ["VELMORA"]]
        if subprocess.run(reach).returncode != 0:
            self.skipTest("a folder above the program is closed to nobody")
        self.addCleanup(self.allow)

    def allow(self):
        for name in self.files():
            os.chmod(self.path(name), 0o777)

    def forbid(self, name, mode):
        os.chmod(self.path(name), mode)

    def start(self, locale="point"):
        os.chmod(self.folder, 0o777)
        before = os.umask(0)
        try:
            super().start(locale)
        finally:
            os.umask(before)
        with open(f"/proc/{self.pid}/status") as status:
            uid = next(line.split()[1] for line in status if line.startswith("Uid:"))
        self.assertNotEqual(uid, "0")

    def test_a_read_only_folder_takes_no_file_and_nothing_is_said(self):
        self.plan_on_the_final_screen()
        os.mkdir(self.path("cerrada"))
        self.forbid("cerrada", 0o555)
        self.save("cerrada/datos.doc")
        self.assertEqual(os.listdir(self.path("cerrada")), [])
        self.expect_whole_save()

    def test_a_read_only_file_keeps_its_content(self):
        self.plan_on_the_final_screen()
        self.write("datos.doc", b"contenido anterior")
        self.forbid("datos.doc", 0o444)
        self.save("datos.doc")
        self.assertEqual(self.read("datos.doc"), b"contenido anterior")
        self.expect_whole_save()

    def test_a_file_that_may_not_be_read_leaves_the_record(self):
        self.write("plan.doc", LONG)
        self.write("otra.doc", evaluation(company="Otra"))
        self.forbid("otra.doc", 0o222)
        self.start()
        self.restore("plan.doc")
        shown = self.company()
        self.do("menu", "recuperardatos")
        self.do("file", "accept", self.path("otra.doc"))
        self.assertIsNone(self.process.modal)
        self.assertEqual(self.company(), shown)
        self.assertEqual(shown[0], "Añil, S.A.")

    def test_a_file_is_read_from_a_read_only_folder(self):
        os.mkdir(self.path("cerrada"))
        self.write("cerrada/plan.doc", LONG)
        self.forbid("cerrada", 0o555)
        self.start()
        self.restore("cerrada/plan.doc")
        self.assertEqual(self.text("Text1(1)"), "Añil, S.A.")


class ReadOnlyFileSystem(FaultTest):
    def test_neither_a_new_nor_an_old_file_is_written_on_it(self):
        disk = self.path("disco")
        os.mkdir(disk)
        mounted = subprocess.run(
            ["mount", "-t", "tmpfs", "-o", "size=1m", "velmora", disk],
            capture_output=True,
            check=False,
        )
        if mounted.returncode != 0:
            self.skipTest("no file system may be mounted here")
        self.addCleanup(subprocess.run, ["umount", "--lazy", disk], check=True)
        self.write("disco/datos.doc", b"contenido anterior")
        subprocess.run(["mount", "-o", "remount,ro", disk], check=True)
        self.plan_on_the_final_screen()
        self.save("disco/datos.doc")
        self.save("disco/nueva.doc")
        self.assertEqual(os.listdir(disk), ["datos.doc"])
        self.assertEqual(self.read("disco/datos.doc"), b"contenido anterior")
        self.expect_whole_save()


class Vanishing(FaultTest):
    """What stood under the name when it was picked stands there no more when it is opened."""

    def setUp(self):
        super().setUp()
        self.write("plan.doc", WORKED_DAY)

    def restored_once(self):
        self.start()
        self.restore("plan.doc")
        self.do("type", "Text1(2)", list("Norte"))

    def expect_only_the_boxes_overwritten(self):
        self.restore_again()
        # The record still holds what was read first; the boxes are filled from it once more.
        self.assertEqual(self.text("Text1(1)"), "Acme")
        self.assertEqual(self.text("Text1(2)"), "---")

    def test_a_file_that_is_gone_leaves_the_record(self):
        self.restored_once()
        os.unlink(self.path("plan.doc"))
        self.expect_only_the_boxes_overwritten()
        self.assertEqual(self.files(), [])

    def test_a_folder_in_its_place_leaves_the_record(self):
        self.restored_once()
        os.unlink(self.path("plan.doc"))
        os.mkdir(self.path("plan.doc"))
        self.expect_only_the_boxes_overwritten()

    def test_a_pipe_in_its_place_is_not_waited_for(self):
        self.restored_once()
        os.unlink(self.path("plan.doc"))
        os.mkfifo(self.path("plan.doc"))
        self.expect_only_the_boxes_overwritten()

    def test_a_file_that_goes_while_the_dialog_is_open_is_a_name_without_a_file(self):
        self.start()
        self.do("menu", "Nuevaempresa")
        self.do("type", "Text1(1)", list("Acme"))
        self.do("menu", "recuperardatos")
        os.unlink(self.path("plan.doc"))
        self.do("file", "accept", self.path("plan.doc"))
        self.assertIsNone(self.process.modal)
        self.assertEqual(self.company(), [""] * 19)
        self.assertEqual(self.files(), [])

    def test_a_save_goes_neither_into_a_folder_nor_into_a_pipe_that_took_the_place(self):
        self.plan_on_the_final_screen()
        self.save("datos.doc")
        os.unlink(self.path("datos.doc"))
        os.mkdir(self.path("datos.doc"))
        self.save_again()
        self.assertEqual(os.listdir(self.path("datos.doc")), [])
        os.rmdir(self.path("datos.doc"))
        os.mkfifo(self.path("datos.doc"))
        reader = os.open(self.path("datos.doc"), os.O_RDONLY | os.O_NONBLOCK)
        self.addCleanup(os.close, reader)
        self.save_again()
        self.assertEqual(os.read(reader, 1), b"")
        self.expect_whole_save()

    def test_a_save_makes_no_folder_anew(self):
        self.plan_on_the_final_screen()
        os.mkdir(self.path("casa de datos"))
        self.save("casa de datos/datos.doc")
        shutil.rmtree(self.path("casa de datos"))
        self.save_again()
        self.assertEqual(self.files(), [])
        self.expect_whole_save()

    def test_a_file_unlinked_after_its_save_is_made_anew(self):
        self.plan_on_the_final_screen()
        self.save("datos.doc")
        os.unlink(self.path("datos.doc"))
        self.save_again()
        self.assertEqual(self.read("datos.doc"), LONG)


class Names(FaultTest):
    """Names that are no file. The dialog is the toolkit's: it opens a folder, and it takes no name
    that the file system can't hold; both leave it open."""

    TOO_LONG = ("n" * 300, "n" * 252, "n" * 300 + ".doc")  # with the ".doc" added beyond 255

    def refused_by_the_dialog(self, entry, name):
        self.do("menu", entry)
        self.do("file", "accept", self.path(name))
        self.assertEqual(self.process.modal["kind"], "file")
        self.do("file", "cancel")
        self.assertIsNone(self.process.modal)

    def test_nothing_is_saved_into_a_folder_or_under_a_name_too_long(self):
        self.plan_on_the_final_screen()
        os.mkdir(self.path("carpeta"))
        os.mkdir(self.path("carpeta.doc"))
        for name in ("carpeta", "carpeta.doc", *self.TOO_LONG):
            with self.subTest(name[:12]):
                self.refused_by_the_dialog("guardararchivo", name)
        self.assertEqual(self.files(), ["carpeta", "carpeta.doc"])
        self.assertEqual(os.listdir(self.path("carpeta")), [])
        self.assertEqual(os.listdir(self.path("carpeta.doc")), [])
        self.expect_whole_save()

    def test_the_longest_name_is_a_file_like_any_other(self):
        self.plan_on_the_final_screen()
        self.save("n" * 251)
        self.assertEqual(self.files(), ["n" * 251 + ".doc"])
        self.assertEqual(self.read("n" * 251 + ".doc"), LONG)

    def test_nothing_is_restored_from_a_folder_or_a_name_too_long(self):
        self.start()
        self.do("menu", "Nuevaempresa")
        os.mkdir(self.path("carpeta.doc"))
        for name in ("carpeta.doc", *self.TOO_LONG):
            with self.subTest(name[:12]):
                self.do("type", "Text1(1)", ["x"])
                self.refused_by_the_dialog("recuperardatos", name)
                self.assertEqual(self.company(), [""] * 19)
        self.assertEqual(self.files(), ["carpeta.doc"])

    def test_a_pipe_is_waited_for_by_neither(self):
        os.mkfifo(self.path("tubo.doc"))
        self.plan_on_the_final_screen()
        self.save("tubo.doc")
        self.assertTrue(stat.S_ISFIFO(os.stat(self.path("tubo.doc")).st_mode))
        self.expect_whole_save()
        self.start()
        self.restore("tubo.doc")
        self.assertEqual(self.company(), [""] * 19)

    def test_a_pipe_with_an_evaluation_in_it_is_not_read(self):
        os.mkfifo(self.path("tubo.doc"))
        end = os.open(self.path("tubo.doc"), os.O_RDWR)
        self.addCleanup(os.close, end)
        os.write(end, WORKED_DAY)
        self.start()
        self.restore("tubo.doc")
        self.assertEqual(self.company(), [""] * 19)
        self.assertEqual(len(os.read(end, 1 << 16)), len(WORKED_DAY))

    def test_a_socket_and_a_device_are_neither_read_nor_written(self):
        listener = socket.socket(socket.AF_UNIX)
        self.addCleanup(listener.close)
        listener.bind(self.path("zocalo.doc"))
        os.symlink("/dev/zero", self.path("cero.doc"))
        self.plan_on_the_final_screen()
        for name in ("zocalo.doc", "cero.doc"):
            self.save(name)
        self.start()
        self.do("menu", "Nuevaempresa")
        for name in ("zocalo.doc", "cero.doc"):
            self.do("menu", "recuperardatos")
            self.do("file", "accept", self.path(name))
            self.assertIsNone(self.process.modal)
            self.assertEqual(self.company(), [""] * 19)


class Killed(FaultTest):
    """The process is killed in the middle of a save. The file holds as much as is kept of one,
    so that the save takes long enough to be met, by some of the tries at least."""

    BIG = evaluation(slots=dict.fromkeys(((3, entry) for entry in range(1, 17)), "x" * 60_000))

    def test_the_file_is_cut_and_gives_back_the_values_before_its_end(self):
        cut = 0
        for aimed in (4096, MIB // 4, MIB // 2) * 5:
            size = self.kill_at(aimed)
            cut += 0 < size < len(self.BIG)
            if cut == 2:
                break
        self.assertEqual(cut, 2, "the save was not met")
        self.assertEqual(self.files(), ["datos.doc"])
        self.restored_values()

    def kill_at(self, aimed):
        """Kills the process once the file has this size; what is left is the beginning of it."""
        self.plan_on_the_final_screen(self.BIG)
        self.write("datos.doc", b"contenido anterior")
        self.do("menu", "guardararchivo")
        self.do("file", "accept", self.path("datos.doc"))
        self.process.send(["answer", "yes"])
        end = time.monotonic() + PATIENCE
        while os.path.getsize(self.path("datos.doc")) < aimed:
            self.assertLess(time.monotonic(), end)
        os.kill(self.pid, signal.SIGKILL)
        self.process.child.wait()
        left = self.read("datos.doc")
        self.assertEqual(left, self.BIG[: len(left)])
        return len(left)

    def restored_values(self):
        left = self.read("datos.doc")
        self.start()
        self.restore("datos.doc")
        self.do("menu", "resulatadofinal")
        self.save("otra.doc")
        whole = left.count(b"\r\n")
        again = self.read("otra.doc").split(b"\r\n")
        self.assertEqual(again[:whole], left.split(b"\r\n")[:whole])
        self.assertEqual(len(again), LINES + 1)
        self.assertEqual(set(again[whole + 1 :]), {b'""', b""})

    def test_killed_before_the_file_is_opened_the_old_content_stands(self):
        self.plan_on_the_final_screen()
        self.write("datos.doc", b"contenido anterior")
        self.do("menu", "guardararchivo")
        self.do("file", "accept", self.path("datos.doc"))
        os.kill(self.pid, signal.SIGKILL)
        self.process.child.wait()
        self.assertEqual(self.read("datos.doc"), b"contenido anterior")
        self.assertEqual(self.files(), ["datos.doc"])


class HugeTest(FaultTest):
    """2 GiB of anything offered to "Recuperar datos": at most 1524 lines are read, in a bounded time
    and a bounded memory."""

    def offer(self, start, size=2 * GIB):
        """Writes a file that begins so and goes on with zeros that take no room on the disk, and
        restores it. Gives the company's fields."""
        with open(self.path("grande.doc"), "wb") as opened:
            opened.write(start)
            opened.truncate(size)
        self.start()
        before = self.peak()
        begun = time.monotonic()
        self.restore("grande.doc")
        self.assertLess(time.monotonic() - begun, PATIENCE)
        self.assertLess(self.peak() - before, ROOM)
        return self.company()


class Huge(HugeTest):
    def test_of_line_ends_only_the_first_1524_are_read(self):
        self.assertEqual(self.offer(b"\r\n" * (32 * MIB)), [""] * 19)

    def test_what_stands_behind_a_whole_evaluation_is_not_read(self):
        self.assertEqual(self.offer(LONG)[0], "Añil, S.A.")
        self.do("menu", "resulatadofinal")
        self.expect_whole_save()

    def test_lines_of_a_mebibyte_are_read_within_bounds(self):
        generator = random.Random(1)
        line = bytes(generator.choice(b"abc \x80\xff") for _ in range(1000)) * 1000 + b"\r\n"
        # Behind the company's fields, which would show them: from line 160 on.
        start = WORKED_DAY[: WORKED_DAY.index(b'"mg/m3"')]
        start += b"0\r\n" * (159 - start.count(b"\r\n")) + line * 64
        self.offer(start, len(start))
        self.do("menu", "resulatadofinal")
        self.assertEqual(self.process.window[0], "Form6")


class HugeLine(HugeTest):
    """2 GiB without a line end, which only reading by blocks passes over in time."""

    def test_zeros_without_a_line_end_are_one_line_cut(self):
        shown = self.offer(b"")
        self.assertEqual(set(shown[0]), {"\0"})
        self.assertEqual(shown[1:], [""] * 18)


class Million(FaultTest):
    """A million characters in a field of the company."""

    TEXT = "tolueno ñ " * 100_000

    def test_a_pasted_million_is_kept_and_saved_and_64_kib_of_its_line_restored(self):
        self.start()
        before = self.peak()
        self.do("menu", "Nuevaempresa")
        self.do("type", "Text1(1)", list("Acme"))
        self.do("clip", self.TEXT)
        self.do("type", "Text1(4)", ["<C-V>"])
        self.assertEqual(self.text("Text1(4)"), self.TEXT)
        self.do("menu", "resulatadofinal")
        self.save("datos.doc")
        self.assertEqual(len(self.TEXT), 1_000_000)
        line = self.read("datos.doc").split(b"\r\n")[3]
        self.assertEqual(line, f'"{self.TEXT}"'.encode("windows-1252"))
        self.assertLess(self.peak() - before, 2 * ROOM)
        self.start()
        self.restore("datos.doc")
        self.assertEqual(self.text("Text1(4)"), self.TEXT[: 64 * 1024 - 1], "its quote is in it, too")

    def test_keys_behind_a_million_letters_still_arrive(self):
        self.start()
        self.do("menu", "Nuevaempresa")
        self.do("clip", self.TEXT)
        self.do("type", "Text1(4)", ["<C-V>"])
        begun = time.monotonic()
        self.do("type", "Text1(4)", list("abc"))
        self.do("type", "Text1(4)", ["<BS>"])
        self.assertLess(time.monotonic() - begun, PATIENCE)
        self.assertEqual(self.text("Text1(4)"), self.TEXT + "ab")

    def test_a_million_pasted_into_a_filtered_cell_is_refused(self):
        self.lay_out_worked_day()
        self.do("clip", "7" * 1_000_000)
        self.do("type", "Text1(7)", ["<C-V>", "<S-INS>", "5"])
        self.assertEqual(self.text("Text1(7)"), "5")


if __name__ == "__main__":
    unittest.main()
