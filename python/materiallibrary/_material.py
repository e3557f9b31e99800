"""Materials and their tables."""

from __future__ import annotations

import ctypes
import math
from collections.abc import Iterable
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
    """One property of a material at one temperature, as measured.

    Frequencies are in Hz, temperatures in degrees Celsius. A single value is a constant, at every frequency.

    >>> Table("er", [1e9, 10e9], [4.22, 4.094])
    <Table of er at 25 C: 2 rows>
    >>> Table("loss_tangent", 1e9, 0.0192).values
    array([0.0192])
    """

    def __init__(self, property: Property, frequencies: Numbers, values: Numbers, temperature: float = 25.0) -> None:
        columns = np.broadcast_arrays(np.atleast_1d(frequencies), np.atleast_1d(values))
        if property not in PROPERTIES:
            raise ValueError(f"property is one of {PROPERTIES}, not {property!r}")
        if columns[0].ndim != 1:
            raise ValueError("frequencies and values are lists of numbers")
        self.property: Property = property
        self.temperature: float = float(temperature)  #: degrees Celsius
        self.frequencies: DoubleArray = _frozen(columns[0])  #: Hz, in the order of the rows: not sorted
        self.values: DoubleArray = _frozen(columns[1])

    @classmethod
    def _read(cls, table: _native.Table) -> Table:
        rows = np.array([(row.frequency, row.value) for row in table.rows[: table.row_count]], np.float64)
        frequencies, values = rows.reshape(-1, 2).T
        return cls(PROPERTIES[table.property], frequencies, values, table.temperature)

    def _describe(self) -> _native.Table:
        rows = (_native.Row * len(self))(*(_native.Row(*row) for row in zip(self.frequencies, self.values)))
        size = ctypes.sizeof(_native.Table)
        return _native.Table(size, PROPERTIES.index(self.property), self.temperature, rows, len(self))

    def __len__(self) -> int:
        return self.frequencies.size

    def __repr__(self) -> str:
        return f"<Table of {self.property} at {self.temperature:g} C: {_count(len(self), 'row')}>"


class Material:
    """A laminate or a conductor, of a library or made here.

    A library lives as long as one of its materials. A material that is made is what a file can hold, otherwise
    it is a ValueError; write puts it into one.

    >>> air = Material("Air", tables=[Table("er", 1e9, 1.0), Table("loss_tangent", 1e9, 0.0)])
    >>> air
    <Material 'Air': dielectric, 2 tables>
    >>> air.er(5e9)
    1.0

    Frequencies are in Hz, temperatures in degrees Celsius; both may be scalars or arrays, which are broadcast
    with each other. Scalars give a float, anything else an array. Where values are extrapolated a call issues
    one ExtrapolationWarning.
    """

    er = Answers("er", "Relative permittivity of a dielectric.")
    loss_tangent = Answers("loss_tangent", "Loss tangent of a dielectric.")
    roughness_top = Answers("roughness_top", "Roughness factor of a metal's top face.")
    roughness_bottom = Answers("roughness_bottom", "Roughness factor of a metal's bottom face.")

    def __init__(
        self,
        name: str = "",
        *,
        kind: Kind = "dielectric",
        type: str = "",
        vendor: str = "",
        comment: str = "",
        technology: Optional[Technology] = None,
        thickness: Optional[float] = None,
        resistivity: Optional[float] = None,
        tables: Iterable[Table] = (),
        encoding: str = "utf-8",
    ) -> None:
        """Thickness in m for dielectrics, resistivity in ohm m for metals; ``encoding`` is that of the texts."""
        info = _native.MaterialInfo(ctypes.sizeof(_native.MaterialInfo))
        for field, text in (("name", name), ("type", type), ("vendor", vendor), ("comment", comment)):
            if "\0" in text:
                raise ValueError(f"{field} holds a NUL character")
            setattr(info, field, text.encode(encoding, "surrogateescape"))
        info.kind = _code(kind, KINDS, "kind")
        info.technology = -1 if technology is None else _code(technology, TECHNOLOGIES, "technology")
        if kind == "metal" and technology is not None:
            raise ValueError("a metal has no technology")
        info.has_thickness, info.thickness = _given(thickness)
        info.has_resistivity, info.resistivity = _given(resistivity)
        library = _build(info, tables)
        self._take(library, _native.lib.ml_get_material(library.address, 0), encoding)

    @classmethod
    def _of(cls, library: _native.Handle, address: int, encoding: str) -> Material:
        """A material that a library has."""
        material = cls.__new__(cls)
        material._take(library, address, encoding)
        return material

    def _take(self, library: _native.Handle, address: int, encoding: str) -> None:
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
        return tuple(Table._read(_native.fill(get, _native.Table, self.address, i)) for i in indices)

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


def _frozen(numbers: Any) -> DoubleArray:
    copied: DoubleArray = np.array(numbers, np.float64)
    copied.flags.writeable = False
    return copied


def _code(word: str, words: tuple[str, ...], name: str) -> int:
    if word not in words:
        raise ValueError(f"{name} is one of {words}, not {word!r}")
    return words.index(word)


def _given(number: Optional[float]) -> tuple[int, float]:
    return (0, math.nan) if number is None else (1, float(number))


def _build(info: _native.MaterialInfo, tables: Iterable[Table]) -> _native.Handle:
    """A library of this material."""
    lib = _native.lib
    address = ctypes.c_void_p()
    _native.check(lib.ml_make_builder(ctypes.byref(address)))
    builder = _native.Handle(address, lib.ml_free_builder)
    _native.check(lib.ml_add_material(address, ctypes.byref(info)))
    for table in tables:
        _native.check(lib.ml_add_table(address, ctypes.byref(table._describe())))
    built = ctypes.c_void_p()
    reason = ctypes.create_string_buffer(_native.REASON_SIZE)
    error = lib.ml_build(builder.address, ctypes.byref(built), reason, len(reason))
    if error == _native.ERROR_UNWRITABLE:
        raise ValueError(reason.value.decode())
    _native.check(error)
    return _native.Handle(built, lib.ml_close)


def _count(number: int, noun: str) -> str:
    return f"{number or 'no'} {noun}{'s' if number != 1 else ''}"
