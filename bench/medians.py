"""Medians of several rounds: of the rows of the benchmark programs, and of whole processes."""
import json
import math
import os
import resource
import statistics
import subprocess

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6}
MOST_UNCERTAINTY = 0.08  # of a median, as a part of it
PROCESSORS = sorted(os.sched_getaffinity(0))


class Rows:
    """The rows of benchmark programs: for each name the counters, and the median in nanoseconds of each
    process."""

    def __init__(self, folder, processes, rounds):
        self.folder, self.processes, self.rounds = folder, processes, rounds
        self.rows, self.medians = {}, {}

    def run(self, program, pairs=()):
        """Runs a program in each of `processes` processes, and in up to four times as many until the
        ratios of the pairs of names are certain."""
        for process in range(4 * self.processes):
            if process >= self.processes and all(map(self.is_certain, pairs)):
                break
            use_processor(process)
            self.run_once(program)

    def run_once(self, program):
        """Runs all benchmarks of a program in random order, `rounds` times."""
        run = subprocess.run(
            [self.folder / program, "--benchmark_format=json", "--benchmark_min_time=0.05",
             f"--benchmark_repetitions={self.rounds}",
             "--benchmark_enable_random_interleaving=true"],
            check=True, capture_output=True, text=True)
        times = {}
        for row in json.loads(run.stdout)["benchmarks"]:
            if row["run_type"] == "iteration":
                times.setdefault(row["run_name"], []).append(
                    row["cpu_time"] * NANOSECONDS[row["time_unit"]])
                self.rows[row["run_name"]] = row
        for name, values in times.items():
            self.medians.setdefault(name, []).append(statistics.median(values))

    def ratios(self, name, baseline):
        return ratios(self.medians[name], self.medians[baseline])

    def is_certain(self, pair):
        return uncertainty(self.ratios(*pair)) <= MOST_UNCERTAINTY

    def time(self, name):
        return statistics.median(self.medians[name])

    def least_time(self, name):
        """The least median of a process: another program on the same core can only add to a time of a
        few nanoseconds, and may do so during the whole run."""
        return min(self.medians[name])

    def counter(self, name, counter):
        return int(self.rows[name][counter])


def ratios(times, baselines):
    """The ratio of each pair of times that were measured together. A processor, or the place of a
    process in memory, can be slow for both."""
    return [time / baseline for time, baseline in zip(times, baselines)]


def uncertainty(values):
    """The standard error of the median, as a part of it. It is estimated from the distance of the
    quartiles, because single values can be far off."""
    quartiles = statistics.quantiles(values, n=4)
    return 0.93 * (quartiles[2] - quartiles[0]) / math.sqrt(len(values)) / quartiles[1]


def use_processor(turn):
    """Runs what follows, and the processes that it starts, on one processor: at each turn on the next
    one."""
    os.sched_setaffinity(0, {PROCESSORS[turn % len(PROCESSORS)]})


def process_times(commands, rounds):
    """The processor time of whole processes in seconds: one list for each command, in turn."""
    times = [[] for _ in commands]
    for turn in range(rounds):
        use_processor(turn)
        for command, values in zip(commands, times):
            values.append(process_time(command))
    return times


def process_time(command):
    before = processor_time()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return processor_time() - before


def processor_time():
    """The time that ended child processes used."""
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime
