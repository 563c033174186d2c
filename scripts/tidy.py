#!/usr/bin/env python3
"""Runs clang-tidy over sources, two and more at a time, and remembers what it had nothing to say about.

    scripts/tidy.py FOLDER SOURCE...

FOLDER is a configured build whose compile_commands.json tells how each source is compiled; one that is not in it is
passed over (another platform's, say). A source is looked at again when what the preprocessor makes of it, or
.clang-tidy, has changed since. As the compiler's cache, the memory outlives the build folder: it is
$XDG_CACHE_HOME/vortan-tidy, or ~/.cache/vortan-tidy. The exit code is 1 if there is a finding.
"""
import hashlib
import json
import os
import shlex
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path


MEMORY = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache") / "vortan-tidy"
DAYS_UNTIL_FORGOTTEN = 60


def forget_what_is_old():
    oldest = time.time() - DAYS_UNTIL_FORGOTTEN * 24 * 60 * 60
    for stamp in MEMORY.iterdir():
        if stamp.stat().st_mtime < oldest:
            stamp.unlink(missing_ok=True)


def commands(folder):
    """The compile command of each source, by its path. One that several programs share stands in the list once."""
    entries = json.loads((folder / "compile_commands.json").read_text())
    return {os.path.realpath(os.path.join(entry["directory"], entry["file"])): entry for entry in entries}


def preprocessed(entry):
    words = shlex.split(entry["command"])
    if os.path.basename(words[0]) == "ccache":
        words = words[1:]
    output = words.index("-o")
    words = words[:output] + words[output + 2:]
    words[words.index("-c")] = "-E"
    words.append("-C")  # Comments too can tell clang-tidy something.
    result = subprocess.run(words, cwd=entry["directory"], capture_output=True)
    return result.stdout if result.returncode == 0 else None


def look_at(source, entry, folder, rules):
    text = preprocessed(entry)
    digest = hashlib.sha256(rules + source.encode() + (text or b"")).hexdigest()
    stamp = MEMORY / digest
    if text is not None and stamp.exists():
        stamp.touch()
        return "", True
    result = subprocess.run(["clang-tidy", "--quiet", "--warnings-as-errors=*", "-p", str(folder), source],
                            capture_output=True, text=True)
    if result.returncode != 0:
        return result.stdout or result.stderr, False
    stamp.touch()
    return "", True


def main():
    folder = Path(sys.argv[1])
    known = commands(folder)
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    rules = version + Path(".clang-tidy").read_bytes()
    sources = [path for path in map(os.path.realpath, sys.argv[2:]) if path in known]
    MEMORY.mkdir(parents=True, exist_ok=True)
    forget_what_is_old()
    failed = 0
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for text, is_clean in pool.map(lambda path: look_at(path, known[path], folder, rules), sources):
            print(text, end="")
            failed += not is_clean
    print(f"clang-tidy: {len(sources)} sources, {failed} with findings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
