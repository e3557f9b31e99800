"""Materials and their tables."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Optional, Union, overload

import numpy as np

from . import _native
from ._answers import Answers, ask, judge
from ._model import Model
from ._types import (
    KINDS,
    PROPERTIES,
    TECHNOLOGIES,
    ArrayLike,
    ComplexArray,
    DoubleArray,
    Kind,
    Numbers,
    Property,
    Scalar,
    Technology,
)

if TYPE_CHECKING:
    from matplotlib.axes import Axes


class Table:
    """One property of a material at one temperature, as measured."""

    def __init__(self, table: Any) -> None:
        rows = np.array([(row.frequency, row.value) for row in table.rows[: table.row_count]], np.float64)
        rows = rows.reshape(-1, 2)
        rows.flags.writeable = False
        self.property: Property = PROPERTIES[table.property]
        self.temperature: float = table.temperature  #: degrees Celsius
        self.frequencies: DoubleArray = rows[:, 0]  #: Hz, as they stand in the file: not sorted
        self.values: DoubleArray = rows[:, 1]

    def __len__(self) -> int:
        return self.frequencies.size

    def __repr__(self) -> str:
        return f"<Table of {self.property} at {self.temperature:g} C: {_count(len(self), 'row')}>"


class Material:
    """A laminate or a conductor of a library, which lives as long as one of its materials.

    Frequencies are in Hz, temperatures in degrees Celsius; both may be scalars or arrays, which are broadcast
    with each other. Scalars give a float, anything else an array. Where values are extrapolated a call issues
    one ExtrapolationWarning.
    """

    er = Answers("er", "Relative permittivity of a dielectric.")
    loss_tangent = Answers("loss_tangent", "Loss tangent of a dielectric.")
    roughness_top = Answers("roughness_top", "Roughness factor of a metal's top face.")
    roughness_bottom = Answers("roughness_bottom", "Roughness factor of a metal's bottom face.")

    def __init__(self, library: _native.Handle, address: int, encoding: str) -> None:
        self._library = library  # keeps it open
        self.address = address  # for the C library's functions
        info = _native.fill(_native.lib.ml_get_info, _native.MaterialInfo, address)

        def decode(text: bytes) -> str:
            return text.decode(encoding, "surrogateescape")

        self.name: str = decode(info.name)  #: this and the other texts are empty when not given
        self.type: str = decode(info.type)  #: of laminate or conductor, for example "FR4"
        self.vendor: str = decode(info.vendor)  #: who makes it
        self.comment: str = decode(info.comment)  #: free text
        self.kind: Kind = KINDS[info.kind]
        self.technology: Optional[Technology] = (
            TECHNOLOGIES[info.technology] if info.technology >= 0 else None
        )  #: of a dielectric
        self.thickness: Optional[float] = info.thickness if info.has_thickness else None  #: m
        self.resistivity: Optional[float] = info.resistivity if info.has_resistivity else None  #: ohm m
        self._table_count: int = info.table_count

    @property
    def tables(self) -> tuple[Table, ...]:
        """The measured rows, as in the file."""
        get = _native.lib.ml_get_table
        indices = range(self._table_count)
        return tuple(Table(_native.fill(get, _native.Table, self.address, i)) for i in indices)

    @property
    def temperatures(self) -> tuple[float, ...]:
        """The temperatures of the tables, ascending."""
        return tuple(sorted({table.temperature for table in self.tables}))

    @overload
    def permittivity(self, frequency: Scalar, temperature: Scalar = ..., *, smooth: bool = ...) -> complex: ...
    @overload
    def permittivity(self, frequency: ArrayLike, temperature: Numbers = ..., *, smooth: bool = ...) -> ComplexArray: ...
    @overload
    def permittivity(self, frequency: Scalar, temperature: ArrayLike, *, smooth: bool = ...) -> ComplexArray: ...
    def permittivity(
        self, frequency: Numbers, temperature: Numbers = 25.0, *, smooth: bool = False
    ) -> Union[complex, ComplexArray]:
        """er - j er tan(delta) of a dielectric, from the values that er and loss_tangent give."""
        er, status = ask(self, "er", frequency, temperature, smooth)
        loss, loss_status = ask(self, "loss_tangent", frequency, temperature, smooth)
        judge(self, "permittivity", status, loss_status, refuse=True)
        permittivity = np.empty(er.shape, np.complex128)
        permittivity.real = er
        np.multiply(er, -loss, out=permittivity.imag)
        return permittivity if permittivity.ndim else complex(permittivity)

    def model(self, temperature: float = 25.0) -> Model:
        """The wideband Debye model that values between a dielectric's rows come from."""
        return Model._fit(self.address, self.name, temperature)

    def plot(self, ax: Optional[Axes] = None, *, temperature: float = 25.0) -> Axes:
        """Draws rows as markers and the model as a line, over the logarithm of frequency; needs matplotlib.

        A dielectric's loss tangent has an axis of its own on the right; a metal's rows are joined.
        """
        from ._plot import plot

        return plot(self, ax, temperature)

    def __repr__(self) -> str:
        facts: list[str] = [self.kind]
        facts += [text for text in (self.type, self.technology, self.vendor) if text]
        if self.thickness is not None:
            facts.append(f"{self.thickness * 1e6:g} um")
        if self.resistivity is not None:
            facts.append(f"{self.resistivity:g} ohm m")
        facts.append(_count(self._table_count, "table"))
        return f"<Material {self.name!r}: {', '.join(facts)}>"


def _count(number: int, noun: str) -> str:
    return f"{number or 'no'} {noun}{'s' if number != 1 else ''}"
