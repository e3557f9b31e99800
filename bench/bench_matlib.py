"""Whole runs of the tool: "matlib check" of 10,000 laminates beside "matlib value", which loads the same file.

Both take turns, many times, by the clock: checking has several threads.
"""

import math
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

MATLIB = Path(__file__).parents[1] / "build/bench/bin/matlib"
ROUNDS = 31
LAMINATES = 10_000
F = [1e6, 3e6, 1e7, 3e7, 1e8, 3e8, 1e9, 2e9, 5e9, 1e10, 1.5e10, 2e10]


def rows(first: float, per_decade: float) -> str:
    return "\n".join(f"  {f / 1e6:g}MHz {first + per_decade * math.log10(f / F[0]):.6g}" for f in F)


def laminate(number: int, kind: float, thickness: float) -> str:
    er = 4.6 - 0.5 * kind
    loss = 0.015 + 0.01 * kind
    return (
        f'{{DIELECTRIC\n(NAME = "Laminate {number}")\n(TYPE = "FR4")\n(VENDOR = "Typical")\n'
        f"(THICKNESS = {thickness})\n(ER TEMPERATURE = 25 TABLE =\n{rows(er, er * loss * -1.5)})\n"
        f"(LOSSTANGENT TEMPERATURE = 25 TABLE =\n{rows(loss, loss / 50)})\n}}\n"
    )


def make_file(path: Path, kinds: int, warned: int) -> None:
    text = "".join(
        laminate(i, i % kinds / kinds, 0.1 if i < warned else 1e-4) for i in range(LAMINATES)
    )
    path.write_text("{MAT_FILE}\n{VERSION=1.0}\n" + text)


def run(command: list[str]) -> float:
    start = time.perf_counter()
    subprocess.run([MATLIB, *command], check=True, stdout=subprocess.DEVNULL)
    return (time.perf_counter() - start) * 1e3


def compare(title: str, path: Path) -> None:
    check: list[float] = []
    load: list[float] = []
    for _ in range(ROUNDS):
        check.append(run(["check", str(path)]))
        load.append(run(["value", "Laminate 0", "--kind", "er", "--freq", "1GHz", "--lib", str(path)]))
    ratios = sorted(a / b for a, b in zip(check, load))
    low, middle, high = (ratios[round(share * (ROUNDS - 1))] for share in (0.25, 0.5, 0.75))
    print(
        f"{title:20} check {statistics.median(check):5.1f} ms   load {statistics.median(load):5.1f} ms   "
        f"check/load {middle:.2f} ({low:.2f} to {high:.2f})"
    )


print(f"\n{LAMINATES} laminates of twice {len(F)} rows, by the clock (aim: under 2)")
with tempfile.TemporaryDirectory() as folder:
    file = Path(folder) / "laminates.mat"
    for title, kinds, warned in (
        ("rows of 28 repeated", 28, 0),
        ("the same, 2,000 warned", 28, 2000),
        ("rows all different", LAMINATES, 0),
    ):
        make_file(file, kinds, warned)
        compare(title, file)
