"""Pictures of a material's rows and model."""

from __future__ import annotations

from typing import TYPE_CHECKING, Optional

import numpy as np

from ._answers import ask
from ._errors import NoValueError
from ._status import is_missing
from ._types import Property

if TYPE_CHECKING:
    from matplotlib.axes import Axes

    from ._material import Material, Table

_POINTS = 400
_SAME_TEMPERATURE = 0.1  # degrees, as the library sees it
_DIELECTRIC: tuple[tuple[Property, str], ...] = (("er", "tab:blue"), ("loss_tangent", "tab:orange"))
_METAL: tuple[tuple[Property, str], ...] = (("roughness_top", "tab:blue"), ("roughness_bottom", "tab:orange"))
_TITLES = {
    "er": "Er",
    "loss_tangent": "Loss tangent",
    "roughness_top": "Roughness factor, top",
    "roughness_bottom": "Roughness factor, bottom",
}


def plot(material: Material, ax: Optional[Axes], temperature: float) -> Axes:
    """See Material.plot."""
    if ax is None:
        try:
            from matplotlib import pyplot
        except ImportError as error:
            raise ImportError("plot needs matplotlib: pip install matplotlib") from error
        ax = pyplot.figure(layout="constrained").add_subplot()
    tables = [table for table in material.tables if len(table)]
    if not tables:
        raise NoValueError(f"{material.name!r} has no rows to draw")
    ax.set_xscale("log")
    ax.set_xlabel("Frequency / Hz")
    ax.set_title(f"{material.name}, {temperature:g} °C")
    if material.kind == "metal":
        _plot_metal(ax, tables, temperature)
    else:
        _plot_dielectric(ax, material, tables, temperature)
    return ax


def _nearest(tables: list[Table], asked: Property, temperature: float) -> Optional[Table]:
    own = [table for table in tables if table.property == asked]
    own.sort(key=lambda table: abs(table.temperature - temperature))
    return own[0] if own else None


def _plot_metal(ax: Axes, tables: list[Table], temperature: float) -> None:
    for asked, colour in _METAL:
        table = _nearest(tables, asked, temperature)
        if table is None:
            continue
        if len(table) == 1:
            ax.axhline(table.values[0], color=colour, label=f"{_TITLES[asked]}, constant")
        order = np.argsort(table.frequencies, kind="stable")
        label = _TITLES[asked] if len(table) > 1 else None
        ax.plot(table.frequencies[order], table.values[order], "o-", color=colour, label=label)
    ax.set_ylabel("Roughness factor")
    ax.grid(True, alpha=0.3)
    ax.legend()


def _span(tables: list[Table]) -> tuple[float, float]:
    """The frequencies of the rows; a decade around that of a constant."""
    ends = [float(f) for table in tables for f in table.frequencies if f > 0.0] or [1e9]
    low, high = min(ends), max(ends)
    return (low, high) if low < high else (low / 10.0, high * 10.0)


def _plot_dielectric(ax: Axes, material: Material, tables: list[Table], temperature: float) -> None:
    f = np.geomspace(*_span(tables), _POINTS)
    right = ax.twinx()
    for axes, (asked, colour) in zip((ax, right), _DIELECTRIC):
        table = _nearest(tables, asked, temperature)
        if table is not None and abs(table.temperature - temperature) <= _SAME_TEMPERATURE:
            axes.plot(table.frequencies, table.values, "o", color=colour, label=f"{_TITLES[asked]}, rows")
        values, status = ask(material, asked, f, temperature, smooth=True)
        if not is_missing(status).any():
            axes.plot(f, values, color=colour, label=f"{_TITLES[asked]}, model")
        axes.set_ylabel(_TITLES[asked], color=colour)
        axes.ticklabel_format(axis="y", useOffset=False)
    ax.grid(True, alpha=0.3)
    handles = [artist for axes in (ax, right) for artist in axes.lines]
    ax.legend(handles=handles, loc="upper center", bbox_to_anchor=(0.5, -0.14), ncol=2)
