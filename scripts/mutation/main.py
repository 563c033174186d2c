"""scripts/mutate: see the head of that script."""

import argparse
import functools
import hashlib
import json
import os
import random
import sys
import time
from collections import Counter, defaultdict
from concurrent.futures import ThreadPoolExecutor

from accepted import Accepted
from rebuilt import try_rebuilt
from trials import Jury
from workspace import FOLDERS, Workspace


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutate")
    parser.add_argument("folders", nargs="*", metavar="FOLDER", help="host, effects, panel or tree; all of them")
    parser.add_argument("--sample", type=int, metavar="N", help="so many mutants, chosen at random")
    parser.add_argument("--seed", type=int, default=1, help="of that choice; 1")
    parser.add_argument("--again", metavar="FILE", help="the mutants that the lines of the file begin with")
    parser.add_argument("--rebuilt", type=int, metavar="N", default=0,
                        help="also so many of those that need a build of their own; none")
    parser.add_argument("--no-scenarios", action="store_true", help="asks the quicker tests alone")
    parser.add_argument("--programs", metavar="NAME,...", help="builds only these programs of the tests, and asks them")
    parser.add_argument("--tests", metavar="REGEX", default="", help="asks only the tests with such names")
    parser.add_argument("--jobs", type=int, default=2, help="processes at a time; 2")
    chosen = parser.parse_args()
    for folder in chosen.folders:
        if folder not in FOLDERS:
            parser.error(f"no folder {folder}; there are {', '.join(FOLDERS)}")
    return chosen


def choose(mutants, chosen):
    folders = chosen.folders or FOLDERS
    mutants = [mutant for mutant in mutants if mutant.file.split("/")[0] in folders]
    if chosen.again:
        with open(chosen.again, encoding="latin-1") as file:
            wanted = [line.rstrip("\n") for line in file]
        names = {mutant.name for mutant in mutants}
        names = {name for name in names if any(line == name or line.startswith(name + " :: ") for line in wanted)}
        mutants = [mutant for mutant in mutants if mutant.name in names]
    if chosen.sample is not None and chosen.sample < len(mutants):
        mutants = random.Random(chosen.seed).sample(mutants, chosen.sample)
    return mutants


def digest(paths):
    known = hashlib.sha256()
    for path in sorted(set(paths)):
        with open(path, "rb") as file:
            known.update(path.encode() + hashlib.sha256(file.read()).digest())
    return known.hexdigest()


def try_all(jury, mutants, jobs):
    """Mutant -> what killed it, or None."""
    killers, start = {}, time.monotonic()
    with ThreadPoolExecutor(jobs) as pool:
        trials = pool.map(lambda mutant: jury.killer(mutant), mutants)
        for done, (mutant, killer) in enumerate(zip(mutants, trials), 1):
            killers[mutant.name] = killer
            if killer is None:
                print(f"survives: {mutant.place()}", flush=True)
            if done % 100 == 0:
                print(f"{done} of {len(mutants)} in {time.monotonic() - start:.0f} s", flush=True)
    return killers


def report(mutants, killers, accepted, path):
    """The table, and the survivors as lines that --again and the list of accepted mutants understand."""
    rows, survivors = defaultdict(Counter), []
    for mutant in mutants:
        row = rows[mutant.file.split("/")[0]]
        row["mutants"] += 1
        if killers[mutant.name] is not None:
            row["killed"] += 1
        elif mutant in accepted:
            row["equivalent"] += 1
        else:
            row["survived"] += 1
            survivors.append(mutant)
    for mutant in survivors:
        print(f"  {mutant.place()}\n    {mutant.name}")
    with open(path, "w", encoding="latin-1") as file:
        file.writelines(mutant.name + "\n" for mutant in survivors)
    print(f"{'':10}{'mutants':>9}{'killed':>9}{'equivalent':>12}{'survived':>10}{'score':>8}")
    total = Counter()
    for folder in [each for each in FOLDERS if each in rows]:
        total += rows[folder]
        print_row(folder, rows[folder])
    print_row("all", total)
    return total


def print_row(name, row):
    judged = row["mutants"] - row["equivalent"]
    score = 100 * row["killed"] / judged if judged else 100
    print(f"{name:10}{row['mutants']:>9}{row['killed']:>9}{row['equivalent']:>12}{row['survived']:>10}{score:>7.1f}%")


def main():
    chosen = arguments()
    root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    workspace = Workspace(root)
    workspace.copy()
    workspace.configure()
    found = workspace.find()
    print("compiling the sources with their mutants", flush=True)
    workspace.write(found)
    programs = chosen.programs.split(",") if chosen.programs else None
    code, said = workspace.make(programs or ["commit-tests"])
    if code != 0:
        sys.exit("the tests do not build:\n" + said[-4000:])

    everything = [mutant for name in sorted(found) for mutant in found[name].mutants]
    mutants = choose([mutant for mutant in everything if not mutant.isConstant], chosen)
    jury = Jury(workspace, max(mutant.number for mutant in everything), chosen.jobs, not chosen.no_scenarios,
                programs, chosen.tests)
    print(f"{len(jury.tests)} tests run without a mutant, to see what each comes past", flush=True)
    others = workspace.others()
    jury.prepare(functools.lru_cache(None)(lambda program: digest([program] + others)))
    killers = try_all(jury, mutants, chosen.jobs)

    constants = choose([mutant for mutant in everything if mutant.isConstant], chosen)
    built = try_rebuilt(workspace, jury, constants, chosen.rebuilt, chosen.seed)
    killers.update(built)
    mutants += [mutant for mutant in constants if mutant.name in built]
    print(f"{len(constants)} mutants need a build of their own, and {len(built)} of them were tried")

    accepted = Accepted(os.path.join(root, "tests", "mutants-accepted.txt"))
    total = report(mutants, killers, accepted, os.path.join(workspace.folder, "survivors.txt"))
    gone, dead = accepted.stale(everything, {name for name, killer in killers.items() if killer is not None})
    for name in gone:
        print(f"accepted, and not there: {name}")
    for name in dead:
        print(f"accepted, and killed: {name}")
    with open(os.path.join(workspace.folder, "results.json"), "w", encoding="utf-8") as file:
        json.dump(killers, file, indent=0, sort_keys=True)
    print(f"mutants={total['mutants']} killed={total['killed']} equivalent={total['equivalent']} "
          f"survived={total['survived']}")
    return 1 if gone or dead else 0


if __name__ == "__main__":
    sys.exit(main())
