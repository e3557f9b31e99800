"""The wideband Debye model that values between rows come from."""

from __future__ import annotations

import ctypes
from typing import Iterable, NamedTuple, Optional, Union, overload

import numpy as np

from . import _native
from ._errors import NoValueError, warn_extrapolated
from ._types import PROPERTIES, ArrayLike, ComplexArray, DoubleArray, Numbers, Property, Scalar
from ._wording import format_frequency


class Term(NamedTuple):
    """One term of a model."""

    f1: float  #: Hz, above 0
    f2: float  #: Hz, above f1
    delta_eps: float  #: the step of permittivity that the term carries from f1 to f2


class Residual(NamedTuple):
    """How far a model passes from a row that it was fitted to."""

    property: Property  #: "er" or "loss_tangent"
    frequency: float  #: Hz
    value: float  #: the row's
    residual: float  #: the model's value there less the row's
    is_fitted: bool  #: False: a loss tangent below 10 kHz, which takes no part in the fit


class DebyePoles:
    """A permittivity as a sum of single Debye poles, which is what time-domain solvers take.

    Called with frequencies in Hz it gives eps_inf + sum of delta_eps / (1 + j f / frequency).
    """

    def __init__(
        self, eps_inf: float, frequencies: DoubleArray, delta_eps: DoubleArray, worst_error: float
    ) -> None:
        self.eps_inf = eps_inf  #: permittivity far above the highest pole
        self.frequencies = frequencies  #: Hz, where the loss of each pole is largest
        self.delta_eps = delta_eps  #: the step of permittivity that each pole carries
        self.worst_error = worst_error  #: largest |poles - model| / |model| over the band asked for

    @property
    def relaxation_times(self) -> DoubleArray:
        """1 / (2 pi f) of each pole, in seconds."""
        return np.asarray(1.0 / (2.0 * np.pi * self.frequencies))

    def __len__(self) -> int:
        return self.frequencies.size

    @overload
    def __call__(self, frequency: Scalar) -> complex: ...
    @overload
    def __call__(self, frequency: ArrayLike) -> ComplexArray: ...
    def __call__(self, frequency: Numbers) -> Union[complex, ComplexArray]:
        f = np.asarray(frequency, np.float64)
        terms = self.delta_eps / (1.0 + 1j * f[..., np.newaxis] / self.frequencies)
        permittivity = self.eps_inf + terms.sum(axis=-1)
        return permittivity if f.ndim else complex(permittivity)

    def __repr__(self) -> str:
        return f"<DebyePoles: eps_inf {self.eps_inf:.6g}, {len(self)} poles, error {self.worst_error:.2g}>"


class Model:
    """A dielectric's complex permittivity er - j er tan(delta) as a function of frequency, at one temperature.

    eps(f) = eps_inf + sum over terms of delta_eps / ln(f2 / f1) * ln((f2 + j f) / (f1 + j f))

    It is a value that needs no library: it can be compared, pickled and made from terms.

    >>> model = Model(3.5, [(1e4, 1e12, 0.8)])
    >>> f"{model(1e9):.4f}"
    '3.8000-0.0682j'
    """

    def __init__(self, eps_inf: float, terms: Iterable[tuple[float, float, float]]) -> None:
        self._eps_inf = float(eps_inf)
        self._terms = tuple(Term(*map(float, term)) for term in terms)
        self._frequency_range: Optional[tuple[float, float]] = None
        self._residuals: tuple[Residual, ...] = ()
        self._temperature_status = 0
        given = (_native.Term * len(self._terms))(*(_native.Term(*term) for term in self._terms))
        address = ctypes.c_void_p()
        if _native.lib.ml_make_model_from_terms(self._eps_inf, given, len(given), ctypes.byref(address)) != 0:
            raise ValueError("eps_inf and terms are finite, with 1e-150 <= f1 < f2 <= 1e150")
        self._handle = _native.Handle(address, _native.lib.ml_free_model)

    @classmethod
    def _fit(cls, material: int, name: str, temperature: float) -> Model:
        """The model of a material at a temperature in degrees Celsius."""
        address = ctypes.c_void_p()
        error = _native.lib.ml_make_model(material, temperature, ctypes.byref(address))
        if error in (_native.ERROR_NO_DATA, _native.ERROR_NO_FIT):
            reason = _native.lib.ml_error_text(error).decode()
            raise NoValueError(f"{name!r} has no model at {temperature:g} C: {reason}")
        _native.check(error)
        model = cls.__new__(cls)
        model._handle = _native.Handle(address, _native.lib.ml_free_model)
        model._read(address)
        return model

    def _read(self, address: ctypes.c_void_p) -> None:
        lib = _native.lib
        info = _native.fill(lib.ml_get_model_info, _native.ModelInfo, address)
        self._eps_inf = info.eps_inf
        self._frequency_range = (info.frequency_min, info.frequency_max)
        self._temperature_status = info.temperature
        terms = [_native.fill(lib.ml_get_term, _native.Term, address, i) for i in range(info.term_count)]
        self._terms = tuple(Term(t.f1, t.f2, t.delta_eps) for t in terms)
        rows = [
            _native.fill(lib.ml_get_residual, _native.Residual, address, i) for i in range(info.residual_count)
        ]
        self._residuals = tuple(
            Residual(PROPERTIES[r.property], r.frequency, r.value, r.residual, bool(r.is_fitted)) for r in rows
        )

    def __getstate__(self) -> dict[str, object]:
        return {name: value for name, value in self.__dict__.items() if name != "_handle"}

    def __setstate__(self, state: dict[str, object]) -> None:
        self.__dict__.update(state)
        self._handle = Model(self._eps_inf, self._terms)._handle

    @property
    def eps_inf(self) -> float:
        """Permittivity far above the highest term."""
        return self._eps_inf

    @property
    def terms(self) -> tuple[Term, ...]:
        """The terms; after a fit in ascending order."""
        return self._terms

    @property
    def frequency_range(self) -> Optional[tuple[float, float]]:
        """Lowest and highest frequency (Hz) of the rows that it was fitted to; None: made from terms."""
        return self._frequency_range

    @property
    def residuals(self) -> tuple[Residual, ...]:
        """How far the model passes from each row: those of Er, then those of the loss tangent."""
        return self._residuals

    @property
    def temperature_status(self) -> int:
        """TEMPERATURE_NEAREST, TEMPERATURE_BETWEEN, or 0 where there are rows at the temperature itself."""
        return self._temperature_status

    @property
    def is_passive(self) -> bool:
        """No term is negative, so that the material never gives energy."""
        return all(term.delta_eps >= 0.0 for term in self._terms)

    @overload
    def __call__(self, frequency: Scalar) -> complex: ...
    @overload
    def __call__(self, frequency: ArrayLike) -> ComplexArray: ...
    def __call__(self, frequency: Numbers) -> Union[complex, ComplexArray]:
        """The permittivity at each frequency (Hz), in their shape. Warns outside frequency_range."""
        f = np.asarray(frequency, np.float64, order="C")
        real = np.empty(f.shape)
        imaginary = np.empty(f.shape)
        _native.check(
            _native.lib.ml_permittivity(
                self._handle.address, f.ctypes.data, f.size, real.ctypes.data, imaginary.ctypes.data
            )
        )
        self._warn_outside(f)
        if not f.ndim:
            return complex(real, imaginary)
        permittivity = np.empty(f.shape, np.complex128)
        permittivity.real = real
        permittivity.imag = imaginary
        return permittivity

    def _warn_outside(self, f: DoubleArray) -> None:
        if self._frequency_range is None or not f.size:
            return
        low, high = self._frequency_range
        if f.min() < low or f.max() > high:
            outside = int(np.count_nonzero((f < low) | (f > high)))
            warn_extrapolated(
                f"{outside} of {f.size} frequencies are outside the rows of the model, "
                f"{format_frequency(low)} to {format_frequency(high)}"
            )

    def debye_poles(self, per_decade: int = 3, band: Optional[tuple[float, float]] = None) -> DebyePoles:
        """The same permittivity as a sum of single Debye poles, 1 to 20 of them a decade.

        ``band`` (Hz) is where ``worst_error`` is sought: by default the rows' range, or that of the terms.

        >>> Model(3.5, [(1e4, 1e12, 0.8)]).debye_poles(per_decade=2)
        <DebyePoles: eps_inf 3.5, 16 poles, error 6.6e-05>
        """
        lib = _native.lib
        if band is None:
            band = self._frequency_range or self._span()
        count = ctypes.c_size_t()
        worst = ctypes.c_double()
        arguments = (self._handle.address, per_decade, *band)
        if lib.ml_debye_poles(*arguments, None, 0, ctypes.byref(count), None) != 0:
            raise ValueError(f"per_decade is 1 to 20, band 0 < low <= high: not {per_decade}, {band}")
        poles = (_native.Pole * count.value)()
        _native.check(
            lib.ml_debye_poles(*arguments, poles, count.value, ctypes.byref(count), ctypes.byref(worst))
        )
        return DebyePoles(
            self._eps_inf,
            np.array([pole.frequency for pole in poles]),
            np.array([pole.delta_eps for pole in poles]),
            worst.value,
        )

    def _span(self) -> tuple[float, float]:
        if not self._terms:
            return 1.0, 1.0
        return min(term.f1 for term in self._terms), max(term.f2 for term in self._terms)

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Model):
            return NotImplemented
        return (self._eps_inf, self._terms) == (other._eps_inf, other._terms)

    def __hash__(self) -> int:
        return hash((self._eps_inf, self._terms))

    def __repr__(self) -> str:
        text = f"<Model: eps_inf {self._eps_inf:.6g}, {len(self._terms)} terms"
        if self._frequency_range is not None:
            low, high = map(format_frequency, self._frequency_range)
            text += f", fitted to rows from {low} to {high}"
        return text + ">"
