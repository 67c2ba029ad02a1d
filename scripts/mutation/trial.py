"""Runs the tests on a mutant: those of its own folder, the others, the long ones, the memory tests.
A mutant that survives them is tested again by those of its folder, with sanitizers.
"""
import dataclasses
import json
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess

TESTS, MEMORY_TESTS = "bin/quillkit_tests", "bin/quillkit_memory_tests"
PROBE = "bin/quillkit_start_probe"  # contains little of the library and does not test it
LONG_SHARE = 0.01  # of the total time; longer tests run last
RESULT = re.compile(r"^\[ +(RUN|FAILED|OK) +\] (\w[\w/]*\.[\w/]+)", re.MULTILINE)
MEMORY_KILOBYTES = 4_000_000
FILE_BLOCKS = 1_000_000  # of 512 bytes
PASSED = ""
TIMED_OUT = "time limit"


@dataclasses.dataclass(frozen=True)
class Test:
    """A test, the folder below tests/ where it is defined, and the seconds that it takes."""
    name: str
    folder: str
    seconds: float


@dataclasses.dataclass(frozen=True)
class Stage:
    """Some tests of one program, and the seconds that they take without a mutant."""
    name: str
    program: str
    tests: tuple
    seconds: float
    slowness: int = 1  # how many times longer the tests take in this stage

    def limits(self):
        """The limits in seconds: processor time, real time."""
        seconds = self.seconds * self.slowness
        return int(10 + 4 * seconds), int(60 + 10 * seconds)


def prepare(variant):
    """Makes the programs that the tests need, apart from the memory tests."""
    variant.link([output for output in variant.build.links if output not in (MEMORY_TESTS, PROBE)])
    variant.take(PROBE)


class Tests:
    """The tests of the tree as they run without a mutant."""

    def __init__(self, variant):
        prepare(variant)
        variant.link([MEMORY_TESTS])
        self.tests = measured(variant, TESTS)
        self.memory = measured(variant, MEMORY_TESTS)
        limit = LONG_SHARE * sum(test.seconds for test in self.tests)
        self.fast = [test for test in self.tests if test.seconds <= limit]
        self.long = sorted((test for test in self.tests if test.seconds > limit),
                           key=lambda test: test.seconds)

    def stages(self, folder):
        """The stages for a mutant of a folder, in their order."""
        own = [test for test in self.fast if test.folder == folder]
        others = [test for test in self.fast if test.folder != folder]
        groups = [(folder, TESTS, own), ("others", TESTS, others), ("long", TESTS, self.long),
                  ("memory", MEMORY_TESTS, self.memory)]
        return [stage(*group) for group in groups if group[2]]

    def sanitizer_stage(self, folder):
        """The stage for a mutant of a folder that has survived the others. With sanitizers, all
        tests take a minute, so only those of the folder run."""
        own = [test for test in self.fast if test.folder == folder]
        return stage("sanitizers", TESTS, own, slowness=8)


def stage(name, program, tests, slowness=1):
    return Stage(name, program, tuple(test.name for test in tests),
                 sum(test.seconds for test in tests), slowness)


def measured(variant, program):
    """Runs all tests of a program, which must pass, and returns them."""
    report = variant.folder / "report.json"
    done = subprocess.run([variant.folder / program, f"--gtest_output=json:{report}"],
                          env=environment(variant.folder), stdin=subprocess.DEVNULL,
                          capture_output=True, text=True, errors="replace")
    if done.returncode != 0:
        raise SystemExit(f"{program} fails without a mutant:\n{done.stdout[-3000:]}{done.stderr[-3000:]}")
    suites = json.loads(report.read_text())["testsuites"]
    return [Test(f"{suite['name']}.{test['name']}", folder_of(test["file"]),
                 float(test["time"].rstrip("s")))
            for suite in suites for test in suite["testsuite"] if test["status"] == "RUN"]


def folder_of(path):
    """The folder below tests/ that holds a test's file."""
    parts = pathlib.PurePath(path).parts
    return parts[len(parts) - parts[::-1].index("tests")] if "tests" in parts else ""


def environment(folder):
    """The environment of a test program: its own home and temporary folder, and memory that is not
    zero when allocated or freed."""
    kept = {name: value for name, value in os.environ.items()
            if not name.startswith(("QUILL", "XDG_", "GTEST_"))}
    home = folder / "home"
    home.mkdir(exist_ok=True)
    return {**kept, "HOME": str(home), "TMPDIR": str(home), "MALLOC_PERTURB_": "85",
            "ASAN_OPTIONS": "detect_leaks=1", "UBSAN_OPTIONS": "halt_on_error=1"}


def first_failure(variant, chosen):
    """The first test of a stage that fails on a variant; or PASSED, or TIMED_OUT. A test that
    passes when it is repeated does not count, unless the whole stage fails again."""
    failed = run_tests(variant, chosen, chosen.tests)
    if failed in (PASSED, TIMED_OUT):
        return failed
    again = run_tests(variant, chosen, (failed,)) if "." in failed else PASSED
    return again or run_tests(variant, chosen, chosen.tests)


def run_tests(variant, chosen, names):
    """Runs some tests of a stage up to the first failure. Returns its name, PASSED or TIMED_OUT."""
    home, output = variant.folder / "home", variant.folder / "output"
    shutil.rmtree(home, ignore_errors=True)
    flags = variant.folder / "flags"
    flags.write_text(f"--gtest_filter={':'.join(names)}\n--gtest_fail_fast\n--gtest_color=no\n")
    processor, real = chosen.limits()
    memory = "unlimited" if chosen.slowness > 1 else MEMORY_KILOBYTES
    program = shlex.quote(str(variant.folder / chosen.program))
    script = (f"ulimit -c 0; ulimit -t {processor}; ulimit -v {memory}; ulimit -f {FILE_BLOCKS}; "
              f"exec {program} --gtest_flagfile={shlex.quote(str(flags))}")
    with open(output, "wb") as file:
        status = run_limited(["sh", "-c", script], real, file, environment(variant.folder), home)
    if status == 0:
        return PASSED
    if status in (None, -signal.SIGXCPU, -signal.SIGKILL):
        return TIMED_OUT
    return failure_in(output.read_bytes().decode(errors="replace"), status)


def run_limited(command, seconds, output, variables, folder):
    """Runs a command. Returns its status, or None after a time-out. Kills all processes that it left
    running."""
    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=output,
                               env=variables, cwd=folder, start_new_session=True)
    try:
        return process.wait(seconds)
    except subprocess.TimeoutExpired:
        return None
    finally:
        end_group(process)


def end_group(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


def failure_in(output, status):
    """The first test that failed in this output, or the one that ran when the program ended."""
    running = ""
    for kind, name in RESULT.findall(output):
        if kind == "FAILED":
            return name
        running = name if kind == "RUN" else ""
    if "LeakSanitizer: detected memory leaks" in output:
        return "memory leak"
    return running or f"status {status}"
