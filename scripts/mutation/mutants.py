"""What a mutant is: a small change of one source, which a number switches on at run time."""

import re
from dataclasses import dataclass, field


@dataclass
class Change:
    """A range of the source and what it becomes.
    `form` says how the original and the changed text are kept side by side:
      value      both are expressions, of one type
      truth      likewise, and the original is taken for true or false
      effect     an expression whose value nobody uses; an empty text does nothing
      statement  both are statements, with their semicolons
      before     the text is inserted at the start of the range, as a statement that runs only in the mutant
      condition  the text is appended to the declaration that an if tests"""
    start: int
    end: int
    text: str
    form: str


@dataclass
class Mutant:
    file: str
    line: int
    function: str
    operator: str
    original: str
    mutated: str
    changes: list
    isConstant: bool = False  # The compiler needs the value: no number at run time can switch it.
    relaxed: tuple = None  # The range of the declaration that must lose its constexpr for this mutant.
    ordinal: int = 1  # Among the mutants of the function that read alike.
    number: int = 0

    @property
    def name(self):
        again = f" [{self.ordinal}]" if self.ordinal > 1 else ""
        return f"{self.file} :: {self.function} :: {self.original} -> {self.mutated}{again}"

    def place(self):
        return f"{self.file}:{self.line}: {self.operator}: {self.original} -> {self.mutated}"


@dataclass
class Found:
    mutants: list = field(default_factory=list)
    relaxable: dict = field(default_factory=dict)  # Range of a constexpr declaration -> the word's range, what replaces it, and the name.


def in_one_line(text):
    """Code without its comments, with single spaces: a mutated text stays on one line, and a name can be compared."""
    text = re.sub(r'("(?:\\.|[^"\\\n])*")|//[^\n]*|/\*.*?\*/', lambda match: match.group(1) or " ", text, flags=re.S)
    return re.sub(r"\s+", " ", text).strip()


def shortened(text, length=110):
    text = in_one_line(text)
    return text if len(text) <= length else text[:length - 3] + "..."


def number_alike(mutants):
    """Gives each mutant a number of its own, and an ordinal to those whose names would be the same."""
    seen = {}
    for number, mutant in enumerate(mutants, 1):
        mutant.number = number
        key = (mutant.file, mutant.function, mutant.original, mutant.mutated)
        seen[key] = mutant.ordinal = seen.get(key, 0) + 1
