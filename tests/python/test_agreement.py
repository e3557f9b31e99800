"""2,000 random tables: Python, C, matlib and GetValue give the same doubles; GetValue of the DLL, under Wine, the same
within 1e-12. The environment names the programs: AGREEMENT_HOST, and AGREEMENT_MATLIB where it is native."""

import json
import os
import random
import subprocess
import warnings
from pathlib import Path

import numpy as np
import numpy.typing as npt
import pytest

import materiallibrary as ml

pytestmark = pytest.mark.skipif("AGREEMENT_HOST" not in os.environ, reason="AGREEMENT_HOST names no program")

TABLES = 2000
FREQUENCIES = [i * 1e9 for i in range(1, 10)]  # some of them rows, some below, between or above all rows
TEMPERATURES = [25.0, 60.0]
KEYS = {"dielectric": ("er", "loss_tangent"), "metal": ("roughness_top", "roughness_bottom")}
WORDS = {"er": "ER", "loss_tangent": "LOSSTANGENT", "roughness_top": "ROUGHTOP", "roughness_bottom": "ROUGHBTM"}


def make_rows(chance: random.Random, start: float, step: float) -> str:
    count = chance.choice((1, 2, 4, 7, 12))
    frequencies = {chance.choice(FREQUENCIES) for _ in range(count // 2)}
    while len(frequencies) < count:
        frequencies.add(10 ** chance.uniform(4.0, 11.0))
    value = start
    rows = []
    for frequency in sorted(frequencies):
        value = max(value + step * chance.uniform(-0.2, 1.0), 1e-4)
        rows.append(f"{frequency!r} {value!r}")
    return "\n".join(rows)


def make_file(path: Path, kind: str, tables: int) -> None:
    """Materials with tables that do and do not fit, at one temperature or two."""
    chance = random.Random(kind)
    blocks = ["{MAT_FILE}{VERSION=1.0}"]
    while tables > 0:
        blocks.append(f'{{{kind.upper()} (NAME = "{kind} {tables}")')
        for temperature in chance.choice(((25,), (25,), (85,), (0, 100))):
            for key in KEYS[kind]:
                start, step = {"er": (4.5, -0.1), "loss_tangent": (0.02, 0.001)}.get(key, (1.0, 0.2))
                rows = make_rows(chance, start, step)
                if chance.random() < 0.98:
                    blocks.append(f"({WORDS[key]} TEMPERATURE = {temperature} TABLE =\n{rows})")
                    tables -= 1
        blocks.append("}")
    path.write_text("\n".join(blocks))


def ask_python(material: ml.Material) -> tuple[npt.NDArray[np.float64], npt.NDArray[np.uint8]]:
    """Properties x frequencies x temperatures."""
    f = np.array(FREQUENCIES)[:, np.newaxis]
    answers = [getattr(material, key)(f, TEMPERATURES, return_status=True) for key in KEYS[material.kind]]
    values, statuses = zip(*answers)
    return np.array(values), np.array(statuses)


def ask_matlib(paths: list[Path]) -> dict[tuple[str, float], npt.NDArray[np.float64]]:
    """Properties x frequencies of each material at each temperature that has values."""
    command = [os.environ["AGREEMENT_MATLIB"], "--json", "--lib", ";".join(map(str, paths)), "sweep", "--all"]
    command += ["--temp", "25,60", "--from", "1e9", "--to", "9e9", "--points", "9"]
    printed = subprocess.run(command, capture_output=True, text=True).stdout
    return {
        (series["name"], series["temperature_c"]): np.array(
            [[point[key] for point in series["points"]] for key in series["points"][0] if key in WORDS], np.float64
        )
        for series in json.loads(printed)
    }


def test_all_give_the_same_doubles(tmp_path: Path) -> None:
    paths = [tmp_path / "dielectrics.mat", tmp_path / "metals.mat"]
    make_file(paths[0], "dielectric", TABLES * 4 // 5)
    make_file(paths[1], "metal", TABLES // 5)
    lib = ml.open(*paths)
    assert sum(len(material.tables) for material in lib) >= TABLES
    with warnings.catch_warnings():
        warnings.simplefilter("ignore", ml.ExtrapolationWarning)
        answers = [ask_python(material) for material in lib]
    values = np.array([value for value, _ in answers])
    statuses = np.array([status for _, status in answers])
    assert set(ml.source(statuses).flat) == set(ml.Source)  # nothing was left out

    host = os.environ["AGREEMENT_HOST"].split(";")
    asked = [*(path.name for path in paths), *map(repr, FREQUENCIES)]
    subprocess.run([*host, "answers", *asked], cwd=tmp_path, check=True)
    theirs = np.fromfile(tmp_path / "answers").reshape(*values.shape, 3)
    get_value, bulk, bulk_status = np.moveaxis(theirs, -1, 0)
    assert np.array_equal(bulk_status, statuses)
    if "AGREEMENT_MATLIB" not in os.environ:
        assert np.allclose(get_value, values, rtol=1e-12, atol=1e-12, equal_nan=True)
        assert np.allclose(bulk, values, rtol=1e-12, atol=1e-12, equal_nan=True)
        return
    assert np.array_equal(get_value, values, equal_nan=True)
    assert np.array_equal(bulk, values, equal_nan=True)

    printed = ask_matlib(paths)
    assert len(printed) > 500
    for material, value, status in zip(lib, values, statuses):
        for t, temperature in enumerate(TEMPERATURES):
            found = printed.get((material.name, temperature))
            missing = ml.is_missing(status[..., t])
            if found is None:
                assert missing.any()
            else:
                assert np.array_equal(found, np.where(missing, np.nan, value[..., t]), equal_nan=True)
