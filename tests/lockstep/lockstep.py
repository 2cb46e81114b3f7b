#!/usr/bin/env python3
"""Runs the real program and an independent model in lockstep over guided random sessions.

Exits 0 when they agree after every action of every session, 1 when they differ.
"""

import argparse
import json
import os
import random
import subprocess
import sys
import time
from collections import Counter

sys.dont_write_bytecode = True

from session import IN_ONE_GO, Session
from user import User

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))


def build_driver(folder):
    """Builds the plug-in when it is missing or older than its sources."""
    source = os.path.join(HERE, "driver")
    built = os.path.join(folder, "generic", "liblockstep_driver.so")
    newest = max(os.path.getmtime(os.path.join(source, n)) for n in os.listdir(source))
    if not os.path.exists(built) or os.path.getmtime(built) < newest:
        subprocess.run(
            ["cmake", "-S", source, "-B", folder, "-DCMAKE_BUILD_TYPE=Release"],
            check=True, stdout=subprocess.DEVNULL,
        )  # fmt: skip
        subprocess.run(
            ["cmake", "--build", folder, "-j2"], check=True, stdout=subprocess.DEVNULL
        )
    return folder


def replay(options, locale, actions):
    """Replays a list; (place of the first difference, its lines), place None when there is none."""
    session = Session(options.program, options.driver, locale)
    try:
        differences = session.start()
        if differences:
            return 0, differences, session.output()
        for place, action in enumerate(actions, 1):
            if not session.applicable(action):
                continue
            differences = session.do(action)
            if differences:
                return place, differences, session.output()
        differences = session.close()
        return (len(actions) if differences else None), differences, session.output()
    finally:
        session.process and session.process.kill()
        session.remove()


def _kind(line):
    """What a difference is about, without its values and indices."""
    return line.split(": ", 1)[0].split("(", 1)[0]


def shorten(options, locale, actions, differences, patience_s):
    """Drops actions as long as a difference of the same kind remains."""
    deadline = time.monotonic() + patience_s
    kind = _kind(differences[0])
    chunk = max(1, len(actions) // 2)
    while chunk and time.monotonic() < deadline:
        i = 0
        while i < len(actions) and time.monotonic() < deadline:
            trial = actions[:i] + actions[i + chunk :]
            place, remaining, _ = replay(options, locale, trial)
            if place is not None and any(_kind(line) == kind for line in remaining):
                actions, differences = trial[:place], remaining
            else:
                i += chunk
        chunk //= 2
    return actions, differences


def one_session(options, locale, seed):
    """(actions done, differences, kinds of actions) of a session of its own seed."""
    dice = random.Random(f"{seed}/{locale}")
    session = Session(options.program, options.driver, locale)
    counts = Counter()
    try:
        differences = session.start()
        user = User(dice, session.model, dice.choice((0.02, 0.1, 0.3)))
        while not differences and len(session.done) < options.actions:
            action = user.next_action()
            counts[type(session.model.screen).__name__ + " " + action[0]] += 1
            if action[0] in IN_ONE_GO and dice.random() < 0.4:
                action = ["&" + action[0], *action[1:]]
            differences = session.do(action)
        differences = differences or session.close()
        return session.done, differences, counts, session.output()
    finally:
        session.process and session.process.kill()
        session.remove()


def report(options, locale, seed, actions, differences, output):
    total = len(actions)
    if options.shrink:
        actions, differences = shorten(options, locale, actions, differences, options.shrink)
    print(f"DIFFERENCE seed {seed} locale {locale}, after {total} actions")
    for line in differences[:12]:
        print("   ", line[:600])
    if len(differences) > 12:
        print(f"    ... {len(differences) - 12} more")
    if output.strip():
        print("    the program wrote:", output.strip()[-800:].replace("\n", "\n    "))
    name = os.path.join(options.reports, f"{locale}-{seed}.json")
    os.makedirs(options.reports, exist_ok=True)
    with open(name, "w", encoding="utf-8") as opened:
        json.dump({"locale": locale, "actions": actions}, opened, ensure_ascii=False, indent=0)
    for action in actions[-14:]:
        print("      ", json.dumps(action, ensure_ascii=False)[:160])
    print(f"    {len(actions)} actions, again with: lockstep.py --script {name}")
    sys.stdout.flush()


def replay_script(options):
    with open(options.script, encoding="utf-8") as opened:
        script = json.load(opened)
    place, differences, output = replay(options, script["locale"], script["actions"])
    if place is None:
        print(f"{len(script['actions'])} actions, no difference")
        return 0
    print(f"difference after action {place}: {json.dumps(script['actions'][place - 1])[:200]}")
    for line in differences:
        print("   ", line)
    print(output[-800:])
    return 1


def read_options():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--sessions", type=int, default=50, help="sessions of each locale")
    parser.add_argument("--actions", type=int, default=400, help="actions of a session")
    parser.add_argument("--seed", type=int, default=1, help="seed of the first session")
    parser.add_argument("--locale", choices=("point", "comma"), help="only this one")
    parser.add_argument("--stop-after", type=int, default=3, help="differing sessions to report")
    parser.add_argument("--shrink", type=float, default=60, help="seconds to shorten a report")
    parser.add_argument("--script", help="replay a reported action list")
    parser.add_argument("--program", default=os.path.join(ROOT, "build/release/velmora"))
    parser.add_argument("--driver", help="build folder of the plug-in")
    parser.add_argument("--reports", default=os.path.join(ROOT, "build/lockstep/reports"))
    parser.add_argument("--verbose", action="store_true", help="count the kinds of actions")
    options = parser.parse_args()
    if not options.driver:
        options.driver = build_driver(os.path.join(ROOT, "build/lockstep"))
    return options


def main():
    options = read_options()
    if options.script:
        return replay_script(options)
    start, total, differing, kinds = time.monotonic(), 0, 0, Counter()
    sessions = 0
    for seed in range(options.seed, options.seed + options.sessions):
        for locale in (options.locale,) if options.locale else ("point", "comma"):
            actions, differences, counts, output = one_session(options, locale, seed)
            total, sessions = total + len(actions), sessions + 1
            kinds += counts
            if differences:
                differing += 1
                report(options, locale, seed, actions, differences, output)
        if differing >= options.stop_after:
            break
        if options.verbose and (seed - options.seed) % 20 == 19:
            progress = f"seed {seed}: {sessions} sessions, {total} actions, {differing} differ"
            print(progress, file=sys.stderr, flush=True)
    seconds = time.monotonic() - start
    print(f"{sessions} sessions, {total} actions, {differing} with a difference, {seconds:.0f} s")
    if options.verbose:
        for kind, times in sorted(kinds.items()):
            print(f"  {times:7d} {kind}")
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main())
