"""Mutants that no number can switch, since the compiler needs the value: each is built by itself."""

import os
import random

from syntax import Source
from workspace import write_if_changed


def changed_text(root, mutant):
    """The source as it is, with this one change."""
    text = Source(root, mutant.file).text
    for change in sorted(mutant.changes, key=lambda each: -each.start):
        new = f"({change.text})" if change.form in ("value", "truth") else change.text
        if change.form == "condition":
            new = f"; !{change.text}"
        text = text[:change.start] + new + text[change.end:]
    return text


def judged(workspace, jury, mutant):
    """What kills it; None if nothing does; no answer at all if it does not compile."""
    write_if_changed(os.path.join(workspace.source, mutant.file), changed_text(workspace.root, mutant))
    code, _ = workspace.make(["commit-tests"])
    if code != 0:
        return []
    beside = workspace.numbers_in(mutant.file)
    tests = [test for test in jury.tests if not beside or beside & test.reached]
    return [jury.first_to_fail(0, tests)]


def try_rebuilt(workspace, jury, mutants, most, seed):
    """Mutant -> what killed it, or None, for up to `most` of them."""
    if most < len(mutants):
        mutants = random.Random(seed).sample(mutants, most)
    killers = {}
    for mutant in mutants:
        path = os.path.join(workspace.source, mutant.file)
        with open(path, encoding="latin-1", newline="") as file:
            rewritten = file.read()
        try:
            for killer in judged(workspace, jury, mutant):
                killers[mutant.name] = killer
                print(f"{'survives' if killer is None else 'killed'}: {mutant.place()}", flush=True)
        finally:
            write_if_changed(path, rewritten)
    if mutants:
        workspace.make(["commit-tests"])
    return killers
