"""Runs clang-tidy over the sources that have changed since it last found nothing in them.

    tidy.py <build folder> <folder>...

A source counts as changed when its compile command, its settings, or any header of the project that
it reads has: what was clean is remembered in the build folder by a hash of all of them.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import subprocess
import sys

TOOL = "clang-tidy"


def headers_by_source(build, root):
    """For each source, the project's files that its compilation read, by the build's own notes."""
    read = {}
    files = None
    notes = subprocess.run(
        ["ninja", "-C", build, "-t", "deps"], check=True, capture_output=True, text=True
    ).stdout
    for line in notes.splitlines():
        if not line.startswith(" "):
            files = None
            continue
        path = pathlib.Path(os.path.normpath(os.path.join(build, line.strip())))
        if files is None:
            files = read.setdefault(path, [])
        if root in path.parents:
            files.append(path)
    return read


def key_of(command, files, settings):
    digest = hashlib.sha256(settings + command.encode())
    for path in sorted(set(files)):
        digest.update(path.read_bytes())
    return digest.hexdigest()


def check(build, source):
    run = subprocess.run(
        [TOOL, "--quiet", "-p", build, source], capture_output=True, text=True, check=False
    )
    return run.returncode, run.stdout


def main():
    build, *folders = sys.argv[1:]
    build = os.path.abspath(build)
    root = pathlib.Path.cwd()
    read = headers_by_source(build, root)
    settings = subprocess.run([TOOL, "--version"], check=True, capture_output=True).stdout
    settings += b"".join(path.read_bytes() for path in sorted(root.glob("**/.clang-tidy")))
    clean = pathlib.Path(build, "tidy")
    clean.mkdir(exist_ok=True)

    waiting = {}
    total = 0
    for entry in json.loads(pathlib.Path(build, "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        if not any(root / folder in source.parents for folder in folders):
            continue
        if pathlib.Path(build) in source.parents:
            continue  # what the toolkit's own compiler made
        total += 1
        if source not in read:
            sys.exit(f"{source} has not been built: what it reads isn't known")
        stamp = clean / key_of(entry["command"], read[source], settings)
        if not stamp.exists():
            waiting[str(source)] = stamp
    print(f"{len(waiting)} of {total} to look at", flush=True)

    found = False
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for source, (status, text) in zip(
            waiting, pool.map(lambda name: check(build, name), waiting)
        ):
            if status == 0:
                waiting[source].touch()
            else:
                found = True
                print(text)
    return found


if __name__ == "__main__":
    sys.exit(main())
