"""Values in bulk from Python, against numpy evaluating the closed-form sum of the model that the call fits.

Both take turns, many times, in processor time: what else the machine does then meets them alike.
"""

import statistics
import time
import warnings
from collections.abc import Callable
from pathlib import Path

import numpy as np

import materiallibrary as ml

ROUNDS = 101
MATERIALS = 64
F = np.geomspace(1.01e6, 40e9, 1001)  # one of them below, some above the rows

lib = ml.open(Path(__file__).parents[1] / "examples/materials/DefaultMaterialD.mat")
core = lib["FR4 Standard Core 0.20 mm"]
model = core.model()
f1, f2, step = np.array(model.terms).T[:, :, np.newaxis]


def closed_er() -> object:
    weight = step / np.log(f2 / f1)
    return model.eps_inf + (weight * 0.5 * np.log((f2**2 + F**2) / (f1**2 + F**2))).sum(axis=0)


def closed_permittivity() -> object:
    weight = step / np.log(f2 / f1)
    real = model.eps_inf + (weight * 0.5 * np.log((f2**2 + F**2) / (f1**2 + F**2))).sum(axis=0)
    return real + 1j * (weight * (np.arctan(F / f2) - np.arctan(F / f1))).sum(axis=0)


def ask_many() -> object:
    return [lib[i % len(lib)].permittivity(F) for i in range(MATERIALS)]


def measure(function: Callable[[], object], times: list[float]) -> None:
    start = time.process_time_ns()
    function()
    times.append((time.process_time_ns() - start) * 1e-3)


def compare(title: str, ours: Callable[[], object], peer: Callable[[], object]) -> None:
    own: list[float] = []
    other: list[float] = []
    for _ in range(ROUNDS):
        measure(ours, own)
        measure(peer, other)
    ratios = sorted(a / b for a, b in zip(own, other))
    low, middle, high = (ratios[round(share * (ROUNDS - 1))] for share in (0.25, 0.5, 0.75))
    print(
        f"{title:24} ours {statistics.median(own):7.0f} us   numpy {statistics.median(other):7.0f} us   "
        f"ours/numpy {middle:.2f} ({low:.2f} to {high:.2f})"
    )


warnings.simplefilter("ignore", ml.ExtrapolationWarning)
assert np.allclose(closed_permittivity(), core.permittivity(F), rtol=1e-9)  # type: ignore[arg-type]
print("\n1,001 frequencies in one call from Python, against numpy's closed-form sum (aim: at most 3)")
compare("Er", lambda: core.er(F), closed_er)
compare("loss tangent", lambda: core.loss_tangent(F), closed_permittivity)
compare("permittivity", lambda: core.permittivity(F), closed_permittivity)
compare("model(f)", lambda: model(F), closed_permittivity)
many: list[float] = []
for _ in range(21):
    measure(ask_many, many)
many.sort()
print(
    f"{MATERIALS} materials x 1,001 permittivities {many[10] / 1e3:.1f} ms "
    f"({many[5] / 1e3:.1f} to {many[15] / 1e3:.1f}; aim: 50)"
)
