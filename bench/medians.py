"""The medians of a benchmark program's rows over several interleaved runs."""
import json
import pathlib
import subprocess
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6}


def medians(program):
    """Runs the program of the folder in the first argument, or else of the release build. Its rows
    by their names, each with its "nanoseconds" beside what else it counts."""
    root = pathlib.Path(__file__).resolve().parent.parent
    programs = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else root / "build/release/bin"
    run = subprocess.run(
        [programs / program, "--benchmark_format=json", "--benchmark_repetitions=9",
         "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true"],
        check=True, capture_output=True, text=True)
    rows = {row["run_name"]: row for row in json.loads(run.stdout)["benchmarks"]
            if row["aggregate_name"] == "median"}
    for row in rows.values():
        row["nanoseconds"] = row["cpu_time"] * NANOSECONDS[row["time_unit"]]
    return rows
