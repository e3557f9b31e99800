"""Names for types."""

from __future__ import annotations

from typing import Any, Literal, Sequence, Union

import numpy as np
import numpy.typing as npt

DoubleArray = npt.NDArray[np.float64]
ComplexArray = npt.NDArray[np.complex128]
StatusArray = npt.NDArray[np.uint8]

Scalar = Union[float, int, np.floating[Any], np.integer[Any]]
ArrayLike = Union[npt.NDArray[Any], Sequence[Any]]  # what is no scalar, so that overloads can tell
Numbers = Union[Scalar, ArrayLike]
Kind = Literal["dielectric", "metal"]
Technology = Literal["Core", "Prepreg", "Flexcore"]
Property = Literal["er", "loss_tangent", "roughness_top", "roughness_bottom"]

KINDS: tuple[Kind, ...] = ("dielectric", "metal")  # this and the next two in the order of their codes in C
TECHNOLOGIES: tuple[Technology, ...] = ("Core", "Prepreg", "Flexcore")
PROPERTIES: tuple[Property, ...] = ("er", "loss_tangent", "roughness_top", "roughness_bottom")
