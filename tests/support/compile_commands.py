"""The commands that the sources of a build are compiled with."""

import json
import re


def by_source(commands):
    """(source, entry of compile_commands.json) for each source, by its whole path; those that are
    compiled as one unit share its entry."""
    for entry in json.loads(commands.read_text()):
        if entry["file"].endswith(".cxx"):
            with open(entry["file"], encoding="utf-8") as unit:
                for source in re.findall(r'#include "(.*\.cpp)"', unit.read()):
                    yield source, entry
        else:
            yield entry["file"], entry
