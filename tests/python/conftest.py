"""The example libraries, and warnings as a user sees them."""

from pathlib import Path

import pytest

import materiallibrary as ml

MATERIALS = Path(__file__).parents[2] / "examples" / "materials"


@pytest.fixture(scope="session")
def lib() -> ml.Library:
    return ml.open(MATERIALS / "DefaultMaterialD.mat", MATERIALS / "DefaultMaterialM.mat")


@pytest.fixture()
def core(lib: ml.Library) -> ml.Material:
    return lib["FR4 Standard Core 0.20 mm"]
