import gc
from pathlib import Path

import numpy as np
import pytest

import materiallibrary as ml
from conftest import MATERIALS

F = np.geomspace(1e6, 20e9, 50)


def remake(material: ml.Material) -> ml.Material:
    """The same material, made in memory."""
    return ml.Material(
        material.name,
        kind=material.kind,
        type=material.type,
        vendor=material.vendor,
        comment=material.comment,
        technology=material.technology,
        thickness=material.thickness,
        resistivity=material.resistivity,
        tables=[ml.Table(t.property, t.frequencies, t.values, t.temperature) for t in material.tables],
    )


def assert_same(some: ml.Material, other: ml.Material) -> None:
    assert repr(some) == repr(other) and some.comment == other.comment
    assert (some.thickness, some.resistivity) == (other.thickness, other.resistivity)
    for a, b in zip(some.tables, other.tables):
        assert (a.property, a.temperature) == (b.property, b.temperature)
        assert a.frequencies.tobytes() == b.frequencies.tobytes() and a.values.tobytes() == b.values.tobytes()


def test_made_materials_answer_like_loaded_ones(lib: ml.Library, core: ml.Material) -> None:
    for material in lib:
        assert_same(remake(material), material)
    made = remake(core)
    gc.collect()
    assert np.array_equal(made.permittivity(F), core.permittivity(F)) and made.model() == core.model()
    foil = remake(lib["Copper Foil Electrodeposited"])
    assert foil.kind == "metal" and foil.roughness_bottom(1e6) == 1.0011
    assert ml.Material().name == "" and ml.Material().tables == ()


def test_refuses_what_no_file_can_hold() -> None:
    table = ml.Table("er", 1e9, 4.2)
    for arguments in (
        {"name": '12" core'},
        {"vendor": "a\0b"},
        {"kind": "glass"},
        {"technology": "core"},
        {"kind": "metal", "technology": "Core"},
        {"kind": "metal", "tables": [table]},
        {"resistivity": 1e-8},
        {"thickness": float("nan")},
        {"tables": [ml.Table("er", [1e9, np.nan], [4.2, 4.1])]},
    ):
        with pytest.raises(ValueError):
            ml.Material(**arguments)  # type: ignore[arg-type]
    with pytest.raises(ValueError, match="'er', 'loss_tangent'"):
        ml.Table("Er", 1e9, 4.2)  # type: ignore[arg-type]
    with pytest.raises(ValueError):
        ml.Table("er", [1e9, 2e9], [4.2, 4.1, 4.0])
    with pytest.raises(ValueError):
        ml.Table("er", [[1e9]], [[4.2]])
    with pytest.raises(ValueError):
        table.values[0] = 1.0


def test_written_files_hold_the_same(lib: ml.Library, tmp_path: Path) -> None:
    path = tmp_path / "made bö.mat"
    odd = ml.Material(
        "µ-core \udce9", thickness=0.1 + 0.2, tables=[ml.Table("er", [3e9, 1 / 3, np.inf], [np.inf, -0.0, 1e-310])]
    )
    written = [*lib.select(kind="dielectric"), odd]
    ml.write(path, written)
    loaded = ml.open(path)
    assert len(loaded) == len(written)
    for a, b in zip(loaded, written):
        assert_same(a, b)
    with pytest.raises(FileExistsError) as caught:
        ml.write(path, [odd])
    assert caught.value.filename == str(path) and len(ml.open(path)) == len(written)
    ml.write(str(path), (odd for _ in range(1)), overwrite=True)
    assert ml.open(path)[0].name == odd.name and list(tmp_path.iterdir()) == [path]
    latin = ml.open_text("{MAT_FILE}{VERSION=1.0}{METAL(NAME=\"Öl\")}".encode("cp1252"), encoding="cp1252")
    ml.write(path, latin, overwrite=True)
    assert b"\xd6l" in path.read_bytes()


def test_says_why_nothing_was_written(lib: ml.Library, tmp_path: Path) -> None:
    with pytest.raises(ValueError, match="never both"):
        ml.write(tmp_path / "mixed.mat", lib)
    with pytest.raises(OSError, match="none.x.mat: "):
        ml.write(tmp_path / "none" / "x.mat", lib[:1])
    with pytest.raises(ValueError, match="NUL"):
        ml.write("a\0b", [])
    with pytest.raises(OSError):
        ml.write(MATERIALS, [], overwrite=True)
    assert not list(tmp_path.iterdir())
