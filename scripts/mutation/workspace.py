"""The folder in which mutants live: a copy of the checkout, whose product sources are rewritten, and its build."""

import hashlib
import json
import multiprocessing
import os
import pickle
import re
import shutil
import subprocess

from mutants import number_alike
from operators import Finder
from schemata import Writer, check_nesting
from syntax import Parser, Source, Tree, included

FOLDERS = ("host", "effects", "panel", "tree")
HERE = os.path.dirname(os.path.abspath(__file__))
LIBRARIES = ("host", "items", "effects", "tree", "panel")
MOST_ROUNDS = 25


def is_mutated(name):
    """The panel's platforms need a screen, and so does what the tree asks of them."""
    folder = name.split("/")[0]
    return folder in FOLDERS and "/platform/" not in name and name.endswith((".cpp", ".h"))


def write_if_changed(path, text):
    data = text.encode("latin-1")
    if os.path.exists(path):
        with open(path, "rb") as file:
            if file.read() == data:
                return
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)


class Workspace:
    def __init__(self, root):
        self.root = root
        self.folder = os.path.join(root, "build", "mutation")
        self.source, self.build = os.path.join(self.folder, "source"), os.path.join(self.folder, "build")
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=root, capture_output=True,
                                text=True, check=True).stdout.split("\n")
        self.files = [name for name in listed if name and os.path.isfile(os.path.join(root, name))]
        self.mutated = [name for name in self.files if is_mutated(name)]
        self.writers = {}

    # ---- The copy and its build

    def copy(self):
        """Everything but what is rewritten; what has left the checkout leaves the copy."""
        wanted = set(self.files) | {"mutation/Mutant.h"}
        for folder, _, names in os.walk(self.source):
            for name in names:
                path = os.path.join(folder, name)
                if os.path.relpath(path, self.source) not in wanted:
                    os.remove(path)
        for name in self.files:
            path = os.path.join(self.source, name)
            if name in self.mutated and os.path.exists(path):
                continue
            original = os.path.join(self.root, name)
            if not os.path.exists(path) or not self.is_same(original, path):
                os.makedirs(os.path.dirname(path), exist_ok=True)
                shutil.copy(original, path)
        with open(os.path.join(HERE, "Mutant.h"), encoding="latin-1") as file:
            write_if_changed(os.path.join(self.source, "mutation", "Mutant.h"), file.read())

    @staticmethod
    def is_same(one, two):
        with open(one, "rb") as first, open(two, "rb") as second:
            return first.read() == second.read()

    def configure(self):
        subprocess.run(["cmake", "-G", "Ninja", "-S", self.source, "-B", self.build, "-DCMAKE_BUILD_TYPE=Release",
                        "-DVORTAN_ONCE=OFF", "-DCMAKE_CXX_FLAGS=-w -Wno-narrowing", "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG",
                        "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"],
                       check=True, stdout=subprocess.DEVNULL)

    def make(self, targets, keepGoing=False):
        command = ["cmake", "--build", self.build, "-j", "2", "--target", *targets]
        if keepGoing:
            command += ["--", "-k", "0"]
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                              check=False)
        return done.returncode, done.stdout

    def others(self):
        """What a test depends on besides its program: the bundle, and the files that tests read."""
        data = ("tests/scenarios/", "fuzz/corpus/", "samples/", "docs/")
        paths = [os.path.join(self.source, name) for name in self.files if name.startswith(data)]
        paths = [path for path in paths + [os.path.join(self.build, "VortanObjectPanel.so")] if os.path.exists(path)]
        return paths + [os.path.join(HERE, "trials.py")]

    def numbers_in(self, name):
        return {of.number for _, _, of in self.writers[name].spans if not isinstance(of, tuple)}

    # ---- The mutants

    def find(self):
        """All mutants of the product, numbered. What was found for the same sources by the same tool is taken again."""
        digest = hashlib.sha256()
        tool = [os.path.join(HERE, name) for name in ("syntax.py", "operators.py", "mutants.py")]
        for path in tool + [os.path.join(self.root, name) for name in self.mutated]:
            with open(path, "rb") as file:
                digest.update(path.encode() + file.read())
        self.key = digest.hexdigest()
        cache = os.path.join(self.folder, "found.pickle")
        if os.path.exists(cache):
            with open(cache, "rb") as file:
                key, found = pickle.load(file)
            if key == self.key:
                return found
        found = self.find_anew()
        self.keep(found)
        return found

    def keep(self, found):
        with open(os.path.join(self.folder, "found.pickle"), "wb") as file:
            pickle.dump((self.key, found), file)

    def find_anew(self):
        with open(os.path.join(self.build, "compile_commands.json"), encoding="utf-8") as file:
            text = file.read().replace(self.source + "/", self.root + "/").replace(self.source + " ", self.root + " ")
        commands = json.loads(text)
        sources = [name for name in self.mutated if name.endswith(".cpp")]
        sources = [name for name in sources if any(each["file"] == os.path.join(self.root, name) for each in commands)]
        found = {}
        with multiprocessing.Pool(2) as pool:
            for part in pool.imap(find_in, [(self.root, commands, name, self.mutated) for name in sources]):
                for name, of_file in part.items():
                    if len(of_file.mutants) >= len(found[name].mutants if name in found else []):
                        found[name] = of_file
        missing = [name for name in self.mutated if name not in found]
        if missing:
            print("no source includes: " + " ".join(missing), flush=True)
        number_alike([mutant for name in sorted(found) for mutant in found[name].mutants])
        return found

    # ---- The rewritten sources

    def write(self, found):
        """Rewrites, compiles, and takes out what does not compile, until all of it does."""
        for round_ in range(MOST_ROUNDS):
            for name, of_file in found.items():
                self.write_file(name, of_file)
            code, said = self.make(LIBRARIES, keepGoing=True)
            if code == 0:
                return self.keep(found)
            out = self.take_out(found, said)
            print(f"round {round_ + 1}: {out} places cannot be switched at run time", flush=True)
            if out == 0:
                break
        raise RuntimeError("the rewritten sources do not compile:\n" + said[-4000:])

    def write_file(self, name, of_file):
        text = Source(self.root, name).text
        switched = [mutant for mutant in of_file.mutants if not mutant.isConstant]
        kept = check_nesting(switched)
        for mutant in switched:
            mutant.isConstant = mutant not in kept
        inUse = {mutant.relaxed for mutant in kept}
        relaxed = {span: word for span, word in of_file.relaxable.items() if span in inUse}
        writer = self.writers[name] = Writer(text, kept, relaxed)
        write_if_changed(os.path.join(self.source, name), writer.write())

    def take_out(self, found, said):
        """By what the compiler says: the mutant, or the lost constexpr, that stands around each complaint."""
        out = set()
        blocks = re.split(r"^(?=\S+:\d+:\d+: (?:fatal )?error: )", said, flags=re.M)
        for block in blocks[1:]:
            places = re.findall(r"^(\S+?):(\d+):(\d+): (?:fatal error|error|note|  required)", block, re.M)
            around = [self.around(path, int(line), int(column)) for path, line, column in places]
            around = [each for each in around if each is not None] or self.named(found, block)
            out.update(around[:1])
        for name, of in out:
            for mutant in found[name].mutants:
                if of in (mutant.number, mutant.relaxed):
                    mutant.isConstant = True
        return len(out)

    @staticmethod
    def named(found, block):
        """The declarations without their constexpr that the line the compiler shows makes use of."""
        words = set(re.findall(r"\w+", "".join(re.findall(r"^ *\d+ \|(.*)", block, re.M))))
        return [(name, span) for name, of_file in found.items() for span, word in of_file.relaxable.items()
                if word[-1] in words and any(m.relaxed == span and not m.isConstant for m in of_file.mutants)]

    def around(self, path, line, column):
        name = os.path.relpath(os.path.normpath(os.path.join(self.build, path)), self.source)
        writer = self.writers.get(name)
        if writer is None:
            return None
        text = "".join(writer.output)
        lines = text.split("\n")
        of = writer.innermost(sum(len(each) + 1 for each in lines[:line - 1]) + column - 1)
        if of is None:
            return None
        return (name, of if isinstance(of, tuple) else of.number)


def find_in(job):
    """What is found in a source and in the project's headers that it includes."""
    root, commands, name, mutated = job
    translation = Parser(root, commands).parse(name)
    names = [name] + sorted(set(mutated) & included(translation, root))
    return {each: Finder(Tree(translation, Source(root, each))).run() for each in names}
