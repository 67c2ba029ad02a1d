"""The output of a measurement: the result file, the table, survivors, comparisons."""
import dataclasses
import json

from mutation.sample import FOLDERS

CAUGHT, SURVIVED, LISTED = "caught", "survived", "listed"
COUNTED = (CAUGHT, SURVIVED, LISTED)
SAME_CODE, NOT_BUILT = "same code", "not built"  # not counted: the next mutant replaces it
REQUIRED = 95  # percent


@dataclasses.dataclass(frozen=True)
class Result:
    """The result of a mutant. `test`: the first that failed. `seconds`: the time it took."""
    id: str
    folder: str
    file: str
    line: int
    source: str
    change: str
    result: str
    stage: str = ""
    test: str = ""
    seconds: float = 0

    def place(self):
        return f"{self.file}:{self.line}: {self.change}"


def result_of(mutant, result, **more):
    return Result(mutant.ident, mutant.folder, mutant.file, mutant.line, mutant.source, mutant.change,
                  result, **more)


def write_line(file, result):
    file.write(json.dumps(dataclasses.asdict(result)) + "\n")
    file.flush()


def read(path):
    """The results of a file by the identities of their mutants."""
    with open(path, encoding="utf-8") as file:
        results = [Result(**json.loads(line)) for line in file]
    return {result.id: result for result in results}


def equivalents(path):
    """The mutants listed as equivalent: (file, source line, change). See the file's first lines."""
    listed = set()
    lines = [line for line in path.read_text().splitlines() if line and not line.startswith("#")]
    for place, source, reason in zip(lines[::3], lines[1::3], lines[2::3], strict=True):
        file, _, change = place.partition(": ")
        if not reason.startswith("    because "):
            raise SystemExit(f"{path}: {place} has no reason")
        listed.add((file, source.strip(), change))
    return listed


def is_listed(mutant, listed):
    return (mutant.file, mutant.source, mutant.change) in listed


def score(results):
    """(mutants, caught, listed, percent) of some results. The percentage excludes those listed."""
    counts = {kind: sum(each.result == kind for each in results) for kind in COUNTED}
    tried = counts[CAUGHT] + counts[SURVIVED]
    percent = 100 * counts[CAUGHT] / tried if tried else 100
    return tried + counts[LISTED], counts[CAUGHT], counts[LISTED], percent


def table(results):
    """The lines of the table: one for each folder, and one for all."""
    folders = sorted({each.folder for each in results}, key=FOLDERS.index)
    rows = [(folder, [each for each in results if each.folder == folder]) for folder in folders]
    yield f"{'folder':12} {'mutants':>8} {'caught':>7} {'listed':>7} {'score':>7}"
    for name, group in [*rows, ("all", results)]:
        tried, caught, listed, percent = score(group)
        yield f"{name:12} {tried:8} {caught:7} {listed:7} {percent:6.1f}%"


def survivors(results):
    """The lines that list what survived: each mutant's place and change, and its source line."""
    for each in sorted(results, key=lambda each: (each.file, each.line, each.change)):
        if each.result == SURVIVED:
            yield each.place()
            yield f"    {each.source}"


def is_good(results):
    folders = {each.folder for each in results}
    return all(score([each for each in results if each.folder == folder])[3] >= REQUIRED
               for folder in folders)


def lost(old, new):
    """The lines that list the mutants that were caught and now survive, with the test."""
    for ident, before in old.items():
        after = new.get(ident)
        if before.result == CAUGHT and after is not None and after.result == SURVIVED:
            yield after.place()
            yield f"    {after.source}"
            yield f"    was caught by {before.test}"
