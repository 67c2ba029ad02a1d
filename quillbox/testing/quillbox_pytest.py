"""A pytest fixture for the tests of an application, which run it on the simulated appliance.

    pytest_plugins = ["quillbox_pytest"]

    def test_reports_a_full_panel(quillbox):
        quillbox.use("begin empty", "fault IMSPCreateEntry nth 3 status 24")
        assert "full" in quillbox.run("./application").stderr

The environment variable QUILLBOX names the command quillbox; without it, the PATH is searched.
"""
import json
import os
import pathlib
import subprocess

import pytest

# `quillbox run` exits with these if a fault did not fire, the appliance was not used, or the scenario
# is not valid.
_OF_QUILLBOX = (123, 124, 125)
# What it reports whatever the status of the program is.
_REPORTS = ("quillbox: unfired fault:", "quillbox: sessions that were not closed:")


class Quillbox:
    """An appliance, which lasts as long as the test."""

    def __init__(self, folder):
        self._command = os.environ.get("QUILLBOX", "quillbox")
        self._folder = pathlib.Path(folder)
        self._state = self._folder / "state"
        self._journal = self._folder / "journal"
        self.use()

    def use(self, *lines):
        """Begins with the appliance of a scenario, given as its lines without the first one. The paths
        in it are relative to the folder of the test (tmp_path)."""
        (self._folder / "scenario").write_text("\n".join(["quillbox scenario 1", *lines, ""]))
        self._quillbox("check", self._folder / "scenario")
        for each in self._state, self._journal:
            each.unlink(missing_ok=True)

    def run(self, *command, **options):
        """Runs a program on the appliance and returns the subprocess.CompletedProcess. `options` are
        those of subprocess.run. A fault that makes no call fail, a session that is not closed, and a
        program that does not use the appliance, is an AssertionError."""
        done = subprocess.run(
            [self._command, "run", "--state", self._state, "--journal", self._journal, "--form", "json",
             self._folder / "scenario", "--", *command],
            capture_output=True, text=True, check=False, **options)
        assert done.returncode not in _OF_QUILLBOX, done.stderr
        reports = [line for line in done.stderr.splitlines() if line.startswith(_REPORTS)]
        assert not reports, done.stderr
        return done

    def calls(self):
        """The calls of all runs: dictionaries with time, entryPoint, arguments, status and fault."""
        if not self._journal.exists():
            return []
        return [json.loads(line) for line in self._journal.read_text().splitlines()]

    def dump(self):
        """The books of the appliance as text, without passwords."""
        return self._quillbox("dump", self._state)

    def _quillbox(self, *arguments):
        done = subprocess.run([self._command, *arguments], capture_output=True, text=True, check=False)
        assert done.returncode == 0, done.stderr
        return done.stdout


@pytest.fixture
def quillbox(tmp_path):
    """A new appliance with the initial office."""
    return Quillbox(tmp_path)
