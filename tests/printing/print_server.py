"""A CUPS server of the test's own, on a socket in its own folder, without any of the machine's."""

import os
import pwd
import re
import shutil
import socket
import subprocess
import time

WAIT_S = 30

SERVER = """\
Listen {folder}/socket
LogLevel warn
Browsing Off
PreserveJobFiles Yes
DirtyCleanInterval 0
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Location /admin>
Allow all
</Location>
<Policy default>
<Limit All>
Order deny,allow
Allow all
</Limit>
</Policy>
"""

FILES = """\
User {user}
Group {group}
SystemGroup {system}
RequestRoot {folder}/spool
CacheDir {folder}/cache
StateDir {folder}/state
ServerRoot {folder}
TempDir {folder}/tmp
AccessLog {folder}/log/access
ErrorLog {folder}/log/error
PageLog {folder}/log/page
FileDevice Yes
"""


def tool(name):
    """The path of a tool of the print server; it may be on an administrator's path alone."""
    return shutil.which(name, path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin")


class SilentServer:
    """Takes connections and never answers."""

    def __init__(self, folder):
        os.mkdir(folder, 0o755)
        self.path = os.path.join(folder, "socket")
        self.listening = socket.socket(socket.AF_UNIX)
        self.listening.bind(self.path)
        self.listening.listen(16)

    def environment(self):
        return {"CUPS_SERVER": self.path}

    def close(self):
        self.listening.close()


class PrintServer:
    """With one queue, which keeps what it is sent, or with none."""

    def __init__(self, folder, queues=("cola",)):
        self.folder = folder
        self.process = None
        os.mkdir(folder, 0o755)
        os.chmod(folder, 0o755)
        for name in ("spool", "cache", "state", "tmp", "log", "ppd"):
            os.mkdir(os.path.join(folder, name))
        self._configure()
        self._start()
        for queue in queues:
            self._run("lpadmin", "-p", queue, "-E", "-v", "file:/dev/null", "-m", "raw")
            self._run("lpadmin", "-d", queue)

    def _configure(self):
        # Started by the administrator, the server works as the print system's own user.
        user = "lp" if os.geteuid() == 0 else pwd.getpwuid(os.geteuid()).pw_name
        entry = pwd.getpwnam(user)
        group = subprocess.run(["id", "-gn", user], capture_output=True, text=True).stdout.strip()
        system = "root" if user == "lp" else group
        values = {"folder": self.folder, "user": user, "group": group, "system": system}
        for name, text in (("cupsd.conf", SERVER), ("cups-files.conf", FILES)):
            with open(os.path.join(self.folder, name), "w", encoding="ascii") as opened:
                opened.write(text.format(**values))
        if os.geteuid() == 0:
            for place, _, files in os.walk(self.folder):
                for path in (place, *(os.path.join(place, f) for f in files)):
                    os.chown(path, entry.pw_uid, entry.pw_gid)

    def _start(self):
        configuration = ("-c", f"{self.folder}/cupsd.conf", "-s", f"{self.folder}/cups-files.conf")
        self.process = subprocess.Popen(
            [tool("cupsd"), "-f", *configuration],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        limit = time.monotonic() + WAIT_S
        while not os.path.exists(self.socket()) or not self._answers():
            if self.process.poll() is not None or time.monotonic() > limit:
                raise RuntimeError("the print server doesn't start: " + self._log())
            time.sleep(0.1)

    def _answers(self):
        found = subprocess.run([tool("lpstat"), "-r"], env=self._client(), capture_output=True)
        return b"is running" in found.stdout

    def _log(self):
        path = os.path.join(self.folder, "log", "error")
        if not os.path.exists(path):
            return "no log"
        with open(path, encoding="utf-8", errors="replace") as opened:
            return opened.read()[-2000:]

    def _client(self):
        return os.environ | self.environment() | {"LC_ALL": "C"}

    def _run(self, *command):
        program, *arguments = command
        subprocess.run(
            [tool(program), *arguments], env=self._client(), check=True, stderr=subprocess.DEVNULL
        )

    def socket(self):
        return os.path.join(self.folder, "socket")

    def environment(self):
        """What makes a program print here."""
        return {"CUPS_SERVER": self.socket()}

    def jobs(self):
        """What has been sent here, each as the path of its document, in order."""
        spool = os.path.join(self.folder, "spool")
        names = sorted(n for n in os.listdir(spool) if re.fullmatch(r"d\d+-\d+", n))
        return [os.path.join(spool, name) for name in names]

    def records(self):
        """What the server keeps of the jobs beside their documents, their names among it."""
        spool = os.path.join(self.folder, "spool")
        kept = b""
        for name in sorted(n for n in os.listdir(spool) if re.fullmatch(r"c\d+", n)):
            with open(os.path.join(spool, name), "rb") as opened:
                kept += opened.read()
        return kept

    def finished(self):
        """The jobs that have been printed."""
        found = subprocess.run(
            [tool("lpstat"), "-W", "completed", "-o"],
            env=self._client(),
            capture_output=True,
            text=True,
        )
        return found.stdout.splitlines()

    def close(self):
        if self.process is not None:
            self.process.terminate()
            self.process.wait()
