"""Chooses the mutants: the same number for each folder, in an order that depends only on the seed
and on their identities. The next mutant of the folder replaces one that does not count.
"""
import threading

from mutation import operators

# The folders of the library and of the simulator, and where they are.
PARENTS = ("src", ".")
FOLDERS = ("base", "platform", "bridge", "appliance", "softkeys", "books", "views", "lists", "import",
           "settings", "toolkit", "capi", "simulator")
OTHER_SYSTEM = "win32"


def place_of(tree, folder):
    """The path of a library folder in a tree."""
    for parent in PARENTS:
        if (tree / parent / folder).is_dir():
            return tree / parent / folder
    raise SystemExit(f"there is no folder {folder}")


def sources_of(tree, folder):
    """The sources of a folder that this system builds, in the order of their names."""
    place = place_of(tree, folder)
    return [path for path in sorted([*place.rglob("*.h"), *place.rglob("*.cpp")])
            if OTHER_SYSTEM not in path.parts]


def mutants(tree, folders):
    """Yields the list of all mutants of each folder."""
    headers = [path.read_text() for folder in FOLDERS for path in sources_of(tree, folder)
               if path.suffix == ".h"]
    constants = operators.constants_of(headers)
    for folder in folders:
        place = place_of(tree, folder)
        yield [mutant for path in sources_of(tree, folder) for mutant in operators.mutants_of(
            folder, str(path.relative_to(place.parent)), path.read_text(), constants)]


def ordered(found, seed):
    return sorted(found, key=lambda mutant: operators.digest(seed, mutant.ident))


class Sample:
    """Hands out mutants to several threads, from all folders in turn, until `count` of each are
    tried."""

    def __init__(self, folders, count):
        self._queues = [Queue(found, count) for found in folders]
        self._changed = threading.Condition()
        self.total = sum(min(queue.count, len(queue.rest)) for queue in self._queues)

    def __iter__(self):
        while True:
            with self._changed:
                self._changed.wait_for(lambda: any(
                    queue.is_open() for queue in self._queues) or not any(
                    queue.running for queue in self._queues))
                waiting = [queue for queue in self._queues if queue.is_open()]
                if not waiting:
                    return
                queue = min(waiting, key=lambda each: each.tried + each.running)
                mutant = queue.take()
            yield queue, mutant

    def done(self, queue, counts):
        """Records that a mutant has been tried, and whether it counts."""
        with self._changed:
            queue.running -= 1
            queue.tried += counts
            self._changed.notify_all()


class Queue:
    """The mutants of one folder."""

    def __init__(self, found, count):
        self.rest, self.count = list(reversed(found)), count
        self.running = self.tried = 0

    def is_open(self):
        return bool(self.rest) and self.tried + self.running < self.count

    def take(self):
        self.running += 1
        return self.rest.pop()
