import os
import subprocess
import unittest

import planted

SETUP = os.path.join(planted.PROJECT, "scripts", "setup.sh")

FAKES = {
    # Knows what FAKE_INSTALLED names.
    "dpkg-query": 'for p in $FAKE_INSTALLED; do echo "ii |$p"; done; exit 1',
    "apt-get": 'echo "$0 $*" >>"$FAKE_LOG"; case " $* " in *" --simulate "*) [ -f "$FAKE_LISTS" ];; *" update "*) : >"$FAKE_LISTS";; esac',
    "sudo": 'echo sudo >>"$FAKE_LOG"; exec "$@"',
    "id": 'echo "$FAKE_ID"',
}


class Setup(planted.PlantedTree):
    def setUp(self):
        super().setUp()
        for name, text in FAKES.items():
            self.plant(f"bin/{name}", f"#!/bin/sh\n{text}\n")
            os.chmod(os.path.join(self.root, "bin", name), 0o755)
        self.log = os.path.join(self.root, "log")
        self.lists = os.path.join(self.root, "lists")

    def setup_packages(self, *groups, installed="", user="0"):
        environment = dict(os.environ, PATH=f"{self.root}/bin:{os.environ['PATH']}", FAKE_INSTALLED=installed, FAKE_LOG=self.log,
                           FAKE_LISTS=self.lists, FAKE_ID=user)
        return subprocess.run([SETUP, *groups], env=environment, capture_output=True, text=True)

    def calls(self):
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding="utf-8") as log:
            return [line.replace(f"{self.root}/bin/", "").strip() for line in log]

    def fonts(self):
        return subprocess.run([SETUP, "--list", "fonts"], capture_output=True, text=True).stdout.split()

    def test_nothing_missing_does_and_says_nothing(self):
        done = self.setup_packages("fonts", installed=" ".join(self.fonts()))
        self.assertEqual((done.returncode, done.stdout, self.calls()), (0, "", []))

    def test_installs_only_what_is_missing_and_says_so(self):
        open(self.lists, "w").close()
        first, *others = self.fonts()
        done = self.setup_packages("fonts", installed=first)
        self.assertEqual(done.returncode, 0)
        self.assertIn("setup: installing " + " ".join(others), done.stdout)
        installs = [call for call in self.calls() if "--simulate" not in call]
        self.assertEqual(len(installs), 1)
        self.assertTrue(installs[0].endswith("-y --no-install-recommends install " + " ".join(others)), installs)

    def test_reads_the_lists_only_when_they_lack_a_package(self):
        self.setup_packages("fonts")
        self.assertEqual([call.endswith(" update") for call in self.calls()], [False, True, False])

    def test_asks_sudo_only_when_not_root(self):
        open(self.lists, "w").close()
        self.setup_packages("fonts", user="0")
        self.assertNotIn("sudo", self.calls())
        self.setup_packages("fonts", user="1000")
        self.assertIn("sudo", self.calls())

    def test_an_unknown_group_is_refused(self):
        done = self.setup_packages("nonsense")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("nonsense", done.stderr)

    def packages(self):
        with open(os.path.join(planted.PROJECT, "scripts", "packages.txt"), encoding="utf-8") as file:
            return [line.strip() for line in file if line.strip() and not line.startswith("#")]

    def test_no_package_is_listed_twice(self):
        self.assertEqual(sorted(set(self.packages())), sorted(self.packages()))

    def test_the_readme_gives_each_package_a_reason(self):
        with open(os.path.join(planted.PROJECT, "README.md"), encoding="utf-8") as file:
            table = "".join(line for line in file if line.startswith("| `"))
        self.assertEqual([package for package in self.packages() if f"`{package}`" not in table], [])


if __name__ == "__main__":
    unittest.main()
