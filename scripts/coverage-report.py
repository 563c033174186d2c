"""Prints how many lines and branches of each folder the tests reach, and what they do not reach.

Called by scripts/coverage with llvm-cov's lines (lcov), its branches (JSON) and the list of what is accepted. An entry
of that list is a line of four fields, separated by " :: ":

    FILE :: line :: SOURCE LINE :: REASON
    FILE :: never true :: CONDITION :: REASON
    FILE :: never false :: CONDITION :: REASON

It goes by the source's words, so that it stays true when lines move. Fails if something that is not reached is not in
the list, and if an entry of the list is reached or gone.
"""

import collections
import json
import os
import sys

FOLDERS = ["host", "effects", "panel", "panel/platform", "tree", "tree/platform"]


def folder_of(path):
    return max((f for f in FOLDERS if path.startswith(f + "/")), key=len, default=None)


def read_lines(path):
    """Of each file, how often each line ran."""
    lines = {}
    for row in open(path, encoding="utf-8"):
        row = row.strip()
        if row.startswith("SF:"):
            current = lines.setdefault(os.path.relpath(row[3:]), collections.Counter())
        elif row.startswith("DA:"):
            number, count = row[3:].split(",")[:2]
            current[int(number)] += int(count)
    return lines


def read_branches(path):
    """Of each file, by where a condition stands: how often it was true, and false. The instances of a template and
    the programs that hold the same code are one."""
    branches = {}
    for data in json.load(open(path, encoding="utf-8"))["data"]:
        for file in data["files"]:
            found = branches.setdefault(os.path.relpath(file["filename"]), {})
            for branch in file["branches"]:
                counts = found.setdefault(tuple(branch[0:4]), [0, 0])
                counts[0] += branch[4]
                counts[1] += branch[5]
    return branches


def text_at(source, place):
    first_line, first, last_line, last = place
    if first_line == last_line:
        return source[first_line - 1][first - 1 : last - 1]
    parts = [source[first_line - 1][first - 1 :]] + source[first_line : last_line - 1] + [source[last_line - 1][: last - 1]]
    return " ".join(part.strip() for part in parts)


def unreached(path, lines, branches):
    """What no test reaches in one file, as (line number, kind, text)."""
    source = open(path, encoding="utf-8").read().split("\n")
    for number, count in sorted(lines.items()):
        if count == 0:
            yield number, "line", source[number - 1].strip()
    for place, counts in sorted(branches.items()):
        if counts == [0, 0]:
            continue  # Its line is not reached, or the compiler has decided it.
        for count, kind in zip(counts, ["never true", "never false"]):
            if count == 0:
                yield place[0], kind, text_at(source, place)


def read_accepted(path):
    accepted = {}
    for number, row in enumerate(open(path, encoding="utf-8"), 1):
        row = row.strip()
        if not row or row.startswith("#"):
            continue
        fields = row.split(" :: ")
        if len(fields) != 4 or not fields[3]:
            sys.exit(f"{path}:{number}: four fields belong here, and the last is the reason")
        accepted[tuple(fields[:3])] = fields[3]
    return accepted


def share(reached, total):
    return f"{reached:6} of {total:6} = {100 * reached / total if total else 100:6.2f} %"


def main():
    lines, branches, accepted = read_lines(sys.argv[1]), read_branches(sys.argv[2]), read_accepted(sys.argv[3])
    if not any(map(folder_of, lines)):
        sys.exit("no line of the product was measured")
    figures = {folder: [0, 0, 0, 0] for folder in FOLDERS}
    missing, met = [], set()
    for path in sorted(path for path in lines if folder_of(path)):
        figure = figures[folder_of(path)]
        figure[0] += sum(1 for count in lines[path].values() if count)
        figure[1] += len(lines[path])
        sides = [count for counts in branches.get(path, {}).values() for count in counts]
        figure[2] += sum(1 for count in sides if count)
        figure[3] += len(sides)
        for number, kind, text in unreached(path, lines[path], branches.get(path, {})):
            entry = (path, kind, text)
            met.add(entry)
            if entry not in accepted:
                missing.append(f"{path}:{number}: {kind}: {text}")

    print(f"{'':16} {'lines':>26}   {'branches':>26}")
    for folder, (line, of_lines, branch, of_branches) in figures.items():
        print(f"{folder:16} {share(line, of_lines)}   {share(branch, of_branches)}")
    print(f"accepted: {len(met & set(accepted))}")
    for text in missing:
        print("NOT REACHED", text)
    gone = [entry for entry in accepted if entry not in met]
    for entry in gone:
        print("REACHED OR GONE, and still in the list:", " :: ".join(entry))
    sys.exit(1 if missing or gone else 0)


main()
