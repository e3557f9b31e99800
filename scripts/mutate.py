"""Makes seeded single changes to portable code and lists those that no test notices. Called by mutate.sh."""

from __future__ import annotations

import argparse
import itertools
import json
import os
import random
import re
import resource
import shutil
import subprocess
import sys
import time
from pathlib import Path
from typing import Iterable, Iterator, NamedTuple

TREE = Path("build/mutate/tree")
BUILD = Path("build/mutate/build")
EXCEPTIONS = Path("scripts/mutate-exceptions.txt")
PORTABLE = ("MaterialLibrary", "shared", "grid", "tools/matlib")
SURVIVORS = Path("build/mutate/survivors.txt")
SECONDS = 30  # of processor time for a test; one that does not end has noticed the change
PATIENCE = 600  # seconds for one that waits for ever
MEMORY = 4 << 30  # for a test
UNNOTICED_BY_DESIGN = "house_"  # these look at the text of the files, not at what they do

# What is replaced, and by what. clang-format puts blanks around binary operators and none around template brackets.
OPERATORS = [
    (r" < ", [" <= "]),
    (r" <= ", [" < "]),
    (r" > ", [" >= "]),
    (r" >= ", [" > "]),
    (r" == ", [" != "]),
    (r" != ", [" == "]),
    (r" \+ ", [" - "]),
    (r" - ", [" + "]),
    (r" \* ", [" / "]),
    (r" / ", [" * "]),
    (r" && ", [" || "]),
    (r" \|\| ", [" && "]),
    (r" \+= ", [" -= "]),
    (r" -= ", [" += "]),
    (r"\+\+(?=\w)", ["--"]),
    (r"\btrue\b", ["false"]),
    (r"\bfalse\b", ["true"]),
    (r"\bstd::min\b", ["std::max"]),
    (r"\bstd::max\b", ["std::min"]),
    (r"\bbegin\(\)", ["end()"]),
    (r"(?<=[(\s])!(?=[\w(])", [""]),
    (r"(?<![\w.])\d+(?![\w.])", ["INCREMENT"]),
    (r"(?<![\w.])\d+\.\d+(?:e-?\d+)?(?![\w.])", ["SCALE"]),
]
STATEMENT = re.compile(r"^\s+[\w:.\->\[\]]+\([^{}]*\);$|^\s+[\w.\->\[\]]+ [+\-*/]?= [^{}]*;$")
NO_CODE = re.compile(r"^\s*(//|#|static_assert|using |namespace |template|\[\[nodiscard\]\] virtual|class |struct )")
STRINGS = re.compile(r"\"(?:[^\"\\]|\\.)*\"|'(?:[^'\\]|\\.)*'|//.*$")


class Change(NamedTuple):
    file: str
    line: int
    before: str
    after: str

    def __str__(self) -> str:
        return f"{self.file}:{self.line + 1}\n  - {self.before.strip()}\n  + {self.after.strip() or '(left out)'}"

    def key(self) -> str:
        return f"{self.file} | {self.before.strip()} | {self.after.strip() or '(left out)'}"


def find_changes(file: str, text: str) -> Iterator[Change]:
    for number, line in enumerate(text.splitlines()):
        if NO_CODE.match(line):
            continue
        hidden = [match.span() for match in STRINGS.finditer(line)]
        for pattern, replacements in OPERATORS:
            for match in re.finditer(pattern, line):
                if any(begin <= match.start() < end for begin, end in hidden):
                    continue
                for replacement in replacements:
                    if replacement == "INCREMENT":
                        replacement = str(int(match.group()) + 1)
                    elif replacement == "SCALE":
                        replacement = f"{match.group()} * 1.25" if float(match.group()) else "1.0"
                    yield Change(file, number, line, line[: match.start()] + replacement + line[match.end() :])
        if STATEMENT.match(line) and not line.strip().startswith("return"):
            yield Change(file, number, line, "")


def output_of(*command: str | Path) -> str:
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def portable_files(wanted: list[str]) -> list[str]:
    listed = output_of("git", "ls-files", "*.h", "*.cpp").split()
    files = [f for f in listed if f.startswith(PORTABLE) and "win32" not in f]
    unknown = [f for f in wanted if f not in files]
    if unknown:
        sys.exit(f"mutate.sh: no portable source file of this repository: {' '.join(unknown)}")
    return wanted or files


def read_lines(path: Path) -> set[str]:
    return {line for line in path.read_text().splitlines() if line and not line.startswith("#")}


def copy_tree() -> None:
    for name in filter(None, output_of("git", "ls-files", "-z").split("\0")):
        target = TREE / name
        if not Path(name).is_file():
            target.unlink(missing_ok=True)
        elif not target.exists() or target.read_bytes() != Path(name).read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(name, target)


def build(targets: Iterable[str] = ()) -> bool:
    result = subprocess.run(["ninja", "-C", BUILD, "-j", str(os.cpu_count()), *targets], capture_output=True, text=True)
    Path("build/mutate/build.log").write_text(result.stdout + result.stderr)
    return result.returncode == 0


class Test(NamedTuple):
    name: str
    command: list[str]
    folder: str
    programs: frozenset[str]  # of the build, that it runs

    def passes(self) -> bool:
        try:
            return subprocess.run(
                self.command, cwd=self.folder, env=os.environ | {"GTEST_FAIL_FAST": "1"}, preexec_fn=limit_resources,
                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE,
            ).returncode == 0
        except subprocess.TimeoutExpired:
            return False


def limit_resources() -> None:
    resource.setrlimit(resource.RLIMIT_CPU, (SECONDS, SECONDS))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))


def read_tests() -> list[Test]:
    """All tests that run programs of the build; a test of the tool names the folder where the tool is."""
    root = f"{BUILD.resolve()}/"
    targets = output_of("ninja", "-C", BUILD, "-t", "targets", "all")
    linked = set(re.findall(r"^(\S+): C(?:XX)?_(?:EXECUTABLE|SHARED_LIBRARY)_LINKER", targets, re.MULTILINE))
    tests = []
    for test in json.loads(output_of("ctest", "--test-dir", BUILD, "--show-only=json-v1"))["tests"]:
        named = {word.removeprefix(root) for word in test["command"] if word.startswith(root)}
        programs = frozenset("bin/matlib" if name == "bin" else name for name in named) & linked
        folder = next(p["value"] for p in test["properties"] if p["name"] == "WORKING_DIRECTORY")
        if programs and not test["name"].startswith(UNNOTICED_BY_DESIGN):
            tests.append(Test(test["name"], test["command"], folder, programs))
    return tests


def programs_to_link() -> set[str]:
    planned = output_of("ninja", "-C", BUILD, "-n")
    return set(re.findall(r"Linking C(?:XX)? (?:executable|shared library) (\S+)", planned))


class Trial:
    """Tries changes one after the other. The tests that noticed the last ones in a file come first."""

    def __init__(self, tests: list[Test]) -> None:
        self.tests = tests
        self.noticed: dict[tuple[str, str], int] = {}  # by file and test
        self.last_file = ""

    def rank(self, file: str, test: Test) -> tuple[int, bool]:
        akin = any(part.lower() in test.name for part in Path(file).parts[:-1])
        return -self.noticed.get((file, test.name), 0), not akin

    def try_change(self, change: Change) -> str:
        """What became of it: "killed", "survived", "unused" (in no tested program) or "refused" (by the compiler)."""
        if change.file != self.last_file:
            build()  # undoes what is left, so that only programs with this file are linked below
            self.last_file = change.file
        path = TREE / change.file
        original = path.read_text()
        lines = original.splitlines(keepends=True)
        lines[change.line] = change.after + "\n"
        try:
            path.write_text("".join(lines))
            linked = programs_to_link()
            affected = [test for test in self.tests if test.programs & linked]
            for test in sorted(affected, key=lambda test: self.rank(change.file, test)):
                if not build(sorted(test.programs)):
                    return "refused"
                if not test.passes():
                    self.noticed[change.file, test.name] = self.noticed.get((change.file, test.name), 0) + 1
                    return "killed"
            return "survived" if affected else "unused"
        finally:
            path.write_text(original)


def main() -> None:
    parser = argparse.ArgumentParser(prog="mutate.sh")
    parser.add_argument("count", nargs="?", type=int, default=30, metavar="N")
    parser.add_argument("files", nargs="*", metavar="FILE")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--again", action="store_true", help="only what survived the last time")
    options = parser.parse_args()

    excepted = read_lines(EXCEPTIONS)
    changes = [c for f in portable_files(options.files) for c in find_changes(f, Path(f).read_text())]
    possible = len(changes)
    if options.again:
        survived = read_lines(SURVIVORS)
        changes = [change for change in changes if change.key() in survived]
        options.count = len(changes)
    random.Random(options.seed).shuffle(changes)
    drawn = iter(changes)

    copy_tree()
    configure = ["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug"]
    linkers = [f"-DCMAKE_{kind}_LINKER_FLAGS=-fuse-ld=lld" for kind in ("EXE", "SHARED")]
    subprocess.run([*configure, *linkers, "-DCMAKE_CXX_FLAGS_DEBUG=-O1"], check=True, stdout=subprocess.DEVNULL)
    if not build():
        sys.exit("mutate.sh: the tree does not build without any change; see build/mutate/build.log")
    tests = read_tests()
    if failing := [test.name for test in tests if not test.passes()]:
        sys.exit(f"mutate.sh: without any change these tests fail: {' '.join(failing)}")

    trial = Trial(tests)
    counts = dict.fromkeys(("killed", "survived", "unused", "refused", "excepted"), 0)
    survivors = []
    begin = time.monotonic()
    while missing := options.count - counts["killed"] - counts["survived"]:
        # File by file: a change is undone by the next one.
        batch = sorted(itertools.islice(drawn, missing))
        if not batch:
            break
        for change in batch:
            outcome = "excepted" if change.key() in excepted else trial.try_change(change)
            counts[outcome] += 1
            if outcome == "survived":
                survivors.append(change)
                print(f"survived: {change}", flush=True)
    SURVIVORS.write_text("".join(f"{change.key()}\n" for change in survivors))
    tried = counts["killed"] + counts["survived"]
    print(f"{tried} of {possible} possible changes tried in {time.monotonic() - begin:.0f} s (seed {options.seed}): "
          f"{counts['killed']} noticed ({100 * counts['killed'] / max(tried, 1):.0f} per cent), "
          f"{len(survivors)} survived; {counts['excepted']} excepted, {counts['refused']} did not compile, "
          f"{counts['unused']} are in no program")


if __name__ == "__main__":
    main()
