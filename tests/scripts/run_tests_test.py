import contextlib
import importlib.util
import io
import os
import unittest

import planted

_specification = importlib.util.spec_from_file_location("run_tests", os.path.join(planted.PROJECT, "scripts", "run-tests.py"))
run_tests = importlib.util.module_from_spec(_specification)
_specification.loader.exec_module(run_tests)

# Speaks as a GoogleTest program does: what is said of each test is in `says`.
PROGRAM = """#!/usr/bin/env python3
import os, sys
says = {says}
if "--gtest_list_tests" in sys.argv:
    print("Suite.")
    for name in says:
        print("  " + name)
    sys.exit(0)
status = {status}
for name in os.environ["GTEST_FILTER"].split(":"):
    what = says[name.removeprefix("Suite.")]
    print("[ RUN      ] " + name)
    if what == "dies":
        sys.stdout.flush()
        os.abort()
    print("some output")
    print({{"OK": "[       OK ] ", "FAILED": "[  FAILED  ] ", "SKIPPED": "[  SKIPPED ] "}}[what] + name + " (1 ms)")
    status = status or int(what == "FAILED")
sys.exit(status)
"""


class RunTests(planted.PlantedTree):
    def program(self, status=0, **says):
        self.plant("tests/program", PROGRAM.format(says=says, status=status))
        path = os.path.join(self.root, "tests/program")
        os.chmod(path, 0o755)
        return run_tests.Program(path, [], 2)

    def run_program(self, status=0, **says):
        return [result for job in self.program(status, **says).jobs() for result in job()]

    def outcomes(self, results):
        return {name: outcome for name, outcome, _ in results}

    def closing_line(self, results):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = run_tests.report(results)
        return output.getvalue().splitlines()[-1], status

    def test_counts_what_passed(self):
        results = self.run_program(A="OK", B="OK")
        self.assertEqual(self.closing_line(results), ("2 passed, 0 failed", 0))

    def test_counts_what_failed_and_was_skipped(self):
        results = self.run_program(A="OK", B="FAILED", C="SKIPPED")
        self.assertEqual(self.closing_line(results), ("1 passed, 1 failed, 1 skipped", 1))

    def test_a_crash_fails_its_test_and_the_others_still_run(self):
        results = self.run_program(A="OK", B="dies", C="OK", D="dies", E="OK")
        self.assertEqual(self.outcomes(results), {"Suite.A": "OK", "Suite.B": "FAILED", "Suite.C": "OK", "Suite.D": "FAILED",
                                                  "Suite.E": "OK"})

    def test_a_program_that_complains_at_its_end_fails(self):
        results = self.run_program(status=23, A="OK")
        self.assertEqual(self.closing_line(results), ("1 passed, 1 failed", 1))

    def test_no_test_at_all_is_a_failure(self):
        self.assertEqual(self.closing_line([]), ("0 passed, 0 failed", 1))

    def test_many_tests_are_spread_over_processes(self):
        says = {f"T{index}": "OK" for index in range(5)}
        self.assertEqual(len(list(self.program(**says).jobs())), 3)
        self.assertEqual(self.closing_line(self.run_program(**says)), ("5 passed, 0 failed", 0))

    def test_a_command_passes_skips_or_fails_by_its_status(self):
        outcomes = [run_tests.run_command("a", ["sh", "-c", f"exit {status}"])[0][1] for status in (0, 77, 1)]
        self.assertEqual(outcomes, ["OK", "SKIPPED", "FAILED"])

    def test_reads_the_names_of_parameterised_tests(self):
        listing = "Plain.\n  One\n  DISABLED_Two\nTyped/0.  # TypeParam = int\n  Three\nAll/Table.\n  Four/0  # GetParam() = 7\n"
        self.assertEqual(run_tests.names_in(listing), ["Plain.One", "Typed/0.Three", "All/Table.Four/0"])

    def test_reads_how_a_parameterised_test_ended(self):
        ended = run_tests.ENDED.search("noise[  FAILED  ] All/Table.Four/0, where GetParam() = (7 ms) (12 ms)")
        self.assertEqual(ended.groups(), ("FAILED", "All/Table.Four/0"))


if __name__ == "__main__":
    unittest.main()
