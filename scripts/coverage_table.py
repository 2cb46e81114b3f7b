#!/usr/bin/env python3
"""The table of scripts/coverage.sh, from what gcovr counted: coverage_table.py FILE [--missing]."""

import collections
import json
import pathlib
import sys

BAR = 98  # percent, of the lines and of the branches


def share(reached, all_of_them):
    return 100 * reached / all_of_them if all_of_them else 100.0


def main():
    counts = collections.defaultdict(collections.Counter)
    missing = []
    for file in json.loads(pathlib.Path(sys.argv[1]).read_text())["files"]:
        # A header is seen through its room's folder of the build, which links to it.
        path = pathlib.Path(file["file"]).resolve().relative_to(pathlib.Path.cwd())
        text = path.read_text().split("\n")
        room = counts[path.parts[1]]
        for line in file["lines"]:
            if line["gcovr/noncode"]:
                continue
            room["lines"] += 1
            room["lines reached"] += line["count"] > 0
            room["branches"] += len(line["branches"])
            taken = sum(branch["count"] > 0 for branch in line["branches"])
            room["branches taken"] += taken
            if line["count"] == 0 or taken < len(line["branches"]):
                missing.append(f"{path}:{line['line_number']}: "
                               f"{taken} of {len(line['branches'])} branches: "
                               f"{text[line['line_number'] - 1].strip()}")
    if "--missing" in sys.argv:
        print("\n".join(missing))
    print(f"{'room':10}{'lines':>14}{'':9}{'branches':>14}")
    total = sum(counts.values(), collections.Counter())
    for room, c in [*sorted(counts.items()), ("all", total)]:
        print(f"{room:10}{c['lines reached']:6} of {c['lines']:4}"
              f"{share(c['lines reached'], c['lines']):8.1f} %"
              f"{c['branches taken']:7} of {c['branches']:4}"
              f"{share(c['branches taken'], c['branches']):8.1f} %")
    low = [what for what, reached in (("lines", "lines reached"), ("branches", "branches taken"))
           if share(total[reached], total[what]) < BAR]
    for what in low:
        print(f"below {BAR} % of the {what}")
    return 1 if low else 0


if __name__ == "__main__":
    sys.exit(main())
