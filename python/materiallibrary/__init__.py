"""Materials of printed circuit boards: Er, loss tangent and roughness over frequency, from measured tables.

>>> import materiallibrary as ml
>>> lib = ml.open("examples/materials/DefaultMaterialD.mat")
>>> core = lib["FR4 Standard Core 0.20 mm"]
>>> core
<Material 'FR4 Standard Core 0.20 mm': dielectric, FR4, Core, Typical, 200 um, 2 tables>
>>> round(core.er(2.5e9), 4)
4.168

Frequencies are in Hz, temperatures in degrees Celsius, thickness in m, resistivity in ohm m.
"""

from ._answers import Question
from ._errors import (
    Diagnostic,
    ExtrapolationWarning,
    MaterialFileError,
    MaterialLibraryError,
    NoValueError,
    UnknownMaterialError,
)
from ._library import Library, open, open_text, write
from ._material import Material, Table
from ._model import DebyePoles, Model, Residual, Term
from ._native import version
from ._status import (
    TEMPERATURE_BETWEEN,
    TEMPERATURE_NEAREST,
    Source,
    describe,
    is_extrapolated,
    is_missing,
    source,
)

__version__ = version()

__all__ = [
    "DebyePoles",
    "Diagnostic",
    "ExtrapolationWarning",
    "Library",
    "Material",
    "MaterialFileError",
    "MaterialLibraryError",
    "Model",
    "NoValueError",
    "Question",
    "Residual",
    "Source",
    "TEMPERATURE_BETWEEN",
    "TEMPERATURE_NEAREST",
    "Table",
    "Term",
    "UnknownMaterialError",
    "describe",
    "is_extrapolated",
    "is_missing",
    "open",
    "open_text",
    "source",
    "write",
]

# The names that a user sees and pickles say nothing of the module's files.
for _name in __all__:
    if isinstance(globals()[_name], type):
        globals()[_name].__module__ = __name__
del _name
