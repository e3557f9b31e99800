import warnings
from typing import Any, Callable

import numpy as np
import pytest

import materiallibrary as ml
from materiallibrary import Source

ROWS_OF_ER_ONLY = '{MAT_FILE}{VERSION=1.0}{DIELECTRIC(NAME="x")(ER TEMPERATURE=25 TABLE=1MHz 4 1GHz 3.9)}'
F = np.geomspace(2e6, 9e9, 12)


def test_shapes_follow_the_frequencies(core: ml.Material) -> None:
    scalar = core.er(2.5e9)
    assert type(scalar) is float and type(core.permittivity(2.5e9)) is complex
    assert type(core.er(2_500_000_000)) is float and core.er(np.float64(2.5e9)) == scalar
    assert core.er([2.5e9]).shape == (1,) and core.er([]).shape == (0,)
    square = F.reshape(3, 4)
    assert np.array_equal(core.loss_tangent(square.T), core.loss_tangent(F).reshape(3, 4).T)
    assert np.array_equal(core.er(F[::-2]), core.er(F)[::-2])
    values, status = core.er(square, return_status=True)
    assert values.shape == status.shape == (3, 4) and status.dtype == np.uint8
    with pytest.raises(TypeError):
        core.er(1j)  # type: ignore[call-overload]


def test_temperatures_are_broadcast(lib: ml.Library) -> None:
    core = lib["FR4 High Tg Core 0.10 mm"]
    both = core.er(F, np.array([[125.0], [25.0]]))
    assert np.array_equal(both, [core.er(F, 125), core.er(F, 25)])
    assert core.er(1e9, [25, 85]).shape == (2,)
    assert core.permittivity(F[:, np.newaxis], [25, 85]).shape == (12, 2)
    between, status = core.er(F, 60, return_status=True)
    assert np.all(status == Source.CONSTANT + ml.TEMPERATURE_BETWEEN) and np.ptp(between) == 0.0
    _, status = core.er(F, [200, np.nan, 25] * 4, return_status=True)
    assert np.all(status[0::3] == Source.MODEL + ml.TEMPERATURE_NEAREST)
    assert np.all(ml.source(status[1::3]) == Source.NO_DATA)
    assert np.all(status[2::3] == Source.MODEL)


def test_permittivity_is_made_of_er_and_loss_tangent(core: ml.Material) -> None:
    assert np.array_equal(core.permittivity(F), core.er(F) - 1j * core.er(F) * core.loss_tangent(F))
    assert core.permittivity(1e6).imag < 0.0


def test_rows_answer_unless_the_curve_is_to_be_smooth(lib: ml.Library, core: ml.Material) -> None:
    assert core.er(1e6, return_status=True) == (4.548, Source.ROW)
    value, status = core.er(1e6, smooth=True, return_status=True)
    assert status == Source.MODEL and value == core.model()(1e6).real
    foil = next(m for m in lib.select(kind="metal") if len(m.tables[0]) > 2)
    (f0, f1), (v0, v1) = foil.tables[0].frequencies[:2], foil.tables[0].values[:2]
    assert foil.roughness_top((f0 + f1) / 2, smooth=True) == pytest.approx((v0 + v1) / 2)
    assert foil.roughness_top((f0 + f1) / 2) != pytest.approx((v0 + v1) / 2)


def test_extrapolation_warns_once_a_call_at_the_callers_line(core: ml.Material) -> None:
    questions: list[Callable[[Any], Any]] = [core.er, core.loss_tangent, core.permittivity, core.model()]
    for question in questions:
        with pytest.warns(ml.ExtrapolationWarning, match="2 of 3") as caught:
            question([1e5, 2e6, 1e12])
        assert len(caught) == 1 and caught[0].filename == __file__
        with warnings.catch_warnings():
            warnings.simplefilter("error")
            question(F)
            warnings.simplefilter("ignore", ml.ExtrapolationWarning)
            question(1e12)
    with pytest.warns(ml.ExtrapolationWarning):
        _, status = core.er([1e5, 2e6, 1e6, 1e12], return_status=True)
    assert ml.is_extrapolated(status).tolist() == [True, False, False, True]


def test_missing_values_are_errors_or_a_status(lib: ml.Library, core: ml.Material) -> None:
    with pytest.raises(ml.NoValueError, match="12 of 12 values of roughness_top are missing"):
        core.roughness_top(F)
    with pytest.raises(ml.NoValueError):
        lib["Tungsten"].permittivity(1e9)
    one = ml.open_text(ROWS_OF_ER_ONLY)[0]
    assert one.er(1e6) == 4.0
    with pytest.raises(ml.NoValueError, match="'x'.* no rows"):
        one.er([1e6, 2e6])
    values, status = one.er([1e6, 2e6], return_status=True)
    assert np.isnan(values[1]) and ml.is_missing(status).tolist() == [False, True]
    with pytest.raises(ml.NoValueError, match="'x' has no model at 25 C"):
        one.model()
