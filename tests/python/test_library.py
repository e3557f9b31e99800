import gc
import math
import threading
from pathlib import Path

import numpy as np
import pytest

import materiallibrary as ml
from conftest import MATERIALS

HEADER = "{MAT_FILE}{VERSION=1.0}"
BAD = HEADER + '\n{DIELECTRIC (NAME "x")}'


def test_is_a_sequence_and_a_mapping(lib: ml.Library) -> None:
    assert len(lib) == 62 and lib[-1] is list(lib)[61] and len(lib[1:3]) == 2
    assert list(lib.keys()) == [material.name for material in lib]
    assert dict(lib.items())["Tungsten"] is lib["Tungsten"] is lib.get("Tungsten")
    assert "Tungsten" in lib and lib[0] in lib and "tungsten" not in lib and lib.get("tungsten", 1) == 1
    with pytest.raises(KeyError, match="'Tungsten'[?]") as caught:
        lib["Tungstn"]
    assert isinstance(caught.value, ml.MaterialLibraryError)
    with pytest.raises(IndexError):
        lib[62]


def test_of_equal_names_the_last_one_is_found() -> None:
    lib = ml.open_text(HEADER + '{METAL(NAME="a")(VENDOR="1")}{METAL(NAME="a")(VENDOR="2")}{METAL}')
    assert lib["a"].vendor == "2" and lib[0].vendor == "1" and list(lib.keys()) == ["a"] and len(lib) == 3


def test_facts_and_tables(lib: ml.Library, core: ml.Material) -> None:
    assert (core.kind, core.type, core.technology, core.vendor) == ("dielectric", "FR4", "Core", "Typical")
    assert core.thickness == 200e-6 and core.resistivity is None
    foil = lib["Tungsten"]
    assert (foil.kind, foil.technology, foil.thickness, foil.resistivity) == ("metal", None, None, 5.6e-8)
    er, loss = core.tables
    assert er.property == "er" and loss.property == "loss_tangent" and er.temperature == 25.0
    assert er.frequencies[0] == 1e6 and er.values[0] == 4.548 and len(er) == 12
    with pytest.raises(ValueError):
        er.values[0] = 1.0
    assert lib["FR4 High Tg Core 0.10 mm"].temperatures == (25.0, 85.0, 125.0)
    assert ml.open_text(HEADER + '{DIELECTRIC(ER TEMPERATURE=25 TABLE=)}')[0].tables[0].values.shape == (0,)


def test_select(lib: ml.Library) -> None:
    thin = lib.select(technology="Core", thickness=(None, 0.15e-3))
    assert thin == [m for m in lib if m.technology == "Core" and (m.thickness or 1.0) <= 0.15e-3] and len(thin) == 8
    assert len(lib.select(kind="metal")) == 16 and lib.select(type="FR4", vendor="nobody") == []
    assert len(lib.select()) == 62 and len(lib.select(thickness=(None, None))) == 46
    with pytest.raises(ValueError, match="'Core', 'Prepreg', 'Flexcore'"):
        lib.select(technology="core")  # type: ignore[arg-type]


def test_bad_files_name_the_place(tmp_path: Path) -> None:
    bad, none = tmp_path / "bäd.mat", tmp_path / "none.mat"
    bad.write_text(BAD)
    good = MATERIALS / "DefaultMaterialM.mat"
    with pytest.raises(ml.MaterialFileError, match="bäd.mat:2:21: ") as caught:
        ml.open(good, bad, none)
    assert (caught.value.file, caught.value.line, caught.value.column) == (str(bad), 2, 21)
    assert [found.line for found in caught.value.diagnostics] == [2, None]
    kept = ml.open(good, bad, str(none), errors="keep")
    assert len(kept) == 16 and [found.file for found in kept.diagnostics] == [str(bad), str(none)]
    assert len(ml.open(good, bad, errors="empty")) == 0
    with pytest.raises(ValueError):
        ml.open(good, errors="ignore")  # type: ignore[arg-type]
    with pytest.raises(ValueError, match="NUL"):
        ml.open("a\0b")


def test_names_in_any_encoding() -> None:
    text = (HEADER + '{METAL(NAME="Küpfer")(VENDOR="Öl")}').encode("cp1252")
    assert ml.open_text(text, encoding="cp1252").select(vendor="Öl")[0].name == "Küpfer"
    unknown = ml.open_text(text)
    assert unknown[0].name.encode("utf-8", "surrogateescape") == "Küpfer".encode("cp1252")
    assert unknown.select(vendor=unknown[0].vendor) == [unknown[0]] and "udcfc" in repr(unknown[0])


def test_materials_outlive_their_library() -> None:
    material = ml.open(MATERIALS / "DefaultMaterialD.mat")[0]
    gc.collect()
    assert material.er(1e6) == 4.389


def test_threads_share_a_library(lib: ml.Library) -> None:
    f = np.geomspace(1e6, 20e9, 301)
    laminates = lib.select(kind="dielectric")
    expected = [material.permittivity(f) for material in laminates]
    wrong: list[int] = []

    def ask_all() -> None:
        wrong.extend(i for i, m in enumerate(laminates) if not np.array_equal(m.permittivity(f), expected[i]))

    threads = [threading.Thread(target=ask_all) for _ in range(8)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not wrong and all(math.isfinite(abs(one[0])) for one in expected)
