"""Medians of several rounds: of the rows of the benchmark programs, and of whole processes."""
import json
import math
import resource
import statistics
import subprocess

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6}


class Rows:
    """The rows of benchmark programs: for each name the median in nanoseconds and the counters."""

    def __init__(self, folder, processes, rounds):
        self.folder, self.processes, self.rounds = folder, processes, rounds
        self.rows, self.uncertainty = {}, {}

    def run(self, program):
        """Runs a program `processes` times, each time all its benchmarks in random order, `rounds`
        times. A process places its memory once, and keeps a place that costs time."""
        times = {}
        for _ in range(self.processes):
            run = subprocess.run(
                [self.folder / program, "--benchmark_format=json", "--benchmark_min_time=0.05",
                 f"--benchmark_repetitions={self.rounds}",
                 "--benchmark_enable_random_interleaving=true"],
                check=True, capture_output=True, text=True)
            for row in json.loads(run.stdout)["benchmarks"]:
                if row["run_type"] == "iteration":
                    times.setdefault(row["run_name"], []).append(
                        row["cpu_time"] * NANOSECONDS[row["time_unit"]])
                    self.rows[row["run_name"]] = row
        for name, values in times.items():
            self.rows[name]["nanoseconds"] = statistics.median(values)
            self.uncertainty[name] = uncertainty(values)

    def time(self, name):
        return self.rows[name]["nanoseconds"]

    def counter(self, name, counter):
        return int(self.rows[name][counter])


def uncertainty(values):
    """The standard error of the median, as a part of it. It is estimated from the distance of the
    quartiles, because single values can be far off."""
    quartiles = statistics.quantiles(values, n=4)
    return 0.93 * (quartiles[2] - quartiles[0]) / math.sqrt(len(values)) / quartiles[1]


def process_times(commands, rounds):
    """The processor time of whole processes in seconds: one list for each command, in turn."""
    times = [[] for _ in commands]
    for _ in range(rounds):
        for command, values in zip(commands, times):
            before = processor_time()
            subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
            values.append(processor_time() - before)
    return times


def processor_time():
    """The time that ended child processes used."""
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime
