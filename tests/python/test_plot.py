import warnings

import numpy as np

import materiallibrary as ml


def test_rows_are_markers_and_the_model_is_a_line(core: ml.Material) -> None:
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        ax = core.plot()
    rows, model = ax.lines
    assert ax.get_xscale() == "log" and rows.get_linestyle() == "None" and model.get_marker() == "None"
    assert np.array_equal(rows.get_ydata(), core.tables[0].values)
    assert np.array_equal(model.get_ydata(), core.er(model.get_xdata(), smooth=True))
    assert len(ax.figure.axes) == 2 and core.plot(ax, temperature=60) is ax


def test_every_example_can_be_drawn(lib: ml.Library) -> None:
    from matplotlib import pyplot

    for material in lib:
        figure = material.plot().figure
        assert all(axes.lines for axes in figure.axes)
        pyplot.close(figure)
