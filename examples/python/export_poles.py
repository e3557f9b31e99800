"""Exports a laminate as Debye poles, which is what solvers in the time domain take.

    export_poles.py FILE NAME [--temperature 25] [--per-decade 3] [--band 1e6 20e9]

Prints JSON: eps(f) = eps_inf + sum of delta_eps / (1 + j 2 pi f tau). The poles are stable; where none is negative
the material is passive, and the time step of an explicit scheme need not follow the fastest pole.
"""

import argparse
import json
import sys

import materiallibrary as ml


def rounded(number: float) -> float:
    return float(f"{number:.9g}")


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("file")
    parser.add_argument("name")
    parser.add_argument("--temperature", type=float, default=25.0, help="degrees Celsius")
    parser.add_argument("--per-decade", type=int, default=3, help="poles, 1 to 20")
    parser.add_argument("--band", type=float, nargs=2, default=(1e6, 20e9), metavar=("LOW", "HIGH"), help="Hz")
    asked = parser.parse_args()
    try:
        model = ml.open(asked.file)[asked.name].model(asked.temperature)
        poles = model.debye_poles(asked.per_decade, tuple(asked.band))
    except (ml.MaterialLibraryError, ValueError) as error:
        print(error, file=sys.stderr)
        return 1
    material = {
        "material": asked.name,
        "temperature_c": asked.temperature,
        "eps_inf": rounded(poles.eps_inf),
        "poles": [
            {"delta_eps": rounded(delta), "tau_s": rounded(tau)}
            for delta, tau in zip(poles.delta_eps, poles.relaxation_times)
        ],
        "band_hz": asked.band,
        "worst_error": rounded(poles.worst_error),
        "passive": model.is_passive and bool((poles.delta_eps >= 0.0).all()),
    }
    print(json.dumps(material, indent=2))
    return 0


if __name__ == "__main__":
    sys.exit(main())
