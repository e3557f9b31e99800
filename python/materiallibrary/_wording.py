"""Numbers for people."""

from __future__ import annotations

_UNITS = ((1e12, "THz"), (1e9, "GHz"), (1e6, "MHz"), (1e3, "kHz"))


def format_frequency(frequency: float) -> str:
    """
    >>> format_frequency(2.5e9)
    '2.5 GHz'
    """
    for scale, unit in _UNITS:
        if abs(frequency) >= scale:
            return f"{frequency / scale:g} {unit}"
    return f"{frequency:g} Hz"
