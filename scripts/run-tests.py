#!/usr/bin/env python3
"""Runs every test of a build, or lists them, and closes with a line "N passed, N failed".

    scripts/run-tests.py build/dev [--list] [--filter GLOB[:GLOB...]] [--jobs N]

The build writes tests/test_programs.txt, a line a program: "gtest|name|program|tests to a process" for a GoogleTest program, and
"command|test name|word|word..." for a test that is one command (0: passed, 77: skipped).
"""

import argparse
import concurrent.futures
import fnmatch
import os
import re
import subprocess
import sys
import tempfile

PROCESS_TIMEOUT = 900
SKIPPED_STATUS = 77

STARTED = re.compile(r"^\[ RUN      \] (\S+)")
ENDED = re.compile(r"\[ *(OK|FAILED|SKIPPED) *\] ([^\s,]+)(?:, where .*)? \(\d+ ms\)$")


def names_in(listing):
    """The full names in the output of --gtest_list_tests."""
    names, suite = [], ""
    for line in listing.splitlines():
        name = line.split("#")[0].rstrip()
        if line.startswith("  "):
            names.append(suite + name.strip())
        elif name.endswith("."):
            suite = name
    return [name for name in names if not re.search(r"(^|[./])DISABLED_", name)]


def is_wanted(name, patterns):
    return not patterns or any(fnmatch.fnmatchcase(name, pattern) for pattern in patterns)


class Program:
    """A GoogleTest program and the tests wanted of it."""

    def __init__(self, path, patterns, tests_per_process):
        self.path = path
        self.tests_per_process = tests_per_process
        listing = subprocess.run([path, "--gtest_list_tests"], capture_output=True, text=True, errors="replace", timeout=120)
        if listing.returncode != 0:
            raise RuntimeError(f"{path} does not list its tests:\n{listing.stdout}{listing.stderr}")
        self.names = [name for name in names_in(listing.stdout) if is_wanted(name, patterns)]

    def jobs(self):
        for start in range(0, len(self.names), self.tests_per_process):
            yield lambda names=self.names[start : start + self.tests_per_process]: self.run(names)

    def run(self, names):
        """The outcome of each: (name, "OK" | "FAILED" | "SKIPPED", output)."""
        results, left = [], list(names)
        while left:
            outcomes, complaint = self.run_once(left)
            results += outcomes
            done = {name for name, _, _ in outcomes}
            rest = [name for name in left if name not in done]
            if not rest and complaint and not any(outcome == "FAILED" for _, outcome, _ in outcomes):
                # All tests passed and the program failed all the same: a leak found at exit, a crash in a destructor.
                results.append((os.path.basename(self.path) + ".EndsWithoutComplaint", "FAILED", complaint))
            if len(rest) == len(left):
                results += [(name, "FAILED", complaint) for name in rest]
                rest = []
            left = rest
        return results

    def run_once(self, names):
        # The environment, because a command line has less room.
        environment = dict(os.environ, GTEST_FILTER=":".join(names), GTEST_COLOR="no")
        process = subprocess.Popen([self.path], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                                   env=environment, stdin=subprocess.DEVNULL)
        try:
            output, _ = process.communicate(timeout=PROCESS_TIMEOUT)
            ending = f"ended with status {process.returncode}"
        except subprocess.TimeoutExpired:
            process.kill()
            output, _ = process.communicate()
            ending = f"did not end within {PROCESS_TIMEOUT} seconds"

        outcomes, running, lines = [], None, []
        for line in output.splitlines():
            lines.append(line)
            if started := STARTED.match(line):
                running, lines = started.group(1), []
            elif (ended := ENDED.search(line)) and ended.group(2) == running:
                outcomes.append((running, ended.group(1), "\n".join(lines)))
                running, lines = None, []
        complaint = "" if process.returncode == 0 else "\n".join(lines + [f"the program {ending}"])
        if running:
            outcomes.append((running, "FAILED", complaint or f"the program {ending} during the test"))
        return outcomes, complaint


def run_command(name, words):
    try:
        process = subprocess.run(words, capture_output=True, text=True, errors="replace", stdin=subprocess.DEVNULL,
                                 timeout=PROCESS_TIMEOUT)
    except (OSError, subprocess.TimeoutExpired) as failure:
        return [(name, "FAILED", str(failure))]
    outcome = {0: "OK", SKIPPED_STATUS: "SKIPPED"}.get(process.returncode, "FAILED")
    return [(name, outcome, process.stdout + process.stderr)]


def programs_of(build):
    with open(os.path.join(build, "tests", "test_programs.txt"), encoding="utf-8") as listing:
        for line in filter(None, map(str.strip, listing)):
            kind, name, *words = line.split("|")
            yield kind, name, words


def report(results):
    counts = {"OK": 0, "FAILED": 0, "SKIPPED": 0}
    for _, outcome, _ in results:
        counts[outcome] += 1
    for name, outcome, output in sorted(results):
        if outcome == "SKIPPED":
            print(f"skipped: {name}\n{output}")
    for name, outcome, output in sorted(results):
        if outcome == "FAILED":
            print(f"FAILED: {name}\n{output}\n")
    print(f"{counts['OK']} passed, {counts['FAILED']} failed" + (f", {counts['SKIPPED']} skipped" if counts["SKIPPED"] else ""))
    return 0 if counts["OK"] and not counts["FAILED"] else 1


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--filter", default="")
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 2)
    arguments = parser.parse_args()
    patterns = [pattern for pattern in arguments.filter.split(":") if pattern]

    programs, commands = [], []
    for kind, name, words in programs_of(arguments.build):
        if kind == "gtest":
            programs.append(Program(words[0], patterns, int(words[1])))
        elif is_wanted(name, patterns):
            commands.append((name, words))

    if arguments.list:
        for name in sorted([name for program in programs for name in program.names] + [name for name, _ in commands]):
            print(name)
        return 0

    # Tests keep their hands off the files of whoever runs them.
    with tempfile.TemporaryDirectory(prefix="plix-tests-") as home:
        os.environ["HOME"] = home
        for variable in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"):
            os.environ.pop(variable, None)
        # Tests of real services come few to a process and wait most of their time: they go first, and one more than there are
        # processors runs.
        programs.sort(key=lambda program: program.tests_per_process)
        with concurrent.futures.ThreadPoolExecutor(arguments.jobs + 1) as pool:
            jobs = [pool.submit(job) for program in programs for job in program.jobs()]
            jobs += [pool.submit(run_command, name, words) for name, words in commands]
            results = [result for job in jobs for result in job.result()]
    return report(results)


if __name__ == "__main__":
    sys.exit(main())
