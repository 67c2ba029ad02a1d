"""Builds the tree once, in a copy, and then each mutant from it: only the objects that a mutant
changes are compiled, and only the programs that hold them are linked.

A change in a header affects many objects. Nothing is inlined in this build, so the linker takes
each inline function from the first object that has it. It is enough to compile some objects that
together hold every instance of the changed function, and to link them first.
"""
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess

PRECOMPILE = pathlib.Path(__file__).resolve().with_name("precompile.cmake")
TARGETS = ("quillkit_tests", "quillkit_memory_tests")
# With checks of the containers, and without inlining.
CXX_FLAGS = "-O0 -w -D_GLIBCXX_ASSERTIONS"
OPTIMISED = ("-O2",)
SANITIZED = ("-fsanitize=address,undefined", "-fno-sanitize=vptr", "-fno-sanitize-recover=all")
COMPILE_SECONDS = 600
SLOW_OBJECTS = "tests/"  # each includes the test library


class BuildError(Exception):
    """Something did not compile or link."""


def synchronise(root, copy):
    """Makes `copy` contain exactly the files that git tracks or would add. Unchanged files keep their
    times."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=root,
                            check=True, capture_output=True, text=True).stdout.split("\0")
    wanted = {name for name in listed if name and (root / name).is_file()}
    for path in [*copy.rglob("*")]:
        if path.is_file() and str(path.relative_to(copy)) not in wanted:
            path.unlink()
    for name in wanted:
        source, target = root / name, copy / name
        if not target.exists() or source.read_bytes() != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, target)
            target.chmod(source.stat().st_mode)


class Build:
    """The built tree and what is needed to build a part of it again."""

    def __init__(self, root, work):
        self.tree, self.folder, self.scratch = work / "tree", work / "build", work / "mutants"
        self.tree.mkdir(parents=True, exist_ok=True)
        synchronise(root, self.tree)
        self._build()
        self._read_graph()
        self._read_dependencies()
        self._read_symbols()

    def _build(self):
        run(["cmake", "-G", "Ninja", "-S", self.tree, "-B", self.folder, "--log-level=WARNING",
             "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_C_COMPILER=clang", "-DCMAKE_CXX_COMPILER=clang++",
             f"-DCMAKE_CXX_FLAGS={CXX_FLAGS}", "-DCMAKE_C_FLAGS=-w",
             "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld", "-DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=lld",
             "-DCMAKE_BUILD_RPATH_USE_ORIGIN=ON", "-DQUILLKIT_BUILD_EXAMPLES=OFF",
             f"-DCMAKE_PROJECT_INCLUDE={PRECOMPILE}"])
        subprocess.run(["ninja", "-C", self.folder, *TARGETS], check=True)

    def _read_graph(self):
        """The commands that make each object, and each program and shared library of the tests."""
        steps = json.loads(run(["ninja", "-C", self.folder, "-t", "compdb"]))
        self.compiles = {step["output"]: step for step in steps if " -c " in step["command"]}
        self.links = {}
        for step in steps:
            output, words = step["output"], step["command"].split(" ")
            if output.startswith("bin/") and "-o" in words and (self.folder / output).exists():
                objects = [word for word in words if word in self.compiles]
                self.links[output] = (words, objects)

    def _read_dependencies(self):
        """The objects that depend on each file of the tree."""
        linked = {each for _, objects in self.links.values() for each in objects}
        self.dependants = {}
        for block in run(["ninja", "-C", self.folder, "-t", "deps"]).split("\n\n"):
            target, *files = block.strip().splitlines() or [""]
            target = target.split(":")[0]
            for file in files if target in linked else ():
                path = os.path.normpath(self.folder / file.strip())
                self.dependants.setdefault(path, []).append(target)

    def _read_symbols(self):
        """For each object, its functions that the linker may take from another object, and its
        local symbols."""
        objects = sorted({each for found in self.dependants.values() for each in found})
        self.symbols = {each: set() for each in objects}
        for line in run(["nm", "-A", "--defined-only", *objects], cwd=self.folder).splitlines():
            place, _, rest = line.partition(":")
            kind, name = rest.split()[-2:]
            if kind in "VvWw":
                self.symbols[place].add(name)
            elif kind in "td":
                self.symbols[place].add(f"{name} of {place}")

    def objects_of(self, file, function):
        """The objects to compile for a change of this function, in a file of the tree."""
        objects = self.dependants.get(str(self.tree / file), [])
        if not file.endswith(".h"):
            return objects
        return self._cover(objects, function) or objects

    def _cover(self, objects, function):
        """A subset of these objects that contains all instances of the function in each program."""
        pattern = symbol_pattern(function)
        held = {each: set(filter(pattern.search, self.symbols[each])) for each in objects}
        chosen = []
        for _, linked in self.links.values():
            inside = [each for each in objects if each in linked]
            missing = set().union(*(held[each] for each in inside))
            missing.difference_update(*(held[each] for each in chosen if each in inside))
            while missing:
                best = max(inside, key=lambda each: len(held[each] & missing) * cheapness(each))
                chosen.append(best)
                missing -= held[best]
        return chosen


def cheapness(name):
    return 1 if name.startswith(SLOW_OBJECTS) else 4


def symbol_pattern(function):
    """A pattern in the mangled names of a function's instances and of everything inside it."""
    *classes, name = function.split("::")
    if name.isidentifier() and name not in ("operator", *classes[-1:]):
        return re.compile(f"(?<![0-9]){len(name)}{name}")
    if classes:
        return re.compile(f"(?<![0-9]){len(classes[-1])}{classes[-1]}")
    return re.compile(".")


class Variant:
    """The programs of a mutant, or without one those of the tree, in a folder of their own."""

    def __init__(self, build, name, mutant_file=None, text=None, function=""):
        self.build, self.folder = build, build.scratch / name
        self.file, self.text = mutant_file, text
        shutil.rmtree(self.folder, ignore_errors=True)
        (self.folder / "bin").mkdir(parents=True)
        self.objects = build.objects_of(mutant_file, function) if mutant_file else []
        self.compiled = {}
        if mutant_file:
            self._write_source()
        self._link_names()

    def close(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def _write_source(self):
        path = self.folder / "tree" / self.file
        path.parent.mkdir(parents=True)
        path.write_text(self.text)

    def compile(self):
        """Compiles the changed objects. Returns whether their code changed."""
        for name in self.objects:
            self.compiled[name] = self._compile(name, "objects")
        return any((self.build.folder / name).read_bytes() != path.read_bytes()
                   for name, path in self.compiled.items())

    def is_same_optimised(self):
        """Whether optimised code is the same for the mutant and for the original."""
        for name in self.objects:
            mutant = self._compile(name, "optimised", OPTIMISED)
            original = self._compile(name, "original", OPTIMISED, is_mutant=False)
            if mutant.read_bytes() != original.read_bytes():
                return False
        return bool(self.objects)

    def _compile(self, name, kind, options=(), is_mutant=True):
        step = self.build.compiles[name]
        output = self.folder / kind / name
        output.parent.mkdir(parents=True, exist_ok=True)
        words = compile_words(step["command"], is_precompiled=not options)
        words[words.index("-o") + 1] = str(output)
        if is_mutant:
            words = [new for word in words for new in self._with_mutant(word)]
        run([*words, *options], cwd=self.build.folder)
        return output

    def _with_mutant(self, word):
        """A word of a compiler's command, with the mutant's file before that of the tree."""
        tree, own = str(self.build.tree), str(self.folder / "tree")
        if word == f"{tree}/{self.file}":
            return [f"{own}/{self.file}"]
        if word.startswith(f"-I{tree}"):
            return [word.replace(tree, own, 1), word]
        return [word]

    def sanitize(self, programs):
        """Compiles the changed objects with sanitizers, and links these programs with them."""
        self.compiled = {name: self._compile(name, "sanitized", SANITIZED) for name in self.objects}
        self.link(programs, SANITIZED)

    def link(self, programs, options=()):
        """Links the programs and shared libraries that hold a changed object, and takes the others
        from the tree. If there are options, links all."""
        for output in programs:
            words, objects = self.build.links[output]
            changed = [each for each in objects if each in self.compiled]
            if changed or options:
                self._link(output, words, changed, options)
            else:
                self.take(output)

    def take(self, output):
        """Puts a program of the tree beside the mutant's own."""
        os.link(self.build.folder / output, self.folder / output)

    def _link_names(self):
        """Copies the symbolic links to shared libraries."""
        for path in (self.build.folder / "bin").iterdir():
            name = self.folder / "bin" / path.name
            if path.is_symlink() and not name.is_symlink():
                name.symlink_to(os.readlink(path))

    def _link(self, output, words, changed, options):
        (self.folder / output).unlink(missing_ok=True)
        if self.file and self.file.endswith(".h"):
            words = leading(words, changed)
        at = words.index("-o")
        words = [*words[:at], *options, "-o", str(self.folder / output), *words[at + 2:]]
        names = {each: str(self.compiled[each]) for each in changed}
        run(["sh", "-c", " ".join(names.get(word, word) for word in words)], cwd=self.build.folder)


def leading(words, objects):
    """A linker's command with these objects before all others."""
    at = next(i for i, word in enumerate(words) if word in objects or word.endswith(".o"))
    return [*words[:at], *objects, *(word for word in words[at:] if word not in objects)]


def compile_words(command, is_precompiled):
    """The words of a compiler's command, without those that write dependencies. Unless
    `is_precompiled`, also without those that use precompiled headers: they require the options of
    the tree's build."""
    words = shlex.split(command)
    unwanted = [("-MD", 0, 1), ("-MT", 0, 2), ("-MF", 0, 2)]
    if not is_precompiled:
        unwanted += [("-include-pch", 1, 4), ("-include", 1, 4)]  # with -Xclang before each word
    for option, before, count in unwanted:
        if option in words:
            at = words.index(option) - before
            del words[at:at + count]
    return words


def run(command, cwd=None):
    """Runs a command and returns its output. Raises BuildError if it fails."""
    try:
        done = subprocess.run(command, cwd=cwd, capture_output=True, text=True, errors="replace",
                              stdin=subprocess.DEVNULL, timeout=COMPILE_SECONDS)
    except subprocess.TimeoutExpired as error:
        raise BuildError(f"{command}: more than {COMPILE_SECONDS} seconds") from error
    if done.returncode != 0:
        raise BuildError(done.stdout + done.stderr)
    return done.stdout
