"""What goes wrong, and what is worth a warning."""

from __future__ import annotations

import sys
import warnings
from pathlib import Path
from typing import NamedTuple, Optional


class Diagnostic(NamedTuple):
    """Why a file gave no materials."""

    file: str  #: as it was given
    line: Optional[int]  #: from 1; None: the file could not be read
    column: Optional[int]  #: up to where that line was read, from 1
    reason: str  #: what was expected there, or what the system says of the file

    def __str__(self) -> str:
        place = "" if self.line is None else f":{self.line}:{self.column or 0}"
        return f"{self.file}{place}: {self.reason}"


class MaterialLibraryError(Exception):
    """The base of this package's own exceptions."""


class MaterialFileError(MaterialLibraryError):
    """A file could not be read, or its text breaks the format.

    ``file``, ``line``, ``column`` and ``reason`` are those of the first bad file; ``diagnostics`` has them all.
    """

    def __init__(self, diagnostics: tuple[Diagnostic, ...]) -> None:
        super().__init__(diagnostics)
        self.diagnostics = diagnostics
        self.file, self.line, self.column, self.reason = diagnostics[0]

    def __str__(self) -> str:
        return "\n".join(map(str, self.diagnostics))


class UnknownMaterialError(MaterialLibraryError, KeyError):
    """The library has no material of that name."""

    def __str__(self) -> str:
        return str(self.args[0])


class NoValueError(MaterialLibraryError):
    """A material has no value at one of the frequencies, or no model: rows are missing or allow none."""


class ExtrapolationWarning(UserWarning):
    """Values lie outside the frequencies of the measured rows. Issued at most once a call."""


def warn_extrapolated(message: str) -> None:
    """Warns at the line of the caller that is not in this package."""
    package = str(Path(__file__).parent)
    level = 1
    frame = sys._getframe()
    while frame.f_back is not None and frame.f_code.co_filename.startswith(package):
        frame = frame.f_back
        level += 1
    warnings.warn(message, ExtrapolationWarning, stacklevel=level)
