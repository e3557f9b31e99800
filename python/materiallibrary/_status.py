"""Where values come from: what the bytes of a status array say."""

from __future__ import annotations

import enum
from typing import Union

import numpy as np
import numpy.typing as npt

from ._types import StatusArray


class Source(enum.IntEnum):
    """How a value came about: the low four bits of a status."""

    ROW = 0  #: measured at exactly this frequency
    CONSTANT = 1  #: the table's only row
    MODEL = 2  #: the model, within the frequencies of the rows that it was fitted to
    MODEL_BELOW = 3  #: the model below the lowest of them: extrapolated
    MODEL_ABOVE = 4  #: the model above the highest of them: extrapolated
    BETWEEN_ROWS = 5  #: a roughness factor from the rows on both sides of the frequency
    OUTSIDE_ROWS = 6  #: a roughness factor below the lowest or above the highest row
    NO_FIT = 7  #: the rows allow no model; the value is -1
    NO_DATA = 8  #: no rows to answer from; the value is NaN


#: Added to a source: the rows are those of the nearest temperature, all of which lie on one side.
TEMPERATURE_NEAREST = 16
#: Added to a source: the row is a constant made from the temperatures below and above.
TEMPERATURE_BETWEEN = 32

_SOURCE_MASK = 15


# What to think of each status.
GOOD, EXTRAPOLATED, MISSING = range(3)


def _judge(status: int) -> int:
    source = status & _SOURCE_MASK
    if source >= Source.NO_FIT:
        return MISSING
    return EXTRAPOLATED if source in (Source.MODEL_BELOW, Source.MODEL_ABOVE, Source.OUTSIDE_ROWS) else GOOD


VERDICTS = np.array([_judge(status) for status in range(256)], np.uint8)


def source(status: Union[int, StatusArray]) -> npt.NDArray[np.uint8]:
    """The sources in an array of statuses, to compare with :class:`Source`.

    >>> source(np.array([0, 18], np.uint8)) == Source.MODEL
    array([False,  True])
    """
    return np.asarray(status, np.uint8) & np.uint8(_SOURCE_MASK)


def is_extrapolated(status: Union[int, StatusArray]) -> npt.NDArray[np.bool_]:
    """Which values lie outside the frequencies of the measured rows."""
    return np.asarray(VERDICTS[status] == EXTRAPOLATED)


def is_missing(status: Union[int, StatusArray]) -> npt.NDArray[np.bool_]:
    """Which answers are no values: -1 where no model fits, NaN where there are no rows."""
    return np.asarray(VERDICTS[status] == MISSING)


_WORDS = {
    Source.ROW: "measured",
    Source.CONSTANT: "constant",
    Source.MODEL: "model",
    Source.MODEL_BELOW: "model, extrapolated below the rows",
    Source.MODEL_ABOVE: "model, extrapolated above the rows",
    Source.BETWEEN_ROWS: "between rows",
    Source.OUTSIDE_ROWS: "outside the rows",
    Source.NO_FIT: "no model fits the rows",
    Source.NO_DATA: "no rows",
}


def describe(status: int) -> str:
    """One status in words.

    >>> describe(3 + TEMPERATURE_NEAREST)
    'model, extrapolated below the rows; rows of the nearest temperature'
    """
    text = _WORDS[Source(int(status) & _SOURCE_MASK)]
    if status & TEMPERATURE_NEAREST:
        text += "; rows of the nearest temperature"
    if status & TEMPERATURE_BETWEEN:
        text += "; constant between two temperatures"
    return text
