"""Runs tests against mutants: which tests come past a mutant is found once, and only these are asked about it."""

import json
import os
import pickle
import re
import resource
import signal
import subprocess
import tempfile
import threading
import time
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass

WITHOUT_SCREEN = {"unit", "sweeps", "bundle", "fuzz"}
MEMORY = 4 << 30


@dataclass
class Test:
    name: str
    command: list
    environment: dict
    folder: str
    complaint: str  # What must not be in its output, a regular expression; or empty.
    seconds: float = 0.0
    processor: float = 0.0  # Seconds of it, which depend less on what else the machine does.
    reached: frozenset = frozenset()

    @property
    def filter(self):
        """Its name inside its program, if it is one of many there."""
        return next((word[len("--gtest_filter="):] for word in self.command if word.startswith("--gtest_filter=")), None)


def listed(build, wanted, programs):
    """The tests that may judge a mutant, as CTest knows them; of all programs if `programs` is None."""
    said = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], capture_output=True, text=True,
                          check=True).stdout
    tests, expanded = [], set()
    for entry in json.loads(said)["tests"]:
        properties = {each["name"]: each["value"] for each in entry.get("properties", [])}
        command = entry.get("command")
        # What is no program of this build has nothing to do with a mutant: a script over the sources, for instance.
        labels = set(properties.get("LABELS", []))
        if not command or not labels & wanted or not command[0].startswith(build):
            continue
        if programs is not None and os.path.basename(command[0]) not in programs:
            continue
        if not os.path.exists(command[0]) or "PASS_REGULAR_EXPRESSION" in properties:
            continue
        environment = dict(each.split("=", 1) for each in properties.get("ENVIRONMENT", [])
                           if not each.startswith("GTEST_"))
        test = Test(entry["name"], command, environment, properties.get("WORKING_DIRECTORY", build),
                    "|".join(properties.get("FAIL_REGULAR_EXPRESSION", [])))
        if "unit" not in labels or test.filter:
            tests.append(test)
        elif command[0] not in expanded:
            expanded.add(command[0])
            tests += each_of(test)
    return tests


def each_of(program):
    """The tests of a unit program, which CTest knows as a whole."""
    said = subprocess.run([program.command[0], "--gtest_list_tests"], capture_output=True, text=True, check=True,
                          env={**os.environ, **program.environment}).stdout
    tests, suite = [], ""
    for line in said.splitlines():
        name = line.split("#")[0].strip()
        if name and not line.startswith(" "):
            suite = name if name.endswith(".") else ""
        elif name and suite:
            tests.append(Test(f"{os.path.basename(program.command[0])}.{suite}{name}",
                              [program.command[0], f"--gtest_filter={suite}{name}"], program.environment,
                              program.folder, program.complaint))
    return tests


class Run:
    """One process with limits: a mutant may loop, or eat all memory, or wait for what never comes."""

    def __init__(self, command, environment, folder, seconds, processor):
        self.command, self.folder = command, folder
        self.processor, self.clock = 4 + int(5 * processor), 40 + 25 * seconds
        self.used = 0.0
        # What is given back to the C library is overwritten: a mutant that goes on using it is seen.
        self.environment = {**os.environ, **environment, "MALLOC_PERTURB_": "165"}

    def limit(self):
        resource.setrlimit(resource.RLIMIT_CPU, (self.processor, self.processor + 1))
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    def passes(self, complaint=""):
        with tempfile.TemporaryDirectory() as scratch, tempfile.TemporaryFile() as output:
            process = subprocess.Popen(
                self.command, cwd=self.folder, env={**self.environment, "TMPDIR": scratch}, stdin=subprocess.DEVNULL,
                stdout=output, stderr=subprocess.STDOUT, start_new_session=True, preexec_fn=self.limit)
            watch = threading.Timer(self.clock, self.end, (process,))
            watch.start()
            _, status, usage = os.wait4(process.pid, 0)
            watch.cancel()
            process.returncode = os.waitstatus_to_exitcode(status)
            self.used = usage.ru_utime + usage.ru_stime
            self.end(process)
            output.seek(0)
            self.output = output.read()
        return process.returncode == 0 and not (complaint and re.search(complaint.encode(), self.output))

    @staticmethod
    def end(process):
        """With all that it has started."""
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass


class Jury:
    """The tests, and what each of them comes past."""

    def __init__(self, workspace, count, jobs, scenarios, programs, asked):
        self.workspace, self.count, self.jobs = workspace, count, jobs
        labels = WITHOUT_SCREEN | {"scenarios"} if scenarios else WITHOUT_SCREEN
        self.tests = [test for test in listed(workspace.build, labels, programs) if re.search(asked, test.name)]
        self.killers = defaultdict(list)  # Of a function's mutants so far, the latest first.
        self.together = {}  # Program -> whether its tests pass in one process as they do in many.

    # ---- The run without a mutant

    def prepare(self, keyOf):
        """Runs each test by itself without a mutant; again only if the key of its program has changed since."""
        cache = os.path.join(self.workspace.folder, "baseline.pickle")
        known = {}  # Name -> key, test, whether it passes.
        if os.path.exists(cache):
            with open(cache, "rb") as file:
                known = pickle.load(file)
        anew = [test for test in self.tests if known.get(test.name, ("",))[0] != keyOf(test.command[0])]
        with ThreadPoolExecutor(self.jobs) as pool:
            for test, isGood in zip(anew, pool.map(self.try_alone, anew)):
                known[test.name] = keyOf(test.command[0]), test, isGood
        with open(cache, "wb") as file:
            pickle.dump(known, file)
        for test in self.tests:
            if not known[test.name][2]:
                print(f"left out, since it fails without a mutant: {test.name}", flush=True)
        self.tests = [known[test.name][1] for test in self.tests if known[test.name][2]]
        for program, tests in self.by_program(self.tests).items():
            self.together[program] = len(tests) == 1 or self.in_one(tests).passes(tests[0].complaint)
            if not self.together[program]:
                print(f"one test at a time, since they fail together: {os.path.basename(program)}", flush=True)

    def try_alone(self, test):
        with tempfile.NamedTemporaryFile() as reached:
            reached.truncate(self.count + 1)
            start = time.monotonic()
            run = Run(test.command, {**test.environment, "MUTANTS_REACHED": reached.name}, test.folder, 60, 60)
            isGood = run.passes(test.complaint)
            test.seconds, test.processor = time.monotonic() - start, run.used
            test.reached = frozenset(number for number, byte in enumerate(reached.read()) if byte)
        return isGood

    @staticmethod
    def by_program(tests):
        programs = defaultdict(list)
        for test in tests:
            key = test.command[0] if test.filter else test.name
            programs[key].append(test)
        return programs

    @staticmethod
    def in_one(tests, environment=None):
        """One process for several tests of a program; the first failure ends it."""
        first = tests[0]
        command = first.command
        if first.filter:
            command = [word for word in command if not word.startswith("--gtest_filter=")]
            command += ["--gtest_filter=" + ":".join(test.filter for test in tests), "--gtest_fail_fast"]
        return Run(command, {**first.environment, **(environment or {})}, first.folder,
                   sum(test.seconds for test in tests), sum(test.processor for test in tests))

    # ---- A mutant

    def groups(self, tests):
        """The tests as processes, the quickest first. Of many in one program, those that come past the fewest
        mutants go ahead: they are about this place more than the others."""
        groups = []
        for program, of_program in self.by_program(tests).items():
            if self.together.get(program, True):
                narrow = sorted(of_program, key=lambda test: len(test.reached))
                groups += [part for part in (narrow[:8], narrow[8:40], narrow[40:]) if part]
            else:
                groups += [[test] for test in of_program]
        return sorted(groups, key=lambda group: sum(test.seconds for test in group))

    def killer(self, mutant):
        """The test that fails with this mutant, or None if all pass. What has killed a mutant of the same function
        is asked first."""
        place = (mutant.file, mutant.function)
        reaching = [test for test in self.tests if mutant.number in test.reached]
        before = [test for test in self.killers[place] if mutant.number in test.reached]
        name = self.first_to_fail(mutant.number, before) if before else None
        if name is None:
            name = self.first_to_fail(mutant.number, [test for test in reaching if test not in before])
        for test in reaching:
            if test.name == name and test not in self.killers[place]:
                self.killers[place] = [test] + self.killers[place][:5]
        return name

    def first_to_fail(self, number, tests):
        for group in self.groups(tests):
            run = self.in_one(group, {"MUTANT": str(number)})
            if not run.passes(group[0].complaint):
                return self.failed_of(group, run.output)
        return None

    @staticmethod
    def failed_of(group, output):
        """The name of the test of the group that failed: the last one that began."""
        begun = re.findall(rb"^\[ RUN      \] (\S+)", output, re.M)
        last = begun[-1].decode() if begun else ""
        return next((test.name for test in group if test.filter == last), group[0].name)
