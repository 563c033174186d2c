"""The list of mutants that no test can tell from the original, each with its reason."""


class Accepted:
    """Lines of `FILE :: FUNCTION :: ORIGINAL -> MUTATED :: REASON`; empty lines and lines that start with # are for
    the reader."""

    def __init__(self, path):
        self.reasons = {}
        with open(path, encoding="latin-1") as file:
            for number, line in enumerate(file, 1):
                line = line.strip()
                if not line or line.startswith("#"):
                    continue
                parts = line.rsplit(" :: ", 1)
                if len(parts) != 2 or parts[0].count(" :: ") < 2 or not parts[1]:
                    raise RuntimeError(f"{path}:{number}: not FILE :: FUNCTION :: ORIGINAL -> MUTATED :: REASON")
                if parts[0] in self.reasons:
                    raise RuntimeError(f"{path}:{number}: listed twice")
                self.reasons[parts[0]] = parts[1]

    def __contains__(self, mutant):
        return mutant.name in self.reasons

    def stale(self, mutants, killed):
        """What the list names and what is not there any more, or what a test kills after all."""
        names = {mutant.name for mutant in mutants}
        gone = [name for name in self.reasons if name not in names]
        dead = [name for name in self.reasons if name in killed]
        return gone, dead
