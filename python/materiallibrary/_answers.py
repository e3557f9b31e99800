"""Values of a material's properties over frequency and temperature."""

from __future__ import annotations

from typing import TYPE_CHECKING, Literal, Optional, Union, overload

import numpy as np

from . import _native
from ._errors import NoValueError, warn_extrapolated
from ._status import EXTRAPOLATED, GOOD, MISSING, VERDICTS, describe, is_missing
from ._types import PROPERTIES, ArrayLike, DoubleArray, Numbers, Property, Scalar, StatusArray

if TYPE_CHECKING:
    from ._material import Material

_MODEL_EVERYWHERE = 1
_STRAIGHT_ROUGHNESS = 2


def ask(
    material: Material, asked: Property, frequency: Numbers, temperature: Numbers, smooth: bool
) -> tuple[DoubleArray, StatusArray]:
    """Values and statuses in the broadcast shape: one call, and so one fit, for each temperature."""
    code = PROPERTIES.index(asked)
    flags = _MODEL_EVERYWHERE | _STRAIGHT_ROUGHNESS if smooth else 0
    f = np.asarray(frequency, np.float64, order="C")
    t = np.asarray(temperature, np.float64)
    if not t.ndim:
        return _native.values(material.address, code, float(t), flags, f)
    f, t = np.broadcast_arrays(f, t)
    values = np.empty(f.shape)
    status = np.empty(f.shape, np.uint8)
    temperatures, which = np.unique(t, return_inverse=True)
    which = which.reshape(t.shape)
    for i, one in enumerate(temperatures):
        there = which == i
        values[there], status[there] = _native.values(material.address, code, float(one), flags, f[there])
    return values, status


def judge(material: Material, asked: str, *statuses: StatusArray, refuse: bool) -> None:
    """Warns once where a value is extrapolated; raises where one is missing and that is to be refused."""
    verdicts = VERDICTS.take(statuses[0])
    for status in statuses[1:]:
        verdicts = np.maximum(verdicts, VERDICTS.take(status))
    worst = verdicts.max(initial=GOOD)
    if worst == MISSING and refuse:
        count = np.count_nonzero(verdicts == MISSING)
        missing = next(status[is_missing(status)] for status in statuses if is_missing(status).any())
        reason = describe(int(missing.flat[0]))
        raise NoValueError(
            f"{material.name!r}: {count} of {verdicts.size} values of {asked} are missing: {reason}"
        )
    count = np.count_nonzero(verdicts == EXTRAPOLATED) if worst else 0
    if count:
        warn_extrapolated(f"{material.name!r}: {count} of {verdicts.size} values of {asked} are extrapolated")


class Question:
    """A property of one material, to be called with frequencies (Hz) and temperatures (degrees Celsius)."""

    def __init__(self, material: Material, asked: Property) -> None:
        self._material = material
        self._asked = asked

    @overload
    def __call__(
        self, frequency: Scalar, temperature: Scalar = ..., *, smooth: bool = ..., return_status: Literal[False] = ...
    ) -> float: ...
    @overload
    def __call__(
        self,
        frequency: ArrayLike,
        temperature: Numbers = ...,
        *,
        smooth: bool = ...,
        return_status: Literal[False] = ...,
    ) -> DoubleArray: ...
    @overload
    def __call__(
        self, frequency: Scalar, temperature: ArrayLike, *, smooth: bool = ..., return_status: Literal[False] = ...
    ) -> DoubleArray: ...
    @overload
    def __call__(
        self, frequency: Scalar, temperature: Scalar = ..., *, smooth: bool = ..., return_status: Literal[True]
    ) -> tuple[float, int]: ...
    @overload
    def __call__(
        self, frequency: ArrayLike, temperature: Numbers = ..., *, smooth: bool = ..., return_status: Literal[True]
    ) -> tuple[DoubleArray, StatusArray]: ...
    @overload
    def __call__(
        self, frequency: Scalar, temperature: ArrayLike, *, smooth: bool = ..., return_status: Literal[True]
    ) -> tuple[DoubleArray, StatusArray]: ...
    def __call__(
        self, frequency: Numbers, temperature: Numbers = 25.0, *, smooth: bool = False, return_status: bool = False
    ) -> Union[float, DoubleArray, tuple[float, int], tuple[DoubleArray, StatusArray]]:
        """The property at each frequency and temperature, broadcast with each other.

        Where there are rows at a frequency they answer, so that a sweep that meets rows jumps there. ``smooth``
        asks the model everywhere, and for a roughness factor the straight line between its rows. With
        ``return_status`` a second result says where each value comes from, see Source; without it a missing
        value is a NoValueError. Extrapolated values give one ExtrapolationWarning.
        """
        values, status = ask(self._material, self._asked, frequency, temperature, smooth)
        judge(self._material, self._asked, status, refuse=not return_status)
        if not values.ndim:
            return (float(values), int(status)) if return_status else float(values)
        return (values, status) if return_status else values

    def __repr__(self) -> str:
        return f"<{self._asked} of {self._material.name!r}>"


class Answers:
    """Makes a property an attribute of materials that can be called."""

    def __init__(self, asked: Property, doc: str) -> None:
        self._asked: Property = asked
        self.__doc__ = doc

    @overload
    def __get__(self, material: None, owner: type[Material]) -> Answers: ...
    @overload
    def __get__(self, material: Material, owner: type[Material]) -> Question: ...
    def __get__(self, material: Optional[Material], owner: type[Material]) -> Union[Answers, Question]:
        return self if material is None else Question(material, self._asked)
