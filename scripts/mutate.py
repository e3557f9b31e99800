"""Makes seeded single changes to portable code and lists those that no test notices. Called by mutate.sh."""

from __future__ import annotations

import argparse
import itertools
import json
import random
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path
from typing import Iterator, NamedTuple

TREE = Path("build/mutate/tree")
BUILD = Path("build/mutate/build")
EXCEPTIONS = Path("scripts/mutate-exceptions.txt")
PORTABLE = ("MaterialLibrary", "shared", "grid", "tools/matlib")
SECONDS = 90  # for all tests of one change; a test that hangs has noticed it
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
        return f"{self.file} | {self.before.strip()} | {self.after.strip()}"


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


def portable_files(wanted: list[str]) -> list[str]:
    listed = subprocess.run(["git", "ls-files", "*.h", "*.cpp"], capture_output=True, text=True, check=True)
    files = [f for f in listed.stdout.split() if f.startswith(PORTABLE) and "win32" not in f]
    unknown = [f for f in wanted if f not in files]
    if unknown:
        sys.exit(f"mutate.sh: no portable source file of this repository: {' '.join(unknown)}")
    return wanted or files


def read_exceptions() -> set[str]:
    lines = EXCEPTIONS.read_text().splitlines()
    return {line for line in lines if line and not line.startswith("#")}


def copy_tree() -> None:
    listed = subprocess.run(["git", "ls-files", "-z"], capture_output=True, text=True, check=True)
    for name in filter(None, listed.stdout.split("\0")):
        target = TREE / name
        if not Path(name).is_file():
            target.unlink(missing_ok=True)
        elif not target.exists() or target.read_bytes() != Path(name).read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(name, target)


def build() -> bool:
    result = subprocess.run(["cmake", "--build", BUILD, "--parallel"], capture_output=True, text=True)
    Path("build/mutate/build.log").write_text(result.stdout + result.stderr)
    return result.returncode == 0


def programs() -> dict[str, int]:
    """Every program of the build with the time at which it was linked."""
    found = (path for folder in ("bin", "tests", "fuzz") for path in (BUILD / folder).glob("*"))
    return {str(path.resolve()): path.stat().st_mtime_ns for path in found if path.is_file()}


def tests_of(changed: set[str]) -> list[str]:
    """The tests that run one of these programs; a test of the tool names the folder where the tool is."""
    shown = subprocess.run(["ctest", "--test-dir", BUILD, "--show-only=json-v1"], capture_output=True, text=True, check=True)
    folders = {str(Path(program).parent) for program in changed if Path(program).name == "matlib"}
    names = []
    for test in json.loads(shown.stdout)["tests"]:
        words = set(test.get("command", []))
        if words & (changed | folders) and not test["name"].startswith(UNNOTICED_BY_DESIGN):
            names.append(test["name"])
    return names


def is_noticed(names: list[str]) -> bool:
    expression = "^(" + "|".join(map(re.escape, names)) + ")$"
    command = ["ctest", "--test-dir", BUILD, "--stop-on-failure", "--parallel", "2", "-R", expression]
    try:
        return subprocess.run(command, capture_output=True, stdin=subprocess.DEVNULL, timeout=SECONDS).returncode != 0
    except subprocess.TimeoutExpired:
        return True


def try_change(change: Change) -> str:
    """What became of the change: "killed", "survived", "unused" (no program has it) or "refused" (by the compiler)."""
    path = TREE / change.file
    original = path.read_text()
    lines = original.splitlines(keepends=True)
    lines[change.line] = change.after + "\n"
    linked = programs()
    try:
        path.write_text("".join(lines))
        if not build():
            return "refused"
        changed = {name for name, when in programs().items() if linked.get(name) != when}
        names = tests_of(changed)
        if not names:
            return "unused"
        return "killed" if is_noticed(names) else "survived"
    finally:
        path.write_text(original)


def main() -> None:
    parser = argparse.ArgumentParser(prog="mutate.sh")
    parser.add_argument("count", nargs="?", type=int, default=30, metavar="N")
    parser.add_argument("files", nargs="*", metavar="FILE")
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()

    excepted = read_exceptions()
    changes = [c for f in portable_files(options.files) for c in find_changes(f, Path(f).read_text())]
    random.Random(options.seed).shuffle(changes)
    drawn = iter(changes)

    copy_tree()
    configure = ["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug"]
    subprocess.run([*configure, "-DCMAKE_CXX_FLAGS_DEBUG=-O1"], check=True, stdout=subprocess.DEVNULL)
    if not build() or is_noticed(tests_of(set(programs()))):
        sys.exit("mutate.sh: the tree does not build, or its tests fail, without any change; see build/mutate/build.log")

    counts = dict.fromkeys(("killed", "survived", "unused", "refused", "excepted"), 0)
    survivors = []
    begin = time.monotonic()
    while missing := options.count - counts["killed"] - counts["survived"]:
        # File by file: what a change undoes and the next one does is then built once.
        batch = sorted(itertools.islice(drawn, missing))
        if not batch:
            break
        for change in batch:
            outcome = "excepted" if change.key() in excepted else try_change(change)
            counts[outcome] += 1
            if outcome == "survived":
                survivors.append(change)
                print(f"survived: {change}", flush=True)
    tried = counts["killed"] + counts["survived"]
    print(f"{tried} of {len(changes)} possible changes tried in {time.monotonic() - begin:.0f} s (seed {options.seed}): "
          f"{counts['killed']} noticed ({100 * counts['killed'] / max(tried, 1):.0f} per cent), {len(survivors)} survived; "
          f"{counts['excepted']} excepted, {counts['refused']} did not compile, {counts['unused']} are in no program")


if __name__ == "__main__":
    main()
