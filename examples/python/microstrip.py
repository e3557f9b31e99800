"""From a stack-up to the impedance and the losses of a microstrip line over frequency, with a picture.

    microstrip.py DIELECTRICS METALS [PICTURE]

The line's impedance is that of E. Hammerstad and O. Jensen, "Accurate models for microstrip computer-aided design",
IEEE MTT-S International Microwave Symposium Digest, 1980, with the correction for the thickness of the strip. It is
quasi-static: the frequency enters through the materials. Losses are the textbook's for a microstrip: of the dielectric
by its filling factor, of the conductor by its skin resistance times the roughness factor of the face.
"""

import sys
from dataclasses import dataclass

import numpy as np
import numpy.typing as npt

import materiallibrary as ml

LIGHT = 299792458.0  # m/s
VACUUM_PERMEABILITY = 4e-7 * np.pi
VACUUM_IMPEDANCE = LIGHT * VACUUM_PERMEABILITY
DECIBEL = 20.0 / np.log(10.0)  # of a neper
Array = npt.NDArray[np.float64]


@dataclass
class StackUp:
    """A strip on a core above a plane."""

    core: ml.Material
    foil: ml.Material
    width: float  # m
    thickness: float  # m, of the foil


def impedance_in_air(u: Array) -> Array:
    """Of a strip without thickness, u times as wide as it is high above its plane."""
    f = 6.0 + (2.0 * np.pi - 6.0) * np.exp(-((30.666 / u) ** 0.7528))
    return np.asarray(VACUUM_IMPEDANCE / (2.0 * np.pi) * np.log(f / u + np.sqrt(1.0 + (2.0 / u) ** 2)))


def effective_permittivity(u: Array, er: Array) -> Array:
    a = 1.0 + np.log((u**4 + (u / 52.0) ** 2) / (u**4 + 0.432)) / 49.0 + np.log(1.0 + (u / 18.1) ** 3) / 18.7
    b = 0.564 * ((er - 0.9) / (er + 3.0)) ** 0.053
    return np.asarray((er + 1.0) / 2.0 + (er - 1.0) / 2.0 * (1.0 + 10.0 / u) ** (-a * b))


def line(width: float, height: float, thickness: float, er: Array) -> tuple[Array, Array]:
    """Impedance and effective permittivity of a microstrip on a dielectric of that permittivity."""
    u, t = width / height, thickness / height
    in_air = t / np.pi * np.log(1.0 + 4.0 * np.e / (t / np.tanh(np.sqrt(6.517 * u)) ** 2))
    on_dielectric = 0.5 * (1.0 + 1.0 / np.cosh(np.sqrt(er - 1.0))) * in_air
    u_air, u_mixed = np.asarray(u + in_air), np.asarray(u + on_dielectric)
    static = effective_permittivity(u_mixed, er)
    impedance = impedance_in_air(u_mixed) / np.sqrt(static)
    return impedance, static * (impedance_in_air(u_air) / impedance_in_air(u_mixed)) ** 2


def evaluate(stack: StackUp, f: Array) -> tuple[Array, Array, Array]:
    """Impedance in ohm, losses of dielectric and conductor in dB/m."""
    assert stack.core.thickness is not None and stack.foil.resistivity is not None
    er = stack.core.er(f, smooth=True)
    loss_tangent = stack.core.loss_tangent(f, smooth=True)
    impedance, effective = line(stack.width, stack.core.thickness, stack.thickness, er)
    filling = er * (effective - 1.0) / (effective * (er - 1.0))
    dielectric = np.pi * f / LIGHT * np.sqrt(effective) * filling * loss_tangent
    skin = np.sqrt(np.pi * f * VACUUM_PERMEABILITY * stack.foil.resistivity)
    rough = stack.foil.roughness_bottom(f, smooth=True)
    conductor = skin * rough / (impedance * stack.width)
    return impedance, DECIBEL * dielectric, DECIBEL * conductor


def draw(f: Array, impedance: Array, dielectric: Array, conductor: Array, title: str, path: str) -> None:
    from matplotlib import pyplot

    figure, (top, bottom) = pyplot.subplots(2, sharex=True, layout="constrained")
    top.semilogx(f, impedance)
    top.set_ylabel("Impedance / Ω")
    top.set_title(title)
    bottom.loglog(f, dielectric + conductor, "k", label="both")
    bottom.loglog(f, dielectric, label="dielectric")
    bottom.loglog(f, conductor, label="conductor")
    bottom.set_ylabel("Loss / (dB/m)")
    bottom.set_xlabel("Frequency / Hz")
    bottom.legend()
    for axes in (top, bottom):
        axes.grid(True, which="both", alpha=0.3)
    figure.savefig(path)


def main(dielectrics: str, metals: str, picture: str = "") -> None:
    lib = ml.open(dielectrics, metals)
    stack = StackUp(lib["Low Loss Core 0.10 mm"], lib["Copper Foil Reverse Treated"], width=0.2e-3, thickness=35e-6)
    f = np.geomspace(1e7, 20e9, 401)
    impedance, dielectric, conductor = evaluate(stack, f)
    print(f"{stack.width * 1e3:g} mm wide on {stack.core.name}, {stack.foil.name}")
    for i in (0, 200, 400):
        print(f"{f[i] / 1e9:7.3f} GHz  {impedance[i]:.2f} ohm  {dielectric[i]:7.3f} + {conductor[i]:.3f} dB/m")
    if picture:
        draw(f, impedance, dielectric, conductor, f"{stack.core.name}, {stack.foil.name}", picture)


if __name__ == "__main__":
    main(*sys.argv[1:])
