"""Rewrites a source so that it holds all its mutants side by side, each selected by its number."""

from dataclasses import dataclass

INCLUDE = '#include "mutation/Mutant.h"\n'


@dataclass
class Piece:
    """A range and what stands there in place of it, or around it; `of` is the mutant, or the declaration that loses
    its constexpr."""
    start: int
    end: int
    text: str
    form: str
    of: object


class Writer:
    """The rewritten text of one source, and which mutant stands where in it. `relaxations` are the declarations that
    lose their constexpr: range of the declaration -> range of the word, and what takes its place, and the declared name."""

    def __init__(self, text, mutants, relaxations):
        self.text = text
        pieces = [Piece(change.start, change.end, change.text, change.form, mutant)
                  for mutant in mutants for change in mutant.changes]
        for (start, end), (word, word_end, instead, _) in relaxations.items():
            pieces += [Piece(start, end, "", "around", (start, end)), Piece(word, word_end, instead, "plain", None)]
        # From the outside inwards; what is inserted at a place comes before what starts there.
        self.pieces = sorted(pieces, key=lambda piece: (piece.start, -piece.end))
        self.output, self.length, self.spans = [], 0, []

    def write(self):
        self.emit(INCLUDE)
        self.range(0, len(self.text), self.pieces)
        return "".join(self.output)

    def innermost(self, offset):
        """What stands around an offset of the output, most closely; None where nothing is changed."""
        around = [(end - begin, of) for begin, end, of in self.spans if begin <= offset < end]
        return min(around, key=lambda each: each[0])[1] if around else None

    def emit(self, text):
        self.output.append(text)
        self.length += len(text)

    def range(self, start, end, pieces):
        """Copies a range; `pieces` are those that lie in it."""
        at = start
        while pieces:
            piece = pieces[0]
            inside = [each for each in pieces[1:] if each.end <= piece.end and each.start < piece.end]
            if piece.start == piece.end:
                inside = []
            pieces = pieces[1 + len(inside):]
            self.emit(self.text[at:piece.start])
            begin = self.length
            self.piece(piece, inside)
            if piece.of is not None:
                self.spans.append((begin, self.length, piece.of))
            at = piece.end
        self.emit(self.text[at:end])

    def piece(self, piece, inside):
        if piece.form == "plain":
            return self.emit(piece.text)
        if piece.form == "around":
            return self.range(piece.start, piece.end, inside)
        isOn = f"MUTANT({piece.of.number})"
        if piece.form == "before":
            return self.emit(f" if ({isOn}) {{ {piece.text} }} ")
        if piece.form == "condition":
            return self.emit(f"; {isOn} ? !{piece.text} : static_cast<bool>({piece.text})")
        if piece.form == "statement":
            self.emit(f"{{ if ({isOn}) {{ {piece.text} }} else ")
            self.range(piece.start, piece.end, inside)
            return self.emit(" }")
        opening = {"value": "(", "truth": "static_cast<bool>(", "effect": "static_cast<void>("}[piece.form]
        changed = piece.text if piece.text else "static_cast<void>(0)"
        self.emit(f"({isOn} ? ({changed}) : {opening}")
        self.range(piece.start, piece.end, inside)
        self.emit("))")


def check_nesting(mutants):
    """Two ranges that overlap without one holding the other cannot both be rewritten; the later one is left out."""
    kept, spans = [], []
    for mutant in sorted(mutants, key=lambda each: -max(change.end - change.start for change in each.changes)):
        ranges = [(change.start, change.end) for change in mutant.changes]
        crossing = any(start < other < end < stop or other < start < stop < end
                       for start, end in ranges for other, stop in spans)
        if not crossing:
            kept.append(mutant)
            spans += ranges
    return sorted(kept, key=lambda each: each.number)
