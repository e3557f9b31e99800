import pickle

import numpy as np
import pytest

import materiallibrary as ml

F = np.geomspace(1e6, 20e9, 101)


def test_is_the_sum_of_its_terms(core: ml.Material) -> None:
    model = core.model()
    total = model.eps_inf + sum(
        d / np.log(f2 / f1) * np.log((f2 + 1j * F) / (f1 + 1j * F)) for f1, f2, d in model.terms
    )
    assert np.allclose(model(F), total, rtol=1e-12)
    assert model.frequency_range == (1e6, 20e9) and model.is_passive and model.temperature_status == 0


def test_residuals_are_those_of_the_rows(core: ml.Material) -> None:
    residuals = core.model().residuals
    assert [r.value for r in residuals] == [value for table in core.tables for value in table.values]
    first, loss = residuals[0], residuals[12]
    eps = core.model()(1e6)
    assert first.residual == eps.real - 4.548 and loss.residual == -eps.imag / eps.real - loss.value
    assert (first.property, loss.property, first.is_fitted) == ("er", "loss_tangent", True)


def test_other_temperatures(lib: ml.Library) -> None:
    assert lib["FR4 High Tg Core 0.10 mm"].model(200).temperature_status == ml.TEMPERATURE_NEAREST


def test_survives_pickling_and_its_library() -> None:
    model = ml.open("examples/materials/DefaultMaterialD.mat")[0].model()
    copy = pickle.loads(pickle.dumps(model))
    assert copy == model and hash(copy) == hash(model) and np.array_equal(copy(F), model(F))
    assert copy.residuals == model.residuals and repr(copy) == repr(model)
    assert copy == ml.Model(model.eps_inf, model.terms) and copy != ml.Model(1.0, [])


def test_poles_stay_within_the_error_that_they_state(core: ml.Material) -> None:
    model = core.model()
    for per_decade in (1, 3, 5):
        poles = model.debye_poles(per_decade)
        error = np.abs(poles(F) - model(F)) / np.abs(model(F))
        assert len(poles) == 7 * per_decade and 0.9 * poles.worst_error < error.max() <= 1.001 * poles.worst_error
        assert poles.delta_eps.sum() == pytest.approx(sum(term.delta_eps for term in model.terms))
    assert type(poles(1e9)) is complex and poles(F.reshape(1, -1)).shape == (1, 101)
    assert poles.relaxation_times[0] == pytest.approx(1 / (2 * np.pi * poles.frequencies[0]))


@pytest.mark.parametrize("terms", [[(1e6, 1e6, 0.1)], [(0.0, 1e6, 0.1)], [(1e6, 1e9, np.nan)]])
def test_refuses_what_is_no_term(terms: list[tuple[float, float, float]]) -> None:
    with pytest.raises(ValueError):
        ml.Model(3.0, terms)


def test_refuses_what_is_no_band(core: ml.Material) -> None:
    for per_decade, band in ((0, None), (21, None), (3, (0.0, 1e9)), (3, (1e9, 1e6))):
        with pytest.raises(ValueError):
            core.model().debye_poles(per_decade, band)
