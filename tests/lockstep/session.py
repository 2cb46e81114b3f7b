"""One session: the program and the model through the same actions, in lockstep."""

import base64
import os
import shutil
import tempfile

from comparison import Comparison
from model import Model
from process import LOCALES, Ended, Process


# What may be followed at once by the next action: all that has had its effect when it returns.
IN_ONE_GO = ("click", "space", "menu", "type", "im", "double", "pick", "listkeys", "close", "clip")


class Session:
    """`do` takes an action through both sides and returns the differences after it.

    An action with "&" ahead of its name is kept back: the program gets it in one burst with those
    that follow, and no turn of its event loop comes between them.
    """

    def __init__(self, executable, plugins, locale):
        self.executable, self.plugins, self.locale = executable, plugins, locale
        self.folder = tempfile.mkdtemp(prefix="lockstep")
        self.files_folder = os.path.join(self.folder, "files")
        os.makedirs(os.path.join(self.files_folder, "carpeta.v2"))
        self.model = Model(LOCALES[locale][1], self.files_folder)
        self.comparison = Comparison(self.model)
        self.process = None
        self.done = []
        self.burst = []

    def start(self):
        self.process = Process(self.executable, self.plugins, self.locale, self.folder)
        return self.comparison.differences(self.process)

    def applicable(self, action):
        return self.model.applicable([action[0].removeprefix("&"), *action[1:]])

    def do(self, action):
        self.done.append(action)
        more_follows = action[0].startswith("&")
        action = [action[0].removeprefix("&"), *action[1:]]
        if action[0] in ("put", "restart"):
            return self._release() or self._from_outside(action)
        sent = list(action)
        if action[0] == "file" and len(action) == 3:
            sent[2] = self.model.path(action[2])
        self.burst.append(sent)
        before = self.model.screen
        self.model.act(action)
        # A box waits, and a screen just entered has no place for a click before it is laid out.
        goes_on = (self.model.waiting_on, self.model.exit_status) == (None, None)
        goes_on = goes_on and self.model.screen is before
        return [] if more_follows and goes_on else self._release()

    def _from_outside(self, action):
        if action[0] == "put":
            return self._put(action)
        self.process.kill()
        self.model.act(action)
        return self.start()

    def _release(self):
        """Lets the program do what was kept back; the differences after it."""
        burst, self.burst = self.burst, []
        if not burst:
            return []
        try:
            self.process.send(burst[0] if len(burst) == 1 else ["burst", *burst])
            self.process.receive()
        except Ended as end:
            expected = self.model.exit_status
            if end.status == expected:
                return []
            return [f"process: program ended ({end.status}), model {expected}"]
        if self.model.exit_status is not None:
            return [f"process: program goes on, model ended ({self.model.exit_status})"]
        return self.comparison.differences(self.process)

    def _put(self, action):
        self.model.act(action)
        path = self.model.path(action[1])
        with open(path, "wb") as opened:
            opened.write(base64.b64decode(action[2]))
        return []

    def close(self):
        """Ends the process; differences of its last burst and of what it leaves on the disk."""
        if self.process is None:
            return []
        found = self._release()
        self.process.kill()
        for top in (self.process.home, self.process.work):
            for place, _, names in os.walk(top):
                found += [f"left behind: {os.path.join(place, n)}" for n in names]
        for place, _, names in os.walk(self.files_folder):
            for name in names:
                path = os.path.join(place, name)
                if path not in self.model.files:
                    found.append(f"file that the model does not write: {path}")
                else:
                    found += self.comparison.file_differences(path)
        return found

    def output(self):
        with open(os.path.join(self.folder, "output.txt"), "rb") as opened:
            told = opened.read().decode("utf-8", "replace").splitlines()
        return "\n".join(line for line in told if "This plugin does not support" not in line)

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)
